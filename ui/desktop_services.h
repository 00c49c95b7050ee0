// Handing addresses and files to the desktop: the browser for the generated
// site and the help pages, the user's text editor for the log. Behind an
// interface so tests see what would be opened without starting anything.
#pragma once

#include <string>

class QWidget;

namespace kiekbord {

class Meldingen;

class Bureaublad {
 public:
  virtual ~Bureaublad() = default;
  // Shows `adres` (a web address or a local file) in the browser.
  // `lopende_browser` is the preference to reuse a running browser; it
  // changes nothing here, where there is no browser conversation to use.
  virtual void OpenAddress(QWidget* ouder, const std::string& adres, bool lopende_browser) = 0;
  // Opens the log file in the desktop's application for text files.
  virtual void OpenLog(QWidget* ouder, const std::string& pad) = 0;
};

// Opens through the desktop (xdg-open); a failure is shown through
// `meldingen`: "Internetadres <adres> kan niet worden geopend.".
class QtBureaublad : public Bureaublad {
 public:
  explicit QtBureaublad(Meldingen& meldingen) : meldingen_(meldingen) {}
  void OpenAddress(QWidget* ouder, const std::string& adres, bool lopende_browser) override;
  void OpenLog(QWidget* ouder, const std::string& pad) override;

 private:
  Meldingen& meldingen_;
};

}  // namespace kiekbord
