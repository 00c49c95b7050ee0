#include "base/keyed_text_file.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using Lines = std::vector<std::string>;

LineTable TableOf(std::string_view text, int capacity = 64, bool keep_empty = false) {
  LineTable table(capacity);
  LeesRegelsUitTekst(text, table, keep_empty);
  return table;
}

Lines LinesOf(const LineTable& table) {
  Lines lines;
  for (int i = 1; i <= table.Count(); ++i) lines.push_back(table.Line(i));
  return lines;
}

class KeyedTextFileTest : public ::testing::Test {
 protected:
  void SetUp() override { ResetWildcardCursor(); }
  test::TempDir dir_;
};

TEST_F(KeyedTextFileTest, ReadingTrimsSpacesAndDropsEmptyLinesUnlessKeptWhateverTheLineEnds) {
  const std::string text = "  [A]  \r\n\r\n\tkey=v \n   \nlast\rx1";
  EXPECT_EQ(LinesOf(TableOf(text)), (Lines{"[A]", "\tkey=v", "last", "x1"}));
  EXPECT_EQ(LinesOf(TableOf(text, 64, true)), (Lines{"[A]", "", "\tkey=v", "", "last", "x1"}));
  EXPECT_EQ(TableOf(text).CountSlot(), "4");
}

TEST_F(KeyedTextFileTest, ReadingStopsAtCapacity) {
  std::string text;
  for (int i = 1; i <= 100; ++i) text += "line" + std::to_string(i) + "\n";
  const LineTable table = TableOf(text, 64);
  EXPECT_EQ(table.Count(), 64);
  EXPECT_EQ(table.Line(64), "line64");
}

TEST_F(KeyedTextFileTest, ReadingFallsBackToWindows1252) {
  // "Café – 5 €" in Windows-1252, then UTF-8 with a byte order mark.
  EXPECT_EQ(TableOf("[A]\r\nT=Caf\xE9 \x96 5 \x80\r\n").Line(2), "T=Café – 5 €");
  EXPECT_EQ(LinesOf(TableOf("\xEF\xBB\xBF[A]\nT=Café\n")), (Lines{"[A]", "T=Café"}));
}

TEST_F(KeyedTextFileTest, FailedReadLeavesTheErrorTextAndReadsAsEmpty) {
  LineTable table(3);
  EXPECT_EQ(LeesRegels(dir_ / "ontbreekt.ini", table, false).number(), 53);
  EXPECT_EQ(table.CountSlot(), "%Error 53 File not found");
  EXPECT_TRUE(table.Failed());
  EXPECT_EQ(table.Count(), 0);
  EXPECT_EQ(LeesWaarde(table, "leeg", "x", "standaard"), "standaard");
  table.SetCountSlot("12");  // the count never exceeds the capacity
  EXPECT_EQ(table.Count(), 3);
}

TEST_F(KeyedTextFileTest, LookupRules) {
  const LineTable table = TableOf(
      "Naam=Kiek\n[abc]\nKleur=1\nKLEUR=2\na=\nTitel = x\n=zonder sleutel\nLeeg=\nSpaties=   met spaties\n"
      "Twee=a=b\n[half\nNaHalf=ja\n[Café]\nÉén=1\n[ABC]\nLater=ook\n");
  const struct {
    const char* section;
    const char* key;
    const char* expected;
  } cases[] = {
      {"leeg", "Naam", "Kiek"},  // lines before the first header
      {"LEEG", "naam", "Kiek"},
      {"abc", "Naam", "d"},
      {"Derde", "Kleur", "d"},
      {"ABC", "Kleur", "1"},  // first match wins
      {"ABC", "a", "d"},      // two-character lines are never keys
      {"ABC", "Titel", "d"},  // no trimming around "="
      {"ABC", "Titel ", "x"},
      {"ABC", "", "d"},  // a line starting with "=" has no key
      {"ABC", "Leeg", ""},
      {"ABC", "Spaties", "met spaties"},  // leading blanks of a value go
      {"ABC", "Twee", "a=b"},             // the value runs from the first "="
      {"ABC", "NaHalf", "ja"},            // "[half" is no header
      {"CAFÉ", "één", "1"},               // Latin-1 letters compare without case
      {"ABC", "Later", "ook"},            // repeated headers continue a section
  };
  for (const auto& c : cases) {
    EXPECT_EQ(LeesWaarde(table, c.section, c.key, "d"), c.expected) << c.section << "/" << c.key;
  }
}

