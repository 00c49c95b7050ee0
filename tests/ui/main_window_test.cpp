// Drives the main window as a user would: the three steps, the script
// commands, the photo list, the colours and the generation with progress.
// What each command decides is tested in tests/editor; here each control is
// checked to be wired to its rule, with the messages answered through the
// test doubles.

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QSet>
#include <QTimer>

#include <algorithm>
#include <array>
#include <filesystem>
#include <map>

#include "app/startup_checks.h"
#include "editor/colour_choice.h"
#include "editor/photo_import.h"
#include "editor/photo_list.h"
#include "editor/wizard_rules.h"
#include "base/file_system.h"
#include "generator/generation_run.h"
#include "tests/ui/window_fixture.h"
#include "ui/generation_progress.h"

namespace kiekbord::test {
namespace {

// What a control shows the user: a frame's, menu's or button's caption, a
// label's text, or for a field the caption of the label that carries it.
QString Bijschrift(const MainWindow& w, const char* naam) {
  QObject* o = w.findChild<QObject*>(QString::fromLatin1(naam));
  if (auto* a = qobject_cast<QAction*>(o)) return a->text();
  if (auto* m = qobject_cast<QMenu*>(o)) return m->title();
  if (auto* g = qobject_cast<QGroupBox*>(o)) return g->title();
  if (auto* b = qobject_cast<QAbstractButton*>(o)) return b->text();
  if (auto* l = qobject_cast<QLabel*>(o)) return l->text();
  for (QLabel* l : w.findChildren<QLabel*>()) {
    if (o != nullptr && l->buddy() == o) return l->text();
  }
  return QStringLiteral("(geen %1)").arg(QLatin1String(naam));
}

// What a field holds: a text, a list's choice, a check box as "1" or "0".
QString Waarde(const MainWindow& w, const char* naam) {
  QObject* o = w.findChild<QObject*>(QString::fromLatin1(naam));
  if (auto* t = qobject_cast<QLineEdit*>(o)) return t->text();
  if (auto* t = qobject_cast<QPlainTextEdit*>(o)) return t->toPlainText();
  if (auto* c = qobject_cast<QComboBox*>(o)) return c->currentText();
  if (auto* c = qobject_cast<QCheckBox*>(o)) return c->isChecked() ? QStringLiteral("1") : QStringLiteral("0");
  return QStringLiteral("(geen %1)").arg(QLatin1String(naam));
}

// A menu's items by name, "-" for a separator.
QString Volgorde(const QMenu* menu) {
  QStringList namen;
  for (QAction* a : menu->actions()) namen << (a->isSeparator() ? QStringLiteral("-") : a->objectName());
  return namen.join(QLatin1Char(' '));
}

QColor Tekstkleur(const Opstelling& o, const char* voorbeeld) {
  return o.W<QLabel>(voorbeeld)->palette().color(QPalette::WindowText);
}
QColor Vulkleur(const Opstelling& o, const char* voorbeeld) {
  return o.W<QLabel>(voorbeeld)->palette().color(QPalette::Window);
}

// A disk that takes no writes.
class AlleenLezen : public ForwardingFileSystem {
 public:
  AlleenLezen() : ForwardingFileSystem(LocalFileSystem()) {}
  Status WriteFile(const std::string&, std::string_view) override { return Status::Error(fout::kPermissionDenied); }
};

const std::string kOpslaanVoorAfsluiten = "Wilt u de gewijzigde gegevens opslaan\r\nvoordat u Kiekbord afsluit?";

// A current-form script with the photos "foto_b.jpg" (caption), "weg_weg.jpg"
// (not in the folder) and "foto_a.jpg" (no caption).
std::string HuidigScript(const std::string& in, const std::string& uit, const std::string& sjabloon = "Donker") {
  return "[Kiekbord]\r\nAanmaakdatum=vrijdag 20 november 2026\r\nVersie=4.1\r\n"
         "Opmerking=Dit bestand niet handmatig aanpassen!\r\n"
         "[Algemeen]\r\nInvoerDir=" + in + "\r\nUitvoerDir=" + uit +
         "\r\nTitel=Vakantie\r\nSubtitel=Zomer aan zee\r\nDatum=juli 2026\r\n"
         "Beschrijving=Regel een<br>Regel twee\r\nThumbnails=1\r\nAantalFotos=3\r\n"
         "[Foto001]\r\nFoto=foto_b.jpg\r\nBijschrift=Aan het strand\r\n"
         "[Foto002]\r\nFoto=weg_weg.jpg\r\nBijschrift=Ontbreekt\r\n"
         "[Foto003]\r\nFoto=foto_a.jpg\r\nBijschrift=\r\n"
         "[Instellingen]\r\nSjabloon=" + sjabloon +
         "\r\nAantalFotosPerPagina=12\r\nPresentatie=1\r\nPositieFotos=2\r\nPositieBijschriften=1\r\n"
         "FotosZonderBijschrift=1\r\nLetterTypeTitels=6\r\nLetterTypeBijschriften=3\r\n"
         "LetterGrootteBijschriften=4\r\nLetterStijlBijschriften=3\r\nKleurTekstOpAchtergrond=255\r\n"
         "KleurAchtergrond=0\r\nKleurTekstInKader=16777215\r\nKleurKader=8421504\r\n";
}

// Writes HuidigScript for an output folder with foto_a.jpg and foto_b.jpg.
std::string MaakScript(Opstelling& o, const std::string& naam, const std::string& sjabloon = "Donker") {
  const std::string uit = o.Map("uit", {{"foto_a.jpg", kFoto1}, {"foto_b.jpg", kFoto2}});
  Schrijf(o.basis + naam, HuidigScript(o.basis + "in/", uit, sjabloon));
  return o.basis + naam;
}

}  // namespace

class MainWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void cleanup();

  void controlsMenusAndListsHaveTheirCaptions();
  void stepsSetButtonsMenusAndHelpCaption();
  void nextAsksBeforeCopyingUpToTheMaximum();

  void photoListCaptionsMoveAndPreview();
  void addAndRemovePhotos();

  void openScriptFillsTheWindow();
  void openCommandAsksToSaveChanges();
  void saveAsSaveAndRecentEntry();
  void closingAsksToSaveAndToClose();

  void colourItemsChangeTheirOwnColour();
  void activationChecksAndCommandLine();
  void finishSavesAndGeneratesAsADirectRunWould();
  void helpAndAbout();
};

void MainWindowTest::cleanup() {
  // No box, dialog or menu may be left open by a test.
  QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
  QTRY_VERIFY(QApplication::activePopupWidget() == nullptr);
}

