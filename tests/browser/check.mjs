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
const kSkip = 77;
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
const kFotosPerPagina = 3;

// Photo page template forms: plain (one photo per page), several per page, slideshow.
const kVormen = [
  { achtervoegsel: '', perPagina: 1, presentatie: 0 },
  { achtervoegsel: 'm', perPagina: kFotosPerPagina, presentatie: 0 },
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
  process.exit(kSkip);
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
    executablePath: kChromium,
    headless: true,
    args: kChromiumArgs,
    ...opties,
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
      const doek = document.createElement('canvas');
      doek.width = b;
      doek.height = h;
      const g = doek.getContext('2d');
      const tint = (nr * 53 + 190) % 360;
      const lucht = g.createLinearGradient(0, 0, 0, h);
      lucht.addColorStop(0, `hsl(${tint}, 60%, 45%)`);
      lucht.addColorStop(0.6, `hsl(${(tint + 30) % 360}, 70%, 78%)`);
      lucht.addColorStop(1, `hsl(${(tint + 50) % 360}, 80%, 88%)`);
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
          const golf = Math.sin(x / b * (3 + laag + nr) + nr * 1.7 + laag) * h * 0.05;
          g.lineTo(x, h * (0.55 + laag * 0.11) + golf);
        }
        g.lineTo(b, h);
        g.closePath();
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
  if (namen.length < kFotos.length) throw new Error(`${bron} bevat minder dan ${kFotos.length} foto's`);
  kFotos.forEach((foto, i) => fs.copyFileSync(path.join(bron, namen[i]), path.join(doel, foto.naam)));
}

// The gallery script, written as the program writes it.
function scriptTekst(uitvoer, sjabloon, variant) {
  const regels = [
    '[Kiekbord]', 'Versie=4.1', 'Opmerking=Dit bestand niet handmatig aanpassen!',
    '[Algemeen]', `InvoerDir=${uitvoer}`, `UitvoerDir=${uitvoer}`,
    'Titel=Proefkiekbord & co', 'Subtitel=Elke pagina in de browser', 'Datum=21 november 2026',
    'Beschrijving=Zeven foto\'s in elke vorm die dit sjabloon kent.<br>Gemaakt door de browsercontrole.',
    `Thumbnails=${variant.thumbnails ? 1 : 0}`, `AantalFotos=${kFotos.length}`,
  ];
  kFotos.forEach((foto, i) => {
    regels.push(`[Foto${String(i + 1).padStart(3, '0')}]`, `Foto=${foto.naam}`, `Bijschrift=${foto.bijschrift}`);
  });
  regels.push('[Instellingen]', `Sjabloon=${sjabloon}`, `AantalFotosPerPagina=${variant.vorm.perPagina}`,
    `Presentatie=${variant.vorm.presentatie}`, `PositieFotos=${variant.positie}`,
    `PositieBijschriften=${variant.positie}`, 'FotosZonderBijschrift=0',
    `LetterTypeTitels=${variant.lettertype}`, `LetterTypeBijschriften=${variant.lettertype}`,
    'LetterGrootteBijschriften=2', `LetterStijlBijschriften=${variant.stijl}`,
    'KleurTekstOpAchtergrond=0', 'KleurAchtergrond=16777215', 'KleurTekstInKader=0', 'KleurKader=13421772');
  return regels.join('\r\n') + '\r\n';
}

function variantenVan(sjabloon) {
  const varianten = [];
  for (let positie = 0; positie < 3; positie++) {
    kVormen.forEach((vorm, v) => {
      const sjabloonNaam = `kbfoto${positie + 1}${vorm.achtervoegsel}`;
      varianten.push({
        sjabloon,
        naam: sjabloonNaam,
        vorm,
        positie,
        // Every form and every caption position is seen with and without thumbnails.
        thumbnails: (positie + v) % 2 === 0,
        lettertype: [0, 6, 5][positie],
        stijl: v,
      });
    });
  }
  // All photos on one page: no previous, next or page links.
  varianten.push({
    sjabloon, naam: 'kbfoto2m-alles', vorm: { achtervoegsel: 'm', perPagina: 10, presentatie: 0 },
    positie: 1, thumbnails: true, lettertype: 0, stijl: 0,
  });
  return varianten;
}

