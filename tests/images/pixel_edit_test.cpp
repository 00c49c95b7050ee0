#include "images/pixel_edit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <jconfig.h>

#include "gallery/file_system.h"
#include "images/ijl_library.h"
#include "tests/images/image_test_support.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using ::testing::ElementsAre;

// A colour that names its pixel: x in the low 12 bits, y in the high 12.
Kleur Naamkleur(int x, int y) { return static_cast<Kleur>(x) | static_cast<Kleur>(y) << 12; }

void VulMetNaamkleuren(cDIBSection& buffer) {
  for (int y = 0; y < buffer.Height(); ++y) {
    for (int x = 0; x < buffer.Width(); ++x) buffer.SetPixel(x, y, Naamkleur(x, y));
  }
}

TEST(PixelBuffer, GeometryOfA24BitBottomUpBitmap) {
  const int breedtes[] = {1, 2, 3, 4, 5, 150};
  const int verwacht[] = {4, 8, 12, 12, 16, 452};
  for (int i = 0; i < 6; ++i) EXPECT_EQ(cDIBSection::BytesPerScanLine(breedtes[i]), verwacht[i]);

  cDIBSection buffer;
  ASSERT_TRUE(buffer.Create(5, 3));
  EXPECT_EQ(buffer.Width(), 5);
  EXPECT_EQ(buffer.Height(), 3);
  EXPECT_EQ(buffer.Header().size, 40u);
  EXPECT_EQ(buffer.Header().planes, 1);
  EXPECT_EQ(buffer.Header().bit_count, 24);
  EXPECT_EQ(buffer.Header().compression, 0u);
  EXPECT_EQ(buffer.Header().size_image, 48u);

  // Top-left pixel, blue-green-red, in the last row of memory.
  buffer.SetPixel(0, 0, 0x0000FF);  // red
  buffer.SetPixel(4, 2, 0xFF0000);  // blue, bottom-right
  const std::uint8_t* bits = buffer.DIBSectionBitsPtr();
  EXPECT_EQ(bits[2 * 16 + 2], 0xFF);
  EXPECT_EQ(bits[2 * 16 + 0], 0x00);
  EXPECT_EQ(bits[4 * 3 + 0], 0xFF);
  EXPECT_EQ(buffer.GetPixel(0, 0), 0x0000FFu);
  EXPECT_EQ(buffer.GetPixel(4, 2), 0xFF0000u);
}

TEST(PixelBuffer, PixelsOutsideAreLeftAlone) {
  cDIBSection buffer;
  ASSERT_TRUE(buffer.Create(2, 2));
  buffer.SetPixel(2, 0, 0x123456);
  buffer.SetPixel(-1, 1, 0x123456);
  buffer.SetPixel(0, 2, 0x123456);
  EXPECT_EQ(buffer.GetPixel(2, 0), kGeenKleur);
  EXPECT_EQ(buffer.GetPixel(0, -1), kGeenKleur);
  for (int y = 0; y < 2; ++y) {
    for (int x = 0; x < 2; ++x) EXPECT_EQ(buffer.GetPixel(x, y), 0u);
  }
}

TEST(PixelBuffer, RefusesImpossibleSizes) {
  cDIBSection buffer;
  EXPECT_FALSE(buffer.Create(0, 10));
  EXPECT_FALSE(buffer.Create(10, -1));
  EXPECT_FALSE(buffer.Create(65535, 65535));
  EXPECT_EQ(buffer.DIBSectionBitsPtr(), nullptr);
  ASSERT_TRUE(buffer.Create(3, 3));
  buffer.ClearUp();
  EXPECT_EQ(buffer.Width(), 0);
  EXPECT_EQ(buffer.DIBSectionBitsPtr(), nullptr);
}

