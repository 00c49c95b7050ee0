#include "images/photo_properties.h"

#include <algorithm>
#include <cstddef>
#include <optional>

#include "base/file_system.h"
#include "base/text.h"
#include "images/jpeg_segments.h"

namespace kiekbord {
namespace {

constexpr std::size_t kLengteGrens = 262144;
// A frame header whose length field lies beyond this offset is marked "!".
constexpr std::size_t kLaatsteVroegeKop = 249;

// The scan's byte buffer: indexes 0 to the capped file length, the bytes
// read at the front and zeros behind them. Reading past the end gives
// nothing, which ends the scan as a failure.
class ScanBuffer {
 public:
  explicit ScanBuffer(std::string_view begin)
      : bytes_(begin), last_index_(std::min(begin.size(), kLengteGrens)) {}

  std::size_t LastIndex() const { return last_index_; }

  std::optional<unsigned> At(std::size_t i) const {
    if (i > last_index_) return std::nullopt;
    return i < bytes_.size() ? static_cast<unsigned char>(bytes_[i]) : 0u;
  }

  std::optional<unsigned> Word(std::size_t i) const {
    const auto high = At(i);
    const auto low = At(i + 1);
    if (!high || !low) return std::nullopt;
    return *high * 256 + *low;
  }

 private:
  std::string_view bytes_;
  std::size_t last_index_;
};

struct Frame {
  std::size_t length_field = 0;
  unsigned width = 0;
  unsigned height = 0;
};

// Walks the segments from offset 2. Returns the accepted frame header, or
// nothing when none lies before the scan limit, a dimension overflows or an
// index falls past the buffer.
std::optional<Frame> FindFrame(const ScanBuffer& buffer) {
  const std::ptrdiff_t limit = static_cast<std::ptrdiff_t>(buffer.LastIndex()) - 9;
  std::size_t pos = 2;
  while (static_cast<std::ptrdiff_t>(pos) < limit) {
    const auto byte = buffer.At(pos);
    if (!byte) return std::nullopt;
    if (*byte < 0xFF) {
      ++pos;  // bytes between segments, fill included, go one at a time
      continue;
    }
    const auto marker = buffer.At(pos + 1);
    if (!marker) return std::nullopt;
    if (!IsFrameHeader(*marker)) {
      // Standalone markers (RSTn and the like) are skipped as if a length
      // followed them; sizes found in older galleries depend on that.
      const auto length = buffer.Word(pos + 2);
      if (!length) return std::nullopt;
      pos += 2 + *length;
      continue;
    }
    pos += 2;
    const auto length = buffer.Word(pos);
    const auto height_high = buffer.At(pos + 3);
    const auto height = buffer.Word(pos + 3);
    const auto width_high = buffer.At(pos + 5);
    const auto width = buffer.Word(pos + 5);
    if (!length || !height || !width) return std::nullopt;
    if (*width < 2 || *height < 2) {
      pos += *length;  // a deferred height: a later frame header may follow
      continue;
    }
    // The sizes are 16-bit signed numbers: 32768 and up overflow.
    if (*height_high >= 0x80 || *width_high >= 0x80) return std::nullopt;
    return Frame{pos, *width, *height};
  }
  return std::nullopt;
}

std::int16_t SizeNumber(std::string_view text) {
  const double value = LeadingNumber(text);
  if (value < 0 || value > 32767) return 0;
  return static_cast<std::int16_t>(value);
}

// The frame header's size by a walk over all segments of `bytes`; `nodig`
// is set to the number of bytes the walk needs when it runs past the end.
std::optional<FotoMaat> VerdereFrame(std::string_view bytes, std::size_t& nodig) {
  nodig = 0;
  if (!BeginsAsJpeg(bytes)) return std::nullopt;
  const auto maat = [&bytes](std::size_t pos) {
    return FotoMaat{static_cast<int>(JpegByte(bytes, pos + 7) << 8 | JpegByte(bytes, pos + 8)),
                    static_cast<int>(JpegByte(bytes, pos + 5) << 8 | JpegByte(bytes, pos + 6))};
  };
  // A height of 0 comes later in the image data: still unknown here.
  const SegmentStop stop = LoopSegmenten(bytes, [&](unsigned marker, std::size_t pos) {
    if (!IsFrameHeader(marker)) return false;
    return pos + 9 > bytes.size() || (maat(pos).breedte > 0 && maat(pos).hoogte > 0);
  });
  if (stop.marker == 0xDA || stop.marker == 0xD9) return std::nullopt;
  if (stop.marker == 0 || stop.pos + 9 > bytes.size()) {
    nodig = stop.pos + 9;
    return std::nullopt;
  }
  return maat(stop.pos);
}

}  // namespace

std::optional<FotoMaat> PaginaMaat(const std::string& path) {
  const std::string afmetingen = BepaalAfmetingen(path);
  const int breedte = BreedteVanAfmetingen(afmetingen);
  const int hoogte = HoogteVanAfmetingen(afmetingen);
  if (breedte > 0 && hoogte > 0) return FotoMaat{breedte, hoogte};
  std::int64_t grens = 4 * kAfmetingenLeesGrens;
  while (true) {
    std::string bytes;
    if (!Fs().ReadFile(path, bytes, grens).ok()) return std::nullopt;
    std::size_t nodig = 0;
    const auto maat = VerdereFrame(bytes, nodig);
    const bool heel_bestand = static_cast<std::int64_t>(bytes.size()) < grens;
    if (maat || nodig == 0 || heel_bestand || grens >= kPaginaMaatLeesGrens) return maat;
    grens = std::min(std::max(grens * 4, static_cast<std::int64_t>(nodig) + 4096), kPaginaMaatLeesGrens);
  }
}

std::string AfmetingenUitBytes(std::string_view begin) {
  const ScanBuffer buffer(begin);
  if (buffer.At(0) != 0xFFu || buffer.At(1) != 0xD8u) return "Error";
  const auto frame = FindFrame(buffer);
  if (!frame) return "Error";
  std::string text = std::to_string(frame->width) + "x" + std::to_string(frame->height);
  if (frame->length_field > kLaatsteVroegeKop) text += "!";
  return text;
}

std::string BepaalAfmetingen(const std::string& path) {
  std::string begin;
  if (!Fs().ReadFile(path, begin, kAfmetingenLeesGrens).ok()) return "Error";
  return AfmetingenUitBytes(begin);
}

std::int16_t BreedteVanAfmetingen(std::string_view afmetingen) {
  const auto x = Lower(afmetingen).find('x');
  if (x == std::string::npos) return 0;
  return SizeNumber(afmetingen.substr(0, x));
}

std::int16_t HoogteVanAfmetingen(std::string_view afmetingen) {
  const std::string lower = Lower(afmetingen);
  const auto x = lower.find('x');
  // Byte positions: the size text is ASCII, so characters and bytes agree.
  const std::size_t p = x == std::string::npos ? 0 : x + 1;
  std::size_t n = afmetingen.size();
  if (EndsWith(afmetingen, "!")) --n;
  if (p >= n) return 0;
  return SizeNumber(afmetingen.substr(p, n - p));
}

}  // namespace kiekbord
