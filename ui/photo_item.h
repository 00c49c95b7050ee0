// How one photo shows in the list of step 2: its picture, its file name and
// under it its caption, or a marked "geen bijschrift" when it has none. All
// of an item's look is here, so a new mark is added in one place.
#pragma once

#include <QIcon>
#include <QStyledItemDelegate>

#include "gallery/gallery_script.h"

class QListWidgetItem;

namespace kiekbord {

// The item's caption; the display text stays the file name.
inline constexpr int kBijschriftRol = Qt::UserRole + 1;

inline constexpr const char* kGeenBijschrift = "geen bijschrift";

// The list text of a photo: its name, followed by a mark when the photo is
// stored turned (the site shows it so until it is set upright).
QString FotoLijstTekst(const std::string& naam, bool gedraaid);

// Fills `item` for `foto` with `miniatuur` (null: not made yet); `gedraaid`
// marks a photo stored turned.
void ZetFotoItem(QListWidgetItem& item, const PhotoEntry& foto, const QIcon& miniatuur, bool gedraaid);

class FotoItemWeergave : public QStyledItemDelegate {
 public:
  // `icoon` is the size of the pictures.
  FotoItemWeergave(QSize icoon, QObject* ouder);

  void paint(QPainter* schilder, const QStyleOptionViewItem& optie, const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& optie, const QModelIndex& index) const override;

 private:
  QSize icoon_;
};

}  // namespace kiekbord
