// A run against hostile scripts and other runs: it writes only into the
// output folder it checked, holds that folder alone, clears what dead runs
// left there, and reads a script of any size in bounded memory.
#include <gmock/gmock.h>
#include <sys/resource.h>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>

#include "base/keyed_text_file.h"
#include "tests/robustness/gallery_fixture.h"

namespace kiekbord::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

// Empty, garbage and UTF-16 scripts, and an output folder that is no full
// path: refused in the log, nothing written but the log.
TEST_F(Robuustheid, ScriptsWithoutAUsableOutputFolderWriteNothing) {
  const std::string leeg = "Geen uitvoerdirectory (UitvoerDir) in script " + Script() + "; er wordt niets geschreven.";
  const struct {
    std::string script;
    std::string melding;
  } gevallen[] = {
      {"", leeg},
      {std::string("\x9c\x01\xff\0\0[\xfe=]\x80\n\0kb", 14), leeg},
      {std::string("\xff\xfe[\0A\0l\0g\0e\0m\0e\0e\0n\0]\0\r\0\n\0U\0=\0/\0", 32), leeg},
      {"[Algemeen]\r\nUitvoerDir=uit\r\n", "Uitvoerdirectory 'uit' (UitvoerDir) in script " + Script() +
                                               " is geen volledig pad; er wordt niets geschreven."},
  };
  const Inhoud voor = InhoudVan(dir_.path());
  const Inhoud uit_voor = InhoudVan(Uit());
  for (const auto& geval : gevallen) {
    WriteBytes(Script(), geval.script);
    EXPECT_EQ(Genereer().failed, kMislukt);
    EXPECT_THAT(Staart(2), ElementsAre(geval.melding, "Abnormaal einde."));
    EXPECT_EQ(InhoudVan(Uit()), uit_voor);
    std::filesystem::remove(dir_ / "galerie.log");
    std::filesystem::remove(Script());
    EXPECT_EQ(InhoudVan(dir_.path()), voor);
  }
}

// A photo named outside the output folder is left out, the run goes on;
// a template set named outside the template root refuses the run.
TEST_F(Robuustheid, NamesThatLeaveTheirFoldersAreRefused) {
  WriteBytes(dir_ / "buiten.jpg", fotos_["zee.jpg"]);
  SchrijfScript({"strand.jpg", "../buiten.jpg"});
  EXPECT_EQ(Genereer().failed, kGelukt);
  EXPECT_THAT(log_, Contains("Foto '../buiten.jpg' in [Foto002] overgeslagen: een fotonaam mag geen map bevatten."));
  EXPECT_FALSE(std::filesystem::exists(dir_ / "buiten_tn.jpg"));

  KopieerMap(Programma() + "Sjabloon/Klassiek", Programma() + "elders");
  const Inhoud voor = InhoudVan(Uit());
  for (const std::string& naam : {std::string("../elders"), Programma() + "elders"}) {
    SchrijfScript({}, naam);
    EXPECT_EQ(Genereer().failed, kMislukt);
    EXPECT_THAT(Staart(2), ElementsAre("Sjabloon '" + naam + "' in script " + Script() +
                                           " is geen naam van een sjabloonset; er wordt niets geschreven.",
                                       "Abnormaal einde."));
    EXPECT_EQ(InhoudVan(Uit()), voor);
  }
}

