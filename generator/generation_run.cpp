#include "generator/generation_run.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <new>

#include "base/program_info.h"
#include "base/file_system.h"
#include "gallery/gallery_script.h"
#include "base/keyed_text_file.h"
#include "base/text.h"
#include "base/text_helpers.h"

namespace kiekbord {
namespace {

// The photo tables hold 512 photos. A 1024-line script cannot name more
// (each photo takes a header and a name line), so the overflow is a guard.
constexpr int kMaxPhotos = 512;

// The run keeps the list fields and colours as text, in the order of the
// script's tables.
constexpr std::array<std::string SiteGegevens::*, kKeuzeVelden.size()> kKeuzeTeksten = {
    &SiteGegevens::presentatie,           &SiteGegevens::positie_fotos,
    &SiteGegevens::positie_bijschriften,  &SiteGegevens::fotos_zonder_bijschrift,
    &SiteGegevens::lettertype_titels,     &SiteGegevens::lettertype_bijschriften,
    &SiteGegevens::lettergrootte_bijschriften, &SiteGegevens::letterstijl_bijschriften};
constexpr std::array<std::string SiteGegevens::*, kKleurVelden.size()> kKleurTeksten = {
    &SiteGegevens::kleur_tekst_op_achtergrond, &SiteGegevens::kleur_achtergrond,
    &SiteGegevens::kleur_tekst_in_kader, &SiteGegevens::kleur_kader};

// The script's values and the photos taken in.
SiteGegevens LeesScriptWaarden(const LineTable& script) {
  using namespace script_sleutel;
  SiteGegevens g;
  const auto algemeen = [&](std::string_view key, std::string_view fallback) {
    return LeesWaarde(script, kAlgemeen, key, fallback);
  };
  const auto instelling = [&](std::string_view key, std::string_view fallback) {
    return LeesWaarde(script, kInstellingen, key, fallback);
  };
  g.uitvoer_dir = WithTrailingSlash(algemeen(kUitvoerDir, ""));
  g.titel = algemeen(kTitel, "");
  g.subtitel = algemeen(kSubtitel, "");
  g.datum = algemeen(kDatum, "");
  g.beschrijving = algemeen(kBeschrijving, "");
  g.thumbnails = algemeen(kThumbnails, "0");
  const double aantal_fotos = LeadingNumber(algemeen(kAantalFotos, "0"));
  g.sjabloon = instelling(kSjabloon, "Klassiek");
  g.fotos_per_pagina = instelling(kAantalFotosPerPagina, "1");
  for (std::size_t i = 0; i < kKeuzeVelden.size(); ++i) {
    g.*kKeuzeTeksten[i] = instelling(kKeuzeVelden[i].sleutel, std::to_string(kKeuzeVelden[i].standaard));
  }
  for (std::size_t i = 0; i < kKleurVelden.size(); ++i) {
    g.*kKleurTeksten[i] =
        KleurNaarHex(instelling(kKleurVelden[i].sleutel, std::to_string(kKleurVelden[i].run_standaard)));
  }

  for (const long long i : FotoSectieNummers(script, aantal_fotos)) {
    const std::string section = FotoSectie(i);
    std::string naam = LeesWaarde(script, section, kFoto, "");
    std::string bijschrift = LeesWaarde(script, section, kBijschrift, "");
    const bool taken_in = CharCount(naam) >= 6 && EndsWith(naam, ".jpg") &&
                          (!bijschrift.empty() || g.fotos_zonder_bijschrift == "0");
    if (!taken_in) continue;
    if (g.AantalFotos() == kMaxPhotos) throw RunError(fout::kSubscriptOutOfRange);
    g.foto_namen.push_back(std::move(naam));
    g.bijschriften.push_back(std::move(bijschrift));
  }
  return g;
}

// The template paths. The photo template follows the caption
// position and, for several photos per page or the automatic presentation,
// its "m" or "a" form.
void BouwSjabloonPaden(SiteGegevens& g, const ProgramSettings& settings) {
  g.ext = settings.sjabloon_type;
  g.sjabloon_dir = settings.sjabloon_dir + g.sjabloon + "/";
  g.sjabloon_ini = g.sjabloon_dir + "sjabloon.ini";
  g.titel_sjabloon = g.sjabloon_dir + "kbtitel" + g.ext;
  g.overzicht_sjabloon = g.sjabloon_dir + "kbovz" + g.ext;
  g.stijl_sjabloon = g.sjabloon_dir + "kb.css";

  const double piece = std::nearbyint(LeadingNumber(g.positie_bijschriften) + 1);
  if (piece < -32768 || piece > 32767) throw RunError(fout::kOverflow);
  g.foto_sjabloon = g.sjabloon_dir + Deel(static_cast<int>(piece), ";", "kbfoto1;kbfoto2;kbfoto3") + g.ext;
  // The whole path is searched for the extension, as it always was.
  if (LeadingNumber(g.fotos_per_pagina) > 1) {
    g.foto_sjabloon = Vervang(g.foto_sjabloon, g.ext, "m" + g.ext);
  } else if (g.presentatie == "1") {
    g.foto_sjabloon = Vervang(g.foto_sjabloon, g.ext, "a" + g.ext);
  }
}

// Every missing template is logged; true when all are there.
bool ControleerSjablonen(const SiteGegevens& g, GenerationLog& log) {
  bool ok = true;
  const auto check = [&](const std::string& path, const char* role) {
    if (Fs().FileExists(path)) return;
    log.SchrijfLog("Sjabloon " + path + " voor " + role + " niet gevonden.");
    ok = false;
  };
  check(g.titel_sjabloon, "titelpagina");
  if (g.OverzichtAan()) check(g.overzicht_sjabloon, "overzichtspagina");
  check(g.stijl_sjabloon, "opmaak");
  check(g.foto_sjabloon, "fotopagina's");
  return ok;
}

// Deleting the old pages ("kb*") from an output directory that is the
// template directory would delete the templates themselves; such a run is
// refused. True when the two differ (or cannot be compared).
bool ControleerUitvoerDir(const SiteGegevens& g, GenerationLog& log) {
  FileInfo uitvoer;
  FileInfo sjablonen;
  if (!Fs().GetFileInfo(g.uitvoer_dir, uitvoer).ok() || !Fs().GetFileInfo(g.sjabloon_dir, sjablonen).ok()) {
    return true;
  }
  if (uitvoer.inode == 0 || uitvoer.inode != sjablonen.inode || uitvoer.device != sjablonen.device) return true;
  log.SchrijfLog("Uitvoerdirectory " + g.uitvoer_dir + " is de sjabloondirectory; kies een andere uitvoerdirectory.");
  return false;
}

// Earlier photo and overview pages ("kb*" + extension) go.
void VerwijderOudePaginas(const SiteGegevens& g, GenerationLog& log) {
  std::vector<std::string> old_pages;
  // An output directory that cannot be listed has no old pages.
  if (!Fs().ListFiles(g.uitvoer_dir, "kb*" + g.ext, old_pages).ok() || old_pages.empty()) return;
  log.SchrijfLog("Verwijderen oude fotopagina's...");
  for (const std::string& name : old_pages) {
    const Status status = Fs().DeleteFile(g.uitvoer_dir + name);
    if (!status.ok()) throw RunError(status);
  }
  log.SchrijfLog("Oude fotopagina's verwijderd.");
}

void Voer(const SiteSteps::Step& step, SiteRun& run) {
  if (step && run.failed == kGelukt) step(run);
}

std::int16_t RunSteps(const std::string& script_path, const SiteOmgeving& omgeving) {
  std::int16_t failed = kGelukt;
  GenerationLog& log = omgeving.log;
  log.SchrijfLog("open:" + LogPad(script_path));
  log.SchrijfLog("Aangemaakt met: " + ProgramCaption() + " (" + std::to_string(BuildRevision()) + ")");
  log.SchrijfLog("Inlezen script " + script_path + "...");

  LineTable script(capaciteit::kScript);
  if (!LeesRegels(script_path, script, false).ok()) {
    log.SchrijfLog("Fout bij inlezen script: " + script.CountSlot());
    failed = kMislukt;
  } else {
    log.SchrijfLog("Script " + script_path + " ingelezen.");
  }

  SiteGegevens gegevens = LeesScriptWaarden(script);
  gegevens.script_path = script_path;
  log.SchrijfLog("Variabelen uit script ingelezen.");
  BouwSjabloonPaden(gegevens, omgeving.settings);
  if (!ControleerSjablonen(gegevens, log)) failed = kMislukt;
  if (!ControleerUitvoerDir(gegevens, log)) failed = kMislukt;

  SiteRun run{omgeving.settings, gegevens, log, omgeving.melder, NavigatieTeksten{}, failed, omgeving.voortgang};
  if (run.failed == kGelukt) LeesNavigatieTeksten(gegevens.sjabloon_ini, run.navigatie, log);
  if (run.failed == kGelukt) VerwijderOudePaginas(gegevens, log);

  const SiteSteps& steps = omgeving.steps;
  Voer(steps.titel_pagina, run);
  if (gegevens.OverzichtAan()) {
    Voer(steps.thumbnails, run);
    Voer(steps.overzicht, run);
  }
  Voer(steps.stijlblad, run);
  Voer(steps.foto_paginas, run);
  // The copiers report in the log only; a failure of theirs is unexpected
  // and cuts the run off.
  Voer(steps.afbeeldingen, run);
  Voer(steps.scripts, run);
  Voer(steps.stijlbladen, run);

  log.SchrijfLog(run.failed == kGelukt ? "Normaal einde." : "Abnormaal einde.");
  log.SchrijfLog("close");
  return run.failed;
}

}  // namespace

std::string LogPad(const std::string& script_path) {
  return DirectoryOf(script_path) + Vervang(Lower(FileNameOf(script_path)), ".kbs", ".log");
}

SiteResultaat MaakSite(const std::string& script_path, const SiteOmgeving& omgeving) {
  SiteResultaat result;
  try {
    result.failed = RunSteps(script_path, omgeving);
  } catch (...) {
    result.failed = kMislukt;
    result.onverwacht = StatusVanUitzondering();
  }
  return result;
}

}  // namespace kiekbord
