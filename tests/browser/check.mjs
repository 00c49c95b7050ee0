// Browser check of the generated site: makes a gallery with the real
// kiekbord-maak for every template set and every photo page template (one,
// several and the slideshow form, each caption position, thumbnails on and
// off), opens every page in headless Chromium and fails on any broken link,
// anchor, image, request or script error. It also follows the page select and
// the links, drives the slideshow by button, arrow key, photo select, swipe
// and automatic advance, checks that no page scrolls sideways on a phone, and
// saves a screenshot of every page kind at phone and desktop width into
// DIR/schermafdrukken; on those pages axe-core also checks accessibility
// (contrast, labels, headings, alt texts).
//
//   node check.mjs --maak PATH/kiekbord-maak --uit DIR [--sjablonen Klassiek,Raster]
//                  [--alleen-maken]
//
// The template sets are those beside kiekbord-maak (its Sjabloon folder). The
// photos are drawn with the browser's canvas and saved as JPEG. --alleen-maken
// makes the galleries and checks their files without opening them (for
// sanitizer builds). Exit code 0 when all checks pass, 1 on a failure, 77 when
// Chromium or the npm packages are missing and CI is not set (ctest shows the
// test as skipped); with CI set that is a failure.

import { spawnSync } from 'node:child_process';
import fs from 'node:fs';
import os from 'node:os';
import http from 'node:http';
import path from 'node:path';
import { createRequire } from 'node:module';
import { pathToFileURL } from 'node:url';
import { parseArgs } from 'node:util';

const kChromium = '/usr/bin/chromium';
const kChromiumArgs = ['--headless', '--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run',
  '--disable-background-networking', '--disable-component-update', '--disable-sync'];
// Every page is opened at both widths; a phone also swipes through the slideshow.
const kSchermen = [
  { breedte: 'desktop', desktop: true, context: { viewport: { width: 1280, height: 800 } } },
  { breedte: 'telefoon',
    context: { viewport: { width: 390, height: 844 }, deviceScaleFactor: 1, isMobile: true, hasTouch: true } },
];

// The gallery every variant shows: seven photos of different shapes, one
// without caption, captions that need escaping in HTML and in the script.
const kFotos = [
  { naam: 'meer.jpg', breedte: 1400, hoogte: 933, bijschrift: 'Ochtend aan het meer' },
  { naam: 'toren.jpg', breedte: 800, hoogte: 1200, bijschrift: 'Jan\'s uitzicht op de "Hoge Veluwe"' },
  { naam: 'duin.jpg', breedte: 1000, hoogte: 1000, bijschrift: 'Zon & zee bij Égmond' },
  { naam: 'polder.jpg', breedte: 1600, hoogte: 900, bijschrift: '' },
  { naam: 'heide.jpg', breedte: 1200, hoogte: 800,
    bijschrift: 'Een lang bijschrift dat op een telefoon over meer regels doorloopt zonder de pagina breder te maken dan het scherm' },
  { naam: 'boom.jpg', breedte: 900, hoogte: 1200, bijschrift: 'Zonsondergang 1 < 2' },
  { naam: 'haven.jpg', breedte: 1500, hoogte: 900, bijschrift: 'Tot ziens!' },
];
const kAantal = kFotos.length;
// The "Webformaat" galleries: photos of camera size with grain, portrait and
// landscape, and captions that broke the old slideshow script.
const kWebFotos = [
  { naam: 'kust.jpg', breedte: 4000, hoogte: 2667, bijschrift: 'Einde van het script: </script><script>stop()</script>' },
  { naam: 'spits.jpg', breedte: 3000, hoogte: 4000, bijschrift: 'Jan\'s "pad" naar C:\\nieuw\\foto en \\u0041' },
  { naam: 'veld.jpg', breedte: 3600, hoogte: 2400, bijschrift: 'Eerste regel<br>tweede regel' },
  { naam: 'toren2.jpg', breedte: 2400, hoogte: 3600, bijschrift: '' },
  { naam: 'baai.jpg', breedte: 4000, hoogte: 2250, bijschrift: 'Zon & zee bij Égmond' },
];

// Photo page template forms: plain (one photo per page), several per page, slideshow.
const kVormen = [
  { achtervoegsel: '', perPagina: 1, presentatie: 0 },
  { achtervoegsel: 'm', perPagina: 3, presentatie: 0 },
  { achtervoegsel: 'a', perPagina: 1, presentatie: 1 },
];

// The slideshow of a slideshow page, or the lightbox of a page with several photos.
const kDia = { houder: '#kbDia', bijschrift: '#kbBijschrift', teller: '#kbTeller', afspelen: '#kbAfspelen' };
const kLichtbak = { houder: 'dialog.kb-lichtbak', bijschrift: 'dialog.kb-lichtbak figcaption',
  teller: 'dialog.kb-lichtbak .teller', afspelen: 'dialog.kb-lichtbak .diabediening button:nth-child(2)' };

const { values: opties } = parseArgs({ options: {
  maak: { type: 'string' }, uit: { type: 'string' }, sjablonen: { type: 'string' }, 'alleen-maken': { type: 'boolean' },
} });
if (!opties.maak || !opties.uit) throw new Error('gebruik: check.mjs --maak PATH/kiekbord-maak --uit DIR');
const kAfdrukMap = path.join(opties.uit, 'schermafdrukken');
const gezien = new Set();
const fouten = [];

