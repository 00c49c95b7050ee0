#include "editor/script_commands.h"

#include <gtest/gtest.h>

#include "base/file_system.h"
#include "base/keyed_text_file.h"
#include "tests/gallery/script_fakes.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using test::ReadBytes;
using test::TempDir;
using test::WriteBytes;

constexpr std::chrono::year_month_day kVandaag{std::chrono::year{2026}, std::chrono::month{11}, std::chrono::day{21}};
constexpr std::chrono::year_month_day kMorgen{std::chrono::year{2026}, std::chrono::month{11}, std::chrono::day{22}};

TEST(ScriptPaden, DisplayFormCaptionAndBackup) {
  EXPECT_EQ(WeergaveVorm("/home/An/Reis.KBS"), "/home/an/reis.kbs");
  EXPECT_EQ(WeergaveVorm("reis.kbs"), "Reis.kbs");
  EXPECT_EQ(WeergaveVorm("élan.KBS"), "Élan.kbs");
  EXPECT_EQ(WeergaveVorm(""), "");
  EXPECT_EQ(VensterTitel("/Foto/Reis.kbs", "Kiekbord 4.1 Pro"), "/foto/reis.kbs - Kiekbord 4.1 Pro");
  EXPECT_EQ(ScriptBackupPad("/D/Foto's/Vakantie.KBS"), "/D/Foto's/vakantie.bak");
  EXPECT_EQ(ScriptBackupPad("/a/reis.txt"), "/a/reis.txt");
}

TEST(OpslaanVraag, KindWordAndEnding) {
  EXPECT_EQ(OpslaanVraag(true, kVoordatAnderScript),
            (Melding{MeldingSoort::kVraag, "Wilt u de gewijzigde gegevens opslaan\r\nvoordat u een ander script opent?"}));
  EXPECT_EQ(OpslaanVraag(false, VoordatAfsluiten()),
            (Melding{MeldingSoort::kVraag, "Wilt u de nieuw ingevoerde gegevens opslaan\r\nvoordat u Kiekbord afsluit?"}));
}

TEST(ScriptBestand, OpenMakesBackupAndKeepsCopy) {
  TempDir dir;
  const std::string pad = dir / "Reis.KBS";
  WriteBytes(pad, "[Algemeen]\r\nTitel=Reis\r\n");
  ScriptBestand bestand;
  EXPECT_EQ(bestand.Open(pad), std::nullopt);
  EXPECT_EQ(ReadBytes(dir / "reis.bak"), "[Algemeen]\r\nTitel=Reis\r\n");
  EXPECT_EQ(bestand.tabel().Count(), 2);
  EXPECT_EQ(bestand.bewaard().Line(2), "Titel=Reis");
}

TEST(ScriptBestand, FailedOpenSaysWhyAndKeepsTheOldScript) {
  TempDir dir;
  const std::string goed = dir / "goed.kbs";
  WriteBytes(goed, "[Algemeen]\r\nTitel=Goed\r\n");
  ScriptBestand bestand;
  ASSERT_EQ(bestand.Open(goed), std::nullopt);
  const std::string weg = dir / "weg.kbs";
  EXPECT_EQ(bestand.Open(weg),
            (Melding{MeldingSoort::kWaarschuwing, "Fout bij openen " + weg + "\r\nError 53 File not found"}));
  EXPECT_EQ(bestand.bewaard().Line(2), "Titel=Goed");
}

TEST(ScriptBestand, SaveAndChangeDetection) {
  TempDir dir;
  const std::string pad = dir / "g.kbs";
  GalleryScript script;
  script.titel = "Reis";
  ScriptBestand bestand;
  ASSERT_EQ(bestand.Opslaan(script, kVandaag, pad, false), std::nullopt);
  EXPECT_NE(ReadBytes(pad).find("Aanmaakdatum=zaterdag 21 november 2026\r\n"), std::string::npos);
  // Another day changes only "Aanmaakdatum": no change.
  EXPECT_FALSE(bestand.Gewijzigd(script, kMorgen));
  script.titel = "REIS";
  EXPECT_TRUE(bestand.Gewijzigd(script, kVandaag));
  script.titel = "Reis";
  script.fotos.push_back({"a_foto.jpg", ""});
  EXPECT_TRUE(bestand.Gewijzigd(script, kVandaag));
}

TEST(ScriptBestand, FailedSaveKeepsTheChangeUnsaved) {
  TempDir dir;
  GalleryScript script;
  ScriptBestand bestand;
  ASSERT_EQ(bestand.Opslaan(script, kVandaag, dir / "g.kbs", false), std::nullopt);
  script.titel = "Nieuw";
  const std::string fout = dir / "geen/g.kbs";
  EXPECT_EQ(bestand.Opslaan(script, kVandaag, fout, false),
            (Melding{MeldingSoort::kWaarschuwing, "Fout bij opslaan " + fout + "\r\nError 53 File not found"}));
  EXPECT_EQ(bestand.Opslaan(script, kVandaag, fout, true),
            (Melding{MeldingSoort::kWaarschuwing, "Fout bij opslaan als " + fout + "\r\nError 53 File not found"}));
  EXPECT_TRUE(bestand.Gewijzigd(script, kVandaag));
}

TEST(ScriptBestand, OpenedScriptIsUnchangedWhenRebuiltOnAnotherDay) {
  TempDir dir;
  const std::string pad = dir / "g.kbs";
  GalleryScript script;
  script.titel = "Zee";
  script.fotos = {{"foto_1.jpg", "Strand"}};
  ScriptBestand schrijver;
  ASSERT_EQ(schrijver.Opslaan(script, kVandaag, pad, false), std::nullopt);
  ScriptBestand bestand;
  ASSERT_EQ(bestand.Open(pad), std::nullopt);
  EXPECT_FALSE(bestand.Gewijzigd(script, kMorgen));
}

}  // namespace
}  // namespace kiekbord
