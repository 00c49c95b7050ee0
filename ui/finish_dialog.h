// The finish command after the script is saved: the generation run in its
// progress dialog, which stays open with the whole log and the finish
// question, and what the answer opens (the result in the browser, or the
// log in the text editor after a failed run).
#pragma once

#include <functional>
#include <string>

#include "app/program_settings.h"

class QWidget;

namespace kiekbord {

class Bureaublad;
class Meldingen;
class VoortgangDialoog;

class Voltooiing {
 public:
  Voltooiing(QWidget* venster, const ProgramSettings& settings, Meldingen& meldingen, Bureaublad& bureaublad);

  // Generates the saved script at `script_pad` into `uitvoer_dir`. A run
  // turned away because another one holds the directory only says so.
  // `lopende_browser` is the preference passed on to the browser;
  // `geopend`, when given, gets the dialog once it shows.
  void Voer(const std::string& script_pad, const std::string& uitvoer_dir, bool lopende_browser,
            const std::function<void(VoortgangDialoog&)>& geopend) const;

 private:
  QWidget* venster_;
  const ProgramSettings& settings_;
  Meldingen& meldingen_;
  Bureaublad& bureaublad_;
};

}  // namespace kiekbord
