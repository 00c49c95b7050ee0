// What the user reads when a photo cannot be read: the photo's path and, in
// Dutch, what is wrong with it. The checks look at the file's bytes before
// any decoder does, so an empty file, a file without image data or a file of
// another kind gets its own sentence instead of a decoder's.
#pragma once

#include <string>
#include <string_view>

#include "base/status.h"

namespace kiekbord {

// Ok when `jpeg`, the whole file at `foto_pad`, holds a JPEG start and
// segments up to its image data. Otherwise error 26002 with one of:
//   "De foto <pad> is leeg (0 bytes)."
//   "De foto <pad> is geen JPEG-bestand."
//   "De foto <pad> bevat geen beeldgegevens."
//   "De foto <pad> is onvolledig: het bestand houdt op voor de beeldgegevens."
Status ToetsFotoBestand(const std::string& foto_pad, std::string_view jpeg);

// A decoder's failure to read the photo at `foto_pad` ("Failed to read JPG",
// "Cannot read Image Data from file.", "Cannot load image: ...", "Cannot
// read image data: ...") as error 26002 "De foto <pad> is beschadigd (" +
// the decoder's description + ")."; any other status (a file error, the
// pixel limit, a failure to write) is returned as it is.
Status BeeldFout(const std::string& foto_pad, const Status& fout);

// ToetsFotoBestand, and when that passes, BeeldFout of `fout`.
Status FotoFout(const std::string& foto_pad, std::string_view jpeg, const Status& fout);

}  // namespace kiekbord
