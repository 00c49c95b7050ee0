// The photo pages: "kb001" + page extension, "kb002" + page extension and so
// on in the output directory, a fixed number of photos on each, made from
// the photo template that the run chose. The template's repeat block is
// written once per photo; head and tail carry the navigation. The
// single-page form of the template ("kbfoto1a" + extension) makes one page
// whose script shows the photos one at a time from two lists written into
// it: the photo names joined by "$$" ("FOTONAMENLIJST") and the captions,
// each with "\'" for "'" and a trailing space ("FOTOBIJSCHRIFTENLIJST").
#pragma once

#include <string>
#include <vector>

#include "generator/head_and_credit.h"
#include "generator/site_run.h"

namespace kiekbord {

// "FOTONAMENLIJST": the photo names as links (BestandsLink) joined by "$$".
std::string FotoNamenLijst(const std::vector<std::string>& namen);

// "FOTOBIJSCHRIFTENLIJST": per caption "$$" (from the second on), the
// caption as a script string (ScriptTekst: "Jan's" gives "Jan\'s"), and one
// space.
std::string BijschriftenLijst(const std::vector<std::string>& bijschriften);

// Writes the photo pages, logging "Inlezen sjabloon ...", "Sjabloon ...
// ingelezen.", "Aanmaken fotopagina <path>..." per page and at the end
// "<S> fotopagina's aangemaakt." with S the page count. An unreadable
// template is logged, sets run.failed and writes no page (the count line
// is still logged). A page that cannot be written, or any other failure,
// logs "<number> <description>", sets run.failed and ends the step.
void MaakFotoPaginas(SiteRun& run, const KopEnCredit& kop);

}  // namespace kiekbord
