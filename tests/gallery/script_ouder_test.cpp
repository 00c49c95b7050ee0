// Older-form scripts as they were made on Windows: Windows-1252 text, CR LF
// line ends, every photo in "[Fotobijschriften]", the text colour under
// "KleurTekst".

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "gallery/keyed_text_file.h"
#include "gallery/script_reader.h"
#include "tests/gallery/script_fakes.h"
#include "tests/support/test_support.h"

namespace kiekbord::test {
namespace {

using ::testing::ElementsAre;

constexpr const char* kProvenceUitvoer = "D:\\Kiekbord\\Provence 2003";
constexpr const char* kSinterklaasUitvoer = "C:\\Foto's\\Sinterklaas\\Kiekbord";

class OuderScriptTest : public ::testing::Test {
 protected:
  void SetUp() override { ResetWildcardCursor(); }

  ScriptGelezen Lees(const std::string& naam, MapControle& mappen) {
    LineTable tabel(capaciteit::kScript);
    EXPECT_TRUE(LeesRegels(TestDataDir() + "script_ouder/" + naam, tabel, false).ok());
    return ScriptLezen(tabel, StandaardOmgeving(), mappen);
  }

  FotoMappen fs_;
  ScopedFileSystem scoped_{fs_};
};

TEST_F(OuderScriptTest, TheProvenceScriptLoadsThePhotosStillThereAndSaysOneIsGone) {
  fs_.Map(kProvenceUitvoer, {"IMG_0012.JPG", "img_0013.jpg", "img_0014.jpg", "img_0015.jpg", "dsc00231.jpg"});
  VensterMappen mappen;
  const ScriptGelezen gelezen = Lees("provence.kbs", mappen);

  GalleryScript verwacht;
  verwacht.invoer_dir = "C:\\Mijn documenten\\Mijn afbeeldingen\\Provence";
  verwacht.uitvoer_dir = kProvenceUitvoer;
  verwacht.titel = "Zomer in de Provence";
  verwacht.subtitel = "Kamperen bij Sérignan-du-Comtat";
  verwacht.datum = "juli 2003";
  verwacht.beschrijving = "Drie weken zon, lavendel en rosé.\r\nMet dank aan opa en oma voor de caravan!";
  verwacht.thumbnails = true;
  verwacht.fotos = {{"IMG_0012.JPG", "Aan het strand bij Sète"},
                    {"img_0013.jpg", "Crème brûlée op het terras"},
                    {"img_0014.jpg", "Café « Le Provençal » in Orange"},
                    {"img_0015.jpg", ""},
                    {"dsc00231.jpg", "Pont d'Avignon – de brug die halverwege ophoudt"}};
  verwacht.sjabloon = "Klassiek";
  verwacht.positie_fotos = 1;
  verwacht.positie_bijschriften = 1;
  verwacht.lettertype_titels = 6;
  verwacht.lettertype_bijschriften = 6;
  verwacht.letterstijl_bijschriften = 2;
  verwacht.kleur_tekst_op_achtergrond = 8388608;  // navy, from the older key
  verwacht.kleur_achtergrond = 15794175;
  verwacht.kleur_tekst_in_kader = 16777215;       // not in the script
  EXPECT_EQ(gelezen.script, verwacht);

  EXPECT_TRUE(gelezen.ouder_formaat);
  EXPECT_TRUE(gelezen.fotos_laden);
  EXPECT_EQ(gelezen.vermeldingen, 6u);
  EXPECT_THAT(gelezen.meldingen,
              ElementsAre(Melding{MeldingSoort::kWaarschuwing,
                                  "Van de 6 foto's in het script zijn nog slechts 5\r\n"
                                  "fotobestanden aanwezig in de uitvoerdirectory.\r\n\r\n"
                                  "De ontbrekende foto's zijn verwijderd uit de kiekbord."}));
}

TEST_F(OuderScriptTest, TheProvenceScriptWithoutItsOutputDirectoryWarnsThatCaptionsWillBeLost) {
  VensterMappen ongeldig(false);
  const ScriptGelezen gelezen = Lees("provence.kbs", ongeldig);
  EXPECT_FALSE(gelezen.fotos_laden);
  EXPECT_TRUE(gelezen.script.fotos.empty());
  EXPECT_EQ(gelezen.script.titel, "Zomer in de Provence");
  EXPECT_THAT(gelezen.meldingen,
              ElementsAre(Melding{MeldingSoort::kWaarschuwing,
                                  "De fotobijschriften die dit nu script bevat,\r\n"
                                  "gaan verloren indien u dit script nogmaals opslaat."}));
}

TEST_F(OuderScriptTest, TheHandEditedSinterklaasScriptReadsWithItsQuirks) {
  fs_.Map(kSinterklaasUitvoer, {"pakjes01.jpg", "pakjes02.JPG", "pakjes03.jpg", "pakjes05.jpg", "scan_oud.bmp"});
  VensterMappen mappen;
  const ScriptGelezen gelezen = Lees("sinterklaas.kbs", mappen);

  GalleryScript verwacht;
  verwacht.invoer_dir = "C:\\Foto's\\Sinterklaas";
  verwacht.uitvoer_dir = kSinterklaasUitvoer;
  verwacht.titel = "Pakjesavond bij oma Truus";
  verwacht.subtitel = "Sinterklaas 2002";
  verwacht.datum = "5 december 2002";
  verwacht.beschrijving =
      "Met gedichten, surprises en pepernoten.\r\n\r\nIedereen was er: Anneke, Joëlle, Loïs en Ruud.";
  verwacht.fotos = {{"pakjes01.jpg", "De zak van Sint zit vol"},
                    {"pakjes02.JPG", "Joëlle leest haar gedicht voor"},
                    {"pakjes03.jpg", "="},
                    {"pakjes05.jpg", "Piet & Sint – \"samen\" op de bank"}};
  verwacht.sjabloon = "Donker";               // "Winter" is gone: the first set
  verwacht.aantal_fotos_per_pagina = "4";
  verwacht.presentatie = 0;                   // "Presentatie = 1" has the key "Presentatie "
  verwacht.positie_fotos = 2;
  verwacht.kleur_tekst_op_achtergrond = 128;  // "#800000"
  verwacht.kleur_achtergrond = 13434879;      // "#FFFFCC"
  EXPECT_EQ(gelezen.script, verwacht);

  EXPECT_EQ(gelezen.vermeldingen, 4u);
  EXPECT_THAT(gelezen.meldingen, ElementsAre(Melding{MeldingSoort::kWaarschuwing,
                                                     "Het gebruikte sjabloon 'Winter' is niet (meer) aanwezig\r\n"
                                                     "onder directory /usr/share/kiekbord/Sjabloon/.\r\n"
                                                     "Het eerste sjabloon zal worden gebruikt."}));
}

}  // namespace
}  // namespace kiekbord::test
