// Drives the photo edit commands, the resize dialog `frmVerklein`, the
// options dialog `frmOpties` and the desktop services as a user would, on
// real photo files. The rules behind the dialogs are tested in tests/editor;
// here each control is checked to be wired to its rule.

#include <QButtonGroup>
#include <QCheckBox>
#include <QDialog>
#include <QGroupBox>
#include <QImage>
#include <QPainter>
#include <QRadioButton>
#include <QScreen>
#include <QTimer>
#include <QUrl>

#include <functional>

#include "base/file_system.h"
#include "images/photo_properties.h"
#include "tests/ui/window_fixture.h"
#include "ui/desktop_services.h"

namespace kiekbord::test {
namespace {

// A photo of `breedte` x `hoogte` with something on it to scale and turn.
void MaakFoto(const std::string& pad, int breedte, int hoogte) {
  QImage beeld(breedte, hoogte, QImage::Format_RGB32);
  beeld.fill(QColor(40, 90, 160));
  QPainter(&beeld).fillRect(0, 0, breedte / 2, hoogte / 3, QColor(230, 200, 60));
  QVERIFY(beeld.save(QString::fromStdString(pad), "JPEG", 90));
}

// The size of a photo as the program measures it.
QString Maat(const std::string& pad) { return QString::fromStdString(BepaalAfmetingen(pad)).remove(QLatin1Char('!')); }

// A window on step 2 over an output folder with a landscape and a portrait
// photo of 1600 x 1200 pixels.
struct FotoOpstelling : Opstelling {
  const std::string uit = Map("site");
  FotoOpstelling() {
    MaakFoto(uit + "liggend.jpg", 1600, 1200);
    MaakFoto(uit + "staand.jpg", 1200, 1600);
  }
  void NaarStap2() {
    Volgende(uit, uit);
    if (venster->stap() != 2) qWarning("niet op stap 2");
  }
  void Kies(const char* naam) {
    const QList<QListWidgetItem*> items = Fotos()->findItems(QString::fromLatin1(naam), Qt::MatchExactly);
    if (items.size() == 1) Fotos()->setCurrentItem(items.front());
  }
  bool Aan(const char* actie) const { return Actie(actie)->isEnabled(); }
};

// A disk with no room for another byte.
class VolleSchijf : public ForwardingFileSystem {
 public:
  VolleSchijf() : ForwardingFileSystem(LocalFileSystem()) {}
  Status WriteFile(const std::string&, std::string_view) override { return Status::Error(fout::kDiskFull); }
};

// Sets an environment variable for the lifetime of the object.
class Omgeving {
 public:
  Omgeving(const char* naam, const QByteArray& waarde) : naam_(naam), oud_(qgetenv(naam)), had_(qEnvironmentVariableIsSet(naam)) {
    qputenv(naam, waarde);
  }
  ~Omgeving() { had_ ? qputenv(naam_, oud_) : qunsetenv(naam_); }
  Omgeving(const Omgeving&) = delete;
  Omgeving& operator=(const Omgeving&) = delete;

 private:
  const char* naam_;
  QByteArray oud_;
  bool had_;
};

// Runs `stappen` on the modal dialog `naam` once it is open, opened by
// triggering `actie`, then closes the dialog unless the steps did: a failing
// check never leaves the test waiting. False when the dialog never opened.
bool BijDialoog(Opstelling& o, const char* actie, const char* naam, std::function<void(QDialog*)> stappen) {
  bool geopend = false, klaar = false;
  QTimer::singleShot(0, [&] {
    QDialog* d = nullptr;
    geopend = QTest::qWaitFor([&] {
      d = qobject_cast<QDialog*>(QApplication::activeModalWidget());
      return d != nullptr && d->objectName() == QLatin1String(naam) && d->isVisible();
    });
    if (geopend) stappen(d);
    if (geopend && d->isVisible()) d->reject();
    klaar = true;
  });
  o.Actie(actie)->trigger();
  // When no dialog opened, the check above still has to run out.
  return QTest::qWaitFor([&] { return klaar; }, 10000) && geopend;
}

template <typename T>
T* In(QDialog* dialoog, const char* naam) {
  T* w = dialoog->findChild<T*>(QString::fromLatin1(naam));
  if (w == nullptr) qWarning("geen %s", naam);
  return w;
}
QString Tekst(QDialog* d, const char* naam) { return In<QLineEdit>(d, naam)->text(); }
bool OkAan(QDialog* d) { return In<QPushButton>(d, "cmdOK")->isEnabled(); }

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

bool Gecentreerd(QDialog* d) {
  return (d->frameGeometry().center() - d->screen()->availableGeometry().center()).manhattanLength() <= 2;
}

}  // namespace

class PhotoEditDialogsTest : public QObject {
  Q_OBJECT

