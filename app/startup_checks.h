// The checks that run when the main window is activated: another copy of the
// program, the template sets, and a gallery script named on the command line.
// The window shows the messages and opens the script; what to say and what
// to open is decided here.
#pragma once

#include <string>
#include <vector>

#include "base/melding.h"

namespace kiekbord {

// The critical-error message when another copy runs: "Kiekbord is al gestart.".
Melding AlGestartMelding();

// The warning when the template sets directory holds no template set.
Melding GeenSjablonenMelding(const std::string& sjablonen_dir);

// The template sets under `sjablonen_dir`: its sub-directories, hidden ones
// skipped, sorted by name. Empty when the directory is missing or unreadable.
std::vector<std::string> SjabloonSets(const std::string& sjablonen_dir);

// What the command line asks for.
struct OpdrachtregelScript {
  enum class Soort {
    kNiets,     // no script named, or a named script that does not exist
    kOnjuist,   // not a ".kbs" file: show `melding`
    kOpenen,    // open `pad`
  };
  Soort soort = Soort::kNiets;
  std::string pad;
  Melding melding{MeldingSoort::kWaarschuwing, ""};
};

// The command line (the arguments joined by blanks). One of 7 characters or
// fewer names nothing; a longer one loses every double quote and its outer
// blanks, must end in ".kbs" (any case), and is opened when the file exists.
OpdrachtregelScript BekijkOpdrachtregel(const std::string& opdrachtregel);

}  // namespace kiekbord
