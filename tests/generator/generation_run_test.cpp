// The generation run on golden cases, with steps that only write "stap
// <name>" into the log; the real steps are in site_steps_test.cpp and
// full_site_test.cpp. The title step also writes what the run hands its
// steps: the photo template, the home link text and the photos taken in.
//
// Each case folder tests/data/run_<case>/ holds the script Reis.kbs ("@MAP@"
// stands for the scratch directory, whose "uit/" is the output directory),
// optionally a sjabloon.ini for template set "Klassiek", the expected log
// verwacht.log, and a geval.ini:
//   script=name         run this script of the case folder instead, or a
//                       path under the scratch directory that does not exist
//   ontbreekt=name      a template missing from the set
//   oud=name            a file in the output directory before the run
//   uit=name            the files in the output directory after the run
//   mislukt_in=step     the step that fails
//   schijf=vol          every log line fails with a full disk
//   schijf=vast         every delete is refused
//   onverwacht=number   the run is cut off with this error
#include "generator/generation_run.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "base/program_info.h"
#include "base/file_system.h"
#include "base/generation_log.h"
#include "tests/support/golden.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using Lines = std::vector<std::string>;

// Log lines fail with a full disk, or deletes are refused.
class KapotteSchijf : public ForwardingFileSystem {
 public:
  KapotteSchijf() : ForwardingFileSystem(LocalFileSystem()) {}
  Status NewAppendFile(const std::string& path, std::unique_ptr<AppendFile>& file) override {
    if (soort != "vol") return ForwardingFileSystem::NewAppendFile(path, file);
    file = std::make_unique<VolBestand>();
    return Status::Ok();
  }
  Status DeleteFile(const std::string& path) override {
    return soort == "vast" ? Status::Error(fout::kPermissionDenied) : ForwardingFileSystem::DeleteFile(path);
  }
  std::string soort;

 private:
  struct VolBestand : AppendFile {
    Status Append(std::string_view) override { return Status::Error(fout::kDiskFull); }
    Status Close() override { return Status::Ok(); }
  };
};

class RunGevalTest : public ::testing::TestWithParam<const char*> {
 protected:
  static std::string Map() { return test::TestDataDir() + GetParam() + "/"; }
  std::string Sjablonen() const { return dir_ / "Sjabloon/Klassiek/"; }

