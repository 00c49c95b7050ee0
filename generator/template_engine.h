// Templates: reading a template into a line table with its structural tags
// on lines of their own, and filling the field markers
// ("[KIEKBORDVELD=NAAM]") of one line.
#pragma once

#include <string>
#include <string_view>

#include "base/line_table.h"
#include "base/status.h"

namespace kiekbord {

// Reads a template: lines trimmed, empty lines and template comments
// ("<!-- ... SJABLOON ... -->") dropped, and "<HEAD ...>", "</HEAD>",
// "<BODY ...>" and "</BODY>" (the first of each, in that order) each put at
// the start of a line of its own, a tag split over lines joined into one.
// On failure slot 0 holds "%Error <n> <description>" and so does the status.
// Lines are first kept or dropped by WebRegels.
Status LeesSjabloon(const std::string& path, LineTable& table, bool webformaat = false);

// The same on bytes already in memory.
Status LeesSjabloonUitTekst(std::string_view bytes, LineTable& table, bool webformaat = false);

// The template lines for a gallery with or without "Webformaat": a line
// that begins (after blanks) with "<!--WEB-->" or "/*WEB*/" is kept, the
// marker removed, only with it; one that begins with "<!--GEENWEB-->" or
// "/*GEENWEB*/" only without it. Every other byte stays as it is.
std::string WebRegels(std::string_view bytes, bool webformaat);

// True when `name` is a text field, whose values are the user's own texts
// and are escaped for where they stand.
bool IsTekstVeld(std::string_view name);

// Where a position in a page line stands: in the page text, inside a tag
// (an attribute value) or in a <script> block.
enum class VeldPlaats { kTekst, kAttribuut, kScript };

// The place of byte `pos` of `line`; `in_script` says whether the line
// begins inside a <script> block.
VeldPlaats PlaatsInRegel(std::string_view line, std::size_t pos, bool in_script);

// Whether a <script> block is open at the end of `line`.
bool ScriptOpenNa(std::string_view line, bool in_script);

// Fills every marker of field `name` (upper case) in `line` with `value`.
// Values of text fields are escaped for the marker's place: with HtmlTekst
// in the page text (a "<br>" in the description survives), with
// AttribuutTekst inside a tag and with ScriptTekst in a script block (the
// line begins inside one when `in_script` is set). A marker with an addend ("FOTONUMMER+1") adds it to
// a numeric value for the rest of the line. Inserted values are never
// searched for markers again. Throws RunError(6) on a line longer than 32767
// characters.
void VervangVeld(std::string& line, std::string_view name, std::string_view value,
                 bool in_script = false);

}  // namespace kiekbord
