#include "ui/main_window.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "app/startup_checks.h"
#include "base/dutch_date.h"
#include "base/file_system.h"
#include "base/text.h"
#include "editor/photo_edit.h"
#include "editor/photo_import.h"
#include "editor/photo_list.h"
#include "editor/wizard_rules.h"
#include "ui/common_dialogs.h"
#include "ui/desktop_services.h"
#include "ui/general_page.h"
#include "ui/finish_dialog.h"
#include "ui/message_boxes.h"
#include "ui/options_dialog.h"
#include "ui/photos_page.h"
#include "ui/resize_dialog.h"
#include "ui/settings_page.h"
#include "ui/step_header.h"
#include "ui/widget_helpers.h"

namespace kiekbord {

MainWindow::MainWindow(VensterDiensten diensten, QWidget* ouder)
    : QMainWindow(ouder), d_(std::move(diensten)) {
  setObjectName(QStringLiteral("frmKiekbord"));
  setWindowTitle(Q(d_.settings.caption));
  const QIcon icoon(Q(d_.settings.program_dir + "kbicon.gif"));
  if (!icoon.isNull()) setWindowIcon(icoon);

  voorkeuren_ = LeesVoorkeuren(*d_.opslag);
  laatste_dir_ = LeesLaatsteDir(*d_.opslag);

  MaakMenus();

  auto* centraal = new QWidget(this);
  kop_ = new StapKop(centraal);
  stappen_ = Benoemd(new QStackedWidget(centraal), "stpStappen");
  MaakStappen();

  cmdVorige_ = Benoemd(new QPushButton(QStringLiteral("< &Vorige"), centraal), "cmdVorige");
  cmdVolgende_ = Benoemd(new QPushButton(QStringLiteral("V&olgende >"), centraal), "cmdVolgende");
  cmdVoltooien_ = Benoemd(new QPushButton(QStringLiteral("Voltooie&n"), centraal), "cmdVoltooien");
  txtDDE_ = Benoemd(new QLineEdit(centraal), "txtDDE");
  txtDDE_->setVisible(false);
  for (QPushButton* knop : {cmdVorige_, cmdVolgende_, cmdVoltooien_}) knop->setMinimumWidth(100);
  cmdVolgende_->setDefault(true);

  auto* knoppen = new QHBoxLayout;
  knoppen->addStretch(1);
  knoppen->addWidget(cmdVorige_);
  knoppen->addWidget(cmdVolgende_);
  knoppen->addSpacing(12);
  knoppen->addWidget(cmdVoltooien_);

  auto* layout = new QVBoxLayout(centraal);
  layout->addWidget(kop_);
  layout->addWidget(stappen_, 1);
  layout->addLayout(knoppen);
  setCentralWidget(centraal);

  connect(cmdVorige_, &QPushButton::clicked, this, &MainWindow::Vorige);
  connect(cmdVolgende_, &QPushButton::clicked, this, &MainWindow::Volgende);
  connect(cmdVoltooien_, &QPushButton::clicked, this, &MainWindow::Voltooien);

  ZetNieuweGalerij();
  ZetLaatsteScript(LeesLaatsteScript(*d_.opslag));

  // The window starts on step 1 with every control set for it; the help
  // item keeps its first caption until a step is shown.
  ToonStap();
  mnuHelpStap_->setText(QStringLiteral("Stap &1. Algemeen "));
  HerstelVensterplek(*this, *d_.opslag, 780, 580);
}

MainWindow::~MainWindow() = default;

// --- Construction ----------------------------------------------------------------

void MainWindow::MaakMenus() {
  mnuBestand_ = Benoemd(menuBar()->addMenu(QStringLiteral("&Bestand")), "mnuBestand");
  mnuBestandScriptOpenen_ = Actie(mnuBestand_, "mnuBestandScriptOpenen", QStringLiteral("Script &openen..."));
  mnuBestandScriptOpslaan_ = Actie(mnuBestand_, "mnuBestandScriptOpslaan", QStringLiteral("Script o&pslaan"));
  mnuBestandScriptOpslaanAls_ =
      Actie(mnuBestand_, "mnuBestandScriptOpslaanAls", QStringLiteral("Script ops&laan als..."));
  mnuBestand_->addSeparator();
  mnuBestandLaatste_ = Actie(mnuBestand_, "mnuBestandLaatste", QStringLiteral("Laaste scriptbestand"));
  mnuBestand_->addSeparator();
  mnuBestandAfsluiten_ = Actie(mnuBestand_, "mnuBestandAfsluiten", QStringLiteral("&Afsluiten"));
  mnuBestandScriptOpenen_->setShortcut(QKeySequence::Open);
  mnuBestandScriptOpslaan_->setShortcut(QKeySequence::Save);
  mnuBestandScriptOpslaan_->setEnabled(false);
  mnuBestandScriptOpslaanAls_->setEnabled(false);
  // Hidden until a script has been saved once.
  mnuBestandLaatste_->setVisible(false);
  connect(mnuBestandScriptOpenen_, &QAction::triggered, this, &MainWindow::ScriptOpenen);
  connect(mnuBestandScriptOpslaan_, &QAction::triggered, this, &MainWindow::ScriptOpslaan);
  connect(mnuBestandScriptOpslaanAls_, &QAction::triggered, this, &MainWindow::ScriptOpslaanAls);
  connect(mnuBestandLaatste_, &QAction::triggered, this, &MainWindow::LaatsteScriptOpenen);
  connect(mnuBestandAfsluiten_, &QAction::triggered, this, &QWidget::close);

  mnuBewerken_ = Benoemd(menuBar()->addMenu(QStringLiteral("Be&werken")), "mnuBewerken");
  mnuBewerkenOngedaanMaken_ = Actie(mnuBewerken_, "mnuBewerkenOngedaanMaken", QStringLiteral("&Ongedaan maken"));
  mnuBewerkenOngedaanMaken_->setShortcut(QKeySequence::Undo);
  connect(mnuBewerkenOngedaanMaken_, &QAction::triggered, this, [this] {
    if (fotos_->ZetVerwijderdeTerug(d_.settings.maximum_aantal)) Gewijzigd();
  });
  mnuBewerken_->addSeparator();
  mnuBewerkenFotoToevoegen_ =
      Actie(mnuBewerken_, "mnuBewerkenFotoToevoegen", QStringLiteral("Foto &toevoegen..."));
  mnuBewerkenFotoVerwijderenGalerij_ =
      Actie(mnuBewerken_, "mnuBewerkenFotoVerwijderenGalerij", QStringLiteral("Foto verwijderen uit &kiekbord"));
  mnuBewerkenFotoVerwijderenTotaal_ = Actie(mnuBewerken_, "mnuBewerkenFotoVerwijderenTotaal",
                                            QStringLiteral("Foto verwijderen uit kiekbord en van &schijf"));
  mnuBewerken_->addSeparator();
  mnuBewerkenFotoRoterenLinks_ =
      Actie(mnuBewerken_, "mnuBewerkenFotoRoterenLinks", QStringLiteral("Foto &linksom roteren"));
  mnuBewerkenFotoRoterenRechts_ =
      Actie(mnuBewerken_, "mnuBewerkenFotoRoterenRechts", QStringLiteral("Foto &rechtsom roteren"));
  mnuBewerkenFotoVerkleinen_ =
      Actie(mnuBewerken_, "mnuBewerkenFotoVerkleinen", QStringLiteral("Foto ver&kleinen..."));
  mnuBewerkenFotoExternBewerken_ =
      Actie(mnuBewerken_, "mnuBewerkenFotoExternBewerken", QStringLiteral("Foto &extern bewerken"));
  mnuBewerken_->addSeparator();
  mnuBewerkenFotoVernieuwen_ = Actie(mnuBewerken_, "mnuBewerkenFotoVernieuwen", QStringLiteral("Foto &vernieuwen"));
  mnuBewerkenFotoVerwijderenGalerij_->setShortcut(QKeySequence::Delete);
  mnuBewerkenFotoVernieuwen_->setShortcut(QKeySequence::Refresh);
  connect(mnuBewerkenFotoToevoegen_, &QAction::triggered, this, &MainWindow::FotoToevoegen);
  connect(mnuBewerkenFotoVerwijderenGalerij_, &QAction::triggered, this, &MainWindow::FotoVerwijderenUitKiekbord);
  connect(mnuBewerkenFotoVerwijderenTotaal_, &QAction::triggered, this, &MainWindow::FotoVerwijderenTotaal);
  connect(mnuBewerkenFotoRoterenLinks_, &QAction::triggered, this, [this] { FotoRoteren(kLinksom); });
  connect(mnuBewerkenFotoRoterenRechts_, &QAction::triggered, this, [this] { FotoRoteren(kRechtsom); });
  connect(mnuBewerkenFotoVerkleinen_, &QAction::triggered, this, &MainWindow::FotoVerkleinen);
  connect(mnuBewerkenFotoExternBewerken_, &QAction::triggered, this, &MainWindow::FotoExternBewerken);
  connect(mnuBewerkenFotoVernieuwen_, &QAction::triggered, this, &MainWindow::FotoVernieuwen);

  mnuExtra_ = Benoemd(menuBar()->addMenu(QStringLiteral("E&xtra")), "mnuExtra");
  mnuExtraOpties_ = Actie(mnuExtra_, "mnuExtraOpties", QStringLiteral("&Opties..."));
  connect(mnuExtraOpties_, &QAction::triggered, this, &MainWindow::Opties);

  mnuHelp_ = Benoemd(menuBar()->addMenu(QStringLiteral("&Help")), "mnuHelp");
  mnuHelpKiekbordHelp_ = Actie(mnuHelp_, "mnuHelpKiekbordHelp", QStringLiteral("&Kiekbord Help"));
  mnuHelpStap_ = Actie(mnuHelp_, "mnuHelpStap", QString());
  mnuHelpSjablonen_ = Actie(mnuHelp_, "mnuHelpSjablonen", QStringLiteral("&Sjablonen"));
  mnuHelp_->addSeparator();
  mnuHelpInfo_ = Actie(mnuHelp_, "mnuHelpInfo", QStringLiteral("&Info"));
  mnuHelpKiekbordHelp_->setShortcut(QKeySequence::HelpContents);
  connect(mnuHelpKiekbordHelp_, &QAction::triggered, this, [this] { OpenHelpPagina("index"); });
  connect(mnuHelpStap_, &QAction::triggered, this, [this] { OpenHelpPagina(HelpPaginaVanStap(stap_)); });
  connect(mnuHelpSjablonen_, &QAction::triggered, this, [this] { OpenHelpPagina("index04"); });
  connect(mnuHelpInfo_, &QAction::triggered, this, &MainWindow::ToonInfo);

  mnuKleurGebruik_ = Benoemd(new QMenu(this), "mnuKleurGebruik");
  mnuKleurGebruikTekstOpAchtergrond_ =
      Actie(mnuKleurGebruik_, "mnuKleurGebruikTekstOpAchtergrond", QStringLiteral("&Tekst op achtergrond"));
  mnuKleurGebruikAchtergrond_ = Actie(mnuKleurGebruik_, "mnuKleurGebruikAchtergrond", QStringLiteral("&Achtergrond"));
  mnuKleurGebruik_->addSeparator();
  mnuKleurGebruikTekstInKader_ =
      Actie(mnuKleurGebruik_, "mnuKleurGebruikTekstInKader", QStringLiteral("Tekst in &fotokader"));
  mnuKleurGebruikKader_ = Actie(mnuKleurGebruik_, "mnuKleurGebruikKader", QStringLiteral("&Fotokader"));
  connect(mnuKleurGebruikTekstOpAchtergrond_, &QAction::triggered, this,
          [this] { KleurKiezen(KleurRol::kTekstOpAchtergrond); });
  connect(mnuKleurGebruikAchtergrond_, &QAction::triggered, this, [this] { KleurKiezen(KleurRol::kAchtergrond); });
  connect(mnuKleurGebruikTekstInKader_, &QAction::triggered, this, [this] { KleurKiezen(KleurRol::kTekstInKader); });
  connect(mnuKleurGebruikKader_, &QAction::triggered, this, [this] { KleurKiezen(KleurRol::kKader); });
}

// The three step pages. Every edit of the record enables "save as", so
// closing or replacing a new gallery asks whether to keep it.
void MainWindow::MaakStappen() {
  algemeen_ = new AlgemenePagina(d_.settings, *d_.dialogen);
  fotos_ = new FotoPagina([this] { return algemeen_->UitvoerDir(); }, [this] { return voorkeuren_; }, *d_.meldingen);
  instellingen_ = new InstellingenPagina(d_.settings);
  stappen_->addWidget(algemeen_);
  stappen_->addWidget(fotos_);
  stappen_->addWidget(instellingen_);
  connect(algemeen_, &AlgemenePagina::Gewijzigd, this, &MainWindow::Gewijzigd);
  connect(fotos_, &FotoPagina::Gewijzigd, this, &MainWindow::Gewijzigd);
  connect(instellingen_, &InstellingenPagina::Gewijzigd, this, &MainWindow::Gewijzigd);
  connect(fotos_, &FotoPagina::SelectieGewijzigd, this, &MainWindow::ZetFotoCommandos);
  connect(fotos_->lstFotos, &QWidget::customContextMenuRequested, this,
          [this](const QPoint& plek) { mnuBewerken_->exec(fotos_->lstFotos->viewport()->mapToGlobal(plek)); });
  connect(instellingen_->cmdKleurGebruik, &QPushButton::clicked, this, [this] {
    QPushButton* knop = instellingen_->cmdKleurGebruik;
    mnuKleurGebruik_->exec(knop->mapToGlobal(QPoint(0, knop->height())));
  });
}

void MainWindow::Gewijzigd() {
  if (!script_laden_) mnuBestandScriptOpslaanAls_->setEnabled(true);
}

void MainWindow::ZetNieuweGalerij() {
  script_laden_ = true;
  instellingen_->ZetNieuw();
  fotos_->ZetFotos({}, -1);
  script_laden_ = false;
}

// --- The record ----------------------------------------------------------------------

GalleryScript MainWindow::Gegevens() const {
  GalleryScript g;
  algemeen_->LeesIn(g);
  g.fotos = fotos_->fotos();
  instellingen_->LeesIn(g);
  return g;
}

std::chrono::year_month_day MainWindow::Vandaag() const { return d_.vandaag ? d_.vandaag() : VandaagLokaal(); }

// --- Activation --------------------------------------------------------------------

bool MainWindow::Activeer() {
  if (d_.enige_exemplaar && !d_.enige_exemplaar()) {
    d_.meldingen->Toon(this, AlGestartMelding());
    sluiten_zonder_vragen_ = true;
    close();
    return false;
  }
  if (eerste_activering_) {
    // The template sets are installed with the program; all that is left to
    // do here is to say when there are none.
    if (instellingen_->Sjablonen().empty()) d_.meldingen->Toon(this, GeenSjablonenMelding(d_.settings.sjabloon_dir));
  }
  const bool eerste = eerste_activering_;
  eerste_activering_ = false;

  const OpdrachtregelScript opdracht = BekijkOpdrachtregel(d_.opdrachtregel);
  switch (opdracht.soort) {
    case OpdrachtregelScript::Soort::kNiets: break;
    case OpdrachtregelScript::Soort::kOnjuist: d_.meldingen->Toon(this, opdracht.melding); break;
    case OpdrachtregelScript::Soort::kOpenen:
      // Opened again on every activation; what was changed since is offered
      // for saving first.
      if (!eerste) VraagOpslaan(kVoordatAnderScript);
      OpenScript(S(QFileInfo(Q(opdracht.pad)).absoluteFilePath()));
      break;
  }
  return true;
}

// --- Steps -----------------------------------------------------------------------

void MainWindow::ToonStap() {
  stappen_->setCurrentIndex(stap_ - 1);
  kop_->ToonStap(stap_);
  const StapToestand t = ToestandVoorStap(stap_);
  cmdVorige_->setEnabled(t.vorige);
  cmdVolgende_->setEnabled(t.volgende);
  cmdVoltooien_->setEnabled(t.voltooien);
  mnuBestandScriptOpenen_->setEnabled(t.script_openen);
  mnuBestandLaatste_->setEnabled(t.script_openen);
  mnuBewerken_->setEnabled(t.bewerken);
  mnuBewerken_->menuAction()->setEnabled(t.bewerken);
  mnuHelpStap_->setText(Q(HelpStapTitel(stap_)));
  ZetFotoCommandos();
  (t.voltooien ? cmdVoltooien_ : cmdVolgende_)->setDefault(true);
  if (stap_ == 1) algemeen_->txtTitel->setFocus();
  if (stap_ == 2) fotos_->lstFotos->setFocus();
  if (stap_ == 3) instellingen_->cboPresentatie->setFocus();
}

void MainWindow::Volgende() {
  if (stap_ >= kLaatsteStap) return;
  std::vector<std::string> nieuw;
  if (stap_ == 1 && !algemeen_->Verlaten(*d_.meldingen, d_.os_naam, voorkeuren_, nieuw)) return;
  ++stap_;
  ToonStap();
  if (fotos_->Vernieuw(nieuw, d_.settings.maximum_aantal)) Gewijzigd();
}

void MainWindow::Vorige() {
  if (stap_ <= kEersteStap) return;
  --stap_;
  ToonStap();
}

// --- Finish and close ----------------------------------------------------------------

void MainWindow::Voltooien() {
  if (stap_ != kLaatsteStap || bezig_) return;
  if (!script_pad_.empty()) {
    ScriptOpslaan();
  } else if (d_.meldingen->Vraag(this, EerstOpslaanVraag())) {
    ScriptOpslaanAls();
  }
  if (script_pad_.empty()) return;

  bezig_ = true;
  Voltooiing(this, d_.settings, *d_.meldingen, *d_.bureaublad)
      .Voer(script_pad_, algemeen_->UitvoerDir(), voorkeuren_.lopende_browser == 1, d_.voortgang_geopend);
  bezig_ = false;
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (bezig_) {
    event->ignore();
    return;
  }
  if (!sluiten_zonder_vragen_) {
    VraagOpslaan(VoordatAfsluiten());
    if (voorkeuren_.vraag_bij_afsluiten == 1 && !d_.meldingen->Vraag(this, AfsluitenVraag())) {
      event->ignore();
      return;
    }
  }
  BewaarVensterplek(*this, *d_.opslag);
  event->accept();
}

// --- Script commands -----------------------------------------------------------------

void MainWindow::VraagOpslaan(const std::string& einde) {
  const bool heeft_pad = !script_pad_.empty();
  const bool gewijzigd = heeft_pad ? bestand_.Gewijzigd(Gegevens(), Vandaag()) : mnuBestandScriptOpslaanAls_->isEnabled();
  if (!gewijzigd || !d_.meldingen->Vraag(this, OpslaanVraag(heeft_pad, einde))) return;
  if (heeft_pad) {
    ScriptOpslaan();
  } else {
    ScriptOpslaanAls();
  }
}

void MainWindow::ScriptOpenen() {
  VraagOpslaan(kVoordatAnderScript);
  const std::string map = laatste_dir_.empty() ? d_.settings.default_dir : laatste_dir_;
  const std::string pad = d_.dialogen->ScriptOpenen(this, map);
  if (!pad.empty()) OpenScript(pad);
}

void MainWindow::LaatsteScriptOpenen() {
  const std::string pad = S(mnuBestandLaatste_->data().toString());
  if (!pad.empty()) OpenScript(pad);
}

void MainWindow::OpenScript(const std::string& pad) {
  std::optional<Melding> fout;
  {
    BezigAanwijzer bezig;
    fout = bestand_.Open(pad);
  }
  if (fout) {
    d_.meldingen->Toon(this, *fout);
    return;
  }
  LeesOmgeving omgeving;
  omgeving.standaard_dir = d_.settings.default_dir;
  omgeving.sjablonen = instellingen_->Sjablonen();
  omgeving.sjablonen_dir = d_.settings.sjabloon_dir;
  omgeving.huidig_sjabloon = instellingen_->GekozenSjabloon();
  script_laden_ = true;
  const ScriptGelezen gelezen = ScriptLezen(bestand_.tabel(), omgeving, *this);
  VulVenster(gelezen);
  script_laden_ = false;

  ZetScriptPad(pad);
  mnuBestandScriptOpslaan_->setEnabled(true);
  mnuBestandScriptOpslaanAls_->setEnabled(true);
  if (stap_ != 1) {
    stap_ = 1;
    ToonStap();
  }
  for (const Melding& melding : gelezen.meldingen) d_.meldingen->Toon(this, melding);
}

void MainWindow::VulVenster(const ScriptGelezen& gelezen) {
  const GalleryScript& g = gelezen.script;
  algemeen_->Vul(g);
  fotos_->ToonMapFotos(gelezen.fotos_laden ? g.uitvoer_dir : std::string());
  fotos_->ZetFotos(g.fotos, g.fotos.empty() ? -1 : 0);
  instellingen_->Vul(g);
}

// The window's title, the last folder and the script's path follow a script
// opened or saved under a new name.
void MainWindow::ZetScriptPad(const std::string& pad) {
  setWindowTitle(Q(VensterTitel(pad, d_.settings.caption)));
  const std::string map = DirectoryOf(pad);
  if (map != laatste_dir_) {
    laatste_dir_ = map;
    SchrijfLaatsteDir(*d_.opslag, map);
  }
  script_pad_ = pad;
}

void MainWindow::ScriptOpslaan() {
  if (script_pad_.empty()) {
    ScriptOpslaanAls();
    return;
  }
  std::optional<Melding> fout;
  {
    BezigAanwijzer bezig;
    fout = bestand_.Opslaan(Gegevens(), Vandaag(), script_pad_, false);
  }
  if (fout) return d_.meldingen->Toon(this, *fout);
  SchrijfLaatsteScript(*d_.opslag, script_pad_);
  ZetLaatsteScript(script_pad_);
}

void MainWindow::ScriptOpslaanAls() {
  const std::string map = OpslaanAlsMap(script_pad_, voorkeuren_.nieuw_in_laatste_dir == 0, algemeen_->UitvoerDir(),
                                        laatste_dir_, d_.settings.default_dir);
  const std::string naam = script_pad_.empty() ? std::string("Naamloos") : FileNameOf(script_pad_);
  const std::string pad = d_.dialogen->ScriptOpslaanAls(this, map, naam);
  if (pad.empty()) return;

  std::optional<Melding> fout;
  {
    BezigAanwijzer bezig;
    fout = bestand_.Opslaan(Gegevens(), Vandaag(), pad, true);
  }
  if (fout) {
    d_.meldingen->Toon(this, *fout);
    return;
  }
  SchrijfLaatsteScript(*d_.opslag, pad);
  ZetScriptPad(pad);
  ZetLaatsteScript(pad);
  mnuBestandScriptOpslaan_->setEnabled(true);
}

// The recent entry shows the display form of the path; it opens the path
// itself, since on this file system the display form may name no file.
void MainWindow::ZetLaatsteScript(const std::string& pad) {
  if (pad.empty()) return;
  mnuBestandLaatste_->setText(MenuTekst(WeergaveVorm(pad)));
  mnuBestandLaatste_->setData(Q(pad));
  mnuBestandLaatste_->setVisible(true);
}

// --- Directory checks ------------------------------------------------------------------

void MainWindow::ControleerInvoerDir(const std::string& directory) { algemeen_->ZetInvoerDir(directory); }

bool MainWindow::ControleerUitvoerDir(const std::string& directory) { return algemeen_->ZetUitvoerDir(directory); }

void MainWindow::HercontroleerInvoerDir() { algemeen_->HercontroleerInvoerDir(); }

// --- Photo list ------------------------------------------------------------------------

std::optional<std::string> MainWindow::GekozenFotoPad() const {
  const std::optional<std::size_t> foto = fotos_->GekozenFoto();
  if (stap_ != 2 || !foto) return std::nullopt;
  return FotoPad(algemeen_->UitvoerDir(), fotos_->fotos()[*foto].foto);
}

void MainWindow::ZetFotoCommandos() {
  const FotoLijstKnoppen knoppen = FotoLijstToestand(stap_ == 2, fotos_->Rij(), fotos_->fotos().size());
  mnuBewerkenFotoToevoegen_->setEnabled(knoppen.toevoegen);
  mnuBewerkenOngedaanMaken_->setEnabled(knoppen.toevoegen && fotos_->HeeftVerwijderde());
  fotos_->cmdFotoOmhoog->setEnabled(knoppen.omhoog);
  fotos_->cmdFotoOmlaag->setEnabled(knoppen.omlaag);
  fotos_->ZetRechtopKnoppen();
  mnuBewerkenFotoVerwijderenGalerij_->setEnabled(knoppen.verwijderen);
  mnuBewerkenFotoVerwijderenTotaal_->setEnabled(knoppen.verwijderen);
  const BewerkMenu bewerk = BewerkMenuToestand(knoppen.verwijderen, d_.settings, voorkeuren_, vernieuwen_aangezet_);
  mnuBewerkenFotoRoterenLinks_->setEnabled(bewerk.roteren);
  mnuBewerkenFotoRoterenRechts_->setEnabled(bewerk.roteren);
  mnuBewerkenFotoVerkleinen_->setEnabled(bewerk.verkleinen);
  mnuBewerkenFotoExternBewerken_->setEnabled(bewerk.extern_bewerken);
  mnuBewerkenFotoVernieuwen_->setEnabled(bewerk.vernieuwen);
}

void MainWindow::FotoOmhoog() { fotos_->Omhoog(); }

void MainWindow::FotoOmlaag() { fotos_->Omlaag(); }

void MainWindow::FotoToevoegen() {
  const bool toegevoegd = fotos_->Toevoegen(*d_.dialogen, *d_.meldingen, algemeen_->InvoerDir(), d_.settings.maximum_aantal);
  if (toegevoegd) Gewijzigd();
}

void MainWindow::FotoVerwijderenTotaal() {
  if (fotos_->VerwijderVanSchijf(*d_.meldingen)) Gewijzigd();
}

void MainWindow::FotoVerwijderenUitKiekbord() {
  if (!fotos_->GekozenFoto()) return;
  fotos_->VerwijderGekozen();
  Gewijzigd();
}

// --- Photo edits -----------------------------------------------------------------------

void MainWindow::FotoRoteren(std::string_view richting) {
  const std::optional<std::string> pad = GekozenFotoPad();
  if (!pad) return;
  if (!d_.meldingen->Vraag(this, RoteerVraag(richting))) return;
  std::vector<Melding> fouten;
  {
    BezigAanwijzer bezig;
    FoutMeldingen verzameld;
    // A failure has been reported to `verzameld` and is shown below.
    static_cast<void>(RoteerFoto(d_.os_naam, *pad, richting, BackupVlag(voorkeuren_), verzameld));
    fouten = verzameld.meldingen();
  }
  for (const Melding& fout : fouten) d_.meldingen->Toon(this, fout);
  FotoVernieuwen();
}

void MainWindow::FotoVerkleinen() {
  const std::optional<std::string> pad = GekozenFotoPad();
  if (!pad || !d_.settings.verkleinen) return;
  bool verkleind = false;
  {
    VerkleinDialoog dialoog(*pad, *d_.opslag, *d_.meldingen, this);
    dialoog.exec();
    verkleind = dialoog.verkleind();
  }
  if (verkleind) FotoVernieuwen();
  // Closing one of the program's own windows activates the main window again.
  Activeer();
}

void MainWindow::FotoExternBewerken() {
  const std::optional<std::string> pad = GekozenFotoPad();
  if (!pad) return;
  const ExternBewerken opdracht = ExternBewerkenOpdracht(voorkeuren_.foto_programma, *pad);
  if (!d_.bureaublad->StartProgramma(opdracht.programma, opdracht.argumenten)) {
    d_.meldingen->Toon(this, ExternStartFoutMelding(opdracht));
    return;
  }
  vernieuwen_aangezet_ = true;
  ZetFotoCommandos();
}

// Selecting no photo and then the same one again loads it afresh, as it is
// on disk now.
void MainWindow::FotoVernieuwen() {
  fotos_->LaadOpnieuw();
  vernieuwen_aangezet_ = false;
  ZetFotoCommandos();
}

void MainWindow::Opties() {
  {
    OptiesDialoog dialoog(*d_.opslag, d_.settings, *d_.bureaublad, *d_.dialogen, *d_.meldingen,
                          voorkeuren_.lopende_browser == 1, this);
    dialoog.exec();
  }
  voorkeuren_ = LeesVoorkeuren(*d_.opslag);
  ZetFotoCommandos();
  Activeer();
}

// --- Colours ---------------------------------------------------------------------------

void MainWindow::KleurKiezen(KleurRol rol) {
  const std::optional<QColor> gekozen =
      d_.dialogen->KleurKiezen(this, KleurDialoogTitel(rol), AlsQColor(instellingen_->Kleur(rol)));
  if (!gekozen) return;
  if (const std::optional<Melding> weigering = instellingen_->KiesKleur(rol, AlsKleurnummer(*gekozen))) {
    d_.meldingen->Toon(this, *weigering);
    return;
  }
  Gewijzigd();
}

// --- Help and About --------------------------------------------------------------------

void MainWindow::OpenHelpPagina(const std::string& pagina) {
  const HelpAdres help = HelpPaginaAdres(d_.settings, pagina);
  if (help.fout) {
    d_.meldingen->Toon(this, *help.fout);
    return;
  }
  d_.bureaublad->OpenAddress(this, help.adres, voorkeuren_.lopende_browser == 1);
}

void MainWindow::ToonInfo() {
  InfoDialoog info(d_.info, this);
  info.exec();
  // Closing one of the program's own windows activates the main window again.
  Activeer();
}

}  // namespace kiekbord
