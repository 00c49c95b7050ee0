// The photo edit commands on real files: rotation with both libraries,
// shrinking, the backup, and failures (a damaged photo, a read-only folder,
// a full disk, a header that claims an enormous image), each of which must
// leave the photo as it was and report the exact message.

#include "editor/photo_edit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <filesystem>
#include <string>

#include "gallery/file_system.h"
#include "images/photo_properties.h"
#include "tests/images/image_test_support.h"
#include "tests/support/test_photos.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using test::ReadBytes;
using test::TempDir;
using test::WriteBytes;
using ::testing::ElementsAre;

const std::string kSamples = std::string(KIEKBORD_SAMPLES_DIR) + "/";
// A real camera photo, 480 x 360, with camera data in front of the image.
const char* const kCameraFoto = "exifsamples__Canon_PowerShot_S40.jpg";

// The two names the main window may have stored: "XP" turns with the smooth
// library, any unknown system with the pixel-buffer library.
const char* const kSmooth = "XP";
const char* const kPixel = "Unknown (3.6.1)";

std::string Afmetingen(const std::string& pad) {
  std::string maat = BepaalAfmetingen(pad);
  if (!maat.empty() && maat.back() == '!') maat.pop_back();
  return maat;
}

std::vector<std::string> Teksten(const FoutMeldingen& meldingen) {
  std::vector<std::string> teksten;
  for (const Melding& m : meldingen.meldingen()) {
    EXPECT_EQ(m.soort, MeldingSoort::kWaarschuwing);
    teksten.push_back(m.tekst);
  }
  return teksten;
}

// The folder `map` can be read but takes no change at all, as a read-only
// folder would.
class AlleenLezen : public ForwardingFileSystem {
 public:
  explicit AlleenLezen(std::string map) : ForwardingFileSystem(LocalFileSystem()), map_(std::move(map)) {}
  Status WriteFile(const std::string& path, std::string_view contents) override {
    return Binnen(path) ? Geweigerd() : ForwardingFileSystem::WriteFile(path, contents);
  }
  Status NewAppendFile(const std::string& path, std::unique_ptr<AppendFile>& file) override {
    return Binnen(path) ? Geweigerd() : ForwardingFileSystem::NewAppendFile(path, file);
  }
  Status DeleteFile(const std::string& path) override {
    return Binnen(path) ? Geweigerd() : ForwardingFileSystem::DeleteFile(path);
  }
  Status RenameFile(const std::string& from, const std::string& to) override {
    return Binnen(from) || Binnen(to) ? Geweigerd() : ForwardingFileSystem::RenameFile(from, to);
  }
  Status CreateDirectory(const std::string& path) override {
    return Binnen(path) ? Geweigerd() : ForwardingFileSystem::CreateDirectory(path);
  }
  Status SetModificationTime(const std::string& path, std::int64_t ns) override {
    return Binnen(path) ? Geweigerd() : ForwardingFileSystem::SetModificationTime(path, ns);
  }

 private:
  bool Binnen(const std::string& path) const { return path.compare(0, map_.size(), map_) == 0; }
  static Status Geweigerd() { return Status::Error(fout::kPermissionDenied); }
  std::string map_;
};

// A disk with no room for another byte; renames and deletes still work.
class VolleSchijf : public ForwardingFileSystem {
 public:
  VolleSchijf() : ForwardingFileSystem(LocalFileSystem()) {}
  Status WriteFile(const std::string&, std::string_view) override { return Status::Error(fout::kDiskFull); }
  Status NewAppendFile(const std::string&, std::unique_ptr<AppendFile>&) override {
    return Status::Error(fout::kDiskFull);
  }
};

// The bytes of a small JPEG whose frame header claims `zijde` x `zijde`
// pixels.
std::string ReuzeKop(int zijde) {
  std::string jpeg = test::ProefJpeg(16, 16);
  std::size_t plek = 2;
  while (plek + 9 < jpeg.size() && static_cast<unsigned char>(jpeg[plek]) == 0xFF) {
    const auto marker = static_cast<unsigned char>(jpeg[plek + 1]);
    if (marker >= 0xC0 && marker <= 0xC2) {
      jpeg[plek + 5] = jpeg[plek + 7] = static_cast<char>(zijde >> 8);
      jpeg[plek + 6] = jpeg[plek + 8] = static_cast<char>(zijde & 0xFF);
      return jpeg;
    }
    plek += 2 + (static_cast<unsigned char>(jpeg[plek + 2]) << 8 | static_cast<unsigned char>(jpeg[plek + 3]));
  }
  ADD_FAILURE() << "geen frame header";
  return jpeg;
}

