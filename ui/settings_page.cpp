#include "ui/settings_page.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "app/startup_checks.h"
#include "editor/template_colours.h"
#include "editor/wizard_rules.h"
#include "ui/widget_helpers.h"

namespace kiekbord {

InstellingenPagina::InstellingenPagina(const ProgramSettings& settings, QWidget* ouder)
    : QGroupBox(Q(StapTitel(3)), ouder), settings_(settings) {
  setObjectName(QStringLiteral("fraInstellingen"));
  cboPresentatie = Benoemd(new QComboBox(this), "cboPresentatie");
  cboSjabloon = Benoemd(new QComboBox(this), "cboSjabloon");
  cboPositieFotos = Benoemd(new QComboBox(this), "cboPositieFotos");
  txtAantalFotosPerPagina = Benoemd(new QLineEdit(this), "txtAantalFotosPerPagina");
  cboFotosZonderBijschrift = Benoemd(new QComboBox(this), "cboFotosZonderBijschrift");
  cboLetterTypeTitels = Benoemd(new QComboBox(this), "cboLetterTypeTitels");
  cboLetterTypeBijschriften = Benoemd(new QComboBox(this), "cboLetterTypeBijschriften");
  cboLetterGrootteBijschriften = Benoemd(new QComboBox(this), "cboLetterGrootteBijschriften");
  cboLetterStijlBijschriften = Benoemd(new QComboBox(this), "cboLetterStijlBijschriften");
  cboPositieBijschriften = Benoemd(new QComboBox(this), "cboPositieBijschriften");
  chkWebformaat = Benoemd(
      new QCheckBox(QStringLiteral("W&ebformaat: lichte foto's voor telefoons"), this), "chkWebformaat");
  cmdKleurGebruik = Benoemd(new QPushButton(QStringLiteral("&Kleurgebruik"), this), "cmdKleurGebruik");
  lblKleurVoorbeeld01 = Benoemd(new QLabel(QStringLiteral("Tekst op achtergrond"), this), "lblKleurVoorbeeld01");
  lblKleurVoorbeeld02 = Benoemd(new QLabel(QStringLiteral("Tekst in fotokader"), this), "lblKleurVoorbeeld02");

  VulKeuzes(cboPresentatie, kPresentaties);
  VulKeuzes(cboPositieFotos, kPositiesFotos);
  VulKeuzes(cboPositieBijschriften, kPositiesBijschriften);
  VulKeuzes(cboFotosZonderBijschrift, kFotosZonderBijschrift);
  VulKeuzes(cboLetterTypeTitels, kLetterTypen);
  // The caption font list is a copy of the title font list.
  for (int i = 0; i < cboLetterTypeTitels->count(); ++i) {
    cboLetterTypeBijschriften->addItem(cboLetterTypeTitels->itemText(i));
  }
  VulKeuzes(cboLetterGrootteBijschriften, kLetterGrootten);
  VulKeuzes(cboLetterStijlBijschriften, kLetterStijlen);
  for (const std::string& set : SjabloonSets(settings_.sjabloon_dir)) cboSjabloon->addItem(Q(set));

  txtAantalFotosPerPagina->setValidator(new QIntValidator(1, 99, txtAantalFotosPerPagina));
  txtAantalFotosPerPagina->setMaximumWidth(60);
  for (QLabel* voorbeeld : {lblKleurVoorbeeld01, lblKleurVoorbeeld02}) {
    voorbeeld->setAlignment(Qt::AlignCenter);
    voorbeeld->setAutoFillBackground(true);
    voorbeeld->setFrameShape(QFrame::Box);
    voorbeeld->setMinimumSize(170, 44);
  }

  auto* aantal = new QHBoxLayout;
  aantal->addWidget(txtAantalFotosPerPagina);
  aantal->addWidget(new QLabel(QStringLiteral("(1...99)"), this));
  aantal->addStretch(1);

  // The caption style list has no caption of its own: it stands beside the
  // caption size.
  auto* letter = new QHBoxLayout;
  letter->addWidget(cboLetterGrootteBijschriften);
  letter->addWidget(cboLetterStijlBijschriften, 1);

  auto* raster = new QGridLayout;
  int rij = 0;
  const auto regel = [&](const QString& tekst, QWidget* veld, QLayout* inhoud = nullptr) {
    raster->addWidget(Bijschrift(tekst, veld, this), rij, 0);
    if (inhoud != nullptr) {
      raster->addLayout(inhoud, rij, 1);
    } else {
      raster->addWidget(veld, rij, 1);
    }
    ++rij;
  };
  regel(QStringLiteral("&Presentatie"), cboPresentatie);
  regel(QStringLiteral("S&jabloon"), cboSjabloon);
  regel(QStringLiteral("Positie &foto's"), cboPositieFotos);
  regel(QStringLiteral("&Aantal foto's per pagina"), txtAantalFotosPerPagina, aantal);
  regel(QStringLiteral("Foto's &zonder bijschrift"), cboFotosZonderBijschrift);
  regel(QStringLiteral("Letter&type titels"), cboLetterTypeTitels);
  regel(QStringLiteral("Lettertype bij&schriften"), cboLetterTypeBijschriften);
  regel(QStringLiteral("Letter&grootte bijschriften"), cboLetterGrootteBijschriften, letter);
  regel(QStringLiteral("Pos&itie bijschriften"), cboPositieBijschriften);
  raster->addWidget(chkWebformaat, rij++, 1);
  raster->setColumnStretch(1, 1);

  auto* kleuren = new QHBoxLayout;
  kleuren->addWidget(cmdKleurGebruik);
  kleuren->addSpacing(12);
  kleuren->addWidget(lblKleurVoorbeeld01);
  kleuren->addWidget(lblKleurVoorbeeld02);
  kleuren->addStretch(1);

  auto* layout = new QVBoxLayout(this);
  layout->addLayout(raster);
  layout->addSpacing(12);
  layout->addLayout(kleuren);
  layout->addStretch(1);

  connect(txtAantalFotosPerPagina, &QLineEdit::textChanged, this, &InstellingenPagina::Gewijzigd);
  connect(cboSjabloon, &QComboBox::currentIndexChanged, this, &InstellingenPagina::Gewijzigd);
  connect(cboSjabloon, &QComboBox::currentIndexChanged, this, &InstellingenPagina::ToonKleuren);
  connect(chkWebformaat, &QCheckBox::toggled, this, &InstellingenPagina::Gewijzigd);
  for (QComboBox* lijst : KeuzeLijsten()) {
    connect(lijst, &QComboBox::currentIndexChanged, this, &InstellingenPagina::Gewijzigd);
  }
}

std::array<QComboBox*, 8> InstellingenPagina::KeuzeLijsten() const {
  static_assert(kKeuzeVelden.size() == 8);
  return {cboPresentatie,      cboPositieFotos,           cboPositieBijschriften,       cboFotosZonderBijschrift,
          cboLetterTypeTitels, cboLetterTypeBijschriften, cboLetterGrootteBijschriften, cboLetterStijlBijschriften};
}

void InstellingenPagina::ZetNieuw() {
  GalleryScript nieuw;
  StandaardKleuren(settings_, nieuw);
  kleuren_ = nieuw;
  txtAantalFotosPerPagina->setText(Q(nieuw.aantal_fotos_per_pagina));
  const auto lijsten = KeuzeLijsten();
  for (std::size_t i = 0; i < kKeuzeVelden.size(); ++i) lijsten[i]->setCurrentIndex(nieuw.*kKeuzeVelden[i].index);
  cboSjabloon->setCurrentIndex(StandaardSjabloon(Sjablonen()));
  webformaat_in_script_ = false;
  chkWebformaat->setChecked(true);
  ToonKleuren();
}

void InstellingenPagina::Vul(const GalleryScript& g) {
  const int sjabloon = cboSjabloon->findText(Q(g.sjabloon), Qt::MatchExactly | Qt::MatchCaseSensitive);
  if (sjabloon >= 0) cboSjabloon->setCurrentIndex(sjabloon);
  txtAantalFotosPerPagina->setText(Q(g.aantal_fotos_per_pagina));
  const auto lijsten = KeuzeLijsten();
  for (std::size_t i = 0; i < kKeuzeVelden.size(); ++i) lijsten[i]->setCurrentIndex(g.*kKeuzeVelden[i].index);
  for (const KleurVeld& veld : kKleurVelden) kleuren_.*veld.kleur = g.*veld.kleur;
  webformaat_in_script_ = g.webformaat_in_script;
  chkWebformaat->setChecked(g.webformaat);
  ToonKleuren();
}

void InstellingenPagina::LeesIn(GalleryScript& g) const {
  g.sjabloon = GekozenSjabloon();
  g.aantal_fotos_per_pagina = S(txtAantalFotosPerPagina->text());
  const auto lijsten = KeuzeLijsten();
  for (std::size_t i = 0; i < kKeuzeVelden.size(); ++i) {
    g.*kKeuzeVelden[i].index = static_cast<std::int16_t>(lijsten[i]->currentIndex());
  }
  for (const KleurVeld& veld : kKleurVelden) g.*veld.kleur = kleuren_.*veld.kleur;
  g.webformaat = chkWebformaat->isChecked();
  g.webformaat_in_script = webformaat_in_script_;
}

std::vector<std::string> InstellingenPagina::Sjablonen() const {
  std::vector<std::string> namen;
  for (int i = 0; i < cboSjabloon->count(); ++i) namen.push_back(S(cboSjabloon->itemText(i)));
  return namen;
}

std::string InstellingenPagina::GekozenSjabloon() const { return S(cboSjabloon->currentText()); }

std::int32_t InstellingenPagina::Kleur(KleurRol rol) const { return KleurVan(kleuren_, rol); }

std::optional<Melding> InstellingenPagina::KiesKleur(KleurRol rol, std::int32_t kleur) {
  if (std::optional<Melding> weigering = kiekbord::KiesKleur(kleuren_, rol, kleur)) return weigering;
  ToonKleuren();
  return std::nullopt;
}

// The samples show the colours as the chosen set puts them on the page.
void InstellingenPagina::ToonKleuren() {
  const VoorbeeldKleuren v = KleurenVanSet(settings_.sjabloon_dir, GekozenSjabloon(), kleuren_);
  const auto zet = [](QLabel* label, std::int32_t tekst, std::int32_t vulling) {
    QPalette palet = label->palette();
    palet.setColor(QPalette::WindowText, AlsQColor(tekst));
    palet.setColor(QPalette::Window, AlsQColor(vulling));
    label->setPalette(palet);
  };
  zet(lblKleurVoorbeeld01, v.pagina_tekst, v.pagina_vulling);
  zet(lblKleurVoorbeeld02, v.kader_tekst, v.kader_vulling);
}

}  // namespace kiekbord
