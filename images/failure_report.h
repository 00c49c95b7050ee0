// The one way image operations tell the user about their own failures.
//
// Thumbnails, rotation and shrinking report a failure as "Fout" + number +
// phrase + "(" + description + ")". The window installs a reporter that shows
// the text in a message box (exclamation icon, OK button); without one the
// text goes to standard error, which is what the headless command wants.
#pragma once

#include <string>
#include <string_view>

#include "gallery/status.h"

namespace kiekbord {

// "Fout" + the error number (a leading space when it is not negative) +
// `phrase` + a line break when `line_break` + "(" + description + ")".
std::string FoutTekst(const Status& fout, std::string_view phrase, bool line_break);

class FoutMelder {
 public:
  virtual ~FoutMelder() = default;
  virtual void Meld(const std::string& tekst) = 0;
};

// Hands `tekst` to the installed reporter (standard error when none is).
void MeldFout(const std::string& tekst);

// Installs a reporter for the lifetime of this object.
class ScopedFoutMelder {
 public:
  explicit ScopedFoutMelder(FoutMelder& melder);
  ~ScopedFoutMelder();
  ScopedFoutMelder(const ScopedFoutMelder&) = delete;
  ScopedFoutMelder& operator=(const ScopedFoutMelder&) = delete;

 private:
  FoutMelder* previous_;
};

}  // namespace kiekbord
