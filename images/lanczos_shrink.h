// Shrinking an RGB plane to an exact size with a Lanczos-3 filter, for the
// smooth library's thumbnails: the plane comes from a decode that already
// shrank the photo by DCT scaling to a few times the thumbnail's size, so
// this is the small last step. Plain code on the caller's thread: no
// library to start, no lock shared with other workers.
#pragma once

#include <cstdint>
#include <vector>

#include "images/thumbnail_work.h"

namespace kiekbord {

// Shrinks (or enlarges) `rgb`, breedte x hoogte pixels of three bytes each
// in packed rows, to exactly `maat` with a Lanczos-3 filter whose support
// widens with the scale, so every source pixel counts. Returns the packed
// result, maat.breedte x maat.hoogte x 3 bytes; both sizes must be at least
// 1 and `rgb` must hold the whole plane. `lobes` 2 instead of 3 costs about
// a third less, for large copies that are sharpened afterwards anyway.
std::vector<std::uint8_t> VerkleinLanczos(const std::vector<std::uint8_t>& rgb, int breedte, int hoogte,
                                          ThumbnailMaat maat, int lobes = 3);

}  // namespace kiekbord
