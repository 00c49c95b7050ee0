#include "editor/photo_list.h"

#include <algorithm>
#include <cstdio>
#include <set>

#include "editor/photo_import.h"
#include "base/file_system.h"
#include "base/text.h"

namespace kiekbord {

std::vector<std::string> FotosInMap(const std::string& uitvoer_dir) {
  std::vector<std::string> namen;
  if (!Fs().ListFiles(uitvoer_dir, "*.jpg", namen).ok()) return {};
  std::erase_if(namen, [](const std::string& naam) { return !IsFotoBestand(naam) || naam != Lower(naam); });
  return namen;
}

std::vector<PhotoEntry> VernieuwdeLijst(const std::vector<PhotoEntry>& fotos, const std::string& uitvoer_dir,
                                        const std::vector<std::string>& nieuw, int maximum) {
  const std::size_t grens = static_cast<std::size_t>(std::max(maximum, 0));
  std::vector<PhotoEntry> lijst;
  std::set<std::string> namen;
  const auto neem = [&](const std::string& naam, const std::string& bijschrift) {
    if (lijst.size() >= grens || namen.count(naam) != 0) return;
    lijst.push_back({naam, bijschrift});
    namen.insert(naam);
  };
  const std::string map = WithTrailingSlash(uitvoer_dir);
  for (const PhotoEntry& foto : fotos) {
    if (Fs().FileExists(map + foto.foto)) neem(foto.foto, foto.bijschrift);
  }
  for (const std::string& naam : lijst.empty() ? FotosInMap(uitvoer_dir) : nieuw) {
    if (Fs().FileExists(map + naam)) neem(naam, "");
  }
  return lijst;
}

int FotoOmhoog(std::vector<PhotoEntry>& fotos, int index) {
  if (index <= 0 || index >= static_cast<int>(fotos.size())) return index;
  std::swap(fotos[static_cast<std::size_t>(index)], fotos[static_cast<std::size_t>(index - 1)]);
  return index - 1;
}

int FotoOmlaag(std::vector<PhotoEntry>& fotos, int index) {
  if (index < 0 || index + 1 >= static_cast<int>(fotos.size())) return index;
  std::swap(fotos[static_cast<std::size_t>(index)], fotos[static_cast<std::size_t>(index + 1)]);
  return index + 1;
}

int FotoVerplaatsen(std::vector<PhotoEntry>& fotos, int van, int naar) {
  const int aantal = static_cast<int>(fotos.size());
  if (van < 0 || van >= aantal || naar < 0 || naar >= aantal) return van;
  const auto begin = fotos.begin();
  if (van < naar) {
    std::rotate(begin + van, begin + van + 1, begin + naar + 1);
  } else {
    std::rotate(begin + naar, begin + van, begin + van + 1);
  }
  return naar;
}

int FotoTerugzetten(std::vector<PhotoEntry>& fotos, std::size_t plek, const PhotoEntry& foto, int maximum) {
  const bool al_terug = std::any_of(fotos.begin(), fotos.end(), [&](const PhotoEntry& f) { return f.foto == foto.foto; });
  if (al_terug || static_cast<int>(fotos.size()) >= maximum) return -1;
  plek = std::min(plek, fotos.size());
  fotos.insert(fotos.begin() + static_cast<std::ptrdiff_t>(plek), foto);
  return static_cast<int>(plek);
}

std::string ZonderBijschriftTekst(const std::vector<PhotoEntry>& fotos) {
  if (fotos.empty()) return "";
  const auto zonder = std::count_if(fotos.begin(), fotos.end(), [](const PhotoEntry& f) { return f.bijschrift.empty(); });
  if (zonder == 0) return "Alle foto's hebben een bijschrift.";
  return std::to_string(zonder) + " foto('s) zonder bijschrift";
}

std::string BestandsGrootteTekst(std::int64_t bytes) {
  if (bytes < 1024) return std::to_string(bytes) + " bytes";
  const char* eenheid = "kB";
  double waarde = static_cast<double>(bytes) / 1024.0;
  if (waarde >= 1024.0) {
    waarde /= 1024.0;
    eenheid = "MB";
  }
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%.1f", waarde);
  std::string tekst = buffer;
  std::replace(tekst.begin(), tekst.end(), '.', ',');
  return tekst + " " + eenheid;
}

std::string FotoInfoTekst(const std::string& naam, int breedte, int hoogte, std::int64_t bytes) {
  const std::string afmeting = breedte > 0 && hoogte > 0
                                   ? std::to_string(breedte) + " x " + std::to_string(hoogte) + " pixels"
                                   : "geen leesbare foto";
  return naam + "\n" + afmeting + "\n" + BestandsGrootteTekst(bytes);
}

std::optional<std::size_t> GekozenFoto(int rij, std::size_t aantal) {
  if (rij < 0 || static_cast<std::size_t>(rij) >= aantal) return std::nullopt;
  return static_cast<std::size_t>(rij);
}

FotoLijstKnoppen FotoLijstToestand(bool op_fotostap, int rij, std::size_t aantal) {
  const std::optional<std::size_t> foto = op_fotostap ? GekozenFoto(rij, aantal) : std::nullopt;
  FotoLijstKnoppen k;
  k.toevoegen = op_fotostap;
  k.omhoog = foto && *foto > 0;
  k.omlaag = foto && *foto + 1 < aantal;
  k.verwijderen = foto.has_value();
  return k;
}

}  // namespace kiekbord
