#include "generator/repeat_block.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "gallery/status.h"
#include "generator/head_and_credit.h"
#include "generator/page_lines.h"
#include "generator/template_engine.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

// --- Marker lines ------------------------------------------------------------

struct MarkeringGeval {
  const char* regel;
  HerhaalMarkering verwacht;
};

void PrintTo(const MarkeringGeval& geval, std::ostream* out) { *out << '"' << geval.regel << '"'; }

class HerhaalMarkeringTest : public ::testing::TestWithParam<MarkeringGeval> {};

TEST_P(HerhaalMarkeringTest, RecognisesTheMarker) {
  EXPECT_EQ(HerhaalMarkeringVan(GetParam().regel), GetParam().verwacht);
}

INSTANTIATE_TEST_SUITE_P(
    Regels, HerhaalMarkeringTest,
    ::testing::Values(
        MarkeringGeval{"<!-- HERHAAL KIEKBORD = BEGIN -->", HerhaalMarkering::kBegin},
        MarkeringGeval{"<!-- herhaal kiekbord = einde -->", HerhaalMarkering::kEinde},
        MarkeringGeval{"<!--Herhaal Kiekbord=Begin-->", HerhaalMarkering::kBegin},
        // The words may stand in any order and among other text.
        MarkeringGeval{"<!-- begin: kiekbord, herhaal = ja -->", HerhaalMarkering::kBegin},
        MarkeringGeval{"   <!-- HERHAAL KIEKBORD = EINDE -->   ", HerhaalMarkering::kEinde},
        // "BEGIN" is looked for first.
        MarkeringGeval{"<!-- HERHAAL KIEKBORD = EINDE BEGIN -->", HerhaalMarkering::kBegin},
        MarkeringGeval{"<!-- HERHAAL KIEKBORD BEGIN -->", HerhaalMarkering::kGeen},
        MarkeringGeval{"<!-- HERHAAL = BEGIN -->", HerhaalMarkering::kGeen},
        MarkeringGeval{"<!-- KIEKBORD = BEGIN -->", HerhaalMarkering::kGeen},
        MarkeringGeval{"<!-- HERHAAL KIEKBORD = -->", HerhaalMarkering::kGeen},
        MarkeringGeval{"<!-- HERHAAL KIEKBORD = BEGIN", HerhaalMarkering::kGeen},
        MarkeringGeval{"<p><!-- HERHAAL KIEKBORD = BEGIN -->", HerhaalMarkering::kGeen},
        MarkeringGeval{"<!-- HERHAAL KIEKBORD = BEGIN --></p>", HerhaalMarkering::kGeen},
        MarkeringGeval{"", HerhaalMarkering::kGeen}));

// --- Block bounds ------------------------------------------------------------

class HerhaalBlokTest : public ::testing::Test {
 protected:
  HerhaalBlok Blok(const std::string& sjabloon_tekst) {
    LeesSjabloonUitTekst(sjabloon_tekst, sjabloon_);
    PaginaVelden velden;
    velden.titel = "Zee & strand";
    PaginaRegels regels(kop_, velden);
    return BereidBlokSjabloonVoor(sjabloon_, regels);
  }

  KopEnCredit kop_{false, false, "zaterdag 21 november 2026", "Kiekbord 4.1 Pro", "", ""};
  LineTable sjabloon_{capaciteit::kTemplate};
};

TEST_F(HerhaalBlokTest, BodyTagsBoundTheBlockWithoutMarkers) {
  const HerhaalBlok blok = Blok("<html>\n<body>\n<p>x</p>\n</body>\n</html>\n");
  EXPECT_EQ(blok.begin, 2);
  EXPECT_EQ(blok.einde, 4);
}

TEST_F(HerhaalBlokTest, MarkersWinOverBodyTags) {
  const HerhaalBlok blok = Blok(
      "<html>\n<body>\n<h1>kop</h1>\n<!-- HERHAAL KIEKBORD = BEGIN -->\n<p>x</p>\n"
      "<!-- HERHAAL KIEKBORD = EINDE -->\n<p>voet</p>\n</body>\n</html>\n");
  EXPECT_EQ(blok.begin, 4);
  EXPECT_EQ(blok.einde, 6);
}

TEST_F(HerhaalBlokTest, EachKindIsReplacedOnItsOwn) {
  // Only an end marker: the begin stays at the body tag.
  const HerhaalBlok blok =
      Blok("<body>\n<p>x</p>\n<!-- HERHAAL KIEKBORD = EINDE -->\n<p>voet</p>\n</body>\n");
  EXPECT_EQ(blok.begin, 1);
  EXPECT_EQ(blok.einde, 3);
}

