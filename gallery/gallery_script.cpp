#include "gallery/gallery_script.h"

#include <cstdio>

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
