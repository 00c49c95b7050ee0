#include "generator/template_engine.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/status.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

using Lines = std::vector<std::string>;

Lines ReadTemplate(std::string_view text) {
  LineTable table(capaciteit::kTemplate);
  EXPECT_TRUE(LeesSjabloonUitTekst(text, table).ok());
  Lines lines;
  for (int i = 1; i <= table.Count(); ++i) lines.push_back(table.Line(i));
  return lines;
}

TEST(LeesSjabloonTest, StructuralTagsStandAloneAtTheStartOfTheirLines) {
  const std::pair<const char*, Lines> gevallen[] = {
      {"<html><head><title>[KIEKBORDVELD=TITEL]</title>\n</head><body class=\"x\">Tekst</body></html>\n",
       {"<html>", "<head>", "<title>[KIEKBORDVELD=TITEL]</title>", "</head>", "<body class=\"x\">", "Tekst",
        "</body>", "</html>"}},
      // A tag split over lines becomes one line.
      {"<HEAD>\n</HEAD>\n<body\n   class=\"x\"\t\tid=\"y\"\n>inhoud\n</BODY>",
       {"<HEAD>", "</HEAD>", "<body class=\"x\" id=\"y\" >", "inhoud", "</BODY>"}},
      // Template comments and empty lines disappear; other comments stay.
      {"   <!-- Sjabloon: uitleg -->  \n\n  <p>a</p>  \n<!-- gewoon commentaar -->\n<!--SJABLOON-->\n",
       {"<p>a</p>", "<!-- gewoon commentaar -->"}},
      // The body is only sought after the head tags, and each tag once, in
      // order: a second <HEAD and a </BODY before <BODY are ordinary text.
      {"<p>x</p><body>\n", {"<p>x</p><body>"}},
      {"x </BODY> <head> <head>\n", {"x </BODY> ", "<head>", "<head>"}}};
  for (const auto& [tekst, regels] : gevallen) EXPECT_EQ(ReadTemplate(tekst), regels) << tekst;
}

TEST(LeesSjabloonTest, KeepsTheFirst512Lines) {
  std::string text;
  for (int i = 1; i <= 600; ++i) text += "<p>" + std::to_string(i) + "</p>\n";
  const Lines lines = ReadTemplate(text);
  ASSERT_EQ(lines.size(), 512u);
  EXPECT_EQ(lines.back(), "<p>512</p>");
}

TEST(LeesSjabloonTest, UnclosedTagNeitherHangsNorCrashes) {
  std::string text = "<html>\n<head lang=\"nooit dicht\"\n";
  for (int i = 0; i < 100000; ++i) text += "regel " + std::to_string(i) + "\n";
  LineTable table(capaciteit::kTemplate);
  const Status status = LeesSjabloonUitTekst(text, table);
  // The collected tag outgrows the 16-bit text limit.
  EXPECT_EQ(status.number(), 6);
  EXPECT_EQ(table.CountSlot(), "%Error 6 Overflow");
}

TEST(LeesSjabloonTest, MissingFileReportsInSlotZero) {
  test::TempDir dir;
  LineTable table(capaciteit::kTemplate);
  EXPECT_FALSE(LeesSjabloon(dir / "kbtitel.html", table).ok());
  EXPECT_EQ(table.CountSlot(), "%Error 53 File not found");
}

// --- Filling fields --------------------------------------------------------

std::string Filled(std::string line, std::string_view name, std::string_view value) {
  VervangVeld(line, name, value);
  return line;
}

TEST(VervangVeldTest, MarkerRules) {
  struct Case { const char* line; const char* name; const char* value; const char* result; } cases[] = {
      {"<h1>[KIEKBORDVELD=TITEL]</h1>", "TITEL", "Kust", "<h1>Kust</h1>"},
      {"[kiekbordveld = titel ]", "TITEL", "Kust", "Kust"},
      {"[VELD KIEKBORD x=TITEL=extra]", "TITEL", "Kust", "Kust"},
      {"a [1] b [KIEKBORDVELD=TITEL]", "TITEL", "Kust", "a [1] b [KIEKBORDVELD=TITEL]"},
      {"[KIEKBORDVELD=TITEL] [1] [KIEKBORDVELD=TITEL]", "TITEL", "K", "K [1] K"},
      {"[a] [KIEKBORDVELD=TITEL]", "TITEL", "K", "[a] [KIEKBORDVELD=TITEL]"},
      {"[abcde] [KIEKBORDVELD=TITEL]", "TITEL", "K", "[abcde] K"},
      {"[KIEKBORDVELD=DATUM] [KIEKBORDVELD=TITEL]", "TITEL", "K", "[KIEKBORDVELD=DATUM] K"},
      {"[KIEKBORDVELD=TITEL", "TITEL", "K", "[KIEKBORDVELD=TITEL"},
      {"<a href=\"[KIEKBORDVELD=LINK]\">", "LINK", "a&b.html", "<a href=\"a&b.html\">"},
      {"[KIEKBORDVELD=TITEL]", "TITEL", "Tom & Jerry", "Tom &amp; Jerry"},
      {"[KIEKBORDVELD=TITEL]", "TITEL", "Tom \\& Jerry", "Tom & Jerry"},
      {"[KIEKBORDVELD=TITEL]", "TITEL", "a<br>b", "a&lt;br&gt;b"},
      {"[KIEKBORDVELD=BESCHRIJVING]", "BESCHRIJVING", "a<br>b & c", "a<br>b &amp; c"},
      {"[KIEKBORDVELD=FOTONUMMER+1]", "FOTONUMMER", "7", "8"},
      {"[KIEKBORDVELD=FOTONUMMER + 1]", "FOTONUMMER", "x", "x"},
      {"[KIEKBORDVELD=FOTONUMMER+1] [KIEKBORDVELD=FOTONUMMER]", "FOTONUMMER", "7", "8 8"},
      {"[KIEKBORDVELD=FOTONUMMER]", "FOTONUMMER", "", ""},
      // The addend of another field still changes the value for the rest of
      // the line: intended, and templates rely on it.
      {"[KIEKBORDVELD=VORIGE+1] [KIEKBORDVELD=AANTALFOTOS]", "AANTALFOTOS", "10", "[KIEKBORDVELD=VORIGE+1] 11"},
      // A value holding its own marker is filled once.
      {"<b>[KIEKBORDVELD=LINK]</b>", "LINK", "[KIEKBORDVELD=LINK]", "<b>[KIEKBORDVELD=LINK]</b>"},
      {"[KIEKBORDVELD=TITEL] [KIEKBORDVELD=TITEL]", "TITEL", "x[kiekbordveld=titel]",
       "x[kiekbordveld=titel] x[kiekbordveld=titel]"},
      // Text fields are those named in the text field list, any part of it.
      {"[KIEKBORDVELD=BIJSCHRIFT]", "BIJSCHRIFT", "<", "&lt;"},
      {"[KIEKBORDVELD=SUB]", "SUB", "<", "&lt;"},
      {"[KIEKBORDVELD=AANTALFOTOS]", "AANTALFOTOS", "<", "<"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(Filled(c.line, c.name, c.value), c.result) << c.line << " / " << c.value;
  }
}

TEST(VervangVeldTest, OverlongLineOverflows) {
  std::string line(40000, 'x');
  EXPECT_THROW(VervangVeld(line, "TITEL", "a"), RunError);
  std::string growing = "[KIEKBORDVELD=TITEL]";
  EXPECT_THROW(VervangVeld(growing, "TITEL", std::string(32760, 'y') + "<<<<"), RunError);
}

}  // namespace
}  // namespace kiekbord
