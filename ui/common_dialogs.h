// The common dialogs the window opens: script files, folders, photo files
// and colours. Like the message boxes, they go through one interface so that
// tests choose the answers; the real implementation uses Qt's dialogs.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <QColor>

class QFileInfo;
class QWidget;

namespace kiekbord {

// Puts a window in the middle of its screen's free area (the first time a
// dialog shows, before a window manager might place it elsewhere).
void CentreerOpScherm(QWidget& venster);

// Whether the photo-program chooser lists `bestand`: a folder, or a file
// that may be run.
bool AlsProgrammaGetoond(const QFileInfo& bestand);

class Dialogen {
 public:
  virtual ~Dialogen() = default;
  // "Kiekbord - Script openen": an existing ".kbs" file; empty when cancelled.
  virtual std::string ScriptOpenen(QWidget* ouder, const std::string& map) = 0;
  // "Kiekbord - Script opslaan als": a ".kbs" path, overwriting only after a
  // question; empty when cancelled.
  virtual std::string ScriptOpslaanAls(QWidget* ouder, const std::string& map, const std::string& naam) = 0;
  // A directory, starting at `map`; empty when cancelled.
  virtual std::string MapKiezen(QWidget* ouder, const std::string& titel, const std::string& map) = 0;
  // One or more ".jpg" files; empty when cancelled.
  virtual std::vector<std::string> FotosKiezen(QWidget* ouder, const std::string& map) = 0;
  // A colour, starting on `huidig`; nothing when cancelled.
  virtual std::optional<QColor> KleurKiezen(QWidget* ouder, const std::string& titel, const QColor& huidig) = 0;
  // "Kiekbord - Fotoprogramma lokaliseren": a program file, starting beside
  // `huidig` (the program set now, may be empty); empty when cancelled.
  virtual std::string FotoprogrammaKiezen(QWidget* ouder, const std::string& huidig) = 0;
};

class QtDialogen : public Dialogen {
 public:
  std::string ScriptOpenen(QWidget* ouder, const std::string& map) override;
  std::string ScriptOpslaanAls(QWidget* ouder, const std::string& map, const std::string& naam) override;
  std::string MapKiezen(QWidget* ouder, const std::string& titel, const std::string& map) override;
  std::vector<std::string> FotosKiezen(QWidget* ouder, const std::string& map) override;
  std::optional<QColor> KleurKiezen(QWidget* ouder, const std::string& titel, const QColor& huidig) override;
  std::string FotoprogrammaKiezen(QWidget* ouder, const std::string& huidig) override;
};

}  // namespace kiekbord