void MainWindowTest::controlsMenusAndListsHaveTheirCaptions() {
  Opstelling o;
  o.settings.kleur_tekst_op_achtergrond = "#0000FF";
  o.settings.kleur_achtergrond = "x";
  MainWindow& w = o.Start();
  QCOMPARE(w.objectName(), QStringLiteral("frmKiekbord"));
  QCOMPARE(w.windowTitle(), QStringLiteral("Kiekbord 4.1 Pro"));
  QCOMPARE(w.stap(), 1);
  const std::pair<const char*, const char*> bijschriften[] = {
      {"fraAlgemeen", "1. Algemeen"}, {"fraFotobijschriften", "2. Fotobijschriften"},
      {"fraInstellingen", "3. Instellingen"}, {"cmdVorige", "< &Vorige"}, {"cmdVolgende", "V&olgende >"},
      {"cmdVoltooien", "Voltooie&n"}, {"cmdInvoer", "Bladeren..."}, {"cmdUitvoer", "Bladeren..."},
      {"chkThumbnails", "Overzichtspagina met thumbnails &aanmaken"}, {"cmdKleurGebruik", "&Kleurgebruik"},
      {"lblKleurVoorbeeld01", "Tekst op achtergrond"}, {"lblKleurVoorbeeld02", "Tekst in fotokader"},
      {"txtTitel", "&Titel"}, {"txtSubtitel", "&Subtitel"}, {"txtDatum", "&Datum"},
      {"txtBeschrijving", "Besch&rijving"}, {"txtInvoerDir", "&Invoerdirectory"},
      {"txtUitvoerDir", "&Uitvoerdirectory"}, {"txtBijschrift", "Bij&schrift"}, {"lstFotos", "&Foto's"},
      {"cboPresentatie", "&Presentatie"}, {"cboSjabloon", "S&jabloon"}, {"cboPositieFotos", "Positie &foto's"},
      {"txtAantalFotosPerPagina", "&Aantal foto's per pagina"}, {"cboFotosZonderBijschrift", "Foto's &zonder bijschrift"},
      {"cboLetterTypeTitels", "Letter&type titels"}, {"cboLetterTypeBijschriften", "Lettertype bij&schriften"},
      {"cboLetterGrootteBijschriften", "Letter&grootte bijschriften"}, {"cboPositieBijschriften", "Pos&itie bijschriften"},
      {"mnuBestand", "&Bestand"}, {"mnuBewerken", "Be&werken"}, {"mnuExtra", "E&xtra"}, {"mnuHelp", "&Help"},
      {"mnuBestandScriptOpenen", "Script &openen..."}, {"mnuBestandScriptOpslaan", "Script o&pslaan"},
      {"mnuBestandScriptOpslaanAls", "Script ops&laan als..."}, {"mnuBestandLaatste", "Laaste scriptbestand"},
      {"mnuBestandAfsluiten", "&Afsluiten"}, {"mnuBewerkenFotoToevoegen", "Foto &toevoegen..."},
      {"mnuBewerkenFotoVerwijderenGalerij", "Foto verwijderen uit &kiekbord"},
      {"mnuBewerkenFotoVerwijderenTotaal", "Foto verwijderen uit kiekbord en van &schijf"},
      {"mnuBewerkenFotoRoterenLinks", "Foto &linksom roteren"}, {"mnuBewerkenFotoRoterenRechts", "Foto &rechtsom roteren"},
      {"mnuBewerkenFotoVerkleinen", "Foto ver&kleinen..."}, {"mnuBewerkenFotoExternBewerken", "Foto &extern bewerken"},
      {"mnuBewerkenFotoVernieuwen", "Foto &vernieuwen"}, {"mnuExtraOpties", "&Opties..."},
      {"mnuHelpKiekbordHelp", "&Kiekbord Help"}, {"mnuHelpStap", "Stap &1. Algemeen "}, {"mnuHelpSjablonen", "&Sjablonen"},
      {"mnuHelpInfo", "&Info"}, {"mnuKleurGebruikTekstOpAchtergrond", "&Tekst op achtergrond"},
      {"mnuKleurGebruikAchtergrond", "&Achtergrond"}, {"mnuKleurGebruikTekstInKader", "Tekst in &fotokader"},
      {"mnuKleurGebruikKader", "&Fotokader"},
  };
  for (const auto& [naam, tekst] : bijschriften) QCOMPARE(Bijschrift(w, naam), QString::fromUtf8(tekst));
  QCOMPARE(o.Knop("cmdFotoOmhoog")->toolTip(), QStringLiteral("Verplaats foto naar voren in de kiekbord"));
  QCOMPARE(o.Knop("cmdFotoOmlaag")->toolTip(), QStringLiteral("Verplaats foto naar achteren in de kiekbord"));
  QVERIFY(std::ranges::any_of(w.findChildren<QLabel*>(), [](QLabel* l) { return l->text() == "(1...99)"; }));

  QStringList balk;
  for (QAction* a : w.menuBar()->actions()) balk << a->text();
  QCOMPARE(balk, (QStringList{"&Bestand", "Be&werken", "E&xtra", "&Help"}));
  QCOMPARE(Volgorde(o.W<QMenu>("mnuBestand")), QStringLiteral("mnuBestandScriptOpenen mnuBestandScriptOpslaan "
                                                               "mnuBestandScriptOpslaanAls - mnuBestandLaatste - "
                                                               "mnuBestandAfsluiten"));
  // The colour menu is a pop-up of its button, not in the menu bar.
  QCOMPARE(Volgorde(o.W<QMenu>("mnuKleurGebruik")), QStringLiteral("mnuKleurGebruikTekstOpAchtergrond "
                                                                    "mnuKleurGebruikAchtergrond - "
                                                                    "mnuKleurGebruikTekstInKader mnuKleurGebruikKader"));
  // Save is off until a script is open or saved; the recent entry is hidden
  // until a script has been saved; the helper lists and box stay hidden.
  QVERIFY(!o.Actie("mnuBestandScriptOpslaan")->isEnabled());
  QVERIFY(!o.Actie("mnuBestandLaatste")->isVisible());
  for (const char* naam : {"lstBijschriften", "flstDirFotos", "txtDDE"}) QVERIFY(!o.W<QWidget>(naam)->isVisibleTo(&w));

  // The access keys of each step are unique among the step's own labels and
  // buttons, the menu bar's and the three buttons below.
  for (const char* stap : {"fraAlgemeen", "fraFotobijschriften", "fraInstellingen"}) {
    QStringList teksten = balk;
    for (const char* knop : {"cmdVorige", "cmdVolgende", "cmdVoltooien"}) teksten << o.Knop(knop)->text();
    for (QLabel* l : o.W<QGroupBox>(stap)->findChildren<QLabel*>()) teksten << l->text();
    for (QAbstractButton* b : o.W<QGroupBox>(stap)->findChildren<QAbstractButton*>()) teksten << b->text();
    QList<QKeySequence> sleutels;
    for (const QString& tekst : teksten) {
      if (!QKeySequence::mnemonic(tekst).isEmpty()) sleutels << QKeySequence::mnemonic(tekst);
    }
    QCOMPARE(QSet<QKeySequence>(sleutels.begin(), sleutels.end()).size(), sleutels.size());
  }

  // The lists of choices, and a new gallery's choices and colours (those of
  // the program settings where they name a colour).
  const std::pair<const char*, const char*> keuzes[] = {
      {"cboPresentatie", "Handmatig|Automatisch"},
      {"cboPositieFotos", "Links op de pagina|Midden op de pagina|Rechts op de pagina"},
      {"cboPositieBijschriften", "Boven de foto|Onder de foto|Rechts naast de foto"},
      {"cboFotosZonderBijschrift", "Wel opnemen in kiekbord|Niet opnemen in kiekbord"},
      {"cboLetterTypeTitels", "Arial|Comic Sans MS|Courier|Courier New|MS Sans Serif|Times New Roman|Verdana"},
      {"cboLetterTypeBijschriften", "Arial|Comic Sans MS|Courier|Courier New|MS Sans Serif|Times New Roman|Verdana"},
      {"cboLetterGrootteBijschriften", "1|2|3|4|5|6|7"},
      {"cboLetterStijlBijschriften", "Normaal|Vet|Cursief|Vet en cursief"},
      {"cboSjabloon", "Donker|Klassiek|Raster"},
  };
  for (const auto& [naam, items] : keuzes) {
    QStringList lijst;
    for (int i = 0; i < o.W<QComboBox>(naam)->count(); ++i) lijst << o.W<QComboBox>(naam)->itemText(i);
    QCOMPARE(lijst.join(QLatin1Char('|')), QString::fromUtf8(items));
  }
  QCOMPARE(Waarde(w, "cboSjabloon"), QStringLiteral("Donker"));
  QCOMPARE(Waarde(w, "cboLetterGrootteBijschriften"), QStringLiteral("3"));
  QCOMPARE(Waarde(w, "txtAantalFotosPerPagina"), QStringLiteral("1"));
  QCOMPARE(Tekstkleur(o, "lblKleurVoorbeeld01"), QColor(0, 0, 255));
  QCOMPARE(w.Gegevens().kleur_tekst_op_achtergrond, 0xFF0000);
  QCOMPARE(w.Gegevens().kleur_achtergrond, 16777215);
  QVERIFY(o.Sluit());
}

