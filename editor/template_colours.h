// What the chosen template set makes of the gallery's colours, so that the
// colour samples of step 3 show what the pages will show, and the set a new
// gallery starts with.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "gallery/gallery_script.h"

namespace kiekbord {

// The set a new gallery gets: "Klassiek" when it is there, otherwise the
// first; -1 when there is none.
inline constexpr std::string_view kStandaardSjabloon = "Klassiek";
int StandaardSjabloon(const std::vector<std::string>& sets);

// The text and fill colour of the two samples: the page (text on the
// background) and the photo frame (text in the frame).
struct VoorbeeldKleuren {
  std::int32_t pagina_tekst = 0;
  std::int32_t pagina_vulling = 0;
  std::int32_t kader_tekst = 0;
  std::int32_t kader_vulling = 0;
  bool operator==(const VoorbeeldKleuren&) const = default;
};

// The samples as the style sheet `css` (a set's "kb.css") shows `kleuren`.
// The page pair is the "color" and "background-color" of the "body" rule;
// the frame pair those of the first rule whose background is the frame
// colour or the text-in-frame colour. A declaration names a colour field
// ("#[KIEKBORDVELD=KLEURKADER]") or a fixed colour ("#336699"); a pair the
// sheet does not decide keeps the gallery's own colours.
VoorbeeldKleuren KleurenVanSet(std::string_view css, const GalleryScript& kleuren);

// The same for set `set` in `sjablonen_dir` (which ends in "/"), reading its
// "kb.css" through Fs(); the gallery's own colours when it cannot be read.
VoorbeeldKleuren KleurenVanSet(const std::string& sjablonen_dir, const std::string& set, const GalleryScript& kleuren);

}  // namespace kiekbord
