// The options dialog `frmOpties`: the user's preferences, read from the
// per-user settings store as it opens and written back by OK. What its
// controls show and what OK saves is decided in editor/options_rules.h.
#pragma once

#include <QDialog>

#include "app/program_settings.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace kiekbord {

class Bureaublad;
class Dialogen;
class Meldingen;
class VoorkeurenOpslag;

class OptiesDialoog : public QDialog {
  Q_OBJECT

 public:
  // `settings`: the program settings (ExternBewerken, the help pages).
  // `bureaublad` finds the browser and opens the help page; `dialogen`
  // chooses the photo program; `meldingen` shows the help page's messages.
  // `lopende_browser` is the main window's flag passed on when the help page
  // opens.
  OptiesDialoog(VoorkeurenOpslag& opslag, const ProgramSettings& settings, Bureaublad& bureaublad, Dialogen& dialogen,
                Meldingen& meldingen, bool lopende_browser, QWidget* ouder = nullptr);

 protected:
  bool event(QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void StelFotoprogrammaVoor();
  void FotoprogrammaKiezen();
  void Ok();
  void Help();

  VoorkeurenOpslag& opslag_;
  const ProgramSettings& settings_;
  Bureaublad& bureaublad_;
  Dialogen& dialogen_;
  Meldingen& meldingen_;
  bool lopende_browser_;
  bool gecentreerd_ = false;

  QCheckBox* chkIEDynamischAanroepen_;
  QCheckBox* chkControlevraag_;
  QCheckBox* chkBackupBijRoteren_;
  QCheckBox* chkRechtopBijKopieren_;
  QCheckBox* chkZonderLocatieBijKopieren_;
  QLabel* lblFotoprogramma_;
  QLineEdit* txtFotoProgramma_;
  QPushButton* cmdFotoProgramma_;
  QRadioButton* optOpslaanUitvoer_;
  QRadioButton* optOpslaanLaatste_;
  QPushButton* cmdOK_;
  QPushButton* cmdAnnuleren_;
  QPushButton* cmdHelp_;
};

}  // namespace kiekbord
