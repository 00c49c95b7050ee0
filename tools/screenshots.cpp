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
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QTranslator>

#include <cstdio>
#include <functional>
#include <map>

#include "app/library_versions.h"
#include "app/program_directory.h"
#include "app/user_preferences.h"
#include "images/library_choice.h"
#include "ui/application_setup.h"
#include "ui/common_dialogs.h"
#include "ui/desktop_services.h"
#include "ui/generation_progress.h"
#include "ui/main_window.h"
#include "ui/message_boxes.h"
#include "ui/options_dialog.h"
#include "ui/resize_dialog.h"

namespace {

using namespace kiekbord;

QString doelmap;

// A desktop that opens and starts nothing, and a settings store in memory:
// the walk leaves the user's browser and settings alone.
class StilBureaublad : public Bureaublad {
 public:
  void OpenAddress(QWidget*, const std::string&, bool) override {}
  void OpenLog(QWidget*, const std::string&) override {}
  std::string FindBrowser(const std::string&) override { return "/usr/bin/firefox"; }
  bool StartProgramma(const std::string&, const std::vector<std::string>&) override { return true; }
};

class GeheugenOpslag : public VoorkeurenOpslag {
 public:
  std::optional<std::string> Lees(std::string_view sectie, std::string_view sleutel) const override {
    const auto it = waarden_.find(std::string(sectie) + "/" + std::string(sleutel));
    return it == waarden_.end() ? std::nullopt : std::optional(it->second);
  }
  void Schrijf(std::string_view sectie, std::string_view sleutel, std::string_view waarde) override {
    waarden_[std::string(sectie) + "/" + std::string(sleutel)] = std::string(waarde);
  }

