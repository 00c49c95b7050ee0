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

#include "base/file_system.h"
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
  test::TempDir dir_;
  test::LogOpname log_{dir_ / "kiekbord.log"};
  test::MeldingOpname meldingen_;
};

// A thumbnail either has the size the photo's header asks for, or the
// failure is told in a message and no thumbnail is left.
TEST_F(Monsters, ThumbnailOfEverySampleWithBothLibraries) {
  const auto monsters = MonsterPaden();
  ASSERT_GT(monsters.size(), 100u);
  const std::string thumb = dir_ / "thumb.jpg";
  for (const auto& [bibliotheek, maak] : {std::pair{"GDI", &GDIMaakThumb}, {"IJL", &IJLMaakThumb}}) {
    std::size_t gelukt = 0;
    for (const std::string& monster : monsters) {
      SCOPED_TRACE(std::string(bibliotheek) + " " + std::filesystem::path(monster).filename().string());
      const std::size_t meldingen_voor = meldingen_.meldingen.size();
      const Status status = maak(monster, thumb, log_.log(), meldingen_);
      EXPECT_EQ(meldingen_.meldingen.size(), meldingen_voor + (status.ok() ? 0 : 1));
      if (!status.ok()) {
        EXPECT_THAT(meldingen_.meldingen.back(), StartsWith("Fout "));
        EXPECT_FALSE(status.description().empty());
        EXPECT_FALSE(Fs().FileExists(thumb));
        continue;
      }
      ++gelukt;
      const test::Beeld beeld = test::LeesJpeg(test::ReadBytes(thumb));
      EXPECT_TRUE(beeld.breedte >= 1 && beeld.breedte <= 151 && beeld.hoogte <= 151);
      if (const auto maat = KopMaat(test::ReadBytes(monster))) {
        const ThumbnailMaat verwacht = BerekenThumbnailMaat(maat->breedte, maat->hoogte);
        EXPECT_EQ(std::pair(beeld.breedte, beeld.hoogte), std::pair(verwacht.breedte, verwacht.hoogte));
      }
      ASSERT_TRUE(Fs().DeleteFile(thumb).ok());
    }
    EXPECT_GT(gelukt, monsters.size() * 3 / 4) << bibliotheek;
  }
}

// A rotation either turns the photo (sides swapped) or leaves it exactly as
// it was.
TEST_F(Monsters, RotationWithBothLibraries) {
  const std::string foto = dir_ / "foto.jpg";
  for (const std::string& monster : MonsterPaden()) {
    SCOPED_TRACE(monster);
    const std::string origineel = test::ReadBytes(monster);
    const auto voor = KopMaat(origineel);
    // The few very large samples only make this slow; they add no case.
    if (voor && std::int64_t{voor->breedte} * voor->hoogte > 16'000'000) continue;
    for (const auto& [roteer, richting] : {std::pair{&GDIRoteerImg, "links"}, {&IJLRoteerImg, "rechts"}}) {
      test::WriteBytes(foto, origineel);
      const bool gelukt = roteer(foto, richting, false, meldingen_).ok();
      const std::string na = test::ReadBytes(foto);
      const auto erna = KopMaat(na);
      if (!gelukt) {
        EXPECT_EQ(na, origineel);
        continue;
      }
      ASSERT_TRUE(erna);
      if (voor) {
        EXPECT_EQ(std::pair(erna->breedte, erna->hoogte), std::pair(voor->hoogte, voor->breedte));
      }
    }
    EXPECT_FALSE(Fs().FileExists(foto + "_tmp") || Fs().FileExists(dir_ / "foto_tmp.jpg"));
  }
  EXPECT_TRUE(log_.regels().empty());
}

}  // namespace
}  // namespace kiekbord
