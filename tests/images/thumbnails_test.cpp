#include "images/thumbnails.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <iterator>
#include <map>
#include <mutex>
#include <optional>

#include "base/file_system.h"
#include "base/keyed_text_file.h"
#include "base/text.h"
#include "generator/site_run.h"
#include "base/text_helpers.h"
#include "images/library_choice.h"
#include "tests/images/image_test_support.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using Regels = std::vector<std::string>;

std::int64_t Tijd(int jaar, int maand, int dag, int uur, int minuut, int seconde) {
  std::tm tm{};
  tm.tm_year = jaar - 1900;
  tm.tm_mon = maand - 1;
  tm.tm_mday = dag;
  tm.tm_hour = uur;
  tm.tm_min = minuut;
  tm.tm_sec = seconde;
  return static_cast<std::int64_t>(::timegm(&tm)) * 1000000000;
}

const std::int64_t kAugustus = Tijd(2026, 8, 3, 9, 12, 3);

// The "datumtijd" texts in these tests are those of UTC.
class UtcZone {
 public:
  UtcZone() {
    if (const char* tz = std::getenv("TZ")) oud_ = tz;
    ::setenv("TZ", "UTC", 1);
    ::tzset();
  }
  ~UtcZone() {
    oud_ ? ::setenv("TZ", oud_->c_str(), 1) : ::unsetenv("TZ");
    ::tzset();
  }

 private:
  std::optional<std::string> oud_;
};

TEST(ThumbnailNamen, PathBaseNameExtensionAndDateTimeText) {
  EXPECT_EQ(ThumbnailPad("/foto/foto01.jpg"), "/foto/foto01_tn.jpg");
  EXPECT_EQ(ThumbnailPad("/foto.jpg/a.jpg"), "/foto_tn.jpg/a_tn.jpg");
  EXPECT_EQ(ThumbnailPad("/foto/A.JPG"), "/foto/A.JPG");
  EXPECT_EQ(BasisNaam("/foto/Vakantie.2.jpg"), "vakantie");
  EXPECT_EQ(BasisNaam("/f.d/zonder"), "zonder");
  EXPECT_EQ(BasisNaam("/f/ÉTÉ.jpg"), "été");
  EXPECT_EQ(Extensie("/foto/a.b.JPG"), ".jpg");
  EXPECT_EQ(Extensie("/f.d/zonder"), ".d/zonder");
  EXPECT_EQ(Extensie("zonder"), "");
  const UtcZone utc;
  EXPECT_EQ(DatumTijdTekst(kAugustus), "3-8-2026 9:12:03");
  EXPECT_EQ(DatumTijdTekst(Tijd(2026, 11, 15, 17, 40, 45) + 999999999), "15-11-2026 17:40:45");
  EXPECT_EQ(DatumTijdTekst(Tijd(2001, 1, 1, 0, 0, 0)), "1-1-2001 0:00:00");
}

std::string Png() { return std::string("\x89PNG\r\n\x1a\n", 8) + std::string(200, '\0'); }

class ThumbnailRun : public ::testing::Test {
 protected:
  ThumbnailRun() { test::WriteBytes(met_marker_ / "GDIplus.txt", ""); }

  std::string Dir() const { return fotos_.path(); }

  void Foto(const std::string& naam, const std::string& jpeg, std::int64_t tijd = kAugustus) {
    test::WriteBytes(fotos_ / naam, jpeg);
    ASSERT_TRUE(Fs().SetModificationTime(fotos_ / naam, tijd).ok());
  }

  // One run in `dir`; the log's lines go to regels_, the progress to
  // voortgang_. True when the run failed.
  bool Run(const Regels& namen, ImageLibrary library = ImageLibrary::kGdiPlus, int gelijktijdig = 0,
           const std::string& dir = "") {
    voortgang_.clear();
    const test::LogOpname log(log_dir_ / "run.log");
    const ThumbnailOpties opties{library == ImageLibrary::kGdiPlus ? met_marker_.path() : zonder_marker_.path(),
                                 gelijktijdig, [this](int gedaan, int totaal) { voortgang_.emplace_back(gedaan, totaal); }};
    const bool fout = MaakThumbnails(dir.empty() ? Dir() : dir, static_cast<int>(namen.size()), namen, opties, log.log(),
                                     meldingen_);
    regels_ = log.regels();
    return fout;
  }

