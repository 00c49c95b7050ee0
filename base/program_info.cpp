#include "base/program_info.h"

#ifndef KIEKBORD_REVISION
#define KIEKBORD_REVISION 0
#endif

namespace kiekbord {

std::string ProgramCaption() {
  return std::string(kProgramTitle) + " " + std::to_string(kVersionMajor) + "." +
         std::to_string(kVersionMinor) + " Pro";
}

int BuildRevision() { return KIEKBORD_REVISION; }

}  // namespace kiekbord
