#include "base/text_helpers.h"

#include <gtest/gtest.h>

#include "base/status.h"

namespace kiekbord {
namespace {

TEST(TextHelpersTest, VervangReplacesEveryOccurrenceAndNeverRescansInsertedText) {
  EXPECT_EQ(Vervang("reis.kbs", ".kbs", ".log"), "reis.log");
  EXPECT_EQ(Vervang("aaa", "a", "aa"), "aaaaaa");
  EXPECT_EQ(Vervang("Aa", "a", "b"), "Ab");  // case matters
  EXPECT_EQ(Vervang("tekst", "", "x"), "tekst");
  EXPECT_EQ(Vervang("x.html.html", ".html", "m.html"), "xm.htmlm.html");
}

TEST(TextHelpersTest, DeelTakesOnePieceOrTheSeparatorWhenTooFewPieces) {
  struct Case { int n; const char* list; const char* piece; } cases[] = {
      {1, "left;center;right", "left"},  {2, "left;center;right", "center"},
      {3, "left;center;right", "right"}, {4, "left;center;right", ";"},
      {0, "left;center;right", "left"},  {-5, "left;center;right", "left"},
      {2, "a;;c", ""},                   {2, "alleen", ";"},
      {1, "", ""},
  };
  for (const auto& c : cases) EXPECT_EQ(Deel(c.n, ";", c.list), c.piece) << c.n << " " << c.list;
  EXPECT_EQ(Deel(2, "$$", "a.jpg$$b.jpg"), "b.jpg");
}

TEST(TextHelpersTest, EnkeleSpatiesTrimsAndCollapses) {
  EXPECT_EQ(EnkeleSpaties("  <BODY   class=x    id=y >  "), "<BODY class=x id=y >");
  EXPECT_EQ(EnkeleSpaties("a\t\tb"), "a\t\tb");
  EXPECT_EQ(EnkeleSpaties("     "), "");
}

TEST(TextHelpersTest, HtmlTekstEscapesTheTableAndHonoursBackslashes) {
  struct Case { const char* text; const char* html; } cases[] = {
      {"Tom & Jerry", "Tom &amp; Jerry"},
      {"Tom \\& Jerry", "Tom & Jerry"},
      {"a<br>b", "a&lt;br&gt;b"},
      {"\"Zeeën\" & café", "&quot;Zee&euml;n&quot; &amp; caf&eacute;"},
      {"ç ã ê è é ë ï ö ü", "&ccedil; &atilde; &ecirc; &egrave; &eacute; &euml; &iuml; &ouml; &uuml;"},
      {"á ä ß 'x'", "á ä ß 'x'"},
      {"  spaties  ", "spaties"},
      {"&&", "&amp;&amp;"},
      {"\\<b\\>", "<b>"},
      {"", ""},
  };
  for (const auto& c : cases) EXPECT_EQ(HtmlTekst(c.text), c.html) << c.text;
}

TEST(TextHelpersTest, KleurNaarHexGivesHtmlOrder) {
  struct Case { const char* colour; const char* hex; } cases[] = {
      {"0", "000000"},      {"16777215", "FFFFFF"}, {"13421772", "CCCCCC"},
      {"255", "FF0000"},    {"65280", "00FF00"},    {"#00FF00", "00FF00"},
      {"#00FF0", ""},       {"groen", ""},          {"", ""},
      {"-1", "FFFFFF"},     {"16777216", "000010"},
  };
  for (const auto& c : cases) EXPECT_EQ(KleurNaarHex(c.colour), c.hex) << c.colour;
  EXPECT_THROW(KleurNaarHex("99999999999"), RunError);
}

TEST(TextHelpersTest, HexNaarKleurReadsHtmlColoursOrFallsBack) {
  struct Case { const char* text; std::int32_t colour; } cases[] = {
      {"#FF0000", 255},  {"ff0000", 255},       {" #0000ff ", 16711680},
      {"#FFF", 0xFF0F00},     {"#", -7},
      {"x", -7},         {"#GG0000", -7},       {"#1234567", -7},
      {"CCCCCC", 13421772},
  };
  for (const auto& c : cases) EXPECT_EQ(HexNaarKleur(c.text, -7), c.colour) << c.text;
}

TEST(TextHelpersTest, TextsBeyondTheSixteenBitLimitOverflow) {
  EXPECT_NO_THROW(HtmlTekst(std::string(32767, 'a')));
  const std::string beyond(32768, 'a');
  EXPECT_THROW(Vervang(beyond, "a", "b"), RunError);
  try {
    HtmlTekst(beyond);
    FAIL() << "no overflow";
  } catch (const RunError& error) {
    EXPECT_EQ(error.number(), 6);
    EXPECT_EQ(error.description(), "Overflow");
  }
  // Lengths count characters: 32767 two-byte characters are within the limit.
  std::string accents;
  for (int i = 0; i < 32767; ++i) accents += "é";
  EXPECT_EQ(TelTeken(accents, "é"), 32767);
  EXPECT_EQ(TelTeken("a;b;c", ";"), 2);
}

}  // namespace
}  // namespace kiekbord
