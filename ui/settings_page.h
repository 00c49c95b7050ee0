// Step 3 of the wizard: the presentation. Template set, photos per page,
// positions, fonts, and the four colours with their two samples.
#pragma once

#include <array>
#include <string>
#include <vector>

#include <QGroupBox>

#include "app/program_settings.h"
#include "editor/colour_choice.h"
#include "gallery/gallery_script.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace kiekbord {

class InstellingenPagina : public QGroupBox {
  Q_OBJECT

 public:
  explicit InstellingenPagina(const ProgramSettings& settings, QWidget* ouder = nullptr);

  // A new gallery: the record's defaults, the colours of "KBord.ini", the
  // first template set and web-sized photos on.
  void ZetNieuw();
  // The presentation of `g`. A template set that is not in the list leaves
  // the choice as it is; an index outside its list leaves that list without
  // a choice.
  void Vul(const GalleryScript& g);
  // Writes the page's fields into `g`.
  void LeesIn(GalleryScript& g) const;

  std::vector<std::string> Sjablonen() const;
  std::string GekozenSjabloon() const;

  // The colour of `rol` as the record holds it, and a new one for it: the
  // refusal when the colour may not be chosen, else the samples show it.
  std::int32_t Kleur(KleurRol rol) const;
  std::optional<Melding> KiesKleur(KleurRol rol, std::int32_t kleur);

  QComboBox* cboPresentatie;
  QComboBox* cboSjabloon;
  QComboBox* cboPositieFotos;
  QLineEdit* txtAantalFotosPerPagina;
  QComboBox* cboFotosZonderBijschrift;
  QComboBox* cboLetterTypeTitels;
  QComboBox* cboLetterTypeBijschriften;
  QComboBox* cboLetterGrootteBijschriften;
  QComboBox* cboLetterStijlBijschriften;
  QComboBox* cboPositieBijschriften;
  QCheckBox* chkWebformaat;
  QPushButton* cmdKleurGebruik;
  QLabel* lblKleurVoorbeeld01;
  QLabel* lblKleurVoorbeeld02;

 signals:
  // A field of the record was edited.
  void Gewijzigd();

 private:
  // The list fields in the order of the script's table of list fields.
  std::array<QComboBox*, 8> KeuzeLijsten() const;
  void ToonKleuren();

  const ProgramSettings& settings_;
  GalleryScript kleuren_;  // only the four colours are used
  bool webformaat_in_script_ = false;
};

}  // namespace kiekbord
