#include "generator/overview_page.h"

#include <vector>

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

// What the overview writes for one photo; all empty for the cells after the
// last photo.
struct OverzichtFoto {
  std::string thumbnail;
  std::string breedte;
  std::string hoogte;
  std::string met_maat;
  std::string zonder_maat;
  std::string link_met_maat;
  std::string link_zonder_maat;
  std::string bijschrift;
  // With "Webformaat" only.
  std::string origineel;
  std::string verhouding;
  std::string mini_verhouding;
};

OverzichtFoto OverzichtFotoVan(const SiteGegevens& g, int nummer) {
  const int n = g.AantalFotos();
  const auto index = static_cast<std::size_t>(nummer - 1);
  OverzichtFoto foto;
  // Exact case: a name without ".jpg" ("IMG.JPG") is its own thumbnail name.
  foto.thumbnail = Vervang(nummer <= n ? g.foto_namen[index] : "", ".jpg", "_tn.jpg");
  if (nummer > n) {
    // Only the head of a gallery without photos asks for one beyond the
    // last; it has always shown "0" there.
    foto.breedte = foto.hoogte = "0";
    return foto;
  }

  // A thumbnail whose size stays unknown (a missing one, say) gets no size
  // rather than 0 x 0.
  const auto afmeting = PaginaMaat(g.uitvoer_dir + foto.thumbnail);
  foto.breedte = afmeting ? std::to_string(afmeting->breedte) : "";
  foto.hoogte = afmeting ? std::to_string(afmeting->hoogte) : "";
  const std::string maat =
      afmeting ? " width=\"" + foto.breedte + "\" height=\"" + foto.hoogte + "\"" : "";
  const std::string bron = "<img src=\"" + BestandsLink(foto.thumbnail) + "\"";
  std::string web;
  if (g.WebformaatAan()) {
    const std::string& naam = g.foto_namen[index];
    web = WebAttributen(MiniSrcset(g.uitvoer_dir, foto.thumbnail), "", nummer == 1);
    foto.origineel = BestandsLink(naam);
    foto.verhouding = Verhouding(g.foto_maten->Van(g.uitvoer_dir + naam));
    foto.mini_verhouding = Verhouding(afmeting);
  }
  const std::string rand_en_alt = " border=\"0\"" + AltAttribuut(nummer, n) + web + ">";
  foto.met_maat = bron + maat + rand_en_alt;
  foto.zonder_maat = bron + rand_en_alt;
  const std::string doel =
      "kb" + DrieCijfers(OverzichtPaginaVan(nummer, g)) + g.ext + "#foto" + DrieCijfers(nummer);
  foto.link_met_maat = "<a href=\"" + doel + "\">" + foto.met_maat + "</a>";
  foto.link_zonder_maat = "<a href=\"" + doel + "\">" + foto.zonder_maat + "</a>";
  foto.bijschrift = g.bijschriften[index];
  return foto;
}

std::vector<Veld> BlokVelden(const OverzichtFoto& foto, int nummer, int aantal, bool webformaat) {
  std::vector<Veld> velden = {{"AANTALFOTOS", std::to_string(aantal)},
          {"LINKFOTO", foto.link_met_maat},
          {"LINKFOTO2", foto.link_zonder_maat},
          {"FOTONUMMER", std::to_string(nummer)},
          {"FOTO", foto.met_maat},
          {"FOTOWEERGAVE", foto.met_maat},
          {"FOTOWEERGAVE2", foto.zonder_maat},
          {"FOTONAAM", foto.thumbnail},
          {"FOTOBREEDTE", foto.breedte},
          {"FOTOHOOGTE", foto.hoogte},
          {"BIJSCHRIFT", foto.bijschrift}};
  if (webformaat) {
    velden.push_back({"FOTOORIGINEEL", foto.origineel});
    velden.push_back({"FOTOVERHOUDING", foto.verhouding});
    velden.push_back({"MINIVERHOUDING", foto.mini_verhouding});
  }
  return velden;
}

// Writes the block pass after pass, `c` the photo to show next. A filled
// line whose template line holds "++" after its first "[" moves c on; a
// pass without such a line moves it on by one at its end. After a pass
// that moved, c is not moved again, so a block whose last photo line lacks
// "++" starts the next pass with that photo again: intended, templates put
// "++" on every photo line.
void SchrijfBlokken(BlokPagina& pagina, const SiteGegevens& g, const SiteRun& run) {
  const int n = g.AantalFotos();
  int c = 1;
  int voorbereid = 0;
  OverzichtFoto foto;
  while (c <= n && run.failed == kGelukt) {
    bool doorgeschoven = false;
    for (int i = pagina.EersteBlokRegel(); i <= pagina.LaatsteBlokRegel(); ++i) {
      const std::string& sjabloon_regel = pagina.Regel(i);
      std::string regel = sjabloon_regel;
      const auto f = regel.find('[');
      if (f != std::string::npos) {
        if (c > n) {
          foto = OverzichtFoto{};
        } else if (c != voorbereid) {
          foto = OverzichtFotoVan(g, c);
          voorbereid = c;
        }
        VulVelden(regel, BlokVelden(foto, c, n, g.WebformaatAan()), pagina.ScriptBijBegin(i));
      }
      const bool schuift = f != std::string::npos && regel != sjabloon_regel &&
                           sjabloon_regel.find("++", f) != std::string::npos;
      pagina.Voeg(regel);
      if (schuift) {
        ++c;
        doorgeschoven = true;
      }
    }
    if (!doorgeschoven) ++c;
  }
}

}  // namespace

int OverzichtPaginaVan(int nummer, const SiteGegevens& g) {
  if (g.presentatie == "1") return 1;
  return (nummer - 1) / FotosPerPagina(g.fotos_per_pagina) + 1;
}

void MaakOverzichtPagina(SiteRun& run, const KopEnCredit& kop) {
  BinnenStapgrens(run, [&] {
    const SiteGegevens& g = run.gegevens;
    LineTable sjabloon(capaciteit::kTemplate);
    LeesSjabloonGelogd(g.overzicht_sjabloon, sjabloon, run);

    PaginaVelden velden = PaginaVeldenVan(g);
    velden.subtitel = SubtitelOfTitel(g);
    PaginaRegels regels(kop, std::move(velden));
    const HerhaalBlok blok = BereidBlokSjabloonVoor(sjabloon, regels);

    const std::string pad = g.uitvoer_dir + "kbovz" + g.ext;
    run.log.SchrijfLog("Aanmaken overzichtspagina " + pad + "...");
    BlokPagina pagina(sjabloon, blok);
    const OverzichtFoto eerste = OverzichtFotoVan(g, 1);
    pagina.SchrijfKop({{"FOTOBREEDTE", eerste.breedte}, {"FOTOHOOGTE", eerste.hoogte}});
    SchrijfBlokken(pagina, g, run);
    pagina.SchrijfStaart({});
    pagina.Bewaar(pad);
    run.log.SchrijfLog("Overzichtspagina " + pad + " aangemaakt.");
  });
}

}  // namespace kiekbord
