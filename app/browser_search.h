// Finding the user's web browser and deciding what showing an address in it
// takes. The browser is the desktop's default handler for web pages, found
// once per run of the program and then reused; the desktop is asked through
// a look-up function the front end hands in (xdg-mime there, a stand-in in
// tests).
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/melding.h"

namespace kiekbord {

// The cached text when no browser was found; the message shown is the text
// after "%Error:".
inline constexpr std::string_view kBrowserNietGevonden = "%Error:De Internet Browser is niet gevonden.";

// Asks the desktop for the program that opens `bestand` (an existing local
// file), or, when `bestand` is empty, the program that opens web pages.
// Returns the program's path, or nothing when the desktop names none.
using BrowserOpzoeker = std::function<std::optional<std::string>(const std::string& bestand)>;

// The file whose handler the search asks for: `adres` when, trimmed, it is
// not empty, holds no "http" and names an existing file; otherwise empty
// (ask for the handler of web pages).
std::string BestandVoorZoeken(const std::string& adres);

// The browser cache.
class BrowserZoeker {
 public:
  explicit BrowserZoeker(BrowserOpzoeker opzoeker) : opzoeker_(std::move(opzoeker)) {}

  // The browser's program path, or kBrowserNietGevonden. Only the first call
  // asks the desktop (for the handler of `adres`, see BestandVoorZoeken);
  // every later call returns that first answer.
  const std::string& FindBrowser(const std::string& adres);

 private:
  BrowserOpzoeker opzoeker_;
  std::string cache_;
};

// What showing an address takes, for the browser text FindBrowser gave.
struct AdresOpenen {
  enum class Soort {
    kNiets,    // no browser text at all: nothing happens
    kMelding,  // the browser was not found: show `melding`
    kOpenen,   // hand the address to the desktop
  };
  Soort soort = Soort::kNiets;
  Melding melding{MeldingSoort::kWaarschuwing, ""};
};
AdresOpenen PlanAdresOpenen(const std::string& browser);

// "Internetadres <adres> kan niet worden geopend." (exclamation icon).
Melding AdresNietGeopendMelding(const std::string& adres);

// --- The desktop's handlers -----------------------------------------------------

// The directories that hold the desktop's application entries, most
// important first: $XDG_DATA_HOME (default ~/.local/share) and each of
// $XDG_DATA_DIRS (default /usr/local/share:/usr/share), each + "applications/".
std::vector<std::string> ApplicatieMappen(const std::string& home, const std::string& xdg_data_home,
                                          const std::string& xdg_data_dirs);

// The program of desktop entry `desktop_id` ("chromium.desktop"), found in
// the first of `mappen` that holds it: the first word of its "Exec=" line,
// looked up in the directories of `zoekpad` when it is no path. Nothing when
// no entry of that name, or no "Exec=" line, is found. Reads through Fs().
std::optional<std::string> ProgrammaVanDesktopEntry(std::string_view desktop_id,
                                                    const std::vector<std::string>& mappen,
                                                    std::string_view zoekpad);

}  // namespace kiekbord