function controleer(voorwaarde, waar, tekst) {
  if (!voorwaarde) {
    fouten.push(`${waar}: ${tekst}`);
    console.log(`FOUT ${waar}: ${tekst}`);
  }
  return voorwaarde;
}

function overslaanOfFalen(reden) {
  const ci = process.env.CI && !['0', 'false'].includes(process.env.CI);
  console.log(ci ? `FOUT: ${reden}` : `Overgeslagen: ${reden} (./kiekbord.sh test installeert het)`);
  process.exit(ci ? 1 : 77);
}

async function laadPlaywright() {
  if (!fs.existsSync(kChromium)) overslaanOfFalen(`${kChromium} ontbreekt`);
  try {
    const chromium = (await import('playwright-core')).chromium;
    const axe = fs.readFileSync(createRequire(import.meta.url).resolve('axe-core/axe.min.js'), 'utf8');
    return { chromium, axe };
  } catch {
    return overslaanOfFalen('playwright-core of axe-core ontbreekt (npm ci in tests/browser)');
  }
}

// A browser of its own with a fresh profile; the profiles go when the check ends.
const kProfielen = fs.mkdtempSync(path.join(os.tmpdir(), 'kiekbord-chromium-'));
process.on('exit', () => fs.rmSync(kProfielen, { recursive: true, force: true, maxRetries: 5 }));
function startBrowser(chromium, instellingen) {
  return chromium.launchPersistentContext(fs.mkdtempSync(path.join(kProfielen, 'profiel-')), {
    executablePath: kChromium, headless: true, args: kChromiumArgs, ...instellingen,
  });
}

// Draws a landscape per photo with the browser's canvas and saves it as JPEG.
async function tekenFotos(context, doel, fotos = kFotos) {
  const pagina = await context.newPage();
  for (const [i, foto] of fotos.entries()) {
    const dataUrl = await pagina.evaluate(({ b, h, nr }) => {
      const doek = Object.assign(document.createElement('canvas'), { width: b, height: h });
      const g = doek.getContext('2d');
      const tint = (nr * 53 + 190) % 360;
      const lucht = g.createLinearGradient(0, 0, 0, h);
      [[0, 0, 60, 45], [0.6, 30, 70, 78], [1, 50, 80, 88]].forEach(([stop, verschuiving, verzadiging, licht]) => {
        lucht.addColorStop(stop, `hsl(${(tint + verschuiving) % 360}, ${verzadiging}%, ${licht}%)`);
      });
      g.fillStyle = lucht;
      g.fillRect(0, 0, b, h);
      g.fillStyle = 'hsla(45, 100%, 85%, 0.9)';
      g.beginPath();
      g.arc(b * (0.25 + 0.08 * nr), h * 0.3, Math.min(b, h) * 0.08, 0, 2 * Math.PI);
      g.fill();
      for (let laag = 0; laag < 4; laag++) {
        g.fillStyle = `hsl(${(tint + 140 + laag * 12) % 360}, ${35 + laag * 8}%, ${55 - laag * 12}%)`;
        g.beginPath();
        g.moveTo(0, h);
        for (let x = 0; x <= b; x += 8) {
          g.lineTo(x, h * (0.55 + laag * 0.11) + Math.sin(x / b * (3 + laag + nr) + nr * 1.7 + laag) * h * 0.05);
        }
        g.lineTo(b, h);
        g.fill();
      }
      g.fillStyle = 'rgba(255, 255, 255, 0.85)';
      g.font = `bold ${Math.round(Math.min(b, h) / 8)}px sans-serif`;
      g.fillText(String(nr), Math.min(b, h) / 20, Math.min(b, h) / 6);
      if (b * h > 4e6) {
        // Grain as a camera gives it, so that the file is as heavy as a real photo.
        const beeld = g.getImageData(0, 0, b, h);
        for (let j = 0; j < beeld.data.length; j++) beeld.data[j] += (Math.random() - 0.5) * 24;
        g.putImageData(beeld, 0, 0);
      }
      return doek.toDataURL('image/jpeg', 0.85);
    }, { b: foto.breedte, h: foto.hoogte, nr: i + 1 });
    fs.writeFileSync(path.join(doel, foto.naam), Buffer.from(dataUrl.split(',')[1], 'base64'));
  }
  await pagina.close();
}

// The gallery script, written as the program writes it.
function scriptTekst(uitvoer, v) {
  const fotos = v.fotos ?? kFotos;
  const regels = [
    '[Kiekbord]', 'Versie=4.1', 'Opmerking=Dit bestand niet handmatig aanpassen!',
    '[Algemeen]', `InvoerDir=${uitvoer}`, `UitvoerDir=${uitvoer}`,
    'Titel=Proefkiekbord & co', 'Subtitel=Elke pagina in de browser', 'Datum=21 november 2026',
    'Beschrijving=Zeven foto\'s in elke vorm die dit sjabloon kent.<br>Gemaakt door de browsercontrole.',
    `Thumbnails=${v.thumbnails ? 1 : 0}`, `AantalFotos=${fotos.length}`,
  ];
  fotos.forEach((foto, i) => {
    regels.push(`[Foto${String(i + 1).padStart(3, '0')}]`, `Foto=${foto.naam}`, `Bijschrift=${foto.bijschrift}`);
  });
  regels.push('[Instellingen]', `Sjabloon=${v.sjabloon}`, `AantalFotosPerPagina=${v.vorm.perPagina}`,
    `Presentatie=${v.vorm.presentatie}`, `PositieFotos=${v.positie}`, `PositieBijschriften=${v.positie}`,
    'FotosZonderBijschrift=0', `LetterTypeTitels=${v.lettertype}`, `LetterTypeBijschriften=${v.lettertype}`,
    'LetterGrootteBijschriften=2', `LetterStijlBijschriften=${v.stijl}`,
    'KleurTekstOpAchtergrond=0', 'KleurAchtergrond=16777215', 'KleurTekstInKader=0', 'KleurKader=13421772');
  if (v.web) regels.push('Webformaat=1');
  return regels.join('\r\n') + '\r\n';
}

