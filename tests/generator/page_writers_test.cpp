// The page writers on golden cases. Each case folder under tests/data holds a
// "geval.ini" that sets up one writer run, its own templates, and verwacht/
// with every file the run leaves in the output directory (the photos given
// as input excepted) and the run's log "proef.log".
//
// geval.ini, one "key=value" a line, "#" starts a comment:
//   schrijvers=titel stijl overzicht fotos   the writers, run in this order
//   <SiteGegevens member>=value               e.g. titel=, fotos_per_pagina=
//   <..._sjabloon>=name                       the case's own template, else
//                                             the one in blok_sjablonen/
//   foto=name|caption                         a photo taken in
//   jpeg=name|WxH  or  jpeg=name|geen         a photo file, or one that is
//                                             no JPEG, in the output
//   vooraf=name|text                          a file already in the output
//   navigatie=sjabloon.ini                    navigation texts from a file
//   meta_keywords=0, meta_description=0, icoon=0 (no icon to copy)
//   lezen_geweigerd=name, schrijven_geweigerd=name (empty: the whole output)
//   mislukt=1                                 the step is to fail
//   linkcontrole=1, onvindbaar=<page>: <link> the links that do not resolve
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "base/file_system.h"
#include "base/status.h"
#include "generator/navigation_texts.h"
#include "generator/overview_page.h"
#include "generator/photo_pages.h"
#include "generator/style_sheet.h"
#include "generator/title_page.h"
#include "tests/generator/page_writer_fixture.h"
#include "tests/support/golden.h"
#include "tests/support/site_links.h"
#include "tests/support/test_photos.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using Lines = std::vector<std::string>;

const std::map<std::string, std::string SiteGegevens::*> kVelden = {
    {"titel", &SiteGegevens::titel},
    {"subtitel", &SiteGegevens::subtitel},
    {"datum", &SiteGegevens::datum},
    {"beschrijving", &SiteGegevens::beschrijving},
    {"thumbnails", &SiteGegevens::thumbnails},
    {"fotos_per_pagina", &SiteGegevens::fotos_per_pagina},
    {"presentatie", &SiteGegevens::presentatie},
    {"positie_fotos", &SiteGegevens::positie_fotos},
    {"lettertype_titels", &SiteGegevens::lettertype_titels},
    {"lettertype_bijschriften", &SiteGegevens::lettertype_bijschriften},
    {"lettergrootte_bijschriften", &SiteGegevens::lettergrootte_bijschriften},
    {"letterstijl_bijschriften", &SiteGegevens::letterstijl_bijschriften},
    {"ext", &SiteGegevens::ext},
    {"titel_sjabloon", &SiteGegevens::titel_sjabloon},
    {"stijl_sjabloon", &SiteGegevens::stijl_sjabloon},
    {"overzicht_sjabloon", &SiteGegevens::overzicht_sjabloon},
    {"foto_sjabloon", &SiteGegevens::foto_sjabloon}};

class SchrijverGevalTest : public test::PaginaSchrijverTest,
                           public ::testing::WithParamInterface<const char*> {
 protected:
  static std::string Map() { return test::TestDataDir() + GetParam() + "/"; }
  // A file of the case, or else of the shared template set.
  static std::string DataBestand(const std::string& naam) {
    const std::string eigen = Map() + naam;
    return std::filesystem::exists(eigen) ? eigen : test::TestDataDir() + "blok_sjablonen/" + naam;
  }

  void LeesGeval() {
    std::istringstream ini(test::ReadBytes(Map() + "geval.ini"));
    for (std::string regel; std::getline(ini, regel);) {
      if (regel.empty() || regel[0] == '#') continue;
      const std::string sleutel = regel.substr(0, regel.find('='));
      const std::string waarde = regel.substr(sleutel.size() + 1);
      const std::string naam = waarde.substr(0, waarde.find('|'));
      const std::string rest = naam.size() < waarde.size() ? waarde.substr(naam.size() + 1) : "";
      if (sleutel.ends_with("_sjabloon")) gegevens_.*kVelden.at(sleutel) = DataBestand(waarde);
      else if (kVelden.contains(sleutel)) gegevens_.*kVelden.at(sleutel) = waarde;
      else if (sleutel == "schrijvers") schrijvers_ = waarde;
      else if (sleutel == "foto") {
        gegevens_.foto_namen.push_back(naam);
        gegevens_.bijschriften.push_back(rest);
      } else if (sleutel == "jpeg") {
        invoer_.insert(naam);
        if (rest == "geen") test::WriteBytes(Uit(naam), "geen jpeg");
        else test::SchrijfProefFoto(Uit(naam), std::stoi(rest), std::stoi(rest.substr(rest.find('x') + 1)));
      } else if (sleutel == "vooraf") test::WriteBytes(Uit(naam), rest);
      else if (sleutel == "navigatie") LeesNavigatieTeksten(DataBestand(waarde), navigatie_, run_log_);
      else if (sleutel == "meta_keywords") settings_.meta_keywords = waarde == "1";
      else if (sleutel == "meta_description") settings_.meta_description = waarde == "1";
      else if (sleutel == "icoon") std::filesystem::remove(settings_.program_dir + "kbicon.gif");
      else if (sleutel == "lezen_geweigerd") toegang_.lezen_geweigerd = DataBestand(waarde);
      else if (sleutel == "schrijven_geweigerd") toegang_.schrijven_geweigerd = Uit(waarde);
      else if (sleutel == "mislukt") verwacht_failed_ = kMislukt;
      else if (sleutel == "linkcontrole") linkcontrole_ = true;
      else if (sleutel == "onvindbaar") onvindbaar_.push_back(waarde);
      else FAIL() << "onbekende sleutel " << sleutel;
    }
  }

  std::int16_t Schrijf() {
    ScopedFileSystem scoped(toegang_);
    SiteRun run{settings_, gegevens_, run_log_, melder_, navigatie_, kGelukt, {}};
    std::istringstream namen(schrijvers_);
    for (std::string naam; run.failed == kGelukt && namen >> naam;) {
      if (naam == "titel") MaakTitelPagina(run, Kop());
      else if (naam == "stijl") MaakStijlblad(run);
      else if (naam == "overzicht") MaakOverzichtPagina(run, Kop());
      else if (naam == "fotos") MaakFotoPaginas(run, Kop());
      else ADD_FAILURE() << "onbekende schrijver " << naam;
    }
    return run.failed;
  }

  static std::set<std::string> Bestanden(const std::string& map, const std::set<std::string>& zonder) {
    std::set<std::string> namen;
    for (const auto& entry : std::filesystem::directory_iterator(map)) {
      const std::string naam = entry.path().filename().string();
      if (!zonder.contains(naam)) namen.insert(naam);
    }
    return namen;
  }

  std::string schrijvers_;
  NavigatieTeksten navigatie_;
  test::GeweigerdeToegang toegang_;
  std::set<std::string> invoer_;
  std::int16_t verwacht_failed_ = kGelukt;
  bool linkcontrole_ = false;
  Lines onvindbaar_;
};

