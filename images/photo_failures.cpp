#include "images/photo_failures.h"

#include <array>

#include "base/text.h"
#include "images/jpeg_segments.h"

namespace kiekbord {
namespace {

enum class Gebrek { kGeen, kGeenJpeg, kGeenBeeld, kOnvolledig };

// Walks the segments as a decoder does, up to the start of the image data.
Gebrek GebrekVan(std::string_view jpeg) {
  if (!BeginsAsJpeg(jpeg)) return Gebrek::kGeenJpeg;
  switch (LoopSegmenten(jpeg, [](unsigned, std::size_t) { return false; }).marker) {
    case 0xDA: return Gebrek::kGeen;
    case 0xD9: return Gebrek::kGeenBeeld;
    default: return Gebrek::kOnvolledig;
  }
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