function variantenVan(sjabloon) {
  const varianten = [];
  for (let positie = 0; positie < 3; positie++) {
    kVormen.forEach((vorm, v) => varianten.push({
      sjabloon, naam: `kbfoto${positie + 1}${vorm.achtervoegsel}`, vorm, positie,
      // Every form and every caption position is seen with and without thumbnails.
      thumbnails: (positie + v) % 2 === 0, lettertype: [0, 6, 5][positie], stijl: v,
    }));
  }
  // All photos on one page: no previous, next or page links.
  varianten.push({ sjabloon, naam: 'kbfoto2m-alles', vorm: { achtervoegsel: 'm', perPagina: 10, presentatie: 0 },
    positie: 1, thumbnails: true, lettertype: 0, stijl: 0 });
  return varianten;
}

function maakKiekbord(fotoMap, variant) {
  const map = path.join(opties.uit, 'sites', variant.sjabloon, variant.naam);
  fs.rmSync(map, { recursive: true, force: true });
  const site = path.join(map, 'site');
  fs.mkdirSync(site, { recursive: true });
  const fotos = variant.fotos ?? kFotos;
  for (const foto of fotos) fs.copyFileSync(path.join(variant.fotoMap ?? fotoMap, foto.naam), path.join(site, foto.naam));
  const script = path.join(map, 'proef.kbs');
  fs.writeFileSync(script, scriptTekst(site + path.sep, variant));
  const run = spawnSync(opties.maak, [script], { encoding: 'utf8' });
  const waar = `${variant.sjabloon}/${variant.naam}`;
  const log = path.join(map, 'proef.log');
  const laatste = (fs.existsSync(log) ? fs.readFileSync(log, 'utf8') : '').split('\r\n').filter(Boolean).at(-1);
  if (!controleer(run.status === 0 && laatste === 'Normaal einde.', waar,
    `kiekbord-maak eindigde met ${run.status}${run.error ? ` (${run.error.message})` : ''}; `
    + `laatste logregel "${laatste ?? ''}"${run.stderr ? `; ${run.stderr.trim()}` : ''}`)) return null;
  const paginas = fs.readdirSync(site).filter((n) => n.endsWith('.html')).sort();
  return { ...variant, site, paginas, waar, fotoPaginas: Math.ceil(fotos.length / variant.vorm.perPagina) };
}

const paginaNaam = (nummer) => `kb${String(nummer).padStart(3, '0')}.html`;

// A link inside the site is good when its file exists and, with a "#", the
// target page holds that anchor, or is a slideshow that shows that photo.
function controleerDoel(site, vanPagina, adres, waar) {
  if (/^(https?:|mailto:|javascript:)/i.test(adres)) return;
  const [bestand, anker] = adres.split('#');
  const doel = bestand === '' ? vanPagina : decodeURIComponent(bestand);
  const pad = path.join(site, doel);
  if (!controleer(fs.existsSync(pad), waar, `"${adres}" verwijst naar een ontbrekend bestand`)) return;
  if (anker && doel.endsWith('.html')) {
    const html = fs.readFileSync(pad, 'utf8');
    const naam = anker.replace(/[.*+?^${}()|[\]\\]/g, '\\$&');
    const diaFoto = /id="kbDia"/.test(html) && /^foto(\d{3})$/.exec(anker);
    controleer(new RegExp(`\\s(id|name)\\s*=\\s*["']?${naam}["'\\s>]`, 'i').test(html)
      || (diaFoto && Number(diaFoto[1]) <= kAantal), waar, `"${adres}": anker #${anker} ontbreekt in ${doel}`);
  }
}

// Without a browser: every page is there and every address in it resolves.
function controleerBestanden(k) {
  const verwacht = ['index.html', ...(k.thumbnails ? ['kbovz.html'] : [])];
  for (let p = 1; p <= (k.vorm.presentatie === 1 ? 1 : k.fotoPaginas); p++) verwacht.push(paginaNaam(p));
  verwacht.sort();
  controleer(JSON.stringify(k.paginas) === JSON.stringify(verwacht), k.waar,
    `pagina's ${k.paginas.join(' ')}, verwacht ${verwacht.join(' ')}`);
  for (const pagina of k.paginas) {
    const html = fs.readFileSync(path.join(k.site, pagina), 'utf8');
    for (const m of html.matchAll(/\s(?:href|src)="([^"]*)"|<option value="([^"]*\.html)"/gi)) {
      controleerDoel(k.site, pagina, m[1] ?? m[2], `${k.waar}/${pagina}`);
    }
  }
}

