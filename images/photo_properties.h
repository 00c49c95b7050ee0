// Photo sizes without decoding: the frame header of a JPEG file is found by
// walking its marker segments, and the size is handed around as a short size
// text ("640x480", "640x480!" when the frame header lies late in the file, or
// "Error") from which the width and height are taken back out.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kiekbord {

// The file's first bytes that the size scan reads: 256 KiB plus one byte.
inline constexpr std::int64_t kAfmetingenLeesGrens = 262144 + 1;

// The size text of the JPEG file at `path`: "WxH", "WxH!" or "Error". Reads
// at most kAfmetingenLeesGrens bytes through Fs(); never fails outward (a
// missing or unreadable file gives "Error").
std::string BepaalAfmetingen(const std::string& path);

// The same scan on bytes already read: `begin` holds the file's first bytes,
// at most kAfmetingenLeesGrens of them (fewer means that is the whole file).
std::string AfmetingenUitBytes(std::string_view begin);

// The width in a size text: the number before the first "x" (or "X"), 0 when
// there is no "x" or no number.
std::int16_t BreedteVanAfmetingen(std::string_view afmetingen);

// The height in a size text: the number after the first "x", a trailing "!"
// left out; 0 when nothing follows the "x" ("Error" gives 0 too).
std::int16_t HoogteVanAfmetingen(std::string_view afmetingen);

}  // namespace kiekbord
