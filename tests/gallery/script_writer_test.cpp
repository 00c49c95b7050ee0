#include "gallery/script_writer.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <limits>
#include <random>
#include <string>

#include "base/keyed_text_file.h"
#include "gallery/script_reader.h"
#include "base/text.h"
#include "tests/gallery/script_fakes.h"
#include "tests/support/test_support.h"

namespace kiekbord::test {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::year_month_day kZaterdag{2026y, std::chrono::November, 21d};

GalleryScript MetFotos(std::size_t aantal) {
  GalleryScript script;
  for (std::size_t i = 1; i <= aantal; ++i) script.fotos.push_back({"foto_" + std::to_string(i) + ".jpg", ""});
  return script;
}

TEST(ScriptSchrijvenTest, WritesTheWholeScriptInItsFixedOrder) {
  GalleryScript script;
  script.invoer_dir = "/home/els/Foto's/Texel";
  script.uitvoer_dir = "/home/els/Kiekbord/Texel 2026";
  script.titel = "Texel = eiland [2026]";
  script.subtitel = "Fietsen, wadlopen & vuurtorens";
  script.datum = "21 november 2026";
  script.beschrijving = "Een week op Texel.\r\nMet Anneke, Joëlle en Loïs.";
  script.thumbnails = true;
  script.fotos = {{"IMG_0001.JPG", "De vuurtoren bij De Cocksdorp"}, {"strand_01.jpg", "="}, {"ÉTÉ.jpg", ""}};
  script.sjabloon = "Klassiek";
  script.aantal_fotos_per_pagina = "2";
  script.presentatie = script.positie_fotos = script.fotos_zonder_bijschrift = 1;
  script.positie_bijschriften = script.lettergrootte_bijschriften = 2;
  script.lettertype_titels = 6;
  script.lettertype_bijschriften = -1;
  script.letterstijl_bijschriften = 3;
  script.kleur_tekst_in_kader = 255;
  TempDir dir;
  LineTable tabel(capaciteit::kScript);
  ASSERT_TRUE(ScriptSchrijven(script, kZaterdag, tabel).ok());
  ASSERT_TRUE(SchrijfRegels(dir / "texel.kbs", tabel).ok());
  EXPECT_EQ(ReadBytes(dir / "texel.kbs"), ReadBytes(TestDataDir() + "script_schrijven/texel.kbs"));
}

TEST(ScriptSchrijvenTest, TheTableIsRebuiltFromNothing) {
  LineTable tabel(capaciteit::kScript);
  LeesRegelsUitTekst("[Oud]\r\nSleutel=waarde\r\n[Instellingen]\r\nKleurTekst=255\r\n", tabel, false);
  ASSERT_TRUE(ScriptSchrijven(GalleryScript{}, kZaterdag, tabel).ok());
  EXPECT_EQ(LeesWaarde(tabel, "Oud", "Sleutel", "weg"), "weg");
  EXPECT_EQ(LeesWaarde(tabel, "Instellingen", "KleurTekst", "weg"), "weg");
  // No photos: the 28 fixed lines alone, with a count of 0.
  EXPECT_EQ(tabel.Count(), 28);
  EXPECT_EQ(LeesWaarde(tabel, "Algemeen", "AantalFotos", ""), "0");
}

TEST(ScriptSchrijvenTest, ValuesAreWrittenAsTheyStandOnOneLine) {
  GalleryScript script;
  script.titel = "  [Zomer] = =\r\n[Instellingen]";
  script.beschrijving = "a\r\nb\nc\rd<br>e";
  script.fotos = {{"strand.jpg", "Eb\nen vloed"}};
  script.aantal_fotos_per_pagina = "geen getal";
  LineTable tabel(capaciteit::kScript);
  ASSERT_TRUE(ScriptSchrijven(script, kZaterdag, tabel).ok());
  EXPECT_EQ(tabel.Count(), 31);
  EXPECT_EQ(tabel.Line(8), "Titel=  [Zomer] = = [Instellingen]");
  EXPECT_EQ(tabel.Line(11), "Beschrijving=a<br>b<br>c<br>d<br>e");
  EXPECT_EQ(tabel.Line(12), "Thumbnails=0");
  EXPECT_EQ(tabel.Line(16), "Bijschrift=Eb en vloed");
  EXPECT_EQ(tabel.Line(19), "AantalFotosPerPagina=geen getal");
}

TEST(ScriptSchrijvenTest, PhotoSectionsHaveAtLeastThreeDigits) {
  LineTable tabel(4000);
  ASSERT_TRUE(ScriptSchrijven(MetFotos(1000), kZaterdag, tabel).ok());
  EXPECT_EQ(tabel.Line(14), "[Foto001]");
  EXPECT_EQ(tabel.Line(14 + 98 * 3), "[Foto099]");
  EXPECT_EQ(tabel.Line(14 + 999 * 3), "[Foto1000]");
  EXPECT_EQ(tabel.Line(15 + 999 * 3), "Foto=foto_1000.jpg");
  EXPECT_EQ(LeesWaarde(tabel, "Algemeen", "AantalFotos", ""), "1000");
}

// 28 fixed lines and three per photo: 300 photos (the program's limit) fit,
// 332 fill the table exactly, and 333 cannot be written.
TEST(ScriptSchrijvenTest, TheScriptTableHoldsAtMost332Photos) {
  LineTable tabel(capaciteit::kScript);
  ASSERT_TRUE(ScriptSchrijven(MetFotos(300), kZaterdag, tabel).ok());
  EXPECT_EQ(tabel.Count(), 928);
  ASSERT_TRUE(ScriptSchrijven(MetFotos(332), kZaterdag, tabel).ok());
  EXPECT_EQ(tabel.Line(capaciteit::kScript), "KleurKader=13421772");
  const Status status = ScriptSchrijven(MetFotos(333), kZaterdag, tabel);
  EXPECT_EQ(status.number(), 9);
  EXPECT_EQ(status.description(), "Subscript out of range");
  EXPECT_EQ(tabel.CountSlot(), "1024");
}

// Round trip: a gallery written and read back is the same gallery, up to
// what the file cannot hold: blanks at either end of a value, and the case
// of photo names, which are written in lower case.

constexpr const char* kUitvoer = "/foto's/Zomer [2026] = mooi";
// The format's own marks, blanks, tabs, accents and characters beyond Latin-1.
constexpr std::array<const char*, 30> kTekens = {"a", "Z", "k", "0", "9", " ", " ", "=", "[", "]",
                                                 "<", ">", "#", "%", ":", "*", "\t", "'", "\"", "\\",
                                                 "é", "ë", "ï", "ç", "É", "ß", "€", "–", "日", "😀"};
const std::vector<std::string> kSjablonen = {"Donker", "Klassiek", "Raster", "Zee & Zon"};

class Willekeur {
 public:
  explicit Willekeur(unsigned seed) : gen_(seed) {}
  int Getal(int laagste, int hoogste) { return std::uniform_int_distribution<int>(laagste, hoogste)(gen_); }
  bool Kans(int procent) { return Getal(1, 100) <= procent; }
  std::string Tekst(int max_lengte, bool met_schuine_streep = true) {
    std::string tekst;
    for (int lengte = Getal(0, max_lengte); lengte > 0; --lengte) tekst += kTekens[Getal(0, kTekens.size() - 1)];
    return met_schuine_streep && Kans(10) ? tekst + "/" : tekst;
  }
  template <typename Int>
  Int Grens() { return Kans(50) ? std::numeric_limits<Int>::min() : std::numeric_limits<Int>::max(); }

