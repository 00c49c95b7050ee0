// Photos the decoders find odd: CMYK, a frame header far into the file or
// none at all, and files without anything to decode.
#include <gmock/gmock.h>

#include "base/text_helpers.h"
#include "images/ijl_library.h"
#include "images/photo_properties.h"
#include "images/pixel_edit.h"
#include "images/smooth_library.h"
#include "tests/images/image_test_support.h"
#include "tests/robustness/gallery_fixture.h"

namespace kiekbord::test {
namespace {

using ::testing::HasSubstr;

// `jpeg` with `app` bytes of APP2 segments right after its start marker.
std::string MetApp(const std::string& jpeg, std::size_t app) {
  std::string segmenten;
  for (std::size_t deel = 0; app > 0; app -= deel) {
    deel = std::min<std::size_t>(app, 60000);
    segmenten += std::string("\xFF\xE2") + static_cast<char>((deel + 2) >> 8) + static_cast<char>((deel + 2) & 0xFF);
    segmenten += std::string(deel, 'x');
  }
  return jpeg.substr(0, 2) + segmenten + jpeg.substr(2);
}

TEST(VreemdeFotos, CmykPhotosBecomeRgbWithBothLibraries) {
  TempDir dir;
  const Rgb kleuren[] = {{230, 40, 40}, {40, 200, 60}, {50, 60, 220}, {240, 240, 240}};
  const auto vlakken = [&](int x, int y) { return kleuren[x / 200 + 2 * (y / 150)]; };
  const std::string cmyk = MaakJpeg(400, 300, vlakken, {.soort = JpegOpties::Soort::kCmyk});
  LogOpname log(dir / "log.txt");
  MeldingOpname melder;
  // libvips goes through a printing colour profile (green comes out as
  // 9,133,96), the pixel-buffer library only takes the inks away; inverted
  // inks would miss by some 150.
  for (const auto& [maak, marge] : {std::pair{&GDIMaakThumb, 90}, {&IJLMaakThumb, 12}}) {
    WriteBytes(dir / "cmyk.jpg", cmyk);
    ASSERT_TRUE(maak(dir / "cmyk.jpg", dir / "cmyk_tn.jpg", log.log(), melder).ok());
    const Beeld thumb = LeesJpeg(ReadBytes(dir / "cmyk_tn.jpg"));
    ASSERT_EQ(std::pair(thumb.breedte, thumb.hoogte), std::pair(133, 100));
    for (int i = 0; i < 4; ++i) {
      EXPECT_TRUE(Lijkt(thumb.At(33 + 66 * (i % 2), 25 + 50 * (i / 2)), kleuren[i], marge)) << i;
    }
  }
  for (const auto& draai : {&IJLRoteerImg, &GDIRoteerImg}) {
    WriteBytes(dir / "cmyk.jpg", cmyk);
    ASSERT_TRUE(draai(dir / "cmyk.jpg", "links", false, melder).ok());
    const Beeld gedraaid = LeesJpeg(ReadBytes(dir / "cmyk.jpg"));  // an RGB JPEG again
    ASSERT_EQ(std::pair(gedraaid.breedte, gedraaid.hoogte), std::pair(300, 400));
    EXPECT_TRUE(Lijkt(gedraaid.At(75, 300), kleuren[0], 60));  // the top-left block, turned down
  }
  EXPECT_TRUE(melder.meldingen.empty());
}

TEST(VreemdeFotos, ImageFailuresNameThePhotoInDutch) {
  TempDir dir;
  const std::string jpeg = EffenJpeg(64, 48);
  const std::pair<std::string, std::string> gevallen[] = {
      {"", "is leeg (0 bytes)."},
      {"\xFF\xD8\xFF\xD9", "bevat geen beeldgegevens."},
      {"\x89PNG\r\n\x1A\n" + std::string(100, '\0'), "is geen JPEG-bestand."},
      {MetApp(jpeg, 5000).substr(0, 3000), "is onvolledig: het bestand houdt op voor de beeldgegevens."},
  };
  LogOpname log(dir / "log.txt");
  MeldingOpname melder;
  cDIBSection buffer;
  for (const auto& [bytes, fout] : gevallen) {
    WriteBytes(dir / "f.jpg", bytes);
    const std::string tekst = "De foto " + dir / "f.jpg" + " " + fout;
    EXPECT_EQ(GDIMaakThumb(dir / "f.jpg", dir / "f_tn.jpg", log.log(), melder).description(), tekst);
    EXPECT_EQ(IJLMaakThumb(dir / "f.jpg", dir / "f_tn.jpg", log.log(), melder).description(), tekst);
    EXPECT_EQ(LoadJPG(buffer, dir / "f.jpg").description(), tekst);
    EXPECT_EQ(melder.meldingen.back(), "Fout 26002 tijdens aanmaken IJL thumbnail.(" + tekst + ")");
  }
}

TEST_F(Robuustheid, PhotoPagesGiveTheSizeFoundOrNone) {
  const std::string ver = MetApp(EffenJpeg(320, 240), 300000);
  WriteBytes(Uit() + "ver.jpg", ver);
  WriteBytes(Uit() + "stip.jpg", EffenJpeg(1, 1));
  WriteBytes(Uit() + "koploos.jpg", MetApp("\xFF\xD8\xFF\xD9", 1000));
  EXPECT_EQ(BepaalAfmetingen(Uit() + "ver.jpg"), "Error");  // beyond the size text's 256 KiB
  SchrijfScript({"ver.jpg", "stip.jpg", "koploos.jpg"});
  WriteBytes(Script(), Vervang(ReadBytes(Script()), "Thumbnails=1", "Thumbnails=0"));
  Genereer();
  ASSERT_EQ(log_.back(), "Normaal einde.");
  const std::string pagina = ReadBytes(Uit() + "kb001.html") + ReadBytes(Uit() + "kb002.html") + ReadBytes(Uit() + "kb003.html");
  EXPECT_THAT(pagina, HasSubstr("src=\"ver.jpg\" width=\"320\" height=\"240\" alt="));
  EXPECT_THAT(pagina, HasSubstr("src=\"stip.jpg\" width=\"1\" height=\"1\" alt="));
  EXPECT_THAT(pagina, HasSubstr("src=\"koploos.jpg\" alt="));
}

}  // namespace
}  // namespace kiekbord::test
