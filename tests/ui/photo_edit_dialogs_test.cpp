// Drives the photo edit commands, the resize dialog `frmVerklein`, the
// options dialog `frmOpties` and the browser search as a user would, on real
// photo files. Message boxes and common dialogs are answered through the
// test doubles.

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QButtonGroup>
#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QGroupBox>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QUrl>

#include <functional>
#include <memory>

#include "app/program_settings.h"
#include "gallery/file_system.h"
#include "images/photo_properties.h"
#include "tests/ui/ui_fakes.h"
#include "ui/desktop_services.h"
#include "ui/main_window.h"

namespace kiekbord::test {
namespace {

const std::string kProgramData = std::string(KIEKBORD_PROGRAM_DATA_DIR) + "/";

std::string Lees(const std::string& pad) {
  QFile f(QString::fromStdString(pad));
  if (!f.open(QIODevice::ReadOnly)) return {};
  return f.readAll().toStdString();
}

bool Bestaat(const std::string& pad) { return QFileInfo::exists(QString::fromStdString(pad)); }

// A photo of `breedte` x `hoogte` with something on it to scale and turn.
void MaakFoto(const std::string& pad, int breedte, int hoogte) {
  QImage beeld(breedte, hoogte, QImage::Format_RGB32);
  beeld.fill(QColor(40, 90, 160));
  QPainter verf(&beeld);
  verf.fillRect(0, 0, breedte / 2, hoogte / 3, QColor(230, 200, 60));
  verf.end();
  QVERIFY(beeld.save(QString::fromStdString(pad), "JPEG", 90));
}

// The size of a photo as the program measures it.
QString Maat(const std::string& pad) {
  std::string maat = BepaalAfmetingen(pad);
  if (!maat.empty() && maat.back() == '!') maat.pop_back();
  return QString::fromStdString(maat);
}

// A disk with no room for another byte.
class VolleSchijf : public ForwardingFileSystem {
 public:
  VolleSchijf() : ForwardingFileSystem(LocalFileSystem()) {}
  Status WriteFile(const std::string&, std::string_view) override { return Status::Error(fout::kDiskFull); }
};

// Sets an environment variable for the lifetime of the object.
class Omgeving {
 public:
  Omgeving(const char* naam, const QByteArray& waarde) : naam_(naam), had_(qEnvironmentVariableIsSet(naam)), oud_(qgetenv(naam)) {
    qputenv(naam, waarde);
  }
  ~Omgeving() {
    if (had_) {
      qputenv(naam_, oud_);
    } else {
      qunsetenv(naam_);
    }
  }
  Omgeving(const Omgeving&) = delete;
  Omgeving& operator=(const Omgeving&) = delete;

 private:
  const char* naam_;
  bool had_;
  QByteArray oud_;
};

// A window on step 2 over an output folder with a landscape and a portrait
// photo of 1600 x 1200 pixels, and its test doubles.
struct Opstelling {
  TestMeldingen meldingen;
  TestDialogen dialogen;
  TestBureaublad bureaublad;
  TestOpslag opslag;
  QTemporaryDir tmp;
  ProgramSettings settings;
  std::string os_naam = "Unknown (3.6.1)";
  std::unique_ptr<MainWindow> venster;
  std::string uit;

  Opstelling() {
    settings = LeesProgrammaInstellingen(kProgramData, tmp.path().toStdString() + "/");
    opslag.Schrijf("Exit", "Question", "0");
    uit = tmp.path().toStdString() + "/site/";
    QDir().mkpath(QString::fromStdString(uit));
    MaakFoto(uit + "liggend.jpg", 1600, 1200);
    MaakFoto(uit + "staand.jpg", 1200, 1600);
  }

  MainWindow& Start(bool naar_stap2 = true) {
    VensterDiensten d;
    d.settings = settings;
    d.meldingen = &meldingen;
    d.dialogen = &dialogen;
    d.bureaublad = &bureaublad;
    d.opslag = &opslag;
    d.os_naam = os_naam;
    d.enige_exemplaar = [] { return true; };
    d.info.programma = settings.caption;
    venster = std::make_unique<MainWindow>(std::move(d));
    venster->show();
    venster->activateWindow();
    if (!QTest::qWaitForWindowActive(venster.get())) qWarning("venster niet actief");
    if (naar_stap2) NaarStap2();
    return *venster;
  }

  template <typename T>
  T* W(const char* naam) const {
    T* w = venster->findChild<T*>(QString::fromLatin1(naam));
    if (w == nullptr) qWarning("geen %s", naam);
    return w;
  }
  QAction* Actie(const char* naam) const { return W<QAction>(naam); }
  QListWidget* Fotos() const { return W<QListWidget>("lstFotos"); }
  QString Info() const { return W<QLabel>("lblFotoInfo")->text().section(QLatin1Char('\n'), 0, 1); }

  void Kies(const char* naam) {
    const QList<QListWidgetItem*> items = Fotos()->findItems(QString::fromLatin1(naam), Qt::MatchExactly);
    if (items.size() != 1) qWarning("geen foto %s", naam);
    else Fotos()->setCurrentItem(items.front());
  }

  // Fills in the folders and goes on to step 2.
  void NaarStap2() {
    W<QLineEdit>("txtInvoerDir")->setText(QString::fromStdString(uit));
    W<QLineEdit>("txtUitvoerDir")->setText(QString::fromStdString(uit));
    venster->Volgende();
    if (venster->stap() != 2) qWarning("niet op stap 2");
  }

  bool Sluit() { return venster->close(); }
};

// Runs `stappen` on the dialog `naam` once it is open and modal, then closes
// it unless the steps did: a failing check never leaves the test waiting.
void BijDialoog(const char* naam, std::function<void(QDialog*)> stappen) {
  QTimer::singleShot(0, [naam, stappen = std::move(stappen)] {
    QDialog* dialoog = nullptr;
    const bool open = QTest::qWaitFor([&] {
      dialoog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      return dialoog != nullptr && dialoog->objectName() == QLatin1String(naam) && dialoog->isVisible();
    });
    if (!open) {
      QFAIL(qPrintable(QStringLiteral("dialoog %1 niet geopend").arg(QLatin1String(naam))));
    }
    stappen(dialoog);
    if (dialoog->isVisible()) dialoog->reject();
  });
}

template <typename T>
T* In(QDialog* dialoog, const char* naam) {
  T* w = dialoog->findChild<T*>(QString::fromLatin1(naam));
  if (w == nullptr) qWarning("geen %s", naam);
  return w;
}

// Gives a box the focus as a user's click does, and types over its text.
void TypIn(QDialog* dialoog, const char* naam, const QString& tekst) {
  auto* vak = In<QLineEdit>(dialoog, naam);
  dialoog->activateWindow();
  vak->setFocus(Qt::MouseFocusReason);
  QVERIFY(QTest::qWaitFor([&] { return QApplication::focusWidget() == vak; }));
  QTest::keyClick(vak, Qt::Key_A, Qt::ControlModifier);
  QTest::keyClick(vak, Qt::Key_Delete);
  QTest::keyClicks(vak, tekst);
}

}  // namespace

class PhotoEditDialogsTest : public QObject {
  Q_OBJECT

