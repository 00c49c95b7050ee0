// The resize dialog `frmVerklein`: shows the photo's current size, takes a
// smaller new size (kept in proportion on request) and a quality, and
// shrinks the photo on OK. The rules live in VerkleinModel
// (editor/resize_rules.h); the dialog passes its controls' changes on and
// shows the result.
#pragma once

#include <string>

#include <QDialog>

#include "editor/resize_rules.h"

class QButtonGroup;
class QCheckBox;
class QLineEdit;
class QPushButton;

namespace kiekbord {

class Meldingen;
class VoorkeurenOpslag;

class VerkleinDialoog : public QDialog {
  Q_OBJECT

 public:
  // `foto_pad`: the photo to shrink. `opslag` holds the remembered size,
  // proportions and quality, and the backup preference. A failure of the
  // shrink is shown through `meldingen`.
  VerkleinDialoog(const std::string& foto_pad, VoorkeurenOpslag& opslag, Meldingen& meldingen,
                  QWidget* ouder = nullptr);

  // True once OK has run the shrink, whether or not it succeeded: the
  // caller then shows the photo again.
  bool verkleind() const { return verkleind_; }

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  void BreedteGewijzigd(const QString& tekst);
  void HoogteGewijzigd(const QString& tekst);
  void ToonModel();
  void Ok();

  std::string foto_pad_;
  VoorkeurenOpslag& opslag_;
  Meldingen& meldingen_;
  VerkleinModel model_;
  bool verkleind_ = false;
  bool gecentreerd_ = false;

  QLineEdit* txtBreedteHuidig_;
  QLineEdit* txtHoogteHuidig_;
  QLineEdit* txtBreedteNieuw_;
  QLineEdit* txtHoogteNieuw_;
  QCheckBox* chkVerhouding_;
  QButtonGroup* optKwaliteit_;
  QPushButton* cmdOK_;
  QPushButton* cmdAnnuleren_;
};

}  // namespace kiekbord
