// Hostile input: photos that are no photos or claim an absurd size, a script
// far beyond its table, names full of shell and HTML characters, symbolic-link
// loops in a template set, an output folder that is the template folder.
#include <sys/wait.h>
#include <unistd.h>
#include <vips/vips.h>

#include <gmock/gmock.h>

#include "base/text_helpers.h"
#include "editor/photo_edit.h"
#include "tests/robustness/gallery_fixture.h"
#include "tests/support/site_links.h"

namespace kiekbord::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A small JPEG whose frame header claims 65,535 x 65,535 pixels.
std::string ReuzeKop() {
  std::string jpeg = ProefJpeg(16, 16);
  for (std::size_t i = 2; i + 9 < jpeg.size(); ++i) {
    if (static_cast<unsigned char>(jpeg[i]) == 0xFF && static_cast<unsigned char>(jpeg[i + 1]) == 0xC0) {
      for (std::size_t k = i + 5; k < i + 9; ++k) jpeg[k] = '\xFF';
      return jpeg;
    }
  }
  ADD_FAILURE() << "no frame header";
  return jpeg;
}

std::string AfgebrokenFoto() {
  const std::string foto = CameraJpeg(800, 600, 1);
  return foto.substr(0, foto.size() * 3 / 5);
}

std::string PngBestand() {
  VipsImage* zwart = nullptr;
  void* buffer = nullptr;
  std::size_t lengte = 0;
  EXPECT_TRUE(vips_init("robustness_tests") == 0 && vips_black(&zwart, 64, 48, nullptr) == 0 &&
              vips_pngsave_buffer(zwart, &buffer, &lengte, nullptr) == 0);
  const std::string png(static_cast<const char*>(buffer), lengte);
  g_free(buffer);
  if (zwart != nullptr) g_object_unref(zwart);
  return png;
}

struct VijandigeFoto {
  const char* naam;
  std::string (*maak)();
  // The failure's description in the smooth library (thumbnail, then
  // rotation and shrinking) and in the pixel-buffer library; "" for none.
  const char* glad_thumbnail;
  const char* glad_bewerking;
  const char* pixel;
};

const VijandigeFoto kVijandigeFotos[] = {
    {"reus.jpg", ReuzeKop, "Image too large: 65535 x 65535 pixels", "Image too large: 65535 x 65535 pixels",
     "Image too large: 65535 x 65535 pixels"},
    {"png.jpg", PngBestand, "De foto @/png.jpg is geen JPEG-bestand.", "De foto @/png.jpg is geen JPEG-bestand.",
     "De foto @/png.jpg is geen JPEG-bestand."},
    // A truncated photo still shows, grey where its data ends.
    {"afgebroken.jpg", AfgebrokenFoto, "", "", ""},
};

