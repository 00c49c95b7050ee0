// The built kiekbord-maak program, run as a user would: its usage, a whole
// generation with its log and exit code, and --controleer, which prints what
// the window would load from a script and writes nothing.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "base/program_info.h"
#include "images/library_choice.h"
#include "tests/support/golden.h"
#include "tests/support/site_links.h"
#include "tests/support/test_photos.h"
#include "tests/support/test_support.h"

namespace kiekbord::test {
namespace {

struct Uitkomst {
  int code = -1;
  std::string uitvoer;  // standard output and standard error together
};

std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

class KiekbordMaakTest : public ::testing::Test {
 protected:
  // Runs kiekbord-maak with `argumenten`, the scratch directory as home.
  Uitkomst Maak(const std::string& argumenten) const {
    const std::string opdracht = "env HOME=" + Quoted(dir_.path()) + " " +
                                 Quoted(std::string(KIEKBORD_BIN_DIR) + "/kiekbord-maak") + " " +
                                 argumenten + " 2>&1";
    Uitkomst uitkomst;
    FILE* pijp = ::popen(opdracht.c_str(), "r");
    if (pijp == nullptr) return uitkomst;
    char buffer[4096];
    for (std::size_t n; (n = std::fread(buffer, 1, sizeof buffer, pijp)) > 0;) uitkomst.uitvoer.append(buffer, n);
    const int status = ::pclose(pijp);
    uitkomst.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    return uitkomst;
  }

  Plaatshouders MetMap() const {
    return {{"@MAP@", dir_.path()},
            {"@BIN@", std::string(KIEKBORD_BIN_DIR) + "/"},
            {"@OS@", BepaalOsNaam()},
            {"@VERSIE@", "Aangemaakt met: " + ProgramCaption() + " (" + std::to_string(BuildRevision()) + ")"}};
  }