void MainWindowTest::stepsSetButtonsMenusAndHelpCaption() {
  Opstelling o;
  const std::string uit = o.Map("uit", {{"foto1.jpg", kFoto1}});
  o.opslag.Schrijf("Recent", "ScriptFile", o.basis + "eerder.kbs");
  MainWindow& w = o.Start();
  struct Verwacht {
    int stap;
    bool vorige, volgende, voltooien, openen, bewerken;
    QString help;
  };
  const auto controleer = [&](const Verwacht& v) {
    QCOMPARE(w.stap(), v.stap);
    QCOMPARE(o.W<QGroupBox>("fraAlgemeen")->isVisible(), v.stap == 1);
    QCOMPARE(o.W<QGroupBox>("fraFotobijschriften")->isVisible(), v.stap == 2);
    QCOMPARE(o.W<QGroupBox>("fraInstellingen")->isVisible(), v.stap == 3);
    QCOMPARE(o.Knop("cmdVorige")->isEnabled(), v.vorige);
    QCOMPARE(o.Knop("cmdVolgende")->isEnabled(), v.volgende);
    QCOMPARE(o.Knop("cmdVoltooien")->isEnabled(), v.voltooien);
    QCOMPARE(o.Actie("mnuBestandScriptOpenen")->isEnabled(), v.openen);
    QCOMPARE(o.Actie("mnuBestandLaatste")->isEnabled(), v.openen);
    QCOMPARE(o.W<QMenu>("mnuBewerken")->menuAction()->isEnabled(), v.bewerken);
    // The photo commands and their shortcuts act on step 2 only.
    QCOMPARE(o.Actie("mnuBewerkenFotoVerwijderenGalerij")->isEnabled(), v.bewerken);
    QCOMPARE(o.Actie("mnuBewerkenFotoToevoegen")->isEnabled(), v.bewerken);
    QCOMPARE(o.Actie("mnuHelpStap")->text(), v.help);
  };
  controleer({1, false, true, false, true, false, "Stap &1. Algemeen "});
  o.Volgende(uit, uit);
  controleer({2, true, true, false, false, true, "Stap &2. Fotobijschriften"});
  QTest::mouseClick(o.Knop("cmdVolgende"), Qt::LeftButton);
  controleer({3, true, false, true, false, false, "Stap &3. Instellingen"});
  // Previous checks nothing, even with the output directory gone.
  QDir(QString::fromStdString(uit)).removeRecursively();
  QTest::mouseClick(o.Knop("cmdVorige"), Qt::LeftButton);
  controleer({2, true, true, false, false, true, "Stap &2. Fotobijschriften"});
  QTest::mouseClick(o.Knop("cmdVorige"), Qt::LeftButton);
  controleer({1, false, true, false, true, false, "Stap &1. Algemeen"});
  QVERIFY(o.meldingen.getoond.empty());
  QVERIFY(o.Sluit());
}

