#include "tests/support/golden.h"

#include <algorithm>
#include <filesystem>

#include "tests/support/test_support.h"

namespace kiekbord::test {

std::string VulPlaatshouders(std::string text, const Plaatshouders& plaatshouders) {
  for (const auto& [naam, waarde] : plaatshouders) {
    for (auto pos = text.find(naam); pos != std::string::npos; pos = text.find(naam, pos + waarde.size())) {
      text.replace(pos, naam.size(), waarde);
    }
  }
  return text;
}

void KopieerMap(const std::string& from, const std::string& to) {
  std::filesystem::create_directories(to);
  std::filesystem::copy(from, to, std::filesystem::copy_options::recursive |
                                      std::filesystem::copy_options::overwrite_existing);
}

::testing::AssertionResult GelijkAanGolden(const std::string& verwacht, const std::string& gemaakt,
                                           const Plaatshouders& plaatshouders) {
  if (!std::filesystem::is_regular_file(gemaakt)) {
    return ::testing::AssertionFailure() << gemaakt << " is niet gemaakt";
  }
  const std::string verwachte_tekst = VulPlaatshouders(ReadBytes(verwacht), plaatshouders);
  const std::string gemaakte_tekst = ReadBytes(gemaakt);
  if (verwachte_tekst == gemaakte_tekst) return ::testing::AssertionSuccess();
  // The first line that differs, a carriage return shown as "\r".
  const std::string gelijk = verwachte_tekst.substr(
      0, std::ranges::mismatch(verwachte_tekst, gemaakte_tekst).in1 - verwachte_tekst.begin());
  const std::size_t begin = gelijk.rfind('\n') + 1;  // 0 on the first line
  const auto regel = [begin](const std::string& tekst) {
    const std::string rest = begin < tekst.size() ? tekst.substr(begin, tekst.find('\n', begin) - begin) : "(einde)";
    return rest.ends_with('\r') ? rest.substr(0, rest.size() - 1) + "\\r" : rest;
  };
  return ::testing::AssertionFailure() << gemaakt << " wijkt af van " << verwacht << " op regel "
                                       << std::ranges::count(gelijk, '\n') + 1
                                       << ":\n  verwacht: " << regel(verwachte_tekst)
                                       << "\n  gemaakt:  " << regel(gemaakte_tekst);
}

}  // namespace kiekbord::test