// A real second process holds the output folder: the run, in this process
// and through kiekbord-maak, is turned away and writes nothing, not even a
// log; once that process is killed the system frees the folder.
TEST_F(Robuustheid, OneRunPerOutputFolder) {
  SchrijfScript();
  const std::string bezet = "Uitvoerdirectory " + Uit() +
                            " is bezet: daarin loopt al een andere generatie. Probeer het later opnieuw.";
  // The holder goes with the test, however it ends.
  struct Houder {
    pid_t pid = fork();
    ~Houder() {
      if (pid > 0 && kill(pid, SIGKILL) == 0) waitpid(pid, nullptr, 0);
    }
  };
  int klaar[2];
  ASSERT_EQ(pipe2(klaar, O_CLOEXEC), 0);
  Houder houder;
  ASSERT_GE(houder.pid, 0);
  if (houder.pid == 0) {
    std::unique_ptr<DirectoryLock> slot;
    if (!Fs().LockDirectory(Uit(), slot).ok() || write(klaar[1], "x", 1) != 1) _exit(1);
    pause();
    _exit(0);
  }
  char teken = 0;
  ASSERT_EQ(read(klaar[0], &teken, 1), 1);
  const Inhoud voor = InhoudVan(Uit());

  EXPECT_EQ(Genereer().geweigerd, bezet);
  EXPECT_TRUE(log_.empty());
  const pid_t maak = fork();
  ASSERT_GE(maak, 0);
  if (maak == 0) {
    if (!freopen((dir_ / "fout.txt").c_str(), "w", stderr)) _exit(99);
    const std::string programma = std::string(KIEKBORD_BIN_DIR) + "/kiekbord-maak";
    execl(programma.c_str(), "kiekbord-maak", Script().c_str(), static_cast<char*>(nullptr));
    _exit(98);
  }
  int toestand = 0;
  ASSERT_EQ(waitpid(maak, &toestand, 0), maak);
  EXPECT_TRUE(WIFEXITED(toestand) && WEXITSTATUS(toestand) == 1) << toestand;
  EXPECT_EQ(ReadBytes(dir_ / "fout.txt"), bezet + "\n");
  EXPECT_FALSE(std::filesystem::exists(dir_ / "galerie.log"));
  EXPECT_EQ(InhoudVan(Uit()), voor);

  ASSERT_EQ(kill(houder.pid, SIGKILL), 0);
  ASSERT_EQ(waitpid(houder.pid, &toestand, 0), houder.pid);
  houder.pid = 0;
  const SiteResultaat na = Genereer();
  EXPECT_EQ(na.failed, kGelukt);
  EXPECT_EQ(na.geweigerd, "");
}

// The temporary file of a process that has ended goes; one of a running
// process, and names only like the pattern, stay.
TEST_F(Robuustheid, TemporaryFilesOfDeadRunsAreRemoved) {
  const pid_t dood = fork();
  ASSERT_GE(dood, 0);
  if (dood == 0) _exit(0);
  ASSERT_EQ(waitpid(dood, nullptr, 0), dood);
  const std::string achtergelaten = "kb001.html.kbtmp" + std::to_string(dood) + "-3";
  const std::string levend = "zee.jpg.kbtmp" + std::to_string(getppid()) + "-0";
  for (const std::string& naam : {achtergelaten, levend, std::string("notities.kbtmp12-x")}) {
    WriteBytes(Uit() + naam, "half");
  }
  SchrijfScript();
  EXPECT_EQ(Genereer().failed, kGelukt);
  EXPECT_FALSE(std::filesystem::exists(Uit() + achtergelaten));
  EXPECT_TRUE(std::filesystem::exists(Uit() + levend));
  EXPECT_TRUE(std::filesystem::exists(Uit() + "notities.kbtmp12-x"));
}

// A script with a line of a quarter gigabyte (a sparse file) is read in a
// process that may not grow by more than 64 MB: the long line is cut, the
// lines after it are read.
TEST(ScriptGrootte, MemoryDoesNotFollowTheFileSize) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
  GTEST_SKIP() << "a sanitizer's own mappings do not fit under an address-space limit";
#else
  TempDir dir;
  const std::string pad = dir / "groot.kbs";
  WriteBytes(pad, "[Algemeen]\r\nTitel=");
  std::filesystem::resize_file(pad, std::uintmax_t{256} << 20);
  {
    std::ofstream(pad, std::ios::app) << "\r\nUitvoerDir=/uit\r\n";
  }
  const pid_t kind = fork();
  ASSERT_GE(kind, 0);
  if (kind == 0) {
    long pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    const rlim_t grens = static_cast<rlim_t>(pages * sysconf(_SC_PAGESIZE)) + (rlim_t{64} << 20);
    const rlimit limiet{grens, grens};
    if (setrlimit(RLIMIT_AS, &limiet) != 0) _exit(3);
    LineTable tabel(capaciteit::kScript);
    if (!LeesRegels(pad, tabel, false).ok()) _exit(4);
    const bool goed = LeesWaarde(tabel, "Algemeen", "UitvoerDir", "") == "/uit" &&
                      LeesWaarde(tabel, "Algemeen", "Titel", "").size() == kMaxRegelBytes - 6;
    _exit(goed ? 0 : 5);
  }
  int toestand = 0;
  ASSERT_EQ(waitpid(kind, &toestand, 0), kind);
  EXPECT_TRUE(WIFEXITED(toestand) && WEXITSTATUS(toestand) == 0) << toestand;
#endif
}

}  // namespace
}  // namespace kiekbord::test
