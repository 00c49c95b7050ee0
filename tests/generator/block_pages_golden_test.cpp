// Golden overview and photo pages made from real photos, and the links
// between them checked mechanically.
//
// Each case folder under tests/data holds the expected pages in verwacht/
// and any template of its own; the other templates come from
// tests/data/blok_sjablonen. The photos are made by the test: photo i is
// "fotoNN.jpg", 64 x 48 pixels when i is odd and 48 x 64 when even, with a
// thumbnail of half the size.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "generator/navigation_texts.h"
#include "generator/overview_page.h"
#include "generator/photo_pages.h"
#include "tests/generator/page_writer_fixture.h"
#include "tests/support/golden.h"
#include "tests/support/site_links.h"
#include "tests/support/test_photos.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using Lines = std::vector<std::string>;

struct SiteGeval {
  const char* map;
  int aantal_fotos;
  const char* per_pagina;
  const char* presentatie;
  const char* thumbnails;
  const char* foto_sjabloon;
  bool navigatie_uit_ini;  // blok_sjablonen/sjabloon.ini, else the defaults
  Lines bijschriften;      // empty: "Foto 1", "Foto 2", ...
  int ontbrekende_foto;    // not in the output directory; 0 for none
  Lines onvindbare_links;  // the links expected not to resolve
};

void PrintTo(const SiteGeval& geval, std::ostream* out) { *out << geval.map; }

std::string Nummer(int i) { return (i < 10 ? "0" : "") + std::to_string(i); }
std::string FotoNaam(int i) { return "foto" + Nummer(i) + ".jpg"; }
std::string ThumbnailNaam(int i) { return "foto" + Nummer(i) + "_tn.jpg"; }

class BlokPaginasGoldenTest : public test::PaginaSchrijverTest,
                              public ::testing::WithParamInterface<SiteGeval> {
 protected:
  static std::string Map() { return test::TestDataDir() + GetParam().map + "/"; }

  // The case's own template, or the shared one.
  static std::string Sjabloon(const std::string& naam) {
    const std::string eigen = Map() + naam;
    return std::filesystem::exists(eigen) ? eigen : test::TestDataDir() + "blok_sjablonen/" + naam;
  }

  void ZetGalerijKlaar() {
    const SiteGeval& geval = GetParam();
    gegevens_.titel = "Zomer aan zee";
    gegevens_.datum = "juli 2026";
    gegevens_.beschrijving = "Wind & zon.<br>Veel schelpen.";
    gegevens_.positie_fotos = "1";
    gegevens_.fotos_per_pagina = geval.per_pagina;
    gegevens_.presentatie = geval.presentatie;
    gegevens_.thumbnails = geval.thumbnails;
    gegevens_.overzicht_sjabloon = Sjabloon("kbovz.html");
    gegevens_.foto_sjabloon = Sjabloon(geval.foto_sjabloon);
    for (int i = 1; i <= geval.aantal_fotos; ++i) {
      gegevens_.foto_namen.push_back(FotoNaam(i));
      gegevens_.bijschriften.push_back(geval.bijschriften.empty()
                                           ? "Foto " + std::to_string(i)
                                           : geval.bijschriften[static_cast<std::size_t>(i - 1)]);
      if (i == geval.ontbrekende_foto) continue;
      const bool liggend = i % 2 == 1;
      test::SchrijfProefFoto(Uit(FotoNaam(i)), liggend ? 64 : 48, liggend ? 48 : 64, i);
      test::SchrijfProefFoto(Uit(ThumbnailNaam(i)), liggend ? 32 : 24, liggend ? 24 : 32, i);
    }
    // The title page the home links lead to.
    test::WriteBytes(Uit("index.html"),
                     "<html><body><a href=\"kb001.html\">Kiekbord</a></body></html>");
  }

  // Writes the overview (when it is on) and the photo pages as the run does.
  std::int16_t MaakPaginas() {
    NavigatieTeksten navigatie;
    if (GetParam().navigatie_uit_ini) {
      LeesNavigatieTeksten(test::TestDataDir() + "blok_sjablonen/sjabloon.ini", navigatie);
    }
    log_.clear();
    SiteRun run{settings_, gegevens_, navigatie, kGelukt, {}};
    if (gegevens_.OverzichtAan()) MaakOverzichtPagina(run, Kop());
    if (run.failed == kGelukt) MaakFotoPaginas(run, Kop());
    return run.failed;
  }

  static Lines Paginas(const std::string& map) {
    Lines namen;
    for (const auto& entry : std::filesystem::directory_iterator(map)) {
      const std::string naam = entry.path().filename().string();
      if (naam.starts_with("kb") && naam.ends_with(".html")) namen.push_back(naam);
    }
    std::sort(namen.begin(), namen.end());
    return namen;
  }

  // The log of the two writers for the expected pages.
  Lines VerwachtLog(const Lines& paginas) const {
    Lines log;
    const auto inlezen = [&](const std::string& sjabloon) {
      log.push_back("Inlezen sjabloon " + sjabloon + "...");
      log.push_back("Sjabloon " + sjabloon + " ingelezen.");
    };
    if (gegevens_.OverzichtAan()) {
      inlezen(gegevens_.overzicht_sjabloon);
      log.push_back("Aanmaken overzichtspagina " + Uit("kbovz.html") + "...");
      log.push_back("Overzichtspagina " + Uit("kbovz.html") + " aangemaakt.");
    }
    inlezen(gegevens_.foto_sjabloon);
    int fotopaginas = 0;
    for (const std::string& pagina : paginas) {
      if (pagina == "kbovz.html") continue;
      log.push_back("Aanmaken fotopagina " + Uit(pagina) + "...");
      ++fotopaginas;
    }
    log.push_back(std::to_string(fotopaginas) + " fotopagina's aangemaakt.");
    return log;
  }
};

