#include "generator/asset_copiers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "gallery/file_system.h"
#include "gallery/status.h"
#include "generator/generation_log.h"
#include "tests/generator/page_writer_fixture.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using Lines = std::vector<std::string>;

constexpr std::int64_t kSeconde = 1000000000;
constexpr std::int64_t kSjabloonTijd = 1700000000 * kSeconde;

class AssetKopieerTest : public ::testing::Test {
 protected:
  AssetKopieerTest() {
    std::filesystem::create_directories(Sjabloon());
    std::filesystem::create_directories(Uit());
    SchrijfLog("open:" + dir_ / "proef.log");
  }
  ~AssetKopieerTest() override { SchrijfLog("close"); }

  std::string Sjabloon() const { return dir_ / "sjabloon/"; }
  std::string Uit() const { return dir_ / "uit/"; }

  // A file with the given contents and modification time.
  static void Bestand(const std::string& path, const std::string& inhoud, std::int64_t tijd) {
    test::WriteBytes(path, inhoud);
    ASSERT_TRUE(LocalFileSystem().SetModificationTime(path, tijd).ok());
  }
  static std::int64_t Tijd(const std::string& path) {
    FileInfo info;
    EXPECT_TRUE(LocalFileSystem().GetFileInfo(path, info).ok());
    return info.modified_ns;
  }
  Lines InUit() const {
    Lines names;
    for (const auto& entry : std::filesystem::directory_iterator(Uit())) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }
  Lines AllesKopieren() {
    log_.clear();
    KopieerAfbeeldingen(Sjabloon(), Uit());
    KopieerScripts(Sjabloon(), Uit());
    KopieerStijlbladen(Sjabloon(), Uit());
    return log_;
  }

  test::TempDir dir_;
  Lines log_;
  ScopedLogObserver observer_{[this](const std::string& line) { log_.push_back(line); }};
};

TEST_F(AssetKopieerTest, CopiesEachKindWithLowerCaseNamesAndTheSourceTime) {
  Bestand(Sjabloon() + "back.GIF", "gif", kSjabloonTijd);
  Bestand(Sjabloon() + "Rand.jpg", "jpg", kSjabloonTijd + 5 * kSeconde);
  Bestand(Sjabloon() + "Menu.JS", "js", kSjabloonTijd);
  Bestand(Sjabloon() + "Extra.Css", "css", kSjabloonTijd);
  // Not copied: the style sheet template, longer extensions, other kinds.
  for (const char* name : {"kb.css", "KB.CSS", "oud.jpeg", "menu.jsx", "kbtitel.html", "x.gif.bak"}) {
    Bestand(Sjabloon() + name, "nee", kSjabloonTijd);
  }

  EXPECT_EQ(AllesKopieren(), (Lines{"2 Afbeelding(en) gevonden in sjabloondirectory.",
                                    "2 Afbeelding(en) gekopieerd naar uitvoerdirectory.",
                                    "1 Script(s) gevonden in sjabloondirectory.",
                                    "1 Script(s) gekopieerd naar uitvoerdirectory.",
                                    "1 Extra stylesheet(s) gevonden in sjabloondirectory.",
                                    "1 Extra stylesheet(s) gekopieerd naar uitvoerdirectory."}));
  EXPECT_EQ(InUit(), (Lines{"back.gif", "extra.css", "menu.js", "rand.jpg"}));
  EXPECT_EQ(test::ReadBytes(Uit() + "rand.jpg"), "jpg");
  EXPECT_EQ(Tijd(Uit() + "rand.jpg"), kSjabloonTijd + 5 * kSeconde);
  EXPECT_EQ(Tijd(Uit() + "back.gif"), kSjabloonTijd);
}

TEST_F(AssetKopieerTest, ASecondRunCopiesNothing) {
  Bestand(Sjabloon() + "back.GIF", "gif", kSjabloonTijd);
  Bestand(Sjabloon() + "menu.js", "js", kSjabloonTijd);
  Bestand(Sjabloon() + "extra.css", "css", kSjabloonTijd);
  AllesKopieren();

  EXPECT_EQ(AllesKopieren(), (Lines{"1 Afbeelding(en) gevonden in sjabloondirectory.",
                                    "Geen afbeeldingen gekopieerd naar uitvoerdirectory.",
                                    "1 Script(s) gevonden in sjabloondirectory.",
                                    "Geen scripts gekopieerd naar uitvoerdirectory.",
                                    "1 Extra stylesheet(s) gevonden in sjabloondirectory.",
                                    "Geen extra stylesheets gekopieerd naar uitvoerdirectory."}));
}

struct TijdGeval {
  const char* naam;
  std::int64_t uitvoer_tijd;  // relative to the template file's time
  bool gekopieerd;
};

class AssetTijdTest : public AssetKopieerTest, public ::testing::WithParamInterface<TijdGeval> {};

