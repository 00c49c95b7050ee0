#include "generator/template_engine.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include "base/file_system.h"
#include "base/text.h"
#include "base/text_helpers.h"

namespace kiekbord {
namespace {

constexpr std::array<std::string_view, 4> kStructuralTags = {"<HEAD", "</HEAD", "<BODY", "</BODY"};

// Stand-in for a value that itself contains "[": it holds no bracket, so the
// marker scan cannot find a marker inside a filled value. Swapped for the
// value when the line is done.
// One for each place a field can stand in (VeldPlaats).
constexpr std::array<std::string_view, 3> kValuePlaceholders = {
    "\x01\x02KBWAARDE\x02\x01", "\x01\x02KBWAARDE2\x02\x01", "\x01\x02KBWAARDE3\x02\x01"};

std::vector<std::string> SplitLines(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t pos = 0;
  while (pos < text.size()) {
    std::size_t end = text.find_first_of("\r\n", pos);
    if (end == std::string::npos) end = text.size();
    lines.emplace_back(text, pos, end - pos);
    pos = end;
    if (pos < text.size()) {
      const bool crlf = text[pos] == '\r' && pos + 1 < text.size() && text[pos + 1] == '\n';
      pos += crlf ? 2 : 1;
    }
  }
  return lines;
}

bool IsTemplateComment(const std::string& line) {
  return StartsWith(line, "<!--") && EndsWith(line, "-->") &&
         Upper(line).find("SJABLOON", 4) != std::string::npos;
}

// Collects template lines into the table until it is full.
class TemplateBuilder {
 public:
  explicit TemplateBuilder(LineTable& table) : table_(table) { table_.SetCount(0); }
  bool Full() const { return count_ >= table_.capacity(); }
  void Store(std::string line) {
    if (Full()) return;
    table_.Line(++count_) = std::move(line);
    table_.SetCount(count_);
  }

