#include "images/ijl_library.h"

#include <jconfig.h>

#include "base/file_system.h"
#include "images/photo_failures.h"
#include "images/turbo_jpeg.h"

namespace kiekbord {
namespace {

Status IjlFout(std::string description) {
  return Status::Error(fout::kProgramError, std::move(description));
}

PixelVlak VlakVan(const cDIBSection& buffer) {
  // The encoder only reads through the pointer.
  return PixelVlak{const_cast<std::uint8_t*>(buffer.DIBSectionBitsPtr()), buffer.Width(),
                   buffer.Height(), buffer.BytesPerScanLine(), PixelVolgorde::kBgr, true};
}

}  // namespace

Status LoadJPGUitBytes(cDIBSection& buffer, std::string_view jpeg) {
  buffer.ClearUp();
  Status status = ToetsGeclaimdeMaat(jpeg);
  if (!status.ok()) return status;
  JpegKop kop;
  if (!LeesJpegKop(jpeg, kop).ok()) return IjlFout("Failed to read JPG");
  status = ToetsBeeldMaat(kop.breedte, kop.hoogte);
  if (!status.ok()) return status;
  if (!buffer.Create(kop.breedte, kop.hoogte)) return Status::Error(fout::kOutOfMemory);
  if (!DecodeerJpeg(jpeg, VlakVan(buffer)).ok()) {
    buffer.ClearUp();
    return IjlFout("Cannot read Image Data from file.");
  }
  return Status::Ok();
}

Status LoadJPG(cDIBSection& buffer, const std::string& path) {
  std::string jpeg;
  const Status read = Fs().ReadFile(path, jpeg);
  if (!read.ok()) {
    buffer.ClearUp();
    return read;
  }
  return FotoFout(path, jpeg, LoadJPGUitBytes(buffer, jpeg));
}

Status SaveJPGNaarBytes(const cDIBSection& buffer, int quality, std::string& jpeg) {
  const Status status = CodeerJpeg(VlakVan(buffer), quality, jpeg);
  if (!status.ok()) return IjlFout("Failed to save to JPG " + status.description());
  return Status::Ok();
}

Status SaveJPG(const cDIBSection& buffer, const std::string& path, int quality) {
  std::string jpeg;
  const Status status = SaveJPGNaarBytes(buffer, quality, jpeg);
  if (!status.ok()) return status;
  return Fs().WriteFile(path, jpeg);
}

std::int32_t IJLVersion() { return LIBJPEG_TURBO_VERSION_NUMBER; }

}  // namespace kiekbord
