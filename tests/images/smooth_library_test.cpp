#include "images/smooth_library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/file_system.h"
#include "images/photo_backup.h"
#include "tests/images/image_test_support.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using ::testing::ElementsAre;
using ::testing::StartsWith;

const test::Rgb kRood{255, 0, 0};
const test::Rgb kBlauw{0, 0, 255};

TEST(ThumbnailMaat, DivisorAndRounding) {
  const struct {
    int breedte, hoogte, deler, tw, th;
  } gevallen[] = {
      {4000, 3000, 27, 148, 111}, {3000, 4000, 27, 111, 148}, {100, 80, 1, 100, 80},
      {150, 150, 1, 150, 150},    {301, 200, 2, 150, 100},    {300, 200, 2, 150, 100},
      {753, 100, 5, 151, 20},     {151, 100, 2, 76, 50},      {5120, 2880, 34, 151, 85},
      {2560, 1600, 17, 151, 94},  {1, 1, 1, 1, 1},            {10000, 10, 67, 149, 1},
      {65500, 65500, 434, 151, 151},
  };
  for (const auto& geval : gevallen) {
    EXPECT_EQ(ThumbnailDeler(geval.breedte, geval.hoogte), geval.deler) << geval.breedte << "x" << geval.hoogte;
    EXPECT_EQ(BerekenThumbnailMaat(geval.breedte, geval.hoogte), (ThumbnailMaat{geval.tw, geval.th}))
        << geval.breedte << "x" << geval.hoogte;
  }
}

TEST(GladdeBibliotheek, QualityCodesAndTemporaryPath) {
  for (const auto& [code, kwaliteit] : {std::pair{0, 100}, {1, 80}, {2, 60}, {3, 100}, {-1, 100}}) {
    EXPECT_EQ(VerkleinKwaliteit(code), kwaliteit) << code;
  }
  EXPECT_EQ(TijdelijkPad("/fotos.jpg/a.jpg"), "/fotos_tmp.jpg/a_tmp.jpg");
  EXPECT_EQ(TijdelijkPad("/f/A.JPG"), "/f/A.JPG");
}

TEST(FoutTekst, NumberPhraseAndDescription) {
  EXPECT_EQ(FoutTekst(Status::Error(53), " tijdens roteren foto (GDI).", true),
            "Fout 53 tijdens roteren foto (GDI).\n(File not found)");
  EXPECT_EQ(FoutTekst(Status::Error(53), " tijdens aanmaken IJL thumbnail.", false),
            "Fout 53 tijdens aanmaken IJL thumbnail.(File not found)");
  EXPECT_EQ(FoutTekst(Status::Error(-5, "x"), " y.", false), "Fout-5 y.(x)");
}

TEST(MaakBackup, BaseNameAndExtensionWithCaseKept) {
  EXPECT_EQ(BackupPad("/foto/Zee.Strand.JPG"), "/foto/Backup/Zee.JPG");
  EXPECT_EQ(BackupPad("/foto/zonder"), "/foto/Backup/zonder");
  EXPECT_EQ(BackupPad("/a.b/foto"), "/a.b/Backup/foto");
  EXPECT_EQ(BackupPad("los.jpg"), "");

  test::TempDir dir;
  test::WriteBytes(dir / "Zee.Strand.JPG", "eerste");
  EXPECT_EQ(MaakBackup(dir / "Zee.Strand.JPG"), dir / "Backup/Zee.JPG");
  EXPECT_EQ(test::ReadBytes(dir / "Backup/Zee.JPG"), "eerste");
  test::WriteBytes(dir / "Zee.Strand.JPG", "tweede");
  EXPECT_EQ(MaakBackup(dir / "Zee.Strand.JPG"), dir / "Backup/Zee.JPG");
  EXPECT_EQ(test::ReadBytes(dir / "Backup/Zee.JPG"), "eerste") << "never replaced";
  EXPECT_EQ(MaakBackup(dir / "weg.jpg"), "");
}

class GladdeBewerking : public ::testing::Test {
 protected:
  test::TempDir dir_;
  test::LogOpname log_{dir_ / "kiekbord.log"};
  test::MeldingOpname meldingen_;
};

TEST_F(GladdeBewerking, ThumbnailSizesAndLogLine) {
  const struct {
    int breedte, hoogte, tw, th;
    bool progressief;
  } gevallen[] = {{4000, 3000, 148, 111, false}, {3000, 4000, 111, 148, true}, {753, 100, 151, 20, false},
                  {301, 200, 150, 100, true},    {100, 80, 100, 80, false}};
  for (const auto& geval : gevallen) {
    log_.Wis();
    const std::string foto = dir_ / "maat.jpg";
    test::WriteBytes(foto, test::EffenJpeg(geval.breedte, geval.hoogte, {200, 120, 40}, {.progressief = geval.progressief}));
    ASSERT_TRUE(GDIMaakThumb(foto, dir_ / "maat_tn.jpg", log_.log(), meldingen_).ok());
    EXPECT_THAT(log_.regels(), ElementsAre("Aanmaken (GDI) thumbnail " + dir_.path() + "maat_tn.jpg..."));
    const std::string jpeg = test::ReadBytes(dir_ / "maat_tn.jpg");
    const test::Beeld thumb = test::LeesJpeg(jpeg);
    EXPECT_EQ(std::pair(thumb.breedte, thumb.hoogte), std::pair(geval.tw, geval.th)) << geval.breedte;
    EXPECT_TRUE(test::Lijkt(thumb.At(thumb.breedte / 2, thumb.hoogte / 2), {200, 120, 40}, 6));
    EXPECT_EQ(test::EersteKwantisatieWaarde(jpeg), 3);  // quality 90
  }
  EXPECT_TRUE(meldingen_.meldingen.empty());
}

