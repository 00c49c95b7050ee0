/*
 * kbdia.js - diavoorstelling en toetsenbordbediening voor Kiekbord-fotopagina's,
 * de versie voor kiekborden in webformaat (lichte foto's voor telefoons).
 *
 * Een pagina met een element met id "kbDia" wordt een diavoorstelling: alle foto's
 * van de kiekbord op één pagina, één tegelijk. De pagina levert daarvoor:
 *   een blok <script type="application/json" id="kbDiaGegevens"> met per foto
 *     src, srcset, breedte, hoogte, bijschrift en origineel; zonder dat blok gelden
 *     sFotoNamenLijst en sBijschriftenLijst (gescheiden door "$$") zoals vroeger;
 *   een keuzelijst met id "nav01" die iFotoNummer zet en fnToonFoto(0) aanroept.
 * De foto vult een vak van vaste grootte (object-fit in kb.css); dit script kiest
 * met sizes de kopie die in dat vak past. Het attribuut data-titel van #kbDia is
 * de titel van de kiekbord, voor de titel van het venster bij elke foto.
 * Binnen #kbDia staat de foto (een img); de elementen #kbBijschrift, #kbTeller,
 * #kbBediening, #kbVorige, #kbVolgende, #kbAfspelen en #kbVolledig zijn elk
 * optioneel. Het attribuut data-wisseltijd van #kbDia geeft de wisseltijd van het
 * automatisch afspelen in seconden (standaard 5); data-foto het nummer van de foto
 * waarmee de pagina begint.
 *
 * Op een gewone fotopagina volgen de pijltoetsen links en rechts de links met de
 * klasse "vorige" en "volgende". Staan de twee lijsten ook op een pagina met meer
 * foto's (zonder #kbDia), dan opent een klik op een foto, of op een knop met de klasse
 * "kb-dia-start", een lichtbak: dezelfde diavoorstelling over alle foto's, boven de
 * pagina, te sluiten met Esc of de knop Sluiten.
 *
 * Een keuzelijst die bij een keuze springt (onchange) springt hier alleen na Enter,
 * de knop Ga erachter of een keuze met de muis, niet al bij de eerste pijltoets.
 */

/* Nummer van de getoonde foto (1 = de eerste); de keuzelijst van de pagina zet het. */
var iFotoNummer = 1;

/* Toont foto iFotoNummer + iStap; fnToonFoto(0) toont foto iFotoNummer zelf. */
function fnToonFoto(iStap) {
  if (window.kbDiaVoorstelling) {
    window.kbDiaVoorstelling.toon(iFotoNummer + (parseInt(iStap, 10) || 0));
  }
}

