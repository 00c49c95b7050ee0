// A message for the user, as data: the core decides what to say, a front end
// decides how to show it (a message box in the window, a line of text in the
// headless command).
#pragma once

#include <string>

namespace kiekbord {

// The icon of the message box.
enum class MeldingSoort { kInformatie, kVraag, kWaarschuwing, kFout };

struct Melding {
  MeldingSoort soort;
  std::string tekst;  // exact text; lines separated by CR LF
  // A question whose default answer is "Nee" (one that would destroy
  // something); otherwise "Ja" is the default.
  bool nee_voorop = false;

  bool operator==(const Melding&) const = default;
};

}  // namespace kiekbord