 private slots:
  void cleanup();

  void editItemsFollowSelectionAndSettings();
  void rotateAsksAndTurnsWithABackup();
  void rotateFailureIsShownAndLeavesThePhoto();
  void externalEditAndRefresh();

  void resizeDialogShowsSizesAndPresets();
  void resizeDialogKeepsProportionsAndFiltersKeys();
  void resizeDialogEnablesOkBetween100AndTheCurrentSize();
  void resizeDialogOkShrinksAndRemembers();
  void resizeDialogCancelAndEscapeChangeNothing();
  void resizeDialogFailureLeavesThePhoto();
  void resizeDialogRefusesAnEnormousPhoto();

  void optionsDialogShowsStoredPreferences();
  void optionsDialogProposesAPhotoProgram();
  void optionsDialogCancelKeepsStoredValues();
  void optionsDialogOkSavesAndMenusFollow();
  void optionsDialogWithoutExternalEditing();
  void optionsDialogHelpButton();

  void browserIsSearchedOnceAndMessagesShown();
  void browserFromTheDesktopsDefaultHandler();
  void externalProgramStart();
};

void PhotoEditDialogsTest::cleanup() {
  QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
  QTRY_VERIFY(QApplication::activePopupWidget() == nullptr);
}

// --- Photo edit commands -----------------------------------------------------------

void PhotoEditDialogsTest::editItemsFollowSelectionAndSettings() {
  {
    Opstelling o;
    o.Start(false);
    for (const char* naam : {"mnuBewerkenFotoRoterenLinks", "mnuBewerkenFotoRoterenRechts", "mnuBewerkenFotoVerkleinen",
                             "mnuBewerkenFotoExternBewerken", "mnuBewerkenFotoVernieuwen"}) {
      QVERIFY2(!o.Actie(naam)->isEnabled(), naam);
    }
    QVERIFY(o.Actie("mnuExtraOpties")->isEnabled());
    o.NaarStap2();
    QCOMPARE(o.venster->stap(), 2);
    QVERIFY(o.Fotos()->currentRow() >= 0);
    QVERIFY(o.Actie("mnuBewerkenFotoRoterenLinks")->isEnabled());
    QVERIFY(o.Actie("mnuBewerkenFotoRoterenRechts")->isEnabled());
    QVERIFY(o.Actie("mnuBewerkenFotoVerkleinen")->isEnabled());
    // No photo program set: nothing to start.
    QVERIFY(!o.Actie("mnuBewerkenFotoExternBewerken")->isEnabled());
    QVERIFY(!o.Actie("mnuBewerkenFotoVernieuwen")->isEnabled());
    QVERIFY(o.Actie("mnuExtraOpties")->isEnabled());
    o.Fotos()->setCurrentRow(-1);
    QVERIFY(!o.Actie("mnuBewerkenFotoRoterenLinks")->isEnabled());
    QVERIFY(!o.Actie("mnuBewerkenFotoVerkleinen")->isEnabled());
    QVERIFY(o.Sluit());
  }
  {
    Opstelling o;
    o.opslag.Schrijf("Photo", "Editor", "/usr/bin/gimp");
    o.Start();
    QVERIFY(o.Actie("mnuBewerkenFotoExternBewerken")->isEnabled());
    QVERIFY(o.Sluit());
  }
  {
    // "KBord.ini" switches resizing and external editing off.
    Opstelling o;
    o.settings.verkleinen = false;
    o.settings.extern_bewerken = false;
    o.opslag.Schrijf("Photo", "Editor", "/usr/bin/gimp");
    o.Start();
    QVERIFY(o.Actie("mnuBewerkenFotoRoterenLinks")->isEnabled());
    QVERIFY(!o.Actie("mnuBewerkenFotoVerkleinen")->isEnabled());
    QVERIFY(!o.Actie("mnuBewerkenFotoExternBewerken")->isEnabled());
    QVERIFY(o.Sluit());
  }
}

void PhotoEditDialogsTest::rotateAsksAndTurnsWithABackup() {
  for (const char* os_naam : {"Unknown (3.6.1)", "XP"}) {
    Opstelling o;
    o.os_naam = os_naam;
    o.Start();
    o.Kies("liggend.jpg");
    const std::string foto = o.uit + "liggend.jpg";
    const std::string origineel = Lees(foto);
    QCOMPARE(o.Info(), QStringLiteral("liggend.jpg\n1600 x 1200 pixels"));

    // "Nee" leaves photo and preview alone.
    o.meldingen.antwoorden = {false};
    o.Actie("mnuBewerkenFotoRoterenLinks")->trigger();
    QCOMPARE(o.meldingen.getoond.size(), std::size_t{1});
    QCOMPARE(o.meldingen.getoond[0].melding, (Melding{MeldingSoort::kVraag, "Foto linksom roteren?"}));
    QCOMPARE(Lees(foto), origineel);
    QVERIFY(!Bestaat(o.uit + "Backup"));

    o.meldingen.antwoorden = {true};
    o.Actie("mnuBewerkenFotoRoterenLinks")->trigger();
    QCOMPARE(o.meldingen.Teksten().back(), std::string("Foto linksom roteren?"));
    QCOMPARE(Maat(foto), QStringLiteral("1200x1600"));
    QCOMPARE(o.Info(), QStringLiteral("liggend.jpg\n1200 x 1600 pixels"));
    QCOMPARE(Lees(o.uit + "Backup/liggend.jpg"), origineel);
    QCOMPARE(o.Fotos()->currentItem()->text(), QStringLiteral("liggend.jpg"));

    o.meldingen.antwoorden = {true};
    o.Actie("mnuBewerkenFotoRoterenRechts")->trigger();
    QCOMPARE(o.meldingen.Teksten().back(), std::string("Foto rechtsom roteren?"));
    QCOMPARE(Maat(foto), QStringLiteral("1600x1200"));
    QCOMPARE(o.Info(), QStringLiteral("liggend.jpg\n1600 x 1200 pixels"));
    // The backup still holds the photo as it was before the first turn.
    QCOMPARE(Lees(o.uit + "Backup/liggend.jpg"), origineel);
    QCOMPARE(o.meldingen.getoond.size(), std::size_t{3});
    QVERIFY(o.Sluit());
  }
  {
    // Without the backup preference no backup is made.
    Opstelling o;
    o.opslag.Schrijf("Rotate", "Backup", "0");
    o.Start();
    o.Kies("staand.jpg");
    o.meldingen.antwoorden = {true};
    o.Actie("mnuBewerkenFotoRoterenRechts")->trigger();
    QCOMPARE(Maat(o.uit + "staand.jpg"), QStringLiteral("1600x1200"));
    QVERIFY(!Bestaat(o.uit + "Backup"));
    QVERIFY(o.Sluit());
  }
}

void PhotoEditDialogsTest::rotateFailureIsShownAndLeavesThePhoto() {
  Opstelling o;
  QFile kapot(QString::fromStdString(o.uit + "kapot.jpg"));
  QVERIFY(kapot.open(QIODevice::WriteOnly));
  kapot.write("\xFF\xD8 dit is geen foto");
  kapot.close();
  o.Start();
  o.Kies("kapot.jpg");
  o.meldingen.antwoorden = {true};
  o.Actie("mnuBewerkenFotoRoterenLinks")->trigger();
  QCOMPARE(o.meldingen.Teksten(), (std::vector<std::string>{"Foto linksom roteren?",
                                                            "Fout 26002 tijdens roteren foto.(Failed to read JPG)"}));
  QCOMPARE(o.meldingen.getoond[1].melding.soort, MeldingSoort::kWaarschuwing);
  QCOMPARE(Lees(o.uit + "kapot.jpg"), std::string("\xFF\xD8 dit is geen foto"));

  // A full disk: the photo stays as it was, the backup made before stays.
  o.Kies("liggend.jpg");
  const std::string origineel = Lees(o.uit + "liggend.jpg");
  {
    VolleSchijf vol;
    ScopedFileSystem fs(vol);
    o.meldingen.antwoorden = {true};
    o.Actie("mnuBewerkenFotoRoterenRechts")->trigger();
  }
  QCOMPARE(o.meldingen.Teksten().back(), std::string("Fout 26002 tijdens roteren foto.(Error creating backup.)"));
  QCOMPARE(Lees(o.uit + "liggend.jpg"), origineel);
  QCOMPARE(o.Info(), QStringLiteral("liggend.jpg\n1600 x 1200 pixels"));
  QVERIFY(o.Sluit());
}

void PhotoEditDialogsTest::externalEditAndRefresh() {
  Opstelling o;
  o.opslag.Schrijf("Photo", "Editor", "/usr/bin/gimp");
  o.Start();
  o.Kies("staand.jpg");
  QVERIFY(!o.Actie("mnuBewerkenFotoVernieuwen")->isEnabled());
  o.Actie("mnuBewerkenFotoExternBewerken")->trigger();
  QCOMPARE(o.bureaublad.gestart, (std::vector<std::vector<std::string>>{{"/usr/bin/gimp", o.uit + "staand.jpg"}}));
  QVERIFY(o.meldingen.getoond.empty());
  QVERIFY(o.Actie("mnuBewerkenFotoVernieuwen")->isEnabled());

  // The program changes the photo; refreshing shows it as it is now.
  MaakFoto(o.uit + "staand.jpg", 600, 800);
  QCOMPARE(o.Info(), QStringLiteral("staand.jpg\n1200 x 1600 pixels"));
  o.Actie("mnuBewerkenFotoVernieuwen")->trigger();
  QCOMPARE(o.Info(), QStringLiteral("staand.jpg\n600 x 800 pixels"));
  QCOMPARE(o.Fotos()->currentItem()->text(), QStringLiteral("staand.jpg"));
  QVERIFY(!o.Actie("mnuBewerkenFotoVernieuwen")->isEnabled());

  // A program that won't start: the system's error, and nothing to refresh.
  o.bureaublad.start_lukt = false;
  o.Actie("mnuBewerkenFotoExternBewerken")->trigger();
  QCOMPARE(o.meldingen.getoond.size(), std::size_t{1});
  QCOMPARE(o.meldingen.getoond[0].melding,
           (Melding{MeldingSoort::kFout, "Fout 53 tijdens starten fotoprogramma /usr/bin/gimp.\r\n(File not found)"}));
  QVERIFY(!o.Actie("mnuBewerkenFotoVernieuwen")->isEnabled());
  QVERIFY(o.Sluit());
}

// --- Resize dialog -------------------------------------------------------------

void PhotoEditDialogsTest::resizeDialogShowsSizesAndPresets() {
  Opstelling o;
  o.opslag.Schrijf("Verkleinen", "Breedte", "1024");
  o.opslag.Schrijf("Verkleinen", "Hoogte", "768");
  o.opslag.Schrijf("Verkleinen", "Verhouding", "0");
  o.opslag.Schrijf("Verkleinen", "Kwaliteit", "2");
  o.Start();
  o.Kies("staand.jpg");
  bool gezien = false;
  BijDialoog("frmVerklein", [&](QDialog* d) {
    QCOMPARE(d->windowTitle(), QStringLiteral("Kiekbord - Foto verkleinen"));
    QCOMPARE(In<QLineEdit>(d, "txtBreedteHuidig")->text(), QStringLiteral("1200"));
    QCOMPARE(In<QLineEdit>(d, "txtHoogteHuidig")->text(), QStringLiteral("1600"));
    QVERIFY(In<QLineEdit>(d, "txtBreedteHuidig")->isReadOnly());
    QVERIFY(In<QLineEdit>(d, "txtHoogteHuidig")->isReadOnly());
    // A portrait photo: the smaller preset goes across.
    QCOMPARE(In<QLineEdit>(d, "txtBreedteNieuw")->text(), QStringLiteral("768"));
    QCOMPARE(In<QLineEdit>(d, "txtHoogteNieuw")->text(), QStringLiteral("1024"));
    QVERIFY(!In<QCheckBox>(d, "chkVerhouding")->isChecked());
    QCOMPARE(In<QButtonGroup>(d, "optKwaliteit")->checkedId(), 2);
    QCOMPARE(In<QRadioButton>(d, "optKwaliteit0")->text(), QStringLiteral("&Hoog (100)"));
    QCOMPARE(In<QRadioButton>(d, "optKwaliteit1")->text(), QStringLiteral("&Gemiddeld (80)"));
    QCOMPARE(In<QRadioButton>(d, "optKwaliteit2")->text(), QStringLiteral("&Laag (60)"));
    QVERIFY(In<QPushButton>(d, "cmdOK")->isEnabled());
    QCOMPARE(In<QPushButton>(d, "cmdOK")->text(), QStringLiteral("&OK"));
    QCOMPARE(In<QPushButton>(d, "cmdAnnuleren")->text(), QStringLiteral("&Annuleren"));
    // Centred on the screen.
    const QRect scherm = d->screen()->availableGeometry();
    QVERIFY(qAbs(d->frameGeometry().center().x() - scherm.center().x()) <= 1);
    QVERIFY(qAbs(d->frameGeometry().center().y() - scherm.center().y()) <= 1);
    gezien = true;
  });
  o.Actie("mnuBewerkenFotoVerkleinen")->trigger();
  QVERIFY(gezien);

  // Presets larger than a landscape photo: shown the photo's way round, OK off.
  o.opslag.Schrijf("Verkleinen", "Breedte", "1200");
  o.opslag.Schrijf("Verkleinen", "Hoogte", "2000");
  o.Kies("liggend.jpg");
  gezien = false;
  BijDialoog("frmVerklein", [&](QDialog* d) {
    QCOMPARE(In<QLineEdit>(d, "txtBreedteNieuw")->text(), QStringLiteral("2000"));
    QCOMPARE(In<QLineEdit>(d, "txtHoogteNieuw")->text(), QStringLiteral("1200"));
    QVERIFY(!In<QPushButton>(d, "cmdOK")->isEnabled());
    gezien = true;
  });
  o.Actie("mnuBewerkenFotoVerkleinen")->trigger();
  QVERIFY(gezien);
  QVERIFY(o.Sluit());
}

void PhotoEditDialogsTest::resizeDialogKeepsProportionsAndFiltersKeys() {
  Opstelling o;
  o.Start();
  o.Kies("liggend.jpg");
  bool gezien = false;
  BijDialoog("frmVerklein", [&](QDialog* d) {
    // No presets yet: empty boxes, proportions kept.
    QCOMPARE(In<QLineEdit>(d, "txtBreedteNieuw")->text(), QString());
    QCOMPARE(In<QLineEdit>(d, "txtHoogteNieuw")->text(), QString());
    QVERIFY(In<QCheckBox>(d, "chkVerhouding")->isChecked());
    QVERIFY(!In<QPushButton>(d, "cmdOK")->isEnabled());

    // Letters and signs are dropped as they are typed.
    TypIn(d, "txtBreedteNieuw", QStringLiteral("1a5x0-0"));
    QCOMPARE(In<QLineEdit>(d, "txtBreedteNieuw")->text(), QStringLiteral("1500"));
    QCOMPARE(In<QLineEdit>(d, "txtHoogteNieuw")->text(), QStringLiteral("1125"));
    QVERIFY(In<QPushButton>(d, "cmdOK")->isEnabled());

    TypIn(d, "txtHoogteNieuw", QStringLiteral("900"));
    QCOMPARE(In<QLineEdit>(d, "txtBreedteNieuw")->text(), QStringLiteral("1200"));

    // Focus selects the whole text, so typing replaces it.
    auto* breedte = In<QLineEdit>(d, "txtBreedteNieuw");
    breedte->setFocus(Qt::TabFocusReason);
    QVERIFY(QTest::qWaitFor([&] { return breedte->selectedText() == QStringLiteral("1200"); }));
    QTest::keyClicks(breedte, QStringLiteral("800"));
    QCOMPARE(breedte->text(), QStringLiteral("800"));
    QCOMPARE(In<QLineEdit>(d, "txtHoogteNieuw")->text(), QStringLiteral("600"));

    In<QCheckBox>(d, "chkVerhouding")->click();
    TypIn(d, "txtBreedteNieuw", QStringLiteral("1000"));
    QCOMPARE(In<QLineEdit>(d, "txtHoogteNieuw")->text(), QStringLiteral("600"));
    gezien = true;
  });
  o.Actie("mnuBewerkenFotoVerkleinen")->trigger();
  QVERIFY(gezien);
  QVERIFY(o.Sluit());
}

void PhotoEditDialogsTest::resizeDialogEnablesOkBetween100AndTheCurrentSize() {
  Opstelling o;
  o.opslag.Schrijf("Verkleinen", "Verhouding", "0");
  o.Start();
  o.Kies("liggend.jpg");
  bool gezien = false;
  BijDialoog("frmVerklein", [&](QDialog* d) {
    auto* ok = In<QPushButton>(d, "cmdOK");
    TypIn(d, "txtHoogteNieuw", QStringLiteral("500"));
    const struct {
      const char* vak;
      const char* tekst;
      bool aan;
    } stappen[] = {
        {"txtBreedteNieuw", "99", false}, {"txtBreedteNieuw", "100", true}, {"txtBreedteNieuw", "1600", false},
        {"txtBreedteNieuw", "1599", true}, {"txtHoogteNieuw", "99", false}, {"txtHoogteNieuw", "100", true},
        {"txtHoogteNieuw", "1200", false}, {"txtHoogteNieuw", "1199", true},
    };
    for (const auto& s : stappen) {
      TypIn(d, s.vak, QString::fromLatin1(s.tekst));
      QVERIFY2(ok->isEnabled() == s.aan, s.tekst);
    }
    gezien = true;
  });
  o.Actie("mnuBewerkenFotoVerkleinen")->trigger();
  QVERIFY(gezien);
  QVERIFY(o.Sluit());
}

void PhotoEditDialogsTest::resizeDialogOkShrinksAndRemembers() {
  Opstelling o;
  o.Start();
  o.Kies("liggend.jpg");
  const std::string origineel = Lees(o.uit + "liggend.jpg");
  BijDialoog("frmVerklein", [&](QDialog* d) {
    TypIn(d, "txtBreedteNieuw", QStringLiteral("1500"));
    In<QRadioButton>(d, "optKwaliteit1")->click();
    In<QPushButton>(d, "cmdOK")->click();
  });
  o.Actie("mnuBewerkenFotoVerkleinen")->trigger();
  QVERIFY(o.meldingen.getoond.empty());
  QCOMPARE(Maat(o.uit + "liggend.jpg"), QStringLiteral("1500x1125"));
  QCOMPARE(o.Info(), QStringLiteral("liggend.jpg\n1500 x 1125 pixels"));
  QCOMPARE(Lees(o.uit + "Backup/liggend.jpg"), origineel);
  QCOMPARE(o.opslag.waarden["Verkleinen/Breedte"], std::string("1500"));
  QCOMPARE(o.opslag.waarden["Verkleinen/Hoogte"], std::string("1125"));
  QCOMPARE(o.opslag.waarden["Verkleinen/Verhouding"], std::string("1"));
  QCOMPARE(o.opslag.waarden["Verkleinen/Kwaliteit"], std::string("1"));

  // The next photo opens with what was remembered, its own way round.
  o.Kies("staand.jpg");
  bool gezien = false;
  BijDialoog("frmVerklein", [&](QDialog* d) {
    QCOMPARE(In<QLineEdit>(d, "txtBreedteNieuw")->text(), QStringLiteral("1125"));
    QCOMPARE(In<QLineEdit>(d, "txtHoogteNieuw")->text(), QStringLiteral("1500"));
    QVERIFY(In<QCheckBox>(d, "chkVerhouding")->isChecked());
    QCOMPARE(In<QButtonGroup>(d, "optKwaliteit")->checkedId(), 1);
    QVERIFY(In<QPushButton>(d, "cmdOK")->isEnabled());
    gezien = true;
  });
  o.Actie("mnuBewerkenFotoVerkleinen")->trigger();
  QVERIFY(gezien);

  // Shrinking the shrunk photo again keeps the first backup.
  o.Kies("liggend.jpg");
  BijDialoog("frmVerklein", [&](QDialog* d) {
    TypIn(d, "txtBreedteNieuw", QStringLiteral("400"));
    In<QPushButton>(d, "cmdOK")->click();
  });
  o.Actie("mnuBewerkenFotoVerkleinen")->trigger();
  QCOMPARE(Maat(o.uit + "liggend.jpg"), QStringLiteral("400x300"));
  QCOMPARE(Lees(o.uit + "Backup/liggend.jpg"), origineel);
  QVERIFY(o.Sluit());
}

void PhotoEditDialogsTest::resizeDialogCancelAndEscapeChangeNothing() {
  Opstelling o;
  o.Start();
  o.Kies("liggend.jpg");
  const std::string origineel = Lees(o.uit + "liggend.jpg");
  const auto opslag_voor = o.opslag.waarden;
  BijDialoog("frmVerklein", [&](QDialog* d) {
    TypIn(d, "txtBreedteNieuw", QStringLiteral("800"));
    In<QPushButton>(d, "cmdAnnuleren")->click();
  });
  o.Actie("mnuBewerkenFotoVerkleinen")->trigger();
  BijDialoog("frmVerklein", [&](QDialog* d) {
    TypIn(d, "txtBreedteNieuw", QStringLiteral("800"));
    QTest::keyClick(In<QLineEdit>(d, "txtBreedteNieuw"), Qt::Key_Escape);
    QVERIFY(!d->isVisible());
  });
  o.Actie("mnuBewerkenFotoVerkleinen")->trigger();
  QCOMPARE(Lees(o.uit + "liggend.jpg"), origineel);
  QVERIFY(!Bestaat(o.uit + "Backup"));
  QCOMPARE(o.opslag.waarden, opslag_voor);
  QVERIFY(o.meldingen.getoond.empty());
  QVERIFY(o.Sluit());
}

void PhotoEditDialogsTest::resizeDialogFailureLeavesThePhoto() {
  Opstelling o;
  o.opslag.Schrijf("Rotate", "Backup", "0");
  o.Start();
  o.Kies("liggend.jpg");
  const std::string origineel = Lees(o.uit + "liggend.jpg");
  VolleSchijf vol;
  ScopedFileSystem fs(vol);
  BijDialoog("frmVerklein", [&](QDialog* d) {
    TypIn(d, "txtBreedteNieuw", QStringLiteral("800"));
    In<QPushButton>(d, "cmdOK")->click();
  });
  o.Actie("mnuBewerkenFotoVerkleinen")->trigger();
  QCOMPARE(o.meldingen.Teksten(),
           (std::vector<std::string>{"Fout 61 tijdens verkleinen foto (GDI).\r\n(Disk full)"}));
  QCOMPARE(o.meldingen.getoond[0].melding.soort, MeldingSoort::kWaarschuwing);
  QCOMPARE(Lees(o.uit + "liggend.jpg"), origineel);
  QVERIFY(!Bestaat(o.uit + "liggend_tmp.jpg"));
  // The photo is shown again all the same, as it is.
  QCOMPARE(o.Info(), QStringLiteral("liggend.jpg\n1600 x 1200 pixels"));
  QVERIFY(o.Sluit());
}

void PhotoEditDialogsTest::resizeDialogRefusesAnEnormousPhoto() {
  Opstelling o;
  // A frame header claiming 65,535 x 65,535 pixels.
  std::string reus = Lees(o.uit + "liggend.jpg");
  const auto sof = reus.find("\xFF\xC0");
  QVERIFY(sof != std::string::npos);
  for (int i = 5; i <= 8; ++i) reus[sof + i] = static_cast<char>(0xFF);
  QFile f(QString::fromStdString(o.uit + "reus.jpg"));
  QVERIFY(f.open(QIODevice::WriteOnly));
  f.write(reus.data(), static_cast<qint64>(reus.size()));
  f.close();
  o.opslag.Schrijf("Verkleinen", "Breedte", "1024");
  o.opslag.Schrijf("Verkleinen", "Hoogte", "768");
  o.Start();
  o.Kies("reus.jpg");
  bool gezien = false;
  BijDialoog("frmVerklein", [&](QDialog* d) {
    QCOMPARE(In<QLineEdit>(d, "txtBreedteHuidig")->text(), QStringLiteral("0"));
    QCOMPARE(In<QLineEdit>(d, "txtHoogteHuidig")->text(), QStringLiteral("0"));
    QVERIFY(!In<QPushButton>(d, "cmdOK")->isEnabled());
    TypIn(d, "txtBreedteNieuw", QStringLiteral("500"));
    TypIn(d, "txtHoogteNieuw", QStringLiteral("500"));
    QVERIFY(!In<QPushButton>(d, "cmdOK")->isEnabled());
    QTest::keyClick(In<QLineEdit>(d, "txtHoogteNieuw"), Qt::Key_Return);
    gezien = true;
  });
  o.Actie("mnuBewerkenFotoVerkleinen")->trigger();
  QVERIFY(gezien);
  QCOMPARE(Lees(o.uit + "reus.jpg"), reus);
  QVERIFY(o.meldingen.getoond.empty());
  QVERIFY(o.Sluit());
}

// --- Options dialog ------------------------------------------------------------

void PhotoEditDialogsTest::optionsDialogShowsStoredPreferences() {
  Opstelling o;
  o.opslag.waarden.clear();  // a fresh user
  Omgeving pad("PATH", QByteArray("/geen/map"));
  o.Start(false);
  bool gezien = false;
  BijDialoog("frmOpties", [&](QDialog* d) {
    QCOMPARE(d->windowTitle(), QStringLiteral("Kiekbord - Opties"));
    const struct {
      const char* naam;
      const char* tekst;
    } frames[] = {{"fraBrowser", "Browser"},
                  {"fraBeveiliging", "Beveiliging"},
                  {"fraFotosBewerken", "Foto's bewerken"},
                  {"fraScriptsOpslaan", "Nieuwe scripts standaard opslaan in"}};
    for (const auto& f : frames) QCOMPARE(In<QGroupBox>(d, f.naam)->title(), QString::fromUtf8(f.tekst));
    QCOMPARE(In<QCheckBox>(d, "chkIEDynamischAanroepen")->text(),
             QStringLiteral("Microsoft Internet Explorer dynamisch aanroepen"));
    QCOMPARE(In<QCheckBox>(d, "chkControlevraag")->text(), QStringLiteral("Controlevraag stellen bij afsluiten "));
    QCOMPARE(In<QCheckBox>(d, "chkBackupBijRoteren")->text(),
             QStringLiteral("Backup maken van originele foto bij roteren en verkleinen"));
    QCOMPARE(In<QLabel>(d, "lblFotoprogramma")->text(), QStringLiteral("Extern fotoprogramma"));
    QCOMPARE(In<QPushButton>(d, "cmdFotoProgramma")->text(), QStringLiteral("Bladeren..."));
    QCOMPARE(In<QRadioButton>(d, "optOpslaanUitvoer")->text(), QStringLiteral("Uitvoerdirectory"));
    QCOMPARE(In<QRadioButton>(d, "optOpslaanLaatste")->text(), QStringLiteral("Laatst gebruikte directory"));
    QCOMPARE(In<QPushButton>(d, "cmdOK")->text(), QStringLiteral("&OK"));
    QCOMPARE(In<QPushButton>(d, "cmdAnnuleren")->text(), QStringLiteral("&Annuleren"));
    QCOMPARE(In<QPushButton>(d, "cmdHelp")->text(), QStringLiteral("&Help"));

    // A fresh user: every option on, the last-used directory, no program.
    QVERIFY(In<QCheckBox>(d, "chkIEDynamischAanroepen")->isChecked());
    QVERIFY(In<QCheckBox>(d, "chkControlevraag")->isChecked());
    QVERIFY(In<QCheckBox>(d, "chkBackupBijRoteren")->isChecked());
    QVERIFY(In<QRadioButton>(d, "optOpslaanLaatste")->isChecked());
    QVERIFY(!In<QRadioButton>(d, "optOpslaanUitvoer")->isChecked());
    QCOMPARE(In<QLineEdit>(d, "txtFotoProgramma")->text(), QString());
    // The browser option is shown but can't be changed.
    QVERIFY(In<QCheckBox>(d, "chkIEDynamischAanroepen")->isVisible());
    QVERIFY(!In<QCheckBox>(d, "chkIEDynamischAanroepen")->isEnabled());
    for (const char* naam : {"lblFotoprogramma", "txtFotoProgramma", "cmdFotoProgramma"}) {
      QVERIFY2(In<QWidget>(d, naam)->isEnabled(), naam);
    }
    const QRect scherm = d->screen()->availableGeometry();
    QVERIFY(qAbs(d->frameGeometry().center().x() - scherm.center().x()) <= 1);
    gezien = true;
  });
  o.Actie("mnuExtraOpties")->trigger();
  QVERIFY(gezien);
  QVERIFY(o.bureaublad.browser_gezocht >= 1);

  // Stored values set the controls.
  o.opslag.Schrijf("Exit", "Question", "0");
  o.opslag.Schrijf("MSIE", "DDE", "0");
  o.opslag.Schrijf("Recent", "Default", "0");
  o.opslag.Schrijf("Rotate", "Backup", "0");
  o.opslag.Schrijf("Photo", "Editor", "/opt/foto/bewerk");
  o.bureaublad.browser = "C:\\Program Files\\Internet Explorer\\iexplore.exe";
  gezien = false;
  BijDialoog("frmOpties", [&](QDialog* d) {
    QVERIFY(!In<QCheckBox>(d, "chkIEDynamischAanroepen")->isChecked());
    QVERIFY(In<QCheckBox>(d, "chkIEDynamischAanroepen")->isEnabled());
    QVERIFY(!In<QCheckBox>(d, "chkControlevraag")->isChecked());
    QVERIFY(!In<QCheckBox>(d, "chkBackupBijRoteren")->isChecked());
    QVERIFY(In<QRadioButton>(d, "optOpslaanUitvoer")->isChecked());
    QCOMPARE(In<QLineEdit>(d, "txtFotoProgramma")->text(), QStringLiteral("/opt/foto/bewerk"));
    gezien = true;
  });
  o.Actie("mnuExtraOpties")->trigger();
  QVERIFY(gezien);
  QVERIFY(o.Sluit());
}

void PhotoEditDialogsTest::optionsDialogProposesAPhotoProgram() {
  Opstelling o;
  const QString bin = o.tmp.filePath(QStringLiteral("bin"));
  QDir().mkpath(bin);
  for (const char* naam : {"pinta", "krita"}) {
    QFile f(bin + QLatin1Char('/') + QLatin1String(naam));
    QVERIFY(f.open(QIODevice::WriteOnly));
  }
  Omgeving pad("PATH", (QStringLiteral("/geen/map:") + bin).toLocal8Bit());
  o.Start(false);
  bool gezien = false;
  BijDialoog("frmOpties", [&](QDialog* d) {
    QCOMPARE(In<QLineEdit>(d, "txtFotoProgramma")->text(), bin + QStringLiteral("/krita"));
    // Bladeren... puts the chosen program in the box; cancelling keeps it.
    o.dialogen.fotoprogrammas = {"/opt/foto/bewerk", ""};
    In<QPushButton>(d, "cmdFotoProgramma")->click();
    QCOMPARE(In<QLineEdit>(d, "txtFotoProgramma")->text(), QStringLiteral("/opt/foto/bewerk"));
    In<QPushButton>(d, "cmdFotoProgramma")->click();
    QCOMPARE(In<QLineEdit>(d, "txtFotoProgramma")->text(), QStringLiteral("/opt/foto/bewerk"));
    QCOMPARE(o.dialogen.geopend_in.back(), std::string("/opt/foto/bewerk"));
    gezien = true;
  });
  o.Actie("mnuExtraOpties")->trigger();
  QVERIFY(gezien);
  // Nothing is stored until OK.
  QVERIFY(o.opslag.waarden.find("Photo/Editor") == o.opslag.waarden.end());

  // A program already set is not replaced by a proposal.
  o.opslag.Schrijf("Photo", "Editor", "/usr/local/bin/eigen");
  gezien = false;
  BijDialoog("frmOpties", [&](QDialog* d) {
    QCOMPARE(In<QLineEdit>(d, "txtFotoProgramma")->text(), QStringLiteral("/usr/local/bin/eigen"));
    gezien = true;
  });
  o.Actie("mnuExtraOpties")->trigger();
  QVERIFY(gezien);
  QVERIFY(o.Sluit());
}

void PhotoEditDialogsTest::optionsDialogCancelKeepsStoredValues() {
  Opstelling o;
  Omgeving pad("PATH", QByteArray("/geen/map"));
  o.opslag.Schrijf("Photo", "Editor", "/usr/bin/gimp");
  o.Start(false);
  const auto voor = o.opslag.waarden;
  for (const bool escape : {false, true}) {
    BijDialoog("frmOpties", [&](QDialog* d) {
      In<QCheckBox>(d, "chkControlevraag")->click();
      In<QCheckBox>(d, "chkBackupBijRoteren")->click();
      In<QRadioButton>(d, "optOpslaanUitvoer")->click();
      In<QLineEdit>(d, "txtFotoProgramma")->setText(QStringLiteral("/usr/bin/krita"));
      if (escape) {
        QTest::keyClick(d, Qt::Key_Escape);
      } else {
        In<QPushButton>(d, "cmdAnnuleren")->click();
      }
      QVERIFY(!d->isVisible());
    });
    o.Actie("mnuExtraOpties")->trigger();
    QCOMPARE(o.opslag.waarden, voor);
  }
  QVERIFY(o.Sluit());
}

void PhotoEditDialogsTest::optionsDialogOkSavesAndMenusFollow() {
  Opstelling o;
  Omgeving pad("PATH", QByteArray("/geen/map"));
  o.Start();
  QVERIFY(!o.Actie("mnuBewerkenFotoExternBewerken")->isEnabled());
  BijDialoog("frmOpties", [&](QDialog* d) {
    QVERIFY(!In<QCheckBox>(d, "chkControlevraag")->isChecked());
    In<QCheckBox>(d, "chkControlevraag")->click();
    In<QCheckBox>(d, "chkBackupBijRoteren")->click();
    In<QRadioButton>(d, "optOpslaanUitvoer")->click();
    In<QLineEdit>(d, "txtFotoProgramma")->setText(QStringLiteral("/usr/bin/krita"));
    In<QPushButton>(d, "cmdOK")->click();
  });
  o.Actie("mnuExtraOpties")->trigger();
  QCOMPARE(o.opslag.waarden, (std::map<std::string, std::string>{{"Exit/Question", "1"},
                                                                {"MSIE/DDE", "1"},
                                                                {"Recent/Default", "0"},
                                                                {"Rotate/Backup", "0"},
                                                                {"Photo/Editor", "/usr/bin/krita"}}));
  // The window reads the preferences again: the program can be started, and
  // rotating makes no backup now.
  QVERIFY(o.Actie("mnuBewerkenFotoExternBewerken")->isEnabled());
  o.Actie("mnuBewerkenFotoExternBewerken")->trigger();
  QCOMPARE(o.bureaublad.gestart.back().front(), std::string("/usr/bin/krita"));
  o.meldingen.antwoorden = {true};
  o.Actie("mnuBewerkenFotoRoterenLinks")->trigger();
  QVERIFY(!Bestaat(o.uit + "Backup"));

  // Emptying the program switches the command off again.
  BijDialoog("frmOpties", [&](QDialog* d) {
    In<QLineEdit>(d, "txtFotoProgramma")->clear();
    In<QPushButton>(d, "cmdOK")->click();
  });
  o.Actie("mnuExtraOpties")->trigger();
  QVERIFY(!o.Actie("mnuBewerkenFotoExternBewerken")->isEnabled());

  // Closing now asks first (after the question whether to save the new
  // gallery, answered "Nee").
  o.meldingen.antwoorden = {false, true};
  QVERIFY(o.Sluit());
  QCOMPARE(o.meldingen.Teksten().back(), std::string("Wilt u Kiekbord afsluiten?"));
}

void PhotoEditDialogsTest::optionsDialogWithoutExternalEditing() {
  Opstelling o;
  o.settings.extern_bewerken = false;
  o.opslag.Schrijf("Photo", "Editor", "/usr/bin/gimp");
  const QString bin = o.tmp.filePath(QStringLiteral("bin"));
  QDir().mkpath(bin);
  QFile gimp(bin + QStringLiteral("/gimp"));
  QVERIFY(gimp.open(QIODevice::WriteOnly));
  gimp.close();
  Omgeving pad("PATH", bin.toLocal8Bit());
  o.Start(false);
  BijDialoog("frmOpties", [&](QDialog* d) {
    for (const char* naam : {"lblFotoprogramma", "txtFotoProgramma", "cmdFotoProgramma"}) {
      QVERIFY2(!In<QWidget>(d, naam)->isEnabled(), naam);
    }
    // Neither the stored program nor a proposal is shown.
    QCOMPARE(In<QLineEdit>(d, "txtFotoProgramma")->text(), QString());
    In<QPushButton>(d, "cmdOK")->click();
  });
  o.Actie("mnuExtraOpties")->trigger();
  // OK saves the box as it is: empty.
  QCOMPARE(o.opslag.waarden["Photo/Editor"], std::string());
  QVERIFY(o.Sluit());
}

void PhotoEditDialogsTest::optionsDialogHelpButton() {
  Opstelling o;
  Omgeving pad("PATH", QByteArray("/geen/map"));
  o.Start(false);
  BijDialoog("frmOpties", [&](QDialog* d) { In<QPushButton>(d, "cmdHelp")->click(); });
  o.Actie("mnuExtraOpties")->trigger();
  QCOMPARE(o.bureaublad.adressen, (std::vector<std::string>{kProgramData + "Help/index05.html"}));
  QVERIFY(Bestaat(o.bureaublad.adressen[0]));

  // The other help pages, from the menu, exist too.
  o.Actie("mnuHelpKiekbordHelp")->trigger();
  o.Actie("mnuHelpStap")->trigger();
  o.Actie("mnuHelpSjablonen")->trigger();
  o.NaarStap2();
  o.Actie("mnuHelpStap")->trigger();
  o.venster->Volgende();
  o.Actie("mnuHelpStap")->trigger();
  QCOMPARE(o.bureaublad.adressen,
           (std::vector<std::string>{kProgramData + "Help/index05.html", kProgramData + "Help/index.html",
                                     kProgramData + "Help/index01.html", kProgramData + "Help/index04.html",
                                     kProgramData + "Help/index02.html", kProgramData + "Help/index03.html"}));
  for (const std::string& adres : o.bureaublad.adressen) QVERIFY2(Bestaat(adres), adres.c_str());
  QVERIFY(o.Sluit());

  // Help pages on a host that is not set: the message, nothing opened.
  Opstelling php;
  php.settings.help_type = ".php";
  php.Start(false);
  BijDialoog("frmOpties", [&](QDialog* d) { In<QPushButton>(d, "cmdHelp")->click(); });
  php.Actie("mnuExtraOpties")->trigger();
  QCOMPARE(php.meldingen.Teksten(),
           (std::vector<std::string>{"Hostname niet (goed) gedefinieerd!\r\nHelppagina kan niet worden gestart."}));
  QCOMPARE(php.meldingen.getoond[0].melding.soort, MeldingSoort::kWaarschuwing);
  QVERIFY(php.bureaublad.adressen.empty());
  QVERIFY(php.Sluit());
}

// --- Browser --------------------------------------------------------------------

void PhotoEditDialogsTest::browserIsSearchedOnceAndMessagesShown() {
  TestMeldingen meldingen;
  int gezocht = 0;
  std::vector<QUrl> geopend;
  {
    QtBureaublad bureaublad(
        meldingen, [&](const std::string&) -> std::optional<std::string> { ++gezocht; return std::nullopt; },
        [&](const QUrl& url) { geopend.push_back(url); return true; });
    bureaublad.OpenAddress(nullptr, "https://kiekbord.nl/", true);
    bureaublad.OpenAddress(nullptr, "/prog/Help/index.html", false);
    QCOMPARE(bureaublad.FindBrowser(""), std::string("%Error:De Internet Browser is niet gevonden."));
  }
  QCOMPARE(gezocht, 1);
  QVERIFY(geopend.empty());
  QCOMPARE(meldingen.Teksten(), (std::vector<std::string>{"De Internet Browser is niet gevonden.",
                                                          "De Internet Browser is niet gevonden."}));
  QCOMPARE(meldingen.getoond[0].melding.soort, MeldingSoort::kWaarschuwing);

  meldingen.getoond.clear();
  gezocht = 0;
  bool lukt = true;
  QtBureaublad bureaublad(
      meldingen, [&](const std::string&) -> std::optional<std::string> { ++gezocht; return "/usr/bin/chromium"; },
      [&](const QUrl& url) { geopend.push_back(url); return lukt; });
  bureaublad.OpenAddress(nullptr, "https://kiekbord.nl/hulp/index.php", true);
  bureaublad.OpenAddress(nullptr, "/prog/Help/index.html", true);
  QCOMPARE(geopend, (std::vector<QUrl>{QUrl(QStringLiteral("https://kiekbord.nl/hulp/index.php")),
                                       QUrl::fromLocalFile(QStringLiteral("/prog/Help/index.html"))}));
  QVERIFY(meldingen.getoond.empty());
  lukt = false;
  bureaublad.OpenAddress(nullptr, "/prog/Help/index.html", false);
  QCOMPARE(meldingen.Teksten(),
           (std::vector<std::string>{"Internetadres /prog/Help/index.html kan niet worden geopend."}));
  QCOMPARE(gezocht, 1);
  QCOMPARE(bureaublad.FindBrowser("x"), std::string("/usr/bin/chromium"));
}

// The desktop's default handler for web pages, as xdg-mime reports it from
// the user's own configuration.
void PhotoEditDialogsTest::browserFromTheDesktopsDefaultHandler() {
  QTemporaryDir tmp;
  const QString config = tmp.filePath(QStringLiteral("config"));
  const QString data = tmp.filePath(QStringLiteral("data"));
  QDir().mkpath(config);
  QDir().mkpath(data + QStringLiteral("/applications"));
  const auto schrijf = [](const QString& pad, const QByteArray& inhoud) {
    QFile f(pad);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write(inhoud);
  };
  Omgeving home("XDG_CONFIG_HOME", config.toLocal8Bit());
  Omgeving data_home("XDG_DATA_HOME", data.toLocal8Bit());
  Omgeving data_dirs("XDG_DATA_DIRS", tmp.filePath(QStringLiteral("leeg")).toLocal8Bit());
  Omgeving desktop("XDG_CURRENT_DESKTOP", QByteArray());
  QCOMPARE(XdgBrowserOpzoeken(""), std::nullopt);

  // Two programs take web pages; the user's choice decides. (xdg-mime
  // passes over a choice whose program is not there.)
  QDir().mkpath(tmp.filePath(QStringLiteral("bin")));
  for (const char* naam : {"andere", "proef"}) {
    const QString programma = tmp.filePath(QStringLiteral("bin/") + QLatin1String(naam));
    schrijf(programma, "#!/bin/sh\n");
    QVERIFY(QFile::setPermissions(programma, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    schrijf(data + QStringLiteral("/applications/") + QLatin1String(naam) + QStringLiteral(".desktop"),
            "[Desktop Entry]\nType=Application\nName=Proef\nExec=" + programma.toLocal8Bit() +
                " %u\nMimeType=text/html;\n");
  }
  schrijf(config + QStringLiteral("/mimeapps.list"), "[Default Applications]\ntext/html=proef.desktop\n");
  QCOMPARE(XdgBrowserOpzoeken(""), std::optional<std::string>(tmp.filePath(QStringLiteral("bin/proef")).toStdString()));
  schrijf(config + QStringLiteral("/mimeapps.list"), "[Default Applications]\ntext/html=andere.desktop\n");
  QCOMPARE(XdgBrowserOpzoeken(""), std::optional<std::string>(tmp.filePath(QStringLiteral("bin/andere")).toStdString()));
}

void PhotoEditDialogsTest::externalProgramStart() {
  TestMeldingen meldingen;
  QtBureaublad bureaublad(meldingen);
  QTemporaryDir tmp;
  QVERIFY(!bureaublad.StartProgramma(tmp.filePath(QStringLiteral("bestaat-niet")).toStdString(), {"/f.jpg"}));
  QVERIFY(bureaublad.StartProgramma("true", {"/f.jpg"}));
  QVERIFY(meldingen.getoond.empty());
}

}  // namespace kiekbord::test

QTEST_MAIN(kiekbord::test::PhotoEditDialogsTest)
#include "photo_edit_dialogs_test.moc"
