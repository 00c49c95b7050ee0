// The main window with one recording double for its services, as the window
// tests drive it, and the golden description of a window.
#pragma once

#include <QTest>
#include <QtWidgets>

#include <array>
#include <deque>
#include <map>

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

// One double for all the window's services. Each call becomes a line of the
// transcript (`verslag`, its own unless a test points it elsewhere), and
// each question or dialog takes the next answer of `antwoorden`: a question
// "ja", a dialog its path or colour, several photos separated by "|", a
// program start "mislukt". An empty list answers "Nee" or "Annuleren".
struct Opname : Meldingen, Dialogen, Bureaublad, VoorkeurenOpslag {
  std::deque<std::string> antwoorden;
  QStringList regels;
  Opname* verslag = this;
  // "Sectie/Sleutel" -> value; closing asks nothing unless a test turns the question on.
  std::map<std::string, std::string> waarden{{"Exit/Question", "0"}};

  void Zie(QString regel) {
    regel.replace(QLatin1String("\r\n"), QLatin1String("\\n")).replace(QLatin1Char('\n'), QLatin1String("\\n"));
    verslag->regels << regel;
  }
  void Zie(const std::string& regel) { Zie(QString::fromStdString(regel)); }
  std::string Antwoord(const std::string& regel) {
    Zie(regel);
    std::string antwoord;
    if (!antwoorden.empty()) antwoord = antwoorden.front(), antwoorden.pop_front();
    return antwoord;
  }
  static std::string Soort(const Melding& m) { return std::array{"informatie", "vraag", "waarschuwing", "fout"}[static_cast<int>(m.soort)]; }

  void Toon(QWidget*, const Melding& m) override { Zie("toon (" + Soort(m) + ") " + m.tekst); }
  bool Vraag(QWidget*, const Melding& m) override {
    return Antwoord("vraag (" + Soort(m) + (m.nee_voorop ? ", Nee voorop" : "") + ") " + m.tekst) == "ja";
  }
  std::string ScriptOpenen(QWidget*, const std::string& map) override { return Antwoord("script openen in " + map); }
  std::string ScriptOpslaanAls(QWidget*, const std::string& map, const std::string& naam) override { return Antwoord("script opslaan als " + map + naam); }
  std::string MapKiezen(QWidget*, const std::string& titel, const std::string& map) override { return Antwoord("map kiezen: " + titel + ": " + map); }
  std::vector<std::string> FotosKiezen(QWidget*, const std::string& map) override {
    std::vector<std::string> fotos;
    for (const QString& f : QString::fromStdString(Antwoord("foto's kiezen in " + map)).split('|', Qt::SkipEmptyParts)) {
      fotos.push_back(f.toStdString());
    }
    return fotos;
  }
  std::optional<QColor> KleurKiezen(QWidget*, const std::string&, const QColor& huidig) override {
    const std::string kleur = Antwoord("kleur kiezen vanaf " + huidig.name().toStdString());
    return kleur.empty() ? std::nullopt : std::optional(QColor(QString::fromStdString(kleur)));
  }
  std::string FotoprogrammaKiezen(QWidget*, const std::string& huidig) override { return Antwoord("fotoprogramma kiezen bij '" + huidig + "'"); }
  void OpenAddress(QWidget*, const std::string& adres, bool) override { Zie("open " + adres); }
  void OpenLog(QWidget*, const std::string& pad) override { Zie("open log " + pad); }
  std::string FindBrowser(const std::string&) override { return "/usr/bin/firefox"; }
  bool StartProgramma(const std::string& programma, const std::vector<std::string>& argumenten) override {
    std::string regel = "start " + programma;
    for (const std::string& a : argumenten) regel += " " + a;
    return Antwoord(regel) != "mislukt";
  }
  std::optional<std::string> Lees(std::string_view sectie, std::string_view sleutel) const override {
    const auto it = waarden.find(std::string(sectie) + "/" + std::string(sleutel));
    return it == waarden.end() ? std::nullopt : std::optional(it->second);
  }
  void Schrijf(std::string_view sectie, std::string_view sleutel, std::string_view waarde) override {
    const std::string naam = std::string(sectie) + "/" + std::string(sleutel);
    // The window's geometry is stored on every close; its own test reads it back.
    if (sectie != "Venster") Zie("opslaan " + naam + "=" + std::string(waarde));
    waarden[naam] = std::string(waarde);
  }
};

// Success when `tekst` is that of tests/data/ui/<golden>.txt, where @BASIS@
// stands for `basis`, @basis@ for it in lower case and @DATA@ for the
// program's data folder.
inline void VergelijkTekst(const QStringList& tekst, const std::string& golden, const std::string& basis) {
  WriteBytes(basis + golden, tekst.join(QLatin1Char('\n')).toStdString() + "\n");
  const auto gelijk = GelijkAanGolden(TestDataDir() + "ui/" + golden + ".txt", basis + golden,
                                      {{"@BASIS@", basis}, {"@basis@", Lower(basis)}, {"@DATA@", KIEKBORD_PROGRAM_DATA_DIR}});
  QVERIFY2(gelijk, gelijk.message());
}

