// The base layer: its helpers as tables, and the file system and keyed text
// files on a real disk. Every row of tests/data/base/*.txt is
// "helper|argument|...|result"; a helper that throws gives "fout <number>".
#include <gtest/gtest.h>

#include <chrono>
#include <clocale>
#include <filesystem>
#include <functional>
#include <map>

#include "base/dutch_date.h"
#include "base/file_system.h"
#include "base/keyed_text_file.h"
#include "base/status.h"
#include "base/text.h"
#include "base/text_helpers.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using namespace std::chrono;
using Lines = std::vector<std::string>;


LineTable TableOf(std::string_view text, int capacity = 64, bool keep_empty = false) {
  LineTable table(capacity);
  LeesRegelsUitTekst(text, table, keep_empty);
  return table;
}

// The count slot and the lines of `table`: "<count>: <line>\n<line>...".
std::string Inhoud(const LineTable& table) {
  std::string uit = table.CountSlot() + ":";
  for (int i = 1; i <= table.Count(); ++i) uit += (i == 1 ? " " : "\n") + table.Line(i);
  return uit;
}

std::string SchrijfWaardeIn(const Lines& a) {
  LineTable table = TableOf(a[0], std::stoi(a[1]), true);
  const int status = SchrijfWaarde(table, a[2], a[3], "nieuw").number();
  return std::to_string(status) + " " + Inhoud(table);
}

const std::map<std::string, std::function<std::string(const Lines&)>> kHelpers = {
    {"Upper", [](const Lines& a) { return Upper(a[0]); }},
    {"Lower", [](const Lines& a) { return Lower(a[0]); }},
    {"DecodeText", [](const Lines& a) { return DecodeText(a[0]); }},
    {"TrimSpaces", [](const Lines& a) { return TrimSpaces(a[0]); }},
    {"EnkeleSpaties", [](const Lines& a) { return EnkeleSpaties(a[0]); }},
    {"HtmlTekst", [](const Lines& a) { return HtmlTekst(a[0]); }},
    {"KleurNaarHex", [](const Lines& a) { return KleurNaarHex(a[0]); }},
    {"HexNaarKleur", [](const Lines& a) { return std::to_string(HexNaarKleur(a[0], -7)); }},
    {"LeadingNumber", [](const Lines& a) { return NumberText(LeadingNumber(a[0])); }},
    {"IsNumber", [](const Lines& a) { return IsNumber(a[0]) ? "ja" : "nee"; }},
    {"CharCount", [](const Lines& a) { return std::to_string(CharCount(a[0])); }},
    {"Deel2", [](const Lines& a) { return Deel(2, ";", a[0]); }},
    {"Vervang", [](const Lines& a) { return Vervang(a[0], "a", "aa"); }},
    {"NederlandseLangeDatum",
     [](const Lines& a) { return NederlandseLangeDatum(year{std::stoi(a[0])} / std::stoi(a[1]) / std::stoi(a[2])); }},
    {"LeesRegelsUitTekst", [](const Lines& a) { return Inhoud(TableOf(a[0], std::stoi(a[1]), a[2] == "ja")); }},
    {"MatchesPattern", [](const Lines& a) { return MatchesPattern(a[0], a[1]) ? "ja" : "nee"; }},
    {"FromErrno", [](const Lines& a) { return Status::FromErrno(std::stoi(a[0])).CountSlotText().substr(7); }},
    {"LeesWaarde",
     [](const Lines& a) {
       return LeesWaarde(TableOf(test::ReadBytes(test::TestDataDir() + "base/opzoeken.ini")), a[0], a[1], "d");
     }},
    {"SchrijfWaarde", SchrijfWaardeIn},
};

TEST(BaseTablesTest, EveryRowGivesItsResult) {
  // The long dates are Dutch in any locale.
  const std::string vorige = std::setlocale(LC_ALL, nullptr);
  for (const char* locale : {"en_US.UTF-8", "C.UTF-8", "de_DE.UTF-8"}) std::setlocale(LC_ALL, locale);
  int rijen = 0;
  for (const std::string& bestand : test::BestandenIn(test::TestDataDir() + "base")) {
    if (!bestand.ends_with(".txt")) continue;
    for (const Lines& velden : test::Tabelrijen(test::TestDataDir() + "base/" + bestand)) {
      const Lines argumenten(velden.begin() + 1, velden.end() - 1);
      std::string uitkomst;
      try {
        uitkomst = kHelpers.at(velden.front())(argumenten);
      } catch (const RunError& fout) {
        uitkomst = "fout " + std::to_string(fout.number());
      }
      EXPECT_EQ(uitkomst, velden.back()) << bestand << ": " << ::testing::PrintToString(velden);
      ++rijen;
    }
  }
  std::setlocale(LC_ALL, vorige.c_str());
  EXPECT_GT(rijen, 80);
  EXPECT_LE(abs(sys_days{VandaagLokaal()} - floor<days>(system_clock::now())), days{1});
}

