#include "images/failure_report.h"

#include <iostream>
#include <mutex>

namespace kiekbord {
namespace {

std::mutex melder_mutex;
FoutMelder* installed_melder = nullptr;

}  // namespace

std::string FoutTekst(const Status& fout, std::string_view phrase, bool line_break) {
  std::string tekst = "Fout";
  if (fout.number() >= 0) tekst += " ";
  tekst += std::to_string(fout.number());
  tekst += phrase;
  if (line_break) tekst += "\n";
  return tekst + "(" + fout.description() + ")";
}

void MeldFout(const std::string& tekst) {
  std::lock_guard lock(melder_mutex);
  if (installed_melder != nullptr) {
    installed_melder->Meld(tekst);
  } else {
    std::cerr << tekst << '\n' << std::flush;
  }
}

ScopedFoutMelder::ScopedFoutMelder(FoutMelder& melder) {
  std::lock_guard lock(melder_mutex);
  previous_ = installed_melder;
  installed_melder = &melder;
}

ScopedFoutMelder::~ScopedFoutMelder() {
  std::lock_guard lock(melder_mutex);
  installed_melder = previous_;
}

}  // namespace kiekbord
