// Whole generation runs with the program's real steps on the template set
// of tests/data/run_titel_stijl_assets: title page, style sheet and assets.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "base/program_info.h"
#include "app/program_settings.h"
#include "base/file_system.h"
#include "generator/generation_run.h"
#include "tests/generator/page_writer_fixture.h"
#include "tests/support/golden.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using Lines = std::vector<std::string>;

class StandaardStappenTest : public ::testing::Test {
 protected:
  StandaardStappenTest() {
    test::KopieerMap(Geval() + "programma", dir_ / "programma");
    test::WriteBytes(Script(), test::VulPlaatshouders(test::ReadBytes(Geval() + "Reis.kbs"),
                                                      {{"@UITVOER@", Uit()}}));
    std::filesystem::create_directories(Uit());
  }

  static std::string Geval() { return test::TestDataDir() + "run_titel_stijl_assets/"; }
  std::string Script() const { return dir_ / "Reis.kbs"; }
  std::string Uit() const { return dir_ / "uit/"; }

  SiteResultaat Run() {
    const ProgramSettings settings = LeesProgrammaInstellingen(dir_ / "programma/", dir_.path());
    GenerationLog log;
    StderrMelder melder;
    SiteOmgeving omgeving(settings, log, melder);
    omgeving.steps = StandaardStappen([] { return test::kProefDatum; });
    // The photo pages have their own tests.
    omgeving.steps.foto_paginas = nullptr;
    return MaakSite(Script(), omgeving);
  }

  ::testing::AssertionResult LogIs(const std::string& golden) const {
    return test::GelijkAanGolden(Geval() + "verwacht/" + golden, dir_ / "reis.log",
                                 {{"@VERSIE@", "Aangemaakt met: " + ProgramCaption() + " (" +
                                                   std::to_string(BuildRevision()) + ")"},
                                  {"@MAP@", dir_.path()}});
  }
  // The last `n` lines of the log.
  Lines LaatsteLogRegels(std::size_t n) const {
    Lines lines;
    const std::string log = test::ReadBytes(dir_ / "reis.log");
    for (std::size_t pos = 0, end; (end = log.find("\r\n", pos)) != std::string::npos; pos = end + 2) {
      lines.push_back(log.substr(pos, end - pos));
    }
    return Lines(lines.end() - static_cast<std::ptrdiff_t>(std::min(n, lines.size())), lines.end());
  }

  test::TempDir dir_;
};

TEST_F(StandaardStappenTest, WritesTitlePageStyleSheetIconAndAssetsAndASecondRunCopiesNoAsset) {
  const SiteResultaat result = Run();
  EXPECT_EQ(result.failed, kGelukt);
  EXPECT_FALSE(result.onverwacht.has_value());
  EXPECT_TRUE(LogIs("reis.log"));
  EXPECT_TRUE(test::GelijkAanGolden(Geval() + "verwacht/index.html", Uit() + "index.html"));
  EXPECT_TRUE(test::GelijkAanGolden(Geval() + "verwacht/kb.css", Uit() + "kb.css"));
  EXPECT_EQ(test::BestandenIn(Uit()), (Lines{"achtergrond.jpg", "extra.css", "index.html", "kb.css",
                                            "kbicon.gif", "kbrand.gif", "menu.js"}));
  EXPECT_EQ(test::ReadBytes(Uit() + "kbicon.gif"), test::ReadBytes(dir_ / "programma/kbicon.gif"));

  // The copies kept their template's time, so none is copied again.
  EXPECT_EQ(Run().failed, kGelukt);
  EXPECT_TRUE(LogIs("reis_tweede_keer.log"));
  EXPECT_TRUE(test::GelijkAanGolden(Geval() + "verwacht/index.html", Uit() + "index.html"));
}

TEST_F(StandaardStappenTest, UnwritableOutputEndsAbnormallyWithoutPages) {
  test::WriteBytes(Uit() + "kbicon.gif", test::kProefIcoon);
  test::GeweigerdeToegang fs;
  fs.schrijven_geweigerd = Uit();
  ScopedFileSystem scoped(fs);

  const SiteResultaat result = Run();
  EXPECT_EQ(result.failed, kMislukt);
  EXPECT_FALSE(result.onverwacht.has_value());
  EXPECT_EQ(LaatsteLogRegels(3),
            (Lines{"Aanmaken titelpagina " + Uit() + "index.html...",
                   "Fout bij aanmaken titelpagina: %Error 70 Permission denied", "Abnormaal einde."}));
  EXPECT_EQ(test::BestandenIn(Uit()), Lines{"kbicon.gif"});
}

TEST_F(StandaardStappenTest, AFailingAssetCopyCutsTheRunOff) {
  test::GeweigerdeToegang fs;
  fs.schrijven_geweigerd = Uit() + "menu.js";
  ScopedFileSystem scoped(fs);

  const SiteResultaat result = Run();
  EXPECT_EQ(result.failed, kMislukt);
  ASSERT_TRUE(result.onverwacht.has_value());
  EXPECT_EQ(result.onverwacht->number(), fout::kPermissionDenied);
  // No end line: the run was cut off.
  EXPECT_EQ(LaatsteLogRegels(2), (Lines{"2 Afbeelding(en) gekopieerd naar uitvoerdirectory.",
                                        "1 Script(s) gevonden in sjabloondirectory."}));
}

}  // namespace
}  // namespace kiekbord