  TempDir dir_;
};

TEST_F(KiekbordMaakTest, VersionHelpAndWrongUsage) {
  const Uitkomst versie = Maak("--version");
  EXPECT_EQ(versie.code, 0);
  EXPECT_TRUE(versie.uitvoer.starts_with("Kiekbord 4.1 Pro (revisie ")) << versie.uitvoer;
  const Uitkomst hulp = Maak("--help");
  EXPECT_EQ(hulp.code, 0);
  EXPECT_NE(hulp.uitvoer.find("Gebruik: kiekbord-maak SCRIPT.kbs"), std::string::npos);
  for (const char* argumenten : {"", "a.kbs b.kbs", "--onbekend"}) EXPECT_EQ(Maak(argumenten).code, 2) << argumenten;
}

TEST_F(KiekbordMaakTest, RefusesAPathThatIsNoScript) {
  WriteBytes(dir_ / "notities.txt", "blijft staan");
  const Uitkomst uitkomst = Maak(Quoted(dir_ / "notities.txt"));
  EXPECT_EQ(uitkomst.code, 2);
  EXPECT_EQ(uitkomst.uitvoer, "Bestand '" + dir_ / "notities.txt" + "' heeft onjuist type.\n"
                              "Het bestandstype moet '.kbs' zijn.\n");
  EXPECT_EQ(ReadBytes(dir_ / "notities.txt"), "blijft staan");
}

TEST_F(KiekbordMaakTest, PrintsTheLogAndExitsOneOnAbnormalEnd) {
  WriteBytes(dir_ / "Reis met spaties.KBS",
             "[Algemeen]\r\nUitvoerDir=" + dir_ / "uit" + "\r\n[Instellingen]\r\nSjabloon=Bestaat niet\r\n");
  const Uitkomst uitkomst = Maak(Quoted(dir_ / "Reis met spaties.KBS"));
  EXPECT_EQ(uitkomst.code, 1);
  EXPECT_NE(uitkomst.uitvoer.find("Bestaat niet/kbtitel.html voor titelpagina niet gevonden.\n"), std::string::npos);
  EXPECT_TRUE(uitkomst.uitvoer.ends_with("Abnormaal einde.\n")) << uitkomst.uitvoer;
  // The printed lines are the log's lines.
  std::string log = ReadBytes(dir_ / "reis met spaties.log");
  std::erase(log, '\r');
  EXPECT_EQ(log, uitkomst.uitvoer);
}

TEST_F(KiekbordMaakTest, UnexpectedFailureIsPrintedAndExitsOne) {
  const Uitkomst uitkomst = Maak(Quoted(dir_ / "geen-map/reis.kbs"));
  EXPECT_EQ(uitkomst.code, 1);
  EXPECT_NE(uitkomst.uitvoer.find("Onverwachte fout 53 (File not found)"), std::string::npos) << uitkomst.uitvoer;
}

// 300 photos with the default template set: the whole log in the order of
// the run, ending "Normaal einde.", and every internal link resolving.
TEST_F(KiekbordMaakTest, ThreeHundredPhotosMakeACompleteSite) {
  std::string script = "[Kiekbord]\r\nVersie=4.1\r\n[Algemeen]\r\nTitel=Driehonderd foto's\r\n"
                       "Subtitel=Een heel jaar\r\nDatum=2026\r\nBeschrijving=Elke dag een foto.\r\n"
                       "UitvoerDir=" + dir_ / "uit/" + "\r\nThumbnails=1\r\nAantalFotos=300\r\n"
                       "[Instellingen]\r\nSjabloon=Klassiek\r\nAantalFotosPerPagina=4\r\n";
  for (int i = 1; i <= 300; ++i) {
    char naam[32];
    std::snprintf(naam, sizeof naam, "img_%03d.jpg", i);
    SchrijfProefFoto(dir_ / "uit/" + naam, i % 4 == 0 ? 90 : 120, i % 4 == 0 ? 120 : 90, i % 7);
    script += "[Foto" + std::string(naam).substr(4, 3) + "]\r\nFoto=" + naam + "\r\nBijschrift=Dag " +
              std::to_string(i) + "\r\n";
  }
  WriteBytes(dir_ / "jaar.kbs", script);

  const Uitkomst uitkomst = Maak(Quoted(dir_ / "jaar.kbs"));
  EXPECT_EQ(uitkomst.code, 0);
  WriteBytes(dir_ / "uitvoer.txt", uitkomst.uitvoer);
  EXPECT_TRUE(GelijkAanGolden(TestDataDir() + "maak_driehonderd.txt", dir_ / "uitvoer.txt", MetMap()));
  EXPECT_FALSE(std::filesystem::exists(dir_ / "uit/kb076.html"));
  EXPECT_TRUE(std::filesystem::is_regular_file(dir_ / "uit/img_300_tn.jpg"));
  EXPECT_GT(AantalLinks(dir_ / "uit/"), 900);
  EXPECT_EQ(OnvindbareLinks(dir_ / "uit/"), std::vector<std::string>{});
}

std::set<std::string> Inhoud(const std::string& map) {
  std::set<std::string> inhoud;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(map)) {
    inhoud.insert(entry.path().string() + " " + (entry.is_regular_file() ? ReadBytes(entry.path()) : ""));
  }
  return inhoud;
}

// Each script of tests/data/controleer against its expected print-out: the
// current and the older form (Windows-1252), an output directory without
// photos, more lines than the table holds, binary garbage, a missing file.
TEST_F(KiekbordMaakTest, ControleerPrintsTheRecordAndItsMessagesAndWritesNothing) {
  for (const char* naam : {"uit/vuurtoren.jpg", "uit/strand.jpg", "leeg/leesmij.txt"}) WriteBytes(dir_ / naam, "");
  const std::pair<std::string, int> gevallen[] = {{"texel", 0}, {"oud", 0},   {"leeg", 0},
                                                 {"lang", 0},  {"rommel", 0}, {"ontbreekt", 1}};
  for (const auto& [naam, code] : gevallen) {
    SCOPED_TRACE(naam);
    const std::string bron = TestDataDir() + "controleer/" + naam + ".kbs";
    if (std::filesystem::exists(bron)) {
      WriteBytes(dir_ / (naam + ".kbs"), VulPlaatshouders(ReadBytes(bron), MetMap()));
    }
    const std::set<std::string> voor = Inhoud(dir_.path());
    const Uitkomst uitkomst = Maak("--controleer " + Quoted(dir_ / (naam + ".kbs")));
    EXPECT_EQ(Inhoud(dir_.path()), voor);
    EXPECT_EQ(uitkomst.code, code);
    EXPECT_EQ(uitkomst.uitvoer, VulPlaatshouders(ReadBytes(TestDataDir() + "controleer/" + naam + ".txt"), MetMap()));
  }
}

}  // namespace
}  // namespace kiekbord::test
