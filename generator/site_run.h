// What one generation run hands to its steps: the values read from the
// script, the template paths, the navigation texts and the shared failed
// flag, and the interface through which the run calls the page writers, the
// thumbnail run and the asset copiers.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/program_settings.h"
#include "base/failure_report.h"
#include "base/generation_log.h"
#include "generator/navigation_texts.h"
#include "generator/photo_sizes.h"
#include "images/ready_thumbnails.h"

namespace kiekbord {

inline constexpr std::int16_t kGelukt = 0;
inline constexpr std::int16_t kMislukt = -1;

// The values of one run, kept as text exactly as the script holds them
// unless noted.
struct SiteGegevens {
  std::string script_path;
  std::string uitvoer_dir;  // ends in "/"
  std::string titel;
  std::string subtitel;
  std::string datum;
  std::string beschrijving;
  std::string thumbnails;  // overview switch: on exactly when "1"
  std::string sjabloon;    // template set name
  std::string fotos_per_pagina;
  std::string presentatie;
  std::string positie_fotos;
  std::string positie_bijschriften;
  std::string fotos_zonder_bijschrift;
  std::string lettertype_titels;
  std::string lettertype_bijschriften;
  std::string lettergrootte_bijschriften;
  std::string letterstijl_bijschriften;
  // Colours as six hex digits in HTML order.
  std::string kleur_tekst_op_achtergrond;
  std::string kleur_achtergrond;
  std::string kleur_tekst_in_kader;
  std::string kleur_kader;
  // Web-sized copies and their page fields: on exactly when "1".
  std::string webformaat;
  // With it: the "sizes" of a photo on the photo pages and of the cover on
  // the title page (from the set's "sjabloon.ini").
  std::string foto_sizes;
  std::string omslag_sizes;
  // The photos' sizes as this run has read or been told them.
  std::shared_ptr<FotoMaten> foto_maten = std::make_shared<FotoMaten>();

  // The photos taken in, in gallery order: file names and captions.
  std::vector<std::string> foto_namen;
  std::vector<std::string> bijschriften;

  // The page extension (".html") and the template paths.
  std::string ext;
  std::string sjabloon_dir;
  std::string sjabloon_ini;
  std::string titel_sjabloon;
  std::string overzicht_sjabloon;
  std::string stijl_sjabloon;
  std::string foto_sjabloon;

  bool OverzichtAan() const { return thumbnails == "1"; }
  bool WebformaatAan() const { return webformaat == "1"; }
  int AantalFotos() const { return static_cast<int>(foto_namen.size()); }
};

// The state a step works on. A step that fails logs its own message and sets
// `failed` to kMislukt; no step clears it.
struct SiteRun {
  const ProgramSettings& settings;
  const SiteGegevens& gegevens;
  GenerationLog& log;
  FoutMelder& melder;
  NavigatieTeksten navigatie;
  std::int16_t failed = kGelukt;
  // Reports thumbnail progress (photo i of n) to a progress display.
  std::function<void(int done, int total)> voortgang;
  // Asked between steps, thumbnails and pages: true when the user wants the
  // run stopped.
  std::function<bool()> afbreken;
  bool afgebroken = false;
  // What the web-copy step hands the thumbnail step.
  std::shared_ptr<KlareThumbnails> klare_thumbnails = std::make_shared<KlareThumbnails>();
};

// True when the run is to stop here. The first time the user's stop is seen
// it is logged and the run counts as failed; a run without `afbreken` never
// stops, so its log is unchanged.
bool Afgebroken(SiteRun& run);

// The steps the run calls after its checks, in this order. An empty step does
// nothing.
struct SiteSteps {
  using Step = std::function<void(SiteRun&)>;
  Step webkopieen;       // web-sized copies, only with "Webformaat" on
  Step titel_pagina;     // the title page
  Step thumbnails;       // thumbnails, only with the overview switch on
  Step overzicht;        // the overview pages, only with the overview switch on
  Step stijlblad;        // the style sheet
  Step foto_paginas;     // the photo pages
  Step afbeeldingen;     // the template set's images
  Step scripts;          // the template set's scripts
  Step stijlbladen;      // the template set's extra style sheets
};

// The program's real steps.
SiteSteps StandaardStappen();

// The real steps with another "today" for the pages' head block (tests).
SiteSteps StandaardStappen(std::function<std::chrono::year_month_day()> vandaag);

}  // namespace kiekbord
