#include "generator/site_run.h"

#include "base/dutch_date.h"
#include "generator/asset_copiers.h"
#include "generator/head_and_credit.h"
#include "generator/overview_page.h"
#include "generator/photo_pages.h"
#include "generator/style_sheet.h"
#include "generator/title_page.h"
#include "images/thumbnails.h"
#include "images/web_copies.h"

namespace kiekbord {

bool Afgebroken(SiteRun& run) {
  if (run.afgebroken || !run.afbreken || !run.afbreken()) return run.afgebroken;
  run.afgebroken = true;
  run.failed = kMislukt;
  run.log.SchrijfLog("Generatie afgebroken door de gebruiker.");
  return true;
}

SiteSteps StandaardStappen() { return StandaardStappen(VandaagLokaal); }

SiteSteps StandaardStappen(std::function<std::chrono::year_month_day()> vandaag) {
  SiteSteps steps;
  steps.webkopieen = [](SiteRun& run) {
    FotoMaten& maten = *run.gegevens.foto_maten;
    const WebKopieOpties opties{0, run.voortgang, run.klare_thumbnails.get(),
                                [&maten](const std::string& foto, const FileInfo& info, FotoMaat maat) {
                                  maten.Bewaar(foto, info, maat);
                                }};
    if (MaakWebKopieen(run.gegevens.uitvoer_dir, run.gegevens.foto_namen, opties, run.log)) {
      run.failed = kMislukt;
    }
  };
  steps.titel_pagina = [vandaag](SiteRun& run) {
    MaakTitelPagina(run, KopEnCreditVoor(run.settings, vandaag()));
  };
  steps.thumbnails = [](SiteRun& run) {
    const ThumbnailOpties opties{run.settings.program_dir, 0, run.voortgang, run.afbreken,
                                 run.klare_thumbnails.get()};
    if (MaakThumbnails(run.gegevens.uitvoer_dir, run.gegevens.AantalFotos(), run.gegevens.foto_namen, opties,
                       run.log, run.melder)) {
      run.failed = kMislukt;
    }
  };
  steps.overzicht = [vandaag](SiteRun& run) {
    MaakOverzichtPagina(run, KopEnCreditVoor(run.settings, vandaag()));
  };
  steps.stijlblad = MaakStijlblad;
  steps.foto_paginas = [vandaag](SiteRun& run) {
    MaakFotoPaginas(run, KopEnCreditVoor(run.settings, vandaag()));
  };
  steps.afbeeldingen = [](SiteRun& run) {
    KopieerAfbeeldingen(run.gegevens.sjabloon_dir, run.gegevens.uitvoer_dir, run.log,
                       run.gegevens.WebformaatAan());
  };
  steps.scripts = [](SiteRun& run) {
    KopieerScripts(run.gegevens.sjabloon_dir, run.gegevens.uitvoer_dir, run.log,
                  run.gegevens.WebformaatAan());
  };
  steps.stijlbladen = [](SiteRun& run) {
    KopieerStijlbladen(run.gegevens.sjabloon_dir, run.gegevens.uitvoer_dir, run.log,
                      run.gegevens.WebformaatAan());
  };
  return steps;
}

}  // namespace kiekbord
