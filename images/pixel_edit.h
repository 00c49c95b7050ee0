// The pixel-buffer library's photo operations: the point-sampled thumbnail
// and the quarter-turn rotation, done pixel by pixel on cDIBSection buffers.
#pragma once

#include <string>
#include <string_view>

#include "base/failure_report.h"
#include "base/generation_log.h"
#include "base/status.h"
#include "images/pixel_buffer.h"
#include "images/thumbnail_work.h"

namespace kiekbord {

// Point sampling with divisor d into `doel` (already made at the thumbnail
// size): target pixel (tx, ty) takes source pixel (tx x d, ty x d); samples
// outside either buffer are left out, nothing is averaged.
void PuntThumbnail(const cDIBSection& bron, cDIBSection& doel, int d);

// A quarter turn of `bron` into `doel`, made anew at H x W. Anticlockwise
// (`links`): source (x, y) goes to (y, W - 1 - x); clockwise: to
// (H - 1 - y, x). False when `doel` cannot be made.
bool RoteerPixels(const cDIBSection& bron, cDIBSection& doel, bool links);

// `bron`, stored as the camera's orientation tag `orientatie` (2..8) says,
// turned and/or mirrored upright into `doel`, made anew (H x W for 5..8).
// False when `doel` cannot be made.
bool RechtopPixels(const cDIBSection& bron, cDIBSection& doel, int orientatie);

// True when the first five characters of `richting`, lower-cased, are
// "links" (a quarter turn anticlockwise).
bool IsLinksom(std::string_view richting);

// The make half of IJLMaakThumb on the photo's bytes: decode, sample, encode
// at quality 90. Writes nothing.
ThumbnailWerk MaakIjlThumbnail(std::string_view jpeg, const std::string& thumb_pad);

// The finish half, on the calling thread: logs "Aanmaken (IJL) thumbnail
// ..." when the photo loaded, writes the thumbnail through Fs(). A failure
// of either half is logged (its description alone) and shown as "Fout <n>
// tijdens aanmaken IJL thumbnail.(<description>)", and not passed on: the
// returned status is for the caller's information only.
Status VoltooiIjlThumbnail(const ThumbnailWerk& werk, const std::string& thumb_pad, GenerationLog& log, FoutMelder& melder);

// Both halves for one photo.
Status IJLMaakThumb(const std::string& foto_pad, const std::string& thumb_pad, GenerationLog& log, FoutMelder& melder);

// Rotates the photo a quarter turn in place at quality 90, after a backup
// when `maak_backup`. A photo with an orientation tag is turned as it is
// shown: upright first, then the quarter turn; the result has no tag. The turned image is written to path + "_tmp", which is
// then renamed over the photo in one step, so a failure leaves the photo as
// it was. A failure is shown as "Fout <n> tijdens roteren foto.(<description>)"
// and returned; nothing is logged.
Status IJLRoteerImg(const std::string& foto_pad, std::string_view richting, bool maak_backup,
                    FoutMelder& melder);

}  // namespace kiekbord
