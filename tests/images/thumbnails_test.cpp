#include "images/thumbnails.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <map>
#include <optional>

#include "gallery/file_system.h"
#include "gallery/keyed_text_file.h"
#include "gallery/text.h"
#include "generator/site_run.h"
#include "generator/text_helpers.h"
#include "images/library_choice.h"
#include "tests/images/image_test_support.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

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

// The "datumtijd" texts in these tests are those of UTC.
class UtcZone {
 public:
  UtcZone() {
    if (const char* tz = std::getenv("TZ")) oud_ = tz;
    ::setenv("TZ", "UTC", 1);
    ::tzset();
  }
  ~UtcZone() {
    if (oud_) {
      ::setenv("TZ", oud_->c_str(), 1);
    } else {
      ::unsetenv("TZ");
    }
    ::tzset();
  }

 private:
  std::optional<std::string> oud_;
};

TEST(ThumbnailNamen, PathBaseNameAndExtension) {
  EXPECT_EQ(ThumbnailPad("/foto/foto01.jpg"), "/foto/foto01_tn.jpg");
  EXPECT_EQ(ThumbnailPad("/foto.jpg/a.jpg"), "/foto_tn.jpg/a_tn.jpg");
  EXPECT_EQ(ThumbnailPad("/foto/A.JPG"), "/foto/A.JPG");
  EXPECT_EQ(BasisNaam("/foto/Vakantie.2.jpg"), "vakantie");
  EXPECT_EQ(BasisNaam("/f.d/zonder"), "zonder");
  EXPECT_EQ(BasisNaam("/f/ÉTÉ.jpg"), "été");
  EXPECT_EQ(Extensie("/foto/a.b.JPG"), ".jpg");
  EXPECT_EQ(Extensie("/foto/a.jpeg"), ".jpeg");
  EXPECT_EQ(Extensie("/f.d/zonder"), ".d/zonder");
  EXPECT_EQ(Extensie("zonder"), "");
}

TEST(ThumbnailNamen, DateTimeTextWithoutLeadingZeros) {
  const UtcZone utc;
  EXPECT_EQ(DatumTijdTekst(Tijd(2026, 8, 3, 9, 12, 3)), "3-8-2026 9:12:03");
  EXPECT_EQ(DatumTijdTekst(Tijd(2026, 11, 15, 17, 40, 45) + 999999999), "15-11-2026 17:40:45");
  EXPECT_EQ(DatumTijdTekst(Tijd(2001, 1, 1, 0, 0, 0)), "1-1-2001 0:00:00");
}

class ThumbnailRun : public ::testing::Test {
 protected:
  ThumbnailRun() { test::WriteBytes(met_marker_ / "GDIplus.txt", ""); }

  std::string Dir() const { return fotos_.path(); }

  void Foto(const std::string& naam, const std::string& jpeg, std::int64_t tijd = Tijd(2026, 8, 3, 9, 12, 3)) {
    test::WriteBytes(fotos_ / naam, jpeg);
    ASSERT_TRUE(Fs().SetModificationTime(fotos_ / naam, tijd).ok());
  }

  // One run; the log's lines go to regels_, the progress to voortgang_.
  bool Run(const std::vector<std::string>& namen, ImageLibrary library = ImageLibrary::kGdiPlus,
           int gelijktijdig = 0) {
    regels_.clear();
    voortgang_.clear();
    const test::LogOpname log(log_dir_ / "run.log");
    const ThumbnailOpties opties{library == ImageLibrary::kGdiPlus ? met_marker_.path() : zonder_marker_.path(),
                                 gelijktijdig, [this](int gedaan, int totaal) { voortgang_.emplace_back(gedaan, totaal); }};
    const bool fout = MaakThumbnails(Dir(), static_cast<int>(namen.size()), namen, opties);
    regels_ = log.regels();
    return fout;
  }

