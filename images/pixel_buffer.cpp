#include "images/pixel_buffer.h"

#include <new>

#include "images/turbo_jpeg.h"

namespace kiekbord {

bool cDIBSection::Create(int width, int height) {
  ClearUp();
  if (width <= 0 || height <= 0 || std::int64_t{width} * height > kMaxBeeldpunten) return false;
  const std::size_t size = static_cast<std::size_t>(BytesPerScanLine(width)) * static_cast<std::size_t>(height);
  try {
    bits_.assign(size, 0);
  } catch (const std::bad_alloc&) {
    return false;
  }
  header_.width = width;
  header_.height = height;
  header_.size_image = static_cast<std::uint32_t>(size);
  return true;
}

void cDIBSection::ClearUp() {
  std::vector<std::uint8_t>().swap(bits_);
  header_ = BitmapInfoHeader{};
}

std::size_t cDIBSection::Offset(int x, int y) const {
  // Row y counts from the top; memory holds the bottom row first.
  const auto row = static_cast<std::size_t>(Height() - 1 - y);
  return row * static_cast<std::size_t>(BytesPerScanLine()) + static_cast<std::size_t>(x) * 3;
}

Kleur cDIBSection::GetPixel(int x, int y) const {
  if (!Contains(x, y)) return kGeenKleur;
  const std::uint8_t* p = bits_.data() + Offset(x, y);
  return Kleur{p[2]} | Kleur{p[1]} << 8 | Kleur{p[0]} << 16;
}

void cDIBSection::SetPixel(int x, int y, Kleur kleur) {
  if (!Contains(x, y)) return;
  std::uint8_t* p = bits_.data() + Offset(x, y);
  p[0] = static_cast<std::uint8_t>(kleur >> 16);
  p[1] = static_cast<std::uint8_t>(kleur >> 8);
  p[2] = static_cast<std::uint8_t>(kleur);
}

}  // namespace kiekbord
