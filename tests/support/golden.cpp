#include "tests/support/golden.h"

#include <filesystem>
#include <sstream>

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

  // The first line that differs, its line end shown.
  std::istringstream a(verwachte_tekst), b(gemaakte_tekst);
  std::string regel_a, regel_b;
  int nummer = 1;
  bool in_a = false, in_b = false;
  while ((in_a = static_cast<bool>(std::getline(a, regel_a))) & (in_b = static_cast<bool>(std::getline(b, regel_b))) &&
         regel_a == regel_b) {
    ++nummer;
  }
  const auto zichtbaar = [](bool er, const std::string& regel) {
    if (!er) return std::string("(einde)");
    return regel.ends_with('\r') ? regel.substr(0, regel.size() - 1) + "\\r" : regel;
  };
  return ::testing::AssertionFailure() << gemaakt << " wijkt af van " << verwacht << " op regel " << nummer
                                       << ":\n  verwacht: " << zichtbaar(in_a, regel_a)
                                       << "\n  gemaakt:  " << zichtbaar(in_b, regel_b);
}

}  // namespace kiekbord::test
