#include "images/lanczos_shrink.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kiekbord {
namespace {

// Weights are whole numbers scaled by 2^kBits: room for 8-bit pixels times
// the sum of a filter's weights in 32 bits, with negative lobes.
constexpr int kBits = 14;
constexpr std::int32_t kHalf = 1 << (kBits - 1);
double Lanczos(double x, double lobes) {
  if (x == 0.0) return 1.0;
  if (x <= -lobes || x >= lobes) return 0.0;
  const double px = std::numbers::pi * x;
  return lobes * std::sin(px) * std::sin(px / lobes) / (px * px);
}

std::uint8_t Clamp(std::int32_t sum) { return static_cast<std::uint8_t>(std::clamp(sum >> kBits, 0, 255)); }

// The filter of one axis: output pixel i reads `taps` source pixels from
// eerste[i] on with weights gewichten[i * taps ...], which sum to 2^kBits.
// Every output pixel reads the same number of pixels, all inside the
// source, so the loops need no bounds; weights outside the filter are 0.
struct AsFilter {
  int taps = 0;
  std::vector<int> eerste;
  std::vector<std::int32_t> gewichten;
};

AsFilter MaakFilter(int bron, int doel, int lobes) {
  const double schaal = static_cast<double>(bron) / doel;
  // Shrinking stretches the filter over the source so no pixel is skipped.
  const double rek = std::max(1.0, schaal);
  const double bereik = lobes * rek;
  AsFilter filter;
  filter.taps = std::min(bron, 2 * static_cast<int>(std::ceil(bereik)) + 1);
  filter.eerste.resize(static_cast<std::size_t>(doel));
  filter.gewichten.assign(static_cast<std::size_t>(doel) * filter.taps, 0);
  std::vector<double> w(static_cast<std::size_t>(filter.taps));
  for (int i = 0; i < doel; ++i) {
    const double midden = (i + 0.5) * schaal;
    const int van = std::max(0, static_cast<int>(std::floor(midden - bereik + 0.5)));
    const int tot = std::min(bron, static_cast<int>(std::floor(midden + bereik + 0.5)));
    const int eerste = std::clamp(van, 0, bron - filter.taps);
    std::fill(w.begin(), w.end(), 0.0);
    double som = 0.0;
    for (int j = std::max(van, eerste); j < std::min(tot, eerste + filter.taps); ++j) {
      w[static_cast<std::size_t>(j - eerste)] = Lanczos((j + 0.5 - midden) / rek, lobes);
      som += w[static_cast<std::size_t>(j - eerste)];
    }
    filter.eerste[static_cast<std::size_t>(i)] = eerste;
    std::int32_t* uit = filter.gewichten.data() + static_cast<std::size_t>(i) * filter.taps;
    for (int t = 0; t < filter.taps; ++t) {
      uit[t] = static_cast<std::int32_t>(std::lround(w[static_cast<std::size_t>(t)] / som * (1 << kBits)));
    }
  }
  return filter;
}

// Rows first: every output row is a weighted sum of whole source rows,
// which the compiler turns into vector code; the costlier per-pixel pass
// across then works on the few rows left.
std::vector<std::uint8_t> Verticaal(const std::vector<std::uint8_t>& rgb, int breedte, const AsFilter& filter) {
  const std::size_t rij = static_cast<std::size_t>(breedte) * 3;
  const std::size_t rijen = filter.eerste.size();
  std::vector<std::uint8_t> uit(rij * rijen);
  std::vector<std::int32_t> som(rij);
  for (std::size_t y = 0; y < rijen; ++y) {
    std::fill(som.begin(), som.end(), kHalf);
    for (int t = 0; t < filter.taps; ++t) {
      const std::int32_t w = filter.gewichten[y * static_cast<std::size_t>(filter.taps) + static_cast<std::size_t>(t)];
      if (w == 0) continue;
      const std::uint8_t* bron = rgb.data() + static_cast<std::size_t>(filter.eerste[y] + t) * rij;
      for (std::size_t j = 0; j < rij; ++j) som[j] += w * bron[j];
    }
    std::uint8_t* doel = uit.data() + y * rij;
    for (std::size_t j = 0; j < rij; ++j) doel[j] = Clamp(som[j]);
  }
  return uit;
}

std::vector<std::uint8_t> Horizontaal(const std::vector<std::uint8_t>& rgb, int breedte, int hoogte,
                                      const AsFilter& filter) {
  const std::size_t bron_rij = static_cast<std::size_t>(breedte) * 3;
  const std::size_t kolommen = filter.eerste.size();
  std::vector<std::uint8_t> uit(kolommen * 3 * static_cast<std::size_t>(hoogte));
  std::uint8_t* doel = uit.data();
  for (int y = 0; y < hoogte; ++y) {
    const std::uint8_t* rij = rgb.data() + static_cast<std::size_t>(y) * bron_rij;
    for (std::size_t x = 0; x < kolommen; ++x) {
      const std::int32_t* w = filter.gewichten.data() + x * static_cast<std::size_t>(filter.taps);
      const std::uint8_t* pixel = rij + static_cast<std::size_t>(filter.eerste[x]) * 3;
      std::int32_t r = kHalf, g = kHalf, b = kHalf;
      for (int t = 0; t < filter.taps; ++t, pixel += 3) {
        r += w[t] * pixel[0];
        g += w[t] * pixel[1];
        b += w[t] * pixel[2];
      }
      *doel++ = Clamp(r);
      *doel++ = Clamp(g);
      *doel++ = Clamp(b);
    }
  }
  return uit;
}

}  // namespace

std::vector<std::uint8_t> VerkleinLanczos(const std::vector<std::uint8_t>& rgb, int breedte, int hoogte,
                                          ThumbnailMaat maat, int lobes) {
  const std::vector<std::uint8_t> rijen = Verticaal(rgb, breedte, MaakFilter(hoogte, maat.hoogte, lobes));
  return Horizontaal(rijen, breedte, maat.hoogte, MaakFilter(breedte, maat.breedte, lobes));
}

}  // namespace kiekbord