 private:
  std::mt19937 gen_;
};

GalleryScript WillekeurigeGalerij(Willekeur& w, std::size_t aantal_fotos) {
  GalleryScript script;
  for (std::string* tekst : {&script.invoer_dir, &script.titel, &script.subtitel, &script.datum}) *tekst = w.Tekst(30);
  script.uitvoer_dir = kUitvoer;
  // Up to four lines, without a "<br>" of its own (that one reads back as a
  // line break).
  do {
    script.beschrijving = w.Tekst(20);
    for (int regels = w.Getal(0, 3); regels > 0; --regels) script.beschrijving += "\r\n" + w.Tekst(20);
  } while (script.beschrijving.find("<br>") != std::string::npos);
  script.thumbnails = w.Kans(50);
  for (std::size_t i = 0; i < aantal_fotos; ++i) {
    // As the window lists it: at least six characters, no blanks at the ends,
    // ".jpg" in any case.
    const std::string naam = TrimSpaces(w.Tekst(12, false)) + "xy" + (w.Kans(30) ? ".JPG" : ".jpg");
    script.fotos.push_back({naam, w.Tekst(40)});
  }
  script.sjabloon = kSjablonen[w.Getal(0, 3)];
  script.aantal_fotos_per_pagina = w.Kans(70) ? std::to_string(w.Getal(1, 99)) : w.Tekst(5);
  for (const KeuzeVeld& veld : kKeuzeVelden) {
    script.*veld.index = w.Kans(5) ? w.Grens<std::int16_t>()
                                   : static_cast<std::int16_t>(w.Getal(-1, static_cast<int>(veld.keuzes.size()) - 1));
  }
  for (const KleurVeld& veld : kKleurVelden) {
    script.*veld.kleur = w.Kans(10) ? w.Grens<std::int32_t>() : w.Getal(0, 16777215);
  }
  return script;
}

GalleryScript AlsOpgeslagen(GalleryScript script) {
  for (std::string* tekst : {&script.invoer_dir, &script.uitvoer_dir, &script.titel, &script.subtitel, &script.datum,
                             &script.beschrijving, &script.aantal_fotos_per_pagina}) {
    *tekst = TrimSpaces(*tekst);
  }
  for (PhotoEntry& foto : script.fotos) foto = {Lower(foto.foto), TrimSpaces(foto.bijschrift)};
  return script;
}

class RondgangTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ResetWildcardCursor();
    omgeving_.sjablonen = kSjablonen;
  }

  // Writes `script` to a file with its photos present in the output
  // directory (and one more, so that a gallery of no photos still finds
  // photos there) and reads the first `capaciteit` lines of it back.
  ScriptGelezen Rondgang(const GalleryScript& script, int capaciteit) {
    FotoMappen fs;
    ScopedFileSystem scoped(fs);
    fs.Map(kUitvoer, {"buiten_de_galerij.jpg"});
    for (const PhotoEntry& foto : script.fotos) fs.Map(kUitvoer, {Lower(foto.foto)});
    LineTable tabel(static_cast<int>(RegelsVoorScript(script.fotos.size())));
    EXPECT_TRUE(ScriptSchrijven(script, kZaterdag, tabel).ok());
    EXPECT_TRUE(SchrijfRegels(dir_ / "galerij.kbs", tabel).ok());
    LineTable gelezen(capaciteit);
    EXPECT_TRUE(LeesRegels(dir_ / "galerij.kbs", gelezen, false).ok());
    VensterMappen mappen;
    return ScriptLezen(gelezen, omgeving_, mappen);
  }

  TempDir dir_;
  LeesOmgeving omgeving_ = StandaardOmgeving();
};

