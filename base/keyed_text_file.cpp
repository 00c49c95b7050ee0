#include "base/keyed_text_file.h"

#include <algorithm>
#include <cstring>
#include <vector>

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

// Where the first line end (CR or LF) of `bytes` is, or npos; memchr keeps a
// line of any length cheap to pass.
std::size_t RegelEinde(std::string_view bytes) {
  const void* lf = std::memchr(bytes.data(), '\n', bytes.size());
  const std::size_t tot = lf == nullptr ? bytes.size() : static_cast<std::size_t>(static_cast<const char*>(lf) - bytes.data());
  const void* cr = std::memchr(bytes.data(), '\r', tot);
  if (cr != nullptr) return static_cast<std::size_t>(static_cast<const char*>(cr) - bytes.data());
  return lf == nullptr ? std::string_view::npos : tot;
}

// Splits bytes into the lines of a table as they arrive, a piece at a time:
// CR LF, CR or LF end a line; a line is cut at kMaxRegelBytes (on a character
// boundary) and the rest of it skipped; reading ends when the table is full.
// Decoding waits for the end, because the whole text decides between UTF-8
// and Windows-1252.
class RegelVerdeler {
 public:
  RegelVerdeler(LineTable& table, bool keep_empty) : table_(table), keep_empty_(keep_empty) {}

  // True once the table is full: no further bytes can matter.
  bool Vol() const { return index_ >= table_.capacity(); }

  void Voeg(std::string_view bytes) {
    if (eerste_) {
      eerste_ = false;
      if (StartsWith(bytes, "\xEF\xBB\xBF")) bytes.remove_prefix(3);
    }
    while (!bytes.empty() && !Vol()) {
      if (na_cr_ && bytes.front() == '\n') bytes.remove_prefix(1);
      na_cr_ = false;
      const auto einde = RegelEinde(bytes);
      const std::string_view stuk = bytes.substr(0, einde);
      if (!stuk.empty()) begonnen_ = true;
      regel_.append(stuk.substr(0, kMaxRegelBytes - std::min(regel_.size(), kMaxRegelBytes)));
      if (einde == std::string_view::npos) return;
      na_cr_ = bytes[einde] == '\r';
      bytes.remove_prefix(einde + 1);
      Sluit();
    }
  }

  void Einde() {
    if (begonnen_ && !Vol()) Sluit();
    const bool utf8 = std::all_of(regels_.begin(), regels_.end(), [](const std::string& r) { return IsValidUtf8(r); });
    for (std::size_t i = 0; i < regels_.size(); ++i) {
      std::string& line = table_.Line(static_cast<int>(i) + 1);
      line = TrimSpaces(utf8 ? regels_[i] : Windows1252NaarUtf8(regels_[i]));
    }
    table_.SetCount(index_);
  }

 private:
  void Sluit() {
    if (regel_.size() >= kMaxRegelBytes) LaatGesplitstTekenWeg();
    if (keep_empty_ || !TrimSpaces(regel_).empty()) {
      regels_.push_back(std::move(regel_));
      ++index_;
    }
    regel_.clear();
    begonnen_ = false;
  }

  // A cut that split a UTF-8 character drops its first bytes, so the line
  // stays valid UTF-8 when the text is.
  void LaatGesplitstTekenWeg() {
    for (std::size_t terug = 1; terug <= 3 && terug <= regel_.size(); ++terug) {
      const auto c = static_cast<unsigned char>(regel_[regel_.size() - terug]);
      if ((c & 0xC0) == 0x80) continue;
      const std::size_t lengte = c >= 0xF0 ? 4 : c >= 0xE0 ? 3 : c >= 0xC0 ? 2 : 1;
      if (lengte > terug) regel_.resize(regel_.size() - terug);
      return;
    }
  }

  LineTable& table_;
  const bool keep_empty_;
  std::vector<std::string> regels_;
  std::string regel_;
  int index_ = 0;
  bool eerste_ = true;
  bool na_cr_ = false;
  bool begonnen_ = false;
};

// Bytes read from a file at a time.
constexpr std::int64_t kLeesBlok = 65536;

}  // namespace

void LeesRegelsUitTekst(std::string_view bytes, LineTable& table, bool keep_empty) {
  RegelVerdeler verdeler(table, keep_empty);
  verdeler.Voeg(bytes);
  verdeler.Einde();
}

Status LeesRegels(const std::string& path, LineTable& table, bool keep_empty) {
  RegelVerdeler verdeler(table, keep_empty);
  std::string blok;
  for (std::int64_t offset = 0; !verdeler.Vol(); offset += kLeesBlok) {
    const Status status = Fs().ReadFilePart(path, offset, kLeesBlok, blok);
    if (!status.ok()) {
      table.SetCountSlot(status.CountSlotText());
      return status;
    }
    verdeler.Voeg(blok);
    if (static_cast<std::int64_t>(blok.size()) < kLeesBlok) break;
  }
  verdeler.Einde();
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
