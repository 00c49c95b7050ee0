#include "generator/title_page.h"

#include "base/line_table.h"
#include "base/text.h"
#include "generator/page_lines.h"
#include "generator/web_fields.h"

namespace kiekbord {
namespace {

constexpr PaginaMeldingen kTitelpaginaMeldingen{
    "Aanmaken titelpagina ", "Fout bij aanmaken titelpagina: ", "Titelpagina "};

std::string Link(const std::string& href, std::string_view title, std::string_view tekst) {
  return "<a href=\"" + href + "\" title=\"" + std::string(title) + "\">" + std::string(tekst) +
         "</a>";
}

PaginaVelden TitelVelden(const SiteGegevens& g) {
  PaginaVelden velden = PaginaVeldenVan(g);
  velden.lege_subtitel_als_commentaar = true;
  velden.eigen_velden = {
      {"LINKEERSTEPAGINA",
       Link("kb001" + g.ext, "Klik hier om de foto's direct te bekijken", "Kiekbord")},
      {"LINKOVERZICHT",
       g.OverzichtAan()
           ? Link("kbovz" + g.ext, "Klik hier voor een totaaloverzicht (thumbnails)", "Overzicht")
           : ""},
  };
  if (g.WebformaatAan()) velden.eigen_velden.push_back({"OMSLAGFOTO", OmslagFoto(g)});
  return velden;
}

}  // namespace

void MaakTitelPagina(SiteRun& run, const KopEnCredit& kop) {
  BinnenStapgrens(run, [&] {
    const SiteGegevens& g = run.gegevens;
    LineTable sjabloon(capaciteit::kTemplate);
    if (!LeesSjabloonGelogd(g.titel_sjabloon, sjabloon, run)) return;

    PaginaRegels regels(kop, TitelVelden(g), TrimSpaces(g.titel), TrimSpaces(g.subtitel));
    regels.MetCreditRegel(g.uitvoer_dir, PositieTekst(g.positie_fotos));
    regels.VerwerkAlle(sjabloon);

    SchrijfPaginaGelogd(g.uitvoer_dir + "index" + g.ext, sjabloon, kTitelpaginaMeldingen, run);
  });
}

}  // namespace kiekbord
