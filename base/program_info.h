// The program's name, version and build revision.
#pragma once

#include <string>

namespace kiekbord {

inline constexpr const char* kProgramTitle = "Kiekbord";
inline constexpr int kVersionMajor = 4;
inline constexpr int kVersionMinor = 1;

// "Kiekbord 4.1 Pro": the title, the version and the edition.
std::string ProgramCaption();

// The build revision number (the number of commits the build was made from;
// 0 when that was unknown).
int BuildRevision();

}  // namespace kiekbord