  std::vector<std::string> Kop(ImageLibrary library = ImageLibrary::kGdiPlus) const {
    std::vector<std::string> kop = {"Start aanmaken thumbnails ...", "(Windows " + BepaalOsNaam() + " gedetecteerd.)"};
    if (library == ImageLibrary::kGdiPlus) {
      kop.push_back("(Bestand GDIplus.txt gedetecteerd.)");
      kop.push_back("Imagelibrary GDIplus wordt gebruikt.");
    } else {
      kop.push_back("Imagelibrary IJL11 wordt gebruikt.");
    }
    return kop;
  }

  std::vector<std::string> Met(std::vector<std::string> regels, const std::vector<std::string>& meer) const {
    regels.insert(regels.end(), meer.begin(), meer.end());
    return regels;
  }

  std::string Aanmaken(const std::string& thumb, const char* bibliotheek = "GDI") const {
    return std::string("Aanmaken (") + bibliotheek + ") thumbnail " + Dir() + thumb + "...";
  }

  std::string Lijst() const { return Dir() + "kb_tn.txt"; }
  std::string Gedetecteerd() const { return "(Bestand " + Lijst() + " gedetecteerd.)"; }
  std::string Inlezen() const { return "Bestand " + Lijst() + " inlezen."; }
  std::string Geschreven() const { return "Bestand " + Lijst() + " geschreven."; }

  static std::string Sectie(const std::string& naam, const std::string& tijd, std::size_t grootte) {
    return "[" + naam + "]\r\ndatumtijd=" + tijd + "\r\ngrootte=" + std::to_string(grootte) + "\r\n";
  }

  const UtcZone utc_;
  test::TempDir fotos_;
  test::TempDir log_dir_;
  test::TempDir met_marker_;
  test::TempDir zonder_marker_;
  test::MeldingOpname meldingen_;
  std::vector<std::string> regels_;
  std::vector<std::pair<int, int>> voortgang_;
};

TEST_F(ThumbnailRun, FirstRunMakesEveryThumbnailAndTheList) {
  const std::string a = test::EffenJpeg(400, 300);
  const std::string b = test::EffenJpeg(300, 400, {1, 2, 3}, {.progressief = true});
  const std::string c = test::EffenJpeg(120, 90);
  Foto("a.jpg", a);
  Foto("b.jpg", b, Tijd(2026, 11, 15, 17, 40, 45));
  Foto("c.jpg", c);

  EXPECT_FALSE(Run({"a.jpg", "b.jpg", "c.jpg"}));
  EXPECT_THAT(regels_, ElementsAreArray(Met(Kop(), {Aanmaken("a_tn.jpg"), Aanmaken("b_tn.jpg"), Aanmaken("c_tn.jpg"),
                                                    "3 Thumbnails (opnieuw) aangemaakt.", Geschreven()})));
  EXPECT_EQ(test::ReadBytes(Lijst()), Sectie("a", "3-8-2026 9:12:03", a.size()) +
                                          Sectie("b", "15-11-2026 17:40:45", b.size()) +
                                          Sectie("c", "3-8-2026 9:12:03", c.size()));
  EXPECT_EQ(test::LeesJpeg(test::ReadBytes(fotos_ / "a_tn.jpg")).breedte, 133);
  EXPECT_EQ(test::LeesJpeg(test::ReadBytes(fotos_ / "b_tn.jpg")).hoogte, 133);
  EXPECT_EQ(test::LeesJpeg(test::ReadBytes(fotos_ / "c_tn.jpg")).breedte, 120);
  EXPECT_EQ(voortgang_.back(), std::pair(3, 3));
  EXPECT_TRUE(std::is_sorted(voortgang_.begin(), voortgang_.end()));
  EXPECT_TRUE(meldingen_.meldingen.empty());
}