  // The opening lines of a run, then `meer`.
  Regels Log(const Regels& meer, ImageLibrary library = ImageLibrary::kGdiPlus) const {
    Regels log = {"Start aanmaken thumbnails ...", "(Windows " + BepaalOsNaam() + " gedetecteerd.)"};
    if (library == ImageLibrary::kGdiPlus) {
      log.insert(log.end(), {"(Bestand GDIplus.txt gedetecteerd.)", "Imagelibrary GDIplus wordt gebruikt."});
    } else {
      log.push_back("Imagelibrary IJL11 wordt gebruikt.");
    }
    log.insert(log.end(), meer.begin(), meer.end());
    return log;
  }

  std::string Aanmaken(const std::string& thumb, const char* bibliotheek = "GDI") const {
    return std::string("Aanmaken (") + bibliotheek + ") thumbnail " + Dir() + thumb + "...";
  }
  std::string Lijst() const { return Dir() + "kb_tn.txt"; }
  Regels Gelezen() const { return {"(Bestand " + Lijst() + " gedetecteerd.)", "Bestand " + Lijst() + " inlezen."}; }
  std::string Geschreven() const { return "Bestand " + Lijst() + " geschreven."; }
  static std::string Aantal(int n) { return std::to_string(n) + " Thumbnails (opnieuw) aangemaakt."; }

  static std::string Sectie(const std::string& naam, const std::string& tijd, std::size_t grootte) {
    return "[" + naam + "]\r\ndatumtijd=" + tijd + "\r\ngrootte=" + std::to_string(grootte) + "\r\n";
  }

  Regels Plus(Regels a, const Regels& b) const {
    a.insert(a.end(), b.begin(), b.end());
    return a;
  }

  const UtcZone utc_;
  test::TempDir fotos_;
  test::TempDir log_dir_;
  test::TempDir met_marker_;
  test::TempDir zonder_marker_;
  test::MeldingOpname meldingen_;
  Regels regels_;
  std::vector<std::pair<int, int>> voortgang_;
};

TEST_F(ThumbnailRun, FirstRunMakesEveryThumbnailAndTheList) {
  const std::string a = test::EffenJpeg(400, 300);
  const std::string b = test::EffenJpeg(300, 400, {1, 2, 3}, {.progressief = true});
  Foto("a.jpg", a);
  Foto("b.jpg", b, Tijd(2026, 11, 15, 17, 40, 45));
  EXPECT_FALSE(Run({"a.jpg", "b.jpg"}));
  EXPECT_EQ(regels_, Log({Aanmaken("a_tn.jpg"), Aanmaken("b_tn.jpg"), Aantal(2), Geschreven()}));
  EXPECT_EQ(test::ReadBytes(Lijst()),
            Sectie("a", "3-8-2026 9:12:03", a.size()) + Sectie("b", "15-11-2026 17:40:45", b.size()));
  EXPECT_EQ(test::LeesJpeg(test::ReadBytes(fotos_ / "a_tn.jpg")).breedte, 133);
  EXPECT_EQ(test::LeesJpeg(test::ReadBytes(fotos_ / "b_tn.jpg")).hoogte, 133);
  // Progress only goes up, to the end; side by side two steps may be told as one.
  EXPECT_TRUE(std::is_sorted(voortgang_.begin(), voortgang_.end()));
  EXPECT_EQ(voortgang_.back(), std::pair(2, 2));
  EXPECT_TRUE(meldingen_.meldingen.empty());
}

