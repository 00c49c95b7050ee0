// The gallery's four colours: which colour each may not equal, the refusal
// when it does, and the colours a new gallery starts with.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "app/program_settings.h"
#include "gallery/gallery_script.h"
#include "base/melding.h"

namespace kiekbord {

enum class KleurRol { kTekstOpAchtergrond, kAchtergrond, kTekstInKader, kKader };

// The colour of `rol` in `script`, and the colour it is shown on or carries.
std::int32_t& KleurVan(GalleryScript& script, KleurRol rol);
std::int32_t KleurVan(const GalleryScript& script, KleurRol rol);
std::int32_t PartnerKleur(const GalleryScript& script, KleurRol rol);

// Sets colour `rol` to `kleur` unless it equals its partner; then the
// colours stay as they are and the warning comes back.
std::optional<Melding> KiesKleur(GalleryScript& script, KleurRol rol, std::int32_t kleur);

// The title of the colour dialog of `rol` ("Kiekbord - Kleur achtergrond").
std::string KleurDialoogTitel(KleurRol rol);

// The text colour in the photo frame of a new gallery when "KBord.ini" sets
// none: black.
inline constexpr std::int32_t kNieuwKleurTekstInKader = 0;

// The colours of a new gallery: the default colours of "KBord.ini" where they
// are set (a colour number or an HTML colour), the record's defaults where
// they are not ("x" or empty) or cannot be read; for the text in the photo
// frame, black (kNieuwKleurTekstInKader) instead of the record's white.
void StandaardKleuren(const ProgramSettings& settings, GalleryScript& script);

}  // namespace kiekbord
