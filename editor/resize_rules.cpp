#include "editor/resize_rules.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "base/text.h"
#include "images/photo_properties.h"

namespace kiekbord {
namespace {

// A value may drive the other box, and may be accepted by OK, only between
// 99 and the current size: the dialog shrinks, never enlarges, and never
// below 100 pixels.
bool BinnenBereik(double waarde, std::int16_t huidig) { return waarde > 99 && waarde < huidig; }

// The other side for a new size on this side, in the order the proportion
// is taken (new / current x other current), rounded down.
std::string AndereZijde(double nieuw, std::int16_t huidig, std::int16_t huidig_ander) {
  return NumberText(std::floor(nieuw / huidig * huidig_ander));
}

}  // namespace

bool IsToegestaanTeken(char32_t teken) { return teken == 8 || teken == U'.' || (teken >= U'0' && teken <= U'9'); }

double NumeriekeWaarde(std::string_view tekst) { return LeadingNumber(tekst); }

std::int16_t AlsInt16(double waarde) {
  const double afgerond = std::nearbyint(waarde);  // the default rounding mode: halves to even
  if (!(afgerond >= std::numeric_limits<std::int16_t>::min())) return std::numeric_limits<std::int16_t>::min();
  if (afgerond > std::numeric_limits<std::int16_t>::max()) return std::numeric_limits<std::int16_t>::max();
  return static_cast<std::int16_t>(afgerond);
}

VerkleinModel::VerkleinModel(std::string_view afmetingen, const VerkleinInstellingen& onthouden)
    : huidige_breedte_(BreedteVanAfmetingen(afmetingen)),
      huidige_hoogte_(HoogteVanAfmetingen(afmetingen)),
      orientatie_(huidige_breedte_ > huidige_hoogte_ ? "L" : "P"),
      verhouding_(onthouden.verhouding),
      kwaliteit_index_(onthouden.kwaliteit) {
  if (onthouden.breedte >= 1 && onthouden.hoogte >= 1) {
    // The remembered size is turned to the photo's orientation: the larger
    // side goes along the photo's longer side.
    const std::int16_t groot = std::max(onthouden.breedte, onthouden.hoogte);
    const std::int16_t klein = std::min(onthouden.breedte, onthouden.hoogte);
    const bool liggend = orientatie_ == "L";
    breedte_ = std::to_string(liggend ? groot : klein);
    hoogte_ = std::to_string(liggend ? klein : groot);
  }
}

void VerkleinModel::BreedteKrijgtFocus() {
  breedte_leidt_ = true;
  hoogte_leidt_ = false;
}

void VerkleinModel::HoogteKrijgtFocus() {
  hoogte_leidt_ = true;
  breedte_leidt_ = false;
}

void VerkleinModel::BreedteGewijzigd(std::string tekst) {
  breedte_ = std::move(tekst);
  const double waarde = NumeriekeWaarde(breedte_);
  if (BinnenBereik(waarde, huidige_breedte_) && breedte_leidt_ && verhouding_) {
    hoogte_ = AndereZijde(waarde, huidige_breedte_, huidige_hoogte_);
  }
}

void VerkleinModel::HoogteGewijzigd(std::string tekst) {
  hoogte_ = std::move(tekst);
  const double waarde = NumeriekeWaarde(hoogte_);
  if (BinnenBereik(waarde, huidige_hoogte_) && hoogte_leidt_ && verhouding_) {
    breedte_ = AndereZijde(waarde, huidige_hoogte_, huidige_breedte_);
  }
}

bool VerkleinModel::OkAan() const {
  return BinnenBereik(NumeriekeWaarde(breedte_), huidige_breedte_) &&
         BinnenBereik(NumeriekeWaarde(hoogte_), huidige_hoogte_);
}

VerkleinOpdracht VerkleinModel::Opdracht() const {
  VerkleinOpdracht o;
  o.breedte = AlsInt16(NumeriekeWaarde(breedte_));
  o.hoogte = AlsInt16(NumeriekeWaarde(hoogte_));
  o.kwaliteit_code = kwaliteit_index_ == 1 || kwaliteit_index_ == 2 ? kwaliteit_index_ : 0;
  o.te_onthouden.breedte = o.breedte;
  o.te_onthouden.hoogte = o.hoogte;
  o.te_onthouden.verhouding = verhouding_;
  o.te_onthouden.kwaliteit = static_cast<std::int16_t>(o.kwaliteit_code);
  return o;
}

}  // namespace kiekbord
