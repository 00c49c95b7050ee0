// Small real JPEG photos for tests, encoded with the program's own JPEG code.
#pragma once

#include <string>

namespace kiekbord::test {

// The bytes of a baseline JPEG of `breedte` x `hoogte` pixels: a colour
// gradient, different for every `tint`.
std::string ProefJpeg(int breedte, int hoogte, int tint = 0);

// Like ProefJpeg, with fine detail and about 6 KB of camera data (an EXIF
// block) in front of the image, as camera photos have.
std::string CameraJpeg(int breedte, int hoogte, int tint = 0);

// Writes ProefJpeg(breedte, hoogte, tint) to `path`.
void SchrijfProefFoto(const std::string& path, int breedte, int hoogte, int tint = 0);

}  // namespace kiekbord::test
