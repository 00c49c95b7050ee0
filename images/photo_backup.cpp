#include "images/photo_backup.h"

#include "base/file_system.h"

namespace kiekbord {

std::string BackupPad(const std::string& photo) {
  const auto slash = photo.rfind('/');
  if (slash == std::string::npos) return "";
  const std::string name = photo.substr(slash + 1);
  const std::string base = name.substr(0, name.find('.'));
  const auto dot = name.rfind('.');
  const std::string extension = dot == std::string::npos ? "" : name.substr(dot);
  return photo.substr(0, slash + 1) + "Backup/" + base + extension;
}

std::string MaakBackup(const std::string& photo) {
  const std::string backup = BackupPad(photo);
  if (backup.empty()) return "";
  const std::string folder = DirectoryOf(backup);
  if (!Fs().DirectoryExists(folder) && !Fs().CreateDirectory(folder).ok()) return "";
  if (Fs().FileExists(backup)) return backup;
  return CopyFileKeepingTime(photo, backup).ok() ? backup : "";
}

}  // namespace kiekbord
