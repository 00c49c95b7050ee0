// The main window `frmKiekbord`: the three-step wizard in which the user
// fills the gallery record, with its menus and commands.
//
// Each step is a page of its own (ui/general_page, ui/photos_page,
// ui/settings_page) that fills itself from the gallery record and reads it
// back; the window keeps the menus, the step switching and the commands.
// What the commands decide and the messages they show come from the core
// (editor/, app/, gallery/). Message boxes, common dialogs, the desktop and
// the settings store are reached through the services handed in, so a test
// drives the whole window without a box on screen.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <QMainWindow>

#include "app/program_settings.h"
#include "app/user_preferences.h"
#include "editor/colour_choice.h"
#include "editor/script_commands.h"
#include "gallery/gallery_script.h"
#include "gallery/script_reader.h"
#include "ui/about_dialog.h"

class QAction;
class QLineEdit;
class QMenu;
class QPushButton;
class QStackedWidget;

namespace kiekbord {

class AlgemenePagina;
class Bureaublad;
class Dialogen;
class FotoPagina;
class InstellingenPagina;
class Meldingen;
class StapKop;
class VoortgangDialoog;

// What the window needs from outside.
struct VensterDiensten {
  ProgramSettings settings;
  Meldingen* meldingen = nullptr;
  Dialogen* dialogen = nullptr;
  Bureaublad* bureaublad = nullptr;
  VoorkeurenOpslag* opslag = nullptr;
  // The operating system's name as the main window stores it (for the
  // lower-case rename and the photo edit commands).
  std::string os_naam;
  // The command line: the program's arguments joined by blanks.
  std::string opdrachtregel;
  // The single-instance test: true when no other copy runs.
  std::function<bool()> enige_exemplaar;
  InfoGegevens info;
  // Today's date, as the script's "Aanmaakdatum" records it.
  std::function<std::chrono::year_month_day()> vandaag;
  // Called with the progress dialog once it shows (screenshots).
  std::function<void(VoortgangDialoog&)> voortgang_geopend;
};

class MainWindow : public QMainWindow, private MapControle {
  Q_OBJECT

 public:
  explicit MainWindow(VensterDiensten diensten, QWidget* ouder = nullptr);
  ~MainWindow() override;

  int stap() const { return stap_; }
  const std::string& scriptPad() const { return script_pad_; }
  const std::string& laatsteDir() const { return laatste_dir_; }
  // The gallery record as the controls hold it now.
  GalleryScript Gegevens() const;

  // The checks of an activation: another running copy (the window then
  // closes), the template sets (first activation only) and the script named
  // on the command line. False when the window closed.
  bool Activeer();

  // The open routine: reads the script at `pad` into the window.
  void OpenScript(const std::string& pad);

  // The commands.
  void Volgende();
  void Vorige();
  void Voltooien();
  void ScriptOpenen();
  void LaatsteScriptOpenen();
  void ScriptOpslaan();
  void ScriptOpslaanAls();
  void FotoToevoegen();
  void FotoVerwijderenUitKiekbord();
  void FotoVerwijderenTotaal();
  void FotoOmhoog();
  void FotoOmlaag();
  void KleurKiezen(KleurRol rol);
  void ToonInfo();
  // The photo edit commands on the selected photo; `richting` is "linksom"
  // or "rechtsom".
  void FotoRoteren(std::string_view richting);
  void FotoVerkleinen();
  void FotoExternBewerken();
  void FotoVernieuwen();
  // Extra, Opties: the options dialog, then the preferences read again.
  void Opties();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  // MapControle: the directory checks the script reader triggers.
  void ControleerInvoerDir(const std::string& directory) override;
  bool ControleerUitvoerDir(const std::string& directory) override;
  void HercontroleerInvoerDir() override;

  void MaakMenus();
  void MaakStappen();
  void ToonStap();
  void ZetNieuweGalerij();
  void VulVenster(const ScriptGelezen& gelezen);
  void ZetLaatsteScript(const std::string& pad);
  void ZetScriptPad(const std::string& pad);
  // The save question before another script opens or the window closes.
  void VraagOpslaan(const std::string& einde);
  // The chosen photo's path in the output directory, when a photo is chosen
  // on step 2.
  std::optional<std::string> GekozenFotoPad() const;
  void ZetFotoCommandos();
  void OpenHelpPagina(const std::string& pagina);
  void Gewijzigd();
  std::chrono::year_month_day Vandaag() const;

  VensterDiensten d_;
  UserPreferences voorkeuren_;
  ScriptBestand bestand_;

  int stap_ = 1;
  std::string script_pad_;
  std::string laatste_dir_;
  bool script_laden_ = false;   // set while a script fills the controls
  bool eerste_activering_ = true;
  bool sluiten_zonder_vragen_ = false;
  bool bezig_ = false;          // a generation runs
  bool vernieuwen_aangezet_ = false;  // an external edit started since the last refresh

  AlgemenePagina* algemeen_;
  FotoPagina* fotos_;
  InstellingenPagina* instellingen_;

  // Menus.
  QMenu* mnuBestand_;
  QAction* mnuBestandScriptOpenen_;
  QAction* mnuBestandScriptOpslaan_;
  QAction* mnuBestandScriptOpslaanAls_;
  QAction* mnuBestandLaatste_;
  QAction* mnuBestandAfsluiten_;
  QMenu* mnuBewerken_;
  QAction* mnuBewerkenOngedaanMaken_;
  QAction* mnuBewerkenFotoToevoegen_;
  QAction* mnuBewerkenFotoVerwijderenGalerij_;
  QAction* mnuBewerkenFotoVerwijderenTotaal_;
  QAction* mnuBewerkenFotoRoterenLinks_;
  QAction* mnuBewerkenFotoRoterenRechts_;
  QAction* mnuBewerkenFotoVerkleinen_;
  QAction* mnuBewerkenFotoExternBewerken_;
  QAction* mnuBewerkenFotoVernieuwen_;
  QMenu* mnuExtra_;
  QAction* mnuExtraOpties_;
  QMenu* mnuHelp_;
  QAction* mnuHelpKiekbordHelp_;
  QAction* mnuHelpStap_;
  QAction* mnuHelpSjablonen_;
  QAction* mnuHelpInfo_;
  QMenu* mnuKleurGebruik_;
  QAction* mnuKleurGebruikTekstOpAchtergrond_;
  QAction* mnuKleurGebruikAchtergrond_;
  QAction* mnuKleurGebruikTekstInKader_;
  QAction* mnuKleurGebruikKader_;

  StapKop* kop_;
  QStackedWidget* stappen_;
  QPushButton* cmdVorige_;
  QPushButton* cmdVolgende_;
  QPushButton* cmdVoltooien_;
  QLineEdit* txtDDE_;
};

}  // namespace kiekbord
