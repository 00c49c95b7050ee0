// kiekbord-maak on a gallery of 300 photos with the default template set:
// the complete site, the full log ending in "Normaal einde.", and every
// internal link resolving.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/site_links.h"
#include "tests/support/test_photos.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

constexpr int kAantalFotos = 300;

std::string Drie(int i) {
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%03d", i);
  return buffer;
}

std::string FotoNaam(int i) { return "img_" + Drie(i) + ".jpg"; }

std::string Script(const std::string& uit) {
  std::string script =
      "[Kiekbord]\r\nVersie=4.1\r\n[Algemeen]\r\nTitel=Driehonderd foto's\r\n"
      "Subtitel=Een heel jaar\r\nDatum=2026\r\nBeschrijving=Elke dag een foto.\r\n"
      "UitvoerDir=" +
      uit + "\r\nThumbnails=1\r\nAantalFotos=" + std::to_string(kAantalFotos) +
      "\r\n[Instellingen]\r\nSjabloon=Klassiek\r\nAantalFotosPerPagina=4\r\n";
  for (int i = 1; i <= kAantalFotos; ++i) {
    script += "[Foto" + Drie(i) + "]\r\nFoto=" + FotoNaam(i) + "\r\nBijschrift=Dag " +
              std::to_string(i) + "\r\n";
  }
  return script;
}

struct Uitkomst {
  int exit_code = -1;
  std::vector<std::string> regels;  // standard output, line by line
};

Uitkomst Maak(const std::string& script) {
  const std::string command =
      "'" + std::string(KIEKBORD_BIN_DIR) + "/kiekbord-maak' '" + script + "'";
  Uitkomst uitkomst;
  FILE* pipe = ::popen(command.c_str(), "r");
  if (pipe == nullptr) return uitkomst;
  std::string tekst;
  char buffer[4096];
  while (const std::size_t n = std::fread(buffer, 1, sizeof buffer, pipe)) tekst.append(buffer, n);
  const int status = ::pclose(pipe);
  uitkomst.exit_code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  for (std::size_t pos = 0, einde; (einde = tekst.find('\n', pos)) != std::string::npos;
       pos = einde + 1) {
    uitkomst.regels.push_back(tekst.substr(pos, einde - pos));
  }
  return uitkomst;
}

TEST(KiekbordMaakSiteTest, ThreeHundredPhotosMakeACompleteSite) {
  test::TempDir dir;
  const std::string uit = dir / "uit/";
  std::filesystem::create_directories(uit);
  for (int i = 1; i <= kAantalFotos; ++i) {
    test::SchrijfProefFoto(uit + FotoNaam(i), i % 4 == 0 ? 90 : 120, i % 4 == 0 ? 120 : 90, i % 7);
  }
  test::WriteBytes(dir / "jaar.kbs", Script(uit));

  const Uitkomst uitkomst = Maak(dir / "jaar.kbs");
  ASSERT_EQ(uitkomst.exit_code, 0) << ::testing::PrintToString(uitkomst.regels);
  const std::vector<std::string>& log = uitkomst.regels;
  ASSERT_GT(log.size(), 10u);
  EXPECT_EQ(log.front().rfind("Aangemaakt met: Kiekbord 4.1 Pro (", 0), 0u);
  EXPECT_EQ(log.back(), "Normaal einde.");
  const auto positie = [&](const std::string& regel) {
    return std::find(log.begin(), log.end(), regel) - log.begin();
  };
  // The pages in the order of the run.
  const auto titel = positie("Titelpagina " + uit + "index.html aangemaakt.");
  const auto thumbnails = positie("300 Thumbnails (opnieuw) aangemaakt.");
  const auto overzicht = positie("Overzichtspagina " + uit + "kbovz.html aangemaakt.");
  const auto opmaak = positie("Opmaakbestand " + uit + "kb.css aangemaakt.");
  const auto eerste = positie("Aanmaken fotopagina " + uit + "kb001.html...");
  const auto laatste = positie("Aanmaken fotopagina " + uit + "kb075.html...");
  const auto fotopaginas = positie("75 fotopagina's aangemaakt.");
  const auto einde = static_cast<std::ptrdiff_t>(log.size()) - 1;
  EXPECT_LT(titel, thumbnails);
  EXPECT_LT(thumbnails, overzicht);
  EXPECT_LT(overzicht, opmaak);
  EXPECT_LT(opmaak, eerste);
  EXPECT_LT(eerste, laatste);
  EXPECT_LT(laatste, fotopaginas);
  EXPECT_LT(fotopaginas, einde);

  EXPECT_FALSE(std::filesystem::exists(uit + "kb076.html"));
  EXPECT_TRUE(std::filesystem::is_regular_file(uit + "img_300_tn.jpg"));
  EXPECT_GT(test::AantalLinks(uit), 3 * kAantalFotos);
  EXPECT_EQ(test::OnvindbareLinks(uit), std::vector<std::string>{});
}

}  // namespace
}  // namespace kiekbord
