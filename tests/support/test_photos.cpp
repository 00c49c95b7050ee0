#include "tests/support/test_photos.h"

#include <cstdint>
#include <stdexcept>
#include <vector>

#include "images/turbo_jpeg.h"
#include "tests/support/test_support.h"

namespace kiekbord::test {

namespace {

std::string Codeer(int breedte, int hoogte, int tint, bool ruis) {
  std::vector<std::uint8_t> pixels;
  for (int y = 0; y < hoogte; ++y) {
    for (int x = 0; x < breedte; ++x) {
      // Noise that survives shrinking keeps even a thumbnail from compressing
      // to almost nothing.
      const unsigned ruis_hier =
          ruis ? (static_cast<unsigned>(x / 6) * 2654435761u) ^ (static_cast<unsigned>(y / 6) * 40503u) : 0;
      const int kleur[] = {x * 255 / breedte, y * 255 / hoogte, tint * 37};
      for (int c = 0; c < 3; ++c) {
        pixels.push_back(static_cast<std::uint8_t>(kleur[c] ^ static_cast<int>((ruis_hier >> (8 * c)) & 0x7F)));
      }
    }
  }
  const PixelVlak vlak{pixels.data(), breedte, hoogte, breedte * 3, PixelVolgorde::kRgb, false};
  std::string jpeg;
  const Status status = CodeerJpeg(vlak, 85, jpeg);
  if (!status.ok()) throw std::runtime_error("CodeerJpeg: " + status.description());
  return jpeg;
}

}  // namespace

std::string ProefJpeg(int breedte, int hoogte, int tint) { return Codeer(breedte, hoogte, tint, false); }

std::string CameraJpeg(int breedte, int hoogte, int tint) {
  std::string exif = std::string("Exif\0\0MM\0*\0\0\0\x08", 14) + std::string(6000, '\0');
  const std::size_t lengte = exif.size() + 2;
  const std::string kop = {'\xFF', '\xE1', static_cast<char>(lengte >> 8), static_cast<char>(lengte & 0xFF)};
  const std::string jpeg = Codeer(breedte, hoogte, tint, true);
  return jpeg.substr(0, 2) + kop + exif + jpeg.substr(2);
}

void SchrijfProefFoto(const std::string& path, int breedte, int hoogte, int tint) {
  WriteBytes(path, ProefJpeg(breedte, hoogte, tint));
}

}  // namespace kiekbord::test
