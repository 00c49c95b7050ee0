// Step 1 of the wizard: title, subtitle, date, description, the input and
// output directories and the overview switch.
//
// The page fills itself from the gallery record and writes its fields back
// into one; a directory field shows a directory that is not there in red.
#pragma once

#include <string>
#include <vector>

#include <QGroupBox>

#include "app/program_settings.h"
#include "app/user_preferences.h"
#include "gallery/gallery_script.h"

class QCheckBox;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace kiekbord {

class Dialogen;
class Meldingen;

class AlgemenePagina : public QGroupBox {
  Q_OBJECT

 public:
  AlgemenePagina(const ProgramSettings& settings, Dialogen& dialogen, QWidget* ouder = nullptr);

  // The texts and the overview switch of `g`; the directories are set by the
  // directory checks below.
  void Vul(const GalleryScript& g);
  // Writes the page's fields into `g`.
  void LeesIn(GalleryScript& g) const;

  std::string InvoerDir() const;
  std::string UitvoerDir() const;

  // The directory checks of an opened script: each sets its field; the
  // output check returns whether the directory is there.
  void ZetInvoerDir(const std::string& directory);
  bool ZetUitvoerDir(const std::string& directory);
  void HercontroleerInvoerDir();
  // Colours `veld` red, with a tooltip saying why, when its directory is not
  // there.
  void MapVeldControleren(QLineEdit* veld);
  // Leaving the step: the photos must end up in the output directory under
  // lower-case names (copied from the input directory after a question, or
  // renamed in place); `nieuw` gets the photos the copy brought. The copies
  // are turned upright and lose their location as `voorkeuren` ask. False
  // keeps the wizard on this step, after saying why.
  bool Verlaten(Meldingen& meldingen, const std::string& os_naam, const UserPreferences& voorkeuren,
                std::vector<std::string>& nieuw);

  QLineEdit* txtTitel;
  QLineEdit* txtSubtitel;
  QLineEdit* txtDatum;
  QPlainTextEdit* txtBeschrijving;
  QLineEdit* txtInvoerDir;
  QPushButton* cmdInvoer;
  QLineEdit* txtUitvoerDir;
  QPushButton* cmdUitvoer;
  QCheckBox* chkThumbnails;

 signals:
  // A field of the record was edited.
  void Gewijzigd();

 private:
  void MapKiezen(QLineEdit* veld, const std::string& titel);
  // The output directory must be there and take files before anything is
  // copied into it; a missing one is offered to be made.
  bool UitvoerMapInOrde(Meldingen& meldingen);

  const ProgramSettings& settings_;
  Dialogen& dialogen_;
};

}  // namespace kiekbord
