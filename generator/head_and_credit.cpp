#include "generator/head_and_credit.h"

#include "base/dutch_date.h"
#include "base/file_system.h"
#include "base/status.h"
#include "base/text.h"
#include "base/text_helpers.h"

namespace kiekbord {
namespace {

constexpr std::string_view kCrLf = "\r\n";

// Intended as written: without a comma after the last word, "zo" is never
// found and so never dropped.
constexpr std::string_view kStopwoorden =
    ",kiekbord,de,het,een,en,of,want,maar,in,uit,op,over,aan,boven,onder,voor,achter,naast,"
    "tussen,langs,er,toen,met,naar,van,dit,dat,zo";

constexpr std::string_view kIcoon = "kbicon.gif";

// Single quotes stand in for the double quotes until the placeholders are
// filled.
constexpr std::string_view kCreditSjabloon =
    "<p align='sAlign'>&nbsp;</p>"
    "\r\n"
    "<table border='0' align='sAlign'>"
    "<tr><td><a href='sURL' target='_blank' title='sTitle'>"
    "<img src='sIconFile' class='icon' width='18' height='18' border='0' alt='sAlt'>"
    "</a></td>"
    "\r\n"
    "<td><a href='sURL' class='icon' target='_blank' title='sTitle'>"
    "Aangemaakt met Kiekbord</a></td></tr></table>";

bool HeeftTekst(std::string_view text) { return !TrimSpaces(text).empty(); }

std::string MetaRegel(std::string_view name, std::string_view content) {
  return "<meta name=\"" + std::string(name) + "\" content=\"" + AttribuutTekst(content) + "\">" +
         std::string(kCrLf);
}

std::string MetPunt(std::string_view text) {
  std::string result(text);
  if (!EndsWith(result, ".")) result += '.';
  return result;
}

std::string TrefwoordenRegel(std::string_view eerste, std::string_view tweede) {
  std::string text = Lower(eerste);
  // Intended: the subtitle keeps its case, so its capitalised words escape
  // the stop-word list.
  if (HeeftTekst(tweede)) text += " " + std::string(tweede);
  text = Vervang(Vervang(text, ",", " "), ".", " ");
  const std::string lijst = Vervang(Trefwoordenlijst(text), " ", ", ");
  return MetaRegel("keywords", lijst + ", kiekbord");
}

std::string BeschrijvingRegel(std::string_view eerste, std::string_view tweede) {
  std::string text = MetPunt(eerste);
  if (HeeftTekst(tweede)) text += " " + MetPunt(tweede);
  text += " Aangemaakt met Kiekbord.";
  return MetaRegel("description", text);
}

// The icon is available when the output directory has it or it could be
// copied there from the program's directory.
bool IcoonBeschikbaar(const std::string& uitvoer_dir, const KopEnCredit& kop) {
  if (Fs().FileExists(uitvoer_dir + std::string(kIcoon))) return true;
  const std::string bron = kop.programma_dir + std::string(kIcoon);
  if (!Fs().FileExists(bron)) return false;
  const Status status = CopyFileKeepingTime(bron, uitvoer_dir + Lower(kIcoon));
  if (!status.ok()) throw RunError(status);
  return true;
}

}  // namespace

KopEnCredit KopEnCreditVoor(const ProgramSettings& settings,
                            const std::chrono::year_month_day& vandaag) {
  KopEnCredit kop;
  kop.meta_keywords = settings.meta_keywords;
  kop.meta_description = settings.meta_description;
  kop.datum = NederlandseLangeDatum(vandaag);
  kop.programma = settings.caption;
  kop.programma_dir = settings.program_dir;
  kop.credit_url = settings.credit_url;
  return kop;
}

std::string Trefwoordenlijst(std::string_view text) {
  const std::string woorden = EnkeleSpaties(text);
  std::string lijst = " ";
  std::size_t start = 0;
  while (start < woorden.size()) {
    std::size_t einde = woorden.find(' ', start);
    if (einde == std::string::npos) einde = woorden.size();
    const std::string woord = woorden.substr(start, einde - start);
    start = einde + 1;
    if (CharCount(woord) < 2) continue;
    if (kStopwoorden.find("," + woord + ",") != std::string_view::npos) continue;
    if (lijst.find(" " + woord + " ") != std::string::npos) continue;
    lijst += woord + " ";
  }
  return TrimSpaces(lijst);
}

void ZetKopblokVoor(std::string& line, std::string_view eerste, std::string_view tweede,
                    const KopEnCredit& kop) {
  std::string blok;
  if (kop.meta_keywords || kop.meta_description) {
    if (HeeftTekst(eerste) || HeeftTekst(tweede)) {
      if (kop.meta_keywords) blok += TrefwoordenRegel(eerste, tweede);
      if (kop.meta_description) blok += BeschrijvingRegel(eerste, tweede);
      blok += MetaRegel("robots", "index,nofollow");
    } else {
      blok += MetaRegel("robots", "noindex,nofollow");
    }
  }
  blok += "<!-- Aangemaakt op " + kop.datum + " -->" + std::string(kCrLf);
  blok += "<!-- Aangemaakt met " + kop.programma + " -->" + std::string(kCrLf);
  line = blok + line;
  CheckTextLength(line);
}

void ZetCreditRegelVoor(std::string& line, const std::string& uitvoer_dir,
                        std::string_view uitlijning, const KopEnCredit& kop) {
  if (!IcoonBeschikbaar(uitvoer_dir, kop)) return;
  std::string credit(kCreditSjabloon);
  credit = Vervang(credit, "sIconFile", kIcoon);
  credit = Vervang(credit, "sAlign", uitlijning);
  credit = Vervang(credit, "sAlt", "Icon Kiekbord");
  credit = Vervang(credit, "sURL", kop.credit_url);
  credit = Vervang(credit, "sTitle", "Meer informatie over Kiekbord");
  credit = Vervang(credit, "'", "\"");
  line = credit + std::string(kCrLf) + line;
  CheckTextLength(line);
}

}  // namespace kiekbord
