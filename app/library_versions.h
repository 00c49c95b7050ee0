// The versions of the image libraries the program uses, as the About window
// lists them.
#pragma once

#include <string>
#include <vector>

namespace kiekbord {

// "libvips 8.14.1" (the smooth library) and "libjpeg-turbo 2.1.5" (the
// pixel-buffer library), in that order.
std::vector<std::string> BeeldBibliotheekVersies();

// libjpeg-turbo's version number as text: 2001005 gives "2.1.5".
std::string TurboJpegVersieTekst(int versie);

}  // namespace kiekbord
