#include "images/photo_failures.h"

#include <array>

#include "base/text.h"

namespace kiekbord {
namespace {

enum class Gebrek { kGeen, kGeenJpeg, kGeenBeeld, kOnvolledig };

unsigned Byte(std::string_view jpeg, std::size_t pos) { return static_cast<unsigned char>(jpeg[pos]); }

// Walks the segments as a decoder does, up to the start of the image data.
Gebrek GebrekVan(std::string_view jpeg) {
  if (jpeg.size() < 2 || Byte(jpeg, 0) != 0xFF || Byte(jpeg, 1) != 0xD8) return Gebrek::kGeenJpeg;
  std::size_t pos = 2;
  while (pos + 1 < jpeg.size()) {
    // A decoder passes over stray bytes and fill bytes before a marker.
    if (Byte(jpeg, pos) != 0xFF || Byte(jpeg, pos + 1) == 0xFF) {
      ++pos;
      continue;
    }
    const unsigned marker = Byte(jpeg, pos + 1);
    if (marker == 0xDA) return Gebrek::kGeen;
    if (marker == 0xD9) return Gebrek::kGeenBeeld;
    if (marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8)) {
      pos += 2;
      continue;
    }
    if (pos + 3 >= jpeg.size()) break;
    pos += 2 + (Byte(jpeg, pos + 2) << 8 | Byte(jpeg, pos + 3));
  }
  return Gebrek::kOnvolledig;
}

Status Fout(const std::string& foto_pad, std::string_view wat) {
  return Status::Error(fout::kProgramError, "De foto " + foto_pad + " " + std::string(wat));
}

}  // namespace

Status ToetsFotoBestand(const std::string& foto_pad, std::string_view jpeg) {
  if (jpeg.empty()) return Fout(foto_pad, "is leeg (0 bytes).");
  switch (GebrekVan(jpeg)) {
    case Gebrek::kGeenJpeg: return Fout(foto_pad, "is geen JPEG-bestand.");
    case Gebrek::kGeenBeeld: return Fout(foto_pad, "bevat geen beeldgegevens.");
    case Gebrek::kOnvolledig:
      return Fout(foto_pad, "is onvolledig: het bestand houdt op voor de beeldgegevens.");
    case Gebrek::kGeen: break;
  }
  return Status::Ok();
}

Status BeeldFout(const std::string& foto_pad, const Status& fout) {
  constexpr std::array<std::string_view, 4> kLeesFouten = {
      "Failed to read JPG", "Cannot read Image Data from file.", "Cannot load image: ",
      "Cannot read image data: "};
  if (fout.ok() || fout.number() != fout::kProgramError) return fout;
  for (const std::string_view begin : kLeesFouten) {
    if (StartsWith(fout.description(), begin)) {
      return Fout(foto_pad, "is beschadigd (" + fout.description() + ").");
    }
  }
  return fout;
}

Status FotoFout(const std::string& foto_pad, std::string_view jpeg, const Status& fout) {
  if (fout.ok()) return fout;
  const Status bestand = ToetsFotoBestand(foto_pad, jpeg);
  return bestand.ok() ? BeeldFout(foto_pad, fout) : bestand;
}

}  // namespace kiekbord
