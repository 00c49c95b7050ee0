// The two image libraries side by side: the smooth one (libvips) and the
// pixel-buffer one (point sampling on a bottom-up bitmap).
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <jconfig.h>

#include <filesystem>

#include "base/file_system.h"
#include "base/text_helpers.h"
#include "images/ijl_library.h"
#include "images/photo_backup.h"
#include "images/pixel_edit.h"
#include "images/smooth_library.h"
#include "tests/images/image_test_support.h"
#include "tests/support/fault_fs.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using ::testing::ElementsAre;
using ::testing::StartsWith;
using test::FoutenSchijf;

const test::Rgb kRood{255, 0, 0};
const test::Rgb kBlauw{0, 0, 255};

TEST(ThumbnailMaat, DivisorAndRounding) {
  for (const auto& rij : test::Tabel("images/thumbnail_maat")) {
    const auto [breedte, hoogte] = test::Maat(rij[0]);
    const auto [tw, th] = test::Maat(rij[2]);
    EXPECT_EQ(ThumbnailDeler(breedte, hoogte), std::stoi(rij[1])) << rij[0];
    EXPECT_EQ(BerekenThumbnailMaat(breedte, hoogte), (ThumbnailMaat{tw, th})) << rij[0];
  }
}

TEST(BibliotheekRegels, VersionAndBufferBounds) {
  EXPECT_EQ(IJLVersion(), LIBJPEG_TURBO_VERSION_NUMBER);
  cDIBSection buffer;
  EXPECT_FALSE(buffer.Create(65535, 65535));
  ASSERT_TRUE(buffer.Create(2, 2));
  buffer.SetPixel(2, 0, 0x123456);
  EXPECT_EQ(buffer.GetPixel(2, 0), kGeenKleur);
  EXPECT_EQ(buffer.GetPixel(1, 1), 0u);
}

class Bibliotheken : public ::testing::Test {
 protected:
  test::TempDir dir_;
  test::LogOpname log_{dir_ / "kiekbord.log"};
  test::MeldingOpname meldingen_;
};

TEST_F(Bibliotheken, ThumbnailsOfBothLibraries) {
  const std::string foto = dir_ / "foto.jpg";
  const std::string thumb = dir_ / "foto_tn.jpg";
  for (const auto& rij : test::Tabel("images/thumbnails")) {
    SCOPED_TRACE(rij[0] + " " + rij[1]);
    const bool gdi = rij[0] == "GDI";
    const int nummer = std::stoi(rij[2]);
    const std::string beschrijving = Vervang(rij[3], "@", dir_.path());
    log_.Wis();
    meldingen_.meldingen.clear();
    static_cast<void>(Fs().DeleteFile(thumb));
    rij[1] == "weg" ? static_cast<void>(Fs().DeleteFile(foto)) : test::WriteBytes(foto, test::MaakFoto(rij[1]));
    const Status status = (gdi ? GDIMaakThumb : IJLMaakThumb)(foto, thumb, log_.log(), meldingen_);
    // The smooth library passes every failure on as 26002.
    EXPECT_EQ(status.number(), gdi && nummer != 0 ? 26002 : nummer);
    EXPECT_EQ(status.description(), beschrijving);
    if (nummer != 0) {
      EXPECT_THAT(log_.regels(), ElementsAre((gdi ? "Error: " : "") + beschrijving));
      EXPECT_THAT(meldingen_.meldingen, ElementsAre("Fout " + rij[2] + " tijdens aanmaken " + rij[0] + " thumbnail." +
                                                    (gdi ? "\n(" : "(") + beschrijving + ")"));
      EXPECT_FALSE(Fs().FileExists(thumb));
      continue;
    }
    EXPECT_THAT(log_.regels(), ElementsAre("Aanmaken (" + rij[0] + ") thumbnail " + thumb + "..."));
    EXPECT_TRUE(meldingen_.meldingen.empty());
    const std::string jpeg = test::ReadBytes(thumb);
    EXPECT_EQ(test::EersteKwantisatieWaarde(jpeg), 3);  // quality 90
    const test::Beeld beeld = test::LeesJpeg(jpeg);
    ASSERT_EQ(std::pair(beeld.breedte, beeld.hoogte), test::Maat(rij[4]));
    test::Rgb midden;
    if (std::sscanf(rij[5].c_str(), "%d,%d,%d", &midden.r, &midden.g, &midden.b) == 3) {
      EXPECT_TRUE(test::Lijkt(beeld.At(beeld.breedte / 2, beeld.hoogte / 2), midden, 40));
    }
  }
}

