#include "images/jpeg_segments.h"

namespace kiekbord {
namespace {

bool IsStandalone(unsigned marker) {
  return marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8);
}

}  // namespace

bool BeginsAsJpeg(std::string_view jpeg) {
  return jpeg.size() >= 2 && JpegByte(jpeg, 0) == 0xFF && JpegByte(jpeg, 1) == 0xD8;
}

bool IsFrameHeader(unsigned marker) {
  if (marker < 0xC0 || marker > 0xCF) return false;
  // DHT, JPG and DAC share the range but are no frame headers.
  return marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
}

SegmentStop LoopSegmenten(std::string_view jpeg, const std::function<bool(unsigned, std::size_t)>& stop) {
  std::size_t pos = 2;
  while (pos + 1 < jpeg.size()) {
    if (JpegByte(jpeg, pos) != 0xFF || JpegByte(jpeg, pos + 1) == 0xFF) {
      ++pos;
      continue;
    }
    const unsigned marker = JpegByte(jpeg, pos + 1);
    if (marker == 0xDA || marker == 0xD9 || stop(marker, pos)) return {marker, pos};
    if (IsStandalone(marker)) {
      pos += 2;
      continue;
    }
    if (pos + 3 >= jpeg.size()) break;
    pos += 2 + (JpegByte(jpeg, pos + 2) << 8 | JpegByte(jpeg, pos + 3));
  }
  return {0, pos};
}

}  // namespace kiekbord
