// The walk over a JPEG's segments that every check before decoding shares:
// where the frame header stands, whether an Adobe segment is there, why a
// file has no image data. It passes stray and fill bytes over and skips the
// markers without a length, as a decoder does.
#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

namespace kiekbord {

// The byte at `pos` as a number.
inline unsigned JpegByte(std::string_view jpeg, std::size_t pos) { return static_cast<unsigned char>(jpeg[pos]); }

// True for the start marker of a JPEG file (FF D8 at its first two bytes).
bool BeginsAsJpeg(std::string_view jpeg);

// A frame header marker (SOF0..SOF15 without DHT, JPG and DAC).
bool IsFrameHeader(unsigned marker);

// Where a walk ended: at the marker `marker` whose FF stands at `pos`, or,
// with `marker` 0, where the bytes ran out (`pos` is where the next marker
// was expected).
struct SegmentStop {
  unsigned marker = 0;
  std::size_t pos = 0;
};

// Walks the markers after the start marker and ends at the first for which
// `stop(marker, pos)` is true, at the image data (DA), at the end marker
// (D9), or where the bytes run out. `stop` must check itself that the bytes
// it reads are there.
SegmentStop LoopSegmenten(std::string_view jpeg, const std::function<bool(unsigned, std::size_t)>& stop);

}  // namespace kiekbord
