#include "editor/template_colours.h"

#include <algorithm>
#include <optional>

#include "base/file_system.h"
#include "base/text_helpers.h"

namespace kiekbord {
namespace {

std::string_view Bijgesneden(std::string_view tekst) {
  const auto begin = tekst.find_first_not_of(" \t\r\n");
  if (begin == std::string_view::npos) return {};
  return tekst.substr(begin, tekst.find_last_not_of(" \t\r\n") - begin + 1);
}

// The colour a declaration's value stands for, if it names one.
std::optional<std::int32_t> Kleur(std::string_view waarde, const GalleryScript& k) {
  waarde = Bijgesneden(waarde);
  static constexpr std::string_view kVeld = "#[KIEKBORDVELD=";
  if (waarde.starts_with(kVeld)) {
    const std::string_view naam = waarde.substr(kVeld.size(), waarde.find(']') - kVeld.size());
    if (naam == "KLEURTEKSTOPACHTERGROND" || naam == "KLEURTEKST") return k.kleur_tekst_op_achtergrond;
    if (naam == "KLEURACHTERGROND") return k.kleur_achtergrond;
    if (naam == "KLEURTEKSTINKADER") return k.kleur_tekst_in_kader;
    if (naam == "KLEURKADER") return k.kleur_kader;
    return std::nullopt;
  }
  if (waarde.size() != 7 || waarde[0] != '#') return std::nullopt;
  constexpr std::int32_t kGeen = -1;
  const std::int32_t rgb = HexNaarKleur(waarde.substr(1), kGeen);
  if (rgb == kGeen) return std::nullopt;
  return rgb;
}

// The "color" and "background-color" of one rule's declarations.
struct Paar {
  std::optional<std::int32_t> tekst, vulling;
  bool kader = false;  // the background is a field of the frame pair
};

Paar PaarVan(std::string_view blok, const GalleryScript& k) {
  Paar paar;
  while (!blok.empty()) {
    const std::size_t einde = std::min(blok.find(';'), blok.size());
    const std::string_view declaratie = blok.substr(0, einde);
    blok.remove_prefix(std::min(einde + 1, blok.size()));
    const std::size_t dubbelepunt = declaratie.find(':');
    if (dubbelepunt == std::string_view::npos) continue;
    const std::string_view naam = Bijgesneden(declaratie.substr(0, dubbelepunt));
    if (naam == "color") paar.tekst = Kleur(declaratie.substr(dubbelepunt + 1), k);
    if (naam == "background-color") {
      paar.vulling = Kleur(declaratie.substr(dubbelepunt + 1), k);
      paar.kader = declaratie.find("KADER]") != std::string_view::npos;
    }
  }
  return paar;
}

}  // namespace

int StandaardSjabloon(const std::vector<std::string>& sets) {
  const auto klassiek = std::find(sets.begin(), sets.end(), kStandaardSjabloon);
  if (klassiek != sets.end()) return static_cast<int>(klassiek - sets.begin());
  return sets.empty() ? -1 : 0;
}

VoorbeeldKleuren KleurenVanSet(std::string_view css, const GalleryScript& kleuren) {
  VoorbeeldKleuren v{kleuren.kleur_tekst_op_achtergrond, kleuren.kleur_achtergrond, kleuren.kleur_tekst_in_kader,
                     kleuren.kleur_kader};
  bool pagina = false, kader = false;
  std::size_t pos = 0;
  while (pos < css.size()) {
    const std::size_t open = css.find('{', pos);
    if (open == std::string_view::npos) break;
    const std::size_t dicht = std::min(css.find('}', open), css.size());
    std::string_view kiezer = css.substr(pos, open - pos);
    if (const std::size_t commentaar = kiezer.rfind("*/"); commentaar != std::string_view::npos) {
      kiezer.remove_prefix(commentaar + 2);
    }
    const Paar paar = PaarVan(css.substr(open + 1, dicht - open - 1), kleuren);
    pos = dicht + 1;
    if (!pagina && Bijgesneden(kiezer) == "body") {
      pagina = true;
      v.pagina_tekst = paar.tekst.value_or(v.pagina_tekst);
      v.pagina_vulling = paar.vulling.value_or(v.pagina_vulling);
    } else if (!kader && paar.vulling && paar.kader) {
      kader = true;
      v.kader_tekst = paar.tekst.value_or(v.kader_tekst);
      v.kader_vulling = *paar.vulling;
    }
  }
  return v;
}

VoorbeeldKleuren KleurenVanSet(const std::string& sjablonen_dir, const std::string& set, const GalleryScript& kleuren) {
  std::string css;
  if (set.empty() || !Fs().ReadFile(sjablonen_dir + set + "/kb.css", css).ok()) css.clear();
  return KleurenVanSet(css, kleuren);
}

}  // namespace kiekbord
