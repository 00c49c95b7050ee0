#include "ui/common_dialogs.h"

#include <algorithm>

#include <QColorDialog>
#include <QDateTime>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QLocale>
#include <QScreen>
#include <QSortFilterProxyModel>
#include <QTreeView>

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

// The dialogs' file list through this model: dates in Dutch (the file model
// writes them in the system's language), and with `alleen_programmas` only
// folders and the files that may be run. Qt's own executable filter would
// hide readable files as well, which is all of them.
class BestandenLijst : public QSortFilterProxyModel {
 public:
  BestandenLijst(bool alleen_programmas, QObject* ouder)
      : QSortFilterProxyModel(ouder), alleen_programmas_(alleen_programmas) {}

  QVariant data(const QModelIndex& index, int rol) const override {
    const auto* model = qobject_cast<const QFileSystemModel*>(sourceModel());
    if (model == nullptr || index.column() != kDatumKolom || rol != Qt::DisplayRole) {
      return QSortFilterProxyModel::data(index, rol);
    }
    return QLocale().toString(model->lastModified(mapToSource(index)), QLocale::ShortFormat);
  }

  // The file model sorts itself (folders first, dates as dates); this model
  // keeps its order.
  void sort(int kolom, Qt::SortOrder volgorde) override {
    if (sourceModel() != nullptr) sourceModel()->sort(kolom, volgorde);
  }

 protected:
  bool filterAcceptsRow(int rij, const QModelIndex& ouder) const override {
    const auto* model = qobject_cast<const QFileSystemModel*>(sourceModel());
    return !alleen_programmas_ || model == nullptr || AlsProgrammaGetoond(model->fileInfo(model->index(rij, 0, ouder)));
  }

 private:
  static constexpr int kDatumKolom = 3;
  bool alleen_programmas_;
};

// Qt's own dialog: the same look and the same Dutch labels on every desktop.
// It opens large enough to show a name, size, type and date in full: two
// thirds of the screen's free area, within 760 x 480 and 1000 x 640, and
// never over nine tenths of a small screen.
void ZetNederlandseLabels(QFileDialog& dialoog, const QString& accepteren, bool alleen_programmas = false) {
  dialoog.setOption(QFileDialog::DontUseNativeDialog);
  dialoog.setProxyModel(new BestandenLijst(alleen_programmas, &dialoog));
  QSize maat(1000, 640);
  if (const QScreen* scherm = dialoog.screen()) {
    const QSize vlak = scherm->availableGeometry().size();
    maat = maat.boundedTo(vlak * 2 / 3).expandedTo(QSize(760, 480)).boundedTo(vlak * 9 / 10);
  }
  dialoog.resize(maat);
  if (auto* lijst = dialoog.findChild<QTreeView*>(QStringLiteral("treeView"))) {
    // Size, type and date as wide as their longest usual text; the name
    // takes what is left of the list (the side bar and margins aside).
    const QFontMetrics maten = lijst->fontMetrics();
    const int grootte = maten.horizontalAdvance(QStringLiteral("000,00 MiB")) + 24;
    const int type = maten.horizontalAdvance(QStringLiteral("Uitvoerbaar bestand")) + 24;
    const QString laatste = QLocale().toString(QDateTime({2000, 12, 28}, {23, 59}), QLocale::ShortFormat);
    const int datum = maten.horizontalAdvance(laatste) + 24;
    lijst->header()->resizeSection(0, std::max(160, dialoog.width() - 180 - grootte - type - datum));
    lijst->header()->resizeSection(1, grootte);
    lijst->header()->resizeSection(2, type);
    lijst->header()->resizeSection(3, datum);
  }
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
  dialoog.setLabelText(QFileDialog::FileName, QStringLiteral("Map:"));
  // Changing the mode may move the dialog; it starts at the typed folder.
  dialoog.setDirectory(Q(map));
  return Gekozen(dialoog);
}

std::vector<std::string> QtDialogen::FotosKiezen(QWidget* ouder, const std::string& map) {
  QFileDialog dialoog(ouder, QStringLiteral("Kiekbord - Foto toevoegen"), Q(map),
                      QStringLiteral("Foto's (*.jpg *.JPG *.Jpg *.heic *.HEIC *.heif *.HEIF)"));
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

bool AlsProgrammaGetoond(const QFileInfo& bestand) { return bestand.isDir() || bestand.isExecutable(); }


// Programs here carry no ".exe": the dialog lists the files that may be
// run, whatever their names.
std::string QtDialogen::FotoprogrammaKiezen(QWidget* ouder, const std::string& huidig) {
  const QString map = huidig.empty() ? QStringLiteral("/usr/bin") : QFileInfo(Q(huidig)).absolutePath();
  QFileDialog dialoog(ouder, QStringLiteral("Kiekbord - Fotoprogramma lokaliseren"), map,
                      QStringLiteral("Programma (*)"));
  ZetNederlandseLabels(dialoog, QStringLiteral("Openen"), true);
  dialoog.setAcceptMode(QFileDialog::AcceptOpen);
  dialoog.setFileMode(QFileDialog::ExistingFile);
  dialoog.setFilter(QDir::AllDirs | QDir::Files | QDir::NoDotAndDotDot);
  if (!huidig.empty()) dialoog.selectFile(Q(huidig));
  return Gekozen(dialoog);
}

}  // namespace kiekbord
