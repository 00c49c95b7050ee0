#include "images/library_choice.h"

#include <gtest/gtest.h>
#include <sys/utsname.h>

#include <cstdio>

#include "tests/images/image_test_support.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

TEST(OsNaam, VersionTable) {
  const struct {
    const char* sleutel;
    const char* naam;
  } gevallen[] = {
      {"1.4.0", "95"},        {"1.4.10", "98"},         {"2.3.51", "NT3.51"},
      {"2.4.0", "NT4.0"},     {"2.4.90", "ME"},         {"2.5.0", "2000"},
      {"2.5.1", "XP"},        {"2.5.2", "Server 2003"}, {"2.6.0", "Vista"},
      {"2.6.1", "Windows7"},  {"2.6.2", "Unknown (2.6.2)"},
      {"1.4.90", "Unknown (1.4.90)"},  // the "ME" row carries platform 2
      {"3.6.1", "Unknown (3.6.1)"},
  };
  for (const auto& geval : gevallen) EXPECT_EQ(OsNaamVoorSleutel(geval.sleutel), geval.naam) << geval.sleutel;
}

TEST(OsNaam, LinuxReportsPlatformThreeWithTheKernelVersion) {
  utsname info{};
  ASSERT_EQ(::uname(&info), 0);
  int major = 0, minor = 0;
  ASSERT_EQ(std::sscanf(info.release, "%d.%d", &major, &minor), 2);
  EXPECT_EQ(BepaalOsNaam(), "Unknown (3." + std::to_string(major) + "." + std::to_string(minor) + ")");
}

TEST(ThumbnailKeuze, NameAndMarkerFileChooseTheLibraryAndAreLogged) {
  test::TempDir met_marker;
  test::TempDir zonder_marker;
  test::WriteBytes(met_marker / "GDIplus.txt", "");
  const std::string gdi = "Imagelibrary GDIplus wordt gebruikt.";
  const std::string ijl = "Imagelibrary IJL11 wordt gebruikt.";
  const std::string marker = "(Bestand GDIplus.txt gedetecteerd.)";
  const struct {
    const char* naam;
    bool met_marker;
    ImageLibrary bibliotheek;
    std::vector<std::string> regels;
  } gevallen[] = {
      {"Windows7", false, ImageLibrary::kGdiPlus, {"(Windows Windows7 gedetecteerd.)", gdi}},
      {"Vista", false, ImageLibrary::kGdiPlus, {"(Windows Vista gedetecteerd.)", gdi}},
      {"Unknown (2.6.2)", false, ImageLibrary::kIjl11, {"(Windows Unknown (2.6.2) gedetecteerd.)", ijl}},
      {"Unknown (2.6.2)", true, ImageLibrary::kGdiPlus, {"(Windows Unknown (2.6.2) gedetecteerd.)", marker, gdi}},
  };
  for (const auto& geval : gevallen) {
    test::TempDir log_dir;
    test::LogOpname log(log_dir / "kiekbord.log");
    const std::string program_dir = geval.met_marker ? met_marker.path() : zonder_marker.path();
    EXPECT_EQ(KiesThumbnailBibliotheek(geval.naam, program_dir, log.log()), geval.bibliotheek) << geval.naam;
    EXPECT_EQ(log.regels(), geval.regels);
  }
  // On this system: the name of BepaalOsNaam, the marker decides.
  test::TempDir log_dir;
  test::LogOpname log(log_dir / "kiekbord.log");
  EXPECT_EQ(KiesThumbnailBibliotheek(met_marker.path(), log.log()), ImageLibrary::kGdiPlus);
  EXPECT_EQ(KiesThumbnailBibliotheek(zonder_marker.path(), log.log()), ImageLibrary::kIjl11);
  EXPECT_EQ(log.regels(), (std::vector<std::string>{"(Windows " + BepaalOsNaam() + " gedetecteerd.)", marker, gdi,
                                                    "(Windows " + BepaalOsNaam() + " gedetecteerd.)", ijl}));
}

TEST(HoofdvensterKeuze, StoredNameAndRotationLibrary) {
  test::TempDir met_marker;
  test::TempDir zonder_marker;
  test::WriteBytes(met_marker / "GDIplus.txt", "");
  EXPECT_EQ(HoofdvensterOsNaam("2000", met_marker.path()), "XP");
  EXPECT_EQ(HoofdvensterOsNaam("2000", zonder_marker.path()), "2000");
  EXPECT_EQ(HoofdvensterOsNaam("Windows7", zonder_marker.path()), "Vista");
  EXPECT_EQ(HoofdvensterOsNaam("Vista", zonder_marker.path()), "Vista");
  EXPECT_EQ(RotatieBibliotheek("XP"), ImageLibrary::kGdiPlus);
  EXPECT_EQ(RotatieBibliotheek("Vista"), ImageLibrary::kGdiPlus);
  EXPECT_EQ(RotatieBibliotheek("2000"), ImageLibrary::kIjl11);
  EXPECT_EQ(RotatieBibliotheek("Unknown (3.6.1)"), ImageLibrary::kIjl11);
}

}  // namespace
}  // namespace kiekbord
