#include "ui/options_dialog.h"

#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "app/user_preferences.h"
#include "editor/options_rules.h"
#include "editor/wizard_rules.h"
#include "ui/common_dialogs.h"
#include "ui/desktop_services.h"
#include "ui/message_boxes.h"

namespace kiekbord {
namespace {

QString Q(const std::string& tekst) { return QString::fromStdString(tekst); }

template <typename Widget>
Widget* Benoemd(Widget* widget, const char* naam) {
  widget->setObjectName(QString::fromLatin1(naam));
  return widget;
}

QGroupBox* Frame(const char* naam, const QString& tekst, QWidget* ouder) {
  return Benoemd(new QGroupBox(tekst, ouder), naam);
}

}  // namespace

OptiesDialoog::OptiesDialoog(VoorkeurenOpslag& opslag, const ProgramSettings& settings, Bureaublad& bureaublad,
                             Dialogen& dialogen, Meldingen& meldingen, bool lopende_browser, QWidget* ouder)
    : QDialog(ouder),
      opslag_(opslag),
      settings_(settings),
      bureaublad_(bureaublad),
      dialogen_(dialogen),
      meldingen_(meldingen),
      lopende_browser_(lopende_browser) {
  setObjectName(QStringLiteral("frmOpties"));
  setWindowTitle(QStringLiteral("Kiekbord - Opties"));

  QGroupBox* fraBrowser = Frame("fraBrowser", QStringLiteral("Browser"), this);
  chkIEDynamischAanroepen_ = Benoemd(
      new QCheckBox(QStringLiteral("&Microsoft Internet Explorer dynamisch aanroepen"), fraBrowser),
      "chkIEDynamischAanroepen");
  (new QVBoxLayout(fraBrowser))->addWidget(chkIEDynamischAanroepen_);

  QGroupBox* fraBeveiliging = Frame("fraBeveiliging", QStringLiteral("Beveiliging"), this);
  chkControlevraag_ =
      Benoemd(new QCheckBox(QStringLiteral("&Controlevraag stellen bij afsluiten "), fraBeveiliging), "chkControlevraag");
  (new QVBoxLayout(fraBeveiliging))->addWidget(chkControlevraag_);

  QGroupBox* fraFotosBewerken = Frame("fraFotosBewerken", QStringLiteral("Foto's bewerken"), this);
  chkBackupBijRoteren_ = Benoemd(
      new QCheckBox(QStringLiteral("&Backup maken van originele foto bij roteren en verkleinen"), fraFotosBewerken),
      "chkBackupBijRoteren");
  chkRechtopBijKopieren_ = Benoemd(
      new QCheckBox(QStringLiteral("Foto's &rechtop zetten bij kopiëren"), fraFotosBewerken), "chkRechtopBijKopieren");
  chkZonderLocatieBijKopieren_ =
      Benoemd(new QCheckBox(QStringLiteral("Locatiegegevens &verwijderen bij kopiëren"), fraFotosBewerken),
              "chkZonderLocatieBijKopieren");
  lblFotoprogramma_ = Benoemd(new QLabel(QStringLiteral("Extern fotoprogramma"), fraFotosBewerken), "lblFotoprogramma");
  txtFotoProgramma_ = Benoemd(new QLineEdit(fraFotosBewerken), "txtFotoProgramma");
  cmdFotoProgramma_ = Benoemd(new QPushButton(QStringLiteral("Bladeren..."), fraFotosBewerken), "cmdFotoProgramma");
  lblFotoprogramma_->setBuddy(txtFotoProgramma_);
  txtFotoProgramma_->setMinimumWidth(260);
  auto* fotos = new QGridLayout(fraFotosBewerken);
  fotos->addWidget(chkBackupBijRoteren_, 0, 0, 1, 2);
  fotos->addWidget(chkRechtopBijKopieren_, 1, 0, 1, 2);
  fotos->addWidget(chkZonderLocatieBijKopieren_, 2, 0, 1, 2);
  fotos->addWidget(lblFotoprogramma_, 3, 0, 1, 2);
  fotos->addWidget(txtFotoProgramma_, 4, 0);
  fotos->addWidget(cmdFotoProgramma_, 4, 1);
  fotos->setColumnStretch(0, 1);

  QGroupBox* fraScriptsOpslaan =
      Frame("fraScriptsOpslaan", QStringLiteral("Nieuwe scripts standaard opslaan in"), this);
  optOpslaanUitvoer_ = Benoemd(new QRadioButton(QStringLiteral("&Uitvoerdirectory"), fraScriptsOpslaan), "optOpslaanUitvoer");
  optOpslaanLaatste_ =
      Benoemd(new QRadioButton(QStringLiteral("&Laatst gebruikte directory"), fraScriptsOpslaan), "optOpslaanLaatste");
  auto* scripts = new QVBoxLayout(fraScriptsOpslaan);
  scripts->addWidget(optOpslaanUitvoer_);
  scripts->addWidget(optOpslaanLaatste_);

  cmdOK_ = Benoemd(new QPushButton(QStringLiteral("&OK"), this), "cmdOK");
  cmdOK_->setDefault(true);
  cmdAnnuleren_ = Benoemd(new QPushButton(QStringLiteral("&Annuleren"), this), "cmdAnnuleren");
  cmdHelp_ = Benoemd(new QPushButton(QStringLiteral("&Help"), this), "cmdHelp");

  auto* knoppen = new QHBoxLayout;
  knoppen->addWidget(cmdHelp_);
  knoppen->addStretch(1);
  knoppen->addWidget(cmdOK_);
  knoppen->addWidget(cmdAnnuleren_);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(fraBrowser);
  layout->addWidget(fraBeveiliging);
  layout->addWidget(fraFotosBewerken);
  layout->addWidget(fraScriptsOpslaan);
  layout->addSpacing(4);
  layout->addLayout(knoppen);
  layout->setSizeConstraint(QLayout::SetFixedSize);

  const OptiesScherm scherm =
      OptiesBijOpenen(LeesVoorkeuren(opslag_), settings_.extern_bewerken, bureaublad_.FindBrowser(""));
  chkIEDynamischAanroepen_->setChecked(scherm.ie_dynamisch);
  chkControlevraag_->setChecked(scherm.controlevraag);
  chkBackupBijRoteren_->setChecked(scherm.backup_bij_roteren);
  chkRechtopBijKopieren_->setChecked(scherm.rechtop_kopieren);
  chkZonderLocatieBijKopieren_->setChecked(scherm.zonder_locatie);
  (scherm.opslaan_laatste ? optOpslaanLaatste_ : optOpslaanUitvoer_)->setChecked(true);
  chkIEDynamischAanroepen_->setEnabled(scherm.ie_dynamisch_aan);
  txtFotoProgramma_->setText(Q(scherm.fotoprogramma));
  for (QWidget* w : std::initializer_list<QWidget*>{lblFotoprogramma_, txtFotoProgramma_, cmdFotoProgramma_}) {
    w->setEnabled(scherm.fotoprogramma_aan);
  }

  connect(cmdFotoProgramma_, &QPushButton::clicked, this, &OptiesDialoog::FotoprogrammaKiezen);
  connect(cmdOK_, &QPushButton::clicked, this, &OptiesDialoog::Ok);
  connect(cmdAnnuleren_, &QPushButton::clicked, this, &QDialog::reject);
  connect(cmdHelp_, &QPushButton::clicked, this, &OptiesDialoog::Help);
}

// A photo program is proposed whenever the dialog becomes active with an
// empty box, so also after the user emptied it and came back from another
// window.
bool OptiesDialoog::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate) StelFotoprogrammaVoor();
  return QDialog::event(event);
}

