// Drives the main window as a user would. What each command decides is
// tested once in tests/editor and tests/app; here each control is checked to
// reach its rule, with every service call recorded in a transcript, and
// what the window shows is compared whole with golden files (tests/data/ui).

#include "base/file_system.h"
#include "editor/colour_choice.h"
#include "tests/ui/window_fixture.h"
#include "ui/application_setup.h"
#include "ui/generation_progress.h"

namespace kiekbord::test {

class MainWindowTest : public QObject {
  Q_OBJECT

 private slots:
  void stepsBrowseHelpAndAbout() {
    Opstelling o;
    o.settings.maximum_aantal = 2;
    o.settings.kleur_tekst_op_achtergrond = "#0000FF";
    const std::string in = o.Map("In", {{"Strand.JPG", 160, 120}, {"c_TN.jpg", 64, 48}, {"b.jpg", 64, 48}, {"e.jpg", 80, 60}});
    MainWindow& w = o.Start();
    VergelijkMetGolden(&w, "stap1", o.basis);
    // Each "Bladeren..." fills its own field from the folder dialog.
    o.antwoorden = {in, o.Map("uit")};
    o.Klik("cmdInvoer");
    o.Klik("cmdUitvoer");
    o.Klik("cmdVolgende");  // "Nee" stays on step 1
    o.antwoorden = {"ja"};
    w.Volgende();
    VergelijkMetGolden(&w, "stap2", o.basis);
    o.Klik("cmdVolgende");
    VergelijkMetGolden(&w, "stap3", o.basis);
    o.W<QComboBox>("cboSjabloon")->setCurrentText(QStringLiteral("Donker"));  // it swaps the page pair
    QCOMPARE(Kleuren(o.W<QLabel>("lblKleurVoorbeeld01")), "#ffffff op #0000ff");
    o.Actie("mnuHelpStap")->trigger();
    QDir(QString::fromStdString(o.basis + "uit")).removeRecursively();  // Previous checks nothing
    for (int i = 0; i < 2; ++i) o.Klik("cmdVorige");
    for (const char* actie : {"mnuHelpStap", "mnuHelpKiekbordHelp", "mnuHelpSjablonen"}) o.Actie(actie)->trigger();
    QTimer::singleShot(0, [&] {
      QWidget* info = QApplication::activeModalWidget();
      info->findChild<QLabel*>(QStringLiteral("lblQt"))->clear();  // this machine's
      VergelijkMetGolden(info, "info", o.basis);
      info->findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
    });
    o.Actie("mnuHelpInfo")->trigger();
    o.Einde("verloop_stappen");
  }