TEST_F(ThumbnailRun, OnlyMissingThumbnailsAndChangedPhotosAreRebuilt) {
  const std::string c = test::EffenJpeg(100, 100);
  Foto("a.jpg", test::EffenJpeg(400, 300));
  Foto("b.jpg", test::EffenJpeg(300, 400));
  Foto("c.jpg", c);
  ASSERT_FALSE(Run({"a.jpg", "b.jpg", "c.jpg"}));
  const std::string lijst = test::ReadBytes(Lijst());
  // Thumbnails replaced by markers: a rebuilt one would show.
  test::WriteBytes(fotos_ / "a_tn.jpg", "oud");
  test::WriteBytes(fotos_ / "c_tn.jpg", "oud");

  EXPECT_FALSE(Run({"a.jpg", "b.jpg", "c.jpg"}));
  EXPECT_EQ(regels_, Log(Plus(Gelezen(), {Aantal(0), Geschreven()})));
  EXPECT_EQ(test::ReadBytes(Lijst()), lijst);
  EXPECT_EQ(test::ReadBytes(fotos_ / "a_tn.jpg"), "oud");

  ASSERT_TRUE(Fs().DeleteFile(fotos_ / "b_tn.jpg").ok());
  EXPECT_FALSE(Run({"a.jpg", "b.jpg", "c.jpg"}));
  EXPECT_EQ(regels_, Log(Plus(Gelezen(), {Aanmaken("b_tn.jpg"), Aantal(1), Geschreven()})));

  // A new time with the same size is a change.
  ASSERT_TRUE(Fs().SetModificationTime(fotos_ / "c.jpg", Tijd(2027, 1, 2, 3, 4, 5)).ok());
  EXPECT_FALSE(Run({"a.jpg", "b.jpg", "c.jpg"}));
  EXPECT_EQ(regels_, Log(Plus(Gelezen(), {Aanmaken("c_tn.jpg"), Aantal(1), Geschreven()})));
  EXPECT_THAT(test::ReadBytes(Lijst()), ::testing::EndsWith(Sectie("c", "2-1-2027 3:04:05", c.size())));
  EXPECT_NE(test::ReadBytes(fotos_ / "c_tn.jpg"), "oud");
}

TEST_F(ThumbnailRun, ThumbnailsAndOtherExtensionsAreSkippedAndEachPhotoIsMadeOnce) {
  Foto("Vakantie.2.jpg", test::EffenJpeg(60, 40));
  Foto("abc_tn.jpg", test::EffenJpeg(60, 40));
  Foto("x.jpeg", test::EffenJpeg(60, 40));
  // Names that are skipped need not even exist.
  EXPECT_FALSE(Run({"abc_tn.jpg", "x.jpeg", "weg_tn.jpg", "geen", "Vakantie.2.jpg", "y.png", "Vakantie.2.jpg"}));
  EXPECT_EQ(regels_, Log({Aanmaken("Vakantie.2_tn.jpg"), Aantal(1), Geschreven()}));
  EXPECT_THAT(test::ReadBytes(Lijst()), ::testing::StartsWith("[vakantie]\r\n"));
  EXPECT_FALSE(Fs().FileExists(fotos_ / "abc_tn_tn.jpg"));
  EXPECT_FALSE(Fs().FileExists(fotos_ / "x_tn.jpeg"));
  EXPECT_EQ(voortgang_.back(), std::pair(7, 7));
}

TEST_F(ThumbnailRun, PhotosSharingABaseNameOverwriteEachOthersEntry) {
  const std::string zee2 = test::EffenJpeg(300, 200, {9, 9, 9});
  Foto("zee.1.jpg", test::EffenJpeg(200, 300));
  Foto("zee.2.jpg", zee2);
  for (int run = 0; run < 3; ++run) {
    EXPECT_FALSE(Run({"zee.1.jpg", "zee.2.jpg"}));
    EXPECT_THAT(regels_, Contains(Aantal(2)));
  }
  EXPECT_EQ(test::ReadBytes(Lijst()), Sectie("zee", "3-8-2026 9:12:03", zee2.size()));
}

