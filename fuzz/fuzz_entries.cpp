#include "fuzz/fuzz_entries.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "base/file_system.h"
#include "base/keyed_text_file.h"
#include "base/line_table.h"
#include "gallery/script_reader.h"
#include "gallery/script_writer.h"
#include "base/status.h"
#include "base/text.h"
#include "generator/page_lines.h"
#include "generator/repeat_block.h"
#include "generator/template_engine.h"
#include "base/text_helpers.h"
#include "images/ijl_library.h"
#include "images/photo_properties.h"
#include "images/pixel_buffer.h"
#include "images/pixel_edit.h"
#include "images/smooth_library.h"
#include "images/thumbnail_work.h"
#include "images/turbo_jpeg.h"

namespace kiekbord::fuzz {
namespace {

constexpr std::string_view kBom = "\xEF\xBB\xBF";
// Never a value of a table read from a file: that text is valid UTF-8.
constexpr std::string_view kGeenWaarde = "\xFF";
constexpr std::size_t kMaxTekst = 32767;

// Part n (from 0) of an input split at NUL bytes; "" when there are fewer.
std::string_view Part(std::string_view input, int n) {
  for (; n > 0; --n) {
    const auto nul = input.find('\0');
    if (nul == std::string_view::npos) return {};
    input.remove_prefix(nul + 1);
  }
  return input.substr(0, input.find('\0'));
}

std::string Regel(int i) { return "line " + std::to_string(i) + ": "; }

// Files in memory, so no input ever reaches the disk. A directory exists
// when it has a name, and holds one photo; every file name exists.
class FuzzFiles : public FileSystem {
 public:
  void Put(const std::string& path, std::string_view bytes) { files_[path] = std::string(bytes); }
  const std::string* Get(const std::string& path) const {
    const auto it = files_.find(path);
    return it == files_.end() ? nullptr : &it->second;
  }

  Status ReadFile(const std::string& path, std::string& contents, std::int64_t max_bytes) override {
    const std::string* file = Get(path);
    if (file == nullptr) return Status::Error(fout::kFileNotFound);
    contents = max_bytes < 0 ? *file : file->substr(0, static_cast<std::size_t>(max_bytes));
    return Status::Ok();
  }
  Status WriteFile(const std::string& path, std::string_view contents) override {
    Put(path, contents);
    return Status::Ok();
  }
  Status NewAppendFile(const std::string&, std::unique_ptr<AppendFile>&) override {
    return Status::Error(fout::kPathNotFound);
  }
  bool FileExists(const std::string&) override { return true; }
  bool DirectoryExists(const std::string& path) override { return !path.empty(); }
  Status GetFileInfo(const std::string&, FileInfo&) override { return Status::Error(fout::kFileNotFound); }
  Status SetModificationTime(const std::string&, std::int64_t) override {
    return Status::Error(fout::kFileNotFound);
  }
  Status ListFiles(const std::string&, const std::string& pattern, std::vector<std::string>& names) override {
    names.clear();
    if (MatchesPattern("foto.jpg", pattern)) names.push_back("foto.jpg");
    return Status::Ok();
  }
  Status DeleteFile(const std::string&) override { return Status::Error(fout::kFileNotFound); }
  Status RenameFile(const std::string&, const std::string&) override { return Status::Error(fout::kFileNotFound); }
  Status CreateDirectory(const std::string&) override { return Status::Error(fout::kPathNotFound); }

