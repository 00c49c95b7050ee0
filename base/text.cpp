#include "base/text.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace kiekbord {
namespace {

// Windows-1252 bytes 0x80..0x9F; the five undefined bytes map to their C1
// control code point so that no byte is lost.
constexpr std::array<char32_t, 32> kCp1252High = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void AppendUtf8(std::string& out, char32_t cp) {
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else if (cp < 0x10000) {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (cp >> 18));
    out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

// Length of the valid UTF-8 sequence at `i`, or 0 when it is not valid.
std::size_t Utf8SequenceLength(std::string_view s, std::size_t i) {
  const auto b = [&](std::size_t k) { return static_cast<unsigned char>(s[k]); };
  const unsigned char c = b(i);
  if (c < 0x80) return 1;
  std::size_t len = 0;
  char32_t min = 0;
  if ((c & 0xE0) == 0xC0) { len = 2; min = 0x80; }
  else if ((c & 0xF0) == 0xE0) { len = 3; min = 0x800; }
  else if ((c & 0xF8) == 0xF0) { len = 4; min = 0x10000; }
  else return 0;
  if (i + len > s.size()) return 0;
  char32_t cp = c & (0x3F >> (len - 1));
  for (std::size_t k = 1; k < len; ++k) {
    if ((b(i + k) & 0xC0) != 0x80) return 0;
    cp = (cp << 6) | (b(i + k) & 0x3F);
  }
  if (cp < min || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return 0;
  return len;
}

// Latin-1 letters differ by 0x20 between cases, like ASCII; the multiply and
// divide signs (U+00D7, U+00F7) are not letters.
char32_t UpperChar(char32_t cp) {
  if (cp >= 'a' && cp <= 'z') return cp - 0x20;
  if (cp >= 0xE0 && cp <= 0xFE && cp != 0xF7) return cp - 0x20;
  if (cp == 0xFF) return 0x178;
  return cp;
}

char32_t LowerChar(char32_t cp) {
  if (cp >= 'A' && cp <= 'Z') return cp + 0x20;
  if (cp >= 0xC0 && cp <= 0xDE && cp != 0xD7) return cp + 0x20;
  if (cp == 0x178) return 0xFF;
  return cp;
}

template <typename Map>
std::string MapChars(std::string_view text, Map map) {
  std::string out;
  out.reserve(text.size());
  std::size_t i = 0;
  while (i < text.size()) {
    const std::size_t len = Utf8SequenceLength(text, i);
    if (len == 0) {  // stray byte: keep as is
      out += text[i++];
      continue;
    }
    if (len == 1) {
      out += static_cast<char>(map(static_cast<unsigned char>(text[i])));
    } else {
      char32_t cp = static_cast<unsigned char>(text[i]) & (0x3F >> (len - 1));
      for (std::size_t k = 1; k < len; ++k) cp = (cp << 6) | (text[i + k] & 0x3F);
      AppendUtf8(out, map(cp));
    }
    i += len;
  }
  return out;
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Length of the decimal number at the start of `s` (sign, digits, fraction,
// exponent), 0 when there is none.
std::size_t NumberLength(std::string_view s) {
  std::size_t i = 0;
  if (i < s.size() && (s[i] == '+' || s[i] == '-')) ++i;
  std::size_t digits = 0;
  while (i < s.size() && IsDigit(s[i])) { ++i; ++digits; }
  if (i < s.size() && s[i] == '.') {
    ++i;
    while (i < s.size() && IsDigit(s[i])) { ++i; ++digits; }
  }
  if (digits == 0) return 0;
  if (i < s.size() && (s[i] == 'e' || s[i] == 'E')) {
    std::size_t j = i + 1;
    if (j < s.size() && (s[j] == '+' || s[j] == '-')) ++j;
    if (j < s.size() && IsDigit(s[j])) {
      while (j < s.size() && IsDigit(s[j])) ++j;
      i = j;
    }
  }
  return i;
}

}  // namespace

bool IsValidUtf8(std::string_view bytes) {
  for (std::size_t i = 0; i < bytes.size();) {
    const std::size_t len = Utf8SequenceLength(bytes, i);
    if (len == 0) return false;
    i += len;
  }
  return true;
}

std::string DecodeText(std::string_view bytes) {
  if (StartsWith(bytes, "\xEF\xBB\xBF")) bytes.remove_prefix(3);
  if (IsValidUtf8(bytes)) return std::string(bytes);
  return Windows1252NaarUtf8(bytes);
}

std::string Windows1252NaarUtf8(std::string_view bytes) {
  std::string out;
  out.reserve(bytes.size() + bytes.size() / 8);
  for (const char ch : bytes) {
    const auto c = static_cast<unsigned char>(ch);
    if (c < 0x80) out += ch;
    else if (c < 0xA0) AppendUtf8(out, kCp1252High[c - 0x80]);
    else AppendUtf8(out, c);
  }
  return out;
}

std::size_t CharCount(std::string_view text) {
  std::size_t count = 0;
  for (const char c : text) {
    if ((static_cast<unsigned char>(c) & 0xC0) != 0x80) ++count;
  }
  return count;
}

std::string Upper(std::string_view text) { return MapChars(text, UpperChar); }
std::string Lower(std::string_view text) { return MapChars(text, LowerChar); }

bool EqualsIgnoreCase(std::string_view a, std::string_view b) { return Upper(a) == Upper(b); }

std::string TrimSpaces(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return "";
  const auto last = text.find_last_not_of(' ');
  return std::string(text.substr(first, last - first + 1));
}

std::string TrimLeadingSpaces(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? "" : std::string(text.substr(first));
}

bool StartsWith(std::string_view text, std::string_view prefix) {
  return text.substr(0, prefix.size()) == prefix;
}

bool EndsWith(std::string_view text, std::string_view suffix) {
  return text.size() >= suffix.size() && text.substr(text.size() - suffix.size()) == suffix;
}

double LeadingNumber(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return 0;
  text.remove_prefix(first);
  const std::size_t len = NumberLength(text);
  if (len == 0) return 0;
  const std::string number(text.substr(0, len));
  return std::strtod(number.c_str(), nullptr);
}

bool IsNumber(std::string_view text) {
  const std::string trimmed = TrimSpaces(text);
  return !trimmed.empty() && NumberLength(trimmed) == trimmed.size();
}

std::string NumberText(double value) {
  if (std::isfinite(value) && value == std::floor(value) && std::fabs(value) < 1e15) {
    return std::to_string(static_cast<long long>(value));
  }
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%.15g", value);
  return buffer;
}

}  // namespace kiekbord
