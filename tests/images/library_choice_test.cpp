#include "images/library_choice.h"

#include <gtest/gtest.h>
#include <gmock/gmock.h>
#include <sys/utsname.h>

#include <cstdio>

#include "tests/images/image_test_support.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using ::testing::ElementsAre;

TEST(OsNaam, VersionTable) {
  struct {
    const char* sleutel;
    const char* naam;
  } const gevallen[] = {
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

class ThumbnailKeuze : public ::testing::Test {
 protected:
  ThumbnailKeuze() { test::WriteBytes(met_marker_ / "GDIplus.txt", "marker"); }
  test::TempDir met_marker_;
  test::TempDir zonder_marker_;
  test::TempDir log_dir_;
  test::LogOpname log_{log_dir_ / "kiekbord.log"};
};

TEST_F(ThumbnailKeuze, Windows7UsesTheSmoothLibrary) {
  EXPECT_EQ(KiesThumbnailBibliotheek("Windows7", zonder_marker_.path()), ImageLibrary::kGdiPlus);
  EXPECT_THAT(log_.regels(), ElementsAre("(Windows Windows7 gedetecteerd.)", "Imagelibrary GDIplus wordt gebruikt."));
}

TEST_F(ThumbnailKeuze, VistaAndXpUseTheSmoothLibrary) {
  EXPECT_EQ(KiesThumbnailBibliotheek("Vista", zonder_marker_.path()), ImageLibrary::kGdiPlus);
  EXPECT_EQ(KiesThumbnailBibliotheek("XP", zonder_marker_.path()), ImageLibrary::kGdiPlus);
}

TEST_F(ThumbnailKeuze, UnknownSystemUsesThePixelLibrary) {
  EXPECT_EQ(KiesThumbnailBibliotheek("Unknown (2.6.2)", zonder_marker_.path()), ImageLibrary::kIjl11);
  EXPECT_THAT(log_.regels(),
              ElementsAre("(Windows Unknown (2.6.2) gedetecteerd.)", "Imagelibrary IJL11 wordt gebruikt."));
}

TEST_F(ThumbnailKeuze, MarkerFileForcesTheSmoothLibrary) {
  EXPECT_EQ(KiesThumbnailBibliotheek("Unknown (2.6.2)", met_marker_.path()), ImageLibrary::kGdiPlus);
  EXPECT_THAT(log_.regels(), ElementsAre("(Windows Unknown (2.6.2) gedetecteerd.)", "(Bestand GDIplus.txt gedetecteerd.)",
                                         "Imagelibrary GDIplus wordt gebruikt."));
}

TEST_F(ThumbnailKeuze, ThisSystemFollowsTheMarker) {
  EXPECT_EQ(KiesThumbnailBibliotheek(met_marker_.path()), ImageLibrary::kGdiPlus);
  EXPECT_EQ(KiesThumbnailBibliotheek(zonder_marker_.path()), ImageLibrary::kIjl11);
  ASSERT_EQ(log_.regels().size(), 5u);
  EXPECT_EQ(log_.regels()[0], "(Windows " + BepaalOsNaam() + " gedetecteerd.)");
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
