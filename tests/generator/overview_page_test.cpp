// The overview writer's rules on small inline templates; whole pages with
// real photos are in block_pages_golden_test.cpp.
#include "generator/overview_page.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "gallery/file_system.h"
#include "tests/generator/page_writer_fixture.h"
#include "tests/support/test_photos.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using Lines = std::vector<std::string>;

class OverzichtTest : public test::PaginaSchrijverTest {
 protected:
  OverzichtTest() {
    gegevens_.thumbnails = "1";
    gegevens_.fotos_per_pagina = "1";
    gegevens_.overzicht_sjabloon = dir_ / "sjabloon/kbovz.html";
  }
  void MetSjabloon(const std::string& tekst) {
    test::WriteBytes(gegevens_.overzicht_sjabloon, tekst);
  }
  void MetFotos(const Lines& bijschriften) {
    for (std::size_t i = 0; i < bijschriften.size(); ++i) {
      gegevens_.foto_namen.push_back("foto" + std::to_string(i + 1) + ".jpg");
      gegevens_.bijschriften.push_back(bijschriften[i]);
    }
  }
  std::int16_t Maak() {
    return Voer([this](SiteRun& run) { MaakOverzichtPagina(run, Kop()); });
  }
  std::string Pagina() const { return test::ReadBytes(Uit("kbovz.html")); }
};

TEST_F(OverzichtTest, ALineWithoutPlusPlusShowsItsPhotoAgainInTheNextPass) {
  MetSjabloon(
      "<!-- HERHAAL KIEKBORD = BEGIN -->\n<td>[KIEKBORDVELD=BIJSCHRIFT++]</td>\n"
      "<td>[KIEKBORDVELD=BIJSCHRIFT]</td>\n<!-- HERHAAL KIEKBORD = EINDE -->\n");
  MetFotos({"een", "twee", "drie"});
  ASSERT_EQ(Maak(), kGelukt);
  EXPECT_EQ(
      Pagina(),
      "<!-- HERHAAL KIEKBORD = BEGIN -->\r\n<td>een</td>\r\n<td>twee</td>\r\n<td>twee</td>\r\n"
      "<td>drie</td>\r\n<td>drie</td>\r\n<td></td>\r\n<!-- HERHAAL KIEKBORD = EINDE -->\r\n");
}

TEST_F(OverzichtTest, APassWithoutPlusPlusShowsOnePhoto) {
  MetSjabloon(
      "<!-- HERHAAL KIEKBORD = BEGIN -->\n<p>[KIEKBORDVELD=FOTONUMMER]: "
      "[KIEKBORDVELD=BIJSCHRIFT]</p>\n<hr>\n<!-- HERHAAL KIEKBORD = EINDE -->\n");
  MetFotos({"een", "twee"});
  ASSERT_EQ(Maak(), kGelukt);
  EXPECT_EQ(Pagina(),
            "<!-- HERHAAL KIEKBORD = BEGIN -->\r\n<p>1: een</p>\r\n<hr>\r\n"
            "<p>2: twee</p>\r\n<hr>\r\n<!-- HERHAAL KIEKBORD = EINDE -->\r\n");
}

TEST_F(OverzichtTest, PlusPlusCountsOnlyAfterTheFirstBracketOfAChangedLine) {
  // "++" before the field, and "++" in a field that matches nothing: no
  // line moves on, so each pass shows one photo.
  MetSjabloon(
      "<!-- HERHAAL KIEKBORD = BEGIN -->\n<p>++ [KIEKBORDVELD=BIJSCHRIFT]</p>\n"
      "<p>[KIEKBORDVELD=ONBEKEND++]</p>\n<!-- HERHAAL KIEKBORD = EINDE -->\n");
  MetFotos({"een", "twee"});
  ASSERT_EQ(Maak(), kGelukt);
  EXPECT_EQ(Pagina(),
            "<!-- HERHAAL KIEKBORD = BEGIN -->\r\n<p>++ een</p>\r\n"
            "<p>[KIEKBORDVELD=ONBEKEND++]</p>\r\n<p>++ twee</p>\r\n"
            "<p>[KIEKBORDVELD=ONBEKEND++]</p>\r\n<!-- HERHAAL KIEKBORD = EINDE -->\r\n");
}

