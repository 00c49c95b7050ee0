#include "editor/options_rules.h"

#include <gtest/gtest.h>

#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using test::TempDir;
using test::WriteBytes;

TEST(OptionsRules, FreshUserOpensWithEveryOptionOn) {
  const OptiesScherm s = OptiesBijOpenen(UserPreferences{}, true, "/usr/bin/chromium");
  EXPECT_TRUE(s.ie_dynamisch);
  EXPECT_TRUE(s.controlevraag);
  EXPECT_TRUE(s.backup_bij_roteren);
  EXPECT_TRUE(s.opslaan_laatste);
  EXPECT_EQ(s.fotoprogramma, "");
  EXPECT_TRUE(s.fotoprogramma_aan);
  // Shown, but it can't be changed: no browser conversation here.
  EXPECT_FALSE(s.ie_dynamisch_aan);
}

TEST(OptionsRules, CheckBoxesAreOnOnlyForOne) {
  UserPreferences v;
  v.lopende_browser = 0;
  v.vraag_bij_afsluiten = 2;
  v.backup_bij_bewerken = 0;
  v.nieuw_in_laatste_dir = 0;
  v.foto_programma = "/usr/bin/gimp";
  const OptiesScherm s = OptiesBijOpenen(v, true, "");
  EXPECT_FALSE(s.ie_dynamisch);
  EXPECT_FALSE(s.controlevraag);
  EXPECT_FALSE(s.backup_bij_roteren);
  EXPECT_FALSE(s.opslaan_laatste);
  EXPECT_EQ(s.fotoprogramma, "/usr/bin/gimp");
}

TEST(OptionsRules, BrowserOptionOnlyForTheOneBrowserWithAConversation) {
  EXPECT_TRUE(OptiesBijOpenen({}, true, "C:\\Program Files\\Internet Explorer\\iexplore.exe").ie_dynamisch_aan);
  EXPECT_FALSE(OptiesBijOpenen({}, true, "/usr/lib/firefox-esr/firefox-esr").ie_dynamisch_aan);
  EXPECT_FALSE(OptiesBijOpenen({}, true, "%Error:De Internet Browser is niet gevonden.").ie_dynamisch_aan);
}

TEST(OptionsRules, WithoutExternalEditingThePhotoProgramIsNeitherShownNorKept) {
  UserPreferences v;
  v.foto_programma = "/usr/bin/gimp";
  const OptiesScherm s = OptiesBijOpenen(v, false, "");
  EXPECT_FALSE(s.fotoprogramma_aan);
  EXPECT_EQ(s.fotoprogramma, "");
  EXPECT_FALSE(FotoprogrammaVoorstellen(s));
  EXPECT_EQ(OptiesBijOk(s).foto_programma, "");
}

TEST(OptionsRules, ProposesOnlyIntoAnEmptyEnabledBox) {
  OptiesScherm s;
  s.fotoprogramma_aan = true;
  EXPECT_TRUE(FotoprogrammaVoorstellen(s));
  s.fotoprogramma = "/usr/bin/pinta";
  EXPECT_FALSE(FotoprogrammaVoorstellen(s));
}

TEST(OptionsRules, OkSavesWhatTheControlsShow) {
  OptiesScherm s;
  s.ie_dynamisch = false;
  s.controlevraag = true;
  s.backup_bij_roteren = false;
  s.opslaan_laatste = false;
  s.fotoprogramma = "/opt/krita/bin/krita";
  const UserPreferences v = OptiesBijOk(s);
  EXPECT_EQ(v.lopende_browser, 0);
  EXPECT_EQ(v.vraag_bij_afsluiten, 1);
  EXPECT_EQ(v.backup_bij_bewerken, 0);
  EXPECT_EQ(v.nieuw_in_laatste_dir, 0);
  EXPECT_EQ(v.foto_programma, "/opt/krita/bin/krita");

  s.ie_dynamisch = true;
  s.backup_bij_roteren = true;
  s.opslaan_laatste = true;
  EXPECT_EQ(OptiesBijOk(s).lopende_browser, 1);
  EXPECT_EQ(OptiesBijOk(s).backup_bij_bewerken, 1);
  EXPECT_EQ(OptiesBijOk(s).nieuw_in_laatste_dir, 1);
}

TEST(OptionsRules, ProposalIsTheFirstKnownProgramOnTheSearchPath) {
  TempDir tmp;
  const std::string a = tmp / "a";
  const std::string b = tmp / "b";
  const std::string c = tmp / "c";
  for (const std::string& map : {a, b, c}) WriteBytes(map + "/.keep", "");
  WriteBytes(a + "/darktable", "");
  WriteBytes(b + "/krita", "");
  WriteBytes(c + "/gimp-helper", "");

  EXPECT_EQ(StelFotoprogrammaVoor(a + ":" + b + ":" + c), b + "/krita");
  EXPECT_EQ(StelFotoprogrammaVoor(a + ":" + c), a + "/darktable");
  EXPECT_EQ(StelFotoprogrammaVoor(c), "");
  EXPECT_EQ(StelFotoprogrammaVoor(""), "");
  WriteBytes(c + "/gimp", "");
  EXPECT_EQ(StelFotoprogrammaVoor(a + ":" + b + ":" + c + "/"), c + "/gimp");
  // A directory named as a folder, not a file: nothing proposed from it.
  WriteBytes(tmp / "d/pinta/.keep", "");
  EXPECT_EQ(StelFotoprogrammaVoor(tmp / "d"), "");
}

TEST(OptionsRules, RelativeSearchPathEntriesAreSkipped) {
  TempDir tmp;
  WriteBytes(tmp / "pinta", "");
  EXPECT_EQ(StelFotoprogrammaVoor("::relative:" + tmp.path()), tmp / "pinta");
}

}  // namespace
}  // namespace kiekbord