 private:
  std::map<std::string, std::string> waarden_;
};

// Saves a picture of `widget` once pending events have been handled.
void Bewaar(QWidget* widget, const char* naam) {
  QApplication::processEvents();
  const QString pad = doelmap + QLatin1Char('/') + QLatin1String(naam) + QStringLiteral(".png");
  if (!widget->grab().save(pad)) std::fprintf(stderr, "kan %s niet bewaren\n", qPrintable(pad));
  std::printf("%s\n", qPrintable(pad));
}

// Waits for the next modal window of type T, photographs it and hands it to
// `daarna`, which closes it.
template <typename T>
void ZodraGeopend(const char* naam, std::function<void(T*)> daarna) {
  QTimer::singleShot(30, [naam, daarna] {
    T* venster = qobject_cast<T*>(QApplication::activeModalWidget());
    if (venster == nullptr || !venster->isVisible()) return ZodraGeopend<T>(naam, daarna);
    Bewaar(venster, naam);
    daarna(venster);
  });
}

void Klik(QMessageBox* box, const char* knop) {
  for (QAbstractButton* b : box->buttons()) {
    if (b->text() == QLatin1String(knop)) b->click();
  }
}

// Answers the next message box with the button `knop`.
void Antwoord(const char* naam, const char* knop) {
  ZodraGeopend<QMessageBox>(naam, [knop](QMessageBox* box) { Klik(box, knop); });
}

// Chooses `pad` in the next file dialog, then runs `daarna`.
void KiesBestand(const char* naam, const QString& pad, std::function<void()> daarna = {}) {
  ZodraGeopend<QFileDialog>(naam, [pad, daarna](QFileDialog* dialoog) {
    dialoog->selectFile(pad);
    QMetaObject::invokeMethod(dialoog, "accept");
    if (daarna) daarna();
  });
}

void Menu(QWidget* venster, const char* menu, QWidget* bij, const char* naam) {
  auto* m = venster->findChild<QMenu*>(QLatin1String(menu));
  m->popup(bij->mapToGlobal(QPoint(0, bij->height())));
  Bewaar(m, naam);
  m->close();
}

template <typename T>
T* W(QWidget* venster, const char* naam) {
  return venster->findChild<T*>(QLatin1String(naam));
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
  RichtToepassingIn(vertaling);

  QTemporaryDir tmp;
  const QString in = tmp.filePath("Vakantie"), uit = tmp.filePath("site");
  QDir().mkpath(in);
  QDir().mkpath(uit);
  int nummer = 0;
  for (const QString& naam : fotomap.entryList({"*.jpg"}, QDir::Files)) {
    if (++nummer > 5) break;
    QFile::copy(fotomap.filePath(naam), in + QStringLiteral("/IMG_%1.JPG").arg(nummer, 4, 10, QLatin1Char('0')));
  }

  QtMeldingen meldingen;
  QtDialogen dialogen;
  StilBureaublad bureaublad;
  GeheugenOpslag opslag;
  opslag.Schrijf("Exit", "Question", "0");
  VensterDiensten d;
  d.settings = LeesProgrammaInstellingen(FindProgramDirectory(), QDir::homePath().toStdString() + "/");
  d.meldingen = &meldingen;
  d.dialogen = &dialogen;
  d.bureaublad = &bureaublad;
  d.opslag = &opslag;
  d.os_naam = BepaalOsNaam();
  d.enige_exemplaar = [] { return true; };
  d.info = {d.settings.caption, 42, BepaalOsNaam(), BeeldBibliotheekVersies(), d.settings.program_dir + "kbicon.gif"};
  bool voortgang_bewaard = false;
  d.voortgang_geopend = [&voortgang_bewaard](VoortgangDialoog& dialoog) {
    QObject::connect(dialoog.voortgangsBalk(), &QProgressBar::valueChanged, &dialoog, [&](int waarde) {
      if (voortgang_bewaard || waarde < 2) return;
      voortgang_bewaard = true;
      Bewaar(&dialoog, "15-voortgang");
    });
    QObject::connect(&dialoog, &VoortgangDialoog::Einde, &dialoog, [&dialoog] {
      Bewaar(&dialoog, "16-voltooid");
      dialoog.findChild<QPushButton*>(QStringLiteral("cmdSluiten"))->click();
    });
  };
  const ProgramSettings instellingen = d.settings;
  MainWindow w(std::move(d));
  w.show();
  Bewaar(&w, "01-stap1-leeg");

  W<QLineEdit>(&w, "txtTitel")->setText("Zomer aan zee");
  W<QLineEdit>(&w, "txtSubtitel")->setText("Een week op Texel");
  W<QLineEdit>(&w, "txtDatum")->setText("juli 2026");
  W<QPlainTextEdit>(&w, "txtBeschrijving")->setPlainText("Zon, zee en strand.\nEn elke avond vis.");
  W<QLineEdit>(&w, "txtInvoerDir")->setText(in + QLatin1Char('/'));
  W<QLineEdit>(&w, "txtUitvoerDir")->setText(tmp.filePath("bestaat-niet"));
  W<QLineEdit>(&w, "txtUitvoerDir")->editingFinished();
  W<QCheckBox>(&w, "chkThumbnails")->setChecked(true);
  Bewaar(&w, "02-stap1-ingevuld");
  // The folder chooser starts at the folder typed in the field.
  W<QLineEdit>(&w, "txtUitvoerDir")->setText(tmp.path() + QLatin1Char('/'));
  KiesBestand("03-mapkiezer", uit);
  W<QPushButton>(&w, "cmdUitvoer")->click();
  Menu(&w, "mnuBestand", &w, "04-menu-bestand");

  Antwoord("05-kopieervraag", "Ja");
  w.Volgende();
  W<QListWidget>(&w, "lstFotos")->setCurrentRow(1);
  W<QLineEdit>(&w, "txtBijschrift")->insert("Het strand bij De Koog");
  Bewaar(&w, "06-stap2");
  Menu(&w, "mnuBewerken", &w, "07-menu-bewerken");
  Antwoord("07b-verwijdervraag", "Nee");
  W<QAction>(&w, "mnuBewerkenFotoVerwijderenTotaal")->trigger();
  const QSize gewoon = w.size();
  w.resize(1180, 820);
  Bewaar(&w, "08-stap2-groot");
  w.resize(w.minimumSizeHint());
  Bewaar(&w, "09-stap2-klein");
  w.resize(gewoon);

  w.Volgende();
  Bewaar(&w, "10-stap3");
  Menu(&w, "mnuKleurGebruik", W<QPushButton>(&w, "cmdKleurGebruik"), "11-kleurmenu");
  ZodraGeopend<QColorDialog>("12-kleurdialoog", [](QColorDialog* dialoog) {
    dialoog->setCurrentColor(Qt::black);
    dialoog->accept();
    Antwoord("13-kleurweigering", "OK");
  });
  W<QAction>(&w, "mnuKleurGebruikAchtergrond")->trigger();

  ZodraGeopend<QMessageBox>("14-opslaanvraag", [&](QMessageBox* box) {
    KiesBestand("14b-opslaan-als", tmp.filePath("Zomer.kbs"));
    Klik(box, "Ja");
  });
  w.Voltooien();
  Bewaar(&w, "17-na-voltooien");

  // The resize dialog on a photo of the site, as it opens with the size
  // remembered from before and after a new width is typed; the options
  // dialog; the About window.
  const QDir site(W<QLineEdit>(&w, "txtUitvoerDir")->text());
  const QStringList fotos = site.entryList({"img_????.jpg"}, QDir::Files);
  if (!fotos.isEmpty()) {
    opslag.Schrijf("Verkleinen", "Breedte", "1024");
    opslag.Schrijf("Verkleinen", "Hoogte", "768");
    VerkleinDialoog verklein(site.filePath(fotos.front()).toStdString(), opslag, meldingen, &w);
    verklein.show();
    Bewaar(&verklein, "19-verkleinen");
    verklein.activateWindow();
    W<QLineEdit>(&verklein, "txtBreedteNieuw")->setFocus();
    QApplication::processEvents();
    W<QLineEdit>(&verklein, "txtBreedteNieuw")->setText("640");
    Bewaar(&verklein, "20-verkleinen-ingevuld");
  }
  OptiesDialoog opties(opslag, instellingen, bureaublad, dialogen, meldingen, false, &w);
  opties.show();
  Bewaar(&opties, "21-opties");
  // The photo-program chooser, once it has listed its folder.
  ZodraGeopend<QFileDialog>("22-programmakiezer-geopend", [](QFileDialog* dialoog) {
    QTimer::singleShot(1500, dialoog, [dialoog] {
      Bewaar(dialoog, "22-programmakiezer");
      dialoog->reject();
    });
  });
  W<QPushButton>(&opties, "cmdFotoProgramma")->click();
  opties.close();
  ZodraGeopend<QDialog>("18-info", [](QDialog* dialoog) { dialoog->accept(); });
  W<QAction>(&w, "mnuHelpInfo")->trigger();
  return voortgang_bewaard ? 0 : 1;
}