TEST_F(ThumbnailRun, EmptyPhotoListWritesTheListAndKeepsOldSections) {
  EXPECT_FALSE(Run({}));
  EXPECT_EQ(regels_, Log({Aantal(0), Geschreven()}));
  EXPECT_EQ(test::ReadBytes(Lijst()), "");
  EXPECT_TRUE(voortgang_.empty());

  test::WriteBytes(Lijst(), "[oud]\r\ndatumtijd=1-1-2001 0:00:00\r\ngrootte=1\r\n");
  EXPECT_FALSE(Run({}));
  EXPECT_EQ(regels_, Log(Plus(Gelezen(), {Aantal(0), Geschreven()})));
  EXPECT_EQ(test::ReadBytes(Lijst()), "[oud]\r\ndatumtijd=1-1-2001 0:00:00\r\ngrootte=1\r\n");
}

Regels Namen(int aantal) {
  Regels namen;
  char naam[16];
  for (int i = 1; i <= aantal; ++i) {
    std::snprintf(naam, sizeof naam, "p%03d.jpg", i);
    namen.emplace_back(naam);
  }
  return namen;
}

TEST_F(ThumbnailRun, ListHoldsAtMost333Photos) {
  const std::string klein = test::EffenJpeg(16, 16);
  for (const std::string& naam : Namen(334)) Foto(naam, klein);
  for (const int gelijktijdig : {1, 0}) {
    EXPECT_FALSE(Run(Namen(333), ImageLibrary::kGdiPlus, gelijktijdig));
    EXPECT_EQ(regels_.end()[-2], Aantal(333));
    LineTable lijst(capaciteit::kThumbnailList);
    ASSERT_TRUE(LeesRegels(Lijst(), lijst, false).ok());
    EXPECT_EQ(lijst.Count(), 999);

    ASSERT_TRUE(Fs().DeleteFile(Lijst()).ok());
    const std::string voor = test::ReadBytes(fotos_ / "p333_tn.jpg");
    EXPECT_TRUE(Run(Namen(334), ImageLibrary::kGdiPlus, gelijktijdig));
    ASSERT_GE(regels_.size(), 2u);
    EXPECT_EQ(regels_.end()[-2], Aanmaken("p334_tn.jpg"));
    EXPECT_EQ(regels_.back(), "Error: Subscript out of range");
    EXPECT_EQ(std::count_if(regels_.begin(), regels_.end(), [](const std::string& r) { return r.starts_with("Aanm"); }),
              334);
    EXPECT_FALSE(Fs().FileExists(Lijst())) << "the list is not written after a failure";
    EXPECT_TRUE(Fs().FileExists(fotos_ / "p334_tn.jpg")) << "thumbnails made stay";
    EXPECT_EQ(test::ReadBytes(fotos_ / "p333_tn.jpg"), voor);
    ASSERT_TRUE(Fs().DeleteFile(fotos_ / "p334_tn.jpg").ok());
  }
}

TEST_F(ThumbnailRun, AFailingPhotoEndsTheRunWithTheSmoothLibrary) {
  Foto("a.jpg", test::EffenJpeg(400, 300));
  Foto("b.jpg", Png());
  Foto("c.jpg", test::EffenJpeg(400, 300));
  const std::string fout = "De foto " + fotos_ / "b.jpg" + " is geen JPEG-bestand.";
  for (const int gelijktijdig : {1, 0}) {
    EXPECT_TRUE(Run({"a.jpg", "b.jpg", "c.jpg"}, ImageLibrary::kGdiPlus, gelijktijdig));
    EXPECT_EQ(regels_, Log({Aanmaken("a_tn.jpg"), "Error: " + fout, "Error: " + fout}));
    EXPECT_FALSE(Fs().FileExists(fotos_ / "c_tn.jpg"));
    EXPECT_FALSE(Fs().FileExists(Lijst()));
    ASSERT_TRUE(Fs().DeleteFile(fotos_ / "a_tn.jpg").ok());
    EXPECT_EQ(meldingen_.meldingen.back(), "Fout 26002 tijdens aanmaken GDI thumbnail.\n(" + fout + ")");
  }
  // A missing photo ends a run with either library.
  for (const int gelijktijdig : {1, 0}) {
    EXPECT_TRUE(Run({"a.jpg", "weg.jpg", "c.jpg"}, ImageLibrary::kIjl11, gelijktijdig));
    EXPECT_EQ(regels_, Log({Aanmaken("a_tn.jpg", "IJL"), "Error: File not found"}, ImageLibrary::kIjl11));
    EXPECT_FALSE(Fs().FileExists(fotos_ / "c_tn.jpg"));
  }
}

