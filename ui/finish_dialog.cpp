#include "ui/finish_dialog.h"

#include "base/melding.h"
#include "base/text_helpers.h"
#include "editor/wizard_rules.h"
#include "ui/desktop_services.h"
#include "ui/generation_progress.h"
#include "ui/message_boxes.h"
#include "ui/widget_helpers.h"

namespace kiekbord {

Voltooiing::Voltooiing(QWidget* venster, const ProgramSettings& settings, Meldingen& meldingen,
                       Bureaublad& bureaublad)
    : venster_(venster), settings_(settings), meldingen_(meldingen), bureaublad_(bureaublad) {}

void Voltooiing::Voer(const std::string& script_pad, const std::string& uitvoer_dir, bool lopende_browser,
                      const std::function<void(VoortgangDialoog&)>& geopend) const {
  Afronding afronding;
  bool bekijken = false;
  {
    VoortgangDialoog dialoog(venster_);
    const SiteResultaat resultaat = dialoog.Genereer(script_pad, settings_, geopend);
    // Another run held the output directory: nothing was written, not even a log.
    if (!resultaat.geweigerd.empty()) {
      dialoog.hide();
      return meldingen_.Toon(venster_, {MeldingSoort::kWaarschuwing, resultaat.geweigerd});
    }
    // The dialog asks the finish question under the run's result line; its
    // buttons are the answers.
    afronding = AfrondingNaRun(resultaat.failed == kGelukt, settings_, uitvoer_dir, script_pad);
    const std::string uitslag = UitslagNaRun(resultaat) + "\n" + Vervang(afronding.melding.tekst, "\r\n", "\n");
    bekijken = dialoog.VraagNaEinde(Q(uitslag), Q(BekijkKnopTekst(afronding))) && afronding.is_vraag;
  }
  if (!bekijken) return;
  if (afronding.log) {
    bureaublad_.OpenLog(venster_, afronding.adres);
  } else {
    bureaublad_.OpenAddress(venster_, afronding.adres, lopende_browser);
  }
}

}  // namespace kiekbord
