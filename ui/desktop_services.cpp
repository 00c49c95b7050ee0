#include "ui/desktop_services.h"

#include <QDesktopServices>
#include <QString>
#include <QUrl>

#include "ui/message_boxes.h"

namespace kiekbord {
namespace {

// A web address as it is; anything else is a local file.
QUrl AlsUrl(const std::string& adres) {
  const QString tekst = QString::fromStdString(adres);
  if (tekst.contains(QStringLiteral("://"))) return QUrl(tekst);
  return QUrl::fromLocalFile(tekst);
}

}  // namespace

void QtBureaublad::OpenAddress(QWidget* ouder, const std::string& adres, bool /*lopende_browser*/) {
  if (!QDesktopServices::openUrl(AlsUrl(adres))) {
    meldingen_.Toon(ouder, {MeldingSoort::kWaarschuwing, "Internetadres " + adres + " kan niet worden geopend."});
  }
}

void QtBureaublad::OpenLog(QWidget* ouder, const std::string& pad) {
  if (!QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(pad)))) {
    meldingen_.Toon(ouder, {MeldingSoort::kWaarschuwing, "Logbestand " + pad + " kan niet worden geopend."});
  }
}

}  // namespace kiekbord
