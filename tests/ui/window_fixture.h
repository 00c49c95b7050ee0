// The main window with test doubles for its services, as the window tests
// drive it: message boxes answered from a list, common dialogs that return
// what the test chose, a desktop that records what would be opened, and a
// settings store in memory. And the golden description of a window.
#pragma once

#include <QTest>
#include <QtWidgets>

#include <chrono>
#include <deque>
#include <functional>
#include <map>
#include <memory>

#include "app/program_settings.h"
#include "base/text.h"
#include "base/text_helpers.h"
#include "tests/support/golden.h"
#include "tests/support/test_photos.h"
#include "tests/support/test_support.h"
#include "ui/common_dialogs.h"
#include "ui/desktop_services.h"
#include "ui/main_window.h"
#include "ui/message_boxes.h"

namespace kiekbord::test {

// The next answer from `rij`; an empty list answers "Nee" or "Annuleren".
template <typename T>
T Volgende(std::deque<T>& rij) {
  T waarde{};
  if (!rij.empty()) waarde = std::move(rij.front()), rij.pop_front();
  return waarde;
}

struct TestMeldingen : Meldingen {
  void Toon(QWidget*, const Melding& melding) override { getoond.push_back(melding); }
  bool Vraag(QWidget* ouder, const Melding& melding) override { return Toon(ouder, melding), Volgende(antwoorden); }
  std::deque<bool> antwoorden;
  std::vector<Melding> getoond;
};

// Each dialog records where it started (a colour dialog: its colour) and
// returns the next answer of its list.
struct TestDialogen : Dialogen {
  template <typename T>
  T Open(const std::string& map, std::deque<T>& antwoorden) {
    return geopend_in.push_back(map), Volgende(antwoorden);
  }
  std::string ScriptOpenen(QWidget*, const std::string& map) override { return Open(map, te_openen); }
  std::string ScriptOpslaanAls(QWidget*, const std::string& map, const std::string& naam) override {
    return Open(map + naam, op_te_slaan);
  }
  std::string MapKiezen(QWidget*, const std::string& titel, const std::string& map) override {
    return Open(titel + ": " + map, mappen);
  }
  std::vector<std::string> FotosKiezen(QWidget*, const std::string& map) override { return Open(map, fotos); }
  std::optional<QColor> KleurKiezen(QWidget*, const std::string&, const QColor& huidig) override {
    return Open(huidig.name().toStdString(), kleuren);
  }
  std::string FotoprogrammaKiezen(QWidget*, const std::string& huidig) override { return Open(huidig, programmas); }
  std::deque<std::string> te_openen, op_te_slaan, mappen, programmas;
  std::deque<std::vector<std::string>> fotos;
  std::deque<std::optional<QColor>> kleuren;
  std::vector<std::string> geopend_in;
};

struct TestBureaublad : Bureaublad {
  void OpenAddress(QWidget*, const std::string& adres, bool) override { adressen.push_back(adres); }
  void OpenLog(QWidget*, const std::string& pad) override { adressen.push_back(pad); }
  std::string FindBrowser(const std::string&) override { return "/usr/bin/firefox"; }
  bool StartProgramma(const std::string& programma, const std::vector<std::string>& argumenten) override {
    return gestart.push_back(programma), gestart.insert(gestart.end(), argumenten.begin(), argumenten.end()), start_lukt;
  }
  std::vector<std::string> adressen, gestart;  // each program started, then its arguments
  bool start_lukt = true;
};

struct TestOpslag : VoorkeurenOpslag {
  std::optional<std::string> Lees(std::string_view sectie, std::string_view sleutel) const override {
    const auto it = waarden.find(std::string(sectie) + "/" + std::string(sleutel));
    return it == waarden.end() ? std::nullopt : std::optional(it->second);
  }
  void Schrijf(std::string_view sectie, std::string_view sleutel, std::string_view waarde) override {
    waarden[std::string(sectie) + "/" + std::string(sleutel)] = std::string(waarde);
  }
  std::map<std::string, std::string> waarden;  // "Sectie/Sleutel" -> value
};

inline QStringList Items(const QListWidget* lijst) {
  QStringList items;
  for (int i = 0; i < lijst->count(); ++i) items << lijst->item(i)->text();
  return items;
}

// The access keys that two visible controls, or two menus, of `venster` share.
inline QStringList DubbeleToetsen(QWidget* venster) {
  QStringList gezien, dubbel;
  for (QWidget* w : venster->findChildren<QWidget*>()) {
    auto* menu = qobject_cast<QMenu*>(w);
    const bool zichtbaar = w->isVisibleTo(venster) && (qobject_cast<QAbstractButton*>(w) || qobject_cast<QLabel*>(w));
    const QString toets = QKeySequence::mnemonic(menu ? menu->title() : w->property("text").toString()).toString();
    if ((menu || zichtbaar) && !toets.isEmpty() && gezien.contains(toets)) dubbel << toets;
    if (menu || zichtbaar) gezien << toets;
  }
  return dubbel;
}

// What `venster` and its controls show, one sorted line each: "name: text",
// a label under the name of the field it carries, the choices of a list
// with the chosen one in brackets, "[x]" for a checked box, a colour
// sample's colours, and "(uit)", "(verborgen)" and "(tip: ...)"; then the
// Tab order of the visible controls and any access key used twice. Compared
// whole with tests/data/ui/<golden>.txt, where @BASIS@ stands for `basis`
// and @basis@ for it in lower case.
inline void VergelijkMetGolden(QWidget* venster, const std::string& golden, const std::string& basis) {
  QStringList regels{QStringLiteral("(titel): ") + venster->windowTitle(), "(toetsen dubbel): " + DubbeleToetsen(venster).join(' ')};
  QString tab = QStringLiteral("(tab):");
  for (QWidget* w = venster->nextInFocusChain(); w != venster; w = w->nextInFocusChain()) {
    if (w->isVisibleTo(venster) && (w->focusPolicy() & Qt::TabFocus) && !w->objectName().isEmpty()) tab += " " + w->objectName();
  }
  regels << tab;
  for (QObject* o : venster->findChildren<QObject*>()) {
    QString naam = o->objectName(), tekst;
    auto* w = qobject_cast<QWidget*>(o);
    auto* l = qobject_cast<QLabel*>(o);
    if (naam.startsWith(QLatin1String("qt_")) || naam == QLatin1String("imgFoto")) continue;
    if (naam.isEmpty()) naam = l && l->buddy() ? l->buddy()->objectName() + ".label" : "-";
    if (auto* a = qobject_cast<QAction*>(o); a && !o->objectName().isEmpty()) {
      tekst = a->text() + (a->isEnabled() ? "" : " (uit)") + (a->isVisible() ? "" : " (verborgen)");
    } else if (auto* m = qobject_cast<QMenu*>(o)) {
      for (QAction* a : m->actions()) tekst += " " + (a->isSeparator() ? QStringLiteral("-") : a->objectName());
      tekst = m->title() + " [" + tekst + " ]" + (m->menuAction()->isEnabled() ? "" : " (uit)");
      w = nullptr;
    } else if (auto* g = qobject_cast<QGroupBox*>(o)) tekst = g->title();
    else if (auto* b = qobject_cast<QAbstractButton*>(o)) tekst = b->text() + (b->isChecked() ? " [x]" : "");
    else if (l && l->autoFillBackground()) tekst = l->text() + " (" + l->palette().color(QPalette::WindowText).name() + " op " + l->palette().color(QPalette::Window).name() + ")";
    else if (l) tekst = l->text();
    else if (auto* e = qobject_cast<QLineEdit*>(o)) tekst = "'" + e->text() + "'" + (e->isReadOnly() ? " (alleen lezen)" : "");
    else if (auto* e = qobject_cast<QPlainTextEdit*>(o)) tekst = "'" + e->toPlainText() + "'";
    else if (auto* c = qobject_cast<QComboBox*>(o)) {
      for (int i = 0; i < c->count(); ++i) tekst += (i == c->currentIndex() ? "[" + c->itemText(i) + "]" : c->itemText(i)) + " ";
    } else if (auto* lijst = qobject_cast<QListWidget*>(o)) tekst = Items(lijst).join(QLatin1Char('|'));
    else continue;
    if (w && !w->isEnabled()) tekst += " (uit)";
    if (w && !w->isVisibleTo(venster)) tekst += " (verborgen)";
    if (w && !w->toolTip().isEmpty()) tekst += " (tip: " + w->toolTip() + ")";
    regels << naam + ": " + tekst.replace(QLatin1Char('\n'), QLatin1String("\\n"));
  }
  regels.sort();
  WriteBytes(basis + golden, regels.join(QLatin1Char('\n')).toStdString() + "\n");
  const auto gelijk = GelijkAanGolden(TestDataDir() + "ui/" + golden + ".txt", basis + golden,
                                      {{"@BASIS@", basis}, {"@basis@", Lower(basis)}});
  QVERIFY2(gelijk, gelijk.message());
}

// Runs `stappen` on the modal dialog that `actie` opens, then closes it
// unless the steps did.
inline void InDialoog(QAction* actie, const std::function<void(QDialog*)>& stappen) {
  QTimer::singleShot(0, [&] {
    auto* d = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    QVERIFY(d != nullptr && (d->frameGeometry().center() - d->screen()->availableGeometry().center()).manhattanLength() <= 2);
    stappen(d);
    if (d->isVisible()) d->reject();
  });
  actie->trigger();
}

struct Opstelling {
  TestMeldingen meldingen;
  TestDialogen dialogen;
  TestBureaublad bureaublad;
  TestOpslag opslag;
  QTemporaryDir tmp;
  const std::string basis = tmp.path().toStdString() + "/";
  ProgramSettings settings = LeesProgrammaInstellingen(std::string(KIEKBORD_PROGRAM_DATA_DIR) + "/", basis);
  VensterDiensten diensten{{}, &meldingen, &dialogen, &bureaublad, &opslag, "Unknown (3.6.1)", "", [] { return true; }, {},
                           [] { return std::chrono::year_month_day{std::chrono::year{2026}, std::chrono::month{11}, std::chrono::day{21}}; }, {}};
  std::unique_ptr<MainWindow> venster;

