// Both image libraries on every real sample file beside the repository
// (camera photos with large camera data, arithmetic-coded, lossless, 12-bit
// and multi-picture files, damaged ones), when that folder exists: it is not
// part of the repository. Each thumbnail has the size the header asks for, or
// the failure is told and no thumbnail is left; none crashes or hangs.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "base/file_system.h"
#include "images/pixel_edit.h"
#include "images/smooth_library.h"
#include "images/turbo_jpeg.h"
#include "tests/images/image_test_support.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

TEST(Monsters, EverySampleFileBesideTheRepository) {
  const std::filesystem::path map = KIEKBORD_SAMPLES_DIR;
  if (!std::filesystem::is_directory(map)) GTEST_SKIP() << "geen map " << map;
  std::vector<std::filesystem::path> paden;
  for (const auto& entry : std::filesystem::directory_iterator(map)) {
    if (entry.is_regular_file() && entry.path().extension() != ".md" && entry.path().extension() != ".tsv") {
      paden.push_back(entry.path());
    }
  }
  std::sort(paden.begin(), paden.end());
  const test::TempDir dir;
  test::LogOpname log(dir / "kiekbord.log");
  test::MeldingOpname meldingen;
  std::size_t gelukt = 0;
  for (const auto& pad : paden) {
    SCOPED_TRACE(pad.filename().string());
    JpegKop kop;
    const bool kop_gelezen = LeesJpegKop(test::ReadBytes(pad.string()), kop).ok();
    bool beide = true;
    for (const auto maak : {&GDIMaakThumb, &IJLMaakThumb}) {
      const std::size_t meldingen_voor = meldingen.meldingen.size();
      const Status status = maak(pad.string(), dir / "thumb.jpg", log.log(), meldingen);
      EXPECT_EQ(meldingen.meldingen.size(), meldingen_voor + (status.ok() ? 0 : 1));
      EXPECT_EQ(Fs().FileExists(dir / "thumb.jpg"), status.ok());
      beide = beide && status.ok();
      if (status.ok() && kop_gelezen && !kop.IsCmyk()) {
        const test::Beeld beeld = test::LeesJpeg(test::ReadBytes(dir / "thumb.jpg"));
        EXPECT_EQ(BerekenThumbnailMaat(kop.breedte, kop.hoogte), (ThumbnailMaat{beeld.breedte, beeld.hoogte}));
      }
      static_cast<void>(Fs().DeleteFile(dir / "thumb.jpg"));
    }
    if (beide) ++gelukt;
  }
  EXPECT_GT(gelukt, paden.size() * 3 / 4);
}

}  // namespace
}  // namespace kiekbord
