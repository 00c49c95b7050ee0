#include "ui/settings_store.h"

#include <QSettings>
#include <QStandardPaths>
#include <QString>

namespace kiekbord {
namespace {

QString Sleutel(std::string_view sectie, std::string_view sleutel) {
  return QString::fromUtf8(sectie.data(), static_cast<qsizetype>(sectie.size())) + QLatin1Char('/') +
         QString::fromUtf8(sleutel.data(), static_cast<qsizetype>(sleutel.size()));
}

}  // namespace

std::string StandaardVoorkeurenBestand() {
  return (QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
          QStringLiteral("/kiekbord/kiekbord.conf"))
      .toStdString();
}

QSettingsOpslag::QSettingsOpslag(const std::string& bestand)
    : settings_(std::make_unique<QSettings>(QString::fromStdString(bestand), QSettings::IniFormat)) {}

QSettingsOpslag::~QSettingsOpslag() = default;

std::optional<std::string> QSettingsOpslag::Lees(std::string_view sectie, std::string_view sleutel) const {
  const QVariant waarde = settings_->value(Sleutel(sectie, sleutel));
  if (!waarde.isValid()) return std::nullopt;
  return waarde.toString().toStdString();
}

void QSettingsOpslag::Schrijf(std::string_view sectie, std::string_view sleutel, std::string_view waarde) {
  settings_->setValue(Sleutel(sectie, sleutel),
                      QString::fromUtf8(waarde.data(), static_cast<qsizetype>(waarde.size())));
  settings_->sync();
}

}  // namespace kiekbord