TEST_F(ThumbnailRun, SecondRunDecodesNothingAndRewritesTheSameList) {
  Foto("a.jpg", test::EffenJpeg(400, 300));
  Foto("b.jpg", test::EffenJpeg(300, 400));
  ASSERT_FALSE(Run({"a.jpg", "b.jpg"}));
  const std::string lijst = test::ReadBytes(Lijst());
  // Thumbnails replaced by markers: a rebuilt one would show.
  test::WriteBytes(fotos_ / "a_tn.jpg", "oud");
  test::WriteBytes(fotos_ / "b_tn.jpg", "oud");

  EXPECT_FALSE(Run({"a.jpg", "b.jpg"}));
  EXPECT_THAT(regels_, ElementsAreArray(Met(Kop(), {Gedetecteerd(), Inlezen(), "0 Thumbnails (opnieuw) aangemaakt.",
                                                    Geschreven()})));
  EXPECT_EQ(test::ReadBytes(Lijst()), lijst);
  EXPECT_EQ(test::ReadBytes(fotos_ / "a_tn.jpg"), "oud");
  EXPECT_EQ(test::ReadBytes(fotos_ / "b_tn.jpg"), "oud");
}

TEST_F(ThumbnailRun, DeletedThumbnailAndTouchedPhotoAreRebuilt) {
  const std::string c = test::EffenJpeg(100, 100);
  Foto("a.jpg", test::EffenJpeg(400, 300));
  Foto("b.jpg", test::EffenJpeg(300, 400));
  Foto("c.jpg", c);
  ASSERT_FALSE(Run({"a.jpg", "b.jpg", "c.jpg"}));

  ASSERT_TRUE(Fs().DeleteFile(fotos_ / "b_tn.jpg").ok());
  EXPECT_FALSE(Run({"a.jpg", "b.jpg", "c.jpg"}));
  EXPECT_THAT(regels_, ElementsAreArray(Met(Kop(), {Gedetecteerd(), Inlezen(), Aanmaken("b_tn.jpg"),
                                                    "1 Thumbnails (opnieuw) aangemaakt.", Geschreven()})));

  ASSERT_TRUE(Fs().SetModificationTime(fotos_ / "c.jpg", Tijd(2027, 1, 2, 3, 4, 5)).ok());
  EXPECT_FALSE(Run({"a.jpg", "b.jpg", "c.jpg"}));
  EXPECT_THAT(regels_, ElementsAreArray(Met(Kop(), {Gedetecteerd(), Inlezen(), Aanmaken("c_tn.jpg"),
                                                    "1 Thumbnails (opnieuw) aangemaakt.", Geschreven()})));
  EXPECT_THAT(test::ReadBytes(Lijst()), ::testing::EndsWith(Sectie("c", "2-1-2027 3:04:05", c.size())));
}

TEST_F(ThumbnailRun, ThumbnailsAndOtherExtensionsAreSkipped) {
  Foto("Vakantie.2.jpg", test::EffenJpeg(60, 40));
  Foto("abc_tn.jpg", test::EffenJpeg(60, 40));
  Foto("x.jpeg", test::EffenJpeg(60, 40));
  // Names that are skipped need not even exist.
  EXPECT_FALSE(Run({"abc_tn.jpg", "x.jpeg", "weg_tn.jpg", "geen", "Vakantie.2.jpg", "y.png"}));
  EXPECT_THAT(regels_, ElementsAreArray(Met(Kop(), {Aanmaken("Vakantie.2_tn.jpg"), "1 Thumbnails (opnieuw) aangemaakt.",
                                                    Geschreven()})));
  EXPECT_THAT(test::ReadBytes(Lijst()), ::testing::StartsWith("[vakantie]\r\n"));
  EXPECT_FALSE(Fs().FileExists(fotos_ / "abc_tn_tn.jpg"));
  EXPECT_FALSE(Fs().FileExists(fotos_ / "x_tn.jpeg"));
  EXPECT_EQ(voortgang_.back(), std::pair(6, 6));
}

