#include "base/text_helpers.h"

#include <array>
#include <cmath>
#include <cstdio>

#include "base/status.h"
#include "base/text.h"

namespace kiekbord {
namespace {

constexpr std::size_t kMaxTextLength = 32767;

// The escaped characters in the order they are handled ("&" first, so that
// entities made later are not escaped again), and their entity names.
constexpr std::array<std::string_view, 13> kEscapedCharacters = {
    "&", "<", ">", "ç", "ã", "ê", "è", "é", "ë", "ï", "ö", "ü", "\""};
constexpr std::string_view kEntityNames =
    "amp;lt;gt;ccedil;atilde;ecirc;egrave;eacute;euml;iuml;ouml;uuml;quot";

}  // namespace

void CheckTextLength(std::string_view text) {
  if (text.size() > kMaxTextLength && CharCount(text) > kMaxTextLength) {
    throw RunError(fout::kOverflow);
  }
}

std::string Vervang(std::string_view text, std::string_view search, std::string_view replacement) {
  CheckTextLength(text);
  if (search.empty()) return std::string(text);
  std::string result;
  std::size_t start = 0;
  for (auto pos = text.find(search); pos != std::string_view::npos; pos = text.find(search, start)) {
    result.append(text.substr(start, pos - start)).append(replacement);
    start = pos + search.size();
  }
  result.append(text.substr(start));
  return result;
}

std::string Deel(int n, std::string_view separator, std::string_view list) {
  CheckTextLength(list);
  if (separator.empty()) return std::string(list);
  std::size_t start = 0;
  for (int piece = 1; piece < n; ++piece) {
    const auto next = list.find(separator, start);
    if (next == std::string_view::npos) return std::string(separator);
    start = next + separator.size();
  }
  const auto end = list.find(separator, start);
  return std::string(list.substr(start, end == std::string_view::npos ? end : end - start));
}

std::string EnkeleSpaties(std::string_view text) {
  CheckTextLength(text);
  const std::string trimmed = TrimSpaces(text);
  std::string result;
  result.reserve(trimmed.size());
  for (const char c : trimmed) {
    if (c == ' ' && !result.empty() && result.back() == ' ') continue;
    result += c;
  }
  return result;
}

std::string HtmlTekst(std::string_view text) {
  CheckTextLength(text);
  std::string s = " " + std::string(text) + " ";
  for (std::size_t i = 0; i < kEscapedCharacters.size(); ++i) {
    const std::string_view character = kEscapedCharacters[i];
    const std::string entity = "&" + Deel(static_cast<int>(i) + 1, ";", kEntityNames) + ";";
    for (auto pos = s.find(character); pos != std::string::npos; pos = s.find(character, pos + 2)) {
      if (pos > 0 && s[pos - 1] == '\\') {
        s.erase(pos - 1, 1);
      } else {
        s.replace(pos, character.size(), entity);
      }
    }
  }
  return TrimSpaces(s);
}

std::string KleurNaarHex(std::string_view colour) {
  if (IsNumber(colour)) {
    const double value = std::nearbyint(LeadingNumber(colour));
    if (value < -2147483648.0 || value > 2147483647.0) throw RunError(fout::kOverflow);
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%06X",
                  static_cast<std::uint32_t>(static_cast<std::int32_t>(value)));
    const std::string hex = buffer;
    return hex.substr(4, 2) + hex.substr(2, 2) + hex.substr(0, 2);
  }
  if (colour.size() == 7 && colour[0] == '#') return std::string(colour.substr(1));
  return "";
}

std::int32_t HexNaarKleur(std::string_view text, std::int32_t fallback) {
  std::string hex = Upper(TrimSpaces(text));
  if (CharCount(hex) < 2) return fallback;
  if (hex[0] == '#') hex.erase(0, 1);
  if (hex.size() < 6) hex.insert(0, 6 - hex.size(), '0');
  if (hex.size() != 6 || hex.find_first_not_of("0123456789ABCDEF") != std::string::npos) {
    return fallback;
  }
  const std::string reordered = hex.substr(4, 2) + hex.substr(2, 2) + hex.substr(0, 2);
  return static_cast<std::int32_t>(std::stol(reordered, nullptr, 16));
}

int TelTeken(std::string_view text, std::string_view character) {
  CheckTextLength(text);
  if (character.empty()) return 0;
  int count = 0;
  for (auto pos = text.find(character); pos != std::string_view::npos;
       pos = text.find(character, pos + character.size())) {
    ++count;
  }
  return count;
}

std::string BestandsLink(std::string_view naam) {
  constexpr std::string_view kGecodeerd = "\"'#?%&$\\<>";
  std::string link;
  for (const char c : naam) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte >= 0x20 && byte != 0x7F && kGecodeerd.find(c) == std::string_view::npos) {
      link += c;
      continue;
    }
    char escape[4];
    std::snprintf(escape, sizeof escape, "%%%02X", byte);
    link += escape;
  }
  return link;
}

std::string AttribuutTekst(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (const char c : text) {
    switch (c) {
      case '"': result += "&quot;"; break;
      case '<': result += "&lt;"; break;
      case '>': result += "&gt;"; break;
      default: result += c;
    }
  }
  return result;
}

std::string ScriptTekst(std::string_view text) {
  // U+2028 and U+2029 end a line in older script engines.
  constexpr std::string_view kRegelScheider = "\xE2\x80\xA8";
  constexpr std::string_view kAlineaScheider = "\xE2\x80\xA9";
  std::string result;
  result.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    const auto byte = static_cast<unsigned char>(c);
    if (c == '\\' || c == '\'' || c == '"') {
      result += '\\';
      result += c;
    } else if (c == '\n') {
      result += "\\n";
    } else if (c == '\r') {
      result += "\\r";
    } else if (c == '<' || byte < 0x20 || byte == 0x7F) {
      char escape[5];
      std::snprintf(escape, sizeof escape, "\\x%02X", byte);
      result += escape;
    } else if (text.substr(i, 3) == kRegelScheider || text.substr(i, 3) == kAlineaScheider) {
      result += text.substr(i, 3) == kRegelScheider ? "\\u2028" : "\\u2029";
      i += 2;
    } else {
      result += c;
    }
  }
  return result;
}

}  // namespace kiekbord
