#include "tests/support/test_support.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

#include "tests/support/golden.h"

namespace kiekbord::test {

TempDir::TempDir() {
  std::string pattern = (std::filesystem::temp_directory_path() / "kiekbord-test-XXXXXX").string();
  if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("mkdtemp failed");
  path_ = pattern + "/";
}

TempDir::~TempDir() {
  std::error_code ignored;
  // Tests make folders read-only; give them back before removing.
  for (const auto& entry : std::filesystem::recursive_directory_iterator(path_, ignored)) {
    std::filesystem::permissions(entry.path(), std::filesystem::perms::owner_all,
                                 std::filesystem::perm_options::add, ignored);
  }
  std::filesystem::remove_all(path_, ignored);
}

std::string ReadBytes(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

void WriteBytes(const std::string& path, std::string_view bytes) {
  std::filesystem::create_directories(std::filesystem::path(path).parent_path());
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!out) throw std::runtime_error("cannot write " + path);
}

std::vector<std::string> BestandenIn(const std::string& map) {
  std::vector<std::string> namen;
  for (const auto& entry : std::filesystem::directory_iterator(map)) {
    if (entry.is_regular_file()) namen.push_back(entry.path().filename().string());
  }
  std::sort(namen.begin(), namen.end());
  return namen;
}

std::string TestDataDir() { return std::string(KIEKBORD_TEST_DATA_DIR) + "/"; }

std::vector<std::vector<std::string>> Tabelrijen(const std::string& path) {
  std::vector<std::vector<std::string>> rijen;
  std::istringstream regels(ReadBytes(path));
  for (std::string regel; std::getline(regels, regel);) {
    if (regel.empty() || regel[0] == '#') continue;
    // The "|" ends the last field, even an empty one.
    std::istringstream velden(VulPlaatshouders(regel, {{"\\n", "\n"}, {"\\r", "\r"}}) + "|");
    std::vector<std::string>& rij = rijen.emplace_back();
    for (std::string veld; std::getline(velden, veld, '|');) rij.push_back(veld);
  }
  if (rijen.empty()) throw std::runtime_error("no rows in " + path);
  return rijen;
}

}  // namespace kiekbord::test
