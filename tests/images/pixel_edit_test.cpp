#include "images/pixel_edit.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <jconfig.h>

#include "base/file_system.h"
#include "images/ijl_library.h"
#include "tests/images/image_test_support.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using ::testing::ElementsAre;

// A colour that names its pixel: x in the low 12 bits, y in the high 12.
Kleur Naamkleur(int x, int y) { return static_cast<Kleur>(x) | static_cast<Kleur>(y) << 12; }

void MaakMetNaamkleuren(cDIBSection& buffer, int breedte, int hoogte) {
  ASSERT_TRUE(buffer.Create(breedte, hoogte));
  for (int y = 0; y < hoogte; ++y) {
    for (int x = 0; x < breedte; ++x) buffer.SetPixel(x, y, Naamkleur(x, y));
  }
}

TEST(PixelBuffer, GeometryOfA24BitBottomUpBitmap) {
  for (const auto& [breedte, regel] : {std::pair{1, 4}, {2, 8}, {3, 12}, {4, 12}, {5, 16}, {150, 452}}) {
    EXPECT_EQ(cDIBSection::BytesPerScanLine(breedte), regel) << breedte;
  }
  cDIBSection buffer;
  ASSERT_TRUE(buffer.Create(5, 3));
  EXPECT_EQ(std::pair(buffer.Width(), buffer.Height()), std::pair(5, 3));
  const BitmapInfoHeader& kop = buffer.Header();
  EXPECT_EQ(kop.size + kop.planes + kop.bit_count + kop.compression, 40u + 1 + 24 + 0);
  EXPECT_EQ(kop.size_image, 48u);
  // The top-left pixel, blue-green-red, lies in the last row of memory.
  buffer.SetPixel(0, 0, 0x0000FF);  // red
  buffer.SetPixel(4, 2, 0xFF0000);  // blue, bottom-right
  const std::uint8_t* bits = buffer.DIBSectionBitsPtr();
  EXPECT_EQ(bits[2 * 16 + 2], 0xFF);
  EXPECT_EQ(bits[2 * 16 + 0], 0x00);
  EXPECT_EQ(bits[4 * 3 + 0], 0xFF);
  EXPECT_EQ(buffer.GetPixel(0, 0), 0x0000FFu);
  EXPECT_EQ(buffer.GetPixel(4, 2), 0xFF0000u);
}

TEST(PixelBuffer, PixelsOutsideAreLeftAloneAndImpossibleSizesRefused) {
  cDIBSection buffer;
  ASSERT_TRUE(buffer.Create(2, 2));
  for (const auto& [x, y] : {std::pair{2, 0}, {-1, 1}, {0, 2}, {0, -1}}) {
    buffer.SetPixel(x, y, 0x123456);
    EXPECT_EQ(buffer.GetPixel(x, y), kGeenKleur);
  }
  for (int i = 0; i < 4; ++i) EXPECT_EQ(buffer.GetPixel(i % 2, i / 2), 0u);
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
  for (const auto& [breedte, hoogte, deler] : {std::tuple{4000, 3000, 27}, {300, 200, 2}}) {
    cDIBSection bron;
    MaakMetNaamkleuren(bron, breedte, hoogte);
    const ThumbnailMaat maat = BerekenThumbnailMaat(breedte, hoogte);
    cDIBSection doel;
    ASSERT_TRUE(doel.Create(maat.breedte, maat.hoogte));
    PuntThumbnail(bron, doel, ThumbnailDeler(breedte, hoogte));
    for (int ty = 0; ty < maat.hoogte; ++ty) {
      for (int tx = 0; tx < maat.breedte; ++tx) {
        ASSERT_EQ(doel.GetPixel(tx, ty), Naamkleur(deler * tx, deler * ty)) << breedte << ": " << tx << "," << ty;
      }
    }
  }
}