function maakKiekbord(opties, fotoMap, variant, fouten) {
  const map = path.join(opties.uit, 'sites', variant.sjabloon, variant.naam);
  fs.rmSync(map, { recursive: true, force: true });
  const site = path.join(map, 'site');
  fs.mkdirSync(site, { recursive: true });
  for (const foto of kFotos) fs.copyFileSync(path.join(fotoMap, foto.naam), path.join(site, foto.naam));
  const script = path.join(map, 'proef.kbs');
  fs.writeFileSync(script, scriptTekst(site + path.sep, variant.sjabloon, variant));
  const run = spawnSync(opties.maak, [script], { encoding: 'utf8' });
  const waar = `${variant.sjabloon}/${variant.naam}`;
  const log = fs.existsSync(path.join(map, 'proef.log')) ? fs.readFileSync(path.join(map, 'proef.log'), 'utf8') : '';
  const regels = log.split('\r\n').filter(Boolean);
  if (!fouten.controleer(run.status === 0 && regels.at(-1) === 'Normaal einde.', waar,
    `kiekbord-maak eindigde met ${run.status}${run.error ? ` (${run.error.message})` : ''}; `
    + `laatste logregel "${regels.at(-1) ?? ''}"${run.stderr ? `; ${run.stderr.trim()}` : ''}`)) {
    return null;
  }
  const paginas = fs.readdirSync(site).filter((n) => n.endsWith('.html')).sort();
  return { ...variant, site, paginas, waar };
}

function verwachtePaginas(variant) {
  const foto = variant.vorm.presentatie === 1 ? 1 : Math.ceil(kFotos.length / variant.vorm.perPagina);
  const namen = ['index.html'];
  if (variant.thumbnails) namen.push('kbovz.html');
  for (let p = 1; p <= foto; p++) namen.push(`kb${String(p).padStart(3, '0')}.html`);
  return namen.sort();
}

function bevatAnker(html, anker) {
  const naam = anker.replace(/[.*+?^${}()|[\]\\]/g, '\\$&');
  return new RegExp(`\\s(id|name)\\s*=\\s*["']?${naam}["'\\s>]`, 'i').test(html);
}

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
    const diaFoto = /id="kbDia"/.test(html) && /^foto(\d{3})$/.exec(anker);
    fouten.controleer(bevatAnker(html, anker) || (diaFoto && Number(diaFoto[1]) <= kFotos.length), waar,
      `"${adres}": anker #${anker} ontbreekt in ${doel}`);
  }
}

// Without a browser: every page is there and every address in it resolves.
function controleerBestanden(k, fouten) {
  const verwacht = verwachtePaginas(k);
  fouten.controleer(JSON.stringify(k.paginas) === JSON.stringify(verwacht), k.waar,
    `pagina's ${k.paginas.join(' ')}, verwacht ${verwacht.join(' ')}`);
  for (const pagina of k.paginas) {
    const html = fs.readFileSync(path.join(k.site, pagina), 'utf8');
    for (const m of html.matchAll(/\s(?:href|src)="([^"]*)"|<option value="([^"]*\.html)"/gi)) {
      controleerDoel(k.site, pagina, m[1] ?? m[2], fouten, `${k.waar}/${pagina}`);
    }
  }
}

