#include "app/library_versions.h"

#include "images/ijl_library.h"
#include "images/smooth_library.h"

namespace kiekbord {

std::string TurboJpegVersieTekst(int versie) {
  return std::to_string(versie / 1000000) + "." + std::to_string(versie / 1000 % 1000) + "." +
         std::to_string(versie % 1000);
}

std::vector<std::string> BeeldBibliotheekVersies() {
  return {std::string("libvips ").append(VipsVersie()), "libjpeg-turbo " + TurboJpegVersieTekst(IJLVersion())};
}

}  // namespace kiekbord
