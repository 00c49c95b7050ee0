// Paging and the navigation texts of the photo pages where the golden cases
// of page_writers_test.cpp do not reach.
#include "generator/photo_page_navigation.h"

#include <gtest/gtest.h>

#include <string>

#include "base/status.h"
#include "generator/photo_pages.h"

namespace kiekbord {
namespace {

TEST(FotosPerPaginaTest, TakesTheWholeNumberWithAtLeastOne) {
  const std::pair<const char*, int> gevallen[] = {{"4", 4},     {"1", 1},   {"0", 1},   {"", 1},
                                                  {"veel", 1},  {"-3", 1},  {"2.7", 2}, {"6 foto's", 6},
                                                  {"32767", 32767}};
  for (const auto& [tekst, aantal] : gevallen) EXPECT_EQ(FotosPerPagina(tekst), aantal) << tekst;
  EXPECT_THROW(FotosPerPagina("32768"), RunError);
}

SiteGegevens Gegevens(int aantal, const char* per_pagina, const char* sjabloon = "/s/kbfoto1m.html",
                      const char* ext = ".html") {
  SiteGegevens g;
  g.foto_namen.assign(static_cast<std::size_t>(aantal), "foto01.jpg");
  g.bijschriften.assign(static_cast<std::size_t>(aantal), "");
  g.fotos_per_pagina = per_pagina;
  g.foto_sjabloon = sjabloon;
  g.ext = ext;
  return g;
}

TEST(PagineringTest, SpreadsThePhotosOrPutsThemOnOneAutomaticPage) {
  struct Geval {
    SiteGegevens gegevens;
    int per_pagina;
    int paginas;
    bool een_pagina;
  };
  const Geval gevallen[] = {
      {Gegevens(10, "4"), 4, 3, false},
      {Gegevens(8, "4"), 4, 2, false},
      {Gegevens(3, "1", "/s/kbfoto1.html"), 1, 3, false},
      {Gegevens(3, "5"), 3, 1, false},
      {Gegevens(0, "1", "/s/kbfoto1.html"), 0, 1, false},
      {Gegevens(4, "1", "/s/kbfoto1a.html"), 1, 1, true},
      // "a.htm" is five characters: the last six never match it.
      {Gegevens(4, "1", "/s/kbfoto1a.htm", ".htm"), 1, 4, false},
      {Gegevens(4, "1", "/sa.html/kbfoto1.html"), 1, 4, false}};
  for (const Geval& geval : gevallen) {
    SCOPED_TRACE(geval.gegevens.foto_sjabloon + " " + std::to_string(geval.gegevens.AantalFotos()));
    const Paginering pag = PagineringVan(geval.gegevens);
    EXPECT_EQ(pag.per_pagina, geval.per_pagina);
    EXPECT_EQ(pag.paginas, geval.paginas);
    EXPECT_EQ(pag.een_pagina, geval.een_pagina);
  }
}

TEST(NavigatieTest, OptionLabelsCapitaliseOnlyTheFirstLetter) {
  NavigatieTeksten teksten;
  const SiteGegevens g = Gegevens(3, "2");
  teksten.link_direct_naar_pagina_tekst = "bLAD";
  EXPECT_NE(NavigatieVan(1, PagineringVan(g), teksten, g).keuzelijst.find(">Blad 1</option>"), std::string::npos);
  teksten.link_direct_naar_pagina_tekst = "é";
  EXPECT_NE(NavigatieVan(1, PagineringVan(g), teksten, g).keuzelijst.find(">É 1</option>"), std::string::npos);
}

TEST(NavigatieTest, ASinglePhotoOnTheSinglePageGetsNoSelect) {
  const SiteGegevens g = Gegevens(1, "1", "/s/kbfoto1a.html");
  const PaginaNavigatie nav = NavigatieVan(1, PagineringVan(g), NavigatieTeksten{}, g);
  EXPECT_EQ(nav.keuzelijst, "");
  EXPECT_EQ(nav.overzicht2, "");
}

TEST(FotoLijstenTest, NamesJoinedByDoubleDollarsCaptionsEscapedEachEndingInASpace) {
  EXPECT_EQ(FotoNamenLijst({"a.jpg", "b.jpg", "c.jpg"}), "a.jpg$$b.jpg$$c.jpg");
  EXPECT_EQ(BijschriftenLijst({"a", "", "'t Gooi"}), "a $$ $$\\'t Gooi ");
}

}  // namespace
}  // namespace kiekbord
