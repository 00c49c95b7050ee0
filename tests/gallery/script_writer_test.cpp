#include "gallery/script_writer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

#include "gallery/keyed_text_file.h"
#include "gallery/script_reader.h"
#include "tests/gallery/script_fakes.h"
#include "tests/support/test_support.h"

namespace kiekbord::test {
namespace {

using namespace std::chrono_literals;

constexpr std::chrono::year_month_day kZaterdag{2026y, std::chrono::November, 21d};

// The gallery of the golden file "script_schrijven/texel.kbs".
GalleryScript Texel() {
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
  script.presentatie = 1;
  script.positie_fotos = 1;
  script.positie_bijschriften = 2;
  script.fotos_zonder_bijschrift = 1;
  script.lettertype_titels = 6;
  script.lettertype_bijschriften = -1;
  script.lettergrootte_bijschriften = 2;
  script.letterstijl_bijschriften = 3;
  script.kleur_tekst_op_achtergrond = 0;
  script.kleur_achtergrond = 16777215;
  script.kleur_tekst_in_kader = 255;
  script.kleur_kader = 13421772;
  return script;
}

std::vector<std::string> Regels(const LineTable& tabel) {
  std::vector<std::string> regels;
  for (int i = 1; i <= tabel.Count(); ++i) regels.push_back(tabel.Line(i));
  return regels;
}

std::vector<std::string> Schrijf(const GalleryScript& script, int capaciteit = capaciteit::kScript) {
  LineTable tabel(capaciteit);
  EXPECT_TRUE(ScriptSchrijven(script, kZaterdag, tabel).ok());
  return Regels(tabel);
}

bool Bevat(const std::vector<std::string>& regels, const std::string& regel) {
  return std::find(regels.begin(), regels.end(), regel) != regels.end();
}

GalleryScript MetFotos(std::size_t aantal) {
  GalleryScript script;
  for (std::size_t i = 1; i <= aantal; ++i) script.fotos.push_back({"foto_" + std::to_string(i) + ".jpg", ""});
  return script;
}

TEST(ScriptSchrijvenTest, WritesTheWholeScriptInItsFixedOrder) {
  TempDir dir;
  LineTable tabel(capaciteit::kScript);
  ASSERT_TRUE(ScriptSchrijven(Texel(), kZaterdag, tabel).ok());
  ASSERT_TRUE(SchrijfRegels(dir / "texel.kbs", tabel).ok());
  EXPECT_EQ(ReadBytes(dir / "texel.kbs"), ReadBytes(TestDataDir() + "script_schrijven/texel.kbs"));
}

TEST(ScriptSchrijvenTest, TheGoldenScriptReadsBackAsTheGallery) {
  FotoMappen fs;
  ScopedFileSystem scoped(fs);
  fs.Map("/home/els/Kiekbord/Texel 2026", {"img_0001.jpg", "strand_01.jpg", "été.jpg"});
  LineTable tabel(capaciteit::kScript);
  ASSERT_TRUE(LeesRegels(TestDataDir() + "script_schrijven/texel.kbs", tabel, false).ok());
  VensterMappen mappen;
  const ScriptGelezen gelezen = ScriptLezen(tabel, StandaardOmgeving(), mappen);

  GalleryScript verwacht = Texel();
  verwacht.fotos[0].foto = "img_0001.jpg";
  verwacht.fotos[2].foto = "été.jpg";
  EXPECT_EQ(gelezen.script, verwacht);
  EXPECT_FALSE(gelezen.ouder_formaat);
  EXPECT_TRUE(gelezen.meldingen.empty());
}

TEST(ScriptSchrijvenTest, NothingOfTheTableBeforeSurvives) {
  LineTable tabel(capaciteit::kScript);
  LeesRegelsUitTekst("[Oud]\r\nSleutel=waarde\r\n[Instellingen]\r\nKleurTekst=255\r\n", tabel, false);
  ASSERT_TRUE(ScriptSchrijven(GalleryScript{}, kZaterdag, tabel).ok());
  EXPECT_EQ(LeesWaarde(tabel, "Oud", "Sleutel", "weg"), "weg");
  EXPECT_EQ(LeesWaarde(tabel, "Instellingen", "KleurTekst", "weg"), "weg");
  EXPECT_EQ(tabel.Count(), 28);
}

TEST(ScriptSchrijvenTest, ZeroPhotosWritesACountOfZeroAndNoPhotoSection) {
  const std::vector<std::string> regels = Schrijf(GalleryScript{});
  EXPECT_TRUE(Bevat(regels, "AantalFotos=0"));
  for (const std::string& regel : regels) EXPECT_NE(regel.substr(0, 5), "[Foto") << regel;
}

TEST(ScriptSchrijvenTest, PhotoNamesAreWrittenInLowerCase) {
  GalleryScript script;
  script.fotos = {{"IMG_0001.JPG", ""}, {"ÉTÉ_ÀÖ.Jpg", ""}};
  const std::vector<std::string> regels = Schrijf(script);
  EXPECT_TRUE(Bevat(regels, "Foto=img_0001.jpg"));
  EXPECT_TRUE(Bevat(regels, "Foto=été_àö.jpg"));
}

TEST(ScriptSchrijvenTest, PhotoSectionsHaveAtLeastThreeDigits) {
  const std::vector<std::string> regels = Schrijf(MetFotos(1000), 4000);
  EXPECT_EQ(regels[13], "[Foto001]");
  EXPECT_TRUE(Bevat(regels, "[Foto042]"));
  EXPECT_TRUE(Bevat(regels, "[Foto100]"));
  EXPECT_TRUE(Bevat(regels, "[Foto999]"));
  EXPECT_EQ(regels[13 + 999 * 3], "[Foto1000]");
  EXPECT_EQ(regels[13 + 999 * 3 + 1], "Foto=foto_1000.jpg");
  EXPECT_TRUE(Bevat(regels, "AantalFotos=1000"));
}

TEST(ScriptSchrijvenTest, DescriptionLineBreaksOfEveryKindBecomeBr) {
  GalleryScript script;
  script.beschrijving = "a\r\nb\nc\rd<br>e";
  EXPECT_TRUE(Bevat(Schrijf(script), "Beschrijving=a<br>b<br>c<br>d<br>e"));
}

TEST(ScriptSchrijvenTest, ALineBreakInAOneLineFieldCannotSplitTheScript) {
  GalleryScript script;
  script.titel = "Zomer\r\n[Instellingen]";
  script.fotos = {{"strand.jpg", "Eb\nen vloed"}};
  const std::vector<std::string> regels = Schrijf(script);
  EXPECT_TRUE(Bevat(regels, "Titel=Zomer [Instellingen]"));
  EXPECT_TRUE(Bevat(regels, "Bijschrift=Eb en vloed"));
  EXPECT_EQ(regels.size(), 31u);
}

TEST(ScriptSchrijvenTest, ValuesAreWrittenAsTheyStand) {
  GalleryScript script;
  script.titel = "  [Zomer] = =";
  script.fotos = {{"strand.jpg", "="}};
  script.aantal_fotos_per_pagina = "geen getal";
  script.presentatie = -1;
  script.kleur_kader = 16777215;
  const std::vector<std::string> regels = Schrijf(script);
  EXPECT_TRUE(Bevat(regels, "Titel=  [Zomer] = ="));
  EXPECT_TRUE(Bevat(regels, "Bijschrift=="));
  EXPECT_TRUE(Bevat(regels, "AantalFotosPerPagina=geen getal"));
  EXPECT_TRUE(Bevat(regels, "Presentatie=-1"));
  EXPECT_TRUE(Bevat(regels, "KleurKader=16777215"));
  EXPECT_TRUE(Bevat(regels, "Thumbnails=0"));
}

// The script's own table holds 28 lines and three per photo: 332 photos fill
// it exactly; more cannot be written, and what the table held stays.
TEST(ScriptSchrijvenTest, TheScriptTableHoldsAtMost332Photos) {
  LineTable tabel(capaciteit::kScript);
  ASSERT_TRUE(ScriptSchrijven(MetFotos(332), kZaterdag, tabel).ok());
  EXPECT_EQ(tabel.Count(), capaciteit::kScript);
  EXPECT_EQ(tabel.Line(capaciteit::kScript), "KleurKader=13421772");

  const Status status = ScriptSchrijven(MetFotos(333), kZaterdag, tabel);
  EXPECT_EQ(status.number(), 9);
  EXPECT_EQ(status.description(), "Subscript out of range");
  EXPECT_EQ(tabel.CountSlot(), "1024");
  EXPECT_EQ(tabel.Line(capaciteit::kScript), "KleurKader=13421772");
}

TEST(ScriptSchrijvenTest, TheProgramsLimitOf300PhotosFits) {
  LineTable tabel(capaciteit::kScript);
  EXPECT_TRUE(ScriptSchrijven(MetFotos(300), kZaterdag, tabel).ok());
  EXPECT_EQ(tabel.Count(), 928);
}

}  // namespace
}  // namespace kiekbord::test
