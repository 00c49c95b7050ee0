#include "ui/resize_dialog.h"

#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QValidator>
#include <QVBoxLayout>

#include "editor/photo_edit.h"
#include "images/photo_properties.h"
#include "ui/common_dialogs.h"
#include "ui/message_boxes.h"

namespace kiekbord {
namespace {

QString Q(const std::string& tekst) { return QString::fromStdString(tekst); }

// The new-size boxes take digits and "." only: typed, pasted or dropped,
// anything else is refused.
class ToetsFilter : public QValidator {
 public:
  using QValidator::QValidator;
  State validate(QString& invoer, int&) const override {
    for (const QChar teken : invoer) {
      if (!IsToegestaanTeken(teken.unicode())) return Invalid;
    }
    return Acceptable;
  }
};

QLineEdit* Vak(const char* naam, QWidget* ouder) {
  auto* vak = new QLineEdit(ouder);
  vak->setObjectName(QString::fromLatin1(naam));
  vak->setAlignment(Qt::AlignRight);
  // Room for five digits, the most a side can have.
  vak->setFixedWidth(vak->fontMetrics().horizontalAdvance(QStringLiteral("000000")) + 16);
  return vak;
}

QLineEdit* Weergave(const char* naam, QWidget* ouder) {
  QLineEdit* vak = Vak(naam, ouder);
  vak->setReadOnly(true);
  vak->setFocusPolicy(Qt::NoFocus);
  QPalette palet = vak->palette();
  palet.setColor(QPalette::Base, palet.color(QPalette::Window));
  vak->setPalette(palet);
  return vak;
}

}  // namespace

VerkleinDialoog::VerkleinDialoog(const std::string& foto_pad, VoorkeurenOpslag& opslag, Meldingen& meldingen,
                                 QWidget* ouder)
    : QDialog(ouder),
      foto_pad_(foto_pad),
      opslag_(opslag),
      meldingen_(meldingen),
      model_(BepaalAfmetingen(foto_pad), LeesVerkleinInstellingen(opslag)) {
  setObjectName(QStringLiteral("frmVerklein"));
  setWindowTitle(QStringLiteral("Kiekbord - Foto verkleinen"));

  txtBreedteHuidig_ = Weergave("txtBreedteHuidig", this);
  txtHoogteHuidig_ = Weergave("txtHoogteHuidig", this);
  txtBreedteNieuw_ = Vak("txtBreedteNieuw", this);
  txtHoogteNieuw_ = Vak("txtHoogteNieuw", this);
  for (QLineEdit* vak : {txtBreedteNieuw_, txtHoogteNieuw_}) {
    vak->setValidator(new ToetsFilter(vak));
    vak->installEventFilter(this);
  }
  chkVerhouding_ = new QCheckBox(QStringLiteral("&Verhouding behouden"), this);
  chkVerhouding_->setObjectName(QStringLiteral("chkVerhouding"));

  auto* fraKwaliteit = new QGroupBox(QStringLiteral("Kwaliteit"), this);
  fraKwaliteit->setObjectName(QStringLiteral("fraKwaliteit"));
  optKwaliteit_ = new QButtonGroup(this);
  optKwaliteit_->setObjectName(QStringLiteral("optKwaliteit"));
  auto* kwaliteiten = new QHBoxLayout(fraKwaliteit);
  const QString teksten[] = {QStringLiteral("&Hoog (100)"), QStringLiteral("&Gemiddeld (80)"),
                             QStringLiteral("&Laag (60)")};
  for (int i = 0; i < 3; ++i) {
    auto* optie = new QRadioButton(teksten[i], fraKwaliteit);
    optie->setObjectName(QStringLiteral("optKwaliteit%1").arg(i));
    optKwaliteit_->addButton(optie, i);
    kwaliteiten->addWidget(optie);
  }
  kwaliteiten->addStretch(1);

  cmdOK_ = new QPushButton(QStringLiteral("&OK"), this);
  cmdOK_->setObjectName(QStringLiteral("cmdOK"));
  cmdOK_->setDefault(true);
  cmdAnnuleren_ = new QPushButton(QStringLiteral("&Annuleren"), this);
  cmdAnnuleren_->setObjectName(QStringLiteral("cmdAnnuleren"));

  auto* fraAfmetingen = new QGroupBox(QStringLiteral("Afmetingen in pixels"), this);
  fraAfmetingen->setObjectName(QStringLiteral("fraAfmetingen"));
  auto* raster = new QGridLayout(fraAfmetingen);
  const auto kop = [&](const QString& tekst, int kolom) {
    auto* label = new QLabel(tekst, fraAfmetingen);
    label->setAlignment(Qt::AlignCenter);
    raster->addWidget(label, 0, kolom);
  };
  kop(QStringLiteral("Breedte"), 1);
  kop(QStringLiteral("Hoogte"), 3);
  auto* nieuw = new QLabel(QStringLiteral("&Nieuw:"), fraAfmetingen);
  nieuw->setBuddy(txtBreedteNieuw_);
  raster->addWidget(new QLabel(QStringLiteral("Huidig:"), fraAfmetingen), 1, 0);
  raster->addWidget(txtBreedteHuidig_, 1, 1);
  raster->addWidget(new QLabel(QStringLiteral("x"), fraAfmetingen), 1, 2, Qt::AlignCenter);
  raster->addWidget(txtHoogteHuidig_, 1, 3);
  raster->addWidget(nieuw, 2, 0);
  raster->addWidget(txtBreedteNieuw_, 2, 1);
  raster->addWidget(new QLabel(QStringLiteral("x"), fraAfmetingen), 2, 2, Qt::AlignCenter);
  raster->addWidget(txtHoogteNieuw_, 2, 3);
  raster->addWidget(chkVerhouding_, 3, 1, 1, 3);
  raster->setColumnStretch(4, 1);

  auto* knoppen = new QHBoxLayout;
  knoppen->addStretch(1);
  knoppen->addWidget(cmdOK_);
  knoppen->addWidget(cmdAnnuleren_);

  auto* layout = new QVBoxLayout(this);
  layout->addWidget(fraAfmetingen);
  layout->addWidget(fraKwaliteit);
  layout->addSpacing(4);
  layout->addLayout(knoppen);
  layout->setSizeConstraint(QLayout::SetFixedSize);

  // The boxes as the dialog loads, before any change is passed on.
  txtBreedteHuidig_->setText(QString::number(model_.huidige_breedte()));
  txtHoogteHuidig_->setText(QString::number(model_.huidige_hoogte()));
  txtBreedteNieuw_->setText(Q(model_.breedte()));
  txtHoogteNieuw_->setText(Q(model_.hoogte()));
  chkVerhouding_->setChecked(model_.verhouding());
  if (QAbstractButton* optie = optKwaliteit_->button(model_.kwaliteit_index())) optie->setChecked(true);
  cmdOK_->setEnabled(model_.OkAan());
  txtBreedteNieuw_->setFocus();

  connect(txtBreedteNieuw_, &QLineEdit::textChanged, this, &VerkleinDialoog::BreedteGewijzigd);
  connect(txtHoogteNieuw_, &QLineEdit::textChanged, this, &VerkleinDialoog::HoogteGewijzigd);
  connect(chkVerhouding_, &QCheckBox::toggled, this, [this](bool aan) { model_.ZetVerhouding(aan); });
  connect(optKwaliteit_, &QButtonGroup::idClicked, this, [this](int index) { model_.ZetKwaliteit(index); });
  connect(cmdOK_, &QPushButton::clicked, this, &VerkleinDialoog::Ok);
  // Escape reaches reject() as well.
  connect(cmdAnnuleren_, &QPushButton::clicked, this, &QDialog::reject);
}

// The box that gets the focus leads, and shows its text selected so that
// typing replaces it.
bool VerkleinDialoog::eventFilter(QObject* object, QEvent* event) {
  if (event->type() == QEvent::FocusIn && (object == txtBreedteNieuw_ || object == txtHoogteNieuw_)) {
    auto* vak = static_cast<QLineEdit*>(object);
    if (vak == txtBreedteNieuw_) {
      model_.BreedteKrijgtFocus();
    } else {
      model_.HoogteKrijgtFocus();
    }
    // A mouse click places the cursor after the focus arrives; select
    // once it has.
    if (!vak->text().isEmpty()) QTimer::singleShot(0, vak, &QLineEdit::selectAll);
  }
  return QDialog::eventFilter(object, event);
}

void VerkleinDialoog::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (gecentreerd_) return;
  gecentreerd_ = true;
  CentreerOpScherm(*this);
}

