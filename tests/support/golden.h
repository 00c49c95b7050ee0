// Golden-file helpers: copying a case directory from tests/data into a
// scratch directory, and comparing a generated file with its expected copy
// byte for byte.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace kiekbord::test {

using Plaatshouders = std::vector<std::pair<std::string, std::string>>;

// `text` with every placeholder ("@MAP@") replaced by its value.
std::string VulPlaatshouders(std::string text, const Plaatshouders& plaatshouders);

// Copies the directory `from` with everything in it to `to`.
void KopieerMap(const std::string& from, const std::string& to);

// Success when the file at `gemaakt` holds exactly the bytes of the golden
// file `verwacht`, after its placeholders are filled; otherwise a message
// with the first line that differs.
::testing::AssertionResult GelijkAanGolden(const std::string& verwacht, const std::string& gemaakt,
                                           const Plaatshouders& plaatshouders = {});

}  // namespace kiekbord::test
