#include "generator/asset_copiers.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <vector>

#include "base/file_system.h"
#include "base/status.h"
#include "base/text.h"
#include "base/generation_log.h"

namespace kiekbord {
namespace {

constexpr std::size_t kMaxBestanden = 512;

// One kind of asset: how it is found and what the log says about it.
struct AssetSoort {
  // Listing patterns ("*.gif"), in search order. A listed name is kept only
  // when it ends, in lower case, in the pattern's extension: that drops names
  // a pattern matches through a longer extension.
  std::vector<std::string_view> patronen;
  std::string_view uitgesloten;  // a lower-case name never copied, or empty
  std::string_view gevonden;     // follows the count
  std::string_view geen_gevonden;
  std::string_view gekopieerd;   // follows the count
  std::string_view geen_gekopieerd;
};

const AssetSoort kAfbeeldingen{
    {"*.gif", "*.jpg"},
    "",
    " Afbeelding(en) gevonden in sjabloondirectory.",
    "Geen afbeeldingen gevonden in sjabloondirectory.",
    " Afbeelding(en) gekopieerd naar uitvoerdirectory.",
    "Geen afbeeldingen gekopieerd naar uitvoerdirectory."};

const AssetSoort kScripts{
    {"*.js"},
    "",
    " Script(s) gevonden in sjabloondirectory.",
    "Geen scripts gevonden in sjabloondirectory.",
    " Script(s) gekopieerd naar uitvoerdirectory.",
    "Geen scripts gekopieerd naar uitvoerdirectory."};

// "kb.css" is the template of the style sheet writer, not an extra sheet.
const AssetSoort kStijlbladen{
    {"*.css"},
    "kb.css",
    " Extra stylesheet(s) gevonden in sjabloondirectory.",
    "Geen extra stylesheets gevonden in sjabloondirectory.",
    " Extra stylesheet(s) gekopieerd naar uitvoerdirectory.",
    "Geen extra stylesheets gekopieerd naar uitvoerdirectory."};

bool IsGezocht(const std::string& naam, std::string_view patroon, const AssetSoort& soort) {
  const std::string lower = Lower(naam);
  return EndsWith(lower, patroon.substr(1)) && lower != soort.uitgesloten;
}

// A file to copy: its folder in the template set ("" or "web/") and name.
struct Asset {
  std::string map;
  std::string naam;
};

std::vector<std::string> ZoekNamen(const std::string& map, const AssetSoort& soort) {
  std::vector<std::string> gevonden;
  for (const std::string_view patroon : soort.patronen) {
    std::vector<std::string> namen;
    if (!Fs().ListFiles(map, std::string(patroon), namen).ok()) continue;
    for (const std::string& naam : namen) {
      if (IsGezocht(naam, patroon, soort)) gevonden.push_back(naam);
    }
  }
  return gevonden;
}

// The names to copy, in listing order, at most kMaxBestanden. A template
// directory that cannot be listed holds none. With "Webformaat" the set's
// subfolder "web/" adds its files after the set's own, and one of the same
// name (in lower case) takes the set's one's place.
std::vector<Asset> ZoekAssets(const std::string& sjabloon_dir, const AssetSoort& soort, bool webformaat) {
  std::vector<Asset> gevonden;
  for (std::string& naam : ZoekNamen(sjabloon_dir, soort)) gevonden.push_back({"", std::move(naam)});
  if (webformaat) {
    for (std::string& naam : ZoekNamen(sjabloon_dir + "web/", soort)) {
      const auto zelfde = std::find_if(gevonden.begin(), gevonden.end(),
                                       [&](const Asset& a) { return Lower(a.naam) == Lower(naam); });
      if (zelfde != gevonden.end()) {
        *zelfde = {"web/", std::move(naam)};
      } else {
        gevonden.push_back({"web/", std::move(naam)});
      }
    }
  }
  if (gevonden.size() > kMaxBestanden) gevonden.resize(kMaxBestanden);
  return gevonden;
}

FileInfo InfoVan(const std::string& path) {
  FileInfo info;
  const Status status = Fs().GetFileInfo(path, info);
  if (!status.ok()) throw RunError(status, path);
  return info;
}

// Whole seconds, rounded down: the file times were always compared to the
// second, and file systems differ in the finer part.
std::int64_t Seconden(std::int64_t ns) {
  constexpr std::int64_t kPerSeconde = 1000000000;
  return ns >= 0 ? ns / kPerSeconde : -((-ns + kPerSeconde - 1) / kPerSeconde);
}

bool IsActueel(const std::string& bron, const std::string& doel) {
  if (!Fs().FileExists(doel)) return false;
  return Seconden(InfoVan(bron).modified_ns) == Seconden(InfoVan(doel).modified_ns);
}

void KopieerAssets(const std::string& sjabloon_dir, const std::string& uitvoer_dir,
                   const AssetSoort& soort, bool webformaat, GenerationLog& log) {
  const std::vector<Asset> namen = ZoekAssets(sjabloon_dir, soort, webformaat);
  log.SchrijfLog(namen.empty() ? std::string(soort.geen_gevonden)
                           : std::to_string(namen.size()) + std::string(soort.gevonden));
  std::size_t gekopieerd = 0;
  for (const auto& [map, naam] : namen) {
    const std::string bron = sjabloon_dir + map + naam;
    // The copy's name is lower case, so that is the name to look for: on a
    // case-sensitive disk the template's own spelling would never be found
    // and the file would be copied on every run.
    const std::string doel = uitvoer_dir + Lower(naam);
    if (IsActueel(bron, doel)) continue;
    const Status status = CopyFileKeepingTime(bron, doel);
    if (!status.ok()) throw RunError(status, "het kopiëren van " + bron + " naar " + doel);
    ++gekopieerd;
  }
  log.SchrijfLog(gekopieerd == 0 ? std::string(soort.geen_gekopieerd)
                             : std::to_string(gekopieerd) + std::string(soort.gekopieerd));
}

}  // namespace

void KopieerAfbeeldingen(const std::string& sjabloon_dir, const std::string& uitvoer_dir, GenerationLog& log,
                         bool webformaat) {
  KopieerAssets(sjabloon_dir, uitvoer_dir, kAfbeeldingen, webformaat, log);
}

void KopieerScripts(const std::string& sjabloon_dir, const std::string& uitvoer_dir, GenerationLog& log,
                    bool webformaat) {
  KopieerAssets(sjabloon_dir, uitvoer_dir, kScripts, webformaat, log);
}

void KopieerStijlbladen(const std::string& sjabloon_dir, const std::string& uitvoer_dir, GenerationLog& log,
                        bool webformaat) {
  KopieerAssets(sjabloon_dir, uitvoer_dir, kStijlbladen, webformaat, log);
}

}  // namespace kiekbord
