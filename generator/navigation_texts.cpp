#include "generator/navigation_texts.h"

#include <utility>

#include "base/file_system.h"
#include "base/keyed_text_file.h"
#include "base/generation_log.h"

namespace kiekbord {
namespace {

using Field = std::string NavigatieTeksten::*;

// The keys in the order they are looked up.
constexpr std::pair<const char*, Field> kKeys[] = {
    {"LinkHomeTekst", &NavigatieTeksten::link_home_tekst},
    {"LinkHomePagina", &NavigatieTeksten::link_home_pagina},
    {"LinkHomeTitle", &NavigatieTeksten::link_home_title},
    {"LinkHomeClass", &NavigatieTeksten::link_home_class},
    {"LinkVorigePaginaTekstActief", &NavigatieTeksten::link_vorige_pagina_tekst_actief},
    {"LinkVorigePaginaTekstInactief", &NavigatieTeksten::link_vorige_pagina_tekst_inactief},
    {"LinkVorigePaginaTitle", &NavigatieTeksten::link_vorige_pagina_title},
    {"LinkVorigePaginaClass", &NavigatieTeksten::link_vorige_pagina_class},
    {"LinkVolgendePaginaTekstActief", &NavigatieTeksten::link_volgende_pagina_tekst_actief},
    {"LinkVolgendePaginaTekstInactief", &NavigatieTeksten::link_volgende_pagina_tekst_inactief},
    {"LinkVolgendePaginaTitle", &NavigatieTeksten::link_volgende_pagina_title},
    {"LinkVolgendePaginaClass", &NavigatieTeksten::link_volgende_pagina_class},
    {"LinkDirectNaarPaginaTekst", &NavigatieTeksten::link_direct_naar_pagina_tekst},
    {"LinkDirectNaarPaginaTitle", &NavigatieTeksten::link_direct_naar_pagina_title},
    {"LinkDirectNaarPaginaClass", &NavigatieTeksten::link_direct_naar_pagina_class},
    {"LinkOverzichtTekst", &NavigatieTeksten::link_overzicht_tekst},
    {"LinkOverzichtTitle", &NavigatieTeksten::link_overzicht_title},
    {"LinkOverzichtClass", &NavigatieTeksten::link_overzicht_class},
    {"LinkVolgendeFotoTekst", &NavigatieTeksten::link_volgende_foto_tekst},
    {"LinkVolgendeFotoTitle", &NavigatieTeksten::link_volgende_foto_title},
    {"LinkVolgendeFotoClass", &NavigatieTeksten::link_volgende_foto_class},
};

}  // namespace

void LeesNavigatieTeksten(const std::string& ini_path, NavigatieTeksten& texts, GenerationLog& log) {
  if (!Fs().FileExists(ini_path)) return;
  log.SchrijfLog("Inlezen ini-bestand " + ini_path + "...");
  LineTable ini(capaciteit::kIni);
  // A failed read leaves an empty table, so every default stays.
  static_cast<void>(LeesRegels(ini_path, ini, false));
  for (const auto& [key, field] : kKeys) {
    texts.*field = LeesWaarde(ini, "NavigatieLinks", key, texts.*field);
  }
  log.SchrijfLog("Ini-bestand " + ini_path + " ingelezen.");
}

}  // namespace kiekbord
