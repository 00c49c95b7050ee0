#include "generator/photo_page_navigation.h"

#include <gtest/gtest.h>

#include <string>

#include "gallery/status.h"
#include "generator/overview_page.h"

namespace kiekbord {
namespace {

// --- Photos per page and paging ------------------------------------------------

struct PerPaginaGeval {
  const char* tekst;
  int verwacht;
};

class FotosPerPaginaTest : public ::testing::TestWithParam<PerPaginaGeval> {};

TEST_P(FotosPerPaginaTest, TakesTheWholeNumberWithAtLeastOne) {
  EXPECT_EQ(FotosPerPagina(GetParam().tekst), GetParam().verwacht) << GetParam().tekst;
}

INSTANTIATE_TEST_SUITE_P(Teksten, FotosPerPaginaTest,
                         ::testing::Values(PerPaginaGeval{"4", 4}, PerPaginaGeval{"1", 1},
                                           PerPaginaGeval{"0", 1}, PerPaginaGeval{"", 1},
                                           PerPaginaGeval{"veel", 1}, PerPaginaGeval{"-3", 1},
                                           PerPaginaGeval{"2.7", 2}, PerPaginaGeval{"6 foto's", 6},
                                           PerPaginaGeval{"32767", 32767}));

TEST(FotosPerPaginaTest, BeyondSixteenBitsIsAnOverflow) {
  try {
    FotosPerPagina("32768");
    FAIL() << "geen fout";
  } catch (const RunError& error) {
    EXPECT_EQ(error.number(), fout::kOverflow);
  }
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

struct PagineringGeval {
  const char* naam;
  int aantal;
  const char* per_pagina;
  const char* sjabloon;
  const char* ext;
  int verwacht_per_pagina;
  int verwacht_paginas;
  bool verwacht_een_pagina;
};

void PrintTo(const PagineringGeval& geval, std::ostream* out) { *out << geval.naam; }

class PagineringTest : public ::testing::TestWithParam<PagineringGeval> {};

TEST_P(PagineringTest, SpreadsThePhotos) {
  const PagineringGeval& geval = GetParam();
  const Paginering pag =
      PagineringVan(Gegevens(geval.aantal, geval.per_pagina, geval.sjabloon, geval.ext));
  EXPECT_EQ(pag.per_pagina, geval.verwacht_per_pagina);
  EXPECT_EQ(pag.paginas, geval.verwacht_paginas);
  EXPECT_EQ(pag.een_pagina, geval.verwacht_een_pagina);
}

INSTANTIATE_TEST_SUITE_P(
    Gevallen, PagineringTest,
    ::testing::Values(
        PagineringGeval{"tien_per_vier", 10, "4", "/s/kbfoto1m.html", ".html", 4, 3, false},
        PagineringGeval{"precies_vol", 8, "4", "/s/kbfoto1m.html", ".html", 4, 2, false},
        PagineringGeval{"een_per_pagina", 3, "1", "/s/kbfoto1.html", ".html", 1, 3, false},
        PagineringGeval{"meer_per_pagina_dan_fotos", 3, "5", "/s/kbfoto1m.html", ".html", 3, 1,
                        false},
        PagineringGeval{"geen_fotos", 0, "1", "/s/kbfoto1.html", ".html", 0, 1, false},
        PagineringGeval{"diavoorstelling", 4, "1", "/s/kbfoto1a.html", ".html", 1, 1, true},
        // "a.htm" is five characters: the last six never match it.
        PagineringGeval{"diavoorstelling_htm", 4, "1", "/s/kbfoto1a.htm", ".htm", 1, 4, false},
        PagineringGeval{"a_midden_in_pad", 4, "1", "/sa.html/kbfoto1.html", ".html", 1, 4, false}),
    [](const auto& info) { return std::string(info.param.naam); });

TEST(OverzichtPaginaTest, LinksEachPhotoToThePageThatShowsIt) {
  SiteGegevens g = Gegevens(10, "4");
  EXPECT_EQ(OverzichtPaginaVan(1, g), 1);
  EXPECT_EQ(OverzichtPaginaVan(4, g), 1);
  EXPECT_EQ(OverzichtPaginaVan(5, g), 2);
  EXPECT_EQ(OverzichtPaginaVan(9, g), 3);
  g.fotos_per_pagina = "0";
  EXPECT_EQ(OverzichtPaginaVan(7, g), 7);
  g.presentatie = "1";
  EXPECT_EQ(OverzichtPaginaVan(9, g), 1);
}

// --- Navigation texts ------------------------------------------------------------

class NavigatieTest : public ::testing::Test {
 protected:
  PaginaNavigatie Nav(int pagina, const SiteGegevens& g) {
    return NavigatieVan(pagina, PagineringVan(g), teksten_, g);
  }
  NavigatieTeksten teksten_;
};

TEST_F(NavigatieTest, TitlesNameTheTargetPageAndThePageCount) {
  teksten_.link_vorige_pagina_title = "vorige pagina (#1 van #2)";
  teksten_.link_volgende_pagina_title = "naar \"pagina\" #";
  const PaginaNavigatie nav = Nav(3, Gegevens(10, "2"));
  EXPECT_EQ(nav.vorige,
            "<a href=\"kb002.html\" title=\"vorige pagina (2 van 5)\" class=\"tekst\">"
            "&laquo;&laquo;&nbsp;Vorige</a>");
  EXPECT_EQ(nav.volgende,
            "<a href=\"kb004.html\" title=\"naar 'pagina' 4\" class=\"tekst\">"
            "Volgende&nbsp;&raquo;&raquo;</a>");
}

TEST_F(NavigatieTest, OnePhotoPerPageSaysFoto) {
  teksten_.link_vorige_pagina_title = "vorige pagina (#1 van #2)";
  teksten_.link_direct_naar_pagina_tekst = "PAGINA";
  teksten_.link_vorige_pagina_class.clear();
  const PaginaNavigatie nav = Nav(2, Gegevens(2, "1"));
  EXPECT_EQ(nav.vorige,
            "<a href=\"kb001.html\" title=\"vorige foto (1 van 2)\">"
            "&laquo;&laquo;&nbsp;Vorige</a>");
  EXPECT_EQ(nav.keuzelijst,
            "<select onChange=\"self.location.href=this[this.selectedIndex].value;\" title=\"\">"
            " <option value=\"kb001.html\">Foto 1</option>\r\n"
            " <option value=\"kb002.html\" selected>Foto 2</option></select>");
}

TEST_F(NavigatieTest, FirstAndLastPagesShowTheInactiveTexts) {
  const SiteGegevens g = Gegevens(3, "2");
  EXPECT_EQ(Nav(1, g).vorige, "Vorige");
  EXPECT_EQ(Nav(2, g).volgende, "Volgende");
}

TEST_F(NavigatieTest, AllPagesAsLinksAndAsSelect) {
  teksten_.link_direct_naar_pagina_title = "Ga naar";
  teksten_.link_direct_naar_pagina_class = "keuze";
  teksten_.link_direct_naar_pagina_tekst = "  \"Blad\"";
  const PaginaNavigatie nav = Nav(2, Gegevens(5, "2"));
  EXPECT_EQ(nav.alle_paginas,
            " <a href=\"kb001.html\">1</a>\r\n <b>2</b>\r\n <a href=\"kb003.html\">3</a>");
  EXPECT_EQ(nav.keuzelijst,
            "<select onChange=\"self.location.href=this[this.selectedIndex].value;\" "
            "title=\"Ga naar\" class=\"keuze\"> <option value=\"kb001.html\">'blad' 1</option>\r\n"
            " <option value=\"kb002.html\" selected>'blad' 2</option>\r\n"
            " <option value=\"kb003.html\">'blad' 3</option></select>");
}

TEST_F(NavigatieTest, OptionLabelsCapitaliseOnlyTheFirstLetter) {
  teksten_.link_direct_naar_pagina_tekst = "bLAD";
  EXPECT_NE(Nav(1, Gegevens(3, "2")).keuzelijst.find(">Blad 1</option>"), std::string::npos);
  teksten_.link_direct_naar_pagina_tekst = "é";
  EXPECT_NE(Nav(1, Gegevens(3, "2")).keuzelijst.find(">É 1</option>"), std::string::npos);
}

TEST_F(NavigatieTest, OnePageHasNoPageNavigation) {
  SiteGegevens g = Gegevens(3, "4");
  g.thumbnails = "1";
  const PaginaNavigatie nav = Nav(1, g);
  EXPECT_EQ(nav.vorige, "");
  EXPECT_EQ(nav.volgende, "");
  EXPECT_EQ(nav.alle_paginas, "");
  EXPECT_EQ(nav.keuzelijst, "");
  EXPECT_EQ(
      nav.overzicht2,
      "<a href=\"kbovz.html\" title=\"overzicht (thumbnails)\" class=\"tekst\">Overzicht</a>");
}

TEST_F(NavigatieTest, WithoutOverviewTheSecondOverviewLinkIsThePageSelect) {
  const SiteGegevens g = Gegevens(5, "2");
  const PaginaNavigatie nav = Nav(1, g);
  EXPECT_EQ(OverzichtLink(teksten_, g), "");
  EXPECT_EQ(nav.overzicht2, nav.keuzelijst);
  EXPECT_EQ(Nav(1, Gegevens(2, "4")).overzicht2, "");
}

TEST_F(NavigatieTest, TheSinglePageGetsThePhotoSelectAndTheOverviewButton) {
  SiteGegevens g = Gegevens(3, "1", "/s/kbfoto2a.html");
  g.thumbnails = "1";
  const PaginaNavigatie nav = Nav(1, g);
  EXPECT_EQ(
      nav.keuzelijst,
      "<select id=\"nav01\" onChange=\"iFotoNummer=parseInt(this[this.selectedIndex].value);"
      "fnToonFoto(0);\"> <option value=\"1\">Foto 1</option>\r\n"
      " <option value=\"2\">Foto 2</option>\r\n <option value=\"3\">Foto 3</option></select>");
  EXPECT_EQ(nav.overzicht2,
            "<input type=\"button\" id=\"nav01\" value=\"Overzicht\" class=\"nav\" "
            "onClick=\"self.location.href='kbovz.html';\" "
            "onMouseOver=\"window.status='Toon overzicht met thumbnails'; return true;\" "
            "onMouseOut=\"window.status=''; return true;\" title=\"overzicht (thumbnails)\">");
  EXPECT_EQ(nav.vorige, "");

  g.thumbnails = "0";
  EXPECT_EQ(Nav(1, g).overzicht2, nav.keuzelijst);
}

TEST_F(NavigatieTest, ASinglePhotoOnTheSinglePageGetsNoSelect) {
  const PaginaNavigatie nav = Nav(1, Gegevens(1, "1", "/s/kbfoto1a.html"));
  EXPECT_EQ(nav.keuzelijst, "");
  EXPECT_EQ(nav.overzicht2, "");
}

TEST_F(NavigatieTest, HomeLinkWithAndWithoutClass) {
  EXPECT_EQ(HomeLink(teksten_),
            "<a href=\"index.html\" title=\"Homepage\" class=\"tekst\">Home</a>");
  teksten_.link_home_class.clear();
  EXPECT_EQ(HomeLink(teksten_), "<a href=\"index.html\" title=\"Homepage\">Home</a>");
}

}  // namespace
}  // namespace kiekbord