void MainWindowTest::nextAsksBeforeCopyingUpToTheMaximum() {
  Opstelling o;
  o.settings.maximum_aantal = 2;
  const std::string in = o.Map("In", {{"Strand.JPG", kFoto1}, {"c_TN.jpg", kFoto2}, {"duinen.jpg", kFoto2}, {"e.jpg", kFoto3}});
  const std::string uit = o.Map("Uit");
  MainWindow& w = o.Start();
  o.meldingen.antwoorden = {false};
  o.Volgende(in, uit);
  QCOMPARE(w.stap(), 1);
  QVERIFY(!Bestaat(uit + "duinen.jpg"));

  o.meldingen.antwoorden = {true};
  w.Volgende();
  QCOMPARE(o.meldingen.getoond.size(), std::size_t{2});
  QVERIFY(o.meldingen.getoond[1].vraag);
  QCOMPARE(o.meldingen.getoond[1].melding, KopieerVraag());
  QCOMPARE(w.stap(), 2);
  QCOMPARE(QDir(QString::fromStdString(uit)).entryList(QDir::Files), (QStringList{"duinen.jpg", "strand.jpg"}));
  QVERIFY(Bestaat(in + "Strand.JPG"));
  QCOMPARE(Items(o.Fotos()), (QStringList{"duinen.jpg", "strand.jpg"}));
  QCOMPARE(Items(o.W<QListWidget>("lstBijschriften")), (QStringList{"", ""}));
  QCOMPARE(o.W<QLabel>("lblAantalFotos")->text(), QStringLiteral("2 foto('s)"));
  QCOMPARE(o.Fotos()->currentRow(), 0);
  // Copying is a change of a new gallery: save as is offered from now on.
  QVERIFY(o.Actie("mnuBestandScriptOpslaanAls")->isEnabled());
  QVERIFY(o.Sluit());
}

void MainWindowTest::photoListCaptionsMoveAndPreview() {
  Opstelling o;
  const std::string uit =
      o.Map("uit", {{"een.jpg", kFoto1}, {"twee.jpg", kFoto2}, {"drie.jpg", ProefFoto{4608, 1976}}});
  MainWindow& w = o.Start();
  o.Volgende(uit, uit);
  QCOMPARE(Items(o.Fotos()), (QStringList{"drie.jpg", "een.jpg", "twee.jpg"}));

  // The preview of a 9-megapixel photo is decoded no larger than its box.
  auto* img = o.W<QLabel>("imgFoto");
  QTRY_VERIFY(!img->pixmap().isNull());
  QVERIFY(img->pixmap().width() <= img->contentsRect().width());
  QVERIFY(img->pixmap().height() <= img->contentsRect().height());
  QCOMPARE(o.W<QLabel>("lblFotoInfo")->text(),
           QStringLiteral("drie.jpg\n4608 x 1976 pixels\n") +
               QString::fromStdString(BestandsGrootteTekst(QFileInfo(QString::fromStdString(uit + "drie.jpg")).size())));

  // The caption box edits the selected photo's caption, in both lists.
  o.Fotos()->setCurrentRow(1);
  QCOMPARE(o.Info(), QStringLiteral("een.jpg\n1600 x 1200 pixels"));
  QTest::keyClicks(o.W<QLineEdit>("txtBijschrift"), QStringLiteral("Een zonnige dag"));
  QCOMPARE(o.W<QListWidget>("lstBijschriften")->item(1)->text(), QStringLiteral("Een zonnige dag"));
  QCOMPARE(w.Gegevens().fotos[1], (PhotoEntry{"een.jpg", "Een zonnige dag"}));

  // Tab goes from the list to the buttons under it, then to the caption.
  o.Fotos()->setFocus();
  QTRY_COMPARE(QApplication::focusWidget(), static_cast<QWidget*>(o.Fotos()));
  for (const char* volgende : {"cmdFotoOmhoog", "cmdFotoOmlaag", "txtBijschrift"}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget()->objectName(), QLatin1String(volgende));
  }

  // Move up and down keep the captions with their photos; a button is off
  // at its end of the list.
  QTest::mouseClick(o.Knop("cmdFotoOmhoog"), Qt::LeftButton);
  QCOMPARE(Items(o.Fotos()), (QStringList{"een.jpg", "drie.jpg", "twee.jpg"}));
  QCOMPARE(Items(o.W<QListWidget>("lstBijschriften")), (QStringList{"Een zonnige dag", "", ""}));
  QCOMPARE(o.Fotos()->currentRow(), 0);
  QVERIFY(!o.Knop("cmdFotoOmhoog")->isEnabled());
  QTest::mouseClick(o.Knop("cmdFotoOmlaag"), Qt::LeftButton);
  QTest::mouseClick(o.Knop("cmdFotoOmlaag"), Qt::LeftButton);
  QCOMPARE(Items(o.Fotos()), (QStringList{"drie.jpg", "twee.jpg", "een.jpg"}));
  QVERIFY(!o.Knop("cmdFotoOmlaag")->isEnabled());
  QCOMPARE(Waarde(w, "txtBijschrift"), QStringLiteral("Een zonnige dag"));
  o.Fotos()->setCurrentRow(0);
  QCOMPARE(Waarde(w, "txtBijschrift"), QString());

  // A file that is no readable photo still gets its information.
  Schrijf(uit + "kapot.jpg", "geen jpeg");
  o.dialogen.fotos = {{uit + "kapot.jpg"}};
  w.FotoToevoegen();
  QCOMPARE(o.W<QLabel>("lblFotoInfo")->text(), QStringLiteral("kapot.jpg\ngeen leesbare foto\n9 bytes"));
  QCOMPARE(img->text(), QStringLiteral("Geen voorbeeld"));
  QVERIFY(o.Sluit());
}

void MainWindowTest::addAndRemovePhotos() {
  Opstelling o;
  const std::string uit = o.Map("uit", {{"een.jpg", kFoto1}});
  const std::string elders = o.Map("elders", {{"Nieuw.JPG", kFoto2}, {"een.jpg", kFoto3}, {"klein_tn.jpg", kFoto3}});
  o.Start();
  o.Volgende(uit, uit);

  // Added photos are copied into the output directory under lower-case
  // names; a thumbnail and a photo in the list already are refused.
  o.dialogen.fotos = {{elders + "Nieuw.JPG", elders + "klein_tn.jpg", elders + "een.jpg", uit + "een.jpg"}};
  o.Actie("mnuBewerkenFotoToevoegen")->trigger();
  QCOMPARE(o.dialogen.geopend_in.back(), uit);
  QCOMPARE(Items(o.Fotos()), (QStringList{"een.jpg", "nieuw.jpg"}));
  QCOMPARE(o.Fotos()->currentRow(), 1);
  QVERIFY(Bestaat(uit + "nieuw.jpg"));
  QCOMPARE(o.W<QLabel>("lblAantalFotos")->text(), QStringLiteral("2 foto('s)"));
  QCOMPARE(o.meldingen.getoond.size(), std::size_t{3});
  QVERIFY(o.meldingen.Teksten()[0].starts_with("Het bestand klein_tn.jpg kan niet"));
  QCOMPARE(o.meldingen.Teksten()[2], std::string("De foto een.jpg staat al in de kiekbord."));

  // Removed from the gallery only: the file stays.
  o.meldingen.getoond.clear();
  o.Fotos()->setCurrentRow(0);
  o.Actie("mnuBewerkenFotoVerwijderenGalerij")->trigger();
  QCOMPARE(Items(o.Fotos()), (QStringList{"nieuw.jpg"}));
  QVERIFY(Bestaat(uit + "een.jpg"));

  // Removed from the disk too, with its thumbnail, after a question; "Nee"
  // keeps it.
  QVERIFY(QFile::copy(QString::fromStdString(uit + "nieuw.jpg"), QString::fromStdString(uit + "nieuw_tn.jpg")));
  o.meldingen.antwoorden = {false, true};
  o.Actie("mnuBewerkenFotoVerwijderenTotaal")->trigger();
  QCOMPARE(Items(o.Fotos()), (QStringList{"nieuw.jpg"}));
  o.Actie("mnuBewerkenFotoVerwijderenTotaal")->trigger();
  QCOMPARE(o.meldingen.getoond.back().melding, VerwijderVraag("nieuw.jpg"));
  QVERIFY(Items(o.Fotos()).isEmpty());
  QVERIFY(!Bestaat(uit + "nieuw.jpg"));
  QVERIFY(!Bestaat(uit + "nieuw_tn.jpg"));
  QVERIFY(!o.Actie("mnuBewerkenFotoVerwijderenGalerij")->isEnabled());
  QVERIFY(o.Sluit());
}