TEST(PuntThumbnail, EachThumbnailPixelIsOnePhotoPixel) {
  cDIBSection bron;
  ASSERT_TRUE(bron.Create(4000, 3000));
  VulMetNaamkleuren(bron);
  const ThumbnailMaat maat = BerekenThumbnailMaat(4000, 3000);
  ASSERT_EQ(maat, (ThumbnailMaat{148, 111}));
  cDIBSection doel;
  ASSERT_TRUE(doel.Create(maat.breedte, maat.hoogte));
  PuntThumbnail(bron, doel, ThumbnailDeler(4000, 3000));
  EXPECT_EQ(doel.GetPixel(1, 1), Naamkleur(27, 27));
  for (int ty = 0; ty < 111; ++ty) {
    for (int tx = 0; tx < 148; ++tx) ASSERT_EQ(doel.GetPixel(tx, ty), Naamkleur(27 * tx, 27 * ty)) << tx << "," << ty;
  }
}

TEST(PuntThumbnail, SampleOnePastTheEdgeIsLeftOut) {
  cDIBSection bron;
  ASSERT_TRUE(bron.Create(300, 200));
  VulMetNaamkleuren(bron);
  cDIBSection doel;
  ASSERT_TRUE(doel.Create(150, 100));
  PuntThumbnail(bron, doel, 2);
  EXPECT_EQ(doel.GetPixel(149, 99), Naamkleur(298, 198));
  EXPECT_EQ(doel.GetPixel(0, 0), Naamkleur(0, 0));
}

TEST(RoteerPixels, ThreeByTwoMappings) {
  cDIBSection bron;
  ASSERT_TRUE(bron.Create(3, 2));
  VulMetNaamkleuren(bron);

  cDIBSection links;
  ASSERT_TRUE(RoteerPixels(bron, links, true));
  EXPECT_EQ(links.Width(), 2);
  EXPECT_EQ(links.Height(), 3);
  EXPECT_EQ(links.GetPixel(0, 0), Naamkleur(2, 0));  // top-right becomes top-left
  for (int y = 0; y < 2; ++y) {
    for (int x = 0; x < 3; ++x) EXPECT_EQ(links.GetPixel(y, 2 - x), Naamkleur(x, y));
  }

  cDIBSection rechts;
  ASSERT_TRUE(RoteerPixels(bron, rechts, false));
  EXPECT_EQ(rechts.Width(), 2);
  EXPECT_EQ(rechts.Height(), 3);
  EXPECT_EQ(rechts.GetPixel(0, 0), Naamkleur(0, 1));  // bottom-left becomes top-left
  for (int y = 0; y < 2; ++y) {
    for (int x = 0; x < 3; ++x) EXPECT_EQ(rechts.GetPixel(1 - y, x), Naamkleur(x, y));
  }

  cDIBSection terug;
  ASSERT_TRUE(RoteerPixels(links, terug, false));
  for (int y = 0; y < 2; ++y) {
    for (int x = 0; x < 3; ++x) EXPECT_EQ(terug.GetPixel(x, y), Naamkleur(x, y));
  }
}

TEST(RoteerPixels, DirectionText) {
  EXPECT_TRUE(IsLinksom("links"));
  EXPECT_TRUE(IsLinksom("LINKSom"));
  EXPECT_FALSE(IsLinksom("rechts"));
  EXPECT_FALSE(IsLinksom("link"));
  EXPECT_FALSE(IsLinksom(""));
}

const test::Rgb kWit{255, 255, 255};
const test::Rgb kZwart{0, 0, 0};
const test::Rgb kRood{255, 0, 0};
const test::Rgb kBlauw{0, 0, 255};

test::Rgb AlsRgb(Kleur kleur) {
  return {static_cast<int>(kleur & 0xFF), static_cast<int>(kleur >> 8 & 0xFF), static_cast<int>(kleur >> 16 & 0xFF)};
}

class PixelBibliotheek : public ::testing::Test {
 protected:
  test::TempDir dir_;
  test::LogOpname log_{dir_ / "kiekbord.log"};
  test::MeldingOpname meldingen_;
};

