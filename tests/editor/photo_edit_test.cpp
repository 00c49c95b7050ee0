// The photo edit commands on real files: rotation goes to the library of the
// stored system name, shrinking always to the smooth library, the backup
// follows its flag, and a failure leaves the photo as it was with the exact
// message of the library that ran. The libraries themselves are tested in
// tests/images.

#include "editor/photo_edit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <array>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "base/file_system.h"
#include "images/photo_properties.h"
#include "tests/images/image_test_support.h"
#include "tests/support/test_photos.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using test::ReadBytes;
using test::WriteBytes;
using ::testing::ElementsAre;
using ::testing::StartsWith;


// "XP" turns with the smooth library, any unknown system with the
// pixel-buffer library.
const char* const kSmooth = "XP";
const char* const kPixel = "Unknown (3.6.1)";

std::string Afmetingen(const std::string& pad) {
  std::string maat = BepaalAfmetingen(pad);
  if (!maat.empty() && maat.back() == '!') maat.pop_back();
  return maat;
}

VerkleinOpdracht Opdracht(int breedte, int hoogte, int kwaliteit_code = 0) {
  VerkleinOpdracht o;
  o.breedte = static_cast<std::int16_t>(breedte);
  o.hoogte = static_cast<std::int16_t>(hoogte);
  o.kwaliteit_code = kwaliteit_code;
  return o;
}

// The messages gathered while the edits ran, each a warning.
std::vector<std::string> Teksten(const FoutMeldingen& meldingen) {
  std::vector<std::string> teksten;
  for (const Melding& m : meldingen.meldingen()) {
    EXPECT_EQ(m.soort, MeldingSoort::kWaarschuwing);
    teksten.push_back(m.tekst);
  }
  return teksten;
}

class VolleSchijf : public ForwardingFileSystem {
 public:
  VolleSchijf() : ForwardingFileSystem(LocalFileSystem()) {}
  Status WriteFile(const std::string&, std::string_view) override { return Status::Error(fout::kDiskFull); }
  Status NewAppendFile(const std::string&, std::unique_ptr<AppendFile>&) override {
    return Status::Error(fout::kDiskFull);
  }
};

long PiekGeheugenKb() {
  rusage gebruik{};
  getrusage(RUSAGE_SELF, &gebruik);
  return gebruik.ru_maxrss;
}

class FotoBewerken : public ::testing::Test {
 protected:
  void SetUp() override {
    // A photo of 480 x 360 with camera data in front of the image.
    origineel_ = test::CameraJpeg(480, 360);
    ASSERT_FALSE(origineel_.empty());
    WriteBytes(foto_, origineel_);
  }

  // Only the photo is left in the folder: no temporary file, no backup.
  void ExpectAlleenDeFoto() {
    std::vector<std::string> namen;
    ASSERT_TRUE(Fs().ListFiles(dir_.path(), "*", namen).ok());
    EXPECT_THAT(namen, ElementsAre("foto.jpg"));
    EXPECT_FALSE(Fs().DirectoryExists(dir_ / "Backup"));
  }

  test::TempDir dir_;
  const std::string foto_ = dir_ / "foto.jpg";
  const std::string backup_ = dir_ / "Backup/foto.jpg";
  std::string origineel_;
};

TEST_F(FotoBewerken, PhotoPathQuestionAndBackupFlag) {
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
    ASSERT_TRUE(RoteerFoto(os_naam, foto_, kLinksom, true, meldingen).ok());
    EXPECT_EQ(Afmetingen(foto_), "360x480");
    ASSERT_TRUE(RoteerFoto(os_naam, foto_, kRechtsom, true, meldingen).ok());
    EXPECT_EQ(Afmetingen(foto_), "480x360");
    EXPECT_EQ(ReadBytes(backup_), origineel_);
    EXPECT_TRUE(meldingen.meldingen().empty());
  }
  // Without the flag no backup is made.
  std::filesystem::remove_all(dir_ / "Backup");
  FoutMeldingen meldingen;
  ASSERT_TRUE(RoteerFoto(kPixel, foto_, kLinksom, false, meldingen).ok());
  ASSERT_TRUE(RoteerFoto(kSmooth, foto_, kLinksom, false, meldingen).ok());
  ExpectAlleenDeFoto();
}

TEST_F(FotoBewerken, ShrinkMakesExactlyTheSizeAtTheChosenQuality) {
  FoutMeldingen meldingen;
  ASSERT_TRUE(VerkleinFoto(foto_, Opdracht(320, 199, 2), false, meldingen).ok());
  EXPECT_EQ(Afmetingen(foto_), "320x199");  // proportions are the dialog's business
  EXPECT_EQ(test::EersteKwantisatieWaarde(ReadBytes(foto_)), 13);
  ExpectAlleenDeFoto();
  ASSERT_TRUE(VerkleinFoto(foto_, Opdracht(200, 150, 1), true, meldingen).ok());
  EXPECT_EQ(test::EersteKwantisatieWaarde(ReadBytes(foto_)), 6);
  EXPECT_EQ(Afmetingen(backup_), "320x199");
}

