#include "editor/photo_import.h"

#include <gtest/gtest.h>

#include "base/file_system.h"
#include "tests/gallery/script_fakes.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using test::TempDir;
using test::WriteBytes;

std::vector<std::string> Namen(const std::string& map) {
  std::vector<std::string> namen;
  EXPECT_TRUE(Fs().ListFiles(map, "*", namen).ok());
  return namen;
}

TEST(PhotoImport, Texts) {
  EXPECT_EQ(KopieerVraag(),
            (Melding{MeldingSoort::kVraag,
                     "Om een kiekbord aan te maken dienen alle\r\nfoto's in de uitvoerdirectory te staan.\r\n\r\n"
                     "Wilt u alle foto's in de invoerdirectory nu\r\nnaar de uitvoerdirectory kopieren?"}));
  EXPECT_EQ(HernoemMelding(0), std::nullopt);
  EXPECT_EQ(HernoemMelding(3),
            (Melding{MeldingSoort::kInformatie,
                     "Van 3 fotobestand(en) is de naam omgezet naar kleine letters.\r\n"
                     "Dit is nodig omdat in de HTML-pagina's bestandsnamen ook\r\nin kleine letters worden vermeld."}));
  EXPECT_EQ(VerwijderVraag("zee.jpg").tekst,
            "Wilt u de foto zee.jpg uit de kiekbord verwijderen\r\nen het bestand van schijf wissen?");
  EXPECT_EQ(VerwijderFoutMelding("/x/zee.jpg", Status::Error(fout::kPermissionDenied)).tekst,
            "Fout 70 (Permission denied) bij het wissen van\r\n/x/zee.jpg.");
}

TEST(PhotoImport, ZelfdeMapAndFotoBestand) {
  EXPECT_TRUE(ZelfdeMap("/a/Fotos", "/a/fotos/"));
  EXPECT_FALSE(ZelfdeMap("/a/fotos", "/a/foto"));
  for (const auto& [naam, foto] : {std::pair{"a.jpg", true}, {"A.JPG", true}, {"c_TN.jpg", false},
                                   {"a.jpeg", false}, {"jpg", false}, {"x_tn.jpg", false}}) {
    EXPECT_EQ(IsFotoBestand(naam), foto) << naam;
  }
}

TEST(PhotoImport, CopySkipsThumbnailsAndLowerCasesNames) {
  TempDir in, uit;
  for (const char* naam : {"A.JPG", "b.jpg", "c_TN.jpg", "d.txt"}) WriteBytes(in / naam, naam);
  const ImportResultaat r = FotosKopieren(in.path(), uit.path(), 100);
  EXPECT_EQ(r.aantal, 2);
  EXPECT_EQ(r.fout, std::nullopt);
  EXPECT_EQ(Namen(uit.path()), (std::vector<std::string>{"a.jpg", "b.jpg"}));
}

TEST(PhotoImport, CopyStopsAtMaximum) {
  TempDir in, uit;
  for (int i = 0; i < 150; ++i) WriteBytes(in / ("f" + std::to_string(1000 + i) + ".jpg"), "x");
  EXPECT_EQ(FotosKopieren(in.path(), uit.path(), 100).aantal, 100);
  EXPECT_EQ(Namen(uit.path()).size(), 100u);
}

// The first write works, every later one finds the disk full.
class VolNaEen : public ForwardingFileSystem {
 public:
  VolNaEen() : ForwardingFileSystem(LocalFileSystem()) {}
  Status WriteFile(const std::string& path, std::string_view contents) override {
    if (++schrijven > 1) return Status::Error(fout::kDiskFull);
    return ForwardingFileSystem::WriteFile(path, contents);
  }
  int schrijven = 0;
};

TEST(PhotoImport, CopyErrorEndsAtThatFileAndKeepsTheOthers) {
  TempDir in, uit;
  for (const char* naam : {"a.jpg", "b.jpg", "c.jpg"}) WriteBytes(in / naam, naam);
  VolNaEen vol;
  ScopedFileSystem scoped(vol);
  const ImportResultaat r = FotosKopieren(in.path(), uit.path(), 100);
  EXPECT_EQ(r.aantal, 1);
  EXPECT_EQ(r.fout, (Melding{MeldingSoort::kFout, "Fout 61 (Disk full) bij het kopiëren van\r\n" + in.path() +
                                                     "b.jpg\r\nnaar " + uit.path() + "b.jpg."}));
}

