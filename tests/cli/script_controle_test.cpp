// kiekbord-maak --controleer, run as a program: what it prints, its exit
// code, and that it writes nothing.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <filesystem>
#include <set>
#include <string>

#include "tests/support/test_support.h"

namespace kiekbord::test {
namespace {

struct Uitkomst {
  int code = -1;
  std::string uitvoer;
};

// Runs "kiekbord-maak --controleer <script>" with `home` as the home
// directory and collects what it prints on standard output.
Uitkomst Controleer(const std::string& script, const std::string& home) {
  const std::string opdracht = "env HOME='" + home + "' '" + std::string(KIEKBORD_BIN_DIR) +
                               "/kiekbord-maak' --controleer '" + script + "'";
  Uitkomst uitkomst;
  FILE* pijp = ::popen(opdracht.c_str(), "r");
  if (pijp == nullptr) return uitkomst;
  char buffer[4096];
  for (std::size_t n; (n = std::fread(buffer, 1, sizeof buffer, pijp)) > 0;) uitkomst.uitvoer.append(buffer, n);
  const int status = ::pclose(pijp);
  uitkomst.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return uitkomst;
}

std::set<std::string> Inhoud(const std::string& directory) {
  std::set<std::string> namen;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(directory)) {
    namen.insert(entry.path().string());
  }
  return namen;
}

std::string MetCrLf(const std::string& tekst) {
  std::string uit;
  for (const char c : tekst) {
    if (c == '\n') uit += '\r';
    uit += c;
  }
  return uit;
}

class ControleerTest : public ::testing::Test {
 protected:
  void SetUp() override {
    for (const char* naam : {"vuurtoren.jpg", "strand.jpg"}) WriteBytes(dir_ / ("uit/" + std::string(naam)), "");
  }

  std::string Script(const std::string& naam, const std::string& bytes) {
    WriteBytes(dir_ / naam, bytes);
    return dir_ / naam;
  }

