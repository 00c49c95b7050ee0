#include "tests/support/test_photos.h"

#include <cstdint>
#include <stdexcept>
#include <vector>

#include "images/turbo_jpeg.h"
#include "tests/support/test_support.h"

namespace kiekbord::test {

std::string ProefJpeg(int breedte, int hoogte, int tint) {
  const int pitch = breedte * 3;
  std::vector<std::uint8_t> pixels(static_cast<std::size_t>(pitch) *
                                   static_cast<std::size_t>(hoogte));
  for (int y = 0; y < hoogte; ++y) {
    for (int x = 0; x < breedte; ++x) {
      std::uint8_t* pixel = &pixels[static_cast<std::size_t>(y * pitch + x * 3)];
      pixel[0] = static_cast<std::uint8_t>(x * 255 / breedte);
      pixel[1] = static_cast<std::uint8_t>(y * 255 / hoogte);
      pixel[2] = static_cast<std::uint8_t>(tint * 37);
    }
  }
  const PixelVlak vlak{pixels.data(), breedte, hoogte, pitch, PixelVolgorde::kRgb, false};
  std::string jpeg;
  const Status status = CodeerJpeg(vlak, 85, jpeg);
  if (!status.ok()) throw std::runtime_error("CodeerJpeg: " + status.description());
  return jpeg;
}

void SchrijfProefFoto(const std::string& path, int breedte, int hoogte, int tint) {
  WriteBytes(path, ProefJpeg(breedte, hoogte, tint));
}

}  // namespace kiekbord::test
