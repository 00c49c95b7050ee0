// Photos the decoders find odd: CMYK turned by either library, a frame
// header far into the file or none at all. Their thumbnails and the
// messages of photos without anything to decode are rows of
// tests/data/images/thumbnails.txt.
#include "images/ijl_library.h"
#include "images/photo_properties.h"
#include "images/pixel_edit.h"
#include "images/smooth_library.h"
#include "tests/robustness/gallery_fixture.h"

namespace kiekbord::test {
namespace {

using ::testing::HasSubstr;

// Turned, a CMYK photo is an RGB JPEG again (LeesJpeg reads no other) with
// its colours; inverted inks would miss by some 150.
TEST(VreemdeFotos, TurnedCmykPhotosBecomeRgbWithBothLibraries) {
  TempDir dir;
  const Rgb kleuren[] = {{230, 40, 40}, {40, 200, 60}, {50, 60, 220}, {240, 240, 240}};
  const auto vlakken = [&](int x, int y) { return kleuren[x / 200 + 2 * (y / 150)]; };
  const std::string cmyk = MaakJpeg(400, 300, vlakken, {.soort = JpegOpties::Soort::kCmyk});
  MeldingOpname melder;
  for (const auto& draai : {&IJLRoteerImg, &GDIRoteerImg}) {
    WriteBytes(dir / "cmyk.jpg", cmyk);
    ASSERT_TRUE(draai(dir / "cmyk.jpg", "links", false, melder).ok());
    const Beeld gedraaid = LeesJpeg(ReadBytes(dir / "cmyk.jpg"));
    ASSERT_EQ(std::pair(gedraaid.breedte, gedraaid.hoogte), std::pair(300, 400));
    EXPECT_TRUE(Lijkt(gedraaid.At(75, 300), kleuren[0], 60));  // the top-left block, turned down
  }
  EXPECT_TRUE(melder.meldingen.empty());
}

TEST_F(Robuustheid, PhotoPagesGiveTheSizeFoundOrNone) {
  WriteBytes(Uit() + "ver.jpg", MaakFoto("320x240,app"));
  WriteBytes(Uit() + "stip.jpg", MaakFoto("1x1"));
  WriteBytes(Uit() + "koploos.jpg", MaakFoto("kaal"));
  EXPECT_EQ(BepaalAfmetingen(Uit() + "ver.jpg"), "Error");  // beyond the size text's 256 KiB
  SchrijfScript({.namen = {"ver.jpg", "stip.jpg", "koploos.jpg"}, .algemeen = "Thumbnails=0\r\n"});
  Genereer();
  ASSERT_EQ(log_.back(), "Normaal einde.");
  const std::string pagina = ReadBytes(Uit() + "kb001.html") + ReadBytes(Uit() + "kb002.html") + ReadBytes(Uit() + "kb003.html");
  EXPECT_THAT(pagina, HasSubstr("src=\"ver.jpg\" width=\"320\" height=\"240\" alt="));
  EXPECT_THAT(pagina, HasSubstr("src=\"stip.jpg\" width=\"1\" height=\"1\" alt="));
  EXPECT_THAT(pagina, HasSubstr("src=\"koploos.jpg\" alt="));
}

}  // namespace
}  // namespace kiekbord::test
