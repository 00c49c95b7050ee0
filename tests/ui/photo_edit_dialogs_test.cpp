// Drives the photo edit commands, the resize dialog `frmVerklein`, the
// options dialog `frmOpties` and the desktop services on real photo files.
// The rules behind them are tested in tests/editor and tests/app; here each
// control is checked to reach its rule, and each dialog as it opens is
// compared whole with its golden file (tests/data/ui).

#include "app/user_preferences.h"
#include "editor/options_rules.h"
#include "editor/photo_edit.h"
#include "editor/wizard_rules.h"
#include "images/photo_properties.h"
#include "tests/ui/window_fixture.h"

namespace kiekbord::test {
namespace {

// A window on step 2 over an output folder with a landscape and a portrait photo.
struct FotoOpstelling : Opstelling {
  const std::string uit = Map("site", {{"liggend.jpg", 1600, 1200}, {"staand.jpg", 1200, 1600}});
  void NaarStap2(const char* foto) {
    Start();
    Volgende(uit, uit);
    Fotos()->setCurrentItem(Fotos()->findItems(QString::fromLatin1(foto), Qt::MatchExactly).value(0));
  }
};

std::string Maat(const std::string& pad) { return Vervang(BepaalAfmetingen(pad), "!", ""); }

}  // namespace

class PhotoEditDialogsTest : public QObject {
  Q_OBJECT

 private slots:
  void cleanup() {
    QTRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    QTRY_VERIFY(QApplication::activePopupWidget() == nullptr);
  }

  void rotateExternalEditAndRefresh() {
    FotoOpstelling o;
    o.opslag.Schrijf("Photo", "Editor", "/usr/bin/gimp");
    o.NaarStap2("liggend.jpg");
    const std::string foto = o.uit + "liggend.jpg", origineel = ReadBytes(foto);
    o.Actie("mnuBewerkenFotoRoterenLinks")->trigger();  // "Nee" leaves the photo
    o.meldingen.antwoorden = {true};
    o.Actie("mnuBewerkenFotoRoterenRechts")->trigger();
    QCOMPARE(o.meldingen.getoond, (std::vector{RoteerVraag(kLinksom), RoteerVraag(kRechtsom)}));
    QCOMPARE(o.Info() + " " + QString::fromStdString(Maat(foto)), QStringLiteral("liggend.jpg\n1200 x 1600 pixels 1200x1600"));
    QCOMPARE(ReadBytes(o.uit + "Backup/liggend.jpg"), origineel);
    // The photo program starts with the photo; refreshing, on only after
    // that, shows what it made.
    QVERIFY(!o.Actie("mnuBewerkenFotoVernieuwen")->isEnabled());
    o.Actie("mnuBewerkenFotoExternBewerken")->trigger();
    QCOMPARE(o.bureaublad.gestart, (std::vector<std::string>{"/usr/bin/gimp", foto}));
    SchrijfProefFoto(foto, 600, 800);
    o.Actie("mnuBewerkenFotoVernieuwen")->trigger();
    QCOMPARE(o.Info() + " " + QString::number(o.Actie("mnuBewerkenFotoVernieuwen")->isEnabled()), QStringLiteral("liggend.jpg\n600 x 800 pixels 0"));
    o.bureaublad.start_lukt = false;
    o.Actie("mnuBewerkenFotoExternBewerken")->trigger();
    QCOMPARE(o.meldingen.getoond.back(), ExternStartFoutMelding(ExternBewerkenOpdracht("/usr/bin/gimp", foto)));
    WriteBytes(foto, "\xFF\xD8 geen foto");  // a failure as the library reports it
    o.meldingen.antwoorden = {true};
    o.Actie("mnuBewerkenFotoRoterenLinks")->trigger();
    QCOMPARE(o.meldingen.getoond.back().tekst, "Fout 26002 tijdens roteren foto.(De foto " + foto + " is onvolledig: het bestand houdt op voor de beeldgegevens.)");
    QVERIFY(o.Sluit());
  }

  void resizeDialogShrinksAndRemembers() {
    FotoOpstelling o;
    for (const auto& [sleutel, waarde] : {std::pair{"Breedte", "1024"}, {"Hoogte", "768"}, {"Verhouding", "0"}, {"Kwaliteit", "2"}}) {
      o.opslag.Schrijf("Verkleinen", sleutel, waarde);
    }
    o.NaarStap2("staand.jpg");
    InDialoog(o.Actie("mnuBewerkenFotoVerkleinen"), [&](QDialog* d) {
      VergelijkMetGolden(d, "verkleinen", o.basis);
      d->findChild<QPushButton*>(QStringLiteral("cmdAnnuleren"))->click();
    });
    QCOMPARE(o.opslag.waarden["Verkleinen/Breedte"] + Maat(o.uit + "staand.jpg"), "10241200x1600");
    o.Fotos()->setCurrentRow(0);
    InDialoog(o.Actie("mnuBewerkenFotoVerkleinen"), [](QDialog* d) {
      auto* breedte = d->findChild<QLineEdit*>(QStringLiteral("txtBreedteNieuw"));
      d->findChild<QCheckBox*>(QStringLiteral("chkVerhouding"))->click();
      breedte->setFocus(Qt::MouseFocusReason);
      QTRY_VERIFY(breedte->hasFocus());
      breedte->selectAll();
      QTest::keyClicks(breedte, QStringLiteral("1500"));
      d->findChild<QRadioButton*>(QStringLiteral("optKwaliteit1"))->click();
      d->findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
    });
    QCOMPARE(o.Info() + " " + QString::fromStdString(Maat(o.uit + "liggend.jpg")), QStringLiteral("liggend.jpg\n1500 x 1125 pixels 1500x1125"));
    QCOMPARE(LeesVerkleinInstellingen(o.opslag).hoogte + LeesVerkleinInstellingen(o.opslag).kwaliteit, 1126);
    QVERIFY(QFile::exists(QString::fromStdString(o.uit + "Backup/liggend.jpg")) && o.Sluit());
  }

