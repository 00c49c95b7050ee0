#include "base/dutch_date.h"

#include <gtest/gtest.h>

#include <chrono>
#include <clocale>
#include <string>

namespace kiekbord::test {
namespace {

using namespace std::chrono;

TEST(NederlandseLangeDatumTest, EveryWeekdayAndMonthInDutch) {
  const struct {
    year_month_day datum;
    const char* tekst;
  } gevallen[] = {
      {2026y / November / 21d, "zaterdag 21 november 2026"}, {2026y / November / 22d, "zondag 22 november 2026"},
      {2024y / January / 1d, "maandag 1 januari 2024"},      {2000y / February / 29d, "dinsdag 29 februari 2000"},
      {2025y / March / 5d, "woensdag 5 maart 2025"},        {2025y / April / 3d, "donderdag 3 april 2025"},
      {2025y / May / 9d, "vrijdag 9 mei 2025"},             {2025y / June / 30d, "maandag 30 juni 2025"},
      {2003y / July / 12d, "zaterdag 12 juli 2003"},        {2025y / August / 15d, "vrijdag 15 augustus 2025"},
      {2025y / September / 1d, "maandag 1 september 2025"}, {2023y / October / 8d, "zondag 8 oktober 2023"},
      {1999y / December / 31d, "vrijdag 31 december 1999"},
  };
  for (const auto& geval : gevallen) EXPECT_EQ(NederlandseLangeDatum(geval.datum), geval.tekst);
}

TEST(NederlandseLangeDatumTest, TheUsersLocaleDoesNotMatter) {
  const std::string vorige = std::setlocale(LC_ALL, nullptr);
  // Whichever of these the machine has; the text stays Dutch.
  for (const char* locale : {"en_US.UTF-8", "C.UTF-8", "de_DE.UTF-8"}) std::setlocale(LC_ALL, locale);
  EXPECT_EQ(NederlandseLangeDatum(2026y / November / 21d), "zaterdag 21 november 2026");
  std::setlocale(LC_ALL, vorige.c_str());
}

TEST(NederlandseLangeDatumTest, NoValidDateGivesAnEmptyText) {
  EXPECT_EQ(NederlandseLangeDatum(2026y / April / 31d), "");
  EXPECT_EQ(NederlandseLangeDatum(2025y / February / 29d), "");
  EXPECT_EQ(NederlandseLangeDatum(year_month_day{2026y, month{13}, 1d}), "");
}

TEST(VandaagLokaalTest, IsWithinADayOfTheUtcDate) {
  const auto verschil = sys_days{VandaagLokaal()} - floor<days>(system_clock::now());
  EXPECT_LE(abs(verschil), days{1});
}

}  // namespace
}  // namespace kiekbord::test
