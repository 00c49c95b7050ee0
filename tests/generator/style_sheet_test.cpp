#include "generator/style_sheet.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "gallery/file_system.h"
#include "gallery/status.h"
#include "tests/generator/page_writer_fixture.h"
#include "tests/support/golden.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using Lines = std::vector<std::string>;

class StijlbladTest : public test::PaginaSchrijverTest {
 protected:
  std::int16_t Maak() { return Voer(MaakStijlblad); }
  void MetSjabloon(const std::string& tekst) {
    gegevens_.stijl_sjabloon = dir_ / "sjabloon/kb.css";
    test::WriteBytes(gegevens_.stijl_sjabloon, tekst);
  }
  Lines Inlezen() const {
    return {"Inlezen sjabloon " + gegevens_.stijl_sjabloon + "...",
            "Sjabloon " + gegevens_.stijl_sjabloon + " ingelezen."};
  }
};

// --- Golden style sheets ---------------------------------------------------------

struct StijlGeval {
  const char* map;  // under tests/data: kb.css in, verwacht/kb.css out
  const char* lettertype_titels;
  const char* lettertype_bijschriften;
  const char* grootte;
  const char* stijl;
};

void PrintTo(const StijlGeval& geval, std::ostream* out) { *out << geval.map; }

class StijlbladGoldenTest : public StijlbladTest,
                            public ::testing::WithParamInterface<StijlGeval> {};

TEST_P(StijlbladGoldenTest, WritesTheExpectedStyleSheet) {
  const StijlGeval& geval = GetParam();
  const std::string map = test::TestDataDir() + geval.map + "/";
  gegevens_.stijl_sjabloon = map + "kb.css";
  gegevens_.lettertype_titels = geval.lettertype_titels;
  gegevens_.lettertype_bijschriften = geval.lettertype_bijschriften;
  gegevens_.lettergrootte_bijschriften = geval.grootte;
  gegevens_.letterstijl_bijschriften = geval.stijl;

  ASSERT_EQ(Maak(), kGelukt) << ::testing::PrintToString(log_);
  EXPECT_TRUE(test::GelijkAanGolden(map + "verwacht/kb.css", Uit("kb.css")));
  EXPECT_EQ(log_, (Lines{"Inlezen sjabloon " + gegevens_.stijl_sjabloon + "...",
                         "Sjabloon " + gegevens_.stijl_sjabloon + " ingelezen.",
                         "Aanmaken opmaakbestand " + Uit("kb.css") + "...",
                         "Opmaakbestand " + Uit("kb.css") + " aangemaakt."}));
}

INSTANTIATE_TEST_SUITE_P(
    Gevallen, StijlbladGoldenTest,
    ::testing::Values(
        // The script's defaults: Arial, size 14, normal.
        StijlGeval{"stijl_basis", "0", "0", "2", "0"},
        // Bold and italic: each declaration gets its own choice, except on a
        // line with both words, where the style choice fills both.
        StijlGeval{"stijl_vet_cursief", "6", "3", "5", "3"},
        // Font index 7 selects the separator, -2 the first font; size 0
        // gives 10; style 4 is neither bold nor italic.
        StijlGeval{"stijl_buiten_bereik", "7", "-2", "0", "4"}),
    [](const auto& info) { return std::string(info.param.map); });

// --- Derived values --------------------------------------------------------------

struct GrootteGeval {
  const char* index;
  const char* grootte;
};

class LetterGrootteTest : public ::testing::TestWithParam<GrootteGeval> {};

TEST_P(LetterGrootteTest, TenPlusTwicePositiveIndex) {
  SiteGegevens g;
  g.lettergrootte_bijschriften = GetParam().index;
  EXPECT_EQ(LettertypeWaardenVan(g).grootte, GetParam().grootte);
}

INSTANTIATE_TEST_SUITE_P(Gevallen, LetterGrootteTest,
                         ::testing::Values(GrootteGeval{"0", "10"}, GrootteGeval{"-3", "10"},
                                           GrootteGeval{"x", "10"}, GrootteGeval{"1", "12"},
                                           GrootteGeval{"2", "14"}, GrootteGeval{"5", "20"},
                                           GrootteGeval{"2.5", "15"}, GrootteGeval{"0.25", "10"},
                                           GrootteGeval{"16378", "32766"}));

struct StijlKeuzeGeval {
  const char* index;
  const char* stijl;
  const char* gewicht;
};

class LetterStijlTest : public ::testing::TestWithParam<StijlKeuzeGeval> {};

