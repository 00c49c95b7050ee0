#include "base/dutch_date.h"

#include <array>
#include <ctime>
#include <string_view>

namespace kiekbord {
namespace {

// Indexed by std::chrono::weekday::c_encoding(): Sunday is 0.
constexpr std::array<std::string_view, 7> kWeekdagen = {
    "zondag", "maandag", "dinsdag", "woensdag", "donderdag", "vrijdag", "zaterdag"};

constexpr std::array<std::string_view, 12> kMaanden = {
    "januari", "februari", "maart",     "april",   "mei",      "juni",
    "juli",    "augustus", "september", "oktober", "november", "december"};

}  // namespace

std::string NederlandseLangeDatum(const std::chrono::year_month_day& datum) {
  if (!datum.ok()) return "";
  const std::chrono::weekday weekdag{std::chrono::sys_days{datum}};
  std::string tekst(kWeekdagen[weekdag.c_encoding()]);
  tekst += ' ';
  tekst += std::to_string(static_cast<unsigned>(datum.day()));
  tekst += ' ';
  tekst += kMaanden[static_cast<unsigned>(datum.month()) - 1];
  tekst += ' ';
  tekst += std::to_string(static_cast<int>(datum.year()));
  return tekst;
}

std::chrono::year_month_day VandaagLokaal() {
  const std::time_t nu = std::time(nullptr);
  std::tm lokaal{};
  if (::localtime_r(&nu, &lokaal) == nullptr) {
    // Without a time zone the UTC date is the best there is.
    return std::chrono::year_month_day{std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now())};
  }
  return std::chrono::year_month_day{std::chrono::year{lokaal.tm_year + 1900},
                                     std::chrono::month{static_cast<unsigned>(lokaal.tm_mon + 1)},
                                     std::chrono::day{static_cast<unsigned>(lokaal.tm_mday)}};
}

}  // namespace kiekbord