void MainWindowTest::openScriptFillsTheWindow() {
  Opstelling o;
  const std::string pad = MaakScript(o, "Reis.KBS");
  MainWindow& w = o.Start();
  w.OpenScript(pad);

  // A current-form script drops a missing photo without a word.
  QVERIFY(o.meldingen.getoond.empty());
  QCOMPARE(w.windowTitle(), QString::fromStdString(o.tmp.path().toLower().toStdString() + "/reis.kbs - Kiekbord 4.1 Pro"));
  QCOMPARE(w.scriptPad(), pad);
  QCOMPARE(Lees(o.basis + "reis.bak"), Lees(pad));
  QCOMPARE(o.opslag.waarden["Recent/LastDir"], o.basis);
  QVERIFY(o.Actie("mnuBestandScriptOpslaan")->isEnabled());
  const std::pair<const char*, std::string> velden[] = {
      {"txtTitel", "Vakantie"}, {"txtSubtitel", "Zomer aan zee"}, {"txtDatum", "juli 2026"},
      {"txtBeschrijving", "Regel een\nRegel twee"}, {"txtInvoerDir", o.basis + "in/"}, {"txtUitvoerDir", o.basis + "uit/"},
      {"chkThumbnails", "1"}, {"txtBijschrift", "Aan het strand"}, {"cboSjabloon", "Donker"},
      {"txtAantalFotosPerPagina", "12"}, {"cboPresentatie", "Automatisch"}, {"cboPositieFotos", "Rechts op de pagina"},
      {"cboPositieBijschriften", "Onder de foto"}, {"cboFotosZonderBijschrift", "Niet opnemen in kiekbord"},
      {"cboLetterTypeTitels", "Verdana"}, {"cboLetterTypeBijschriften", "Courier New"},
      {"cboLetterGrootteBijschriften", "5"}, {"cboLetterStijlBijschriften", "Vet en cursief"},
  };
  for (const auto& [naam, waarde] : velden) QCOMPARE(Waarde(w, naam), QString::fromStdString(waarde));
  QCOMPARE(Items(o.Fotos()), (QStringList{"foto_b.jpg", "foto_a.jpg"}));
  QCOMPARE(Items(o.W<QListWidget>("lstBijschriften")), (QStringList{"Aan het strand", ""}));
  QCOMPARE(Items(o.W<QListWidget>("flstDirFotos")), (QStringList{"foto_a.jpg", "foto_b.jpg"}));
  QCOMPARE(o.Fotos()->currentRow(), 0);
  QCOMPARE(o.W<QLabel>("lblAantalFotos")->text(), QStringLiteral("2 foto('s)"));
  QCOMPARE(Tekstkleur(o, "lblKleurVoorbeeld01"), QColor(255, 0, 0));
  QCOMPARE(Vulkleur(o, "lblKleurVoorbeeld01"), QColor(0, 0, 0));
  QCOMPARE(Tekstkleur(o, "lblKleurVoorbeeld02"), QColor(255, 255, 255));
  QCOMPARE(Vulkleur(o, "lblKleurVoorbeeld02"), QColor(128, 128, 128));
  QVERIFY(o.Sluit());
}

void MainWindowTest::openCommandAsksToSaveChanges() {
  Opstelling o;
  const std::string pad = MaakScript(o, "een.kbs");
  o.opslag.Schrijf("Recent", "LastDir", o.basis + "uit/");
  MainWindow& w = o.Start();

  // A new gallery with something typed: the "nieuw ingevoerde" question.
  o.Typ("txtTitel", "Nieuw");
  o.dialogen.te_openen = {pad};
  o.Actie("mnuBestandScriptOpenen")->trigger();
  QCOMPARE(o.meldingen.Teksten(), (std::vector<std::string>{"Wilt u de nieuw ingevoerde gegevens opslaan\r\n"
                                                            "voordat u een ander script opent?"}));
  QCOMPARE(o.dialogen.geopend_in.front(), o.basis + "uit/");
  QCOMPARE(w.scriptPad(), pad);
  // The missing photo is gone from the window: a change, saved on "Ja".
  o.meldingen.getoond.clear();
  o.meldingen.antwoorden = {true};
  o.dialogen.te_openen = {pad};
  o.Actie("mnuBestandScriptOpenen")->trigger();
  QCOMPARE(o.meldingen.Teksten(), (std::vector<std::string>{"Wilt u de gewijzigde gegevens opslaan\r\n"
                                                            "voordat u een ander script opent?"}));
  QVERIFY(Lees(pad).find("weg_weg.jpg") == std::string::npos);

  // Reopening without a change asks nothing, though the date of writing
  // differs; cancelling the dialog keeps the script.
  o.meldingen.getoond.clear();
  o.dialogen.te_openen = {pad};
  o.Actie("mnuBestandScriptOpenen")->trigger();
  o.Actie("mnuBestandScriptOpenen")->trigger();
  QVERIFY(o.meldingen.getoond.empty());
  QCOMPARE(w.scriptPad(), pad);

  // A script that can't be read: the message, and the window as it was.
  const std::string weg = o.basis + "bestaat-niet.kbs";
  o.dialogen.te_openen = {weg};
  o.Actie("mnuBestandScriptOpenen")->trigger();
  QCOMPARE(o.meldingen.getoond.size(), std::size_t{1});
  QCOMPARE(o.meldingen.getoond[0].melding,
           (Melding{MeldingSoort::kWaarschuwing, "Fout bij openen " + weg + "\r\nError 53 File not found"}));
  QCOMPARE(Waarde(w, "txtTitel"), QStringLiteral("Vakantie"));
  QCOMPARE(w.scriptPad(), pad);
  QVERIFY(o.Sluit());
}

