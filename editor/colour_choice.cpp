#include "editor/colour_choice.h"

#include <array>

#include <cmath>
#include <limits>
#include <string>

#include "base/text.h"
#include "base/text_helpers.h"

namespace kiekbord {
namespace {

KleurRol Partner(KleurRol rol) {
  switch (rol) {
    case KleurRol::kTekstOpAchtergrond: return KleurRol::kAchtergrond;
    case KleurRol::kAchtergrond: return KleurRol::kTekstOpAchtergrond;
    case KleurRol::kTekstInKader: return KleurRol::kKader;
    case KleurRol::kKader: return KleurRol::kTekstInKader;
  }
  return rol;
}

std::string Weigering(KleurRol rol) {
  switch (rol) {
    case KleurRol::kTekstOpAchtergrond:
      return "De gekozen tekstkleur is gelijk aan de\r\nachtergrondkleur. Dit is niet mogelijk.";
    case KleurRol::kAchtergrond:
      return "De gekozen achtergrondkleur is gelijk aan\r\nde tekstkleur. Dit is niet mogelijk.";
    case KleurRol::kTekstInKader:
      return "De gekozen tekstkleur is gelijk aan de\r\nkaderkleur. Dit is niet mogelijk.";
    case KleurRol::kKader:
      return "De gekozen kaderkleur is gelijk aan\r\nde tekstkleur. Dit is niet mogelijk.";
  }
  return {};
}

// A default colour of "KBord.ini": a number or an HTML colour; `standaard`
// when it is unset or unreadable.
std::int32_t IniKleur(const std::string& waarde, std::int32_t standaard) {
  if (waarde.empty() || waarde == "x") return standaard;
  if (!IsNumber(waarde)) return HexNaarKleur(waarde, standaard);
  const double getal = std::nearbyint(LeadingNumber(waarde));
  if (getal < 0 || getal > 0xFFFFFF) return standaard;
  return static_cast<std::int32_t>(getal);
}

}  // namespace

std::int32_t& KleurVan(GalleryScript& script, KleurRol rol) {
  switch (rol) {
    case KleurRol::kTekstOpAchtergrond: return script.kleur_tekst_op_achtergrond;
    case KleurRol::kAchtergrond: return script.kleur_achtergrond;
    case KleurRol::kTekstInKader: return script.kleur_tekst_in_kader;
    case KleurRol::kKader: break;
  }
  return script.kleur_kader;
}

std::int32_t KleurVan(const GalleryScript& script, KleurRol rol) {
  // The same field as for a script that may change; reading it changes nothing.
  return KleurVan(const_cast<GalleryScript&>(script), rol);
}

std::int32_t PartnerKleur(const GalleryScript& script, KleurRol rol) { return KleurVan(script, Partner(rol)); }

std::optional<Melding> KiesKleur(GalleryScript& script, KleurRol rol, std::int32_t kleur) {
  if (kleur == PartnerKleur(script, rol)) return Melding{MeldingSoort::kWaarschuwing, Weigering(rol)};
  KleurVan(script, rol) = kleur;
  return std::nullopt;
}

void StandaardKleuren(const ProgramSettings& settings, GalleryScript& script) {
  const GalleryScript standaard;
  script.kleur_tekst_op_achtergrond = IniKleur(settings.kleur_tekst_op_achtergrond, standaard.kleur_tekst_op_achtergrond);
  script.kleur_achtergrond = IniKleur(settings.kleur_achtergrond, standaard.kleur_achtergrond);
  // Black on the light grey frame reads well; the record's white (for scripts
  // without the key) would hardly show on it.
  script.kleur_tekst_in_kader = IniKleur(settings.kleur_tekst_in_kader, kNieuwKleurTekstInKader);
  script.kleur_kader = IniKleur(settings.kleur_kader, standaard.kleur_kader);
}

std::string KleurDialoogTitel(KleurRol rol) {
  static constexpr std::array<const char*, 4> kTitels = {
      "Kiekbord - Kleur tekst op achtergrond", "Kiekbord - Kleur achtergrond", "Kiekbord - Kleur tekst in fotokader",
      "Kiekbord - Kleur fotokader"};
  return kTitels[static_cast<std::size_t>(rol)];
}

}  // namespace kiekbord
