#include "ui/main_window.h"

#include <algorithm>
#include <array>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QImageReader>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QResizeEvent>
#include <QStackedWidget>
#include <QTimer>
#include <QVBoxLayout>

#include "base/program_info.h"
#include "app/startup_checks.h"
#include "editor/photo_edit.h"
#include "editor/photo_import.h"
#include "editor/photo_list.h"
#include "editor/wizard_rules.h"
#include "base/dutch_date.h"
#include "base/file_system.h"
#include "base/text.h"
#include "generator/generation_run.h"
#include "ui/common_dialogs.h"
#include "ui/desktop_services.h"
#include "ui/generation_progress.h"
#include "ui/message_boxes.h"
#include "ui/options_dialog.h"
#include "ui/resize_dialog.h"

namespace kiekbord {
namespace {

QString Q(const std::string& tekst) { return QString::fromStdString(tekst); }
QString Q(std::string_view tekst) {
  return QString::fromUtf8(tekst.data(), static_cast<qsizetype>(tekst.size()));
}
std::string S(const QString& tekst) { return tekst.toStdString(); }

// A menu caption shows "&" as an access key; a path's own "&" must stay one.
QString MenuTekst(const std::string& tekst) { return Q(tekst).replace(QLatin1Char('&'), QStringLiteral("&&")); }

QColor AlsQColor(std::int32_t kleur) {
  return QColor(kleur & 0xFF, (kleur >> 8) & 0xFF, (kleur >> 16) & 0xFF);
}

std::int32_t AlsKleurnummer(const QColor& kleur) {
  return kleur.red() | (kleur.green() << 8) | (kleur.blue() << 16);
}

// Shows the busy pointer while it lives.
class BezigAanwijzer {
 public:
  BezigAanwijzer() { QApplication::setOverrideCursor(Qt::WaitCursor); }
  ~BezigAanwijzer() { QApplication::restoreOverrideCursor(); }
  BezigAanwijzer(const BezigAanwijzer&) = delete;
  BezigAanwijzer& operator=(const BezigAanwijzer&) = delete;
};

QAction* Actie(QMenu* menu, const char* naam, const QString& tekst) {
  QAction* actie = menu->addAction(tekst);
  actie->setObjectName(QString::fromLatin1(naam));
  return actie;
}

QLabel* Bijschrift(const QString& tekst, QWidget* buddy, QWidget* ouder) {
  auto* label = new QLabel(tekst, ouder);
  label->setBuddy(buddy);
  return label;
}

template <typename Widget>
Widget* Benoemd(Widget* widget, const char* naam) {
  widget->setObjectName(QString::fromLatin1(naam));
  return widget;
}

void VulKeuzes(QComboBox* lijst, std::span<const std::string_view> keuzes) {
  for (const std::string_view keuze : keuzes) lijst->addItem(Q(keuze));
}

}  // namespace

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
  stappen_ = Benoemd(new QStackedWidget(centraal), "stpStappen");
  stappen_->addWidget(MaakStapAlgemeen());
  stappen_->addWidget(MaakStapFotobijschriften());
  stappen_->addWidget(MaakStapInstellingen());

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
  layout->addWidget(stappen_, 1);
  layout->addLayout(knoppen);
  setCentralWidget(centraal);

  connect(cmdVorige_, &QPushButton::clicked, this, &MainWindow::Vorige);
  connect(cmdVolgende_, &QPushButton::clicked, this, &MainWindow::Volgende);
  connect(cmdVoltooien_, &QPushButton::clicked, this, &MainWindow::Voltooien);

  voorbeeldTimer_ = new QTimer(this);
  voorbeeldTimer_->setSingleShot(true);
  voorbeeldTimer_->setInterval(80);
  connect(voorbeeldTimer_, &QTimer::timeout, this, &MainWindow::ToonVoorbeeld);

  ZetNieuweGalerij();
  VerbindWijzigingen();
  ZetLaatsteScript(LeesLaatsteScript(*d_.opslag));