  TempDir dir_;
};

TEST_F(ControleerTest, PrintsTheRecordAsTheWindowWouldLoadIt) {
  const std::string pad = Script("texel.kbs", MetCrLf(
      "[Kiekbord]\nAanmaakdatum=zaterdag 21 november 2026\nVersie=4.1\n"
      "Opmerking=Dit bestand niet handmatig aanpassen!\n"
      "[Algemeen]\nInvoerDir=" + dir_.path() + "invoer\nUitvoerDir=" + dir_.path() + "uit\n"
      "Titel=Texel = eiland\nSubtitel=Fietsen & wadlopen\nDatum=21 november 2026\n"
      "Beschrijving=Een week op Texel.<br>Met Joëlle en Loïs.\nThumbnails=1\nAantalFotos=3\n"
      "[Foto001]\nFoto=vuurtoren.jpg\nBijschrift=De vuurtoren\n"
      "[Foto002]\nFoto=weg.jpg\nBijschrift=Bestaat niet meer\n"
      "[Foto003]\nFoto=strand.jpg\nBijschrift=\n"
      "[Instellingen]\nSjabloon=Klassiek\nAantalFotosPerPagina=2\nPresentatie=1\nPositieFotos=1\n"
      "PositieBijschriften=2\nFotosZonderBijschrift=0\nLetterTypeTitels=6\nLetterTypeBijschriften=9\n"
      "LetterGrootteBijschriften=2\nLetterStijlBijschriften=-1\nKleurTekstOpAchtergrond=255\n"
      "KleurAchtergrond=16777215\nKleurTekstInKader=#00FF00\nKleurKader=13421772\n"));

  const Uitkomst uitkomst = Controleer(pad, dir_.path());
  EXPECT_EQ(uitkomst.code, 0);
  EXPECT_EQ(uitkomst.uitvoer,
            "Script: " + pad + "\n"
            "Vorm: huidig\n"
            "InvoerDir: " + dir_.path() + "invoer\n"
            "UitvoerDir: " + dir_.path() + "uit\n"
            "Titel: Texel = eiland\n"
            "Subtitel: Fietsen & wadlopen\n"
            "Datum: 21 november 2026\n"
            "Beschrijving: Een week op Texel.\n"
            "              Met Joëlle en Loïs.\n"
            "Thumbnails: ja\n"
            "Foto's: 2 foto('s) (3 in het script)\n"
            "  1. vuurtoren.jpg: De vuurtoren\n"
            "  2. strand.jpg:\n"
            "Sjabloon: Klassiek\n"
            "AantalFotosPerPagina: 2\n"
            "Presentatie: 1 (Automatisch)\n"
            "PositieFotos: 1 (Midden op de pagina)\n"
            "PositieBijschriften: 2 (Rechts naast de foto)\n"
            "FotosZonderBijschrift: 0 (Wel opnemen in kiekbord)\n"
            "LetterTypeTitels: 6 (Verdana)\n"
            "LetterTypeBijschriften: 9 (buiten de lijst)\n"
            "LetterGrootteBijschriften: 2 (3)\n"
            "LetterStijlBijschriften: -1 (geen keuze)\n"
            "KleurTekstOpAchtergrond: 255 (#FF0000)\n"
            "KleurAchtergrond: 16777215 (#FFFFFF)\n"
            "KleurTekstInKader: 65280 (#00FF00)\n"
            "KleurKader: 13421772 (#CCCCCC)\n"
            "Meldingen: geen\n");
}

TEST_F(ControleerTest, ShowsTheMessagesOfAnOlderWindows1252Script) {
  const std::string pad = Script("oud.kbs", MetCrLf(
      "[Kiekbord]\nOpmerking=Dit bestand niet handmatig aanpassen!\n"
      "[Algemeen]\nUitvoerDir=" + dir_.path() + "uit\nTitel=Caf\xE9 in Orange\n"
      "[Fotobijschriften]\nFoto:vuurtoren.jpg=Cr\xE8me br\xFBl\xE9\x65 \x96 toe\n"
      "Foto:ontbreekt.jpg=Weg\nFoto:strand.jpg=Z\xE9\xE9\n"
      "[Instellingen]\nSjabloon=Winter\nKleurTekst=255\n"));

  const Uitkomst uitkomst = Controleer(pad, dir_.path());
  EXPECT_EQ(uitkomst.code, 0);
  const std::string& uit = uitkomst.uitvoer;
  EXPECT_NE(uit.find("Vorm: ouder (zonder Versie)\n"), std::string::npos) << uit;
  EXPECT_NE(uit.find("Titel: Café in Orange\n"), std::string::npos) << uit;
  EXPECT_NE(uit.find("Foto's: 2 foto('s) (3 in het script)\n"
                     "  1. vuurtoren.jpg: Crème brûlée – toe\n"
                     "  2. strand.jpg: Zéé\n"
                     "Sjabloon: Donker\n"),
            std::string::npos)
      << uit;
  EXPECT_NE(uit.find("KleurTekstOpAchtergrond: 255 (#FF0000)\n"), std::string::npos) << uit;
  EXPECT_NE(uit.find("Meldingen:\n"
                     "  Waarschuwing: Van de 3 foto's in het script zijn nog slechts 2\n"
                     "                fotobestanden aanwezig in de uitvoerdirectory.\n"
                     "\n"
                     "                De ontbrekende foto's zijn verwijderd uit de kiekbord.\n"
                     "  Waarschuwing: Het gebruikte sjabloon 'Winter' is niet (meer) aanwezig\n"
                     "                onder directory "),
            std::string::npos)
      << uit;
  EXPECT_NE(uit.find("Sjabloon/.\n                Het eerste sjabloon zal worden gebruikt.\n"), std::string::npos)
      << uit;
}

TEST_F(ControleerTest, AnOutputDirectoryWithoutPhotosIsReportedWithTheCaptionsThatWouldBeLost) {
  WriteBytes(dir_ / "leeg/leesmij.txt", "");
  const std::string pad = Script("leeg.kbs", MetCrLf(
      "[Kiekbord]\nVersie=4.1\n[Algemeen]\nUitvoerDir=" + dir_.path() + "leeg\nAantalFotos=1\n"
      "[Foto001]\nFoto=strand.jpg\nBijschrift=Eb\n"));

  const Uitkomst uitkomst = Controleer(pad, dir_.path());
  EXPECT_EQ(uitkomst.code, 0);
  EXPECT_NE(uitkomst.uitvoer.find("Foto's: niet geladen (uitvoerdirectory ongeldig of zonder foto's)\n"),
            std::string::npos);
  EXPECT_NE(uitkomst.uitvoer.find("Meldingen:\n"
                                  "  Informatie: Uitvoerdirectory " + dir_.path() + "leeg\n"
                                  "              bevat (nog) geen fotobestanden (*.JPG).\n"
                                  "  Waarschuwing: De fotobijschriften die dit nu script bevat,\n"
                                  "                gaan verloren indien u dit script nogmaals opslaat.\n"),
            std::string::npos)
      << uitkomst.uitvoer;
}

TEST_F(ControleerTest, WritesNothing) {
  const std::string pad = Script("reis.kbs", MetCrLf("[Kiekbord]\nVersie=4.1\n[Algemeen]\nUitvoerDir=" +
                                                     dir_.path() + "uit\nTitel=Reis\n"));
  const std::set<std::string> voor = Inhoud(dir_.path());
  const std::string bytes = ReadBytes(pad);
  EXPECT_EQ(Controleer(pad, dir_.path()).code, 0);
  EXPECT_EQ(Inhoud(dir_.path()), voor);
  EXPECT_EQ(ReadBytes(pad), bytes);
}

TEST_F(ControleerTest, AMissingScriptGivesTheWindowsOpenErrorAndExitCode1) {
  const std::string pad = dir_ / "bestaat_niet.kbs";
  const Uitkomst uitkomst = Controleer(pad, dir_.path());
  EXPECT_EQ(uitkomst.code, 1);
  EXPECT_EQ(uitkomst.uitvoer, "Script: " + pad + "\n"
                              "Meldingen:\n"
                              "  Waarschuwing: Fout bij openen " + pad + "\n"
                              "                Error 53 File not found\n");
}

TEST_F(ControleerTest, AScriptLongerThanTheTableSaysWhatWasLeftUnread) {
  std::string tekst = "[Kiekbord]\nVersie=4.1\n[Algemeen]\nUitvoerDir=" + dir_.path() + "uit\nAantalFotos=400\n";
  for (int i = 1; i <= 400; ++i) {
    tekst += "[Foto" + std::string(i < 10 ? "00" : i < 100 ? "0" : "") + std::to_string(i) +
             "]\nFoto=strand.jpg\nBijschrift=\n";
  }
  const Uitkomst uitkomst = Controleer(Script("lang.kbs", MetCrLf(tekst)), dir_.path());
  EXPECT_EQ(uitkomst.code, 0);
  // 5 lines before the photos, then 1019 lines: 339 whole photo sections
  // and the header and name of the 340th.
  EXPECT_NE(uitkomst.uitvoer.find("Foto's: 340 foto('s)\n"), std::string::npos) << uitkomst.uitvoer;
  EXPECT_NE(uitkomst.uitvoer.find("Let op: het script heeft meer dan 1024 regels; alleen de eerste 1024 zijn gelezen.\n"),
            std::string::npos);
}

TEST_F(ControleerTest, BinaryGarbageIsReadAsAnOlderScriptWithoutValues) {
  std::string rommel;
  for (int i = 0; i < 5000; ++i) rommel += static_cast<char>((i * 7919) % 256);
  const Uitkomst uitkomst = Controleer(Script("rommel.kbs", rommel), dir_.path());
  EXPECT_EQ(uitkomst.code, 0);
  EXPECT_NE(uitkomst.uitvoer.find("Vorm: ouder (zonder Versie)\n"), std::string::npos);
  EXPECT_NE(uitkomst.uitvoer.find("InvoerDir: " + dir_.path() + "\n"), std::string::npos) << uitkomst.uitvoer;
}

}  // namespace
}  // namespace kiekbord::test
