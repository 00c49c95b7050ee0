#include "base/failure_report.h"

#include <iostream>

namespace kiekbord {

std::string FoutTekst(const Status& fout, std::string_view phrase, bool line_break) {
  std::string tekst = "Fout";
  if (fout.number() >= 0) tekst += " ";
  tekst += std::to_string(fout.number());
  tekst += phrase;
  if (line_break) tekst += "\n";
  return tekst + "(" + fout.description() + ")";
}

void StderrMelder::Meld(const std::string& tekst) { std::cerr << tekst << '\n' << std::flush; }

}  // namespace kiekbord
