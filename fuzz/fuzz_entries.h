// The bodies of the fuzz targets: one function per parser of untrusted bytes.
//
// Each entry feeds one input through the code under test and checks what
// must hold for any input (a round trip, agreement with TurboJPEG's header,
// the documented bounds). The libFuzzer programs (fuzz_target.cpp) and the
// regression test over tests/data/fuzz/<target>/ call the same entries, so
// every input that once broke a target stays a test.
//
// Inputs that hold several parts (a template, a field name and a value)
// separate them with NUL bytes; a missing part is empty.
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

// Every target, in a fixed order.
std::span<const FuzzTarget> FuzzTargets();

// The target called `name`, or nullptr.
const FuzzTarget* FindFuzzTarget(std::string_view name);

// Images claiming more pixels than this are skipped before decoding: a
// damaged header that claims a huge image only makes every run slow, and the
// decoders' own refusal of huge images is a plain comparison the image tests
// cover.
inline constexpr std::int64_t kFuzzBeeldpunten = 4'000'000;

std::string FuzzKeyedTextFile(std::string_view input);
std::string FuzzTemplateFields(std::string_view input);
std::string FuzzRepeatMarkers(std::string_view input);
std::string FuzzScriptReader(std::string_view input);
std::string FuzzPhotoSize(std::string_view input);
std::string FuzzSmoothThumbnail(std::string_view input);
std::string FuzzPixelBufferThumbnail(std::string_view input);

}  // namespace kiekbord::fuzz
