// Decoding a photo for its thumbnail: libjpeg decodes it shrunk by a DCT
// scaling factor straight into a small RGB plane, and of a progressive
// photo shrunk to 1/8 it decodes only the scans that this scale reads.
//
// At 1/8 a full-resolution component (the brightness of a colour photo)
// is one pixel per 8 x 8 block, its average: the DC coefficient. Its other
// scans, most of a progressive file's bytes, are left out before decoding;
// the pixels come out as those of a decode of the whole file.
#pragma once

#include <string>
#include <string_view>

#include "base/status.h"
#include "images/turbo_jpeg.h"

namespace kiekbord {

// Decodes `jpeg`, not a CMYK or YCCK one, scaled by `schaal` into `doel`,
// whose size must be the scaled size, as RGB rows from the top. Damage the
// decoder works around (a truncated file, stray bytes) is tolerated; a
// progressive file of more than 500 scans is refused. On failure returns
// error 26002 with libjpeg's message.
Status DecodeerVoorThumbnail(std::string_view jpeg, Schaal schaal, const PixelVlak& doel);

// The bytes of a progressive JPEG without the scans of AC coefficients of
// its full-resolution components, which a decode at 1/8 never reads; from
// where its markers cannot be followed on, the bytes are kept as they are.
// Empty when `jpeg` is no progressive JPEG or has no such scan.
std::string ZonderOngelezenScans(std::string_view jpeg);

}  // namespace kiekbord
