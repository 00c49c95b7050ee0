#include "editor/colour_choice.h"

#include <gtest/gtest.h>

#include "tests/gallery/script_fakes.h"

namespace kiekbord {
namespace {

TEST(ColourChoice, RefusesAColourEqualToItsPartner) {
  struct Geval {
    KleurRol rol;
    std::int32_t kleur;
    const char* weigering;
  };
  const GalleryScript standaard;  // text 0 on 16777215; 16777215 in 13421772
  for (const Geval& g : {
           Geval{KleurRol::kTekstOpAchtergrond, 16777215,
                 "De gekozen tekstkleur is gelijk aan de\r\nachtergrondkleur. Dit is niet mogelijk."},
           Geval{KleurRol::kAchtergrond, 0, "De gekozen achtergrondkleur is gelijk aan\r\nde tekstkleur. Dit is niet mogelijk."},
           Geval{KleurRol::kTekstInKader, 13421772,
                 "De gekozen tekstkleur is gelijk aan de\r\nkaderkleur. Dit is niet mogelijk."},
           Geval{KleurRol::kKader, 16777215, "De gekozen kaderkleur is gelijk aan\r\nde tekstkleur. Dit is niet mogelijk."},
       }) {
    GalleryScript s = standaard;
    EXPECT_EQ(KiesKleur(s, g.rol, g.kleur), (Melding{MeldingSoort::kWaarschuwing, g.weigering}));
    EXPECT_EQ(s, standaard);
  }
}

TEST(ColourChoice, OnlyThePairsAreCompared) {
  GalleryScript s;
  EXPECT_EQ(KiesKleur(s, KleurRol::kTekstOpAchtergrond, 13421772), std::nullopt);  // the frame colour
  EXPECT_EQ(KiesKleur(s, KleurRol::kKader, 0), std::nullopt);
  EXPECT_EQ(s.kleur_tekst_op_achtergrond, 13421772);
  EXPECT_EQ(s.kleur_kader, 0);
  EXPECT_EQ(PartnerKleur(s, KleurRol::kTekstInKader), 0);
  EXPECT_EQ(KleurVan(s, KleurRol::kAchtergrond), 16777215);
}

TEST(ColourChoice, DefaultsFromProgramSettings) {
  ProgramSettings settings;
  GalleryScript s;
  StandaardKleuren(settings, s);  // no "KBord.ini": the record's defaults
  EXPECT_EQ(s, GalleryScript{});
  settings.kleur_tekst_op_achtergrond = "255";
  settings.kleur_achtergrond = "#00FF00";
  settings.kleur_tekst_in_kader = "x";
  settings.kleur_kader = "blauw";
  StandaardKleuren(settings, s);
  EXPECT_EQ(s.kleur_tekst_op_achtergrond, 255);
  EXPECT_EQ(s.kleur_achtergrond, 0x00FF00);
  EXPECT_EQ(s.kleur_tekst_in_kader, 16777215);
  EXPECT_EQ(s.kleur_kader, 13421772);
}

}  // namespace
}  // namespace kiekbord
