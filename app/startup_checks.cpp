#include "app/startup_checks.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "base/program_info.h"
#include "base/file_system.h"
#include "base/text.h"
#include "base/text_helpers.h"

namespace kiekbord {

Melding AlGestartMelding() { return {MeldingSoort::kFout, std::string(kProgramTitle) + " is al gestart."}; }

Melding GeenSjablonenMelding(const std::string& sjablonen_dir) {
  return {MeldingSoort::kWaarschuwing, "Geen sjablonen-directory in " + sjablonen_dir + " gevonden.\r\n" +
                                           "Het is daarom niet mogelijk om een kiekbord aan te maken."};
}

std::vector<std::string> SjabloonSets(const std::string& sjablonen_dir) {
  std::vector<std::string> namen;
  std::error_code fout;
  for (std::filesystem::directory_iterator it(sjablonen_dir, fout), einde; !fout && it != einde;
       it.increment(fout)) {
    const std::string naam = it->path().filename().string();
    std::error_code geen_map;
    if (!naam.empty() && naam[0] != '.' && it->is_directory(geen_map)) namen.push_back(naam);
  }
  std::sort(namen.begin(), namen.end());
  return namen;
}

OpdrachtregelScript BekijkOpdrachtregel(const std::string& opdrachtregel) {
  OpdrachtregelScript uitkomst;
  if (CharCount(opdrachtregel) <= 7) return uitkomst;
  const std::string pad = TrimSpaces(Vervang(opdrachtregel, "\"", ""));
  if (Lower(pad.size() >= 4 ? pad.substr(pad.size() - 4) : pad) != ".kbs") {
    uitkomst.soort = OpdrachtregelScript::Soort::kOnjuist;
    uitkomst.melding.tekst = "Bestand '" + pad + "' heeft onjuist type.\r\nHet bestandstype moet '.kbs' zijn.";
    return uitkomst;
  }
  // A script that is not there is passed over without a word.
  if (!Fs().FileExists(pad)) return uitkomst;
  uitkomst.soort = OpdrachtregelScript::Soort::kOpenen;
  uitkomst.pad = pad;
  return uitkomst;
}

}  // namespace kiekbord