  void photoListAddRemoveAndPreview() {
    Opstelling o;
    const std::string uit = o.Map("uit", {{"een.jpg", 160, 120}, {"twee.jpg", 64, 48}, {"drie.jpg", 4608, 1976}});
    const std::string elders = o.Map("elders", {{"Nieuw.JPG", 64, 48}, {"klein_tn.jpg", 80, 60}});
    MainWindow& w = o.Start();
    o.Volgende(uit, uit);
    auto* img = o.W<QLabel>("imgFoto");  // a 9-megapixel photo is decoded no larger than its box
    QTRY_VERIFY(!img->pixmap().isNull());
    QVERIFY(img->pixmap().width() <= img->contentsRect().width() && img->pixmap().height() <= img->contentsRect().height());
    // The caption box edits the chosen photo's caption; the buttons follow
    // their rule and keep the captions with their photos.
    o.Fotos()->setCurrentRow(1);
    QTest::keyClicks(o.W("txtBijschrift"), QStringLiteral("Zon"));
    for (const char* knop : {"cmdFotoOmhoog", "cmdFotoOmlaag", "cmdFotoOmlaag"}) {
      o.Klik(knop);
      o.Zie(QStringLiteral("%1: rij %2 omhoog %3 omlaag %4")
                .arg(knop).arg(o.Fotos()->currentRow()).arg(o.W("cmdFotoOmhoog")->isEnabled()).arg(o.W("cmdFotoOmlaag")->isEnabled()));
    }
    o.Zie(w.Gegevens().fotos[2].foto + " '" + w.Gegevens().fotos[2].bijschrift + "' '" + o.W<QLineEdit>("txtBijschrift")->text().toStdString() + "'");
    // Dragging the last photo to the front moves it with its caption; Enter
    // in the caption goes on to the next photo. Each item shows its caption
    // or the mark, and the count line counts the marks.
    o.Fotos()->model()->moveRow(QModelIndex(), 2, QModelIndex(), 0);
    QTRY_COMPARE(o.Fotos()->currentRow(), 0);
    QTest::keyClick(o.W("txtBijschrift"), Qt::Key_Return);
    QStringList items;
    for (int i = 0; i < o.Fotos()->count(); ++i) items << o.Fotos()->item(i)->toolTip();
    o.Zie("gesleept: " + Items(o.Fotos()).join(' ') + " (" + items.join(", ") + "), rij " + QString::number(o.Fotos()->currentRow()) + ", " + o.W<QLabel>("lblZonderBijschrift")->text());
    // Added photos are copied in under lower-case names and chosen, a
    // thumbnail is refused; removing from the gallery keeps the file, from
    // the disk asks first.
    o.antwoorden = {elders + "Nieuw.JPG|" + elders + "klein_tn.jpg"};
    o.Actie("mnuBewerkenFotoToevoegen")->trigger();
    o.Actie("mnuBewerkenFotoVerwijderenGalerij")->trigger();
    o.Actie("mnuBewerkenOngedaanMaken")->trigger();  // back in its place; the disk's removal below has no way back
    o.Fotos()->setCurrentRow(0);
    o.antwoorden = {"ja"};
    o.Actie("mnuBewerkenFotoVerwijderenTotaal")->trigger();
    o.Zie("lijst: " + Items(o.Fotos()).join(' ') + ", map: " + QDir(QString::fromStdString(uit)).entryList(QDir::Files).join(' ') +
          ", ongedaan maken " + (o.Actie("mnuBewerkenOngedaanMaken")->isEnabled() ? "aan" : "uit"));
    WriteBytes(uit + "kapot.jpg", "geen jpeg");  // no readable photo: no preview
    o.antwoorden = {uit + "kapot.jpg"};
    w.FotoToevoegen();
    o.Zie(o.W<QLabel>("lblFotoInfo")->text() + " / " + img->text());
    o.Einde("verloop_fotolijst");
  }

  void scriptCommands() {
    Opstelling o;
    const std::string pad = o.Reis("Reis.KBS"), ander = o.basis + "Ander.kbs";
    o.waarden["Recent/LastDir"] = o.basis + "uit/";
    o.waarden["Exit/Question"] = "1";
    MainWindow& w = o.Start();
    o.Typ("txtTitel", "Nieuw");  // something entered: the question first
    o.antwoorden = {"", pad};
    o.Actie("mnuBestandScriptOpenen")->trigger();
    QCOMPARE(ReadBytes(o.basis + "reis.bak"), ReadBytes(pad));
    VergelijkMetGolden(&w, "geopend", o.basis);
    // The missing photo is gone from the window: a change, saved on "Ja"
    // before the next open; reopening then asks nothing. A script that
    // can't be read: the message, and the window as it was.
    o.antwoorden = {"ja", pad, pad, o.basis + "weg.kbs"};
    for (int i = 0; i < 3; ++i) o.Actie("mnuBestandScriptOpenen")->trigger();
    o.Zie("weg_weg.jpg in script: " + std::to_string(ReadBytes(pad).find("weg_weg.jpg") != std::string::npos));
    o.Zie("script: " + w.scriptPad());
    // Save as offers the script's folder and name; save writes the same file;
    // the recent entry names it and opens it in a new window.
    o.Typ("txtTitel", "Reis & zo");
    o.antwoorden = {ander};
    o.Actie("mnuBestandScriptOpslaanAls")->trigger();
    o.Zie("laatste: " + o.Actie("mnuBestandLaatste")->text());
    o.Typ("txtTitel", "Reis");
    o.Actie("mnuBestandScriptOpslaan")->trigger();
    QVERIFY(ReadBytes(ander).find("Titel=Reis\r\n") != std::string::npos);
    Opstelling nieuw;
    nieuw.verslag = &o;
    nieuw.waarden["Recent/ScriptFile"] = ander;
    nieuw.Start();
    nieuw.Actie("mnuBestandLaatste")->trigger();
    o.Zie("nieuw venster: " + nieuw.venster->scriptPad() + " " + nieuw.W<QLineEdit>("txtTitel")->text().toStdString());
    nieuw.Sluit();
    // Closing with a change and the closing question on asks both; "Nee"
    // keeps the window.
    o.Typ("txtTitel", "Tweede");
    o.Sluit();
    o.antwoorden = {"", "ja"};
    o.Actie("mnuBestandAfsluiten")->trigger();
    o.Einde("verloop_script");
  }

