#include "tests/support/site_links.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <map>
#include <set>
#include <string_view>
#include <utility>

#include "tests/support/test_support.h"

namespace kiekbord::test {
namespace {

namespace fs = std::filesystem;

std::string Klein(std::string_view text) {
  std::string out(text);
  std::transform(out.begin(), out.end(), out.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return out;
}

bool IsPagina(const std::string& naam) {
  const std::string klein = Klein(naam);
  return klein.ends_with(".html") || klein.ends_with(".htm");
}

struct Tag {
  std::string naam;
  std::vector<std::pair<std::string, std::string>> attributen;
};

bool IsNaamTeken(char c) {
  return !std::isspace(static_cast<unsigned char>(c)) && c != '=' && c != '>' && c != '/' &&
         c != '"' && c != '\'';
}

void SlaSpatiesOver(std::string_view tekst, std::size_t& pos) {
  while (pos < tekst.size() && std::isspace(static_cast<unsigned char>(tekst[pos]))) ++pos;
}

std::string LeesWaarde(std::string_view tekst, std::size_t& pos) {
  if (pos < tekst.size() && (tekst[pos] == '"' || tekst[pos] == '\'')) {
    const char quote = tekst[pos++];
    const std::size_t einde = std::min(tekst.find(quote, pos), tekst.size());
    std::string waarde(tekst.substr(pos, einde - pos));
    pos = std::min(einde + 1, tekst.size());
    return waarde;
  }
  const std::size_t begin = pos;
  while (pos < tekst.size() && !std::isspace(static_cast<unsigned char>(tekst[pos])) &&
         tekst[pos] != '>')
    ++pos;
  return std::string(tekst.substr(begin, pos - begin));
}

// The tag that starts at tekst[pos] == '<'; pos ends after its '>'.
Tag LeesTag(std::string_view tekst, std::size_t& pos) {
  Tag tag;
  ++pos;
  const std::size_t naam_begin = pos;
  while (pos < tekst.size() && IsNaamTeken(tekst[pos])) ++pos;
  tag.naam = Klein(tekst.substr(naam_begin, pos - naam_begin));
  while (pos < tekst.size() && tekst[pos] != '>') {
    SlaSpatiesOver(tekst, pos);
    const std::size_t begin = pos;
    while (pos < tekst.size() && IsNaamTeken(tekst[pos])) ++pos;
    if (pos == begin) {
      if (pos < tekst.size() && tekst[pos] != '>') ++pos;
      continue;
    }
    std::string naam = Klein(tekst.substr(begin, pos - begin));
    SlaSpatiesOver(tekst, pos);
    std::string waarde;
    if (pos < tekst.size() && tekst[pos] == '=') {
      ++pos;
      SlaSpatiesOver(tekst, pos);
      waarde = LeesWaarde(tekst, pos);
    }
    tag.attributen.emplace_back(std::move(naam), std::move(waarde));
  }
  if (pos < tekst.size()) ++pos;
  return tag;
}

// The tags of a page; comments skipped, script contents not read as tags.
std::vector<Tag> Tags(std::string_view tekst) {
  std::vector<Tag> tags;
  std::size_t pos = 0;
  while ((pos = tekst.find('<', pos)) != std::string_view::npos) {
    if (tekst.substr(pos, 4) == "<!--") {
      const std::size_t einde = tekst.find("-->", pos + 4);
      pos = einde == std::string_view::npos ? tekst.size() : einde + 3;
      continue;
    }
    const char volgend = pos + 1 < tekst.size() ? tekst[pos + 1] : '\0';
    if (!std::isalpha(static_cast<unsigned char>(volgend)) && volgend != '/') {
      ++pos;
      continue;
    }
    tags.push_back(LeesTag(tekst, pos));
    if (tags.back().naam == "script") {
      const std::size_t einde = Klein(tekst).find("</script", pos);
      pos = einde == std::string::npos ? tekst.size() : einde;
    }
  }
  return tags;
}

std::vector<std::string> Links(const std::vector<Tag>& tags) {
  std::vector<std::string> links;
  for (const Tag& tag : tags) {
    for (const auto& [naam, waarde] : tag.attributen) {
      if (naam == "href" || naam == "src") links.push_back(waarde);
      if (tag.naam == "option" && naam == "value" &&
          Klein(waarde).find(".htm") != std::string::npos) {
        links.push_back(waarde);
      }
      constexpr std::string_view kScriptLink = "location.href='";
      const std::size_t begin = waarde.find(kScriptLink);
      if (begin != std::string::npos) {
        const std::size_t start = begin + kScriptLink.size();
        links.push_back(waarde.substr(start, waarde.find('\'', start) - start));
      }
    }
  }
  return links;
}

std::set<std::string> Ankers(const std::vector<Tag>& tags) {
  std::set<std::string> ankers;
  for (const Tag& tag : tags) {
    for (const auto& [naam, waarde] : tag.attributen) {
      if (naam == "name" || naam == "id") ankers.insert(waarde);
    }
  }
  return ankers;
}

std::vector<std::string> CssLinks(std::string_view tekst) {
  std::vector<std::string> links;
  for (std::size_t pos = 0; (pos = tekst.find("url(", pos)) != std::string_view::npos;) {
    pos += 4;
    const std::size_t einde = tekst.find(')', pos);
    if (einde == std::string_view::npos) break;
    std::string link(tekst.substr(pos, einde - pos));
    std::erase_if(link, [](char c) { return c == '"' || c == '\'' || c == ' '; });
    links.push_back(link);
    pos = einde;
  }
  return links;
}

bool HeeftSchema(const std::string& link) {
  if (link.starts_with("//")) return true;
  const std::size_t dubbele_punt = link.find(':');
  return dubbele_punt != std::string::npos && link.find_first_of("/#?") > dubbele_punt;
}

struct Site {
  std::string map;
  std::map<std::string, std::set<std::string>> ankers;  // per page file name

  const std::set<std::string>* AnkersVan(const std::string& pagina) {
    if (!IsPagina(pagina)) return nullptr;
    auto found = ankers.find(pagina);
    if (found == ankers.end()) {
      found = ankers.emplace(pagina, Ankers(Tags(ReadBytes(map + pagina)))).first;
    }
    return &found->second;
  }

  bool Vindbaar(const std::string& pagina, const std::string& link) {
    if (HeeftSchema(link)) return true;
    const std::size_t hekje = link.find('#');
    std::string bestand = link.substr(0, std::min(hekje, link.find('?')));
    const std::string anker = hekje == std::string::npos ? "" : link.substr(hekje + 1);
    if (bestand.empty()) bestand = pagina;
    if (!fs::is_regular_file(map + bestand)) return false;
    if (anker.empty()) return true;
    const std::set<std::string>* doel = AnkersVan(bestand);
    return doel != nullptr && doel->contains(anker);
  }
};

std::vector<std::string> Bestanden(const std::string& map) {
  std::vector<std::string> namen;
  for (const auto& entry : fs::directory_iterator(map)) {
    if (entry.is_regular_file()) namen.push_back(entry.path().filename().string());
  }
  std::sort(namen.begin(), namen.end());
  return namen;
}

// Every link of the folder with the page it stands on.
std::vector<std::pair<std::string, std::string>> AlleLinks(const std::string& map) {
  std::vector<std::pair<std::string, std::string>> alle;
  for (const std::string& naam : Bestanden(map)) {
    std::vector<std::string> links;
    if (IsPagina(naam)) links = Links(Tags(ReadBytes(map + naam)));
    if (Klein(naam).ends_with(".css")) links = CssLinks(ReadBytes(map + naam));
    for (std::string& link : links) alle.emplace_back(naam, std::move(link));
  }
  return alle;
}

}  // namespace

std::vector<std::string> OnvindbareLinks(const std::string& map) {
  Site site{map, {}};
  std::vector<std::string> onvindbaar;
  for (const auto& [pagina, link] : AlleLinks(map)) {
    if (!site.Vindbaar(pagina, link)) onvindbaar.push_back(pagina + ": " + link);
  }
  return onvindbaar;
}

int AantalLinks(const std::string& map) { return static_cast<int>(AlleLinks(map).size()); }

}  // namespace kiekbord::test