TEST_P(SchrijverGevalTest, WritesTheExpectedFilesAndLog) {
  LeesGeval();
  EXPECT_EQ(Schrijf(), verwacht_failed_) << ::testing::PrintToString(log_);
  run_log_.SchrijfLog("close");

  const std::string verwacht = Map() + "verwacht/";
  const test::Plaatshouders plaatshouders{{"@DATA@", test::TestDataDir()}, {"@UIT@", Uit("")}};
  EXPECT_TRUE(test::GelijkAanGolden(verwacht + "proef.log", dir_ / "proef.log", plaatshouders));
  const std::set<std::string> bestanden = Bestanden(verwacht, {"proef.log"});
  EXPECT_EQ(Bestanden(Uit(""), invoer_), bestanden);
  for (const std::string& naam : bestanden) {
    EXPECT_TRUE(test::GelijkAanGolden(verwacht + naam, Uit(naam), plaatshouders));
  }
  if (linkcontrole_) {
    EXPECT_EQ(test::OnvindbareLinks(Uit("")), onvindbaar_);
  }
}

INSTANTIATE_TEST_SUITE_P(
    Gevallen, SchrijverGevalTest,
    ::testing::Values(
        // Title page: every field, the overview link, meta tags and the
        // credit line at its first place.
        "titel_basis", "titel_zonder_subtitel", "titel_linkicon", "titel_kop_met_veld",
        "titel_zonder_icoon", "titel_extensie_htm", "titel_positie_buiten_lijst",
        "titel_onleesbaar", "titel_onschrijfbaar", "titel_icoon_onschrijfbaar",
        // Style sheet: colour and font fields only.
        "stijl_basis", "stijl_vet_cursief", "stijl_buiten_bereik", "stijl_alleen_kleur_en_letter",
        "stijl_onschrijfbaar",
        // Overview page: the "++" advance, the head's thumbnail size, the
        // exact-case thumbnail name, and its failures.
        "ovz_zonder_plusplus_opnieuw", "ovz_pas_zonder_plusplus", "ovz_plusplus_na_veld",
        "ovz_kop_eerste_thumbnail", "ovz_thumbnailnaam", "ovz_zonder_fotos", "ovz_onleesbaar",
        "ovz_onschrijfbaar",
        // Photo pages: sizes of the page's first photo in head and tail, a
        // file that is no JPEG, no description field, and the failures.
        "fotos_kop_en_staart", "fotos_geen_jpeg", "fotos_zonder_beschrijving",
        "fotos_zonder_fotos", "fotos_onleesbaar", "fotos_onschrijfbaar",
        // Overview and photo pages together, with links checked: see the
        // comment at the top of each geval.ini.
        "blok_tien_per_vier", "blok_een_per_pagina", "blok_alles_op_een", "blok_drie_cellen",
        "blok_body", "blok_geen", "blok_foto_ontbreekt", "blok_zonder_overzicht",
        "blok_diavoorstelling", "blok_bijschriften"),
    [](const auto& info) { return std::string(info.param); });