TEST_P(LetterStijlTest, ChoosesItalicAndBoldByExactIndex) {
  SiteGegevens g;
  g.letterstijl_bijschriften = GetParam().index;
  const LettertypeWaarden letter = LettertypeWaardenVan(g);
  EXPECT_EQ(letter.stijl, GetParam().stijl);
  EXPECT_EQ(letter.gewicht, GetParam().gewicht);
}

INSTANTIATE_TEST_SUITE_P(Gevallen, LetterStijlTest,
                         ::testing::Values(StijlKeuzeGeval{"0", "normal", "normal"},
                                           StijlKeuzeGeval{"1", "normal", "bold"},
                                           StijlKeuzeGeval{"2", "italic", "normal"},
                                           StijlKeuzeGeval{"3", "italic", "bold"},
                                           StijlKeuzeGeval{"4", "normal", "normal"},
                                           StijlKeuzeGeval{" 3", "normal", "normal"},
                                           StijlKeuzeGeval{"", "normal", "normal"}));

TEST(LettertypeTest, FontsAreQuotedPiecesOfTheList) {
  SiteGegevens g;
  g.lettertype_titels = "1";
  g.lettertype_bijschriften = "5";
  const LettertypeWaarden letter = LettertypeWaardenVan(g);
  EXPECT_EQ(letter.titels, "\"Comic Sans MS\"");
  EXPECT_EQ(letter.bijschriften, "\"Times New Roman\"");
}

TEST(LettertypeTest, IndexesBeyondSixteenBitsOverflow) {
  SiteGegevens g;
  g.lettergrootte_bijschriften = "16379";
  EXPECT_THROW(LettertypeWaardenVan(g), RunError);
  g.lettergrootte_bijschriften = "2";
  g.lettertype_titels = "40000";
  EXPECT_THROW(LettertypeWaardenVan(g), RunError);
}

// --- Failures --------------------------------------------------------------------

TEST_F(StijlbladTest, MissingTemplateIsLoggedAndNothingIsWritten) {
  gegevens_.stijl_sjabloon = dir_ / "sjabloon/kb.css";
  EXPECT_EQ(Maak(), kMislukt);
  EXPECT_EQ(log_, (Lines{"Inlezen sjabloon " + gegevens_.stijl_sjabloon + "...",
                         "Fout bij inlezen sjabloon: %Error 53 File not found"}));
  EXPECT_FALSE(std::filesystem::exists(Uit("kb.css")));
}

TEST_F(StijlbladTest, UnwritableStyleSheetIsLoggedAndTheEarlierOneStays) {
  MetSjabloon("body { color: #[KIEKBORDVELD=KLEURTEKST]; }\n");
  test::WriteBytes(Uit("kb.css"), "vorige opmaak");
  test::GeweigerdeToegang fs;
  fs.schrijven_geweigerd = gegevens_.uitvoer_dir;
  ScopedFileSystem scoped(fs);

  EXPECT_EQ(Maak(), kMislukt);
  Lines verwacht = Inlezen();
  verwacht.push_back("Aanmaken opmaakbestand " + Uit("kb.css") + "...");
  verwacht.push_back("Fout bij aanmaken opmaakbestand: %Error 70 Permission denied");
  EXPECT_EQ(log_, verwacht);
  EXPECT_EQ(test::ReadBytes(Uit("kb.css")), "vorige opmaak");
}

TEST_F(StijlbladTest, SizeBeyondTheLimitsEndsTheStepWithoutAStyleSheet) {
  MetSjabloon("p { font-size: [KIEKBORDVELD=LETTERGROOTTEBIJSCHRIFTEN]px; }\n");
  gegevens_.lettergrootte_bijschriften = "99999";
  EXPECT_EQ(Maak(), kMislukt);
  Lines verwacht = Inlezen();
  verwacht.push_back("6 Overflow");
  EXPECT_EQ(log_, verwacht);
  EXPECT_FALSE(std::filesystem::exists(Uit("kb.css")));
}

TEST_F(StijlbladTest, OnlyColourAndFontFieldsAreFilled) {
  MetSjabloon("p { x: [KIEKBORDVELD=TITEL]; c: #[KIEKBORDVELD=KLEURKADER]; }\n");
  gegevens_.titel = "Niet hier";
  ASSERT_EQ(Maak(), kGelukt);
  EXPECT_EQ(test::ReadBytes(Uit("kb.css")), "p { x: [KIEKBORDVELD=TITEL]; c: #CCCCCC; }\r\n");
}

}  // namespace
}  // namespace kiekbord
