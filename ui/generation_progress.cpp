#include "ui/generation_progress.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFontDatabase>
#include <QFutureWatcher>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QVBoxLayout>
#include <QtConcurrent/QtConcurrentRun>

#include "base/status.h"

namespace kiekbord {

VoortgangDialoog::VoortgangDialoog(QWidget* ouder) : QDialog(ouder) {
  setObjectName(QStringLiteral("frmVoortgang"));
  setWindowTitle(QStringLiteral("Kiekbord - Kiekbord aanmaken"));
  setWindowFlags(windowFlags() & ~Qt::WindowCloseButtonHint & ~Qt::WindowContextHelpButtonHint);
  setModal(true);

  status_ = new QLabel(QStringLiteral("De kiekbord wordt aangemaakt. Een ogenblik geduld..."), this);
  status_->setObjectName(QStringLiteral("lblStatus"));

  log_ = new QPlainTextEdit(this);
  log_->setObjectName(QStringLiteral("txtLog"));
  log_->setReadOnly(true);
  log_->setLineWrapMode(QPlainTextEdit::NoWrap);
  log_->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  log_->setFocusPolicy(Qt::NoFocus);

  balk_ = new QProgressBar(this);
  balk_->setObjectName(QStringLiteral("prgThumbnails"));
  balk_->setRange(0, 0);  // busy until the thumbnails report
  balk_->setTextVisible(true);
  balk_->setFormat(QString());

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(status_);
  layout->addWidget(log_, 1);
  layout->addWidget(balk_);
  resize(720, 400);
}

void VoortgangDialoog::VoegRegelToe(const QString& regel) { log_->appendPlainText(regel); }

void VoortgangDialoog::ZetVoortgang(int klaar, int totaal) {
  if (totaal <= 0) return;
  balk_->setFormat(QStringLiteral("Thumbnail %1 van %2").arg(klaar).arg(totaal));
  balk_->setRange(0, totaal);
  balk_->setValue(klaar);
}

// Escape and the window's close button do nothing while the run works: the
// run has no safe point at which to stop.
void VoortgangDialoog::reject() {
  if (klaar_) QDialog::reject();
}

void VoortgangDialoog::closeEvent(QCloseEvent* event) {
  if (klaar_) {
    QDialog::closeEvent(event);
  } else {
    event->ignore();
  }
}

SiteResultaat MaakSiteMetVoortgang(QWidget* ouder, const std::string& script_pad, const ProgramSettings& settings,
                                   const std::function<void(VoortgangDialoog&)>& geopend) {
  VoortgangDialoog dialoog(ouder);
  // The run's observers are called on the worker thread; each posts to the
  // dialog, whose thread shows the lines in the order they were written. The
  // dialog outlives the run, and posts still queued when it goes are dropped.
  GenerationLog log([&dialoog](const std::string& regel) {
    QMetaObject::invokeMethod(
        &dialoog, [&dialoog, tekst = QString::fromStdString(regel)] { dialoog.VoegRegelToe(tekst); },
        Qt::QueuedConnection);
  });
  // The worker thread cannot show a message box; a thumbnail that fails
  // shows in the log, and its report goes to standard error.
  StderrMelder melder;
  SiteOmgeving omgeving{settings, log, melder};
  omgeving.voortgang = [&dialoog](int klaar, int totaal) {
    QMetaObject::invokeMethod(
        &dialoog, [&dialoog, klaar, totaal] { dialoog.ZetVoortgang(klaar, totaal); }, Qt::QueuedConnection);
  };

  QFutureWatcher<SiteResultaat> bewaker;
  QObject::connect(&bewaker, &QFutureWatcher<SiteResultaat>::finished, &dialoog, [&dialoog] {
    dialoog.klaar_ = true;
    dialoog.accept();
  });
  if (geopend) {
    QMetaObject::invokeMethod(&dialoog, [&dialoog, &geopend] { geopend(dialoog); }, Qt::QueuedConnection);
  }
  QApplication::setOverrideCursor(Qt::WaitCursor);
  bewaker.setFuture(QtConcurrent::run([&script_pad, &omgeving] {
    return MaakSite(script_pad, omgeving);
  }));
  dialoog.exec();
  QApplication::restoreOverrideCursor();
  bewaker.waitForFinished();
  return bewaker.result();
}

}  // namespace kiekbord
