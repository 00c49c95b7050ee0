// The head block, the keyword list and the credit line of the generated pages.
//
// The head block (meta tags for search engines and two comment lines) goes in
// front of a page's "</HEAD>" line; its keywords come from the gallery title
// and subtitle, minus a fixed list of Dutch stop words. The credit line (an
// icon and "Aangemaakt met Kiekbord", linking to the program's information
// page) goes in front of one line of the title page, and brings the icon
// "kbicon.gif" into the output directory when it is not there yet.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "app/program_settings.h"

namespace kiekbord {

// What the head block and the credit line take from the program settings
// and the day of the run.
struct KopEnCredit {
  bool meta_keywords = true;
  bool meta_description = true;
  std::string datum;          // today's long date: "zaterdag 21 november 2026"
  std::string programma;      // the program caption: "Kiekbord 4.1 Pro"
  std::string programma_dir;  // holds the icon "kbicon.gif"; ends in "/"
  std::string credit_url;     // the address the credit line links to
};

KopEnCredit KopEnCreditVoor(const ProgramSettings& settings,
                            const std::chrono::year_month_day& vandaag);

// The keywords of `text`, separated by single spaces: words of two or more
// characters that are no stop word, each once, in their order. Stop words
// and repeats are matched exactly, case included.
std::string Trefwoordenlijst(std::string_view text);

// Puts the head block, ended by CR LF, in front of `line`. `eerste` and
// `tweede` are the title and subtitle on the title page and empty on the
// other pages; without either there are no keywords or description, and
// the robots line says "noindex". Throws RunError(6) on texts beyond the
// 16-bit limits.
void ZetKopblokVoor(std::string& line, std::string_view eerste, std::string_view tweede,
                    const KopEnCredit& kop);

// Puts the credit table and CR LF in front of `line`, aligned by
// `uitlijning` ("left", "center", "right"). When `uitvoer_dir` lacks
// "kbicon.gif", the program directory's copy is copied there first; when
// neither has it, `line` stays as it is. Throws RunError when the icon
// cannot be copied.
void ZetCreditRegelVoor(std::string& line, const std::string& uitvoer_dir,
                        std::string_view uitlijning, const KopEnCredit& kop);

}  // namespace kiekbord
