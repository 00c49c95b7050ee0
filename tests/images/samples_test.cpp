// Both image libraries on every real sample file: camera photos with large
// camera data, progressive, arithmetic-coded, lossless, 12-bit and CMYK
// files, multi-picture files and damaged ones. Each operation either gives
// a correct result or reports a clear failure; none crashes or hangs.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <turbojpeg.h>

#include <algorithm>
#include <filesystem>
#include <optional>

#include "gallery/file_system.h"
#include "images/ijl_library.h"
#include "images/pixel_edit.h"
#include "images/smooth_library.h"
#include "images/thumbnail_work.h"
#include "tests/images/image_test_support.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using ::testing::StartsWith;

std::vector<std::string> MonsterPaden() {
  std::vector<std::string> paden;
  for (const auto& entry : std::filesystem::directory_iterator(KIEKBORD_SAMPLES_DIR)) {
    if (entry.is_regular_file() && entry.path().extension() != ".md" && entry.path().extension() != ".tsv") {
      paden.push_back(entry.path().string());
    }
  }
  std::sort(paden.begin(), paden.end());
  return paden;
}

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

class Monsters : public ::testing::Test {
 protected:
  // Checks a thumbnail operation's outcome on one sample.
  void ControleerThumbnail(const std::string& monster, const Status& status, const std::string& thumb,
                           std::size_t meldingen_voor, const char* bibliotheek) {
    const std::string naam = std::filesystem::path(monster).filename().string();
    if (status.ok()) {
      const test::Beeld beeld = test::LeesJpeg(test::ReadBytes(thumb));
      EXPECT_GE(beeld.breedte, 1) << bibliotheek << " " << naam;
      EXPECT_LE(beeld.breedte, 151) << bibliotheek << " " << naam;
      EXPECT_LE(beeld.hoogte, 151) << bibliotheek << " " << naam;
      if (const auto maat = KopMaat(test::ReadBytes(monster))) {
        const ThumbnailMaat verwacht = BerekenThumbnailMaat(maat->breedte, maat->hoogte);
        EXPECT_EQ(beeld.breedte, verwacht.breedte) << bibliotheek << " " << naam;
        EXPECT_EQ(beeld.hoogte, verwacht.hoogte) << bibliotheek << " " << naam;
      }
      EXPECT_EQ(meldingen_.meldingen.size(), meldingen_voor) << bibliotheek << " " << naam;
      ++gelukt_;
    } else {
      EXPECT_FALSE(status.description().empty()) << bibliotheek << " " << naam;
      ASSERT_EQ(meldingen_.meldingen.size(), meldingen_voor + 1) << bibliotheek << " " << naam;
      EXPECT_THAT(meldingen_.meldingen.back(), StartsWith("Fout ")) << bibliotheek << " " << naam;
      EXPECT_FALSE(Fs().FileExists(thumb)) << bibliotheek << " " << naam;
    }
    if (Fs().FileExists(thumb)) {
      ASSERT_TRUE(Fs().DeleteFile(thumb).ok());
    }
  }

  test::TempDir dir_;
  test::LogOpname log_{dir_ / "kiekbord.log"};
  test::MeldingOpname meldingen_;
  int gelukt_ = 0;
};

TEST_F(Monsters, SmoothThumbnailOfEverySample) {
  const auto monsters = MonsterPaden();
  ASSERT_GT(monsters.size(), 100u);
  for (const std::string& monster : monsters) {
    const std::size_t voor = meldingen_.meldingen.size();
    ControleerThumbnail(monster, GDIMaakThumb(monster, dir_ / "thumb.jpg"), dir_ / "thumb.jpg", voor, "GDI");
  }
  EXPECT_GT(gelukt_, static_cast<int>(monsters.size() * 3 / 4));
}

TEST_F(Monsters, PixelThumbnailOfEverySample) {
  const auto monsters = MonsterPaden();
  for (const std::string& monster : monsters) {
    const std::size_t voor = meldingen_.meldingen.size();
    ControleerThumbnail(monster, IJLMaakThumb(monster, dir_ / "thumb.jpg"), dir_ / "thumb.jpg", voor, "IJL");
  }
  EXPECT_GT(gelukt_, static_cast<int>(monsters.size() * 3 / 4));
}

// A rotation either turns the photo (sides swapped) or leaves it exactly as
// it was.
void ControleerRotatie(const std::string& foto, const std::string& origineel, const Status& status) {
  const std::string na = test::ReadBytes(foto);
  if (!status.ok()) {
    EXPECT_EQ(na, origineel) << foto;
    return;
  }
  const auto voor = KopMaat(origineel);
  const auto erna = KopMaat(na);
  ASSERT_TRUE(erna) << foto;
  if (voor) {
    EXPECT_EQ(erna->breedte, voor->hoogte) << foto;
    EXPECT_EQ(erna->hoogte, voor->breedte) << foto;
  }
}

TEST_F(Monsters, RotationWithBothLibraries) {
  for (const std::string& monster : MonsterPaden()) {
    const std::string origineel = test::ReadBytes(monster);
    // The few very large samples only make this slow; they add no case.
    if (const auto maat = KopMaat(origineel); maat && std::int64_t{maat->breedte} * maat->hoogte > 16'000'000) continue;
    const std::string foto = dir_ / "foto.jpg";
    test::WriteBytes(foto, origineel);
    ControleerRotatie(foto, origineel, GDIRoteerImg(foto, "links", false));
    test::WriteBytes(foto, origineel);
    ControleerRotatie(foto, origineel, IJLRoteerImg(foto, "rechts", false));
    EXPECT_FALSE(Fs().FileExists(foto + "_tmp")) << monster;
    EXPECT_FALSE(Fs().FileExists(dir_ / "foto_tmp.jpg")) << monster;
  }
  EXPECT_TRUE(log_.regels().empty());
}

}  // namespace
}  // namespace kiekbord
