// The libFuzzer program of one target, chosen at build time by
// KIEKBORD_FUZZ_TARGET (fuzz/CMakeLists.txt builds one per entry). A broken
// check aborts, which libFuzzer reports as a finding with the input kept.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "fuzz/fuzz_entries.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const kiekbord::fuzz::FuzzTarget* const target = kiekbord::fuzz::FindFuzzTarget(KIEKBORD_FUZZ_TARGET);
  if (target == nullptr) std::abort();
  const std::string problem = target->entry(std::string_view(reinterpret_cast<const char*>(data), size));
  if (!problem.empty()) {
    std::fprintf(stderr, "%s: %s\n", KIEKBORD_FUZZ_TARGET, problem.c_str());
    std::abort();
  }
  return 0;
}
