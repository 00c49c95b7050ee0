#include "generator/page_lines.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "gallery/status.h"
#include "tests/generator/page_writer_fixture.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using Lines = std::vector<std::string>;

// --- Fields ----------------------------------------------------------------------

PaginaVelden ProefVelden() {
  PaginaVelden velden;
  velden.aantal_fotos = "12";
  velden.titel = "Zee & zon";
  velden.subtitel = "";
  velden.datum = "mei";
  velden.beschrijving = "a<br>b";
  velden.kleuren = {"000000", "FFFFFF", "111111", "CCCCCC"};
  velden.positie_fotos = "right";
  return velden;
}

std::string Gevuld(std::string line, const PaginaVelden& velden) {
  VulPaginaVelden(line, velden);
  return line;
}

TEST(PaginaVeldenTest, FillsTheCommonFields) {
  EXPECT_EQ(Gevuld("[KIEKBORDVELD=AANTALFOTOS]|[KIEKBORDVELD=TITEL]|[KIEKBORDVELD=DATUM]|"
                   "[KIEKBORDVELD=BESCHRIJVING]|[KIEKBORDVELD=KLEURTEKSTOPACHTERGROND]|"
                   "[KIEKBORDVELD=KLEURACHTERGROND]|[KIEKBORDVELD=KLEURTEKSTINKADER]|"
                   "[KIEKBORDVELD=KLEURKADER]|[KIEKBORDVELD=KLEURTEKST]|"
                   "[KIEKBORDVELD=POSITIEFOTOS]",
                   ProefVelden()),
            "12|Zee &amp; zon|mei|a<br>b|000000|FFFFFF|111111|CCCCCC|000000|right");
}

TEST(PaginaVeldenTest, OwnFieldsComeBeforeThePosition) {
  PaginaVelden velden = ProefVelden();
  velden.eigen_velden = {{"LINKHOME", "<a href=\"index.html\">Home</a>"}, {"LINKOVERZICHT", ""}};
  EXPECT_EQ(Gevuld("[KIEKBORDVELD=LINKHOME][KIEKBORDVELD=LINKOVERZICHT] [KIEKBORDVELD=FOTO]",
                   velden),
            "<a href=\"index.html\">Home</a> [KIEKBORDVELD=FOTO]");
  // Own fields are filled in the order given.
  velden.eigen_velden = {{"LINKHOME", "[KIEKBORDVELD=LINKOVERZICHT]"}, {"LINKOVERZICHT", "&raquo;"}};
  EXPECT_EQ(Gevuld("[KIEKBORDVELD=LINKHOME]", velden), "&raquo;");
}

TEST(PaginaVeldenTest, EmptySubtitleHeadingBecomesACommentOnlyWhenAsked) {
  PaginaVelden velden = ProefVelden();
  EXPECT_EQ(Gevuld("<h2>[KIEKBORDVELD=SUBTITEL]</h2>", velden), "<h2></h2>");
  velden.lege_subtitel_als_commentaar = true;
  EXPECT_EQ(Gevuld("<h2>[KIEKBORDVELD=SUBTITEL]</h2>", velden), "<!-- Geen subtitel -->");
}

TEST(PaginaVeldenTest, WithoutADescriptionTheFieldStays) {
  PaginaVelden velden = ProefVelden();
  velden.beschrijving.reset();
  EXPECT_EQ(Gevuld("[KIEKBORDVELD=BESCHRIJVING]", velden), "[KIEKBORDVELD=BESCHRIJVING]");
}

TEST(PaginaVeldenTest, SubtitleFallsBackToTheTitle) {
  SiteGegevens g;
  g.titel = "Kust";
  g.subtitel = "   ";
  EXPECT_EQ(SubtitelOfTitel(g), "Kust");
  g.subtitel = "Noord";
  EXPECT_EQ(SubtitelOfTitel(g), "Noord");
}

TEST(PaginaVeldenTest, RunValuesFillTheCommonFields) {
  SiteGegevens g;
  g.titel = "T";
  g.subtitel = "S";
  g.foto_namen = {"a12345.jpg", "b12345.jpg"};
  g.positie_fotos = "1";
  const PaginaVelden velden = PaginaVeldenVan(g);
  EXPECT_EQ(velden.aantal_fotos, "2");
  EXPECT_EQ(velden.subtitel, "S");
  EXPECT_EQ(velden.positie_fotos, "center");
  EXPECT_TRUE(velden.eigen_velden.empty());
  EXPECT_FALSE(velden.lege_subtitel_als_commentaar);
}

struct PositieGeval {
  const char* positie;
  const char* tekst;
};

class PositieTekstTest : public ::testing::TestWithParam<PositieGeval> {};

TEST_P(PositieTekstTest, PieceOfLeftCenterRight) {
  EXPECT_EQ(PositieTekst(GetParam().positie), GetParam().tekst);
}

