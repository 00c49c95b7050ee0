#include "tests/support/site_links.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <regex>
#include <set>
#include <utility>

#include "base/text.h"
#include "tests/support/test_support.h"

namespace kiekbord::test {
namespace {

bool IsPagina(const std::string& naam) { return Lower(naam).ends_with(".html") || Lower(naam).ends_with(".htm"); }

// The page without its comments and without what stands between a script's
// start tag and its end tag.
std::string ZonderCommentaarEnScripts(std::string tekst) {
  for (std::size_t pos; (pos = tekst.find("<!--")) != std::string::npos;) {
    tekst.erase(pos, std::min(tekst.find("-->", pos + 4), tekst.size() - 3) + 3 - pos);
  }
  for (std::size_t pos = 0; (pos = Lower(tekst).find("<script", pos)) != std::string::npos;) {
    pos = std::min(tekst.find('>', pos), tekst.size() - 1) + 1;
    tekst.erase(pos, std::min(Lower(tekst).find("</script", pos), tekst.size()) - pos);
  }
  return tekst;
}

struct Attribuut { std::string tag, naam, waarde; };

// Every attribute of every tag, names in lower case, values unquoted.
std::vector<Attribuut> Attributen(const std::string& pagina) {
  static const std::regex kTag(R"(<([a-zA-Z][\w-]*)((?:[^>"']|"[^"]*"|'[^']*')*)>)");
  static const std::regex kAttribuut(R"re(([^\s=>/"']+)(?:\s*=\s*(?:"([^"]*)"|'([^']*)'|([^\s>]+)))?)re");
  std::vector<Attribuut> attributen;
  const std::string tekst = ZonderCommentaarEnScripts(pagina);
  for (std::sregex_iterator tag(tekst.begin(), tekst.end(), kTag), einde; tag != einde; ++tag) {
    const std::string inhoud = (*tag)[2];
    for (std::sregex_iterator a(inhoud.begin(), inhoud.end(), kAttribuut); a != einde; ++a) {
      const std::string waarde = (*a)[2].str() + (*a)[3].str() + (*a)[4].str();  // one of the three is there
      attributen.push_back({Lower((*tag)[1].str()), Lower((*a)[1].str()), waarde});
    }
  }
  return attributen;
}

std::vector<std::string> Links(const std::string& naam, const std::string& tekst) {
  std::vector<std::string> links;
  if (Lower(naam).ends_with(".css")) {
    static const std::regex kUrl(R"(url\(\s*["']?([^"')\s]*))");
    for (std::sregex_iterator url(tekst.begin(), tekst.end(), kUrl), einde; url != einde; ++url) {
      links.push_back((*url)[1]);
    }
  }
  if (!IsPagina(naam)) return links;
  for (const Attribuut& a : Attributen(tekst)) {
    const bool pagina_keuze =
        a.tag == "option" && a.naam == "value" && Lower(a.waarde).find(".htm") != std::string::npos;
    if (a.naam == "href" || a.naam == "src" || pagina_keuze) links.push_back(a.waarde);
    // A button: onClick="self.location.href='kbovz.html';".
    static const std::regex kKnop(R"(location\.href='([^']*))");
    if (std::smatch knop; std::regex_search(a.waarde, knop, kKnop)) links.push_back(knop[1]);
  }
  return links;
}

bool HeeftSchema(const std::string& link) {
  static const std::regex kSchema("^(//|[^/#?]*:)");  // the first ":" before any "/", "#" or "?"
  return std::regex_search(link, kSchema);
}

// "%22" and the like back to the bytes they stand for, as a browser does.
std::string ProcentGedecodeerd(std::string link) {
  for (std::size_t i = 0; (i = link.find('%', i)) != std::string::npos; ++i) {
    const std::string hex = link.substr(i + 1, 2);
    if (hex.size() == 2 && hex.find_first_not_of("0123456789abcdefABCDEF") == std::string::npos) {
      link.replace(i, 3, 1, static_cast<char>(std::stoi(hex, nullptr, 16)));
    }
  }
  return link;
}

// Every link of the folder with the page it stands on.
std::vector<std::pair<std::string, std::string>> AlleLinks(const std::string& map) {
  std::vector<std::pair<std::string, std::string>> alle;
  for (const std::string& naam : BestandenIn(map)) {
    for (std::string& link : Links(naam, ReadBytes(map + naam))) alle.emplace_back(naam, std::move(link));
  }
  return alle;
}

}  // namespace

std::vector<std::string> OnvindbareLinks(const std::string& map) {
  std::map<std::string, std::set<std::string>> ankers;  // per page
  std::vector<std::string> onvindbaar;
  for (const auto& [pagina, link] : AlleLinks(map)) {
    if (HeeftSchema(link)) continue;
    const std::size_t hekje = link.find('#');
    std::string bestand = ProcentGedecodeerd(link.substr(0, std::min(hekje, link.find('?'))));
    if (bestand.empty()) bestand = pagina;
    bool vindbaar = std::filesystem::is_regular_file(map + bestand);
    if (vindbaar && hekje != std::string::npos && hekje + 1 < link.size()) {
      if (!ankers.contains(bestand) && IsPagina(bestand)) {
        for (const Attribuut& a : Attributen(ReadBytes(map + bestand))) {
          if (a.naam == "name" || a.naam == "id") ankers[bestand].insert(a.waarde);
        }
      }
      vindbaar = ankers[bestand].contains(link.substr(hekje + 1));
    }
    if (!vindbaar) onvindbaar.push_back(pagina + ": " + link);
  }
  return onvindbaar;
}

int AantalLinks(const std::string& map) { return static_cast<int>(AlleLinks(map).size()); }

}  // namespace kiekbord::test