TEST_F(Bibliotheken, RotationTurnsThePhotoAndKeepsTheFirstBackup) {
  const std::string origineel = test::MaakJpeg(64, 32, [](int x, int y) { return x < 32 && y < 16 ? kRood : kBlauw; });
  const test::TempDir dir;
  const std::string foto = dir / "foto.jpg";
  for (const auto& rij : test::Tabel("images/rotaties")) {
    SCOPED_TRACE(rij[0] + " " + rij[1]);
    if (rij[1] == "LINKSom") {
      test::WriteBytes(foto, origineel);
      std::filesystem::remove_all(dir / "Backup");
    }
    ASSERT_TRUE((rij[0] == "GDI" ? GDIRoteerImg : IJLRoteerImg)(foto, rij[1], true, meldingen_).ok());
    const std::string jpeg = test::ReadBytes(foto);
    const test::Beeld beeld = test::LeesJpeg(jpeg);
    ASSERT_EQ(std::pair(beeld.breedte, beeld.hoogte), test::Maat(rij[2]));
    for (int i = 3; i <= 5; ++i) {
      const auto [x, y] = test::Maat(rij[i]);
      EXPECT_TRUE(test::Lijkt(beeld.At(x, y), i == 3 ? kRood : kBlauw, 40)) << rij[i];
    }
    EXPECT_EQ(test::EersteKwantisatieWaarde(jpeg), std::stoi(rij[6]));
    EXPECT_EQ(test::ReadBytes(dir / "Backup/foto.jpg"), origineel) << "the first backup is kept";
    EXPECT_EQ(test::BestandenIn(dir.path()), std::vector<std::string>{"foto.jpg"}) << "no temporary file is left";
  }
  EXPECT_FALSE(IsLinksom("link"));
  EXPECT_TRUE(log_.regels().empty());
  EXPECT_TRUE(meldingen_.meldingen.empty());
}

TEST_F(Bibliotheken, ShrinkToAnExactSizeAtTheCodesQuality) {
  const std::string foto = dir_ / "foto.jpg";
  for (const auto& [code, eerste_waarde] : {std::pair{0, 1}, {1, 6}, {2, 13}, {7, 1}}) {
    test::WriteBytes(foto, test::EffenJpeg(400, 300));
    ASSERT_TRUE(GDIVerkleinImg(foto, 123, 45, code, false, meldingen_).ok());
    const test::Beeld beeld = test::LeesJpeg(test::ReadBytes(foto));
    EXPECT_EQ(std::pair(beeld.breedte, beeld.hoogte), std::pair(123, 45));
    EXPECT_EQ(test::EersteKwantisatieWaarde(test::ReadBytes(foto)), eerste_waarde) << "code " << code;
  }
  EXPECT_FALSE(Fs().DirectoryExists(dir_ / "Backup"));
}

// Whatever fails, the photo stays as it was and the failure is shown.
TEST_F(Bibliotheken, EditFailuresLeaveThePhotoAlone) {
  const std::string origineel = test::EffenJpeg(40, 30);
  for (const auto& rij : test::Tabel("images/bewerkingen_mislukt")) {
    SCOPED_TRACE(rij[5]);
    const test::TempDir dir;
    for (const char* naam : {"foto.jpg", "HOOFD.JPG"}) test::WriteBytes(dir / naam, origineel);
    test::WriteBytes(dir / "tekst.jpg", "geen foto");
    test::WriteBytes(dir / "Backup", "a file where the folder should be");
    meldingen_.meldingen.clear();
    FoutenSchijf schijf;
    schijf.Faal(rij[3] == "hernoemen" ? FoutenSchijf::kHernoemen : rij[3] == "schrijven" ? FoutenSchijf::kSchrijven : 0u,
                "*", std::stoi(rij[4]));
    const ScopedFileSystem scoped(schijf);
    const std::string foto = dir / rij[1];
    const bool backup = rij[2] == "ja";
    const Status status = rij[0] == "GDI-roteer"     ? GDIRoteerImg(foto, "links", backup, meldingen_)
                          : rij[0] == "GDI-verklein" ? GDIVerkleinImg(foto, 10, 10, 0, backup, meldingen_)
                                                     : IJLRoteerImg(foto, "links", backup, meldingen_);
    EXPECT_FALSE(status.ok());
    EXPECT_THAT(meldingen_.meldingen, ElementsAre(StartsWith(rij[5])));
    for (const char* naam : {"foto.jpg", "HOOFD.JPG"}) EXPECT_EQ(test::ReadBytes(dir / naam), origineel) << naam;
  }
  EXPECT_TRUE(log_.regels().empty());
}

}  // namespace
}  // namespace kiekbord