// Opens a page and collects what went wrong while it loaded and ran.
async function openPagina(context, url, voorbereiding) {
  const pagina = await context.newPage();
  pagina.setDefaultTimeout(10000);
  const problemen = [];
  const verzoeken = [];
  pagina.on('console', (m) => { if (m.type() === 'error') problemen.push(`consolefout: ${m.text()}`); });
  pagina.on('pageerror', (e) => problemen.push(`scriptfout: ${e.message}`));
  pagina.on('requestfailed', (r) => problemen.push(`mislukt verzoek: ${r.url()} (${r.failure()?.errorText})`));
  pagina.on('request', (r) => verzoeken.push(r.url()));
  if (voorbereiding) await voorbereiding(pagina);
  await pagina.goto(url, { waitUntil: 'load' });
  return { pagina, problemen, verzoeken };
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

async function controleerPagina(context, k, naam, fouten, schermafdruk, axe) {
  const waar = `${k.waar}/${naam}`;
  const url = pathToFileURL(path.join(k.site, naam)).href;
  const { pagina, problemen } = await openPagina(context, url);
  const kapot = await kapotteAfbeeldingen(pagina);
  await zonderZijwaartsScrollen(pagina, fouten, `${waar} (desktop)`);
  if (schermafdruk) {
    await pagina.screenshot({ path: schermafdruk, fullPage: true, animations: 'disabled' });
    const ontoegankelijk = await toegankelijkheidsfouten(pagina, axe);
    fouten.controleer(ontoegankelijk.length === 0, waar, `toegankelijkheid: ${ontoegankelijk.join('; ')}`);
  }
  fouten.controleer(kapot.length === 0, waar, `kapotte afbeeldingen: ${kapot.join(', ')}`);
  const adressen = await pagina.evaluate(() => [
    ...Array.from(document.querySelectorAll('a[href]'), (a) => a.getAttribute('href')),
    ...Array.from(document.querySelectorAll('select[onchange] option'), (o) => o.value)
      .filter((v) => /\.html$/.test(v)),
  ]);
  for (const adres of adressen) controleerDoel(k.site, naam, adres, fouten, waar);
  const taal = await pagina.evaluate(() => ({
    lang: document.documentElement.lang,
    charset: document.characterSet,
    titel: document.title,
    zonderAlt: Array.from(document.images).filter((b) => !b.hasAttribute('alt')).length,
  }));
  fouten.controleer(taal.lang === 'nl' && taal.charset === 'UTF-8' && taal.titel.includes('Proefkiekbord & co'),
    waar, `taal "${taal.lang}", tekenset ${taal.charset}, titel "${taal.titel}"`);
  fouten.controleer(taal.zonderAlt === 0, waar, `${taal.zonderAlt} afbeelding(en) zonder alt-tekst`);
  await pagina.close();
  fouten.controleer(problemen.length === 0, waar, problemen.join('; '));
}

async function wachtOpUrl(pagina, verwacht) {
  await pagina.waitForURL((u) => u.href.split('#')[0].endsWith(`/${verwacht}`), { timeout: 5000 });
}

// Navigation by link, page select and arrow key.
async function controleerNavigatie(context, k, fouten) {
  const url = (naam) => pathToFileURL(path.join(k.site, naam)).href;
  const proef = async (waar, naam, stap) => {
    const { pagina, problemen } = await openPagina(context, url(naam));
    try {
      await stap(pagina);
    } catch (e) {
      fouten.meld(`${k.waar}/${naam}`, `${waar}: ${e.message.split('\n')[0]}`);
    }
    await pagina.close();
    fouten.controleer(problemen.length === 0, `${k.waar}/${naam}`, `${waar}: ${problemen.join('; ')}`);
  };

  await proef('link naar de eerste fotopagina', 'index.html', async (p) => {
    await p.locator('a[href="kb001.html"]').first().click();
    await wachtOpUrl(p, 'kb001.html');
  });
  if (k.thumbnails) {
    await proef('link naar het overzicht', 'index.html', async (p) => {
      await p.locator('a[href="kbovz.html"]').first().click();
      await wachtOpUrl(p, 'kbovz.html');
    });
    await proef('thumbnail naar foto 5', 'kbovz.html', async (p) => {
      const link = p.locator('a[href$="#foto005"]').first();
      const doel = (await link.getAttribute('href')).split('#')[0];
      await link.click();
      await wachtOpUrl(p, doel);
      if (k.vorm.presentatie === 1) {
        await p.locator('#kbTeller').filter({ hasText: 'Foto 5 van 7' }).waitFor({ timeout: 5000 });
      }
    });
  }
  const paginas = Math.ceil(kFotos.length / k.vorm.perPagina);
  if (k.vorm.presentatie === 1 || paginas === 1) return;
  const laatste = `kb${String(paginas).padStart(3, '0')}.html`;
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
    const link = p.locator(`a[href="${laatste}"]`);
    if (await link.count() === 0) return;
    keuzes++;
    await link.first().click();
    await wachtOpUrl(p, laatste);
  });
  fouten.controleer(keuzes > 0, `${k.waar}/kb001.html`, `geen paginakeuze en geen link naar ${laatste}`);
  await proef('pijl rechts en links', 'kb001.html', async (p) => {
    await p.keyboard.press('ArrowRight');
    await wachtOpUrl(p, 'kb002.html');
    await p.keyboard.press('ArrowLeft');
    await wachtOpUrl(p, 'kb001.html');
  });
  await proef('link volgende pagina', 'kb001.html', async (p) => {
    await p.locator('a[href="kb002.html"]').first().click();
    await wachtOpUrl(p, 'kb002.html');
    await p.locator('a[href="kb001.html"]').first().click();
    await wachtOpUrl(p, 'kb001.html');
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

async function verwachtFoto(pagina, nummer, fouten, waar, delen = kDia) {
  try {
    await pagina.waitForFunction(({ n, keuze }) => document.querySelector(keuze)?.textContent.trim() === `Foto ${n} van 7`,
      { n: nummer, keuze: delen.teller }, { timeout: 5000 });
  } catch {
    // The comparison below says what is shown instead.
  }
  const stand = await diaStand(pagina, delen);
  const foto = kFotos[nummer - 1];
  fouten.controleer(stand.src === foto.naam && stand.bijschrift === foto.bijschrift
    && stand.teller === `Foto ${nummer} van ${kFotos.length}` && stand.alt === `foto ${nummer} van ${kFotos.length}`
    && (stand.keuze === null || stand.keuze === String(nummer)),
  waar, `foto ${nummer} verwacht (${foto.naam}, "${foto.bijschrift}"), getoond: ${JSON.stringify(stand)}`);
  const kapot = await kapotteAfbeeldingen(pagina);
  fouten.controleer(kapot.length === 0, waar, `kapotte afbeeldingen bij foto ${nummer}: ${kapot.join(', ')}`);
}

async function controleerDia(context, k, fouten) {
  const waar = `${k.waar}/kb001.html (diavoorstelling)`;
  const url = pathToFileURL(path.join(k.site, 'kb001.html')).href;
  const { pagina, problemen, verzoeken } = await openPagina(context, url, (p) => p.clock.install());
  try {
    await verwachtFoto(pagina, 1, fouten, waar);
    fouten.controleer(verzoeken.some((u) => u.endsWith(`/${kFotos[1].naam}`)), waar, 'foto 2 is niet vooraf geladen');
    await pagina.locator('#kbVolgende').click();
    await verwachtFoto(pagina, 2, fouten, `${waar}, knop Volgende`);
    await pagina.locator('body').press('ArrowRight');
    await verwachtFoto(pagina, 3, fouten, `${waar}, pijl rechts`);
    await pagina.locator('body').press('ArrowLeft');
    await verwachtFoto(pagina, 2, fouten, `${waar}, pijl links`);
    await pagina.locator('#kbVorige').click();
    await pagina.locator('#kbVorige').click();
    await verwachtFoto(pagina, 7, fouten, `${waar}, knop Vorige rondom`);
    await pagina.locator('select[onchange*="fnToonFoto"]').selectOption('5');
    await verwachtFoto(pagina, 5, fouten, `${waar}, fotokeuze`);
    await pagina.locator('#kbAfspelen').click();
    fouten.controleer((await diaStand(pagina)).afspelen === 'Pauzeren', waar, 'knop Afspelen wordt geen Pauzeren');
    await pagina.clock.runFor(8000);
    const na = await diaStand(pagina);
    fouten.controleer(na.teller === 'Foto 6 van 7' || na.teller === 'Foto 7 van 7', waar,
      `automatisch verder: ${na.teller}`);
    await pagina.locator('#kbAfspelen').click();
    const gepauzeerd = (await diaStand(pagina)).teller;
    await pagina.clock.runFor(20000);
    fouten.controleer((await diaStand(pagina)).teller === gepauzeerd, waar, 'pauzeren houdt de voorstelling niet stil');
  } catch (e) {
    fouten.meld(waar, e.message.split('\n')[0]);
  }
  await pagina.close();
  fouten.controleer(problemen.length === 0, waar, problemen.join('; '));
}

// A page with several photos opens the lightbox on a photo or the slideshow button.
async function controleerLichtbak(context, k, fouten, schermafdruk) {
  const waar = `${k.waar}/kb002.html (lichtbak)`;
  const { pagina, problemen } = await openPagina(context, pathToFileURL(path.join(k.site, 'kb002.html')).href);
  try {
    const lichtbak = pagina.locator('dialog.kb-lichtbak');
    await pagina.locator('#img005').click();
    await lichtbak.waitFor({ state: 'visible', timeout: 5000 });
    await verwachtFoto(pagina, 5, fouten, `${waar}, klik op foto 5`, kLichtbak);
    if (schermafdruk) await pagina.screenshot({ path: schermafdruk, animations: 'disabled' });
    await pagina.keyboard.press('ArrowRight');
    await verwachtFoto(pagina, 6, fouten, `${waar}, pijl rechts`, kLichtbak);
    await lichtbak.getByRole('button', { name: /Volgende/ }).click();
    await verwachtFoto(pagina, 7, fouten, `${waar}, knop Volgende`, kLichtbak);
    await lichtbak.getByRole('button', { name: /Vorige/ }).click();
    await verwachtFoto(pagina, 6, fouten, `${waar}, knop Vorige`, kLichtbak);
    await pagina.keyboard.press('Escape');
    await lichtbak.waitFor({ state: 'hidden', timeout: 5000 });
    fouten.controleer(pagina.url().endsWith('/kb002.html'), waar, `de pagina is verlaten: ${pagina.url()}`);
    await pagina.locator('.kb-dia-start').first().click();
    await verwachtFoto(pagina, 4, fouten, `${waar}, knop Diavoorstelling`, kLichtbak);
    await lichtbak.getByRole('button', { name: 'Sluiten' }).click();
    await lichtbak.waitFor({ state: 'hidden', timeout: 5000 });
  } catch (e) {
    fouten.meld(waar, e.message.split('\n')[0]);
  }
  await pagina.close();
  fouten.controleer(problemen.length === 0, waar, problemen.join('; '));
}

// On a phone: swipe through the slideshow.
async function controleerVegen(context, k, fouten) {
  const waar = `${k.waar}/kb001.html (vegen)`;
  const { pagina, problemen } = await openPagina(context, pathToFileURL(path.join(k.site, 'kb001.html')).href);
  try {
    const vak = await pagina.locator('#kbDia img').boundingBox();
    const y = vak.y + Math.min(vak.height, 200) / 2;
    const cdp = await context.newCDPSession(pagina);
    const veeg = async (van, naar) => {
      await cdp.send('Input.dispatchTouchEvent', { type: 'touchStart', touchPoints: [{ x: van, y }] });
      await cdp.send('Input.dispatchTouchEvent', { type: 'touchMove', touchPoints: [{ x: (van + naar) / 2, y }] });
      await cdp.send('Input.dispatchTouchEvent', { type: 'touchMove', touchPoints: [{ x: naar, y }] });
      await cdp.send('Input.dispatchTouchEvent', { type: 'touchEnd', touchPoints: [] });
    };
    await veeg(300, 80);
    await verwachtFoto(pagina, 2, fouten, `${waar}, naar links`);
    await veeg(80, 300);
    await verwachtFoto(pagina, 1, fouten, `${waar}, naar rechts`);
  } catch (e) {
    fouten.meld(waar, e.message.split('\n')[0]);
  }
  await pagina.close();
  fouten.controleer(problemen.length === 0, waar, problemen.join('; '));
}

function soortVan(k, naam) {
  if (naam === 'index.html') return 'titel';
  if (naam === 'kbovz.html') return 'overzicht';
  return naam === 'kb001.html' ? k.naam : null;
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

// The first page of each kind of each template set is saved as a screenshot.
function schermafdrukVoor(k, naam, map, breedte, gezien) {
  let soort = null;
  if (naam === 'index.html') soort = 'titel';
  else if (naam === 'kbovz.html') soort = 'overzicht';
  else if (naam === 'kb001.html') soort = k.naam;
  const bestand = soort && `${k.sjabloon}-${soort}-${breedte}.png`;
  if (!bestand || gezien.has(bestand)) return null;
  gezien.add(bestand);
  return path.join(map, bestand);
}

// The lightbox of the first gallery of a set with several photos per page.
function lichtbakAfdruk(k, map, breedte, gezien) {
  if (k.vorm.achtervoegsel !== 'm') return null;
  const bestand = `${k.sjabloon}-lichtbak-${breedte}.png`;
  if (gezien.has(bestand)) return null;
  gezien.add(bestand);
  return path.join(map, bestand);
}

// A phone shows every page without sideways scrolling.
async function controleerOpTelefoon(context, k, map, fouten, gezien) {
  for (const naam of k.paginas) {
    const { pagina, problemen } = await openPagina(context, pathToFileURL(path.join(k.site, naam)).href);
    await kapotteAfbeeldingen(pagina);
    const waar = `${k.waar}/${naam} (telefoon)`;
    await zonderZijwaartsScrollen(pagina, fouten, waar);
    const schermafdruk = schermafdrukVoor(k, naam, map, 'telefoon', gezien);
    if (schermafdruk) await pagina.screenshot({ path: schermafdruk, fullPage: true, animations: 'disabled' });
    await pagina.close();
    fouten.controleer(problemen.length === 0, waar, problemen.join('; '));
  }
}

async function main() {
  const opties = leesOpties(process.argv.slice(2));
  const begin = Date.now();
  const fouten = new Fouten();
  const sjabloonMap = path.join(path.dirname(path.resolve(opties.maak)), 'Sjabloon');
  const sjablonen = opties.sjablonen ?? fs.readdirSync(sjabloonMap)
    .filter((n) => fs.statSync(path.join(sjabloonMap, n)).isDirectory()).sort();
  if (sjablonen.length === 0) throw new Error(`geen sjablonen in ${sjabloonMap}`);

  const { chromium, axe } = await laadPlaywright();
  fs.mkdirSync(opties.uit, { recursive: true });
  const fotoMap = path.join(opties.uit, 'fotos');
  fs.rmSync(fotoMap, { recursive: true, force: true });
  fs.mkdirSync(fotoMap);
  const desktop = await startBrowser(chromium, { viewport: kDesktop });
  try {
    if (opties.fotos) kopieerEigenFotos(opties.fotos, fotoMap);
    else await tekenFotos(desktop.context, fotoMap);

    const kiekborden = [];
    for (const sjabloon of sjablonen) {
      for (const variant of variantenVan(sjabloon)) {
        const k = maakKiekbord(opties, fotoMap, variant, fouten);
        if (k) {
          controleerBestanden(k, fouten);
          kiekborden.push(k);
        }
      }
    }
    console.log(`${kiekborden.length} kiekborden gemaakt met ${sjablonen.join(', ')} `
      + `(${((Date.now() - begin) / 1000).toFixed(1)} s)`);
    if (opties.alleenMaken) return afsluiten(fouten, begin);

    const schermafdrukken = path.join(opties.uit, 'schermafdrukken');
    fs.rmSync(schermafdrukken, { recursive: true, force: true });
    fs.mkdirSync(schermafdrukken);
    const gezien = new Set();
    let paginas = 0;
    for (const k of kiekborden) {
      for (const naam of k.paginas) {
        await controleerPagina(desktop.context, k, naam, fouten,
          schermafdrukVoor(k, naam, schermafdrukken, 'desktop', gezien), axe);
      }
      paginas += k.paginas.length;
      await controleerNavigatie(desktop.context, k, fouten);
      if (k.vorm.presentatie === 1) await controleerDia(desktop.context, k, fouten);
      if (k.vorm.achtervoegsel === 'm' && k.paginas.includes('kb002.html')) {
        await controleerLichtbak(desktop.context, k, fouten, lichtbakAfdruk(k, schermafdrukken, 'desktop', gezien));
      }
    }
    console.log(`${paginas} pagina's geopend op ${kDesktop.width}px (${((Date.now() - begin) / 1000).toFixed(1)} s)`);
    await desktop.sluit();

    const telefoon = await startBrowser(chromium, {
      viewport: kTelefoon, deviceScaleFactor: 1, isMobile: true, hasTouch: true,
    });
    try {
      for (const k of kiekborden) {
        await controleerOpTelefoon(telefoon.context, k, schermafdrukken, fouten, gezien);
        if (k.vorm.presentatie === 1) await controleerVegen(telefoon.context, k, fouten);
        const lichtbak = k.paginas.includes('kb002.html') && lichtbakAfdruk(k, schermafdrukken, 'telefoon', gezien);
        if (lichtbak) await controleerLichtbak(telefoon.context, k, fouten, lichtbak);
      }
    } finally {
      await telefoon.sluit();
    }
    console.log(`${gezien.size} schermafdrukken in ${schermafdrukken}`);
  } finally {
    await desktop.sluit().catch(() => {});
  }
  return afsluiten(fouten, begin);
}

function afsluiten(fouten, begin) {
  const tijd = ((Date.now() - begin) / 1000).toFixed(1);
  if (fouten.lijst.length > 0) {
    console.log(`${fouten.lijst.length} fout(en) gevonden (${tijd} s)`);
    process.exitCode = 1;
  } else {
    console.log(`Alles in orde (${tijd} s)`);
  }
}

if (process.argv[1] && path.resolve(process.argv[1]) === fileURLToPath(import.meta.url)) {
  main().catch((e) => {
    console.log(`FOUT: ${e.stack ?? e}`);
    process.exitCode = 1;
  });
}
