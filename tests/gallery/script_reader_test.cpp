#include "gallery/script_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <string>
#include <vector>

#include "base/file_system.h"
#include "base/keyed_text_file.h"
#include "gallery/script_writer.h"
#include "tests/gallery/script_fakes.h"
#include "tests/support/test_support.h"

namespace kiekbord::test {
namespace {

using ::testing::ElementsAre;
using namespace std::chrono_literals;

// The messages, verbatim, as the window shows them.
Melding GeenFotos(const std::string& map) {
  return {MeldingSoort::kInformatie, "Uitvoerdirectory " + map + "\r\nbevat (nog) geen fotobestanden (*.JPG)."};
}
const Melding kGeenFotos = GeenFotos("/foto/zomer");
const Melding kBijschriftenVerloren{
    MeldingSoort::kWaarschuwing,
    "De fotobijschriften die dit nu script bevat,\r\ngaan verloren indien u dit script nogmaals opslaat."};

Melding Ontbrekend(int vermeldingen, int gevonden) {
  return {MeldingSoort::kWaarschuwing, "Van de " + std::to_string(vermeldingen) +
                                           " foto's in het script zijn nog slechts " + std::to_string(gevonden) +
                                           "\r\nfotobestanden aanwezig in de uitvoerdirectory.\r\n\r\n"
                                           "De ontbrekende foto's zijn verwijderd uit de kiekbord."};
}

Melding GeenSjabloon(const std::string& naam) {
  return {MeldingSoort::kWaarschuwing, "Het gebruikte sjabloon '" + naam + "' is niet (meer) aanwezig\r\n"
                                       "onder directory /usr/share/kiekbord/Sjabloon/.\r\n"
                                       "Het eerste sjabloon zal worden gebruikt."};
}

const std::string kKop = "[Algemeen]\r\nInvoerDir=/foto/invoer\r\nUitvoerDir=/foto/zomer\r\n";

// A current-form script with `aantal` as its photo count around the given
// lines.
std::string Huidig(const std::string& aantal, const std::string& regels) {
  return "[Kiekbord]\r\nVersie=4.1\r\n" + kKop + "AantalFotos=" + aantal + "\r\n" + regels;
}

// An older-form script around the given "[Fotobijschriften]" lines.
std::string Oud(const std::string& fotoregels) { return kKop + "[Fotobijschriften]\r\n" + fotoregels; }

class ScriptLezenTest : public ::testing::Test {
 protected:
  void SetUp() override { ResetWildcardCursor(); }
  ScriptGelezen Lees(const std::string& tekst) { return LeesScriptTekst(tekst, mappen_); }