void VerkleinDialoog::BreedteGewijzigd(const QString& tekst) {
  model_.BreedteGewijzigd(tekst.toStdString());
  ToonModel();
}

void VerkleinDialoog::HoogteGewijzigd(const QString& tekst) {
  model_.HoogteGewijzigd(tekst.toStdString());
  ToonModel();
}

// A box the model changed gets its new text, which passes through its own
// change handler once more; as it does not lead, that changes nothing else.
void VerkleinDialoog::ToonModel() {
  if (txtBreedteNieuw_->text().toStdString() != model_.breedte()) txtBreedteNieuw_->setText(Q(model_.breedte()));
  if (txtHoogteNieuw_->text().toStdString() != model_.hoogte()) txtHoogteNieuw_->setText(Q(model_.hoogte()));
  cmdOK_->setEnabled(model_.OkAan());
}

void VerkleinDialoog::Ok() {
  if (!model_.OkAan()) return;
  const VerkleinOpdracht opdracht = model_.Opdracht();
  const bool backup = BackupVlag(LeesVoorkeuren(opslag_));
  std::vector<Melding> fouten;
  {
    QApplication::setOverrideCursor(Qt::WaitCursor);
    FoutMeldingen verzameld;
    // A failure has been reported to `verzameld` and is shown below.
    static_cast<void>(VerkleinFoto(foto_pad_, opdracht, backup, verzameld));
    fouten = verzameld.meldingen();
    QApplication::restoreOverrideCursor();
  }
  for (const Melding& fout : fouten) meldingen_.Toon(this, fout);
  // Set after a failed shrink too: the caller shows the photo again either
  // way.
  verkleind_ = true;
  SchrijfVerkleinInstellingen(opslag_, opdracht.te_onthouden);
  accept();
}

}  // namespace kiekbord
