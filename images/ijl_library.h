// The pixel-buffer library's codec (the library the log names "IJL11",
// built on libjpeg-turbo): a JPEG file into a cDIBSection and back, and the
// codec's version number.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/status.h"
#include "images/pixel_buffer.h"

namespace kiekbord {

// Quality of every JPEG this library writes.
inline constexpr int kIjlKwaliteit = 90;

// Decodes the JPEG file at `path` (read through Fs()) into `buffer`, which
// is made anew at the image's size. On failure `buffer` may be empty and the
// status is the file's error (53 File not found, ...) or 26002 with "Failed
// to read JPG" (no readable header), "Cannot read Image Data from file."
// (undecodable data) or "Image too large: W x H pixels".
Status LoadJPG(cDIBSection& buffer, const std::string& path);
Status LoadJPGUitBytes(cDIBSection& buffer, std::string_view jpeg);

// Encodes `buffer` at `quality` and writes it to `path` through Fs(),
// replacing any file there. On failure the file is unchanged and the status
// is the file's error or 26002 with "Failed to save to JPG " + the codec's
// message.
Status SaveJPG(const cDIBSection& buffer, const std::string& path, int quality);
Status SaveJPGNaarBytes(const cDIBSection& buffer, int quality, std::string& jpeg);

// libjpeg-turbo's version number, e.g. 2001005 for 2.1.5.
std::int32_t IJLVersion();

}  // namespace kiekbord