  void coloursEachItemItsOwn() {
    Opstelling o;
    MainWindow& w = o.Start();
    const auto naam = [](std::int32_t k) { return QColor(k & 0xFF, (k >> 8) & 0xFF, (k >> 16) & 0xFF).name().toStdString(); };
    int tint = 0;
    for (const auto& [actie, rol] : {std::pair{"mnuKleurGebruikTekstOpAchtergrond", KleurRol::kTekstOpAchtergrond},
                                     {"mnuKleurGebruikAchtergrond", KleurRol::kAchtergrond},
                                     {"mnuKleurGebruikTekstInKader", KleurRol::kTekstInKader},
                                     {"mnuKleurGebruikKader", KleurRol::kKader}}) {
      o.antwoorden = {naam(PartnerKleur(w.Gegevens(), rol)), QColor(++tint, 2, 3).name().toStdString()};
      o.Actie(actie)->trigger();  // the partner's colour is refused
      o.Actie(actie)->trigger();
      o.Zie(std::string(actie) + ": " + naam(KleurVan(w.Gegevens(), rol)));
    }
    o.Zie("voorbeeld: " + Kleuren(o.W<QLabel>("lblKleurVoorbeeld01")));
    QTimer::singleShot(0, [&] {  // the button opens the menu
      QTRY_VERIFY(o.W<QMenu>("mnuKleurGebruik")->isVisible());
      o.W<QMenu>("mnuKleurGebruik")->close();
    });
    o.Klik("cmdKleurGebruik");
    w.resize(700, 500);
    o.Einde("verloop_kleuren");
    Opstelling weer;  // the size comes back
    weer.waarden = o.waarden;
    QCOMPARE(weer.Start().size(), QSize(700, 500));
  }

  void qtInDutchAndProgramChooser() {
    QTranslator vertaling;
    QVERIFY(RichtToepassingIn(vertaling));
    QCOMPARE(QApplication::applicationDisplayName() + " " + QLocale().monthName(3) + " " +
                 QCoreApplication::translate("QFileDialog", "Directory:"), "kiekbord maart Map:");
    QTemporaryDir map;
    QFile programma(map.filePath("gimp")), tekst(map.filePath("leesmij"));
    QVERIFY(programma.open(QIODevice::WriteOnly) && tekst.open(QIODevice::WriteOnly));
    QVERIFY(programma.setPermissions(QFile::ReadOwner | QFile::ExeOwner));
    QCOMPARE(QList({AlsProgrammaGetoond(QFileInfo(map.path())), AlsProgrammaGetoond(QFileInfo(programma)), AlsProgrammaGetoond(QFileInfo(tekst))}), QList({true, true, false}));
  }

  void activationChecksAndCommandLine() {
    Opstelling al;
    al.diensten.enige_exemplaar = [] { return false; };
    QVERIFY(!al.Start().Activeer());
    QVERIFY(!al.venster->isVisible());
    // No template sets: said on the first activation only; a command line
    // that names no script is refused on every one. Help pages on a host
    // that is not set: the message.
    Opstelling o;
    o.verslag = &al;
    o.settings.sjabloon_dir = al.basis + "Sjabloon/";
    o.settings.help_type = ".php";
    o.diensten.opdrachtregel = "\"/home/an/Reis.txt\"";
    QVERIFY(o.Start().Activeer() && o.venster->Activeer());
    o.Actie("mnuHelpKiekbordHelp")->trigger();
    o.Sluit();
    // A script on the command line opens on every activation.
    Opstelling s;
    s.verslag = &al;
    s.diensten.opdrachtregel = "\"" + al.Reis("Reis.KBS") + "\"";
    s.Start().Activeer();
    s.Typ("txtTitel", "Gewijzigd");
    s.venster->Activeer();
    s.Zie("titel: " + s.W<QLineEdit>("txtTitel")->text());
    s.Sluit();
    al.Einde("verloop_activeren");
  }

