// The head block and keyword list; the credit line's places and its icon on
// the title page are in the golden cases of page_writers_test.cpp.
#include "generator/head_and_credit.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/generator/page_writer_fixture.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

TEST(TrefwoordenlijstTest, KeepsWordsOfTwoOrMoreThatAreNoStopWordOnce) {
  const std::pair<const char*, const char*> gevallen[] = {
      {"vakantie in italië", "vakantie italië"},
      {"  de   zee   ", "zee"},
      // Stop words match exactly, case included.
      {"de zee Met De Kinderen", "zee Met De Kinderen"},
      // "zo" ends the stop-word list without a comma, so it stays.
      {"zo zo", "zo"},
      {"zee zee Zee", "zee Zee"},
      {"a b c ab", "ab"},
      {"kiekbord van en naar het strand", "strand"},
      {"", ""},
      {"   ", ""}};
  for (const auto& [tekst, lijst] : gevallen) EXPECT_EQ(Trefwoordenlijst(tekst), lijst) << tekst;
}

std::string Meta(const std::string& naam, const std::string& inhoud) {
  return "<meta name=\"" + naam + "\" content=\"" + inhoud + "\">\r\n";
}

TEST(KopblokTest, MetaLinesFollowTheTextsAndSettings) {
  struct Geval {
    const char* eerste;
    const char* tweede;
    bool keywords;
    bool description;
    std::string meta;
  };
  const std::string index = Meta("robots", "index,nofollow");
  const Geval gevallen[] = {
      {"Vakantie in Italië", "", true, true,
       Meta("keywords", "vakantie, italië, kiekbord") +
           Meta("description", "Vakantie in Italië. Aangemaakt met Kiekbord.") + index},
      // The subtitle keeps its case in the keywords.
      {"De Zee", "Met De Kinderen", true, true,
       Meta("keywords", "zee, Met, De, Kinderen, kiekbord") +
           Meta("description", "De Zee. Met De Kinderen. Aangemaakt met Kiekbord.") + index},
      // Commas and full stops separate keywords; the description adds no
      // second full stop.
      {"Zon,zee.strand", "", true, true,
       Meta("keywords", "zon, zee, strand, kiekbord") +
           Meta("description", "Zon,zee.strand. Aangemaakt met Kiekbord.") + index},
      {"Einde.", "Ook.", false, true, Meta("description", "Einde. Ook. Aangemaakt met Kiekbord.") + index},
      {"", "Zomer", false, true, Meta("description", ". Zomer. Aangemaakt met Kiekbord.") + index},
      {"", "  ", true, true, Meta("robots", "noindex,nofollow")},
      {"Bergen", "", true, false, Meta("keywords", "bergen, kiekbord") + index},
      {"Bergen", "Sneeuw", false, false, ""}};
  ProgramSettings settings;
  settings.caption = "Kiekbord 4.1 Pro";
  for (const Geval& geval : gevallen) {
    settings.meta_keywords = geval.keywords;
    settings.meta_description = geval.description;
    std::string regel = "</HEAD>";
    ZetKopblokVoor(regel, geval.eerste, geval.tweede, KopEnCreditVoor(settings, test::kProefDatum));
    EXPECT_EQ(regel, geval.meta +
                         "<!-- Aangemaakt op zaterdag 21 november 2026 -->\r\n"
                         "<!-- Aangemaakt met Kiekbord 4.1 Pro -->\r\n</HEAD>")
        << geval.eerste << "/" << geval.tweede;
  }
}

TEST(CreditRegelTest, EverySingleQuoteBecomesADoubleQuoteTheAddressesOwnIncluded) {
  test::TempDir dir;
  KopEnCredit kop;
  kop.programma_dir = dir / "programma/";
  kop.credit_url = "https://kiekbord.example/it's";
  test::WriteBytes(kop.programma_dir + "kbicon.gif", test::kProefIcoon);
  std::string regel = "</BODY>";
  ZetCreditRegelVoor(regel, dir.path(), "right", kop);

  const std::string url = "https://kiekbord.example/it\"s";
  EXPECT_EQ(regel,
            "<p align=\"right\">&nbsp;</p>\r\n"
            "<table border=\"0\" align=\"right\"><tr><td><a href=\"" + url +
                "\" target=\"_blank\" title=\"Meer informatie over Kiekbord\">"
                "<img src=\"kbicon.gif\" class=\"icon\" width=\"18\" height=\"18\" border=\"0\" "
                "alt=\"Icon Kiekbord\"></a></td>\r\n"
                "<td><a href=\"" + url +
                "\" class=\"icon\" target=\"_blank\" title=\"Meer informatie over Kiekbord\">"
                "Aangemaakt met Kiekbord</a></td></tr></table>\r\n</BODY>");
  EXPECT_EQ(test::ReadBytes(dir / "kbicon.gif"), test::kProefIcoon);
}

}  // namespace
}  // namespace kiekbord
