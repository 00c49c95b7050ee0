// Small pictures for the photo list of step 2, made on a worker thread so
// the window never waits for a photo to be read.
//
// A photo's picture is decoded at the list's size, straight from the
// gallery's own thumbnail ("_tn.jpg") when that is newer than the photo, and
// kept until the photo's time or size changes (a rotation, a resize, an
// external edit).
#pragma once

#include <cstdint>
#include <string>

#include <QHash>
#include <QIcon>
#include <QImage>
#include <QObject>
#include <QSize>
#include <QThreadPool>

namespace kiekbord {

// The picture of the photo at `pad` that fits in `maat`, turned as the
// photo says; null when neither the thumbnail nor the photo can be read.
QImage MaakMiniatuur(const std::string& pad, QSize maat);

class Miniaturen : public QObject {
  Q_OBJECT

 public:
  explicit Miniaturen(QSize maat, QObject* ouder = nullptr);
  ~Miniaturen() override;

  // The photo's picture when it is made and current; otherwise a null icon,
  // and the picture is made in the background and Klaar(pad) follows.
  QIcon Icoon(const std::string& pad);

 signals:
  void Klaar(const QString& pad);

 private:
  struct Stand {
    std::int64_t tijd = 0;
    std::int64_t grootte = 0;
    QIcon icoon;
  };
  QSize maat_;
  QHash<QString, Stand> stand_;
  // One worker: the pictures come in list order, and a closing window waits
  // for at most one photo.
  QThreadPool werkers_;
};

}  // namespace kiekbord