TEST_F(PixelBibliotheek, LoadAndSaveKeepTheOrientation) {
  const std::string foto = dir_ / "boven_wit.jpg";
  test::WriteBytes(foto, test::MaakJpeg(40, 30, [](int, int y) { return y < 15 ? kWit : kZwart; }));
  cDIBSection buffer;
  ASSERT_TRUE(LoadJPG(buffer, foto).ok());
  EXPECT_EQ(buffer.Width(), 40);
  EXPECT_EQ(buffer.Height(), 30);
  EXPECT_TRUE(test::Lijkt(AlsRgb(buffer.GetPixel(5, 2)), kWit, 8)) << "the top row is white";
  EXPECT_TRUE(test::Lijkt(AlsRgb(buffer.GetPixel(5, 27)), kZwart, 8));

  ASSERT_TRUE(SaveJPG(buffer, dir_ / "kopie.jpg", 90).ok());
  const test::Beeld kopie = test::LeesJpeg(test::ReadBytes(dir_ / "kopie.jpg"));
  ASSERT_EQ(kopie.breedte, 40);
  EXPECT_TRUE(test::Lijkt(kopie.At(20, 3), kWit, 8));
  EXPECT_TRUE(test::Lijkt(kopie.At(20, 26), kZwart, 8));
  EXPECT_EQ(test::EersteKwantisatieWaarde(test::ReadBytes(dir_ / "kopie.jpg")), 3);  // quality 90
}

TEST_F(PixelBibliotheek, LoadFailuresSayWhatWentWrong) {
  cDIBSection buffer;
  Status status = LoadJPG(buffer, dir_ / "weg.jpg");
  EXPECT_EQ(status.number(), 53);
  EXPECT_EQ(status.description(), "File not found");

  test::WriteBytes(dir_ / "png.jpg", "\x89PNG\r\n\x1a\n" + std::string(100, '\0'));
  status = LoadJPG(buffer, dir_ / "png.jpg");
  EXPECT_EQ(status.number(), 26002);
  EXPECT_EQ(status.description(), "Failed to read JPG");

  std::string afgebroken = test::MaakJpeg(64, 64, [](int x, int y) { return test::Rgb{x * 4, y * 4, (x * y) % 256}; });
  afgebroken.resize(afgebroken.size() * 3 / 4);
  test::WriteBytes(dir_ / "afgebroken.jpg", afgebroken);
  EXPECT_TRUE(LoadJPG(buffer, dir_ / "afgebroken.jpg").ok()) << "a truncated photo still shows";
  EXPECT_EQ(buffer.Width(), 64);
}

TEST_F(PixelBibliotheek, ClaimedSizesAreCheckedBeforeAnyPixelMemoryIsTaken) {
  cDIBSection buffer;
  test::WriteBytes(dir_ / "groot.jpg", test::KaleKop(65000, 65000));
  Status status = LoadJPG(buffer, dir_ / "groot.jpg");
  EXPECT_EQ(status.number(), 26002);
  EXPECT_EQ(status.description(), "Image too large: 65000 x 65000 pixels");

  test::WriteBytes(dir_ / "reus.jpg", test::KaleKop(65535, 65535));
  EXPECT_EQ(LoadJPG(buffer, dir_ / "reus.jpg").description(), "Failed to read JPG");

  // Within the limits but without data: the decoder fills in grey, as it
  // does for any truncated photo.
  test::WriteBytes(dir_ / "leeg.jpg", test::KaleKop(3000, 2000));
  ASSERT_TRUE(IJLMaakThumb(dir_ / "leeg.jpg", dir_ / "leeg_tn.jpg").ok());
  const test::Beeld thumb = test::LeesJpeg(test::ReadBytes(dir_ / "leeg_tn.jpg"));
  EXPECT_EQ(thumb.breedte, 150);
  EXPECT_TRUE(test::Lijkt(thumb.At(75, 50), {128, 128, 128}, 8));
}

TEST_F(PixelBibliotheek, VersionIsLibjpegTurbos) { EXPECT_EQ(IJLVersion(), LIBJPEG_TURBO_VERSION_NUMBER); }