TEST_F(ThumbnailRun, PhotosSharingABaseNameOverwriteEachOthersEntry) {
  const std::string zee2 = test::EffenJpeg(300, 200, {9, 9, 9});
  Foto("zee.1.jpg", test::EffenJpeg(200, 300));
  Foto("zee.2.jpg", zee2);
  EXPECT_FALSE(Run({"zee.1.jpg", "zee.2.jpg"}));
  EXPECT_EQ(test::ReadBytes(Lijst()), Sectie("zee", "3-8-2026 9:12:03", zee2.size()));
  for (int run = 0; run < 2; ++run) {
    EXPECT_FALSE(Run({"zee.1.jpg", "zee.2.jpg"}));
    EXPECT_THAT(regels_, ::testing::Contains("2 Thumbnails (opnieuw) aangemaakt."));
  }
}

TEST_F(ThumbnailRun, SamePhotoTwiceIsMadeOnce) {
  Foto("a.jpg", test::EffenJpeg(400, 300));
  EXPECT_FALSE(Run({"a.jpg", "a.jpg", "a.jpg"}));
  EXPECT_THAT(regels_, ElementsAreArray(Met(Kop(), {Aanmaken("a_tn.jpg"), "1 Thumbnails (opnieuw) aangemaakt.",
                                                    Geschreven()})));
}

TEST_F(ThumbnailRun, EmptyPhotoList) {
  EXPECT_FALSE(Run({}));
  EXPECT_THAT(regels_, ElementsAreArray(Met(Kop(), {"0 Thumbnails (opnieuw) aangemaakt.", Geschreven()})));
  EXPECT_EQ(test::ReadBytes(Lijst()), "");
  EXPECT_TRUE(voortgang_.empty());

  // Sections of photos that left the gallery stay.
  test::WriteBytes(Lijst(), "[oud]\r\ndatumtijd=1-1-2001 0:00:00\r\ngrootte=1\r\n");
  EXPECT_FALSE(Run({}));
  EXPECT_THAT(regels_, ElementsAreArray(Met(Kop(), {Gedetecteerd(), Inlezen(), "0 Thumbnails (opnieuw) aangemaakt.",
                                                    Geschreven()})));
  EXPECT_EQ(test::ReadBytes(Lijst()), "[oud]\r\ndatumtijd=1-1-2001 0:00:00\r\ngrootte=1\r\n");
}

std::vector<std::string> Namen(int aantal) {
  std::vector<std::string> namen;
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
    EXPECT_EQ(regels_.end()[-2], "333 Thumbnails (opnieuw) aangemaakt.");
    LineTable lijst(capaciteit::kThumbnailList);
    ASSERT_TRUE(LeesRegels(Lijst(), lijst, false).ok());
    EXPECT_EQ(lijst.Count(), 999);

    ASSERT_TRUE(Fs().DeleteFile(Lijst()).ok());
    const std::string voor = test::ReadBytes(fotos_ / "p333_tn.jpg");
    EXPECT_TRUE(Run(Namen(334), ImageLibrary::kGdiPlus, gelijktijdig));
    ASSERT_GE(regels_.size(), 2u);
    EXPECT_EQ(regels_.end()[-2], Aanmaken("p334_tn.jpg"));
    EXPECT_EQ(regels_.back(), "Error: Subscript out of range");
    EXPECT_EQ(std::count_if(regels_.begin(), regels_.end(), [](const std::string& r) { return r.rfind("Aanmaken", 0) == 0; }),
              334);
    EXPECT_FALSE(Fs().FileExists(Lijst())) << "the list is not written after a failure";
    EXPECT_TRUE(Fs().FileExists(fotos_ / "p334_tn.jpg")) << "thumbnails made stay";
    EXPECT_EQ(test::ReadBytes(fotos_ / "p333_tn.jpg"), voor);
    ASSERT_TRUE(Fs().DeleteFile(fotos_ / "p334_tn.jpg").ok());
  }
}

std::string Png() { return std::string("\x89PNG\r\n\x1a\n", 8) + std::string(200, '\0'); }