TEST_P(BlokPaginasGoldenTest, WritesTheExpectedPagesWhoseLinksResolve) {
  ZetGalerijKlaar();
  ASSERT_EQ(MaakPaginas(), kGelukt) << ::testing::PrintToString(log_);

  const Lines verwacht = Paginas(Map() + "verwacht/");
  ASSERT_FALSE(verwacht.empty());
  EXPECT_EQ(Paginas(gegevens_.uitvoer_dir), verwacht);
  for (const std::string& pagina : verwacht) {
    EXPECT_TRUE(test::GelijkAanGolden(Map() + "verwacht/" + pagina, Uit(pagina)));
  }
  EXPECT_EQ(log_, VerwachtLog(verwacht));
  EXPECT_EQ(test::OnvindbareLinks(gegevens_.uitvoer_dir), GetParam().onvindbare_links);
}

INSTANTIATE_TEST_SUITE_P(
    Gevallen, BlokPaginasGoldenTest,
    ::testing::Values(
        // Photo 5 links to "kb002.html#foto005", photo 9 to page 3; page 2
        // links back to 1 and on to 3; photo 8 leads to "kb003.html#foto009".
        SiteGeval{"blok_tien_per_vier", 10, "4", "0", "1", "kbfoto1m.html", true, {}, 0, {}},
        // Every photo its own page; titles and labels say "foto".
        SiteGeval{"blok_een_per_pagina", 3, "1", "0", "1", "kbfoto1.html", true, {}, 0, {}},
        // Photos per page above the photo count: one page, no page navigation.
        SiteGeval{"blok_alles_op_een", 3, "5", "0", "1", "kbfoto1m.html", false, {}, 0, {}},
        // A block of three photo lines with "++" and 7 photos: 1-3, 4-6, 7
        // and two empty cells.
        SiteGeval{"blok_drie_cellen", 7, "9", "0", "1", "kbfoto1m.html", false, {}, 0, {}},
        // Without markers the body is the block.
        SiteGeval{"blok_body", 3, "2", "0", "1", "kbfoto1m.html", false, {}, 0, {}},
        // Without markers and body tags: no head, no block, the line count
        // first.
        SiteGeval{"blok_geen", 2, "1", "0", "1", "kbfoto1.html", false, {}, 0, {}},
        // Photo 2 is not in the output directory, nor its thumbnail.
        SiteGeval{"blok_foto_ontbreekt",
                  3,
                  "2",
                  "0",
                  "1",
                  "kbfoto1m.html",
                  false,
                  {},
                  2,
                  {"kb001.html: foto02.jpg", "kbovz.html: foto02_tn.jpg"}},
        // Without an overview the second overview link is the page select.
        SiteGeval{"blok_zonder_overzicht", 5, "2", "0", "0", "kbfoto1m.html", true, {}, 0, {}},
        // The automatic presentation without overview: one page whose second
        // overview link is the photo select.
        SiteGeval{"blok_diavoorstelling", 4, "1", "1", "0", "kbfoto1a.html", false, {}, 0, {}},
        // Captions escaped on the pages, and raw with "\'" in the caption
        // list of the single page. The overview links every photo to page
        // 1, whose script shows it: only photo 1 has its anchor there.
        SiteGeval{
            "blok_bijschriften",
            4,
            "1",
            "1",
            "1",
            "kbfoto1a.html",
            false,
            {"Jan's \"fiets\"", "Tom & Jerry <3", "C:\\map\\\\& \\<i\\>", "Café Zoë à la crème"},
            0,
            {"kbovz.html: kb001.html#foto002", "kbovz.html: kb001.html#foto003",
             "kbovz.html: kb001.html#foto004"}}),
    [](const auto& info) { return std::string(info.param.map); });

}  // namespace
}  // namespace kiekbord