TEST_P(AssetTijdTest, CopiesOnlyWhenTheTimesDiffer) {
  Bestand(Sjabloon() + "rand.gif", "nieuw", kSjabloonTijd);
  Bestand(Uit() + "rand.gif", "oud", kSjabloonTijd + GetParam().uitvoer_tijd);
  KopieerAfbeeldingen(Sjabloon(), Uit());

  const bool gekopieerd = GetParam().gekopieerd;
  EXPECT_EQ(log_.back(), gekopieerd ? "1 Afbeelding(en) gekopieerd naar uitvoerdirectory."
                                    : "Geen afbeeldingen gekopieerd naar uitvoerdirectory.");
  EXPECT_EQ(test::ReadBytes(Uit() + "rand.gif"), gekopieerd ? "nieuw" : "oud");
  EXPECT_EQ(Tijd(Uit() + "rand.gif"),
            gekopieerd ? kSjabloonTijd : kSjabloonTijd + GetParam().uitvoer_tijd);
}

INSTANTIATE_TEST_SUITE_P(
    Gevallen, AssetTijdTest,
    ::testing::Values(TijdGeval{"UitvoerOuder", -3600 * kSeconde, true},
                      // A newer output file is overwritten by the older template file.
                      TijdGeval{"UitvoerNieuwer", 3600 * kSeconde, true},
                      TijdGeval{"Gelijk", 0, false},
                      // Times are compared to the second.
                      TijdGeval{"ZelfdeSeconde", 400000000, false},
                      TijdGeval{"VolgendeSeconde", kSeconde, true}),
    [](const auto& info) { return std::string(info.param.naam); });

TEST_F(AssetKopieerTest, AtMost512ImagesGifsFirst) {
  char name[32];
  for (int i = 1; i <= 500; ++i) {
    std::snprintf(name, sizeof name, "beeld%03d.gif", i);
    Bestand(Sjabloon() + name, "gif", kSjabloonTijd);
  }
  for (int i = 1; i <= 100; ++i) {
    std::snprintf(name, sizeof name, "Foto%03d.JPG", i);
    Bestand(Sjabloon() + name, "jpg", kSjabloonTijd);
  }
  KopieerAfbeeldingen(Sjabloon(), Uit());

  EXPECT_EQ(log_, (Lines{"512 Afbeelding(en) gevonden in sjabloondirectory.",
                         "512 Afbeelding(en) gekopieerd naar uitvoerdirectory."}));
  EXPECT_TRUE(std::filesystem::exists(Uit() + "beeld500.gif"));
  EXPECT_TRUE(std::filesystem::exists(Uit() + "foto012.jpg"));
  EXPECT_FALSE(std::filesystem::exists(Uit() + "foto013.jpg"));
  EXPECT_EQ(InUit().size(), 512u);
}

TEST_F(AssetKopieerTest, SixHundredImagesGiveTheFirst512InNameOrder) {
  char name[32];
  for (int i = 1; i <= 600; ++i) {
    std::snprintf(name, sizeof name, "Beeld%03d.Gif", i);
    Bestand(Sjabloon() + name, "gif", kSjabloonTijd);
  }
  KopieerAfbeeldingen(Sjabloon(), Uit());
  EXPECT_EQ(log_, (Lines{"512 Afbeelding(en) gevonden in sjabloondirectory.",
                         "512 Afbeelding(en) gekopieerd naar uitvoerdirectory."}));
  EXPECT_TRUE(std::filesystem::exists(Uit() + "beeld512.gif"));
  EXPECT_FALSE(std::filesystem::exists(Uit() + "beeld513.gif"));

  log_.clear();
  KopieerAfbeeldingen(Sjabloon(), Uit());
  EXPECT_EQ(log_, (Lines{"512 Afbeelding(en) gevonden in sjabloondirectory.",
                         "Geen afbeeldingen gekopieerd naar uitvoerdirectory."}));
}

TEST_F(AssetKopieerTest, MissingTemplateDirectoryFindsNothing) {
  KopieerScripts(dir_ / "bestaat-niet/", Uit());
  EXPECT_EQ(log_, (Lines{"Geen scripts gevonden in sjabloondirectory.",
                         "Geen scripts gekopieerd naar uitvoerdirectory."}));
}

TEST_F(AssetKopieerTest, OnlyTheStyleSheetTemplateIsNoExtraStyleSheet) {
  Bestand(Sjabloon() + "kb.css", "sjabloon", kSjabloonTijd);
  KopieerStijlbladen(Sjabloon(), Uit());
  EXPECT_EQ(log_, (Lines{"Geen extra stylesheets gevonden in sjabloondirectory.",
                         "Geen extra stylesheets gekopieerd naar uitvoerdirectory."}));
  EXPECT_EQ(InUit(), Lines{});
}

TEST_F(AssetKopieerTest, AFailingCopyIsNotCaught) {
  Bestand(Sjabloon() + "a.gif", "a", kSjabloonTijd);
  Bestand(Sjabloon() + "b.gif", "b", kSjabloonTijd);
  test::GeweigerdeToegang fs;
  fs.schrijven_geweigerd = Uit() + "b.gif";
  ScopedFileSystem scoped(fs);
  try {
    KopieerAfbeeldingen(Sjabloon(), Uit());
    FAIL() << "geen fout";
  } catch (const RunError& error) {
    EXPECT_EQ(error.number(), fout::kPermissionDenied);
  }
  EXPECT_EQ(log_, Lines{"2 Afbeelding(en) gevonden in sjabloondirectory."});
  EXPECT_EQ(InUit(), Lines{"a.gif"});
}

}  // namespace
}  // namespace kiekbord
