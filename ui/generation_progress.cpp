#include "ui/generation_progress.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDialogButtonBox>
#include <QEventLoop>
#include <QFontDatabase>
#include <QFutureWatcher>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>
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
  status_->setWordWrap(true);
  status_->setTextInteractionFlags(Qt::TextSelectableByMouse);

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

  auto* knoppen = new QDialogButtonBox(this);
  cmdBekijken_ = knoppen->addButton(QString(), QDialogButtonBox::AcceptRole);
  cmdBekijken_->setObjectName(QStringLiteral("cmdBekijken"));
  cmdSluiten_ = knoppen->addButton(QStringLiteral("&Sluiten"), QDialogButtonBox::RejectRole);
  cmdSluiten_->setObjectName(QStringLiteral("cmdSluiten"));
  cmdAnnuleren_ = knoppen->addButton(QStringLiteral("&Annuleren"), QDialogButtonBox::ActionRole);
  cmdAnnuleren_->setObjectName(QStringLiteral("cmdAnnuleren"));
  cmdBekijken_->hide();
  cmdSluiten_->hide();
  connect(cmdBekijken_, &QPushButton::clicked, this, &QDialog::accept);
  connect(cmdSluiten_, &QPushButton::clicked, this, &QDialog::reject);
  connect(cmdAnnuleren_, &QPushButton::clicked, this, &VoortgangDialoog::Afbreken);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(status_);
  layout->addWidget(log_, 1);
  layout->addWidget(balk_);
  layout->addWidget(knoppen);
  resize(720, 420);
}

void VoortgangDialoog::VoegRegelToe(const QString& regel) { log_->appendPlainText(regel); }

void VoortgangDialoog::ZetVoortgang(int klaar, int totaal) {
  if (totaal <= 0) return;
  balk_->setFormat(QStringLiteral("Thumbnail %1 van %2").arg(klaar).arg(totaal));
  balk_->setRange(0, totaal);
  balk_->setValue(klaar);
}

// The run looks at the flag between its steps and pages, so it stops with
// every file it wrote whole.
void VoortgangDialoog::Afbreken() {
  afbreken_ = true;
  cmdAnnuleren_->setEnabled(false);
  status_->setText(QStringLiteral("De generatie stopt na de foto of pagina waaraan zij nu werkt..."));
}

// Escape and the window's close button do nothing while the run works.
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

SiteResultaat VoortgangDialoog::Genereer(const std::string& script_pad, const ProgramSettings& settings,
                                         const std::function<void(VoortgangDialoog&)>& geopend) {
  // The run's observers are called on the worker thread; each posts to the
  // dialog, whose thread shows the lines in the order they were written,
  // before the run's end arrives.
  GenerationLog log([this](const std::string& regel) {
    QMetaObject::invokeMethod(
        this, [this, tekst = QString::fromStdString(regel)] { VoegRegelToe(tekst); }, Qt::QueuedConnection);
  });
  // The worker thread cannot show a message box; a thumbnail that fails
  // shows in the log, and its report goes to standard error.
  StderrMelder melder;
  SiteOmgeving omgeving{settings, log, melder};
  omgeving.voortgang = [this](int klaar, int totaal) {
    QMetaObject::invokeMethod(
        this, [this, klaar, totaal] { ZetVoortgang(klaar, totaal); }, Qt::QueuedConnection);
  };
  omgeving.afbreken = [this] { return afbreken_.load(); };

  QFutureWatcher<SiteResultaat> bewaker;
  QEventLoop lus;
  connect(&bewaker, &QFutureWatcher<SiteResultaat>::finished, &lus, &QEventLoop::quit);
  QTimer::singleShot(0, this, [&] {
    if (geopend) geopend(*this);
    bewaker.setFuture(QtConcurrent::run([&script_pad, &omgeving] { return MaakSite(script_pad, omgeving); }));
  });
  QApplication::setOverrideCursor(Qt::WaitCursor);
  show();
  lus.exec();
  QApplication::restoreOverrideCursor();
  bewaker.waitForFinished();
  return bewaker.result();
}

bool VoortgangDialoog::VraagNaEinde(const QString& uitslag, const QString& bekijken) {
  klaar_ = true;
  uitslag_ = uitslag;
  // The result line in bold over the question.
  const QString eerste = uitslag.section(QLatin1Char('\n'), 0, 0), rest = uitslag.section(QLatin1Char('\n'), 1);
  status_->setText(QStringLiteral("<b>%1</b><br>%2")
                       .arg(eerste.toHtmlEscaped(), rest.toHtmlEscaped().replace(QLatin1Char('\n'), QStringLiteral("<br>"))));
  if (balk_->maximum() == 0) {  // no thumbnails: not busy any more
    balk_->setRange(0, 1);
    balk_->setValue(1);
  }
  cmdAnnuleren_->hide();
  cmdBekijken_->setText(bekijken);
  cmdBekijken_->setVisible(!bekijken.isEmpty());
  cmdSluiten_->show();
  QPushButton* standaard = bekijken.isEmpty() ? cmdSluiten_ : cmdBekijken_;
  standaard->setDefault(true);
  standaard->setFocus();
  QMetaObject::invokeMethod(
      this,
      [this] {
        log_->verticalScrollBar()->setValue(log_->verticalScrollBar()->maximum());
        emit Einde();
      },
      Qt::QueuedConnection);
  return exec() == QDialog::Accepted;
}

}  // namespace kiekbord
