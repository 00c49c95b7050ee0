// Photos from phones: turned upright losslessly as their orientation tag
// says, their location removed, the other camera data kept; thumbnails carry
// none of it; and the headless command's options on a real script.
#include <gtest/gtest.h>
#include <libexif/exif-data.h>
#include <vips/vips.h>

#include <cstdlib>

#include "editor/photo_import.h"
#include "editor/photo_upright.h"
#include "images/exif_data.h"
#include "images/pixel_edit.h"
#include "images/smooth_library.h"
#include "images/straighten.h"
#include "tests/images/image_test_support.h"
#include "tests/support/fault_fs.h"
#include "tests/support/golden.h"
#include "tests/support/test_photos.h"
#include "tests/support/test_support.h"

namespace kiekbord::test {
namespace {

// Where pixel (x, y) of a photo stored with orientation o shows in the upright
// w x h picture.
std::pair<int, int> Rechtop(int o, int x, int y, int w, int h) {
  const std::pair<int, int> plek[] = {{x, y}, {w - 1 - x, y}, {w - 1 - x, h - 1 - y}, {x, h - 1 - y},
                                      {y, x}, {w - 1 - y, x}, {w - 1 - y, h - 1 - x}, {y, h - 1 - x}};
  return plek[o - 1];
}

Rgb Patroon(std::pair<int, int> p) { return {p.first * 10, p.second * 15, 128}; }

// Every orientation, on a block-aligned and an unaligned picture (see
// tests/data/exif/orientaties.txt): upright pixel for pixel, tag 1, pixel
// sizes updated, the other fields and the GPS block kept.
TEST(Exif, TurnsEveryOrientationUpright) {
  for (const auto& rij : Tabel("exif/orientaties")) {
    SCOPED_TRACE(rij[0] + " " + rij[1]);
    const int o = std::stoi(rij[0]);
    const auto [w, h] = Maat(rij[1]);
    const auto [dx, dy] = Maat(rij[3]);
    const int sw = o >= 5 ? h : w;
    const int sh = o >= 5 ? w : h;
    const std::string foto = MetExif(MaakJpeg(sw, sh, [&](int x, int y) { return Patroon(Rechtop(o, x, y, w, h)); }),
                                     o, o % 2 == 0, sw, sh);
    std::string uit;
    OpschoonUitkomst uitkomst;
    ASSERT_TRUE(SchoonJpegOp(foto, {.rechtop = true}, uit, uitkomst).ok());
    const Beeld beeld = LeesJpeg(uit);
    const ExifGegevens exif = LeesExif(uit);
    EXPECT_EQ(uitkomst.orientatie, o);
    EXPECT_EQ(std::pair(exif.orientatie, exif.gps), std::pair(1, o % 2 == 0));
    EXPECT_EQ(ExifVeld(uit, EXIF_IFD_0, EXIF_TAG_MAKE) + ExifVeld(uit, EXIF_IFD_EXIF, EXIF_TAG_DATE_TIME_ORIGINAL),
              "Proefcamera2026:11:21 10:00:00");
    EXPECT_EQ(ExifVeld(uit, EXIF_IFD_EXIF, EXIF_TAG_PIXEL_X_DIMENSION), std::to_string(beeld.breedte));
    ASSERT_EQ(std::pair(beeld.breedte, beeld.hoogte), Maat(rij[2]));
    EXPECT_EQ(std::pair(uitkomst.afgesneden_kolommen, uitkomst.afgesneden_rijen), std::pair(w - beeld.breedte, h - beeld.hoogte));
    for (int y = 0; y < beeld.hoogte; ++y) {
      for (int x = 0; x < beeld.breedte; ++x) ASSERT_TRUE(Lijkt(beeld.At(x, y), Patroon({x + dx, y + dy}), 6));
    }
  }
}

// Removing the location touches nothing but the camera data, and a failed
// write leaves the photo byte for byte as it was.
TEST(Exif, RemovesTheLocationLosslesslyOrLeavesThePhoto) {
  const std::string foto = MetExif(ProefJpeg(40, 30), 6, true, 40, 30);
  std::string uit;
  OpschoonUitkomst uitkomst;
  ASSERT_TRUE(SchoonJpegOp(foto, {.zonder_locatie = true}, uit, uitkomst).ok());
  EXPECT_EQ(std::pair(LeesExif(uit).orientatie, LeesExif(uit).gps), std::pair(6, false));
  EXPECT_EQ(uit.substr(uit.find("\xFF\xDB")), foto.substr(foto.find("\xFF\xDB")));
  TempDir dir;
  WriteBytes(dir / "a.jpg", foto);
  FoutenSchijf schijf;
  schijf.Faal(FoutenSchijf::kSchrijven, dir / "a.jpg", 61);
  const ScopedFileSystem met_fouten(schijf);
  const Status status = SchoonFotoOp(dir / "a.jpg", {.rechtop = true, .zonder_locatie = true}, uitkomst);
  EXPECT_EQ(OpschoonFoutRegel("a.jpg", status), "Fout 61 bij het bewerken van foto a.jpg (Disk full); de foto is niet gewijzigd.");
  EXPECT_EQ(ReadBytes(dir / "a.jpg"), foto);
}

// Both libraries make thumbnails from pixels: no camera data, nothing that
// would turn them again.
TEST(Exif, ThumbnailsCarryNoCameraData) {
  TempDir dir;
  WriteBytes(dir / "a.jpg", MetExif(ProefJpeg(120, 90), 6, true, 120, 90));
  for (const auto maak : {&GDIMaakThumb, &IJLMaakThumb}) {
    LogOpname log(dir / "log");
    MeldingOpname meldingen;
    ASSERT_TRUE(maak(dir / "a.jpg", dir / "a_tn.jpg", log.log(), meldingen).ok());
    EXPECT_EQ(ReadBytes(dir / "a_tn.jpg").find("Exif"), std::string::npos);
  }
}

// Both rotate commands turn a tagged photo as it is shown (upright, then a
// quarter turn clockwise), so a mirrored tag never gives a mirrored picture,
// and the result carries no tag that would turn it again.
TEST(Exif, RotationTurnsATaggedPhotoAsShown) {
  TempDir dir;
  for (const auto& rij : Tabel("exif/orientaties")) {
    const int o = std::stoi(rij[0]);
    const auto [w, h] = Maat(rij[1]);
    if (w % 8 != 0) continue;
    const int sw = o >= 5 ? h : w;
    const int sh = o >= 5 ? w : h;
    const std::string foto = MetExif(MaakJpeg(sw, sh, [&](int x, int y) { return Patroon(Rechtop(o, x, y, w, h)); }),
                                     o, false, sw, sh);
    for (const auto draai : {&GDIRoteerImg, &IJLRoteerImg}) {
      SCOPED_TRACE(rij[0] + (draai == &GDIRoteerImg ? " GDI" : " IJL"));
      WriteBytes(dir / "a.jpg", foto);
      MeldingOpname meldingen;
      ASSERT_TRUE(draai(dir / "a.jpg", "rechts", false, meldingen).ok());
      const std::string uit = ReadBytes(dir / "a.jpg");
      EXPECT_EQ(uit.find("Exif"), std::string::npos);
      const Beeld beeld = LeesJpeg(uit);
      ASSERT_EQ(std::pair(beeld.breedte, beeld.hoogte), std::pair(h, w));
      for (int y = 0; y < beeld.hoogte; ++y) {
        for (int x = 0; x < beeld.breedte; ++x) ASSERT_TRUE(Lijkt(beeld.At(x, y), Patroon({y, h - 1 - x}), 12));
      }
    }
  }
}

// The whole command: nothing while another run holds the output directory;
// then a line per changed photo, an unchanged photo left alone, no backup
// as the user's preference says, and the normal run.
TEST(Exif, HeadlessCommandStraightensAndRemovesLocations) {
  TempDir dir;
  WriteBytes(dir / "reis.kbs", VulPlaatshouders(ReadBytes(TestDataDir() + "exif/reis.kbs"), {{"@MAP@", dir.path()}}));
  WriteBytes(dir / ".config/kiekbord/kiekbord.conf", "[Rotate]\nBackup=0\n");
  ASSERT_TRUE(Fs().CreateDirectory(dir / "foto").ok());
  const std::string staand = MetExif(ProefJpeg(64, 48), 6, true, 64, 48);
  WriteBytes(dir / "foto/staand.jpg", staand);
  WriteBytes(dir / "foto/kop.jpg", MetExif(ProefJpeg(60, 40), 3, false, 60, 40));
  WriteBytes(dir / "foto/recht.jpg", ProefJpeg(32, 32));
  const std::string opdracht = "env -u XDG_CONFIG_HOME HOME='" + dir.path() + "' '" + KIEKBORD_BIN_DIR +
                               "/kiekbord-maak' --rechtop --zonder-locatie '" + dir / "reis.kbs' >'" + dir /
                               "uit.txt' 2>&1";
  {
    std::unique_ptr<DirectoryLock> slot;
    ASSERT_TRUE(Fs().LockDirectory(dir / "foto", slot).ok());
    EXPECT_NE(std::system(opdracht.c_str()), 0);
    EXPECT_EQ(ReadBytes(dir / "foto/staand.jpg"), staand);
  }
  EXPECT_EQ(std::system(opdracht.c_str()), 0);
  const std::string uitvoer = ReadBytes(dir / "uit.txt");
  EXPECT_TRUE(uitvoer.starts_with(ReadBytes(TestDataDir() + "exif/uitvoer_begin.txt"))) << uitvoer;
  EXPECT_TRUE(uitvoer.ends_with("Normaal einde.\n"));
  EXPECT_EQ(LeesExif(ReadBytes(dir / "foto/staand.jpg")).gps, false);
  EXPECT_EQ(ReadBytes(dir / "foto/recht.jpg"), ProefJpeg(32, 32));
  EXPECT_FALSE(Fs().DirectoryExists(dir / "foto/Backup"));
}

// Copies into the output directory: upright and without location by
// default, byte for byte with both preferences off and for a photo that
// needs nothing; a HEIC photo becomes an upright JPEG that keeps its camera
// data but not its location. The originals stay as they were.
TEST(Exif, CopiesAreUprightWithoutLocation) {
  TempDir in, uit, ongewijzigd;
  const std::string staand = MetExif(ProefJpeg(64, 48), 6, true, 64, 48);
  WriteBytes(in / "Staand.JPG", staand);
  WriteBytes(in / "recht.jpg", ProefJpeg(32, 32));
  EXPECT_EQ(FotosKopieren(in.path(), uit.path(), 10, KopieOpschoning({})).aantal, 2);
  const std::string kopie = ReadBytes(uit / "staand.jpg");
  EXPECT_EQ(std::pair(LeesExif(kopie).orientatie, LeesExif(kopie).gps), std::pair(1, false));
  EXPECT_EQ(std::pair(LeesJpeg(kopie).breedte, LeesJpeg(kopie).hoogte), std::pair(48, 64));
  EXPECT_EQ(ReadBytes(uit / "recht.jpg"), ProefJpeg(32, 32));
  EXPECT_EQ(ReadBytes(in / "Staand.JPG"), staand);
  EXPECT_TRUE(IsGedraaidOpgeslagen(in / "Staand.JPG"));
  EXPECT_FALSE(IsGedraaidOpgeslagen(uit / "staand.jpg"));
  UserPreferences uit_gezet;
  uit_gezet.rechtop_bij_kopieren = uit_gezet.zonder_locatie_bij_kopieren = 0;
  FotosKopieren(in.path(), ongewijzigd.path(), 10, KopieOpschoning(uit_gezet));
  EXPECT_EQ(ReadBytes(ongewijzigd / "staand.jpg"), staand);

  // libvips writes a HEIC with the camera data of the JPEG it loaded.
  VipsImage* beeld = vips_image_new_from_buffer(staand.data(), staand.size(), "", nullptr);
  ASSERT_NE(beeld, nullptr);
  void* heic = nullptr;
  std::size_t grootte = 0;
  ASSERT_EQ(vips_heifsave_buffer(beeld, &heic, &grootte, "Q", 80, nullptr), 0);
  g_object_unref(beeld);
  WriteBytes(in / "Zee.HEIC", std::string(static_cast<const char*>(heic), grootte));
  g_free(heic);
  KopieUitkomst uitkomst;
  ASSERT_TRUE(KopieerOpgeschoond(in / "Zee.HEIC", uit / KopieNaam("Zee.HEIC"), KopieOpschoning({}), uitkomst).ok());
  const std::string jpeg = ReadBytes(uit / "zee.jpg");
  EXPECT_EQ(std::pair(LeesJpeg(jpeg).breedte, LeesJpeg(jpeg).hoogte), std::pair(64, 48));
  EXPECT_EQ(std::pair(LeesExif(jpeg).orientatie, LeesExif(jpeg).gps), std::pair(1, false));
  EXPECT_EQ(ExifVeld(jpeg, EXIF_IFD_0, EXIF_TAG_MAKE), "Proefcamera");
  WriteBytes(in / "nep.heic", "geen foto");
  EXPECT_EQ(KopieerOpgeschoond(in / "nep.heic", uit / "nep.jpg", {}, uitkomst).number(), fout::kProgramError);
  EXPECT_FALSE(Fs().FileExists(uit / "nep.jpg"));
}

}  // namespace
}  // namespace kiekbord::test
