// Every input under tests/data/fuzz/<target>/ through the entry of its fuzz
// target: the inputs that once broke a target, and a few hand-made ones that
// show each check at work. One test case per file.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>

#include "fuzz/fuzz_entries.h"
#include "tests/support/test_support.h"

namespace kiekbord::fuzz {
namespace {

// Target name and file path of every input; each target has inputs of its own.
std::vector<std::pair<std::string, std::string>> RegressionInputs() {
  std::vector<std::pair<std::string, std::string>> inputs;
  for (const FuzzTarget& target : FuzzTargets()) {
    const std::size_t voor = inputs.size();
    for (const auto& entry : std::filesystem::directory_iterator(test::TestDataDir() + "fuzz/" + std::string(target.name))) {
      inputs.emplace_back(target.name, entry.path().string());
    }
    if (inputs.size() == voor) inputs.emplace_back(target.name, "");
  }
  std::sort(inputs.begin(), inputs.end());
  return inputs;
}

class FuzzRegression : public testing::TestWithParam<std::pair<std::string, std::string>> {};

TEST_P(FuzzRegression, PassesEveryCheckOfItsTarget) {
  ASSERT_FALSE(GetParam().second.empty()) << GetParam().first << " has no regression inputs";
  EXPECT_EQ(FindFuzzTarget(GetParam().first)->entry(test::ReadBytes(GetParam().second)), "");
}

INSTANTIATE_TEST_SUITE_P(Invoer, FuzzRegression, testing::ValuesIn(RegressionInputs()), [](const auto& info) {
  std::string name = info.param.first + "_" + std::filesystem::path(info.param.second).filename().string();
  std::replace_if(name.begin(), name.end(), [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); }, '_');
  return name;
});

// The checks report broken behaviour of the code under test, never bad input as such.
TEST(FuzzEntries, AcceptEmptyAndPartialInputs) {
  using namespace std::literals;
  for (const FuzzTarget& target : FuzzTargets()) {
    for (const std::string_view input : {""sv, "\0\0\0"sv, "\xFF\xD8\xFF"sv}) EXPECT_EQ(target.entry(input), "") << target.name;
  }
}

}  // namespace
}  // namespace kiekbord::fuzz