TEST_F(PixelBibliotheek, ThumbnailSamplesWithoutAveraging) {
  // Even rows and columns red, the rest blue: point sampling at (2tx, 2ty)
  // sees only red; any smoothing filter would mix in blue.
  const std::string foto = dir_ / "ruit.jpg";
  test::WriteBytes(foto, test::MaakJpeg(301, 200, [](int x, int y) { return x % 2 == 0 && y % 2 == 0 ? kRood : kBlauw; },
                                        {.kwaliteit = 100}));
  ASSERT_TRUE(IJLMaakThumb(foto, dir_ / "ruit_tn.jpg").ok());
  EXPECT_THAT(log_.regels(), ElementsAre("Aanmaken (IJL) thumbnail " + dir_.path() + "ruit_tn.jpg..."));
  const test::Beeld thumb = test::LeesJpeg(test::ReadBytes(dir_ / "ruit_tn.jpg"));
  ASSERT_EQ(thumb.breedte, 150);
  ASSERT_EQ(thumb.hoogte, 100);
  for (const auto& [x, y] : {std::pair{0, 0}, {1, 1}, {75, 50}, {149, 99}}) {
    EXPECT_TRUE(test::Lijkt(thumb.At(x, y), kRood, 40)) << x << "," << y;
  }
  EXPECT_TRUE(meldingen_.meldingen.empty());
}

TEST_F(PixelBibliotheek, ThumbnailSizes) {
  struct {
    int breedte, hoogte, tw, th;
  } const gevallen[] = {{4000, 3000, 148, 111}, {753, 100, 151, 20}, {301, 200, 150, 100}, {100, 80, 100, 80}};
  for (const auto& geval : gevallen) {
    const std::string foto = dir_ / "maat.jpg";
    test::WriteBytes(foto, test::EffenJpeg(geval.breedte, geval.hoogte));
    ASSERT_TRUE(IJLMaakThumb(foto, dir_ / "maat_tn.jpg").ok());
    const test::Beeld thumb = test::LeesJpeg(test::ReadBytes(dir_ / "maat_tn.jpg"));
    EXPECT_EQ(thumb.breedte, geval.tw) << geval.breedte << "x" << geval.hoogte;
    EXPECT_EQ(thumb.hoogte, geval.th) << geval.breedte << "x" << geval.hoogte;
  }
}

TEST_F(PixelBibliotheek, ThumbnailFailureIsShownAndNotPassedOn) {
  const Status status = IJLMaakThumb(dir_ / "weg.jpg", dir_ / "weg_tn.jpg");
  EXPECT_EQ(status.number(), 53);
  EXPECT_THAT(log_.regels(), ElementsAre("File not found"));
  EXPECT_THAT(meldingen_.meldingen, ElementsAre("Fout 53 tijdens aanmaken IJL thumbnail.(File not found)"));

  log_.Wis();
  test::WriteBytes(dir_ / "tekst.jpg", "geen foto");
  IJLMaakThumb(dir_ / "tekst.jpg", dir_ / "tekst_tn.jpg");
  EXPECT_THAT(log_.regels(), ElementsAre("Failed to read JPG"));
  EXPECT_EQ(meldingen_.meldingen.back(), "Fout 26002 tijdens aanmaken IJL thumbnail.(Failed to read JPG)");
  EXPECT_FALSE(Fs().FileExists(dir_ / "tekst_tn.jpg"));
}