TEST(RoteerPixels, ThreeByTwoMappings) {
  cDIBSection bron;
  MaakMetNaamkleuren(bron, 3, 2);
  cDIBSection links;
  cDIBSection rechts;
  ASSERT_TRUE(RoteerPixels(bron, links, true));
  ASSERT_TRUE(RoteerPixels(bron, rechts, false));
  EXPECT_EQ(std::pair(links.Width(), links.Height()), std::pair(2, 3));
  EXPECT_EQ(std::pair(rechts.Width(), rechts.Height()), std::pair(2, 3));
  EXPECT_EQ(links.GetPixel(0, 0), Naamkleur(2, 0));   // top-right becomes top-left
  EXPECT_EQ(rechts.GetPixel(0, 0), Naamkleur(0, 1));  // bottom-left becomes top-left
  for (int y = 0; y < 2; ++y) {
    for (int x = 0; x < 3; ++x) {
      EXPECT_EQ(links.GetPixel(y, 2 - x), Naamkleur(x, y));
      EXPECT_EQ(rechts.GetPixel(1 - y, x), Naamkleur(x, y));
    }
  }
  for (const char* richting : {"links", "LINKSom"}) EXPECT_TRUE(IsLinksom(richting));
  for (const char* richting : {"rechts", "link", ""}) EXPECT_FALSE(IsLinksom(richting));
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
  EXPECT_EQ(std::pair(buffer.Width(), buffer.Height()), std::pair(40, 30));
  EXPECT_TRUE(test::Lijkt(AlsRgb(buffer.GetPixel(5, 2)), kWit, 8)) << "the top row is white";
  EXPECT_TRUE(test::Lijkt(AlsRgb(buffer.GetPixel(5, 27)), kZwart, 8));

  ASSERT_TRUE(SaveJPG(buffer, dir_ / "kopie.jpg", 90).ok());
  const test::Beeld kopie = test::LeesJpeg(test::ReadBytes(dir_ / "kopie.jpg"));
  ASSERT_EQ(kopie.breedte, 40);
  EXPECT_TRUE(test::Lijkt(kopie.At(20, 3), kWit, 8));
  EXPECT_TRUE(test::Lijkt(kopie.At(20, 26), kZwart, 8));
  EXPECT_EQ(test::EersteKwantisatieWaarde(test::ReadBytes(dir_ / "kopie.jpg")), 3);  // quality 90
  EXPECT_EQ(IJLVersion(), LIBJPEG_TURBO_VERSION_NUMBER);
}

TEST_F(PixelBibliotheek, LoadFailuresSayWhatWentWrong) {
  std::string afgebroken = test::MaakJpeg(64, 64, [](int x, int y) { return test::Rgb{x * 4, y * 4, (x * y) % 256}; });
  afgebroken.resize(afgebroken.size() * 3 / 4);
  const std::pair<std::string, std::string> bestanden[] = {
      {"png.jpg", "\x89PNG\r\n\x1a\n" + std::string(100, '\0')}, {"afgebroken.jpg", afgebroken},
      {"groot.jpg", test::KaleKop(65000, 65000)}, {"reus.jpg", test::KaleKop(65535, 65535)},
      {"leeg.jpg", test::KaleKop(3000, 2000)}};
  for (const auto& [naam, bytes] : bestanden) test::WriteBytes(dir_ / naam, bytes);
  cDIBSection buffer;
  const struct {
    const char* naam;
    int nummer;
    const char* fout;
  } gevallen[] = {
      {"weg.jpg", 53, "File not found"},
      {"png.jpg", 26002, "is geen JPEG-bestand."},
      {"groot.jpg", 26002, "Image too large: 65000 x 65000 pixels"},  // before any pixel memory is taken
      {"reus.jpg", 26002, "Image too large: 65535 x 65535 pixels"},
      {"afgebroken.jpg", 0, ""},  // a truncated photo still shows
      {"leeg.jpg", 0, ""},        // a header without data too: in grey
  };
  for (const auto& geval : gevallen) {
    const Status status = LoadJPG(buffer, dir_ / geval.naam);
    const std::string fout = std::string_view(geval.fout).starts_with("is ") ? "De foto " + dir_ / geval.naam + " " + geval.fout : geval.fout;
    EXPECT_EQ(std::pair(status.number(), status.description()), std::pair(geval.nummer, fout)) << geval.naam;
  }
  EXPECT_EQ(buffer.Width(), 3000);
  EXPECT_TRUE(test::Lijkt(AlsRgb(buffer.GetPixel(1500, 1000)), {128, 128, 128}, 8));
}

TEST_F(PixelBibliotheek, ThumbnailSamplesWithoutAveraging) {
  // Even rows and columns red, the rest blue: point sampling at (2tx, 2ty)
  // sees only red; any smoothing filter would mix in blue.
  const std::string foto = dir_ / "ruit.jpg";
  test::WriteBytes(foto, test::MaakJpeg(301, 200, [](int x, int y) { return x % 2 == 0 && y % 2 == 0 ? kRood : kBlauw; },
                                        {.kwaliteit = 100}));
  ASSERT_TRUE(IJLMaakThumb(foto, dir_ / "ruit_tn.jpg", log_.log(), meldingen_).ok());
  EXPECT_THAT(log_.regels(), ElementsAre("Aanmaken (IJL) thumbnail " + dir_.path() + "ruit_tn.jpg..."));
  const std::string jpeg = test::ReadBytes(dir_ / "ruit_tn.jpg");
  const test::Beeld thumb = test::LeesJpeg(jpeg);
  ASSERT_EQ(std::pair(thumb.breedte, thumb.hoogte), std::pair(150, 100));
  for (const auto& [x, y] : {std::pair{0, 0}, {1, 1}, {75, 50}, {149, 99}}) {
    EXPECT_TRUE(test::Lijkt(thumb.At(x, y), kRood, 40)) << x << "," << y;
  }
  EXPECT_EQ(test::EersteKwantisatieWaarde(jpeg), 3);  // quality 90
  EXPECT_TRUE(meldingen_.meldingen.empty());
}

