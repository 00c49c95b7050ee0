// What the window program sets up on the application before its first
// window: its names and the Dutch of Qt's own dialogs.
#pragma once

class QTranslator;

namespace kiekbord {

// Names the application without a display name (a title is then shown as
// the window sets it, with no program name added), makes Dutch the default
// language of numbers and dates, and installs `qt_vertaling` with Qt's own
// Dutch texts (qtbase_nl from Qt's translations folder) when they load.
// Returns whether they did.
bool RichtToepassingIn(QTranslator& qt_vertaling);

}  // namespace kiekbord
