#include "images/thumbnail_decode.h"

// jpeglib.h needs the C library's FILE and size_t declared first.
#include <cstdio>
#include <csetjmp>
#include <cstring>

#include <jpeglib.h>

#include <algorithm>
#include <array>

#include "images/jpeg_segments.h"

namespace kiekbord {
namespace {

// As many as libjpeg-turbo's own decoder allows with its scan limit on.
constexpr int kMaxScans = 500;

// libjpeg's error manager, extended with the way back to the decode and
// the message of the failure. Plain C data: it lives across the jump.
struct Fouten {
  jpeg_error_mgr mgr;  // first, so libjpeg's pointer to it is one to this
  std::jmp_buf terug;
  char bericht[JMSG_LENGTH_MAX];
};

[[noreturn]] void FoutTerug(j_common_ptr cinfo) {
  auto* fouten = reinterpret_cast<Fouten*>(cinfo->err);
  (*cinfo->err->format_message)(cinfo, fouten->bericht);
  std::longjmp(fouten->terug, 1);
}

// Warnings (a truncated file, stray bytes) leave an image; they are not
// printed.
void GeenUitvoer(j_common_ptr) {}

void TelScans(j_common_ptr cinfo) {
  if (reinterpret_cast<j_decompress_ptr>(cinfo)->input_scan_number <= kMaxScans) return;
  auto* fouten = reinterpret_cast<Fouten*>(cinfo->err);
  std::snprintf(fouten->bericht, sizeof fouten->bericht, "Progressive JPEG image has more than %d scans", kMaxScans);
  std::longjmp(fouten->terug, 1);
}

// A decoder's state: plain C data, outside the function that jumps back on
// an error, so nothing it holds is left undefined by the jump.
struct Decoder {
  jpeg_decompress_struct cinfo;
  jpeg_progress_mgr voortgang;
  Fouten fouten;
};

// The whole decode, with only C data in scope: a failure jumps back into
// this function, and no C++ object is skipped on the way.
bool Decodeer(Decoder* d, const unsigned char* data, unsigned long size, Schaal schaal, const PixelVlak* doel) {
  j_decompress_ptr cinfo = &d->cinfo;
  d->voortgang.progress_monitor = TelScans;
  cinfo->err = jpeg_std_error(&d->fouten.mgr);
  d->fouten.mgr.error_exit = FoutTerug;
  d->fouten.mgr.output_message = GeenUitvoer;
  if (setjmp(d->fouten.terug) != 0) return false;
  jpeg_create_decompress(cinfo);
  cinfo->progress = &d->voortgang;
  jpeg_mem_src(cinfo, data, size);
  jpeg_read_header(cinfo, TRUE);
  cinfo->scale_num = static_cast<unsigned>(schaal.teller);
  cinfo->scale_denom = static_cast<unsigned>(schaal.noemer);
  cinfo->out_color_space = JCS_RGB;
  // Smoothing makes up the coefficients a file leaves out; those left out
  // on purpose are never read at this scale.
  cinfo->do_block_smoothing = FALSE;
  jpeg_start_decompress(cinfo);
  if (static_cast<int>(cinfo->output_width) != doel->breedte ||
      static_cast<int>(cinfo->output_height) != doel->hoogte) {
    std::snprintf(d->fouten.bericht, sizeof d->fouten.bericht, "Unexpected size after scaling");
    return false;
  }
  while (cinfo->output_scanline < cinfo->output_height) {
    JSAMPROW rij = doel->pixels + static_cast<std::ptrdiff_t>(cinfo->output_scanline) * doel->pitch;
    jpeg_read_scanlines(cinfo, &rij, 1);
  }
  return true;
}

bool IsRestart(unsigned marker) { return marker >= 0xD0 && marker <= 0xD7; }

// Where the image data of a scan that starts at `pos` ends: at the next
// marker that is no restart marker, or at the end of the bytes.
std::size_t EindeVanData(std::string_view jpeg, std::size_t pos) {
  for (; pos + 1 < jpeg.size(); ++pos) {
    if (JpegByte(jpeg, pos) != 0xFF) continue;
    const unsigned volgend = JpegByte(jpeg, pos + 1);
    if (volgend != 0x00 && volgend != 0xFF && !IsRestart(volgend)) return pos;
  }
  return jpeg.size();
}

// Per component identifier: whether it has the frame's full resolution.
using VolleResolutie = std::array<bool, 256>;

// Reads the progressive frame header at `pos`; false when it is none or
// is cut off.
bool LeesProgressiefFrame(std::string_view jpeg, std::size_t pos, VolleResolutie& vol) {
  if (JpegByte(jpeg, pos + 1) != 0xC2 || pos + 10 > jpeg.size()) return false;
  const std::size_t aantal = JpegByte(jpeg, pos + 9);
  if (pos + 10 + 3 * aantal > jpeg.size()) return false;
  unsigned max_h = 0, max_v = 0;
  for (std::size_t i = 0; i < aantal; ++i) {
    const unsigned hv = JpegByte(jpeg, pos + 11 + 3 * i);
    max_h = std::max(max_h, hv >> 4);
    max_v = std::max(max_v, hv & 15);
  }
  vol.fill(false);
  for (std::size_t i = 0; i < aantal; ++i) {
    const unsigned hv = JpegByte(jpeg, pos + 11 + 3 * i);
    vol[JpegByte(jpeg, pos + 10 + 3 * i)] = (hv >> 4) == max_h && (hv & 15) == max_v;
  }
  return true;
}

// Whether the scan whose header is at `pos` holds coefficients a decode at
// 1/8 reads: DC ones, or any of a component of less than full resolution
// (such a component is decoded at a larger scale). Kept when its header
// is cut off.
bool ScanNodig(std::string_view jpeg, std::size_t pos, const VolleResolutie& vol) {
  if (pos + 5 > jpeg.size()) return true;
  const std::size_t aantal = JpegByte(jpeg, pos + 4);
  const std::size_t spectrum = pos + 5 + 2 * aantal;
  if (spectrum >= jpeg.size()) return true;
  if (JpegByte(jpeg, spectrum) == 0) return true;
  for (std::size_t i = 0; i < aantal; ++i) {
    if (!vol[JpegByte(jpeg, pos + 5 + 2 * i)]) return true;
  }
  return false;
}

}  // namespace

std::string ZonderOngelezenScans(std::string_view jpeg) {
  if (!BeginsAsJpeg(jpeg)) return {};
  const SegmentStop frame = LoopSegmenten(jpeg, [](unsigned marker, std::size_t) { return IsFrameHeader(marker); });
  VolleResolutie vol;
  if (!IsFrameHeader(frame.marker) || !LeesProgressiefFrame(jpeg, frame.pos, vol)) return {};
  std::size_t pos = LoopSegmenten(jpeg, [](unsigned, std::size_t) { return false; }).pos;
  std::string uit(jpeg.substr(0, pos));
  bool weggelaten = false;
  while (pos + 3 < jpeg.size() && JpegByte(jpeg, pos) == 0xFF) {
    const unsigned marker = JpegByte(jpeg, pos + 1);
    if (marker == 0xD9) break;
    const std::size_t lengte = JpegByte(jpeg, pos + 2) << 8 | JpegByte(jpeg, pos + 3);
    std::size_t einde = pos + 2 + lengte;
    if (lengte < 2 || einde > jpeg.size()) break;
    if (marker == 0xDA) {
      einde = EindeVanData(jpeg, einde);
      if (!ScanNodig(jpeg, pos, vol)) {
        weggelaten = true;
        pos = einde;
        continue;
      }
    }
    uit.append(jpeg.substr(pos, einde - pos));
    pos = einde;
  }
  if (!weggelaten) return {};
  uit.append(jpeg.substr(pos));
  return uit;
}

Status DecodeerVoorThumbnail(std::string_view jpeg, Schaal schaal, const PixelVlak& doel) {
  const std::string gefilterd = schaal.teller * 8 == schaal.noemer ? ZonderOngelezenScans(jpeg) : std::string();
  const std::string_view bron = gefilterd.empty() ? jpeg : std::string_view(gefilterd);
  Decoder decoder;
  std::memset(&decoder, 0, sizeof decoder);
  const bool gelukt =
      Decodeer(&decoder, reinterpret_cast<const unsigned char*>(bron.data()), bron.size(), schaal, &doel);
  jpeg_destroy_decompress(&decoder.cinfo);
  if (gelukt) return Status::Ok();
  return Status::Error(fout::kProgramError, decoder.fouten.bericht);
}

}  // namespace kiekbord