// The peak memory of this process so far, in kilobytes.
long PiekGeheugen() {
  rusage gebruik{};
  getrusage(RUSAGE_SELF, &gebruik);
  return gebruik.ru_maxrss;
}

class FotoBewerken : public ::testing::Test {
 protected:
  void SetUp() override {
    origineel_ = ReadBytes(kSamples + kCameraFoto);
    ASSERT_FALSE(origineel_.empty());
    WriteBytes(foto_, origineel_);
    ASSERT_EQ(Afmetingen(foto_), "480x360");
  }

  // Nothing else than the photo (and its backup when asked) is left in the
  // folder: no temporary file.
  void ExpectGeenRestanten() {
    std::vector<std::string> namen;
    ASSERT_TRUE(Fs().ListFiles(dir_.path(), "*", namen).ok());
    EXPECT_THAT(namen, ElementsAre("foto.jpg"));
  }

  TempDir dir_;
  const std::string foto_ = dir_ / "foto.jpg";
  const std::string backup_ = dir_ / "Backup/foto.jpg";
  std::string origineel_;
};

TEST_F(FotoBewerken, PhotoPathAndQuestion) {
  EXPECT_EQ(FotoPad("/fotos/site", "strand.jpg"), "/fotos/site/strand.jpg");
  EXPECT_EQ(FotoPad("/fotos/site/", "strand.jpg"), "/fotos/site/strand.jpg");
  EXPECT_EQ(RoteerVraag(kLinksom), (Melding{MeldingSoort::kVraag, "Foto linksom roteren?"}));
  EXPECT_EQ(RoteerVraag(kRechtsom), (Melding{MeldingSoort::kVraag, "Foto rechtsom roteren?"}));
  UserPreferences v;
  for (const auto& [waarde, backup] : {std::pair{1, true}, {2, true}, {0, false}, {-1, false}}) {
    v.backup_bij_bewerken = static_cast<std::int16_t>(waarde);
    EXPECT_EQ(BackupVlag(v), backup) << waarde;
  }
}

TEST_F(FotoBewerken, RotationWithEitherLibraryKeepsTheFirstBackup) {
  for (const char* os_naam : {kSmooth, kPixel}) {
    SCOPED_TRACE(os_naam);
    WriteBytes(foto_, origineel_);
    std::filesystem::remove_all(dir_ / "Backup");
    FoutMeldingen meldingen;
    ASSERT_TRUE(RoteerFoto(os_naam, foto_, kLinksom, true).ok());
    EXPECT_EQ(Afmetingen(foto_), "360x480");
    EXPECT_EQ(ReadBytes(backup_), origineel_);
    const std::string na_eerste = ReadBytes(foto_);

    // The second edit finds the backup there and leaves it alone.
    ASSERT_TRUE(RoteerFoto(os_naam, foto_, kRechtsom, true).ok());
    EXPECT_EQ(Afmetingen(foto_), "480x360");
    EXPECT_NE(ReadBytes(foto_), na_eerste);
    EXPECT_EQ(ReadBytes(backup_), origineel_);
    EXPECT_TRUE(meldingen.meldingen().empty());
  }
}

TEST_F(FotoBewerken, RotationTurnsThePixelsTheRightWay) {
  // Left half dark, right half light: turned anticlockwise the light half
  // is on top, turned clockwise at the bottom.
  const auto kleur = [](int x, int) { return x < 32 ? test::Rgb{20, 20, 20} : test::Rgb{235, 235, 235}; };
  for (const char* os_naam : {kSmooth, kPixel}) {
    SCOPED_TRACE(os_naam);
    WriteBytes(foto_, test::MaakJpeg(64, 32, kleur));
    ASSERT_TRUE(RoteerFoto(os_naam, foto_, kLinksom, false).ok());
    test::Beeld links = test::LeesJpeg(ReadBytes(foto_));
    ASSERT_EQ(links.breedte, 32);
    EXPECT_GT(links.At(16, 4).r, 200);
    EXPECT_LT(links.At(16, 60).r, 60);
    WriteBytes(foto_, test::MaakJpeg(64, 32, kleur));
    ASSERT_TRUE(RoteerFoto(os_naam, foto_, kRechtsom, false).ok());
    test::Beeld rechts = test::LeesJpeg(ReadBytes(foto_));
    EXPECT_LT(rechts.At(16, 4).r, 60);
    EXPECT_GT(rechts.At(16, 60).r, 200);
  }
}

