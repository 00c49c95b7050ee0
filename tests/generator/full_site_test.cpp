// Whole generation runs with the program's real steps and its own template
// sets on real photos: the run ends "Normaal einde." with the expected photo
// pages, and every internal link of the site resolves.
#include <gtest/gtest.h>

#include <algorithm>

#include "app/program_settings.h"
#include "generator/generation_run.h"
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
  const test::Plaatshouders waarden = {{"@UIT@", uit}, {"@SJABLOON@", sjabloon}, {"@PER_PAGINA@", per_pagina},
                                       {"@PRESENTATIE@", presentatie}, {"@POSITIE@", positie}};
  const std::string script = test::ReadBytes(test::TestDataDir() + "volledige_site.kbs");
  test::WriteBytes(dir / "zee.kbs", test::VulPlaatshouders(script, waarden));
  for (int i = 1; i <= 12; ++i) {
    test::SchrijfProefFoto(uit + "zee" + std::to_string(100 + i) + ".jpg", i % 3 ? 160 : 120, i % 3 ? 120 : 160, i);
  }
  test::KopieerMap(test::TestDataDir() + "../../data", dir / "programma");
  const ProgramSettings settings = LeesProgrammaInstellingen(dir / "programma/", dir.path());
  Lines log;
  GenerationLog run_log([&log](const std::string& line) { log.push_back(line); });
  StderrMelder melder;
  SiteOmgeving omgeving(settings, run_log, melder);

  ASSERT_EQ(MaakSite(dir / "zee.kbs", omgeving).failed, kGelukt) << ::testing::PrintToString(log);
  EXPECT_NE(std::find(log.begin(), log.end(), std::to_string(fotopaginas) + " fotopagina's aangemaakt."), log.end());
  EXPECT_GT(test::AantalLinks(uit), 36);
  Lines onvindbaar = test::OnvindbareLinks(uit);
  // The overview links each photo to its place on the single page, whose
  // script shows the photo named by the address's fragment.
  std::erase_if(onvindbaar, [&](const std::string& link) {
    return std::string(presentatie) == "1" && link.starts_with("kbovz.html: kb001.html#foto");
  });
  EXPECT_EQ(onvindbaar, Lines{});
}

INSTANTIATE_TEST_SUITE_P(
    Sjablonen, VolledigeSiteTest,
    ::testing::Values(VolledigGeval{"Klassiek", "4", "0", "0", 3}, VolledigGeval{"Klassiek", "1", "0", "1", 12},
                      VolledigGeval{"Klassiek", "1", "1", "2", 1}, VolledigGeval{"Donker", "5", "0", "1", 3},
                      VolledigGeval{"Donker", "1", "0", "2", 12}, VolledigGeval{"Donker", "1", "1", "0", 1},
                      VolledigGeval{"Raster", "12", "0", "2", 1}, VolledigGeval{"Raster", "1", "0", "0", 12},
                      VolledigGeval{"Raster", "1", "1", "1", 1}));

}  // namespace
}  // namespace kiekbord
