#include "ui/photos_page.h"

#include <algorithm>

#include <QEvent>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QImageReader>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

#include "base/file_system.h"
#include "base/text.h"
#include "editor/photo_import.h"
#include "editor/photo_edit.h"
#include "editor/photo_list.h"
#include "editor/photo_upright.h"
#include "editor/wizard_rules.h"
#include "gallery/script_reader.h"
#include "ui/common_dialogs.h"
#include "ui/message_boxes.h"
#include "ui/orientation_bar.h"
#include "ui/photo_item.h"
#include "ui/photo_thumbnails.h"
#include "ui/widget_helpers.h"

namespace kiekbord {

FotoPagina::FotoPagina(std::function<std::string()> uitvoer_dir, std::function<UserPreferences()> voorkeuren,
                       Meldingen& meldingen, QWidget* ouder)
    : QGroupBox(Q(StapTitel(2)), ouder),
      uitvoer_dir_(std::move(uitvoer_dir)),
      voorkeuren_(std::move(voorkeuren)),
      meldingen_(meldingen) {
  setObjectName(QStringLiteral("fraFotobijschriften"));
  lstFotos = Benoemd(new QListWidget(this), "lstFotos");
  lstFotos->setContextMenuPolicy(Qt::CustomContextMenu);
  lstFotos->setMinimumWidth(260);
  const int regel = fontMetrics().lineSpacing();
  const QSize miniatuur(regel * 4, regel * 3);
  lstFotos->setIconSize(miniatuur);
  lstFotos->setItemDelegate(new FotoItemWeergave(miniatuur, lstFotos));
  lstFotos->setUniformItemSizes(true);
  lstFotos->setDragDropMode(QAbstractItemView::InternalMove);
  lstFotos->setDefaultDropAction(Qt::MoveAction);
  miniaturen_ = new Miniaturen(miniatuur * lstFotos->devicePixelRatioF(), this);
  lstBijschriften = Benoemd(new QListWidget(this), "lstBijschriften");
  lstBijschriften->setVisible(false);
  flstDirFotos = Benoemd(new QListWidget(this), "flstDirFotos");
  flstDirFotos->setVisible(false);
  txtBijschrift = Benoemd(new QLineEdit(this), "txtBijschrift");
  imgFoto = Benoemd(new QLabel(this), "imgFoto");
  imgFoto->setAlignment(Qt::AlignCenter);
  imgFoto->setMinimumSize(320, 240);
  imgFoto->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  imgFoto->setFrameShape(QFrame::StyledPanel);
  imgFoto->setBackgroundRole(QPalette::Base);
  imgFoto->setAutoFillBackground(true);
  imgFoto->installEventFilter(this);
  lblAantalFotos = Benoemd(new QLabel(this), "lblAantalFotos");
  lblZonderBijschrift = Benoemd(new QLabel(this), "lblZonderBijschrift");
  lblFotoInfo = Benoemd(new QLabel(this), "lblFotoInfo");
  lblFotoInfo->setTextInteractionFlags(Qt::TextSelectableByMouse);
  lblFotoInfo->setMinimumHeight(lblFotoInfo->fontMetrics().lineSpacing() * 3);
  lblFotoInfo->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  cmdFotoOmhoog = Benoemd(new QPushButton(QStringLiteral("O&mhoog"), this), "cmdFotoOmhoog");
  cmdFotoOmlaag = Benoemd(new QPushButton(QStringLiteral("Om&laag"), this), "cmdFotoOmlaag");
  cmdFotoOmhoog->setToolTip(QStringLiteral("Verplaats foto naar voren in de kiekbord"));
  cmdFotoOmlaag->setToolTip(QStringLiteral("Verplaats foto naar achteren in de kiekbord"));
  balk = new OrientatieBalk(this);

  auto* lijst_knoppen = new QHBoxLayout;
  lijst_knoppen->addWidget(lblAantalFotos, 1);
  lijst_knoppen->addWidget(cmdFotoOmhoog);
  lijst_knoppen->addWidget(cmdFotoOmlaag);

  auto* links = new QVBoxLayout;
  links->addWidget(Bijschrift(QStringLiteral("&Foto's"), lstFotos, this));
  links->addWidget(lstFotos, 1);
  links->addWidget(lblZonderBijschrift);
  links->addLayout(lijst_knoppen);
  links->addWidget(balk);

  auto* rechts = new QVBoxLayout;
  rechts->addWidget(imgFoto, 1);
  rechts->addWidget(lblFotoInfo);
  rechts->addWidget(Bijschrift(QStringLiteral("Bij&schrift"), txtBijschrift, this));
  rechts->addWidget(txtBijschrift);

  auto* layout = new QHBoxLayout(this);
  layout->addLayout(links, 1);
  layout->addSpacing(8);
  layout->addLayout(rechts, 1);

  // Tab follows the eye: the list, the buttons under it, then the caption.
  QWidget::setTabOrder(lstFotos, cmdFotoOmhoog);
  QWidget::setTabOrder(cmdFotoOmhoog, cmdFotoOmlaag);
  QWidget::setTabOrder(cmdFotoOmlaag, balk->cmdRechtopZetten);
  QWidget::setTabOrder(balk->cmdRechtopZetten, balk->cmdAlleRechtopZetten);
  QWidget::setTabOrder(balk->cmdAlleRechtopZetten, txtBijschrift);

  voorbeeld_timer_ = new QTimer(this);
  voorbeeld_timer_->setSingleShot(true);
  voorbeeld_timer_->setInterval(80);
  connect(voorbeeld_timer_, &QTimer::timeout, this, &FotoPagina::ToonVoorbeeld);
  connect(lstFotos, &QListWidget::currentRowChanged, this, &FotoPagina::FotoGeselecteerd);
  connect(txtBijschrift, &QLineEdit::textEdited, this, &FotoPagina::BijschriftBewerkt);
  connect(txtBijschrift, &QLineEdit::returnPressed, this, &FotoPagina::NaarVolgende);
  connect(miniaturen_, &Miniaturen::Klaar, this, &FotoPagina::ZetMiniatuur);
  connect(lstFotos->model(), &QAbstractItemModel::rowsMoved, this,
          [this](const QModelIndex&, int van, int, const QModelIndex&, int voor) { Versleept(van, voor); });
  connect(cmdFotoOmhoog, &QPushButton::clicked, this, &FotoPagina::Omhoog);
  connect(cmdFotoOmlaag, &QPushButton::clicked, this, &FotoPagina::Omlaag);
  connect(balk, &OrientatieBalk::RechtopGevraagd, this, &FotoPagina::ZetRechtop);
}

void FotoPagina::ZetFotos(std::vector<PhotoEntry> fotos, int selectie) {
  fotos_ = std::move(fotos);
  gedraaid_.clear();
  verwijderd_.clear();
  ToonLijst(selectie);
}

void FotoPagina::ToonMapFotos(const std::string& uitvoer_dir) {
  flstDirFotos->clear();
  for (const std::string& naam : FotosInMap(uitvoer_dir)) flstDirFotos->addItem(Q(naam));
}

bool FotoPagina::Vernieuw(const std::vector<std::string>& nieuw, int maximum) {
  const std::string uit = uitvoer_dir_();
  std::vector<PhotoEntry> lijst = VernieuwdeLijst(fotos_, uit, nieuw, maximum);
  ToonMapFotos(uit);
  // The copy may have replaced photos of the same names.
  gedraaid_.clear();
  if (lijst == fotos_) {
    for (std::size_t i = 0; i < fotos_.size(); ++i) ToonMarkering(i);
    ZetRechtopKnoppen();
    return false;
  }
  verwijderd_.clear();  // a removed photo may be back already, or gone from the disk
  std::string gekozen;
  if (const auto foto = GekozenFoto()) gekozen = fotos_[*foto].foto;
  fotos_ = std::move(lijst);
  const auto plek = std::find_if(fotos_.begin(), fotos_.end(), [&](const PhotoEntry& f) { return f.foto == gekozen; });
  ToonLijst(plek != fotos_.end() ? static_cast<int>(plek - fotos_.begin()) : (fotos_.empty() ? -1 : 0));
  return true;
}

std::optional<std::size_t> FotoPagina::GekozenFoto() const {
  return kiekbord::GekozenFoto(lstFotos->currentRow(), fotos_.size());
}

int FotoPagina::Rij() const { return lstFotos->currentRow(); }

void FotoPagina::VerwijderGekozen() {
  const auto foto = GekozenFoto();
  if (!foto) return;
  verwijderd_.emplace_back(*foto, fotos_[*foto]);
  Verwijder(*foto);
}

void FotoPagina::Verwijder(std::size_t foto) {
  fotos_.erase(fotos_.begin() + static_cast<std::ptrdiff_t>(foto));
  ToonLijst(static_cast<int>(foto));
}

bool FotoPagina::ZetVerwijderdeTerug(int maximum) {
  if (verwijderd_.empty()) return false;
  const auto [plek, foto] = verwijderd_.back();
  const int rij = FotoTerugzetten(fotos_, plek, foto, maximum);
  if (rij < 0) return false;
  verwijderd_.pop_back();
  ToonLijst(rij);
  return true;
}

// The list has moved the item with its picture and caption; the record and
// the hidden caption list follow, and the moved photo stays chosen.
void FotoPagina::Versleept(int van, int voor) {
  const int rij = FotoVerplaatsen(fotos_, van, voor > van ? voor - 1 : voor);
  if (rij == van) return;
  lstBijschriften->clear();
  for (const PhotoEntry& foto : fotos_) lstBijschriften->addItem(Q(foto.bijschrift));
  lstFotos->setCurrentRow(rij);
  FotoGeselecteerd(rij);
  emit Gewijzigd();
}

void FotoPagina::NaarVolgende() {
  const int volgende = lstFotos->currentRow() + 1;
  if (volgende < lstFotos->count()) lstFotos->setCurrentRow(volgende);
}

std::string FotoPagina::Pad(const std::string& naam) const { return WithTrailingSlash(uitvoer_dir_()) + naam; }

void FotoPagina::ZetMiniatuur(const QString& pad) {
  for (int rij = 0; rij < lstFotos->count(); ++rij) {
    QListWidgetItem* item = lstFotos->item(rij);
    if (Q(Pad(S(item->text()))) == pad) item->setIcon(miniaturen_->Icoon(S(pad)));
  }
}


void FotoPagina::LaadOpnieuw() {
  const int rij = lstFotos->currentRow();
  lstFotos->setCurrentRow(-1);
  lstFotos->setCurrentRow(rij);
  // A changed photo gets a new picture too (Klaar follows once it is made).
  if (const auto foto = GekozenFoto()) lstFotos->item(rij)->setIcon(miniaturen_->Icoon(Pad(fotos_[*foto].foto)));
}

void FotoPagina::Omhoog() {
  const int rij = lstFotos->currentRow();
  const int nieuw = kiekbord::FotoOmhoog(fotos_, rij);
  if (nieuw == rij) return;
  ToonLijst(nieuw);
  emit Gewijzigd();
}

void FotoPagina::Omlaag() {
  const int rij = lstFotos->currentRow();
  const int nieuw = kiekbord::FotoOmlaag(fotos_, rij);
  if (nieuw == rij) return;
  ToonLijst(nieuw);
  emit Gewijzigd();
}

// Fills both lists from the record and selects row `selectie`.
void FotoPagina::ToonLijst(int selectie) {
  lstFotos->blockSignals(true);
  lstFotos->clear();
  lstBijschriften->clear();
  const std::string map = WithTrailingSlash(uitvoer_dir_());
  for (const PhotoEntry& foto : fotos_) {
    if (!gedraaid_.contains(foto.foto)) gedraaid_[foto.foto] = IsGedraaidOpgeslagen(map + foto.foto);
    auto* item = new QListWidgetItem(lstFotos);
    ZetFotoItem(*item, foto, miniaturen_->Icoon(Pad(foto.foto)), gedraaid_[foto.foto]);
    lstBijschriften->addItem(Q(foto.bijschrift));
  }
  lstFotos->blockSignals(false);
  lblAantalFotos->setText(Q(AantalFotosTekst(fotos_.size())));
  lblZonderBijschrift->setText(Q(ZonderBijschriftTekst(fotos_)));
  if (selectie >= static_cast<int>(fotos_.size())) selectie = static_cast<int>(fotos_.size()) - 1;
  lstFotos->setCurrentRow(selectie);
  FotoGeselecteerd(selectie);
  ZetRechtopKnoppen();
}

bool FotoPagina::Gedraaid(std::size_t index) const {
  const auto plek = index < fotos_.size() ? gedraaid_.find(fotos_[index].foto) : gedraaid_.end();
  return plek != gedraaid_.end() && plek->second;
}

void FotoPagina::ToonMarkering(std::size_t index) {
  QListWidgetItem* item = lstFotos->item(static_cast<int>(index));
  if (index >= fotos_.size() || item == nullptr) return;
  const std::string& naam = fotos_[index].foto;
  gedraaid_[naam] = IsGedraaidOpgeslagen(WithTrailingSlash(uitvoer_dir_()) + naam);
  item->setText(FotoLijstTekst(naam, gedraaid_[naam]));
}

void FotoPagina::ZetRechtopKnoppen() {
  const auto foto = GekozenFoto();
  const bool gekozen = foto && Gedraaid(*foto);
  bool een = false;
  for (std::size_t i = 0; i < fotos_.size() && !een; ++i) een = Gedraaid(i);
  balk->Toon(KopieenTekst(voorkeuren_()), gekozen, een);
}

// "Rechtop zetten": the photos stored turned, with the same backup as the
// rotate commands; the preview then shows them as the site will.
void FotoPagina::ZetRechtop(bool alle) {
  std::vector<std::string> namen;
  const auto gekozen = GekozenFoto();
  for (std::size_t i = 0; i < fotos_.size(); ++i) {
    if (Gedraaid(i) && (alle || (gekozen && *gekozen == i))) namen.push_back(fotos_[i].foto);
  }
  if (namen.empty()) return;
  std::vector<std::string> fouten;
  {
    BezigAanwijzer bezig;
    fouten = ZetRechtopInMap(uitvoer_dir_(), namen, BackupVlag(voorkeuren_()));
  }
  if (const auto melding = KopieFoutMelding(fouten)) meldingen_.Toon(window(), *melding);
  for (std::size_t i = 0; i < fotos_.size(); ++i) {
    if (Gedraaid(i)) ToonMarkering(i);
  }
  LaadOpnieuw();
  ZetRechtopKnoppen();
}

void FotoPagina::FotoGeselecteerd(int rij) {
  const auto foto = kiekbord::GekozenFoto(rij, fotos_.size());
  lstBijschriften->setCurrentRow(foto ? rij : -1);
  txtBijschrift->setText(foto ? Q(fotos_[*foto].bijschrift) : QString());
  txtBijschrift->setEnabled(foto.has_value());
  // The chosen photo's mark is read again: it may have been changed since.
  if (foto) ToonMarkering(*foto);
  emit SelectieGewijzigd();
  ToonVoorbeeld();
}

// The preview is decoded at the size it is shown at, so a large photo costs
// little more than a small one.
void FotoPagina::ToonVoorbeeld() {
  const auto foto = GekozenFoto();
  if (!foto) {
    imgFoto->setPixmap(QPixmap());
    imgFoto->setText(QString());
    lblFotoInfo->clear();
    return;
  }
  const std::string naam = fotos_[*foto].foto;
  const QString pad = Q(Pad(naam));
  QImageReader lezer(pad);
  // Shown as stored, as the site's pages and thumbnails show it: a photo
  // stored turned looks turned here too, and its size agrees with the info
  // line. "Rechtop zetten" is the way to set it upright.
  lezer.setAutoTransform(false);
  const QSize opgeslagen = lezer.size();
  QImage beeld;
  if (opgeslagen.isValid()) {
    const QSize vak = imgFoto->contentsRect().size() - QSize(4, 4);
    QSize passend = opgeslagen;
    if (opgeslagen.width() > vak.width() || opgeslagen.height() > vak.height()) {
      passend = opgeslagen.scaled(vak.expandedTo(QSize(1, 1)), Qt::KeepAspectRatio);
    }
    lezer.setScaledSize(passend);
    beeld = lezer.read();
  }
  if (beeld.isNull()) {
    imgFoto->setPixmap(QPixmap());
    imgFoto->setText(QStringLiteral("Geen voorbeeld"));
  } else {
    imgFoto->setPixmap(QPixmap::fromImage(beeld));
  }
  lblFotoInfo->setText(Q(FotoInfoTekst(naam, opgeslagen.width(), opgeslagen.height(), QFileInfo(pad).size())));
}

bool FotoPagina::eventFilter(QObject* object, QEvent* event) {
  if (object == imgFoto && event->type() == QEvent::Resize && !fotos_.empty()) voorbeeld_timer_->start();
  return QGroupBox::eventFilter(object, event);
}

void FotoPagina::BijschriftBewerkt(const QString& tekst) {
  const auto foto = GekozenFoto();
  if (!foto) return;
  fotos_[*foto].bijschrift = S(tekst);
  lstBijschriften->item(static_cast<int>(*foto))->setText(tekst);
  ZetFotoItem(*lstFotos->item(static_cast<int>(*foto)), fotos_[*foto], lstFotos->item(static_cast<int>(*foto))->icon(),
              Gedraaid(*foto));
  lblZonderBijschrift->setText(Q(ZonderBijschriftTekst(fotos_)));
  emit Gewijzigd();
}

bool FotoPagina::Toevoegen(Dialogen& dialogen, Meldingen& meldingen, const std::string& invoer_dir, int maximum) {
  const std::string uit = uitvoer_dir_();
  const OpschoonOpdracht opschoning = KopieOpschoning(voorkeuren_());
  std::vector<std::string> fouten;
  std::string map = invoer_dir;
  if (map.empty() || !Fs().DirectoryExists(map)) map = uit;
  const std::vector<std::string> bronnen = dialogen.FotosKiezen(window(), map);
  bool toegevoegd = false;
  for (const std::string& bron : bronnen) {
    const ToevoegPlan plan = PlanToevoegen(bron, uit, fotos_, maximum);
    using Soort = ToevoegPlan::Soort;
    if (plan.soort == Soort::kAlInLijst || plan.soort == Soort::kGeweigerd) {
      meldingen.Toon(window(), plan.melding);
      // A full gallery takes none of the remaining files either.
      if (static_cast<int>(fotos_.size()) >= maximum) break;
      continue;
    }
    if (plan.soort == Soort::kVervangen && !meldingen.Vraag(window(), plan.melding)) continue;
    if (plan.soort != Soort::kAlleenLijst) {
      KopieUitkomst kopie;
      if (const Status status = KopieerOpgeschoond(bron, plan.doel, opschoning, kopie); !status.ok()) {
        meldingen.Toon(window(), KopieerFoutMelding(bron, plan.doel, status));
        continue;
      }
      if (kopie.fout) fouten.push_back(*kopie.fout);
    }
    fotos_.push_back({plan.naam, ""});
    toegevoegd = true;
  }
  if (const auto melding = KopieFoutMelding(fouten)) meldingen.Toon(window(), *melding);
  if (toegevoegd) ToonLijst(static_cast<int>(fotos_.size()) - 1);
  return toegevoegd;
}

bool FotoPagina::VerwijderVanSchijf(Meldingen& meldingen) {
  const std::optional<std::size_t> foto = GekozenFoto();
  if (!foto) return false;
  const std::string naam = fotos_[*foto].foto;
  if (!meldingen.Vraag(window(), VerwijderVraag(naam))) return false;
  const std::string uit = uitvoer_dir_();
  if (const Status status = FotoWissen(uit, naam); !status.ok()) {
    meldingen.Toon(window(), VerwijderFoutMelding(WithTrailingSlash(uit) + naam, status));
    return false;
  }
  Verwijder(*foto);  // the file is gone: no way back
  return true;
}

}  // namespace kiekbord