// Opens page `naam` of gallery k, runs `stap` on it and reports what went
// wrong meanwhile: a failed step, console errors, script errors and failed
// requests. `voorbereiding` runs before the page loads.
async function opPagina(context, k, naam, waar, stap, voorbereiding) {
  const pagina = await context.newPage();
  pagina.setDefaultTimeout(10000);
  const problemen = [];
  const verzoeken = [];
  pagina.on('console', (m) => m.type() === 'error' && problemen.push(`consolefout: ${m.text()}`));
  pagina.on('pageerror', (e) => problemen.push(`scriptfout: ${e.message}`));
  pagina.on('requestfailed', (r) => problemen.push(`mislukt verzoek: ${r.url()} (${r.failure()?.errorText})`));
  pagina.on('request', (r) => verzoeken.push(r.url()));
  try {
    if (voorbereiding) await voorbereiding(pagina);
    await pagina.goto(k.basis ? k.basis + naam : pathToFileURL(path.join(k.site, naam)).href, { waitUntil: 'load' });
    await stap(pagina, verzoeken);
  } catch (e) {
    controleer(false, waar, e.message.split('\n')[0]);
  }
  await pagina.close();
  controleer(problemen.length === 0, waar, problemen.join('; '));
}

async function kapotteAfbeeldingen(pagina) {
  return pagina.evaluate(async () => {
    const beelden = Array.from(document.images);
    await Promise.all(beelden.map((b) => (b.complete ? null : new Promise((klaar) => {
      b.addEventListener('load', klaar, { once: true });
      b.addEventListener('error', klaar, { once: true });
    }))));
    // An image without a source (a slideshow frame still waiting for its
    // photo) points nowhere, so it cannot be a broken link.
    return beelden.filter((b) => b.getAttribute('src') && !(b.complete && b.naturalWidth > 0))
      .map((b) => b.getAttribute('src'));
  });
}

// The path of a screenshot the first time `soort` of this template set is
// seen at this width; null after that.
function afdruk(k, soort, scherm) {
  const bestand = soort && `${k.sjabloon}-${soort}-${scherm.breedte}.png`;
  if (!bestand || gezien.has(bestand)) return null;
  gezien.add(bestand);
  return path.join(kAfdrukMap, bestand);
}

// One page as it loads: images, links, language, title, alt texts, width and
// scrolling, and a screenshot of the first page of each kind of each template
// set, on a desktop with its accessibility checked by axe-core.
async function controleerPagina(context, k, naam, scherm, axe) {
  const soort = { 'index.html': 'titel', 'kbovz.html': 'overzicht', 'kb001.html': k.naam }[naam];
  const waar = `${k.waar}/${naam} (${scherm.breedte})`;
  await opPagina(context, k, naam, waar, async (pagina) => {
    const kapot = await kapotteAfbeeldingen(pagina);
    controleer(kapot.length === 0, waar, `kapotte afbeeldingen: ${kapot.join(', ')}`);
    const f = await pagina.evaluate(() => ({
      adressen: [...Array.from(document.querySelectorAll('a[href]'), (a) => a.getAttribute('href')),
        ...Array.from(document.querySelectorAll('select[onchange] option'), (o) => o.value)
          .filter((v) => /\.html$/.test(v))],
      lang: document.documentElement.lang, charset: document.characterSet, titel: document.title,
      zonderAlt: Array.from(document.images).filter((b) => !b.hasAttribute('alt')).length,
      breed: document.documentElement.scrollWidth, boven: window.scrollY,
    }));
    for (const adres of f.adressen) controleerDoel(k.site, naam, adres, waar);
    controleer(f.lang === 'nl' && f.charset === 'UTF-8' && f.titel.includes('Proefkiekbord & co'),
      waar, `taal "${f.lang}", tekenset ${f.charset}, titel "${f.titel}"`);
    controleer(f.zonderAlt === 0, waar, `${f.zonderAlt} afbeelding(en) zonder alt-tekst`);
    // Compared with the viewport set, since a phone widens its layout to fit
    // what sticks out. A page opened without an anchor starts at the top,
    // where its navigation is (scroll snapping must not carry it away).
    const venster = pagina.viewportSize().width;
    controleer(f.breed <= venster, waar, `pagina is ${f.breed}px breed in een venster van ${venster}px`);
    controleer(f.boven === 0, waar, `pagina begint ${f.boven}px naar beneden gescrold`);
    const schermafdruk = afdruk(k, soort, scherm);
    if (!schermafdruk) return;
    await pagina.screenshot({ path: schermafdruk, fullPage: true, animations: 'disabled' });
    if (!scherm.desktop) return;
    await pagina.addScriptTag({ content: axe });
    const ontoegankelijk = await pagina.evaluate(async () => {
      // Without preloading: axe would fetch the style sheets, which a file:// page may not.
      const uitslag = await window.axe.run(document, { resultTypes: ['violations'], preload: false });
      return uitslag.violations.map((v) => `${v.id} (${v.impact}): ${v.nodes.map((n) => n.target.join(' ')).join(', ')}`);
    });
    controleer(ontoegankelijk.length === 0, waar, `toegankelijkheid: ${ontoegankelijk.join('; ')}`);
  });
}

