// The photo page writer's rules on small inline templates; whole pages with
// real photos are in block_pages_golden_test.cpp.
#include "generator/photo_pages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "gallery/file_system.h"
#include "tests/generator/page_writer_fixture.h"
#include "tests/support/test_photos.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using Lines = std::vector<std::string>;

TEST(FotoLijstenTest, NamesAreJoinedByDoubleDollars) {
  EXPECT_EQ(FotoNamenLijst({"a.jpg", "b.jpg", "c.jpg"}), "a.jpg$$b.jpg$$c.jpg");
  EXPECT_EQ(FotoNamenLijst({}), "");
}

TEST(FotoLijstenTest, CaptionsEscapeTheApostropheAndEndInASpace) {
  EXPECT_EQ(BijschriftenLijst({"Jan's fiets"}), "Jan\\'s fiets ");
  EXPECT_EQ(BijschriftenLijst({"a", "", "'t Gooi"}), "a $$ $$\\'t Gooi ");
}

class FotoPaginasTest : public test::PaginaSchrijverTest {
 protected:
  FotoPaginasTest() {
    gegevens_.fotos_per_pagina = "2";
    gegevens_.foto_sjabloon = dir_ / "sjabloon/kbfoto1m.html";
  }
  void MetSjabloon(const std::string& tekst) { test::WriteBytes(gegevens_.foto_sjabloon, tekst); }
  void MetFotos(int aantal) {
    for (int i = 1; i <= aantal; ++i) {
      gegevens_.foto_namen.push_back("foto" + std::to_string(i) + ".jpg");
      gegevens_.bijschriften.push_back("Foto " + std::to_string(i));
    }
  }
  std::int16_t Maak() {
    return Voer([this](SiteRun& run) { MaakFotoPaginas(run, Kop()); });
  }
  Lines Paginas() const {
    Lines namen;
    for (const auto& entry : std::filesystem::directory_iterator(gegevens_.uitvoer_dir)) {
      namen.push_back(entry.path().filename().string());
    }
    std::sort(namen.begin(), namen.end());
    return namen;
  }
};

TEST_F(FotoPaginasTest, HeadAndTailShowTheSizeOfThePagesFirstPhoto) {
  MetSjabloon(
      "<p>[KIEKBORDVELD=FOTOBREEDTE]x[KIEKBORDVELD=FOTOHOOGTE]</p>\n"
      "<!-- HERHAAL KIEKBORD = BEGIN -->\n<p>[KIEKBORDVELD=FOTONAAM]</p>\n"
      "<!-- HERHAAL KIEKBORD = EINDE -->\n<p>[KIEKBORDVELD=FOTOBREEDTE]</p>\n");
  MetFotos(3);
  test::SchrijfProefFoto(Uit("foto1.jpg"), 40, 30);
  test::SchrijfProefFoto(Uit("foto2.jpg"), 50, 20);
  test::SchrijfProefFoto(Uit("foto3.jpg"), 16, 24);
  ASSERT_EQ(Maak(), kGelukt);
  EXPECT_EQ(test::ReadBytes(Uit("kb001.html")),
            "<p>40x30</p>\r\n<!-- HERHAAL KIEKBORD = BEGIN -->\r\n<p>foto1.jpg</p>\r\n"
            "<p>foto2.jpg</p>\r\n<!-- HERHAAL KIEKBORD = EINDE -->\r\n<p>40</p>\r\n");
  EXPECT_EQ(test::ReadBytes(Uit("kb002.html")),
            "<p>16x24</p>\r\n<!-- HERHAAL KIEKBORD = BEGIN -->\r\n<p>foto3.jpg</p>\r\n"
            "<!-- HERHAAL KIEKBORD = EINDE -->\r\n<p>16</p>\r\n");
}

TEST_F(FotoPaginasTest, APhotoThatIsNoJpegGetsSizeZero) {
  MetSjabloon("<body>\n[KIEKBORDVELD=FOTO]\n</body>\n");
  MetFotos(1);
  test::WriteBytes(Uit("foto1.jpg"), "geen jpeg");
  ASSERT_EQ(Maak(), kGelukt);
  EXPECT_EQ(
      test::ReadBytes(Uit("kb001.html")),
      "<body>\r\n<img name=\"img001\" id=\"img001\" src=\"foto1.jpg\" width=\"0\" height=\"0\" "
      "alt=\"foto 1 van 1\">\r\n</body>\r\n");
}

