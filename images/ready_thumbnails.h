// Thumbnails made ahead of the thumbnail run. With "Webformaat" the web-copy
// run decodes every changed photo anyway; from that decode it also makes
// the photo's thumbnail (same size rule, filter and quality as the thumbnail
// run) and leaves it here, so the thumbnail run of the same generation takes
// it instead of decoding the photo a second time. A thumbnail is handed out
// only while its photo still has the length and time it was made from.
#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <string>

#include "base/file_system.h"

namespace kiekbord {

class KlareThumbnails {
 public:
  void Bewaar(const std::string& foto_pad, const FileInfo& foto, std::string jpeg);

  // The thumbnail made from the photo as it is now, taken out of the store;
  // nothing when none was made or the photo changed since.
  std::optional<std::string> Neem(const std::string& foto_pad);

 private:
  struct Klaar {
    std::int64_t grootte = 0;
    std::int64_t tijd_ns = 0;
    std::string jpeg;
  };
  std::mutex mutex_;
  std::map<std::string, Klaar> per_foto_;
};

}  // namespace kiekbord