// A hostile photo in a gallery, with each library, and in the edit commands.
TEST_F(Robuustheid, HostilePhotosGetAClearErrorAndStayAsTheyWere) {
  for (const VijandigeFoto& v : kVijandigeFotos) {
    SCOPED_TRACE(v.naam);
    const std::string bytes = v.maak();
    WriteBytes(Uit() + v.naam, bytes);
    SchrijfScript({"strand.jpg", v.naam});
    const std::string glad = Vervang(v.glad_thumbnail, "@/", Uit());  // "@/": the output folder
    Genereer();
    if (glad.empty()) {
      EXPECT_EQ(log_.back(), "Normaal einde.");
    } else {
      EXPECT_THAT(Staart(3), ElementsAre("Error: " + glad, "Error: " + glad, "Abnormaal einde."));
      EXPECT_THAT(meldingen_, ElementsAre("Fout 26002 tijdens aanmaken GDI thumbnail.\n(" + glad + ")"));
    }

    // The pixel-buffer library tells and goes on.
    std::filesystem::rename(Programma() + "GDIplus.txt", dir_ / "GDIplus.txt");
    std::filesystem::remove(Uit() + "kb_tn.txt");
    Genereer();
    std::filesystem::rename(dir_ / "GDIplus.txt", Programma() + "GDIplus.txt");
    EXPECT_EQ(log_.back(), "Normaal einde.");
    const std::string pixel = Vervang(v.pixel, "@/", Uit());
    if (pixel.empty()) {
      EXPECT_THAT(meldingen_, IsEmpty());
    } else {
      EXPECT_THAT(log_, Contains(pixel));
      EXPECT_THAT(meldingen_, ElementsAre("Fout 26002 tijdens aanmaken IJL thumbnail.(" + pixel + ")"));
    }

    FoutMeldingen bewerkingen;
    VerkleinOpdracht verklein;
    verklein.breedte = verklein.hoogte = 100;
    EXPECT_EQ(RoteerFoto("XP", Uit() + v.naam, kLinksom, true, bewerkingen).ok(), pixel.empty());
    EXPECT_EQ(RoteerFoto("Unknown (3.6.1)", Uit() + v.naam, kRechtsom, true, bewerkingen).ok(), pixel.empty());
    EXPECT_EQ(VerkleinFoto(Uit() + v.naam, verklein, true, bewerkingen).ok(), pixel.empty());
    if (pixel.empty()) continue;
    std::vector<std::string> teksten;
    for (const Melding& m : bewerkingen.meldingen()) teksten.push_back(m.tekst);
    const std::string glad_bewerking = Vervang(v.glad_bewerking, "@/", Uit());
    EXPECT_THAT(teksten, ElementsAre("Fout 26002 tijdens roteren foto (GDI).\r\n(" + glad_bewerking + ")",
                                     "Fout 26002 tijdens roteren foto.(" + pixel + ")",
                                     "Fout 26002 tijdens verkleinen foto (GDI).\r\n(" + glad_bewerking + ")"));
    EXPECT_EQ(ReadBytes(Uit() + v.naam), bytes);
    EXPECT_EQ(ReadBytes(Uit() + "Backup/" + v.naam), bytes);
  }
}

// The run reads a script only as far as its table of 1024 lines holds: 4
// lines of [Algemeen], then the first 340 photos of 3 lines each.
TEST_F(Robuustheid, ScriptOfAHundredThousandLinesIsReadUpToItsTable) {
  std::string script = "[Algemeen]\r\nUitvoerDir=" + Uit() + "\r\nThumbnails=1\r\nAantalFotos=33332\r\n";
  for (int i = 1; i <= 33332; ++i) {
    const std::string nummer = std::to_string(i);
    script += "[Foto" + std::string(nummer.size() < 3 ? 3 - nummer.size() : 0, '0') + nummer +
              "]\r\nFoto=zee.jpg\r\nBijschrift=Golf\r\n";
  }
  ASSERT_EQ(std::count(script.begin(), script.end(), '\n'), 100000);
  WriteBytes(Script(), script);
  EXPECT_EQ(Genereer().failed, kGelukt);
  EXPECT_THAT(log_, Contains("340 fotopagina's aangemaakt."));
  EXPECT_TRUE(std::filesystem::exists(Uit() + "kb340.html"));
  EXPECT_FALSE(std::filesystem::exists(Uit() + "kb341.html"));
}

