#include "gallery/script_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "gallery/file_system.h"
#include "tests/gallery/script_fakes.h"

namespace kiekbord::test {
namespace {

using ::testing::ElementsAre;

constexpr const char* kUitvoer = "/foto/zomer";

// The messages, verbatim, as the window shows them.
const Melding kGeenFotos{MeldingSoort::kInformatie,
                         "Uitvoerdirectory /foto/zomer\r\nbevat (nog) geen fotobestanden (*.JPG)."};
const Melding kBijschriftenVerloren{
    MeldingSoort::kWaarschuwing,
    "De fotobijschriften die dit nu script bevat,\r\ngaan verloren indien u dit script nogmaals opslaat."};

class ScriptLezenTest : public ::testing::Test {
 protected:
  void SetUp() override { ResetWildcardCursor(); }

  ScriptGelezen Lees(const std::string& tekst) { return LeesScriptTekst(tekst, mappen_); }

  FotoMappen fs_;
  ScopedFileSystem scoped_{fs_};
  VensterMappen mappen_;
};

// A current-form script around the given photo sections and settings.
std::string HuidigScript(const std::string& fotos, const std::string& instellingen = "") {
  return "[Kiekbord]\r\nAanmaakdatum=zaterdag 21 november 2026\r\nVersie=4.1\r\n"
         "Opmerking=Dit bestand niet handmatig aanpassen!\r\n"
         "[Algemeen]\r\nInvoerDir=/foto/invoer\r\nUitvoerDir=/foto/zomer\r\n" +
         fotos + "[Instellingen]\r\n" + instellingen;
}

// An older-form script around the given "[Fotobijschriften]" lines.
std::string OudScript(const std::string& fotoregels) {
  return "[Kiekbord]\r\nOpmerking=Dit bestand niet handmatig aanpassen!\r\n"
         "[Algemeen]\r\nInvoerDir=/foto/invoer\r\nUitvoerDir=/foto/zomer\r\n"
         "[Fotobijschriften]\r\n" +
         fotoregels;
}

// --- Directories and their checks --------------------------------------------------

TEST_F(ScriptLezenTest, OutputDirectoryWithPhotosLoadsThemAndChecksBothDirectoriesOnce) {
  fs_.Map(kUitvoer, {"strand.jpg"});
  const ScriptGelezen gelezen = Lees(HuidigScript("[Algemeen]\r\nAantalFotos=1\r\n[Foto001]\r\nFoto=strand.jpg\r\n"));
  EXPECT_TRUE(gelezen.fotos_laden);
  EXPECT_THAT(mappen_.oproepen, ElementsAre("invoer /foto/invoer", "uitvoer /foto/zomer"));
  EXPECT_THAT(gelezen.script.fotos, ElementsAre(PhotoEntry{"strand.jpg", ""}));
  EXPECT_TRUE(gelezen.meldingen.empty());
}

TEST_F(ScriptLezenTest, OutputDirectoryWithoutPhotosSaysSoAndChecksTheInputAgain) {
  fs_.Map(kUitvoer, {"leesmij.txt"});
  const ScriptGelezen gelezen = Lees(HuidigScript(""));
  EXPECT_FALSE(gelezen.fotos_laden);
  EXPECT_THAT(mappen_.oproepen, ElementsAre("invoer /foto/invoer", "uitvoer /foto/zomer", "invoer opnieuw"));
  EXPECT_THAT(gelezen.meldingen, ElementsAre(kGeenFotos));
}

TEST_F(ScriptLezenTest, PhotosInUpperCaseCountAsPhotosOfTheOutputDirectory) {
  fs_.Map(kUitvoer, {"STRAND.JPG"});
  EXPECT_TRUE(Lees(HuidigScript("")).fotos_laden);
}

TEST_F(ScriptLezenTest, InvalidOutputDirectoryLoadsNothingAndSaysNothingWithoutCaptions) {
  VensterMappen ongeldig(false);
  fs_.Map(kUitvoer, {"strand.jpg"});
  const ScriptGelezen gelezen = LeesScriptTekst(
      HuidigScript("[Algemeen]\r\nAantalFotos=1\r\n[Foto001]\r\nFoto=strand.jpg\r\nBijschrift=\r\n"), ongeldig);
  EXPECT_FALSE(gelezen.fotos_laden);
  EXPECT_THAT(ongeldig.oproepen, ElementsAre("invoer /foto/invoer", "uitvoer /foto/zomer"));
  EXPECT_TRUE(gelezen.script.fotos.empty());
  EXPECT_TRUE(gelezen.meldingen.empty());
}

TEST_F(ScriptLezenTest, MissingDirectoriesDefaultToTheHomeDirectory) {
  fs_.Map("/home/els/");
  const ScriptGelezen gelezen = Lees("[Kiekbord]\r\nVersie=4.1\r\n");
  EXPECT_EQ(gelezen.script.invoer_dir, "/home/els/");
  EXPECT_EQ(gelezen.script.uitvoer_dir, "/home/els/");
  EXPECT_THAT(mappen_.oproepen, ElementsAre("invoer /home/els/", "uitvoer /home/els/", "invoer opnieuw"));
}

TEST_F(ScriptLezenTest, HeadlessChecksTakeAnExistingDirectoryAsValid) {
  fs_.Map(kUitvoer, {"strand.jpg"});
  MappenZonderVenster zonder_venster;
  EXPECT_TRUE(zonder_venster.ControleerUitvoerDir(kUitvoer));
  EXPECT_FALSE(zonder_venster.ControleerUitvoerDir("/bestaat/niet"));
  EXPECT_FALSE(zonder_venster.ControleerUitvoerDir(""));
}

// --- Captions that would be lost ---------------------------------------------------

TEST_F(ScriptLezenTest, CurrentFormCaptionsOfUnloadedPhotosWillBeLost) {
  fs_.Map(kUitvoer);
  const ScriptGelezen gelezen = Lees(HuidigScript(
      "[Algemeen]\r\nAantalFotos=2\r\n[Foto001]\r\nFoto=a1.jpg\r\nBijschrift=\r\n"
      "[Foto002]\r\nFoto=a2.jpg\r\nBijschrift=Vuurtoren\r\n"));
  EXPECT_THAT(gelezen.meldingen, ElementsAre(kGeenFotos, kBijschriftenVerloren));
}

TEST_F(ScriptLezenTest, CaptionsBeyondAantalFotosAreNotLookedAt) {
  fs_.Map(kUitvoer);
  const ScriptGelezen gelezen = Lees(HuidigScript(
      "[Algemeen]\r\nAantalFotos=1\r\n[Foto001]\r\nFoto=a1.jpg\r\n[Foto002]\r\nFoto=a2.jpg\r\nBijschrift=Vuurtoren\r\n"));
  EXPECT_THAT(gelezen.meldingen, ElementsAre(kGeenFotos));
}

TEST_F(ScriptLezenTest, OlderFormCaptionsOfUnloadedPhotosWillBeLost) {
  fs_.Map(kUitvoer);
  EXPECT_THAT(Lees(OudScript("Foto:img_1.jpg=\r\nFoto:img_2.jpg=Duinen\r\n")).meldingen,
              ElementsAre(kGeenFotos, kBijschriftenVerloren));
  EXPECT_THAT(Lees(OudScript("Foto:img_1.jpg=\r\nFoto:img_2.jpg=\r\n")).meldingen, ElementsAre(kGeenFotos));
}

// --- Current-form photos ----------------------------------------------------------

TEST_F(ScriptLezenTest, CurrentFormTakesExactLowerCaseJpgNamesOfExistingFilesInOrder) {
  fs_.Map(kUitvoer, {"img_0001.jpg", "IMG_0001.JPG", "zee01.jpg", "a.jpg", "duin.jpeg"});
  fs_.Map("/foto/zomer/extra", {"zon.jpg"});
  const ScriptGelezen gelezen = Lees(HuidigScript(
      "[Algemeen]\r\nAantalFotos=7\r\n"
      "[Foto001]\r\nFoto=IMG_0001.JPG\r\nBijschrift=hoofdletters\r\n"  // upper-case extension: skipped
      "[Foto002]\r\nFoto=zee01.jpg\r\nBijschrift=Zee\r\n"
      "[Foto003]\r\nFoto=a.jpg\r\nBijschrift=te kort\r\n"               // five characters: skipped
      "[Foto004]\r\nFoto=duin.jpeg\r\nBijschrift=geen jpg\r\n"
      "[Foto005]\r\nFoto=weg_01.jpg\r\nBijschrift=ontbreekt\r\n"        // no file: dropped silently
      "[Foto006]\r\nFoto=extra/zon.jpg\r\nBijschrift=andere map\r\n"    // not a name in the output directory
      "[Foto007]\r\nFoto=img_0001.jpg\r\nBijschrift=Kleine letters\r\n"));
  EXPECT_THAT(gelezen.script.fotos,
              ElementsAre(PhotoEntry{"zee01.jpg", "Zee"}, PhotoEntry{"img_0001.jpg", "Kleine letters"}));
  EXPECT_EQ(gelezen.vermeldingen, 4u);
  EXPECT_TRUE(gelezen.meldingen.empty());
  EXPECT_EQ(AantalFotosTekst(gelezen.script.fotos.size()), "2 foto('s)");
}

TEST_F(ScriptLezenTest, OnlyTheFirstAantalFotosSectionsAreRead) {
  fs_.Map(kUitvoer, {"foto_1.jpg", "foto_2.jpg", "foto_3.jpg"});
  const std::string fotos =
      "[Foto001]\r\nFoto=foto_1.jpg\r\n[Foto002]\r\nFoto=foto_2.jpg\r\n[Foto003]\r\nFoto=foto_3.jpg\r\n";
  EXPECT_EQ(Lees(HuidigScript("[Algemeen]\r\nAantalFotos=2\r\n" + fotos)).script.fotos.size(), 2u);
  EXPECT_EQ(Lees(HuidigScript("[Algemeen]\r\nAantalFotos=abc\r\n" + fotos)).script.fotos.size(), 0u);
  EXPECT_EQ(Lees(HuidigScript(fotos)).script.fotos.size(), 0u);
}

TEST_F(ScriptLezenTest, SectionsAreFoundByNumberWhereverTheyStandAndInAnyCase) {
  fs_.Map(kUitvoer, {"foto_1.jpg", "foto_2.jpg"});
  const ScriptGelezen gelezen = Lees(HuidigScript(
      "[Algemeen]\r\nAantalFotos=3\r\n[FOTO002]\r\nFoto=foto_2.jpg\r\n[foto001]\r\nfoto=foto_1.jpg\r\n"
      "[Foto0003]\r\nFoto=foto_2.jpg\r\n"));  // "Foto0003" is not the section of photo 3
  EXPECT_THAT(gelezen.script.fotos, ElementsAre(PhotoEntry{"foto_1.jpg", ""}, PhotoEntry{"foto_2.jpg", ""}));
}

TEST_F(ScriptLezenTest, AHugePhotoCountReadsOnlyTheSectionsThatExist) {
  fs_.Map(kUitvoer, {"foto_1.jpg"});
  const ScriptGelezen gelezen = Lees(HuidigScript(
      "[Algemeen]\r\nAantalFotos=1e300\r\n[Foto001]\r\nFoto=foto_1.jpg\r\n[Foto999999999999]\r\nFoto=foto_1.jpg\r\n"));
  EXPECT_EQ(gelezen.script.fotos.size(), 2u);
}

TEST_F(ScriptLezenTest, AScriptWithoutVersieIsOlderEvenWithPhotoSections) {
  fs_.Map(kUitvoer, {"foto_1.jpg"});
  const ScriptGelezen gelezen =
      Lees("[Algemeen]\r\nUitvoerDir=/foto/zomer\r\nAantalFotos=1\r\n[Foto001]\r\nFoto=foto_1.jpg\r\n");
  EXPECT_TRUE(gelezen.ouder_formaat);
  EXPECT_TRUE(gelezen.script.fotos.empty());
}

// --- Older-form photos -------------------------------------------------------------

TEST_F(ScriptLezenTest, OlderFormAcceptsJpgInAnyCaseAndKeepsTheNamesCase) {
  fs_.Map(kUitvoer, {"IMG_0001.JPG", "x.JPG", "Zee.Jpg", "scan.bmp"});
  const ScriptGelezen gelezen = Lees(OudScript(
      "Foto:IMG_0001.JPG=x\r\n"
      "Foto:x.JPG=kort maar goed\r\n"      // "=" at the sixth character: still an entry
      "Foto:scan.bmp=geen jpg\r\n"         // no entry
      "Foto:Zee.Jpg=Golven = wind\r\n"     // the caption is all after the first "="
      "Foto:duin.jpeg=geen jpg\r\n"));
  EXPECT_TRUE(gelezen.ouder_formaat);
  EXPECT_THAT(gelezen.script.fotos,
              ElementsAre(PhotoEntry{"IMG_0001.JPG", "x"}, PhotoEntry{"x.JPG", "kort maar goed"},
                          PhotoEntry{"Zee.Jpg", "Golven = wind"}));
  EXPECT_EQ(gelezen.vermeldingen, 3u);
  EXPECT_TRUE(gelezen.meldingen.empty());
}

TEST_F(ScriptLezenTest, OlderFormSummarisesMissingPhotos) {
  fs_.Map(kUitvoer, {"img_0002.jpg"});
  const ScriptGelezen gelezen =
      Lees(OudScript("Foto:img_0001.jpg=Een\r\nFoto:img_0002.jpg=Twee\r\nFoto:img_0003.jpg=Drie\r\n"));
  EXPECT_THAT(gelezen.script.fotos, ElementsAre(PhotoEntry{"img_0002.jpg", "Twee"}));
  EXPECT_THAT(gelezen.meldingen,
              ElementsAre(Melding{MeldingSoort::kWaarschuwing,
                                  "Van de 3 foto's in het script zijn nog slechts 1\r\n"
                                  "fotobestanden aanwezig in de uitvoerdirectory.\r\n\r\n"
                                  "De ontbrekende foto's zijn verwijderd uit de kiekbord."}));
}

TEST_F(ScriptLezenTest, OlderFormWithAllPhotosMissingCountsNoneFound) {
  fs_.Map(kUitvoer, {"ander.jpg"});
  const ScriptGelezen gelezen = Lees(OudScript("Foto:img_0001.jpg=Een\r\n"));
  EXPECT_TRUE(gelezen.script.fotos.empty());
  EXPECT_THAT(gelezen.meldingen,
              ElementsAre(Melding{MeldingSoort::kWaarschuwing,
                                  "Van de 1 foto's in het script zijn nog slechts 0\r\n"
                                  "fotobestanden aanwezig in de uitvoerdirectory.\r\n\r\n"
                                  "De ontbrekende foto's zijn verwijderd uit de kiekbord."}));
}

TEST_F(ScriptLezenTest, OlderFormEnumerationEndsAtAShortEntry) {
  fs_.Map(kUitvoer, {"img_0001.jpg", "img_0002.jpg"});
  const ScriptGelezen gelezen = Lees(OudScript("Foto:img_0001.jpg=Een\r\nFoto:a=b\r\nFoto:img_0002.jpg=Twee\r\n"));
  EXPECT_THAT(gelezen.script.fotos, ElementsAre(PhotoEntry{"img_0001.jpg", "Een"}));
}

TEST_F(ScriptLezenTest, AnEnumerationLeftPartWayElsewhereDoesNotMakeTheReaderSkipPhotos) {
  fs_.Map(kUitvoer, {"img_0001.jpg", "img_0002.jpg"});
  LineTable tabel(capaciteit::kScript);
  LeesRegelsUitTekst(OudScript("Foto:img_0001.jpg=Een\r\nFoto:img_0002.jpg=Twee\r\n"), tabel, false);
  LeesWaarde(tabel, "Fotobijschriften", "Foto:*", "");
  EXPECT_EQ(ScriptLezen(tabel, StandaardOmgeving(), mappen_).script.fotos.size(), 2u);
}

TEST_F(ScriptLezenTest, AnEnumerationCutShortDoesNotMakeTheNextScriptSkipPhotos) {
  fs_.Map(kUitvoer, {"img_0001.jpg", "img_0002.jpg"});
  Lees(OudScript("Foto:img_0001.jpg=Een\r\nFoto:a=b\r\n"));
  const ScriptGelezen tweede = Lees(OudScript("Foto:img_0001.jpg=Een\r\nFoto:img_0002.jpg=Twee\r\n"));
  EXPECT_EQ(tweede.script.fotos.size(), 2u);
}

// --- Texts ------------------------------------------------------------------------

TEST_F(ScriptLezenTest, DescriptionBreaksComeBackAsLineBreaks) {
  const ScriptGelezen gelezen =
      Lees("[Kiekbord]\r\nVersie=4.1\r\n[Algemeen]\r\nBeschrijving=a<br>b<br><br>c<BR>d\r\n");
  EXPECT_EQ(gelezen.script.beschrijving, "a\r\nb\r\n\r\nc<BR>d");
}

TEST_F(ScriptLezenTest, HandEditedScriptWithBlanksAroundEqualsAndMissingSections) {
  const ScriptGelezen gelezen = Lees(
      "[algemeen]\r\n"
      "Titel = Zomer\r\n"        // the key is "Titel ": not the title
      "Subtitel=   Texel\r\n"    // blanks before the value go
      "DATUM=juli 2026\r\n"
      "Thumbnails=2\r\n");
  EXPECT_EQ(gelezen.script.titel, "");
  EXPECT_EQ(gelezen.script.subtitel, "Texel");
  EXPECT_EQ(gelezen.script.datum, "juli 2026");
  EXPECT_TRUE(gelezen.script.thumbnails);
  EXPECT_TRUE(gelezen.ouder_formaat);
  GalleryScript standaard;
  standaard.invoer_dir = standaard.uitvoer_dir = "/home/els/";
  standaard.subtitel = "Texel";
  standaard.datum = "juli 2026";
  standaard.thumbnails = true;
  standaard.sjabloon = "Raster";
  EXPECT_EQ(gelezen.script, standaard);  // every other field has its default
}

TEST_F(ScriptLezenTest, ThumbnailsAreOnForAnyNonZeroNumber) {
  const std::vector<std::pair<std::string, bool>> gevallen = {
      {"1", true}, {"0", false}, {"2", true}, {"-1", true}, {"ja", false}, {"", false}, {"0.0", false}};
  for (const auto& [waarde, aan] : gevallen) {
    EXPECT_EQ(Lees("[Algemeen]\r\nThumbnails=" + waarde + "\r\n").script.thumbnails, aan) << waarde;
  }
}

TEST_F(ScriptLezenTest, AFailedReadCountsAsAnEmptyScript) {
  LineTable tabel(capaciteit::kScript);
  tabel.Line(1) = "[Kiekbord]";
  tabel.Line(2) = "Versie=4.1";
  tabel.SetCountSlot("%Error 53 File not found");
  const ScriptGelezen gelezen = ScriptLezen(tabel, StandaardOmgeving(), mappen_);
  EXPECT_TRUE(gelezen.ouder_formaat);
  EXPECT_EQ(gelezen.script.invoer_dir, "/home/els/");
}

// --- Template set -----------------------------------------------------------------

TEST_F(ScriptLezenTest, AKnownTemplateSetIsSelected) {
  EXPECT_EQ(Lees("[Instellingen]\r\nSjabloon=Klassiek\r\n").script.sjabloon, "Klassiek");
}

TEST_F(ScriptLezenTest, NoTemplateSetKeepsTheCurrentSelection) {
  EXPECT_EQ(Lees("[Instellingen]\r\nSjabloon=\r\n").script.sjabloon, "Raster");
  EXPECT_EQ(Lees("[Algemeen]\r\nTitel=x\r\n").script.sjabloon, "Raster");
}

TEST_F(ScriptLezenTest, AMissingTemplateSetFallsBackToTheFirstWithAWarning) {
  fs_.Map(kUitvoer, {"strand.jpg"});
  const ScriptGelezen gelezen = Lees(HuidigScript("", "Sjabloon=klassiek\r\n"));  // case counts
  EXPECT_EQ(gelezen.script.sjabloon, "Donker");
  EXPECT_THAT(gelezen.meldingen, ElementsAre(Melding{MeldingSoort::kWaarschuwing,
                                                     "Het gebruikte sjabloon 'klassiek' is niet (meer) aanwezig\r\n"
                                                     "onder directory /usr/share/kiekbord/Sjabloon/.\r\n"
                                                     "Het eerste sjabloon zal worden gebruikt."}));
}

TEST_F(ScriptLezenTest, AMissingTemplateSetWithNoSetsAtAllLeavesItEmpty) {
  LeesOmgeving zonder_sets = StandaardOmgeving();
  zonder_sets.sjablonen.clear();
  const ScriptGelezen gelezen = LeesScriptTekst("[Instellingen]\r\nSjabloon=Winter\r\n", mappen_, zonder_sets);
  EXPECT_EQ(gelezen.script.sjabloon, "");
  ASSERT_FALSE(gelezen.meldingen.empty());
  EXPECT_EQ(gelezen.meldingen.back().tekst,
            "Het gebruikte sjabloon 'Winter' is niet (meer) aanwezig\r\n"
            "onder directory /usr/share/kiekbord/Sjabloon/.\r\n"
            "Het eerste sjabloon zal worden gebruikt.");
}

TEST_F(ScriptLezenTest, MessagesComeInTheOrderTheWindowShowsThem) {
  fs_.Map(kUitvoer, {"img_0001.jpg"});
  const ScriptGelezen gelezen = Lees(OudScript("Foto:img_0001.jpg=Een\r\nFoto:img_0002.jpg=Twee\r\n") +
                                     "[Instellingen]\r\nSjabloon=Winter\r\n");
  ASSERT_EQ(gelezen.meldingen.size(), 2u);
  EXPECT_EQ(gelezen.meldingen[0].tekst.substr(0, 6), "Van de");
  EXPECT_EQ(gelezen.meldingen[1].tekst.substr(0, 22), "Het gebruikte sjabloon");
}

// --- List indexes -------------------------------------------------------------------

TEST_F(ScriptLezenTest, ListIndexesAreTakenAsNumbers) {
  const std::vector<std::pair<std::string, std::int16_t>> gevallen = {
      {"1", 1}, {"-1", -1}, {"6", 6}, {"99", 99}, {"abc", 0}, {"", 0},
      {"1.6", 2}, {"3x", 3}, {"32767", 32767}, {"-32768", -32768}, {"70000", -1}};
  for (const auto& [waarde, index] : gevallen) {
    EXPECT_EQ(Lees("[Instellingen]\r\nPositieFotos=" + waarde + "\r\n").script.positie_fotos, index) << waarde;
  }
}

TEST_F(ScriptLezenTest, MissingListIndexesTakeTheirDefaults) {
  const GalleryScript script = Lees("[Instellingen]\r\nSjabloon=Donker\r\n").script;
  EXPECT_EQ(script.aantal_fotos_per_pagina, "1");
  EXPECT_EQ(script.presentatie, 0);
  EXPECT_EQ(script.letterstijl_bijschriften, 0);
  EXPECT_EQ(script.lettergrootte_bijschriften, 2);  // size "3"
}

// --- Colours --------------------------------------------------------------------------

struct KleurGeval {
  std::string regels;
  std::int32_t tekst_op_achtergrond;
  std::int32_t achtergrond;
  std::int32_t tekst_in_kader;
  std::int32_t kader;
};

TEST_F(ScriptLezenTest, ColoursAreNumbersOrHtmlColoursWithAFallbackEach) {
  const std::vector<KleurGeval> gevallen = {
      {"", 0, 16777215, 16777215, 13421772},
      {"KleurTekst=255\r\n", 255, 16777215, 16777215, 13421772},  // older key
      {"KleurTekstOpAchtergrond=65280\r\nKleurTekst=255\r\n", 65280, 16777215, 16777215, 13421772},
      {"KleurTekstOpAchtergrond=xxx\r\nKleurTekst=255\r\n", 255, 16777215, 16777215, 13421772},
      {"KleurTekstOpAchtergrond=#FF0000\r\n", 255, 16777215, 16777215, 13421772},
      {"KleurAchtergrond=#0000ff\r\nKleurKader=00FF00\r\n", 0, 16711680, 16777215, 65280},
      {"KleurAchtergrond=F00\r\n", 0, 3840, 16777215, 13421772},  // padded to "000F00"
      {"KleurTekstOpAchtergrond=rood\r\nKleurAchtergrond=rood\r\nKleurTekstInKader=rood\r\nKleurKader=rood\r\n",
       0, 16777215, 0, 13421772},
      {"KleurAchtergrond=\r\nKleurTekstInKader=#12345\r\nKleurKader=#1234567\r\n", 0, 16777215, 4530945, 13421772},
      {"KleurTekstOpAchtergrond=-1\r\nKleurKader=99999999999\r\n", -1, 16777215, 16777215, 13421772},
  };
  for (const KleurGeval& geval : gevallen) {
    const GalleryScript script = Lees("[Instellingen]\r\n" + geval.regels).script;
    EXPECT_EQ(script.kleur_tekst_op_achtergrond, geval.tekst_op_achtergrond) << geval.regels;
    EXPECT_EQ(script.kleur_achtergrond, geval.achtergrond) << geval.regels;
    EXPECT_EQ(script.kleur_tekst_in_kader, geval.tekst_in_kader) << geval.regels;
    EXPECT_EQ(script.kleur_kader, geval.kader) << geval.regels;
  }
}

TEST(AantalFotosTekstTest, CountFollowedByFotos) {
  EXPECT_EQ(AantalFotosTekst(1), "1 foto('s)");
  EXPECT_EQ(AantalFotosTekst(12), "12 foto('s)");
}

}  // namespace
}  // namespace kiekbord::test
