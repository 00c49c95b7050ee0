// Photo sizes for the pages, each read once per version of the file. With
// "Webformaat" a photo's size is asked by the title page, the overview and
// the photo pages, and every answer reads up to 256 KiB of the photo; a
// rerun with nothing to make would spend most of its time on that.
#pragma once

#include <optional>
#include <string>

#include "base/file_system.h"
#include "images/photo_properties.h"

namespace kiekbord {

// PaginaMaat(path), from memory while the file keeps the length, time and
// identity it had when it was read.
std::optional<FotoMaat> BewaardePaginaMaat(const std::string& path);

// Keeps `maat` as the size of `path` while it has the state `info`: a size
// already known from elsewhere (the web copies' list).
void BewaarPaginaMaat(const std::string& path, const FileInfo& info, FotoMaat maat);

// Forgets every size: a run starts with none.
void VergeetPaginaMaten();

}  // namespace kiekbord
