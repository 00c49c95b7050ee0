// The script reader and writer: the window's directory checks, golden files
// for writing and for older scripts, and random round trips. What a script
// loads and what the user is told is checked through kiekbord-maak
// --controleer (tests/data/controleer).
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <map>
#include <random>
#include <set>
#include <tuple>

#include "base/file_system.h"
#include "base/keyed_text_file.h"
#include "base/text.h"
#include "gallery/script_reader.h"
#include "gallery/script_writer.h"
#include "tests/support/test_support.h"

namespace kiekbord::test {
namespace {

using namespace std::chrono_literals;
using Lines = std::vector<std::string>;
constexpr std::chrono::year_month_day kZaterdag{2026y, std::chrono::November, 21d};

// Directories and their files in memory; no other directory exists. Whole
// files are read and written on the real disk.
class FotoMappen : public ForwardingFileSystem {
 public:
  FotoMappen() : ForwardingFileSystem(LocalFileSystem()) {}

  // Makes `directory` exist, holding `namen` (and what it held already).
  void Map(const std::string& directory, const std::vector<std::string>& namen = {}) {
    mappen_[WithTrailingSlash(directory)].insert(namen.begin(), namen.end());
  }
  bool FileExists(const std::string& path) override {
    const auto map = mappen_.find(DirectoryOf(path));
    return map != mappen_.end() && map->second.contains(FileNameOf(path));
  }
  Status ListFiles(const std::string& directory, const std::string& pattern,
                   std::vector<std::string>& names) override {
    const auto map = mappen_.find(WithTrailingSlash(directory));
    names.clear();
    if (map == mappen_.end()) return Status::Error(fout::kPathNotFound);
    std::copy_if(map->second.begin(), map->second.end(), std::back_inserter(names),
                 [&](const std::string& naam) { return MatchesPattern(naam, pattern); });
    return Status::Ok();
  }

 private:
  std::map<std::string, std::set<std::string>> mappen_;
};

// The window's directory checks, recorded; the output directory is valid when
// the test says so.
class VensterMappen : public MapControle {
 public:
  explicit VensterMappen(bool uitvoer_geldig = true) : uitvoer_geldig_(uitvoer_geldig) {}
  void ControleerInvoerDir(const std::string& directory) override { oproepen.push_back("invoer " + directory); }
  bool ControleerUitvoerDir(const std::string& directory) override {
    oproepen.push_back("uitvoer " + directory);
    return uitvoer_geldig_;
  }
  void HercontroleerInvoerDir() override { oproepen.push_back("invoer opnieuw"); }

  std::vector<std::string> oproepen;

