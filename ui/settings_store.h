// The per-user settings store on this platform: an INI file,
// "kiekbord/kiekbord.conf" under the user's configuration directory
// ($XDG_CONFIG_HOME, usually ~/.config), with the sections and keys the
// program names ("Recent/LastDir", "Exit/Question", ...).
#pragma once

#include <memory>
#include <string>

#include "app/user_preferences.h"

class QSettings;

namespace kiekbord {

// The store's file for the user running the program.
std::string StandaardVoorkeurenBestand();

class QSettingsOpslag : public VoorkeurenOpslag {
 public:
  explicit QSettingsOpslag(const std::string& bestand = StandaardVoorkeurenBestand());
  ~QSettingsOpslag() override;
  std::optional<std::string> Lees(std::string_view sectie, std::string_view sleutel) const override;
  void Schrijf(std::string_view sectie, std::string_view sleutel, std::string_view waarde) override;

 private:
  std::unique_ptr<QSettings> settings_;
};

}  // namespace kiekbord
