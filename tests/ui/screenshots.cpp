// kiekbord-schermafdrukken: walks through a new gallery with the real
// message boxes and dialogs and saves a picture of every step, menu and
// dialog on the way, to be looked at by eye.
//
//   xvfb-run kiekbord-schermafdrukken DOELMAP FOTOMAP
//
// FOTOMAP holds a few JPEG photos; DOELMAP receives the PNG files.

#include <QApplication>
#include <QCheckBox>
#include <QColorDialog>
#include <QDir>
#include <QFileDialog>
#include <QLibraryInfo>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QTranslator>

#include <cstdio>
#include <functional>

#include "app/library_versions.h"
#include "app/program_directory.h"
#include "app/program_settings.h"
#include "images/library_choice.h"
#include "tests/ui/ui_fakes.h"
#include "ui/common_dialogs.h"
#include "ui/generation_progress.h"
#include "ui/main_window.h"
#include "ui/message_boxes.h"
#include "ui/options_dialog.h"
#include "ui/resize_dialog.h"

namespace {

using namespace kiekbord;

QString doelmap;

void Bewaar(QWidget* widget, const QString& naam) {
  const QString pad = doelmap + QLatin1Char('/') + naam + QStringLiteral(".png");
  if (!widget->grab().save(pad)) std::fprintf(stderr, "kan %s niet bewaren\n", qPrintable(pad));
  std::printf("%s\n", qPrintable(pad));
}

// Waits for the next modal window of type T, photographs it and hands it to
// `daarna`, which closes it.
template <typename T>
void ZodraGeopend(const QString& naam, std::function<void(T*)> daarna) {
  QTimer::singleShot(30, [naam, daarna] {
    T* venster = qobject_cast<T*>(QApplication::activeModalWidget());
    if (venster == nullptr || !venster->isVisible()) {
      ZodraGeopend<T>(naam, daarna);
      return;
    }
    Bewaar(venster, naam);
    daarna(venster);
  });
}

void Klik(QMessageBox* box, const QString& knop) {
  for (QAbstractButton* b : box->buttons()) {
    if (b->text() == knop) b->click();
  }
}

void Menu(QMenu* menu, QWidget* bij, const QString& naam) {
  menu->popup(bij->mapToGlobal(QPoint(0, bij->height())));
  QApplication::processEvents();
  Bewaar(menu, naam);
  menu->close();
}

template <typename T>
T* W(QWidget* venster, const char* naam) {
  return venster->findChild<T*>(QString::fromLatin1(naam));
}

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  if (argc != 3) {
    std::fprintf(stderr, "Gebruik: kiekbord-schermafdrukken DOELMAP FOTOMAP\n");
    return 2;
  }
  doelmap = QString::fromLocal8Bit(argv[1]);
  const QDir fotomap(QString::fromLocal8Bit(argv[2]));
  QDir().mkpath(doelmap);
  QTranslator vertaling;
  if (vertaling.load(QLocale(QLocale::Dutch), QStringLiteral("qtbase"), QStringLiteral("_"),
                     QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QApplication::installTranslator(&vertaling);
  }

  QTemporaryDir tmp;
  const QString in = tmp.filePath(QStringLiteral("Vakantie"));
  const QString uit = tmp.filePath(QStringLiteral("site"));
  QDir().mkpath(in);
  QDir().mkpath(uit);
  int nummer = 0;
  for (const QString& naam : fotomap.entryList({QStringLiteral("*.jpg")}, QDir::Files)) {
    if (nummer == 5) break;
    QFile::copy(fotomap.filePath(naam), in + QStringLiteral("/IMG_%1.JPG").arg(++nummer, 4, 10, QLatin1Char('0')));
  }

  QtMeldingen meldingen;
  QtDialogen dialogen;
  test::TestBureaublad bureaublad;
  test::TestOpslag opslag;
  opslag.Schrijf("Exit", "Question", "0");

  VensterDiensten d;
  d.settings = LeesProgrammaInstellingen(FindProgramDirectory(), QDir::homePath().toStdString() + "/");
  d.meldingen = &meldingen;
  d.dialogen = &dialogen;
  d.bureaublad = &bureaublad;
  d.opslag = &opslag;
  d.os_naam = BepaalOsNaam();
  d.enige_exemplaar = [] { return true; };
  d.info.programma = d.settings.caption;
  d.info.revisie = 42;
  d.info.os_naam = BepaalOsNaam();
  d.info.bibliotheken = BeeldBibliotheekVersies();
  d.info.icoon = d.settings.program_dir + "kbicon.gif";
  bool voortgang_bewaard = false;
  d.voortgang_geopend = [&voortgang_bewaard](VoortgangDialoog& dialoog) {
    QObject::connect(dialoog.voortgangsBalk(), &QProgressBar::valueChanged, &dialoog, [&dialoog, &voortgang_bewaard](int waarde) {
      if (voortgang_bewaard || waarde < 2) return;
      voortgang_bewaard = true;
      Bewaar(&dialoog, QStringLiteral("15-voortgang"));
    });
  };

  const ProgramSettings instellingen = d.settings;
  MainWindow w(std::move(d));
  w.show();
  QApplication::processEvents();
  Bewaar(&w, QStringLiteral("01-stap1-leeg"));

  W<QLineEdit>(&w, "txtTitel")->setText(QStringLiteral("Zomer aan zee"));
  W<QLineEdit>(&w, "txtSubtitel")->setText(QStringLiteral("Een week op Texel"));
  W<QLineEdit>(&w, "txtDatum")->setText(QStringLiteral("juli 2026"));
  W<QPlainTextEdit>(&w, "txtBeschrijving")->setPlainText(QStringLiteral("Zon, zee en strand.\nEn elke avond vis."));
  W<QLineEdit>(&w, "txtInvoerDir")->setText(in + QLatin1Char('/'));
  W<QLineEdit>(&w, "txtUitvoerDir")->setText(tmp.filePath(QStringLiteral("bestaat-niet")));
  W<QLineEdit>(&w, "txtUitvoerDir")->editingFinished();
  W<QCheckBox>(&w, "chkThumbnails")->setChecked(true);
  QApplication::processEvents();
  Bewaar(&w, QStringLiteral("02-stap1-ingevuld"));

  ZodraGeopend<QFileDialog>(QStringLiteral("03-mapkiezer"), [&](QFileDialog* dlg) {
    dlg->selectFile(uit);
    QMetaObject::invokeMethod(dlg, "accept");
  });
  W<QPushButton>(&w, "cmdUitvoer")->click();
  Menu(W<QMenu>(&w, "mnuBestand"), &w, QStringLiteral("04-menu-bestand"));

  ZodraGeopend<QMessageBox>(QStringLiteral("05-kopieervraag"), [](QMessageBox* box) { Klik(box, QStringLiteral("Ja")); });
  w.Volgende();
  QApplication::processEvents();
  W<QListWidget>(&w, "lstFotos")->setCurrentRow(1);
  W<QLineEdit>(&w, "txtBijschrift")->setText(QStringLiteral("Het strand bij De Koog"));
  QApplication::processEvents();
  Bewaar(&w, QStringLiteral("06-stap2"));
  Menu(W<QMenu>(&w, "mnuBewerken"), &w, QStringLiteral("07-menu-bewerken"));
  const QSize gewoon = w.size();
  w.resize(1180, 820);
  QApplication::processEvents();
  W<QListWidget>(&w, "lstFotos")->setCurrentRow(2);
  QApplication::processEvents();
  Bewaar(&w, QStringLiteral("08-stap2-groot"));
  w.resize(w.minimumSizeHint());
  QApplication::processEvents();
  W<QListWidget>(&w, "lstFotos")->setCurrentRow(0);
  QApplication::processEvents();
  Bewaar(&w, QStringLiteral("09-stap2-klein"));
  w.resize(gewoon);

  w.Volgende();
  QApplication::processEvents();
  Bewaar(&w, QStringLiteral("10-stap3"));
  Menu(W<QMenu>(&w, "mnuKleurGebruik"), W<QPushButton>(&w, "cmdKleurGebruik"), QStringLiteral("11-kleurmenu"));
  ZodraGeopend<QColorDialog>(QStringLiteral("12-kleurdialoog"), [](QColorDialog* dlg) {
    dlg->setCurrentColor(Qt::black);
    dlg->accept();
    ZodraGeopend<QMessageBox>(QStringLiteral("13-kleurweigering"), [](QMessageBox* box) { Klik(box, QStringLiteral("OK")); });
  });
  W<QAction>(&w, "mnuKleurGebruikAchtergrond")->trigger();

  ZodraGeopend<QMessageBox>(QStringLiteral("14-opslaanvraag"), [&](QMessageBox* box) {
    Klik(box, QStringLiteral("Ja"));
    ZodraGeopend<QFileDialog>(QStringLiteral("14b-opslaan-als"), [&](QFileDialog* dlg) {
      dlg->selectFile(tmp.filePath(QStringLiteral("Zomer.kbs")));
      QMetaObject::invokeMethod(dlg, "accept");
      ZodraGeopend<QMessageBox>(QStringLiteral("16-resultaatvraag"), [](QMessageBox* b) { Klik(b, QStringLiteral("Nee")); });
    });
  });
  w.Voltooien();
  QApplication::processEvents();
  Bewaar(&w, QStringLiteral("17-na-voltooien"));

  // The resize dialog on a photo of the site, as it opens with the size
  // remembered from before and after a new width is typed, and the options
  // dialog.
  const QDir site(W<QLineEdit>(&w, "txtUitvoerDir")->text());
  const QStringList fotos = site.entryList({QStringLiteral("img_????.jpg")}, QDir::Files);
  if (!fotos.isEmpty()) {
    opslag.Schrijf("Verkleinen", "Breedte", "1024");
    opslag.Schrijf("Verkleinen", "Hoogte", "768");
    VerkleinDialoog verklein(site.filePath(fotos.front()).toStdString(), opslag, meldingen, &w);
    verklein.show();
    QApplication::processEvents();
    Bewaar(&verklein, QStringLiteral("19-verkleinen"));
    auto* breedte = W<QLineEdit>(&verklein, "txtBreedteNieuw");
    verklein.activateWindow();
    breedte->setFocus();
    QApplication::processEvents();
    breedte->setText(QStringLiteral("640"));
    QApplication::processEvents();
    Bewaar(&verklein, QStringLiteral("20-verkleinen-ingevuld"));
  }
  {
    OptiesDialoog opties(opslag, instellingen, bureaublad, dialogen, meldingen, false, &w);
    opties.show();
    QApplication::processEvents();
    Bewaar(&opties, QStringLiteral("21-opties"));
  }

  ZodraGeopend<QDialog>(QStringLiteral("18-info"), [](QDialog* dlg) { dlg->accept(); });
  W<QAction>(&w, "mnuHelpInfo")->trigger();
  return voortgang_bewaard ? 0 : 1;
}
