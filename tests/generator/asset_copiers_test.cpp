// The copiers on their own; site_steps_test.cpp has them in a whole run: a
// second run that copies nothing and a failing copy that cuts the run off.
#include "generator/asset_copiers.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "base/file_system.h"
#include "base/generation_log.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using Lines = std::vector<std::string>;

constexpr std::int64_t kSeconde = 1000000000;
constexpr std::int64_t kSjabloonTijd = 1700000000 * kSeconde;

class AssetKopieerTest : public ::testing::Test {
 protected:
  AssetKopieerTest() {
    std::filesystem::create_directories(Uit());
    run_log_.SchrijfLog("open:" + dir_ / "proef.log");
  }
  ~AssetKopieerTest() override { run_log_.SchrijfLog("close"); }

  std::string Sjabloon() const { return dir_ / "sjabloon/"; }
  std::string Uit() const { return dir_ / "uit/"; }

  static void Bestand(const std::string& path, const std::string& inhoud, std::int64_t tijd = kSjabloonTijd) {
    test::WriteBytes(path, inhoud);
    ASSERT_TRUE(LocalFileSystem().SetModificationTime(path, tijd).ok());
  }
  static std::int64_t Tijd(const std::string& path) {
    FileInfo info;
    EXPECT_TRUE(LocalFileSystem().GetFileInfo(path, info).ok());
    return info.modified_ns;
  }
  Lines AllesKopieren() {
    log_.clear();
    KopieerAfbeeldingen(Sjabloon(), Uit(), run_log_);
    KopieerScripts(Sjabloon(), Uit(), run_log_);
    KopieerStijlbladen(Sjabloon(), Uit(), run_log_);
    return log_;
  }

  test::TempDir dir_;
  Lines log_;
  GenerationLog run_log_{[this](const std::string& line) { log_.push_back(line); }};
};

TEST_F(AssetKopieerTest, CopiesEachKindWithLowerCaseNamesAndTheSourceTime) {
  Bestand(Sjabloon() + "back.GIF", "gif");
  Bestand(Sjabloon() + "Rand.jpg", "jpg", kSjabloonTijd + 5 * kSeconde);
  Bestand(Sjabloon() + "Menu.JS", "js");
  Bestand(Sjabloon() + "Extra.Css", "css");
  // Not copied: the style sheet template, longer extensions, other kinds.
  for (const char* name : {"kb.css", "KB.CSS", "oud.jpeg", "menu.jsx", "kbtitel.html", "x.gif.bak"}) {
    Bestand(Sjabloon() + name, "nee");
  }

  EXPECT_EQ(AllesKopieren(), (Lines{"2 Afbeelding(en) gevonden in sjabloondirectory.",
                                    "2 Afbeelding(en) gekopieerd naar uitvoerdirectory.",
                                    "1 Script(s) gevonden in sjabloondirectory.",
                                    "1 Script(s) gekopieerd naar uitvoerdirectory.",
                                    "1 Extra stylesheet(s) gevonden in sjabloondirectory.",
                                    "1 Extra stylesheet(s) gekopieerd naar uitvoerdirectory."}));
  EXPECT_EQ(test::BestandenIn(Uit()), (Lines{"back.gif", "extra.css", "menu.js", "rand.jpg"}));
  EXPECT_EQ(test::ReadBytes(Uit() + "rand.jpg"), "jpg");
  EXPECT_EQ(Tijd(Uit() + "rand.jpg"), kSjabloonTijd + 5 * kSeconde);
  EXPECT_EQ(Tijd(Uit() + "back.gif"), kSjabloonTijd);
}

TEST_F(AssetKopieerTest, CopiesOnlyWhenTheTimesDifferToTheSecond) {
  struct Geval { std::int64_t uitvoer_tijd; bool gekopieerd; } gevallen[] = {
      {-3600 * kSeconde, true},
      {3600 * kSeconde, true},  // a newer output file is overwritten by the older template file
      {0, false},
      {400000000, false},
      {kSeconde, true}};
  Bestand(Sjabloon() + "rand.gif", "nieuw");
  for (const Geval& geval : gevallen) {
    SCOPED_TRACE(geval.uitvoer_tijd);
    Bestand(Uit() + "rand.gif", "oud", kSjabloonTijd + geval.uitvoer_tijd);
    KopieerAfbeeldingen(Sjabloon(), Uit(), run_log_);
    EXPECT_EQ(log_.back(), geval.gekopieerd ? "1 Afbeelding(en) gekopieerd naar uitvoerdirectory."
                                            : "Geen afbeeldingen gekopieerd naar uitvoerdirectory.");
    EXPECT_EQ(test::ReadBytes(Uit() + "rand.gif"), geval.gekopieerd ? "nieuw" : "oud");
    EXPECT_EQ(Tijd(Uit() + "rand.gif"), kSjabloonTijd + (geval.gekopieerd ? 0 : geval.uitvoer_tijd));
  }
}

TEST_F(AssetKopieerTest, AtMost512ImagesGifsFirstInNameOrder) {
  char name[32];
  for (int i = 1; i <= 500; ++i) {
    std::snprintf(name, sizeof name, "beeld%03d.gif", i);
    Bestand(Sjabloon() + name, "gif");
  }
  for (int i = 1; i <= 100; ++i) {
    std::snprintf(name, sizeof name, "Foto%03d.JPG", i);
    Bestand(Sjabloon() + name, "jpg");
  }
  KopieerAfbeeldingen(Sjabloon(), Uit(), run_log_);
  EXPECT_EQ(log_, (Lines{"512 Afbeelding(en) gevonden in sjabloondirectory.",
                         "512 Afbeelding(en) gekopieerd naar uitvoerdirectory."}));
  EXPECT_TRUE(std::filesystem::exists(Uit() + "beeld500.gif"));
  EXPECT_TRUE(std::filesystem::exists(Uit() + "foto012.jpg"));
  EXPECT_FALSE(std::filesystem::exists(Uit() + "foto013.jpg"));
  EXPECT_EQ(test::BestandenIn(Uit()).size(), 512u);
}

TEST_F(AssetKopieerTest, NothingToCopyGivesTheNoneLines) {
  // Only the style sheet template: no extra style sheet.
  Bestand(Sjabloon() + "kb.css", "sjabloon");
  EXPECT_EQ(AllesKopieren(), (Lines{"Geen afbeeldingen gevonden in sjabloondirectory.",
                                    "Geen afbeeldingen gekopieerd naar uitvoerdirectory.",
                                    "Geen scripts gevonden in sjabloondirectory.",
                                    "Geen scripts gekopieerd naar uitvoerdirectory.",
                                    "Geen extra stylesheets gevonden in sjabloondirectory.",
                                    "Geen extra stylesheets gekopieerd naar uitvoerdirectory."}));
  std::filesystem::remove_all(Sjabloon());
  KopieerScripts(Sjabloon(), Uit(), run_log_);
  EXPECT_EQ(log_.back(), "Geen scripts gekopieerd naar uitvoerdirectory.");
  EXPECT_EQ(test::BestandenIn(Uit()), Lines{});
}

}  // namespace
}  // namespace kiekbord