using PaginaSchrijverTest = test::PaginaSchrijverTest;

// Any other failure inside a writer's step logs number and description and
// leaves no page.
TEST_F(PaginaSchrijverTest, TextBeyondTheLimitsEndsEveryStepWithoutAPage) {
  const std::string sjabloon = dir_ / "sjabloon.html";
  test::WriteBytes(sjabloon, "<body>\n[KIEKBORDVELD=TITEL][KIEKBORDVELD=LETTERGROOTTEBIJSCHRIFTEN]\n</body>\n");
  gegevens_.titel_sjabloon = gegevens_.stijl_sjabloon = sjabloon;
  gegevens_.overzicht_sjabloon = gegevens_.foto_sjabloon = sjabloon;
  gegevens_.titel = std::string(40000, 'x');
  gegevens_.lettergrootte_bijschriften = "99999";
  gegevens_.foto_namen = {"a.jpg"};
  gegevens_.bijschriften = {""};
  const std::function<void(SiteRun&)> schrijvers[] = {
      [this](SiteRun& run) { MaakTitelPagina(run, Kop()); }, MaakStijlblad,
      [this](SiteRun& run) { MaakOverzichtPagina(run, Kop()); },
      [this](SiteRun& run) { MaakFotoPaginas(run, Kop()); }};
  for (const auto& schrijver : schrijvers) {
    log_.clear();
    EXPECT_EQ(Voer(schrijver), kMislukt);
    EXPECT_EQ(log_.back(), "6 Overflow");
  }
  EXPECT_TRUE(std::filesystem::is_empty(gegevens_.uitvoer_dir));
}

TEST_F(PaginaSchrijverTest, TheMostPhotosFillThreeDigitPages) {
  gegevens_.foto_sjabloon = dir_ / "kbfoto1m.html";
  test::WriteBytes(gegevens_.foto_sjabloon,
                   "<body>\n<p>[KIEKBORDVELD=FOTONUMMER] [KIEKBORDVELD=LINKVOLGENDEFOTO]</p>\n</body>\n");
  gegevens_.fotos_per_pagina = "7";
  gegevens_.foto_namen.assign(512, "foto.jpg");
  gegevens_.bijschriften.assign(512, "");
  ASSERT_EQ(Voer([this](SiteRun& run) { MaakFotoPaginas(run, Kop()); }), kGelukt);
  EXPECT_EQ(log_.back(), "74 fotopagina's aangemaakt.");
  EXPECT_EQ(test::ReadBytes(Uit("kb074.html")), "<body>\r\n<p>512 </p>\r\n</body>\r\n");
  EXPECT_NE(test::ReadBytes(Uit("kb073.html")).find("<p>511 <a href=\"kb074.html#foto512\""),
            std::string::npos);
}

// --- Font values of the style sheet -------------------------------------------

TEST(LettertypeTest, SizeIsTenPlusTwicePositiveIndex) {
  const std::pair<const char*, const char*> gevallen[] = {
      {"0", "10"}, {"-3", "10"}, {"x", "10"}, {"1", "12"}, {"2", "14"},
      {"5", "20"}, {"2.5", "15"}, {"0.25", "10"}, {"16378", "32766"}};
  for (const auto& [index, grootte] : gevallen) {
    SiteGegevens g;
    g.lettergrootte_bijschriften = index;
    EXPECT_EQ(LettertypeWaardenVan(g).grootte, grootte) << index;
  }
}

TEST(LettertypeTest, ItalicAndBoldByExactIndex) {
  const std::vector<Lines> gevallen = {{"0", "normal", "normal"}, {"1", "normal", "bold"},
                                       {"2", "italic", "normal"}, {"3", "italic", "bold"},
                                       {"4", "normal", "normal"}, {" 3", "normal", "normal"},
                                       {"", "normal", "normal"}};
  for (const Lines& geval : gevallen) {
    SiteGegevens g;
    g.letterstijl_bijschriften = geval[0];
    const LettertypeWaarden letter = LettertypeWaardenVan(g);
    EXPECT_EQ(Lines({letter.stijl, letter.gewicht}), Lines(geval.begin() + 1, geval.end())) << geval[0];
  }
}

TEST(LettertypeTest, FontsAreQuotedPiecesAndIndexesBeyondSixteenBitsOverflow) {
  SiteGegevens g;
  g.lettertype_titels = "1";
  g.lettertype_bijschriften = "5";
  EXPECT_EQ(LettertypeWaardenVan(g).titels, "\"Comic Sans MS\"");
  EXPECT_EQ(LettertypeWaardenVan(g).bijschriften, "\"Times New Roman\"");
  g.lettergrootte_bijschriften = "16379";
  EXPECT_THROW(LettertypeWaardenVan(g), RunError);
  g.lettergrootte_bijschriften = "2";
  g.lettertype_titels = "40000";
  EXPECT_THROW(LettertypeWaardenVan(g), RunError);
}

}  // namespace
}  // namespace kiekbord