  void optionsDialogProposesCancelsAndSaves() {
    FotoOpstelling o;
    o.opslag.waarden.clear();  // a fresh user, with krita on the search path
    const QByteArray pad = qgetenv("PATH");
    WriteBytes(o.basis + "bin/krita", "");
    qputenv("PATH", QByteArray::fromStdString("/geen/map:" + o.basis + "bin"));
    o.NaarStap2("liggend.jpg");
    o.dialogen.programmas = {"/opt/foto/bewerk", ""};
    InDialoog(o.Actie("mnuExtraOpties"), [&](QDialog* d) {
      VergelijkMetGolden(d, "opties", o.basis);
      for (int i = 0; i < 2; ++i) d->findChild<QPushButton*>(QStringLiteral("cmdFotoProgramma"))->click();
      d->findChild<QCheckBox*>(QStringLiteral("chkBackupBijRoteren"))->click();
      QCOMPARE(d->findChild<QLineEdit*>(QStringLiteral("txtFotoProgramma"))->text(), QStringLiteral("/opt/foto/bewerk"));
      d->findChild<QPushButton*>(QStringLiteral("cmdHelp"))->click();
      QCOMPARE(o.bureaublad.adressen, std::vector{HelpPaginaAdres(o.settings, std::string(kOptiesHelpPagina)).adres});
    });
    QVERIFY(o.opslag.waarden.empty());  // nothing stored until OK
    InDialoog(o.Actie("mnuExtraOpties"), [](QDialog* d) {
      d->findChild<QCheckBox*>(QStringLiteral("chkBackupBijRoteren"))->click();
      d->findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
    });
    qputenv("PATH", pad);
    QCOMPARE(LeesVoorkeuren(o.opslag).backup_bij_bewerken, 0);
    // The window reads the preferences again: the program starts, rotating makes no backup.
    o.Actie("mnuBewerkenFotoExternBewerken")->trigger();
    o.meldingen.antwoorden = {true};
    o.Actie("mnuBewerkenFotoRoterenLinks")->trigger();
    QCOMPARE(o.bureaublad.gestart.front() + " " + std::to_string(QDir(QString::fromStdString(o.uit + "Backup")).exists()),
             o.basis + "bin/krita 0");
    o.meldingen.antwoorden = {false, true};  // not saved; and closing asks now
    QVERIFY(o.Sluit());
    QCOMPARE(o.meldingen.getoond.back(), AfsluitenVraag());
  }

  void desktopServices() {
    Opstelling o;  // the desktop's default handler for web pages, from the user's own choice
    const QByteArray config = QByteArray::fromStdString(o.Map("config")), data = QByteArray::fromStdString(o.basis + "data");
    qputenv("XDG_CONFIG_HOME", config);
    qputenv("XDG_DATA_HOME", data);
    qputenv("XDG_DATA_DIRS", data + "/leeg");
    for (const std::string naam : {"andere", "proef"}) {
      WriteBytes(o.basis + "bin/" + naam, "#!/bin/sh\n");
      QFile::setPermissions(QString::fromStdString(o.basis + "bin/" + naam), QFile::ReadOwner | QFile::ExeOwner);
      WriteBytes(o.basis + "data/applications/" + naam + ".desktop",
                 "[Desktop Entry]\nType=Application\nName=P\nExec=" + o.basis + "bin/" + naam + " %u\nMimeType=text/html;\n");
      WriteBytes(o.basis + "config/mimeapps.list", "[Default Applications]\ntext/html=" + naam + ".desktop\n");
      QCOMPARE(XdgBrowserOpzoeken(""), std::optional(o.basis + "bin/" + naam));
    }
    TestMeldingen meldingen;
    QtBureaublad bureaublad(meldingen);
    QVERIFY(!bureaublad.StartProgramma("/bestaat/niet", {"/f.jpg"}) && bureaublad.StartProgramma("true", {"/f.jpg"}));
    QVERIFY(meldingen.getoond.empty());
  }
};

}  // namespace kiekbord::test

QTEST_MAIN(kiekbord::test::PhotoEditDialogsTest)
#include "photo_edit_dialogs_test.moc"
