#include "images/thumbnail_work.h"

#include <algorithm>

namespace kiekbord {
namespace {

// n / d rounded to the nearest whole number, halves to the even neighbour.
int DivideRoundingHalfToEven(int n, int d) {
  const int quotient = n / d;
  const int twice_remainder = 2 * (n % d);
  if (twice_remainder > d) return quotient + 1;
  if (twice_remainder == d) return quotient + (quotient % 2);
  return quotient;
}

}  // namespace

int ThumbnailDeler(int breedte, int hoogte, int grens) {
  int d = 1;
  while (breedte / d > grens || hoogte / d > grens) ++d;
  return d;
}

ThumbnailMaat BerekenThumbnailMaat(int breedte, int hoogte, int grens) {
  const int d = ThumbnailDeler(breedte, hoogte, grens);
  // A sliver of a photo (10000 x 10) still gets a visible thumbnail.
  return {std::max(1, DivideRoundingHalfToEven(breedte, d)),
          std::max(1, DivideRoundingHalfToEven(hoogte, d))};
}

}  // namespace kiekbord
