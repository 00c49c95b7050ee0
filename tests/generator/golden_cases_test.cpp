// Every folder under tests/data with a geval.ini is one case of one test. The
// case's files say what to run; verwacht/ holds every file the run leaves in
// the scratch directory (its log) and verwacht/uit/ every file of the output
// directory (the given photos excepted), each compared whole. In all files
// "@MAP@" is the scratch directory, "@UIT@" its output directory "uit/",
// "@DATA@" tests/data/ and "@VERSIE@" the log's version line.
//
// geval.ini, one "key=value" a line, "#" starts a comment. Page writers alone,
// logging to proef.log:
//   schrijvers=titel stijl overzicht fotos   the writers, in this order
//   <SiteGegevens member>=value               e.g. titel=, fotos_per_pagina=
//   <..._sjabloon>=name                       the case's own template, else
//                                             the one in blok_sjablonen/
//   foto=name|caption                         a photo taken in
//   fotos=count|name                          that many photos of one name
//   jpeg=name|WxH  or  jpeg=name|geen         a photo file (or no JPEG)
//   vooraf=name|text                          a file already in the output
//   navigatie=sjabloon.ini, meta_keywords=0, meta_description=0, icoon=0,
//   credit_url=address
//   mislukt=1                                 the writers are to fail
// Otherwise a whole run of the case's Reis.kbs:
//   stappen=echt        the program's own steps (no photo pages) with the
//                       case's programma/; else steps that only log their name
//   programma=case      the programma/ of another case
//   script=name         another script, or a path that does not exist
//   ontbreekt=name      a template missing from the set "Klassiek"
//   oud=name            a file in the output directory before the run
//   mislukt_in=step     the step that fails
//   onverwacht=number   the run is cut off with this error
// Both:
//   faal=kinds|pattern|error[|skip]   failing calls (kinds, comma-separated:
//                                     lezen schrijven log verwijderen)
//   linkcontrole=1, onvindbaar=<page>: <link>   the links that do not resolve
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>
#include <sstream>

#include "app/program_settings.h"
#include "base/program_info.h"
#include "generator/generation_run.h"
#include "generator/navigation_texts.h"
#include "generator/overview_page.h"
#include "generator/photo_pages.h"
#include "generator/style_sheet.h"
#include "generator/title_page.h"
#include "tests/support/fault_fs.h"
#include "tests/support/golden.h"
#include "tests/support/site_links.h"
#include "tests/support/test_photos.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using Lines = std::vector<std::string>;
using test::FoutenSchijf;

constexpr std::chrono::year_month_day kDatum{std::chrono::year{2026}, std::chrono::month{11}, std::chrono::day{21}};

#define VELD(naam) {#naam, &SiteGegevens::naam}
const std::map<std::string, std::string SiteGegevens::*> kVelden = {
    VELD(titel), VELD(subtitel), VELD(datum), VELD(beschrijving), VELD(thumbnails), VELD(fotos_per_pagina),
    VELD(presentatie), VELD(positie_fotos), VELD(lettertype_titels), VELD(lettertype_bijschriften),
    VELD(lettergrootte_bijschriften), VELD(letterstijl_bijschriften), VELD(ext), VELD(kleur_tekst_op_achtergrond),
    VELD(kleur_achtergrond), VELD(kleur_tekst_in_kader), VELD(kleur_kader), VELD(titel_sjabloon),
    VELD(stijl_sjabloon), VELD(overzicht_sjabloon), VELD(foto_sjabloon), VELD(webformaat), VELD(foto_sizes),
    VELD(omslag_sizes)};
#undef VELD
const std::map<std::string, unsigned> kSoorten = {{"lezen", FoutenSchijf::kLezen}, {"schrijven", FoutenSchijf::kSchrijven},
                                                  {"log", FoutenSchijf::kLog}, {"verwijderen", FoutenSchijf::kVerwijderen}};

std::vector<std::string> Gevallen() {
  std::vector<std::string> namen;
  for (const auto& entry : std::filesystem::directory_iterator(test::TestDataDir())) {
    if (std::filesystem::exists(entry.path() / "geval.ini")) namen.push_back(entry.path().filename().string());
  }
  std::sort(namen.begin(), namen.end());
  return namen;
}

