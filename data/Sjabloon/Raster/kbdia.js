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
 * klasse "vorige" en "volgende".
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

  function startDia(oHouder) {
    var aNamen = splitsLijst(window.sFotoNamenLijst);
    var aBijschriften = splitsLijst(window.sBijschriftenLijst);
    var iAantal = aNamen.length;
    var oFoto = oHouder.querySelector('img');
    if (iAantal === 0 || !oFoto) {
      return;
    }

    var oBijschrift = document.getElementById('kbBijschrift');
    var oTeller = document.getElementById('kbTeller');
    var oBediening = document.getElementById('kbBediening');
    var oVorige = document.getElementById('kbVorige');
    var oVolgende = document.getElementById('kbVolgende');
    var oAfspelen = document.getElementById('kbAfspelen');
    var oVolledig = document.getElementById('kbVolledig');
    var aKeuzelijsten = Array.prototype.filter.call(document.querySelectorAll('select'), function (oLijst) {
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
      try {
        window.history.replaceState(null, '', '#foto' + drieCijfers(i));
      } catch (oFout) {
        // Sommige browsers staan dit niet toe voor lokale bestanden; het adres is bijzaak.
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
      if (!isGewoneToets(e)) {
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

    window.addEventListener('hashchange', function () {
      var i = nummerUitAdres();
      if (i >= 1 && i <= iAantal && i !== iFotoNummer) {
        toon(i);
      }
    });

    window.kbDiaVoorstelling = { toon: toon };
    toon(startNummer(oHouder, iAantal));
  }

  function pijltoetsenVoorPaginas() {
    var oVorige = document.querySelector('a.vorige[href]');
    var oVolgende = document.querySelector('a.volgende[href]');
    if (!oVorige && !oVolgende) {
      return;
    }
    document.addEventListener('keydown', function (e) {
      if (!isGewoneToets(e)) {
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
  }
})();