TEST_F(GladdeBewerking, ThumbnailSmoothsInsteadOfSampling) {
  const std::string foto = dir_ / "ruit.jpg";
  test::WriteBytes(foto, test::MaakJpeg(301, 200, [](int x, int y) { return x % 2 == 0 && y % 2 == 0 ? kRood : kBlauw; },
                                        {.kwaliteit = 100}));
  ASSERT_TRUE(GDIMaakThumb(foto, dir_ / "ruit_tn.jpg", log_.log(), meldingen_).ok());
  const test::Beeld thumb = test::LeesJpeg(test::ReadBytes(dir_ / "ruit_tn.jpg"));
  // A quarter red and three quarters blue, averaged.
  const test::Rgb midden = thumb.At(75, 50);
  EXPECT_NEAR(midden.r, 64, 40);
  EXPECT_NEAR(midden.b, 191, 40);
}

TEST_F(GladdeBewerking, ThumbnailFailureIsLoggedShownAndPassedOn) {
  test::WriteBytes(dir_ / "png.jpg", "\x89PNG\r\n\x1a\n" + std::string(100, '\0'));
  test::WriteBytes(dir_ / "groot.jpg", test::KaleKop(65000, 65000));
  const std::string png = "De foto " + dir_ / "png.jpg" + " is geen JPEG-bestand.";
  const std::string groot = "Image too large: 65000 x 65000 pixels";  // refused before decoding
  for (const auto& [naam, fout] : {std::pair{"png", png}, {"weg", "File not found"}, {"groot", groot}}) {
    const Status status = GDIMaakThumb(dir_ / naam + ".jpg", dir_ / naam + "_tn.jpg", log_.log(), meldingen_);
    EXPECT_EQ(std::pair(status.number(), status.description()), std::pair(26002, fout));
    EXPECT_FALSE(Fs().FileExists(dir_ / naam + "_tn.jpg"));
  }
  EXPECT_THAT(log_.regels(), ElementsAre("Error: " + png, "Error: File not found", "Error: " + groot));
  EXPECT_THAT(meldingen_.meldingen, ElementsAre("Fout 26002 tijdens aanmaken GDI thumbnail.\n(" + png + ")",
                                                "Fout 53 tijdens aanmaken GDI thumbnail.\n(File not found)",
                                                "Fout 26002 tijdens aanmaken GDI thumbnail.\n(" + groot + ")"));
}

// A truncated photo, or a header without any image data, decodes with grey
// for what is missing, and quickly: shrunk on load.
TEST_F(GladdeBewerking, DamagedPhotosStillGetAThumbnail) {
  std::string afgebroken = test::MaakJpeg(640, 480, [](int x, int y) { return test::Rgb{x % 256, y % 256, 90}; });
  afgebroken.resize(afgebroken.size() * 2 / 3);
  test::WriteBytes(dir_ / "half.jpg", afgebroken);
  test::WriteBytes(dir_ / "leeg.jpg", test::KaleKop(6000, 4000));
  for (const auto& [naam, breedte] : {std::pair{"half", 128}, {"leeg", 150}}) {
    ASSERT_TRUE(GDIMaakThumb(dir_ / naam + ".jpg", dir_ / naam + "_tn.jpg", log_.log(), meldingen_).ok()) << naam;
    EXPECT_EQ(test::LeesJpeg(test::ReadBytes(dir_ / naam + "_tn.jpg")).breedte, breedte) << naam;
  }
  const test::Beeld thumb = test::LeesJpeg(test::ReadBytes(dir_ / "leeg_tn.jpg"));
  EXPECT_EQ(thumb.hoogte, 100);
  EXPECT_TRUE(test::Lijkt(thumb.At(75, 50), {128, 128, 128}, 8));
}

