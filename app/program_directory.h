// Where the program's data lives.
#pragma once

#include <string>

namespace kiekbord {

// The program's data directory, ending in "/": the executable's own
// directory when it holds "Sjabloon/" (build tree, portable copy), else
// "<executable dir>/../share/kiekbord/" (installed).
std::string FindProgramDirectory();

// The user's home directory ($HOME, else the password database's entry).
std::string HomeDirectory();

}  // namespace kiekbord
