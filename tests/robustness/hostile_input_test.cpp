// Hostile input: names full of shell and HTML characters, symbolic-link
// loops in a template set. An output folder that is the template folder is
// in the refused scripts of the run safety tests.
// Photos that are no photos or claim an absurd size are in the image tests.
#include "tests/robustness/gallery_fixture.h"
#include "tests/support/site_links.h"

namespace kiekbord::test {
namespace {

using ::testing::Contains;
using ::testing::IsEmpty;

// kiekbord-maak with a script whose name starts with a dash and holds a
// newline and "$", in a folder with quotes and Greek and Japanese letters;
// photo names with quotes, "#", "?", "%", "&" and "$". Started without a
// shell, so nothing is expanded on the way; every link of the site works.
TEST_F(Robuustheid, OddNamesThroughTheCommandAndTheGeneration) {
  const std::string map = dir_ / "map 'x\" $HOME Ελλάδα 日本/";
  std::filesystem::create_directories(map);
  const std::vector<std::string> namen = {"-strand $x 'q\" ë.jpg", "φωτο 写真.jpg", "a#b?c%20d&e$$f.jpg"};
  for (const std::string& naam : namen) WriteBytes(map + naam, fotos_["zee.jpg"]);
  SchrijfScript({.namen = namen, .uit = map});
  const std::string script_naam = "-galerij\n$1.kbs";
  std::filesystem::rename(Script(), map + script_naam);
  EXPECT_EQ(KiekbordMaak(map, script_naam, dir_ / "fout.txt"), 0);
  EXPECT_TRUE(ReadBytes(map + "-galerij\n$1.log").ends_with("Normaal einde.\r\n"));
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
  const std::pair<const char*, const char*> links[] = {
      {"zelf.gif", "zelf.gif"}, {"a.js", "b.js"}, {"b.js", "a.js"}, {"lus.css", "."}, {"terug", "../Lus"}};
  for (const auto& [naam, doel] : links) std::filesystem::create_symlink(doel, set + naam);
  SchrijfScript({.sjabloon = "Lus"});
  EXPECT_EQ(Genereer().failed, kGelukt);
  EXPECT_THAT(log_, Contains("2 Afbeelding(en) gekopieerd naar uitvoerdirectory."));
  EXPECT_THAT(log_, Contains("1 Script(s) gevonden in sjabloondirectory."));
  EXPECT_THAT(log_, Contains("Geen extra stylesheets gevonden in sjabloondirectory."));
  for (const auto& [naam, doel] : links) EXPECT_FALSE(std::filesystem::exists(Uit() + naam)) << naam;
}

}  // namespace
}  // namespace kiekbord::test
