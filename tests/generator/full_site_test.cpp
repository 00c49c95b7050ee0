// Whole generation runs with the program's real steps and its own template
// sets on real photos: every page is written, the run ends "Normaal einde."
// and every internal link of the site resolves.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "app/program_settings.h"
#include "generator/generation_run.h"
#include "tests/generator/page_writer_fixture.h"
#include "tests/support/golden.h"
#include "tests/support/site_links.h"
#include "tests/support/test_photos.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using Lines = std::vector<std::string>;

// Template set, photos per page, presentation, caption position, photo pages.
using VolledigGeval = std::tuple<const char*, const char*, const char*, const char*, int>;

class VolledigeSiteTest : public ::testing::TestWithParam<VolledigGeval> {};

TEST_P(VolledigeSiteTest, WritesTheWholeSiteWithLinksThatResolve) {
  const auto& [sjabloon, per_pagina, presentatie, positie, fotopaginas] = GetParam();
  test::TempDir dir;
  const std::string uit = dir / "uit/";
  std::string script = "[Algemeen]\r\nTitel=Zomer aan zee\r\nSubtitel=Noordwijk\r\nDatum=juli 2026\r\n"
                       "Beschrijving=Wind & zon.\r\nUitvoerDir=" + uit + "\r\nThumbnails=1\r\nAantalFotos=12\r\n"
                       "[Instellingen]\r\nSjabloon=" + sjabloon + "\r\nAantalFotosPerPagina=" + per_pagina +
                       "\r\nPresentatie=" + presentatie + "\r\nPositieBijschriften=" + positie + "\r\n";
  for (int i = 1; i <= 12; ++i) {
    char sectie[64];
    std::snprintf(sectie, sizeof sectie, "[Foto%03d]\r\nFoto=zee%d.jpg\r\n", i, 100 + i);
    script += std::string(sectie) + "Bijschrift=Strand 'bij' " + std::to_string(i) + " & \"meer\"\r\n";
    test::SchrijfProefFoto(uit + "zee" + std::to_string(100 + i) + ".jpg", i % 3 ? 160 : 120, i % 3 ? 120 : 160, i);
  }
  test::WriteBytes(dir / "zee.kbs", script);
  test::KopieerMap(test::TestDataDir() + "../../data", dir / "programma");
  const ProgramSettings settings = LeesProgrammaInstellingen(dir / "programma/", dir.path());
  Lines log;
  GenerationLog run_log([&log](const std::string& line) { log.push_back(line); });
  StderrMelder melder;
  SiteOmgeving omgeving(settings, run_log, melder);
  omgeving.steps = StandaardStappen([] { return test::kProefDatum; });

  const SiteResultaat result = MaakSite(dir / "zee.kbs", omgeving);
  ASSERT_EQ(result.failed, kGelukt) << ::testing::PrintToString(log);
  EXPECT_FALSE(result.onverwacht.has_value());
  EXPECT_EQ(log.back(), "Normaal einde.");
  EXPECT_NE(std::find(log.begin(), log.end(), std::to_string(fotopaginas) + " fotopagina's aangemaakt."), log.end());
  const Lines bestanden = test::BestandenIn(uit);
  for (const char* naam : {"index.html", "kbovz.html", "kb.css", "kbicon.gif", "kbdia.js"}) {
    EXPECT_NE(std::find(bestanden.begin(), bestanden.end(), naam), bestanden.end()) << naam;
  }
  char laatste[32];
  std::snprintf(laatste, sizeof laatste, "kb%03d.html", fotopaginas);
  EXPECT_NE(std::find(bestanden.begin(), bestanden.end(), laatste), bestanden.end());
  EXPECT_GT(test::AantalLinks(uit), 36);

  Lines onvindbaar = test::OnvindbareLinks(uit);
  if (std::string(presentatie) == "1") {
    // The overview links each photo to its place on the single page, whose
    // script shows the photo named by the address's fragment.
    std::erase_if(onvindbaar, [](const std::string& link) { return link.starts_with("kbovz.html: kb001.html#foto"); });
  }
  EXPECT_EQ(onvindbaar, Lines{});
}

INSTANTIATE_TEST_SUITE_P(
    Sjablonen, VolledigeSiteTest,
    ::testing::Values(VolledigGeval{"Klassiek", "4", "0", "0", 3}, VolledigGeval{"Klassiek", "1", "0", "1", 12},
                      VolledigGeval{"Klassiek", "1", "1", "2", 1}, VolledigGeval{"Donker", "5", "0", "1", 3},
                      VolledigGeval{"Donker", "1", "0", "2", 12}, VolledigGeval{"Donker", "1", "1", "0", 1},
                      VolledigGeval{"Raster", "12", "0", "2", 1}, VolledigGeval{"Raster", "1", "0", "0", 12},
                      VolledigGeval{"Raster", "1", "1", "1", 1}),
    [](const auto& info) {
      return std::string(std::get<0>(info.param)) + "_" + std::get<1>(info.param) + "_per_pagina_" +
             (std::string(std::get<2>(info.param)) == "1" ? "automatisch" : "handmatig");
    });

}  // namespace
}  // namespace kiekbord