TEST_F(GladdeBewerking, RotationAtQuality100WithBackup) {
  const std::string foto = dir_ / "foto.jpg";
  const std::string origineel = test::MaakJpeg(64, 32, [](int x, int) { return x < 32 ? kRood : kBlauw; });
  test::WriteBytes(foto, origineel);

  ASSERT_TRUE(GDIRoteerImg(foto, "links", true, meldingen_).ok());
  test::Beeld beeld = test::LeesJpeg(test::ReadBytes(foto));
  ASSERT_EQ(std::pair(beeld.breedte, beeld.hoogte), std::pair(32, 64));
  EXPECT_TRUE(test::Lijkt(beeld.At(16, 8), kBlauw, 40)) << "the right half turns to the top";
  EXPECT_EQ(test::EersteKwantisatieWaarde(test::ReadBytes(foto)), 1);  // quality 100
  EXPECT_EQ(test::ReadBytes(dir_ / "Backup/foto.jpg"), origineel);
  EXPECT_FALSE(Fs().FileExists(dir_ / "foto_tmp.jpg"));

  ASSERT_TRUE(GDIRoteerImg(foto, "rechts", true, meldingen_).ok());
  beeld = test::LeesJpeg(test::ReadBytes(foto));
  EXPECT_EQ(std::pair(beeld.breedte, beeld.hoogte), std::pair(64, 32));
  EXPECT_TRUE(test::Lijkt(beeld.At(8, 16), kRood, 40));
  EXPECT_EQ(test::ReadBytes(dir_ / "Backup/foto.jpg"), origineel) << "the backup keeps the first state";
  EXPECT_TRUE(log_.regels().empty());
  EXPECT_TRUE(meldingen_.meldingen.empty());
}

TEST_F(GladdeBewerking, ShrinkToAnExactSizeAtTheCodesQuality) {
  // The first quantisation value shows the quality: 1 at 100, 6 at 80, 13 at 60.
  const std::string foto = dir_ / "foto.jpg";
  for (const auto& [code, eerste_waarde] : {std::pair{0, 1}, {1, 6}, {2, 13}, {7, 1}}) {
    test::WriteBytes(foto, test::EffenJpeg(400, 300));
    ASSERT_TRUE(GDIVerkleinImg(foto, 123, 45, code, false, meldingen_).ok());
    const test::Beeld beeld = test::LeesJpeg(test::ReadBytes(foto));
    EXPECT_EQ(std::pair(beeld.breedte, beeld.hoogte), std::pair(123, 45));
    EXPECT_EQ(test::EersteKwantisatieWaarde(test::ReadBytes(foto)), eerste_waarde) << "code " << code;
  }
  EXPECT_FALSE(Fs().DirectoryExists(dir_ / "Backup"));
}

TEST_F(GladdeBewerking, EditFailuresLeaveThePhotoAlone) {
  const std::string origineel = test::EffenJpeg(40, 30);
  test::WriteBytes(dir_ / "HOOFD.JPG", origineel);
  EXPECT_EQ(GDIRoteerImg(dir_ / "HOOFD.JPG", "links", false, meldingen_).number(), 53);
  EXPECT_EQ(test::ReadBytes(dir_ / "HOOFD.JPG"), origineel);

  test::WriteBytes(dir_ / "tekst.jpg", "geen foto");
  EXPECT_EQ(GDIVerkleinImg(dir_ / "tekst.jpg", 10, 10, 0, false, meldingen_).number(), 26002);
  EXPECT_EQ(test::ReadBytes(dir_ / "tekst.jpg"), "geen foto");

  test::WriteBytes(dir_ / "Backup", "a file where the folder should be");
  test::WriteBytes(dir_ / "foto.jpg", origineel);
  static_cast<void>(GDIVerkleinImg(dir_ / "foto.jpg", 10, 10, 0, true, meldingen_));

  ASSERT_EQ(meldingen_.meldingen.size(), 3u);
  EXPECT_EQ(meldingen_.meldingen[0], "Fout 53 tijdens roteren foto (GDI).\n(File not found)");
  EXPECT_THAT(meldingen_.meldingen[1], StartsWith("Fout 26002 tijdens verkleinen foto (GDI).\n(De foto "));
  EXPECT_EQ(meldingen_.meldingen[2], "Fout 26002 tijdens verkleinen foto (GDI).\n(Error creating backup.)");
  EXPECT_EQ(test::ReadBytes(dir_ / "foto.jpg"), origineel);
  EXPECT_TRUE(log_.regels().empty());
}

class RenameFails : public ForwardingFileSystem {
 public:
  RenameFails() : ForwardingFileSystem(LocalFileSystem()) {}
  Status RenameFile(const std::string&, const std::string&) override { return Status::Error(fout::kPermissionDenied); }
};

TEST_F(GladdeBewerking, FailedReplacementNeverLosesThePhoto) {
  const std::string origineel = test::EffenJpeg(40, 30);
  test::WriteBytes(dir_ / "foto.jpg", origineel);
  RenameFails fs;
  ScopedFileSystem scoped(fs);
  EXPECT_EQ(GDIRoteerImg(dir_ / "foto.jpg", "rechts", false, meldingen_).number(), 70);
  EXPECT_EQ(test::ReadBytes(dir_ / "foto.jpg"), origineel);
  EXPECT_THAT(meldingen_.meldingen, ElementsAre("Fout 70 tijdens roteren foto (GDI).\n(Permission denied)"));
}

}  // namespace
}  // namespace kiekbord
