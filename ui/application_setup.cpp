#include "ui/application_setup.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

namespace kiekbord {

bool RichtToepassingIn(QTranslator& qt_vertaling) {
  QApplication::setApplicationName(QStringLiteral("kiekbord"));
  QApplication::setDesktopFileName(QStringLiteral("kiekbord"));
  // Month names in the file dialogs' date column, and other dates and
  // numbers Qt writes, in Dutch as well.
  QLocale::setDefault(QLocale(QLocale::Dutch, QLocale::Netherlands));
  if (!qt_vertaling.load(QStringLiteral("qtbase_nl"), QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    return false;
  }
  QApplication::installTranslator(&qt_vertaling);
  return true;
}

}  // namespace kiekbord
