// Handing addresses and files to the desktop: the browser for the generated
// site and the help pages, the user's text editor for the log, the external
// photo program. Behind an interface so tests see what would be opened
// without starting anything.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "app/browser_search.h"

class QUrl;
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
  // The browser's program path, or kBrowserNietGevonden (see BrowserZoeker:
  // found once, then the same answer).
  virtual std::string FindBrowser(const std::string& adres) = 0;
  // Starts `programma` with `argumenten` in its own window and does not
  // wait for it. False when it could not be started.
  virtual bool StartProgramma(const std::string& programma, const std::vector<std::string>& argumenten) = 0;
};

// The desktop's default handler (xdg-mime) of `bestand`'s type, or of
// "text/html" when `bestand` is empty, as a program path (the entry's own
// name when its program can't be read from it). Nothing when xdg-mime is
// missing or names no handler.
std::optional<std::string> XdgBrowserOpzoeken(const std::string& bestand);

// Opens through the desktop (xdg-open): the browser is searched once
// (through `opzoeker`); when none is found, "De Internet Browser is niet
// gevonden." is shown; when the desktop refuses the address, "Internetadres
// <adres> kan niet worden geopend.". Both through `meldingen`.
class QtBureaublad : public Bureaublad {
 public:
  using Opener = std::function<bool(const QUrl&)>;
  // `opener` hands a URL to the desktop (QDesktopServices::openUrl when
  // none is given).
  explicit QtBureaublad(Meldingen& meldingen, BrowserOpzoeker opzoeker = XdgBrowserOpzoeken, Opener opener = {});
  void OpenAddress(QWidget* ouder, const std::string& adres, bool lopende_browser) override;
  void OpenLog(QWidget* ouder, const std::string& pad) override;
  std::string FindBrowser(const std::string& adres) override;
  bool StartProgramma(const std::string& programma, const std::vector<std::string>& argumenten) override;

 private:
  Meldingen& meldingen_;
  BrowserZoeker zoeker_;
  Opener opener_;
};

}  // namespace kiekbord
