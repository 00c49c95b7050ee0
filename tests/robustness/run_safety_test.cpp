// A run against hostile scripts and other runs: it writes only into the
// output folder it checked, holds that folder alone, clears what dead runs
// left there, and reads a script of any size in bounded memory.
#include <sys/resource.h>

#include <fstream>

#include "base/keyed_text_file.h"
#include "base/text_helpers.h"
#include "tests/robustness/gallery_fixture.h"

namespace kiekbord::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

// Empty, garbage and UTF-16 scripts, an output folder that is no full path
// or the template folder, and template sets named outside the template
// root, one a row of
// tests/data/robuustheid/weigeringen.txt: refused in the log, nothing
// written but the log.
TEST_F(Robuustheid, ScriptsWithoutAUsableFolderWriteNothing) {
  KopieerMap(Programma() + "Sjabloon/Klassiek", Programma() + "elders");
  const auto met_paden = [this](const std::string& tekst) {
    return Vervang(Vervang(Vervang(tekst, "@script", Script()), "@uit/", Uit()), "@programma/", Programma());
  };
  const auto inhoud = [this] {
    return std::vector{InhoudVan(dir_.path()), InhoudVan(Uit()), InhoudVan(Programma() + "Sjabloon/Klassiek/")};
  };
  const auto voor = inhoud();
  for (const auto& rij : Tabel("robuustheid/weigeringen")) {
    SCOPED_TRACE(rij[0]);
    WriteBytes(Script(), met_paden(ReadBytes(TestDataDir() + "robuustheid/weigeringen/" + rij[0])));
    EXPECT_EQ(Genereer().failed, kMislukt);
    EXPECT_THAT(Staart(2), ElementsAre(met_paden(rij[1]), "Abnormaal einde."));
    for (const char* weg : {"galerie.log", "galerie.kbs"}) std::filesystem::remove(dir_ / weg);
    EXPECT_EQ(inhoud(), voor);
  }
}

// A photo named outside the output folder is left out; the run goes on.
TEST_F(Robuustheid, PhotoNamesThatLeaveTheOutputFolderAreLeftOut) {
  WriteBytes(dir_ / "buiten.jpg", fotos_["zee.jpg"]);
  SchrijfScript({.namen = {"strand.jpg", "../buiten.jpg"}});
  EXPECT_EQ(Genereer().failed, kGelukt);
  EXPECT_THAT(log_, Contains("Foto '../buiten.jpg' in [Foto002] overgeslagen: een fotonaam mag geen map bevatten."));
  EXPECT_FALSE(std::filesystem::exists(dir_ / "buiten_tn.jpg"));
}

// With the output folder held, a run in this process and one through
// kiekbord-maak, a real second process, are turned away and write nothing,
// not even a log. A process that ends holding the folder frees it.
TEST_F(Robuustheid, OneRunPerOutputFolder) {
  SchrijfScript();
  const std::string bezet = "Uitvoerdirectory " + Uit() +
                            " is bezet: daarin loopt al een andere generatie. Probeer het later opnieuw.";
  std::unique_ptr<DirectoryLock> slot;
  ASSERT_TRUE(Fs().LockDirectory(Uit(), slot).ok());
  const Inhoud voor = InhoudVan(Uit());
  EXPECT_EQ(Genereer().geweigerd, bezet);
  EXPECT_TRUE(log_.empty());
  EXPECT_EQ(KiekbordMaak(dir_.path(), Script(), dir_ / "fout.txt"), 1);
  EXPECT_EQ(ReadBytes(dir_ / "fout.txt"), bezet + "\n");
  EXPECT_FALSE(std::filesystem::exists(dir_ / "galerie.log"));
  EXPECT_EQ(InhoudVan(Uit()), voor);

  slot.reset();
  EXPECT_EQ(InKind([&] { return Fs().LockDirectory(Uit(), slot).ok() ? 0 : 1; }), 0) << "the child ends holding it";
  EXPECT_EQ(Genereer().failed, kGelukt);
}

// The temporary file of a process that has ended goes; one of a running
// process, and names only like the pattern, stay.
TEST_F(Robuustheid, TemporaryFilesOfDeadRunsAreRemoved) {
  const pid_t dood = fork();
  if (dood == 0) _exit(0);
  ASSERT_EQ(waitpid(dood, nullptr, 0), dood);
  const std::string achtergelaten = "kb001.html.kbtmp" + std::to_string(dood) + "-3";
  const std::string levend = "zee.jpg.kbtmp" + std::to_string(getppid()) + "-0";
  for (const std::string& naam : {achtergelaten, levend, std::string("notities.kbtmp12-x")}) WriteBytes(Uit() + naam, "half");
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
  std::ofstream(pad, std::ios::app) << "\r\nUitvoerDir=/uit\r\n";
  EXPECT_EQ(InKind([&] {
    long pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    const rlim_t grens = static_cast<rlim_t>(pages * sysconf(_SC_PAGESIZE)) + (rlim_t{64} << 20);
    const rlimit limiet{grens, grens};
    if (setrlimit(RLIMIT_AS, &limiet) != 0) return 3;
    LineTable tabel(capaciteit::kScript);
    if (!LeesRegels(pad, tabel, false).ok()) return 4;
    const bool goed = LeesWaarde(tabel, "Algemeen", "UitvoerDir", "") == "/uit" &&
                      LeesWaarde(tabel, "Algemeen", "Titel", "").size() == kMaxRegelBytes - 6;
    return goed ? 0 : 5;
  }), 0);
#endif
}

}  // namespace
}  // namespace kiekbord::test
