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
//   node check.mjs --maak PATH/kiekbord-maak --uit DIR [--fotos DIR]
//                  [--sjablonen Klassiek,Raster] [--alleen-maken]
//
// The template sets are those beside kiekbord-maak (its Sjabloon folder).
// The photos are drawn with the browser's canvas and saved as JPEG; --fotos
// takes the first seven JPEG files of a folder instead. --alleen-maken makes
// the galleries and checks their files without opening them (for sanitizer
// builds). Exit code 0 when all checks pass, 1 on a failure, 77 when Chromium
// or the npm packages are missing and CI is not set (ctest shows the test as
// skipped); with CI set that is a failure.

import { spawnSync } from 'node:child_process';
import fs from 'node:fs';
import os from 'node:os';
import path from 'node:path';
import { createRequire } from 'node:module';
import { fileURLToPath, pathToFileURL } from 'node:url';

const kChromium = '/usr/bin/chromium';
const kChromiumArgs = ['--headless', '--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run',
  '--disable-background-networking', '--disable-component-update', '--disable-sync'];
const kDesktop = { width: 1280, height: 800 };
const kTelefoon = { width: 390, height: 844 };

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

// Photo page template forms: plain (one photo per page), several per page, slideshow.
const kVormen = [
  { achtervoegsel: '', perPagina: 1, presentatie: 0 },
  { achtervoegsel: 'm', perPagina: 3, presentatie: 0 },
  { achtervoegsel: 'a', perPagina: 1, presentatie: 1 },
];

class Fouten {
  constructor() { this.lijst = []; }
  meld(waar, tekst) {
    this.lijst.push(`${waar}: ${tekst}`);
    console.log(`FOUT ${waar}: ${tekst}`);
  }
  controleer(voorwaarde, waar, tekst) {
    if (!voorwaarde) this.meld(waar, tekst);
    return voorwaarde;
  }
}

function leesOpties(argv) {
  const opties = { alleenMaken: false };
  for (let i = 0; i < argv.length; i++) {
    const a = argv[i];
    if (a === '--maak') opties.maak = argv[++i];
    else if (a === '--uit') opties.uit = argv[++i];
    else if (a === '--fotos') opties.fotos = argv[++i];
    else if (a === '--sjablonen') opties.sjablonen = argv[++i].split(',').filter(Boolean);
    else if (a === '--alleen-maken') opties.alleenMaken = true;
    else throw new Error(`onbekende optie ${a}`);
  }
  if (!opties.maak || !opties.uit) throw new Error('gebruik: check.mjs --maak PATH/kiekbord-maak --uit DIR');
  return opties;
}

function overslaanOfFalen(reden) {
  if (process.env.CI && !['0', 'false'].includes(process.env.CI)) {
    console.log(`FOUT: ${reden}`);
    process.exit(1);
  }
  console.log(`Overgeslagen: ${reden} (./kiekbord.sh test installeert het)`);
  process.exit(77);
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

async function toegankelijkheidsfouten(pagina, axe) {
  await pagina.addScriptTag({ content: axe });
  return pagina.evaluate(async () => {
    // Without preloading: axe would fetch the style sheets, which a file:// page may not.
    const uitslag = await window.axe.run(document, { resultTypes: ['violations'], preload: false });
    return uitslag.violations.map((v) => `${v.id} (${v.impact}): ${v.nodes.map((n) => n.target.join(' ')).join(', ')}`);
  });
}

async function startBrowser(chromium, opties) {
  const profiel = fs.mkdtempSync(path.join(os.tmpdir(), 'kiekbord-chromium-'));
  const context = await chromium.launchPersistentContext(profiel, {
    executablePath: kChromium, headless: true, args: kChromiumArgs, ...opties,
  });
  return {
    context,
    async sluit() {
      await context.close();
      fs.rmSync(profiel, { recursive: true, force: true });
    },
  };
}

// Draws a landscape per photo with the browser's canvas and saves it as JPEG.
async function tekenFotos(context, doel) {
  const pagina = await context.newPage();
  await pagina.setContent('<!DOCTYPE html><title>fotos</title>');
  for (const [i, foto] of kFotos.entries()) {
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
      return doek.toDataURL('image/jpeg', 0.85);
    }, { b: foto.breedte, h: foto.hoogte, nr: i + 1 });
    fs.writeFileSync(path.join(doel, foto.naam), Buffer.from(dataUrl.split(',')[1], 'base64'));
  }
  await pagina.close();
}

