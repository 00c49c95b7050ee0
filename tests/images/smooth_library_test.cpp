#include "images/smooth_library.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "gallery/file_system.h"
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
  struct {
    int breedte, hoogte, deler, tw, th;
  } const gevallen[] = {
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
  EXPECT_EQ(VerkleinKwaliteit(0), 100);
  EXPECT_EQ(VerkleinKwaliteit(1), 80);
  EXPECT_EQ(VerkleinKwaliteit(2), 60);
  EXPECT_EQ(VerkleinKwaliteit(3), 100);
  EXPECT_EQ(VerkleinKwaliteit(-1), 100);
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
  struct {
    int breedte, hoogte, tw, th;
    bool progressief;
  } const gevallen[] = {{4000, 3000, 148, 111, false}, {3000, 4000, 111, 148, true}, {753, 100, 151, 20, false},
                        {301, 200, 150, 100, true},    {100, 80, 100, 80, false},    {150, 150, 150, 150, false}};
  for (const auto& geval : gevallen) {
    log_.Wis();
    const std::string foto = dir_ / "maat.jpg";
    test::WriteBytes(foto, test::EffenJpeg(geval.breedte, geval.hoogte, {200, 120, 40}, {.progressief = geval.progressief}));
    ASSERT_TRUE(GDIMaakThumb(foto, dir_ / "maat_tn.jpg").ok());
    EXPECT_THAT(log_.regels(), ElementsAre("Aanmaken (GDI) thumbnail " + dir_.path() + "maat_tn.jpg..."));
    const std::string jpeg = test::ReadBytes(dir_ / "maat_tn.jpg");
    const test::Beeld thumb = test::LeesJpeg(jpeg);
    EXPECT_EQ(thumb.breedte, geval.tw) << geval.breedte << "x" << geval.hoogte;
    EXPECT_EQ(thumb.hoogte, geval.th) << geval.breedte << "x" << geval.hoogte;
    EXPECT_TRUE(test::Lijkt(thumb.At(thumb.breedte / 2, thumb.hoogte / 2), {200, 120, 40}, 6));
    EXPECT_EQ(test::EersteKwantisatieWaarde(jpeg), 3);  // quality 90
  }
  EXPECT_TRUE(meldingen_.meldingen.empty());
}

TEST_F(GladdeBewerking, ThumbnailSmoothsInsteadOfSampling) {
  const std::string foto = dir_ / "ruit.jpg";
  test::WriteBytes(foto, test::MaakJpeg(301, 200, [](int x, int y) { return x % 2 == 0 && y % 2 == 0 ? kRood : kBlauw; },
                                        {.kwaliteit = 100}));
  ASSERT_TRUE(GDIMaakThumb(foto, dir_ / "ruit_tn.jpg").ok());
  const test::Beeld thumb = test::LeesJpeg(test::ReadBytes(dir_ / "ruit_tn.jpg"));
  // A quarter red and three quarters blue, averaged.
  const test::Rgb midden = thumb.At(75, 50);
  EXPECT_NEAR(midden.r, 64, 40);
  EXPECT_NEAR(midden.b, 191, 40);
}

TEST_F(GladdeBewerking, ThumbnailFailureIsLoggedShownAndPassedOn) {
  test::WriteBytes(dir_ / "png.jpg", "\x89PNG\r\n\x1a\n" + std::string(100, '\0'));
  const Status status = GDIMaakThumb(dir_ / "png.jpg", dir_ / "png_tn.jpg");
  EXPECT_EQ(status.number(), 26002);
  EXPECT_EQ(status.description(), "Cannot load image: Not a JPEG file: starts with 0x89 0x50");
  EXPECT_THAT(log_.regels(), ElementsAre("Error: Cannot load image: Not a JPEG file: starts with 0x89 0x50"));
  EXPECT_THAT(meldingen_.meldingen,
              ElementsAre("Fout 26002 tijdens aanmaken GDI thumbnail.\n(Cannot load image: Not a JPEG file: starts with "
                          "0x89 0x50)"));
  EXPECT_FALSE(Fs().FileExists(dir_ / "png_tn.jpg"));

  log_.Wis();
  meldingen_.meldingen.clear();
  const Status weg = GDIMaakThumb(dir_ / "weg.jpg", dir_ / "weg_tn.jpg");
  EXPECT_EQ(weg.number(), 26002);
  EXPECT_EQ(weg.description(), "File not found");
  EXPECT_THAT(log_.regels(), ElementsAre("Error: File not found"));
  EXPECT_THAT(meldingen_.meldingen, ElementsAre("Fout 53 tijdens aanmaken GDI thumbnail.\n(File not found)"));
}

TEST_F(GladdeBewerking, HugeClaimedSizeIsRefusedBeforeDecoding) {
  test::WriteBytes(dir_ / "groot.jpg", test::KaleKop(65000, 65000));
  const Status status = GDIMaakThumb(dir_ / "groot.jpg", dir_ / "groot_tn.jpg");
  EXPECT_EQ(status.description(), "Image too large: 65000 x 65000 pixels");
  EXPECT_THAT(log_.regels(), ElementsAre("Error: Image too large: 65000 x 65000 pixels"));
}

TEST_F(GladdeBewerking, HeaderWithoutImageDataEndsCleanly) {
  test::WriteBytes(dir_ / "leeg.jpg", test::KaleKop(6000, 4000));
  // Decoded grey, as any truncated photo is, and quickly: shrunk on load.
  ASSERT_TRUE(GDIMaakThumb(dir_ / "leeg.jpg", dir_ / "leeg_tn.jpg").ok());
  const test::Beeld thumb = test::LeesJpeg(test::ReadBytes(dir_ / "leeg_tn.jpg"));
  EXPECT_EQ(thumb.breedte, 150);
  EXPECT_EQ(thumb.hoogte, 100);
  EXPECT_TRUE(test::Lijkt(thumb.At(75, 50), {128, 128, 128}, 8));
}