TEST_F(RondgangTest, RandomGalleriesComeBackUnchanged) {
  for (unsigned seed = 1; seed <= 204; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Willekeur w(seed);
    // The last seeds take 0, 1, 300 and 1000 photos.
    const std::size_t aantal = seed <= 200 ? w.Getal(0, 40) : std::array<std::size_t, 4>{0, 1, 300, 1000}[seed - 201];
    const GalleryScript script = WillekeurigeGalerij(w, aantal);
    const ScriptGelezen gelezen = Rondgang(script, static_cast<int>(RegelsVoorScript(aantal)));
    EXPECT_EQ(gelezen.script, AlsOpgeslagen(script));
    EXPECT_TRUE(gelezen.meldingen.empty());
    EXPECT_FALSE(gelezen.ouder_formaat);
    if (HasFailure()) return;
  }
}

// A file longer than the script's table (1024 lines) is read up to its
// 1024th line: after 13 lines of "[Kiekbord]" and "[Algemeen]", 1011 lines
// hold 337 photos; the rest, "[Instellingen]" included, reads as missing.
TEST_F(RondgangTest, AScriptFileLongerThanTheTableIsReadUpToItsCapacity) {
  Willekeur w(99);
  GalleryScript script = WillekeurigeGalerij(w, 1000);
  const ScriptGelezen gelezen = Rondgang(script, capaciteit::kScript);
  const GalleryScript verwacht = AlsOpgeslagen(script);
  ASSERT_EQ(gelezen.script.fotos.size(), 337u);
  EXPECT_EQ(gelezen.script.fotos.back(), verwacht.fotos[336]);
  EXPECT_EQ(gelezen.script.titel, verwacht.titel);
  EXPECT_EQ(gelezen.script.sjabloon, omgeving_.huidig_sjabloon);
  EXPECT_EQ(gelezen.script.lettergrootte_bijschriften, 2);
  EXPECT_EQ(gelezen.script.kleur_kader, 13421772);
  EXPECT_TRUE(gelezen.meldingen.empty());
}

}  // namespace
}  // namespace kiekbord::test