  // Closing asks nothing unless a test turns the question on.
  Opstelling() { opslag.Schrijf("Exit", "Question", "0"); }

  MainWindow& Start() {
    diensten.settings = settings;
    diensten.info.programma = settings.caption;
    venster = std::make_unique<MainWindow>(diensten);
    venster->show();
    venster->activateWindow();
    if (!QTest::qWaitForWindowActive(venster.get())) qWarning("venster niet actief");
    return *venster;
  }

  // A directory under the scratch directory ("/" at the end) with JPEG
  // photos of the given sizes.
  std::string Map(const std::string& naam, std::initializer_list<std::tuple<const char*, int, int>> fotos = {}) {
    QDir().mkpath(QString::fromStdString(basis + naam));
    for (const auto& [foto, breedte, hoogte] : fotos) SchrijfProefFoto(basis + naam + "/" + foto, breedte, hoogte, breedte % 7);
    return basis + naam + "/";
  }

  template <typename T = QWidget>
  T* W(const char* naam) const {
    T* w = venster->findChild<T*>(QString::fromLatin1(naam));
    if (w == nullptr) qWarning("geen %s", naam);
    return w;
  }
  QAction* Actie(const char* naam) const { return W<QAction>(naam); }
  void Klik(const char* knop) const { QTest::mouseClick(W<QPushButton>(knop), Qt::LeftButton); }
  QListWidget* Fotos() const { return W<QListWidget>("lstFotos"); }
  // The first two lines of the photo information: name and size.
  QString Info() const { return W<QLabel>("lblFotoInfo")->text().section(QLatin1Char('\n'), 0, 1); }
  // The script tests/data/ui/reis.kbs as `naam`, with the photos of its output folder.
  std::string Reis(const std::string& naam) {
    Map("uit", {{"foto_a.jpg", 160, 120}, {"foto_b.jpg", 64, 48}});
    WriteBytes(basis + naam, VulPlaatshouders(ReadBytes(TestDataDir() + "ui/reis.kbs"), {{"@BASIS@", basis}}));
    return basis + naam;
  }

  // Types into a field as the user does, and leaves it with Return.
  void Typ(const char* naam, const std::string& tekst) {
    W<QLineEdit>(naam)->selectAll();
    QTest::keyClicks(W(naam), QString::fromStdString(tekst));
    QTest::keyClick(W(naam), Qt::Key_Return);
  }
  // Fills in both directories and presses Next.
  void Volgende(const std::string& in, const std::string& uit) {
    Typ("txtInvoerDir", in);
    Typ("txtUitvoerDir", uit);
    Klik("cmdVolgende");
  }
  bool Sluit() { return venster->close(); }  // true when it closed
};

}  // namespace kiekbord::test
