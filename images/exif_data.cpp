#include "images/exif_data.h"

#include <libexif/exif-data.h>

#include <cstdlib>
#include <memory>

namespace kiekbord {
namespace {

struct ExifVrijgever {
  void operator()(ExifData* data) const { exif_data_unref(data); }
};
using ExifBlok = std::unique_ptr<ExifData, ExifVrijgever>;

constexpr std::string_view kExifKop("Exif\0\0", 6);
constexpr std::size_t kMaxSegment = 65535;

unsigned Byte(std::string_view jpeg, std::size_t pos) { return static_cast<unsigned char>(jpeg[pos]); }

struct Segment {
  std::size_t begin = std::string_view::npos;  // at its FF E1 marker
  std::size_t lengte = 0;                       // marker included
};

// The APP1 segment with the EXIF block, found by walking the segments up to
// the image data; begin is npos when there is none.
Segment ZoekExifSegment(std::string_view jpeg) {
  std::size_t pos = 2;
  while (pos + 4 <= jpeg.size() && Byte(jpeg, pos) == 0xFF) {
    const unsigned marker = Byte(jpeg, pos + 1);
    if (marker == 0xFF) {
      ++pos;
      continue;
    }
    if (marker == 0xDA || marker == 0xD9) break;
    const std::size_t lengte = 2 + (Byte(jpeg, pos + 2) << 8 | Byte(jpeg, pos + 3));
    if (pos + lengte > jpeg.size()) break;
    if (marker == 0xE1 && jpeg.substr(pos + 4, kExifKop.size()) == kExifKop) return {pos, lengte};
    pos += lengte;
  }
  return {};
}

// The block as libexif reads it, every field kept as stored: no fields added
// or "corrected", unknown ones kept, the maker's own notes left as they are.
ExifBlok LaadBlok(std::string_view jpeg, Segment segment) {
  ExifBlok blok(exif_data_new());
  if (!blok) return blok;
  exif_data_unset_option(blok.get(), EXIF_DATA_OPTION_IGNORE_UNKNOWN_TAGS);
  exif_data_unset_option(blok.get(), EXIF_DATA_OPTION_FOLLOW_SPECIFICATION);
  exif_data_set_option(blok.get(), EXIF_DATA_OPTION_DONT_CHANGE_MAKER_NOTE);
  const std::string_view inhoud = jpeg.substr(segment.begin + 4, segment.lengte - 4);
  exif_data_load_data(blok.get(), reinterpret_cast<const unsigned char*>(inhoud.data()),
                      static_cast<unsigned>(inhoud.size()));
  return blok;
}

bool HeeftVelden(ExifData* blok) {
  for (ExifContent* ifd : blok->ifd) {
    if (ifd->count > 0) return true;
  }
  return false;
}

ExifEntry* Veld(ExifData* blok, ExifIfd ifd, ExifTag tag) { return exif_content_get_entry(blok->ifd[ifd], tag); }

void ZetGetal(ExifData* blok, ExifEntry* veld, int waarde) {
  if (veld == nullptr || veld->components < 1 || veld->data == nullptr) return;
  const ExifByteOrder orde = exif_data_get_byte_order(blok);
  if (veld->format == EXIF_FORMAT_SHORT) exif_set_short(veld->data, orde, static_cast<ExifShort>(waarde));
  if (veld->format == EXIF_FORMAT_LONG) exif_set_long(veld->data, orde, static_cast<ExifLong>(waarde));
}

void MaakLeeg(ExifContent* ifd) {
  while (ifd->count > 0) exif_content_remove_entry(ifd, ifd->entries[ifd->count - 1]);
}

Status Fout(std::string beschrijving) { return Status::Error(fout::kProgramError, std::move(beschrijving)); }

}  // namespace

ExifGegevens LeesExif(std::string_view jpeg) {
  ExifGegevens gegevens;
  const Segment segment = ZoekExifSegment(jpeg);
  if (segment.begin == std::string_view::npos) return gegevens;
  const ExifBlok blok = LaadBlok(jpeg, segment);
  if (!blok || !HeeftVelden(blok.get())) return gegevens;
  gegevens.aanwezig = true;
  gegevens.gps = blok->ifd[EXIF_IFD_GPS]->count > 0;
  const ExifEntry* veld = Veld(blok.get(), EXIF_IFD_0, EXIF_TAG_ORIENTATION);
  if (veld != nullptr && veld->format == EXIF_FORMAT_SHORT && veld->components >= 1 && veld->data != nullptr) {
    const int waarde = exif_get_short(veld->data, exif_data_get_byte_order(blok.get()));
    if (waarde >= 1 && waarde <= 8) gegevens.orientatie = waarde;
  }
  return gegevens;
}

Status HerschrijfExif(std::string_view jpeg, const ExifWijziging& wijziging, std::string& uit) {
  const Segment segment = ZoekExifSegment(jpeg);
  if (segment.begin == std::string_view::npos) return Fout("No EXIF block");
  const ExifBlok blok = LaadBlok(jpeg, segment);
  if (!blok || !HeeftVelden(blok.get())) return Fout("Unreadable EXIF block");
  if (wijziging.rechtop) {
    ZetGetal(blok.get(), Veld(blok.get(), EXIF_IFD_0, EXIF_TAG_ORIENTATION), 1);
    ZetGetal(blok.get(), Veld(blok.get(), EXIF_IFD_EXIF, EXIF_TAG_PIXEL_X_DIMENSION), wijziging.breedte);
    ZetGetal(blok.get(), Veld(blok.get(), EXIF_IFD_EXIF, EXIF_TAG_PIXEL_Y_DIMENSION), wijziging.hoogte);
    // The embedded thumbnail still shows the photo as stored; a viewer that
    // showed it would show it turned, so it goes with the fields that
    // describe it.
    MaakLeeg(blok->ifd[EXIF_IFD_1]);
    std::free(blok->data);  // libexif's default allocator is malloc's
    blok->data = nullptr;
    blok->size = 0;
  }
  if (wijziging.zonder_gps) MaakLeeg(blok->ifd[EXIF_IFD_GPS]);

  unsigned char* opgeslagen = nullptr;
  unsigned int grootte = 0;
  exif_data_save_data(blok.get(), &opgeslagen, &grootte);
  const std::unique_ptr<unsigned char, decltype(&std::free)> bewaard(opgeslagen, &std::free);
  if (opgeslagen == nullptr || grootte == 0) return Fout("Cannot write the EXIF block");
  if (grootte + 2 > kMaxSegment) return Fout("EXIF block too large");
  const std::size_t lengte = grootte + 2;
  std::string nieuw(jpeg.substr(0, segment.begin));
  nieuw += {'\xFF', '\xE1', static_cast<char>(lengte >> 8), static_cast<char>(lengte & 0xFF)};
  nieuw.append(reinterpret_cast<const char*>(opgeslagen), grootte);
  nieuw += jpeg.substr(segment.begin + segment.lengte);
  uit = std::move(nieuw);
  return Status::Ok();
}

Status VoegExifToe(std::string_view jpeg, std::string_view blok, const ExifWijziging& wijziging, std::string& uit) {
  if (jpeg.size() < 2 || blok.substr(0, kExifKop.size()) != kExifKop) return Fout("No EXIF block");
  if (blok.size() + 2 > kMaxSegment) return Fout("EXIF block too large");
  const std::size_t lengte = blok.size() + 2;
  std::string met_blok(jpeg.substr(0, 2));
  met_blok += {'\xFF', '\xE1', static_cast<char>(lengte >> 8), static_cast<char>(lengte & 0xFF)};
  met_blok += blok;
  met_blok += jpeg.substr(2);
  return HerschrijfExif(met_blok, wijziging, uit);
}

}  // namespace kiekbord
