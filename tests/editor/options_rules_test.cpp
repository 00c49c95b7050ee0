#include "editor/options_rules.h"

#include <gtest/gtest.h>

#include <array>

#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using test::TempDir;
using test::WriteBytes;

std::array<bool, 4> Vakjes(const OptiesScherm& s) {
  return {s.ie_dynamisch, s.controlevraag, s.backup_bij_roteren, s.opslaan_laatste};
}

TEST(OptionsRules, CheckBoxesAreOnOnlyForOne) {
  // A fresh user: every option on, no program; the browser option is shown
  // but can't be changed, since there is no browser conversation here.
  OptiesScherm s = OptiesBijOpenen(UserPreferences{}, true, "/usr/bin/chromium");
  EXPECT_EQ(Vakjes(s), (std::array{true, true, true, true}));
  EXPECT_EQ(s.fotoprogramma, "");
  EXPECT_TRUE(s.fotoprogramma_aan);
  EXPECT_FALSE(s.ie_dynamisch_aan);

  UserPreferences v;
  v.lopende_browser = 0;
  v.vraag_bij_afsluiten = 2;
  v.backup_bij_bewerken = 0;
  v.nieuw_in_laatste_dir = 0;
  v.foto_programma = "/usr/bin/gimp";
  s = OptiesBijOpenen(v, true, "");
  EXPECT_EQ(Vakjes(s), (std::array{false, false, false, false}));
  EXPECT_EQ(s.fotoprogramma, "/usr/bin/gimp");
}

TEST(OptionsRules, BrowserOptionOnlyForTheOneBrowserWithAConversation) {
  EXPECT_TRUE(OptiesBijOpenen({}, true, "C:\\Program Files\\Internet Explorer\\iexplore.exe").ie_dynamisch_aan);
  EXPECT_FALSE(OptiesBijOpenen({}, true, "/usr/lib/firefox-esr/firefox-esr").ie_dynamisch_aan);
  EXPECT_FALSE(OptiesBijOpenen({}, true, "%Error:De Internet Browser is niet gevonden.").ie_dynamisch_aan);
}

TEST(OptionsRules, PhotoProgramIsProposedOnlyIntoAnEmptyEnabledBox) {
  UserPreferences v;
  v.foto_programma = "/usr/bin/gimp";
  const OptiesScherm zonder = OptiesBijOpenen(v, false, "");
  EXPECT_FALSE(zonder.fotoprogramma_aan);
  EXPECT_EQ(zonder.fotoprogramma, "");
  EXPECT_FALSE(FotoprogrammaVoorstellen(zonder));
  EXPECT_EQ(OptiesBijOk(zonder).foto_programma, "");
  OptiesScherm s;
  s.fotoprogramma_aan = true;
  EXPECT_TRUE(FotoprogrammaVoorstellen(s));
  s.fotoprogramma = "/usr/bin/pinta";
  EXPECT_FALSE(FotoprogrammaVoorstellen(s));
}

TEST(OptionsRules, OkSavesWhatTheControlsShow) {
  for (const bool aan : {false, true}) {
    OptiesScherm s;
    s.ie_dynamisch = s.backup_bij_roteren = s.opslaan_laatste = aan;
    s.controlevraag = !aan;
    s.fotoprogramma = "/opt/krita/bin/krita";
    const UserPreferences v = OptiesBijOk(s);
    EXPECT_EQ((std::array{v.lopende_browser, v.vraag_bij_afsluiten, v.backup_bij_bewerken, v.nieuw_in_laatste_dir}),
              (std::array<std::int16_t, 4>{aan, !aan, aan, aan}));
    EXPECT_EQ(v.foto_programma, "/opt/krita/bin/krita");
  }
}

TEST(OptionsRules, ProposalIsTheFirstKnownProgramOnTheSearchPath) {
  TempDir tmp;
  const std::string a = tmp / "a", b = tmp / "b", c = tmp / "c";
  WriteBytes(a + "/darktable", "");
  WriteBytes(b + "/krita", "");
  WriteBytes(c + "/gimp-helper", "");
  EXPECT_EQ(StelFotoprogrammaVoor(a + ":" + b + ":" + c), b + "/krita");
  EXPECT_EQ(StelFotoprogrammaVoor(a + ":" + c), a + "/darktable");
  EXPECT_EQ(StelFotoprogrammaVoor(c), "");
  EXPECT_EQ(StelFotoprogrammaVoor(""), "");
  WriteBytes(c + "/gimp", "");
  EXPECT_EQ(StelFotoprogrammaVoor(a + ":" + b + ":" + c + "/"), c + "/gimp");
  // A folder of that name is no program; relative entries are skipped.
  WriteBytes(tmp / "d/pinta/.keep", "");
  EXPECT_EQ(StelFotoprogrammaVoor(tmp / "d"), "");
  EXPECT_EQ(StelFotoprogrammaVoor("::relative:" + a), a + "/darktable");
}

}  // namespace
}  // namespace kiekbord