TEST_F(KeyedTextFileTest, WildcardEnumeratesThenReturnsDefaultThenStartsOver) {
  const LineTable table =
      TableOf("[Fotobijschriften]\nFoto:img_1.jpg=Strand\nAnders=x\nFOTO:img_2.jpg= Zee\nFoto:img_3.jpg=\n");
  Lines seen;
  for (int i = 0; i < 5; ++i) seen.push_back(LeesWaarde(table, "Fotobijschriften", "Foto:*", ""));
  EXPECT_EQ(seen, (Lines{"img_1.jpg=Strand", "img_2.jpg= Zee", "img_3.jpg=", "", "img_1.jpg=Strand"}));
}

TEST_F(KeyedTextFileTest, WildcardCursorIsSharedAndResetByAnyFailedLookup) {
  const LineTable a = TableOf("[S]\nK1=a\nK2=b\n");
  const LineTable b = TableOf("[S]\nK1=x\nK2=y\n");
  EXPECT_EQ(LeesWaarde(a, "S", "K*", ""), "1=a");
  EXPECT_EQ(LeesWaarde(b, "S", "K*", ""), "2=y");  // the same cursor moves on
  EXPECT_EQ(LeesWaarde(a, "S", "Ontbreekt", "d"), "d");
  EXPECT_EQ(LeesWaarde(a, "S", "K*", ""), "1=a");        // a failed lookup restarted it
  EXPECT_EQ(LeesWaarde(a, "S", "*", "plain"), "plain");  // a lone "*" is a plain key
}

TEST_F(KeyedTextFileTest, UpdateRules) {
  const struct {
    const char* what;
    const char* before;
    int capacity;
    const char* section;
    const char* key;
    Lines after;
    int status;
  } cases[] = {
      {"an existing key is replaced in place", "[A]\nk1=1\nk2=2\n[B]\nk1=3\n", 64, "a", "K1",
       {"[A]", "K1=nieuw", "k2=2", "[B]", "k1=3"}, 0},
      {"a new key goes after the kept empty lines, before the next header", "[A]\nk1=1\n\n[B]\nk1=3\n", 64, "A", "k9",
       {"[A]", "k1=1", "", "k9=nieuw", "[B]", "k1=3"}, 0},
      {"a new key of the last section goes at the end", "[A]\nk1=1\n[B]\nk1=3\n", 64, "B", "k9",
       {"[A]", "k1=1", "[B]", "k1=3", "k9=nieuw"}, 0},
      {"a new section goes at the end", "Los=1\n", 64, "Algemeen", "Titel", {"Los=1", "[Algemeen]", "Titel=nieuw"}, 0},
      {"an empty section is not recognised, so its header repeats", "[A]\n[B]\nx=1\n", 64, "A", "k",
       {"[A]", "[B]", "x=1", "[A]", "k=nieuw"}, 0},
      {"a one-letter key with an empty value is invisible", "[A]\nb=\nc=1\n", 64, "A", "b",
       {"[A]", "b=", "c=1", "b=nieuw"}, 0},
      {"a full table takes no new key", "[A]\nk=1\n", 2, "A", "n", {"[A]", "k=1"}, 9},
      {"nor a new section", "[A]\nk=1\n", 2, "B", "n", {"[A]", "k=1"}, 9},
      {"but a replacement fits", "[A]\nk=1\n", 2, "A", "k", {"[A]", "k=nieuw"}, 0},
  };
  for (const auto& c : cases) {
    LineTable table = TableOf(c.before, c.capacity, true);
    EXPECT_EQ(SchrijfWaarde(table, c.section, c.key, "nieuw").number(), c.status) << c.what;
    EXPECT_EQ(LinesOf(table), c.after) << c.what;
    EXPECT_EQ(table.CountSlot(), std::to_string(c.after.size())) << c.what;
  }
}

TEST_F(KeyedTextFileTest, WritingUsesCrLfAndDropsWhatReadingDropped) {
  test::WriteBytes(dir_ / "in.ini", "[A]\n\n   inspring=1\n");
  LineTable table(64);
  ASSERT_TRUE(LeesRegels(dir_ / "in.ini", table, false).ok());
  ASSERT_TRUE(SchrijfWaarde(table, "A", "Tekst", "Één = [twee] & \"drie\"").ok());
  ASSERT_TRUE(SchrijfRegels(dir_ / "uit.ini", table).ok());
  EXPECT_EQ(test::ReadBytes(dir_ / "uit.ini"), "[A]\r\ninspring=1\r\nTekst=Één = [twee] & \"drie\"\r\n");
}

TEST_F(KeyedTextFileTest, FailedWriteLeavesErrorTextInCountSlot) {
  LineTable table = TableOf("[A]\nk=1\n");
  const Status status = SchrijfRegels(dir_ / "geen-map/uit.ini", table);
  EXPECT_EQ(status.number(), 53);
  EXPECT_EQ(table.CountSlot(), "%Error 53 File not found");
}

}  // namespace
}  // namespace kiekbord
