// Photos from phones made ready for the web: turned upright as the camera's
// orientation tag says, losslessly, and stripped of the location the camera
// recorded. The image data is never decoded: a turn rearranges the JPEG's
// blocks (TurboJPEG's lossless transform), and removing the location only
// rewrites the camera data (see images/exif_data.h).
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/status.h"

namespace kiekbord {

struct OpschoonOpdracht {
  bool rechtop = false;         // turn a photo whose orientation is 2..8 upright
  bool zonder_locatie = false;  // remove its GPS block
  bool maak_backup = true;      // the first-edit backup of images/photo_backup
};

// What was done to one photo.
struct OpschoonUitkomst {
  int orientatie = 1;              // the orientation turned upright; 1 when not turned
  int afgesneden_kolommen = 0;     // edge pixels trimmed off, counted upright
  int afgesneden_rijen = 0;
  bool locatie_verwijderd = false;

  bool Gewijzigd() const { return orientatie != 1 || locatie_verwijderd; }
};

// `jpeg` turned upright and/or without location, as `opdracht` asks, into
// `uit` (a copy of `jpeg` when nothing needs doing). The orientation tag
// becomes 1, the pixel sizes follow the turn, the embedded thumbnail goes;
// every other field and segment (a colour profile) stays. On failure returns
// error 26002 with a description, and `uit` and `uitkomst` are left alone.
Status SchoonJpegOp(std::string_view jpeg, const OpschoonOpdracht& opdracht, std::string& uit,
                    OpschoonUitkomst& uitkomst);

// The same on the photo file at `foto_pad`: a changed photo is written over
// the photo in one step, after its backup when `opdracht.maak_backup`. On
// failure returns the read, backup, transform or write error and leaves the
// photo as it was.
Status SchoonFotoOp(const std::string& foto_pad, const OpschoonOpdracht& opdracht, OpschoonUitkomst& uitkomst);

// The lines that report `uitkomst` for the photo `naam`: "Rechtop gezet:
// <naam> (oriëntatie 6)", followed by " (rand van 5 pixels afgesneden)" when
// an edge was trimmed, and "Locatie verwijderd: <naam>". None when nothing
// changed.
std::vector<std::string> OpschoonRegels(const std::string& naam, const OpschoonUitkomst& uitkomst);

// The line for a photo that could not be changed: "Fout 61 bij het bewerken
// van foto <naam> (Disk full); de foto is niet gewijzigd."
std::string OpschoonFoutRegel(const std::string& naam, const Status& status);

}  // namespace kiekbord
