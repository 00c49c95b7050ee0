#include "app/program_directory.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "base/file_system.h"

namespace kiekbord {

std::string FindProgramDirectory() {
  std::error_code error;
  const std::filesystem::path executable = std::filesystem::read_symlink("/proc/self/exe", error);
  const std::string exe_dir = error ? std::string("./") : WithTrailingSlash(executable.parent_path().string());
  if (Fs().DirectoryExists(exe_dir + "Sjabloon")) return exe_dir;
  return exe_dir + "../share/kiekbord/";
}

std::string HomeDirectory() {
  if (const char* home = std::getenv("HOME"); home != nullptr && *home != '\0') return home;
  if (const passwd* entry = ::getpwuid(::getuid()); entry != nullptr) return entry->pw_dir;
  return "/";
}

}  // namespace kiekbord
