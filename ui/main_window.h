// The main window `frmKiekbord`: the three-step wizard in which the user
// fills the gallery record, with its menus and commands.
//
// The window holds the record in its controls, gathers input and shows
// results; what the commands decide and every text they show come from the
// core (editor/, app/, gallery/). Message boxes, common dialogs, the desktop
// and the settings store are reached through the services handed in, so a
// test drives the whole window without a box on screen.
#pragma once

#include <chrono>
#include <functional>
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
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QMenu;
class QPlainTextEdit;
class QPushButton;
class QStackedWidget;
class QTimer;

namespace kiekbord {

class Bureaublad;
class Dialogen;
class Meldingen;
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
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  // MapControle: the directory checks the script reader triggers.
  void ControleerInvoerDir(const std::string& directory) override;
  bool ControleerUitvoerDir(const std::string& directory) override;
  void HercontroleerInvoerDir() override;

  void MaakMenus();
  QWidget* MaakStapAlgemeen();
  QWidget* MaakStapFotobijschriften();
  QWidget* MaakStapInstellingen();
  void VerbindWijzigingen();

  void ToonStap();
  void ZetNieuweGalerij();
  void VulVenster(const ScriptGelezen& gelezen);
  void ZetLaatsteScript(const std::string& pad);
  // The save question before another script opens or the window closes.
  void VraagOpslaan(const std::string& einde);
  bool Stap1Verlaten(std::vector<std::string>& nieuw);
  bool UitvoerMapInOrde();
  void VernieuwFotoLijst(const std::vector<std::string>& nieuw);
  void ToonFotoLijst(int selectie);
  void FotoGeselecteerd(int rij);
  void ToonVoorbeeld();
  void BijschriftBewerkt(const QString& tekst);
  void ZetFotoCommandos();
  void ToonKleuren();
  void OpenHelpPagina(const std::string& pagina);
  void MapVeldControleren(QLineEdit* veld);
  void MapKiezen(QLineEdit* veld, const std::string& titel);
  void Gewijzigd();
  std::chrono::year_month_day Vandaag() const;

  VensterDiensten d_;
  UserPreferences voorkeuren_;
  ScriptBestand bestand_;

  int stap_ = 1;
  std::string script_pad_;
  std::string laatste_dir_;
  std::string onthouden_invoer_dir_;
  std::string onthouden_uitvoer_dir_;
  bool script_laden_ = false;   // set while a script fills the controls
  bool eerste_activering_ = true;
  bool sluiten_zonder_vragen_ = false;
  bool bezig_ = false;          // a generation runs
  bool vernieuwen_aangezet_ = false;  // an external edit started since the last refresh

  std::vector<PhotoEntry> fotos_;
  GalleryScript kleuren_;       // only the four colours are used

  // Menus.
  QMenu* mnuBestand_;
  QAction* mnuBestandScriptOpenen_;
  QAction* mnuBestandScriptOpslaan_;
  QAction* mnuBestandScriptOpslaanAls_;
  QAction* mnuBestandLaatste_;
  QAction* mnuBestandAfsluiten_;
  QMenu* mnuBewerken_;
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

  // Frames and controls.
  QStackedWidget* stappen_;
  QGroupBox* fraAlgemeen_;
  QGroupBox* fraFotobijschriften_;
  QGroupBox* fraInstellingen_;
  QLineEdit* txtTitel_;
  QLineEdit* txtSubtitel_;
  QLineEdit* txtDatum_;
  QPlainTextEdit* txtBeschrijving_;
  QLineEdit* txtInvoerDir_;
  QPushButton* cmdInvoer_;
  QLineEdit* txtUitvoerDir_;
  QPushButton* cmdUitvoer_;
  QCheckBox* chkThumbnails_;
  QListWidget* lstFotos_;
  QListWidget* lstBijschriften_;
  QListWidget* flstDirFotos_;
  QLineEdit* txtBijschrift_;
  QLabel* imgFoto_;
  QLabel* lblAantalFotos_;
  QLabel* lblFotoInfo_;
  QPushButton* cmdFotoOmhoog_;
  QPushButton* cmdFotoOmlaag_;
  QComboBox* cboPresentatie_;
  QComboBox* cboSjabloon_;
  QComboBox* cboPositieFotos_;
  QLineEdit* txtAantalFotosPerPagina_;
  QComboBox* cboFotosZonderBijschrift_;
  QComboBox* cboLetterTypeTitels_;
  QComboBox* cboLetterTypeBijschriften_;
  QComboBox* cboLetterGrootteBijschriften_;
  QComboBox* cboLetterStijlBijschriften_;
  QComboBox* cboPositieBijschriften_;
  QPushButton* cmdKleurGebruik_;
  QLabel* lblKleurVoorbeeld01_;
  QLabel* lblKleurVoorbeeld02_;
  QPushButton* cmdVorige_;
  QPushButton* cmdVolgende_;
  QPushButton* cmdVoltooien_;
  QLineEdit* txtDDE_;
  QTimer* voorbeeldTimer_;
};

}  // namespace kiekbord
