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
  EXPECT_EQ(s.sjabloon_dir + " " + s.sjabloon_type + " " + s.sjabloon_host, dir_ / "Sjabloon/ .html ");
  EXPECT_EQ(s.help_dir + " " + s.help_type + " " + s.help_host, dir_ / "Help/ .html ");
  EXPECT_EQ(s.kleur_tekst_op_achtergrond + s.kleur_achtergrond + s.kleur_tekst_in_kader + s.kleur_kader, "");
  EXPECT_EQ(s.credit_url, kDefaultCreditUrl);
  EXPECT_EQ(s.default_dir, "/home/gebruiker/");
  EXPECT_EQ(s.caption, "Kiekbord 4.1 Pro");
  EXPECT_EQ(s.quote, "\"");
}

TEST_F(ProgramSettingsTest, MaximumIsClampedAndNonNumbersCountAsZero) {
  const struct {
    const char* value;
    int maximum;
  } cases[] = {{"5", 10}, {"1000", 300}, {"150", 150}, {"veel", 10}, {"10", 10}, {"300", 300}};
  for (const auto& c : cases) {
    EXPECT_EQ(WithIni(std::string("[Foto]\r\nMaximumAantal=") + c.value + "\r\n").maximum_aantal, c.maximum)
        << c.value;
  }
}

TEST_F(ProgramSettingsTest, ValuesOfTheFile) {
  const ProgramSettings s = WithIni(
      "[Foto]\nVerkleinen=ja\nExternBewerken=1\n[Sjabloon]\nMetaKeywords=true\nMetaDescription=0\n"
      "Bestandslocatie=$(AppPath)/Mijn sjablonen\nBestandstype=htm\nHostname=www.voorbeeld.nl\n"
      "CreditURL=https://elders.nl/\n[Help]\nBestandslocatie=/srv/hulp/\nBestandstype=.php\n"
      "[Instellingen]\nKleurKader=#336699\n");
  // Only "1" switches on.
  EXPECT_FALSE(s.verkleinen || s.meta_keywords || s.meta_description);
  EXPECT_TRUE(s.extern_bewerken);
  std::string app_path = dir_.path();
  app_path.pop_back();
  EXPECT_EQ(s.sjabloon_dir, app_path + "/Mijn sjablonen/");
  EXPECT_EQ(s.sjabloon_type, ".htm");
  EXPECT_EQ(s.sjabloon_host, "www.voorbeeld.nl");
  EXPECT_EQ(s.credit_url, "https://elders.nl/");
  EXPECT_EQ(s.help_dir + " " + s.help_type, "/srv/hulp/ .php");
  // Colours the file lacks are marked "x".
  EXPECT_EQ(s.kleur_tekst_op_achtergrond + s.kleur_achtergrond + s.kleur_tekst_in_kader + s.kleur_kader, "xxx#336699");
}

TEST_F(ProgramSettingsTest, UnreadableIniKeepsTheDefaults) {
  const ProgramSettings s = WithIni(std::string("\x00\xFF\xFE binary \x01", 12));
  EXPECT_EQ(s.maximum_aantal, 100);
  EXPECT_EQ(s.sjabloon_type, ".html");
}

}  // namespace
}  // namespace kiekbord
