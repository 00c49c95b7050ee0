// libjpeg-turbo's TurboJPEG API behind owning handles: a JPEG's header, a
// decode into a pixel plane (optionally shrunk on load by a DCT scaling
// factor) and an encode from one. Both image libraries decode and encode
// through here; nothing in this module touches a file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/status.h"

namespace kiekbord {

// Larger images are refused before any pixel memory is taken. The largest
// camera sensors give some 150 million pixels (and a few pixel-shift modes
// up to 200 million), which still pass; a whole decode of the largest image
// allowed takes some 600 MB at three bytes a pixel, and up to 1.75 GB when
// a progressive file keeps its coefficients (docs/robustness.md has the
// measurements); a damaged or hostile header that claims more (65,535 x 65,535 would be 12 GB) is refused with a
// clear error instead of failing somewhere deep in a decoder.
inline constexpr std::int64_t kMaxBeeldpunten = 200'000'000;

struct JpegKop {
  int breedte = 0;
  int hoogte = 0;
  int subsampling = 0;  // TJSAMP_*, -1 for sampling the API has no name for
  int kleurruimte = 0;  // TJCS_*
  bool progressief = false;

  bool IsCmyk() const;
  std::int64_t Beeldpunten() const { return std::int64_t{breedte} * hoogte; }
};

// Reads the header of the JPEG in `jpeg`. On failure returns error 26002
// with libjpeg-turbo's message as description ("Not a JPEG file: starts
// with 0x89 0x50").
Status LeesJpegKop(std::string_view jpeg, JpegKop& kop);

// Ok when a breedte x hoogte image is within kMaxBeeldpunten; otherwise
// error 26002 "Image too large: <breedte> x <hoogte> pixels".
Status ToetsBeeldMaat(int breedte, int hoogte);

// The same for the size that the frame header of `jpeg` claims, read from
// the header's bytes before any decoder sees them (libjpeg-turbo would
// refuse a side above 65,500 with a message of its own). Ok too when no
// frame header is found: the decoder then says what is wrong.
Status ToetsGeclaimdeMaat(std::string_view jpeg);

// Memory a decode of this image takes besides its output: a progressive
// image keeps all its coefficients, two bytes each, until the last scan.
std::int64_t DecodeerWerkgeheugen(const JpegKop& kop);

// A DCT scaling factor of the decoder.
struct Schaal {
  int teller = 1;
  int noemer = 1;
  // A side of `maat` pixels after scaling (rounded up, as the decoder does).
  int Pas(int maat) const { return static_cast<int>((std::int64_t{maat} * teller + noemer - 1) / noemer); }
};

// The smallest scaling factor of at most 1 at which a breedte x hoogte
// image is still at least min_breedte x min_hoogte; 1/1 when none is.
Schaal KiesSchaal(int breedte, int hoogte, int min_breedte, int min_hoogte);

enum class PixelVolgorde { kRgb, kBgr };

// Three bytes a pixel, rows `pitch` bytes apart.
struct PixelVlak {
  std::uint8_t* pixels = nullptr;
  int breedte = 0;
  int hoogte = 0;
  int pitch = 0;
  PixelVolgorde volgorde = PixelVolgorde::kRgb;
  // The first row in memory is the image's bottom row.
  bool onderste_rij_eerst = false;
};

// Decodes `jpeg` into `doel`, whose size must be the image's size scaled by
// one of the decoder's factors. Damage that the decoder can work around
// (a truncated file, stray bytes) is tolerated as long as an image comes
// out. A CMYK or YCCK image comes out as RGB (inverted CMYK when the file
// has Adobe's segment, as Adobe's programs write it). On failure returns
// error 26002 with libjpeg-turbo's message.
Status DecodeerJpeg(std::string_view jpeg, const PixelVlak& doel);

// Encodes `bron` as a baseline JPEG at `kwaliteit` (0..100) with 4:2:0
// chroma subsampling into `jpeg`. On failure returns error 26002 with
// libjpeg-turbo's message.
Status CodeerJpeg(const PixelVlak& bron, int kwaliteit, std::string& jpeg);

}  // namespace kiekbord
