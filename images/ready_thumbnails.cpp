#include "images/ready_thumbnails.h"

#include <utility>

namespace kiekbord {

void KlareThumbnails::Bewaar(const std::string& foto_pad, const FileInfo& foto, std::string jpeg) {
  const std::lock_guard<std::mutex> lock(mutex_);
  per_foto_[foto_pad] = Klaar{foto.size, foto.modified_ns, std::move(jpeg)};
}

std::optional<std::string> KlareThumbnails::Neem(const std::string& foto_pad) {
  Klaar klaar;
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto it = per_foto_.find(foto_pad);
    if (it == per_foto_.end()) return std::nullopt;
    klaar = std::move(it->second);
    per_foto_.erase(it);
  }
  FileInfo nu;
  if (!Fs().GetFileInfo(foto_pad, nu).ok() || nu.size != klaar.grootte || nu.modified_ns != klaar.tijd_ns) {
    return std::nullopt;
  }
  return std::move(klaar.jpeg);
}

}  // namespace kiekbord
