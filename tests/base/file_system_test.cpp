#include "base/file_system.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

TEST(FileSystemTest, PatternsMatchWithoutRegardToCase) {
  struct Case { const char* name; const char* pattern; bool match; } cases[] = {
      {"kb001.html", "kb*.html", true},  {"KB001.HTML", "kb*.html", true},
      {"index.html", "kb*.html", false}, {"kb.html", "kb*.html", true},
      {"kb001.htm", "kb*.html", false},  {"foto.JPG", "*.jpg", true},
      {"café.GIF", "CAFÉ.gif", true},    {"a.js", "?.js", true},
      {"ab.js", "?.js", false},          {"é.js", "?.js", true},
      {"x.jpg.bak", "*.jpg", false},     {"a*b", "a*b", true},
  };
  for (const auto& c : cases) EXPECT_EQ(MatchesPattern(c.name, c.pattern), c.match) << c.name;
}

TEST(FileSystemTest, ListingSkipsHiddenFilesAndFoldersAndSortsByteWise) {
  test::TempDir dir;
  for (const char* name : {"b.jpg", "A.JPG", ".verborgen.jpg", "c.png", "a.jpg"}) {
    test::WriteBytes(dir / name, "x");
  }
  std::filesystem::create_directory(dir / "map.jpg");
  std::vector<std::string> names;
  ASSERT_TRUE(Fs().ListFiles(dir.path(), "*.jpg", names).ok());
  EXPECT_EQ(names, (std::vector<std::string>{"A.JPG", "a.jpg", "b.jpg"}));
  EXPECT_FALSE(Fs().ListFiles(dir / "ontbreekt", "*", names).ok());
}

TEST(FileSystemTest, WriteReplacesTheWholeFileAndLeavesNoTemporaryFile) {
  test::TempDir dir;
  test::WriteBytes(dir / "pagina.html", "oude en langere inhoud");
  ASSERT_TRUE(Fs().WriteFile(dir / "pagina.html", "nieuw").ok());
  EXPECT_EQ(test::ReadBytes(dir / "pagina.html"), "nieuw");
  std::vector<std::string> names;
  ASSERT_TRUE(Fs().ListFiles(dir.path(), "*", names).ok());
  EXPECT_EQ(names, std::vector<std::string>{"pagina.html"});
}

TEST(FileSystemTest, FailuresCarryTheClassicErrorNumbers) {
  test::TempDir dir;
  std::string contents;
  EXPECT_EQ(Fs().ReadFile(dir / "nergens", contents).CountSlotText(), "%Error 53 File not found");
  EXPECT_EQ(Fs().WriteFile(dir / "geen/map.txt", "x").number(), 53);
  EXPECT_EQ(Fs().ReadFile(dir.path(), contents).number(), 75);
  EXPECT_EQ(Fs().DeleteFile(dir / "nergens").number(), 53);
}

TEST(FileSystemTest, ReadingCanStopAfterAPrefix) {
  test::TempDir dir;
  test::WriteBytes(dir / "groot.bin", std::string(300000, 'z'));
  std::string contents;
  ASSERT_TRUE(Fs().ReadFile(dir / "groot.bin", contents, 262145).ok());
  EXPECT_EQ(contents.size(), 262145u);
}

TEST(FileSystemTest, CopyKeepsTheModificationTime) {
  test::TempDir dir;
  test::WriteBytes(dir / "bron.gif", "GIF89a");
  ASSERT_TRUE(Fs().SetModificationTime(dir / "bron.gif", 1234567890123456789).ok());
  ASSERT_TRUE(CopyFileKeepingTime(dir / "bron.gif", dir / "kopie.gif").ok());
  FileInfo info;
  ASSERT_TRUE(Fs().GetFileInfo(dir / "kopie.gif", info).ok());
  EXPECT_EQ(info.modified_ns, 1234567890123456789);
  EXPECT_EQ(info.size, 6);
}

TEST(FileSystemTest, PathHelpers) {
  EXPECT_EQ(DirectoryOf("/a/b/c.kbs"), "/a/b/");
  EXPECT_EQ(DirectoryOf("c.kbs"), "");
  EXPECT_EQ(FileNameOf("/a/b/c.kbs"), "c.kbs");
  EXPECT_EQ(WithTrailingSlash("/a"), "/a/");
  EXPECT_EQ(WithTrailingSlash("/a/"), "/a/");
}

}  // namespace
}  // namespace kiekbord
