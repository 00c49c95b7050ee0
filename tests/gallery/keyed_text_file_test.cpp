#include "gallery/keyed_text_file.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

LineTable TableOf(std::string_view text, int capacity = 64, bool keep_empty = false) {
  LineTable table(capacity);
  LeesRegelsUitTekst(text, table, keep_empty);
  return table;
}

std::vector<std::string> Lines(const LineTable& table) {
  std::vector<std::string> lines;
  for (int i = 1; i <= table.Count(); ++i) lines.push_back(table.Line(i));
  return lines;
}

class KeyedTextFileTest : public ::testing::Test {
 protected:
  void SetUp() override { ResetWildcardCursor(); }
};

// --- Reading ---------------------------------------------------------------

TEST_F(KeyedTextFileTest, ReadingTrimsSpacesAndDropsEmptyLinesUnlessKept) {
  const std::string text = "  [A]  \r\n\r\n\tkey=v \r\n   \r\nlast";
  EXPECT_EQ(Lines(TableOf(text)), (std::vector<std::string>{"[A]", "\tkey=v", "last"}));
  EXPECT_EQ(Lines(TableOf(text, 64, true)),
            (std::vector<std::string>{"[A]", "", "\tkey=v", "", "last"}));
  EXPECT_EQ(TableOf(text).CountSlot(), "3");
}

TEST_F(KeyedTextFileTest, ReadingAcceptsLfCrLfAndCrLineEnds) {
  EXPECT_EQ(Lines(TableOf("a1\nb2\r\nc3\rd4\n")),
            (std::vector<std::string>{"a1", "b2", "c3", "d4"}));
}

TEST_F(KeyedTextFileTest, ReadingStopsAtCapacity) {
  std::string text;
  for (int i = 1; i <= 100000; ++i) text += "line" + std::to_string(i) + "\n";
  const LineTable table = TableOf(text, 64);
  EXPECT_EQ(table.Count(), 64);
  EXPECT_EQ(table.Line(64), "line64");
}

TEST_F(KeyedTextFileTest, ReadingFallsBackToWindows1252) {
  // "Café – 5 €" in Windows-1252, then the same text in UTF-8 with a BOM.
  EXPECT_EQ(TableOf("[A]\r\nT=Caf\xE9 \x96 5 \x80\r\n").Line(2), "T=Café – 5 €");
  EXPECT_EQ(TableOf("\xEF\xBB\xBF[A]\nT=Café\n").Line(1), "[A]");
  EXPECT_EQ(TableOf("\xEF\xBB\xBF[A]\nT=Café\n").Line(2), "T=Café");
}

TEST_F(KeyedTextFileTest, HostileBytesReadWithoutFailing) {
  std::string binary;
  for (int i = 0; i < 4096; ++i) binary += static_cast<char>(i * 37 % 256);
  const LineTable table = TableOf(binary, 1024);
  EXPECT_FALSE(table.Failed());
  const std::string long_line(1 << 20, 'x');
  EXPECT_EQ(TableOf("[A]\n" + long_line + "=1\n").Line(2).size(), long_line.size() + 2);
  EXPECT_EQ(LeesWaarde(TableOf("[A]\n" + long_line + "=1\n"), "A", long_line, "d"), "1");
}

TEST_F(KeyedTextFileTest, MissingFileLeavesErrorTextAndReadsAsEmpty) {
  test::TempDir dir;
  LineTable table(64);
  const Status status = LeesRegels(dir / "ontbreekt.ini", table, false);
  EXPECT_EQ(status.number(), 53);
  EXPECT_EQ(table.CountSlot(), "%Error 53 File not found");
  EXPECT_TRUE(table.Failed());
  EXPECT_EQ(table.Count(), 0);
  EXPECT_EQ(LeesWaarde(table, "leeg", "x", "standaard"), "standaard");
}

TEST_F(KeyedTextFileTest, CountSlotIsClampedToCapacityAndNonNumbersCountAsZero) {
  LineTable table(3);
  table.SetCountSlot("12");
  EXPECT_EQ(table.Count(), 3);
  table.SetCountSlot("abc");
  EXPECT_EQ(table.Count(), 0);
}

// --- Lookup ----------------------------------------------------------------

