// The smooth library's photo operations (the library the log names
// "GDIplus", built on libvips and libjpeg-turbo): the thumbnail, the
// quarter-turn rotation and shrinking to an exact size, all scaling with a
// smoothing filter and none keeping the photo's metadata.
//
// Every file is read and written through Fs(); libvips works on buffers in
// memory. libvips is loaded and started on first use, once, from any
// thread; the usual thumbnail needs only libjpeg-turbo.
#pragma once

#include <string>
#include <string_view>

#include "base/failure_report.h"
#include "base/generation_log.h"
#include "base/status.h"
#include "images/thumbnail_work.h"

namespace kiekbord {

inline constexpr int kGdiThumbnailKwaliteit = 90;
inline constexpr int kGdiRoteerKwaliteit = 100;
inline constexpr int kHeifJpegKwaliteit = 92;

// The version of libvips ("8.14.1"), loaded for it if need be; "" when it
// cannot be loaded.
std::string VipsVersie();

// The quality of a shrink quality code: 0 gives 100, 1 gives 80, 2 gives
// 60, anything else 100.
int VerkleinKwaliteit(int kwaliteit_code);

// The temporary file of a photo: every ".jpg" replaced by "_tmp.jpg".
std::string TijdelijkPad(const std::string& foto_pad);

// The make half of GDIMaakThumb on the photo's bytes: scale to the
// thumbnail size and encode at quality 90. Writes nothing; safe on any
// thread.
ThumbnailWerk MaakGdiThumbnail(std::string_view jpeg, const std::string& thumb_pad);

// The finish half, on the calling thread: logs "Aanmaken (GDI) thumbnail
// ..." when the photo loaded and writes the thumbnail through Fs(). On a
// failure of either half it logs "Error: " + description, shows "Fout <n>
// tijdens aanmaken GDI thumbnail." + line break + "(<description>)" and
// returns error 26002 with that description, which ends the thumbnail run.
Status VoltooiGdiThumbnail(const ThumbnailWerk& werk, const std::string& thumb_pad, GenerationLog& log, FoutMelder& melder);

// Both halves for one photo.
Status GDIMaakThumb(const std::string& foto_pad, const std::string& thumb_pad, GenerationLog& log, FoutMelder& melder);

// Rotates the photo a quarter turn in place at quality 100 (anticlockwise
// when IsLinksom(richting)), after a backup when `maak_backup`. A photo with
// an orientation tag is turned as it is shown: upright first, then the
// quarter turn; the result has no tag. The result
// goes to the temporary file, which is then renamed over the photo, so a
// failure leaves the photo as it was. A failure is shown as "Fout <n>
// tijdens roteren foto (GDI)." + line break + "(<description>)" and
// returned; nothing is logged.
Status GDIRoteerImg(const std::string& foto_pad, std::string_view richting, bool maak_backup,
                    FoutMelder& melder);

// Replaces the photo by a copy of exactly breedte x hoogte pixels at the
// quality of `kwaliteit_code`, after a backup when `maak_backup`; the
// proportions are the caller's business. Failures as for rotation, with
// " tijdens verkleinen foto (GDI).".
Status GDIVerkleinImg(const std::string& foto_pad, int breedte, int hoogte, int kwaliteit_code,
                      bool maak_backup, FoutMelder& melder);

// A HEIC/HEIF photo (as phones take them) as a JPEG for the gallery:
// decoded with libvips' HEIF loader, upright as the file's own turn says,
// and encoded at quality 92. The photo's camera data comes along with
// orientation 1, the new size and no embedded thumbnail, and without its
// location when `zonder_locatie`; camera data that cannot be carried over is
// left out rather than kept unchanged. On failure returns error 26002
// ("Cannot load image: ..." for a file the loader refuses) and leaves `jpeg`
// alone.
Status HeifNaarJpeg(std::string_view heif, bool zonder_locatie, std::string& jpeg);

}  // namespace kiekbord
