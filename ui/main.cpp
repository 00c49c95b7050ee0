// kiekbord: the window program. Start-up reads the program settings once,
// then shows the main window and runs its first activation.

#include <QApplication>
#include <QStringList>
#include <QTimer>
#include <QTranslator>

#include "app/library_versions.h"
#include "app/program_directory.h"
#include "base/program_info.h"
#include "app/program_settings.h"
#include "base/dutch_date.h"
#include "images/library_choice.h"
#include "ui/application_setup.h"
#include "ui/common_dialogs.h"
#include "ui/desktop_services.h"
#include "ui/instance_lock.h"
#include "ui/main_window.h"
#include "ui/message_boxes.h"
#include "ui/settings_store.h"

int main(int argc, char** argv) {
  using namespace kiekbord;
  QApplication app(argc, argv);
  // Qt's own dialogs (colours, files) speak Dutch, as the program does.
  QTranslator qt_vertaling;
  RichtToepassingIn(qt_vertaling);

  QtMeldingen meldingen;
  QtDialogen dialogen;
  QtBureaublad bureaublad(meldingen);
  QSettingsOpslag opslag;
  InstanceLock vergrendeling;

  VensterDiensten diensten;
  diensten.settings = LeesProgrammaInstellingen(FindProgramDirectory(), HomeDirectory());
  diensten.meldingen = &meldingen;
  diensten.dialogen = &dialogen;
  diensten.bureaublad = &bureaublad;
  diensten.opslag = &opslag;
  diensten.os_naam = HoofdvensterOsNaam(BepaalOsNaam(), diensten.settings.program_dir);
  diensten.opdrachtregel = QApplication::arguments().mid(1).join(QLatin1Char(' ')).toStdString();
  diensten.enige_exemplaar = [&vergrendeling] { return vergrendeling.Verkrijg(); };
  diensten.info.programma = diensten.settings.caption;
  diensten.info.revisie = BuildRevision();
  diensten.info.os_naam = BepaalOsNaam();
  diensten.info.bibliotheken = BeeldBibliotheekVersies();
  diensten.info.icoon = diensten.settings.program_dir + "kbicon.gif";
  diensten.vandaag = VandaagLokaal;

  MainWindow venster(std::move(diensten));
  venster.show();
  QTimer::singleShot(0, &venster, [&venster] { venster.Activeer(); });
  return QApplication::exec();
}
