// Drives the photo edit commands, the resize dialog `frmVerklein`, the
// options dialog `frmOpties` and the desktop services on real photo files.
// The rules behind them are tested in tests/editor and tests/app; here each
// control is checked to reach its rule, and each dialog as it opens is
// compared whole with its golden file (tests/data/ui).

#include "images/photo_properties.h"
#include "tests/ui/window_fixture.h"

namespace kiekbord::test {

class PhotoEditDialogsTest : public QObject {
  Q_OBJECT

 private slots:
  // One user's session: each command on the photo, the resize dialog and the
  // options dialog, which the later commands then follow.
  void rotateResizeOptionsAndExternalEdit() {
    Opstelling o;  // on step 2 over a landscape and a portrait photo
    const auto maat = [](const std::string& pad) { return Vervang(BepaalAfmetingen(pad), "!", ""); };
    const std::string uit = o.Map("site", {{"liggend.jpg", 1600, 1200}, {"staand.jpg", 1200, 1600}});
    o.waarden = {{"Verkleinen/Breedte", "1024"}, {"Verkleinen/Hoogte", "768"}, {"Verkleinen/Verhouding", "0"}, {"Verkleinen/Kwaliteit", "2"}};
    const QByteArray pad = qgetenv("PATH");  // krita on the search path
    WriteBytes(o.basis + "bin/krita", "");
    qputenv("PATH", QByteArray::fromStdString("/geen/map:" + o.basis + "bin"));
    o.Start();
    o.Volgende(uit, uit);
    const std::string liggend = uit + "liggend.jpg", staand = uit + "staand.jpg";
    const std::string origineel = ReadBytes(liggend) + ReadBytes(staand);
    o.Actie("mnuBewerkenFotoRoterenLinks")->trigger();  // "Nee" leaves the photo
    o.antwoorden = {"ja"};
    o.Actie("mnuBewerkenFotoRoterenRechts")->trigger();
    o.Zie(o.Info() + " " + QString::fromStdString(maat(liggend)));
    // Cancelling the resize dialog changes nothing; OK shrinks the photo and
    // keeps the choices.
    o.Fotos()->setCurrentRow(1);
    InDialoog(o.Actie("mnuBewerkenFotoVerkleinen"), [&](QDialog* d) {
      VergelijkMetGolden(d, "verkleinen", o.basis);
      d->findChild<QPushButton*>(QStringLiteral("cmdAnnuleren"))->click();
    });
    o.Zie("na annuleren: " + maat(staand));
    InDialoog(o.Actie("mnuBewerkenFotoVerkleinen"), [](QDialog* d) {
      auto* breedte = d->findChild<QLineEdit*>(QStringLiteral("txtBreedteNieuw"));
      d->findChild<QCheckBox*>(QStringLiteral("chkVerhouding"))->click();
      breedte->setFocus(Qt::MouseFocusReason);
      QTRY_VERIFY(breedte->hasFocus());
      breedte->selectAll();
      QTest::keyClicks(breedte, QStringLiteral("900"));
      d->findChild<QRadioButton*>(QStringLiteral("optKwaliteit1"))->click();
      d->findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
    });
    o.Zie(o.Info() + " " + QString::fromStdString(maat(staand)));
    QCOMPARE(ReadBytes(uit + "Backup/liggend.jpg") + ReadBytes(uit + "Backup/staand.jpg"), origineel);
    // Options: the program found on the search path is proposed; nothing is
    // stored until OK.
    o.antwoorden = {"/opt/foto/bewerk", ""};
    InDialoog(o.Actie("mnuExtraOpties"), [&](QDialog* d) {
      VergelijkMetGolden(d, "opties", o.basis);
      for (int i = 0; i < 2; ++i) d->findChild<QPushButton*>(QStringLiteral("cmdFotoProgramma"))->click();
      d->findChild<QCheckBox*>(QStringLiteral("chkBackupBijRoteren"))->click();
      o.Zie("veld: " + d->findChild<QLineEdit*>(QStringLiteral("txtFotoProgramma"))->text());
      d->findChild<QPushButton*>(QStringLiteral("cmdHelp"))->click();
    });
    o.Zie(QStringLiteral("na annuleren"));
    InDialoog(o.Actie("mnuExtraOpties"), [](QDialog* d) {
      d->findChild<QCheckBox*>(QStringLiteral("chkBackupBijRoteren"))->click();
      d->findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
    });
    qputenv("PATH", pad);
    // The photo program starts with the photo; refreshing, on only after
    // that, shows what it made.
    o.Zie("vernieuwen: " + std::to_string(o.Actie("mnuBewerkenFotoVernieuwen")->isEnabled()));
    o.Actie("mnuBewerkenFotoExternBewerken")->trigger();
    SchrijfProefFoto(staand, 600, 800);
    o.Actie("mnuBewerkenFotoVernieuwen")->trigger();
    o.Zie(o.Info() + " " + QString::number(o.Actie("mnuBewerkenFotoVernieuwen")->isEnabled()));
    o.antwoorden = {"mislukt"};
    o.Actie("mnuBewerkenFotoExternBewerken")->trigger();
    // Rotating now makes no backup.
    QDir(QString::fromStdString(uit + "Backup")).removeRecursively();
    o.antwoorden = {"ja"};
    o.Actie("mnuBewerkenFotoRoterenLinks")->trigger();
    o.Zie("backup: " + std::to_string(QDir(QString::fromStdString(uit + "Backup")).exists()));
    // A photo the camera stored turned (orientation 6) is marked and shown as
    // stored; one click sets it upright.
    const std::string gedraaid = ProefJpeg(80, 64);
    WriteBytes(staand, gedraaid.substr(0, 2) + std::string("\xFF\xE1\x00\x22" "Exif\0\0" "MM\0\x2A\0\0\0\x08" "\0\x01"
                                                           "\x01\x12\0\x03\0\0\0\x01\0\x06\0\0" "\0\0\0\0", 36) +
                           gedraaid.substr(2));
    const auto markering = [&o] {
      o.Fotos()->setCurrentRow(0);
      o.Fotos()->setCurrentRow(1);
      return o.Fotos()->currentItem()->text() + " " + o.Info() + " " +
             QString::number(o.W<QPushButton>("cmdRechtopZetten")->isEnabled());
    };
    o.Zie(markering());
    o.Klik("cmdRechtopZetten");
    o.Zie(markering());
    WriteBytes(staand, "\xFF\xD8 geen foto");  // a failure as the library reports it
    o.antwoorden = {"ja"};
    o.Actie("mnuBewerkenFotoRoterenLinks")->trigger();
    o.antwoorden = {"", "ja"};  // not saved; and closing asks now
    o.Einde("verloop_fotos");
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
    QtBureaublad bureaublad(o);
    QVERIFY(!bureaublad.StartProgramma("/bestaat/niet", {"/f.jpg"}) && bureaublad.StartProgramma("true", {"/f.jpg"}));
    QVERIFY(o.regels.empty());
  }
};

}  // namespace kiekbord::test

QTEST_MAIN(kiekbord::test::PhotoEditDialogsTest)
#include "photo_edit_dialogs_test.moc"