async function wachtOpUrl(pagina, verwacht) {
  await pagina.waitForURL((u) => u.href.split('#')[0].endsWith(`/${verwacht}`), { timeout: 5000 });
}

// Navigation by link, page select and arrow key.
async function controleerNavigatie(context, k) {
  const proef = (wat, naam, stap) => opPagina(context, k, naam, `${k.waar}/${naam}, ${wat}`, stap);
  const klikNaar = async (p, doel) => {
    await p.locator(`a[href="${doel}"]`).first().click();
    await wachtOpUrl(p, doel);
  };

  await proef('link naar de eerste fotopagina', 'index.html', (p) => klikNaar(p, 'kb001.html'));
  if (k.thumbnails) {
    await proef('link naar het overzicht', 'index.html', (p) => klikNaar(p, 'kbovz.html'));
    await proef('thumbnail naar foto 5', 'kbovz.html', async (p) => {
      const link = p.locator('a[href$="#foto005"]').first();
      const doel = (await link.getAttribute('href')).split('#')[0];
      await link.click();
      await wachtOpUrl(p, doel);
      if (k.vorm.presentatie === 1) {
        await p.locator('#kbTeller').filter({ hasText: `Foto 5 van ${kAantal}` }).waitFor({ timeout: 5000 });
      }
    });
  }
  if (k.vorm.presentatie === 1 || k.fotoPaginas === 1) return;
  const laatste = paginaNaam(k.fotoPaginas);
  // A template offers the pages as a select, as a list of links, or both.
  let keuzes = 0;
  for (const [wat, keuze, kies] of [
    ['paginakeuze', 'select[onchange]', (l) => l.selectOption(laatste)],
    ['paginalijst', `a[href="${laatste}"]`, (l) => l.click()],
  ]) {
    await proef(wat, 'kb001.html', async (p) => {
      if (await p.locator(keuze).count() === 0) return;
      keuzes++;
      await kies(p.locator(keuze).first());
      await wachtOpUrl(p, laatste);
    });
  }
  controleer(keuzes > 0, `${k.waar}/kb001.html`, `geen paginakeuze en geen link naar ${laatste}`);
  await proef('pijl rechts en links', 'kb001.html', async (p) => {
    await p.keyboard.press('ArrowRight');
    await wachtOpUrl(p, 'kb002.html');
    await p.keyboard.press('ArrowLeft');
    await wachtOpUrl(p, 'kb001.html');
  });
  await proef('link volgende pagina', 'kb001.html', async (p) => {
    await klikNaar(p, 'kb002.html');
    await klikNaar(p, 'kb001.html');
  });
}

async function diaStand(pagina, delen = kDia) {
  return pagina.evaluate((d) => {
    const tekst = (keuze) => (document.querySelector(keuze)?.textContent ?? '').trim();
    const foto = document.querySelector(d.houder).querySelector('img');
    return {
      src: foto.getAttribute('src'), alt: foto.getAttribute('alt'), bijschrift: tekst(d.bijschrift), teller: tekst(d.teller),
      keuze: document.querySelector('select[onchange*="fnToonFoto"]')?.value ?? null, afspelen: tekst(d.afspelen),
    };
  }, delen);
}

// Photo `nummer` is shown: its file, caption, counter, alt text and select
// value, without broken images.
async function verwachtFoto(pagina, nummer, waar, delen = kDia) {
  const teller = `Foto ${nummer} van ${kAantal}`;
  await pagina.waitForFunction(({ t, keuze }) => document.querySelector(keuze)?.textContent.trim() === t,
    { t: teller, keuze: delen.teller }, { timeout: 5000 }).catch(() => {});  // the comparison below says what is shown
  const stand = await diaStand(pagina, delen);
  const foto = kFotos[nummer - 1];
  controleer(stand.src === foto.naam && stand.bijschrift === foto.bijschrift && stand.teller === teller
    && stand.alt === `foto ${nummer} van ${kAantal}` && (stand.keuze === null || stand.keuze === String(nummer)),
  waar, `foto ${nummer} verwacht (${foto.naam}, "${foto.bijschrift}"), getoond: ${JSON.stringify(stand)}`);
  const kapot = await kapotteAfbeeldingen(pagina);
  controleer(kapot.length === 0, waar, `kapotte afbeeldingen bij foto ${nummer}: ${kapot.join(', ')}`);
}

// Runs each [what, action, photo number] step and checks the photo shown after it.
async function stappen(pagina, waar, lijst, delen) {
  for (const [wat, doe, nummer] of lijst) {
    await doe();
    await verwachtFoto(pagina, nummer, `${waar}, ${wat}`, delen);
  }
}

