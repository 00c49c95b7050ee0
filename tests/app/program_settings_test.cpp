#include "app/program_settings.h"

#include <gtest/gtest.h>

#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

class ProgramSettingsTest : public ::testing::Test {
 protected:
  ProgramSettings WithIni(const std::string& ini) {
    test::WriteBytes(dir_ / "KBord.ini", ini);
    return LeesProgrammaInstellingen(dir_.path(), "/home/gebruiker");
  }
  test::TempDir dir_;
};

TEST_F(ProgramSettingsTest, WithoutIniEveryDefaultHolds) {
  const ProgramSettings s = LeesProgrammaInstellingen(dir_.path(), "/home/gebruiker");
  EXPECT_EQ(s.program_dir, dir_.path());
  EXPECT_EQ(s.maximum_aantal, 100);
  EXPECT_TRUE(s.verkleinen && s.extern_bewerken && s.meta_keywords && s.meta_description);
  EXPECT_EQ(s.sjabloon_dir, dir_ / "Sjabloon/");
  EXPECT_EQ(s.sjabloon_type, ".html");
  EXPECT_EQ(s.sjabloon_host, "");
  EXPECT_EQ(s.help_dir, dir_ / "Help/");
  EXPECT_EQ(s.help_type, ".html");
  EXPECT_EQ(s.kleur_tekst_op_achtergrond, "");
  EXPECT_EQ(s.kleur_kader, "");
  EXPECT_EQ(s.credit_url, kDefaultCreditUrl);
  EXPECT_EQ(s.default_dir, "/home/gebruiker/");
  EXPECT_EQ(s.caption, "Kiekbord 4.1 Pro");
  EXPECT_EQ(s.quote, "\"");
}

TEST_F(ProgramSettingsTest, MaximumIsClampedAndNonNumbersCountAsZero) {
  struct Case { const char* value; int maximum; } cases[] = {
      {"5", 10}, {"1000", 300}, {"150", 150}, {"veel", 10}, {"10", 10}, {"300", 300},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(WithIni(std::string("[Foto]\r\nMaximumAantal=") + c.value + "\r\n").maximum_aantal, c.maximum)
        << c.value;
  }
}

TEST_F(ProgramSettingsTest, OnlyOneSwitchesOn) {
  const ProgramSettings s = WithIni(
      "[Foto]\nVerkleinen=ja\nExternBewerken=1\n[Sjabloon]\nMetaKeywords=true\nMetaDescription=0\n");
  EXPECT_FALSE(s.verkleinen);
  EXPECT_TRUE(s.extern_bewerken);
  EXPECT_FALSE(s.meta_keywords);
  EXPECT_FALSE(s.meta_description);
}

TEST_F(ProgramSettingsTest, LocationsAndFileTypes) {
  const ProgramSettings s = WithIni(
      "[Sjabloon]\nBestandslocatie=$(AppPath)/Mijn sjablonen\nBestandstype=htm\nHostname=www.voorbeeld.nl\n"
      "CreditURL=https://elders.nl/\n"
      "[Help]\nBestandslocatie=/srv/hulp/\nBestandstype=.php\n");
  std::string app_path = dir_.path();
  app_path.pop_back();
  EXPECT_EQ(s.sjabloon_dir, app_path + "/Mijn sjablonen/");
  EXPECT_EQ(s.sjabloon_type, ".htm");
  EXPECT_EQ(s.sjabloon_host, "www.voorbeeld.nl");
  EXPECT_EQ(s.credit_url, "https://elders.nl/");
  EXPECT_EQ(s.help_dir, "/srv/hulp/");
  EXPECT_EQ(s.help_type, ".php");
}

TEST_F(ProgramSettingsTest, ColoursAreMarkedWhenTheFileLacksThem) {
  const ProgramSettings s = WithIni("[Instellingen]\nKleurKader=#336699\n");
  EXPECT_EQ(s.kleur_tekst_op_achtergrond, "x");
  EXPECT_EQ(s.kleur_achtergrond, "x");
  EXPECT_EQ(s.kleur_tekst_in_kader, "x");
  EXPECT_EQ(s.kleur_kader, "#336699");
}

TEST_F(ProgramSettingsTest, UnreadableIniKeepsTheDefaults) {
  const ProgramSettings s = WithIni(std::string("\x00\xFF\xFE binary \x01", 12));
  EXPECT_EQ(s.maximum_aantal, 100);
  EXPECT_EQ(s.sjabloon_type, ".html");
}

}  // namespace
}  // namespace kiekbord