void MainWindowTest::saveAsSaveAndRecentEntry() {
  Opstelling o;
  const std::string uit = o.Map("uit", {{"foto_a.jpg", kFoto1}});
  MainWindow& w = o.Start();
  o.Typ("txtTitel", "Reis & zo");
  o.Volgende(uit, uit);
  QTest::keyClicks(o.W<QLineEdit>("txtBijschrift"), QStringLiteral("Onderweg"));

  // Save as, with no script yet, starts in the last directory with "Naamloos".
  const std::string pad = o.basis + "Reis & Zo.kbs";
  o.dialogen.op_te_slaan = {pad};
  o.Actie("mnuBestandScriptOpslaanAls")->trigger();
  QCOMPARE(o.dialogen.voorgestelde_namen.back(), std::string("Naamloos"));
  QCOMPARE(o.dialogen.geopend_in.back(), o.settings.default_dir);
  QVERIFY(o.meldingen.getoond.empty());
  QCOMPARE(w.scriptPad(), pad);
  const QString weergave = o.tmp.path().toLower() + QStringLiteral("/reis & zo.kbs");
  QCOMPARE(w.windowTitle(), weergave + QStringLiteral(" - Kiekbord 4.1 Pro"));
  QVERIFY(o.Actie("mnuBestandScriptOpslaan")->isEnabled());
  QVERIFY(o.Actie("mnuBestandLaatste")->isVisible());
  QCOMPARE(o.Actie("mnuBestandLaatste")->text(), QString(weergave).replace(QLatin1Char('&'), QStringLiteral("&&")));
  QCOMPARE(o.opslag.waarden["Recent/ScriptFile"], pad);
  QCOMPARE(o.opslag.waarden["Recent/LastDir"], o.basis);
  for (const char* regel : {"Aanmaakdatum=zaterdag 21 november 2026\r\n", "Titel=Reis & zo\r\n",
                            "Foto=foto_a.jpg\r\nBijschrift=Onderweg\r\n"}) {
    QVERIFY2(Lees(pad).find(regel) != std::string::npos, regel);
  }

  // Save writes the change to the same file; save as again offers the
  // script's own directory and name.
  w.Vorige();
  o.Typ("txtTitel", "Reis");
  o.Actie("mnuBestandScriptOpslaan")->trigger();
  QVERIFY(Lees(pad).find("Titel=Reis\r\n") != std::string::npos);
  o.Actie("mnuBestandScriptOpslaanAls")->trigger();
  QCOMPARE(o.dialogen.geopend_in.back(), o.basis);
  QCOMPARE(o.dialogen.voorgestelde_namen.back(), std::string("Reis & Zo.kbs"));
  QVERIFY(o.Sluit());

  // The recent entry reopens the last script saved, also in a new window.
  Opstelling o2;
  o2.opslag = o.opslag;
  MainWindow& w2 = o2.Start();
  o2.Actie("mnuBestandLaatste")->trigger();
  QCOMPARE(w2.scriptPad(), pad);
  QCOMPARE(Waarde(w2, "txtTitel"), QStringLiteral("Reis"));
  QVERIFY(o2.meldingen.getoond.empty());
  QVERIFY(o2.Sluit());
}

void MainWindowTest::closingAsksToSaveAndToClose() {
  Opstelling o;
  o.opslag.Schrijf("Exit", "Question", "1");
  const std::string pad = o.basis + "sluiten.kbs";
  MainWindow& w = o.Start();
  o.Typ("txtTitel", "Eerste");
  o.dialogen.op_te_slaan = {pad};
  w.ScriptOpslaanAls();
  o.Typ("txtTitel", "Tweede");

  // "Ja" saves, then the closing question; "Nee" there keeps the window.
  o.meldingen.antwoorden = {true, false};
  QVERIFY(!w.close());
  QCOMPARE(o.meldingen.Teksten(), (std::vector<std::string>{kOpslaanVoorAfsluiten, AfsluitenVraag().tekst}));
  QCOMPARE(o.meldingen.getoond[1].melding.soort, MeldingSoort::kVraag);
  QVERIFY(Lees(pad).find("Titel=Tweede\r\n") != std::string::npos);
  QVERIFY(w.isVisible());
  // Nothing changed now: only the closing question; "Ja" in the File menu's
  // "Afsluiten" closes.
  o.meldingen.getoond.clear();
  o.meldingen.antwoorden = {true};
  o.Actie("mnuBestandAfsluiten")->trigger();
  QVERIFY(!w.isVisible());
  QCOMPARE(o.meldingen.Teksten(), (std::vector<std::string>{AfsluitenVraag().tekst}));

  // A new gallery closes without a question until something is entered;
  // then "Ja" runs save as, and cancelling that still closes.
  Opstelling nieuw;
  nieuw.Start();
  QVERIFY(!nieuw.Actie("mnuBestandScriptOpslaanAls")->isEnabled());
  QVERIFY(nieuw.Sluit());
  QVERIFY(nieuw.meldingen.getoond.empty());
  nieuw.Start();
  nieuw.W<QCheckBox>("chkThumbnails")->click();
  QVERIFY(nieuw.Actie("mnuBestandScriptOpslaanAls")->isEnabled());
  nieuw.meldingen.antwoorden = {true};
  QVERIFY(nieuw.Sluit());
  QCOMPARE(nieuw.meldingen.Teksten(), (std::vector<std::string>{"Wilt u de nieuw ingevoerde gegevens opslaan\r\n"
                                                                "voordat u Kiekbord afsluit?"}));
  QCOMPARE(nieuw.dialogen.aantal, 1);
}