// The slideshow by button, arrow key, photo select and automatic advance.
async function controleerDia(context, k) {
  const waar = `${k.waar}/kb001.html (diavoorstelling)`;
  await opPagina(context, k, 'kb001.html', waar, async (pagina, verzoeken) => {
    await verwachtFoto(pagina, 1, waar);
    controleer(verzoeken.some((u) => u.endsWith(`/${kFotos[1].naam}`)), waar, 'foto 2 is niet vooraf geladen');
    const klik = (keuze) => () => pagina.locator(keuze).click();
    await stappen(pagina, waar, [
      ['knop Volgende', klik('#kbVolgende'), 2],
      ['pijl rechts', () => pagina.locator('body').press('ArrowRight'), 3],
      ['pijl links', () => pagina.locator('body').press('ArrowLeft'), 2],
      ['knop Vorige', klik('#kbVorige'), 1],
      ['knop Vorige rondom', klik('#kbVorige'), 7],
      ['fotokeuze', () => pagina.locator('select[onchange*="fnToonFoto"]').selectOption('5'), 5],
    ]);
    await klik('#kbAfspelen')();
    controleer((await diaStand(pagina)).afspelen === 'Pauzeren', waar, 'knop Afspelen wordt geen Pauzeren');
    await pagina.clock.runFor(8000);
    const { teller } = await diaStand(pagina);
    controleer(['Foto 6 van 7', 'Foto 7 van 7'].includes(teller), waar, `automatisch verder: ${teller}`);
    await klik('#kbAfspelen')();
    const gepauzeerd = (await diaStand(pagina)).teller;
    await pagina.clock.runFor(20000);
    controleer((await diaStand(pagina)).teller === gepauzeerd, waar, 'pauzeren houdt de voorstelling niet stil');
  }, (p) => p.clock.install());
}

// A page with several photos opens the lightbox on a photo or the slideshow button.
async function controleerLichtbak(context, k, schermafdruk) {
  const waar = `${k.waar}/kb002.html (lichtbak)`;
  await opPagina(context, k, 'kb002.html', waar, async (pagina) => {
    const lichtbak = pagina.locator('dialog.kb-lichtbak');
    const knop = (naam) => () => lichtbak.getByRole('button', { name: naam }).click();
    await pagina.locator('#img005').click();
    await lichtbak.waitFor({ state: 'visible', timeout: 5000 });
    await verwachtFoto(pagina, 5, `${waar}, klik op foto 5`, kLichtbak);
    if (schermafdruk) await pagina.screenshot({ path: schermafdruk, animations: 'disabled' });
    await stappen(pagina, waar, [
      ['pijl rechts', () => pagina.keyboard.press('ArrowRight'), 6],
      ['knop Volgende', knop(/Volgende/), 7],
      ['knop Vorige', knop(/Vorige/), 6],
    ], kLichtbak);
    await pagina.keyboard.press('Escape');
    await lichtbak.waitFor({ state: 'hidden', timeout: 5000 });
    controleer(pagina.url().endsWith('/kb002.html'), waar, `de pagina is verlaten: ${pagina.url()}`);
    await stappen(pagina, waar, [['knop Diavoorstelling', () => pagina.locator('.kb-dia-start').first().click(), 4]],
      kLichtbak);
    await knop('Sluiten')();
    await lichtbak.waitFor({ state: 'hidden', timeout: 5000 });
  });
}

// On a phone: swipe through the slideshow.
async function controleerVegen(context, k) {
  const waar = `${k.waar}/kb001.html (vegen)`;
  await opPagina(context, k, 'kb001.html', waar, async (pagina) => {
    const vak = await pagina.locator('#kbDia img').boundingBox();
    const y = vak.y + Math.min(vak.height, 200) / 2;
    const cdp = await context.newCDPSession(pagina);
    const veeg = async (van, naar) => {
      for (const [type, x] of [['touchStart', van], ['touchMove', (van + naar) / 2], ['touchMove', naar]]) {
        await cdp.send('Input.dispatchTouchEvent', { type, touchPoints: [{ x, y }] });
      }
      await cdp.send('Input.dispatchTouchEvent', { type: 'touchEnd', touchPoints: [] });
    };
    await stappen(pagina, waar, [['naar links', () => veeg(300, 80), 2], ['naar rechts', () => veeg(80, 300), 1]]);
  });
}

// "Webformaat": every set in each presentation, served over HTTP with every
// photo delayed, so that bytes and layout shifts are those a visitor sees.
const kWebVormen = [
  { naam: 'kbfoto1', vorm: kVormen[0], positie: 0 },
  { naam: 'kbfoto3m', vorm: kVormen[1], positie: 2 },
  { naam: 'kbfoto3a', vorm: kVormen[2], positie: 2 },
];
const kWebGrens = { telefoon: 400 * 1024, desktop: 1024 * 1024 };
// The largest values measured, for the closing line.
const webGemeten = { telefoon: 0, desktop: 0, verschuiving: 0 };
function meetBytes(perFoto, scherm, waar) {
  webGemeten[scherm.breedte] = Math.max(webGemeten[scherm.breedte], perFoto);
  controleer(perFoto <= kWebGrens[scherm.breedte], waar, `${Math.round(perFoto / 1024)} KB per getoonde foto`);
}
const webVarianten = (sjabloon, fotoMap) => kWebVormen.map((w) => ({ ...w, sjabloon, naam: `web-${w.naam}`, web: true,
  fotos: kWebFotos, fotoMap, thumbnails: true, lettertype: 0, stijl: 0 }));

