#include "editor/photo_list.h"

#include <gtest/gtest.h>

#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using test::TempDir;
using test::WriteBytes;

TEST(PhotoList, FotosInMapListsLowerCasePhotosOnly) {
  TempDir map;
  for (const char* naam : {"b.jpg", "A.JPG", "a.jpg", "c_tn.jpg", "d.txt", "e.jpeg"}) WriteBytes(map / naam, "x");
  EXPECT_EQ(FotosInMap(map.path()), (std::vector<std::string>{"a.jpg", "b.jpg"}));
  EXPECT_TRUE(FotosInMap(map / "weg").empty());
}

TEST(PhotoList, RefreshKeepsOrderAndCaptionsAndDropsMissingFiles) {
  TempDir map;
  for (const char* naam : {"a.jpg", "b.jpg", "c.jpg"}) WriteBytes(map / naam, "x");
  const std::vector<PhotoEntry> fotos = {{"c.jpg", "Zee"}, {"weg.jpg", "Kwijt"}, {"a.jpg", ""}};
  EXPECT_EQ(VernieuwdeLijst(fotos, map.path(), {}, 100),
            (std::vector<PhotoEntry>{{"c.jpg", "Zee"}, {"a.jpg", ""}}));
  // Newly copied photos come after the gallery's own.
  EXPECT_EQ(VernieuwdeLijst(fotos, map.path(), {"a.jpg", "b.jpg", "c.jpg"}, 100),
            (std::vector<PhotoEntry>{{"c.jpg", "Zee"}, {"a.jpg", ""}, {"b.jpg", ""}}));
  // An empty list takes every photo of the directory, up to the maximum.
  EXPECT_EQ(VernieuwdeLijst({}, map.path(), {}, 2), (std::vector<PhotoEntry>{{"a.jpg", ""}, {"b.jpg", ""}}));
  EXPECT_EQ(VernieuwdeLijst({{"weg.jpg", ""}}, map.path(), {}, 100).size(), 3u);
}

TEST(PhotoList, MoveUpAndDown) {
  std::vector<PhotoEntry> f = {{"a", "1"}, {"b", "2"}, {"c", "3"}};
  EXPECT_EQ(FotoOmhoog(f, 0), 0);
  EXPECT_EQ(FotoOmhoog(f, 2), 1);
  EXPECT_EQ(f, (std::vector<PhotoEntry>{{"a", "1"}, {"c", "3"}, {"b", "2"}}));
  EXPECT_EQ(FotoOmlaag(f, 2), 2);
  EXPECT_EQ(FotoOmlaag(f, 0), 1);
  EXPECT_EQ(f, (std::vector<PhotoEntry>{{"c", "3"}, {"a", "1"}, {"b", "2"}}));
  EXPECT_EQ(FotoOmlaag(f, -1), -1);
  EXPECT_EQ(FotoOmhoog(f, 7), 7);
}

TEST(PhotoList, SizeAndInfoTexts) {
  struct Geval {
    std::int64_t bytes;
    const char* tekst;
  };
  for (const Geval& g : {Geval{0, "0 bytes"}, Geval{1023, "1023 bytes"}, Geval{1024, "1,0 kB"},
                         Geval{12697, "12,4 kB"}, Geval{3355443, "3,2 MB"}}) {
    EXPECT_EQ(BestandsGrootteTekst(g.bytes), g.tekst) << g.bytes;
  }
  EXPECT_EQ(FotoInfoTekst("img_0001.jpg", 4000, 3000, 3355443), "img_0001.jpg\n4000 x 3000 pixels\n3,2 MB");
  EXPECT_EQ(FotoInfoTekst("kapot.jpg", 0, 0, 9), "kapot.jpg\ngeen leesbare foto\n9 bytes");
}

}  // namespace
}  // namespace kiekbord
