// The repeat block's markers and bounds; the pages written with them are the
// golden cases of page_writers_test.cpp.
#include "generator/repeat_block.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "generator/head_and_credit.h"
#include "generator/page_lines.h"
#include "generator/template_engine.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

TEST(HerhaalMarkeringTest, RecognisesTheMarker) {
  const std::pair<const char*, HerhaalMarkering> gevallen[] = {
      {"<!-- HERHAAL KIEKBORD = BEGIN -->", HerhaalMarkering::kBegin},
      {"<!-- herhaal kiekbord = einde -->", HerhaalMarkering::kEinde},
      {"<!--Herhaal Kiekbord=Begin-->", HerhaalMarkering::kBegin},
      // The words may stand in any order and among other text.
      {"<!-- begin: kiekbord, herhaal = ja -->", HerhaalMarkering::kBegin},
      {"   <!-- HERHAAL KIEKBORD = EINDE -->   ", HerhaalMarkering::kEinde},
      // "BEGIN" is looked for first.
      {"<!-- HERHAAL KIEKBORD = EINDE BEGIN -->", HerhaalMarkering::kBegin},
      {"<!-- HERHAAL KIEKBORD BEGIN -->", HerhaalMarkering::kGeen},
      {"<!-- HERHAAL = BEGIN -->", HerhaalMarkering::kGeen},
      {"<!-- KIEKBORD = BEGIN -->", HerhaalMarkering::kGeen},
      {"<!-- HERHAAL KIEKBORD = -->", HerhaalMarkering::kGeen},
      {"<!-- HERHAAL KIEKBORD = BEGIN", HerhaalMarkering::kGeen},
      {"<p><!-- HERHAAL KIEKBORD = BEGIN -->", HerhaalMarkering::kGeen},
      {"<!-- HERHAAL KIEKBORD = BEGIN --></p>", HerhaalMarkering::kGeen},
      {"", HerhaalMarkering::kGeen}};
  for (const auto& [regel, markering] : gevallen) EXPECT_EQ(HerhaalMarkeringVan(regel), markering) << regel;
}

constexpr const char* kBegin = "<!-- HERHAAL KIEKBORD = BEGIN -->\n";
constexpr const char* kEinde = "<!-- HERHAAL KIEKBORD = EINDE -->\n";

LineTable Sjabloon(const std::string& tekst) {
  LineTable sjabloon(capaciteit::kTemplate);
  EXPECT_TRUE(LeesSjabloonUitTekst(tekst, sjabloon).ok());
  return sjabloon;
}

HerhaalBlok BlokVan(LineTable& sjabloon) {
  PaginaRegels regels(KopEnCredit{false, false, "", "", "", ""}, PaginaVelden{});
  return BereidBlokSjabloonVoor(sjabloon, regels);
}

TEST(HerhaalBlokTest, MarkersWinOverBodyTagsAndTheLastOfEachKindWins) {
  struct Geval {
    std::string tekst;
    int begin;
    int einde;
  };
  const Geval gevallen[] = {
      {"<html>\n<body>\n<p>x</p>\n</body>\n</html>\n", 2, 4},
      {std::string("<body>\n<h1>kop</h1>\n") + kBegin + "<p>x</p>\n" + kEinde + "</body>\n", 3, 5},
      // Only an end marker: the begin stays at the body tag.
      {std::string("<body>\n<p>x</p>\n") + kEinde + "<p>voet</p>\n</body>\n", 1, 3},
      {std::string(kBegin) + "<p>a</p>\n" + kBegin + "<p>b</p>\n" + kEinde + "<p>c</p>\n" + kEinde, 3, 7},
      {"<p>a</p>\n<p>b</p>\n", 0, 0}};
  for (const Geval& geval : gevallen) {
    LineTable sjabloon = Sjabloon(geval.tekst);
    const HerhaalBlok blok = BlokVan(sjabloon);
    EXPECT_EQ(blok.begin, geval.begin) << geval.tekst;
    EXPECT_EQ(blok.einde, geval.einde) << geval.tekst;
  }
}

TEST(BlokPaginaTest, AnEndBeforeTheBeginWritesTheLinesBetweenTwice) {
  LineTable sjabloon = Sjabloon(std::string("<p>a</p>\n") + kEinde + "<p>b</p>\n" + kBegin + "<p>c</p>\n");
  BlokPagina pagina(sjabloon, BlokVan(sjabloon));
  pagina.SchrijfKop({});
  pagina.SchrijfBlok({});
  pagina.SchrijfBlok({});
  pagina.SchrijfStaart({});
  test::TempDir dir;
  pagina.Bewaar(dir / "pagina.html");
  EXPECT_EQ(test::ReadBytes(dir / "pagina.html"),
            "<p>a</p>\r\n<!-- HERHAAL KIEKBORD = EINDE -->\r\n<p>b</p>\r\n"
            "<!-- HERHAAL KIEKBORD = BEGIN -->\r\n<!-- HERHAAL KIEKBORD = EINDE -->\r\n<p>b</p>\r\n"
            "<!-- HERHAAL KIEKBORD = BEGIN -->\r\n<p>c</p>\r\n");
}

}  // namespace
}  // namespace kiekbord