TEST(TextTest, TextsBeyondTheSixteenBitLimitOverflow) {
  EXPECT_NO_THROW(HtmlTekst(std::string(32767, 'a')));
  EXPECT_THROW(Vervang(std::string(32768, 'a'), "a", "b"), RunError);
  std::string accents;  // lengths count characters
  for (int i = 0; i < 32767; ++i) accents += "é";
  EXPECT_EQ(TelTeken(accents, "é"), 32767);
}

class KeyedTextFileTest : public ::testing::Test {
 protected:
  void SetUp() override { ResetWildcardCursor(); }
  test::TempDir dir_;
};

TEST_F(KeyedTextFileTest, FailuresCarryTheClassicErrorNumbersAndLeaveTheErrorTextInTheCountSlot) {
  std::string contents;
  EXPECT_EQ(Fs().ReadFile(dir_.path(), contents).number(), 75);
  EXPECT_EQ(Fs().WriteFile(dir_ / "geen/map.txt", "x").number(), 53);
  LineTable table = TableOf("[leeg]\nx=1\n", 3);  // a failed read counts as empty, whatever the table held
  EXPECT_EQ(LeesRegels(dir_ / "ontbreekt.ini", table, false).number(), 53);
  EXPECT_EQ(table.CountSlot(), "%Error 53 File not found");
  EXPECT_EQ(table.Count(), 0);
  EXPECT_EQ(LeesWaarde(table, "Leeg", "X", "standaard"), "standaard");
  table = TableOf("[A]\nk=1\n");
  EXPECT_EQ(SchrijfRegels(dir_ / "geen-map/uit.ini", table).number(), 53);
  EXPECT_EQ(table.CountSlot(), "%Error 53 File not found");
}

// "Key*" enumerates the matching lines, then gives the default and starts
// over; the cursor is shared by all tables and reset by any failed lookup.
TEST_F(KeyedTextFileTest, WildcardEnumeration) {
  const LineTable a = TableOf("[S]\nFoto:1.jpg=Strand\nAnders=x\nFOTO:2.jpg= Zee\n");
  const LineTable b = TableOf("[S]\nFoto:a=x\nFoto:b=y\n");
  Lines seen;
  for (int i = 0; i < 4; ++i) seen.push_back(LeesWaarde(a, "S", "Foto:*", ""));
  seen.push_back(LeesWaarde(b, "S", "Foto:*", ""));  // the same cursor moves on
  EXPECT_EQ(LeesWaarde(a, "S", "Ontbreekt", "d"), "d");
  seen.push_back(LeesWaarde(b, "S", "Foto:*", ""));
  seen.push_back(LeesWaarde(a, "S", "*", "plain"));  // a lone "*" is a plain key
  EXPECT_EQ(seen, (Lines{"1.jpg=Strand", "2.jpg= Zee", "", "1.jpg=Strand", "b=y", "a=x", "plain"}));
}

TEST(FileSystemTest, ListingSkipsHiddenFilesAndFoldersAndSortsByteWise) {
  test::TempDir dir;
  for (const char* name : {"b.jpg", "A.JPG", ".verborgen.jpg", "c.png", "a.jpg"}) test::WriteBytes(dir / name, "x");
  std::filesystem::create_directory(dir / "map.jpg");
  std::vector<std::string> names;
  ASSERT_TRUE(Fs().ListFiles(dir.path(), "*.jpg", names).ok());
  EXPECT_EQ(names, (std::vector<std::string>{"A.JPG", "a.jpg", "b.jpg"}));
}

TEST(FileSystemTest, WriteReplacesTheWholeFileAndLeavesNoTemporaryFile) {
  test::TempDir dir;
  test::WriteBytes(dir / "pagina.html", "oude en langere inhoud");
  ASSERT_TRUE(Fs().WriteFile(dir / "pagina.html", "nieuw").ok());
  EXPECT_EQ(test::BestandenIn(dir.path()), std::vector<std::string>{"pagina.html"});
  EXPECT_EQ(test::ReadBytes(dir / "pagina.html"), "nieuw");
}

TEST(FileSystemTest, ReadingCanStopAfterAPrefixAndCopyKeepsTheTime) {
  test::TempDir dir;
  test::WriteBytes(dir / "groot.bin", std::string(300000, 'z'));
  std::string contents;
  ASSERT_TRUE(Fs().ReadFile(dir / "groot.bin", contents, 262145).ok());
  EXPECT_EQ(contents.size(), 262145u);
  ASSERT_TRUE(Fs().SetModificationTime(dir / "groot.bin", 1234567890123456789).ok());
  ASSERT_TRUE(CopyFileKeepingTime(dir / "groot.bin", dir / "kopie.bin").ok());
  FileInfo info;
  ASSERT_TRUE(Fs().GetFileInfo(dir / "kopie.bin", info).ok());
  EXPECT_EQ(info.modified_ns, 1234567890123456789);
  EXPECT_EQ(info.size, 300000);
}

}  // namespace
}  // namespace kiekbord