TEST_F(ThumbnailRun, CorruptPhotoEndsTheRunWithTheSmoothLibrary) {
  Foto("a.jpg", test::EffenJpeg(400, 300));
  Foto("b.jpg", Png());
  Foto("c.jpg", test::EffenJpeg(400, 300));
  for (const int gelijktijdig : {1, 0}) {
    EXPECT_TRUE(Run({"a.jpg", "b.jpg", "c.jpg"}, ImageLibrary::kGdiPlus, gelijktijdig));
    const std::string fout = "Error: Cannot load image: Not a JPEG file: starts with 0x89 0x50";
    EXPECT_THAT(regels_, ElementsAreArray(Met(Kop(), {Aanmaken("a_tn.jpg"), fout, fout})));
    EXPECT_FALSE(Fs().FileExists(fotos_ / "c_tn.jpg"));
    EXPECT_FALSE(Fs().FileExists(Lijst()));
    ASSERT_TRUE(Fs().DeleteFile(fotos_ / "a_tn.jpg").ok());
  }
  EXPECT_THAT(meldingen_.meldingen,
              ElementsAre("Fout 26002 tijdens aanmaken GDI thumbnail.\n(Cannot load image: Not a JPEG file: starts with "
                          "0x89 0x50)",
                          "Fout 26002 tijdens aanmaken GDI thumbnail.\n(Cannot load image: Not a JPEG file: starts with "
                          "0x89 0x50)"));
}

TEST_F(ThumbnailRun, CorruptPhotoIsReportedAndSkippedWithThePixelLibrary) {
  const std::string b = Png();
  Foto("a.jpg", test::EffenJpeg(400, 300));
  Foto("b.jpg", b);
  Foto("c.jpg", test::EffenJpeg(400, 300));
  EXPECT_FALSE(Run({"a.jpg", "b.jpg", "c.jpg"}, ImageLibrary::kIjl11));
  EXPECT_THAT(regels_, ElementsAreArray(Met(Kop(ImageLibrary::kIjl11),
                                            {Aanmaken("a_tn.jpg", "IJL"), "Failed to read JPG", Aanmaken("c_tn.jpg", "IJL"),
                                             "3 Thumbnails (opnieuw) aangemaakt.", Geschreven()})));
  EXPECT_THAT(meldingen_.meldingen, ElementsAre("Fout 26002 tijdens aanmaken IJL thumbnail.(Failed to read JPG)"));
  EXPECT_THAT(test::ReadBytes(Lijst()), ::testing::HasSubstr(Sectie("b", "3-8-2026 9:12:03", b.size())));
  EXPECT_TRUE(Fs().FileExists(fotos_ / "c_tn.jpg"));

  // Recorded, so tried again only because its thumbnail is missing.
  EXPECT_FALSE(Run({"a.jpg", "b.jpg", "c.jpg"}, ImageLibrary::kIjl11));
  EXPECT_THAT(regels_, ::testing::Contains("1 Thumbnails (opnieuw) aangemaakt."));
}

TEST_F(ThumbnailRun, MissingPhotoEndsTheRun) {
  Foto("a.jpg", test::EffenJpeg(400, 300));
  Foto("c.jpg", test::EffenJpeg(400, 300));
  for (const int gelijktijdig : {1, 0}) {
    EXPECT_TRUE(Run({"a.jpg", "weg.jpg", "c.jpg"}, ImageLibrary::kIjl11, gelijktijdig));
    EXPECT_THAT(regels_, ElementsAreArray(Met(Kop(ImageLibrary::kIjl11), {Aanmaken("a_tn.jpg", "IJL"), "Error: File not found"})));
    EXPECT_FALSE(Fs().FileExists(fotos_ / "c_tn.jpg"));
  }
}

