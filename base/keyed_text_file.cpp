#include "base/keyed_text_file.h"

#include "base/file_system.h"
#include "base/text.h"

namespace kiekbord {
namespace {

// The enumeration state shared by every table, as the file format defines it.
struct WildcardCursor {
  std::string key;
  int counter = 0;
};
WildcardCursor wildcard_cursor;

constexpr std::string_view kNoSection = "LEEG";

bool IsHeader(std::string_view line) { return StartsWith(line, "[") && EndsWith(line, "]"); }

std::string HeaderName(std::string_view line) {
  return Upper(line.substr(1, line.size() - 2));
}

// Position of the "=" of a key line, or npos when the line is no key line
// (no "=", or "=" as its first character).
std::size_t KeySeparator(std::string_view line) {
  const auto eq = line.find('=');
  return eq == 0 ? std::string_view::npos : eq;
}

}  // namespace

void LeesRegelsUitTekst(std::string_view bytes, LineTable& table, bool keep_empty) {
  const std::string text = DecodeText(bytes);
  int index = 0;
  std::size_t pos = 0;
  while (pos < text.size() && index < table.capacity()) {
    std::size_t end = text.find_first_of("\r\n", pos);
    if (end == std::string::npos) end = text.size();
    std::string line = TrimSpaces(std::string_view(text).substr(pos, end - pos));
    pos = end;
    if (pos < text.size()) {
      const bool crlf = text[pos] == '\r' && pos + 1 < text.size() && text[pos + 1] == '\n';
      pos += crlf ? 2 : 1;
    }
    if (line.empty() && !keep_empty) continue;
    table.Line(++index) = std::move(line);
  }
  table.SetCount(index);
}

Status LeesRegels(const std::string& path, LineTable& table, bool keep_empty) {
  std::string bytes;
  const Status status = Fs().ReadFile(path, bytes);
  if (!status.ok()) {
    table.SetCountSlot(status.CountSlotText());
    return status;
  }
  LeesRegelsUitTekst(bytes, table, keep_empty);
  return Status::Ok();
}

Status SchrijfRegels(const std::string& path, LineTable& table) {
  std::string text;
  const int count = table.Count();
  for (int i = 1; i <= count; ++i) {
    text += table.Line(i);
    text += "\r\n";
  }
  const Status status = Fs().WriteFile(path, text);
  if (!status.ok()) table.SetCountSlot(status.CountSlotText());
  return status;
}

std::string LeesWaarde(const LineTable& table, std::string_view section, std::string_view key,
                       std::string_view default_value) {
  const std::string wanted_section = Upper(section);
  const std::string wanted_key = Upper(key);
  const bool wildcard = CharCount(key) >= 2 && EndsWith(key, "*");
  std::string prefix;
  if (wildcard) {
    prefix = wanted_key.substr(0, wanted_key.size() - 1);
    if (wildcard_cursor.key != key) {
      wildcard_cursor.key = std::string(key);
      wildcard_cursor.counter = 0;
    }
    ++wildcard_cursor.counter;
  }

  std::string current_section(kNoSection);
  int matches = 0;
  const int count = table.Count();
  for (int i = 1; i <= count; ++i) {
    const std::string& line = table.Line(i);
    if (CharCount(line) <= 2) continue;
    if (StartsWith(line, "[")) {
      if (EndsWith(line, "]")) current_section = HeaderName(line);
      continue;
    }
    if (current_section != wanted_section) continue;
    const auto eq = KeySeparator(line);
    if (eq == std::string::npos) continue;
    if (wildcard) {
      // Upper-casing keeps byte lengths, so the prefix compares byte-wise.
      if (Upper(line).compare(0, prefix.size(), prefix) == 0 && ++matches == wildcard_cursor.counter) {
        return TrimLeadingSpaces(std::string_view(line).substr(prefix.size()));
      }
    } else if (Upper(std::string_view(line).substr(0, eq)) == wanted_key) {
      return TrimLeadingSpaces(std::string_view(line).substr(eq + 1));
    }
  }
  wildcard_cursor.counter = 0;
  return std::string(default_value);
}

Status SchrijfWaarde(LineTable& table, std::string_view section, std::string_view key,
                     std::string_view value) {
  const std::string wanted_section = Upper(section);
  const std::string wanted_key = Upper(key);
  const std::string new_line = std::string(key) + "=" + std::string(value);

  std::string current_section(kNoSection);
  bool in_section = false;
  int next_header = 0;
  const int count = table.Count();
  for (int i = 1; i <= count; ++i) {
    const std::string& line = table.Line(i);
    if (CharCount(line) < 3) continue;
    if (IsHeader(line)) {
      if (in_section) {
        next_header = i;
        break;
      }
      current_section = HeaderName(line);
      continue;
    }
    if (StartsWith(line, "[") || current_section != wanted_section) continue;
    in_section = true;
    const auto eq = KeySeparator(line);
    if (eq != std::string::npos && Upper(std::string_view(line).substr(0, eq)) == wanted_key) {
      table.Line(i) = new_line;
      table.SetCount(count);
      return Status::Ok();
    }
  }

  const int room = table.capacity() - count;
  if (in_section) {
    if (room < 1) return Status::Error(fout::kSubscriptOutOfRange);
    table.InsertAt(next_header > 0 ? next_header : count + 1, new_line);
    return Status::Ok();
  }
  if (room < 2) return Status::Error(fout::kSubscriptOutOfRange);
  table.Append("[" + std::string(section) + "]");
  table.Append(new_line);
  return Status::Ok();
}

void ResetWildcardCursor() { wildcard_cursor = WildcardCursor{}; }

}  // namespace kiekbord
