#include "ui/photo_item.h"

#include <QApplication>
#include <QListWidgetItem>
#include <QPainter>

#include "ui/widget_helpers.h"

namespace kiekbord {

namespace {

constexpr int kRand = 4;

}  // namespace

QString FotoLijstTekst(const std::string& naam, bool gedraaid) {
  return gedraaid ? Q(naam) + QStringLiteral("  \u21BB gedraaid") : Q(naam);
}

void ZetFotoItem(QListWidgetItem& item, const PhotoEntry& foto, const QIcon& miniatuur, bool gedraaid) {
  item.setText(FotoLijstTekst(foto.foto, gedraaid));
  item.setData(kBijschriftRol, Q(foto.bijschrift));
  item.setIcon(miniatuur);
  item.setToolTip(Q(foto.bijschrift.empty() ? std::string(kGeenBijschrift) : foto.bijschrift));
}

FotoItemWeergave::FotoItemWeergave(QSize icoon, QObject* ouder) : QStyledItemDelegate(ouder), icoon_(icoon) {}

QSize FotoItemWeergave::sizeHint(const QStyleOptionViewItem& optie, const QModelIndex&) const {
  const int tekst = optie.fontMetrics.lineSpacing() * 2;
  return {icoon_.width() + 200, std::max(icoon_.height(), tekst) + 2 * kRand};
}

void FotoItemWeergave::paint(QPainter* schilder, const QStyleOptionViewItem& optie, const QModelIndex& index) const {
  QStyleOptionViewItem basis = optie;
  initStyleOption(&basis, index);
  basis.text.clear();
  basis.icon = QIcon();
  const QWidget* lijst = optie.widget;
  QStyle* stijl = lijst ? lijst->style() : QApplication::style();
  stijl->drawControl(QStyle::CE_ItemViewItem, &basis, schilder, lijst);

  const QRect vak = optie.rect.adjusted(kRand, kRand, -kRand, -kRand);
  const QRect beeld_vak(vak.topLeft(), icoon_);
  const QIcon icoon = index.data(Qt::DecorationRole).value<QIcon>();
  schilder->save();
  if (icoon.isNull()) {
    // Still being made, or no readable photo.
    schilder->setPen(optie.palette.color(QPalette::Mid));
    schilder->drawRect(beeld_vak.adjusted(0, 0, -1, -1));
  } else {
    icoon.paint(schilder, beeld_vak);
  }

  const bool gekozen = optie.state & QStyle::State_Selected;
  const QColor tekst_kleur = optie.palette.color(gekozen ? QPalette::HighlightedText : QPalette::Text);
  const int links = beeld_vak.right() + 2 * kRand;
  const int regel = optie.fontMetrics.lineSpacing();
  const int boven = vak.top() + std::max(0, (vak.height() - 2 * regel) / 2);
  const QRect naam_vak(links, boven, vak.right() - links, regel);
  const QRect bijschrift_vak = naam_vak.translated(0, regel);

  QFont vet = optie.font;
  vet.setBold(true);
  schilder->setFont(vet);
  schilder->setPen(tekst_kleur);
  schilder->drawText(naam_vak, Qt::AlignLeft | Qt::AlignVCenter,
                     QFontMetrics(vet).elidedText(index.data(Qt::DisplayRole).toString(), Qt::ElideMiddle, naam_vak.width()));

  const QString bijschrift = index.data(kBijschriftRol).toString();
  QFont gewoon = optie.font;
  if (bijschrift.isEmpty()) {
    // The mark must stand out: the user looks for the photos still to do.
    gewoon.setItalic(true);
    schilder->setPen(gekozen ? tekst_kleur : QColor(0xB0, 0x30, 0x00));
  }
  schilder->setFont(gewoon);
  const QString tekst = bijschrift.isEmpty() ? QString::fromLatin1(kGeenBijschrift) : bijschrift;
  schilder->drawText(bijschrift_vak, Qt::AlignLeft | Qt::AlignVCenter,
                     QFontMetrics(gewoon).elidedText(tekst, Qt::ElideRight, bijschrift_vak.width()));
  schilder->restore();
}

}  // namespace kiekbord