  FotoMappen fs_;
  ScopedFileSystem scoped_{fs_};
  VensterMappen mappen_;
};

const std::vector<std::string> kTweeChecks = {"invoer /foto/invoer", "uitvoer /foto/zomer"};

TEST_F(ScriptLezenTest, WhichPhotosAreLoadedAndWhatTheUserIsTold) {
  const struct {
    const char* wat;
    std::vector<std::string> bestanden = {};  // of the output directory
    std::string script;
    std::vector<PhotoEntry> fotos = {};
    std::vector<Melding> meldingen = {};
    std::size_t vermeldingen = 0;
    bool laden = true;
    bool uitvoer_geldig = true;
    std::vector<std::string> oproepen = kTweeChecks;
  } gevallen[] = {
      {.wat = "current form: exact lower-case \".jpg\" names of files in the output directory, in order",
       .bestanden = {"img_0001.jpg", "IMG_0001.JPG", "zee01.jpg", "a.jpg", "duin.jpeg", "extra"},
       .script = Huidig("7", "[Foto001]\r\nFoto=IMG_0001.JPG\r\nBijschrift=hoofdletters\r\n"
                             "[Foto002]\r\nFoto=zee01.jpg\r\nBijschrift=Zee\r\n"
                             "[Foto003]\r\nFoto=a.jpg\r\nBijschrift=vijf tekens\r\n"
                             "[Foto004]\r\nFoto=duin.jpeg\r\n[Foto005]\r\nFoto=weg_01.jpg\r\nBijschrift=ontbreekt\r\n"
                             "[Foto006]\r\nFoto=extra/zon.jpg\r\n"
                             "[Foto007]\r\nFoto=img_0001.jpg\r\nBijschrift=Kleine letters\r\n"),
       .fotos = {{"zee01.jpg", "Zee"}, {"img_0001.jpg", "Kleine letters"}},
       .vermeldingen = 4},
      {.wat = "only the first AantalFotos sections, found by number wherever they stand and in any case",
       .bestanden = {"foto_1.jpg", "foto_2.jpg"},
       .script = Huidig("2", "[FOTO002]\r\nFoto=foto_2.jpg\r\n[foto001]\r\nfoto=foto_1.jpg\r\n"
                             "[Foto003]\r\nFoto=foto_2.jpg\r\n"),
       .fotos = {{"foto_1.jpg", ""}, {"foto_2.jpg", ""}},
       .vermeldingen = 2},
      {.wat = "\"Foto0003\" is not the section of photo 3", .bestanden = {"foto_1.jpg"},
       .script = Huidig("3", "[Foto0003]\r\nFoto=foto_1.jpg\r\n")},
      {.wat = "a photo count that is no number", .bestanden = {"foto_1.jpg"},
       .script = Huidig("abc", "[Foto001]\r\nFoto=foto_1.jpg\r\n")},
      {.wat = "a huge photo count reads only the sections that exist", .bestanden = {"foto_1.jpg"},
       .script = Huidig("1e300", "[Foto001]\r\nFoto=foto_1.jpg\r\n[Foto999999999999]\r\nFoto=foto_1.jpg\r\n"),
       .fotos = {{"foto_1.jpg", ""}, {"foto_1.jpg", ""}},
       .vermeldingen = 2},
      {.wat = "without \"Versie\" photo sections are not read", .bestanden = {"foto_1.jpg"},
       .script = kKop + "AantalFotos=1\r\n[Foto001]\r\nFoto=foto_1.jpg\r\n"},
      {.wat = "older form: \".jpg\" in any case, the name's case kept, the caption all after the first \"=\"",
       .bestanden = {"IMG_0001.JPG", "x.JPG", "Zee.Jpg", "scan.bmp"},
       .script = Oud("Foto:IMG_0001.JPG=x\r\nFoto:x.JPG=zes tekens\r\nFoto:scan.bmp=geen jpg\r\n"
                     "Foto:Zee.Jpg=Golven = wind\r\nFoto:duin.jpeg=geen jpg\r\n"),
       .fotos = {{"IMG_0001.JPG", "x"}, {"x.JPG", "zes tekens"}, {"Zee.Jpg", "Golven = wind"}},
       .vermeldingen = 3},
      {.wat = "older form: missing photos are summed up, before a missing template set",
       .bestanden = {"img_0002.jpg"},
       .script = Oud("Foto:img_0001.jpg=Een\r\nFoto:img_0002.jpg=Twee\r\nFoto:img_0003.jpg=Drie\r\n"
                     "[Instellingen]\r\nSjabloon=Winter\r\n"),
       .fotos = {{"img_0002.jpg", "Twee"}},
       .meldingen = {Ontbrekend(3, 1), GeenSjabloon("Winter")},
       .vermeldingen = 3},
      {.wat = "older form: no photo left", .bestanden = {"ander.jpg"}, .script = Oud("Foto:img_0001.jpg=Een\r\n"),
       .meldingen = {Ontbrekend(1, 0)},
       .vermeldingen = 1},
      {.wat = "older form: the enumeration ends at a short entry",
       .bestanden = {"img_0001.jpg", "img_0002.jpg"},
       .script = Oud("Foto:img_0001.jpg=Een\r\nFoto:a=b\r\nFoto:img_0002.jpg=Twee\r\n"),
       .fotos = {{"img_0001.jpg", "Een"}},
       .vermeldingen = 1},
      {.wat = "an output directory with photos in upper case only", .bestanden = {"STRAND.JPG"},
       .script = Huidig("0", "")},
      {.wat = "an output directory without photos: captions would be lost", .bestanden = {"leesmij.txt"},
       .script = Huidig("2", "[Foto001]\r\nFoto=a1.jpg\r\nBijschrift=\r\n"
                             "[Foto002]\r\nFoto=a2.jpg\r\nBijschrift=Zee\r\n"),
       .meldingen = {kGeenFotos, kBijschriftenVerloren},
       .laden = false,
       .oproepen = {"invoer /foto/invoer", "uitvoer /foto/zomer", "invoer opnieuw"}},
      {.wat = "captions beyond AantalFotos are not looked at",
       .script = Huidig("1", "[Foto001]\r\nFoto=a1.jpg\r\n[Foto002]\r\nFoto=a2.jpg\r\nBijschrift=Zee\r\n"),
       .meldingen = {kGeenFotos},
       .laden = false,
       .oproepen = {"invoer /foto/invoer", "uitvoer /foto/zomer", "invoer opnieuw"}},
      {.wat = "older form: captions would be lost", .script = Oud("Foto:img_1.jpg=\r\nFoto:img_2.jpg=Duinen\r\n"),
       .meldingen = {kGeenFotos, kBijschriftenVerloren},
       .laden = false,
       .oproepen = {"invoer /foto/invoer", "uitvoer /foto/zomer", "invoer opnieuw"}},
      {.wat = "older form: empty captions are no loss", .script = Oud("Foto:img_1.jpg=\r\nFoto:img_2.jpg=\r\n"),
       .meldingen = {kGeenFotos},
       .laden = false,
       .oproepen = {"invoer /foto/invoer", "uitvoer /foto/zomer", "invoer opnieuw"}},
      {.wat = "an invalid output directory loads nothing, and empty captions are no loss",
       .bestanden = {"strand.jpg"},
       .script = Huidig("1", "[Foto001]\r\nFoto=strand.jpg\r\nBijschrift=\r\n"),
       .laden = false,
       .uitvoer_geldig = false},
      {.wat = "missing directories are the home directory", .script = "[Kiekbord]\r\nVersie=4.1\r\n",
       .meldingen = {GeenFotos("/home/els/")},
       .laden = false,
       .oproepen = {"invoer /home/els/", "uitvoer /home/els/", "invoer opnieuw"}},
  };
  for (const auto& geval : gevallen) {
    SCOPED_TRACE(geval.wat);
    FotoMappen fs;
    ScopedFileSystem scoped(fs);
    fs.Map("/foto/zomer", geval.bestanden);
    fs.Map("/home/els");
    VensterMappen mappen(geval.uitvoer_geldig);
    const ScriptGelezen gelezen = LeesScriptTekst(geval.script, mappen);
    EXPECT_EQ(gelezen.script.fotos, geval.fotos);
    EXPECT_EQ(gelezen.meldingen, geval.meldingen);
    EXPECT_EQ(gelezen.vermeldingen, geval.vermeldingen);
    EXPECT_EQ(mappen.oproepen, geval.oproepen);
    EXPECT_EQ(gelezen.fotos_laden, geval.laden);
    EXPECT_EQ(gelezen.ouder_formaat, geval.script.find("Versie=") == std::string::npos);
  }
}

TEST_F(ScriptLezenTest, HeadlessChecksTakeAnExistingDirectoryAsValid) {
  fs_.Map("/foto/zomer", {"strand.jpg"});
  MappenZonderVenster zonder_venster;
  EXPECT_TRUE(zonder_venster.ControleerUitvoerDir("/foto/zomer"));
  EXPECT_FALSE(zonder_venster.ControleerUitvoerDir("/bestaat/niet"));
  EXPECT_FALSE(zonder_venster.ControleerUitvoerDir(""));
}

// The wildcard cursor is shared: an enumeration left part-way, elsewhere or
// by an earlier script, must not make the reader skip photos.
TEST_F(ScriptLezenTest, AnEnumerationLeftPartWayDoesNotMakeTheReaderSkipPhotos) {
  fs_.Map("/foto/zomer", {"img_0001.jpg", "img_0002.jpg"});
  const std::string script = Oud("Foto:img_0001.jpg=Een\r\nFoto:img_0002.jpg=Twee\r\n");
  Lees(Oud("Foto:img_0001.jpg=Een\r\nFoto:a=b\r\n"));
  EXPECT_EQ(Lees(script).script.fotos.size(), 2u);
  LineTable tabel(capaciteit::kScript);
  LeesRegelsUitTekst(script, tabel, false);
  LeesWaarde(tabel, "Fotobijschriften", "Foto:*", "");
  EXPECT_EQ(ScriptLezen(tabel, StandaardOmgeving(), mappen_).script.fotos.size(), 2u);
}

TEST_F(ScriptLezenTest, HandEditedScriptWithBlanksAroundEqualsAndMissingSections) {
  const ScriptGelezen gelezen = Lees(
      "[algemeen]\r\n"
      "Titel = Zomer\r\n"      // the key is "Titel ": not the title
      "Subtitel=   Texel\r\n"  // blanks before the value go
      "DATUM=juli 2026\r\n"
      "Beschrijving=a<br>b<br><br>c<BR>d\r\n"
      "Thumbnails=2\r\n");
  GalleryScript verwacht;  // every other field has its default
  verwacht.invoer_dir = verwacht.uitvoer_dir = "/home/els/";
  verwacht.subtitel = "Texel";
  verwacht.datum = "juli 2026";
  verwacht.beschrijving = "a\r\nb\r\n\r\nc<BR>d";
  verwacht.thumbnails = true;
  verwacht.sjabloon = "Raster";
  EXPECT_EQ(gelezen.script, verwacht);
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

TEST_F(ScriptLezenTest, TemplateSetIsSelectedByExactNameOrFallsBackToTheFirst) {
  const struct {
    const char* regels;
    std::vector<std::string> sjablonen;
    const char* gekozen;
    std::vector<Melding> meldingen;
  } gevallen[] = {
      {"Sjabloon=Klassiek", {"Donker", "Klassiek"}, "Klassiek", {}},
      {"Sjabloon=", {"Donker", "Klassiek"}, "Raster", {}},  // the current selection stays
      {"Titel=x", {"Donker", "Klassiek"}, "Raster", {}},
      {"Sjabloon=klassiek", {"Donker", "Klassiek"}, "Donker", {GeenSjabloon("klassiek")}},
      {"Sjabloon=Winter", {}, "", {GeenSjabloon("Winter")}},
  };
  fs_.Map("/home/els", {"strand.jpg"});
  for (const auto& geval : gevallen) {
    LeesOmgeving omgeving = StandaardOmgeving();
    omgeving.sjablonen = geval.sjablonen;
    const ScriptGelezen gelezen = LeesScriptTekst("[Instellingen]\r\n" + std::string(geval.regels), mappen_, omgeving);
    EXPECT_EQ(gelezen.script.sjabloon, geval.gekozen) << geval.regels;
    EXPECT_EQ(gelezen.meldingen, geval.meldingen) << geval.regels;
  }
}

TEST_F(ScriptLezenTest, ListIndexesAreTakenAsNumbers) {
  const std::vector<std::pair<std::string, std::int16_t>> gevallen = {
      {"1", 1}, {"-1", -1}, {"99", 99}, {"abc", 0}, {"", 0}, {"1.6", 2}, {"3x", 3}, {"-32768", -32768}, {"70000", -1}};
  for (const auto& [waarde, index] : gevallen) {
    EXPECT_EQ(Lees("[Instellingen]\r\nPositieFotos=" + waarde + "\r\n").script.positie_fotos, index) << waarde;
  }
}

TEST_F(ScriptLezenTest, ColoursAreNumbersOrHtmlColoursWithAFallbackEach) {
  const struct {
    std::string regels;
    std::array<std::int32_t, 4> kleuren;  // text, background, text in frame, frame
  } gevallen[] = {
      {"", {0, 16777215, 16777215, 13421772}},
      {"KleurTekst=255\r\n", {255, 16777215, 16777215, 13421772}},  // older key
      {"KleurTekstOpAchtergrond=65280\r\nKleurTekst=255\r\n", {65280, 16777215, 16777215, 13421772}},
      {"KleurTekstOpAchtergrond=xxx\r\nKleurTekst=255\r\n", {255, 16777215, 16777215, 13421772}},
      {"KleurTekstOpAchtergrond=#FF0000\r\n", {255, 16777215, 16777215, 13421772}},
      {"KleurAchtergrond=#0000ff\r\nKleurKader=00FF00\r\n", {0, 16711680, 16777215, 65280}},
      {"KleurAchtergrond=F00\r\n", {0, 3840, 16777215, 13421772}},  // padded to "000F00"
      {"KleurTekstOpAchtergrond=rood\r\nKleurAchtergrond=rood\r\nKleurTekstInKader=rood\r\nKleurKader=rood\r\n",
       {0, 16777215, 0, 13421772}},
      {"KleurAchtergrond=\r\nKleurTekstInKader=#12345\r\nKleurKader=#1234567\r\n", {0, 16777215, 4530945, 13421772}},
      {"KleurTekstOpAchtergrond=-1\r\nKleurKader=99999999999\r\n", {-1, 16777215, 16777215, 13421772}},
  };
  for (const auto& geval : gevallen) {
    const GalleryScript s = Lees("[Instellingen]\r\n" + geval.regels).script;
    EXPECT_EQ((std::array{s.kleur_tekst_op_achtergrond, s.kleur_achtergrond, s.kleur_tekst_in_kader, s.kleur_kader}),
              geval.kleuren)
        << geval.regels;
  }
}

TEST(AantalFotosTekstTest, CountFollowedByFotos) { EXPECT_EQ(AantalFotosTekst(12), "12 foto('s)"); }

// Older scripts as they were made on Windows (Windows-1252 text, CR LF line
// ends, the text colour under "KleurTekst"; by hand: blank lines, blanks
// around "=", HTML colours, odd entries) read as the gallery that, saved
// again, gives the current-form golden file.
TEST_F(ScriptLezenTest, OlderScriptFilesFromWindowsAreSavedInTheCurrentForm) {
  fs_.Map("D:\\Kiekbord\\Provence 2003", {"IMG_0012.JPG", "img_0013.jpg", "img_0014.jpg", "img_0015.jpg",
                                            "dsc00231.jpg"});
  fs_.Map("C:\\Foto's\\Sinterklaas\\Kiekbord", {"pakjes01.jpg", "pakjes02.JPG", "pakjes03.jpg", "pakjes05.jpg"});
  const std::pair<std::string, Melding> gevallen[] = {{"provence", Ontbrekend(6, 5)},
                                                      {"sinterklaas", GeenSjabloon("Winter")}};
  TempDir dir;
  for (const auto& [naam, melding] : gevallen) {
    const std::string map = TestDataDir() + "script_ouder/";
    LineTable tabel(capaciteit::kScript);
    ASSERT_TRUE(LeesRegels(map + naam + ".kbs", tabel, false).ok());
    const ScriptGelezen gelezen = ScriptLezen(tabel, StandaardOmgeving(), mappen_);
    EXPECT_THAT(gelezen.meldingen, ElementsAre(melding));
    ASSERT_TRUE(ScriptSchrijven(gelezen.script, {2026y / std::chrono::November / 21d}, tabel).ok());
    ASSERT_TRUE(SchrijfRegels(dir / naam, tabel).ok());
    EXPECT_EQ(ReadBytes(dir / naam), ReadBytes(map + naam + "_opgeslagen.kbs")) << naam;
  }
}

}  // namespace
}  // namespace kiekbord::test