TEST_F(FotoBewerken, WithoutTheBackupPreferenceNoBackupIsMade) {
  ASSERT_TRUE(RoteerFoto(kSmooth, foto_, kRechtsom, false).ok());
  ASSERT_TRUE(RoteerFoto(kPixel, foto_, kRechtsom, false).ok());
  VerkleinOpdracht opdracht;
  opdracht.breedte = 200;
  opdracht.hoogte = 150;
  ASSERT_TRUE(VerkleinFoto(foto_, opdracht, false).ok());
  EXPECT_FALSE(Fs().DirectoryExists(dir_ / "Backup"));
  ExpectGeenRestanten();
}

TEST_F(FotoBewerken, ShrinkMakesExactlyTheSizeAtTheChosenQuality) {
  const struct {
    int code;
    int kwantisatie;  // the first value of the first quantisation table
  } gevallen[] = {{0, 1}, {1, 6}, {2, 13}};
  for (const auto& g : gevallen) {
    SCOPED_TRACE(g.code);
    WriteBytes(foto_, origineel_);
    VerkleinOpdracht opdracht;
    opdracht.breedte = 320;
    opdracht.hoogte = 199;  // proportions are the dialog's business
    opdracht.kwaliteit_code = g.code;
    FoutMeldingen meldingen;
    ASSERT_TRUE(VerkleinFoto(foto_, opdracht, true).ok());
    EXPECT_EQ(Afmetingen(foto_), "320x199");
    EXPECT_EQ(test::EersteKwantisatieWaarde(ReadBytes(foto_)), g.kwantisatie);
    EXPECT_TRUE(meldingen.meldingen().empty());
  }
  // Three shrinks, one backup: the photo as it first was.
  EXPECT_EQ(ReadBytes(backup_), origineel_);
}

TEST_F(FotoBewerken, DamagedPhotoIsLeftAsItWas) {
  std::string kapot = origineel_.substr(0, 2) + std::string(600, '\x11');
  WriteBytes(foto_, kapot);
  {
    FoutMeldingen meldingen;
    EXPECT_FALSE(RoteerFoto(kSmooth, foto_, kLinksom, false).ok());
    ASSERT_EQ(meldingen.meldingen().size(), 1u);
    EXPECT_THAT(meldingen.meldingen()[0].tekst,
                ::testing::StartsWith("Fout 26002 tijdens roteren foto (GDI).\r\n(Cannot load image: "));
  }
  {
    FoutMeldingen meldingen;
    EXPECT_FALSE(RoteerFoto(kPixel, foto_, kLinksom, false).ok());
    EXPECT_THAT(Teksten(meldingen), ElementsAre("Fout 26002 tijdens roteren foto.(Failed to read JPG)"));
  }
  {
    FoutMeldingen meldingen;
    VerkleinOpdracht opdracht;
    opdracht.breedte = 200;
    opdracht.hoogte = 150;
    EXPECT_FALSE(VerkleinFoto(foto_, opdracht, false).ok());
    ASSERT_EQ(meldingen.meldingen().size(), 1u);
    EXPECT_THAT(meldingen.meldingen()[0].tekst,
                ::testing::StartsWith("Fout 26002 tijdens verkleinen foto (GDI).\r\n(Cannot load image: "));
  }
  EXPECT_EQ(ReadBytes(foto_), kapot);
  ExpectGeenRestanten();
}

TEST_F(FotoBewerken, MissingPhotoIsReported) {
  const std::string weg = dir_ / "weg.jpg";
  FoutMeldingen meldingen;
  EXPECT_FALSE(RoteerFoto(kSmooth, weg, kLinksom, false).ok());
  EXPECT_FALSE(RoteerFoto(kPixel, weg, kLinksom, false).ok());
  EXPECT_THAT(Teksten(meldingen), ElementsAre("Fout 53 tijdens roteren foto (GDI).\r\n(File not found)",
                                              "Fout 53 tijdens roteren foto.(File not found)"));
}

