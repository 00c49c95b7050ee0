#include "app/program_settings.h"

#include <algorithm>
#include <cmath>

#include "base/program_info.h"
#include "base/file_system.h"
#include "base/keyed_text_file.h"
#include "base/text.h"
#include "base/text_helpers.h"

namespace kiekbord {
namespace {

// "$(AppPath)" stands for the program's directory without its final "/".
std::string Location(const LineTable& ini, const char* section, const std::string& current,
                     const std::string& program_dir) {
  std::string app_path = program_dir;
  if (app_path.size() > 1 && app_path.back() == '/') app_path.pop_back();
  return WithTrailingSlash(
      Vervang(LeesWaarde(ini, section, "Bestandslocatie", current), "$(AppPath)", app_path));
}

std::string FileType(const LineTable& ini, const char* section, const std::string& current) {
  std::string type = LeesWaarde(ini, section, "Bestandstype", current);
  return StartsWith(type, ".") ? type : "." + type;
}

bool Switch(const LineTable& ini, const char* section, const char* key) {
  return LeesWaarde(ini, section, key, "1") == "1";
}

void ApplyIni(const LineTable& ini, ProgramSettings& s) {
  const double maximum = LeadingNumber(LeesWaarde(ini, "Foto", "MaximumAantal", "100"));
  s.maximum_aantal = static_cast<int>(std::clamp(std::nearbyint(maximum), 10.0, 300.0));
  s.verkleinen = Switch(ini, "Foto", "Verkleinen");
  s.extern_bewerken = Switch(ini, "Foto", "ExternBewerken");
  s.meta_keywords = Switch(ini, "Sjabloon", "MetaKeywords");
  s.meta_description = Switch(ini, "Sjabloon", "MetaDescription");
  s.sjabloon_dir = Location(ini, "Sjabloon", s.sjabloon_dir, s.program_dir);
  s.sjabloon_type = FileType(ini, "Sjabloon", s.sjabloon_type);
  s.sjabloon_host = LeesWaarde(ini, "Sjabloon", "Hostname", "");
  s.credit_url = LeesWaarde(ini, "Sjabloon", "CreditURL", s.credit_url);
  s.help_dir = Location(ini, "Help", s.help_dir, s.program_dir);
  s.help_type = FileType(ini, "Help", s.help_type);
  s.help_host = LeesWaarde(ini, "Help", "Hostname", "");
  s.kleur_tekst_op_achtergrond = LeesWaarde(ini, "Instellingen", "KleurTekstOpAchtergrond", "x");
  s.kleur_achtergrond = LeesWaarde(ini, "Instellingen", "KleurAchtergrond", "x");
  s.kleur_tekst_in_kader = LeesWaarde(ini, "Instellingen", "KleurTekstInKader", "x");
  s.kleur_kader = LeesWaarde(ini, "Instellingen", "KleurKader", "x");
}

}  // namespace

ProgramSettings LeesProgrammaInstellingen(const std::string& program_dir,
                                          const std::string& home_dir) {
  ProgramSettings s;
  s.program_dir = WithTrailingSlash(program_dir);
  s.sjabloon_dir = s.program_dir + "Sjabloon/";
  s.help_dir = s.program_dir + "Help/";

  const std::string ini_path = s.program_dir + "KBord.ini";
  if (Fs().FileExists(ini_path)) {
    LineTable ini(capaciteit::kIni);
    // An unreadable file reads as an empty table, so every default applies.
    static_cast<void>(LeesRegels(ini_path, ini, false));
    ApplyIni(ini, s);
  }
  s.default_dir = WithTrailingSlash(home_dir);
  s.caption = ProgramCaption();
  return s;
}

}  // namespace kiekbord
