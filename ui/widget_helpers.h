// Small helpers the window's pages and dialogs share: text conversion,
// named widgets and labels with access keys, the busy pointer, colours.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include <QColor>
#include <QString>

class QAction;
class QComboBox;
class QLabel;
class QMenu;
class QWidget;

namespace kiekbord {

class VoorkeurenOpslag;

QString Q(const std::string& tekst);
QString Q(std::string_view tekst);
std::string S(const QString& tekst);

// A menu caption shows "&" as an access key; a path's own "&" must stay one.
QString MenuTekst(const std::string& tekst);

// Colour numbers hold red in the lowest byte, then green, then blue.
QColor AlsQColor(std::int32_t kleur);
std::int32_t AlsKleurnummer(const QColor& kleur);

// `widget` with its object name set, the name tests and screenshots find it by.
template <typename Widget>
Widget* Benoemd(Widget* widget, const char* naam) {
  widget->setObjectName(QString::fromLatin1(naam));
  return widget;
}

// A named menu item.
QAction* Actie(QMenu* menu, const char* naam, const QString& tekst);

// A label whose access key moves the focus to `buddy`.
QLabel* Bijschrift(const QString& tekst, QWidget* buddy, QWidget* ouder);

void VulKeuzes(QComboBox* lijst, std::span<const std::string_view> keuzes);

// The window's size, place and maximised state, kept in the settings store
// as "Venster/Geometrie" when it closes and set again as it opens; a window
// with none stored yet gets `breedte` x `hoogte`. Qt brings a place that is
// off every screen now back onto one.
void HerstelVensterplek(QWidget& venster, const VoorkeurenOpslag& opslag, int breedte, int hoogte);
void BewaarVensterplek(const QWidget& venster, VoorkeurenOpslag& opslag);

// Shows the busy pointer while it lives.
class BezigAanwijzer {
 public:
  BezigAanwijzer();
  ~BezigAanwijzer();
  BezigAanwijzer(const BezigAanwijzer&) = delete;
  BezigAanwijzer& operator=(const BezigAanwijzer&) = delete;
};

}  // namespace kiekbord
