// Whole generation runs with the program's real steps and its own template
// sets on real photos: every page is written, the run ends "Normaal einde."
// and every internal link of the site resolves.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
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

constexpr int kAantalFotos = 12;

struct VolledigGeval {
  const char* sjabloon;
  const char* per_pagina;
  const char* presentatie;
  const char* positie_bijschriften;
  int verwachte_fotopaginas;
};

void PrintTo(const VolledigGeval& geval, std::ostream* out) {
  *out << geval.sjabloon << "/" << geval.per_pagina << "/" << geval.presentatie;
}

std::string FotoNaam(int i) { return "zee" + std::to_string(100 + i) + ".jpg"; }

class VolledigeSiteTest : public ::testing::TestWithParam<VolledigGeval> {
 protected:
  VolledigeSiteTest() {
    test::KopieerMap(test::TestDataDir() + "../../data", dir_ / "programma");
    std::filesystem::create_directories(Uit());
    for (int i = 1; i <= kAantalFotos; ++i) {
      test::SchrijfProefFoto(Uit() + FotoNaam(i), i % 3 == 0 ? 120 : 160, i % 3 == 0 ? 160 : 120,
                             i);
    }
    test::WriteBytes(dir_ / "zee.kbs", Script());
  }

  std::string Uit() const { return dir_ / "uit/"; }

  std::string Script() const {
    const VolledigGeval& geval = GetParam();
    std::string script =
        "[Algemeen]\r\nTitel=Zomer aan zee\r\nSubtitel=Noordwijk\r\nDatum=juli 2026\r\n"
        "Beschrijving=Wind & zon.\r\nUitvoerDir=" +
        Uit() + "\r\nThumbnails=1\r\nAantalFotos=" + std::to_string(kAantalFotos) +
        "\r\n[Instellingen]\r\nSjabloon=" + geval.sjabloon +
        "\r\nAantalFotosPerPagina=" + geval.per_pagina + "\r\nPresentatie=" + geval.presentatie +
        "\r\nPositieBijschriften=" + geval.positie_bijschriften + "\r\n";
    for (int i = 1; i <= kAantalFotos; ++i) {
      char sectie[32];
      std::snprintf(sectie, sizeof sectie, "[Foto%03d]\r\n", i);
      script += std::string(sectie) + "Foto=" + FotoNaam(i) + "\r\nBijschrift=Strand 'bij' " +
                std::to_string(i) + " & \"meer\"\r\n";
    }
    return script;
  }

  SiteResultaat Run() {
    const ProgramSettings settings = LeesProgrammaInstellingen(dir_ / "programma/", dir_.path());
    SiteOmgeving omgeving(settings);
    omgeving.steps = StandaardStappen([] { return test::kProefDatum; });
    omgeving.observer = [this](const std::string& line) { log_.push_back(line); };
    return MaakSite(dir_ / "zee.kbs", omgeving);
  }

  bool InLog(const std::string& line) const {
    return std::find(log_.begin(), log_.end(), line) != log_.end();
  }

  test::TempDir dir_;
  Lines log_;
};

TEST_P(VolledigeSiteTest, WritesTheWholeSiteWithLinksThatResolve) {
  const VolledigGeval& geval = GetParam();
  const SiteResultaat result = Run();
  ASSERT_EQ(result.failed, kGelukt) << ::testing::PrintToString(log_);
  EXPECT_FALSE(result.onverwacht.has_value());
  ASSERT_FALSE(log_.empty());
  EXPECT_EQ(log_.back(), "Normaal einde.");
  EXPECT_TRUE(InLog("Overzichtspagina " + Uit() + "kbovz.html aangemaakt."));
  EXPECT_TRUE(InLog(std::to_string(geval.verwachte_fotopaginas) + " fotopagina's aangemaakt."));

  for (const char* naam : {"index.html", "kbovz.html", "kb.css", "kbicon.gif", "kbdia.js"}) {
    EXPECT_TRUE(std::filesystem::is_regular_file(Uit() + naam)) << naam;
  }
  for (int p = 1; p <= geval.verwachte_fotopaginas; ++p) {
    char pagina[32];
    std::snprintf(pagina, sizeof pagina, "kb%03d.html", p);
    EXPECT_TRUE(std::filesystem::is_regular_file(Uit() + pagina)) << pagina;
  }
  EXPECT_GT(test::AantalLinks(Uit()), 3 * kAantalFotos);

  Lines onvindbaar = test::OnvindbareLinks(Uit());
  if (std::string(geval.presentatie) == "1") {
    // The overview links each photo to its place on the single page, whose
    // script shows the photo named by the address's fragment.
    std::erase_if(onvindbaar, [](const std::string& link) {
      return link.starts_with("kbovz.html: kb001.html#foto");
    });
  }
  EXPECT_EQ(onvindbaar, Lines{});
}

INSTANTIATE_TEST_SUITE_P(
    Sjablonen, VolledigeSiteTest,
    ::testing::Values(
        VolledigGeval{"Klassiek", "4", "0", "0", 3}, VolledigGeval{"Klassiek", "1", "0", "1", 12},
        VolledigGeval{"Klassiek", "1", "1", "2", 1}, VolledigGeval{"Donker", "5", "0", "1", 3},
        VolledigGeval{"Donker", "1", "0", "2", 12}, VolledigGeval{"Donker", "1", "1", "0", 1},
        VolledigGeval{"Raster", "12", "0", "2", 1}, VolledigGeval{"Raster", "1", "0", "0", 12},
        VolledigGeval{"Raster", "1", "1", "1", 1}),
    [](const auto& info) {
      return std::string(info.param.sjabloon) + "_" + info.param.per_pagina + "_per_pagina_" +
             (std::string(info.param.presentatie) == "1" ? "automatisch" : "handmatig");
    });

}  // namespace
}  // namespace kiekbord