TEST_F(GladdeBewerking, TruncatedPhotoStillGetsAThumbnail) {
  std::string afgebroken = test::MaakJpeg(640, 480, [](int x, int y) { return test::Rgb{x % 256, y % 256, 90}; });
  afgebroken.resize(afgebroken.size() * 2 / 3);
  test::WriteBytes(dir_ / "half.jpg", afgebroken);
  ASSERT_TRUE(GDIMaakThumb(dir_ / "half.jpg", dir_ / "half_tn.jpg").ok());
  EXPECT_EQ(test::LeesJpeg(test::ReadBytes(dir_ / "half_tn.jpg")).breedte, 128);
}

TEST_F(GladdeBewerking, RotationAtQuality100WithBackup) {
  const std::string foto = dir_ / "foto.jpg";
  const std::string origineel = test::MaakJpeg(64, 32, [](int x, int) { return x < 32 ? kRood : kBlauw; });
  test::WriteBytes(foto, origineel);

  ASSERT_TRUE(GDIRoteerImg(foto, "links", true).ok());
  std::string jpeg = test::ReadBytes(foto);
  test::Beeld beeld = test::LeesJpeg(jpeg);
  ASSERT_EQ(beeld.breedte, 32);
  ASSERT_EQ(beeld.hoogte, 64);
  EXPECT_TRUE(test::Lijkt(beeld.At(16, 8), kBlauw, 40)) << "the right half turns to the top";
  EXPECT_EQ(test::EersteKwantisatieWaarde(jpeg), 1);  // quality 100
  EXPECT_EQ(test::ReadBytes(dir_ / "Backup/foto.jpg"), origineel);
  EXPECT_FALSE(Fs().FileExists(dir_ / "foto_tmp.jpg"));

  ASSERT_TRUE(GDIRoteerImg(foto, "rechts", true).ok());
  beeld = test::LeesJpeg(test::ReadBytes(foto));
  EXPECT_EQ(beeld.breedte, 64);
  EXPECT_EQ(beeld.hoogte, 32);
  EXPECT_TRUE(test::Lijkt(beeld.At(8, 16), kRood, 40));
  EXPECT_EQ(test::ReadBytes(dir_ / "Backup/foto.jpg"), origineel) << "the backup keeps the first state";
  EXPECT_TRUE(log_.regels().empty());
  EXPECT_TRUE(meldingen_.meldingen.empty());
}

TEST_F(GladdeBewerking, ShrinkToAnExactSizeAtTheCodesQuality) {
  const int codes[] = {0, 1, 2, 7};
  const int eerste_waarde[] = {1, 6, 13, 1};
  for (int i = 0; i < 4; ++i) {
    const std::string foto = dir_ / "foto.jpg";
    test::WriteBytes(foto, test::EffenJpeg(400, 300));
    ASSERT_TRUE(GDIVerkleinImg(foto, 123, 45, codes[i], false).ok());
    const std::string jpeg = test::ReadBytes(foto);
    const test::Beeld beeld = test::LeesJpeg(jpeg);
    EXPECT_EQ(beeld.breedte, 123);
    EXPECT_EQ(beeld.hoogte, 45);
    EXPECT_EQ(test::EersteKwantisatieWaarde(jpeg), eerste_waarde[i]) << "code " << codes[i];
  }
  EXPECT_FALSE(Fs().DirectoryExists(dir_ / "Backup"));
}

TEST_F(GladdeBewerking, EditFailuresLeaveThePhotoAlone) {
  const std::string origineel = test::EffenJpeg(40, 30);
  test::WriteBytes(dir_ / "HOOFD.JPG", origineel);
  EXPECT_EQ(GDIRoteerImg(dir_ / "HOOFD.JPG", "links", false).number(), 53);
  EXPECT_EQ(test::ReadBytes(dir_ / "HOOFD.JPG"), origineel);

  test::WriteBytes(dir_ / "tekst.jpg", "geen foto");
  EXPECT_EQ(GDIVerkleinImg(dir_ / "tekst.jpg", 10, 10, 0, false).number(), 26002);
  EXPECT_EQ(test::ReadBytes(dir_ / "tekst.jpg"), "geen foto");

  test::WriteBytes(dir_ / "Backup", "a file where the folder should be");
  test::WriteBytes(dir_ / "foto.jpg", origineel);
  GDIVerkleinImg(dir_ / "foto.jpg", 10, 10, 0, true);

  ASSERT_EQ(meldingen_.meldingen.size(), 3u);
  EXPECT_EQ(meldingen_.meldingen[0], "Fout 53 tijdens roteren foto (GDI).\n(File not found)");
  EXPECT_THAT(meldingen_.meldingen[1], StartsWith("Fout 26002 tijdens verkleinen foto (GDI).\n(Cannot load image: "));
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
  EXPECT_EQ(GDIRoteerImg(dir_ / "foto.jpg", "rechts", false).number(), 70);
  EXPECT_EQ(test::ReadBytes(dir_ / "foto.jpg"), origineel);
  EXPECT_THAT(meldingen_.meldingen, ElementsAre("Fout 70 tijdens roteren foto (GDI).\n(Permission denied)"));
}

}  // namespace
}  // namespace kiekbord
