// Test doubles for the window's services: message boxes answered from a
// list, common dialogs that return what the test chose, a desktop that
// records what would be opened, and a settings store in memory.
#pragma once

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <QColor>

#include "app/user_preferences.h"
#include "base/melding.h"
#include "ui/common_dialogs.h"
#include "ui/desktop_services.h"
#include "ui/message_boxes.h"

namespace kiekbord::test {

// The next answer from `rij`; an empty list answers "Nee" or "Annuleren".
template <typename T>
T Volgende(std::deque<T>& rij) {
  if (rij.empty()) return T{};
  T waarde = std::move(rij.front());
  rij.pop_front();
  return waarde;
}

class TestMeldingen : public Meldingen {
 public:
  void Toon(QWidget*, const Melding& melding) override { getoond.push_back({melding, false}); }
  bool Vraag(QWidget*, const Melding& melding) override {
    getoond.push_back({melding, true});
    return Volgende(antwoorden);
  }
  // The texts shown, in order.
  std::vector<std::string> Teksten() const {
    std::vector<std::string> teksten;
    for (const auto& g : getoond) teksten.push_back(g.melding.tekst);
    return teksten;
  }
  struct Getoond {
    Melding melding;
    bool vraag = false;
  };
  std::deque<bool> antwoorden;
  std::vector<Getoond> getoond;
};

// Each dialog records where it started (a file dialog's directory, the
// colour a colour dialog starts on) and returns the next answer of its list.
class TestDialogen : public Dialogen {
 public:
  std::string ScriptOpenen(QWidget*, const std::string& map) override { return Open(map, te_openen); }
  std::string ScriptOpslaanAls(QWidget*, const std::string& map, const std::string& naam) override {
    voorgestelde_namen.push_back(naam);
    return Open(map, op_te_slaan);
  }
  std::string MapKiezen(QWidget*, const std::string&, const std::string& map) override { return Open(map, mappen); }
  std::vector<std::string> FotosKiezen(QWidget*, const std::string& map) override { return Open(map, fotos); }
  std::optional<QColor> KleurKiezen(QWidget*, const std::string&, const QColor& huidig) override {
    kleur_start.push_back(huidig);
    ++aantal;
    return Volgende(kleuren);
  }
  std::string FotoprogrammaKiezen(QWidget*, const std::string& huidig) override {
    return Open(huidig, fotoprogrammas);
  }

  std::deque<std::string> te_openen, op_te_slaan, mappen, fotoprogrammas;
  std::deque<std::vector<std::string>> fotos;
  std::deque<std::optional<QColor>> kleuren;
  std::vector<std::string> geopend_in, voorgestelde_namen;
  std::vector<QColor> kleur_start;
  int aantal = 0;

 private:
  template <typename T>
  T Open(const std::string& map, std::deque<T>& antwoorden) {
    ++aantal;
    geopend_in.push_back(map);
    return Volgende(antwoorden);
  }
};

class TestBureaublad : public Bureaublad {
 public:
  void OpenAddress(QWidget*, const std::string& adres, bool) override { adressen.push_back(adres); }
  void OpenLog(QWidget*, const std::string& pad) override { logs.push_back(pad); }
  std::string FindBrowser(const std::string&) override { return browser; }
  bool StartProgramma(const std::string& programma, const std::vector<std::string>& argumenten) override {
    gestart.push_back(programma);
    gestart.insert(gestart.end(), argumenten.begin(), argumenten.end());
    return start_lukt;
  }
  std::vector<std::string> adressen, logs;
  std::string browser = "/usr/bin/firefox";  // what FindBrowser answers
  std::vector<std::string> gestart;          // each program started, then its arguments
  bool start_lukt = true;
};

class TestOpslag : public VoorkeurenOpslag {
 public:
  std::optional<std::string> Lees(std::string_view sectie, std::string_view sleutel) const override {
    const auto it = waarden.find(std::string(sectie) + "/" + std::string(sleutel));
    if (it == waarden.end()) return std::nullopt;
    return it->second;
  }
  void Schrijf(std::string_view sectie, std::string_view sleutel, std::string_view waarde) override {
    waarden[std::string(sectie) + "/" + std::string(sleutel)] = std::string(waarde);
  }
  std::map<std::string, std::string> waarden;  // "Sectie/Sleutel" -> value
};

}  // namespace kiekbord::test
