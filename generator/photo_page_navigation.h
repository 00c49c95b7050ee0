// Which photo page holds which photo, the small texts that name a photo or
// page (three-digit numbers, the alt text, a class attribute), and the
// navigation of each photo page:
// the links to the previous and next page, to every page (a list and a
// select), to the home page and the overview; and, on the single page of an
// automatic presentation, the photo select and the overview button that the
// template's own script works with.
#pragma once

#include <string>
#include <string_view>

#include "generator/navigation_texts.h"
#include "generator/site_run.h"

namespace kiekbord {

// A page or photo number as three digits with leading zeros ("007"); larger
// numbers keep all their digits.
std::string DrieCijfers(int nummer);

// " alt=\"foto 3 van 12\"": photo `nummer` of `aantal`.
std::string AltAttribuut(int nummer, int aantal);

// " class=\"naam\"", or "" for an empty class name.
std::string KlasseAttribuut(const std::string& naam);

// Photos per page: the whole number value of "AantalFotosPerPagina"; 0, a
// negative value or text that is no number count as 1. Throws RunError(6)
// beyond 32767.
int FotosPerPagina(std::string_view aantal_fotos_per_pagina);

// How the photos are spread over the pages.
struct Paginering {
  int per_pagina = 1;  // P: photos shown as HTML on a page
  int paginas = 1;     // S: pages written
  // The template is the single-page form ("a" + extension): one page, and
  // all photos in the page's two lists.
  bool een_pagina = false;
};

// P and S for the run's photo count, photos per page and photo template.
// P >= N gives one page of N photos. The single-page form is recognised by
// the last six characters of the template path, so with a four-character
// extension such as ".htm" it never is: intended, kept as it always was.
Paginering PagineringVan(const SiteGegevens& gegevens);

// The navigation texts of one page.
struct PaginaNavigatie {
  std::string vorige;        // "LINKVORIGEPAGINA" and "LINKVORIGEPAGINA2"
  std::string volgende;      // "LINKVOLGENDEPAGINA" and "LINKVOLGENDEPAGINA2"
  std::string alle_paginas;  // "LINKALLEPAGINAS": the pages as links, CR LF between
  std::string keuzelijst;    // "LINKALLEPAGINAS2": the page select, or the photo select
  std::string overzicht2;    // "LINKOVERZICHT2"
};

// "LINKHOME": the link to the home page.
std::string HomeLink(const NavigatieTeksten& teksten);

// "LINKOVERZICHT": the link to the overview page, empty without one.
std::string OverzichtLink(const NavigatieTeksten& teksten, const SiteGegevens& gegevens);

// The navigation of page `pagina` (from 1). With fewer than two pages the
// previous, next and all-pages texts are empty; with one photo per page the
// titles and labels say "foto" where the texts say "pagina".
PaginaNavigatie NavigatieVan(int pagina, const Paginering& paginering,
                             const NavigatieTeksten& teksten, const SiteGegevens& gegevens);

}  // namespace kiekbord