// The files directly in `map` (none when it does not exist), without `zonder`.
std::set<std::string> Bestanden(const std::string& map, const std::set<std::string>& zonder = {}) {
  std::set<std::string> namen;
  for (const std::string& naam : std::filesystem::is_directory(map) ? test::BestandenIn(map) : Lines{}) {
    if (!zonder.contains(naam)) namen.insert(naam);
  }
  return namen;
}

// "name|rest" split at the first "|".
std::pair<std::string, std::string> Deel(const std::string& waarde) {
  const std::size_t streep = waarde.find('|');
  return {waarde.substr(0, streep), streep == std::string::npos ? "" : waarde.substr(streep + 1)};
}

class GevalTest : public ::testing::TestWithParam<std::string> {
 protected:
  std::string Geval() const { return test::TestDataDir() + GetParam() + "/"; }
  std::string Uit(const std::string& naam = "") const { return dir_ / "uit/" + naam; }
  std::string DataBestand(const std::string& naam) const {
    const std::string eigen = Geval() + naam;
    return std::filesystem::exists(eigen) ? eigen : test::TestDataDir() + "blok_sjablonen/" + naam;
  }
  test::Plaatshouders Plaatshouders() const {
    return {{"@DATA@", test::TestDataDir()}, {"@UIT@", Uit()}, {"@MAP@", dir_.path()},
            {"@VERSIE@", "Aangemaakt met: " + ProgramCaption() + " (" + std::to_string(BuildRevision()) + ")"}};
  }

  // The keys of `ini`; the ones both kinds of case know are taken here.
  void LeesGeval(const std::string& ini) {
    std::istringstream regels(test::ReadBytes(ini));
    for (std::string regel; std::getline(regels, regel);) {
      if (regel.empty() || regel[0] == '#') continue;
      const std::string sleutel = regel.substr(0, regel.find('='));
      const std::string waarde = test::VulPlaatshouders(regel.substr(sleutel.size() + 1), Plaatshouders());
      if (sleutel == "faal") Faal(waarde);
      else if (sleutel == "linkcontrole") linkcontrole_ = true;
      else if (sleutel == "onvindbaar") onvindbaar_.push_back(waarde);
      else ini_.emplace_back(sleutel, waarde);
    }
  }
  void Faal(const std::string& waarde) {
    const auto [soorten, rest] = Deel(waarde);
    const auto [patroon, fout_na] = Deel(rest);
    const auto [fout, na] = Deel(fout_na);
    unsigned bits = 0;
    std::istringstream namen(soorten);
    for (std::string naam; std::getline(namen, naam, ',');) bits |= kSoorten.at(naam);
    schijf_.Faal(bits, patroon, std::stoi(fout), na.empty() ? 0 : std::stoi(na));
  }

  bool SchrijfPaginas();
  void MaakSiteVanGeval();

  test::TempDir dir_;
  std::vector<std::pair<std::string, std::string>> ini_;
  FoutenSchijf schijf_;
  std::set<std::string> invoer_;
  bool linkcontrole_ = false;
  Lines onvindbaar_;
};

