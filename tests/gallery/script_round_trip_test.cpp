// Round trip: any gallery written by ScriptSchrijven and read back by
// ScriptLezen is the same gallery, up to what the file format cannot hold
// (blanks at either end of a value, and the case of photo names, which are
// written in lower case).

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "gallery/keyed_text_file.h"
#include "gallery/script_reader.h"
#include "gallery/script_writer.h"
#include "gallery/text.h"
#include "tests/gallery/script_fakes.h"
#include "tests/support/test_support.h"

namespace kiekbord::test {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::year_month_day kDatum{2026y, std::chrono::November, 21d};
constexpr const char* kUitvoer = "/foto's/Zomer [2026] = mooi";

// Characters the texts are made of: the format's own marks, blanks, tabs,
// accents, and characters beyond Latin-1.
constexpr std::array<const char*, 30> kTekens = {
    "a", "Z", "k", "0", "9", " ", " ", "=", "[", "]", "<", ">", "#", "%", ":", "*", "\t", "'", "\"", "\\",
    "é", "ë", "ï", "ç", "É", "ß", "€", "–", "日", "😀"};
constexpr std::array<const char*, 4> kSjablonen = {"Donker", "Klassiek", "Raster", "Zee & Zon"};

class Willekeur {
 public:
  explicit Willekeur(unsigned seed) : gen_(seed) {}

  int Getal(int laagste, int hoogste) { return std::uniform_int_distribution<int>(laagste, hoogste)(gen_); }
  bool Kans(int procent) { return Getal(1, 100) <= procent; }

  std::string Tekst(int max_lengte, bool met_schuine_streep = true) {
    std::string tekst;
    const int lengte = Getal(0, max_lengte);
    while (static_cast<int>(CharCount(tekst)) < lengte) {
      const std::string teken = kTekens[static_cast<std::size_t>(Getal(0, kTekens.size() - 1))];
      tekst += teken;
    }
    if (met_schuine_streep && Kans(10)) tekst += "/";
    return tekst;
  }

  // A description of up to four lines, without a "<br>" of its own (that one
  // reads back as a line break, which the reader tests cover).
  std::string Beschrijving() {
    std::string tekst = Tekst(20);
    for (int regels = Getal(0, 3); regels > 0; --regels) tekst += "\r\n" + Tekst(20);
    return tekst.find("<br>") == std::string::npos ? tekst : Beschrijving();
  }

  // A photo name as the window lists it: a file name ending in ".jpg" in any
  // case, without blanks at the ends.
  std::string Fotonaam() {
    std::string naam = TrimSpaces(Tekst(12, false));
    if (CharCount(naam) < 2) naam += "xy";  // with ".jpg" at least six characters
    return naam + (Kans(30) ? ".JPG" : ".jpg");
  }

  std::int16_t Index(std::size_t aantal_keuzes) {
    if (Kans(5)) return Kans(50) ? std::numeric_limits<std::int16_t>::min() : std::numeric_limits<std::int16_t>::max();
    return static_cast<std::int16_t>(Getal(-1, static_cast<int>(aantal_keuzes) - 1));
  }

  std::int32_t Kleur() {
    switch (Getal(0, 5)) {
      case 0: return 0;
      case 1: return 16777215;
      case 2: return Kans(50) ? std::numeric_limits<std::int32_t>::min() : std::numeric_limits<std::int32_t>::max();
      default: return Getal(0, 16777215);
    }
  }