// kiekbord-maak with a script whose name starts with a dash and holds a
// newline and "$", in a folder with quotes and Greek and Japanese letters;
// photo names with quotes, "#", "?", "%", "&" and "$". Started without a
// shell, so nothing is expanded on the way; every link of the site works.
TEST_F(Robuustheid, OddNamesThroughTheCommandAndTheGeneration) {
  const std::string map = dir_ / "map 'x\" $HOME Ελλάδα 日本/";
  std::filesystem::create_directories(map);
  const std::vector<std::string> namen = {"-strand $x 'q\" ë.jpg", "φωτο 写真.jpg", "a#b?c%20d&e$$f.jpg"};
  for (const std::string& naam : namen) WriteBytes(map + naam, fotos_["zee.jpg"]);
  SchrijfScript(namen, "Klassiek", map);
  const std::string script_naam = "-galerij\n$1.kbs";
  std::filesystem::rename(Script(), map + script_naam);

  const pid_t kind = fork();
  ASSERT_GE(kind, 0);
  if (kind == 0) {
    if (chdir(map.c_str()) != 0 || !freopen("/dev/null", "w", stdout)) _exit(99);
    const std::string programma = std::string(KIEKBORD_BIN_DIR) + "/kiekbord-maak";
    execl(programma.c_str(), "kiekbord-maak", script_naam.c_str(), static_cast<char*>(nullptr));
    _exit(98);
  }
  int toestand = 0;
  ASSERT_EQ(waitpid(kind, &toestand, 0), kind);
  EXPECT_TRUE(WIFEXITED(toestand) && WEXITSTATUS(toestand) == 0) << toestand;
  const std::string log = ReadBytes(map + "-galerij\n$1.log");
  EXPECT_TRUE(log.ends_with("Normaal einde.\r\n")) << log;
  for (const std::string& naam : namen) {
    EXPECT_TRUE(std::filesystem::exists(map + naam.substr(0, naam.size() - 4) + "_tn.jpg")) << naam;
  }
  EXPECT_GT(AantalLinks(map), 20);
  EXPECT_THAT(OnvindbareLinks(map), IsEmpty());
}

// Links that point at themselves or at each other, and a folder link to
// the set itself: none is followed, copied or looped through.
TEST_F(Robuustheid, SymbolicLinkLoopsInATemplateSetAreLeftAlone) {
  const std::string set = Programma() + "Sjabloon/Lus/";
  KopieerMap(Programma() + "Sjabloon/Klassiek", set);
  std::filesystem::create_symlink("zelf.gif", set + "zelf.gif");
  std::filesystem::create_symlink("b.js", set + "a.js");
  std::filesystem::create_symlink("a.js", set + "b.js");
  std::filesystem::create_directory_symlink(".", set + "lus.css");
  std::filesystem::create_directory_symlink("../Lus", set + "terug");
  SchrijfScript({}, "Lus");
  EXPECT_EQ(Genereer().failed, kGelukt);
  EXPECT_THAT(log_, Contains("2 Afbeelding(en) gekopieerd naar uitvoerdirectory."));
  EXPECT_THAT(log_, Contains("1 Script(s) gevonden in sjabloondirectory."));
  EXPECT_THAT(log_, Contains("Geen extra stylesheets gevonden in sjabloondirectory."));
  for (const char* naam : {"zelf.gif", "a.js", "b.js", "lus.css", "terug"}) {
    EXPECT_FALSE(std::filesystem::exists(Uit() + naam)) << naam;
  }
}

// Deleting the old pages there would delete the templates; the run refuses.
TEST_F(Robuustheid, OutputFolderThatIsTheTemplateFolderIsRefused) {
  const std::string set = Programma() + "Sjabloon/Klassiek/";
  const Inhoud voor = InhoudVan(set);
  for (const std::string& uit : {set, Programma() + "Sjabloon/../Sjabloon/Klassiek"}) {
    SchrijfScript({}, "Klassiek", uit);
    EXPECT_EQ(Genereer().failed, kMislukt);
    EXPECT_THAT(log_, ElementsAre(testing::_, testing::_, testing::_, "Variabelen uit script ingelezen.",
                                  "Uitvoerdirectory " + WithTrailingSlash(uit) +
                                      " is de sjabloondirectory; kies een andere uitvoerdirectory.",
                                  "Abnormaal einde."));
    EXPECT_EQ(InhoudVan(set), voor);
  }
}

}  // namespace
}  // namespace kiekbord::test