// Serves the galleries; holds back every JPEG for a moment and counts its bytes.
function startServer() {
  const server = http.createServer((verzoek, antwoord) => {
    const bestand = path.join(opties.uit, 'sites', decodeURIComponent(new URL(verzoek.url, 'http://x').pathname));
    if (!bestand.startsWith(path.join(opties.uit, 'sites')) || !fs.existsSync(bestand)) {
      antwoord.writeHead(404).end();
      return;
    }
    const inhoud = fs.readFileSync(bestand);
    const soort = { '.html': 'text/html; charset=utf-8', '.css': 'text/css', '.js': 'text/javascript',
      '.jpg': 'image/jpeg', '.gif': 'image/gif' }[path.extname(bestand)] ?? 'application/octet-stream';
    const foto = soort === 'image/jpeg';
    setTimeout(() => {
      if (foto) server.fotoBytes += inhoud.length;
      antwoord.writeHead(200, { 'Content-Type': soort, 'Cache-Control': 'no-store' }).end(inhoud);
    }, foto ? 400 : 0);
  });
  server.fotoBytes = 0;
  return new Promise((klaar) => server.listen(0, '127.0.0.1', () => klaar(server)));
}

// Sums the layout shifts of the page from its start.
const kVerschuiving = () => {
  window.kbVerschuiving = 0;
  new PerformanceObserver((lijst) => {
    for (const v of lijst.getEntries()) if (!v.hadRecentInput) window.kbVerschuiving += v.value;
  }).observe({ type: 'layout-shift', buffered: true });
};

