#include "ui/photo_thumbnails.h"

#include <QBuffer>
#include <QImageReader>
#include <QPixmap>
#include <QtConcurrent/QtConcurrentRun>

#include "base/file_system.h"
#include "images/thumbnails.h"

namespace kiekbord {

QImage MaakMiniatuur(const std::string& pad, QSize maat) {
  FileInfo foto;
  FileInfo duim;
  const std::string thumb = ThumbnailPad(pad);
  const bool duim_actueel = Fs().GetFileInfo(pad, foto).ok() && Fs().GetFileInfo(thumb, duim).ok() &&
                            duim.modified_ns >= foto.modified_ns;
  std::string jpeg;
  if (!Fs().ReadFile(duim_actueel ? thumb : pad, jpeg).ok()) return {};
  QByteArray bytes = QByteArray::fromStdString(jpeg);
  QBuffer buffer(&bytes);
  QImageReader lezer(&buffer);
  lezer.setAutoTransform(true);
  const QSize opgeslagen = lezer.size();
  if (!opgeslagen.isValid()) return {};
  const bool gedraaid = lezer.transformation().testFlag(QImageIOHandler::TransformationRotate90);
  const QSize getoond = gedraaid ? opgeslagen.transposed() : opgeslagen;
  const QSize passend = getoond.scaled(maat, Qt::KeepAspectRatio).boundedTo(getoond).expandedTo(QSize(1, 1));
  lezer.setScaledSize(gedraaid ? passend.transposed() : passend);
  return lezer.read();
}

Miniaturen::Miniaturen(QSize maat, QObject* ouder) : QObject(ouder), maat_(maat) { werkers_.setMaxThreadCount(1); }

Miniaturen::~Miniaturen() {
  werkers_.clear();
  werkers_.waitForDone();
}

QIcon Miniaturen::Icoon(const std::string& pad) {
  FileInfo info;
  if (!Fs().GetFileInfo(pad, info).ok()) return {};
  const QString sleutel = QString::fromStdString(pad);
  const auto gevonden = stand_.constFind(sleutel);
  if (gevonden != stand_.cend() && gevonden->tijd == info.modified_ns && gevonden->grootte == info.size) {
    return gevonden->icoon;  // null while it is being made
  }
  stand_.insert(sleutel, Stand{info.modified_ns, info.size, QIcon()});
  QtConcurrent::run(&werkers_, MaakMiniatuur, pad, maat_)
      .then(this, [this, sleutel, tijd = info.modified_ns](const QImage& beeld) {
        auto stand = stand_.find(sleutel);
        if (stand == stand_.end() || stand->tijd != tijd || beeld.isNull()) return;
        stand->icoon = QIcon(QPixmap::fromImage(beeld));
        emit Klaar(sleutel);
      });
  return {};
}

}  // namespace kiekbord
