// Small text helpers shared by the page writers, the script reader and the
// window: replace-all, list pieces, space collapsing, HTML escaping and the
// colour conversions between colour numbers and HTML colour text.
//
// Texts longer than 32767 characters are refused with a RunError (6,
// "Overflow"): positions and lengths in these helpers are 16-bit numbers, and
// the calling step's error handling reports the overflow.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kiekbord {

// Throws RunError(6) when `text` is longer than 32767 characters.
void CheckTextLength(std::string_view text);

// Every occurrence of `search` replaced by `replacement`, left to right;
// inserted text is never searched again. An empty `search` changes nothing.
std::string Vervang(std::string_view text, std::string_view search, std::string_view replacement);

// Piece n (from 1; n <= 1 gives the first) of a list separated by
// `separator`; the separator itself when the list has fewer than n pieces.
std::string Deel(int n, std::string_view separator, std::string_view list);

// Trimmed, with every run of spaces collapsed to one.
std::string EnkeleSpaties(std::string_view text);

// HTML escaping of a user text: "&", "<", ">", the double quote and the
// letters ç ã ê è é ë ï ö ü become entities, except where a backslash stands
// before them (the backslash is dropped, the character kept); the result is
// trimmed.
std::string HtmlTekst(std::string_view text);

// A colour number (red in the low byte) as six hex digits in HTML order;
// "#RRGGBB" passes without its "#"; anything else gives "". Throws RunError(6)
// for numbers outside the 32-bit range.
std::string KleurNaarHex(std::string_view colour);

// HTML colour text ("#FF0000", "ff0000", "F00" padded to "000F00") to a
// colour number, or `fallback` when it is no colour.
std::int32_t HexNaarKleur(std::string_view text, std::int32_t fallback);

// How often `character` occurs in `text`.
int TelTeken(std::string_view text, std::string_view character);

// A file name as a link target in a page ("src", "href", the slide show's
// name list): the characters that would end the attribute or the script
// string, or change what the link points to (quotes, "#", "?", "%", "&",
// "$", the backslash, "<", ">" and control characters) become "%" and two
// hex digits; all else, letters of any script included, stays as it is, so
// an ordinary name ("strand.jpg") is unchanged.
std::string BestandsLink(std::string_view naam);

// A user text as the value of a double-quoted attribute: the double quote,
// "<" and ">" become "&quot;", "&lt;" and "&gt;"; everything else, "&", the
// apostrophe and backslashes included, stays as it is, so an ordinary title
// ("Foto's van Jan & Piet") gives the same bytes as always.
std::string AttribuutTekst(std::string_view text);

// A user text inside a JavaScript string in a page's <script> block,
// whichever quote stands around it: the backslash and both quotes get a
// backslash before them, "<" becomes "\x3C" (so that neither "</script>"
// nor "<!--" can occur), line breaks, other control characters and the
// line and paragraph separators U+2028 and U+2029 become escapes. A text
// without any of these stays as it is.
std::string ScriptTekst(std::string_view text);

}  // namespace kiekbord
