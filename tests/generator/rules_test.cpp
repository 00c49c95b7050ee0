// The generator's rules as tables, where the golden cases of
// golden_cases_test.cpp do not reach.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <map>
#include <stdexcept>

#include "base/file_system.h"
#include "base/status.h"
#include "generator/asset_copiers.h"
#include "generator/generation_run.h"
#include "generator/repeat_block.h"
#include "generator/template_engine.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using Lines = std::vector<std::string>;

TEST(VervangVeldTest, MarkerRules) {
  for (const Lines& rij : test::Tabelrijen(test::TestDataDir() + "regels/vervang_veld.txt")) {
    std::string line = rij[0];
    VervangVeld(line, rij[1], rij[2]);
    EXPECT_EQ(line, rij[3]) << rij[0] << " / " << rij[2];
  }
  std::string growing = "[KIEKBORDVELD=TITEL]";
  EXPECT_THROW(VervangVeld(growing, "TITEL", std::string(32760, 'y') + "<<<<"), RunError);
}

TEST(HerhaalMarkeringTest, RecognisesTheMarker) {
  const std::map<std::string, HerhaalMarkering> markeringen = {
      {"begin", HerhaalMarkering::kBegin}, {"einde", HerhaalMarkering::kEinde}, {"geen", HerhaalMarkering::kGeen}};
  for (const Lines& rij : test::Tabelrijen(test::TestDataDir() + "regels/herhaal_markering.txt")) {
    EXPECT_EQ(HerhaalMarkeringVan(rij[0]), markeringen.at(rij[1])) << rij[0];
  }
}

// A scratch directory and a run log whose lines the test sees.
class MetLogTest : public ::testing::Test {
 protected:
  MetLogTest() { run_log_.SchrijfLog("open:" + dir_ / "proef.log"); }
  test::TempDir dir_;
  Lines log_;
  GenerationLog run_log_{[this](const std::string& line) { log_.push_back(line); }};
};

TEST_F(MetLogTest, AFailureInAStepLogsItsNumberAndDescription) {
  ProgramSettings settings;
  SiteGegevens gegevens;
  StderrMelder melder;
  SiteRun run{settings, gegevens, run_log_, melder, NavigatieTeksten{}, kGelukt, {}, {}};
  BinnenStapgrens(run, [] { throw RunError(fout::kDiskFull); });
  EXPECT_EQ(run.failed, kMislukt);
  BinnenStapgrens(run, [] { throw std::runtime_error("kapot"); });  // the program's own number
  EXPECT_EQ(log_, (Lines{"61 Disk full", "26002 kapot"}));
  EXPECT_EQ(LogPad("/Map.kbs/a.kbs.KBS"), "/Map.kbs/a.log.log");
}

// A template set's file is copied when its time differs from the copy's by a
// second or more, and the copy gets the template's time.
TEST_F(MetLogTest, TemplateFilesAreCopiedWhenTheTimesDifferToTheSecond) {
  constexpr std::int64_t kSeconde = 1000000000, kTijd = 1700000000 * kSeconde;
  const std::pair<std::int64_t, bool> gevallen[] = {
      {-3600 * kSeconde, true}, {3600 * kSeconde, true}, {0, false}, {400000000, false}, {kSeconde, true}};
  const auto bestand = [](const std::string& path, const char* inhoud, std::int64_t tijd) {
    test::WriteBytes(path, inhoud);
    ASSERT_TRUE(LocalFileSystem().SetModificationTime(path, tijd).ok());
  };
  KopieerScripts(dir_ / "sjabloon/", dir_.path(), run_log_);
  EXPECT_EQ(log_, (Lines{"Geen scripts gevonden in sjabloondirectory.", "Geen scripts gekopieerd naar uitvoerdirectory."}));
  bestand(dir_ / "sjabloon/rand.gif", "nieuw", kTijd);
  for (const auto& [verschil, gekopieerd] : gevallen) {
    bestand(dir_ / "rand.gif", "oud", kTijd + verschil);
    KopieerAfbeeldingen(dir_ / "sjabloon/", dir_.path(), run_log_);
    EXPECT_EQ(log_.back(), gekopieerd ? "1 Afbeelding(en) gekopieerd naar uitvoerdirectory."
                                     : "Geen afbeeldingen gekopieerd naar uitvoerdirectory.");
    FileInfo info;
    ASSERT_TRUE(LocalFileSystem().GetFileInfo(dir_ / "rand.gif", info).ok());
    EXPECT_EQ(test::ReadBytes(dir_ / "rand.gif") + " " + std::to_string(info.modified_ns - kTijd),
              gekopieerd ? "nieuw 0" : "oud " + std::to_string(verschil));
  }
}

TEST_F(MetLogTest, AtMost512TemplateImagesAreCopiedGifsFirstInNameOrder) {
  char name[32];
  for (int i = 1; i <= 600; ++i) {
    std::snprintf(name, sizeof name, i <= 500 ? "beeld%03d.gif" : "Foto%03d.JPG", i <= 500 ? i : i - 500);
    test::WriteBytes(dir_ / "sjabloon/" + name, "");
  }
  std::filesystem::create_directories(dir_ / "uit");
  KopieerAfbeeldingen(dir_ / "sjabloon/", dir_ / "uit/", run_log_);
  EXPECT_EQ(log_.back(), "512 Afbeelding(en) gekopieerd naar uitvoerdirectory.");
  EXPECT_TRUE(std::filesystem::exists(dir_ / "uit/foto012.jpg"));
  EXPECT_FALSE(std::filesystem::exists(dir_ / "uit/foto013.jpg"));
}

}  // namespace
}  // namespace kiekbord