void MainWindowTest::colourItemsChangeTheirOwnColour() {
  Opstelling o;
  MainWindow& w = o.Start();
  const std::pair<const char*, KleurRol> items[] = {
      {"mnuKleurGebruikTekstOpAchtergrond", KleurRol::kTekstOpAchtergrond},
      {"mnuKleurGebruikAchtergrond", KleurRol::kAchtergrond},
      {"mnuKleurGebruikTekstInKader", KleurRol::kTekstInKader},
      {"mnuKleurGebruikKader", KleurRol::kKader},
  };
  const auto als_qcolor = [](std::int32_t k) { return QColor(k & 0xFF, (k >> 8) & 0xFF, (k >> 16) & 0xFF); };
  for (const auto& [actie, rol] : items) {
    // The dialog starts on the colour; its partner's colour is refused with
    // the message for this colour and changes nothing.
    GalleryScript voor = w.Gegevens();
    o.meldingen.getoond.clear();
    o.dialogen.kleuren = {als_qcolor(PartnerKleur(voor, rol))};
    o.Actie(actie)->trigger();
    QCOMPARE(o.dialogen.kleur_start.back(), als_qcolor(KleurVan(voor, rol)));
    QCOMPARE(o.meldingen.getoond.size(), std::size_t{1});
    QCOMPARE(o.meldingen.getoond[0].melding, *KiesKleur(voor, rol, PartnerKleur(voor, rol)));
    QCOMPARE(w.Gegevens(), voor);
    // Cancelling shows and changes nothing.
    o.Actie(actie)->trigger();
    QCOMPARE(o.meldingen.getoond.size(), std::size_t{1});
    QCOMPARE(w.Gegevens(), voor);
  }
  // Refused colours count as no change.
  QVERIFY(!o.Actie("mnuBestandScriptOpslaanAls")->isEnabled());

  // Only the pairs are compared: the text on the background may be the
  // frame colour, the background the colour of the text in the frame. The
  // samples show each new pair at once.
  o.dialogen.kleuren = {QColor(204, 204, 204), QColor(255, 0, 0), QColor(0, 0, 255), QColor(255, 0, 0)};
  for (const char* actie : {"mnuKleurGebruikTekstOpAchtergrond", "mnuKleurGebruikKader", "mnuKleurGebruikTekstInKader",
                            "mnuKleurGebruikAchtergrond"}) {
    o.Actie(actie)->trigger();
  }
  QCOMPARE(o.meldingen.getoond.size(), std::size_t{1});
  QCOMPARE(Tekstkleur(o, "lblKleurVoorbeeld01"), QColor(204, 204, 204));
  QCOMPARE(Vulkleur(o, "lblKleurVoorbeeld01"), QColor(255, 0, 0));
  QCOMPARE(Tekstkleur(o, "lblKleurVoorbeeld02"), QColor(0, 0, 255));
  QCOMPARE(Vulkleur(o, "lblKleurVoorbeeld02"), QColor(255, 0, 0));
  const GalleryScript g = w.Gegevens();
  QCOMPARE((std::array{g.kleur_tekst_op_achtergrond, g.kleur_achtergrond, g.kleur_tekst_in_kader, g.kleur_kader}),
           (std::array{0xCCCCCC, 255, 0xFF0000, 255}));
  QVERIFY(o.Actie("mnuBestandScriptOpslaanAls")->isEnabled());

  // The button opens the pop-up menu.
  QTimer::singleShot(0, [&] {
    QTRY_VERIFY(o.W<QMenu>("mnuKleurGebruik")->isVisible());
    o.W<QMenu>("mnuKleurGebruik")->close();
  });
  QTest::mouseClick(o.Knop("cmdKleurGebruik"), Qt::LeftButton);
  QVERIFY(o.Sluit());
}

void MainWindowTest::activationChecksAndCommandLine() {
  {
    Opstelling o;
    o.diensten.enige_exemplaar = [] { return false; };
    MainWindow& w = o.Start();
    QVERIFY(!w.Activeer());
    QCOMPARE(o.meldingen.getoond.size(), std::size_t{1});
    QCOMPARE(o.meldingen.getoond[0].melding, (Melding{MeldingSoort::kFout, "Kiekbord is al gestart."}));
    QVERIFY(!w.isVisible());
  }
  {
    // No template sets: said on the first activation only. A command line
    // that names no ".kbs" file is refused on every one.
    Opstelling o;
    o.settings.sjabloon_dir = o.basis + "Sjabloon/";
    o.diensten.opdrachtregel = "\"/home/an/Reis.txt\"";
    MainWindow& w = o.Start();
    QVERIFY(w.Activeer());
    QVERIFY(w.Activeer());
    const std::string type = "Bestand '/home/an/Reis.txt' heeft onjuist type.\r\nHet bestandstype moet '.kbs' zijn.";
    QCOMPARE(o.meldingen.Teksten(), (std::vector<std::string>{GeenSjablonenMelding(o.settings.sjabloon_dir).tekst, type,
                                                              type}));
    QVERIFY(o.Sluit());
  }
  {
    // A script on the command line opens on every activation; changes are
    // offered for saving first.
    Opstelling o;
    const std::string pad = MaakScript(o, "Reis.KBS");
    o.diensten.opdrachtregel = "\"" + pad + "\"";
    MainWindow& w = o.Start();
    w.Activeer();
    QVERIFY(o.meldingen.getoond.empty());
    QCOMPARE(w.scriptPad(), pad);
    o.Typ("txtTitel", "Gewijzigd");
    w.Activeer();
    QCOMPARE(o.meldingen.Teksten(), (std::vector<std::string>{"Wilt u de gewijzigde gegevens opslaan\r\n"
                                                              "voordat u een ander script opent?"}));
    QCOMPARE(Waarde(w, "txtTitel"), QStringLiteral("Vakantie"));
    QVERIFY(o.Sluit());
  }
}

