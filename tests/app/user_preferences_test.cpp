#include "app/user_preferences.h"

#include <gtest/gtest.h>

#include <map>

namespace kiekbord {
namespace {

using Waarden = std::map<std::string, std::string>;

// The settings store in memory, each value under "section/key".
class Geheugen : public VoorkeurenOpslag {
 public:
  std::optional<std::string> Lees(std::string_view sectie, std::string_view sleutel) const override {
    const auto it = waarden.find(std::string(sectie) + "/" + std::string(sleutel));
    return it == waarden.end() ? std::nullopt : std::optional(it->second);
  }
  void Schrijf(std::string_view sectie, std::string_view sleutel, std::string_view waarde) override {
    waarden[std::string(sectie) + "/" + std::string(sleutel)] = std::string(waarde);
  }
  Waarden waarden;
};

TEST(UserPreferences, AFreshUserGetsTheDefaultsWhichAreStoredUnderTheirKeys) {
  Geheugen opslag;
  EXPECT_EQ(LeesLaatsteDir(opslag) + LeesLaatsteScript(opslag), "");
  SchrijfVoorkeuren(opslag, LeesVoorkeuren(opslag));
  EXPECT_EQ(opslag.waarden, (Waarden{{"Exit/Question", "1"}, {"MSIE/DDE", "1"}, {"Recent/Default", "1"},
                                     {"Rotate/Backup", "1"}, {"Photo/Editor", ""}}));
}

TEST(UserPreferences, StoredValuesAreReadAndTextThatIsNoNumberReadsAsZero) {
  Geheugen opslag;
  opslag.waarden = {{"Exit/Question", "ja"},   {"MSIE/DDE", ""},       {"Recent/Default", "99999"},
                    {"Rotate/Backup", "2"},    {"Photo/Editor", "/usr/bin/gimp"}, {"Recent/LastDir", "/foto/"},
                    {"Recent/ScriptFile", "/foto/reis.kbs"}};
  const UserPreferences v = LeesVoorkeuren(opslag);
  EXPECT_EQ(v.vraag_bij_afsluiten + v.lopende_browser + v.nieuw_in_laatste_dir, 0);
  EXPECT_EQ(v.backup_bij_bewerken, 2);
  EXPECT_EQ(v.foto_programma, "/usr/bin/gimp");
  EXPECT_EQ(LeesLaatsteDir(opslag), "/foto/");
  EXPECT_EQ(LeesLaatsteScript(opslag), "/foto/reis.kbs");
  SchrijfLaatsteDir(opslag, "/elders/");
  SchrijfLaatsteScript(opslag, "/elders/a.kbs");
  EXPECT_EQ(opslag.waarden["Recent/LastDir"] + " " + opslag.waarden["Recent/ScriptFile"], "/elders/ /elders/a.kbs");
}

TEST(UserPreferences, ResizeDialogValues) {
  Geheugen opslag;
  SchrijfVerkleinInstellingen(opslag, LeesVerkleinInstellingen(opslag));
  EXPECT_EQ(opslag.waarden, (Waarden{{"Verkleinen/Breedte", "0"}, {"Verkleinen/Hoogte", "0"},
                                     {"Verkleinen/Verhouding", "1"}, {"Verkleinen/Kwaliteit", "0"}}));
  // Sizes beyond 16 bits and quality codes other than 0, 1 and 2 make no sense.
  opslag.waarden = {{"Verkleinen/Breedte", "1024"}, {"Verkleinen/Hoogte", "70000"},
                    {"Verkleinen/Verhouding", "ja"}, {"Verkleinen/Kwaliteit", "3"}};
  SchrijfVerkleinInstellingen(opslag, LeesVerkleinInstellingen(opslag));
  EXPECT_EQ(opslag.waarden, (Waarden{{"Verkleinen/Breedte", "1024"}, {"Verkleinen/Hoogte", "0"},
                                     {"Verkleinen/Verhouding", "0"}, {"Verkleinen/Kwaliteit", "0"}}));
  for (const auto& [code, kwaliteit] : {std::pair{"-1", 0}, {"1", 1}, {"2", 2}, {"groot", 0}}) {
    opslag.waarden["Verkleinen/Kwaliteit"] = code;
    EXPECT_EQ(LeesVerkleinInstellingen(opslag).kwaliteit, kwaliteit) << code;
  }
}

}  // namespace
}  // namespace kiekbord
