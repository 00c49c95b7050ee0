// Photo sizes for the pages of one run, each read once per version of the
// file. With "Webformaat" a photo's size is asked by the title page, the
// overview and the photo pages, and every answer would read up to 256 KiB
// of the photo; the web copies' list also tells sizes it already knows, so
// a rerun with nothing to make reads no photo.
#pragma once

#include <map>
#include <mutex>
#include <optional>
#include <string>

#include "base/file_system.h"
#include "images/photo_properties.h"

namespace kiekbord {

class FotoMaten {
 public:
  // PaginaMaat(path), from memory while the file keeps the length, time and
  // identity it had when it was read or told.
  std::optional<FotoMaat> Van(const std::string& path);

  // Keeps `maat` as the size of `path` while it has the state `info`.
  void Bewaar(const std::string& path, const FileInfo& info, FotoMaat maat);

 private:
  struct Bewaard {
    FileInfo info;
    std::optional<FotoMaat> maat;
  };
  std::mutex mutex_;
  std::map<std::string, Bewaard> bewaard_;
};

}  // namespace kiekbord
