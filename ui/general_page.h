// Step 1 of the wizard: title, subtitle, date, description, the input and
// output directories and the overview switch.
//
// The page fills itself from the gallery record and writes its fields back
// into one; a directory field shows a directory that is not there in red.
#pragma once

#include <string>

#include <QGroupBox>

#include "app/program_settings.h"
#include "gallery/gallery_script.h"

class QCheckBox;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

namespace kiekbord {

class Dialogen;

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

  const ProgramSettings& settings_;
  Dialogen& dialogen_;
};

}  // namespace kiekbord