TEST_F(KeyedTextFileTest, LinesBeforeTheFirstHeaderBelongToSectionLeeg) {
  const LineTable table = TableOf("Naam=Kiek\n[Ander]\nNaam=Bord\n");
  EXPECT_EQ(LeesWaarde(table, "leeg", "Naam", "d"), "Kiek");
  EXPECT_EQ(LeesWaarde(table, "LEEG", "naam", "d"), "Kiek");
  EXPECT_EQ(LeesWaarde(table, "Ander", "Naam", "d"), "Bord");
  EXPECT_EQ(LeesWaarde(table, "Derde", "Naam", "d"), "d");
}

TEST_F(KeyedTextFileTest, LookupRules) {
  const LineTable table = TableOf(
      "[abc]\n"
      "Kleur=1\n"
      "KLEUR=2\n"
      "a=\n"
      "Titel = x\n"
      "=zonder sleutel\n"
      "Leeg=\n"
      "Spaties=   waarde met spaties\n"
      "Twee=a=b\n"
      "[half\n"
      "NaHalf=ja\n"
      "[ABC]\n"
      "Later=ook\n");
  struct Case { const char* key; const char* expected; } cases[] = {
      {"Kleur", "1"},                      // first match wins
      {"a", "d"},                          // two-character lines are never keys
      {"Titel", "d"},                      // no trimming around "="
      {"Titel ", "x"},
      {"", "d"},                           // a line starting with "=" has no key
      {"Leeg", ""},
      {"Spaties", "waarde met spaties"},   // leading blanks of a value go
      {"Twee", "a=b"},                     // the value runs from the first "="
      {"NaHalf", "ja"},                    // "[half" is no header
      {"Later", "ook"},                    // repeated headers continue a section
  };
  for (const auto& c : cases) {
    EXPECT_EQ(LeesWaarde(table, "ABC", c.key, "d"), c.expected) << c.key;
  }
}

TEST_F(KeyedTextFileTest, LatinLettersCompareWithoutCase) {
  const LineTable table = TableOf("[Café]\nÉén=1\n");
  EXPECT_EQ(LeesWaarde(table, "CAFÉ", "één", "d"), "1");
}

TEST_F(KeyedTextFileTest, WildcardEnumeratesThenReturnsDefaultThenStartsOver) {
  const LineTable table = TableOf(
      "[Fotobijschriften]\nFoto:img_1.jpg=Strand\nAnders=x\nFOTO:img_2.jpg= Zee\nFoto:img_3.jpg=\n");
  std::vector<std::string> seen;
  for (int i = 0; i < 5; ++i) seen.push_back(LeesWaarde(table, "Fotobijschriften", "Foto:*", ""));
  EXPECT_EQ(seen, (std::vector<std::string>{"img_1.jpg=Strand", "img_2.jpg= Zee", "img_3.jpg=", "",
                                            "img_1.jpg=Strand"}));
}

TEST_F(KeyedTextFileTest, WildcardCursorIsSharedAndResetByAnyFailedLookup) {
  const LineTable a = TableOf("[S]\nK1=a\nK2=b\n");
  const LineTable b = TableOf("[S]\nK1=x\nK2=y\n");
  EXPECT_EQ(LeesWaarde(a, "S", "K*", ""), "1=a");
  EXPECT_EQ(LeesWaarde(b, "S", "K*", ""), "2=y");  // the same cursor moves on
  EXPECT_EQ(LeesWaarde(a, "S", "Ontbreekt", "d"), "d");
  EXPECT_EQ(LeesWaarde(a, "S", "K*", ""), "1=a");  // a failed lookup restarted it
  EXPECT_EQ(LeesWaarde(a, "S", "*", "plain"), "plain");  // a lone "*" is a plain key
}

// --- Updates ---------------------------------------------------------------

TEST_F(KeyedTextFileTest, UpdateReplacesExistingKeyInPlace) {
  LineTable table = TableOf("[A]\nk1=1\nk2=2\n[B]\nk1=3\n");
  ASSERT_TRUE(SchrijfWaarde(table, "a", "K1", "nieuw").ok());
  EXPECT_EQ(Lines(table), (std::vector<std::string>{"[A]", "K1=nieuw", "k2=2", "[B]", "k1=3"}));
  EXPECT_EQ(table.CountSlot(), "5");
}

TEST_F(KeyedTextFileTest, NewKeyBecomesTheLastLineOfItsSection) {
  LineTable table = TableOf("[A]\nk1=1\n\n[B]\nk1=3\n", 64, true);
  ASSERT_TRUE(SchrijfWaarde(table, "A", "k9", "9").ok());
  EXPECT_EQ(Lines(table), (std::vector<std::string>{"[A]", "k1=1", "", "k9=9", "[B]", "k1=3"}));
  ASSERT_TRUE(SchrijfWaarde(table, "B", "k9", "b").ok());
  EXPECT_EQ(table.Line(7), "k9=b");
  EXPECT_EQ(table.CountSlot(), "7");
}