void OptiesDialoog::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (gecentreerd_) return;
  gecentreerd_ = true;
  CentreerOpScherm(*this);
  // Where no window manager activates the dialog, showing it counts.
  StelFotoprogrammaVoor();
}

void OptiesDialoog::StelFotoprogrammaVoor() {
  OptiesScherm scherm;
  scherm.fotoprogramma_aan = settings_.extern_bewerken;
  scherm.fotoprogramma = txtFotoProgramma_->text().toStdString();
  if (!FotoprogrammaVoorstellen(scherm)) return;
  const std::string voorstel = kiekbord::StelFotoprogrammaVoor(qEnvironmentVariable("PATH").toStdString());
  if (!voorstel.empty()) txtFotoProgramma_->setText(Q(voorstel));
}

void OptiesDialoog::FotoprogrammaKiezen() {
  const std::string gekozen = dialogen_.FotoprogrammaKiezen(this, txtFotoProgramma_->text().toStdString());
  if (!gekozen.empty()) txtFotoProgramma_->setText(Q(gekozen));
}

void OptiesDialoog::Ok() {
  OptiesScherm scherm;
  scherm.ie_dynamisch = chkIEDynamischAanroepen_->isChecked();
  scherm.controlevraag = chkControlevraag_->isChecked();
  scherm.backup_bij_roteren = chkBackupBijRoteren_->isChecked();
  scherm.rechtop_kopieren = chkRechtopBijKopieren_->isChecked();
  scherm.zonder_locatie = chkZonderLocatieBijKopieren_->isChecked();
  scherm.opslaan_laatste = optOpslaanLaatste_->isChecked();
  scherm.fotoprogramma = txtFotoProgramma_->text().toStdString();
  SchrijfVoorkeuren(opslag_, OptiesBijOk(scherm));
  accept();
}

void OptiesDialoog::Help() {
  const HelpAdres help = HelpPaginaAdres(settings_, std::string(kOptiesHelpPagina));
  if (help.fout) {
    meldingen_.Toon(this, *help.fout);
    return;
  }
  bureaublad_.OpenAddress(this, help.adres, lopende_browser_);
}

}  // namespace kiekbord