function kopieerEigenFotos(bron, doel) {
  const namen = fs.readdirSync(bron).filter((n) => /\.jpe?g$/i.test(n)).sort();
  if (namen.length < kAantal) throw new Error(`${bron} bevat minder dan ${kAantal} foto's`);
  kFotos.forEach((foto, i) => fs.copyFileSync(path.join(bron, namen[i]), path.join(doel, foto.naam)));
}

// The gallery script, written as the program writes it.
function scriptTekst(uitvoer, v) {
  const regels = [
    '[Kiekbord]', 'Versie=4.1', 'Opmerking=Dit bestand niet handmatig aanpassen!',
    '[Algemeen]', `InvoerDir=${uitvoer}`, `UitvoerDir=${uitvoer}`,
    'Titel=Proefkiekbord & co', 'Subtitel=Elke pagina in de browser', 'Datum=21 november 2026',
    'Beschrijving=Zeven foto\'s in elke vorm die dit sjabloon kent.<br>Gemaakt door de browsercontrole.',
    `Thumbnails=${v.thumbnails ? 1 : 0}`, `AantalFotos=${kAantal}`,
  ];
  kFotos.forEach((foto, i) => {
    regels.push(`[Foto${String(i + 1).padStart(3, '0')}]`, `Foto=${foto.naam}`, `Bijschrift=${foto.bijschrift}`);
  });
  regels.push('[Instellingen]', `Sjabloon=${v.sjabloon}`, `AantalFotosPerPagina=${v.vorm.perPagina}`,
    `Presentatie=${v.vorm.presentatie}`, `PositieFotos=${v.positie}`, `PositieBijschriften=${v.positie}`,
    'FotosZonderBijschrift=0', `LetterTypeTitels=${v.lettertype}`, `LetterTypeBijschriften=${v.lettertype}`,
    'LetterGrootteBijschriften=2', `LetterStijlBijschriften=${v.stijl}`,
    'KleurTekstOpAchtergrond=0', 'KleurAchtergrond=16777215', 'KleurTekstInKader=0', 'KleurKader=13421772');
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

function maakKiekbord(opties, fotoMap, variant, fouten) {
  const map = path.join(opties.uit, 'sites', variant.sjabloon, variant.naam);
  fs.rmSync(map, { recursive: true, force: true });
  const site = path.join(map, 'site');
  fs.mkdirSync(site, { recursive: true });
  for (const foto of kFotos) fs.copyFileSync(path.join(fotoMap, foto.naam), path.join(site, foto.naam));
  const script = path.join(map, 'proef.kbs');
  fs.writeFileSync(script, scriptTekst(site + path.sep, variant));
  const run = spawnSync(opties.maak, [script], { encoding: 'utf8' });
  const waar = `${variant.sjabloon}/${variant.naam}`;
  const log = path.join(map, 'proef.log');
  const laatste = (fs.existsSync(log) ? fs.readFileSync(log, 'utf8') : '').split('\r\n').filter(Boolean).at(-1);
  if (!fouten.controleer(run.status === 0 && laatste === 'Normaal einde.', waar,
    `kiekbord-maak eindigde met ${run.status}${run.error ? ` (${run.error.message})` : ''}; `
    + `laatste logregel "${laatste ?? ''}"${run.stderr ? `; ${run.stderr.trim()}` : ''}`)) {
    return null;
  }
  const paginas = fs.readdirSync(site).filter((n) => n.endsWith('.html')).sort();
  return { ...variant, site, paginas, waar, fotoPaginas: Math.ceil(kAantal / variant.vorm.perPagina) };
}

const paginaNaam = (nummer) => `kb${String(nummer).padStart(3, '0')}.html`;

// A link inside the site is good when its file exists and, with a "#", the
// target page holds that anchor, or is a slideshow that shows that photo.
function controleerDoel(site, vanPagina, adres, fouten, waar) {
  if (/^(https?:|mailto:|javascript:)/i.test(adres)) return;
  const [bestand, anker] = adres.split('#');
  const doel = bestand === '' ? vanPagina : decodeURIComponent(bestand);
  const pad = path.join(site, doel);
  if (!fouten.controleer(fs.existsSync(pad), waar, `"${adres}" verwijst naar een ontbrekend bestand`)) return;
  if (anker && doel.endsWith('.html')) {
    const html = fs.readFileSync(pad, 'utf8');
    const naam = anker.replace(/[.*+?^${}()|[\]\\]/g, '\\$&');
    const diaFoto = /id="kbDia"/.test(html) && /^foto(\d{3})$/.exec(anker);
    fouten.controleer(new RegExp(`\\s(id|name)\\s*=\\s*["']?${naam}["'\\s>]`, 'i').test(html)
      || (diaFoto && Number(diaFoto[1]) <= kAantal), waar, `"${adres}": anker #${anker} ontbreekt in ${doel}`);
  }
}

// Without a browser: every page is there and every address in it resolves.
function controleerBestanden(k, fouten) {
  const verwacht = ['index.html', ...(k.thumbnails ? ['kbovz.html'] : [])];
  for (let p = 1; p <= (k.vorm.presentatie === 1 ? 1 : k.fotoPaginas); p++) verwacht.push(paginaNaam(p));
  verwacht.sort();
  fouten.controleer(JSON.stringify(k.paginas) === JSON.stringify(verwacht), k.waar,
    `pagina's ${k.paginas.join(' ')}, verwacht ${verwacht.join(' ')}`);
  for (const pagina of k.paginas) {
    const html = fs.readFileSync(path.join(k.site, pagina), 'utf8');
    for (const m of html.matchAll(/\s(?:href|src)="([^"]*)"|<option value="([^"]*\.html)"/gi)) {
      controleerDoel(k.site, pagina, m[1] ?? m[2], fouten, `${k.waar}/${pagina}`);
    }
  }
}

// Opens page `naam` of gallery k, runs `stap` on it and reports what went
// wrong meanwhile: a failed step, console errors, script errors and failed
// requests. `voorbereiding` runs before the page loads.
async function opPagina(context, k, naam, fouten, waar, stap, voorbereiding) {
  const pagina = await context.newPage();
  pagina.setDefaultTimeout(10000);
  const problemen = [];
  const verzoeken = [];
  pagina.on('console', (m) => { if (m.type() === 'error') problemen.push(`consolefout: ${m.text()}`); });
  pagina.on('pageerror', (e) => problemen.push(`scriptfout: ${e.message}`));
  pagina.on('requestfailed', (r) => problemen.push(`mislukt verzoek: ${r.url()} (${r.failure()?.errorText})`));
  pagina.on('request', (r) => verzoeken.push(r.url()));
  try {
    if (voorbereiding) await voorbereiding(pagina);
    await pagina.goto(pathToFileURL(path.join(k.site, naam)).href, { waitUntil: 'load' });
    await stap(pagina, verzoeken);
  } catch (e) {
    fouten.meld(waar, e.message.split('\n')[0]);
  }
  await pagina.close();
  fouten.controleer(problemen.length === 0, waar, problemen.join('; '));
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

// Compared with the viewport set, since a phone widens its layout to fit what
// sticks out. A page opened without an anchor starts at the top, where its
// navigation is (scroll snapping must not carry it away).
async function zonderZijwaartsScrollen(pagina, fouten, waar) {
  const venster = pagina.viewportSize().width;
  const { breed, boven } = await pagina.evaluate(() => ({
    breed: document.documentElement.scrollWidth, boven: window.scrollY,
  }));
  fouten.controleer(breed <= venster, waar, `pagina is ${breed}px breed in een venster van ${venster}px`);
  fouten.controleer(boven === 0, waar, `pagina begint ${boven}px naar beneden gescrold`);
}

// The path of a screenshot the first time `soort` of this template set is
// seen at this width; null after that.
function afdruk(k, soort, scherm) {
  const bestand = soort && `${k.sjabloon}-${soort}-${scherm.breedte}.png`;
  if (!bestand || scherm.gezien.has(bestand)) return null;
  scherm.gezien.add(bestand);
  return path.join(scherm.map, bestand);
}

// One page as it loads: images, width and scrolling, a screenshot of the
// first page of each kind of each template set, and on a desktop also its
// accessibility (on screenshot pages), links, language, title and alt texts.
async function controleerPagina(context, k, naam, fouten, scherm) {
  const soort = { 'index.html': 'titel', 'kbovz.html': 'overzicht', 'kb001.html': k.naam }[naam];
  const desktop = scherm.breedte === 'desktop';
  const waar = `${k.waar}/${naam}${desktop ? '' : ' (telefoon)'}`;
  await opPagina(context, k, naam, fouten, waar, async (pagina) => {
    const kapot = await kapotteAfbeeldingen(pagina);
    await zonderZijwaartsScrollen(pagina, fouten, desktop ? `${waar} (desktop)` : waar);
    const schermafdruk = afdruk(k, soort, scherm);
    if (schermafdruk) await pagina.screenshot({ path: schermafdruk, fullPage: true, animations: 'disabled' });
    if (!desktop) return;
    if (schermafdruk) {
      const ontoegankelijk = await toegankelijkheidsfouten(pagina, scherm.axe);
      fouten.controleer(ontoegankelijk.length === 0, waar, `toegankelijkheid: ${ontoegankelijk.join('; ')}`);
    }
    fouten.controleer(kapot.length === 0, waar, `kapotte afbeeldingen: ${kapot.join(', ')}`);
    const { adressen, lang, charset, titel, zonderAlt } = await pagina.evaluate(() => ({
      adressen: [...Array.from(document.querySelectorAll('a[href]'), (a) => a.getAttribute('href')),
        ...Array.from(document.querySelectorAll('select[onchange] option'), (o) => o.value)
          .filter((v) => /\.html$/.test(v))],
      lang: document.documentElement.lang,
      charset: document.characterSet,
      titel: document.title,
      zonderAlt: Array.from(document.images).filter((b) => !b.hasAttribute('alt')).length,
    }));
    for (const adres of adressen) controleerDoel(k.site, naam, adres, fouten, waar);
    fouten.controleer(lang === 'nl' && charset === 'UTF-8' && titel.includes('Proefkiekbord & co'),
      waar, `taal "${lang}", tekenset ${charset}, titel "${titel}"`);
    fouten.controleer(zonderAlt === 0, waar, `${zonderAlt} afbeelding(en) zonder alt-tekst`);
  });
}

async function wachtOpUrl(pagina, verwacht) {
  await pagina.waitForURL((u) => u.href.split('#')[0].endsWith(`/${verwacht}`), { timeout: 5000 });
}

// Navigation by link, page select and arrow key.
async function controleerNavigatie(context, k, fouten) {
  const proef = (wat, naam, stap) => opPagina(context, k, naam, fouten, `${k.waar}/${naam}`, async (p) => {
    try {
      await stap(p);
    } catch (e) {
      throw new Error(`${wat}: ${e.message}`);
    }
  });
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
  await proef('paginakeuze', 'kb001.html', async (p) => {
    const keuze = p.locator('select[onchange]');
    if (await keuze.count() === 0) return;
    keuzes++;
    await keuze.first().selectOption(laatste);
    await wachtOpUrl(p, laatste);
  });
  await proef('paginalijst', 'kb001.html', async (p) => {
    if (await p.locator(`a[href="${laatste}"]`).count() === 0) return;
    keuzes++;
    await klikNaar(p, laatste);
  });
  fouten.controleer(keuzes > 0, `${k.waar}/kb001.html`, `geen paginakeuze en geen link naar ${laatste}`);
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

// The slideshow of a slideshow page, or the lightbox of a page with several photos.
const kDia = { houder: '#kbDia', bijschrift: '#kbBijschrift', teller: '#kbTeller', afspelen: '#kbAfspelen' };
const kLichtbak = {
  houder: 'dialog.kb-lichtbak', bijschrift: 'dialog.kb-lichtbak figcaption', teller: 'dialog.kb-lichtbak .teller',
  afspelen: 'dialog.kb-lichtbak .diabediening button:nth-child(2)',
};

async function diaStand(pagina, delen = kDia) {
  return pagina.evaluate((d) => {
    const tekst = (keuze) => (document.querySelector(keuze)?.textContent ?? '').trim();
    const foto = document.querySelector(d.houder).querySelector('img');
    return {
      src: foto.getAttribute('src'),
      alt: foto.getAttribute('alt'),
      bijschrift: tekst(d.bijschrift),
      teller: tekst(d.teller),
      keuze: document.querySelector('select[onchange*="fnToonFoto"]')?.value ?? null,
      afspelen: document.querySelector(d.afspelen)?.textContent.trim() ?? null,
    };
  }, delen);
}

// Photo `nummer` is shown: its file, caption, counter, alt text and select
// value, without broken images.
async function verwachtFoto(pagina, nummer, fouten, waar, delen = kDia) {
  const teller = `Foto ${nummer} van ${kAantal}`;
  await pagina.waitForFunction(({ t, keuze }) => document.querySelector(keuze)?.textContent.trim() === t,
    { t: teller, keuze: delen.teller }, { timeout: 5000 }).catch(() => {});  // the comparison below says what is shown
  const stand = await diaStand(pagina, delen);
  const foto = kFotos[nummer - 1];
  fouten.controleer(stand.src === foto.naam && stand.bijschrift === foto.bijschrift && stand.teller === teller
    && stand.alt === `foto ${nummer} van ${kAantal}` && (stand.keuze === null || stand.keuze === String(nummer)),
  waar, `foto ${nummer} verwacht (${foto.naam}, "${foto.bijschrift}"), getoond: ${JSON.stringify(stand)}`);
  const kapot = await kapotteAfbeeldingen(pagina);
  fouten.controleer(kapot.length === 0, waar, `kapotte afbeeldingen bij foto ${nummer}: ${kapot.join(', ')}`);
}

// The slideshow by button, arrow key, photo select and automatic advance.
async function controleerDia(context, k, fouten) {
  const waar = `${k.waar}/kb001.html (diavoorstelling)`;
  await opPagina(context, k, 'kb001.html', fouten, waar, async (pagina, verzoeken) => {
    await verwachtFoto(pagina, 1, fouten, waar);
    fouten.controleer(verzoeken.some((u) => u.endsWith(`/${kFotos[1].naam}`)), waar, 'foto 2 is niet vooraf geladen');
    const stappen = [
      ['knop Volgende', () => pagina.locator('#kbVolgende').click(), 2],
      ['pijl rechts', () => pagina.locator('body').press('ArrowRight'), 3],
      ['pijl links', () => pagina.locator('body').press('ArrowLeft'), 2],
      ['knop Vorige rondom', async () => {
        await pagina.locator('#kbVorige').click();
        await pagina.locator('#kbVorige').click();
      }, 7],
      ['fotokeuze', () => pagina.locator('select[onchange*="fnToonFoto"]').selectOption('5'), 5],
    ];
    for (const [wat, doe, nummer] of stappen) {
      await doe();
      await verwachtFoto(pagina, nummer, fouten, `${waar}, ${wat}`);
    }
    await pagina.locator('#kbAfspelen').click();
    fouten.controleer((await diaStand(pagina)).afspelen === 'Pauzeren', waar, 'knop Afspelen wordt geen Pauzeren');
    await pagina.clock.runFor(8000);
    const { teller } = await diaStand(pagina);
    fouten.controleer(['Foto 6 van 7', 'Foto 7 van 7'].includes(teller), waar, `automatisch verder: ${teller}`);
    await pagina.locator('#kbAfspelen').click();
    const gepauzeerd = (await diaStand(pagina)).teller;
    await pagina.clock.runFor(20000);
    fouten.controleer((await diaStand(pagina)).teller === gepauzeerd, waar, 'pauzeren houdt de voorstelling niet stil');
  }, (p) => p.clock.install());
}

// A page with several photos opens the lightbox on a photo or the slideshow button.
async function controleerLichtbak(context, k, fouten, schermafdruk) {
  const waar = `${k.waar}/kb002.html (lichtbak)`;
  await opPagina(context, k, 'kb002.html', fouten, waar, async (pagina) => {
    const lichtbak = pagina.locator('dialog.kb-lichtbak');
    await pagina.locator('#img005').click();
    await lichtbak.waitFor({ state: 'visible', timeout: 5000 });
    await verwachtFoto(pagina, 5, fouten, `${waar}, klik op foto 5`, kLichtbak);
    if (schermafdruk) await pagina.screenshot({ path: schermafdruk, animations: 'disabled' });
    const stappen = [
      ['pijl rechts', () => pagina.keyboard.press('ArrowRight'), 6],
      ['knop Volgende', () => lichtbak.getByRole('button', { name: /Volgende/ }).click(), 7],
      ['knop Vorige', () => lichtbak.getByRole('button', { name: /Vorige/ }).click(), 6],
    ];
    for (const [wat, doe, nummer] of stappen) {
      await doe();
      await verwachtFoto(pagina, nummer, fouten, `${waar}, ${wat}`, kLichtbak);
    }
    await pagina.keyboard.press('Escape');
    await lichtbak.waitFor({ state: 'hidden', timeout: 5000 });
    fouten.controleer(pagina.url().endsWith('/kb002.html'), waar, `de pagina is verlaten: ${pagina.url()}`);
    await pagina.locator('.kb-dia-start').first().click();
    await verwachtFoto(pagina, 4, fouten, `${waar}, knop Diavoorstelling`, kLichtbak);
    await lichtbak.getByRole('button', { name: 'Sluiten' }).click();
    await lichtbak.waitFor({ state: 'hidden', timeout: 5000 });
  });
}

// On a phone: swipe through the slideshow.
async function controleerVegen(context, k, fouten) {
  const waar = `${k.waar}/kb001.html (vegen)`;
  await opPagina(context, k, 'kb001.html', fouten, waar, async (pagina) => {
    const vak = await pagina.locator('#kbDia img').boundingBox();
    const y = vak.y + Math.min(vak.height, 200) / 2;
    const cdp = await context.newCDPSession(pagina);
    const veeg = async (van, naar) => {
      for (const [type, x] of [['touchStart', van], ['touchMove', (van + naar) / 2], ['touchMove', naar]]) {
        await cdp.send('Input.dispatchTouchEvent', { type, touchPoints: [{ x, y }] });
      }
      await cdp.send('Input.dispatchTouchEvent', { type: 'touchEnd', touchPoints: [] });
    };
    await veeg(300, 80);
    await verwachtFoto(pagina, 2, fouten, `${waar}, naar links`);
    await veeg(80, 300);
    await verwachtFoto(pagina, 1, fouten, `${waar}, naar rechts`);
  });
}

async function main() {
  const opties = leesOpties(process.argv.slice(2));
  const begin = Date.now();
  const tijd = () => `${((Date.now() - begin) / 1000).toFixed(1)} s`;
  const fouten = new Fouten();
  const sjabloonMap = path.join(path.dirname(path.resolve(opties.maak)), 'Sjabloon');
  const sjablonen = opties.sjablonen ?? fs.readdirSync(sjabloonMap)
    .filter((n) => fs.statSync(path.join(sjabloonMap, n)).isDirectory()).sort();
  if (sjablonen.length === 0) throw new Error(`geen sjablonen in ${sjabloonMap}`);

  const { chromium, axe } = await laadPlaywright();
  const fotoMap = path.join(opties.uit, 'fotos');
  fs.rmSync(fotoMap, { recursive: true, force: true });
  fs.mkdirSync(fotoMap, { recursive: true });
  const desktop = await startBrowser(chromium, { viewport: kDesktop });
  try {
    if (opties.fotos) kopieerEigenFotos(opties.fotos, fotoMap);
    else await tekenFotos(desktop.context, fotoMap);

    const kiekborden = sjablonen.flatMap((sjabloon) => variantenVan(sjabloon)
      .map((variant) => maakKiekbord(opties, fotoMap, variant, fouten)).filter(Boolean));
    for (const k of kiekborden) controleerBestanden(k, fouten);
    console.log(`${kiekborden.length} kiekborden gemaakt met ${sjablonen.join(', ')} (${tijd()})`);
    if (opties.alleenMaken) return afsluiten(fouten, tijd());

    const map = path.join(opties.uit, 'schermafdrukken');
    fs.rmSync(map, { recursive: true, force: true });
    fs.mkdirSync(map);
    const gezien = new Set();
    const scherm = { breedte: 'desktop', map, gezien, axe };
    // The lightbox of the first gallery of a set with several photos per page.
    const lichtbak = (k) => k.vorm.achtervoegsel === 'm' && k.paginas.includes('kb002.html');
    let paginas = 0;
    for (const k of kiekborden) {
      for (const naam of k.paginas) await controleerPagina(desktop.context, k, naam, fouten, scherm);
      paginas += k.paginas.length;
      await controleerNavigatie(desktop.context, k, fouten);
      if (k.vorm.presentatie === 1) await controleerDia(desktop.context, k, fouten);
      if (lichtbak(k)) await controleerLichtbak(desktop.context, k, fouten, afdruk(k, 'lichtbak', scherm));
    }
    console.log(`${paginas} pagina's geopend op ${kDesktop.width}px (${tijd()})`);
    await desktop.sluit();

    const telefoon = await startBrowser(chromium, {
      viewport: kTelefoon, deviceScaleFactor: 1, isMobile: true, hasTouch: true,
    });
    try {
      scherm.breedte = 'telefoon';
      for (const k of kiekborden) {
        for (const naam of k.paginas) await controleerPagina(telefoon.context, k, naam, fouten, scherm);
        if (k.vorm.presentatie === 1) await controleerVegen(telefoon.context, k, fouten);
        const lichtbakAfdruk = lichtbak(k) && afdruk(k, 'lichtbak', scherm);
        if (lichtbakAfdruk) await controleerLichtbak(telefoon.context, k, fouten, lichtbakAfdruk);
      }
    } finally {
      await telefoon.sluit();
    }
    console.log(`${gezien.size} schermafdrukken in ${map}`);
  } finally {
    await desktop.sluit().catch(() => {});
  }
  return afsluiten(fouten, tijd());
}

function afsluiten(fouten, tijd) {
  if (fouten.lijst.length > 0) {
    console.log(`${fouten.lijst.length} fout(en) gevonden (${tijd})`);
    process.exitCode = 1;
  } else {
    console.log(`Alles in orde (${tijd})`);
  }
}

if (process.argv[1] && path.resolve(process.argv[1]) === fileURLToPath(import.meta.url)) {
  main().catch((e) => {
    console.log(`FOUT: ${e.stack ?? e}`);
    process.exitCode = 1;
  });
}
