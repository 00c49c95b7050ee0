#include "generator/web_fields.h"

#include <cstdio>

#include "base/file_system.h"
#include "base/keyed_text_file.h"
#include "base/line_table.h"
#include "base/text.h"
#include "base/text_helpers.h"
#include "generator/photo_page_navigation.h"
#include "images/thumbnails.h"
#include "images/web_copies.h"

namespace kiekbord {
namespace {

std::string Waarde(const LineTable& ini, std::string_view sleutel) {
  const std::string waarde = LeesWaarde(ini, "Webformaat", sleutel, "");
  return waarde.empty() ? std::string(kStandaardSizes) : waarde;
}

// The text of a caption without its tags; a "<br>" becomes a space.
std::string ZonderTags(std::string_view tekst) {
  std::string uit;
  bool in_tag = false;
  for (const char c : tekst) {
    if (c == '<') {
      in_tag = true;
    } else if (c == '>' && in_tag) {
      in_tag = false;
      uit += ' ';
    } else if (!in_tag) {
      uit += c;
    }
  }
  return EnkeleSpaties(uit);
}

std::string AlsTekst(std::string_view tekst) {
  std::string uit;
  for (const char c : tekst) {
    switch (c) {
      case '&': uit += "&amp;"; break;
      case '<': uit += "&lt;"; break;
      case '>': uit += "&gt;"; break;
      case '"': uit += "&quot;"; break;
      default: uit += c;
    }
  }
  return uit;
}

// The copy a page shows by default: the 1600 copy when there is one, else
// the photo itself (which is then no larger than that).
std::string WebBron(const std::string& uitvoer_dir, const std::string& naam) {
  const std::string kopie = WebKopiePad(naam, kWebMaten[0]);
  return BestandsLink(kopie != naam && Fs().FileExists(uitvoer_dir + kopie) ? kopie : naam);
}

std::optional<FotoMaat> MaatVan(const SiteGegevens& g, const std::string& naam) {
  return Fs().FileExists(g.uitvoer_dir + naam) ? g.foto_maten->Van(g.uitvoer_dir + naam) : std::nullopt;
}

}  // namespace

void LeesWebSizes(SiteGegevens& g) {
  LineTable ini(capaciteit::kIni);
  // A set without "sjabloon.ini" has the defaults.
  static_cast<void>(LeesRegels(g.sjabloon_ini, ini, false));
  g.foto_sizes = Waarde(ini, "FotoSizes");
  g.omslag_sizes = Waarde(ini, "OmslagSizes");
}

std::string FotoSrcset(const std::string& uitvoer_dir, const std::string& naam,
                       const std::optional<FotoMaat>& maat) {
  if (!maat) return "";
  std::string srcset;
  bool grootste_kopie = false;
  // Smallest first, as browsers read the list.
  for (auto it = std::rbegin(kWebMaten); it != std::rend(kWebMaten); ++it) {
    const std::optional<FotoMaat> kopie_maat = WebKopieMaat(maat->breedte, maat->hoogte, *it);
    const std::string kopie = WebKopiePad(naam, *it);
    if (!kopie_maat || kopie == naam || !Fs().FileExists(uitvoer_dir + kopie)) continue;
    if (!srcset.empty()) srcset += ", ";
    srcset += BestandsLink(kopie) + " " + std::to_string(kopie_maat->breedte) + "w";
    grootste_kopie = *it == kWebMaten[0];
  }
  if (srcset.empty()) return "";
  // The full photo only where no 1600 copy keeps a laptop from fetching it.
  if (!grootste_kopie) srcset += ", " + BestandsLink(naam) + " " + std::to_string(maat->breedte) + "w";
  return srcset;
}

std::string MiniSrcset(const std::string& uitvoer_dir, const std::string& thumbnail) {
  const std::string dubbel = Vervang(thumbnail, "_tn.jpg", "_tn2.jpg");
  if (dubbel == thumbnail || !Fs().FileExists(uitvoer_dir + dubbel)) return "";
  return BestandsLink(thumbnail) + " 1x, " + BestandsLink(dubbel) + " 2x";
}

std::string WebAttributen(const std::string& srcset, const std::string& sizes, bool eerste) {
  std::string uit;
  if (!srcset.empty()) {
    uit += " srcset=\"" + srcset + "\"";
    if (!sizes.empty()) uit += " sizes=\"" + AttribuutTekst(sizes) + "\"";
  }
  if (!eerste) uit += " loading=\"lazy\"";
  return uit + " decoding=\"async\"";
}

std::string Verhouding(const std::optional<FotoMaat>& maat) {
  if (!maat) return "";
  return std::to_string(maat->breedte) + " / " + std::to_string(maat->hoogte);
}

std::string PaginaTitelVan(int eerste, int laatste, std::string_view bijschrift) {
  if (laatste > eerste) return "Foto's " + std::to_string(eerste) + "-" + std::to_string(laatste);
  const std::string tekst = AlsTekst(ZonderTags(bijschrift));
  return "Foto " + std::to_string(eerste) + (tekst.empty() ? "" : ": " + tekst);
}

std::string JsonTekst(std::string_view tekst) {
  std::string uit = "\"";
  for (std::size_t i = 0; i < tekst.size(); ++i) {
    const auto c = static_cast<unsigned char>(tekst[i]);
    // U+2028 and U+2029 (E2 80 A8/A9) end a line in older script engines.
    if (c == 0xE2 && i + 2 < tekst.size() && static_cast<unsigned char>(tekst[i + 1]) == 0x80 &&
        (static_cast<unsigned char>(tekst[i + 2]) == 0xA8 || static_cast<unsigned char>(tekst[i + 2]) == 0xA9)) {
      uit += static_cast<unsigned char>(tekst[i + 2]) == 0xA8 ? "\\u2028" : "\\u2029";
      i += 2;
    } else if (c == '"' || c == '\\') {
      uit += '\\';
      uit += static_cast<char>(c);
    } else if (c < 0x20 || c == '<' || c == '>' || c == '&') {
      char escape[8];
      std::snprintf(escape, sizeof escape, "\\u%04x", c);
      uit += escape;
    } else {
      uit += static_cast<char>(c);
    }
  }
  return uit + "\"";
}

std::string DiaGegevens(const SiteGegevens& g) {
  std::string json = "[";
  for (int i = 0; i < g.AantalFotos(); ++i) {
    const std::string& naam = g.foto_namen[static_cast<std::size_t>(i)];
    const std::optional<FotoMaat> maat = MaatVan(g, naam);
    if (i > 0) json += ",";
    json += "{\"src\":" + JsonTekst(WebBron(g.uitvoer_dir, naam)) +
            ",\"srcset\":" + JsonTekst(FotoSrcset(g.uitvoer_dir, naam, maat)) +
            ",\"breedte\":" + std::to_string(maat ? maat->breedte : 0) +
            ",\"hoogte\":" + std::to_string(maat ? maat->hoogte : 0) +
            ",\"bijschrift\":" + JsonTekst(g.bijschriften[static_cast<std::size_t>(i)]) +
            ",\"origineel\":" + JsonTekst(BestandsLink(naam)) + "}";
  }
  return json + "]";
}

std::string OmslagFoto(const SiteGegevens& g) {
  if (g.AantalFotos() == 0) return "";
  const std::string& naam = g.foto_namen.front();
  const std::optional<FotoMaat> maat = MaatVan(g, naam);
  const std::string grootte =
      maat ? " width=\"" + std::to_string(maat->breedte) + "\" height=\"" + std::to_string(maat->hoogte) + "\"" : "";
  return "<img src=\"" + WebBron(g.uitvoer_dir, naam) + "\"" +
         WebAttributen(FotoSrcset(g.uitvoer_dir, naam, maat), g.omslag_sizes, true) + grootte +
         AltAttribuut(1, g.AantalFotos()) + ">";
}

}  // namespace kiekbord
