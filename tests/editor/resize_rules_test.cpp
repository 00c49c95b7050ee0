#include "editor/resize_rules.h"

#include <gtest/gtest.h>

#include <string>

namespace kiekbord {
namespace {

VerkleinInstellingen Onthouden(int breedte, int hoogte, bool verhouding = true, int kwaliteit = 0) {
  VerkleinInstellingen v;
  v.breedte = static_cast<std::int16_t>(breedte);
  v.hoogte = static_cast<std::int16_t>(hoogte);
  v.verhouding = verhouding;
  v.kwaliteit = static_cast<std::int16_t>(kwaliteit);
  return v;
}

// Types `tekst` into a box key by key after giving it the focus, as the
// dialog passes each change on.
void TypBreedte(VerkleinModel& m, const std::string& tekst) {
  m.BreedteKrijgtFocus();
  for (std::size_t i = 0; i <= tekst.size(); ++i) m.BreedteGewijzigd(tekst.substr(0, i));
}

void TypHoogte(VerkleinModel& m, const std::string& tekst) {
  m.HoogteKrijgtFocus();
  for (std::size_t i = 0; i <= tekst.size(); ++i) m.HoogteGewijzigd(tekst.substr(0, i));
}

TEST(VerkleinModel, CurrentSizeAndOrientationFromTheSizeText) {
  const struct {
    const char* afmetingen;
    int breedte, hoogte;
    const char* orientatie;
  } gevallen[] = {
      {"4000x3000", 4000, 3000, "L"},
      {"3000x4000!", 3000, 4000, "P"},
      {"1000x1000", 1000, 1000, "P"},  // a square photo counts as portrait
      {"Error", 0, 0, "P"},
  };
  for (const auto& g : gevallen) {
    const VerkleinModel m(g.afmetingen, Onthouden(0, 0));
    EXPECT_EQ(m.huidige_breedte(), g.breedte) << g.afmetingen;
    EXPECT_EQ(m.huidige_hoogte(), g.hoogte) << g.afmetingen;
    EXPECT_EQ(m.orientatie(), g.orientatie) << g.afmetingen;
  }
}

TEST(VerkleinModel, RememberedValuesFollowThePhotosOrientation) {
  const struct {
    const char* afmetingen;
    int preset_breedte, preset_hoogte;
    const char* breedte;
    const char* hoogte;
    bool ok;
  } gevallen[] = {
      // Larger than the photo: shown, but OK stays off (800 is not less than 640).
      {"640x480", 800, 600, "800", "600", false},
      {"3000x4000", 1024, 768, "768", "1024", true},
      {"3000x4000", 768, 1024, "768", "1024", true},
      {"4000x3000", 768, 1024, "1024", "768", true},
      {"1000x1000", 800, 600, "600", "800", true},
      // No preset yet (or half of one): the boxes stay empty.
      {"4000x3000", 0, 0, "", "", false},
      {"4000x3000", 1024, 0, "", "", false},
      {"4000x3000", 0, 768, "", "", false},
      {"Error", 1024, 768, "768", "1024", false},
  };
  for (const auto& g : gevallen) {
    SCOPED_TRACE(std::string(g.afmetingen) + " " + std::to_string(g.preset_breedte));
    const VerkleinModel m(g.afmetingen, Onthouden(g.preset_breedte, g.preset_hoogte));
    EXPECT_EQ(m.breedte(), g.breedte);
    EXPECT_EQ(m.hoogte(), g.hoogte);
    EXPECT_EQ(m.OkAan(), g.ok);
  }
  const VerkleinModel m("4000x3000", Onthouden(0, 0, false, 2));
  EXPECT_FALSE(m.verhouding());
  EXPECT_EQ(m.kwaliteit_index(), 2);
  EXPECT_TRUE(VerkleinModel("4000x3000", Onthouden(0, 0, true, 1)).verhouding());
}

TEST(VerkleinModel, TypedSizeSetsTheOtherBoxInProportionRoundedDown) {
  VerkleinModel m("4000x3000", Onthouden(0, 0));
  TypBreedte(m, "150");
  EXPECT_EQ(m.hoogte(), "112");  // 112.5
  TypBreedte(m, "1500");
  EXPECT_EQ(m.hoogte(), "1125");
  EXPECT_TRUE(m.OkAan());
  TypHoogte(m, "750");
  EXPECT_EQ(m.breedte(), "1000");
  VerkleinModel staand("3000x4000", Onthouden(0, 0));
  TypHoogte(staand, "1001");
  EXPECT_EQ(staand.breedte(), "750");  // 750.75
}

TEST(VerkleinModel, OnlyTheLeadingBoxDrivesTheOther) {
  VerkleinModel m("4000x3000", Onthouden(0, 0));
  TypBreedte(m, "1001");
  ASSERT_EQ(m.hoogte(), "750");
  // The dialog passes the height box's new text on as a change of its own;
  // it must not drive the width back (750 / 3000 x 4000 would be 1000).
  m.HoogteGewijzigd(m.hoogte());
  EXPECT_EQ(m.breedte(), "1001");

  // Before either box had the focus, nothing drives anything.
  VerkleinModel zonder_focus("4000x3000", Onthouden(0, 0));
  zonder_focus.BreedteGewijzigd("1500");
  EXPECT_EQ(zonder_focus.hoogte(), "");

  // Without keep proportions the boxes are free.
  VerkleinModel vrij("4000x3000", Onthouden(1024, 768, false));
  TypBreedte(vrij, "1500");
  EXPECT_EQ(vrij.hoogte(), "768");
  vrij.ZetVerhouding(true);
  TypBreedte(vrij, "2000");
  EXPECT_EQ(vrij.hoogte(), "1500");
}

TEST(VerkleinModel, ValuesOutsideTheRangeDriveNothing) {
  VerkleinModel m("4000x3000", Onthouden(1024, 768));
  m.BreedteKrijgtFocus();
  for (const char* tekst : {"99", "4000", "5000", "", "."}) {  // 4000 is not less than the current width
    m.BreedteGewijzigd(tekst);
    EXPECT_EQ(m.hoogte(), "768") << tekst;
  }
  m.HoogteKrijgtFocus();
  for (const char* tekst : {"99", "3000", "5000"}) {
    m.HoogteGewijzigd(tekst);
    EXPECT_EQ(m.breedte(), ".") << tekst;
  }
}

TEST(VerkleinModel, OkNeedsBothSidesAbove99AndBelowTheCurrentSize) {
  const struct {
    const char* breedte;
    const char* hoogte;
    bool ok;
  } gevallen[] = {
      {"99", "500", false},   {"100", "500", true},   {"500", "99", false},   {"500", "100", true},
      {"3999", "2999", true}, {"4000", "500", false}, {"500", "3000", false}, {"", "500", false},
      {"500", "", false},     {".", "500", false},    {"100.5", "500", true}, {"99.9", "500", true},
      {"1.5.3", "500", false},
  };
  for (const auto& g : gevallen) {
    VerkleinModel m("4000x3000", Onthouden(0, 0, false));
    m.BreedteGewijzigd(g.breedte);
    m.HoogteGewijzigd(g.hoogte);
    EXPECT_EQ(m.OkAan(), g.ok) << g.breedte << " x " << g.hoogte;
  }
  // A photo whose size can't be read never enables OK.
  VerkleinModel onleesbaar("Error", Onthouden(0, 0));
  TypBreedte(onleesbaar, "100");
  TypHoogte(onleesbaar, "100");
  EXPECT_FALSE(onleesbaar.OkAan());
}

TEST(VerkleinModel, OkHandsOverWholeSizesAndTheQualityCode) {
  VerkleinModel m("4000x3000", Onthouden(0, 0, false, 2));
  m.BreedteGewijzigd("1500.5");
  m.HoogteGewijzigd("1125.5");
  const VerkleinOpdracht o = m.Opdracht();
  EXPECT_EQ(o.breedte, 1500);  // halves go to the even neighbour
  EXPECT_EQ(o.hoogte, 1126);
  EXPECT_EQ(o.kwaliteit_code, 2);
  EXPECT_EQ(o.te_onthouden.breedte, 1500);
  EXPECT_EQ(o.te_onthouden.hoogte, 1126);
  EXPECT_FALSE(o.te_onthouden.verhouding);
  EXPECT_EQ(o.te_onthouden.kwaliteit, 2);
  m.ZetKwaliteit(1);
  m.ZetVerhouding(true);
  EXPECT_EQ(m.Opdracht().kwaliteit_code, 1);
  EXPECT_TRUE(m.Opdracht().te_onthouden.verhouding);
}

TEST(VerkleinRegels, KeysNumbersAndRounding) {
  for (const char32_t teken : {U'0', U'5', U'9', U'.', char32_t{8}}) EXPECT_TRUE(IsToegestaanTeken(teken));
  for (const char32_t teken : {U'a', U'-', U'+', U',', U' ', U'e', U'x', char32_t{13}, U'\u0661'}) {
    EXPECT_FALSE(IsToegestaanTeken(teken)) << static_cast<int>(teken);
  }
  // The numeric value is the leading number.
  for (const auto& [tekst, waarde] : {std::pair{"1500", 1500.0}, {"12.5", 12.5}, {"1.2.3", 1.2}, {"", 0.0}, {".", 0.0}}) {
    EXPECT_EQ(NumeriekeWaarde(tekst), waarde) << tekst;
  }
  // 16-bit rounding: halves to even, limited to the range.
  for (const auto& [waarde, heel] : {std::pair{100.5, 100}, {101.5, 102}, {100.49, 100}, {32767.4, 32767},
                                     {40000.0, 32767}, {-40000.0, -32768}}) {
    EXPECT_EQ(AlsInt16(waarde), heel) << waarde;
  }
}

}  // namespace
}  // namespace kiekbord