TEST_F(ThumbnailRun, ACorruptPhotoIsReportedAndRecordedWithThePixelLibrary) {
  const std::string b = Png();
  Foto("a.jpg", test::EffenJpeg(400, 300));
  Foto("b.jpg", b);
  Foto("c.jpg", test::EffenJpeg(400, 300));
  EXPECT_FALSE(Run({"a.jpg", "b.jpg", "c.jpg"}, ImageLibrary::kIjl11));
  const std::string fout = "De foto " + fotos_ / "b.jpg" + " is geen JPEG-bestand.";
  EXPECT_EQ(regels_, Log({Aanmaken("a_tn.jpg", "IJL"), fout, Aanmaken("c_tn.jpg", "IJL"), Aantal(3), Geschreven()},
                         ImageLibrary::kIjl11));
  EXPECT_THAT(meldingen_.meldingen, ElementsAre("Fout 26002 tijdens aanmaken IJL thumbnail.(" + fout + ")"));
  EXPECT_THAT(test::ReadBytes(Lijst()), ::testing::HasSubstr(Sectie("b", "3-8-2026 9:12:03", b.size())));
  // Tried again only because its thumbnail is missing.
  EXPECT_FALSE(Run({"a.jpg", "b.jpg", "c.jpg"}, ImageLibrary::kIjl11));
  EXPECT_THAT(regels_, Contains(Aantal(1)));
}

// Breaks the reading or writing of the real disk's files whose paths end in
// the given text.
class Storing : public ForwardingFileSystem {
 public:
  Storing() : ForwardingFileSystem(LocalFileSystem()) {}
  Status ReadFile(const std::string& path, std::string& contents, std::int64_t max_bytes) override {
    if (EndsWith(path, lees_fout)) return Status::Error(fout::kPermissionDenied);
    return ForwardingFileSystem::ReadFile(path, contents, max_bytes);
  }
  Status WriteFile(const std::string& path, std::string_view contents) override {
    if (EndsWith(path, schrijf_fout)) return Status::Error(fout::kDiskFull);
    return ForwardingFileSystem::WriteFile(path, contents);
  }
  std::string lees_fout = "\x01";
  std::string schrijf_fout = "\x01";
};

TEST_F(ThumbnailRun, FileFailuresEndTheRun) {
  Foto("a.jpg", test::EffenJpeg(400, 300));
  Foto("b.jpg", test::EffenJpeg(400, 300));
  Storing storing;
  const ScopedFileSystem scoped(storing);

  storing.schrijf_fout = "kb_tn.txt";
  EXPECT_TRUE(Run({"a.jpg", "b.jpg"}));
  EXPECT_EQ(regels_, Log({Aanmaken("a_tn.jpg"), Aanmaken("b_tn.jpg"), Aantal(2), "Error: Disk full"}));

  storing.schrijf_fout = "b_tn.jpg";
  EXPECT_TRUE(Run({"a.jpg", "b.jpg"}));
  EXPECT_EQ(regels_, Log({Aanmaken("a_tn.jpg"), Aanmaken("b_tn.jpg"), "Error: Disk full", "Error: Disk full"}));
  EXPECT_EQ(meldingen_.meldingen.back(), "Fout 61 tijdens aanmaken GDI thumbnail.\n(Disk full)");

  storing.schrijf_fout = "\x01";
  ASSERT_FALSE(Run({"a.jpg", "b.jpg"}));
  storing.lees_fout = "kb_tn.txt";
  EXPECT_TRUE(Run({"a.jpg", "b.jpg"}));
  EXPECT_EQ(regels_, Log({Gelezen()[0], "Error: Permission denied"}));

  storing.lees_fout = "b.jpg";
  ASSERT_TRUE(Fs().DeleteFile(Lijst()).ok());
  EXPECT_FALSE(Run({"a.jpg", "b.jpg"}, ImageLibrary::kIjl11));
  EXPECT_EQ(regels_, Log({Aanmaken("a_tn.jpg", "IJL"), "Permission denied", Aantal(2), Geschreven()},
                         ImageLibrary::kIjl11));
}

