// Runs the built kiekbord-maak program as a user would.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

struct Outcome {
  int exit_code = -1;
  std::string output;  // standard output and standard error together
};

std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

Outcome RunMaak(const std::string& arguments) {
  const std::string command = Quoted(std::string(KIEKBORD_BIN_DIR) + "/kiekbord-maak") + " " + arguments + " 2>&1";
  Outcome outcome;
  FILE* pipe = ::popen(command.c_str(), "r");
  if (pipe == nullptr) return outcome;
  char buffer[4096];
  while (const std::size_t n = std::fread(buffer, 1, sizeof buffer, pipe)) outcome.output.append(buffer, n);
  const int status = ::pclose(pipe);
  outcome.exit_code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return outcome;
}

TEST(KiekbordMaakTest, VersionAndHelp) {
  const Outcome version = RunMaak("--version");
  EXPECT_EQ(version.exit_code, 0);
  EXPECT_EQ(version.output.rfind("Kiekbord 4.1 Pro (revisie ", 0), 0u) << version.output;

  const Outcome help = RunMaak("--help");
  EXPECT_EQ(help.exit_code, 0);
  EXPECT_NE(help.output.find("Gebruik: kiekbord-maak SCRIPT.kbs"), std::string::npos);
}

TEST(KiekbordMaakTest, WrongUsageExitsWithTwo) {
  EXPECT_EQ(RunMaak("").exit_code, 2);
  EXPECT_EQ(RunMaak("a.kbs b.kbs").exit_code, 2);
  EXPECT_EQ(RunMaak("--onbekend").exit_code, 2);
}

TEST(KiekbordMaakTest, RefusesAPathThatIsNoScript) {
  test::TempDir dir;
  test::WriteBytes(dir / "notities.txt", "blijft staan");
  const Outcome outcome = RunMaak(Quoted(dir / "notities.txt"));
  EXPECT_EQ(outcome.exit_code, 2);
  EXPECT_EQ(outcome.output, "Bestand '" + dir / "notities.txt" + "' heeft onjuist type.\n"
                            "Het bestandstype moet '.kbs' zijn.\n");
  EXPECT_EQ(test::ReadBytes(dir / "notities.txt"), "blijft staan");
}

TEST(KiekbordMaakTest, PrintsTheLogAndExitsOneOnAbnormalEnd) {
  test::TempDir dir;
  test::WriteBytes(dir / "Reis met spaties.KBS",
                   "[Algemeen]\r\nUitvoerDir=" + dir / "uit" + "\r\n[Instellingen]\r\nSjabloon=Bestaat niet\r\n");
  const Outcome outcome = RunMaak(Quoted(dir / "Reis met spaties.KBS"));
  EXPECT_EQ(outcome.exit_code, 1);
  EXPECT_EQ(outcome.output.rfind("Aangemaakt met: Kiekbord 4.1 Pro (", 0), 0u);
  EXPECT_NE(outcome.output.find("Bestaat niet/kbtitel.html voor titelpagina niet gevonden.\n"), std::string::npos);
  EXPECT_TRUE(outcome.output.ends_with("Abnormaal einde.\n")) << outcome.output;
  // The printed lines are the log's lines.
  std::string log = test::ReadBytes(dir / "reis met spaties.log");
  std::string unix_log;
  for (const char c : log) if (c != '\r') unix_log += c;
  EXPECT_EQ(unix_log, outcome.output);
}

TEST(KiekbordMaakTest, ExitsZeroAfterANormalEnd) {
  test::TempDir dir;
  std::filesystem::create_directories(dir / "uit");
  test::WriteBytes(dir / "leeg.kbs", "[Algemeen]\r\nUitvoerDir=" + dir / "uit" + "\r\n");
  const Outcome outcome = RunMaak(Quoted(dir / "leeg.kbs"));
  EXPECT_EQ(outcome.exit_code, 0) << outcome.output;
  EXPECT_TRUE(outcome.output.ends_with("Normaal einde.\n")) << outcome.output;
}

TEST(KiekbordMaakTest, UnexpectedFailureIsPrintedAndExitsOne) {
  test::TempDir dir;
  const Outcome outcome = RunMaak(Quoted(dir / "geen-map/reis.kbs"));
  EXPECT_EQ(outcome.exit_code, 1);
  EXPECT_NE(outcome.output.find("Onverwachte fout 53 (File not found)"), std::string::npos) << outcome.output;
}

}  // namespace
}  // namespace kiekbord
