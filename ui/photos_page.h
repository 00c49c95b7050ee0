// Step 2 of the wizard: the gallery's photos in page order with their
// pictures, a caption for each, and a preview of the chosen photo. Photos
// are reordered with the buttons or by dragging; a photo removed from the
// gallery can be put back.
//
// The page keeps the photo list of the record; the list's rules (which row
// is a photo, moving, refreshing from the output directory) are editor/'s.
#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <QGroupBox>

#include "app/user_preferences.h"
#include "gallery/gallery_script.h"

class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QTimer;

namespace kiekbord {

class Dialogen;
class Meldingen;
class OrientatieBalk;
class Miniaturen;

class FotoPagina : public QGroupBox {
  Q_OBJECT

 public:
  // `uitvoer_dir` tells the output directory the photos are in, `voorkeuren`
  // the user's preferences now; `meldingen` shows what turning photos
  // upright could not do.
  FotoPagina(std::function<std::string()> uitvoer_dir, std::function<UserPreferences()> voorkeuren,
             Meldingen& meldingen, QWidget* ouder = nullptr);

  const std::vector<PhotoEntry>& fotos() const { return fotos_; }
  // Replaces the list and selects row `selectie` (-1: none).
  void ZetFotos(std::vector<PhotoEntry> fotos, int selectie);
  // Lists the photos of the output directory in the hidden directory list.
  void ToonMapFotos(const std::string& uitvoer_dir);
  // The list after leaving step 1: refreshed from the output directory, with
  // `nieuw` added; the selection stays on its photo. True when it changed.
  bool Vernieuw(const std::vector<std::string>& nieuw, int maximum);
  // The chosen photo's index, when a photo is chosen.
  std::optional<std::size_t> GekozenFoto() const;
  int Rij() const;
  // Removes the chosen photo; the next one is chosen. It can be put back.
  void VerwijderGekozen();
  // Puts the photo last removed back in its place, with its caption, up to
  // `maximum` photos. True when it came back.
  bool ZetVerwijderdeTerug(int maximum);
  bool HeeftVerwijderde() const { return !verwijderd_.empty(); }
  // "Foto toevoegen": the photos the user picks (starting in `invoer_dir`,
  // or the output directory) are copied into the output directory and added
  // without caption, up to `maximum`; each refusal or failure is said. True
  // when a photo was added.
  bool Toevoegen(Dialogen& dialogen, Meldingen& meldingen, const std::string& invoer_dir, int maximum);
  // Removes the chosen photo from the list and the disk, after the question.
  // True when it was removed.
  bool VerwijderVanSchijf(Meldingen& meldingen);
  // Chooses no photo and then the same one again, so it loads afresh, with
  // its mark in the list.
  void LaadOpnieuw();
  // The copy line and the upright buttons for the preferences and the
  // chosen photo now.
  void ZetRechtopKnoppen();
  void Omhoog();
  void Omlaag();

  QListWidget* lstFotos;
  QListWidget* lstBijschriften;
  QListWidget* flstDirFotos;
  QLineEdit* txtBijschrift;
  QLabel* imgFoto;
  QLabel* lblAantalFotos;
  QLabel* lblZonderBijschrift;
  QLabel* lblFotoInfo;
  QPushButton* cmdFotoOmhoog;
  QPushButton* cmdFotoOmlaag;
  OrientatieBalk* balk;

 signals:
  // The captions or the order changed.
  void Gewijzigd();
  // Another photo, or none, is chosen.
  void SelectieGewijzigd();

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void ToonLijst(int selectie);
  void FotoGeselecteerd(int rij);
  void ToonVoorbeeld();
  void BijschriftBewerkt(const QString& tekst);
  void ZetRechtop(bool alle);
  // Reads again whether photo `index` is stored turned and shows its mark.
  void ToonMarkering(std::size_t index);
  void NaarVolgende();
  // A dragged row: the list moved it from `van` to before row `voor`.
  void Versleept(int van, int voor);
  void ZetMiniatuur(const QString& pad);
  void Verwijder(std::size_t foto);
  std::string Pad(const std::string& naam) const;

  std::function<std::string()> uitvoer_dir_;
  std::function<UserPreferences()> voorkeuren_;
  Meldingen& meldingen_;
  std::vector<PhotoEntry> fotos_;
  // By photo name: stored turned, as last read. Read once per photo, so
  // moving photos about reads nothing; the chosen photo is read again.
  std::map<std::string, bool> gedraaid_;
  bool Gedraaid(std::size_t index) const;
  // The photos removed from the gallery, last at the back, with their places.
  std::vector<std::pair<std::size_t, PhotoEntry>> verwijderd_;
  QTimer* voorbeeld_timer_;
  Miniaturen* miniaturen_;
};

}  // namespace kiekbord
