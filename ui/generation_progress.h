// The generation run with progress: `MaakSite` works on a worker thread
// while a modal dialog shows each log line as it is written and a bar for
// the thumbnails (photo i of n). The window behind the dialog takes no input
// but repaints. The files and the log are those of a run on one thread: the
// run itself is unchanged, only its observers post to the dialog.
#pragma once

#include <string>

#include <QDialog>

#include "app/program_settings.h"
#include "generator/generation_run.h"

class QLabel;
class QPlainTextEdit;
class QProgressBar;

namespace kiekbord {

// The dialog `frmVoortgang`. It cannot be closed by the user: it closes
// itself when the run ends.
class VoortgangDialoog : public QDialog {
  Q_OBJECT

 public:
  explicit VoortgangDialoog(QWidget* ouder);

  // Adds one log line to the list.
  void VoegRegelToe(const QString& regel);
  // Thumbnail progress: `klaar` of `totaal` photos.
  void ZetVoortgang(int klaar, int totaal);

  QPlainTextEdit* logRegels() const { return log_; }
  QProgressBar* voortgangsBalk() const { return balk_; }

 protected:
  void reject() override;
  void closeEvent(QCloseEvent* event) override;

 private:
  QLabel* status_;
  QPlainTextEdit* log_;
  QProgressBar* balk_;
  bool klaar_ = false;

  friend SiteResultaat MaakSiteMetVoortgang(QWidget*, const std::string&, const ProgramSettings&,
                                            const std::function<void(VoortgangDialoog&)>&);
};

// Runs the generation of the script at `script_pad` while the progress
// dialog is shown over `ouder`, and returns the run's result once the dialog
// has closed. `geopend`, when given, is called with the dialog once it is on
// screen (screenshots and tests).
SiteResultaat MaakSiteMetVoortgang(QWidget* ouder, const std::string& script_pad, const ProgramSettings& settings,
                                   const std::function<void(VoortgangDialoog&)>& geopend = {});

}  // namespace kiekbord