TEST_F(HerhaalBlokTest, TheLastCandidateOfEachKindWins) {
  const HerhaalBlok blok = Blok(
      "<!-- HERHAAL KIEKBORD = BEGIN -->\n<p>a</p>\n<!-- HERHAAL KIEKBORD = BEGIN -->\n<p>b</p>\n"
      "<!-- HERHAAL KIEKBORD = EINDE -->\n<p>c</p>\n<!-- HERHAAL KIEKBORD = EINDE -->\n");
  EXPECT_EQ(blok.begin, 3);
  EXPECT_EQ(blok.einde, 7);
}

TEST_F(HerhaalBlokTest, WithoutMarkersAndBodyBothStayZero) {
  const HerhaalBlok blok = Blok("<p>a</p>\n<p>b</p>\n");
  EXPECT_EQ(blok.begin, 0);
  EXPECT_EQ(blok.einde, 0);
}

TEST_F(HerhaalBlokTest, EveryLineIsTreatedOnTheWay) {
  Blok("<html>\n<head>\n<title>[KIEKBORDVELD=TITEL]</title>\n</head>\n<body>\n</body>\n</html>\n");
  EXPECT_EQ(sjabloon_.Line(3), "<title>Zee &amp; strand</title>");
  EXPECT_EQ(sjabloon_.Line(4),
            "<!-- Aangemaakt op zaterdag 21 november 2026 -->\r\n"
            "<!-- Aangemaakt met Kiekbord 4.1 Pro -->\r\n</head>");
}

// --- Writing the three parts ---------------------------------------------------

std::string Pagina(const std::string& sjabloon_tekst, int passen) {
  LineTable sjabloon(capaciteit::kTemplate);
  LeesSjabloonUitTekst(sjabloon_tekst, sjabloon);
  KopEnCredit kop{false, false, "", "", "", ""};
  PaginaRegels regels(kop, PaginaVelden{});
  BlokPagina pagina(sjabloon, BereidBlokSjabloonVoor(sjabloon, regels));
  pagina.SchrijfKop({{"FOTONAAM", "kop"}});
  for (int pas = 1; pas <= passen; ++pas)
    pagina.SchrijfBlok({{"FOTONAAM", "foto" + std::to_string(pas)}});
  pagina.SchrijfStaart({{"FOTONAAM", "staart"}});
  test::TempDir dir;
  pagina.Bewaar(dir / "pagina.html");
  return test::ReadBytes(dir / "pagina.html");
}

TEST(BlokPaginaTest, WritesHeadBlockPassesAndTail) {
  EXPECT_EQ(Pagina("<h1>[KIEKBORDVELD=FOTONAAM]</h1>\n<!-- HERHAAL KIEKBORD = BEGIN -->\n"
                   "<p>[KIEKBORDVELD=FOTONAAM]</p>\n<!-- HERHAAL KIEKBORD = EINDE -->\n"
                   "<p>[KIEKBORDVELD=FOTONAAM]</p>\n",
                   2),
            "<h1>kop</h1>\r\n<!-- HERHAAL KIEKBORD = BEGIN -->\r\n<p>foto1</p>\r\n<p>foto2</p>\r\n"
            "<!-- HERHAAL KIEKBORD = EINDE -->\r\n<p>staart</p>\r\n");
}

TEST(BlokPaginaTest, WithoutAnyBoundTheCountLineComesFirst) {
  EXPECT_EQ(Pagina("<p>a</p>\n<p>[KIEKBORDVELD=FOTONAAM]</p>\n", 3),
            "2\r\n<p>a</p>\r\n<p>staart</p>\r\n");
}

TEST(BlokPaginaTest, AnEndBeforeTheBeginWritesTheLinesBetweenTwice) {
  EXPECT_EQ(Pagina("<p>a</p>\n<!-- HERHAAL KIEKBORD = EINDE -->\n<p>b</p>\n"
                   "<!-- HERHAAL KIEKBORD = BEGIN -->\n<p>c</p>\n",
                   2),
            "<p>a</p>\r\n<!-- HERHAAL KIEKBORD = EINDE -->\r\n<p>b</p>\r\n"
            "<!-- HERHAAL KIEKBORD = BEGIN -->\r\n<!-- HERHAAL KIEKBORD = EINDE -->\r\n<p>b</p>\r\n"
            "<!-- HERHAAL KIEKBORD = BEGIN -->\r\n<p>c</p>\r\n");
}

TEST(BlokPaginaTest, AnUnwritablePageThrowsTheFileSystemError) {
  LineTable sjabloon(capaciteit::kTemplate);
  BlokPagina pagina(sjabloon, HerhaalBlok{});
  test::TempDir dir;
  try {
    pagina.Bewaar(dir / "bestaat-niet/pagina.html");
    FAIL() << "geen fout";
  } catch (const RunError& error) {
    EXPECT_EQ(error.number(), fout::kFileNotFound);
  }
}

}  // namespace
}  // namespace kiekbord
