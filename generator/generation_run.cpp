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
#include "generator/web_fields.h"

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

// The script's values and the photos taken in. A photo name that reaches
// into another directory is logged and left out, like any other name the
// run does not take in: the other photos still make a gallery.
SiteGegevens LeesScriptWaarden(const LineTable& script, GenerationLog& log) {
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
  g.webformaat = instelling(kWebformaat, "0");
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
    if (!IsPlainName(naam)) {
      log.SchrijfLog("Foto '" + naam + "' in [" + section + "] overgeslagen: een fotonaam mag geen map bevatten.");
      continue;
    }
    if (g.AantalFotos() == kMaxPhotos) throw RunError(fout::kSubscriptOutOfRange, "AantalFotos");
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
  if (piece < -32768 || piece > 32767) {
    throw RunError(fout::kOverflow, std::string(kKeuzeVelden[2].sleutel));  // the caption position
  }
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

// A template set is named by a plain name: the set is a directory under the
// template root, never a path that leaves it. True when the name is one.
bool ControleerSjabloonNaam(const SiteGegevens& g, GenerationLog& log) {
  if (g.sjabloon.empty() || IsPlainName(g.sjabloon)) return true;
  log.SchrijfLog("Sjabloon '" + g.sjabloon + "' in script " + g.script_path +
                 " is geen naam van een sjabloonset; er wordt niets geschreven.");
  return false;
}

// The run writes only into the output directory the script names, and only
// after it has checked it: given, a full path, there, locked for this run,
// and not the template directory (deleting the old pages, "kb*", would
// delete the templates themselves). `uitvoer` is the script's value as it
// stands; `slot` the result of locking it. True when the run may write.
bool ControleerUitvoerDir(const SiteGegevens& g, const std::string& uitvoer, const Status& slot,
                          GenerationLog& log) {
  const std::string niets = "; er wordt niets geschreven.";
  if (uitvoer.empty()) {
    log.SchrijfLog("Geen uitvoerdirectory (UitvoerDir) in script " + g.script_path + niets);
    return false;
  }
  if (!StartsWith(uitvoer, "/")) {
    log.SchrijfLog("Uitvoerdirectory '" + uitvoer + "' (UitvoerDir) in script " + g.script_path +
                   " is geen volledig pad" + niets);
    return false;
  }
  if (slot.number() == fout::kFileNotFound || slot.number() == fout::kPathNotFound) {
    log.SchrijfLog("Uitvoerdirectory " + g.uitvoer_dir + " (UitvoerDir) bestaat niet" + niets);
    return false;
  }
  if (!slot.ok()) {
    log.SchrijfLog("Uitvoerdirectory " + g.uitvoer_dir + " kan niet worden vergrendeld (" +
                   std::to_string(slot.number()) + " " + slot.description() + ")" + niets);
    return false;
  }
  FileInfo uitvoer_info;
  FileInfo sjablonen;
  if (!Fs().GetFileInfo(g.uitvoer_dir, uitvoer_info).ok() || !Fs().GetFileInfo(g.sjabloon_dir, sjablonen).ok()) {
    return true;
  }
  if (uitvoer_info.inode == 0 || uitvoer_info.inode != sjablonen.inode || uitvoer_info.device != sjablonen.device) {
    return true;
  }
  log.SchrijfLog("Uitvoerdirectory " + g.uitvoer_dir + " is de sjabloondirectory; kies een andere uitvoerdirectory.");
  return false;
}

// Temporary files that runs which died left in the output directory go,
// without a word: they were never part of the site.
void RuimTijdelijkeBestandenOp(const SiteGegevens& g) {
  std::vector<std::string> names;
  if (!Fs().ListFiles(g.uitvoer_dir, "*.kbtmp*", names).ok()) return;
  for (const std::string& name : names) {
    if (!IsLeftoverTemporaryName(name)) continue;
    // One that cannot be deleted stays for the next run; it harms nothing.
    static_cast<void>(Fs().DeleteFile(g.uitvoer_dir + name));
  }
}

// True for the name of a page the run writes besides the title page:
// "kbovz" or "kb" + a number of three or more digits, with the extension.
// Names compare without regard to case, as the listing does ("KBOVZ.HTML"
// from a Windows copy is the same page).
bool IsOudePagina(const std::string& naam, const std::string& ext_zoals_gegeven) {
  const std::string name = Lower(naam);
  const std::string ext = Lower(ext_zoals_gegeven);
  if (!name.ends_with(ext) || !name.starts_with("kb")) return false;
  const std::string_view middle = std::string_view(name).substr(2, name.size() - 2 - ext.size());
  if (middle == "ovz") return true;
  return middle.size() >= 3 && std::all_of(middle.begin(), middle.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// Earlier photo and overview pages go; other files whose names merely begin
// with "kb" stay, since this run would not write them again.
void VerwijderOudePaginas(const SiteGegevens& g, GenerationLog& log) {
  std::vector<std::string> old_pages;
  // An output directory that cannot be listed has no old pages.
  if (!Fs().ListFiles(g.uitvoer_dir, "kb*" + g.ext, old_pages).ok()) return;
  std::erase_if(old_pages, [&g](const std::string& name) { return !IsOudePagina(name, g.ext); });
  if (old_pages.empty()) return;
  log.SchrijfLog("Verwijderen oude fotopagina's...");
  for (const std::string& name : old_pages) {
    const Status status = Fs().DeleteFile(g.uitvoer_dir + name);
    if (!status.ok()) throw RunError(status, g.uitvoer_dir + name);
  }
  log.SchrijfLog("Oude fotopagina's verwijderd.");
}

void Voer(const SiteSteps::Step& step, SiteRun& run) {
  if (step && run.failed == kGelukt && !Afgebroken(run)) step(run);
}

// The output directory the script names, as it stands.
std::string UitvoerDirVan(const LineTable& script) {
  return LeesWaarde(script, script_sleutel::kAlgemeen, script_sleutel::kUitvoerDir, "");
}

std::int16_t RunSteps(const std::string& script_path, const SiteOmgeving& omgeving, SiteResultaat& result) {
  std::int16_t failed = kGelukt;
  GenerationLog& log = omgeving.log;

  // The script is read, and the output directory it names locked, before the
  // log is opened: a run turned away because another one is at work there
  // leaves everything alone, that run's log too. A script that is its own
  // log is emptied by opening the log, so it reads as empty.
  LineTable script(capaciteit::kScript);
  const Status gelezen = LogPad(script_path) == script_path ? Status::Ok() : LeesRegels(script_path, script, false);
  const std::string uitvoer = gelezen.ok() ? UitvoerDirVan(script) : "";
  std::unique_ptr<DirectoryLock> slot;
  Status vergrendeld = Status::Error(fout::kPathNotFound);
  if (StartsWith(uitvoer, "/")) {
    vergrendeld = Fs().LockDirectory(uitvoer, slot);
    if (vergrendeld.number() == fout::kPermissionDenied) {
      result.geweigerd = "Uitvoerdirectory " + WithTrailingSlash(uitvoer) +
                         " is bezet: daarin loopt al een andere generatie. Probeer het later opnieuw.";
      return kMislukt;
    }
  }
  if (vergrendeld.ok() && omgeving.na_vergrendelen) omgeving.na_vergrendelen();

  log.SchrijfLog("open:" + LogPad(script_path));
  log.SchrijfLog("Aangemaakt met: " + ProgramCaption() + " (" + std::to_string(BuildRevision()) + ")");
  log.SchrijfLog("Inlezen script " + script_path + "...");
  if (!gelezen.ok()) {
    log.SchrijfLog("Fout bij inlezen script: " + script.CountSlot());
    failed = kMislukt;
  } else {
    log.SchrijfLog("Script " + script_path + " ingelezen.");
  }

  SiteGegevens gegevens = LeesScriptWaarden(script, log);
  gegevens.script_path = script_path;
  log.SchrijfLog("Variabelen uit script ingelezen.");
  BouwSjabloonPaden(gegevens, omgeving.settings);
  // A set name that leaves the template root is not even looked into.
  if (!ControleerSjabloonNaam(gegevens, log)) {
    failed = kMislukt;
  } else if (!ControleerSjablonen(gegevens, log)) {
    failed = kMislukt;
  }
  // A run that has failed already writes nothing, so its output directory
  // needs no word more.
  if (failed == kGelukt && !ControleerUitvoerDir(gegevens, uitvoer, vergrendeld, log)) failed = kMislukt;

  SiteRun run{omgeving.settings, gegevens, log, omgeving.melder, NavigatieTeksten{}, failed, omgeving.voortgang,
              omgeving.afbreken};
  if (run.failed == kGelukt) LeesNavigatieTeksten(gegevens.sjabloon_ini, run.navigatie, log);
  if (run.failed == kGelukt && gegevens.WebformaatAan()) LeesWebSizes(gegevens);
  if (run.failed == kGelukt) RuimTijdelijkeBestandenOp(gegevens);
  if (run.failed == kGelukt && !Afgebroken(run)) VerwijderOudePaginas(gegevens, log);

  const SiteSteps& steps = omgeving.steps;
  // The copies come first: every page that names one looks whether it is there.
  if (gegevens.WebformaatAan()) Voer(steps.webkopieen, run);
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
  result.afgebroken = run.afgebroken;
  return run.failed;
}

}  // namespace

std::string LogPad(const std::string& script_path) {
  return DirectoryOf(script_path) + Vervang(Lower(FileNameOf(script_path)), ".kbs", ".log");
}

SiteResultaat MaakSite(const std::string& script_path, const SiteOmgeving& omgeving) {
  SiteResultaat result;
  try {
    result.failed = RunSteps(script_path, omgeving, result);
  } catch (...) {
    result.failed = kMislukt;
    result.onverwacht = StatusVanUitzondering();
    result.onderwerp = OnderwerpVanUitzondering();
    // A setting is named with the script it is in.
    if (!result.onderwerp.empty() && result.onderwerp.find('/') == std::string::npos) {
      result.onderwerp += " in script " + script_path;
    }
  }
  return result;
}

}  // namespace kiekbord
