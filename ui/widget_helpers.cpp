#include "ui/widget_helpers.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QMenu>

#include "app/user_preferences.h"

namespace kiekbord {

QString Q(const std::string& tekst) { return QString::fromStdString(tekst); }

QString Q(std::string_view tekst) { return QString::fromUtf8(tekst.data(), static_cast<qsizetype>(tekst.size())); }

std::string S(const QString& tekst) { return tekst.toStdString(); }

QString MenuTekst(const std::string& tekst) { return Q(tekst).replace(QLatin1Char('&'), QStringLiteral("&&")); }

QColor AlsQColor(std::int32_t kleur) { return QColor(kleur & 0xFF, (kleur >> 8) & 0xFF, (kleur >> 16) & 0xFF); }

std::int32_t AlsKleurnummer(const QColor& kleur) { return kleur.red() | (kleur.green() << 8) | (kleur.blue() << 16); }

QAction* Actie(QMenu* menu, const char* naam, const QString& tekst) {
  QAction* actie = menu->addAction(tekst);
  actie->setObjectName(QString::fromLatin1(naam));
  return actie;
}

QLabel* Bijschrift(const QString& tekst, QWidget* buddy, QWidget* ouder) {
  auto* label = new QLabel(tekst, ouder);
  label->setBuddy(buddy);
  return label;
}

void VulKeuzes(QComboBox* lijst, std::span<const std::string_view> keuzes) {
  for (const std::string_view keuze : keuzes) lijst->addItem(Q(keuze));
}

BezigAanwijzer::BezigAanwijzer() { QApplication::setOverrideCursor(Qt::WaitCursor); }

BezigAanwijzer::~BezigAanwijzer() { QApplication::restoreOverrideCursor(); }

void HerstelVensterplek(QWidget& venster, const VoorkeurenOpslag& opslag, int breedte, int hoogte) {
  venster.resize(breedte, hoogte);
  if (const std::optional<std::string> plek = opslag.Lees("Venster", "Geometrie")) {
    venster.restoreGeometry(QByteArray::fromBase64(QByteArray::fromStdString(*plek)));
  }
}

void BewaarVensterplek(const QWidget& venster, VoorkeurenOpslag& opslag) {
  opslag.Schrijf("Venster", "Geometrie", venster.saveGeometry().toBase64().toStdString());
}

}  // namespace kiekbord
