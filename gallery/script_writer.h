// Writing the gallery record as a script: `ScriptSchrijven`.
//
// The script's line table is rebuilt from nothing on every write, in a fixed
// order: "[Kiekbord]" (date of writing, version, the do-not-edit remark),
// "[Algemeen]", one "[FotoNNN]" section per photo, "[Instellingen]". Every
// entry is "key=value" without blanks around "="; values are written as they
// stand, except that photo names are lower-cased, the description's line
// breaks become "<br>", and a line break in any other field becomes a blank.
// The caller saves the table with `SchrijfRegels`.
#pragma once

#include <chrono>
#include <cstddef>

#include "gallery/gallery_script.h"
#include "base/line_table.h"
#include "base/status.h"

namespace kiekbord {

// The lines a script of `aantal_fotos` photos takes: 28 fixed lines (headers
// included), one more with the "Webformaat" key, and 3 per photo. The
// script's own table (1024 lines) therefore holds at most 332 photos, well
// above the program's limit of 300.
std::size_t RegelsVoorScript(std::size_t aantal_fotos, bool met_webformaat = false);

// Fills `tabel` with the script of `script`, dated `aanmaakdatum` (written as
// the Dutch long date). On success the table holds exactly the script's lines
// and nothing of what it held before.
// Fails with error 9 (Subscript out of range) when the script needs more
// lines than the table can hold; the table is then left as it was, and the
// caller must not save it.
Status ScriptSchrijven(const GalleryScript& script, const std::chrono::year_month_day& aanmaakdatum,
                       LineTable& tabel);

}  // namespace kiekbord
