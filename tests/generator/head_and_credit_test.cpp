#include "generator/head_and_credit.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "gallery/file_system.h"
#include "gallery/status.h"
#include "tests/generator/page_writer_fixture.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using test::kProefDatum;

// --- Keywords ------------------------------------------------------------------

struct TrefwoordGeval {
  const char* tekst;
  const char* lijst;
};

class TrefwoordenlijstTest : public ::testing::TestWithParam<TrefwoordGeval> {};

TEST_P(TrefwoordenlijstTest, KeepsWordsOfTwoOrMoreThatAreNoStopWordOnce) {
  EXPECT_EQ(Trefwoordenlijst(GetParam().tekst), GetParam().lijst);
}

INSTANTIATE_TEST_SUITE_P(
    Gevallen, TrefwoordenlijstTest,
    ::testing::Values(
        TrefwoordGeval{"vakantie in italië", "vakantie italië"},
        TrefwoordGeval{"  de   zee   ", "zee"},
        // Stop words match exactly, case included.
        TrefwoordGeval{"de zee Met De Kinderen", "zee Met De Kinderen"},
        // "zo" ends the stop-word list without a comma, so it stays.
        TrefwoordGeval{"zo zo", "zo"},
        TrefwoordGeval{"zee zee Zee", "zee Zee"},
        TrefwoordGeval{"a b c ab", "ab"},
        TrefwoordGeval{"kiekbord van en naar het strand", "strand"},
        TrefwoordGeval{"", ""},
        TrefwoordGeval{"   ", ""}));

// --- Head block ----------------------------------------------------------------

constexpr const char* kCommentaar =
    "<!-- Aangemaakt op zaterdag 21 november 2026 -->\r\n"
    "<!-- Aangemaakt met Kiekbord 4.1 Pro -->\r\n";

KopEnCredit ProefKop(bool keywords, bool description) {
  ProgramSettings settings;
  settings.caption = "Kiekbord 4.1 Pro";
  settings.meta_keywords = keywords;
  settings.meta_description = description;
  return KopEnCreditVoor(settings, kProefDatum);
}

std::string Kopblok(std::string_view eerste, std::string_view tweede, bool keywords = true,
                    bool description = true) {
  std::string line = "</HEAD>";
  ZetKopblokVoor(line, eerste, tweede, ProefKop(keywords, description));
  return line;
}

TEST(KopblokTest, TitleWithoutSubtitleGivesKeywordsDescriptionAndIndex) {
  EXPECT_EQ(Kopblok("Vakantie in Italië", ""),
            std::string("<meta name=\"keywords\" content=\"vakantie, italië, kiekbord\">\r\n"
                        "<meta name=\"description\" content=\"Vakantie in Italië. Aangemaakt met "
                        "Kiekbord.\">\r\n"
                        "<meta name=\"robots\" content=\"index,nofollow\">\r\n") +
                kCommentaar + "</HEAD>");
}

TEST(KopblokTest, SubtitleKeepsItsCaseInTheKeywords) {
  const std::string kop = Kopblok("De Zee", "Met De Kinderen");
  EXPECT_NE(kop.find("content=\"zee, Met, De, Kinderen, kiekbord\""), std::string::npos) << kop;
  EXPECT_NE(kop.find("content=\"De Zee. Met De Kinderen. Aangemaakt met Kiekbord.\""),
            std::string::npos)
      << kop;
}

TEST(KopblokTest, CommasAndFullStopsSeparateKeywords) {
  const std::string kop = Kopblok("Zon,zee.strand", "");
  EXPECT_NE(kop.find("content=\"zon, zee, strand, kiekbord\""), std::string::npos) << kop;
  // The description takes the title as it is and adds no second full stop.
  EXPECT_NE(kop.find("content=\"Zon,zee.strand. Aangemaakt"), std::string::npos) << kop;
  EXPECT_NE(Kopblok("Einde.", "Ook.").find("content=\"Einde. Ook. Aangemaakt met Kiekbord.\""),
            std::string::npos);
}

TEST(KopblokTest, EmptyTitleWithSubtitleStartsTheDescriptionWithAFullStop) {
  EXPECT_NE(Kopblok("", "Zomer").find("content=\". Zomer. Aangemaakt met Kiekbord.\""),
            std::string::npos);
}

TEST(KopblokTest, WithoutTextsOnlyRobotsNoindexAndComments) {
  EXPECT_EQ(Kopblok("", "  "),
            std::string("<meta name=\"robots\" content=\"noindex,nofollow\">\r\n") + kCommentaar +
                "</HEAD>");
}

