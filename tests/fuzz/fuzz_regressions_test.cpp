// Every input under tests/data/fuzz/<target>/ through the entry of its fuzz
// target: the inputs that once broke a target, and a few hand-made ones that
// show each check at work. One test case per file.

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

#include "fuzz/fuzz_entries.h"
#include "tests/support/test_support.h"

namespace kiekbord::fuzz {
namespace {

struct RegressionInput {
  std::string target;
  std::string path;
};

void PrintTo(const RegressionInput& input, std::ostream* out) {
  *out << input.target << "/" << std::filesystem::path(input.path).filename().string();
}

std::filesystem::path RegressionDir() { return std::filesystem::path(test::TestDataDir()) / "fuzz"; }

std::vector<RegressionInput> RegressionInputs() {
  std::vector<RegressionInput> inputs;
  for (const FuzzTarget& target : FuzzTargets()) {
    const std::filesystem::path dir = RegressionDir() / target.name;
    if (!std::filesystem::is_directory(dir)) continue;
    for (const auto& entry : std::filesystem::directory_iterator(dir)) {
      if (entry.is_regular_file()) inputs.push_back({std::string(target.name), entry.path().string()});
    }
  }
  std::sort(inputs.begin(), inputs.end(),
            [](const RegressionInput& a, const RegressionInput& b) { return a.path < b.path; });
  return inputs;
}

std::string TestName(const testing::TestParamInfo<RegressionInput>& info) {
  std::string name = info.param.target + "_" + std::filesystem::path(info.param.path).filename().string();
  std::replace_if(name.begin(), name.end(), [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); }, '_');
  return name;
}

class FuzzRegression : public testing::TestWithParam<RegressionInput> {};

TEST_P(FuzzRegression, PassesEveryCheckOfItsTarget) {
  const FuzzTarget* target = FindFuzzTarget(GetParam().target);
  ASSERT_NE(target, nullptr);
  EXPECT_EQ(target->entry(test::ReadBytes(GetParam().path)), "");
}

INSTANTIATE_TEST_SUITE_P(Invoer, FuzzRegression, testing::ValuesIn(RegressionInputs()), TestName);

TEST(FuzzRegressionInputs, EveryTargetHasInputsOfItsOwn) {
  for (const FuzzTarget& target : FuzzTargets()) {
    const std::filesystem::path dir = RegressionDir() / target.name;
    ASSERT_TRUE(std::filesystem::is_directory(dir)) << dir;
    EXPECT_FALSE(std::filesystem::is_empty(dir)) << dir;
  }
}

// Empty and cut-off inputs pass every check: the checks report broken
// behaviour of the code under test, never bad input as such.
TEST(FuzzEntries, AcceptEmptyAndPartialInputs) {
  for (const FuzzTarget& target : FuzzTargets()) {
    SCOPED_TRACE(std::string(target.name));
    EXPECT_EQ(target.entry(""), "");
    EXPECT_EQ(target.entry(std::string("\0\0\0", 3)), "");
    EXPECT_EQ(target.entry("\xFF\xD8\xFF"), "");
  }
}

}  // namespace
}  // namespace kiekbord::fuzz
