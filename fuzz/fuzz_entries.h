// The bodies of the fuzz targets: one function per parser of untrusted bytes.
//
// Each entry feeds one input through the code under test and checks what
// must hold for any input. The libFuzzer programs (fuzz_target.cpp) and the
// regression test over tests/data/fuzz/<target>/ call the same entries, so
// every input that once broke a target stays a test. Inputs that hold
// several parts separate them with NUL bytes; a missing part is empty.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace kiekbord::fuzz {

// Checks one input; returns "" when everything held, or what did not. A
// crash or an unexpected exception is a finding too.
using FuzzEntry = std::string (*)(std::string_view input);

struct FuzzTarget {
  std::string_view name;  // also the folder name of its inputs
  FuzzEntry entry;
};

// Every target, in a fixed order; FindFuzzTarget gives nullptr for no target.
std::span<const FuzzTarget> FuzzTargets();
const FuzzTarget* FindFuzzTarget(std::string_view name);

// Images claiming more pixels than this are skipped before decoding: a
// damaged header that claims a huge image only makes every run slow.
inline constexpr std::int64_t kFuzzBeeldpunten = 4'000'000;

}  // namespace kiekbord::fuzz
