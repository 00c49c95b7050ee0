// The user's personal preferences and the recent-script entries, kept in the
// per-user settings store (section and key names as stored: "Exit/Question",
// "Recent/LastDir", ...).
//
// The store itself is an interface, so the core reads and writes the values
// without knowing where they live; the window installs the real store (an
// INI file under the user's configuration directory) and tests a map.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kiekbord {

// A per-user store of text values by section and key.
class VoorkeurenOpslag {
 public:
  virtual ~VoorkeurenOpslag() = default;
  // The stored value, or nothing when the key has never been written.
  virtual std::optional<std::string> Lees(std::string_view sectie, std::string_view sleutel) const = 0;
  // Stores the value; a failure to store is not reported (the store keeps
  // the value for this run and retries when it next writes).
  virtual void Schrijf(std::string_view sectie, std::string_view sleutel, std::string_view waarde) = 0;
};

// The preferences. Flags are 16-bit numbers as stored; 1 means on.
struct UserPreferences {
  std::int16_t vraag_bij_afsluiten = 1;     // Exit/Question
  std::int16_t lopende_browser = 1;         // MSIE/DDE
  std::int16_t nieuw_in_laatste_dir = 1;    // Recent/Default
  std::int16_t backup_bij_bewerken = 1;     // Rotate/Backup
  std::string foto_programma;               // Photo/Editor
  // Photos copied into the output directory are turned upright and lose
  // their location (GPS block); the originals are never touched.
  std::int16_t rechtop_bij_kopieren = 1;          // Copy/Upright
  std::int16_t zonder_locatie_bij_kopieren = 1;   // Copy/NoLocation
};

// The preferences from `opslag`; a missing value takes its default, a value
// that is not a number reads as 0. Never fails.
UserPreferences LeesVoorkeuren(const VoorkeurenOpslag& opslag);

// Writes all preferences as decimal text (the program path as it is).
void SchrijfVoorkeuren(VoorkeurenOpslag& opslag, const UserPreferences& voorkeuren);

// The file in which the window keeps the store: "kiekbord/kiekbord.conf"
// under $XDG_CONFIG_HOME, or under ~/.config when that is not set.
std::string VoorkeurenBestand(const std::string& home);

// The preferences as the window stored them in the INI file at `pad`
// ("[Section]" lines and "key=value" lines), read without the window, for
// the headless command. A missing or unreadable file gives the defaults.
UserPreferences LeesVoorkeurenBestand(const std::string& pad);

// "Recent/LastDir": the directory of the last script opened or saved; empty
// when none was.
std::string LeesLaatsteDir(const VoorkeurenOpslag& opslag);
void SchrijfLaatsteDir(VoorkeurenOpslag& opslag, std::string_view directory);

// "Recent/ScriptFile": the full path of the last script saved; empty when
// none was.
std::string LeesLaatsteScript(const VoorkeurenOpslag& opslag);
void SchrijfLaatsteScript(VoorkeurenOpslag& opslag, std::string_view pad);

// What the resize dialog remembers from one run to the next (section
// "Verkleinen"): the last new size confirmed, whether proportions were kept
// and the quality option chosen (0, 1 or 2).
struct VerkleinInstellingen {
  std::int16_t breedte = 0;       // Verkleinen/Breedte; 0: no preset yet
  std::int16_t hoogte = 0;        // Verkleinen/Hoogte
  bool verhouding = true;         // Verkleinen/Verhouding, "1" or "0"
  std::int16_t kwaliteit = 0;     // Verkleinen/Kwaliteit
};

// The resize dialog's values from `opslag`; missing values take the
// defaults above, a text that is not a number reads as 0, and a quality
// index outside 0..2 reads as 0. Never fails.
VerkleinInstellingen LeesVerkleinInstellingen(const VoorkeurenOpslag& opslag);

// Writes all four values as decimal text.
void SchrijfVerkleinInstellingen(VoorkeurenOpslag& opslag, const VerkleinInstellingen& instellingen);

}  // namespace kiekbord
