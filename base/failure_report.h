// How image operations tell the user about their own failures.
//
// Thumbnails, rotation and shrinking report a failure as "Fout" + number +
// phrase + "(" + description + ")" to the reporter they are handed. The
// window's reporter shows the text in a message box (exclamation icon, OK
// button); the headless command's writes it to standard error.
#pragma once

#include <string>
#include <string_view>

#include "base/status.h"

namespace kiekbord {

// "Fout" + the error number (a leading space when it is not negative) +
// `phrase` + a line break when `line_break` + "(" + description + ")".
std::string FoutTekst(const Status& fout, std::string_view phrase, bool line_break);

class FoutMelder {
 public:
  virtual ~FoutMelder() = default;
  virtual void Meld(const std::string& tekst) = 0;
};

// Writes every text as one line to standard error.
class StderrMelder : public FoutMelder {
 public:
  void Meld(const std::string& tekst) override;
};

}  // namespace kiekbord
