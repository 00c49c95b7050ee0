// Keyed text files: scripts, settings, template descriptions and thumbnail
// lists.
//
// A file is read whole into a line table, looked up and changed in memory and
// written back whole. The format is INI-like with rules of its own: no
// comment syntax, no trimming around "=", lines before the first header
// belong to the section "leeg", lines of two characters or fewer are never
// keys, the first match wins, and a key ending in "*" enumerates matching
// lines through one program-wide cursor.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/line_table.h"
#include "base/status.h"

namespace kiekbord {

// The longest line kept, in bytes (64 KiB, twice the 32,767 characters a
// text may have anyway): a longer line is cut to its first kMaxRegelBytes
// bytes (less a character the cut would split) and the rest of it is skipped.
inline constexpr std::size_t kMaxRegelBytes = 65536;

// Reads a file into `table`: lines trimmed of spaces, empty ones dropped
// unless `keep_empty`, at most capacity() lines, each cut at
// kMaxRegelBytes. Reading stops when the table is full, so memory follows
// the table, never the file's size: a file of any size costs at most
// capacity() * kMaxRegelBytes. Whether the text is UTF-8 or Windows-1252 is
// decided on the lines kept. The count slot gets the number of lines stored;
// on failure it gets "%Error <n> <description>" and the returned status says
// the same.
Status LeesRegels(const std::string& path, LineTable& table, bool keep_empty);

// The same on bytes already in memory (never fails).
void LeesRegelsUitTekst(std::string_view bytes, LineTable& table, bool keep_empty);

// Writes lines 1..Count() of `table`, each ended by CR LF, replacing the
// file. On failure the count slot gets the "%Error" text.
Status SchrijfRegels(const std::string& path, LineTable& table);

// The value of `key` in `section`, or `default_value`. A key of two or more
// characters ending in "*" is one step of an enumeration: each call with the
// same key returns the rest of the next matching line after the prefix
// ("img_1.jpg=Strand" for "Foto:*"), until the default comes back.
std::string LeesWaarde(const LineTable& table, std::string_view section, std::string_view key,
                       std::string_view default_value);

// Sets `key` in `section` to `value`: an existing line is replaced in place,
// a new key becomes the last line of its section, a new section is added at
// the end. Fails with error 9 (table unchanged) when the table has no room.
Status SchrijfWaarde(LineTable& table, std::string_view section, std::string_view key,
                     std::string_view value);

// Restarts every enumeration (tests and fuzzing start from a known state).
void ResetWildcardCursor();

}  // namespace kiekbord
