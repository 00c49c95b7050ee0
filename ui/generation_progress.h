// The generation run with progress: `MaakSite` works on a worker thread
// while a modal dialog shows each log line as it is written and a bar for
// the thumbnails (photo i of n). The window behind the dialog takes no input
// but repaints. The files and the log are those of a run on one thread: the
// run itself is unchanged, only its observers post to the dialog.
//
// The dialog stays open when the run has ended, with the whole log, a result
// line and the buttons that answer the finish question; "Annuleren" stops a
// run that is still at work between two steps or pages.
#pragma once

#include <atomic>
#include <functional>
#include <string>

#include <QDialog>

#include "app/program_settings.h"
#include "generator/generation_run.h"

class QLabel;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;

namespace kiekbord {

// The dialog `frmVoortgang`. While the run works it cannot be closed, only
// stopped with "Annuleren"; afterwards Escape and "Sluiten" close it.
class VoortgangDialoog : public QDialog {
  Q_OBJECT

 public:
  explicit VoortgangDialoog(QWidget* ouder);

  // Shows the dialog and runs the generation of the script at `script_pad`
  // on a worker thread. Returns the run's result once the run has ended;
  // the dialog is still on screen then. `geopend`, when given, is called
  // with the dialog once it shows, before the run starts (screenshots and
  // tests).
  SiteResultaat Genereer(const std::string& script_pad, const ProgramSettings& settings,
                         const std::function<void(VoortgangDialoog&)>& geopend = {});

  // The end of the run: `uitslag` and the finish question above the log,
  // with a button `bekijken` (none when empty) and "Sluiten". Returns true
  // when the user chose `bekijken`. Emits Einde() once the buttons show.
  bool VraagNaEinde(const QString& uitslag, const QString& bekijken);

  // Adds one log line to the list.
  void VoegRegelToe(const QString& regel);
  // Thumbnail progress: `klaar` of `totaal` photos.
  void ZetVoortgang(int klaar, int totaal);

  QPlainTextEdit* logRegels() const { return log_; }
  QProgressBar* voortgangsBalk() const { return balk_; }
  // The result line and question shown at the end, as plain text.
  const QString& uitslag() const { return uitslag_; }

 signals:
  // The run has ended and its result shows.
  void Einde();

 protected:
  void reject() override;
  void closeEvent(QCloseEvent* event) override;

 private:
  void Afbreken();

  QLabel* status_;
  QPlainTextEdit* log_;
  QProgressBar* balk_;
  QPushButton* cmdAnnuleren_;
  QPushButton* cmdBekijken_;
  QPushButton* cmdSluiten_;
  QString uitslag_;
  bool klaar_ = false;
  // Set on the window's thread, read by the run's.
  std::atomic<bool> afbreken_{false};
};

}  // namespace kiekbord