TEST(PhotoImport, RenameToLowerCaseDirectlyOrOnVistaThroughATemporaryName) {
  for (const char* os_naam : {"Unknown (3.6.1)", "Vista"}) {
    TempDir map;
    for (const char* naam : {"IMG_1.JPG", "img_2.jpg", "Img_3.Jpg"}) WriteBytes(map / naam, naam);
    EXPECT_EQ(FotosHernoemen(map.path(), os_naam).aantal, 2) << os_naam;
    EXPECT_EQ(Namen(map.path()), (std::vector<std::string>{"img_1.jpg", "img_2.jpg", "img_3.jpg"})) << os_naam;
    EXPECT_EQ(FotosHernoemen(map.path(), os_naam).aantal, 0) << os_naam;
  }
}

TEST(PhotoImport, RenameNeverOverwritesAnotherPhoto) {
  TempDir map;
  WriteBytes(map / "A.JPG", "groot");
  WriteBytes(map / "a.jpg", "klein");
  const ImportResultaat r = FotosHernoemen(map.path(), "Unknown (3.6.1)");
  EXPECT_EQ(r.aantal, 0);
  ASSERT_TRUE(r.fout.has_value());
  EXPECT_EQ(r.fout->tekst, "Fout 58 (File already exists) bij het hernoemen van\r\n" + map.path() + "A.JPG\r\nnaar " +
                               map.path() + "a.jpg.");
  EXPECT_EQ(test::ReadBytes(map / "a.jpg"), "klein");
}

TEST(PhotoImport, PlanToevoegen) {
  TempDir in, uit;
  WriteBytes(in / "Nieuw.JPG", "n");
  WriteBytes(in / "bestaat.jpg", "b");
  WriteBytes(uit / "bestaat.jpg", "oud");
  WriteBytes(uit / "hier.jpg", "h");
  const std::vector<PhotoEntry> fotos = {{"lijst.jpg", ""}};
  using Soort = ToevoegPlan::Soort;

  ToevoegPlan p = PlanToevoegen(in / "Nieuw.JPG", uit.path(), fotos, 10);
  EXPECT_EQ(p.soort, Soort::kKopieren);
  EXPECT_EQ(p.naam, "nieuw.jpg");
  EXPECT_EQ(p.doel, uit / "nieuw.jpg");
  p = PlanToevoegen(in / "bestaat.jpg", uit.path(), fotos, 10);
  EXPECT_EQ(p.soort, Soort::kVervangen);
  EXPECT_EQ(p.melding.tekst, "De uitvoerdirectory bevat al een bestand bestaat.jpg.\r\n\r\nWilt u het vervangen door\r\n" +
                                 in / "bestaat.jpg" + "?");
  EXPECT_EQ(PlanToevoegen(uit / "hier.jpg", uit.path(), fotos, 10).soort, Soort::kAlleenLijst);
  p = PlanToevoegen(in / "Lijst.jpg", uit.path(), fotos, 10);
  EXPECT_EQ(p.soort, Soort::kAlInLijst);
  EXPECT_EQ(p.melding.tekst, "De foto lijst.jpg staat al in de kiekbord.");
  p = PlanToevoegen(in / "x_tn.jpg", uit.path(), fotos, 10);
  EXPECT_EQ(p.soort, Soort::kGeweigerd);
  EXPECT_EQ(p.melding.tekst, "Het bestand x_tn.jpg kan niet worden toegevoegd.\r\n"
                             "Alleen foto's van het type '.jpg' horen in een kiekbord; thumbnails (_tn.jpg) niet.");
  p = PlanToevoegen(in / "Nieuw.JPG", uit.path(), fotos, 1);
  EXPECT_EQ(p.soort, Soort::kGeweigerd);
  EXPECT_EQ(p.melding, LijstVolMelding(1));
  EXPECT_EQ(LijstVolMelding(1).tekst,
            "Een kiekbord kan niet meer dan 1 foto's bevatten.\r\nVerwijder eerst een foto voordat u er een toevoegt.");
}

TEST(PhotoImport, FotoWissenTakesTheThumbnailAlong) {
  TempDir map;
  for (const char* naam : {"zee.jpg", "zee_tn.jpg", "zeer.jpg"}) WriteBytes(map / naam, naam);
  EXPECT_TRUE(FotoWissen(map.path(), "zee.jpg").ok());
  EXPECT_EQ(Namen(map.path()), (std::vector<std::string>{"zeer.jpg"}));
  EXPECT_EQ(FotoWissen(map.path(), "zee.jpg").number(), fout::kFileNotFound);
}

}  // namespace
}  // namespace kiekbord
