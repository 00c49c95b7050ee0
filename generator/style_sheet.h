// The style sheet "kb.css" of the output directory, made from the template
// set's "kb.css": the colour fields and the caption and title fonts are
// filled, the rest passes as it is (trimmed, without empty lines).
#pragma once

#include <string>

#include "generator/site_run.h"

namespace kiekbord {

// The font values the style sheet is filled with.
struct LettertypeWaarden {
  std::string titels;       // "\"Arial\"": the title font in double quotes
  std::string bijschriften; // the caption font in double quotes
  std::string grootte;      // caption size: "10" for index 0 or less, else 10 + 2 x index
  std::string stijl;        // "italic" for style index "2" or "3", else "normal"
  std::string gewicht;      // "bold" for style index "1" or "3", else "normal"
};

// The font values of the run. A font index beyond the list gives the
// separator in quotes ("\";\""). Throws RunError(6) when an index or the
// size falls outside the 16-bit range.
LettertypeWaarden LettertypeWaardenVan(const SiteGegevens& gegevens);

// Writes the style sheet, logging "Inlezen sjabloon ...", "Sjabloon ...
// ingelezen.", "Aanmaken opmaakbestand ..." and "Opmaakbestand ...
// aangemaakt.". An unreadable template, an unwritable file or any other
// failure is logged and sets run.failed; the file is then not written.
void MaakStijlblad(SiteRun& run);

}  // namespace kiekbord