TEST_F(FotoBewerken, ReadOnlyFolderLeavesThePhotoAsItWas) {
  AlleenLezen alleen_lezen(dir_.path());
  ScopedFileSystem fs(alleen_lezen);
  VerkleinOpdracht opdracht;
  opdracht.breedte = 200;
  opdracht.hoogte = 150;
  {
    // The backup comes first, and can't be made.
    FoutMeldingen meldingen;
    EXPECT_FALSE(RoteerFoto(kSmooth, foto_, kLinksom, true).ok());
    EXPECT_FALSE(RoteerFoto(kPixel, foto_, kLinksom, true).ok());
    EXPECT_FALSE(VerkleinFoto(foto_, opdracht, true).ok());
    EXPECT_THAT(Teksten(meldingen),
                ElementsAre("Fout 26002 tijdens roteren foto (GDI).\r\n(Error creating backup.)",
                            "Fout 26002 tijdens roteren foto.(Error creating backup.)",
                            "Fout 26002 tijdens verkleinen foto (GDI).\r\n(Error creating backup.)"));
  }
  {
    FoutMeldingen meldingen;
    EXPECT_FALSE(RoteerFoto(kSmooth, foto_, kLinksom, false).ok());
    EXPECT_FALSE(RoteerFoto(kPixel, foto_, kLinksom, false).ok());
    EXPECT_FALSE(VerkleinFoto(foto_, opdracht, false).ok());
    EXPECT_THAT(Teksten(meldingen), ElementsAre("Fout 70 tijdens roteren foto (GDI).\r\n(Permission denied)",
                                                "Fout 70 tijdens roteren foto.(Permission denied)",
                                                "Fout 70 tijdens verkleinen foto (GDI).\r\n(Permission denied)"));
  }
  EXPECT_EQ(ReadBytes(foto_), origineel_);
  ExpectGeenRestanten();
}

TEST_F(FotoBewerken, FullDiskLeavesThePhotoAndItsBackupAsTheyWere) {
  ASSERT_TRUE(RoteerFoto(kSmooth, foto_, kLinksom, true).ok());
  const std::string na_eerste = ReadBytes(foto_);
  VolleSchijf vol;
  ScopedFileSystem fs(vol);
  FoutMeldingen meldingen;
  EXPECT_FALSE(RoteerFoto(kSmooth, foto_, kLinksom, true).ok());
  EXPECT_FALSE(RoteerFoto(kPixel, foto_, kLinksom, true).ok());
  VerkleinOpdracht opdracht;
  opdracht.breedte = 200;
  opdracht.hoogte = 150;
  EXPECT_FALSE(VerkleinFoto(foto_, opdracht, true).ok());
  EXPECT_THAT(Teksten(meldingen), ElementsAre("Fout 61 tijdens roteren foto (GDI).\r\n(Disk full)",
                                              "Fout 61 tijdens roteren foto.(Disk full)",
                                              "Fout 61 tijdens verkleinen foto (GDI).\r\n(Disk full)"));
  EXPECT_EQ(ReadBytes(foto_), na_eerste);
  EXPECT_EQ(ReadBytes(backup_), origineel_);
  std::vector<std::string> namen;
  ASSERT_TRUE(Fs().ListFiles(dir_.path(), "*", namen).ok());
  EXPECT_THAT(namen, ElementsAre("foto.jpg"));
}