// A colour sample's colours: "<text> op <background>".
inline QString Kleuren(const QLabel* l) {
  return l->palette().color(QPalette::WindowText).name() + " op " + l->palette().color(QPalette::Window).name();
}

inline QStringList Items(const QListWidget* lijst) {
  QStringList items;
  for (int i = 0; i < lijst->count(); ++i) items << lijst->item(i)->text();
  return items;
}

// What `venster` and its controls show, one sorted line each: "name: text",
// a label under the name of the field it carries, the choices of a list
// with the chosen one in brackets, "[x]" for a checked box, a colour
// sample's colours, and "(uit)", "(verborgen)" and "(tip: ...)"; then the
// Tab order of the visible controls and any access key used twice. Compared
// whole with tests/data/ui/<golden>.txt.
inline void VergelijkMetGolden(QWidget* venster, const std::string& golden, const std::string& basis) {
  QStringList regels{QStringLiteral("(titel): ") + venster->windowTitle()}, gezien, dubbel;
  QString tab = QStringLiteral("(tab):");
  for (QWidget* w = venster->nextInFocusChain(); w != venster; w = w->nextInFocusChain()) {
    if (w->isVisibleTo(venster) && (w->focusPolicy() & Qt::TabFocus) && !w->objectName().isEmpty()) tab += " " + w->objectName();
  }
  regels << tab;
  for (QObject* o : venster->findChildren<QObject*>()) {
    QString naam = o->objectName(), tekst;
    auto* w = qobject_cast<QWidget*>(o);
    auto* l = qobject_cast<QLabel*>(o);
    auto* m = qobject_cast<QMenu*>(o);
    if (m || (w && w->isVisibleTo(venster) && (l || qobject_cast<QAbstractButton*>(o)))) {  // an access key
      const QString toets = QKeySequence::mnemonic(m ? m->title() : o->property("text").toString()).toString();
      if (!toets.isEmpty() && gezien.contains(toets)) dubbel << toets;
      gezien << toets;
    }
    if (naam.startsWith(QLatin1String("qt_")) || naam == QLatin1String("imgFoto")) continue;
    if (naam.isEmpty()) naam = l && l->buddy() ? l->buddy()->objectName() + ".label" : "-";
    if (auto* a = qobject_cast<QAction*>(o); a && !o->objectName().isEmpty()) {
      tekst = a->text() + (a->isEnabled() ? "" : " (uit)") + (a->isVisible() ? "" : " (verborgen)");
    } else if (m) {
      for (QAction* a : m->actions()) tekst += " " + (a->isSeparator() ? QStringLiteral("-") : a->objectName());
      tekst = m->title() + " [" + tekst + " ]" + (m->menuAction()->isEnabled() ? "" : " (uit)");
      w = nullptr;
    } else if (auto* g = qobject_cast<QGroupBox*>(o)) tekst = g->title();
    else if (auto* b = qobject_cast<QAbstractButton*>(o)) tekst = b->text() + (b->isChecked() ? " [x]" : "");
    else if (l && l->autoFillBackground()) tekst = l->text() + " (" + Kleuren(l) + ")";
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
  regels << "(toetsen dubbel): " + dubbel.join(' ');
  regels.sort();
  VergelijkTekst(regels, golden, basis);
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

struct Opstelling : Opname {
  QTemporaryDir tmp;
  const std::string basis = tmp.path().toStdString() + "/";
  ProgramSettings settings = LeesProgrammaInstellingen(std::string(KIEKBORD_PROGRAM_DATA_DIR) + "/", basis);
  VensterDiensten diensten{{}, this, this, this, this, "Unknown (3.6.1)", "", [] { return true; }, {},
                           [] { return std::chrono::year_month_day{std::chrono::year{2026}, std::chrono::month{11}, std::chrono::day{21}}; }, {}};
  std::unique_ptr<MainWindow> venster;

  // No box, dialog or menu may be left open.
  ~Opstelling() { QTRY_VERIFY(!QApplication::activeModalWidget() && !QApplication::activePopupWidget()); }

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
  void Sluit() { Zie(QString(venster->close() ? "gesloten" : "blijft open")); }
  // Closes the window if it is still open and compares the transcript whole
  // with tests/data/ui/<golden>.txt.
  void Einde(const std::string& golden) {
    if (venster && venster->isVisible()) Sluit();
    VergelijkTekst(regels, golden, basis);
  }
};

}  // namespace kiekbord::test
