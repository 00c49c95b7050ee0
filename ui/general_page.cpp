#include "ui/general_page.h"

#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include "base/file_system.h"
#include "base/text.h"
#include "editor/photo_import.h"
#include "editor/photo_list.h"
#include "editor/photo_upright.h"
#include "editor/wizard_rules.h"
#include "ui/common_dialogs.h"
#include "ui/message_boxes.h"
#include "ui/widget_helpers.h"

namespace kiekbord {

AlgemenePagina::AlgemenePagina(const ProgramSettings& settings, Dialogen& dialogen, QWidget* ouder)
    : QGroupBox(Q(StapTitel(1)), ouder), settings_(settings), dialogen_(dialogen) {
  setObjectName(QStringLiteral("fraAlgemeen"));
  txtTitel = Benoemd(new QLineEdit(this), "txtTitel");
  txtSubtitel = Benoemd(new QLineEdit(this), "txtSubtitel");
  txtDatum = Benoemd(new QLineEdit(this), "txtDatum");
  txtBeschrijving = Benoemd(new QPlainTextEdit(this), "txtBeschrijving");
  txtBeschrijving->setTabChangesFocus(true);
  // A few lines are enough: the folders under it are the fields that must be filled.
  txtBeschrijving->setFixedHeight(txtBeschrijving->fontMetrics().lineSpacing() * 5 +
                                  2 * txtBeschrijving->frameWidth() + 8);
  txtInvoerDir = Benoemd(new QLineEdit(this), "txtInvoerDir");
  cmdInvoer = Benoemd(new QPushButton(QStringLiteral("Bladeren..."), this), "cmdInvoer");
  txtUitvoerDir = Benoemd(new QLineEdit(this), "txtUitvoerDir");
  cmdUitvoer = Benoemd(new QPushButton(QStringLiteral("Bladeren..."), this), "cmdUitvoer");
  chkThumbnails =
      Benoemd(new QCheckBox(QStringLiteral("Overzichtspagina met thumbnails &aanmaken"), this), "chkThumbnails");

  auto* raster = new QGridLayout(this);
  raster->addWidget(Bijschrift(QStringLiteral("&Titel"), txtTitel, this), 0, 0);
  raster->addWidget(txtTitel, 0, 1, 1, 2);
  raster->addWidget(Bijschrift(QStringLiteral("&Subtitel"), txtSubtitel, this), 1, 0);
  raster->addWidget(txtSubtitel, 1, 1, 1, 2);
  raster->addWidget(Bijschrift(QStringLiteral("&Datum"), txtDatum, this), 2, 0);
  raster->addWidget(txtDatum, 2, 1, 1, 2);
  QLabel* beschrijving = Bijschrift(QStringLiteral("Besch&rijving"), txtBeschrijving, this);
  beschrijving->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  raster->addWidget(beschrijving, 3, 0);
  raster->addWidget(txtBeschrijving, 3, 1, 1, 2);
  raster->addWidget(Bijschrift(QStringLiteral("&Invoerdirectory"), txtInvoerDir, this), 4, 0);
  raster->addWidget(txtInvoerDir, 4, 1);
  raster->addWidget(cmdInvoer, 4, 2);
  raster->addWidget(Bijschrift(QStringLiteral("&Uitvoerdirectory"), txtUitvoerDir, this), 5, 0);
  raster->addWidget(txtUitvoerDir, 5, 1);
  raster->addWidget(cmdUitvoer, 5, 2);
  raster->addWidget(chkThumbnails, 6, 1, 1, 2);
  raster->setRowStretch(7, 1);
  raster->setColumnStretch(1, 1);

  txtInvoerDir->setToolTip(Q(kInvoerDirUitleg));
  txtUitvoerDir->setToolTip(Q(kUitvoerDirUitleg));
  connect(cmdInvoer, &QPushButton::clicked, this, [this] { MapKiezen(txtInvoerDir, std::string(kInvoerDirKiezenTitel)); });
  connect(cmdUitvoer, &QPushButton::clicked, this, [this] { MapKiezen(txtUitvoerDir, std::string(kUitvoerDirKiezenTitel)); });
  connect(txtInvoerDir, &QLineEdit::editingFinished, this, [this] { MapVeldControleren(txtInvoerDir); });
  connect(txtUitvoerDir, &QLineEdit::editingFinished, this, [this] { MapVeldControleren(txtUitvoerDir); });

  for (QLineEdit* veld : {txtTitel, txtSubtitel, txtDatum, txtInvoerDir, txtUitvoerDir}) {
    connect(veld, &QLineEdit::textChanged, this, &AlgemenePagina::Gewijzigd);
  }
  connect(txtBeschrijving, &QPlainTextEdit::textChanged, this, &AlgemenePagina::Gewijzigd);
  connect(chkThumbnails, &QCheckBox::toggled, this, &AlgemenePagina::Gewijzigd);
}

void AlgemenePagina::Vul(const GalleryScript& g) {
  txtTitel->setText(Q(g.titel));
  txtSubtitel->setText(Q(g.subtitel));
  txtDatum->setText(Q(g.datum));
  txtBeschrijving->setPlainText(Q(g.beschrijving).replace(QStringLiteral("\r\n"), QStringLiteral("\n")));
  chkThumbnails->setChecked(g.thumbnails);
}

void AlgemenePagina::LeesIn(GalleryScript& g) const {
  g.invoer_dir = InvoerDir();
  g.uitvoer_dir = UitvoerDir();
  g.titel = S(txtTitel->text());
  g.subtitel = S(txtSubtitel->text());
  g.datum = S(txtDatum->text());
  g.beschrijving = S(txtBeschrijving->toPlainText().replace(QLatin1Char('\n'), QStringLiteral("\r\n")));
  g.thumbnails = chkThumbnails->isChecked();
}

std::string AlgemenePagina::InvoerDir() const { return S(txtInvoerDir->text()); }

std::string AlgemenePagina::UitvoerDir() const { return S(txtUitvoerDir->text()); }

void AlgemenePagina::MapVeldControleren(QLineEdit* veld) {
  const std::string map = S(veld->text());
  const bool goed = map.empty() || Fs().DirectoryExists(map);
  QPalette palet = veld->palette();
  palet.setColor(QPalette::Text, goed ? QApplication::palette().color(QPalette::Text) : QColor(Qt::red));
  veld->setPalette(palet);
  const bool invoer = veld == txtInvoerDir;
  veld->setToolTip(Q(goed ? (invoer ? kInvoerDirUitleg : kUitvoerDirUitleg) : kMapBestaatNiet));
}

void AlgemenePagina::MapKiezen(QLineEdit* veld, const std::string& titel) {
  std::string start = S(veld->text());
  if (start.empty() || !Fs().DirectoryExists(start)) start = settings_.default_dir;
  const std::string gekozen = dialogen_.MapKiezen(window(), titel, start);
  if (gekozen.empty()) return;
  veld->setText(Q(WithTrailingSlash(gekozen)));
  MapVeldControleren(veld);
}

void AlgemenePagina::ZetInvoerDir(const std::string& directory) {
  txtInvoerDir->setText(Q(directory));
  MapVeldControleren(txtInvoerDir);
}

bool AlgemenePagina::ZetUitvoerDir(const std::string& directory) {
  txtUitvoerDir->setText(Q(directory));
  MapVeldControleren(txtUitvoerDir);
  return !directory.empty() && Fs().DirectoryExists(directory);
}

void AlgemenePagina::HercontroleerInvoerDir() { MapVeldControleren(txtInvoerDir); }

// The output directory must be there and take files before anything is
// copied into it; a missing one is offered to be made.
bool AlgemenePagina::UitvoerMapInOrde(Meldingen& meldingen) {
  const std::string uit = UitvoerDir();
  MapUitkomst uitkomst = ControleerUitvoerMap(uit);
  if (uitkomst.soort == MapUitkomst::Soort::kOntbreekt) {
    if (!meldingen.Vraag(window(), UitvoerMapAanmakenVraag(uit))) {
      txtUitvoerDir->setFocus();
      return false;
    }
    if (const Status gemaakt = MaakMappen(uit); !gemaakt.ok()) {
      meldingen.Toon(window(), UitvoerMapNietAangemaaktMelding(uit, gemaakt));
      txtUitvoerDir->setFocus();
      return false;
    }
    MapVeldControleren(txtUitvoerDir);
    uitkomst = ControleerUitvoerMap(uit);
  }
  if (!uitkomst.goed()) {
    meldingen.Toon(window(), uitkomst.melding);
    txtUitvoerDir->setFocus();
    return false;
  }
  return true;
}

// Leaving step 1: the photos must end up in the output directory under
// lower-case names. False keeps the wizard on step 1.
bool AlgemenePagina::Verlaten(Meldingen& meldingen, const std::string& os_naam, const UserPreferences& voorkeuren,
                              std::vector<std::string>& nieuw) {
  if (!UitvoerMapInOrde(meldingen)) return false;
  const std::string in = InvoerDir();
  const std::string uit = UitvoerDir();
  const VolgendeVanStap1 plan = PlanVolgende(in, uit);
  if (plan.kopieer_vraag) {
    if (const MapUitkomst invoer = ControleerInvoerMap(in); !invoer.goed()) {
      meldingen.Toon(window(), invoer.melding);
      txtInvoerDir->setFocus();
      return false;
    }
    if (!meldingen.Vraag(window(), KopieerVraag())) return false;
    ImportResultaat gekopieerd;
    {
      BezigAanwijzer bezig;
      gekopieerd = FotosKopieren(in, uit, settings_.maximum_aantal, KopieOpschoning(voorkeuren));
    }
    nieuw = FotosInMap(uit);
    if (const auto melding = KopieFoutMelding(gekopieerd.opschoon_fouten)) meldingen.Toon(window(), *melding);
    if (gekopieerd.fout) {
      meldingen.Toon(window(), *gekopieerd.fout);
      return false;
    }
  }
  if (plan.hernoemen) {
    ImportResultaat hernoemd;
    {
      BezigAanwijzer bezig;
      hernoemd = FotosHernoemen(uit, os_naam);
    }
    if (hernoemd.fout) {
      meldingen.Toon(window(), *hernoemd.fout);
      return false;
    }
    if (const std::optional<Melding> melding = HernoemMelding(hernoemd.aantal)) meldingen.Toon(window(), *melding);
  }
  return true;
}

}  // namespace kiekbord