bool GevalTest::SchrijfPaginas() {
  ProgramSettings settings;
  settings.program_dir = dir_ / "programma/";
  settings.caption = "Kiekbord 4.1 Pro";
  settings.credit_url = "https://kiekbord.example/info";
  test::WriteBytes(settings.program_dir + "kbicon.gif", "GIF89a proef-icoon\n");
  SiteGegevens g;
  g.uitvoer_dir = Uit();
  std::filesystem::create_directories(Uit());
  GenerationLog log;
  log.SchrijfLog("open:" + dir_ / "proef.log");
  NavigatieTeksten navigatie;
  std::string schrijvers;
  std::int16_t verwacht = kGelukt;
  for (const auto& [sleutel, waarde] : ini_) {
    const auto [naam, rest] = Deel(waarde);
    if (sleutel.ends_with("_sjabloon")) g.*kVelden.at(sleutel) = DataBestand(waarde);
    else if (kVelden.contains(sleutel)) g.*kVelden.at(sleutel) = waarde;
    else if (sleutel == "schrijvers") schrijvers = waarde;
    else if (sleutel == "foto") g.foto_namen.push_back(naam), g.bijschriften.push_back(rest);
    else if (sleutel == "fotos") g.foto_namen.resize(std::stoul(naam), rest), g.bijschriften.resize(std::stoul(naam));
    else if (sleutel == "credit_url") settings.credit_url = waarde;
    else if (sleutel == "jpeg" && rest == "geen") invoer_.insert(naam), test::WriteBytes(Uit(naam), "geen jpeg");
    else if (sleutel == "jpeg") invoer_.insert(naam), test::SchrijfProefFoto(Uit(naam), std::stoi(rest), std::stoi(rest.substr(rest.find('x') + 1)));
    else if (sleutel == "vooraf") test::WriteBytes(Uit(naam), rest);
    else if (sleutel == "navigatie") LeesNavigatieTeksten(DataBestand(waarde), navigatie, log);
    else if (sleutel.starts_with("meta_")) (sleutel == "meta_keywords" ? settings.meta_keywords : settings.meta_description) = waarde == "1";
    else if (sleutel == "icoon") std::filesystem::remove(settings.program_dir + "kbicon.gif");
    else if (sleutel == "mislukt") verwacht = kMislukt;
    else ADD_FAILURE() << "onbekende sleutel " << sleutel;
  }
  StderrMelder melder;
  ScopedFileSystem scoped(schijf_);
  SiteRun run{settings, g, log, melder, navigatie, kGelukt, {}, {}};
  const KopEnCredit kop = KopEnCreditVoor(settings, kDatum);
  std::istringstream namen(schrijvers);
  for (std::string naam; run.failed == kGelukt && namen >> naam;) {
    if (naam == "titel") MaakTitelPagina(run, kop);
    else if (naam == "stijl") MaakStijlblad(run);
    else if (naam == "overzicht") MaakOverzichtPagina(run, kop);
    else if (naam == "fotos") MaakFotoPaginas(run, kop);
  }
  log.SchrijfLog("close");
  return run.failed == verwacht;
}

// Steps that log "stap <name>", one of them failing; the title step also logs
// what the run hands its steps.
SiteSteps NepStappen(const std::string& mislukt_in) {
  SiteSteps steps;
  const std::pair<SiteSteps::Step*, const char*> namen[] = {
      {&steps.titel_pagina, "titel"}, {&steps.thumbnails, "thumbnails"}, {&steps.overzicht, "overzicht"},
      {&steps.stijlblad, "stijlblad"}, {&steps.foto_paginas, "fotos"},   {&steps.afbeeldingen, "afbeeldingen"},
      {&steps.scripts, "scripts"},     {&steps.stijlbladen, "stijlbladen"}};
  for (const auto& [step, naam] : namen) {
    *step = [naam, mislukt_in](SiteRun& run) {
      std::string regel = std::string("stap ") + naam;
      const SiteGegevens& g = run.gegevens;
      if (regel == "stap titel") {
        regel += ": " + g.foto_sjabloon + ", home " + run.navigatie.link_home_tekst + ", " +
                 std::to_string(g.AantalFotos()) + " foto's:";
        for (int i = 0; i < g.AantalFotos(); ++i) regel += " " + g.foto_namen[i] + " (" + g.bijschriften[i] + ")";
      }
      run.log.SchrijfLog(regel);
      if (mislukt_in == naam) run.failed = kMislukt;
    };
  }
  return steps;
}