 private:
  LineTable& table_;
  int count_ = 0;
};

void ReadTemplateLines(const std::vector<std::string>& lines, LineTable& table) {
  TemplateBuilder out(table);
  std::size_t next_line = 0;
  std::size_t tag = 0;
  bool collecting = false;
  std::string tag_text;
  std::optional<std::string> pending;

  while (!out.Full()) {
    std::string line;
    if (pending) {
      line = std::move(*pending);
      pending.reset();
    } else {
      if (next_line >= lines.size()) break;
      line = TrimSpaces(lines[next_line++]);
      if (IsTemplateComment(line)) line.clear();
    }
    if (line.empty()) continue;

    if (!collecting && tag < kStructuralTags.size()) {
      const auto pos = Upper(line).find(kStructuralTags[tag]);
      if (pos != std::string::npos) {
        if (pos > 0) {
          out.Store(line.substr(0, pos));
          line.erase(0, pos);
        }
        collecting = true;
        tag_text.clear();
      }
    }
    if (!collecting) {
      out.Store(std::move(line));
      continue;
    }

    for (char& c : line) {
      if (c == '\t') c = ' ';
    }
    // The tag text is already collapsed, so only the new piece needs it.
    const std::string piece = EnkeleSpaties(line);
    if (!piece.empty()) tag_text += tag_text.empty() ? piece : " " + piece;
    CheckTextLength(tag_text);
    const auto close = tag_text.find('>');
    if (close == std::string::npos) continue;  // the tag goes on on the next line
    if (close + 1 < tag_text.size()) {
      pending = TrimSpaces(std::string_view(tag_text).substr(close + 1));
      tag_text.erase(close + 1);
    }
    out.Store(std::move(tag_text));
    tag_text.clear();
    collecting = false;
    ++tag;
  }
  if (pending && !pending->empty()) out.Store(std::move(*pending));
}

struct Marker {
  std::size_t open;
  std::size_t close;  // position of the "]"
};

// The next bracket pair from `start`, or nothing when the scan must stop: no
// "[", no "]" after it, or fewer than five characters between them.
std::optional<Marker> NextBracket(const std::string& line, std::size_t start) {
  const auto open = line.find('[', start);
  if (open == std::string::npos) return std::nullopt;
  const auto close = line.find(']', open);
  if (close == std::string::npos) return std::nullopt;
  if (CharCount(std::string_view(line).substr(open, close - open)) < 6) return std::nullopt;
  return Marker{open, close};
}

bool BeginsWithTag(std::string_view rest, std::string_view tag) {
  if (rest.size() < tag.size() || Upper(rest.substr(0, tag.size())) != tag) return false;
  if (rest.size() == tag.size()) return true;
  const char next = rest[tag.size()];
  return next == '>' || next == '/' || next == ' ' || next == '\t';
}

bool IsLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

struct RegelScan {
  VeldPlaats plaats = VeldPlaats::kTekst;
  bool in_script = false;
};

// Follows tags, quoted attribute values and script blocks from the start of
// `line` up to `pos`.
RegelScan ScanRegel(std::string_view line, std::size_t pos, bool in_script) {
  bool in_tag = false;
  char quote = 0;
  for (std::size_t i = 0; i < pos; ++i) {
    const char c = line[i];
    if (quote != 0) {
      if (c == quote) quote = 0;
    } else if (in_tag) {
      if (c == '"' || c == '\'') quote = c;
      if (c == '>') in_tag = false;
    } else if (c == '<') {
      const std::string_view rest = line.substr(i);
      if (BeginsWithTag(rest, "</SCRIPT")) {
        in_script = false;
        in_tag = true;
      } else if (!in_script && i + 1 < line.size() && (IsLetter(line[i + 1]) || line[i + 1] == '/')) {
        in_tag = true;
        if (BeginsWithTag(rest, "<SCRIPT")) in_script = true;
      }
    }
  }
  if (in_tag) return {VeldPlaats::kAttribuut, in_script};
  return {in_script ? VeldPlaats::kScript : VeldPlaats::kTekst, in_script};
}

// A user text for its place: HTML-escaped (`html`, as the page text has it)
// in the text, escaped for an attribute or a script string elsewhere.
std::string VeldWaardeVoor(VeldPlaats plaats, const std::string& rauw, const std::string& html) {
  switch (plaats) {
    // The template may quote the attribute either way.
    case VeldPlaats::kAttribuut: return Vervang(AttribuutTekst(TrimSpaces(rauw)), "'", "&#39;");
    case VeldPlaats::kScript: return ScriptTekst(TrimSpaces(rauw));
    case VeldPlaats::kTekst: break;
  }
  return html;
}

}  // namespace

std::string WebRegels(std::string_view bytes, bool webformaat) {
  struct Markering {
    std::string_view tekst;
    bool voor_web;
  };
  static constexpr Markering kMarkeringen[] = {
      {"<!--WEB-->", true}, {"/*WEB*/", true}, {"<!--GEENWEB-->", false}, {"/*GEENWEB*/", false}};
  std::string uit;
  uit.reserve(bytes.size());
  std::size_t pos = 0;
  while (pos < bytes.size()) {
    std::size_t einde = bytes.find('\n', pos);
    einde = einde == std::string_view::npos ? bytes.size() : einde + 1;
    const std::string_view regel = bytes.substr(pos, einde - pos);
    pos = einde;
    const std::size_t begin = regel.find_first_not_of(" \t");
    const std::string_view rest = begin == std::string_view::npos ? "" : regel.substr(begin);
    const Markering* gevonden = nullptr;
    for (const Markering& m : kMarkeringen) {
      if (rest.starts_with(m.tekst)) gevonden = &m;
    }
    if (gevonden == nullptr) {
      uit += regel;
    } else if (gevonden->voor_web == webformaat) {
      uit += rest.substr(gevonden->tekst.size());
    }
  }
  return uit;
}

Status LeesSjabloonUitTekst(std::string_view bytes, LineTable& table, bool webformaat) {
  try {
    ReadTemplateLines(SplitLines(DecodeText(WebRegels(bytes, webformaat))), table);
  } catch (const RunError& error) {
    table.SetCountSlot(error.status().CountSlotText());
    return error.status();
  }
  return Status::Ok();
}

Status LeesSjabloon(const std::string& path, LineTable& table, bool webformaat) {
  std::string bytes;
  const Status status = Fs().ReadFile(path, bytes);
  if (!status.ok()) {
    table.SetCountSlot(status.CountSlotText());
    return status;
  }
  return LeesSjabloonUitTekst(bytes, table, webformaat);
}

bool IsTekstVeld(std::string_view name) {
  return std::string_view("BIJSCHRIFT/TITEL/SUBTITEL/DATUM/BESCHRIJVING").find(Upper(name)) !=
         std::string_view::npos;
}

VeldPlaats PlaatsInRegel(std::string_view line, std::size_t pos, bool in_script) {
  return ScanRegel(line, std::min(pos, line.size()), in_script).plaats;
}

bool ScriptOpenNa(std::string_view line, bool in_script) {
  return ScanRegel(line, line.size(), in_script).in_script;
}

void VervangVeld(std::string& line, std::string_view name, std::string_view value_in, bool in_script) {
  CheckTextLength(line);
  const bool tekst_veld = IsTekstVeld(name);
  std::string rauw(value_in);
  std::string value = rauw;
  if (tekst_veld) {
    value = HtmlTekst(value);
    if (Upper(name) == "BESCHRIJVING") value = Vervang(value, "&lt;br&gt;", "<br>");
  }
  std::array<bool, 3> placeholders_used{};
  std::size_t start = 0;
  while (const auto marker = NextBracket(line, start)) {
    const std::string text = line.substr(marker->open, marker->close - marker->open + 1);
    const std::string inside = Upper(std::string_view(text).substr(1, text.size() - 2));
    if (inside.find("VELD") == std::string::npos || inside.find("KIEKBORD") == std::string::npos ||
        inside.find('=') == std::string::npos) {
      start = marker->close;
      continue;
    }
    std::string field = TrimSpaces(Deel(2, "=", inside));
    const auto plus = field.find('+');
    if (plus != std::string::npos && plus > 0) {
      const std::string addend = TrimSpaces(Deel(2, "+", field));
      field = TrimSpaces(Deel(1, "+", field));
      // Intended: the sum replaces the value for the rest of the line, even
      // when this marker belongs to another field.
      if (IsNumber(value) && IsNumber(addend)) {
        const double sum = LeadingNumber(value) + LeadingNumber(addend);
        if (sum < -2147483648.0 || sum > 2147483647.0) throw RunError(fout::kOverflow);
        value = rauw = NumberText(sum);
      }
    }
    if (field != name) {
      start = marker->close;
      continue;
    }
    if (!tekst_veld) {
      const bool value_has_bracket = value.find('[') != std::string::npos;
      placeholders_used[0] |= value_has_bracket;
      line = Vervang(line, text, value_has_bracket ? kValuePlaceholders[0] : std::string_view(value));
    } else {
      // Every copy of the marker is filled at once, each escaped for its own
      // place: the same field may stand in the text, in an attribute and in
      // a script. Right to left, so the places found stay where they are.
      std::vector<std::size_t> posities;
      for (auto pos = line.find(text); pos != std::string::npos; pos = line.find(text, pos + text.size())) {
        posities.push_back(pos);
      }
      for (auto it = posities.rbegin(); it != posities.rend(); ++it) {
        const auto plaats = PlaatsInRegel(line, *it, in_script);
        const auto index = static_cast<std::size_t>(plaats);
        const std::string ingevuld = VeldWaardeVoor(plaats, rauw, value);
        const bool value_has_bracket = ingevuld.find('[') != std::string::npos;
        placeholders_used[index] |= value_has_bracket;
        line.replace(*it, text.size(), value_has_bracket ? kValuePlaceholders[index] : ingevuld);
      }
    }
    CheckTextLength(line);
    start = 0;
  }
  for (std::size_t i = 0; i < placeholders_used.size(); ++i) {
    if (!placeholders_used[i]) continue;
    const std::string ingevuld =
        tekst_veld ? VeldWaardeVoor(static_cast<VeldPlaats>(i), rauw, value) : value;
    line = Vervang(line, kValuePlaceholders[i], ingevuld);
  }
}

}  // namespace kiekbord
