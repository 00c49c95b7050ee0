// The built kiekbord-maak program, run as a user would: its usage, a whole
// generation with its log and exit code, and --controleer, which prints what
// the window would load from a script and writes nothing.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <filesystem>
#include <set>
#include <sstream>
#include <string>

#include "tests/support/golden.h"
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
            {"@BIN@", std::string(KIEKBORD_BIN_DIR) + "/"}};
  }

  TempDir dir_;
};

// Usage, a path that is no script (left alone), an abnormal end (the printed
// lines are the log's lines) and an unexpected failure, with their exit codes.
TEST_F(KiekbordMaakTest, UsageAndFailuresWithTheirExitCodes) {
  WriteBytes(dir_ / "notities.txt", "blijft staan");
  WriteBytes(dir_ / "Reis met spaties.KBS",
             "[Algemeen]\r\nUitvoerDir=" + dir_ / "uit" + "\r\n[Instellingen]\r\nSjabloon=Bestaat niet\r\n");
  const std::tuple<std::string, int, std::string> gevallen[] = {
      {"--version", 0, "Kiekbord 4.1 Pro (revisie "},
      {"--help", 0, "Gebruik: kiekbord-maak SCRIPT.kbs"},
      {"a.kbs b.kbs", 2, ""}, {"--onbekend", 2, ""},
      {Quoted(dir_ / "notities.txt"), 2, "Bestand '" + dir_ / "notities.txt" + "' heeft onjuist type.\n"
                                          "Het bestandstype moet '.kbs' zijn.\n"},
      {Quoted(dir_ / "Reis met spaties.KBS"), 1, "Bestaat niet/kbtitel.html voor titelpagina niet gevonden.\n"},
      {Quoted(dir_ / "geen-map/reis.kbs"), 1, "Onverwachte fout 53 (File not found)"}};
  for (const auto& [argumenten, code, tekst] : gevallen) {
    const Uitkomst uitkomst = Maak(argumenten);
    EXPECT_EQ(uitkomst.code, code) << argumenten;
    EXPECT_NE(uitkomst.uitvoer.find(tekst), std::string::npos) << uitkomst.uitvoer;
  }
  EXPECT_EQ(ReadBytes(dir_ / "notities.txt"), "blijft staan");
  std::string log = ReadBytes(dir_ / "reis met spaties.log");
  std::erase(log, '\r');
  EXPECT_EQ(log, Maak(Quoted(dir_ / "Reis met spaties.KBS")).uitvoer);
  EXPECT_TRUE(log.ends_with("Abnormaal einde.\n"));
}

std::set<std::string> Inhoud(const std::string& map) {
  std::set<std::string> inhoud;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(map)) {
    inhoud.insert(entry.path().string() + " " + (entry.is_regular_file() ? ReadBytes(entry.path()) : ""));
  }
  return inhoud;
}

// Each script of tests/data/controleer against its expected print-out, among
// them the current and the older form (Windows-1252), output directories with
// and without photos, fields read as numbers or colours, more lines than the
// table holds and binary garbage. A case without a script is a missing file
// (exit code 1). bestanden.lijst names the files the scripts find.
TEST_F(KiekbordMaakTest, ControleerPrintsTheRecordAndItsMessagesAndWritesNothing) {
  const std::string map = TestDataDir() + "controleer/";
  std::istringstream bestanden(ReadBytes(map + "bestanden.lijst"));
  for (std::string naam; std::getline(bestanden, naam);) WriteBytes(dir_ / naam, "");
  for (const std::string& verwacht : BestandenIn(map)) {
    if (!verwacht.ends_with(".txt")) continue;
    const std::string naam = verwacht.substr(0, verwacht.size() - 4) + ".kbs";
    SCOPED_TRACE(naam);
    const bool bestaat = std::filesystem::exists(map + naam);
    if (bestaat) WriteBytes(dir_ / naam, VulPlaatshouders(ReadBytes(map + naam), MetMap()));
    const std::set<std::string> voor = Inhoud(dir_.path());
    const Uitkomst uitkomst = Maak("--controleer " + Quoted(dir_ / naam));
    EXPECT_EQ(Inhoud(dir_.path()), voor);
    EXPECT_EQ(uitkomst.code, bestaat ? 0 : 1);
    EXPECT_EQ(uitkomst.uitvoer, VulPlaatshouders(ReadBytes(map + verwacht), MetMap()));
  }
}

}  // namespace
}  // namespace kiekbord::test
