#include "tests/support/golden.h"

#include <filesystem>

#include "tests/support/test_support.h"

namespace kiekbord::test {
namespace {

std::vector<std::string> Regels(const std::string& text) {
  std::vector<std::string> regels;
  std::size_t start = 0;
  while (start <= text.size()) {
    const auto einde = text.find('\n', start);
    if (einde == std::string::npos) {
      regels.push_back(text.substr(start));
      break;
    }
    regels.push_back(text.substr(start, einde - start + 1));
    start = einde + 1;
  }
  return regels;
}

std::string Zichtbaar(const std::string& regel) {
  std::string out;
  for (const char c : regel) {
    if (c == '\r') out += "\\r";
    else if (c == '\n') out += "\\n";
    else out += c;
  }
  return out;
}

}  // namespace

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

  const std::vector<std::string> a = Regels(verwachte_tekst);
  const std::vector<std::string> b = Regels(gemaakte_tekst);
  std::size_t i = 0;
  while (i < a.size() && i < b.size() && a[i] == b[i]) ++i;
  return ::testing::AssertionFailure()
         << gemaakt << " wijkt af van " << verwacht << " op regel " << i + 1 << ":\n"
         << "  verwacht: " << (i < a.size() ? Zichtbaar(a[i]) : "(einde)") << "\n"
         << "  gemaakt:  " << (i < b.size() ? Zichtbaar(b[i]) : "(einde)");
}

}  // namespace kiekbord::test
