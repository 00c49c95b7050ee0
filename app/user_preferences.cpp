#include "app/user_preferences.h"

#include <cmath>
#include <cstdlib>
#include <limits>
#include <map>

#include "base/file_system.h"
#include "base/text.h"

namespace kiekbord {
namespace {

constexpr std::string_view kRecent = "Recent";
constexpr std::string_view kVerkleinen = "Verkleinen";

// A stored flag: its leading number (0 for a text that is none), or the
// default when the key is missing.
std::int16_t Vlag(const VoorkeurenOpslag& opslag, std::string_view sectie, std::string_view sleutel,
                  std::int16_t standaard) {
  const std::optional<std::string> waarde = opslag.Lees(sectie, sleutel);
  if (!waarde) return standaard;
  const double getal = std::nearbyint(LeadingNumber(TrimSpaces(*waarde)));
  if (getal < std::numeric_limits<std::int16_t>::min() || getal > std::numeric_limits<std::int16_t>::max()) {
    return 0;
  }
  return static_cast<std::int16_t>(getal);
}

// The INI file's values by "section/key", read once.
class IniOpslag : public VoorkeurenOpslag {
 public:
  explicit IniOpslag(std::string_view tekst) {
    std::string sectie;
    std::size_t begin = 0;
    while (begin < tekst.size()) {
      std::size_t einde = tekst.find('\n', begin);
      if (einde == std::string_view::npos) einde = tekst.size();
      std::string regel(TrimSpaces(tekst.substr(begin, einde - begin)));
      begin = einde + 1;
      if (regel.size() >= 2 && regel.front() == '[' && regel.back() == ']') {
        sectie = regel.substr(1, regel.size() - 2);
      } else if (const std::size_t is = regel.find('='); is != std::string::npos) {
        waarden_[sectie + "/" + TrimSpaces(regel.substr(0, is))] = TrimSpaces(regel.substr(is + 1));
      }
    }
  }
  std::optional<std::string> Lees(std::string_view sectie, std::string_view sleutel) const override {
    const auto it = waarden_.find(std::string(sectie) + "/" + std::string(sleutel));
    return it == waarden_.end() ? std::nullopt : std::optional(it->second);
  }
  void Schrijf(std::string_view, std::string_view, std::string_view) override {}

 private:
  std::map<std::string, std::string> waarden_;
};

}  // namespace

UserPreferences LeesVoorkeuren(const VoorkeurenOpslag& opslag) {
  UserPreferences v;
  v.vraag_bij_afsluiten = Vlag(opslag, "Exit", "Question", 1);
  v.lopende_browser = Vlag(opslag, "MSIE", "DDE", 1);
  v.nieuw_in_laatste_dir = Vlag(opslag, kRecent, "Default", 1);
  v.backup_bij_bewerken = Vlag(opslag, "Rotate", "Backup", 1);
  v.foto_programma = opslag.Lees("Photo", "Editor").value_or("");
  v.rechtop_bij_kopieren = Vlag(opslag, "Copy", "Upright", 1);
  v.zonder_locatie_bij_kopieren = Vlag(opslag, "Copy", "NoLocation", 1);
  return v;
}

void SchrijfVoorkeuren(VoorkeurenOpslag& opslag, const UserPreferences& v) {
  opslag.Schrijf("Exit", "Question", std::to_string(v.vraag_bij_afsluiten));
  opslag.Schrijf("MSIE", "DDE", std::to_string(v.lopende_browser));
  opslag.Schrijf(kRecent, "Default", std::to_string(v.nieuw_in_laatste_dir));
  opslag.Schrijf("Rotate", "Backup", std::to_string(v.backup_bij_bewerken));
  opslag.Schrijf("Photo", "Editor", v.foto_programma);
  opslag.Schrijf("Copy", "Upright", std::to_string(v.rechtop_bij_kopieren));
  opslag.Schrijf("Copy", "NoLocation", std::to_string(v.zonder_locatie_bij_kopieren));
}

std::string VoorkeurenBestand(const std::string& home) {
  const char* config = std::getenv("XDG_CONFIG_HOME");
  const std::string map = config != nullptr && *config != '\0' ? std::string(config) : WithTrailingSlash(home) + ".config";
  return WithTrailingSlash(map) + "kiekbord/kiekbord.conf";
}

UserPreferences LeesVoorkeurenBestand(const std::string& pad) {
  std::string tekst;
  if (!Fs().ReadFile(pad, tekst).ok()) tekst.clear();
  return LeesVoorkeuren(IniOpslag(tekst));
}

std::string LeesLaatsteDir(const VoorkeurenOpslag& opslag) { return opslag.Lees(kRecent, "LastDir").value_or(""); }

void SchrijfLaatsteDir(VoorkeurenOpslag& opslag, std::string_view directory) {
  opslag.Schrijf(kRecent, "LastDir", directory);
}

std::string LeesLaatsteScript(const VoorkeurenOpslag& opslag) {
  return opslag.Lees(kRecent, "ScriptFile").value_or("");
}

void SchrijfLaatsteScript(VoorkeurenOpslag& opslag, std::string_view pad) {
  opslag.Schrijf(kRecent, "ScriptFile", pad);
}

VerkleinInstellingen LeesVerkleinInstellingen(const VoorkeurenOpslag& opslag) {
  VerkleinInstellingen v;
  v.breedte = Vlag(opslag, kVerkleinen, "Breedte", v.breedte);
  v.hoogte = Vlag(opslag, kVerkleinen, "Hoogte", v.hoogte);
  v.verhouding = Vlag(opslag, kVerkleinen, "Verhouding", v.verhouding ? 1 : 0) != 0;
  v.kwaliteit = Vlag(opslag, kVerkleinen, "Kwaliteit", v.kwaliteit);
  if (v.kwaliteit < 0 || v.kwaliteit > 2) v.kwaliteit = 0;
  return v;
}

void SchrijfVerkleinInstellingen(VoorkeurenOpslag& opslag, const VerkleinInstellingen& v) {
  opslag.Schrijf(kVerkleinen, "Breedte", std::to_string(v.breedte));
  opslag.Schrijf(kVerkleinen, "Hoogte", std::to_string(v.hoogte));
  opslag.Schrijf(kVerkleinen, "Verhouding", v.verhouding ? "1" : "0");
  opslag.Schrijf(kVerkleinen, "Kwaliteit", std::to_string(v.kwaliteit));
}

}  // namespace kiekbord
