// Photo sizes without decoding: the frame header of a JPEG file is found by
// walking its marker segments, and the size is handed around as a short size
// text ("640x480", "640x480!" when the frame header lies late in the file, or
// "Error") from which the width and height are taken back out.
#pragma once

#include <cstdint>
#include <optional>
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

// How far PaginaMaat reads into a file for a frame header that lies behind
// large segments (colour profiles, camera and thermal data).
inline constexpr std::int64_t kPaginaMaatLeesGrens = 64 * 1024 * 1024;

struct FotoMaat {
  int breedte = 0;
  int hoogte = 0;
};

// A photo's size for the width and height attributes of a page: the size
// of its size text when that has one; otherwise the frame header that a
// walk over the file's segments finds further on (reading at most
// kPaginaMaatLeesGrens bytes, a side of one pixel accepted). Nothing when
// the size stays unknown (no frame header, not a JPEG, no file): the page
// then gives the image no size.
std::optional<FotoMaat> PaginaMaat(const std::string& path);

}  // namespace kiekbord
