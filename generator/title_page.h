// The title page: "index" + page extension in the output directory, made
// from the template set's "kbtitel" template. Besides the common fields it
// offers two ready-made links, to the first photo page ("LINKEERSTEPAGINA")
// and to the overview ("LINKOVERZICHT", empty without an overview), and it
// carries the head block with the gallery's keywords and the credit line.
#pragma once

#include "generator/head_and_credit.h"
#include "generator/site_run.h"

namespace kiekbord {

// Writes the title page, logging "Inlezen sjabloon ...", "Sjabloon ...
// ingelezen.", "Aanmaken titelpagina ..." and "Titelpagina ... aangemaakt.".
// An unreadable template, an unwritable page or any other failure is logged
// and sets run.failed; the page is then not written (an earlier one stays).
void MaakTitelPagina(SiteRun& run, const KopEnCredit& kop);

}  // namespace kiekbord