// Breaks chosen file operations of the real disk.
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
  EXPECT_THAT(regels_, ElementsAreArray(Met(Kop(), {Aanmaken("a_tn.jpg"), Aanmaken("b_tn.jpg"),
                                                    "2 Thumbnails (opnieuw) aangemaakt.", "Error: Disk full"})));

  storing.schrijf_fout = "b_tn.jpg";
  EXPECT_TRUE(Run({"a.jpg", "b.jpg"}));
  EXPECT_THAT(regels_, ElementsAreArray(Met(Kop(), {Aanmaken("a_tn.jpg"), Aanmaken("b_tn.jpg"), "Error: Disk full",
                                                    "Error: Disk full"})));
  EXPECT_EQ(meldingen_.meldingen.back(), "Fout 61 tijdens aanmaken GDI thumbnail.\n(Disk full)");

  storing.schrijf_fout = "\x01";
  ASSERT_FALSE(Run({"a.jpg", "b.jpg"}));
  storing.lees_fout = "kb_tn.txt";
  EXPECT_TRUE(Run({"a.jpg", "b.jpg"}));
  EXPECT_THAT(regels_, ElementsAreArray(Met(Kop(), {Gedetecteerd(), "Error: Permission denied"})));

  storing.lees_fout = "b.jpg";
  ASSERT_TRUE(Fs().DeleteFile(Lijst()).ok());
  EXPECT_FALSE(Run({"a.jpg", "b.jpg"}, ImageLibrary::kIjl11));
  EXPECT_THAT(regels_, ElementsAreArray(Met(Kop(ImageLibrary::kIjl11), {Aanmaken("a_tn.jpg", "IJL"), "Permission denied",
                                                                        "2 Thumbnails (opnieuw) aangemaakt.", Geschreven()})));
}

// Every file of a folder with its bytes, the log left out.
std::map<std::string, std::string> Inhoud(const std::string& dir) {
  std::map<std::string, std::string> inhoud;
  for (const auto& entry : std::filesystem::directory_iterator(dir)) {
    inhoud[entry.path().filename().string()] = test::ReadBytes(entry.path().string());
  }
  return inhoud;
}

class ParallelRun : public ThumbnailRun {
 protected:
  // The same gallery in a second folder, photo times included.
  void Kopieer() {
    for (const auto& [naam, bytes] : Inhoud(Dir())) {
      test::WriteBytes(kopie_ / naam, bytes);
      FileInfo info;
      ASSERT_TRUE(Fs().GetFileInfo(fotos_ / naam, info).ok());
      ASSERT_TRUE(Fs().SetModificationTime(kopie_ / naam, info.modified_ns).ok());
    }
  }

  // Runs one by one in the first folder and on all cores in the second, and
  // expects the same log, the same result and the same files.
  void VergelijkRuns(const std::vector<std::string>& namen, ImageLibrary library) {
    meldingen_.meldingen.clear();
    const bool fout_een = Run(namen, library, 1);
    const std::vector<std::string> log_een = regels_;
    const std::vector<std::string> meldingen_een = meldingen_.meldingen;
    meldingen_.meldingen.clear();

    const bool fout_alle = RunIn(kopie_.path(), namen, library, 4);
    std::vector<std::string> log_alle;
    for (const std::string& regel : regels_) log_alle.push_back(Vervang(regel, kopie_.path(), Dir()));

    EXPECT_EQ(fout_een, fout_alle);
    EXPECT_EQ(log_een, log_alle);
    EXPECT_EQ(meldingen_een, meldingen_.meldingen);
    EXPECT_EQ(Inhoud(Dir()), Inhoud(kopie_.path()));
  }

  bool RunIn(const std::string& dir, const std::vector<std::string>& namen, ImageLibrary library, int gelijktijdig) {
    const test::LogOpname log(log_dir_ / "run.log");
    const ThumbnailOpties opties{library == ImageLibrary::kGdiPlus ? met_marker_.path() : zonder_marker_.path(),
                                 gelijktijdig, nullptr};
    const bool fout = MaakThumbnails(dir, static_cast<int>(namen.size()), namen, opties);
    regels_ = log.regels();
    return fout;
  }