// 65,535 x 65,535 pixels would take 12 GB decoded; the JPEG decoder itself
// stops at 65,500 a side, and below that the image libraries refuse more
// than 120 million pixels, both before any pixel memory is taken.
TEST_F(FotoBewerken, EnormousClaimedSizeIsRefusedBeforeDecoding) {
  const struct {
    int zijde;
    const char* gdi;  // the description from the smooth library
    const char* ijl;  // from the pixel-buffer library
  } gevallen[] = {
      {65535, "Cannot load image: VipsJpeg: Maximum supported image dimension is 65500 pixels", "Failed to read JPG"},
      {65000, "Image too large: 65000 x 65000 pixels", "Image too large: 65000 x 65000 pixels"},
  };
  for (const auto& g : gevallen) {
    SCOPED_TRACE(g.zijde);
    const std::string reus = ReuzeKop(g.zijde);
    WriteBytes(foto_, reus);
    // The photo list and the resize dialog see no usable size at all.
    EXPECT_EQ(BepaalAfmetingen(foto_), "Error");

    const long voor = PiekGeheugen();
    FoutMeldingen meldingen;
    EXPECT_FALSE(RoteerFoto(kSmooth, foto_, kLinksom, true).ok());
    EXPECT_FALSE(RoteerFoto(kPixel, foto_, kRechtsom, true).ok());
    VerkleinOpdracht opdracht;
    opdracht.breedte = 1024;
    opdracht.hoogte = 768;
    EXPECT_FALSE(VerkleinFoto(foto_, opdracht, true).ok());
    EXPECT_LT(PiekGeheugen() - voor, 200 * 1024) << "kB";
    EXPECT_THAT(Teksten(meldingen),
                ElementsAre("Fout 26002 tijdens roteren foto (GDI).\r\n(" + std::string(g.gdi) + ")",
                            "Fout 26002 tijdens roteren foto.(" + std::string(g.ijl) + ")",
                            "Fout 26002 tijdens verkleinen foto (GDI).\r\n(" + std::string(g.gdi) + ")"));
    EXPECT_EQ(ReadBytes(foto_), reus);
  }
}

TEST(ExternBewerken, CommandLineAndStartFailure) {
  const ExternBewerken e = ExternBewerkenOpdracht("/usr/bin/gimp", "/fotos/site/strand.jpg");
  EXPECT_EQ(e.programma, "/usr/bin/gimp");
  EXPECT_EQ(e.argumenten, std::vector<std::string>{"/fotos/site/strand.jpg"});
  EXPECT_EQ(e.opdrachtregel, "\"/usr/bin/gimp\" \"/fotos/site/strand.jpg\"");

  TempDir tmp;
  EXPECT_EQ(ExternStartFoutMelding(ExternBewerkenOpdracht(tmp / "gimp", "/f.jpg")),
            (Melding{MeldingSoort::kFout,
                     "Fout 53 tijdens starten fotoprogramma " + tmp / "gimp" + ".\r\n(File not found)"}));
  WriteBytes(tmp / "leesmij.txt", "geen programma");
  EXPECT_EQ(ExternStartFoutMelding(ExternBewerkenOpdracht(tmp / "leesmij.txt", "/f.jpg")),
            (Melding{MeldingSoort::kFout,
                     "Fout 70 tijdens starten fotoprogramma " + tmp / "leesmij.txt" + ".\r\n(Permission denied)"}));
}

TEST(BewerkMenu, WhichEditItemsAreEnabled) {
  ProgramSettings aan;
  ProgramSettings uit;
  uit.verkleinen = false;
  uit.extern_bewerken = false;
  UserPreferences met;
  met.foto_programma = "/usr/bin/gimp";
  const UserPreferences zonder;
  const struct {
    bool gekozen;
    const ProgramSettings* settings;
    const UserPreferences* voorkeuren;
    bool vernieuwen_aangezet;
    BewerkMenu verwacht;  // roteren, verkleinen, extern, vernieuwen
  } gevallen[] = {
      {false, &aan, &met, true, {false, false, false, false}},
      {true, &aan, &met, false, {true, true, true, false}},
      {true, &aan, &zonder, false, {true, true, false, false}},
      {true, &uit, &met, false, {true, false, false, false}},
      {true, &aan, &met, true, {true, true, true, true}},
  };
  for (const auto& g : gevallen) {
    const BewerkMenu m = BewerkMenuToestand(g.gekozen, *g.settings, *g.voorkeuren, g.vernieuwen_aangezet);
    EXPECT_EQ(m.roteren, g.verwacht.roteren);
    EXPECT_EQ(m.verkleinen, g.verwacht.verkleinen);
    EXPECT_EQ(m.extern_bewerken, g.verwacht.extern_bewerken);
    EXPECT_EQ(m.vernieuwen, g.verwacht.vernieuwen);
  }
}

}  // namespace
}  // namespace kiekbord