void MainWindowTest::finishSavesAndGeneratesAsADirectRunWould() {
  Opstelling o;
  const std::string in = o.Map("in", {{"Haven.JPG", kFoto1}, {"duinen.jpg", kFoto2}, {"strand.jpg", kFoto3}});
  const std::string site = o.Map("site");
  QString log_getoond;
  int balk_waarde = -1, balk_max = -1;
  bool modaal = false;
  QString titel;
  o.diensten.voortgang_geopend = [&](VoortgangDialoog& dialoog) {
    modaal = dialoog.isModal() && QApplication::activeModalWidget() == &dialoog;
    titel = dialoog.windowTitle();
    // Escape must not end the dialog while the run works.
    QTest::keyClick(&dialoog, Qt::Key_Escape);
    QObject::connect(&dialoog, &QDialog::finished, &dialoog, [&] {
      log_getoond = dialoog.logRegels()->toPlainText();
      balk_waarde = dialoog.voortgangsBalk()->value();
      balk_max = dialoog.voortgangsBalk()->maximum();
    });
  };
  MainWindow& w = o.Start();
  o.Typ("txtTitel", "Zomer aan zee");
  o.Typ("txtSubtitel", "Een week Texel");
  QTest::keyClicks(o.W<QPlainTextEdit>("txtBeschrijving"), QStringLiteral("Zon, zee"));
  QTest::keyClick(o.W<QPlainTextEdit>("txtBeschrijving"), Qt::Key_Return);
  QTest::keyClicks(o.W<QPlainTextEdit>("txtBeschrijving"), QStringLiteral("en strand."));
  o.W<QCheckBox>("chkThumbnails")->click();
  o.meldingen.antwoorden = {true};
  o.Volgende(in, site);
  for (int i = 0; i < 3; ++i) {
    o.Fotos()->setCurrentRow(i);
    QTest::keyClicks(o.W<QLineEdit>("txtBijschrift"), QStringLiteral("Foto %1").arg(i + 1));
  }
  QTest::mouseClick(o.Knop("cmdVolgende"), Qt::LeftButton);
  o.W<QComboBox>("cboSjabloon")->setCurrentText(QStringLiteral("Klassiek"));
  o.Typ("txtAantalFotosPerPagina", "6");

  // A new gallery is saved first, then generated; "Ja" shows the result.
  const std::string script = o.basis + "Zomer.kbs";
  o.dialogen.op_te_slaan = {script};
  o.meldingen.getoond.clear();
  o.meldingen.antwoorden = {true, true};
  QTest::mouseClick(o.Knop("cmdVoltooien"), Qt::LeftButton);
  QCOMPARE(o.meldingen.Teksten(), (std::vector<std::string>{EerstOpslaanVraag().tekst,
                                                            "De kiekbord is aangemaakt.\r\nWilt u het resultaat nu bekijken?"}));
  QCOMPARE(o.meldingen.getoond[1].melding.soort, MeldingSoort::kVraag);
  QCOMPARE(o.bureaublad.adressen, (std::vector<std::string>{site + "index.html"}));
  QCOMPARE(w.scriptPad(), script);
  const std::string log = Lees(o.basis + "zomer.log");
  QVERIFY(log.find("Normaal einde.") != std::string::npos);

  // The progress dialog was modal and showed every log line, in order, and
  // the thumbnails made.
  QVERIFY(modaal);
  QCOMPARE(titel, QStringLiteral("Kiekbord - Kiekbord aanmaken"));
  QCOMPARE(log_getoond + QLatin1Char('\n'), QString::fromStdString(log).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
  QCOMPARE(balk_max, 3);
  QCOMPARE(balk_waarde, 3);

  // The same script generated again directly, on this thread, writes the
  // same files and log.
  std::map<QString, std::string> door_venster;
  QDir map(QString::fromStdString(site));
  for (const QString& naam : map.entryList(QDir::Files)) {
    door_venster[naam] = Lees(site + naam.toStdString());
    // kb_tn.txt holds the photos' file times; the photos stay.
    if (!naam.endsWith(QStringLiteral(".jpg")) || naam.endsWith(QStringLiteral("_tn.jpg"))) QVERIFY(map.remove(naam));
  }
  QVERIFY(door_venster.contains(QStringLiteral("haven_tn.jpg")));
  GenerationLog run_log;
  StderrMelder melder;
  SiteOmgeving omgeving{o.settings, run_log, melder};
  QCOMPARE(MaakSite(script, omgeving).failed, kGelukt);
  QCOMPARE(Lees(o.basis + "zomer.log"), log);
  QCOMPARE(map.entryList(QDir::Files).size(), static_cast<qsizetype>(door_venster.size()));
  for (const auto& [naam, inhoud] : door_venster) {
    if (naam != QStringLiteral("kb_tn.txt")) QVERIFY2(Lees(site + naam.toStdString()) == inhoud, qPrintable(naam));
  }

  // Finishing again saves the script under its own name and runs again.
  o.meldingen.getoond.clear();
  w.Voltooien();
  QCOMPARE(o.meldingen.Teksten(), (std::vector<std::string>{"De kiekbord is aangemaakt.\r\nWilt u het resultaat nu bekijken?"}));
  QCOMPARE(o.bureaublad.adressen.size(), std::size_t{1});
  QVERIFY(o.Sluit());
}

void MainWindowTest::helpAndAbout() {
  // Each help item opens its page; the step item the page of the step shown.
  Opstelling o;
  const std::string uit = o.Map("uit", {{"een.jpg", kFoto1}});
  MainWindow& w = o.Start();
  o.Actie("mnuHelpKiekbordHelp")->trigger();
  o.Actie("mnuHelpSjablonen")->trigger();
  o.Actie("mnuHelpStap")->trigger();
  o.Volgende(uit, uit);
  o.Actie("mnuHelpStap")->trigger();
  w.Volgende();
  o.Actie("mnuHelpStap")->trigger();
  std::vector<std::string> paginas;
  for (const char* pagina : {"index", "index04", "index01", "index02", "index03"}) {
    paginas.push_back(o.settings.help_dir + pagina + ".html");
  }
  QCOMPARE(o.bureaublad.adressen, paginas);

  QTimer::singleShot(0, [&] {
    QTRY_VERIFY(QApplication::activeModalWidget() != nullptr);
    QWidget* info = QApplication::activeModalWidget();
    QCOMPARE(info->objectName(), QStringLiteral("frmInfo"));
    QCOMPARE(info->windowTitle(), QStringLiteral("Kiekbord - Info"));
    QCOMPARE(info->findChild<QLabel*>(QStringLiteral("lblProgramma"))->text(), QStringLiteral("Kiekbord 4.1 Pro"));
    info->findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
  });
  o.Actie("mnuHelpInfo")->trigger();
  QVERIFY(o.Sluit());

  // Help pages on a host that is not set: the message, nothing opened.
  Opstelling zonder_host;
  zonder_host.settings.help_type = ".php";
  zonder_host.Start();
  zonder_host.Actie("mnuHelpKiekbordHelp")->trigger();
  QCOMPARE(zonder_host.meldingen.Teksten(),
           (std::vector<std::string>{"Hostname niet (goed) gedefinieerd!\r\nHelppagina kan niet worden gestart."}));
  QVERIFY(zonder_host.bureaublad.adressen.empty());
  QVERIFY(zonder_host.Sluit());
}

}  // namespace kiekbord::test

QTEST_MAIN(kiekbord::test::MainWindowTest)
#include "main_window_test.moc"