// Each case runs the three edits that can fail: rotation with each library
// and the shrink. The smooth library's messages say "(GDI)" and break the
// line, the pixel-buffer library's do not.
TEST_F(FotoBewerken, FailuresLeaveThePhotoAndSayWhichLibraryRan) {
  const struct {
    const char* naam;
    std::function<void()> maak;  // writes the photo
    bool vol;                    // the disk is full
    const char* nummer;
    const char* gdi;             // the smooth library's description, or its start
    const char* ijl;
  } gevallen[] = {
      {"damaged", [this] { WriteBytes(foto_, "\xFF\xD8" + std::string(600, '\x11')); }, false, "26002",
       "De foto ", "is onvolledig: het bestand houdt op voor de beeldgegevens."},
      {"missing", [] {}, false, "53", "File not found", "File not found"},
      {"full disk", [this] { WriteBytes(foto_, origineel_); }, true, "61", "Disk full", "Disk full"},
      // 65,535 x 65,535 pixels would take 12 GB decoded: refused before any
      // pixel memory is taken.
      {"enormous", [this] { WriteBytes(foto_, test::KaleKop(65535, 65535)); }, false, "26002",
       "Image too large: 65535 x 65535 pixels", "Image too large: 65535 x 65535 pixels"},
  };
  for (const auto& g : gevallen) {
    SCOPED_TRACE(g.naam);
    std::filesystem::remove(foto_);
    g.maak();
    const std::string voor = ReadBytes(foto_);
    const long geheugen_voor = PiekGeheugenKb();
    FoutMeldingen meldingen;
    {
      VolleSchijf vol;
      std::optional<ScopedFileSystem> schijf;
      if (g.vol) schijf.emplace(vol);
      EXPECT_FALSE(RoteerFoto(kSmooth, foto_, kLinksom, false, meldingen).ok());
      EXPECT_FALSE(RoteerFoto(kPixel, foto_, kRechtsom, false, meldingen).ok());
      EXPECT_FALSE(VerkleinFoto(foto_, Opdracht(200, 150), false, meldingen).ok());
    }
    EXPECT_LT(PiekGeheugenKb() - geheugen_voor, 200 * 1024);
    const std::string fout = "Fout " + std::string(g.nummer) + " tijdens ";
    EXPECT_THAT(Teksten(meldingen),
                ElementsAre(StartsWith(fout + "roteren foto (GDI).\r\n(" + g.gdi),
                            fout + "roteren foto.(" + (std::string(g.naam) == "damaged" ? "De foto " + foto_ + " " : "") + g.ijl + ")",
                            StartsWith(fout + "verkleinen foto (GDI).\r\n(" + g.gdi)));
    if (std::string(g.naam) != "damaged") {
      EXPECT_THAT(Teksten(meldingen)[0], ::testing::EndsWith(std::string(g.gdi) + ")"));
    }
    EXPECT_EQ(ReadBytes(foto_), voor);
  }
}

TEST(ExternBewerken, CommandLineAndStartFailure) {
  const ExternBewerken e = ExternBewerkenOpdracht("/usr/bin/gimp", "/fotos/site/strand.jpg");
  EXPECT_EQ(e.programma, "/usr/bin/gimp");
  EXPECT_EQ(e.argumenten, std::vector<std::string>{"/fotos/site/strand.jpg"});
  EXPECT_EQ(e.opdrachtregel, "\"/usr/bin/gimp\" \"/fotos/site/strand.jpg\"");

  test::TempDir tmp;
  EXPECT_EQ(ExternStartFoutMelding(ExternBewerkenOpdracht(tmp / "gimp", "/f.jpg")),
            (Melding{MeldingSoort::kFout,
                     "Fout 53 tijdens starten fotoprogramma " + tmp / "gimp" + ".\r\n(File not found)"}));
  WriteBytes(tmp / "leesmij.txt", "geen programma");
  EXPECT_EQ(ExternStartFoutMelding(ExternBewerkenOpdracht(tmp / "leesmij.txt", "/f.jpg")).tekst,
            "Fout 70 tijdens starten fotoprogramma " + tmp / "leesmij.txt" + ".\r\n(Permission denied)");
}

TEST(BewerkMenu, WhichEditItemsAreEnabled) {
  ProgramSettings aan, uit;
  uit.verkleinen = false;
  uit.extern_bewerken = false;
  UserPreferences met;
  met.foto_programma = "/usr/bin/gimp";
  const UserPreferences zonder;
  const struct {
    bool gekozen;
    const ProgramSettings& settings;
    const UserPreferences& voorkeuren;
    bool vernieuwen_aangezet;
    bool roteren, verkleinen, extern_bewerken, vernieuwen;
  } gevallen[] = {
      {false, aan, met, true, false, false, false, false}, {true, aan, met, false, true, true, true, false},
      {true, aan, zonder, false, true, true, false, false}, {true, uit, met, false, true, false, false, false},
      {true, aan, met, true, true, true, true, true},
  };
  for (const auto& g : gevallen) {
    const BewerkMenu m = BewerkMenuToestand(g.gekozen, g.settings, g.voorkeuren, g.vernieuwen_aangezet);
    EXPECT_EQ((std::array{m.roteren, m.verkleinen, m.extern_bewerken, m.vernieuwen}),
              (std::array{g.roteren, g.verkleinen, g.extern_bewerken, g.vernieuwen}))
        << &g - gevallen;
  }
}

}  // namespace
}  // namespace kiekbord
