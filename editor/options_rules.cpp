#include "editor/options_rules.h"

#include "base/file_system.h"

namespace kiekbord {

OptiesScherm OptiesBijOpenen(const UserPreferences& voorkeuren, bool extern_bewerken, const std::string& browser) {
  OptiesScherm s;
  s.ie_dynamisch = voorkeuren.lopende_browser == 1;
  s.controlevraag = voorkeuren.vraag_bij_afsluiten == 1;
  s.backup_bij_roteren = voorkeuren.backup_bij_bewerken == 1;
  s.opslaan_laatste = voorkeuren.nieuw_in_laatste_dir == 1;
  s.rechtop_kopieren = voorkeuren.rechtop_bij_kopieren == 1;
  s.zonder_locatie = voorkeuren.zonder_locatie_bij_kopieren == 1;
  s.ie_dynamisch_aan = browser.find("iexplore.exe") != std::string::npos;
  s.fotoprogramma_aan = extern_bewerken;
  if (extern_bewerken) s.fotoprogramma = voorkeuren.foto_programma;
  return s;
}

bool FotoprogrammaVoorstellen(const OptiesScherm& scherm) {
  return scherm.fotoprogramma_aan && scherm.fotoprogramma.empty();
}

std::string StelFotoprogrammaVoor(std::string_view zoekpad) {
  for (const std::string_view programma : kVoorgesteldeFotoprogrammas) {
    std::size_t begin = 0;
    while (begin <= zoekpad.size()) {
      std::size_t einde = zoekpad.find(':', begin);
      if (einde == std::string_view::npos) einde = zoekpad.size();
      const std::string_view map = zoekpad.substr(begin, einde - begin);
      // An empty entry would mean the current directory; a program proposed
      // from there would stop working as soon as the program starts
      // elsewhere.
      if (!map.empty() && map.front() == '/') {
        const std::string pad = WithTrailingSlash(std::string(map)) + std::string(programma);
        if (Fs().FileExists(pad)) return pad;
      }
      begin = einde + 1;
    }
  }
  return "";
}

UserPreferences OptiesBijOk(const OptiesScherm& scherm) {
  UserPreferences v;
  v.lopende_browser = scherm.ie_dynamisch ? 1 : 0;
  v.vraag_bij_afsluiten = scherm.controlevraag ? 1 : 0;
  v.backup_bij_bewerken = scherm.backup_bij_roteren ? 1 : 0;
  v.nieuw_in_laatste_dir = scherm.opslaan_laatste ? 1 : 0;
  v.foto_programma = scherm.fotoprogramma;
  v.rechtop_bij_kopieren = scherm.rechtop_kopieren ? 1 : 0;
  v.zonder_locatie_bij_kopieren = scherm.zonder_locatie ? 1 : 0;
  return v;
}

}  // namespace kiekbord
