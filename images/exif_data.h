// The camera data (EXIF) of a JPEG photo: the orientation the camera stored
// and whether the photo carries a location (a GPS block), and the rewrite of
// that block when a photo is straightened or its location removed.
//
// The block is read and written with libexif: libvips already brings it into
// the program, its C API is small, and unlike a reader only it can also write
// a changed block back while keeping every other field as it was.
#pragma once

#include <string>
#include <string_view>

#include "base/status.h"

namespace kiekbord {

struct ExifGegevens {
  bool aanwezig = false;  // the photo has an EXIF block
  int orientatie = 1;     // 1..8; 1 without the tag or with a value outside 1..8
  bool gps = false;       // the block holds a GPS block with at least one field
};

// The EXIF block of `jpeg`. A photo without one, or with one that cannot be
// read, gives the defaults (no block, orientation 1, no GPS); never fails.
ExifGegevens LeesExif(std::string_view jpeg);

struct ExifWijziging {
  bool rechtop = false;        // orientation 1, new pixel sizes, no embedded thumbnail
  int breedte = 0;             // with rechtop: the photo's new size
  int hoogte = 0;
  bool zonder_gps = false;     // drop the GPS block
};

// `jpeg` with its EXIF block rewritten as `wijziging` says; every other
// field, the other segments and the image data stay byte for byte. On
// failure (no readable block, or a block that no longer fits one segment)
// returns error 26002 with a description and leaves `uit` alone.
Status HerschrijfExif(std::string_view jpeg, const ExifWijziging& wijziging, std::string& uit);

// `jpeg`, which has no EXIF block, with the block `blok` ("Exif\0\0" and the
// fields, as libvips hands a photo's camera data over) put in behind its
// start marker and rewritten as `wijziging` says. Failures as HerschrijfExif.
Status VoegExifToe(std::string_view jpeg, std::string_view blok, const ExifWijziging& wijziging, std::string& uit);

}  // namespace kiekbord
