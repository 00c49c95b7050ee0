// The About window `frmInfo`: the program caption and revision, the
// operating system's name and the versions of the image libraries in use.
#pragma once

#include <string>
#include <vector>

#include <QDialog>

namespace kiekbord {

struct InfoGegevens {
  std::string programma;              // "Kiekbord 4.1 Pro"
  int revisie = 0;
  std::string os_naam;                // BepaalOsNaam(), "Unknown (3.6.1)"
  std::vector<std::string> bibliotheken;  // "libvips 8.14.1", ...
  std::string icoon;                  // path of the program icon; may be missing
};

class InfoDialoog : public QDialog {
  Q_OBJECT

 public:
  InfoDialoog(const InfoGegevens& gegevens, QWidget* ouder);
};

}  // namespace kiekbord
