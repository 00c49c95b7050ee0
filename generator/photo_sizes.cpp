#include "generator/photo_sizes.h"

#include <map>
#include <mutex>

#include "base/file_system.h"

namespace kiekbord {
namespace {

struct Bewaard {
  FileInfo info;
  std::optional<FotoMaat> maat;
};

bool Zelfde(const FileInfo& a, const FileInfo& b) {
  return a.size == b.size && a.modified_ns == b.modified_ns && a.device == b.device && a.inode == b.inode;
}

std::mutex mutex;
std::map<std::string, Bewaard> bewaard;

}  // namespace

std::optional<FotoMaat> BewaardePaginaMaat(const std::string& path) {
  FileInfo info;
  if (!Fs().GetFileInfo(path, info).ok()) return PaginaMaat(path);
  {
    const std::lock_guard<std::mutex> lock(mutex);
    const auto it = bewaard.find(path);
    if (it != bewaard.end() && Zelfde(it->second.info, info)) return it->second.maat;
  }
  const std::optional<FotoMaat> maat = PaginaMaat(path);
  const std::lock_guard<std::mutex> lock(mutex);
  bewaard[path] = Bewaard{info, maat};
  return maat;
}

void BewaarPaginaMaat(const std::string& path, const FileInfo& info, FotoMaat maat) {
  const std::lock_guard<std::mutex> lock(mutex);
  bewaard[path] = Bewaard{info, maat};
}

void VergeetPaginaMaten() {
  const std::lock_guard<std::mutex> lock(mutex);
  bewaard.clear();
}

}  // namespace kiekbord
