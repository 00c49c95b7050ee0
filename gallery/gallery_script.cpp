#include "gallery/gallery_script.h"

#include <algorithm>
#include <cstdio>

#include "base/text.h"

namespace kiekbord {
namespace {

constexpr std::string_view kRegeleinde = "\r\n";
constexpr std::string_view kBr = "<br>";

// `tekst` with every line break (CR LF, CR or LF) replaced by `vervanging`.
std::string VervangRegeleinden(std::string_view tekst, std::string_view vervanging) {
  std::string uit;
  uit.reserve(tekst.size());
  for (std::size_t i = 0; i < tekst.size(); ++i) {
    const char c = tekst[i];
    if (c != '\r' && c != '\n') {
      uit += c;
      continue;
    }
    if (c == '\r' && i + 1 < tekst.size() && tekst[i + 1] == '\n') ++i;
    uit += vervanging;
  }
  return uit;
}

}  // namespace

std::string FotoSectie(long long nummer) {
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "Foto%03lld", nummer);
  return buffer;
}

std::vector<long long> FotoSectieNummers(const LineTable& tabel, double n) {
  std::vector<long long> nummers;
  for (int i = 1; i <= tabel.Count(); ++i) {
    const std::string& regel = tabel.Line(i);
    if (CharCount(regel) <= 2 || !StartsWith(regel, "[") || !EndsWith(regel, "]")) continue;
    const std::string naam = Upper(std::string_view(regel).substr(1, regel.size() - 2));
    const std::string cijfers = naam.substr(std::min<std::size_t>(4, naam.size()));
    if (!StartsWith(naam, "FOTO") || cijfers.empty() || cijfers.size() > 18 ||
        cijfers.find_first_not_of("0123456789") != std::string::npos) {
      continue;
    }
    const long long nummer = std::stoll(cijfers);
    if (nummer >= 1 && nummer <= n) nummers.push_back(nummer);
  }
  std::sort(nummers.begin(), nummers.end());
  nummers.erase(std::unique(nummers.begin(), nummers.end()), nummers.end());
  return nummers;
}

std::string BeschrijvingAlsWaarde(std::string_view beschrijving) {
  return VervangRegeleinden(beschrijving, kBr);
}

std::string WaardeAlsBeschrijving(std::string_view waarde) {
  std::string uit;
  uit.reserve(waarde.size());
  std::size_t start = 0;
  for (auto pos = waarde.find(kBr); pos != std::string_view::npos; pos = waarde.find(kBr, start)) {
    uit.append(waarde.substr(start, pos - start)).append(kRegeleinde);
    start = pos + kBr.size();
  }
  uit.append(waarde.substr(start));
  return uit;
}

std::string EnkeleRegel(std::string_view tekst) { return VervangRegeleinden(tekst, " "); }

}  // namespace kiekbord