TEST_F(OverzichtTest, TheHeadFillsOnlyTheFirstThumbnailsSize) {
  MetSjabloon(
      "<p>[KIEKBORDVELD=FOTOBREEDTE]x[KIEKBORDVELD=FOTOHOOGTE] [KIEKBORDVELD=FOTONAAM]</p>\n"
      "<!-- HERHAAL KIEKBORD = BEGIN -->\n<!-- HERHAAL KIEKBORD = EINDE -->\n");
  MetFotos({"een"});
  test::SchrijfProefFoto(Uit("foto1_tn.jpg"), 30, 20);
  ASSERT_EQ(Maak(), kGelukt);
  EXPECT_EQ(Pagina(),
            "<p>30x20 [KIEKBORDVELD=FOTONAAM]</p>\r\n<!-- HERHAAL KIEKBORD = BEGIN -->\r\n"
            "<!-- HERHAAL KIEKBORD = EINDE -->\r\n");
}

TEST_F(OverzichtTest, TheThumbnailNameReplacesOnlyLowerCaseJpg) {
  MetSjabloon("<body>\n[KIEKBORDVELD=LINKFOTO]\n</body>\n");
  gegevens_.foto_namen = {"IMG.JPG", "zee.jpg.jpg"};
  gegevens_.bijschriften = {"", ""};
  gegevens_.fotos_per_pagina = "0";
  test::SchrijfProefFoto(Uit("IMG.JPG"), 40, 30);
  ASSERT_EQ(Maak(), kGelukt);
  EXPECT_EQ(
      Pagina(),
      "<body>\r\n<a href=\"kb001.html#foto001\"><img src=\"IMG.JPG\" width=\"40\" height=\"30\" "
      "border=\"0\" alt=\"foto 1 van 2\"></a>\r\n<a href=\"kb002.html#foto002\">"
      "<img src=\"zee_tn.jpg_tn.jpg\" width=\"0\" height=\"0\" border=\"0\" alt=\"foto 2 van "
      "2\"></a>\r\n"
      "</body>\r\n");
}

TEST_F(OverzichtTest, WithoutPhotosOnlyHeadAndTailAreWritten) {
  MetSjabloon(
      "<p>[KIEKBORDVELD=AANTALFOTOS] foto's, eerste [KIEKBORDVELD=FOTOBREEDTE]</p>\n"
      "<body>\n<p>[KIEKBORDVELD=LINKFOTO]</p>\n</body>\n");
  ASSERT_EQ(Maak(), kGelukt);
  EXPECT_EQ(Pagina(), "<p>0 foto's, eerste 0</p>\r\n<body>\r\n</body>\r\n");
}

TEST_F(OverzichtTest, UnreadableTemplateStillWritesHeadAndTail) {
  MetSjabloon("<body>\n<p>x</p>\n</body>\n");
  MetFotos({"een"});
  test::GeweigerdeToegang fs;
  fs.lezen_geweigerd = gegevens_.overzicht_sjabloon;
  ScopedFileSystem scoped(fs);

  EXPECT_EQ(Maak(), kMislukt);
  // Head and tail of an empty template: the tail starts at the count slot,
  // which holds the read error.
  EXPECT_EQ(Pagina(), "%Error 70 Permission denied\r\n");
  EXPECT_EQ(log_, (Lines{"Inlezen sjabloon " + gegevens_.overzicht_sjabloon + "...",
                         "Fout bij inlezen sjabloon: %Error 70 Permission denied",
                         "Aanmaken overzichtspagina " + Uit("kbovz.html") + "...",
                         "Overzichtspagina " + Uit("kbovz.html") + " aangemaakt."}));
}

TEST_F(OverzichtTest, UnwritablePageEndsTheStepAndTheEarlierPageStays) {
  MetSjabloon("<body>\n<p>[KIEKBORDVELD=BIJSCHRIFT]</p>\n</body>\n");
  MetFotos({"een"});
  test::WriteBytes(Uit("kbovz.html"), "vorig overzicht");
  test::GeweigerdeToegang fs;
  fs.schrijven_geweigerd = gegevens_.uitvoer_dir;
  ScopedFileSystem scoped(fs);

  EXPECT_EQ(Maak(), kMislukt);
  EXPECT_EQ(log_, (Lines{"Inlezen sjabloon " + gegevens_.overzicht_sjabloon + "...",
                         "Sjabloon " + gegevens_.overzicht_sjabloon + " ingelezen.",
                         "Aanmaken overzichtspagina " + Uit("kbovz.html") + "...",
                         "70 Permission denied"}));
  EXPECT_EQ(Pagina(), "vorig overzicht");
}

TEST_F(OverzichtTest, ACaptionBeyondTheLimitsEndsTheStepWithoutAPage) {
  MetSjabloon("<body>\n<p>[KIEKBORDVELD=BIJSCHRIFT]</p>\n</body>\n");
  MetFotos({std::string(40000, 'x')});
  EXPECT_EQ(Maak(), kMislukt);
  EXPECT_EQ(log_.back(), "6 Overflow");
  EXPECT_FALSE(Fs().FileExists(Uit("kbovz.html")));
}

}  // namespace
}  // namespace kiekbord
