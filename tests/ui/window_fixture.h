// The main window with its test doubles, as the window tests drive it, and
// the file helpers they share.
#pragma once

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

#include <chrono>
#include <memory>

#include "app/program_settings.h"
#include "tests/ui/ui_fakes.h"
#include "tests/support/test_photos.h"
#include "ui/main_window.h"

namespace kiekbord::test {

// The pixel size of a test photo.
struct ProefFoto {
  int breedte;
  int hoogte;
};

inline const std::string kProgramData = std::string(KIEKBORD_PROGRAM_DATA_DIR) + "/";

inline std::string Lees(const std::string& pad) {
  QFile f(QString::fromStdString(pad));
  return f.open(QIODevice::ReadOnly) ? f.readAll().toStdString() : std::string();
}

inline void Schrijf(const std::string& pad, const std::string& inhoud) {
  QFile f(QString::fromStdString(pad));
  QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
  f.write(inhoud.data(), static_cast<qint64>(inhoud.size()));
}

inline bool Bestaat(const std::string& pad) { return QFileInfo::exists(QString::fromStdString(pad)); }

inline QStringList Items(const QListWidget* lijst) {
  QStringList items;
  for (int i = 0; i < lijst->count(); ++i) items << lijst->item(i)->text();
  return items;
}

struct Opstelling {
  TestMeldingen meldingen;
  TestDialogen dialogen;
  TestBureaublad bureaublad;
  TestOpslag opslag;
  QTemporaryDir tmp;
  const std::string basis = tmp.path().toStdString() + "/";
  ProgramSettings settings = LeesProgrammaInstellingen(kProgramData, basis);
  // What the window gets besides the doubles and the settings; set before Start().
  VensterDiensten diensten;
  std::unique_ptr<MainWindow> venster;

  // Closing asks nothing unless a test turns the question on.
  Opstelling() {
    opslag.Schrijf("Exit", "Question", "0");
    diensten.os_naam = "Unknown (3.6.1)";
    diensten.enige_exemplaar = [] { return true; };
    diensten.vandaag = [] {
      return std::chrono::year_month_day{std::chrono::year{2026}, std::chrono::month{11}, std::chrono::day{21}};
    };
  }

  MainWindow& Start() {
    VensterDiensten d = diensten;
    d.settings = settings;
    d.meldingen = &meldingen;
    d.dialogen = &dialogen;
    d.bureaublad = &bureaublad;
    d.opslag = &opslag;
    d.info.programma = settings.caption;
    venster = std::make_unique<MainWindow>(std::move(d));
    venster->show();
    venster->activateWindow();
    if (!QTest::qWaitForWindowActive(venster.get())) qWarning("venster niet actief");
    return *venster;
  }

  // A directory under the scratch directory ("/" at the end) holding real
  // JPEG photos: {name in the directory, size}.
  std::string Map(const std::string& naam, std::initializer_list<std::pair<const char*, ProefFoto>> fotos = {}) {
    const std::string pad = basis + naam + "/";
    QDir().mkpath(QString::fromStdString(pad));
    int tint = 0;
    for (const auto& [foto, maat] : fotos) SchrijfProefFoto(pad + foto, maat.breedte, maat.hoogte, ++tint);
    return pad;
  }

  template <typename T>
  T* W(const char* naam) const {
    T* w = venster->findChild<T*>(QString::fromLatin1(naam));
    if (w == nullptr) qWarning("geen %s", naam);
    return w;
  }
  QAction* Actie(const char* naam) const { return W<QAction>(naam); }
  QPushButton* Knop(const char* naam) const { return W<QPushButton>(naam); }
  QListWidget* Fotos() const { return W<QListWidget>("lstFotos"); }
  // The first two lines of the photo information: name and size.
  QString Info() const { return W<QLabel>("lblFotoInfo")->text().section(QLatin1Char('\n'), 0, 1); }

  // Types into a field as the user does, and leaves it with Return.
  void Typ(const char* naam, const std::string& tekst) {
    auto* veld = W<QLineEdit>(naam);
    veld->selectAll();
    QTest::keyClicks(veld, QString::fromStdString(tekst));
    QTest::keyClick(veld, Qt::Key_Return);
  }

  // Fills in both directories and presses Next.
  void Volgende(const std::string& in, const std::string& uit) {
    Typ("txtInvoerDir", in);
    Typ("txtUitvoerDir", uit);
    QTest::mouseClick(Knop("cmdVolgende"), Qt::LeftButton);
  }

  // Closes the window; questions without an answer count as "Nee". True
  // when it closed.
  bool Sluit() { return venster->close(); }
};

// Three real camera photos of different sizes and orientations.
inline constexpr ProefFoto kFoto1{1600, 1200};
inline constexpr ProefFoto kFoto2{640, 480};
inline constexpr ProefFoto kFoto3{800, 600};

}  // namespace kiekbord::test