  void MaakGalerij(bool met_kapotte_foto) {
    int i = 0;
    for (const auto& [breedte, hoogte] : {std::pair{4000, 3000}, {301, 200}, {753, 100}, {100, 80}, {2560, 1600},
                                          {1600, 2560}, {150, 150}, {640, 480}}) {
      ++i;
      const test::Rgb kleur{30 * i, 255 - 20 * i, 7 * i};
      Foto("f" + std::to_string(i) + ".jpg", test::EffenJpeg(breedte, hoogte, kleur, {.progressief = i % 3 == 0}),
           Tijd(2026, 8, i, 9, 12, 3));
    }
    Foto("zee.1.jpg", test::EffenJpeg(200, 300));
    Foto("zee.2.jpg", test::EffenJpeg(300, 200, {1, 2, 3}));
    std::string half = test::EffenJpeg(640, 480, {0, 90, 0});
    half.resize(half.size() / 2);
    Foto("half.jpg", half);
    if (met_kapotte_foto) Foto("kapot.jpg", Png());
  }

  std::vector<std::string> GalerijNamen(bool met_kapotte_foto) const {
    std::vector<std::string> namen = {"f1.jpg", "zee.1.jpg", "f2.jpg", "f2.jpg", "f3.jpg", "abc_tn.jpg", "f4.jpg",
                                      "half.jpg", "zee.2.jpg", "f5.jpg", "x.jpeg"};
    if (met_kapotte_foto) namen.push_back("kapot.jpg");
    for (const char* naam : {"f6.jpg", "f7.jpg", "f1.jpg", "f8.jpg"}) namen.emplace_back(naam);
    return namen;
  }

  test::TempDir kopie_;
};

TEST_F(ParallelRun, SameLogAndFilesAsOneByOne) {
  MaakGalerij(false);
  Kopieer();
  VergelijkRuns(GalerijNamen(false), ImageLibrary::kGdiPlus);
  // Second run: one thumbnail gone, one photo touched.
  for (const std::string& dir : {Dir(), kopie_.path()}) {
    ASSERT_TRUE(Fs().DeleteFile(dir + "f3_tn.jpg").ok());
    ASSERT_TRUE(Fs().SetModificationTime(dir + "f7.jpg", Tijd(2027, 1, 1, 1, 1, 1)).ok());
  }
  VergelijkRuns(GalerijNamen(false), ImageLibrary::kGdiPlus);
  EXPECT_THAT(regels_, ::testing::Contains("4 Thumbnails (opnieuw) aangemaakt."));
}

TEST_F(ParallelRun, SameLogAndFilesAfterAFailure) {
  MaakGalerij(true);
  Kopieer();
  VergelijkRuns(GalerijNamen(true), ImageLibrary::kGdiPlus);
  EXPECT_FALSE(Fs().FileExists(kopie_ / "f6_tn.jpg")) << "nothing after the failing photo is written";
  VergelijkRuns(GalerijNamen(true), ImageLibrary::kIjl11);
  VergelijkRuns(GalerijNamen(true), ImageLibrary::kIjl11);
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
  SiteRun run{settings, gegevens, NavigatieTeksten{}, kGelukt, [&](int gedaan, int) { voortgang.push_back(gedaan); }};
  const SiteSteps steps = StandaardStappen();
  ASSERT_TRUE(steps.thumbnails);
  {
    const test::LogOpname log(log_dir_ / "run.log");
    steps.thumbnails(run);
  }
  EXPECT_EQ(run.failed, kGelukt);
  EXPECT_TRUE(Fs().FileExists(fotos_ / "a_tn.jpg"));
  EXPECT_THAT(voortgang, ElementsAre(1));

  gegevens.foto_namen = {"a.jpg", "b.jpg"};
  {
    const test::LogOpname log(log_dir_ / "run.log");
    steps.thumbnails(run);
  }
  EXPECT_EQ(run.failed, kMislukt);
}

}  // namespace
}  // namespace kiekbord
