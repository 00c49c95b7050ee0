#include "generator/photo_page_navigation.h"

#include <cmath>
#include <cstdio>
#include <vector>

#include "base/status.h"
#include "base/text.h"
#include "base/text_helpers.h"

namespace kiekbord {
namespace {

std::string PaginaBestand(int pagina, const SiteGegevens& g) {
  return "kb" + DrieCijfers(pagina) + g.ext;
}

std::string MetLeadingSpatie(int nummer) { return " " + std::to_string(nummer); }

std::string Samengevoegd(const std::vector<std::string>& delen) {
  std::string tekst;
  for (std::size_t i = 0; i < delen.size(); ++i) {
    if (i > 0) tekst += "\r\n";
    tekst += delen[i];
  }
  return tekst;
}

// A hover title of the previous or next link: "#1" and "#" are the page it
// leads to, "#2" the page count.
std::string PaginaTitel(std::string_view title, int doel, int paginas, bool per_foto) {
  std::string tekst = Vervang(title, "\"", "'");
  tekst = Vervang(tekst, "#1", std::to_string(doel));
  tekst = Vervang(tekst, "#2", std::to_string(paginas));
  tekst = Vervang(tekst, "#", std::to_string(doel));
  if (per_foto) tekst = Vervang(tekst, "pagina", "foto");
  return tekst;
}

std::string BladerLink(int doel, const std::string& title, const std::string& klasse,
                       const std::string& tekst, const Paginering& pag, const SiteGegevens& g) {
  return "<a href=\"" + PaginaBestand(doel, g) + "\" title=\"" +
         PaginaTitel(title, doel, pag.paginas, pag.per_pagina == 1) + "\"" +
         KlasseAttribuut(klasse) + ">" + tekst + "</a>";
}

std::string PaginaWoord(const NavigatieTeksten& t, bool per_foto) {
  std::string woord = Vervang(t.link_direct_naar_pagina_tekst, "\"", "'");
  if (per_foto) {
    woord = Vervang(woord, "pagina", "foto");
    woord = Vervang(woord, "Pagina", "Foto");
    woord = Vervang(woord, "PAGINA", "FOTO");
  }
  return woord;
}

// The word with only its first letter in upper case ("PAGINA" gives
// "Pagina"), followed by the page number: "Pagina 3".
std::string OptieLabel(const std::string& woord, int pagina) {
  const std::string kaal = TrimLeadingSpaces(woord);
  std::size_t eerste = 1;
  while (eerste < kaal.size() && (static_cast<unsigned char>(kaal[eerste]) & 0xC0) == 0x80)
    ++eerste;
  const std::string label = kaal.empty() ? ""
                                         : Upper(kaal.substr(0, eerste)) +
                                               Lower(kaal.substr(std::min(eerste, kaal.size())));
  return label + MetLeadingSpatie(pagina);
}

std::string AllePaginasLijst(int huidige, const Paginering& pag, const SiteGegevens& g) {
  std::vector<std::string> regels;
  for (int q = 1; q <= pag.paginas; ++q) {
    const std::string nummer = std::to_string(q);
    regels.push_back(q == huidige ? " <b>" + nummer + "</b>"
                                  : " <a href=\"" + PaginaBestand(q, g) + "\">" + nummer + "</a>");
  }
  return Samengevoegd(regels);
}

std::string PaginaKeuzelijst(int huidige, const Paginering& pag, const NavigatieTeksten& t,
                             const SiteGegevens& g) {
  const std::string woord = PaginaWoord(t, pag.per_pagina == 1);
  std::vector<std::string> opties;
  for (int q = 1; q <= pag.paginas; ++q) {
    opties.push_back(" <option value=\"" + PaginaBestand(q, g) + "\"" +
                     (q == huidige ? " selected>" : ">") + OptieLabel(woord, q) + "</option>");
  }
  return "<select onChange=\"self.location.href=this[this.selectedIndex].value;\" title=\"" +
         t.link_direct_naar_pagina_title + "\"" + KlasseAttribuut(t.link_direct_naar_pagina_class) +
         ">" + Samengevoegd(opties) + "</select>";
}

// The single page's photo select and overview button share the id "nav01":
// the templates' scripts look it up, so it stays although ids should differ.
std::string FotoKeuzelijst(const SiteGegevens& g) {
  std::vector<std::string> opties;
  for (int k = 1; k <= g.AantalFotos(); ++k) {
    opties.push_back(" <option value=\"" + std::to_string(k) + "\">Foto" + MetLeadingSpatie(k) +
                     "</option>");
  }
  return "<select id=\"nav01\" onChange=\"iFotoNummer=parseInt(this[this.selectedIndex].value);"
         "fnToonFoto(0);\">" +
         Samengevoegd(opties) + "</select>";
}

std::string OverzichtKnop(const SiteGegevens& g) {
  return "<input type=\"button\" id=\"nav01\" value=\"Overzicht\" class=\"nav\" "
         "onClick=\"self.location.href='kbovz" +
         g.ext +
         "';\" onMouseOver=\"window.status='Toon overzicht met thumbnails'; return true;\" "
         "onMouseOut=\"window.status=''; return true;\" title=\"overzicht (thumbnails)\">";
}

}  // namespace

std::string DrieCijfers(int nummer) {
  char buffer[16];
  std::snprintf(buffer, sizeof buffer, "%03d", nummer);
  return buffer;
}

std::string AltAttribuut(int nummer, int aantal) {
  return " alt=\"foto " + std::to_string(nummer) + " van " + std::to_string(aantal) + "\"";
}

std::string KlasseAttribuut(const std::string& naam) {
  return naam.empty() ? "" : " class=\"" + naam + "\"";
}

int FotosPerPagina(std::string_view aantal_fotos_per_pagina) {
  const double waarde = std::trunc(LeadingNumber(aantal_fotos_per_pagina));
  if (waarde > 32767) throw RunError(fout::kOverflow);
  return waarde >= 1 ? static_cast<int>(waarde) : 1;
}

Paginering PagineringVan(const SiteGegevens& g) {
  Paginering pag;
  const int n = g.AantalFotos();
  pag.per_pagina = FotosPerPagina(g.fotos_per_pagina);
  if (pag.per_pagina < n) {
    pag.paginas = (n + pag.per_pagina - 1) / pag.per_pagina;
  } else {
    pag.per_pagina = n;
    pag.paginas = 1;
  }
  const std::string een_pagina_einde = "a" + g.ext;
  pag.een_pagina = CharCount(een_pagina_einde) == 6 && EndsWith(g.foto_sjabloon, een_pagina_einde);
  if (pag.een_pagina) pag.paginas = 1;
  return pag;
}

std::string HomeLink(const NavigatieTeksten& t) {
  return "<a href=\"" + t.link_home_pagina + "\" title=\"" + t.link_home_title + "\"" +
         KlasseAttribuut(t.link_home_class) + ">" + t.link_home_tekst + "</a>";
}

std::string OverzichtLink(const NavigatieTeksten& t, const SiteGegevens& g) {
  if (!g.OverzichtAan()) return "";
  return "<a href=\"kbovz" + g.ext + "\" title=\"" + t.link_overzicht_title + "\"" +
         KlasseAttribuut(t.link_overzicht_class) + ">" + t.link_overzicht_tekst + "</a>";
}

PaginaNavigatie NavigatieVan(int p, const Paginering& pag, const NavigatieTeksten& t,
                             const SiteGegevens& g) {
  PaginaNavigatie nav;
  if (pag.paginas >= 2) {
    nav.vorige = p >= 2 ? BladerLink(p - 1, t.link_vorige_pagina_title, t.link_vorige_pagina_class,
                                     t.link_vorige_pagina_tekst_actief, pag, g)
                        : t.link_vorige_pagina_tekst_inactief;
    nav.volgende = p < pag.paginas ? BladerLink(p + 1, t.link_volgende_pagina_title,
                                                t.link_volgende_pagina_class,
                                                t.link_volgende_pagina_tekst_actief, pag, g)
                                   : t.link_volgende_pagina_tekst_inactief;
    nav.alle_paginas = AllePaginasLijst(p, pag, g);
    nav.keuzelijst = PaginaKeuzelijst(p, pag, t, g);
  }
  nav.overzicht2 = OverzichtLink(t, g);
  if (pag.paginas == 1 && g.AantalFotos() > 1 && pag.een_pagina) {
    nav.overzicht2 = OverzichtKnop(g);
    nav.keuzelijst = FotoKeuzelijst(g);
  }
  if (!g.OverzichtAan() && nav.keuzelijst.find("option") != std::string::npos) {
    nav.overzicht2 = nav.keuzelijst;
  }
  return nav;
}

}  // namespace kiekbord