void GevalTest::MaakSiteVanGeval() {
  std::string script = "Reis.kbs", mislukt_in, onverwacht, programma = Geval();
  bool echt = false;
  Lines ontbreekt;
  std::filesystem::create_directories(Uit());
  for (const auto& [sleutel, waarde] : ini_) {
    if (sleutel == "script") script = waarde;
    else if (sleutel == "stappen") echt = waarde == "echt";
    else if (sleutel == "programma") programma = test::TestDataDir() + waarde + "/";
    else if (sleutel == "ontbreekt") ontbreekt.push_back(waarde);
    else if (sleutel == "oud") test::WriteBytes(Uit(waarde), "oud");
    else if (sleutel == "mislukt_in") mislukt_in = waarde;
    else if (sleutel == "onverwacht") onverwacht = waarde;
    else ADD_FAILURE() << "onbekende sleutel " << sleutel;
  }
  ProgramSettings settings;
  if (echt) {
    test::KopieerMap(programma + "programma", dir_ / "programma");
    settings = LeesProgrammaInstellingen(dir_ / "programma/", dir_.path());
  } else {  // the template set "Klassiek" of run_sjablonen/, with the case's sjabloon.ini
    settings.program_dir = dir_.path();
    settings.sjabloon_dir = dir_ / "Sjabloon/";
    test::KopieerMap(test::TestDataDir() + "run_sjablonen", settings.sjabloon_dir + "Klassiek");
    if (std::filesystem::exists(Geval() + "sjabloon.ini")) {
      test::WriteBytes(settings.sjabloon_dir + "Klassiek/sjabloon.ini", test::ReadBytes(Geval() + "sjabloon.ini"));
    }
    for (const std::string& naam : ontbreekt) std::filesystem::remove(settings.sjabloon_dir + "Klassiek/" + naam);
  }
  if (std::filesystem::exists(Geval() + script)) {
    test::WriteBytes(dir_ / script, test::VulPlaatshouders(test::ReadBytes(Geval() + script), Plaatshouders()));
  }

  std::string gezien;
  GenerationLog run_log([&gezien](const std::string& line) { gezien += line + "\r\n"; });
  StderrMelder melder;
  SiteOmgeving omgeving(settings, run_log, melder);
  omgeving.steps = echt ? StandaardStappen([] { return kDatum; }) : NepStappen(mislukt_in);
  if (echt) omgeving.steps.foto_paginas = nullptr;
  SiteResultaat resultaat;
  {
    ScopedFileSystem scoped(schijf_);
    resultaat = MaakSite(dir_ / script, omgeving);
  }
  run_log.SchrijfLog("close");

  EXPECT_EQ(resultaat.onverwacht ? std::to_string(resultaat.onverwacht->number()) : "", onverwacht);
  const std::string log = LogPad(dir_ / script);
  if (std::filesystem::exists(Geval() + "verwacht/" + FileNameOf(log))) {
    EXPECT_EQ(resultaat.failed, test::ReadBytes(log).ends_with("Normaal einde.\r\n") ? kGelukt : kMislukt);
    EXPECT_EQ(gezien, test::ReadBytes(log));  // the observer sees every line the log gets
  }
}

TEST_P(GevalTest, LeavesTheExpectedFiles) {
  const bool schrijvers = ("\n" + test::ReadBytes(Geval() + "geval.ini")).find("\nschrijvers=") != std::string::npos;
  if (schrijvers) LeesGeval(test::TestDataDir() + "blok_sjablonen/standaard.ini");
  LeesGeval(Geval() + "geval.ini");
  if (schrijvers) {
    EXPECT_TRUE(SchrijfPaginas()) << "de schrijvers gaven een andere uitkomst";
  } else {
    MaakSiteVanGeval();
  }

  const std::string verwacht = Geval() + "verwacht/";
  for (const std::string& naam : Bestanden(verwacht)) {
    EXPECT_TRUE(test::GelijkAanGolden(verwacht + naam, dir_ / naam, Plaatshouders()));
  }
  const std::set<std::string> uit = Bestanden(verwacht + "uit/");
  EXPECT_EQ(Bestanden(Uit(), invoer_), uit);
  for (const std::string& naam : uit) {
    EXPECT_TRUE(test::GelijkAanGolden(verwacht + "uit/" + naam, Uit(naam), Plaatshouders()));
  }
  if (linkcontrole_) {
    EXPECT_EQ(test::OnvindbareLinks(Uit()), onvindbaar_);
  }
}

INSTANTIATE_TEST_SUITE_P(Gevallen, GevalTest, ::testing::ValuesIn(Gevallen()),
                         [](const auto& info) { return info.param; });

}  // namespace
}  // namespace kiekbord
