#include "editor/photo_import.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "gallery/file_system.h"
#include "tests/support/test_photos.h"
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
  EXPECT_EQ(KopieerVraag().tekst,
            "Om een kiekbord aan te maken dienen alle\r\nfoto's in de uitvoerdirectory te staan.\r\n\r\n"
            "Wilt u alle foto's in de invoerdirectory nu\r\nnaar de uitvoerdirectory kopieren?");
  EXPECT_EQ(KopieerVraag().soort, MeldingSoort::kVraag);
  EXPECT_EQ(HernoemMelding(0), std::nullopt);
  EXPECT_EQ(HernoemMelding(3),
            (Melding{MeldingSoort::kInformatie,
                     "Van 3 fotobestand(en) is de naam omgezet naar kleine letters.\r\n"
                     "Dit is nodig omdat in de HTML-pagina's bestandsnamen ook\r\nin kleine letters worden vermeld."}));
}

TEST(PhotoImport, ZelfdeMapAndFotoBestand) {
  EXPECT_TRUE(ZelfdeMap("/a/Fotos", "/a/fotos/"));
  EXPECT_FALSE(ZelfdeMap("/a/fotos", "/a/foto"));
  struct Geval {
    const char* naam;
    bool foto;
  };
  for (const Geval& g : {Geval{"a.jpg", true}, Geval{"A.JPG", true}, Geval{"c_TN.jpg", false},
                         Geval{"a.jpeg", false}, Geval{"jpg", false}, Geval{"x_tn.jpg", false}}) {
    EXPECT_EQ(IsFotoBestand(g.naam), g.foto) << g.naam;
  }
}

TEST(PhotoImport, CopySkipsThumbnailsAndLowerCasesNames) {
  TempDir in, uit;
  WriteBytes(in / "A.JPG", "a");
  WriteBytes(in / "b.jpg", "b");
  WriteBytes(in / "c_TN.jpg", "c");
  WriteBytes(in / "d.txt", "d");
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

class VolleSchijf : public ForwardingFileSystem {
 public:
  VolleSchijf() : ForwardingFileSystem(LocalFileSystem()) {}
  Status WriteFile(const std::string& path, std::string_view contents) override {
    if (++schrijven > 1) return Status::Error(fout::kDiskFull);
    return ForwardingFileSystem::WriteFile(path, contents);
  }
  int schrijven = 0;
};

TEST(PhotoImport, CopyErrorEndsAtThatFileAndKeepsTheOthers) {
  TempDir in, uit;
  WriteBytes(in / "a.jpg", "a");
  WriteBytes(in / "b.jpg", "b");
  WriteBytes(in / "c.jpg", "c");
  VolleSchijf vol;
  ScopedFileSystem scoped(vol);
  const ImportResultaat r = FotosKopieren(in.path(), uit.path(), 100);
  EXPECT_EQ(r.aantal, 1);
  ASSERT_TRUE(r.fout.has_value());
  EXPECT_EQ(r.fout->soort, MeldingSoort::kFout);
  EXPECT_EQ(r.fout->tekst, "Fout 61 (Disk full) bij het kopiëren van\r\n" + in.path() + "b.jpg\r\nnaar " +
                               uit.path() + "b.jpg.");
}

TEST(PhotoImport, RenameToLowerCase) {
  TempDir map;
  WriteBytes(map / "IMG_1.JPG", "1");
  WriteBytes(map / "img_2.jpg", "2");
  WriteBytes(map / "Img_3.Jpg", "3");
  const ImportResultaat r = FotosHernoemen(map.path(), "Unknown (3.6.1)");
  EXPECT_EQ(r.aantal, 2);
  EXPECT_EQ(Namen(map.path()), (std::vector<std::string>{"img_1.jpg", "img_2.jpg", "img_3.jpg"}));
  EXPECT_EQ(FotosHernoemen(map.path(), "Vista").aantal, 0);
}

TEST(PhotoImport, RenameOnVistaGoesThroughTemporaryName) {
  TempDir map;
  WriteBytes(map / "A.JPG", "1");
  EXPECT_EQ(FotosHernoemen(map.path(), "Vista").aantal, 1);
  EXPECT_EQ(Namen(map.path()), (std::vector<std::string>{"a.jpg"}));
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

  ToevoegPlan p = PlanToevoegen(in / "Nieuw.JPG", uit.path(), fotos, 10);
  EXPECT_EQ(p.soort, ToevoegPlan::Soort::kKopieren);
  EXPECT_EQ(p.naam, "nieuw.jpg");
  EXPECT_EQ(p.doel, uit / "nieuw.jpg");

  p = PlanToevoegen(in / "bestaat.jpg", uit.path(), fotos, 10);
  EXPECT_EQ(p.soort, ToevoegPlan::Soort::kVervangen);
  EXPECT_EQ(p.melding.tekst, "De uitvoerdirectory bevat al een bestand bestaat.jpg.\r\n\r\nWilt u het vervangen door\r\n" +
                                 in / "bestaat.jpg" + "?");

  EXPECT_EQ(PlanToevoegen(uit / "hier.jpg", uit.path(), fotos, 10).soort, ToevoegPlan::Soort::kAlleenLijst);
  EXPECT_EQ(PlanToevoegen(in / "Lijst.jpg", uit.path(), fotos, 10).soort, ToevoegPlan::Soort::kAlInLijst);
  EXPECT_EQ(PlanToevoegen(in / "x_tn.jpg", uit.path(), fotos, 10).soort, ToevoegPlan::Soort::kGeweigerd);
  const ToevoegPlan vol = PlanToevoegen(in / "Nieuw.JPG", uit.path(), fotos, 1);
  EXPECT_EQ(vol.soort, ToevoegPlan::Soort::kGeweigerd);
  EXPECT_EQ(vol.melding, LijstVolMelding(1));
  EXPECT_EQ(LijstVolMelding(1).tekst,
            "Een kiekbord kan niet meer dan 1 foto's bevatten.\r\nVerwijder eerst een foto voordat u er een toevoegt.");
}

TEST(PhotoImport, FotoWissenTakesTheThumbnailAlong) {
  TempDir map;
  WriteBytes(map / "zee.jpg", "z");
  WriteBytes(map / "zee_tn.jpg", "t");
  WriteBytes(map / "zeer.jpg", "r");
  EXPECT_TRUE(FotoWissen(map.path(), "zee.jpg").ok());
  EXPECT_EQ(Namen(map.path()), (std::vector<std::string>{"zeer.jpg"}));
  EXPECT_EQ(FotoWissen(map.path(), "zee.jpg").number(), fout::kFileNotFound);
  EXPECT_EQ(VerwijderFoutMelding("/x/zee.jpg", Status::Error(fout::kPermissionDenied)).tekst,
            "Fout 70 (Permission denied) bij het wissen van\r\n/x/zee.jpg.");
}

}  // namespace
}  // namespace kiekbord
