#include "ui/desktop_services.h"

#include <QDesktopServices>
#include <QDir>
#include <QProcess>
#include <QString>
#include <QStringList>
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

// The first line xdg-mime writes for `argumenten`; empty when it fails.
QString XdgMime(const QStringList& argumenten) {
  QProcess proces;
  proces.start(QStringLiteral("xdg-mime"), argumenten, QIODevice::ReadOnly);
  // xdg-mime answers from files on disk; a desktop that takes longer than
  // this is treated as one without an answer.
  if (!proces.waitForFinished(10000) || proces.exitStatus() != QProcess::NormalExit || proces.exitCode() != 0) {
    proces.kill();
    return {};
  }
  return QString::fromLocal8Bit(proces.readAllStandardOutput()).section(QLatin1Char('\n'), 0, 0).trimmed();
}

std::string Omgeving(const char* naam) { return qEnvironmentVariable(naam).toStdString(); }

}  // namespace

std::optional<std::string> XdgBrowserOpzoeken(const std::string& bestand) {
  QString type = QStringLiteral("text/html");
  if (!bestand.empty()) {
    const QString bestandstype = XdgMime({QStringLiteral("query"), QStringLiteral("filetype"), QString::fromStdString(bestand)});
    if (!bestandstype.isEmpty()) type = bestandstype;
  }
  const std::string id = XdgMime({QStringLiteral("query"), QStringLiteral("default"), type}).toStdString();
  if (id.empty()) return std::nullopt;
  const std::vector<std::string> mappen =
      ApplicatieMappen(QDir::homePath().toStdString(), Omgeving("XDG_DATA_HOME"), Omgeving("XDG_DATA_DIRS"));
  return ProgrammaVanDesktopEntry(id, mappen, Omgeving("PATH")).value_or(id);
}

QtBureaublad::QtBureaublad(Meldingen& meldingen, BrowserOpzoeker opzoeker, Opener opener)
    : meldingen_(meldingen), zoeker_(std::move(opzoeker)), opener_(std::move(opener)) {
  if (!opener_) opener_ = [](const QUrl& url) { return QDesktopServices::openUrl(url); };
}

void QtBureaublad::OpenAddress(QWidget* ouder, const std::string& adres, bool /*lopende_browser*/) {
  const AdresOpenen plan = PlanAdresOpenen(zoeker_.FindBrowser(adres));
  switch (plan.soort) {
    case AdresOpenen::Soort::kNiets: return;
    case AdresOpenen::Soort::kMelding: meldingen_.Toon(ouder, plan.melding); return;
    case AdresOpenen::Soort::kOpenen: break;
  }
  if (!opener_(AlsUrl(adres))) meldingen_.Toon(ouder, AdresNietGeopendMelding(adres));
}

void QtBureaublad::OpenLog(QWidget* ouder, const std::string& pad) {
  if (!opener_(QUrl::fromLocalFile(QString::fromStdString(pad)))) {
    meldingen_.Toon(ouder, {MeldingSoort::kWaarschuwing, "Logbestand " + pad + " kan niet worden geopend."});
  }
}

std::string QtBureaublad::FindBrowser(const std::string& adres) { return zoeker_.FindBrowser(adres); }

bool QtBureaublad::StartProgramma(const std::string& programma, const std::vector<std::string>& argumenten) {
  QStringList lijst;
  for (const std::string& argument : argumenten) lijst << QString::fromStdString(argument);
  return QProcess::startDetached(QString::fromStdString(programma), lijst);
}

}  // namespace kiekbord