TEST_F(FotoPaginasTest, TheDescriptionIsNoFieldOfThePhotoPages) {
  MetSjabloon("<body>\n<p>[KIEKBORDVELD=BESCHRIJVING] [KIEKBORDVELD=SUBTITEL]</p>\n</body>\n");
  gegevens_.titel = "Titel";
  gegevens_.beschrijving = "Beschrijving";
  MetFotos(1);
  ASSERT_EQ(Maak(), kGelukt);
  EXPECT_EQ(test::ReadBytes(Uit("kb001.html")),
            "<body>\r\n<p>[KIEKBORDVELD=BESCHRIJVING] Titel</p>\r\n</body>\r\n");
}

TEST_F(FotoPaginasTest, WithoutPhotosNoPageIsWritten) {
  MetSjabloon("<body>\n<p>[KIEKBORDVELD=FOTO]</p>\n</body>\n");
  ASSERT_EQ(Maak(), kGelukt);
  EXPECT_EQ(log_, (Lines{"Inlezen sjabloon " + gegevens_.foto_sjabloon + "...",
                         "Sjabloon " + gegevens_.foto_sjabloon + " ingelezen.",
                         "1 fotopagina's aangemaakt."}));
  EXPECT_EQ(Paginas(), Lines{});
}

TEST_F(FotoPaginasTest, UnreadableTemplateWritesNoPageButLogsTheCount) {
  MetSjabloon("<body>\n</body>\n");
  MetFotos(5);
  test::GeweigerdeToegang fs;
  fs.lezen_geweigerd = gegevens_.foto_sjabloon;
  ScopedFileSystem scoped(fs);

  EXPECT_EQ(Maak(), kMislukt);
  EXPECT_EQ(log_, (Lines{"Inlezen sjabloon " + gegevens_.foto_sjabloon + "...",
                         "Fout bij inlezen sjabloon: %Error 70 Permission denied",
                         "3 fotopagina's aangemaakt."}));
  EXPECT_EQ(Paginas(), Lines{});
}

TEST_F(FotoPaginasTest, AnUnwritablePageEndsTheStep) {
  MetSjabloon("<body>\n<p>[KIEKBORDVELD=FOTONAAM]</p>\n</body>\n");
  MetFotos(5);
  test::GeweigerdeToegang fs;
  fs.schrijven_geweigerd = Uit("kb002.html");
  ScopedFileSystem scoped(fs);

  EXPECT_EQ(Maak(), kMislukt);
  EXPECT_EQ(log_,
            (Lines{"Inlezen sjabloon " + gegevens_.foto_sjabloon + "...",
                   "Sjabloon " + gegevens_.foto_sjabloon + " ingelezen.",
                   "Aanmaken fotopagina " + Uit("kb001.html") + "...",
                   "Aanmaken fotopagina " + Uit("kb002.html") + "...", "70 Permission denied"}));
  EXPECT_EQ(Paginas(), Lines{"kb001.html"});
}

TEST_F(FotoPaginasTest, ListsBeyondTheLimitsEndTheStep) {
  MetSjabloon("<body>\n<p>[KIEKBORDVELD=FOTOBIJSCHRIFTENLIJST]</p>\n</body>\n");
  MetFotos(2);
  gegevens_.bijschriften[1] = std::string(33000, 'x');
  EXPECT_EQ(Maak(), kMislukt);
  EXPECT_EQ(log_.back(), "6 Overflow");
  EXPECT_EQ(Paginas(), Lines{});
}

TEST_F(FotoPaginasTest, ManyPhotosOnManyPagesWithBodyTagsOnly) {
  MetSjabloon(
      "<body>\n<p>[KIEKBORDVELD=FOTONUMMER] [KIEKBORDVELD=LINKVOLGENDEFOTO]</p>\n</body>\n");
  MetFotos(512);
  gegevens_.fotos_per_pagina = "7";
  ASSERT_EQ(Maak(), kGelukt);
  EXPECT_EQ(Paginas().size(), 74u);
  EXPECT_EQ(log_.back(), "74 fotopagina's aangemaakt.");
  EXPECT_EQ(test::ReadBytes(Uit("kb074.html")), "<body>\r\n<p>512 </p>\r\n</body>\r\n");
  EXPECT_NE(test::ReadBytes(Uit("kb073.html"))
                .find("<p>511 <a href=\"kb074.html#foto512\" title=\"volgende "
                      "foto\">&raquo;&raquo;</a></p>"),
            std::string::npos);
}

}  // namespace
}  // namespace kiekbord
