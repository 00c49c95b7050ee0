/*
 * kbdia.js - diavoorstelling en toetsenbordbediening voor Kiekbord-fotopagina's.
 *
 * Een pagina met een element met id "kbDia" wordt een diavoorstelling: alle foto's
 * van de kiekbord op één pagina, één tegelijk. De pagina levert daarvoor:
 *   sFotoNamenLijst     de bestandsnamen van de foto's, gescheiden door "$$";
 *   sBijschriftenLijst  de bijschriften in dezelfde volgorde, gescheiden door "$$";
 *   een keuzelijst met id "nav01" die iFotoNummer zet en fnToonFoto(0) aanroept.
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
  function maakDia(oDelen, aNamen, aBijschriften, bLichtbak) {
    var iAantal = aNamen.length;
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
        var sNaam = aNamen[binnenBereik(j) - 1];
        oBuren[sNaam] = oVoorraad[sNaam];
        if (!oBuren[sNaam]) {
          oBuren[sNaam] = new Image();
          oBuren[sNaam].src = sNaam;
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
      var sNaam = aNamen[i - 1];
      if (oFoto.getAttribute('src') !== sNaam) {
        oHouder.classList.add('kb-laden');
        // De afmetingen van de vorige foto gelden niet voor de nieuwe.
        oFoto.removeAttribute('width');
        oFoto.removeAttribute('height');
        oFoto.setAttribute('src', sNaam);
      }
      oFoto.setAttribute('alt', 'foto ' + i + ' van ' + iAantal);
      if (oBijschrift) {
        oBijschrift.textContent = aBijschriften[i - 1] || '';
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
    var aNamen = splitsLijst(window.sFotoNamenLijst);
    var oFoto = oHouder.querySelector('img');
    if (aNamen.length === 0 || !oFoto) {
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
    }, aNamen, splitsLijst(window.sBijschriftenLijst), false);
    window.kbDiaVoorstelling.toon(startNummer(oHouder, aNamen.length));
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
  function bouwLichtbak(aNamen) {
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
    }, aNamen, splitsLijst(window.sBijschriftenLijst), true);
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
    var aNamen = splitsLijst(window.sFotoNamenLijst);
    var aFotos = Array.prototype.filter.call(document.querySelectorAll('img[id^="img"]'), function (oFoto) {
      return /^img\d+$/.test(oFoto.id);
    });
    var aKnoppen = Array.prototype.slice.call(document.querySelectorAll('.kb-dia-start'));
    if (aNamen.length === 0 || aFotos.length === 0 || typeof HTMLDialogElement !== 'function') {
      return;
    }
    var oLichtbak = null;

    function open(i, oVan) {
      oLichtbak = oLichtbak || bouwLichtbak(aNamen);
      oLichtbak.terug = oVan;
      oLichtbak.dia.toon(i);
      if (!oLichtbak.dialoog.open) {
        oLichtbak.dialoog.showModal();
      }
      oLichtbak.volgende.focus();
    }

    aFotos.forEach(function (oFoto) {
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
        open(parseInt(aFotos[0].id.slice(3), 10), oKnop);
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

  var oHouder = document.getElementById('kbDia');
  if (oHouder) {
    startDia(oHouder);
  } else {
    pijltoetsenVoorPaginas();
    startLichtbak();
  }
})();
