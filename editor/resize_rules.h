// The resize dialog `frmVerklein` without widgets: the photo's current size
// and orientation, the new-size boxes filled from the remembered size in the
// photo's orientation, the box that leads when proportions are kept, the
// keys the boxes take, and when OK may be pressed. The dialog hands every
// change of its controls to a `VerkleinModel` and shows what the model holds.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "app/user_preferences.h"

namespace kiekbord {

// True for the keys the new-size boxes take: backspace (8), the digits and
// "."; every other key is dropped.
bool IsToegestaanTeken(char32_t teken);

// The numeric value of a box: its leading number, 0 when there is none.
double NumeriekeWaarde(std::string_view tekst);

// A value rounded to a 16-bit integer, halves to the even neighbour; values
// beyond the 16-bit range give the nearest limit.
std::int16_t AlsInt16(double waarde);

// What OK hands to the shrink operation, and what the dialog remembers.
struct VerkleinOpdracht {
  std::int16_t breedte = 0;
  std::int16_t hoogte = 0;
  int kwaliteit_code = 0;  // 0, 1 or 2: quality 100, 80 or 60
  VerkleinInstellingen te_onthouden;
};

class VerkleinModel {
 public:
  // `afmetingen` is the photo's size text ("4000x3000", "Error"); a size
  // that can't be read counts as 0 x 0, for which OK is never enabled.
  // `onthouden` fills the new-size boxes (when both sizes are at least 1),
  // the keep-proportions box and the quality option.
  VerkleinModel(std::string_view afmetingen, const VerkleinInstellingen& onthouden);

  std::int16_t huidige_breedte() const { return huidige_breedte_; }
  std::int16_t huidige_hoogte() const { return huidige_hoogte_; }
  // "L" for a landscape photo, "P" for a portrait or square one.
  const std::string& orientatie() const { return orientatie_; }
  // The texts of the new-size boxes.
  const std::string& breedte() const { return breedte_; }
  const std::string& hoogte() const { return hoogte_; }
  bool verhouding() const { return verhouding_; }
  int kwaliteit_index() const { return kwaliteit_index_; }

  // A box that gets the focus leads: only its changes drive the other box.
  void BreedteKrijgtFocus();
  void HoogteKrijgtFocus();
  bool breedte_leidt() const { return breedte_leidt_; }
  bool hoogte_leidt() const { return hoogte_leidt_; }

  void ZetVerhouding(bool aan) { verhouding_ = aan; }
  void ZetKwaliteit(int index) { kwaliteit_index_ = index; }

  // The width box now reads `tekst`. When its value lies between 99 and the
  // current width (both exclusive), the width box leads and proportions are
  // kept, the height box becomes the whole part of new width / current width
  // x current height.
  void BreedteGewijzigd(std::string tekst);
  // The same for the height box, which then sets the width box.
  void HoogteGewijzigd(std::string tekst);

  // OK is enabled exactly when both new sizes are greater than 99 and less
  // than the current size on their side.
  bool OkAan() const;

  // The new size as OK takes it (the boxes' values as 16-bit integers), the
  // quality code of the chosen option and the values to remember. Meant for
  // when OkAan(); otherwise the sizes are what the boxes say, limited to
  // 16 bits.
  VerkleinOpdracht Opdracht() const;

 private:
  std::int16_t huidige_breedte_ = 0;
  std::int16_t huidige_hoogte_ = 0;
  std::string orientatie_;
  std::string breedte_;
  std::string hoogte_;
  bool verhouding_ = false;
  int kwaliteit_index_ = 0;
  bool breedte_leidt_ = false;
  bool hoogte_leidt_ = false;
};

}  // namespace kiekbord
