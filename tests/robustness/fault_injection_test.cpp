// Faults under a whole generation run, one scenario a line of
// tests/data/robuustheid/storingen.txt: a full disk or a refused write at
// each write of the run, a real disk that fills up in the middle of a file,
// a read-only output folder, a template folder or a photo that vanishes.
// Each ends with the run's own log lines and end line (or as an unexpected
// failure), and never leaves a half-written file where a complete one was,
// nor touches a photo or the script.
#include <signal.h>
#include <sys/resource.h>

#include "tests/robustness/gallery_fixture.h"
#include "tests/support/fault_fs.h"

namespace kiekbord::test {
namespace {

using ::testing::ElementsAreArray;

class Storingen : public Robuustheid, public ::testing::WithParamInterface<std::vector<std::string>> {};

TEST_P(Storingen, EndAsDocumentedAndLeaveNoHalfFile) {
  const std::vector<std::string>& s = GetParam();
  const std::vector<std::string> staart(s.begin() + 8, std::find(s.begin() + 8, s.end(), ""));
  // Before the faulty run every file of the site is there and complete, and
  // every write of the run replaces one: no list of thumbnails (all are made
  // again), no icon yet, asset copies of another time. Without "GDIplus.txt"
  // the pixel-buffer library makes the thumbnails.
  if (s[6] == "IJL") std::filesystem::remove(Programma() + "GDIplus.txt");
  SchrijfScript();
  ASSERT_EQ(Genereer().failed, kGelukt);
  for (const char* weg : {"kb_tn.txt", "kbicon.gif"}) std::filesystem::remove(Uit() + weg);
  for (const char* asset : {"kbhoeken.gif", "kbsier.gif", "kbdia.js"}) ASSERT_TRUE(Fs().SetModificationTime(Uit() + asset, 0).ok());
  const Inhoud voor = InhoudVan(Uit());
  const std::string script = ReadBytes(Script());
  // A real disk filling up is a limit on the size of every file the process
  // writes: permissions would not stop the root user the tests may run as.
  rlimit oud{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &oud), 0);
  rlimit grens = oud;
  if (s[1] == "grens") grens.rlim_cur = std::stoul(s[3]);
  const auto oude_handler = signal(SIGXFSZ, SIG_IGN);
  SiteResultaat uitslag;
  {
    FoutenSchijf schijf;
    using enum FoutenSchijf::Soort;
    const std::map<std::string, unsigned> soorten = {
        {"schrijven", kSchrijven | kLog | kVerwijderen}, {"lezen", kLezen | kLijst}, {"weg", kLezen | kInfo}, {"grens", 0}};
    schijf.Faal(soorten.at(s[1]), s[2], std::stoi(s[4]), std::stoi(s[3]));
    const ScopedFileSystem scoped(schijf);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &grens), 0);
    uitslag = Genereer();
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &oud), 0);
  }
  signal(SIGXFSZ, oude_handler);
  EXPECT_THAT(Staart(staart.size()), ElementsAreArray(staart));
  EXPECT_EQ(uitslag.failed, staart.empty() || staart.back() != "Normaal einde." ? kMislukt : kGelukt);
  EXPECT_EQ(uitslag.onverwacht ? uitslag.onverwacht->number() : 0, std::stoi(s[5]));
  EXPECT_EQ(meldingen_.empty() ? "" : meldingen_.front(), s[7]);

  // Every file is as it was or as a run without the fault writes it; only
  // old pages, which every run deletes first, may be gone.
  const Inhoud na = InhoudVan(Uit());
  ASSERT_EQ(Genereer().failed, kGelukt) << "a run without the fault completes the site";
  const Inhoud goed = InhoudVan(Uit());
  for (const auto& [naam, bytes] : na) {
    EXPECT_TRUE(voor.contains(naam) ? voor.at(naam) == bytes : goed.contains(naam) && goed.at(naam) == bytes)
        << naam << " is half or strange";
  }
  for (const auto& [naam, bytes] : voor) EXPECT_TRUE(na.contains(naam) || naam.ends_with(".html")) << naam;
  EXPECT_EQ(ReadBytes(Script()), script);
}

INSTANTIATE_TEST_SUITE_P(Robuustheid, Storingen, ::testing::ValuesIn(Tabel("robuustheid/storingen")),
                         [](const auto& info) { return info.param[0]; });

}  // namespace
}  // namespace kiekbord::test
