// The photos step's strip for photos from phones: one line on what happens
// to copies brought into the output directory, and the buttons that turn
// photos stored turned upright, the chosen one or all of them at once; and
// the mark such a photo gets in the photo list.
#pragma once

#include <string>

#include <QWidget>

class QLabel;
class QPushButton;

namespace kiekbord {

class OrientatieBalk : public QWidget {
  Q_OBJECT

 public:
  explicit OrientatieBalk(QWidget* ouder = nullptr);

  // Shows `tekst` (editor/photo_upright.h's KopieenTekst) and enables "Rechtop
  // zetten" when the chosen photo is stored turned, "Alle rechtop zetten"
  // when any photo of the list is.
  void Toon(const std::string& tekst, bool gekozen_gedraaid, bool een_gedraaid);

  QLabel* lblKopieen;
  QPushButton* cmdRechtopZetten;
  QPushButton* cmdAlleRechtopZetten;

 signals:
  // A button was clicked: `alle` for every photo stored turned, otherwise
  // the chosen one.
  void RechtopGevraagd(bool alle);
};

}  // namespace kiekbord