 private:
  bool uitvoer_geldig_;
};

// The template sets and home directory most tests read with.
inline LeesOmgeving StandaardOmgeving() {
  LeesOmgeving omgeving;
  omgeving.standaard_dir = "/home/els/";
  omgeving.sjablonen = {"Donker", "Klassiek", "Raster"};
  omgeving.sjablonen_dir = "/usr/share/kiekbord/Sjabloon/";
  omgeving.huidig_sjabloon = "Raster";
  return omgeving;
}

class ScriptLezenTest : public ::testing::Test {
 protected:
  void SetUp() override { ResetWildcardCursor(); }
  FotoMappen fs_;
  ScopedFileSystem scoped_{fs_};
  VensterMappen mappen_;
};

// Both directories are checked, and the input directory once more when the
// output directory is valid but holds no photos. A script that names no
// template set keeps the current one.
TEST_F(ScriptLezenTest, TheWindowChecksBothDirectoriesAndTheInputOnceMoreWithoutPhotos) {
  const std::tuple<const char*, bool, Lines> gevallen[] = {  // script, output directory valid, checks
      {"[Algemeen]\r\nInvoerDir=/foto/invoer\r\nUitvoerDir=/foto/zomer\r\n", true,
       {"invoer /foto/invoer", "uitvoer /foto/zomer"}},
      {"[Algemeen]\r\nUitvoerDir=/foto/leeg\r\n", true, {"invoer /home/els/", "uitvoer /foto/leeg", "invoer opnieuw"}},
      {"[Algemeen]\r\nUitvoerDir=/foto/leeg\r\n", false, {"invoer /home/els/", "uitvoer /foto/leeg"}},
  };
  fs_.Map("/foto/zomer", {"strand.jpg"});
  fs_.Map("/foto/leeg");
  for (const auto& [script, uitvoer_geldig, oproepen] : gevallen) {
    VensterMappen mappen(uitvoer_geldig);
    LineTable tabel(capaciteit::kScript);
    LeesRegelsUitTekst(script, tabel, false);
    EXPECT_EQ(ScriptLezen(tabel, StandaardOmgeving(), mappen).script.sjabloon, "Raster");  // named none: kept
    EXPECT_EQ(mappen.oproepen, oproepen) << script;
  }
}

// The wildcard cursor is shared: an enumeration left part-way must not make
// the reader skip photos.
TEST_F(ScriptLezenTest, AnEnumerationLeftPartWayDoesNotMakeTheReaderSkipPhotos) {
  fs_.Map("/foto/zomer", {"img_0001.jpg", "img_0002.jpg"});
  LineTable tabel(capaciteit::kScript);
  LeesRegelsUitTekst("[Algemeen]\r\nUitvoerDir=/foto/zomer\r\n[Fotobijschriften]\r\nFoto:img_0001.jpg=Een\r\n"
                     "Foto:img_0002.jpg=Twee\r\n", tabel, false);
  LeesWaarde(tabel, "Fotobijschriften", "Foto:*", "");
  EXPECT_EQ(ScriptLezen(tabel, StandaardOmgeving(), mappen_).script.fotos.size(), 2u);
}

// Older scripts as made on Windows (Windows-1252, CR LF, "KleurTekst", hand
// edits) read as the gallery that, saved again, gives the golden file; the
// table it is written into is rebuilt from nothing.
TEST_F(ScriptLezenTest, OlderScriptFilesFromWindowsAreSavedInTheCurrentForm) {
  fs_.Map("D:\\Kiekbord\\Provence 2003",
          {"IMG_0012.JPG", "img_0013.jpg", "img_0014.jpg", "img_0015.jpg", "dsc00231.jpg"});
  fs_.Map("C:\\Foto's\\Sinterklaas\\Kiekbord", {"pakjes01.jpg", "pakjes02.JPG", "pakjes03.jpg", "pakjes05.jpg"});
  TempDir dir;
  for (const std::string naam : {"provence", "sinterklaas"}) {
    const std::string map = TestDataDir() + "script_ouder/";
    LineTable tabel(capaciteit::kScript);
    ASSERT_TRUE(LeesRegels(map + naam + ".kbs", tabel, false).ok());
    const ScriptGelezen gelezen = ScriptLezen(tabel, StandaardOmgeving(), mappen_);
    EXPECT_EQ(gelezen.meldingen.size(), 1u);  // a photo gone, a template set gone
    ASSERT_TRUE(ScriptSchrijven(gelezen.script, kZaterdag, tabel).ok());
    ASSERT_TRUE(SchrijfRegels(dir / naam, tabel).ok());
    EXPECT_EQ(ReadBytes(dir / naam), ReadBytes(map + naam + "_opgeslagen.kbs")) << naam;
  }
}

TEST(ScriptSchrijvenTest, WritesTheWholeScriptInItsFixedOrderEachValueOnOneLine) {
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

  script.titel = "  [Zomer] = =\r\n[Instellingen]";
  script.beschrijving = "a\r\nb\nc\rd";
  script.fotos = {{"strand.jpg", "Eb\nen vloed"}};
  ASSERT_TRUE(ScriptSchrijven(script, kZaterdag, tabel).ok());
  EXPECT_EQ(tabel.Line(8) + "|" + tabel.Line(11) + "|" + tabel.Line(16),
            "Titel=  [Zomer] = = [Instellingen]|Beschrijving=a<br>b<br>c<br>d|Bijschrift=Eb en vloed");
}

GalleryScript MetFotos(std::size_t aantal) {
  GalleryScript script;
  for (std::size_t i = 1; i <= aantal; ++i) script.fotos.push_back({"foto_" + std::to_string(i) + ".jpg", ""});
  return script;
}

// 28 fixed lines and three per photo: 332 photos fill the table exactly.
TEST(ScriptSchrijvenTest, TheScriptTableHoldsAtMost332Photos) {
  LineTable tabel(capaciteit::kScript);
  ASSERT_TRUE(ScriptSchrijven(MetFotos(332), kZaterdag, tabel).ok());
  EXPECT_EQ(tabel.Line(capaciteit::kScript), "KleurKader=13421772");
  const Status status = ScriptSchrijven(MetFotos(333), kZaterdag, tabel);
  EXPECT_EQ(std::to_string(status.number()) + " " + status.description(), "9 Subscript out of range");
  LineTable groot(4000);  // sections have at least three digits
  ASSERT_TRUE(ScriptSchrijven(MetFotos(1000), kZaterdag, groot).ok());
  EXPECT_EQ(groot.Line(14 + 999 * 3), "[Foto1000]");
}

// A random gallery written and read back is the same gallery, up to what the
// file cannot hold: blanks at either end of a value, and the case of photo
// names, which are written in lower case.
TEST(RondgangTest, RandomGalleriesComeBackUnchanged) {
  const std::string kTekens[] = {"a", "Z", "0", " ", "=", "[", "]", "<", ">", "#", "%", ":", "*", "\t", "'", "\"",
                                 "\\", "é", "ß", "€", "–", "日", "😀"};
  const std::string kUitvoer = "/foto's/Zomer [2026] = mooi";
  TempDir dir;
  for (unsigned seed = 1; seed <= 120 && !::testing::Test::HasFailure(); ++seed) {
    std::mt19937 gen(seed);
    const auto getal = [&gen](int laagste, int hoogste) { return std::uniform_int_distribution(laagste, hoogste)(gen); };
    const auto tekst = [&](int max) {
      std::string t;
      for (int n = getal(0, max); n > 0; --n) t += kTekens[getal(0, std::size(kTekens) - 1)];
      return t;
    };
    GalleryScript script;
    for (std::string* t : {&script.invoer_dir, &script.titel, &script.subtitel, &script.datum}) *t = tekst(30);
    script.uitvoer_dir = kUitvoer;
    do script.beschrijving = tekst(20) + (getal(0, 1) ? "\r\n" + tekst(20) : "");
    while (script.beschrijving.find("<br>") != std::string::npos);  // would read back as a line break
    script.thumbnails = getal(0, 1);
    const int aantal = seed == 120 ? 300 : getal(0, 20);
    for (int i = 0; i < aantal; ++i) script.fotos.push_back({TrimSpaces(tekst(12)) + (getal(0, 1) ? "xy.JPG" : "xy.jpg"), tekst(40)});
    script.sjabloon = getal(0, 1) ? "Klassiek" : "Donker";
    script.aantal_fotos_per_pagina = tekst(5);
    for (const KeuzeVeld& veld : kKeuzeVelden) script.*veld.index = static_cast<std::int16_t>(getal(-32768, 32767));
    for (const KleurVeld& veld : kKleurVelden) script.*veld.kleur = getal(-1, 16777215);

    FotoMappen fs;
    ScopedFileSystem scoped(fs);
    fs.Map(kUitvoer, {"buiten_de_galerij.jpg"});
    for (const PhotoEntry& foto : script.fotos) fs.Map(kUitvoer, {Lower(foto.foto)});
    LineTable tabel(static_cast<int>(RegelsVoorScript(script.fotos.size())));
    ASSERT_TRUE(ScriptSchrijven(script, kZaterdag, tabel).ok());
    ASSERT_TRUE(SchrijfRegels(dir / "galerij.kbs", tabel).ok());
    LineTable gelezen(tabel.Count());
    ASSERT_TRUE(LeesRegels(dir / "galerij.kbs", gelezen, false).ok());
    VensterMappen mappen;
    const ScriptGelezen terug = ScriptLezen(gelezen, StandaardOmgeving(), mappen);
    for (std::string* t : {&script.invoer_dir, &script.uitvoer_dir, &script.titel, &script.subtitel, &script.datum,
                           &script.beschrijving, &script.aantal_fotos_per_pagina}) *t = TrimSpaces(*t);
    for (PhotoEntry& foto : script.fotos) foto = {Lower(foto.foto), TrimSpaces(foto.bijschrift)};
    EXPECT_EQ(terug.script, script) << "seed " << seed;
    EXPECT_TRUE(terug.meldingen.empty()) << "seed " << seed;
  }
}

}  // namespace
}  // namespace kiekbord::test