 private slots:
  void cleanup();

  void editItemsFollowTheSelectionAndTheSettings();
  void rotateAsksAndTurnsWithABackup();
  void externalEditAndRefresh();

  void resizeDialogShowsThePhotoAndTheRememberedSize();
  void resizeDialogCancelChangesNothingAndOkShrinksAndRemembers();

  void optionsDialogShowsStoredPreferences();
  void optionsDialogCancelKeepsAndOkSavesTheValues();

  void browserFromTheDesktopsDefaultHandler();
  void externalProgramStart();
};

void PhotoEditDialogsTest::cleanup() {
  QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
  QTRY_VERIFY(QApplication::activePopupWidget() == nullptr);
}

// --- Photo edit commands -----------------------------------------------------------

void PhotoEditDialogsTest::editItemsFollowTheSelectionAndTheSettings() {
  const char* const bewerk[] = {"mnuBewerkenFotoRoterenLinks", "mnuBewerkenFotoRoterenRechts",
                                "mnuBewerkenFotoVerkleinen", "mnuBewerkenFotoExternBewerken",
                                "mnuBewerkenFotoVernieuwen"};
  FotoOpstelling o;
  o.Start();
  for (const char* actie : bewerk) QVERIFY2(!o.Aan(actie), actie);
  QVERIFY(o.Aan("mnuExtraOpties"));
  o.NaarStap2();
  // No photo program set: nothing to start, nothing to refresh.
  QCOMPARE((std::array{o.Aan(bewerk[0]), o.Aan(bewerk[1]), o.Aan(bewerk[2]), o.Aan(bewerk[3]), o.Aan(bewerk[4])}),
           (std::array{true, true, true, false, false}));
  o.Fotos()->setCurrentRow(-1);
  for (const char* actie : bewerk) QVERIFY2(!o.Aan(actie), actie);
  QVERIFY(o.Sluit());

  // "KBord.ini" switches resizing and external editing off.
  FotoOpstelling uit;
  uit.settings.verkleinen = false;
  uit.settings.extern_bewerken = false;
  uit.opslag.Schrijf("Photo", "Editor", "/usr/bin/gimp");
  uit.Start();
  uit.NaarStap2();
  QVERIFY(uit.Aan("mnuBewerkenFotoRoterenLinks"));
  QVERIFY(!uit.Aan("mnuBewerkenFotoVerkleinen"));
  QVERIFY(!uit.Aan("mnuBewerkenFotoExternBewerken"));
  QVERIFY(uit.Sluit());
}

void PhotoEditDialogsTest::rotateAsksAndTurnsWithABackup() {
  FotoOpstelling o;
  o.Start();
  o.NaarStap2();
  o.Kies("liggend.jpg");
  const std::string foto = o.uit + "liggend.jpg";
  const std::string origineel = Lees(foto);

  // "Nee" leaves photo and preview alone.
  o.Actie("mnuBewerkenFotoRoterenLinks")->trigger();
  QCOMPARE(o.meldingen.getoond.size(), std::size_t{1});
  QCOMPARE(o.meldingen.getoond[0].melding, (Melding{MeldingSoort::kVraag, "Foto linksom roteren?"}));
  QCOMPARE(Lees(foto), origineel);

  o.meldingen.antwoorden = {true, true};
  o.Actie("mnuBewerkenFotoRoterenLinks")->trigger();
  QCOMPARE(Maat(foto), QStringLiteral("1200x1600"));
  QCOMPARE(o.Info(), QStringLiteral("liggend.jpg\n1200 x 1600 pixels"));
  QCOMPARE(o.Fotos()->currentItem()->text(), QStringLiteral("liggend.jpg"));
  o.Actie("mnuBewerkenFotoRoterenRechts")->trigger();
  QCOMPARE(o.meldingen.Teksten().back(), std::string("Foto rechtsom roteren?"));
  QCOMPARE(o.Info(), QStringLiteral("liggend.jpg\n1600 x 1200 pixels"));
  // The backup still holds the photo as it was before the first turn.
  QCOMPARE(Lees(o.uit + "Backup/liggend.jpg"), origineel);
  QCOMPARE(o.meldingen.getoond.size(), std::size_t{3});

  // A failure is shown as the library reports it, and leaves the photo.
  Schrijf(o.uit + "staand.jpg", "\xFF\xD8 dit is geen foto");
  o.Kies("staand.jpg");
  o.meldingen.antwoorden = {true};
  o.Actie("mnuBewerkenFotoRoterenLinks")->trigger();
  QCOMPARE(o.meldingen.getoond.back().melding,
           (Melding{MeldingSoort::kWaarschuwing, "Fout 26002 tijdens roteren foto.(De foto " + o.uit + "staand.jpg"
                                                 " is onvolledig: het bestand houdt op voor de beeldgegevens.)"}));
  QCOMPARE(Lees(o.uit + "staand.jpg"), std::string("\xFF\xD8 dit is geen foto"));
  QVERIFY(o.Sluit());
}

void PhotoEditDialogsTest::externalEditAndRefresh() {
  FotoOpstelling o;
  o.opslag.Schrijf("Photo", "Editor", "/usr/bin/gimp");
  o.Start();
  o.NaarStap2();
  o.Kies("staand.jpg");
  QVERIFY(!o.Aan("mnuBewerkenFotoVernieuwen"));
  o.Actie("mnuBewerkenFotoExternBewerken")->trigger();
  QCOMPARE(o.bureaublad.gestart, (std::vector<std::string>{"/usr/bin/gimp", o.uit + "staand.jpg"}));
  QVERIFY(o.meldingen.getoond.empty());
  QVERIFY(o.Aan("mnuBewerkenFotoVernieuwen"));

  // The program changes the photo; refreshing shows it as it is now.
  MaakFoto(o.uit + "staand.jpg", 600, 800);
  QCOMPARE(o.Info(), QStringLiteral("staand.jpg\n1200 x 1600 pixels"));
  o.Actie("mnuBewerkenFotoVernieuwen")->trigger();
  QCOMPARE(o.Info(), QStringLiteral("staand.jpg\n600 x 800 pixels"));
  QCOMPARE(o.Fotos()->currentItem()->text(), QStringLiteral("staand.jpg"));
  QVERIFY(!o.Aan("mnuBewerkenFotoVernieuwen"));

  // A program that won't start: the system's error, and nothing to refresh.
  o.bureaublad.start_lukt = false;
  o.Actie("mnuBewerkenFotoExternBewerken")->trigger();
  QCOMPARE(o.meldingen.getoond.size(), std::size_t{1});
  QCOMPARE(o.meldingen.getoond[0].melding,
           (Melding{MeldingSoort::kFout, "Fout 53 tijdens starten fotoprogramma /usr/bin/gimp.\r\n(File not found)"}));
  QVERIFY(!o.Aan("mnuBewerkenFotoVernieuwen"));
  QVERIFY(o.Sluit());
}

// --- Resize dialog -------------------------------------------------------------

void PhotoEditDialogsTest::resizeDialogShowsThePhotoAndTheRememberedSize() {
  FotoOpstelling o;
  o.opslag.Schrijf("Verkleinen", "Breedte", "1024");
  o.opslag.Schrijf("Verkleinen", "Hoogte", "768");
  o.opslag.Schrijf("Verkleinen", "Verhouding", "0");
  o.opslag.Schrijf("Verkleinen", "Kwaliteit", "2");
  o.Start();
  o.NaarStap2();
  o.Kies("staand.jpg");
  QVERIFY(BijDialoog(o, "mnuBewerkenFotoVerkleinen", "frmVerklein", [](QDialog* d) {
    QCOMPARE(d->windowTitle(), QStringLiteral("Kiekbord - Foto verkleinen"));
    QVERIFY(Gecentreerd(d));
    QCOMPARE(Tekst(d, "txtBreedteHuidig") + "x" + Tekst(d, "txtHoogteHuidig"), QStringLiteral("1200x1600"));
    QVERIFY(In<QLineEdit>(d, "txtBreedteHuidig")->isReadOnly());
    QVERIFY(In<QLineEdit>(d, "txtHoogteHuidig")->isReadOnly());
    // A portrait photo: the smaller preset goes across.
    QCOMPARE(Tekst(d, "txtBreedteNieuw") + "x" + Tekst(d, "txtHoogteNieuw"), QStringLiteral("768x1024"));
    QVERIFY(!In<QCheckBox>(d, "chkVerhouding")->isChecked());
    QCOMPARE(In<QButtonGroup>(d, "optKwaliteit")->checkedId(), 2);
    QVERIFY(OkAan(d));
    const std::pair<const char*, const char*> knoppen[] = {
        {"optKwaliteit0", "&Hoog (100)"}, {"optKwaliteit1", "&Gemiddeld (80)"}, {"optKwaliteit2", "&Laag (60)"},
        {"cmdOK", "&OK"}, {"cmdAnnuleren", "&Annuleren"}};
    for (const auto& [naam, tekst] : knoppen) QCOMPARE(In<QAbstractButton>(d, naam)->text(), QString::fromUtf8(tekst));
  }));

  // Presets larger than a landscape photo: shown the photo's way round, OK off.
  o.opslag.Schrijf("Verkleinen", "Hoogte", "2000");
  o.Kies("liggend.jpg");
  QVERIFY(BijDialoog(o, "mnuBewerkenFotoVerkleinen", "frmVerklein", [](QDialog* d) {
    QCOMPARE(Tekst(d, "txtBreedteNieuw") + "x" + Tekst(d, "txtHoogteNieuw"), QStringLiteral("2000x1024"));
    QVERIFY(!OkAan(d));
  }));
  QVERIFY(o.Sluit());
}

void PhotoEditDialogsTest::resizeDialogCancelChangesNothingAndOkShrinksAndRemembers() {
  FotoOpstelling o;
  o.Start();
  o.NaarStap2();
  o.Kies("liggend.jpg");
  const std::string origineel = Lees(o.uit + "liggend.jpg");
  const auto opslag_voor = o.opslag.waarden;
  for (const bool escape : {false, true}) {
    QVERIFY(BijDialoog(o, "mnuBewerkenFotoVerkleinen", "frmVerklein", [escape](QDialog* d) {
      TypIn(d, "txtBreedteNieuw", QStringLiteral("800"));
      if (escape) QTest::keyClick(In<QLineEdit>(d, "txtBreedteNieuw"), Qt::Key_Escape);
      else In<QPushButton>(d, "cmdAnnuleren")->click();
      QVERIFY(!d->isVisible());
    }));
  }
  QCOMPARE(Lees(o.uit + "liggend.jpg"), origineel);
  QVERIFY(!Bestaat(o.uit + "Backup"));
  QCOMPARE(o.opslag.waarden, opslag_voor);

  QVERIFY(BijDialoog(o, "mnuBewerkenFotoVerkleinen", "frmVerklein", [](QDialog* d) {
    TypIn(d, "txtBreedteNieuw", QStringLiteral("1500"));
    In<QRadioButton>(d, "optKwaliteit1")->click();
    In<QPushButton>(d, "cmdOK")->click();
  }));
  QVERIFY(o.meldingen.getoond.empty());
  QCOMPARE(Maat(o.uit + "liggend.jpg"), QStringLiteral("1500x1125"));
  QCOMPARE(o.Info(), QStringLiteral("liggend.jpg\n1500 x 1125 pixels"));
  QCOMPARE(Lees(o.uit + "Backup/liggend.jpg"), origineel);
  for (const auto& [sleutel, waarde] : {std::pair{"Verkleinen/Breedte", "1500"}, {"Verkleinen/Hoogte", "1125"},
                                        {"Verkleinen/Verhouding", "1"}, {"Verkleinen/Kwaliteit", "1"}}) {
    QCOMPARE(o.opslag.waarden[sleutel], std::string(waarde));
  }
  // The next photo opens with what was remembered, its own way round.
  o.Kies("staand.jpg");
  QVERIFY(BijDialoog(o, "mnuBewerkenFotoVerkleinen", "frmVerklein", [](QDialog* d) {
    QCOMPARE(Tekst(d, "txtBreedteNieuw") + "x" + Tekst(d, "txtHoogteNieuw"), QStringLiteral("1125x1500"));
    QVERIFY(In<QCheckBox>(d, "chkVerhouding")->isChecked());
    QCOMPARE(In<QButtonGroup>(d, "optKwaliteit")->checkedId(), 1);
  }));
  QVERIFY(o.Sluit());
}

// --- Options dialog ------------------------------------------------------------

void PhotoEditDialogsTest::optionsDialogShowsStoredPreferences() {
  Opstelling o;
  o.opslag.waarden.clear();  // a fresh user
  const QString bin = QString::fromStdString(o.Map("bin"));
  for (const char* naam : {"pinta", "krita"}) Schrijf((bin + QLatin1String(naam)).toStdString(), "");
  Omgeving pad("PATH", (QStringLiteral("/geen/map:") + bin).toLocal8Bit());
  o.Start();
  QVERIFY(BijDialoog(o, "mnuExtraOpties", "frmOpties", [&](QDialog* d) {
    QCOMPARE(d->windowTitle(), QStringLiteral("Kiekbord - Opties"));
    QVERIFY(Gecentreerd(d));
    const std::pair<const char*, const char*> bijschriften[] = {
        {"fraBrowser", "Browser"}, {"fraBeveiliging", "Beveiliging"}, {"fraFotosBewerken", "Foto's bewerken"},
        {"fraScriptsOpslaan", "Nieuwe scripts standaard opslaan in"},
        {"chkIEDynamischAanroepen", "Microsoft Internet Explorer dynamisch aanroepen"},
        {"chkControlevraag", "Controlevraag stellen bij afsluiten "},
        {"chkBackupBijRoteren", "Backup maken van originele foto bij roteren en verkleinen"},
        {"lblFotoprogramma", "Extern fotoprogramma"}, {"cmdFotoProgramma", "Bladeren..."},
        {"optOpslaanUitvoer", "Uitvoerdirectory"}, {"optOpslaanLaatste", "Laatst gebruikte directory"},
        {"cmdOK", "&OK"}, {"cmdAnnuleren", "&Annuleren"}, {"cmdHelp", "&Help"}};
    for (const auto& [naam, tekst] : bijschriften) {
      QObject* w = In<QObject>(d, naam);
      const QString getoond = qobject_cast<QGroupBox*>(w)  ? qobject_cast<QGroupBox*>(w)->title()
                              : qobject_cast<QLabel*>(w) ? qobject_cast<QLabel*>(w)->text()
                                                           : qobject_cast<QAbstractButton*>(w)->text();
      QCOMPARE(getoond, QString::fromUtf8(tekst));
    }
    // A fresh user: every option on, the last-used directory, and a photo
    // program of the search path proposed.
    for (const char* naam : {"chkIEDynamischAanroepen", "chkControlevraag", "chkBackupBijRoteren", "optOpslaanLaatste"}) {
      QVERIFY2(In<QAbstractButton>(d, naam)->isChecked(), naam);
    }
    QVERIFY(!In<QRadioButton>(d, "optOpslaanUitvoer")->isChecked());
    QCOMPARE(Tekst(d, "txtFotoProgramma"), bin + QStringLiteral("krita"));
    for (const char* naam : {"lblFotoprogramma", "txtFotoProgramma", "cmdFotoProgramma"}) {
      QVERIFY2(In<QWidget>(d, naam)->isEnabled(), naam);
    }
    // The browser option is shown but can't be changed.
    QVERIFY(In<QCheckBox>(d, "chkIEDynamischAanroepen")->isVisible());
    QVERIFY(!In<QCheckBox>(d, "chkIEDynamischAanroepen")->isEnabled());
    // Bladeren... puts the chosen program in the box; cancelling keeps it.
    o.dialogen.fotoprogrammas = {"/opt/foto/bewerk", ""};
    In<QPushButton>(d, "cmdFotoProgramma")->click();
    In<QPushButton>(d, "cmdFotoProgramma")->click();
    QCOMPARE(Tekst(d, "txtFotoProgramma"), QStringLiteral("/opt/foto/bewerk"));
    QCOMPARE(o.dialogen.geopend_in, (std::vector<std::string>{(bin + "krita").toStdString(), "/opt/foto/bewerk"}));
  }));
  // Nothing is stored until OK.
  QVERIFY(!o.opslag.waarden.contains("Photo/Editor"));

  // Stored values set the controls, a stored program is not replaced by a
  // proposal, and a browser with a conversation may be reused.
  for (const char* sleutel : {"Exit/Question", "MSIE/DDE", "Recent/Default", "Rotate/Backup"}) o.opslag.waarden[sleutel] = "0";
  o.opslag.Schrijf("Photo", "Editor", "/opt/foto/bewerk");
  o.bureaublad.browser = "C:\\Program Files\\Internet Explorer\\iexplore.exe";
  QVERIFY(BijDialoog(o, "mnuExtraOpties", "frmOpties", [](QDialog* d) {
    for (const char* naam : {"chkIEDynamischAanroepen", "chkControlevraag", "chkBackupBijRoteren", "optOpslaanLaatste"}) {
      QVERIFY2(!In<QAbstractButton>(d, naam)->isChecked(), naam);
    }
    QVERIFY(In<QCheckBox>(d, "chkIEDynamischAanroepen")->isEnabled());
    QVERIFY(In<QRadioButton>(d, "optOpslaanUitvoer")->isChecked());
    QCOMPARE(Tekst(d, "txtFotoProgramma"), QStringLiteral("/opt/foto/bewerk"));
  }));
  QVERIFY(o.Sluit());
}

void PhotoEditDialogsTest::optionsDialogCancelKeepsAndOkSavesTheValues() {
  FotoOpstelling o;
  Omgeving pad("PATH", QByteArray("/geen/map"));
  o.Start();
  o.NaarStap2();
  const auto verander = [](QDialog* d) {
    In<QCheckBox>(d, "chkControlevraag")->click();
    In<QCheckBox>(d, "chkBackupBijRoteren")->click();
    In<QRadioButton>(d, "optOpslaanUitvoer")->click();
    In<QLineEdit>(d, "txtFotoProgramma")->setText(QStringLiteral("/usr/bin/krita"));
  };
  const auto voor = o.opslag.waarden;
  for (const bool escape : {false, true}) {
    QVERIFY(BijDialoog(o, "mnuExtraOpties", "frmOpties", [&](QDialog* d) {
      verander(d);
      if (escape) QTest::keyClick(d, Qt::Key_Escape);
      else In<QPushButton>(d, "cmdAnnuleren")->click();
      QVERIFY(!d->isVisible());
    }));
    QCOMPARE(o.opslag.waarden, voor);
  }

  QVERIFY(!o.Aan("mnuBewerkenFotoExternBewerken"));
  QVERIFY(BijDialoog(o, "mnuExtraOpties", "frmOpties", [&](QDialog* d) {
    verander(d);
    In<QPushButton>(d, "cmdOK")->click();
  }));
  QCOMPARE(o.opslag.waarden, (std::map<std::string, std::string>{{"Exit/Question", "1"},
                                                                {"MSIE/DDE", "1"},
                                                                {"Recent/Default", "0"},
                                                                {"Rotate/Backup", "0"},
                                                                {"Photo/Editor", "/usr/bin/krita"}}));
  // The window reads the preferences again: the program can be started, and
  // rotating makes no backup now.
  o.Actie("mnuBewerkenFotoExternBewerken")->trigger();
  QCOMPARE(o.bureaublad.gestart.front(), std::string("/usr/bin/krita"));
  o.meldingen.antwoorden = {true};
  o.Actie("mnuBewerkenFotoRoterenLinks")->trigger();
  QCOMPARE(o.Info().section(QLatin1Char('\n'), 1), QStringLiteral("1200 x 1600 pixels"));
  QVERIFY(!Bestaat(o.uit + "Backup"));

  // Emptying the program switches the command off again.
  QVERIFY(BijDialoog(o, "mnuExtraOpties", "frmOpties", [](QDialog* d) {
    In<QLineEdit>(d, "txtFotoProgramma")->clear();
    In<QPushButton>(d, "cmdOK")->click();
  }));
  QVERIFY(!o.Aan("mnuBewerkenFotoExternBewerken"));
  // Closing now asks first (after the question whether to save the new
  // gallery, answered "Nee").
  o.meldingen.antwoorden = {false, true};
  QVERIFY(o.Sluit());
  QCOMPARE(o.meldingen.Teksten().back(), std::string("Wilt u Kiekbord afsluiten?"));
}

// --- Desktop services ------------------------------------------------------------

// The desktop's default handler for web pages, as xdg-mime reports it from
// the user's own configuration.
void PhotoEditDialogsTest::browserFromTheDesktopsDefaultHandler() {
  Opstelling o;
  const std::string config = o.Map("config"), data = o.Map("data/applications"), bin = o.Map("bin");
  Omgeving home("XDG_CONFIG_HOME", QByteArray::fromStdString(config));
  Omgeving data_home("XDG_DATA_HOME", QByteArray::fromStdString(o.basis + "data"));
  Omgeving data_dirs("XDG_DATA_DIRS", QByteArray::fromStdString(o.basis + "leeg"));
  Omgeving desktop("XDG_CURRENT_DESKTOP", QByteArray());
  QCOMPARE(XdgBrowserOpzoeken(""), std::nullopt);

  // Two programs take web pages; the user's choice decides. (xdg-mime
  // passes over a choice whose program is not there.)
  for (const std::string naam : {"andere", "proef"}) {
    Schrijf(bin + naam, "#!/bin/sh\n");
    QVERIFY(QFile::setPermissions(QString::fromStdString(bin + naam), QFile::ReadOwner | QFile::ExeOwner));
    Schrijf(data + naam + ".desktop",
            "[Desktop Entry]\nType=Application\nName=Proef\nExec=" + bin + naam + " %u\nMimeType=text/html;\n");
  }
  for (const std::string naam : {"proef", "andere"}) {
    Schrijf(config + "mimeapps.list", "[Default Applications]\ntext/html=" + naam + ".desktop\n");
    QCOMPARE(XdgBrowserOpzoeken(""), std::optional<std::string>(bin + naam));
  }
}

void PhotoEditDialogsTest::externalProgramStart() {
  TestMeldingen meldingen;
  QtBureaublad bureaublad(meldingen);
  QVERIFY(!bureaublad.StartProgramma("/bestaat/niet", {"/f.jpg"}));
  QVERIFY(bureaublad.StartProgramma("true", {"/f.jpg"}));
  QVERIFY(meldingen.getoond.empty());
}

}  // namespace kiekbord::test

QTEST_MAIN(kiekbord::test::PhotoEditDialogsTest)
#include "photo_edit_dialogs_test.moc"
