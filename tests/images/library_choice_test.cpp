#include "images/library_choice.h"

#include <gtest/gtest.h>
#include <sys/utsname.h>

#include <cstdio>

#include "base/text_helpers.h"
#include "tests/images/image_test_support.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

TEST(OsNaam, VersionTableAndLinuxAsPlatformThreeWithTheKernelVersion) {
  for (const auto& rij : test::Tabel("images/os_namen")) EXPECT_EQ(OsNaamVoorSleutel(rij[0]), rij[1]) << rij[0];
  utsname info{};
  ASSERT_EQ(::uname(&info), 0);
  int major = 0, minor = 0;
  ASSERT_EQ(std::sscanf(info.release, "%d.%d", &major, &minor), 2);
  EXPECT_EQ(BepaalOsNaam(), "Unknown (3." + std::to_string(major) + "." + std::to_string(minor) + ")");
}

TEST(ThumbnailKeuze, NameAndMarkerFileChooseTheLibraryAndAreLogged) {
  test::TempDir met_marker, zonder_marker;
  test::WriteBytes(met_marker / "GDIplus.txt", "");
  for (const auto& rij : test::Tabel("images/bibliotheek_keuze")) {
    test::TempDir log_dir;
    test::LogOpname log(log_dir / "kiekbord.log");
    const std::string program_dir = rij[1] == "ja" ? met_marker.path() : zonder_marker.path();
    // "hier": without a name, that of this system.
    const ImageLibrary bibliotheek = rij[0] == "hier" ? KiesThumbnailBibliotheek(program_dir, log.log())
                                                      : KiesThumbnailBibliotheek(rij[0], program_dir, log.log());
    EXPECT_EQ(bibliotheek, rij[2] == "GDI" ? ImageLibrary::kGdiPlus : ImageLibrary::kIjl11) << rij[0];
    std::vector<std::string> regels(rij.begin() + 3, rij.end());
    for (std::string& regel : regels) regel = Vervang(regel, "hier", BepaalOsNaam());
    EXPECT_EQ(log.regels(), regels);
  }
}

TEST(HoofdvensterKeuze, StoredNameAndRotationLibrary) {
  test::TempDir met_marker, zonder_marker;
  test::WriteBytes(met_marker / "GDIplus.txt", "");
  for (const auto& rij : test::Tabel("images/hoofdvenster")) {
    EXPECT_EQ(HoofdvensterOsNaam(rij[0], (rij[1] == "ja" ? met_marker : zonder_marker).path()), rij[2]) << rij[0];
  }
  for (const char* naam : {"XP", "Vista"}) EXPECT_EQ(RotatieBibliotheek(naam), ImageLibrary::kGdiPlus) << naam;
  for (const char* naam : {"2000", "Unknown (3.6.1)"}) EXPECT_EQ(RotatieBibliotheek(naam), ImageLibrary::kIjl11) << naam;
}

}  // namespace
}  // namespace kiekbord