// Every file of a folder with its bytes.
std::map<std::string, std::string> Inhoud(const std::string& dir) {
  std::map<std::string, std::string> inhoud;
  for (const auto& entry : std::filesystem::directory_iterator(dir)) {
    inhoud[entry.path().filename().string()] = test::ReadBytes(entry.path().string());
  }
  return inhoud;
}

// Photos made side by side give the same log, result, messages and files as
// one by one, also when a photo fails.
TEST_F(ThumbnailRun, OnAllCoresTheSameLogAndFilesAsOneByOne) {
  int i = 0;
  for (const auto& [breedte, hoogte] : {std::pair{4000, 3000}, {301, 200}, {753, 100}, {100, 80}, {2560, 1600},
                                        {1600, 2560}, {150, 150}, {640, 480}}) {
    ++i;
    Foto("f" + std::to_string(i) + ".jpg",
         test::EffenJpeg(breedte, hoogte, {30 * i, 255 - 20 * i, 7 * i}, {.progressief = i % 3 == 0}),
         Tijd(2026, 8, i, 9, 12, 3));
  }
  Foto("zee.1.jpg", test::EffenJpeg(200, 300));
  Foto("zee.2.jpg", test::EffenJpeg(300, 200, {1, 2, 3}));
  std::string half = test::EffenJpeg(640, 480, {0, 90, 0});
  half.resize(half.size() / 2);
  Foto("half.jpg", half);
  Foto("kapot.jpg", Png());
  // The same gallery in a second folder, photo times included.
  test::TempDir kopie;
  for (const auto& [naam, bytes] : Inhoud(Dir())) {
    test::WriteBytes(kopie / naam, bytes);
    FileInfo info;
    ASSERT_TRUE(Fs().GetFileInfo(fotos_ / naam, info).ok());
    ASSERT_TRUE(Fs().SetModificationTime(kopie / naam, info.modified_ns).ok());
  }
  const auto vergelijk = [&](const Regels& namen, ImageLibrary library) {
    meldingen_.meldingen.clear();
    const bool fout_een = Run(namen, library, 1);
    const Regels log_een = regels_;
    const Regels meldingen_een = meldingen_.meldingen;
    meldingen_.meldingen.clear();
    EXPECT_EQ(Run(namen, library, 4, kopie.path()), fout_een);
    for (std::string& regel : regels_) regel = Vervang(regel, kopie.path(), Dir());
    for (std::string& melding : meldingen_.meldingen) melding = Vervang(melding, kopie.path(), Dir());
    EXPECT_EQ(regels_, log_een);
    EXPECT_EQ(meldingen_.meldingen, meldingen_een);
    EXPECT_EQ(Inhoud(kopie.path()), Inhoud(Dir()));
  };
  Regels namen = {"f1.jpg", "zee.1.jpg", "f2.jpg", "f2.jpg", "f3.jpg", "abc_tn.jpg", "f4.jpg", "half.jpg",
                  "zee.2.jpg", "f5.jpg", "x.jpeg", "kapot.jpg", "f6.jpg", "f7.jpg", "f1.jpg", "f8.jpg"};
  vergelijk(namen, ImageLibrary::kGdiPlus);
  EXPECT_FALSE(Fs().FileExists(kopie / "f6_tn.jpg")) << "nothing after the failing photo is made";
  vergelijk(namen, ImageLibrary::kIjl11);
  vergelijk(namen, ImageLibrary::kIjl11);
  namen.erase(namen.begin() + 11);
  vergelijk(namen, ImageLibrary::kGdiPlus);
  // Next run: one thumbnail gone, one photo touched, and the two photos that
  // share a section.
  for (const std::string& dir : {Dir(), kopie.path()}) {
    ASSERT_TRUE(Fs().DeleteFile(dir + "f3_tn.jpg").ok());
    ASSERT_TRUE(Fs().SetModificationTime(dir + "f7.jpg", Tijd(2027, 1, 1, 1, 1, 1)).ok());
  }
  vergelijk(namen, ImageLibrary::kGdiPlus);
  EXPECT_THAT(regels_, Contains(Aantal(4)));
}

