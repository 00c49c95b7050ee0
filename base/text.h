// UTF-8 text basics used across the core.
//
// Text in memory is UTF-8. Files that are not valid UTF-8 are taken to be
// Windows-1252, so files made on Windows read correctly. Lengths and
// positions that the program's rules count are counted in characters (code
// points), never bytes; upper- and lower-casing cover ASCII and the Latin-1
// letters.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kiekbord {

bool IsValidUtf8(std::string_view bytes);

// Bytes of a file to UTF-8 text: a UTF-8 byte order mark is dropped, valid
// UTF-8 is kept, anything else is converted from Windows-1252.
std::string DecodeText(std::string_view bytes);

// Windows-1252 bytes as UTF-8 text, whatever they hold.
std::string Windows1252NaarUtf8(std::string_view bytes);

// Number of characters (code points) in UTF-8 text.
std::size_t CharCount(std::string_view text);

std::string Upper(std::string_view text);
std::string Lower(std::string_view text);
bool EqualsIgnoreCase(std::string_view a, std::string_view b);

// Spaces only, as the program's trimming rules say (tabs stay).
std::string TrimSpaces(std::string_view text);
std::string TrimLeadingSpaces(std::string_view text);

bool StartsWith(std::string_view text, std::string_view prefix);
bool EndsWith(std::string_view text, std::string_view suffix);

// The leading number of a text, 0 when it starts with none ("12abc" is 12,
// "%Error" is 0, " 3" is 3).
double LeadingNumber(std::string_view text);

// True when the whole text, blanks around it aside, is one decimal number.
bool IsNumber(std::string_view text);

// A number as plain decimal text: whole numbers without a fraction.
std::string NumberText(double value);

}  // namespace kiekbord