 private:
  std::map<std::string, std::string> files_;
};

// --- Keyed text files ---------------------------------------------------------

// What every read table holds: a count slot with the number of lines, and
// lines trimmed of spaces, without line ends, in valid UTF-8.
std::string CheckReadLines(const LineTable& table, bool keep_empty) {
  const int count = table.Count();
  if (table.CountSlot() != std::to_string(count)) return "count slot \"" + table.CountSlot() + "\"";
  for (int i = 1; i <= count; ++i) {
    const std::string& line = table.Line(i);
    if (line.find_first_of("\r\n") != std::string::npos) return Regel(i) + "holds a line end";
    if (line.empty() && !keep_empty) return Regel(i) + "empty";
    if (!line.empty() && (line.front() == ' ' || line.back() == ' ')) return Regel(i) + "not trimmed";
    if (!IsValidUtf8(line)) return Regel(i) + "no valid UTF-8";
  }
  return "";
}

bool SameLines(const LineTable& a, const LineTable& b) {
  if (a.Count() != b.Count()) return false;
  for (int i = 1; i <= a.Count(); ++i) {
    if (a.Line(i) != b.Line(i)) return false;
  }
  return true;
}

// SchrijfWaarde followed by LeesWaarde gives the value back, for keys that
// can be read at all: a key line of three or more characters whose key holds
// no "=", does not start a header and is no enumeration.
bool ValueReadsBack(std::string_view section, std::string_view key, std::string_view value) {
  const bool wildcard = CharCount(key) >= 2 && EndsWith(key, "*");
  return !section.empty() && !key.empty() && key.find('=') == std::string_view::npos &&
         !StartsWith(key, "[") && !wildcard && CharCount(key) + 1 + CharCount(value) > 2;
}

// One whole enumeration; nothing when it does not end within the table.
std::optional<std::vector<std::string>> Enumerate(const LineTable& table, std::string_view section,
                                                  std::string_view wildcard) {
  std::vector<std::string> results;
  for (int step = 0; step <= table.Count() + 1; ++step) {
    std::string result = LeesWaarde(table, section, wildcard, kGeenWaarde);
    if (result == kGeenWaarde) return results;
    results.push_back(std::move(result));
  }
  return std::nullopt;
}

std::string CheckEnumeration(const LineTable& table, std::string_view section, std::string_view prefix) {
  if (prefix.empty()) return "";
  const std::string wildcard = std::string(prefix) + "*";
  ResetWildcardCursor();
  const auto first = Enumerate(table, section, wildcard);
  if (!first) return "the enumeration does not end";
  // The cursor starts over once the default has come back.
  const auto second = Enumerate(table, section, wildcard);
  if (first != second) return "a second enumeration differs from the first";
  const std::string upper_prefix = Upper(prefix);
  for (const std::string& result : *first) {
    bool found = false;
    for (int i = 1; i <= table.Count() && !found; ++i) {
      const std::string& line = table.Line(i);
      found = Upper(line).compare(0, upper_prefix.size(), upper_prefix) == 0 &&
              TrimLeadingSpaces(std::string_view(line).substr(upper_prefix.size())) == result;
    }
    if (!found) return "enumerated \"" + result + "\" is the rest of no line";
  }
  return "";
}

// --- Templates and fields ---------------------------------------------------

std::vector<std::string_view> SplitLines(std::string_view text) {
  std::vector<std::string_view> lines;
  std::size_t pos = 0;
  while (pos < text.size()) {
    std::size_t end = text.find_first_of("\r\n", pos);
    if (end == std::string_view::npos) end = text.size();
    lines.push_back(text.substr(pos, end - pos));
    pos = end;
    if (pos < text.size()) pos += text.compare(pos, 2, "\r\n") == 0 ? 2 : 1;
  }
  return lines;
}

// The text without its spaces and tabs, which reading a template may move,
// collapse or drop.
std::string Visible(std::string_view text) {
  std::string out;
  for (const char c : text) {
    if (c != ' ' && c != '\t') out += c;
  }
  return out;
}

bool IsTemplateComment(const std::string& line) {
  return StartsWith(line, "<!--") && EndsWith(line, "-->") && Upper(line).find("SJABLOON", 4) != std::string::npos;
}

// Reading a template moves, splits and joins lines but loses no text other
// than spaces, tabs and template comments; only a tag still open at the end
// of the file is dropped.
std::string CheckTemplateText(std::string_view bytes, const LineTable& table) {
  const std::string text = DecodeText(bytes);
  std::string expected;
  for (const std::string_view raw : SplitLines(text)) {
    const std::string line = TrimSpaces(raw);
    if (!IsTemplateComment(line)) expected += Visible(line);
  }
  std::string actual;
  for (int i = 1; i <= table.Count(); ++i) actual += Visible(table.Line(i));
  if (actual == expected) return "";
  if (StartsWith(expected, actual)) {
    const std::string rest = Upper(std::string_view(expected).substr(actual.size()));
    for (const std::string_view tag : {"<HEAD", "</HEAD", "<BODY", "</BODY"}) {
      if (StartsWith(rest, tag)) return "";
    }
  }
  return "the template's text changed in reading";
}

std::string CheckTemplateTable(std::string_view bytes, const LineTable& table) {
  const int count = table.Count();
  for (int i = 1; i <= count; ++i) {
    const std::string& line = table.Line(i);
    if (line.empty()) return Regel(i) + "empty";
    if (line.find_first_of("\r\n") != std::string::npos) return Regel(i) + "holds a line end";
    if (!IsValidUtf8(line)) return Regel(i) + "no valid UTF-8";
  }
  return count < table.capacity() ? CheckTemplateText(bytes, table) : "";
}

// The inverse of HtmlTekst for a text without backslashes; nothing when the
// text holds an "&" that starts no entity of the table.
std::optional<std::string> Unescape(std::string_view text) {
  static constexpr std::array<std::pair<std::string_view, std::string_view>, 13> kEntities = {{
      {"&amp;", "&"}, {"&lt;", "<"}, {"&gt;", ">"}, {"&ccedil;", "ç"}, {"&atilde;", "ã"},
      {"&ecirc;", "ê"}, {"&egrave;", "è"}, {"&eacute;", "é"}, {"&euml;", "ë"}, {"&iuml;", "ï"},
      {"&ouml;", "ö"}, {"&uuml;", "ü"}, {"&quot;", "\""}}};
  std::string out;
  std::size_t pos = 0;
  while (pos < text.size()) {
    if (text[pos] != '&') {
      out += text[pos++];
      continue;
    }
    const auto entity = std::find_if(kEntities.begin(), kEntities.end(),
                                     [&](const auto& e) { return text.substr(pos).starts_with(e.first); });
    if (entity == kEntities.end()) return std::nullopt;
    out += entity->second;
    pos += entity->first.size();
  }
  return out;
}

std::string CheckHtmlTekst(const std::string& value) {
  std::string escaped;
  try {
    escaped = HtmlTekst(value);
  } catch (const RunError& error) {
    if (error.number() == fout::kOverflow && CharCount(value) > kMaxTekst) return "";
    throw;
  }
  if (value.find('\\') != std::string::npos) return "";
  // Without backslashes every special character is escaped, and nothing else
  // changes but the blanks at the ends.
  if (escaped.find_first_of("<>\"") != std::string::npos) return "HtmlTekst left a character unescaped";
  if (Unescape(escaped) != TrimSpaces(value)) return "HtmlTekst does not undo to the text";
  return "";
}

// Filling a field leaves no marker of it: filling it again, with a value that
// cannot make a marker, changes nothing. A line without "[" never changes.
std::string CheckVervangVeld(const std::string& line, const std::string& name, const std::string& value) {
  std::string once = line;
  try {
    VervangVeld(once, name, value);
  } catch (const RunError& error) {
    if (error.number() == fout::kOverflow) return "";
    throw;
  }
  if (CharCount(once) > kMaxTekst) return "VervangVeld made a line beyond the text limit";
  if (line.find('[') == std::string::npos && once != line) return "VervangVeld changed a line without fields";
  if (value.find_first_of("[]") != std::string::npos) return "";
  std::string twice = once;
  VervangVeld(twice, name, "x");
  if (twice != once) return "a field of \"" + name + "\" is left after filling it";
  return "";
}

// --- Repeat blocks ------------------------------------------------------------

std::string CheckMarkerRecognition(const std::string& line) {
  const HerhaalMarkering kind = HerhaalMarkeringVan(line);
  if (HerhaalMarkeringVan(Lower(line)) != kind || HerhaalMarkeringVan(Upper(line)) != kind) {
    return "the case of a line changes its marker";
  }
  if (HerhaalMarkeringVan("  " + line + "  ") != kind) return "blanks around a line change its marker";
  return "";
}

// The page: lines 1 to begin, the block lines per pass, then einde to the
// last line, each filled and ended by CR LF.
std::string ExpectedPage(const LineTable& table, HerhaalBlok blok, int passes, const std::vector<Veld>& velden) {
  std::string page;
  const auto add = [&](int van, int tot) {
    for (int i = van; i <= tot; ++i) {
      std::string line = table.Line(i);
      VulVelden(line, velden);
      page += line + "\r\n";
    }
  };
  add(1, blok.begin);
  for (int pass = 0; pass < passes; ++pass) add(blok.begin + 1, blok.einde - 1);
  add(blok.einde, table.Count());
  return page;
}

std::string CheckBlockPage(const LineTable& table, HerhaalBlok blok, const std::vector<Veld>& velden) {
  constexpr int kPasses = 2;
  BlokPagina pagina(table, blok);
  pagina.SchrijfKop(velden);
  for (int pass = 0; pass < kPasses; ++pass) pagina.SchrijfBlok(velden);
  pagina.SchrijfStaart(velden);
  FuzzFiles files;
  const ScopedFileSystem scoped(files);
  const std::string path = "/fuzz/kbfoto1.html";
  pagina.Bewaar(path);
  const std::string* written = files.Get(path);
  if (written == nullptr) return "the page was not written";
  if (*written != ExpectedPage(table, blok, kPasses, velden)) return "the page is not head, passes and tail";
  return "";
}

// --- Gallery scripts ------------------------------------------------------------

LeesOmgeving FuzzOmgeving() {
  LeesOmgeving omgeving;
  omgeving.standaard_dir = "/home/fuzz/";
  omgeving.sjablonen = {"Klassiek", "Raster", "Donker"};
  omgeving.sjablonen_dir = "/fuzz/Sjabloon/";
  omgeving.huidig_sjabloon = "Klassiek";
  return omgeving;
}

ScriptGelezen ReadScript(const LineTable& table) {
  MappenZonderVenster mappen;
  return ScriptLezen(table, FuzzOmgeving(), mappen);
}

// What a gallery keeps once saved in the current form: photo names in lower
// case, and only names the current form takes (six characters or more and
// ".jpg"); the older form took names of five. Blanks at the start of a value
// are lost too, and only the captions of the older form can have them.
GalleryScript AsStored(GalleryScript script) {
  for (PhotoEntry& foto : script.fotos) {
    foto.foto = Lower(foto.foto);
    foto.bijschrift = TrimLeadingSpaces(foto.bijschrift);
  }
  std::erase_if(script.fotos,
                [](const PhotoEntry& foto) { return CharCount(foto.foto) < 6 || !EndsWith(foto.foto, ".jpg"); });
  return script;
}

// The first field in which two galleries differ, for the report.
std::string FirstDifference(const GalleryScript& a, const GalleryScript& b) {
  const auto text = [](std::string_view field, const std::string& x, const std::string& y) {
    return std::string(field) + " \"" + x + "\" became \"" + y + "\"";
  };
  if (a.invoer_dir != b.invoer_dir) return text("invoer_dir", a.invoer_dir, b.invoer_dir);
  if (a.uitvoer_dir != b.uitvoer_dir) return text("uitvoer_dir", a.uitvoer_dir, b.uitvoer_dir);
  if (a.titel != b.titel) return text("titel", a.titel, b.titel);
  if (a.subtitel != b.subtitel) return text("subtitel", a.subtitel, b.subtitel);
  if (a.datum != b.datum) return text("datum", a.datum, b.datum);
  if (a.beschrijving != b.beschrijving) return text("beschrijving", a.beschrijving, b.beschrijving);
  if (a.sjabloon != b.sjabloon) return text("sjabloon", a.sjabloon, b.sjabloon);
  if (a.aantal_fotos_per_pagina != b.aantal_fotos_per_pagina) {
    return text("aantal_fotos_per_pagina", a.aantal_fotos_per_pagina, b.aantal_fotos_per_pagina);
  }
  if (a.fotos.size() != b.fotos.size()) {
    return "photos: " + std::to_string(a.fotos.size()) + " became " + std::to_string(b.fotos.size());
  }
  for (std::size_t i = 0; i < a.fotos.size(); ++i) {
    if (a.fotos[i].foto != b.fotos[i].foto) return text("foto", a.fotos[i].foto, b.fotos[i].foto);
    if (a.fotos[i].bijschrift != b.fotos[i].bijschrift) {
      return text("bijschrift", a.fotos[i].bijschrift, b.fotos[i].bijschrift);
    }
  }
  return "a choice, a colour or the thumbnail switch";
}

// --- Photo sizes --------------------------------------------------------------

struct StrictFrame {
  std::size_t length_field = 0;
  int width = 0;
  int height = 0;
};

bool IsStandaloneMarker(unsigned marker) {
  return marker == 0x00 || marker == 0x01 || marker == 0xFF || (marker >= 0xD0 && marker <= 0xD9);
}

// The frame header of a well-formed start of a file: segments back to back
// from the start marker on, each with a proper length, up to a frame header
// of 2..32767 pixels a side, all within the scan limit. Nothing for any other
// start, where the scan's own rules for damage apply.
std::optional<StrictFrame> WellFormedFrame(std::string_view bytes) {
  const auto at = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  const std::size_t end = std::min<std::size_t>(bytes.size(), 262144);
  if (end < 2 || at(0) != 0xFF || at(1) != 0xD8) return std::nullopt;
  std::size_t pos = 2;
  while (pos + 9 < end && pos + 9 < bytes.size()) {
    const unsigned marker = at(pos + 1);
    if (at(pos) != 0xFF || IsStandaloneMarker(marker) || marker == 0xDA) return std::nullopt;
    const std::size_t length = at(pos + 2) * 256u + at(pos + 3);
    if (length < 2) return std::nullopt;
    const bool frame = marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
    if (frame) {
      const int height = at(pos + 5) * 256 + at(pos + 6);
      const int width = at(pos + 7) * 256 + at(pos + 8);
      if (width < 2 || height < 2 || width > 32767 || height > 32767) return std::nullopt;
      return StrictFrame{pos + 2, width, height};
    }
    pos += 2 + length;
  }
  return std::nullopt;
}

std::string CheckSizeText(const std::string& text) {
  const int width = BreedteVanAfmetingen(text);
  const int height = HoogteVanAfmetingen(text);
  if (text == "Error") return width == 0 && height == 0 ? "" : "\"Error\" gives a size";
  const std::string plain = EndsWith(text, "!") ? text.substr(0, text.size() - 1) : text;
  if (width < 2 || height < 2 || std::to_string(width) + "x" + std::to_string(height) != plain) {
    return "size text \"" + text + "\" does not read back";
  }
  return "";
}

// --- Thumbnails ---------------------------------------------------------------

// A thumbnail is a JPEG that decodes whole, at most 151 pixels a side (753
// wide rounds up), at the size the rule gives when the photo's is known.
std::string CheckThumbnail(const ThumbnailWerk& werk, const std::optional<JpegKop>& foto) {
  if (!werk.fout.ok()) {
    if (werk.fout.description().empty()) return "a failure without a description";
    return "";
  }
  if (werk.aanmaak_regel.empty()) return "a thumbnail without its log line";
  JpegKop kop;
  if (!LeesJpegKop(werk.jpeg, kop).ok()) return "the thumbnail has no readable header";
  if (kop.breedte < 1 || kop.hoogte < 1 || kop.breedte > 151 || kop.hoogte > 151) {
    return "thumbnail of " + std::to_string(kop.breedte) + " x " + std::to_string(kop.hoogte);
  }
  if (foto && !(ThumbnailMaat{kop.breedte, kop.hoogte} == BerekenThumbnailMaat(foto->breedte, foto->hoogte))) {
    return "thumbnail of " + std::to_string(kop.breedte) + " x " + std::to_string(kop.hoogte) + " for a photo of " +
           std::to_string(foto->breedte) + " x " + std::to_string(foto->hoogte);
  }
  std::vector<std::uint8_t> rgb(static_cast<std::size_t>(kop.breedte) * kop.hoogte * 3);
  const PixelVlak vlak{rgb.data(), kop.breedte, kop.hoogte, kop.breedte * 3, PixelVolgorde::kRgb, false};
  if (!DecodeerJpeg(werk.jpeg, vlak).ok()) {
    return "the thumbnail does not decode";
  }
  return "";
}

// The photo's header, when it has a readable one, and whether it claims too
// many pixels to fuzz (the caller then skips the photo).
struct FuzzHeader {
  std::optional<JpegKop> kop;
  bool te_groot = false;
};

FuzzHeader ReadFuzzHeader(std::string_view jpeg) {
  JpegKop kop;
  if (!LeesJpegKop(jpeg, kop).ok()) return {};
  return {kop, kop.Beeldpunten() > kFuzzBeeldpunten};
}

// Point sampling takes source pixel (x d, y d) for target pixel (x, y), and
// leaves black what falls outside the source.
std::string CheckPointSampling(const cDIBSection& bron) {
  const ThumbnailMaat maat = BerekenThumbnailMaat(bron.Width(), bron.Height());
  const int d = ThumbnailDeler(bron.Width(), bron.Height());
  cDIBSection doel;
  if (!doel.Create(maat.breedte, maat.hoogte)) return "no buffer for the thumbnail";
  PuntThumbnail(bron, doel, d);
  for (int y = 0; y < maat.hoogte; ++y) {
    for (int x = 0; x < maat.breedte; ++x) {
      const Kleur expected = bron.Contains(x * d, y * d) ? bron.GetPixel(x * d, y * d) : 0;
      if (doel.GetPixel(x, y) != expected) {
        return "thumbnail pixel " + std::to_string(x) + "," + std::to_string(y) + " is no sample";
      }
    }
  }
  return "";
}

constexpr std::array<FuzzTarget, 7> kTargets = {{
    {"keyed_text_file", FuzzKeyedTextFile},
    {"template_fields", FuzzTemplateFields},
    {"repeat_markers", FuzzRepeatMarkers},
    {"script_reader", FuzzScriptReader},
    {"photo_size", FuzzPhotoSize},
    {"smooth_thumbnail", FuzzSmoothThumbnail},
    {"pixel_buffer_thumbnail", FuzzPixelBufferThumbnail},
}};

}  // namespace

std::span<const FuzzTarget> FuzzTargets() { return kTargets; }

const FuzzTarget* FindFuzzTarget(std::string_view name) {
  const auto it = std::find_if(kTargets.begin(), kTargets.end(), [&](const FuzzTarget& t) { return t.name == name; });
  return it == kTargets.end() ? nullptr : &*it;
}

// Input: file \0 section \0 key \0 value. An odd input length keeps empty
// lines, so both readings are fuzzed without a byte of their own.
std::string FuzzKeyedTextFile(std::string_view input) {
  const bool keep_empty = input.size() % 2 == 1;
  LineTable table(capaciteit::kScript);
  LeesRegelsUitTekst(Part(input, 0), table, keep_empty);
  if (std::string problem = CheckReadLines(table, keep_empty); !problem.empty()) return problem;

  // Written and read back through Fs(), the table comes back line for line;
  // only a byte order mark at the start of the first line is dropped again.
  FuzzFiles files;
  const ScopedFileSystem scoped(files);
  const std::string path = "/fuzz/bestand.ini";
  if (!SchrijfRegels(path, table).ok()) return "SchrijfRegels failed in memory";
  LineTable again(table.capacity());
  if (!LeesRegels(path, again, true).ok()) return "LeesRegels failed in memory";
  const bool bom = table.Count() > 0 && StartsWith(table.Line(1), kBom);
  if (!bom && !SameLines(table, again)) return "written and read back, the lines differ";

  const std::string section = DecodeText(Part(input, 1));
  const std::string key = DecodeText(Part(input, 2));
  const std::string value = DecodeText(Part(input, 3));
  if (std::string problem = CheckEnumeration(table, section, key); !problem.empty()) return problem;

  const LineTable before = table;
  const Status status = SchrijfWaarde(table, section, key, value);
  if (!status.ok()) {
    if (status.number() != fout::kSubscriptOutOfRange) return "SchrijfWaarde: " + status.description();
    if (!SameLines(before, table)) return "a failed SchrijfWaarde changed the table";
    return "";
  }
  if (table.Count() < before.Count() || table.Count() > before.Count() + 2) return "SchrijfWaarde added too many lines";
  if (ValueReadsBack(section, key, value)) {
    ResetWildcardCursor();
    const std::string read = LeesWaarde(table, section, key, kGeenWaarde);
    if (read != TrimLeadingSpaces(value)) return "SchrijfWaarde then LeesWaarde gives \"" + read + "\"";
  }
  return "";
}

// Input: template \0 field name \0 value.
std::string FuzzTemplateFields(std::string_view input) {
  const std::string_view bytes = Part(input, 0);
  LineTable table(capaciteit::kTemplate);
  const Status status = LeesSjabloonUitTekst(bytes, table);
  if (!status.ok()) {
    if (status.number() != fout::kOverflow) return "LeesSjabloon: " + status.description();
    if (table.CountSlot() != status.CountSlotText()) return "a failed read without its count slot";
    return "";
  }
  if (std::string problem = CheckTemplateTable(bytes, table); !problem.empty()) return problem;

  const std::string name = DecodeText(Part(input, 1));
  const std::string value = DecodeText(Part(input, 2));
  if (std::string problem = CheckHtmlTekst(value); !problem.empty()) return problem;
  // Every line is filled, but a bounded number of them: the work per input
  // stays small whatever the template holds.
  const int lines = std::min(table.Count(), 64);
  for (int i = 1; i <= lines; ++i) {
    if (std::string problem = CheckVervangVeld(table.Line(i), name, value); !problem.empty()) {
      return Regel(i) + problem;
    }
  }
  return "";
}

// Input: template \0 caption.
std::string FuzzRepeatMarkers(std::string_view input) {
  LineTable table(capaciteit::kTemplate);
  if (!LeesSjabloonUitTekst(Part(input, 0), table).ok()) return "";
  for (int i = 1; i <= table.Count(); ++i) {
    if (std::string problem = CheckMarkerRecognition(table.Line(i)); !problem.empty()) return Regel(i) + problem;
  }

  const std::vector<Veld> velden = {{"BIJSCHRIFT", DecodeText(Part(input, 1))}, {"FOTONUMMER", "3"}};
  try {
    PaginaRegels regels(KopEnCredit{}, PaginaVelden{});
    const HerhaalBlok blok = BereidBlokSjabloonVoor(table, regels);
    const int count = table.Count();
    if (blok.begin < 0 || blok.begin > count || blok.einde < 0 || blok.einde > count) {
      return "block " + std::to_string(blok.begin) + ".." + std::to_string(blok.einde) + " outside the template";
    }
    // The last marker of each kind wins over the body tags.
    int last_begin = 0;
    int last_einde = 0;
    for (int i = 1; i <= count; ++i) {
      const HerhaalMarkering kind = HerhaalMarkeringVan(table.Line(i));
      if (kind == HerhaalMarkering::kBegin) last_begin = i;
      if (kind == HerhaalMarkering::kEinde) last_einde = i;
    }
    if ((last_begin > 0 && blok.begin != last_begin) || (last_einde > 0 && blok.einde != last_einde)) {
      return "the block does not start and end at the last markers";
    }
    return CheckBlockPage(table, blok, velden);
  } catch (const RunError& error) {
    if (error.number() == fout::kOverflow) return "";
    throw;
  }
}

// Input: a script file.
std::string FuzzScriptReader(std::string_view input) {
  FuzzFiles files;
  const ScopedFileSystem scoped(files);
  LineTable table(capaciteit::kScript);
  LeesRegelsUitTekst(input, table, false);
  ResetWildcardCursor();
  const ScriptGelezen eerst = ReadScript(table);
  if (eerst.vermeldingen < eerst.script.fotos.size()) return "more photos than photo entries";

  // Saved and read again, the gallery is what the saved form keeps of it.
  constexpr std::chrono::year_month_day kDatum{std::chrono::year{2026}, std::chrono::November, std::chrono::day{21}};
  LineTable geschreven(capaciteit::kScript);
  const Status status = ScriptSchrijven(eerst.script, kDatum, geschreven);
  if (!status.ok()) {
    if (RegelsVoorScript(eerst.script.fotos.size()) <= static_cast<std::size_t>(geschreven.capacity())) {
      return "ScriptSchrijven: " + status.description();
    }
    return "";
  }
  const std::string path = "/fuzz/galerij.kbs";
  if (!SchrijfRegels(path, geschreven).ok()) return "SchrijfRegels failed in memory";
  LineTable gelezen(capaciteit::kScript);
  if (!LeesRegels(path, gelezen, false).ok()) return "LeesRegels failed in memory";
  const ScriptGelezen opnieuw = ReadScript(gelezen);
  if (opnieuw.ouder_formaat) return "a saved script reads as the older form";
  if (!opnieuw.meldingen.empty()) return "a saved script gives a message: " + opnieuw.meldingen.front().tekst;
  const GalleryScript bewaard = AsStored(eerst.script);
  if (!(opnieuw.script == bewaard)) {
    return "saved and read again, the gallery changed: " + FirstDifference(bewaard, opnieuw.script);
  }
  return "";
}

// Input: the start of a photo file.
std::string FuzzPhotoSize(std::string_view input) {
  const std::string text = AfmetingenUitBytes(input.substr(0, static_cast<std::size_t>(kAfmetingenLeesGrens)));
  if (std::string problem = CheckSizeText(text); !problem.empty()) return problem;

  {
    FuzzFiles files;
    const ScopedFileSystem scoped(files);
    files.Put("/fuzz/foto.jpg", input);
    if (BepaalAfmetingen("/fuzz/foto.jpg") != text) return "BepaalAfmetingen differs from the scan of the bytes";
    if (BepaalAfmetingen("/fuzz/ontbreekt.jpg") != "Error") return "a missing file has a size";
  }

  const auto frame = WellFormedFrame(input);
  if (!frame) return "";
  const std::string expected = std::to_string(frame->width) + "x" + std::to_string(frame->height) +
                               (frame->length_field > 249 ? "!" : "");
  if (text != expected) return "scan gives \"" + text + "\" for a well-formed " + expected;
  JpegKop kop;
  if (LeesJpegKop(input, kop).ok() && (kop.breedte != frame->width || kop.hoogte != frame->height)) {
    return "scan gives " + expected + ", TurboJPEG " + std::to_string(kop.breedte) + "x" + std::to_string(kop.hoogte);
  }
  return "";
}

// Input: a photo file.
std::string FuzzSmoothThumbnail(std::string_view input) {
  auto [kop, te_groot] = ReadFuzzHeader(input);
  if (te_groot) return "";
  // CMYK photos go through libvips, whose size the header does not give.
  if (kop && kop->IsCmyk()) kop.reset();
  const std::string pad = "/fuzz/kb_tn_foto.jpg";
  const ThumbnailWerk werk = MaakGdiThumbnail(input, pad);
  if (werk.fout.ok() && werk.aanmaak_regel != "Aanmaken (GDI) thumbnail " + pad + "...") return "wrong log line";
  return CheckThumbnail(werk, kop);
}

// Input: a photo file.
std::string FuzzPixelBufferThumbnail(std::string_view input) {
  const auto [kop, te_groot] = ReadFuzzHeader(input);
  if (te_groot) return "";
  const std::string pad = "/fuzz/kb_tn_foto.jpg";
  const ThumbnailWerk werk = MaakIjlThumbnail(input, pad);
  if (werk.fout.ok() && werk.aanmaak_regel != "Aanmaken (IJL) thumbnail " + pad + "...") return "wrong log line";
  if (werk.fout.ok() && !kop) return "a thumbnail of a photo without a header";
  if (std::string problem = CheckThumbnail(werk, kop); !problem.empty()) return problem;

  cDIBSection bron;
  if (!LoadJPGUitBytes(bron, input).ok()) return "";
  if (!kop) return "a photo decoded without a header";
  if (bron.Width() != kop->breedte || bron.Height() != kop->hoogte) return "the buffer is not the header's size";
  return CheckPointSampling(bron);
}

}  // namespace kiekbord::fuzz
