// kiekbord-maak --controleer: reads a script as the window opens it and
// shows what the window would load and tell the user, without writing
// anything.
#pragma once

#include <ostream>
#include <string>

#include "app/program_settings.h"

namespace kiekbord {

// Reads the script at `pad` with the window's reader and prints the record's
// values and the window's messages to `out`. Returns 0 when the script was
// read, 1 when it could not be (the window's "Fout bij openen" message is
// printed then).
int ControleerScript(const std::string& pad, const ProgramSettings& settings, std::ostream& out);

}  // namespace kiekbord