INSTANTIATE_TEST_SUITE_P(Gevallen, PositieTekstTest,
                         ::testing::Values(PositieGeval{"0", "left"}, PositieGeval{"1", "center"},
                                           PositieGeval{"2", "right"}, PositieGeval{"3", ";"},
                                           PositieGeval{"-1", "left"}, PositieGeval{"x", "left"},
                                           PositieGeval{"1.4", "center"}));

TEST(PositieTekstTest, BeyondSixteenBitsOverflows) {
  try {
    PositieTekst("40000");
    FAIL() << "geen fout";
  } catch (const RunError& error) {
    EXPECT_EQ(error.number(), fout::kOverflow);
  }
}

// --- Line treatment --------------------------------------------------------------

class PaginaRegelsTest : public test::PaginaSchrijverTest {
 protected:
  Lines Verwerkt(PaginaRegels& regels, const Lines& invoer) {
    LineTable table(capaciteit::kTemplate);
    for (const std::string& line : invoer) table.Append(line);
    regels.VerwerkAlle(table);
    Lines uit;
    for (int i = 1; i <= table.Count(); ++i) uit.push_back(table.Line(i));
    return uit;
  }
};

TEST_F(PaginaRegelsTest, OtherPagesGetTheHeadBlockWithoutTextsAndNoCreditLine) {
  const KopEnCredit kop = Kop();
  PaginaRegels regels(kop, ProefVelden());
  const Lines uit = Verwerkt(regels, {"<head>", "</head>", "<body>", "<p>[KIEKBORDVELD=TITEL]</p>",
                                      "</body>"});
  EXPECT_EQ(uit, (Lines{"<head>",
                        "<meta name=\"robots\" content=\"noindex,nofollow\">\r\n"
                        "<!-- Aangemaakt op zaterdag 21 november 2026 -->\r\n"
                        "<!-- Aangemaakt met Kiekbord 4.1 Pro -->\r\n</head>",
                        "<body>", "<p>Zee &amp; zon</p>", "</body>"}));
  EXPECT_FALSE(std::filesystem::exists(Uit("kbicon.gif")));
}

TEST_F(PaginaRegelsTest, CreditLineGoesToTheFirstPlaceOnly) {
  const KopEnCredit kop = Kop();
  PaginaRegels regels(kop, ProefVelden());
  regels.MetCreditRegel(gegevens_.uitvoer_dir, "left");
  const Lines uit = Verwerkt(regels, {"<body>", "</BODY>", "<!--LINKICON-->", "</body>"});
  ASSERT_EQ(uit.size(), 4u);
  EXPECT_TRUE(uit[1].ends_with("</table>\r\n</BODY>")) << uit[1];
  EXPECT_EQ(uit[2], "<!--LINKICON-->");
  EXPECT_EQ(uit[3], "</body>");
}

TEST_F(PaginaRegelsTest, MarkerMustStartTheLine) {
  const KopEnCredit kop = Kop();
  PaginaRegels regels(kop, ProefVelden());
  regels.MetCreditRegel(gegevens_.uitvoer_dir, "left");
  const Lines uit = Verwerkt(regels, {"<p><!--LINKICON--></p>", " </body>", "</body >"});
  EXPECT_EQ(uit, (Lines{"<p><!--LINKICON--></p>", " </body>", "</body >"}));
}

// --- Reading, writing and the step boundary --------------------------------------

TEST_F(PaginaRegelsTest, WritingWithoutASuccessLine) {
  LineTable table(capaciteit::kTemplate);
  table.Append("<p>a</p>");
  SiteRun run{settings_, gegevens_, NavigatieTeksten{}, kGelukt, {}};
  EXPECT_TRUE(SchrijfPaginaGelogd(Uit("kb001.html"), table,
                                  {"Aanmaken fotopagina ", "Fout bij aanmaken fotopagina: ", ""},
                                  run));
  EXPECT_EQ(log_, Lines{"Aanmaken fotopagina " + Uit("kb001.html") + "..."});
  EXPECT_EQ(test::ReadBytes(Uit("kb001.html")), "<p>a</p>\r\n");
  EXPECT_EQ(run.failed, kGelukt);
}

TEST_F(PaginaRegelsTest, StepBoundaryLogsNumberAndDescription) {
  SiteRun run{settings_, gegevens_, NavigatieTeksten{}, kGelukt, {}};
  BinnenStapgrens(run, [] { throw RunError(fout::kDiskFull); });
  EXPECT_EQ(run.failed, kMislukt);
  BinnenStapgrens(run, [] { throw std::runtime_error("kapot"); });
  EXPECT_EQ(log_, (Lines{"61 Disk full", "26002 kapot"}));
}

TEST_F(PaginaRegelsTest, StepBoundaryLeavesASuccessfulStepAlone) {
  SiteRun run{settings_, gegevens_, NavigatieTeksten{}, kGelukt, {}};
  bool gedaan = false;
  BinnenStapgrens(run, [&] { gedaan = true; });
  EXPECT_TRUE(gedaan);
  EXPECT_EQ(run.failed, kGelukt);
  EXPECT_TRUE(log_.empty());
}

}  // namespace
}  // namespace kiekbord
