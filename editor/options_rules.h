// The options dialog `frmOpties` without widgets: how the stored preferences
// set its controls when it opens, which controls are enabled, the photo
// program proposed when none is set, and the preferences OK saves.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "app/user_preferences.h"

namespace kiekbord {

// The help page of the options dialog's help button.
inline constexpr std::string_view kOptiesHelpPagina = "index05";

// The photo programs proposed, in this order: the first one found on the
// search path wins.
inline constexpr std::array<std::string_view, 4> kVoorgesteldeFotoprogrammas = {"gimp", "krita", "pinta",
                                                                                  "darktable"};

// The controls of the dialog.
struct OptiesScherm {
  bool ie_dynamisch = false;        // chkIEDynamischAanroepen
  bool controlevraag = false;       // chkControlevraag
  bool backup_bij_roteren = false;  // chkBackupBijRoteren
  bool opslaan_laatste = false;     // optOpslaanLaatste chosen, else optOpslaanUitvoer
  std::string fotoprogramma;        // txtFotoProgramma

  bool ie_dynamisch_aan = false;    // the browser option can be changed
  bool fotoprogramma_aan = false;   // lblFotoprogramma, txtFotoProgramma, cmdFotoProgramma

  bool rechtop_kopieren = false;    // chkRechtopBijKopieren
  bool zonder_locatie = false;      // chkZonderLocatieBijKopieren
};

// The controls as the dialog opens: each check box on when its value is 1,
// the last-used directory chosen when that preference is 1. The browser
// option is enabled only when `browser` (the program found for web pages)
// contains "iexplore.exe". With `extern_bewerken` (the program setting) the
// photo program's path is shown; without it the box stays empty and the
// photo-program controls are disabled.
OptiesScherm OptiesBijOpenen(const UserPreferences& voorkeuren, bool extern_bewerken, const std::string& browser);

// True when the dialog proposes a photo program as it is activated: external
// editing is enabled and the box is empty.
bool FotoprogrammaVoorstellen(const OptiesScherm& scherm);

// The full path of the first of gimp, krita, pinta and darktable in the
// directories of `zoekpad` (a ":"-separated list, as $PATH); empty when none
// is there. Looks through Fs().
std::string StelFotoprogrammaVoor(std::string_view zoekpad);

// The preferences OK saves: each check box as 1 or 0, the scripts
// preference 1 when the last-used directory is chosen, and the path as the
// box shows it. (With external editing disabled the box is empty, so OK then
// clears the stored program; the dialog has always worked so.)
UserPreferences OptiesBijOk(const OptiesScherm& scherm);

}  // namespace kiekbord