TEST_F(KeyedTextFileTest, NewSectionGoesAtTheEnd) {
  LineTable table(64);
  ASSERT_TRUE(SchrijfWaarde(table, "Algemeen", "Titel", "Kust").ok());
  ASSERT_TRUE(SchrijfWaarde(table, "Algemeen", "Datum", "mei").ok());
  ASSERT_TRUE(SchrijfWaarde(table, "Foto001", "Foto", "a.jpg").ok());
  EXPECT_EQ(Lines(table), (std::vector<std::string>{"[Algemeen]", "Titel=Kust", "Datum=mei",
                                                    "[Foto001]", "Foto=a.jpg"}));
}

TEST_F(KeyedTextFileTest, EmptySectionIsNotRecognisedSoTheHeaderRepeats) {
  LineTable table = TableOf("[A]\n[B]\nx=1\n");
  ASSERT_TRUE(SchrijfWaarde(table, "A", "k", "v").ok());
  EXPECT_EQ(Lines(table), (std::vector<std::string>{"[A]", "[B]", "x=1", "[A]", "k=v"}));
  EXPECT_EQ(LeesWaarde(table, "A", "k", "d"), "v");
}

TEST_F(KeyedTextFileTest, OneLetterKeyWithEmptyValueIsInvisibleToUpdates) {
  LineTable table = TableOf("[A]\nb=\nc=1\n");
  ASSERT_TRUE(SchrijfWaarde(table, "A", "b", "2").ok());
  EXPECT_EQ(Lines(table), (std::vector<std::string>{"[A]", "b=", "c=1", "b=2"}));
}

TEST_F(KeyedTextFileTest, UpdateOfAFullTableFailsAndChangesNothing) {
  LineTable table = TableOf("[A]\nk=1\n", 2);
  EXPECT_EQ(SchrijfWaarde(table, "A", "n", "2").number(), 9);
  EXPECT_EQ(SchrijfWaarde(table, "B", "n", "2").number(), 9);
  EXPECT_EQ(Lines(table), (std::vector<std::string>{"[A]", "k=1"}));
  EXPECT_TRUE(SchrijfWaarde(table, "A", "k", "3").ok());
}

// --- Writing ---------------------------------------------------------------

TEST_F(KeyedTextFileTest, WrittenTableReadsBackWithEveryValue) {
  test::TempDir dir;
  LineTable table(1024);
  for (int i = 0; i < 300; ++i) {
    const std::string section = "Foto" + std::to_string(i);
    ASSERT_TRUE(SchrijfWaarde(table, section, "Foto", "foto " + std::to_string(i) + ".jpg").ok());
    ASSERT_TRUE(SchrijfWaarde(table, section, "Bijschrift", "Één = [twee] & \"drie\"").ok());
  }
  ASSERT_TRUE(SchrijfRegels(dir / "s.kbs", table).ok());
  LineTable back(1024);
  ASSERT_TRUE(LeesRegels(dir / "s.kbs", back, false).ok());
  ASSERT_EQ(Lines(back), Lines(table));
  EXPECT_EQ(LeesWaarde(back, "Foto299", "Bijschrift", ""), "Één = [twee] & \"drie\"");
}

TEST_F(KeyedTextFileTest, WritingUsesCrLfAndDropsWhatReadingDropped) {
  test::TempDir dir;
  test::WriteBytes(dir / "in.ini", "[A]\n\n   inspring=1\n");
  LineTable table(64);
  ASSERT_TRUE(LeesRegels(dir / "in.ini", table, false).ok());
  ASSERT_TRUE(SchrijfRegels(dir / "uit.ini", table).ok());
  EXPECT_EQ(test::ReadBytes(dir / "uit.ini"), "[A]\r\ninspring=1\r\n");
}

TEST_F(KeyedTextFileTest, FailedWriteLeavesErrorTextInCountSlot) {
  test::TempDir dir;
  LineTable table = TableOf("[A]\nk=1\n");
  const Status status = SchrijfRegels(dir / "geen-map/uit.ini", table);
  EXPECT_FALSE(status.ok());
  EXPECT_EQ(table.CountSlot(), status.CountSlotText());
  EXPECT_EQ(table.CountSlot().substr(0, 7), "%Error ");
}

}  // namespace
}  // namespace kiekbord