TEST_F(PixelBibliotheek, RotationTurnsAndKeepsABackup) {
  const std::string foto = dir_ / "foto.jpg";
  const std::string origineel = test::MaakJpeg(64, 32, [](int x, int) { return x < 32 ? kRood : kBlauw; });
  test::WriteBytes(foto, origineel);

  ASSERT_TRUE(IJLRoteerImg(foto, "links", true).ok());
  test::Beeld beeld = test::LeesJpeg(test::ReadBytes(foto));
  ASSERT_EQ(beeld.breedte, 32);
  ASSERT_EQ(beeld.hoogte, 64);
  EXPECT_TRUE(test::Lijkt(beeld.At(16, 8), kBlauw, 40)) << "the right half turns to the top";
  EXPECT_TRUE(test::Lijkt(beeld.At(16, 56), kRood, 40));
  EXPECT_EQ(test::EersteKwantisatieWaarde(test::ReadBytes(foto)), 3);  // quality 90
  EXPECT_EQ(test::ReadBytes(dir_ / "Backup/foto.jpg"), origineel);
  EXPECT_FALSE(Fs().FileExists(foto + "_tmp"));

  ASSERT_TRUE(IJLRoteerImg(foto, "rechts", true).ok());
  beeld = test::LeesJpeg(test::ReadBytes(foto));
  EXPECT_EQ(beeld.breedte, 64);
  EXPECT_TRUE(test::Lijkt(beeld.At(8, 16), kRood, 40));
  EXPECT_EQ(test::ReadBytes(dir_ / "Backup/foto.jpg"), origineel) << "the first backup is kept";
  EXPECT_TRUE(log_.regels().empty());
  EXPECT_TRUE(meldingen_.meldingen.empty());
}

// Fails the write of one path, after checking what lies on disk then.
class WriteFails : public ForwardingFileSystem {
 public:
  explicit WriteFails(std::string pad) : ForwardingFileSystem(LocalFileSystem()), pad_(std::move(pad)) {}
  Status WriteFile(const std::string& path, std::string_view contents) override {
    if (path != pad_) return ForwardingFileSystem::WriteFile(path, contents);
    photo_there_while_writing = LocalFileSystem().FileExists(pad_);
    tmp_there_while_writing = LocalFileSystem().FileExists(pad_ + "_tmp");
    return Status::Error(fout::kDiskFull);
  }
  bool photo_there_while_writing = true;
  bool tmp_there_while_writing = false;

 private:
  std::string pad_;
};

TEST_F(PixelBibliotheek, RotationMovesThePhotoAsideAndPutsItBackOnFailure) {
  const std::string foto = dir_ / "foto.jpg";
  const std::string origineel = test::EffenJpeg(20, 10);
  test::WriteBytes(foto, origineel);
  WriteFails vol(foto);
  ScopedFileSystem scoped(vol);
  const Status status = IJLRoteerImg(foto, "rechts", false);
  EXPECT_EQ(status.number(), 61);
  EXPECT_FALSE(vol.photo_there_while_writing);
  EXPECT_TRUE(vol.tmp_there_while_writing);
  EXPECT_EQ(test::ReadBytes(foto), origineel);
  EXPECT_FALSE(Fs().FileExists(foto + "_tmp"));
  EXPECT_THAT(meldingen_.meldingen, ElementsAre("Fout 61 tijdens roteren foto.(Disk full)"));
  EXPECT_TRUE(log_.regels().empty());
}

TEST_F(PixelBibliotheek, RotationWithoutBackupFolderReportsIt) {
  const std::string foto = dir_ / "foto.jpg";
  test::WriteBytes(foto, test::EffenJpeg(20, 10));
  test::WriteBytes(dir_ / "Backup", "a file where the folder should be");
  const Status status = IJLRoteerImg(foto, "links", true);
  EXPECT_EQ(status.number(), 26002);
  EXPECT_THAT(meldingen_.meldingen, ElementsAre("Fout 26002 tijdens roteren foto.(Error creating backup.)"));
  EXPECT_EQ(test::LeesJpeg(test::ReadBytes(foto)).breedte, 20) << "the photo is untouched";
}

TEST_F(PixelBibliotheek, RotationOfAMissingPhoto) {
  IJLRoteerImg(dir_ / "weg.jpg", "links", false);
  EXPECT_THAT(meldingen_.meldingen, ElementsAre("Fout 53 tijdens roteren foto.(File not found)"));
}

}  // namespace
}  // namespace kiekbord
