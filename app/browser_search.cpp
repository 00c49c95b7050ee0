#include "app/browser_search.h"

#include "base/file_system.h"
#include "base/text.h"

namespace kiekbord {
namespace {

std::vector<std::string> Delen(std::string_view lijst, char scheiding) {
  std::vector<std::string> delen;
  std::size_t begin = 0;
  while (begin <= lijst.size()) {
    std::size_t einde = lijst.find(scheiding, begin);
    if (einde == std::string_view::npos) einde = lijst.size();
    if (einde > begin) delen.emplace_back(lijst.substr(begin, einde - begin));
    begin = einde + 1;
  }
  return delen;
}

// The first word of an Exec line; a word in double quotes may hold blanks.
std::string EersteWoord(std::string_view regel) {
  std::size_t begin = regel.find_first_not_of(" \t");
  if (begin == std::string_view::npos) return "";
  if (regel[begin] == '"') {
    const std::size_t einde = regel.find('"', begin + 1);
    return std::string(regel.substr(begin + 1, einde == std::string_view::npos ? std::string_view::npos
                                                                               : einde - begin - 1));
  }
  const std::size_t einde = regel.find_first_of(" \t", begin);
  return std::string(regel.substr(begin, einde == std::string_view::npos ? std::string_view::npos : einde - begin));
}

// The "Exec=" value of the "[Desktop Entry]" group of a desktop file.
std::optional<std::string> ExecRegel(std::string_view inhoud) {
  bool in_entry = false;
  for (const std::string& ruw : Delen(inhoud, '\n')) {
    std::string_view regel = ruw;
    if (!regel.empty() && regel.back() == '\r') regel.remove_suffix(1);
    if (StartsWith(regel, "[")) {
      in_entry = regel == "[Desktop Entry]";
      continue;
    }
    if (in_entry && StartsWith(regel, "Exec=")) return std::string(regel.substr(5));
  }
  return std::nullopt;
}

}  // namespace

std::string BestandVoorZoeken(const std::string& adres) {
  const std::string getrimd = TrimSpaces(adres);
  if (getrimd.empty() || adres.find("http") != std::string::npos || !Fs().FileExists(adres)) return "";
  return adres;
}

const std::string& BrowserZoeker::FindBrowser(const std::string& adres) {
  if (!cache_.empty()) return cache_;
  const std::optional<std::string> gevonden = opzoeker_(BestandVoorZoeken(adres));
  cache_ = gevonden && !gevonden->empty() ? *gevonden : std::string(kBrowserNietGevonden);
  return cache_;
}

AdresOpenen PlanAdresOpenen(const std::string& browser) {
  AdresOpenen plan;
  if (browser.empty()) return plan;
  if (browser.front() == '%') {
    plan.soort = AdresOpenen::Soort::kMelding;
    // The message is the error text from its 8th character on.
    plan.melding.tekst = browser.size() > 7 ? browser.substr(7) : "";
    return plan;
  }
  // A running browser is reached by the desktop itself here: there is no
  // browser conversation to hand the address to, so the preference to reuse
  // one changes nothing.
  plan.soort = AdresOpenen::Soort::kOpenen;
  return plan;
}

Melding AdresNietGeopendMelding(const std::string& adres) {
  return {MeldingSoort::kWaarschuwing, "Internetadres " + adres + " kan niet worden geopend."};
}

std::vector<std::string> ApplicatieMappen(const std::string& home, const std::string& xdg_data_home,
                                          const std::string& xdg_data_dirs) {
  std::vector<std::string> mappen;
  mappen.push_back(WithTrailingSlash(xdg_data_home.empty() ? WithTrailingSlash(home) + ".local/share" : xdg_data_home) +
                   "applications/");
  for (const std::string& map : Delen(xdg_data_dirs.empty() ? "/usr/local/share:/usr/share" : xdg_data_dirs, ':')) {
    mappen.push_back(WithTrailingSlash(map) + "applications/");
  }
  return mappen;
}

std::optional<std::string> ProgrammaVanDesktopEntry(std::string_view desktop_id,
                                                    const std::vector<std::string>& mappen,
                                                    std::string_view zoekpad) {
  std::string id(TrimSpaces(desktop_id));
  while (!id.empty() && (id.back() == '\n' || id.back() == '\r')) id.pop_back();
  if (id.empty() || id.find('/') != std::string::npos) return std::nullopt;
  for (const std::string& map : mappen) {
    std::string inhoud;
    if (!Fs().ReadFile(map + id, inhoud).ok()) continue;
    const std::optional<std::string> exec = ExecRegel(inhoud);
    if (!exec) return std::nullopt;
    const std::string programma = EersteWoord(*exec);
    if (programma.empty()) return std::nullopt;
    if (programma.front() == '/') return programma;
    for (const std::string& dir : Delen(zoekpad, ':')) {
      const std::string pad = WithTrailingSlash(dir) + programma;
      if (dir.front() == '/' && Fs().FileExists(pad)) return pad;
    }
    return programma;
  }
  return std::nullopt;
}

}  // namespace kiekbord
