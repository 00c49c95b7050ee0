#include "images/turbo_jpeg.h"

#include <turbojpeg.h>

#include <cstddef>
#include <memory>
#include <new>
#include <vector>

#include "images/jpeg_segments.h"

namespace kiekbord {
namespace {

struct TjDestroyer {
  void operator()(void* handle) const { tjDestroy(handle); }
};
using TjHandle = std::unique_ptr<void, TjDestroyer>;

struct TjFreer {
  void operator()(unsigned char* buffer) const { tjFree(buffer); }
};
using TjBuffer = std::unique_ptr<unsigned char, TjFreer>;

const unsigned char* Bytes(std::string_view data) {
  return reinterpret_cast<const unsigned char*>(data.data());
}

Status TjFout(void* handle) {
  return Status::Error(fout::kProgramError, tjGetErrorStr2(handle));
}

// Where the frame header's marker stands, found by walking the segments;
// npos when the walk ends before one.
std::size_t FramePositie(std::string_view jpeg) {
  const SegmentStop stop = LoopSegmenten(jpeg, [](unsigned marker, std::size_t) { return IsFrameHeader(marker); });
  return IsFrameHeader(stop.marker) ? stop.pos : std::string_view::npos;
}

// The frame header's marker; 0 when there is none.
unsigned FrameMarker(std::string_view jpeg) {
  const std::size_t pos = FramePositie(jpeg);
  return pos == std::string_view::npos ? 0 : JpegByte(jpeg, pos + 1);
}

bool IsProgressiveMarker(unsigned marker) {
  return marker == 0xC2 || marker == 0xC6 || marker == 0xCA || marker == 0xCE;
}

// Coefficients per pixel over all components, times two for the chroma
// sharing of the subsampling modes.
int CoefficientsPerPixelTimesTwo(const JpegKop& kop) {
  if (kop.IsCmyk()) return 8;
  switch (kop.subsampling) {
    case TJSAMP_GRAY: return 2;
    case TJSAMP_420:
    case TJSAMP_411: return 3;
    case TJSAMP_422:
    case TJSAMP_440: return 4;
    default: return 6;
  }
}

int PixelFormat(const PixelVlak& vlak) {
  return vlak.volgorde == PixelVolgorde::kBgr ? TJPF_BGR : TJPF_RGB;
}

// Whether the file has Adobe's APP14 segment before its image data. Adobe's
// programs store CMYK and YCCK inverted (0 is full ink), and every common
// reader takes a file with that segment so.
bool HeeftAdobeSegment(std::string_view jpeg) {
  const auto adobe = [&jpeg](unsigned marker, std::size_t pos) {
    return marker == 0xEE && pos + 9 <= jpeg.size() && jpeg.substr(pos + 4, 5) == "Adobe";
  };
  return LoopSegmenten(jpeg, adobe).marker == 0xEE;
}

// A CMYK or YCCK JPEG: decoded to CMYK, then each pixel turned into RGB by
// taking away the ink (no colour profile; the black ink darkens all three).
Status DecodeerCmyk(void* handle, std::string_view jpeg, const PixelVlak& doel) {
  std::vector<std::uint8_t> cmyk;
  try {
    cmyk.resize(static_cast<std::size_t>(doel.breedte) * doel.hoogte * 4);
  } catch (const std::bad_alloc&) {
    return Status::Error(fout::kOutOfMemory);
  }
  if (tjDecompress2(handle, Bytes(jpeg), jpeg.size(), cmyk.data(), doel.breedte, doel.breedte * 4,
                    doel.hoogte, TJPF_CMYK, TJFLAG_LIMITSCANS) != 0 &&
      tjGetErrorCode(handle) != TJERR_WARNING) {
    return TjFout(handle);
  }
  const bool omgekeerd = HeeftAdobeSegment(jpeg);
  const auto licht = [omgekeerd](unsigned inkt, unsigned zwart) {
    if (!omgekeerd) {
      inkt = 255 - inkt;
      zwart = 255 - zwart;
    }
    return static_cast<std::uint8_t>((inkt * zwart + 127) / 255);
  };
  const bool bgr = doel.volgorde == PixelVolgorde::kBgr;
  for (int y = 0; y < doel.hoogte; ++y) {
    const std::uint8_t* bron = cmyk.data() + static_cast<std::size_t>(y) * doel.breedte * 4;
    const int rij = doel.onderste_rij_eerst ? doel.hoogte - 1 - y : y;
    std::uint8_t* uit = doel.pixels + static_cast<std::ptrdiff_t>(rij) * doel.pitch;
    for (int x = 0; x < doel.breedte; ++x, bron += 4, uit += 3) {
      const std::uint8_t r = licht(bron[0], bron[3]);
      const std::uint8_t g = licht(bron[1], bron[3]);
      const std::uint8_t b = licht(bron[2], bron[3]);
      uit[0] = bgr ? b : r;
      uit[1] = g;
      uit[2] = bgr ? r : b;
    }
  }
  return Status::Ok();
}

}  // namespace

Status ToetsBeeldMaat(int breedte, int hoogte) {
  if (std::int64_t{breedte} * hoogte <= kMaxBeeldpunten) return Status::Ok();
  return Status::Error(fout::kProgramError, "Image too large: " + std::to_string(breedte) + " x " +
                                                std::to_string(hoogte) + " pixels");
}

Status ToetsGeclaimdeMaat(std::string_view jpeg) {
  // Only a JPEG (FF D8 first) has a frame header to read; after its marker
  // come length (2 bytes), precision (1), height (2) and width (2).
  if (!BeginsAsJpeg(jpeg)) return Status::Ok();
  const std::size_t pos = FramePositie(jpeg);
  if (pos == std::string_view::npos || pos + 9 > jpeg.size()) return Status::Ok();
  const int hoogte = static_cast<int>(JpegByte(jpeg, pos + 5) << 8 | JpegByte(jpeg, pos + 6));
  const int breedte = static_cast<int>(JpegByte(jpeg, pos + 7) << 8 | JpegByte(jpeg, pos + 8));
  return ToetsBeeldMaat(breedte, hoogte);
}

bool JpegKop::IsCmyk() const { return kleurruimte == TJCS_CMYK || kleurruimte == TJCS_YCCK; }

Status LeesJpegKop(std::string_view jpeg, JpegKop& kop) {
  const TjHandle handle(tjInitDecompress());
  if (!handle) return TjFout(nullptr);
  int width = 0, height = 0, subsampling = 0, colorspace = 0;
  const int result = tjDecompressHeader3(handle.get(), Bytes(jpeg), jpeg.size(), &width, &height, &subsampling,
                                         &colorspace);
  // A warning (stray bytes before a marker, say) leaves a usable header;
  // whether the image decodes shows when it is decoded.
  const bool usable = result == 0 || tjGetErrorCode(handle.get()) == TJERR_WARNING;
  if (!usable || width <= 0 || height <= 0) return TjFout(handle.get());
  kop = JpegKop{width, height, subsampling, colorspace, IsProgressiveMarker(FrameMarker(jpeg))};
  return Status::Ok();
}

std::int64_t DecodeerWerkgeheugen(const JpegKop& kop) {
  if (!kop.progressief) return 0;
  return kop.Beeldpunten() * CoefficientsPerPixelTimesTwo(kop);
}

Schaal KiesSchaal(int breedte, int hoogte, int min_breedte, int min_hoogte) {
  int count = 0;
  const tjscalingfactor* factors = tjGetScalingFactors(&count);
  Schaal best;
  for (int i = 0; factors != nullptr && i < count; ++i) {
    const Schaal s{factors[i].num, factors[i].denom};
    if (s.teller > s.noemer) continue;  // no enlarging on load
    if (s.Pas(breedte) < min_breedte || s.Pas(hoogte) < min_hoogte) continue;
    if (std::int64_t{s.teller} * best.noemer < std::int64_t{best.teller} * s.noemer) best = s;
  }
  return best;
}

Status DecodeerJpeg(std::string_view jpeg, const PixelVlak& doel) {
  const TjHandle handle(tjInitDecompress());
  if (!handle) return TjFout(nullptr);
  int width = 0, height = 0, subsampling = 0, colorspace = 0;
  if (tjDecompressHeader3(handle.get(), Bytes(jpeg), jpeg.size(), &width, &height, &subsampling,
                          &colorspace) == 0 &&
      (colorspace == TJCS_CMYK || colorspace == TJCS_YCCK)) {
    return DecodeerCmyk(handle.get(), jpeg, doel);
  }
  // Progressive files with absurd numbers of scans are refused rather than
  // decoded for minutes.
  int flags = TJFLAG_LIMITSCANS;
  if (doel.onderste_rij_eerst) flags |= TJFLAG_BOTTOMUP;
  if (tjDecompress2(handle.get(), Bytes(jpeg), jpeg.size(), doel.pixels, doel.breedte, doel.pitch,
                    doel.hoogte, PixelFormat(doel), flags) != 0 &&
      tjGetErrorCode(handle.get()) != TJERR_WARNING) {
    return TjFout(handle.get());
  }
  return Status::Ok();
}

Status CodeerJpeg(const PixelVlak& bron, int kwaliteit, std::string& jpeg) {
  const TjHandle handle(tjInitCompress());
  if (!handle) return TjFout(nullptr);
  unsigned char* output = nullptr;
  unsigned long size = 0;
  const int flags = bron.onderste_rij_eerst ? TJFLAG_BOTTOMUP : 0;
  const int result = tjCompress2(handle.get(), bron.pixels, bron.breedte, bron.pitch, bron.hoogte,
                                 PixelFormat(bron), &output, &size, TJSAMP_420, kwaliteit, flags);
  const TjBuffer owned(output);
  if (result != 0) return TjFout(handle.get());
  jpeg.assign(reinterpret_cast<const char*>(owned.get()), size);
  return Status::Ok();
}

}  // namespace kiekbord
