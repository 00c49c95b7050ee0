#include "generator/photo_sizes.h"

namespace kiekbord {
namespace {

bool Zelfde(const FileInfo& a, const FileInfo& b) {
  return a.size == b.size && a.modified_ns == b.modified_ns && a.device == b.device && a.inode == b.inode;
}

}  // namespace

std::optional<FotoMaat> FotoMaten::Van(const std::string& path) {
  FileInfo info;
  if (!Fs().GetFileInfo(path, info).ok()) return PaginaMaat(path);
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    const auto it = bewaard_.find(path);
    if (it != bewaard_.end() && Zelfde(it->second.info, info)) return it->second.maat;
  }
  const std::optional<FotoMaat> maat = PaginaMaat(path);
  const std::lock_guard<std::mutex> lock(mutex_);
  bewaard_[path] = Bewaard{info, maat};
  return maat;
}

void FotoMaten::Bewaar(const std::string& path, const FileInfo& info, FotoMaat maat) {
  const std::lock_guard<std::mutex> lock(mutex_);
  bewaard_[path] = Bewaard{info, maat};
}

}  // namespace kiekbord
