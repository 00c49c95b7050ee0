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
#include "gallery/melding.h"
#include "ui/common_dialogs.h"
#include "ui/desktop_services.h"
#include "ui/message_boxes.h"

namespace kiekbord::test {

class TestMeldingen : public Meldingen {
 public:
  struct Getoond {
    Melding melding;
    bool vraag = false;
  };
  void Toon(QWidget* ouder, const Melding& melding) override;
  bool Vraag(QWidget* ouder, const Melding& melding) override;

  // The answers to the next questions, in order. A question with no answer
  // left counts as "Nee" and is recorded in `onbeantwoord`.
  std::deque<bool> antwoorden;
  std::vector<Getoond> getoond;
  int onbeantwoord = 0;

  // The texts shown, in order.
  std::vector<std::string> Teksten() const;
};

class TestDialogen : public Dialogen {
 public:
  std::string ScriptOpenen(QWidget* ouder, const std::string& map) override;
  std::string ScriptOpslaanAls(QWidget* ouder, const std::string& map, const std::string& naam) override;
  std::string MapKiezen(QWidget* ouder, const std::string& titel, const std::string& map) override;
  std::vector<std::string> FotosKiezen(QWidget* ouder, const std::string& map) override;
  std::optional<QColor> KleurKiezen(QWidget* ouder, const std::string& titel, const QColor& huidig) override;
  std::string FotoprogrammaKiezen(QWidget* ouder, const std::string& huidig) override;

  // What the next dialogs return; empty lists stand for "Annuleren".
  std::deque<std::string> te_openen;
  std::deque<std::string> op_te_slaan;
  std::deque<std::string> mappen;
  std::deque<std::vector<std::string>> fotos;
  std::deque<std::optional<QColor>> kleuren;
  std::deque<std::string> fotoprogrammas;

  // What the dialogs were opened with.
  std::vector<std::string> geopend_in;        // start directory of each file dialog
  std::vector<std::string> voorgestelde_namen;  // file name offered by save as
  std::vector<QColor> kleur_start;             // colour each colour dialog started on
  int aantal = 0;
};

class TestBureaublad : public Bureaublad {
 public:
  void OpenAddress(QWidget* ouder, const std::string& adres, bool lopende_browser) override;
  void OpenLog(QWidget* ouder, const std::string& pad) override;
  std::string FindBrowser(const std::string& adres) override;
  bool StartProgramma(const std::string& programma, const std::vector<std::string>& argumenten) override;
  std::vector<std::string> adressen;
  std::vector<std::string> logs;
  // What FindBrowser answers, and how often it was asked.
  std::string browser = "/usr/bin/firefox";
  int browser_gezocht = 0;
  // The programs started, each with its arguments; `start_lukt` false makes
  // every start fail.
  std::vector<std::vector<std::string>> gestart;
  bool start_lukt = true;
};

class TestOpslag : public VoorkeurenOpslag {
 public:
  std::optional<std::string> Lees(std::string_view sectie, std::string_view sleutel) const override;
  void Schrijf(std::string_view sectie, std::string_view sleutel, std::string_view waarde) override;
  std::map<std::string, std::string> waarden;  // "Sectie/Sleutel" -> value
};

}  // namespace kiekbord::test
