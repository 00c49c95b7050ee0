// The one way the window talks to the user in message boxes.
//
// Every message and question of the program goes through `Meldingen`, so
// tests answer the questions and read the texts without a box on screen. The
// real implementation shows Qt message boxes with the program's title as
// caption and Dutch buttons.
#pragma once

#include "base/melding.h"

class QWidget;

namespace kiekbord {

class Meldingen {
 public:
  virtual ~Meldingen() = default;
  // Shows `melding` with an OK button.
  virtual void Toon(QWidget* ouder, const Melding& melding) = 0;
  // Asks `melding` with the buttons "Ja" and "Nee"; true for "Ja". Closing
  // the box counts as "Nee". "Ja" is the default button, "Nee" when the
  // melding says so (`nee_voorop`).
  virtual bool Vraag(QWidget* ouder, const Melding& melding) = 0;
};

class QtMeldingen : public Meldingen {
 public:
  void Toon(QWidget* ouder, const Melding& melding) override;
  bool Vraag(QWidget* ouder, const Melding& melding) override;
};

}  // namespace kiekbord