TEST(KopblokTest, EachSettingControlsItsOwnLine) {
  const std::string alleen_keywords = Kopblok("Bergen", "", true, false);
  EXPECT_NE(alleen_keywords.find("name=\"keywords\""), std::string::npos);
  EXPECT_EQ(alleen_keywords.find("name=\"description\""), std::string::npos);
  EXPECT_NE(alleen_keywords.find("content=\"index,nofollow\""), std::string::npos);

  const std::string alleen_beschrijving = Kopblok("Bergen", "", false, true);
  EXPECT_EQ(alleen_beschrijving.find("name=\"keywords\""), std::string::npos);
  EXPECT_NE(alleen_beschrijving.find("name=\"description\""), std::string::npos);
}

TEST(KopblokTest, BothSettingsOffLeaveOnlyTheComments) {
  EXPECT_EQ(Kopblok("Bergen", "Sneeuw", false, false), std::string(kCommentaar) + "</HEAD>");
}

// --- Credit line ---------------------------------------------------------------

class CreditRegelTest : public ::testing::Test {
 protected:
  CreditRegelTest() {
    kop_.programma_dir = dir_ / "programma/";
    kop_.credit_url = "https://kiekbord.example/it's";
    std::filesystem::create_directories(Uit());
  }
  std::string Uit() const { return dir_ / "uit/"; }

  test::TempDir dir_;
  KopEnCredit kop_;
};

TEST_F(CreditRegelTest, CopiesTheIconAndPutsTheTableInFrontOfTheLine) {
  test::WriteBytes(kop_.programma_dir + "kbicon.gif", test::kProefIcoon);
  std::string line = "</BODY>";
  ZetCreditRegelVoor(line, Uit(), "right", kop_);

  // Every single quote becomes a double quote, the address's own included.
  const std::string url = "https://kiekbord.example/it\"s";
  EXPECT_EQ(line,
            "<p align=\"right\">&nbsp;</p>\r\n"
            "<table border=\"0\" align=\"right\"><tr><td><a href=\"" + url +
                "\" target=\"_blank\" title=\"Meer informatie over Kiekbord\">"
                "<img src=\"kbicon.gif\" class=\"icon\" width=\"18\" height=\"18\" border=\"0\" "
                "alt=\"Icon Kiekbord\"></a></td>\r\n"
                "<td><a href=\"" + url +
                "\" class=\"icon\" target=\"_blank\" title=\"Meer informatie over Kiekbord\">"
                "Aangemaakt met Kiekbord</a></td></tr></table>\r\n</BODY>");
  EXPECT_EQ(test::ReadBytes(Uit() + "kbicon.gif"), test::kProefIcoon);
}

TEST_F(CreditRegelTest, AnIconAlreadyInTheOutputIsKept) {
  test::WriteBytes(Uit() + "kbicon.gif", "eigen icoon");
  test::WriteBytes(kop_.programma_dir + "kbicon.gif", test::kProefIcoon);
  std::string line = "</BODY>";
  ZetCreditRegelVoor(line, Uit(), "left", kop_);
  EXPECT_NE(line.find("Aangemaakt met Kiekbord"), std::string::npos);
  EXPECT_EQ(test::ReadBytes(Uit() + "kbicon.gif"), "eigen icoon");
}

TEST_F(CreditRegelTest, WithoutAnyIconTheLineStaysAsItIs) {
  std::string line = "<!--LINKICON-->";
  ZetCreditRegelVoor(line, Uit(), "left", kop_);
  EXPECT_EQ(line, "<!--LINKICON-->");
  EXPECT_FALSE(std::filesystem::exists(Uit() + "kbicon.gif"));
}

TEST_F(CreditRegelTest, AnIconThatCannotBeCopiedIsAnError) {
  test::WriteBytes(kop_.programma_dir + "kbicon.gif", test::kProefIcoon);
  test::GeweigerdeToegang fs;
  fs.schrijven_geweigerd = Uit();
  ScopedFileSystem scoped(fs);
  std::string line = "</BODY>";
  try {
    ZetCreditRegelVoor(line, Uit(), "left", kop_);
    FAIL() << "geen fout";
  } catch (const RunError& error) {
    EXPECT_EQ(error.number(), fout::kPermissionDenied);
  }
  EXPECT_EQ(line, "</BODY>");
}

}  // namespace
}  // namespace kiekbord
