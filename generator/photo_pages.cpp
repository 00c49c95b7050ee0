#include "generator/photo_pages.h"

#include <algorithm>

#include "base/file_system.h"
#include "base/line_table.h"
#include "base/generation_log.h"
#include "generator/page_lines.h"
#include "generator/photo_page_navigation.h"
#include "generator/repeat_block.h"
#include "generator/web_fields.h"
#include "base/text_helpers.h"
#include "images/photo_properties.h"

namespace kiekbord {
namespace {

// What a page writes for one photo.
struct FotoTeksten {
  std::string naam;
  std::string breedte;  // empty when the photo is not in the output directory
  std::string hoogte;
  std::string met_maat;
  std::string zonder_maat;
  std::string volgende_foto;  // the next-photo link
  std::string anker;
  std::string verhouding;  // "W / H", with "Webformaat" only
};

// Where photo `nummer` stands: on page `pagina`, last on it or not.
struct FotoPlaats {
  int nummer = 1;
  int pagina = 1;
  bool laatste_op_pagina = false;
  bool eerste_op_pagina = false;
};

// What every page of the run shares.
struct FotoRun {
  GenerationLog& log;
  const SiteGegevens& g;
  const NavigatieTeksten& teksten;
  Paginering paginering;
  std::string home;
  std::string overzicht;
  std::string namen_lijst;
  std::string bijschriften_lijst;
  std::string dia_gegevens;  // with "Webformaat" only
};

// Stands for the slideshow's data in the page lines, which may hold no more
// than 32767 characters; swapped for the data once the page is assembled.
constexpr std::string_view kDiaGegevensPlek = "\x01\x02KBDIAGEGEVENS\x02\x01";

std::string VolgendeFotoLink(const FotoRun& run, const FotoPlaats& plaats) {
  if (plaats.nummer == run.g.AantalFotos() || run.paginering.per_pagina == 1) return "";
  const std::string pagina =
      plaats.laatste_op_pagina ? "kb" + DrieCijfers(plaats.pagina + 1) + run.g.ext : "";
  return "<a href=\"" + pagina + "#foto" + DrieCijfers(plaats.nummer + 1) +
         "\" title=\"volgende foto\"" + KlasseAttribuut(run.teksten.link_volgende_foto_class) +
         ">" + run.teksten.link_volgende_foto_tekst + "</a>";
}

FotoTeksten FotoTekstenVan(const FotoRun& run, const FotoPlaats& plaats) {
  const SiteGegevens& g = run.g;
  FotoTeksten foto;
  foto.naam = g.foto_namen[static_cast<std::size_t>(plaats.nummer - 1)];
  std::string maat;
  // A photo whose size stays unknown gets no size rather than 0 x 0, which
  // would hide it.
  // With "Webformaat" the title page and the overview have read it already.
  const std::string pad = g.uitvoer_dir + foto.naam;
  const auto afmeting =
      !Fs().FileExists(pad) ? std::nullopt : g.WebformaatAan() ? g.foto_maten->Van(pad) : PaginaMaat(pad);
  if (afmeting) {
    foto.breedte = std::to_string(afmeting->breedte);
    foto.hoogte = std::to_string(afmeting->hoogte);
    maat = " width=\"" + foto.breedte + "\" height=\"" + foto.hoogte + "\"";
  }
  const std::string nummer = DrieCijfers(plaats.nummer);
  const std::string namen = " name=\"img" + nummer + "\" id=\"img" + nummer + "\"";
  const std::string alt = AltAttribuut(plaats.nummer, g.AantalFotos());
  const std::string bron = " src=\"" + BestandsLink(foto.naam) + "\"";
  std::string web;
  if (g.WebformaatAan()) {
    web = WebAttributen(FotoSrcset(g.uitvoer_dir, foto.naam, afmeting), g.foto_sizes, plaats.eerste_op_pagina);
    foto.verhouding = Verhouding(afmeting);
  }
  foto.met_maat = "<img" + namen + bron + maat + alt + web + ">";
  foto.zonder_maat = "<img" + namen + bron + alt + web + ">";
  foto.volgende_foto = VolgendeFotoLink(run, plaats);
  foto.anker = "<a name=\"foto" + nummer + "\"></a>";
  return foto;
}

// Head and tail: the navigation, the name list and the size of the page's
// first photo.
// The fields of "Webformaat": photo `nummer`, on a page of photos `eerste`
// to `laatste`.
void VoegWebVeldenToe(std::vector<Veld>& velden, const FotoRun& run, const FotoTeksten& foto, int nummer,
                      int eerste, int laatste) {
  if (!run.g.WebformaatAan()) return;
  velden.push_back({"FOTOORIGINEEL", BestandsLink(foto.naam)});
  velden.push_back({"FOTOVERHOUDING", foto.verhouding});
  const std::string& bijschrift = run.g.bijschriften[static_cast<std::size_t>(nummer - 1)];
  velden.push_back({"PAGINATITEL", PaginaTitelVan(eerste, laatste, bijschrift)});
  velden.push_back({"DIAGEGEVENS", std::string(kDiaGegevensPlek)});
}

std::vector<Veld> KopVelden(const FotoRun& run, const PaginaNavigatie& nav,
                            const FotoTeksten& eerste) {
  return {{"AANTALFOTOS", std::to_string(run.g.AantalFotos())},
          {"LINKVORIGEPAGINA2", nav.vorige},
          {"LINKVORIGEPAGINA", nav.vorige},
          {"LINKVOLGENDEPAGINA2", nav.volgende},
          {"LINKVOLGENDEPAGINA", nav.volgende},
          {"LINKOVERZICHT2", nav.overzicht2},
          {"LINKALLEPAGINAS", nav.alle_paginas},
          {"FOTONAMENLIJST", run.namen_lijst},
          {"FOTOBREEDTE", eerste.breedte},
          {"FOTOHOOGTE", eerste.hoogte}};
}

std::vector<Veld> BlokVelden(const FotoRun& run, const PaginaNavigatie& nav,
                             const FotoTeksten& foto, int nummer) {
  return {{"AANTALFOTOS", std::to_string(run.g.AantalFotos())},
          {"FOTONAMENLIJST", run.namen_lijst},
          {"FOTOBIJSCHRIFTENLIJST", run.bijschriften_lijst},
          {"LINKVORIGEPAGINA2", nav.vorige},
          {"LINKVORIGEPAGINA", nav.vorige},
          {"LINKVOLGENDEPAGINA2", nav.volgende},
          {"LINKVOLGENDEPAGINA", nav.volgende},
          {"LINKHOME", run.home},
          {"LINKOVERZICHT2", nav.overzicht2},
          {"LINKOVERZICHT", run.overzicht},
          {"LINKALLEPAGINAS2", nav.keuzelijst},
          {"LINKALLEPAGINAS", nav.alle_paginas},
          {"LINKVOLGENDEFOTO", foto.volgende_foto},
          {"VOLGENDEFOTO", foto.anker},
          {"FOTONUMMER", std::to_string(nummer)},
          {"FOTO", foto.met_maat},
          {"FOTOWEERGAVE2", foto.zonder_maat},
          {"FOTOWEERGAVE", foto.met_maat},
          {"FOTONAAM", foto.naam},
          {"FOTOBREEDTE", foto.breedte},
          {"FOTOHOOGTE", foto.hoogte},
          {"BIJSCHRIFT", run.g.bijschriften[static_cast<std::size_t>(nummer - 1)]}};
}

// Page `pagina`, starting at photo `eerste`; returns the first photo of the
// next page.
int SchrijfFotoPagina(const FotoRun& run, const LineTable& sjabloon, HerhaalBlok blok, int pagina,
                      int eerste) {
  const SiteGegevens& g = run.g;
  const PaginaNavigatie nav = NavigatieVan(pagina, run.paginering, run.teksten, g);
  const std::string pad = g.uitvoer_dir + "kb" + DrieCijfers(pagina) + g.ext;
  run.log.SchrijfLog("Aanmaken fotopagina " + pad + "...");

  BlokPagina pagina_tekst(sjabloon, blok);
  const auto teksten_van = [&](int nummer, int k) {
    return FotoTekstenVan(run, FotoPlaats{nummer, pagina, k == run.paginering.per_pagina, k == 1});
  };
  const int laatste = std::min(eerste + run.paginering.per_pagina - 1, g.AantalFotos());
  // The head shows the size of the page's first photo; the block's first
  // pass shows that photo again.
  const FotoTeksten eerste_foto = teksten_van(eerste, 1);
  std::vector<Veld> kop = KopVelden(run, nav, eerste_foto);
  VoegWebVeldenToe(kop, run, eerste_foto, eerste, eerste, laatste);
  pagina_tekst.SchrijfKop(kop);

  int nummer = eerste;
  for (int k = 1; k <= run.paginering.per_pagina && nummer <= g.AantalFotos(); ++k, ++nummer) {
    const FotoTeksten foto = k == 1 ? eerste_foto : teksten_van(nummer, k);
    std::vector<Veld> velden = BlokVelden(run, nav, foto, nummer);
    VoegWebVeldenToe(velden, run, foto, nummer, eerste, laatste);
    pagina_tekst.SchrijfBlok(velden);
  }
  pagina_tekst.SchrijfStaart(kop);
  if (g.WebformaatAan()) pagina_tekst.VervangNa(kDiaGegevensPlek, run.dia_gegevens);
  pagina_tekst.Bewaar(pad);
  return nummer;
}

}  // namespace

std::string FotoNamenLijst(const std::vector<std::string>& namen) {
  std::string lijst;
  for (std::size_t i = 0; i < namen.size(); ++i) {
    if (i > 0) lijst += "$$";
    lijst += BestandsLink(namen[i]);
  }
  return lijst;
}

std::string BijschriftenLijst(const std::vector<std::string>& bijschriften) {
  std::string lijst;
  for (std::size_t i = 0; i < bijschriften.size(); ++i) {
    if (i > 0) lijst += "$$";
    lijst += ScriptTekst(bijschriften[i]) + " ";
  }
  return lijst;
}

void MaakFotoPaginas(SiteRun& run, const KopEnCredit& kop) {
  BinnenStapgrens(run, [&] {
    const SiteGegevens& g = run.gegevens;
    LineTable sjabloon(capaciteit::kTemplate);
    LeesSjabloonGelogd(g.foto_sjabloon, sjabloon, run);

    const FotoRun foto_run{run.log,
                           g,
                           run.navigatie,
                           PagineringVan(g),
                           HomeLink(run.navigatie),
                           OverzichtLink(run.navigatie, g),
                           FotoNamenLijst(g.foto_namen),
                           BijschriftenLijst(g.bijschriften),
                           g.WebformaatAan() ? DiaGegevens(g) : ""};
    PaginaVelden velden = PaginaVeldenVan(g);
    velden.subtitel = SubtitelOfTitel(g);
    // The description belongs to the title and overview pages only.
    velden.beschrijving.reset();
    velden.eigen_velden = {{"LINKHOME", foto_run.home}, {"LINKOVERZICHT", foto_run.overzicht}};
    PaginaRegels regels(kop, std::move(velden));
    const HerhaalBlok blok = BereidBlokSjabloonVoor(sjabloon, regels);

    const int paginas = foto_run.paginering.paginas;
    int nummer = 1;
    for (int pagina = 1; nummer <= g.AantalFotos() && pagina <= paginas && run.failed == kGelukt;
         ++pagina) {
      if (Afgebroken(run)) return;
      nummer = SchrijfFotoPagina(foto_run, sjabloon, blok, pagina, nummer);
    }
    run.log.SchrijfLog(std::to_string(paginas) + " fotopagina's aangemaakt.");
  });
}

}  // namespace kiekbord