TEST_F(ThumbnailRun, IsTheGenerationsThumbnailStep) {
  Foto("a.jpg", test::EffenJpeg(400, 300));
  Foto("b.jpg", Png());
  ProgramSettings settings;
  settings.program_dir = met_marker_.path();
  SiteGegevens gegevens;
  gegevens.uitvoer_dir = Dir();
  gegevens.foto_namen = {"a.jpg"};
  std::vector<int> voortgang;
  const test::LogOpname log(log_dir_ / "run.log");
  SiteRun run{settings, gegevens, log.log(), meldingen_, NavigatieTeksten{}, kGelukt,
              [&](int gedaan, int) { voortgang.push_back(gedaan); }};
  const SiteSteps steps = StandaardStappen();
  ASSERT_TRUE(steps.thumbnails);
  steps.thumbnails(run);
  EXPECT_EQ(run.failed, kGelukt);
  EXPECT_TRUE(Fs().FileExists(fotos_ / "a_tn.jpg"));
  EXPECT_THAT(voortgang, ElementsAre(1));
  gegevens.foto_namen = {"a.jpg", "b.jpg"};
  steps.thumbnails(run);
  EXPECT_EQ(run.failed, kMislukt);
}

// The process's open file descriptors, the one that lists them included.
int OpenDescriptors() {
  std::filesystem::directory_iterator entries("/proc/self/fd");
  return static_cast<int>(std::distance(begin(entries), end(entries)));
}

// Notes the most descriptors open at any read or write of a photo, a
// thumbnail or the list, made on any thread while the others work.
class DescriptorTeller : public ForwardingFileSystem {
 public:
  DescriptorTeller() : ForwardingFileSystem(LocalFileSystem()) {}
  Status ReadFile(const std::string& path, std::string& contents, std::int64_t max_bytes) override {
    Tel();
    return ForwardingFileSystem::ReadFile(path, contents, max_bytes);
  }
  Status WriteFile(const std::string& path, std::string_view contents) override {
    Tel();
    return ForwardingFileSystem::WriteFile(path, contents);
  }
  int Hoogste() {
    std::lock_guard lock(mutex_);
    return hoogste_;
  }

 private:
  void Tel() {
    const int open = OpenDescriptors();
    std::lock_guard lock(mutex_);
    hoogste_ = std::max(hoogste_, open);
  }
  std::mutex mutex_;
  int hoogste_ = 0;
};

TEST_F(ThumbnailRun, ManyPhotosLeaveNoFileOpenAndHoldFewAtOnce) {
  const std::string foto = test::EffenJpeg(320, 240);
  for (const std::string& naam : Namen(150)) Foto(naam, foto);
  // libvips keeps descriptors of its own from its start on.
  ASSERT_FALSE(Run(Namen(1), ImageLibrary::kGdiPlus, 4));
  const int voor = OpenDescriptors();
  DescriptorTeller teller;
  {
    const ScopedFileSystem scoped(teller);
    EXPECT_FALSE(Run(Namen(150), ImageLibrary::kGdiPlus, 4));
  }
  EXPECT_EQ(OpenDescriptors(), voor);
  EXPECT_GT(teller.Hoogste(), voor) << "the log is open during the run";
  // `voor` counts its own listing; during the run come the log and at most
  // one descriptor, a file or a listing, on each of the four workers and on
  // this thread.
  EXPECT_LE(teller.Hoogste(), voor + 5);
}

}  // namespace
}  // namespace kiekbord
