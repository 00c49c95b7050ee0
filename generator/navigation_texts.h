// The navigation link texts of the overview and photo pages: visible texts,
// hover titles, style classes and the home target. Every run starts from the
// built-in defaults; a template set overrides any of them in section
// "NavigatieLinks" of its "sjabloon.ini". The texts are HTML as they stand.
#pragma once

#include <string>

#include "base/generation_log.h"

namespace kiekbord {

struct NavigatieTeksten {
  std::string link_home_tekst = "Home";
  std::string link_home_pagina = "index.html";
  std::string link_home_title = "Homepage";
  std::string link_home_class = "tekst";
  std::string link_vorige_pagina_tekst_actief = "&laquo;&laquo;&nbsp;Vorige";
  std::string link_vorige_pagina_tekst_inactief = "Vorige";
  std::string link_vorige_pagina_title = "vorige pagina";
  std::string link_vorige_pagina_class = "tekst";
  std::string link_volgende_pagina_tekst_actief = "Volgende&nbsp;&raquo;&raquo;";
  std::string link_volgende_pagina_tekst_inactief = "Volgende";
  std::string link_volgende_pagina_title = "volgende pagina";
  std::string link_volgende_pagina_class = "tekst";
  std::string link_direct_naar_pagina_tekst = "Pagina";
  std::string link_direct_naar_pagina_title;
  std::string link_direct_naar_pagina_class;
  std::string link_overzicht_tekst = "Overzicht";
  std::string link_overzicht_title = "overzicht (thumbnails)";
  std::string link_overzicht_class = "tekst";
  std::string link_volgende_foto_tekst = "&raquo;&raquo;";
  std::string link_volgende_foto_title = "volgende foto";
  std::string link_volgende_foto_class;
};

// Applies the overrides of the "sjabloon.ini" at `ini_path` to `texts`,
// logging "Inlezen ini-bestand ..." and "Ini-bestand ... ingelezen.". When no
// file exists there, nothing changes and nothing is logged.
void LeesNavigatieTeksten(const std::string& ini_path, NavigatieTeksten& texts, GenerationLog& log);

}  // namespace kiekbord