 private:
  std::mt19937 gen_;
};

GalleryScript WillekeurigeGalerij(Willekeur& w, std::size_t aantal_fotos) {
  GalleryScript script;
  script.invoer_dir = w.Tekst(30);
  script.uitvoer_dir = kUitvoer;
  script.titel = w.Tekst(40);
  script.subtitel = w.Tekst(40);
  script.datum = w.Tekst(20);
  script.beschrijving = w.Beschrijving();
  script.thumbnails = w.Kans(50);
  for (std::size_t i = 0; i < aantal_fotos; ++i) script.fotos.push_back({w.Fotonaam(), w.Tekst(40)});
  script.sjabloon = kSjablonen[static_cast<std::size_t>(w.Getal(0, kSjablonen.size() - 1))];
  script.aantal_fotos_per_pagina = w.Kans(70) ? std::to_string(w.Getal(1, 99)) : w.Tekst(5);
  for (const KeuzeVeld& veld : kKeuzeVelden) script.*veld.index = w.Index(veld.keuzes.size());
  for (const KleurVeld& veld : kKleurVelden) script.*veld.kleur = w.Kleur();
  return script;
}

// What the file can hold of `script`: blanks at the ends of a value are lost
// (lines are trimmed on reading, and so are blanks after "="), and photo
// names are written in lower case.
GalleryScript AlsOpgeslagen(GalleryScript script) {
  for (std::string* tekst : {&script.invoer_dir, &script.uitvoer_dir, &script.titel, &script.subtitel,
                             &script.datum, &script.beschrijving, &script.aantal_fotos_per_pagina}) {
    *tekst = TrimSpaces(*tekst);
  }
  for (PhotoEntry& foto : script.fotos) {
    foto.foto = Lower(foto.foto);
    foto.bijschrift = TrimSpaces(foto.bijschrift);
  }
  return script;
}

class RondgangTest : public ::testing::Test {
 protected:
  void SetUp() override {
    ResetWildcardCursor();
    omgeving_ = StandaardOmgeving();
    omgeving_.sjablonen.assign(kSjablonen.begin(), kSjablonen.end());
  }

  // The output directory holds the photos of `script` and one more, so that
  // a gallery of 0 photos still has an output directory with photos.
  void ZetFotosKlaar(const GalleryScript& script) {
    fs_.Leeg(kUitvoer);
    fs_.Map(kUitvoer, {"buiten_de_galerij.jpg"});
    for (const PhotoEntry& foto : script.fotos) fs_.Map(kUitvoer, {Lower(foto.foto)});
  }

  // Writes `script` into `tabel`, with its photos present in the output
  // directory, and reads back the file text that table makes.
  ScriptGelezen Rondgang(const GalleryScript& script, LineTable& tabel) {
    ZetFotosKlaar(script);
    EXPECT_TRUE(ScriptSchrijven(script, kDatum, tabel).ok());
    std::string bestand;
    for (int i = 1; i <= tabel.Count(); ++i) bestand += tabel.Line(i) + "\r\n";
    LineTable gelezen(tabel.capacity());
    LeesRegelsUitTekst(bestand, gelezen, false);
    VensterMappen mappen;
    return ScriptLezen(gelezen, omgeving_, mappen);
  }

  void ControleerRondgang(const GalleryScript& script) {
    LineTable tabel(static_cast<int>(RegelsVoorScript(script.fotos.size())));
    const ScriptGelezen gelezen = Rondgang(script, tabel);
    EXPECT_EQ(gelezen.script, AlsOpgeslagen(script));
    EXPECT_TRUE(gelezen.meldingen.empty());
    EXPECT_FALSE(gelezen.ouder_formaat);

    // Once stored, a gallery stays as it is: writing what was read gives
    // the lines of the stored gallery.
    LineTable opnieuw(tabel.capacity());
    LineTable opgeslagen(tabel.capacity());
    ASSERT_TRUE(ScriptSchrijven(gelezen.script, kDatum, opnieuw).ok());
    ASSERT_TRUE(ScriptSchrijven(AlsOpgeslagen(script), kDatum, opgeslagen).ok());
    ASSERT_EQ(opnieuw.Count(), opgeslagen.Count());
    for (int i = 1; i <= opnieuw.Count(); ++i) ASSERT_EQ(opnieuw.Line(i), opgeslagen.Line(i)) << "regel " << i;
  }

