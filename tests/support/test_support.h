// Shared helpers for the tests: a scratch directory on the real disk and
// whole-file reads and writes.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kiekbord::test {

// A fresh directory under the system's temporary directory, removed with
// everything in it when the object goes. path() ends in "/".
class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;
  const std::string& path() const { return path_; }
  std::string operator/(std::string_view name) const { return path_ + std::string(name); }

 private:
  std::string path_;
};

std::string ReadBytes(const std::string& path);
void WriteBytes(const std::string& path, std::string_view bytes);

// The names of the files in `map`, sorted.
std::vector<std::string> BestandenIn(const std::string& map);

// The directory of the tests' own data files, ending in "/".
std::string TestDataDir();

// The rows of a table file, each line one row of fields separated by "|".
// Lines starting with "#" are comments; "\n" and "\r" in a field stand for a
// line feed and a carriage return. Throws when the file holds no rows.
std::vector<std::vector<std::string>> Tabelrijen(const std::string& path);

}  // namespace kiekbord::test
