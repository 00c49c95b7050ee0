// What both image libraries share for thumbnails: the size rule and the
// result of a thumbnail made in memory.
//
// A thumbnail is made in two halves so the thumbnail run can spread the
// costly half over all cores and still write and log in gallery order: the
// library's make step reads and scales the photo into a ThumbnailWerk
// without writing anything, and its finish step logs, writes the file and
// reports a failure, on the calling thread.
#pragma once

#include <string>

#include "base/status.h"

namespace kiekbord {

inline constexpr int kThumbnailGrens = 150;

struct ThumbnailMaat {
  int breedte = 0;
  int hoogte = 0;
  friend bool operator==(const ThumbnailMaat&, const ThumbnailMaat&) = default;
};

// The divisor of a width x height photo: the smallest d >= 1 for which the
// whole parts of width / d and height / d are both at most `grens` (150 for
// the thumbnail, 300 for the double-density one).
int ThumbnailDeler(int breedte, int hoogte, int grens = kThumbnailGrens);

// The thumbnail's size: width / d and height / d, each rounded to the
// nearest whole number with halves to the even neighbour (so 753 wide gives
// 151). A side that would round to 0 is made 1 pixel.
ThumbnailMaat BerekenThumbnailMaat(int breedte, int hoogte, int grens = kThumbnailGrens);

// A thumbnail made in memory and not yet written.
struct ThumbnailWerk {
  // The log line the library writes once the photo has been loaded; empty
  // when loading failed.
  std::string aanmaak_regel;
  // Ok, or the failure of loading, scaling or encoding.
  Status fout;
  // The encoded thumbnail when `fout` is ok.
  std::string jpeg;
};

}  // namespace kiekbord
