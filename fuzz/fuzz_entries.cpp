#include "fuzz/fuzz_entries.h"

#include <algorithm>
#include <array>
#include <chrono>

#include "base/file_system.h"
#include "base/keyed_text_file.h"
#include "base/text.h"
#include "base/text_helpers.h"
#include "gallery/script_reader.h"
#include "gallery/script_writer.h"
#include "generator/page_lines.h"
#include "generator/repeat_block.h"
#include "generator/template_engine.h"
#include "images/photo_properties.h"
#include "images/pixel_edit.h"
#include "images/smooth_library.h"
#include "images/turbo_jpeg.h"

namespace kiekbord::fuzz {
namespace {

// Piece n (from 0) of an input split at NUL bytes; "" when there are fewer.
std::string_view Piece(std::string_view input, int n) {
  for (; n > 0; --n) {
    const auto nul = input.find('\0');
    if (nul == std::string_view::npos) return {};
    input.remove_prefix(nul + 1);
  }
  return input.substr(0, input.find('\0'));
}

// Every folder and file exists, and a folder holds one photo.
class FuzzFiles : public ForwardingFileSystem {
 public:
  FuzzFiles() : ForwardingFileSystem(LocalFileSystem()) {}
  bool FileExists(const std::string&) override { return true; }
  bool DirectoryExists(const std::string& p) override { return !p.empty(); }
  Status ListFiles(const std::string&, const std::string& pattern, std::vector<std::string>& names) override {
    names.assign(MatchesPattern("foto.jpg", pattern) ? 1 : 0, "foto.jpg");
    return Status::Ok();
  }
};

std::string Lines(const LineTable& table) {
  std::string all;
  for (int i = 1; i <= table.Count(); ++i) all += table.Line(i) + "\n";
  return all;
}

// Lines are without line ends, valid UTF-8, and counted right; lines of a
// keyed text file are trimmed, those of a template never empty.
std::string CheckLines(const LineTable& table, bool keyed, bool keep_empty = false) {
  bool clean = table.CountSlot() == std::to_string(table.Count());
  for (int i = 1; i <= table.Count(); ++i) {
    const std::string& line = table.Line(i);
    clean = clean && line.find_first_of("\r\n") == std::string::npos && (keep_empty || !line.empty()) &&
            !(keyed && !line.empty() && (line.front() == ' ' || line.back() == ' ')) && IsValidUtf8(line);
  }
  return clean ? "" : "the lines are not clean or not counted right";
}

// A thumbnail has the size the rule gives for the photo's
// header; a failure has a description. Photos claiming more pixels than
// kFuzzBeeldpunten are skipped.
std::string CheckThumbnail(std::string_view foto, ThumbnailWerk (*maak)(std::string_view, const std::string&),
                           const std::string& library) {
  JpegKop kop, thumb;
  const bool kop_gelezen = LeesJpegKop(foto, kop).ok();
  if (kop_gelezen && kop.Beeldpunten() > kFuzzBeeldpunten) return "";
  const ThumbnailWerk werk = maak(foto, "/f/a_tn.jpg");
  if (!werk.fout.ok()) return werk.fout.description().empty() ? "a failure without a description" : "";
  if (werk.aanmaak_regel != "Aanmaken (" + library + ") thumbnail /f/a_tn.jpg...") return "wrong log line";
  if (!LeesJpegKop(werk.jpeg, thumb).ok()) return "the thumbnail has no readable header";
  // CMYK photos go through libvips, whose size the header does not give.
  const ThumbnailMaat maat{thumb.breedte, thumb.hoogte};
  const bool goed = !kop_gelezen || kop.IsCmyk() || BerekenThumbnailMaat(kop.breedte, kop.hoogte) == maat;
  return goed ? "" : "thumbnail of " + std::to_string(thumb.breedte) + " x " + std::to_string(thumb.hoogte);
}

// Input: file \0 section \0 key \0 value. An odd length keeps empty lines.
std::string FuzzKeyedTextFile(std::string_view input) {
  const bool keep_empty = input.size() % 2 == 1;
  LineTable table(capaciteit::kScript);
  LeesRegelsUitTekst(Piece(input, 0), table, keep_empty);
  if (std::string problem = CheckLines(table, true, keep_empty); !problem.empty()) return problem;
  const std::string section = DecodeText(Piece(input, 1)), key = DecodeText(Piece(input, 2)),
                    value = DecodeText(Piece(input, 3));
  const std::string before = Lines(table);
  const Status status = SchrijfWaarde(table, section, key, value);
  if (!status.ok()) return Lines(table) == before ? "" : "a failed SchrijfWaarde changed the table";
  // Keys that can be read at all give the value back.
  const bool leesbaar = !section.empty() && !key.empty() && key.find('=') == std::string::npos && !key.starts_with("[") &&
                        !(CharCount(key) >= 2 && key.ends_with("*")) && CharCount(key) + 1 + CharCount(value) > 2;
  ResetWildcardCursor();
  if (leesbaar && LeesWaarde(table, section, key, "\xFF") != TrimLeadingSpaces(value)) return "value not read back";
  return "";
}

// Input: template \0 field name \0 value.
std::string FuzzTemplateFields(std::string_view input) {
  LineTable table(capaciteit::kTemplate);
  const Status status = LeesSjabloonUitTekst(Piece(input, 0), table);
  if (!status.ok()) return status.number() == fout::kOverflow ? "" : "LeesSjabloon: " + status.description();
  if (std::string problem = CheckLines(table, false); !problem.empty()) return problem;
  const std::string name = DecodeText(Piece(input, 1)), value = DecodeText(Piece(input, 2));
  try {
    if (value.find('\\') == std::string::npos && HtmlTekst(value).find_first_of("<>\"") != std::string::npos) {
      return "HtmlTekst left a character unescaped";
    }
    // Filling a field leaves no marker of it; a line without "[" never changes.
    for (int i = 1; i <= std::min(table.Count(), 64); ++i) {
      std::string line = table.Line(i);
      VervangVeld(line, name, value);
      if (table.Line(i).find('[') == std::string::npos && line != table.Line(i)) {
        return "VervangVeld changed a line without fields";
      }
      std::string again = line;
      VervangVeld(again, name, "x");
      if (value.find_first_of("[]") == std::string::npos && again != line) return "a field is left after filling it";
    }
  } catch (const RunError& error) {
    if (error.number() != fout::kOverflow) throw;
  }
  return "";
}

// Input: template \0 caption.
std::string FuzzRepeatMarkers(std::string_view input) {
  LineTable table(capaciteit::kTemplate);
  if (!LeesSjabloonUitTekst(Piece(input, 0), table).ok()) return "";
  int last_begin = 0, last_einde = 0;
  for (int i = 1; i <= table.Count(); ++i) {
    const HerhaalMarkering kind = HerhaalMarkeringVan(table.Line(i));
    if (HerhaalMarkeringVan(Upper("  " + table.Line(i) + " ")) != kind) return "case or blanks change a marker";
    if (kind == HerhaalMarkering::kBegin) last_begin = i;
    if (kind == HerhaalMarkering::kEinde) last_einde = i;
  }
  try {
    PaginaRegels regels(KopEnCredit{}, PaginaVelden{});
    const HerhaalBlok blok = BereidBlokSjabloonVoor(table, regels);
    if (std::min(blok.begin, blok.einde) < 0 || std::max(blok.begin, blok.einde) > table.Count()) {
      return "the block lies outside the template";
    }
    if ((last_begin > 0 && blok.begin != last_begin) || (last_einde > 0 && blok.einde != last_einde)) {
      return "the block does not start and end at the last markers";
    }
  } catch (const RunError& error) {
    if (error.number() != fout::kOverflow) throw;
  }
  return "";
}

// Input: a script file. Saved and read again, the gallery is what the saved
// form keeps of it: photo names in lower case, of six characters or more and
// ending in ".jpg", captions without leading blanks.
std::string FuzzScriptReader(std::string_view input) {
  FuzzFiles files;
  const ScopedFileSystem scoped(files);
  const LeesOmgeving omgeving{.standaard_dir = "/home/fuzz/", .sjablonen = {"Klassiek", "Raster", "Donker"},
                              .sjablonen_dir = "/fuzz/Sjabloon/", .huidig_sjabloon = "Klassiek"};
  MappenZonderVenster mappen;
  LineTable table(capaciteit::kScript);
  LeesRegelsUitTekst(input, table, false);
  ResetWildcardCursor();
  ScriptGelezen eerst = ScriptLezen(table, omgeving, mappen);
  if (eerst.vermeldingen < eerst.script.fotos.size()) return "more photos than photo entries";
  LineTable geschreven(capaciteit::kScript);
  const Status status = ScriptSchrijven(eerst.script, std::chrono::year{2026} / 11 / 21, geschreven);
  if (!status.ok()) {
    const bool te_lang = RegelsVoorScript(eerst.script.fotos.size(), WebformaatSchrijven(eerst.script)) > static_cast<std::size_t>(geschreven.capacity());
    return te_lang ? "" : "ScriptSchrijven: " + status.description();
  }
  const ScriptGelezen opnieuw = ScriptLezen(geschreven, omgeving, mappen);
  if (opnieuw.ouder_formaat || !opnieuw.meldingen.empty()) return "a saved script reads as damaged or older";
  for (PhotoEntry& foto : eerst.script.fotos) {
    foto.foto = Lower(foto.foto);
    foto.bijschrift = TrimLeadingSpaces(foto.bijschrift);
  }
  std::erase_if(eerst.script.fotos, [](const PhotoEntry& f) { return CharCount(f.foto) < 6 || !f.foto.ends_with(".jpg"); });
  return opnieuw.script == eerst.script ? "" : "saved and read again, the gallery changed";
}

// Input: the start of a photo file. The size text reads back.
std::string FuzzPhotoSize(std::string_view input) {
  const std::string text = AfmetingenUitBytes(input.substr(0, static_cast<std::size_t>(kAfmetingenLeesGrens)));
  const int width = BreedteVanAfmetingen(text), height = HoogteVanAfmetingen(text);
  if (text == "Error") return width == 0 && height == 0 ? "" : "\"Error\" gives a size";
  const std::string plain = std::to_string(width) + "x" + std::to_string(height);
  return width >= 2 && height >= 2 && (text == plain || text == plain + "!") ? "" : "size text \"" + text + "\"";
}

constexpr std::array<FuzzTarget, 7> kTargets = {{
    {"keyed_text_file", FuzzKeyedTextFile},
    {"template_fields", FuzzTemplateFields},
    {"repeat_markers", FuzzRepeatMarkers},
    {"script_reader", FuzzScriptReader},
    {"photo_size", FuzzPhotoSize},
    // Input: a photo file.
    {"smooth_thumbnail", [](std::string_view input) { return CheckThumbnail(input, MaakGdiThumbnail, "GDI"); }},
    {"pixel_buffer_thumbnail", [](std::string_view input) { return CheckThumbnail(input, MaakIjlThumbnail, "IJL"); }},
}};

}  // namespace

std::span<const FuzzTarget> FuzzTargets() { return kTargets; }

const FuzzTarget* FindFuzzTarget(std::string_view name) {
  const auto it = std::ranges::find(kTargets, name, &FuzzTarget::name);
  return it == kTargets.end() ? nullptr : &*it;
}

}  // namespace kiekbord::fuzz
