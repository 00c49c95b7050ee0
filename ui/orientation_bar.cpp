#include "ui/orientation_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/widget_helpers.h"

namespace kiekbord {

OrientatieBalk::OrientatieBalk(QWidget* ouder) : QWidget(ouder) {
  lblKopieen = Benoemd(new QLabel(this), "lblKopieen");
  lblKopieen->setWordWrap(true);
  cmdRechtopZetten = Benoemd(new QPushButton(QStringLiteral("&Rechtop zetten"), this), "cmdRechtopZetten");
  cmdAlleRechtopZetten =
      Benoemd(new QPushButton(QStringLiteral("&Alle rechtop zetten"), this), "cmdAlleRechtopZetten");
  cmdRechtopZetten->setToolTip(QStringLiteral("Zet de gekozen foto rechtop zoals de camera hem opsloeg"));
  cmdAlleRechtopZetten->setToolTip(QStringLiteral("Zet alle gedraaid opgeslagen foto's rechtop"));

  auto* knoppen = new QHBoxLayout;
  knoppen->addWidget(cmdRechtopZetten);
  knoppen->addWidget(cmdAlleRechtopZetten);
  knoppen->addStretch(1);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(lblKopieen);
  layout->addLayout(knoppen);

  connect(cmdRechtopZetten, &QPushButton::clicked, this, [this] { emit RechtopGevraagd(false); });
  connect(cmdAlleRechtopZetten, &QPushButton::clicked, this, [this] { emit RechtopGevraagd(true); });
}

void OrientatieBalk::Toon(const std::string& tekst, bool gekozen_gedraaid, bool een_gedraaid) {
  lblKopieen->setText(Q(tekst));
  cmdRechtopZetten->setEnabled(gekozen_gedraaid);
  cmdAlleRechtopZetten->setEnabled(een_gedraaid);
}

}  // namespace kiekbord
