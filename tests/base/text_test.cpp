#include "base/text.h"

#include <gtest/gtest.h>

namespace kiekbord {
namespace {

TEST(TextTest, CaseMappingCoversAsciiAndLatin1Letters) {
  EXPECT_EQ(Upper("abc é ë ç ÿ × ÷ ß"), "ABC É Ë Ç Ÿ × ÷ ß");
  EXPECT_EQ(Lower("ÀÉÏ XYZ × Ÿ"), "àéï xyz × ÿ");
  EXPECT_EQ(Upper("\xFF\xFEstray"), "\xFF\xFESTRAY");  // stray bytes kept
  EXPECT_TRUE(EqualsIgnoreCase("Café", "CAFÉ"));
}

TEST(TextTest, CharCountCountsCodePoints) {
  EXPECT_EQ(CharCount(""), 0u);
  EXPECT_EQ(CharCount("é=€😀a"), 5u);
}

TEST(TextTest, DecodeKeepsUtf8AndConvertsEverythingElseFromWindows1252) {
  EXPECT_EQ(DecodeText("gewoon"), "gewoon");
  EXPECT_EQ(DecodeText("\xEF\xBB\xBF" "één"), "één");
  EXPECT_EQ(DecodeText("\x93quote\x94 \xE9\x81"), "“quote” é\xC2\x81");
  EXPECT_TRUE(IsValidUtf8(DecodeText("\xC0\xAF overlong \xED\xA0\x80 surrogate")));
}

TEST(TextTest, LeadingNumberReadsLikeAClassicValFunction) {
  struct Case { const char* text; double value; } cases[] = {
      {"12", 12}, {" 3", 3}, {"12abc", 12}, {"%Error 53", 0}, {"", 0}, {"-4.5x", -4.5},
      {"1e3", 1000}, {"abc", 0}, {".5", 0.5}, {"+7", 7},
  };
  for (const auto& c : cases) EXPECT_DOUBLE_EQ(LeadingNumber(c.text), c.value) << c.text;
}

TEST(TextTest, IsNumberWantsTheWholeText) {
  for (const char* getal : {"7", " -1.5 ", "2E2"}) EXPECT_TRUE(IsNumber(getal)) << getal;
  for (const char* geen : {"", "x", "1x", "-"}) EXPECT_FALSE(IsNumber(geen)) << geen;
}

TEST(TextTest, NumberTextWritesWholeNumbersWithoutFraction) {
  EXPECT_EQ(NumberText(-3) + " " + NumberText(2.5), "-3 2.5");
}

TEST(TextTest, TrimmingRemovesSpacesOnly) {
  EXPECT_EQ(TrimSpaces("  \ta b\t  "), "\ta b\t");
  EXPECT_EQ(TrimSpaces("    "), "");
  EXPECT_EQ(TrimLeadingSpaces("  a  "), "a  ");
}

}  // namespace
}  // namespace kiekbord
