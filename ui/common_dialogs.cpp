#include "ui/common_dialogs.h"

#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QScreen>

namespace kiekbord {

void CentreerOpScherm(QWidget& venster) {
  const QScreen* scherm = venster.screen();
  if (scherm == nullptr) return;
  const QRect vlak = scherm->availableGeometry();
  venster.move(vlak.x() + (vlak.width() - venster.frameGeometry().width()) / 2,
               vlak.y() + (vlak.height() - venster.frameGeometry().height()) / 2);
}
namespace {

const QString kScriptFilter = QStringLiteral("Kiekbord script (*.kbs)");

QString Q(const std::string& tekst) { return QString::fromStdString(tekst); }

// Qt's own dialog: the same look and the same Dutch labels on every desktop.
void ZetNederlandseLabels(QFileDialog& dialoog, const QString& accepteren) {
  dialoog.setOption(QFileDialog::DontUseNativeDialog);
  dialoog.setLabelText(QFileDialog::LookIn, QStringLiteral("Zoeken in:"));
  dialoog.setLabelText(QFileDialog::FileName, QStringLiteral("Bestandsnaam:"));
  dialoog.setLabelText(QFileDialog::FileType, QStringLiteral("Bestandstype:"));
  dialoog.setLabelText(QFileDialog::Accept, accepteren);
  dialoog.setLabelText(QFileDialog::Reject, QStringLiteral("Annuleren"));
}

std::string Gekozen(QFileDialog& dialoog) {
  if (dialoog.exec() != QDialog::Accepted || dialoog.selectedFiles().isEmpty()) return {};
  return dialoog.selectedFiles().front().toStdString();
}

}  // namespace

std::string QtDialogen::ScriptOpenen(QWidget* ouder, const std::string& map) {
  QFileDialog dialoog(ouder, QStringLiteral("Kiekbord - Script openen"), Q(map), kScriptFilter);
  ZetNederlandseLabels(dialoog, QStringLiteral("Openen"));
  dialoog.setAcceptMode(QFileDialog::AcceptOpen);
  dialoog.setFileMode(QFileDialog::ExistingFile);
  return Gekozen(dialoog);
}

std::string QtDialogen::ScriptOpslaanAls(QWidget* ouder, const std::string& map, const std::string& naam) {
  QFileDialog dialoog(ouder, QStringLiteral("Kiekbord - Script opslaan als"), Q(map), kScriptFilter);
  ZetNederlandseLabels(dialoog, QStringLiteral("Opslaan"));
  dialoog.setAcceptMode(QFileDialog::AcceptSave);
  dialoog.setFileMode(QFileDialog::AnyFile);
  dialoog.setDefaultSuffix(QStringLiteral("kbs"));
  dialoog.selectFile(QDir(Q(map)).filePath(Q(naam)));
  return Gekozen(dialoog);
}

std::string QtDialogen::MapKiezen(QWidget* ouder, const std::string& titel, const std::string& map) {
  QFileDialog dialoog(ouder, Q(titel), Q(map));
  ZetNederlandseLabels(dialoog, QStringLiteral("Kiezen"));
  dialoog.setFileMode(QFileDialog::Directory);
  dialoog.setOption(QFileDialog::ShowDirsOnly);
  dialoog.setLabelText(QFileDialog::FileName, QStringLiteral("Directory:"));
  return Gekozen(dialoog);
}

std::vector<std::string> QtDialogen::FotosKiezen(QWidget* ouder, const std::string& map) {
  QFileDialog dialoog(ouder, QStringLiteral("Kiekbord - Foto toevoegen"), Q(map),
                      QStringLiteral("Foto's (*.jpg *.JPG *.Jpg)"));
  ZetNederlandseLabels(dialoog, QStringLiteral("Toevoegen"));
  dialoog.setFileMode(QFileDialog::ExistingFiles);
  std::vector<std::string> paden;
  if (dialoog.exec() != QDialog::Accepted) return paden;
  for (const QString& pad : dialoog.selectedFiles()) paden.push_back(pad.toStdString());
  return paden;
}

std::optional<QColor> QtDialogen::KleurKiezen(QWidget* ouder, const std::string& titel, const QColor& huidig) {
  const QColor kleur = QColorDialog::getColor(huidig, ouder, Q(titel));
  if (!kleur.isValid()) return std::nullopt;
  return kleur;
}

// Programs here carry no ".exe": the dialog lists the files that may be
// run, whatever their names.
std::string QtDialogen::FotoprogrammaKiezen(QWidget* ouder, const std::string& huidig) {
  const QString map = huidig.empty() ? QStringLiteral("/usr/bin") : QFileInfo(Q(huidig)).absolutePath();
  QFileDialog dialoog(ouder, QStringLiteral("Kiekbord - Fotoprogramma lokaliseren"), map,
                      QStringLiteral("Programma (*)"));
  ZetNederlandseLabels(dialoog, QStringLiteral("Openen"));
  dialoog.setAcceptMode(QFileDialog::AcceptOpen);
  dialoog.setFileMode(QFileDialog::ExistingFile);
  dialoog.setFilter(QDir::AllDirs | QDir::Files | QDir::Executable | QDir::NoDotAndDotDot);
  if (!huidig.empty()) dialoog.selectFile(Q(huidig));
  return Gekozen(dialoog);
}

}  // namespace kiekbord
