#include "ui/about_dialog.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPixmap>
#include <QPushButton>
#include <QVBoxLayout>

namespace kiekbord {
namespace {

QLabel* Label(const QString& naam, const QString& tekst, QWidget* ouder) {
  auto* label = new QLabel(tekst, ouder);
  label->setObjectName(naam);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

QString Q(const std::string& tekst) { return QString::fromStdString(tekst); }

}  // namespace

InfoDialoog::InfoDialoog(const InfoGegevens& gegevens, QWidget* ouder) : QDialog(ouder) {
  setObjectName(QStringLiteral("frmInfo"));
  setWindowTitle(QStringLiteral("Kiekbord - Info"));

  auto* icoon = new QLabel(this);
  icoon->setObjectName(QStringLiteral("imgIcoon"));
  const QPixmap plaatje(Q(gegevens.icoon));
  if (!plaatje.isNull()) icoon->setPixmap(plaatje.scaled(48, 48, Qt::KeepAspectRatio, Qt::SmoothTransformation));
  icoon->setAlignment(Qt::AlignTop);

  auto* titel = Label(QStringLiteral("lblProgramma"), Q(gegevens.programma), this);
  QFont vet = titel->font();
  vet.setBold(true);
  vet.setPointSizeF(vet.pointSizeF() * 1.3);
  titel->setFont(vet);

  auto* gegevensRaster = new QGridLayout;
  gegevensRaster->addWidget(new QLabel(QStringLiteral("Revisie:"), this), 0, 0);
  gegevensRaster->addWidget(Label(QStringLiteral("lblRevisie"), QString::number(gegevens.revisie), this), 0, 1);
  gegevensRaster->addWidget(new QLabel(QStringLiteral("Besturingssysteem:"), this), 1, 0);
  gegevensRaster->addWidget(Label(QStringLiteral("lblOsNaam"), Q(gegevens.os_naam), this), 1, 1);
  QStringList bibliotheken;
  for (const std::string& naam : gegevens.bibliotheken) bibliotheken << Q(naam);
  auto* bibLabel = new QLabel(QStringLiteral("Beeldbibliotheken:"), this);
  bibLabel->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  gegevensRaster->addWidget(bibLabel, 2, 0);
  gegevensRaster->addWidget(Label(QStringLiteral("lblBibliotheken"), bibliotheken.join(QLatin1Char('\n')), this), 2, 1);
  gegevensRaster->addWidget(new QLabel(QStringLiteral("Qt:"), this), 3, 0);
  gegevensRaster->addWidget(Label(QStringLiteral("lblQt"), QString::fromLatin1(qVersion()), this), 3, 1);
  gegevensRaster->setColumnStretch(1, 1);
  gegevensRaster->setHorizontalSpacing(12);

  auto* tekst = new QVBoxLayout;
  tekst->addWidget(titel);
  tekst->addWidget(new QLabel(QStringLiteral("Maakt van een map met foto's een webgalerij."), this));
  tekst->addSpacing(8);
  tekst->addLayout(gegevensRaster);

  auto* boven = new QHBoxLayout;
  boven->addWidget(icoon);
  boven->addSpacing(8);
  boven->addLayout(tekst, 1);

  auto* knoppen = new QDialogButtonBox(this);
  QPushButton* ok = knoppen->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole);
  ok->setObjectName(QStringLiteral("cmdOK"));
  ok->setDefault(true);
  connect(knoppen, &QDialogButtonBox::accepted, this, &QDialog::accept);

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(boven);
  layout->addSpacing(8);
  layout->addWidget(knoppen);
  layout->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace kiekbord