(function () {
  'use strict';

  function splitsLijst(sLijst) {
    if (typeof sLijst !== 'string' || sLijst === '') {
      return [];
    }
    return sLijst.split('$$').map(function (s) { return s.trim(); });
  }

  // De foto's van de pagina: uit het JSON-blok, anders uit de twee oude lijsten.
  function leesFotos() {
    var oBlok = document.getElementById('kbDiaGegevens');
    if (oBlok) {
      try {
        var aFotos = JSON.parse(oBlok.textContent);
        if (Array.isArray(aFotos)) {
          return aFotos;
        }
      } catch (oFout) {
        // Een onleesbaar blok: dan de lijsten, als die er zijn.
      }
    }
    var aBijschriften = splitsLijst(window.sBijschriftenLijst);
    return splitsLijst(window.sFotoNamenLijst).map(function (sNaam, i) {
      return { src: sNaam, srcset: '', bijschrift: aBijschriften[i] || '' };
    });
  }

  // Het bijschrift zonder tags en met enkele spaties, voor de titel van het venster.
  function kaleTekst(sTekst) {
    return String(sTekst || '').replace(/<[^>]*>/g, ' ').replace(/\s+/g, ' ').trim();
  }

  // De breedte in CSS-pixels waarop foto oGegeven in het vak van oFoto verschijnt
  // (object-fit: contain), voor sizes; zonder vak of maten de volle breedte.
  function getoondeBreedte(oFoto, oGegeven) {
    var iBreedte = oFoto.clientWidth;
    var iHoogte = oFoto.clientHeight;
    if (!iBreedte || !iHoogte || !oGegeven.breedte || !oGegeven.hoogte) {
      return iBreedte ? iBreedte + 'px' : '100vw';
    }
    return Math.ceil(Math.min(iBreedte, iHoogte * oGegeven.breedte / oGegeven.hoogte)) + 'px';
  }

  // Zet de bron van een img: eerst sizes en srcset, zodat de browser meteen de
  // passende kopie kiest en niet eerst het origineel ophaalt.
  function zetBron(oFoto, oGegeven, sSizes) {
    if (oGegeven.srcset) {
      oFoto.sizes = sSizes;
      oFoto.srcset = oGegeven.srcset;
    } else {
      oFoto.removeAttribute('srcset');
      oFoto.removeAttribute('sizes');
    }
    oFoto.src = oGegeven.src;
  }

  function drieCijfers(i) {
    return ('00' + i).slice(-3);
  }

  // Toetsen in een invoerveld of keuzelijst zijn van dat veld, niet van de pagina.
  function isInvoer(oDoel) {
    return !!oDoel && (/^(INPUT|SELECT|TEXTAREA)$/.test(oDoel.tagName) || oDoel.isContentEditable);
  }

  function isGewoneToets(e) {
    return !(e.altKey || e.ctrlKey || e.metaKey || e.shiftKey) && !isInvoer(e.target);
  }

  // Het nummer uit een adres als kb001.html#foto007 (een link van het overzicht), anders 0.
  function nummerUitAdres() {
    var aTreffer = /^#foto0*(\d+)$/.exec(window.location.hash);
    return aTreffer ? parseInt(aTreffer[1], 10) : 0;
  }

  function startNummer(oHouder, iAantal) {
    var i = nummerUitAdres() || parseInt(oHouder.getAttribute('data-foto'), 10);
    return i >= 1 && i <= iAantal ? i : 1;
  }

  // De diavoorstelling in oDelen: houder en foto, en optioneel bijschrift, teller,
  // bediening, vorige, volgende, afspelen en volledig. In een lichtbak (bLichtbak)
  // werken toetsen en vegen alleen terwijl die open is, en blijft het adres van de
  // pagina zoals het is.
  function maakDia(oDelen, aFotos, bLichtbak) {
    var iAantal = aFotos.length;
    var oHouder = oDelen.houder;
    var oFoto = oDelen.foto;
    var oBijschrift = oDelen.bijschrift;
    var oTeller = oDelen.teller;
    var oBediening = oDelen.bediening;
    var oVorige = oDelen.vorige;
    var oVolgende = oDelen.volgende;
    var oAfspelen = oDelen.afspelen;
    var oVolledig = oDelen.volledig;
    var aKeuzelijsten = bLichtbak ? [] : Array.prototype.filter.call(document.querySelectorAll('select'), function (oLijst) {
      return /fnToonFoto/.test(oLijst.getAttribute('onchange') || '');
    });
    var iWisseltijd = Math.max(2, parseFloat(oHouder.getAttribute('data-wisseltijd')) || 5) * 1000;
    var aVoorlezen = [oTeller, oBijschrift].filter(function (oElement) { return oElement; });
    var oVoorraad = {};
    var sTitel = oHouder.getAttribute('data-titel');
    // De foto die de img al toont: op de diapagina de eerste van de pagina, met de
    // srcset van de pagina zelf; de kopie in de gegevens kan een andere src hebben.
    var iGetoond = bLichtbak ? 0 : parseInt(oHouder.getAttribute('data-foto'), 10) || 0;
    var iTimer = 0;
    var bSpeelt = false;

    function binnenBereik(i) {
      return ((i - 1) % iAantal + iAantal) % iAantal + 1;
    }

    // De buren van foto i alvast laden, zodat bladeren direct gaat. Alleen de buren
    // blijven vastgehouden; eerder geladen foto's staan daarna in de cache van de browser.
    function laadBuren(i) {
      var oBuren = {};
      [i + 1, i - 1].forEach(function (j) {
        var oGegeven = aFotos[binnenBereik(j) - 1];
        var sNaam = oGegeven.src;
        oBuren[sNaam] = oVoorraad[sNaam];
        if (!oBuren[sNaam]) {
          oBuren[sNaam] = new Image();
          zetBron(oBuren[sNaam], oGegeven, getoondeBreedte(oFoto, oGegeven));
        }
      });
      oVoorraad = oBuren;
    }

    function planVolgende() {
      window.clearTimeout(iTimer);
      iTimer = window.setTimeout(function () {
        if (document.hidden) {
          planVolgende();
        } else {
          toon(iFotoNummer + 1);
        }
      }, iWisseltijd);
    }

    function toon(i) {
      i = binnenBereik(i);
      iFotoNummer = i;
      var oGegeven = aFotos[i - 1];
      if (i !== iGetoond) {
        iGetoond = i;
        oHouder.classList.add('kb-laden');
        // De maten van de nieuwe foto; het vak eromheen houdt zijn grootte.
        if (oGegeven.breedte && oGegeven.hoogte) {
          oFoto.setAttribute('width', oGegeven.breedte);
          oFoto.setAttribute('height', oGegeven.hoogte);
        } else {
          oFoto.removeAttribute('width');
          oFoto.removeAttribute('height');
        }
        zetBron(oFoto, oGegeven, getoondeBreedte(oFoto, oGegeven));
      }
      oFoto.setAttribute('alt', 'foto ' + i + ' van ' + iAantal);
      if (oBijschrift) {
        // Het bijschrift zoals het geschreven is; tekst, dus niets erin kan iets breken.
        oBijschrift.textContent = oGegeven.bijschrift || '';
      }
      if (sTitel !== null) {
        var sKaal = kaleTekst(oGegeven.bijschrift);
        document.title = 'Foto ' + i + (sKaal ? ': ' + sKaal : '') + ' - ' + sTitel;
      }
      if (oTeller) {
        oTeller.textContent = 'Foto ' + i + ' van ' + iAantal;
      }
      aKeuzelijsten.forEach(function (oLijst) {
        oLijst.value = String(i);
      });
      if (!bLichtbak) {
        try {
          window.history.replaceState(null, '', '#foto' + drieCijfers(i));
        } catch (oFout) {
          // Sommige browsers staan dit niet toe voor lokale bestanden; het adres is bijzaak.
        }
      }
      laadBuren(i);
      if (bSpeelt) {
        planVolgende();
      }
    }

    function zetAfspelen(bAan) {
      bSpeelt = bAan;
      oHouder.classList.toggle('kb-speelt', bAan);
      if (oAfspelen) {
        oAfspelen.textContent = bAan ? 'Pauzeren' : 'Afspelen';
        oAfspelen.setAttribute('title', bAan ? 'Automatisch afspelen pauzeren' : 'Foto\'s automatisch na elkaar tonen');
      }
      // Tijdens het afspelen niet elke wissel laten voorlezen.
      aVoorlezen.forEach(function (oElement) {
        oElement.setAttribute('aria-live', bAan ? 'off' : 'polite');
      });
      if (bAan) {
        planVolgende();
      } else {
        window.clearTimeout(iTimer);
      }
    }

    function klaar() {
      oHouder.classList.remove('kb-laden');
    }
    oFoto.addEventListener('load', klaar);
    oFoto.addEventListener('error', klaar);

    if (oVorige) {
      oVorige.addEventListener('click', function () { toon(iFotoNummer - 1); });
    }
    if (oVolgende) {
      oVolgende.addEventListener('click', function () { toon(iFotoNummer + 1); });
    }
    if (oAfspelen) {
      oAfspelen.addEventListener('click', function () { zetAfspelen(!bSpeelt); });
    }

    if (oVolledig) {
      if (!document.fullscreenEnabled || !oHouder.requestFullscreen) {
        oVolledig.hidden = true;
      } else {
        oVolledig.addEventListener('click', function () {
          var oBelofte = document.fullscreenElement ? document.exitFullscreen() : oHouder.requestFullscreen();
          if (oBelofte && oBelofte.catch) {
            oBelofte.catch(function () { /* geweigerd door de browser: gewoon in het venster blijven */ });
          }
        });
        document.addEventListener('fullscreenchange', function () {
          oVolledig.textContent = document.fullscreenElement ? 'Venster' : 'Volledig scherm';
        });
      }
    }

    document.addEventListener('keydown', function (e) {
      if (!isGewoneToets(e) || (bLichtbak && !oHouder.open)) {
        return;
      }
      switch (e.key) {
        case 'ArrowLeft': toon(iFotoNummer - 1); break;
        case 'ArrowRight': toon(iFotoNummer + 1); break;
        case 'Home': toon(1); break;
        case 'End': toon(iAantal); break;
        case 'Escape':
          if (!bSpeelt) {
            return;
          }
          zetAfspelen(false);
          break;
        default: return;
      }
      e.preventDefault();
    });

    // Vegen op een aanraakscherm: naar links is de volgende foto, naar rechts de vorige.
    var iBeginX = 0;
    var iBeginY = 0;
    var bVegen = false;
    oHouder.addEventListener('touchstart', function (e) {
      bVegen = e.touches.length === 1;
      if (bVegen) {
        iBeginX = e.touches[0].clientX;
        iBeginY = e.touches[0].clientY;
      }
    }, { passive: true });
    oHouder.addEventListener('touchend', function (e) {
      if (!bVegen || e.changedTouches.length === 0) {
        return;
      }
      bVegen = false;
      var iDx = e.changedTouches[0].clientX - iBeginX;
      var iDy = e.changedTouches[0].clientY - iBeginY;
      if (Math.abs(iDx) > 40 && Math.abs(iDx) > 1.5 * Math.abs(iDy)) {
        toon(iFotoNummer + (iDx < 0 ? 1 : -1));
      }
    }, { passive: true });

    aVoorlezen.forEach(function (oElement) {
      oElement.setAttribute('aria-live', 'polite');
    });
    if (oBediening && iAantal > 1) {
      oBediening.hidden = false;
    }
    Array.prototype.forEach.call(oHouder.querySelectorAll('.kb-kiezer'), function (oLabel) {
      oLabel.hidden = !oLabel.querySelector('select');
    });

    if (!bLichtbak) {
      window.addEventListener('hashchange', function () {
        var i = nummerUitAdres();
        if (i >= 1 && i <= iAantal && i !== iFotoNummer) {
          toon(i);
        }
      });
    }
    return { toon: toon, stop: function () { zetAfspelen(false); } };
  }

  function startDia(oHouder) {
    var aFotos = leesFotos();
    var oFoto = oHouder.querySelector('img');
    if (aFotos.length === 0 || !oFoto) {
      return;
    }
    window.kbDiaVoorstelling = maakDia({
      houder: oHouder,
      foto: oFoto,
      bijschrift: document.getElementById('kbBijschrift'),
      teller: document.getElementById('kbTeller'),
      bediening: document.getElementById('kbBediening'),
      vorige: document.getElementById('kbVorige'),
      volgende: document.getElementById('kbVolgende'),
      afspelen: document.getElementById('kbAfspelen'),
      volledig: document.getElementById('kbVolledig')
    }, aFotos, false);
    window.kbDiaVoorstelling.toon(startNummer(oHouder, aFotos.length));
  }

  function maakElement(sTag, sKlasse, sTekst) {
    var oElement = document.createElement(sTag);
    if (sKlasse) {
      oElement.className = sKlasse;
    }
    if (sTekst) {
      oElement.textContent = sTekst;
    }
    return oElement;
  }

  function maakKnop(sTekst, sTitel) {
    var oKnop = maakElement('button', '', sTekst);
    oKnop.type = 'button';
    oKnop.title = sTitel;
    return oKnop;
  }

  // De lichtbak van een pagina met meer foto's: een dialoog die het script pas bij
  // het eerste openen maakt, zodat de pagina zonder lichtbak niets extra's bevat.
  function bouwLichtbak(aFotos) {
    var oDialoog = maakElement('dialog', 'kb-lichtbak');
    oDialoog.setAttribute('aria-label', 'Diavoorstelling');
    var oKop = maakElement('div', 'kb-lichtbak-kop');
    var oTeller = maakElement('p', 'teller');
    var oSluiten = maakKnop('Sluiten', 'Diavoorstelling sluiten (Esc)');
    oSluiten.className = 'kb-sluiten';
    oKop.appendChild(oTeller);
    oKop.appendChild(oSluiten);
    var oFiguur = maakElement('figure', 'kb-lichtbak-foto');
    var oFoto = maakElement('img');
    oFoto.alt = '';
    var oBijschrift = maakElement('figcaption');
    oFiguur.appendChild(oFoto);
    oFiguur.appendChild(oBijschrift);
    var oBediening = maakElement('div', 'diabediening');
    oBediening.hidden = true;
    var oVorige = maakKnop('\u2039 Vorige', 'Vorige foto (pijl links)');
    var oAfspelen = maakKnop('Afspelen', 'Foto\'s automatisch na elkaar tonen');
    var oVolgende = maakKnop('Volgende \u203a', 'Volgende foto (pijl rechts)');
    oBediening.appendChild(oVorige);
    oBediening.appendChild(oAfspelen);
    oBediening.appendChild(oVolgende);
    oDialoog.appendChild(oKop);
    oDialoog.appendChild(oFiguur);
    oDialoog.appendChild(oBediening);
    document.body.appendChild(oDialoog);

    var oDia = maakDia({
      houder: oDialoog,
      foto: oFoto,
      bijschrift: oBijschrift,
      teller: oTeller,
      bediening: oBediening,
      vorige: oVorige,
      volgende: oVolgende,
      afspelen: oAfspelen
    }, aFotos, true);
    var oLichtbak = { dialoog: oDialoog, dia: oDia, volgende: oVolgende, terug: null };

    oSluiten.addEventListener('click', function () { oDialoog.close(); });
    oDialoog.addEventListener('close', function () {
      oDia.stop();
      if (oLichtbak.terug) {
        oLichtbak.terug.focus();
      }
    });
    // Een klik naast de foto, op het vlak van de dialoog zelf, sluit ook.
    oDialoog.addEventListener('click', function (e) {
      if (e.target === oDialoog) {
        oDialoog.close();
      }
    });
    return oLichtbak;
  }

  function startLichtbak() {
    var aFotos = leesFotos();
    var aBeelden = Array.prototype.filter.call(document.querySelectorAll('img[id^="img"]'), function (oFoto) {
      return /^img\d+$/.test(oFoto.id);
    });
    var aKnoppen = Array.prototype.slice.call(document.querySelectorAll('.kb-dia-start'));
    if (aFotos.length === 0 || aBeelden.length === 0 || typeof HTMLDialogElement !== 'function') {
      return;
    }
    var oLichtbak = null;

    function open(i, oVan) {
      oLichtbak = oLichtbak || bouwLichtbak(aFotos);
      oLichtbak.terug = oVan;
      // Eerst openen: pas dan heeft het vak van de foto een maat voor sizes.
      if (!oLichtbak.dialoog.open) {
        oLichtbak.dialoog.showModal();
      }
      oLichtbak.dia.toon(i);
      oLichtbak.volgende.focus();
    }

    aBeelden.forEach(function (oFoto) {
      var i = parseInt(oFoto.id.slice(3), 10);
      oFoto.classList.add('kb-vergroot');
      oFoto.title = 'Klik voor de diavoorstelling';
      oFoto.addEventListener('click', function (e) {
        // Een foto in een link volgt die link niet, maar opent de lichtbak.
        e.preventDefault();
        open(i, oFoto);
      });
    });
    aKnoppen.forEach(function (oKnop) {
      oKnop.hidden = false;
      oKnop.addEventListener('click', function () {
        open(parseInt(aBeelden[0].id.slice(3), 10), oKnop);
      });
    });
  }

  function pijltoetsenVoorPaginas() {
    var oVorige = document.querySelector('a.vorige[href]');
    var oVolgende = document.querySelector('a.volgende[href]');
    if (!oVorige && !oVolgende) {
      return;
    }
    document.addEventListener('keydown', function (e) {
      // Met de lichtbak open zijn de pijltoetsen van de diavoorstelling.
      if (!isGewoneToets(e) || document.querySelector('dialog[open]')) {
        return;
      }
      if (e.key === 'ArrowLeft' && oVorige) {
        window.location.href = oVorige.href;
      } else if (e.key === 'ArrowRight' && oVolgende) {
        window.location.href = oVolgende.href;
      } else {
        return;
      }
      e.preventDefault();
    });
  }

  // Een keuzelijst met onchange springt alleen na Enter, de knop Ga of een keuze
  // zonder toetsenbord (muis, aanraakscherm): pijltoetsen bladeren alleen door de lijst.
  function keuzelijstZonderSprong(oLijst) {
    var fnSprong = oLijst.onchange;
    if (typeof fnSprong !== 'function') {
      return;
    }
    // Het attribuut blijft staan (andere code zoekt de lijst eraan); alleen de handler gaat weg.
    oLijst.onchange = null;
    var oBegin = oLijst.querySelector('option[selected]');
    var bToets = false;
    function spring() {
      // Op een gewone pagina is de huidige pagina kiezen geen sprong.
      if (!document.getElementById('kbDia') && oBegin && oLijst.value === oBegin.value) {
        return;
      }
      fnSprong.call(oLijst, new Event('change'));
    }
    oLijst.addEventListener('keydown', function (e) {
      if (e.key === 'Enter') {
        e.preventDefault();
        spring();
        return;
      }
      // De change die deze toets meteen geeft, is nog geen keuze.
      bToets = true;
      window.setTimeout(function () { bToets = false; }, 0);
    });
    oLijst.addEventListener('change', function () {
      if (!bToets) {
        spring();
      }
    });
    var oKnop = document.createElement('button');
    oKnop.type = 'button';
    oKnop.className = 'kb-ga';
    oKnop.textContent = 'Ga';
    oKnop.title = 'Naar de gekozen foto of pagina';
    oKnop.addEventListener('click', spring);
    var oNa = oLijst.closest('label') || oLijst;
    oNa.parentNode.insertBefore(oKnop, oNa.nextSibling);
  }

  Array.prototype.forEach.call(document.querySelectorAll('select[onchange]'), keuzelijstZonderSprong);

  var oHouder = document.getElementById('kbDia');
  if (oHouder) {
    startDia(oHouder);
  } else {
    pijltoetsenVoorPaginas();
    startLichtbak();
  }
})();