  // The window starts on step 1 with every control set for it; the help
  // item keeps its first caption until a step is shown.
  ToonStap();
  mnuHelpStap_->setText(QStringLiteral("Stap &1. Algemeen "));
  resize(780, 580);
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

QWidget* MainWindow::MaakStapAlgemeen() {
  fraAlgemeen_ = Benoemd(new QGroupBox(Q(StapTitel(1))), "fraAlgemeen");
  QGroupBox* f = fraAlgemeen_;
  txtTitel_ = Benoemd(new QLineEdit(f), "txtTitel");
  txtSubtitel_ = Benoemd(new QLineEdit(f), "txtSubtitel");
  txtDatum_ = Benoemd(new QLineEdit(f), "txtDatum");
  txtBeschrijving_ = Benoemd(new QPlainTextEdit(f), "txtBeschrijving");
  txtBeschrijving_->setTabChangesFocus(true);
  txtInvoerDir_ = Benoemd(new QLineEdit(f), "txtInvoerDir");
  cmdInvoer_ = Benoemd(new QPushButton(QStringLiteral("Bladeren..."), f), "cmdInvoer");
  txtUitvoerDir_ = Benoemd(new QLineEdit(f), "txtUitvoerDir");
  cmdUitvoer_ = Benoemd(new QPushButton(QStringLiteral("Bladeren..."), f), "cmdUitvoer");
  chkThumbnails_ = Benoemd(new QCheckBox(QStringLiteral("Overzichtspagina met thumbnails &aanmaken"), f),
                           "chkThumbnails");

  auto* raster = new QGridLayout(f);
  raster->addWidget(Bijschrift(QStringLiteral("&Titel"), txtTitel_, f), 0, 0);
  raster->addWidget(txtTitel_, 0, 1, 1, 2);
  raster->addWidget(Bijschrift(QStringLiteral("&Subtitel"), txtSubtitel_, f), 1, 0);
  raster->addWidget(txtSubtitel_, 1, 1, 1, 2);
  raster->addWidget(Bijschrift(QStringLiteral("&Datum"), txtDatum_, f), 2, 0);
  raster->addWidget(txtDatum_, 2, 1, 1, 2);
  QLabel* beschrijving = Bijschrift(QStringLiteral("Besch&rijving"), txtBeschrijving_, f);
  beschrijving->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  raster->addWidget(beschrijving, 3, 0);
  raster->addWidget(txtBeschrijving_, 3, 1, 1, 2);
  raster->addWidget(Bijschrift(QStringLiteral("&Invoerdirectory"), txtInvoerDir_, f), 4, 0);
  raster->addWidget(txtInvoerDir_, 4, 1);
  raster->addWidget(cmdInvoer_, 4, 2);
  raster->addWidget(Bijschrift(QStringLiteral("&Uitvoerdirectory"), txtUitvoerDir_, f), 5, 0);
  raster->addWidget(txtUitvoerDir_, 5, 1);
  raster->addWidget(cmdUitvoer_, 5, 2);
  raster->addWidget(chkThumbnails_, 6, 1, 1, 2);
  raster->setRowStretch(3, 1);
  raster->setColumnStretch(1, 1);

  txtInvoerDir_->setToolTip(QStringLiteral("De directory met uw eigen foto's"));
  txtUitvoerDir_->setToolTip(QStringLiteral("De directory waarin de foto's, thumbnails en pagina's komen"));
  connect(cmdInvoer_, &QPushButton::clicked, this,
          [this] { MapKiezen(txtInvoerDir_, "Kiekbord - Invoerdirectory kiezen"); });
  connect(cmdUitvoer_, &QPushButton::clicked, this,
          [this] { MapKiezen(txtUitvoerDir_, "Kiekbord - Uitvoerdirectory kiezen"); });
  connect(txtInvoerDir_, &QLineEdit::editingFinished, this, [this] { MapVeldControleren(txtInvoerDir_); });
  connect(txtUitvoerDir_, &QLineEdit::editingFinished, this, [this] { MapVeldControleren(txtUitvoerDir_); });
  return f;
}

QWidget* MainWindow::MaakStapFotobijschriften() {
  fraFotobijschriften_ = Benoemd(new QGroupBox(Q(StapTitel(2))), "fraFotobijschriften");
  QGroupBox* f = fraFotobijschriften_;
  lstFotos_ = Benoemd(new QListWidget(f), "lstFotos");
  lstFotos_->setContextMenuPolicy(Qt::CustomContextMenu);
  lstFotos_->setMinimumWidth(200);
  lstBijschriften_ = Benoemd(new QListWidget(f), "lstBijschriften");
  lstBijschriften_->setVisible(false);
  flstDirFotos_ = Benoemd(new QListWidget(f), "flstDirFotos");
  flstDirFotos_->setVisible(false);
  txtBijschrift_ = Benoemd(new QLineEdit(f), "txtBijschrift");
  imgFoto_ = Benoemd(new QLabel(f), "imgFoto");
  imgFoto_->setAlignment(Qt::AlignCenter);
  imgFoto_->setMinimumSize(320, 240);
  imgFoto_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  imgFoto_->setFrameShape(QFrame::StyledPanel);
  imgFoto_->setBackgroundRole(QPalette::Base);
  imgFoto_->setAutoFillBackground(true);
  imgFoto_->installEventFilter(this);
  lblAantalFotos_ = Benoemd(new QLabel(f), "lblAantalFotos");
  lblFotoInfo_ = Benoemd(new QLabel(f), "lblFotoInfo");
  lblFotoInfo_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  lblFotoInfo_->setMinimumHeight(lblFotoInfo_->fontMetrics().lineSpacing() * 3);
  lblFotoInfo_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  cmdFotoOmhoog_ = Benoemd(new QPushButton(QStringLiteral("O&mhoog"), f), "cmdFotoOmhoog");
  cmdFotoOmlaag_ = Benoemd(new QPushButton(QStringLiteral("Om&laag"), f), "cmdFotoOmlaag");
  cmdFotoOmhoog_->setToolTip(QStringLiteral("Verplaats foto naar voren in de kiekbord"));
  cmdFotoOmlaag_->setToolTip(QStringLiteral("Verplaats foto naar achteren in de kiekbord"));

  auto* lijstKnoppen = new QHBoxLayout;
  lijstKnoppen->addWidget(lblAantalFotos_, 1);
  lijstKnoppen->addWidget(cmdFotoOmhoog_);
  lijstKnoppen->addWidget(cmdFotoOmlaag_);

  auto* links = new QVBoxLayout;
  links->addWidget(Bijschrift(QStringLiteral("&Foto's"), lstFotos_, f));
  links->addWidget(lstFotos_, 1);
  links->addLayout(lijstKnoppen);

  auto* rechts = new QVBoxLayout;
  rechts->addWidget(imgFoto_, 1);
  rechts->addWidget(lblFotoInfo_);
  rechts->addWidget(Bijschrift(QStringLiteral("Bij&schrift"), txtBijschrift_, f));
  rechts->addWidget(txtBijschrift_);

  auto* layout = new QHBoxLayout(f);
  layout->addLayout(links, 2);
  layout->addSpacing(8);
  layout->addLayout(rechts, 3);

  // Tab follows the eye: the list, the buttons under it, then the caption.
  QWidget::setTabOrder(lstFotos_, cmdFotoOmhoog_);
  QWidget::setTabOrder(cmdFotoOmhoog_, cmdFotoOmlaag_);
  QWidget::setTabOrder(cmdFotoOmlaag_, txtBijschrift_);

  connect(lstFotos_, &QListWidget::currentRowChanged, this, &MainWindow::FotoGeselecteerd);
  connect(lstFotos_, &QWidget::customContextMenuRequested, this,
          [this](const QPoint& plek) { mnuBewerken_->exec(lstFotos_->viewport()->mapToGlobal(plek)); });
  connect(txtBijschrift_, &QLineEdit::textEdited, this, &MainWindow::BijschriftBewerkt);
  connect(cmdFotoOmhoog_, &QPushButton::clicked, this, &MainWindow::FotoOmhoog);
  connect(cmdFotoOmlaag_, &QPushButton::clicked, this, &MainWindow::FotoOmlaag);
  return f;
}

QWidget* MainWindow::MaakStapInstellingen() {
  fraInstellingen_ = Benoemd(new QGroupBox(Q(StapTitel(3))), "fraInstellingen");
  QGroupBox* f = fraInstellingen_;
  cboPresentatie_ = Benoemd(new QComboBox(f), "cboPresentatie");
  cboSjabloon_ = Benoemd(new QComboBox(f), "cboSjabloon");
  cboPositieFotos_ = Benoemd(new QComboBox(f), "cboPositieFotos");
  txtAantalFotosPerPagina_ = Benoemd(new QLineEdit(f), "txtAantalFotosPerPagina");
  cboFotosZonderBijschrift_ = Benoemd(new QComboBox(f), "cboFotosZonderBijschrift");
  cboLetterTypeTitels_ = Benoemd(new QComboBox(f), "cboLetterTypeTitels");
  cboLetterTypeBijschriften_ = Benoemd(new QComboBox(f), "cboLetterTypeBijschriften");
  cboLetterGrootteBijschriften_ = Benoemd(new QComboBox(f), "cboLetterGrootteBijschriften");
  cboLetterStijlBijschriften_ = Benoemd(new QComboBox(f), "cboLetterStijlBijschriften");
  cboPositieBijschriften_ = Benoemd(new QComboBox(f), "cboPositieBijschriften");
  cmdKleurGebruik_ = Benoemd(new QPushButton(QStringLiteral("&Kleurgebruik"), f), "cmdKleurGebruik");
  lblKleurVoorbeeld01_ = Benoemd(new QLabel(QStringLiteral("Tekst op achtergrond"), f), "lblKleurVoorbeeld01");
  lblKleurVoorbeeld02_ = Benoemd(new QLabel(QStringLiteral("Tekst in fotokader"), f), "lblKleurVoorbeeld02");

  VulKeuzes(cboPresentatie_, kPresentaties);
  VulKeuzes(cboPositieFotos_, kPositiesFotos);
  VulKeuzes(cboPositieBijschriften_, kPositiesBijschriften);
  VulKeuzes(cboFotosZonderBijschrift_, kFotosZonderBijschrift);
  VulKeuzes(cboLetterTypeTitels_, kLetterTypen);
  // The caption font list is a copy of the title font list.
  for (int i = 0; i < cboLetterTypeTitels_->count(); ++i) cboLetterTypeBijschriften_->addItem(cboLetterTypeTitels_->itemText(i));
  VulKeuzes(cboLetterGrootteBijschriften_, kLetterGrootten);
  VulKeuzes(cboLetterStijlBijschriften_, kLetterStijlen);
  for (const std::string& set : SjabloonSets(d_.settings.sjabloon_dir)) cboSjabloon_->addItem(Q(set));

  txtAantalFotosPerPagina_->setValidator(new QIntValidator(1, 99, txtAantalFotosPerPagina_));
  txtAantalFotosPerPagina_->setMaximumWidth(60);
  for (QLabel* voorbeeld : {lblKleurVoorbeeld01_, lblKleurVoorbeeld02_}) {
    voorbeeld->setAlignment(Qt::AlignCenter);
    voorbeeld->setAutoFillBackground(true);
    voorbeeld->setFrameShape(QFrame::Box);
    voorbeeld->setMinimumSize(170, 44);
  }

  auto* aantal = new QHBoxLayout;
  aantal->addWidget(txtAantalFotosPerPagina_);
  aantal->addWidget(new QLabel(QStringLiteral("(1...99)"), f));
  aantal->addStretch(1);

  // The caption style list has no caption of its own: it stands beside the
  // caption size.
  auto* letter = new QHBoxLayout;
  letter->addWidget(cboLetterGrootteBijschriften_);
  letter->addWidget(cboLetterStijlBijschriften_, 1);

  auto* raster = new QGridLayout;
  int rij = 0;
  const auto regel = [&](const QString& tekst, QWidget* veld, QLayout* inhoud = nullptr) {
    raster->addWidget(Bijschrift(tekst, veld, f), rij, 0);
    if (inhoud != nullptr) {
      raster->addLayout(inhoud, rij, 1);
    } else {
      raster->addWidget(veld, rij, 1);
    }
    ++rij;
  };
  regel(QStringLiteral("&Presentatie"), cboPresentatie_);
  regel(QStringLiteral("S&jabloon"), cboSjabloon_);
  regel(QStringLiteral("Positie &foto's"), cboPositieFotos_);
  regel(QStringLiteral("&Aantal foto's per pagina"), txtAantalFotosPerPagina_, aantal);
  regel(QStringLiteral("Foto's &zonder bijschrift"), cboFotosZonderBijschrift_);
  regel(QStringLiteral("Letter&type titels"), cboLetterTypeTitels_);
  regel(QStringLiteral("Lettertype bij&schriften"), cboLetterTypeBijschriften_);
  regel(QStringLiteral("Letter&grootte bijschriften"), cboLetterGrootteBijschriften_, letter);
  regel(QStringLiteral("Pos&itie bijschriften"), cboPositieBijschriften_);
  raster->setColumnStretch(1, 1);

  auto* kleuren = new QHBoxLayout;
  kleuren->addWidget(cmdKleurGebruik_);
  kleuren->addSpacing(12);
  kleuren->addWidget(lblKleurVoorbeeld01_);
  kleuren->addWidget(lblKleurVoorbeeld02_);
  kleuren->addStretch(1);

  auto* layout = new QVBoxLayout(f);
  layout->addLayout(raster);
  layout->addSpacing(12);
  layout->addLayout(kleuren);
  layout->addStretch(1);

  connect(cmdKleurGebruik_, &QPushButton::clicked, this, [this] {
    mnuKleurGebruik_->exec(cmdKleurGebruik_->mapToGlobal(QPoint(0, cmdKleurGebruik_->height())));
  });
  return f;
}

// Every edit of the record enables "save as", so closing or replacing a new
// gallery asks whether to keep it.
void MainWindow::VerbindWijzigingen() {
  for (QLineEdit* veld : {txtTitel_, txtSubtitel_, txtDatum_, txtInvoerDir_, txtUitvoerDir_, txtAantalFotosPerPagina_}) {
    connect(veld, &QLineEdit::textChanged, this, &MainWindow::Gewijzigd);
  }
  connect(txtBeschrijving_, &QPlainTextEdit::textChanged, this, &MainWindow::Gewijzigd);
  connect(chkThumbnails_, &QCheckBox::toggled, this, &MainWindow::Gewijzigd);
  for (QComboBox* lijst : {cboPresentatie_, cboSjabloon_, cboPositieFotos_, cboFotosZonderBijschrift_,
                           cboLetterTypeTitels_, cboLetterTypeBijschriften_, cboLetterGrootteBijschriften_,
                           cboLetterStijlBijschriften_, cboPositieBijschriften_}) {
    connect(lijst, &QComboBox::currentIndexChanged, this, &MainWindow::Gewijzigd);
  }
}

void MainWindow::Gewijzigd() {
  if (!script_laden_) mnuBestandScriptOpslaanAls_->setEnabled(true);
}

// A new gallery: the record's defaults, the colours of "KBord.ini" and the
// first template set.
void MainWindow::ZetNieuweGalerij() {
  script_laden_ = true;
  GalleryScript nieuw;
  StandaardKleuren(d_.settings, nieuw);
  kleuren_ = nieuw;
  txtAantalFotosPerPagina_->setText(Q(nieuw.aantal_fotos_per_pagina));
  const std::array<QComboBox*, 8> lijsten = {cboPresentatie_, cboPositieFotos_, cboPositieBijschriften_,
                                             cboFotosZonderBijschrift_, cboLetterTypeTitels_,
                                             cboLetterTypeBijschriften_, cboLetterGrootteBijschriften_,
                                             cboLetterStijlBijschriften_};
  for (std::size_t i = 0; i < kKeuzeVelden.size(); ++i) lijsten[i]->setCurrentIndex(nieuw.*kKeuzeVelden[i].index);
  cboSjabloon_->setCurrentIndex(cboSjabloon_->count() > 0 ? 0 : -1);
  ToonKleuren();
  ToonFotoLijst(-1);
  script_laden_ = false;
}

// --- The record ----------------------------------------------------------------------

GalleryScript MainWindow::Gegevens() const {
  GalleryScript g;
  g.invoer_dir = S(txtInvoerDir_->text());
  g.uitvoer_dir = S(txtUitvoerDir_->text());
  g.titel = S(txtTitel_->text());
  g.subtitel = S(txtSubtitel_->text());
  g.datum = S(txtDatum_->text());
  g.beschrijving = S(txtBeschrijving_->toPlainText().replace(QLatin1Char('\n'), QStringLiteral("\r\n")));
  g.thumbnails = chkThumbnails_->isChecked();
  g.fotos = fotos_;
  g.sjabloon = S(cboSjabloon_->currentText());
  g.aantal_fotos_per_pagina = S(txtAantalFotosPerPagina_->text());
  const std::array<const QComboBox*, 8> lijsten = {cboPresentatie_, cboPositieFotos_, cboPositieBijschriften_,
                                                   cboFotosZonderBijschrift_, cboLetterTypeTitels_,
                                                   cboLetterTypeBijschriften_, cboLetterGrootteBijschriften_,
                                                   cboLetterStijlBijschriften_};
  for (std::size_t i = 0; i < kKeuzeVelden.size(); ++i) {
    g.*kKeuzeVelden[i].index = static_cast<std::int16_t>(lijsten[i]->currentIndex());
  }
  g.kleur_tekst_op_achtergrond = kleuren_.kleur_tekst_op_achtergrond;
  g.kleur_achtergrond = kleuren_.kleur_achtergrond;
  g.kleur_tekst_in_kader = kleuren_.kleur_tekst_in_kader;
  g.kleur_kader = kleuren_.kleur_kader;
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
    if (cboSjabloon_->count() == 0) d_.meldingen->Toon(this, GeenSjablonenMelding(d_.settings.sjabloon_dir));
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
  if (stap_ == 1) txtTitel_->setFocus();
  if (stap_ == 2) lstFotos_->setFocus();
  if (stap_ == 3) cboPresentatie_->setFocus();
}

void MainWindow::Volgende() {
  if (stap_ >= kLaatsteStap) return;
  std::vector<std::string> nieuw;
  if (stap_ == 1 && !Stap1Verlaten(nieuw)) return;
  ++stap_;
  ToonStap();
  VernieuwFotoLijst(nieuw);
}

void MainWindow::Vorige() {
  if (stap_ <= kEersteStap) return;
  --stap_;
  ToonStap();
}

// The output directory must be there and take files before anything is
// copied into it; a missing one is offered to be made.
bool MainWindow::UitvoerMapInOrde() {
  const std::string uit = S(txtUitvoerDir_->text());
  MapUitkomst uitkomst = ControleerUitvoerMap(uit);
  if (uitkomst.soort == MapUitkomst::Soort::kOntbreekt) {
    if (!d_.meldingen->Vraag(this, UitvoerMapAanmakenVraag(uit))) {
      txtUitvoerDir_->setFocus();
      return false;
    }
    if (const Status gemaakt = MaakMappen(uit); !gemaakt.ok()) {
      d_.meldingen->Toon(this, UitvoerMapNietAangemaaktMelding(uit, gemaakt));
      txtUitvoerDir_->setFocus();
      return false;
    }
    MapVeldControleren(txtUitvoerDir_);
    uitkomst = ControleerUitvoerMap(uit);
  }
  if (!uitkomst.goed()) {
    d_.meldingen->Toon(this, uitkomst.melding);
    txtUitvoerDir_->setFocus();
    return false;
  }
  return true;
}

// Leaving step 1: the photos must end up in the output directory under
// lower-case names. False keeps the wizard on step 1.
bool MainWindow::Stap1Verlaten(std::vector<std::string>& nieuw) {
  if (!UitvoerMapInOrde()) return false;
  const std::string in = S(txtInvoerDir_->text());
  const std::string uit = S(txtUitvoerDir_->text());
  const VolgendeVanStap1 plan = PlanVolgende(in, uit);
  if (plan.kopieer_vraag) {
    if (const MapUitkomst invoer = ControleerInvoerMap(in); !invoer.goed()) {
      d_.meldingen->Toon(this, invoer.melding);
      txtInvoerDir_->setFocus();
      return false;
    }
    if (!d_.meldingen->Vraag(this, KopieerVraag())) return false;
    ImportResultaat gekopieerd;
    {
      BezigAanwijzer bezig;
      gekopieerd = FotosKopieren(in, uit, d_.settings.maximum_aantal);
    }
    nieuw = FotosInMap(uit);
    if (gekopieerd.fout) {
      d_.meldingen->Toon(this, *gekopieerd.fout);
      return false;
    }
  }
  if (plan.hernoemen) {
    ImportResultaat hernoemd;
    {
      BezigAanwijzer bezig;
      hernoemd = FotosHernoemen(uit, d_.os_naam);
    }
    if (hernoemd.fout) {
      d_.meldingen->Toon(this, *hernoemd.fout);
      return false;
    }
    if (const std::optional<Melding> melding = HernoemMelding(hernoemd.aantal)) d_.meldingen->Toon(this, *melding);
  }
  return true;
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
  const SiteResultaat resultaat = MaakSiteMetVoortgang(this, script_pad_, d_.settings, d_.voortgang_geopend);
  bezig_ = false;

  const Afronding afronding =
      AfrondingNaRun(resultaat.failed == kGelukt, d_.settings, S(txtUitvoerDir_->text()), script_pad_);
  if (!afronding.is_vraag) {
    d_.meldingen->Toon(this, afronding.melding);
    return;
  }
  if (!d_.meldingen->Vraag(this, afronding.melding)) return;
  if (afronding.log) {
    d_.bureaublad->OpenLog(this, afronding.adres);
  } else {
    d_.bureaublad->OpenAddress(this, afronding.adres, voorkeuren_.lopende_browser == 1);
  }
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
  for (int i = 0; i < cboSjabloon_->count(); ++i) omgeving.sjablonen.push_back(S(cboSjabloon_->itemText(i)));
  omgeving.sjablonen_dir = d_.settings.sjabloon_dir;
  omgeving.huidig_sjabloon = S(cboSjabloon_->currentText());
  script_laden_ = true;
  const ScriptGelezen gelezen = ScriptLezen(bestand_.tabel(), omgeving, *this);
  VulVenster(gelezen);
  script_laden_ = false;

  setWindowTitle(Q(VensterTitel(pad, d_.settings.caption)));
  const std::string map = DirectoryOf(pad);
  if (map != laatste_dir_) {
    laatste_dir_ = map;
    SchrijfLaatsteDir(*d_.opslag, map);
  }
  script_pad_ = pad;
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
  txtTitel_->setText(Q(g.titel));
  txtSubtitel_->setText(Q(g.subtitel));
  txtDatum_->setText(Q(g.datum));
  txtBeschrijving_->setPlainText(Q(g.beschrijving).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
  chkThumbnails_->setChecked(g.thumbnails);

  flstDirFotos_->clear();
  if (gelezen.fotos_laden) {
    for (const std::string& naam : FotosInMap(g.uitvoer_dir)) flstDirFotos_->addItem(Q(naam));
  }
  fotos_ = g.fotos;
  ToonFotoLijst(fotos_.empty() ? -1 : 0);

  const int sjabloon = cboSjabloon_->findText(Q(g.sjabloon), Qt::MatchExactly | Qt::MatchCaseSensitive);
  if (sjabloon >= 0) cboSjabloon_->setCurrentIndex(sjabloon);
  txtAantalFotosPerPagina_->setText(Q(g.aantal_fotos_per_pagina));
  const std::array<QComboBox*, 8> lijsten = {cboPresentatie_, cboPositieFotos_, cboPositieBijschriften_,
                                             cboFotosZonderBijschrift_, cboLetterTypeTitels_,
                                             cboLetterTypeBijschriften_, cboLetterGrootteBijschriften_,
                                             cboLetterStijlBijschriften_};
  // An index outside its list leaves the list without a choice.
  for (std::size_t i = 0; i < kKeuzeVelden.size(); ++i) lijsten[i]->setCurrentIndex(g.*kKeuzeVelden[i].index);
  kleuren_.kleur_tekst_op_achtergrond = g.kleur_tekst_op_achtergrond;
  kleuren_.kleur_achtergrond = g.kleur_achtergrond;
  kleuren_.kleur_tekst_in_kader = g.kleur_tekst_in_kader;
  kleuren_.kleur_kader = g.kleur_kader;
  ToonKleuren();
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
  if (fout) {
    d_.meldingen->Toon(this, *fout);
    return;
  }
  SchrijfLaatsteScript(*d_.opslag, script_pad_);
  ZetLaatsteScript(script_pad_);
}

void MainWindow::ScriptOpslaanAls() {
  std::string map;
  if (!script_pad_.empty()) {
    map = DirectoryOf(script_pad_);
  } else if (voorkeuren_.nieuw_in_laatste_dir == 0 && Fs().DirectoryExists(S(txtUitvoerDir_->text()))) {
    map = WithTrailingSlash(S(txtUitvoerDir_->text()));
  } else {
    map = laatste_dir_.empty() ? d_.settings.default_dir : laatste_dir_;
  }
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
  setWindowTitle(Q(VensterTitel(pad, d_.settings.caption)));
  const std::string nieuwe_map = DirectoryOf(pad);
  if (nieuwe_map != laatste_dir_) {
    laatste_dir_ = nieuwe_map;
    SchrijfLaatsteDir(*d_.opslag, nieuwe_map);
  }
  script_pad_ = pad;
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

// A directory field shows a directory that is not there in red; Next says
// why in words.
void MainWindow::MapVeldControleren(QLineEdit* veld) {
  const std::string map = S(veld->text());
  const bool goed = map.empty() || Fs().DirectoryExists(map);
  QPalette palet = veld->palette();
  palet.setColor(QPalette::Text, goed ? QApplication::palette().color(QPalette::Text) : QColor(Qt::red));
  veld->setPalette(palet);
  veld->setToolTip(goed ? (veld == txtInvoerDir_ ? QStringLiteral("De directory met uw eigen foto's")
                                                 : QStringLiteral("De directory waarin de foto's, thumbnails en "
                                                                  "pagina's komen"))
                        : QStringLiteral("Deze directory bestaat niet."));
  if (goed) (veld == txtInvoerDir_ ? onthouden_invoer_dir_ : onthouden_uitvoer_dir_) = map;
}

void MainWindow::MapKiezen(QLineEdit* veld, const std::string& titel) {
  std::string start = S(veld->text());
  if (start.empty() || !Fs().DirectoryExists(start)) start = d_.settings.default_dir;
  const std::string gekozen = d_.dialogen->MapKiezen(this, titel, start);
  if (gekozen.empty()) return;
  veld->setText(Q(WithTrailingSlash(gekozen)));
  MapVeldControleren(veld);
}

void MainWindow::ControleerInvoerDir(const std::string& directory) {
  txtInvoerDir_->setText(Q(directory));
  onthouden_invoer_dir_ = directory;
  MapVeldControleren(txtInvoerDir_);
}

bool MainWindow::ControleerUitvoerDir(const std::string& directory) {
  onthouden_uitvoer_dir_.clear();
  txtUitvoerDir_->setText(Q(directory));
  MapVeldControleren(txtUitvoerDir_);
  return !directory.empty() && Fs().DirectoryExists(directory);
}

void MainWindow::HercontroleerInvoerDir() {
  onthouden_invoer_dir_.clear();
  MapVeldControleren(txtInvoerDir_);
}

// --- Photo list ------------------------------------------------------------------------

void MainWindow::VernieuwFotoLijst(const std::vector<std::string>& nieuw) {
  const std::string uit = S(txtUitvoerDir_->text());
  const std::vector<PhotoEntry> lijst = VernieuwdeLijst(fotos_, uit, nieuw, d_.settings.maximum_aantal);
  flstDirFotos_->clear();
  for (const std::string& naam : FotosInMap(uit)) flstDirFotos_->addItem(Q(naam));
  if (lijst == fotos_) return;
  std::string geselecteerd;
  if (const int rij = lstFotos_->currentRow(); rij >= 0 && rij < static_cast<int>(fotos_.size())) {
    geselecteerd = fotos_[static_cast<std::size_t>(rij)].foto;
  }
  fotos_ = lijst;
  const auto plek = std::find_if(fotos_.begin(), fotos_.end(),
                                 [&](const PhotoEntry& foto) { return foto.foto == geselecteerd; });
  ToonFotoLijst(plek != fotos_.end() ? static_cast<int>(plek - fotos_.begin()) : (fotos_.empty() ? -1 : 0));
  Gewijzigd();
}

// Fills both lists from the record and selects row `selectie`.
void MainWindow::ToonFotoLijst(int selectie) {
  const bool laden = script_laden_;
  script_laden_ = true;
  lstFotos_->blockSignals(true);
  lstFotos_->clear();
  lstBijschriften_->clear();
  for (const PhotoEntry& foto : fotos_) {
    lstFotos_->addItem(Q(foto.foto));
    lstBijschriften_->addItem(Q(foto.bijschrift));
  }
  lstFotos_->blockSignals(false);
  lblAantalFotos_->setText(Q(AantalFotosTekst(fotos_.size())));
  if (selectie >= static_cast<int>(fotos_.size())) selectie = static_cast<int>(fotos_.size()) - 1;
  lstFotos_->setCurrentRow(selectie);
  FotoGeselecteerd(selectie);
  script_laden_ = laden;
}

void MainWindow::FotoGeselecteerd(int rij) {
  const bool geldig = rij >= 0 && rij < static_cast<int>(fotos_.size());
  lstBijschriften_->setCurrentRow(geldig ? rij : -1);
  txtBijschrift_->setText(geldig ? Q(fotos_[static_cast<std::size_t>(rij)].bijschrift) : QString());
  txtBijschrift_->setEnabled(geldig);
  ZetFotoCommandos();
  ToonVoorbeeld();
}

// The photo commands work on step 2 only: their shortcuts (Delete, F5) must
// not reach a list that is out of sight.
void MainWindow::ZetFotoCommandos() {
  const int rij = lstFotos_->currentRow();
  const int aantal = static_cast<int>(fotos_.size());
  const bool geldig = stap_ == 2 && rij >= 0 && rij < aantal;
  mnuBewerkenFotoToevoegen_->setEnabled(stap_ == 2);
  cmdFotoOmhoog_->setEnabled(geldig && rij > 0);
  cmdFotoOmlaag_->setEnabled(geldig && rij + 1 < aantal);
  mnuBewerkenFotoVerwijderenGalerij_->setEnabled(geldig);
  mnuBewerkenFotoVerwijderenTotaal_->setEnabled(geldig);
  const BewerkMenu bewerk = BewerkMenuToestand(geldig, d_.settings, voorkeuren_, vernieuwen_aangezet_);
  mnuBewerkenFotoRoterenLinks_->setEnabled(bewerk.roteren);
  mnuBewerkenFotoRoterenRechts_->setEnabled(bewerk.roteren);
  mnuBewerkenFotoVerkleinen_->setEnabled(bewerk.verkleinen);
  mnuBewerkenFotoExternBewerken_->setEnabled(bewerk.extern_bewerken);
  mnuBewerkenFotoVernieuwen_->setEnabled(bewerk.vernieuwen);
}

// The preview is decoded at the size it is shown at, so a large photo costs
// little more than a small one.
void MainWindow::ToonVoorbeeld() {
  const int rij = lstFotos_->currentRow();
  if (rij < 0 || rij >= static_cast<int>(fotos_.size())) {
    imgFoto_->setPixmap(QPixmap());
    imgFoto_->setText(QString());
    lblFotoInfo_->clear();
    return;
  }
  const std::string naam = fotos_[static_cast<std::size_t>(rij)].foto;
  const QString pad = Q(WithTrailingSlash(S(txtUitvoerDir_->text())) + naam);
  QImageReader lezer(pad);
  lezer.setAutoTransform(true);
  const QSize opgeslagen = lezer.size();
  QImage beeld;
  if (opgeslagen.isValid()) {
    const bool gedraaid = lezer.transformation().testFlag(QImageIOHandler::TransformationRotate90);
    const QSize getoond = gedraaid ? opgeslagen.transposed() : opgeslagen;
    const QSize vak = imgFoto_->contentsRect().size() - QSize(4, 4);
    QSize passend = getoond;
    if (getoond.width() > vak.width() || getoond.height() > vak.height()) {
      passend = getoond.scaled(vak.expandedTo(QSize(1, 1)), Qt::KeepAspectRatio);
    }
    lezer.setScaledSize(gedraaid ? passend.transposed() : passend);
    beeld = lezer.read();
  }
  if (beeld.isNull()) {
    imgFoto_->setPixmap(QPixmap());
    imgFoto_->setText(QStringLiteral("Geen voorbeeld"));
  } else {
    imgFoto_->setPixmap(QPixmap::fromImage(beeld));
  }
  lblFotoInfo_->setText(Q(FotoInfoTekst(naam, opgeslagen.width(), opgeslagen.height(), QFileInfo(pad).size())));
}

bool MainWindow::eventFilter(QObject* object, QEvent* event) {
  if (object == imgFoto_ && event->type() == QEvent::Resize && !fotos_.empty()) voorbeeldTimer_->start();
  return QMainWindow::eventFilter(object, event);
}

void MainWindow::BijschriftBewerkt(const QString& tekst) {
  const int rij = lstFotos_->currentRow();
  if (rij < 0 || rij >= static_cast<int>(fotos_.size())) return;
  fotos_[static_cast<std::size_t>(rij)].bijschrift = S(tekst);
  lstBijschriften_->item(rij)->setText(tekst);
  Gewijzigd();
}

void MainWindow::FotoOmhoog() {
  const int rij = lstFotos_->currentRow();
  const int nieuw = kiekbord::FotoOmhoog(fotos_, rij);
  if (nieuw == rij) return;
  ToonFotoLijst(nieuw);
  Gewijzigd();
}

void MainWindow::FotoOmlaag() {
  const int rij = lstFotos_->currentRow();
  const int nieuw = kiekbord::FotoOmlaag(fotos_, rij);
  if (nieuw == rij) return;
  ToonFotoLijst(nieuw);
  Gewijzigd();
}

void MainWindow::FotoToevoegen() {
  const std::string uit = S(txtUitvoerDir_->text());
  std::string map = S(txtInvoerDir_->text());
  if (map.empty() || !Fs().DirectoryExists(map)) map = uit;
  const std::vector<std::string> bronnen = d_.dialogen->FotosKiezen(this, map);
  int laatste = -1;
  for (const std::string& bron : bronnen) {
    const ToevoegPlan plan = PlanToevoegen(bron, uit, fotos_, d_.settings.maximum_aantal);
    using Soort = ToevoegPlan::Soort;
    if (plan.soort == Soort::kAlInLijst || plan.soort == Soort::kGeweigerd) {
      d_.meldingen->Toon(this, plan.melding);
      // A full gallery takes none of the remaining files either.
      if (static_cast<int>(fotos_.size()) >= d_.settings.maximum_aantal) break;
      continue;
    }
    if (plan.soort == Soort::kVervangen && !d_.meldingen->Vraag(this, plan.melding)) continue;
    if (plan.soort != Soort::kAlleenLijst) {
      if (const Status status = CopyFileKeepingTime(bron, plan.doel); !status.ok()) {
        d_.meldingen->Toon(this, KopieerFoutMelding(bron, plan.doel, status));
        continue;
      }
    }
    fotos_.push_back({plan.naam, ""});
    laatste = static_cast<int>(fotos_.size()) - 1;
  }
  if (laatste < 0) return;
  ToonFotoLijst(laatste);
  Gewijzigd();
}

void MainWindow::FotoVerwijderenUitKiekbord() {
  const int rij = lstFotos_->currentRow();
  if (rij < 0 || rij >= static_cast<int>(fotos_.size())) return;
  fotos_.erase(fotos_.begin() + rij);
  ToonFotoLijst(rij);
  Gewijzigd();
}

void MainWindow::FotoVerwijderenTotaal() {
  const int rij = lstFotos_->currentRow();
  if (rij < 0 || rij >= static_cast<int>(fotos_.size())) return;
  const std::string naam = fotos_[static_cast<std::size_t>(rij)].foto;
  if (!d_.meldingen->Vraag(this, VerwijderVraag(naam))) return;
  const std::string uit = S(txtUitvoerDir_->text());
  if (const Status status = FotoWissen(uit, naam); !status.ok()) {
    d_.meldingen->Toon(this, VerwijderFoutMelding(WithTrailingSlash(uit) + naam, status));
    return;
  }
  fotos_.erase(fotos_.begin() + rij);
  ToonFotoLijst(rij);
  Gewijzigd();
}

// --- Photo edits -----------------------------------------------------------------------

void MainWindow::FotoRoteren(std::string_view richting) {
  const int rij = lstFotos_->currentRow();
  if (stap_ != 2 || rij < 0 || rij >= static_cast<int>(fotos_.size())) return;
  if (!d_.meldingen->Vraag(this, RoteerVraag(richting))) return;
  std::vector<Melding> fouten;
  {
    BezigAanwijzer bezig;
    FoutMeldingen verzameld;
    // A failure has been reported to `verzameld` and is shown below.
    static_cast<void>(RoteerFoto(d_.os_naam,
                                 FotoPad(S(txtUitvoerDir_->text()), fotos_[static_cast<std::size_t>(rij)].foto),
                                 richting, BackupVlag(voorkeuren_), verzameld));
    fouten = verzameld.meldingen();
  }
  for (const Melding& fout : fouten) d_.meldingen->Toon(this, fout);
  FotoVernieuwen();
}

void MainWindow::FotoVerkleinen() {
  const int rij = lstFotos_->currentRow();
  if (stap_ != 2 || rij < 0 || rij >= static_cast<int>(fotos_.size()) || !d_.settings.verkleinen) return;
  bool verkleind = false;
  {
    VerkleinDialoog dialoog(FotoPad(S(txtUitvoerDir_->text()), fotos_[static_cast<std::size_t>(rij)].foto),
                            *d_.opslag, *d_.meldingen, this);
    dialoog.exec();
    verkleind = dialoog.verkleind();
  }
  if (verkleind) FotoVernieuwen();
  // Closing one of the program's own windows activates the main window again.
  Activeer();
}

void MainWindow::FotoExternBewerken() {
  const int rij = lstFotos_->currentRow();
  if (stap_ != 2 || rij < 0 || rij >= static_cast<int>(fotos_.size())) return;
  const ExternBewerken opdracht = ExternBewerkenOpdracht(
      voorkeuren_.foto_programma, FotoPad(S(txtUitvoerDir_->text()), fotos_[static_cast<std::size_t>(rij)].foto));
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
  const int rij = lstFotos_->currentRow();
  lstFotos_->setCurrentRow(-1);
  lstFotos_->setCurrentRow(rij);
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
  static constexpr std::array<const char*, 4> kTitels = {
      "Kiekbord - Kleur tekst op achtergrond", "Kiekbord - Kleur achtergrond", "Kiekbord - Kleur tekst in fotokader",
      "Kiekbord - Kleur fotokader"};
  const std::optional<QColor> gekozen =
      d_.dialogen->KleurKiezen(this, kTitels[static_cast<std::size_t>(rol)], AlsQColor(KleurVan(kleuren_, rol)));
  if (!gekozen) return;
  if (const std::optional<Melding> weigering = kiekbord::KiesKleur(kleuren_, rol, AlsKleurnummer(*gekozen))) {
    d_.meldingen->Toon(this, *weigering);
    return;
  }
  ToonKleuren();
  Gewijzigd();
}

void MainWindow::ToonKleuren() {
  const auto zet = [](QLabel* label, std::int32_t tekst, std::int32_t vulling) {
    QPalette palet = label->palette();
    palet.setColor(QPalette::WindowText, AlsQColor(tekst));
    palet.setColor(QPalette::Window, AlsQColor(vulling));
    label->setPalette(palet);
  };
  zet(lblKleurVoorbeeld01_, kleuren_.kleur_tekst_op_achtergrond, kleuren_.kleur_achtergrond);
  zet(lblKleurVoorbeeld02_, kleuren_.kleur_tekst_in_kader, kleuren_.kleur_kader);
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
