// The shared line handling of the page writers, where the golden pages of
// page_writers_test.cpp do not reach.
#include "generator/page_lines.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "base/status.h"
#include "tests/generator/page_writer_fixture.h"

namespace kiekbord {
namespace {

using Lines = std::vector<std::string>;

std::string Gevuld(std::string line, const PaginaVelden& velden) {
  VulPaginaVelden(line, velden);
  return line;
}

TEST(PaginaVeldenTest, OwnFieldsAreFilledInTheirOrderBeforeThePosition) {
  PaginaVelden velden;
  velden.positie_fotos = "right";
  velden.eigen_velden = {{"LINKHOME", "[KIEKBORDVELD=LINKOVERZICHT]"}, {"LINKOVERZICHT", "&raquo;"},
                         {"FOTO", "[KIEKBORDVELD=POSITIEFOTOS]"}};
  EXPECT_EQ(Gevuld("[KIEKBORDVELD=LINKHOME] [KIEKBORDVELD=FOTO] [KIEKBORDVELD=SUBTITEL]", velden),
            "&raquo; right ");
}

TEST(PaginaVeldenTest, EmptySubtitleHeadingBecomesACommentOnlyWhenAsked) {
  PaginaVelden velden;
  EXPECT_EQ(Gevuld("<h2>[KIEKBORDVELD=SUBTITEL]</h2>", velden), "<h2></h2>");
  velden.lege_subtitel_als_commentaar = true;
  EXPECT_EQ(Gevuld("<h2>[KIEKBORDVELD=SUBTITEL]</h2>", velden), "<!-- Geen subtitel -->");
}

TEST(PaginaVeldenTest, ABlankSubtitleFallsBackToTheTitle) {
  SiteGegevens g;
  g.titel = "Kust";
  g.subtitel = "   ";
  EXPECT_EQ(SubtitelOfTitel(g), "Kust");
}

TEST(PaginaVeldenTest, PositionIsAPieceOfLeftCenterRight) {
  const std::pair<const char*, const char*> gevallen[] = {
      {"0", "left"}, {"1", "center"}, {"2", "right"}, {"3", ";"}, {"-1", "left"}, {"x", "left"}, {"1.4", "center"}};
  for (const auto& [positie, tekst] : gevallen) EXPECT_EQ(PositieTekst(positie), tekst) << positie;
  try {
    PositieTekst("40000");
    FAIL() << "geen fout";
  } catch (const RunError& error) {
    EXPECT_EQ(error.number(), fout::kOverflow);
  }
}

class PaginaRegelsTest : public test::PaginaSchrijverTest {};

TEST_F(PaginaRegelsTest, TheCreditMarkerMustStartTheLine) {
  PaginaRegels regels(Kop(), PaginaVelden{});
  regels.MetCreditRegel(gegevens_.uitvoer_dir, "left");
  for (std::string line : {"<p><!--LINKICON--></p>", " </body>", "</body >"}) {
    const std::string voor = line;
    regels.VerwerkRegel(line);
    EXPECT_EQ(line, voor);
  }
}

TEST_F(PaginaRegelsTest, StepBoundaryLogsNumberAndDescription) {
  SiteRun run{settings_, gegevens_, run_log_, melder_, NavigatieTeksten{}, kGelukt, {}};
  BinnenStapgrens(run, [] { throw RunError(fout::kDiskFull); });
  EXPECT_EQ(run.failed, kMislukt);
  // Any other failure gets the program's own number.
  BinnenStapgrens(run, [] { throw std::runtime_error("kapot"); });
  EXPECT_EQ(log_, (Lines{"61 Disk full", "26002 kapot"}));
}

}  // namespace
}  // namespace kiekbord