// Every page of a web gallery: photo bytes per shown photo, layout shift,
// the page title naming its photo and the title page's cover.
async function controleerWebPagina(context, k, naam, scherm, server) {
  const waar = `${k.waar}/${naam} (${scherm.breedte}, webformaat)`;
  await opPagina(context, k, naam, waar, async (pagina) => {
    await pagina.waitForLoadState('networkidle');
    await kapotteAfbeeldingen(pagina);
    const f = await pagina.evaluate(() => ({
      verschuiving: window.kbVerschuiving, titel: document.title,
      getoond: Array.from(document.images).filter((b) => b.complete && b.naturalWidth > 0 && /\.jpg$/.test(b.currentSrc)).length,
    }));
    // A slideshow also fetches its neighbours ahead; its bytes are counted over all photos below.
    const perFoto = server.fotoBytes / Math.max(1, f.getoond);
    if (k.vorm.presentatie !== 1) meetBytes(perFoto, scherm, waar);
    webGemeten.verschuiving = Math.max(webGemeten.verschuiving, f.verschuiving);
    controleer(f.verschuiving < 0.05, waar, `verschuiving ${f.verschuiving.toFixed(3)} tijdens het laden`);
    if (naam === 'index.html') controleer(f.getoond === 1, waar, 'de titelpagina toont geen omslagfoto');
    const foto = /^kb(\d{3})\.html$/.exec(naam);
    if (foto && k.vorm.perPagina === 1) {
      const nummer = Number(foto[1]);
      const bijschrift = kWebFotos[nummer - 1].bijschrift.replace(/<[^>]*>/g, ' ').replace(/\s+/g, ' ').trim();
      controleer(f.titel.startsWith(`Foto ${nummer}${bijschrift ? `: ${bijschrift}` : ''} - `), waar, `titel "${f.titel}"`);
    } else if (foto) {
      controleer(/^Foto's \d+-\d+ - /.test(f.titel), waar, `titel "${f.titel}"`);
    }
  }, async (pagina) => {
    await pagina.addInitScript(kVerschuiving);
    server.fotoBytes = 0;
  });
}

// The box around an element, for "inside the viewport" and "did not move".
const vakVan = (pagina, keuze) => pagina.evaluate((k) => {
  const r = document.querySelector(k).getBoundingClientRect();
  return { x: Math.round(r.x), y: Math.round(r.y), rechts: r.right, onder: r.bottom, b: innerWidth, h: innerHeight };
}, keuze);
const binnen = (v) => v.x >= 0 && v.y >= 0 && v.rechts <= v.b + 0.5 && v.onder <= v.h + 0.5;

// The slideshow through all photos: photo, caption and buttons in view, the
// buttons in one place, each caption as written, bytes per photo shown.
async function controleerWebDia(context, k, scherm, server) {
  const waar = `${k.waar}/kb001.html (${scherm.breedte}, webformaat diavoorstelling)`;
  await opPagina(context, k, 'kb001.html', waar, async (pagina) => {
    const knoppen = await vakVan(pagina, '#kbBediening');
    for (const [i, foto] of kWebFotos.entries()) {
      if (i > 0) await pagina.locator('#kbVolgende').click();
      await pagina.locator('#kbTeller').filter({ hasText: `Foto ${i + 1} van` }).waitFor({ timeout: 5000 });
      await pagina.waitForFunction(() => document.querySelector('#kbDia img').complete, null, { timeout: 5000 });
      const stand = await diaStand(pagina);
      controleer(stand.bijschrift === foto.bijschrift.trim(), waar, `bijschrift ${i + 1}: "${stand.bijschrift}"`);
      for (const deel of ['#kbDia img', '#kbBijschrift', '#kbVolgende', '#kbBediening select']) {
        const vak = await vakVan(pagina, deel);
        controleer(binnen(vak), waar, `foto ${i + 1}: ${deel} valt buiten het scherm ${JSON.stringify(vak)}`);
      }
      const nu = await vakVan(pagina, '#kbBediening');
      controleer(nu.x === knoppen.x && nu.y === knoppen.y, waar, `foto ${i + 1}: de knoppen schuiven (${nu.x},${nu.y})`);
      const titel = await pagina.title();
      controleer(titel.startsWith(`Foto ${i + 1}`), waar, `titel "${titel}"`);
    }
    meetBytes(server.fotoBytes / kWebFotos.length, scherm, waar);
  }, () => { server.fotoBytes = 0; });
}

// The photo select by keyboard: arrow keys only move in the list, Enter goes.
async function controleerWebKeuze(context, k) {
  const waar = `${k.waar}/kb001.html (fotokeuze met toetsen)`;
  const laatste = kWebFotos.length;
  await opPagina(context, k, 'kb001.html', waar, async (pagina) => {
    const keuze = pagina.locator('select[onchange]').first();
    await keuze.focus();
    for (let i = 1; i < laatste; i++) await pagina.keyboard.press('ArrowDown');
    await pagina.waitForTimeout(300);
    const dia = k.vorm.presentatie === 1;
    const stand = dia ? (await diaStand(pagina)).teller : pagina.url();
    controleer(dia ? stand === `Foto 1 van ${laatste}` : stand.endsWith('/kb001.html'), waar, `pijltoetsen sprongen al: ${stand}`);
    await pagina.keyboard.press('Enter');
    if (dia) await pagina.locator('#kbTeller').filter({ hasText: `Foto ${laatste} van` }).waitFor({ timeout: 5000 });
    else await wachtOpUrl(pagina, paginaNaam(laatste));
  });
}

const begin = Date.now();
const tijd = () => `${((Date.now() - begin) / 1000).toFixed(1)} s`;
const sjabloonMap = path.join(path.dirname(path.resolve(opties.maak)), 'Sjabloon');
const sjablonen = opties.sjablonen?.split(',').filter(Boolean) ?? fs.readdirSync(sjabloonMap)
  .filter((n) => fs.statSync(path.join(sjabloonMap, n)).isDirectory()).sort();
if (sjablonen.length === 0) throw new Error(`geen sjablonen in ${sjabloonMap}`);

const { chromium, axe } = await laadPlaywright();
const fotoMap = path.join(opties.uit, 'fotos');
for (const map of [fotoMap, kAfdrukMap]) {
  fs.rmSync(map, { recursive: true, force: true });
  fs.mkdirSync(map, { recursive: true });
}
const tekenaar = await startBrowser(chromium, {});
await tekenFotos(tekenaar, fotoMap).finally(() => tekenaar.close());
const webFotoMap = path.join(opties.uit, 'webfotos');
fs.rmSync(webFotoMap, { recursive: true, force: true });
fs.mkdirSync(webFotoMap, { recursive: true });
const tekenaar2 = await startBrowser(chromium, {});
await tekenFotos(tekenaar2, webFotoMap, kWebFotos).finally(() => tekenaar2.close());
const kiekborden = sjablonen.flatMap((sjabloon) => [...variantenVan(sjabloon), ...webVarianten(sjabloon, webFotoMap)]
  .map((variant) => maakKiekbord(fotoMap, variant)).filter(Boolean));
const server = await startServer();
for (const k of kiekborden.filter((w) => w.web)) {
  k.basis = `http://127.0.0.1:${server.address().port}/${k.sjabloon}/${k.naam}/site/`;
}
for (const k of kiekborden) controleerBestanden(k);
console.log(`${kiekborden.length} kiekborden gemaakt met ${sjablonen.join(', ')} (${tijd()})`);
// The lightbox of every gallery with several photos per page; on a phone
// only that of the first such gallery of a set, which gets the screenshot.
const metLichtbak = (k) => k.vorm.achtervoegsel === 'm' && k.paginas.includes('kb002.html');
for (const scherm of opties['alleen-maken'] ? [] : kSchermen) {
  const context = await startBrowser(chromium, scherm.context);
  for (const k of kiekborden) {
    for (const naam of k.paginas) await controleerPagina(context, k, naam, scherm, axe);
    if (k.web) {
      for (const naam of k.paginas) await controleerWebPagina(context, k, naam, scherm, server);
      if (k.vorm.presentatie === 1) await controleerWebDia(context, k, scherm, server);
      if (scherm.desktop && k.vorm.perPagina === 1) await controleerWebKeuze(context, k);
      continue;
    }
    if (scherm.desktop) await controleerNavigatie(context, k);
    if (k.vorm.presentatie === 1) await (scherm.desktop ? controleerDia : controleerVegen)(context, k);
    const lichtbakAfdruk = metLichtbak(k) && afdruk(k, 'lichtbak', scherm);
    if (metLichtbak(k) && (scherm.desktop || lichtbakAfdruk)) await controleerLichtbak(context, k, lichtbakAfdruk);
  }
  await context.close();
  console.log(`${kiekborden.reduce((n, k) => n + k.paginas.length, 0)} pagina's geopend op `
    + `${scherm.context.viewport.width}px (${tijd()})`);
}
if (!opties['alleen-maken']) {
  console.log(`${gezien.size} schermafdrukken in ${kAfdrukMap}`);
  console.log(`Webformaat: hoogstens ${Math.round(webGemeten.telefoon / 1024)} KB per getoonde foto op 390px, `
    + `${Math.round(webGemeten.desktop / 1024)} KB op 1280px; verschuiving hoogstens ${webGemeten.verschuiving.toFixed(3)}`);
}
console.log(fouten.length > 0 ? `${fouten.length} fout(en) gevonden (${tijd()})` : `Alles in orde (${tijd()})`);
server.close();
process.exitCode = fouten.length > 0 ? 1 : 0;
