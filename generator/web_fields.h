// The page fields of the "Webformaat" setting: the attributes that let a
// browser pick a web-sized copy of a photo ("srcset", "sizes", lazy
// loading), the aspect ratios that keep a page from jumping while photos
// load, the photo page's title, the title page's cover photo and the
// slideshow's data block. Without the setting none of this is used and the
// pages are as they always were.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "generator/site_run.h"
#include "images/photo_properties.h"

namespace kiekbord {

// What the browser is told of a photo's width on the page, when the template
// set's "sjabloon.ini" does not say it in "[Webformaat]" ("FotoSizes",
// "OmslagSizes").
inline constexpr std::string_view kStandaardSizes = "(max-width: 1000px) 100vw, 1000px";

// Reads "FotoSizes" and "OmslagSizes" of section "[Webformaat]" of the set's
// "sjabloon.ini" into `g`; a missing file or key gives kStandaardSizes.
void LeesWebSizes(SiteGegevens& g);

// The copies of photo `naam` (a file of `uitvoer_dir`) that exist, as a
// "srcset" value with each copy's real width: "a_w800.jpg 800w,
// a_w1600.jpg 1600w". The photo itself comes last when no 1600 copy stands
// in for it. Empty when no copy exists or the size is unknown.
std::string FotoSrcset(const std::string& uitvoer_dir, const std::string& naam,
                       const std::optional<FotoMaat>& maat);

// The thumbnail's "srcset": "a_tn.jpg 1x, a_tn2.jpg 2x", or empty without a
// double-density thumbnail.
std::string MiniSrcset(const std::string& uitvoer_dir, const std::string& thumbnail);

// The attributes a photo's <img> gains, each with a leading space: srcset and
// sizes (when `srcset` is not empty; `sizes` empty leaves it out), lazy
// loading unless `eerste` (the first photo of a page) and async decoding.
std::string WebAttributen(const std::string& srcset, const std::string& sizes, bool eerste);

// "W / H" for CSS aspect-ratio; empty when the size is unknown.
std::string Verhouding(const std::optional<FotoMaat>& maat);

// The photo page's title: "Foto 3: caption" (the caption without tags,
// escaped for text; "Foto 3" without one) for a page of one photo, "Foto's
// 5-8" for a page of several.
std::string PaginaTitelVan(int eerste, int laatste, std::string_view bijschrift);

// The slideshow's data: a JSON array with per photo "src", "srcset",
// "breedte", "hoogte" (0 when unknown), "bijschrift" (as written) and
// "origineel", escaped so that it can stand inside a <script> element
// whatever the captions hold.
std::string DiaGegevens(const SiteGegevens& g);

// The title page's cover: an <img> of the first photo with srcset, sizes,
// size and alt attributes, not lazy; empty without photos.
std::string OmslagFoto(const SiteGegevens& g);

// A text as a JSON string, quotes included, with "<", ">", "&" and the line
// separators U+2028 and U+2029 written as escapes.
std::string JsonTekst(std::string_view tekst);

}  // namespace kiekbord
