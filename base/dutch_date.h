// Dates written out in Dutch, whatever the user's locale.
//
// The script's "Aanmaakdatum" and the creation comments of the generated
// pages carry the long date of the day they were written, in the form
// "zaterdag 21 november 2026": weekday and month in lower case, the day
// without a leading zero.
#pragma once

#include <chrono>
#include <string>

namespace kiekbord {

// "zaterdag 21 november 2026" for 2026-11-21; "" when `datum` is no valid
// calendar date (31 April, month 13).
std::string NederlandseLangeDatum(const std::chrono::year_month_day& datum);

// Today's date in the machine's local time zone.
std::chrono::year_month_day VandaagLokaal();

}  // namespace kiekbord
