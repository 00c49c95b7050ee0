// Both image libraries on odd photos: made here (progressive, grey, CMYK,
// camera data in front, truncated, junk after the end, a huge claimed size,
// a PNG named .jpg), and, when the folder of real sample files beside the
// repository exists, on every one of those. Each operation either gives a
// correct result or reports a clear failure; none crashes or hangs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <turbojpeg.h>
#include <vips/vips.h>

#include <algorithm>
#include <filesystem>
#include <optional>

#include "base/file_system.h"
#include "images/photo_properties.h"
#include "images/pixel_edit.h"
#include "images/smooth_library.h"
#include "images/thumbnail_work.h"
#include "tests/images/image_test_support.h"
#include "tests/support/test_photos.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using ::testing::StartsWith;
using Soort = test::JpegOpties::Soort;

// The size libjpeg-turbo reads from the header, when it reads one.
std::optional<ThumbnailMaat> KopMaat(const std::string& jpeg) {
  tjhandle handle = tjInitDecompress();
  int w = 0, h = 0, subsampling = 0, kleurruimte = 0;
  const bool gelezen = tjDecompressHeader3(handle, reinterpret_cast<const unsigned char*>(jpeg.data()), jpeg.size(), &w,
                                           &h, &subsampling, &kleurruimte) == 0;
  tjDestroy(handle);
  if (!gelezen) return std::nullopt;
  return ThumbnailMaat{w, h};
}

std::string PngBytes() {
  VipsImage* zwart = nullptr;
  void* buffer = nullptr;
  std::size_t lengte = 0;
  EXPECT_TRUE(vips_init("images_tests") == 0 && vips_black(&zwart, 64, 48, nullptr) == 0 &&
              vips_pngsave_buffer(zwart, &buffer, &lengte, nullptr) == 0);
  const std::string png(static_cast<const char*>(buffer), lengte);
  g_object_unref(zwart);
  g_free(buffer);
  return png;
}

class Monsters : public ::testing::Test {
 protected:
  // The size text agrees with libjpeg-turbo's header; a thumbnail has the
  // size the header asks for, or the failure is told and no thumbnail is
  // left; a rotation turns the photo or leaves it exactly as it was. True
  // when both libraries made a thumbnail.
  bool Controleer(const std::string& bytes) {
    const std::string foto = dir_ / "foto.jpg";
    const std::string thumb = dir_ / "thumb.jpg";
    test::WriteBytes(foto, bytes);
    const auto kop = KopMaat(bytes);
    const std::string afmetingen = BepaalAfmetingen(foto);
    if (kop && afmetingen != "Error") {
      EXPECT_EQ(BreedteVanAfmetingen(afmetingen), kop->breedte);
      EXPECT_EQ(HoogteVanAfmetingen(afmetingen), kop->hoogte);
    }
    bool beide = true;
    for (const auto maak : {&GDIMaakThumb, &IJLMaakThumb}) {
      const std::size_t meldingen_voor = meldingen_.meldingen.size();
      const Status status = maak(foto, thumb, log_.log(), meldingen_);
      EXPECT_EQ(meldingen_.meldingen.size(), meldingen_voor + (status.ok() ? 0 : 1));
      beide = beide && status.ok();
      if (!status.ok()) {
        EXPECT_THAT(meldingen_.meldingen.back(), StartsWith("Fout "));
        EXPECT_FALSE(Fs().FileExists(thumb));
        continue;
      }
      const test::Beeld beeld = test::LeesJpeg(test::ReadBytes(thumb));
      if (kop) {
        const ThumbnailMaat verwacht = BerekenThumbnailMaat(kop->breedte, kop->hoogte);
        EXPECT_EQ(std::pair(beeld.breedte, beeld.hoogte), std::pair(verwacht.breedte, verwacht.hoogte));
      }
      EXPECT_TRUE(Fs().DeleteFile(thumb).ok());
    }
    // The few very large samples only make the rotation slow; they add no case.
    if (kop && std::int64_t{kop->breedte} * kop->hoogte > 16'000'000) return beide;
    for (const auto roteer : {&GDIRoteerImg, &IJLRoteerImg}) {
      test::WriteBytes(foto, bytes);
      if (!roteer(foto, "links", false, meldingen_).ok()) {
        EXPECT_EQ(test::ReadBytes(foto), bytes);
      } else if (kop) {
        const auto erna = KopMaat(test::ReadBytes(foto));
        EXPECT_TRUE(erna && std::pair(erna->breedte, erna->hoogte) == std::pair(kop->hoogte, kop->breedte));
      }
    }
    return beide;
  }

  test::TempDir dir_;
  test::LogOpname log_{dir_ / "kiekbord.log"};
  test::MeldingOpname meldingen_;
};

TEST_F(Monsters, OddPhotosMadeHere) {
  const std::string gewoon = test::ProefJpeg(333, 251, 1);
  const struct {
    const char* naam;
    std::string bytes;
    bool gelukt;  // both libraries make the thumbnail
  } gevallen[] = {
      {"progressive", test::EffenJpeg(320, 240, {90, 140, 200}, {.progressief = true}), true},
      {"grey", test::EffenJpeg(201, 157, {90, 90, 90}, {.soort = Soort::kGrijs}), true},
      {"camera data in front", test::CameraJpeg(640, 480), true},
      {"junk after the end", gewoon + std::string(5000, 'x'), true},
      {"truncated", gewoon.substr(0, gewoon.size() / 2), false},
      {"only a header", test::KaleKop(65535, 65535), false},
      {"png named .jpg", PngBytes(), false},
      {"empty", "", false},
  };
  for (const auto& geval : gevallen) {
    SCOPED_TRACE(geval.naam);
    const bool beide = Controleer(geval.bytes);
    if (geval.gelukt) {
      EXPECT_TRUE(beide);
    }
  }
  // CMYK: the smooth library reads it; either way the result is consistent.
  SCOPED_TRACE("cmyk");
  static_cast<void>(Controleer(test::EffenJpeg(160, 120, {20, 60, 100}, {.soort = Soort::kCmyk})));
}

// The real sample files (camera photos with large camera data, arithmetic-
// coded, lossless, 12-bit and multi-picture files, damaged ones) are not part
// of the repository; this test runs them only where they are.
TEST_F(Monsters, EverySampleFileBesideTheRepository) {
  const std::filesystem::path map = KIEKBORD_SAMPLES_DIR;
  if (!std::filesystem::is_directory(map)) GTEST_SKIP() << "geen map " << map;
  std::vector<std::string> paden;
  for (const auto& entry : std::filesystem::directory_iterator(map)) {
    if (entry.is_regular_file() && entry.path().extension() != ".md" && entry.path().extension() != ".tsv") {
      paden.push_back(entry.path().string());
    }
  }
  std::sort(paden.begin(), paden.end());
  std::size_t gelukt = 0;
  for (const std::string& pad : paden) {
    SCOPED_TRACE(std::filesystem::path(pad).filename().string());
    if (Controleer(test::ReadBytes(pad))) ++gelukt;
  }
  EXPECT_GT(gelukt, paden.size() * 3 / 4);
}

}  // namespace
}  // namespace kiekbord