  // The steps the run is given: each logs its name, one may fail.
  SiteSteps Stappen(const std::string& mislukt_in) const {
    SiteSteps steps;
    const std::pair<SiteSteps::Step*, const char*> namen[] = {
        {&steps.titel_pagina, "titel"}, {&steps.thumbnails, "thumbnails"}, {&steps.overzicht, "overzicht"},
        {&steps.stijlblad, "stijlblad"}, {&steps.foto_paginas, "fotos"},   {&steps.afbeeldingen, "afbeeldingen"},
        {&steps.scripts, "scripts"},     {&steps.stijlbladen, "stijlbladen"}};
    for (const auto& [step, naam] : namen) {
      *step = [naam, mislukt_in](SiteRun& run) {
        std::string regel = std::string("stap ") + naam;
        if (regel == "stap titel") {
          const SiteGegevens& g = run.gegevens;
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

  test::TempDir dir_;
};

TEST_P(RunGevalTest, WritesTheExpectedLogAndLeavesTheExpectedFiles) {
  ProgramSettings settings;
  settings.program_dir = dir_.path();
  settings.sjabloon_dir = dir_ / "Sjabloon/";
  for (const char* naam : {"kbtitel", "kbovz", "kbfoto1", "kbfoto2", "kbfoto3", "kbfoto1m", "kbfoto2m",
                           "kbfoto3m", "kbfoto1a", "kbfoto2a", "kbfoto3a"}) {
    test::WriteBytes(Sjablonen() + naam + ".html", "<p></p>\n");
  }
  test::WriteBytes(Sjablonen() + "kb.css", "p {}\n");
  if (std::filesystem::exists(Map() + "sjabloon.ini")) {
    std::filesystem::copy_file(Map() + "sjabloon.ini", Sjablonen() + "sjabloon.ini");
  }
  std::filesystem::create_directories(dir_ / "uit");
  std::string script = "Reis.kbs", mislukt_in, onverwacht;
  Lines uit;
  KapotteSchijf schijf;
  std::istringstream ini(test::ReadBytes(Map() + "geval.ini"));
  for (std::string regel; std::getline(ini, regel);) {
    if (regel.empty() || regel[0] == '#') continue;
    const std::string sleutel = regel.substr(0, regel.find('='));
    const std::string waarde = regel.substr(sleutel.size() + 1);
    if (sleutel == "script") script = waarde;
    else if (sleutel == "ontbreekt") std::filesystem::remove(Sjablonen() + waarde);
    else if (sleutel == "oud") test::WriteBytes(dir_ / "uit/" + waarde, "oud");
    else if (sleutel == "uit") uit.push_back(waarde);
    else if (sleutel == "mislukt_in") mislukt_in = waarde;
    else if (sleutel == "schijf") schijf.soort = waarde;
    else if (sleutel == "onverwacht") onverwacht = waarde;
    else FAIL() << "onbekende sleutel " << sleutel;
  }
  if (std::filesystem::exists(Map() + script)) {
    test::WriteBytes(dir_ / script, test::VulPlaatshouders(test::ReadBytes(Map() + script), {{"@MAP@", dir_.path()}}));
  }

  Lines gezien;
  GenerationLog run_log([&gezien](const std::string& line) { gezien.push_back(line); });
  StderrMelder melder;
  SiteOmgeving omgeving(settings, run_log, melder);
  omgeving.steps = Stappen(mislukt_in);
  SiteResultaat resultaat;
  {
    ScopedFileSystem scoped(schijf);
    resultaat = MaakSite(dir_ / script, omgeving);
  }
  run_log.SchrijfLog("close");

  EXPECT_EQ(resultaat.onverwacht ? std::to_string(resultaat.onverwacht->number()) : "", onverwacht);
  const std::string log = LogPad(dir_ / script);
  if (std::filesystem::exists(Map() + "verwacht.log")) {
    const std::string versie = "Aangemaakt met: " + ProgramCaption() + " (" + std::to_string(BuildRevision()) + ")";
    EXPECT_TRUE(test::GelijkAanGolden(Map() + "verwacht.log", log, {{"@VERSIE@", versie}, {"@MAP@", dir_.path()}}));
    EXPECT_EQ(resultaat.failed, test::ReadBytes(log).ends_with("Normaal einde.\r\n") ? kGelukt : kMislukt);
    // The observer sees every line the log gets.
    std::string gezien_log;
    for (const std::string& line : gezien) gezien_log += line + "\r\n";
    EXPECT_EQ(gezien_log, test::ReadBytes(log));
  }
  if (!uit.empty()) {
    EXPECT_EQ(test::BestandenIn(dir_ / "uit/"), uit);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Gevallen, RunGevalTest,
    ::testing::Values(
        "run_success", "run_script_onleesbaar", "run_sjabloon_titel_ontbreekt",
        "run_sjabloon_overzicht_ontbreekt", "run_sjabloon_opmaak_ontbreekt", "run_sjabloon_foto_ontbreekt",
        "run_sjablonen_ontbreken", "run_overzicht_uit", "run_stap_mislukt", "run_stap_stijlblad_mislukt",
        "run_fotos_opnemen", "run_fotos_zonder_bijschrift_weg", "run_fotos_aantal_met_tekst",
        "run_fotos_aantal_geen_getal", "run_script_langer_dan_tabel", "run_fotosjabloon_handmatig",
        "run_fotosjabloon_midden", "run_fotosjabloon_rechts", "run_fotosjabloon_meer_per_pagina",
        "run_fotosjabloon_automatisch", "run_fotosjabloon_automatisch_rechts",
        "run_fotosjabloon_presentatie_01", "run_fotosjabloon_positie_1_4", "run_fotosjabloon_buiten_lijst",
        "run_pad_zonder_kbs", "run_log_vol", "run_log_zonder_map", "run_oude_pagina_vast"),
    [](const auto& info) { return std::string(info.param); });

TEST(LogPadTest, LowerCasesTheFileNameOnly) {
  EXPECT_EQ(LogPad("/Galerie/Reis.KBS"), "/Galerie/reis.log");
  EXPECT_EQ(LogPad("/Map.kbs/a.kbs.KBS"), "/Map.kbs/a.log.log");
  EXPECT_EQ(LogPad("Reis.txt"), "reis.txt");
}

}  // namespace
}  // namespace kiekbord