  void finishSavesThenGenerates() {
    Opstelling o;
    const std::string in = o.Map("in", {{"Haven.JPG", 160, 120}, {"duinen.jpg", 64, 48}, {"strand.jpg", 80, 60}});
    const std::string site = o.Map("site"), script = o.basis + "Zomer.kbs";
    QString getoond;  // the progress dialog: modal, its title, the log lines it showed and its bar
    const char* knop = "cmdBekijken";  // the answer at the end
    bool afbreken = false;
    o.diensten.voortgang_geopend = [&](VoortgangDialoog& dialoog) {
      getoond = dialoog.windowTitle() + (QApplication::activeModalWidget() == &dialoog ? " modaal" : "");
      QTest::keyClick(&dialoog, Qt::Key_Escape);  // must not end the dialog while the run works
      if (afbreken) dialoog.findChild<QPushButton*>(QStringLiteral("cmdAnnuleren"))->click();
      QObject::connect(&dialoog, &VoortgangDialoog::Einde, &dialoog, [&] {
        getoond += QStringLiteral(" %1/%2\n").arg(dialoog.voortgangsBalk()->value()).arg(dialoog.voortgangsBalk()->maximum());
        getoond += dialoog.logRegels()->toPlainText() + "\n";
        o.Zie("einde: " + dialoog.uitslag() + " [" + dialoog.findChild<QPushButton*>(knop)->text() + "]");
        dialoog.findChild<QPushButton*>(knop)->click();
      });
    };
    o.Start();
    o.Typ("txtTitel", "Zomer aan zee");
    o.W<QCheckBox>("chkThumbnails")->click();
    o.antwoorden = {"ja"};
    o.Volgende(in, site);
    QTest::keyClicks(o.W("txtBijschrift"), QStringLiteral("Foto 1"));
    o.Klik("cmdVolgende");
    o.W<QComboBox>("cboSjabloon")->setCurrentText(QStringLiteral("Klassiek"));
    // A new gallery is saved first, then generated; the dialog stays with
    // the log, and its button shows the result.
    o.antwoorden = {"ja", script};
    o.Klik("cmdVoltooien");
    const std::string log = ReadBytes(o.basis + "zomer.log");
    QCOMPARE(getoond, "Kiekbord - Kiekbord aanmaken modaal 3/3\n" + QString::fromStdString(log).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
    QVERIFY(log.find("Normaal einde.") != std::string::npos && QFile::exists(QString::fromStdString(site + "haven_tn.jpg")));
    // Stopped before its first page, the run writes none and says so.
    afbreken = true;
    knop = "cmdSluiten";
    QFile::remove(QString::fromStdString(site + "index.html"));
    o.Klik("cmdVoltooien");
    o.Zie("index.html: " + std::to_string(QFile::exists(QString::fromStdString(site + "index.html"))));
    const std::string gestopt = ReadBytes(o.basis + "zomer.log");
    QVERIFY(gestopt.find("Generatie afgebroken door de gebruiker.\r\nAbnormaal einde.") != std::string::npos);
    // While another run holds the output directory the finish only says so.
    std::unique_ptr<DirectoryLock> slot;
    QVERIFY(LocalFileSystem().LockDirectory(site, slot).ok());
    o.Klik("cmdVoltooien");
    QCOMPARE(ReadBytes(o.basis + "zomer.log"), gestopt);
    o.Einde("verloop_voltooien");
  }
};

}  // namespace kiekbord::test

QTEST_MAIN(kiekbord::test::MainWindowTest)
#include "main_window_test.moc"
