// cDIBSection: the owning 24-bit pixel buffer of the pixel-buffer library.
//
// The geometry is that of a device-independent bitmap: three bytes a pixel
// in blue-green-red order, rows padded to a multiple of four bytes, and the
// first row in memory the image's bottom row. Pixels are read and written
// directly; coordinates count from the top-left corner, as the graphics
// calls did, and a pixel outside the buffer is never touched.
#pragma once

#include <cstdint>
#include <vector>

namespace kiekbord {

// A colour as the graphics calls give it: red in the lowest byte, blue in
// the third.
using Kleur = std::uint32_t;
// What reading a pixel outside the buffer gives.
inline constexpr Kleur kGeenKleur = 0xFFFFFFFF;

struct BitmapInfoHeader {
  std::uint32_t size = 40;
  std::int32_t width = 0;
  std::int32_t height = 0;  // positive: rows stored bottom-up
  std::uint16_t planes = 1;
  std::uint16_t bit_count = 24;
  std::uint32_t compression = 0;
  std::uint32_t size_image = 0;  // bytes per scan line x height
};

class cDIBSection {
 public:
  cDIBSection() = default;
  cDIBSection(const cDIBSection&) = delete;
  cDIBSection& operator=(const cDIBSection&) = delete;

  // Makes a black width x height buffer after ClearUp. False (and empty)
  // when a side is not positive, the image is larger than the decoders
  // accept, or the memory cannot be had.
  bool Create(int width, int height);
  // Releases the pixels; the buffer is empty afterwards.
  void ClearUp();

  int Width() const { return header_.width; }
  int Height() const { return header_.height; }
  // (width x 3 + 3) with the two low bits cleared.
  int BytesPerScanLine() const { return BytesPerScanLine(header_.width); }
  static int BytesPerScanLine(int width) { return (width * 3 + 3) & ~3; }
  const BitmapInfoHeader& Header() const { return header_; }

  std::uint8_t* DIBSectionBitsPtr() { return bits_.empty() ? nullptr : bits_.data(); }
  const std::uint8_t* DIBSectionBitsPtr() const { return bits_.empty() ? nullptr : bits_.data(); }

  bool Contains(int x, int y) const { return x >= 0 && y >= 0 && x < Width() && y < Height(); }
  // The colour at (x, y), kGeenKleur outside the buffer.
  Kleur GetPixel(int x, int y) const;
  // Sets (x, y); ignored outside the buffer.
  void SetPixel(int x, int y, Kleur kleur);

 private:
  std::size_t Offset(int x, int y) const;

  BitmapInfoHeader header_;
  std::vector<std::uint8_t> bits_;
};

}  // namespace kiekbord
