#include "generator/style_sheet.h"

#include <cmath>

#include "base/keyed_text_file.h"
#include "base/line_table.h"
#include "base/status.h"
#include "base/text.h"
#include "generator/page_lines.h"
#include "generator/template_engine.h"
#include "base/text_helpers.h"

namespace kiekbord {
namespace {

constexpr std::string_view kLettertypen =
    "Arial;Comic Sans MS;Courier;Courier New;MS Sans Serif;Times New Roman;Verdana";

constexpr PaginaMeldingen kOpmaakMeldingen{
    "Aanmaken opmaakbestand ", "Fout bij aanmaken opmaakbestand: ", "Opmaakbestand "};

// The style sheet keeps its own line breaks: read as a keyed text file, not
// as a page template.
Status LeesStijlSjabloon(const std::string& path, LineTable& table, bool webformaat) {
  const Status status = LeesRegels(path, table, false);
  if (!status.ok()) return status;
  // The lines are trimmed already, so a marker stands at the start.
  LineTable gekozen(table.capacity());
  for (int i = 1; i <= table.Count(); ++i) {
    std::string regel = TrimSpaces(WebRegels(table.Line(i), webformaat));
    if (!regel.empty()) gekozen.Append(std::move(regel));
  }
  table = std::move(gekozen);
  return status;
}

std::string Lettertype(std::string_view index) {
  return "\"" + Deel(StukNummer(index), ";", kLettertypen) + "\"";
}

std::string Grootte(std::string_view index) {
  const double waarde = LeadingNumber(index);
  if (waarde <= 0) return "10";
  const double grootte = std::nearbyint(10 + 2 * waarde);
  if (!(grootte <= 32767)) throw RunError(fout::kOverflow);
  return std::to_string(static_cast<int>(grootte));
}

void VulStijlRegel(std::string& line, const KleurVelden& kleuren, const LettertypeWaarden& letter) {
  VulKleurVelden(line, kleuren);
  VervangVeld(line, "LETTERTYPETITELS", letter.titels);
  VervangVeld(line, "LETTERTYPEBIJSCHRIFTEN", letter.bijschriften);
  VervangVeld(line, "LETTERGROOTTEBIJSCHRIFTEN", letter.grootte);
  // One field serves "font-style" and "font-weight", told apart by the
  // declaration on the same line; with both words the style wins.
  const std::string lower = Lower(line);
  if (lower.find("style") != std::string::npos) {
    VervangVeld(line, "LETTERSTIJLBIJSCHRIFTEN", letter.stijl);
  }
  if (lower.find("weight") != std::string::npos) {
    VervangVeld(line, "LETTERSTIJLBIJSCHRIFTEN", letter.gewicht);
  }
}

}  // namespace

LettertypeWaarden LettertypeWaardenVan(const SiteGegevens& g) {
  const std::string& stijl = g.letterstijl_bijschriften;
  LettertypeWaarden letter;
  letter.titels = Lettertype(g.lettertype_titels);
  letter.bijschriften = Lettertype(g.lettertype_bijschriften);
  letter.grootte = Grootte(g.lettergrootte_bijschriften);
  letter.stijl = Deel(stijl == "2" || stijl == "3" ? 2 : 1, ";", "normal;italic");
  letter.gewicht = Deel(stijl == "1" || stijl == "3" ? 2 : 1, ";", "normal;bold");
  return letter;
}

void MaakStijlblad(SiteRun& run) {
  BinnenStapgrens(run, [&] {
    const SiteGegevens& g = run.gegevens;
    LineTable sjabloon(capaciteit::kTemplate);
    if (!LeesSjabloonGelogd(g.stijl_sjabloon, sjabloon, run, LeesStijlSjabloon)) return;

    const KleurVelden kleuren = KleurVeldenVan(g);
    const LettertypeWaarden letter = LettertypeWaardenVan(g);
    for (int i = 1; i <= sjabloon.Count(); ++i) {
      std::string& line = sjabloon.Line(i);
      if (line.find('[') != std::string::npos) VulStijlRegel(line, kleuren, letter);
    }

    SchrijfPaginaGelogd(g.uitvoer_dir + "kb.css", sjabloon, kOpmaakMeldingen, run);
  });
}

}  // namespace kiekbord
