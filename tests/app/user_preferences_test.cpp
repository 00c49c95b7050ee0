#include "app/user_preferences.h"

#include <gtest/gtest.h>

#include <map>

namespace kiekbord {
namespace {

class Geheugen : public VoorkeurenOpslag {
 public:
  std::optional<std::string> Lees(std::string_view sectie, std::string_view sleutel) const override {
    const auto it = waarden.find(std::string(sectie) + "/" + std::string(sleutel));
    if (it == waarden.end()) return std::nullopt;
    return it->second;
  }
  void Schrijf(std::string_view sectie, std::string_view sleutel, std::string_view waarde) override {
    waarden[std::string(sectie) + "/" + std::string(sleutel)] = std::string(waarde);
  }
  std::map<std::string, std::string> waarden;
};

TEST(UserPreferences, FreshUserGetsTheDefaults) {
  Geheugen opslag;
  const UserPreferences v = LeesVoorkeuren(opslag);
  EXPECT_EQ(v.vraag_bij_afsluiten, 1);
  EXPECT_EQ(v.lopende_browser, 1);
  EXPECT_EQ(v.nieuw_in_laatste_dir, 1);
  EXPECT_EQ(v.backup_bij_bewerken, 1);
  EXPECT_EQ(v.foto_programma, "");
  EXPECT_EQ(LeesLaatsteDir(opslag), "");
  EXPECT_EQ(LeesLaatsteScript(opslag), "");
}

TEST(UserPreferences, StoredUnderTheirSectionsAndKeys) {
  Geheugen opslag;
  UserPreferences v;
  v.vraag_bij_afsluiten = 0;
  v.backup_bij_bewerken = 2;
  v.foto_programma = "/usr/bin/gimp";
  SchrijfVoorkeuren(opslag, v);
  SchrijfLaatsteDir(opslag, "/foto/");
  SchrijfLaatsteScript(opslag, "/foto/reis.kbs");
  EXPECT_EQ(opslag.waarden, (std::map<std::string, std::string>{{"Exit/Question", "0"},
                                                                {"MSIE/DDE", "1"},
                                                                {"Recent/Default", "1"},
                                                                {"Rotate/Backup", "2"},
                                                                {"Photo/Editor", "/usr/bin/gimp"},
                                                                {"Recent/LastDir", "/foto/"},
                                                                {"Recent/ScriptFile", "/foto/reis.kbs"}}));
  const UserPreferences terug = LeesVoorkeuren(opslag);
  EXPECT_EQ(terug.vraag_bij_afsluiten, 0);
  EXPECT_EQ(terug.backup_bij_bewerken, 2);
  EXPECT_EQ(terug.foto_programma, "/usr/bin/gimp");
}

TEST(UserPreferences, TextThatIsNoNumberReadsAsZero) {
  Geheugen opslag;
  opslag.waarden["Exit/Question"] = "ja";
  opslag.waarden["MSIE/DDE"] = "";
  opslag.waarden["Recent/Default"] = "99999";
  EXPECT_EQ(LeesVoorkeuren(opslag).vraag_bij_afsluiten, 0);
  EXPECT_EQ(LeesVoorkeuren(opslag).lopende_browser, 0);
  EXPECT_EQ(LeesVoorkeuren(opslag).nieuw_in_laatste_dir, 0);
}

TEST(UserPreferences, ResizeDialogValuesDefaultsAndRoundTrip) {
  Geheugen opslag;
  const VerkleinInstellingen leeg = LeesVerkleinInstellingen(opslag);
  EXPECT_EQ(leeg.breedte, 0);
  EXPECT_EQ(leeg.hoogte, 0);
  EXPECT_TRUE(leeg.verhouding);
  EXPECT_EQ(leeg.kwaliteit, 0);

  VerkleinInstellingen v;
  v.breedte = 1024;
  v.hoogte = 768;
  v.verhouding = false;
  v.kwaliteit = 2;
  SchrijfVerkleinInstellingen(opslag, v);
  EXPECT_EQ(opslag.waarden, (std::map<std::string, std::string>{{"Verkleinen/Breedte", "1024"},
                                                                {"Verkleinen/Hoogte", "768"},
                                                                {"Verkleinen/Verhouding", "0"},
                                                                {"Verkleinen/Kwaliteit", "2"}}));
  const VerkleinInstellingen terug = LeesVerkleinInstellingen(opslag);
  EXPECT_EQ(terug.breedte, 1024);
  EXPECT_EQ(terug.hoogte, 768);
  EXPECT_FALSE(terug.verhouding);
  EXPECT_EQ(terug.kwaliteit, 2);
}

TEST(UserPreferences, ResizeDialogValuesThatMakeNoSense) {
  Geheugen opslag;
  opslag.waarden["Verkleinen/Breedte"] = "groot";
  opslag.waarden["Verkleinen/Hoogte"] = "70000";
  opslag.waarden["Verkleinen/Verhouding"] = "ja";
  opslag.waarden["Verkleinen/Kwaliteit"] = "3";
  const VerkleinInstellingen v = LeesVerkleinInstellingen(opslag);
  EXPECT_EQ(v.breedte, 0);
  EXPECT_EQ(v.hoogte, 0);
  EXPECT_FALSE(v.verhouding);
  EXPECT_EQ(v.kwaliteit, 0);
  opslag.waarden["Verkleinen/Kwaliteit"] = "-1";
  EXPECT_EQ(LeesVerkleinInstellingen(opslag).kwaliteit, 0);
  opslag.waarden["Verkleinen/Kwaliteit"] = "1";
  EXPECT_EQ(LeesVerkleinInstellingen(opslag).kwaliteit, 1);
}

}  // namespace
}  // namespace kiekbord
