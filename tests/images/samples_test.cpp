// Both image libraries on every real sample file beside the repository
// (camera photos with large camera data, arithmetic-coded, lossless, 12-bit
// and multi-picture files, damaged ones), when that folder exists: it is not
// part of the repository. Each thumbnail has the size the header asks for, or
// the failure is told and no thumbnail is left; none crashes or hangs.
#include <gtest/gtest.h>

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
  const std::string map = KIEKBORD_SAMPLES_DIR "/";
  if (!std::filesystem::is_directory(map)) GTEST_SKIP() << "geen map " << map;
  std::vector<std::string> paden = test::BestandenIn(map);
  std::erase_if(paden, [](const std::string& naam) { return naam.ends_with(".md") || naam.ends_with(".tsv"); });
  const test::TempDir dir;
  test::LogOpname log(dir / "kiekbord.log");
  test::MeldingOpname meldingen;
  std::size_t gelukt = 0;
  for (std::string& pad : paden) {
    pad = map + pad;
    SCOPED_TRACE(pad);
    JpegKop kop;
    const bool kop_gelezen = LeesJpegKop(test::ReadBytes(pad), kop).ok();
    bool beide = true;
    for (const auto maak : {&GDIMaakThumb, &IJLMaakThumb}) {
      const std::size_t meldingen_voor = meldingen.meldingen.size();
      const Status status = maak(pad, dir / "thumb.jpg", log.log(), meldingen);
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
