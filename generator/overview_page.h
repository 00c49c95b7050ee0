// The overview page: "kbovz" + page extension in the output directory, every
// photo of the gallery as a thumbnail linking to its place on the photo
// pages. The template's repeat block is written pass after pass until every
// photo is shown. A block may show several photos a pass: a block line
// whose field holds "++" ("[KIEKBORDVELD=LINKFOTO++]") moves on to the next
// photo once it is written; the cells after the last photo stay empty.
#pragma once

#include <string>

#include "generator/head_and_credit.h"
#include "generator/site_run.h"

namespace kiekbord {

// The photo page that shows photo `nummer` (from 1) as the overview links
// it: page 1 for the automatic presentation ("1"), otherwise by the photos
// per page.
int OverzichtPaginaVan(int nummer, const SiteGegevens& gegevens);

// Writes the overview page, logging "Inlezen sjabloon ...", "Sjabloon ...
// ingelezen.", "Aanmaken overzichtspagina <path>..." and "Overzichtspagina
// <path> aangemaakt.". An unreadable template is logged and sets
// run.failed; the page is still written, with the head and tail only. A
// page that cannot be written, or any other failure, logs "<number>
// <description>", sets run.failed and ends the step.
void MaakOverzichtPagina(SiteRun& run, const KopEnCredit& kop);

}  // namespace kiekbord