  FotoMappen fs_;
  ScopedFileSystem scoped_{fs_};
  LeesOmgeving omgeving_;
};

TEST_F(RondgangTest, RandomGalleriesOfUpTo40PhotosComeBackUnchanged) {
  for (unsigned seed = 1; seed <= 200; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Willekeur w(seed);
    const int aantal = w.Getal(0, 40);
    ControleerRondgang(WillekeurigeGalerij(w, static_cast<std::size_t>(aantal)));
    if (HasFatalFailure() || HasNonfatalFailure()) return;
  }
}

TEST_F(RondgangTest, GalleriesOf0And1And300And1000PhotosComeBackUnchanged) {
  for (const std::size_t aantal : {0u, 1u, 300u, 1000u}) {
    SCOPED_TRACE(std::to_string(aantal) + " foto's");
    Willekeur w(static_cast<unsigned>(aantal) + 7);
    ControleerRondgang(WillekeurigeGalerij(w, aantal));
  }
}

TEST_F(RondgangTest, AGalleryWithoutBlanksAtTheEndsComesBackExactly) {
  GalleryScript script;
  script.invoer_dir = "/home/els/Foto's";
  script.uitvoer_dir = kUitvoer;
  script.titel = "Titel = [met] haken & \"aanhalingstekens\"";
  script.beschrijving = "Regel één\r\n\r\n  ingesprongen regel\r\nlaatste";
  script.fotos = {{"een.jpg", "="}, {"twee.jpg", "[Instellingen]"}, {"drie.jpg", ""}};
  script.sjabloon = "Zee & Zon";
  LineTable tabel(capaciteit::kScript);
  EXPECT_EQ(Rondgang(script, tabel).script, script);
}

TEST_F(RondgangTest, ThroughAFileOnDiskTheGalleryComesBackUnchanged) {
  TempDir dir;
  for (unsigned seed = 1; seed <= 20; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    Willekeur w(seed * 101);
    const GalleryScript script = WillekeurigeGalerij(w, static_cast<std::size_t>(w.Getal(0, 30)));
    ZetFotosKlaar(script);

    LineTable geschreven(capaciteit::kScript);
    ASSERT_TRUE(ScriptSchrijven(script, kDatum, geschreven).ok());
    ASSERT_TRUE(SchrijfRegels(dir / "galerij.kbs", geschreven).ok());
    LineTable gelezen_tabel(capaciteit::kScript);
    ASSERT_TRUE(LeesRegels(dir / "galerij.kbs", gelezen_tabel, false).ok());
    VensterMappen mappen;
    EXPECT_EQ(ScriptLezen(gelezen_tabel, omgeving_, mappen).script, AlsOpgeslagen(script));
  }
}

// A script file longer than the script's table (1024 lines) is read only up
// to its 1024th line: the photo sections that fit are read, and everything
// after (the rest of the photos and "[Instellingen]") reads as missing.
TEST_F(RondgangTest, AScriptFileLongerThanTheTableIsReadUpToItsCapacity) {
  TempDir dir;
  Willekeur w(99);
  GalleryScript script = WillekeurigeGalerij(w, 1000);
  script.sjabloon = "Klassiek";
  LineTable groot(static_cast<int>(RegelsVoorScript(1000)));
  ZetFotosKlaar(script);
  ASSERT_TRUE(ScriptSchrijven(script, kDatum, groot).ok());
  ASSERT_TRUE(SchrijfRegels(dir / "groot.kbs", groot).ok());

  LineTable tabel(capaciteit::kScript);
  ASSERT_TRUE(LeesRegels(dir / "groot.kbs", tabel, false).ok());
  VensterMappen mappen;
  const ScriptGelezen gelezen = ScriptLezen(tabel, omgeving_, mappen);

  // 13 lines of "[Kiekbord]" and "[Algemeen]", then 1011 lines: 337 photos.
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