TEST_F(PixelBibliotheek, ThumbnailFailureIsShownAndNotPassedOn) {
  EXPECT_EQ(IJLMaakThumb(dir_ / "weg.jpg", dir_ / "weg_tn.jpg", log_.log(), meldingen_).number(), 53);
  test::WriteBytes(dir_ / "tekst.jpg", "geen foto");
  static_cast<void>(IJLMaakThumb(dir_ / "tekst.jpg", dir_ / "tekst_tn.jpg", log_.log(), meldingen_));
  const std::string fout = "De foto " + dir_ / "tekst.jpg" + " is geen JPEG-bestand.";
  EXPECT_THAT(log_.regels(), ElementsAre("File not found", fout));
  EXPECT_THAT(meldingen_.meldingen, ElementsAre("Fout 53 tijdens aanmaken IJL thumbnail.(File not found)",
                                                "Fout 26002 tijdens aanmaken IJL thumbnail.(" + fout + ")"));
  EXPECT_FALSE(Fs().FileExists(dir_ / "tekst_tn.jpg"));
}

TEST_F(PixelBibliotheek, RotationTurnsAndKeepsABackup) {
  const std::string foto = dir_ / "foto.jpg";
  const std::string origineel = test::MaakJpeg(64, 32, [](int x, int) { return x < 32 ? kRood : kBlauw; });
  test::WriteBytes(foto, origineel);

  ASSERT_TRUE(IJLRoteerImg(foto, "links", true, meldingen_).ok());
  test::Beeld beeld = test::LeesJpeg(test::ReadBytes(foto));
  ASSERT_EQ(std::pair(beeld.breedte, beeld.hoogte), std::pair(32, 64));
  EXPECT_TRUE(test::Lijkt(beeld.At(16, 8), kBlauw, 40)) << "the right half turns to the top";
  EXPECT_TRUE(test::Lijkt(beeld.At(16, 56), kRood, 40));
  EXPECT_EQ(test::EersteKwantisatieWaarde(test::ReadBytes(foto)), 3);  // quality 90
  EXPECT_EQ(test::ReadBytes(dir_ / "Backup/foto.jpg"), origineel);
  EXPECT_FALSE(Fs().FileExists(foto + "_tmp"));

  ASSERT_TRUE(IJLRoteerImg(foto, "rechts", true, meldingen_).ok());
  beeld = test::LeesJpeg(test::ReadBytes(foto));
  EXPECT_EQ(beeld.breedte, 64);
  EXPECT_TRUE(test::Lijkt(beeld.At(8, 16), kRood, 40));
  EXPECT_EQ(test::ReadBytes(dir_ / "Backup/foto.jpg"), origineel) << "the first backup is kept";
  EXPECT_TRUE(log_.regels().empty());
  EXPECT_TRUE(meldingen_.meldingen.empty());
}

// Fails the write of a photo's temporary file, after checking that the photo
// is still there.
class WriteFails : public ForwardingFileSystem {
 public:
  explicit WriteFails(std::string foto) : ForwardingFileSystem(LocalFileSystem()), pad_(std::move(foto)) {}
  Status WriteFile(const std::string& path, std::string_view contents) override {
    if (path != pad_ + "_tmp") return ForwardingFileSystem::WriteFile(path, contents);
    photo_there_while_writing = LocalFileSystem().FileExists(pad_);
    return Status::Error(fout::kDiskFull);
  }
  bool photo_there_while_writing = false;

 private:
  std::string pad_;
};

TEST_F(PixelBibliotheek, RotationReplacesThePhotoInOneStep) {
  const std::string foto = dir_ / "foto.jpg";
  const std::string origineel = test::EffenJpeg(20, 10);
  test::WriteBytes(foto, origineel);
  WriteFails vol(foto);
  ScopedFileSystem scoped(vol);
  EXPECT_EQ(IJLRoteerImg(foto, "rechts", false, meldingen_).number(), 61);
  EXPECT_TRUE(vol.photo_there_while_writing);
  EXPECT_EQ(test::ReadBytes(foto), origineel);
  EXPECT_FALSE(Fs().FileExists(foto + "_tmp"));
  EXPECT_THAT(meldingen_.meldingen, ElementsAre("Fout 61 tijdens roteren foto.(Disk full)"));
  EXPECT_TRUE(log_.regels().empty());
}

TEST_F(PixelBibliotheek, RotationFailuresAreShownAndLeaveThePhotoAlone) {
  const std::string foto = dir_ / "foto.jpg";
  test::WriteBytes(foto, test::EffenJpeg(20, 10));
  test::WriteBytes(dir_ / "Backup", "a file where the folder should be");
  EXPECT_EQ(IJLRoteerImg(foto, "links", true, meldingen_).number(), 26002);
  static_cast<void>(IJLRoteerImg(dir_ / "weg.jpg", "links", false, meldingen_));
  EXPECT_THAT(meldingen_.meldingen, ElementsAre("Fout 26002 tijdens roteren foto.(Error creating backup.)",
                                                "Fout 53 tijdens roteren foto.(File not found)"));
  EXPECT_EQ(test::LeesJpeg(test::ReadBytes(foto)).breedte, 20);
}

}  // namespace
}  // namespace kiekbord
