#include "images/photo_properties.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "tests/images/image_test_support.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {


std::string Frame(int width, int height, int marker = 0xC0) {
  return test::Segment(marker, {8, static_cast<char>(height >> 8), static_cast<char>(height), static_cast<char>(width >> 8),
                          static_cast<char>(width), 1, 1, 0x11, 0});
}

// A file made of the pieces that tests/data/images/afmetingen.txt describes.
std::string Stukken(const std::string& beschrijving) {
  std::istringstream stukken(beschrijving);
  std::string bytes;
  for (std::string stuk; stukken >> stuk;) {
    const std::string waarde = stuk.substr(stuk.find(':') + 1);
    const std::string soort = stuk.substr(0, stuk.find(':'));
    if (soort == "soi" || soort == "eoi") bytes += soort == "soi" ? "\xFF\xD8" : "\xFF\xD9";
    if (soort == "jfif") bytes += test::Segment(0xE0, std::string(14, 'k'));
    if (soort == "app") bytes += test::Segment(0xE1, std::string(std::stoul(waarde) - 4, 'k'));
    if (soort == "staart") bytes += std::string(32, '\0') + "\xFF\xD9";
    if (soort == "png") bytes += std::string("\x89PNG\r\n\x1A\n", 8) + std::string(64, '\0');
    if (soort == "voorbeeld") bytes += test::Segment(0xE1, "\xFF\xD8" + Frame(160, 120) + "\xFF\xD9");
    for (std::size_t i = 0; soort == "hex" && i < waarde.size(); i += 2) {
      bytes += static_cast<char>(std::stoi(waarde.substr(i, 2), nullptr, 16));
    }
    if (soort == "frame") {
      const auto [breedte, hoogte] = test::Maat(waarde);
      const auto marker = waarde.find(':');
      bytes += Frame(breedte, hoogte, marker == std::string::npos ? 0xC0 : std::stoi(waarde.substr(marker + 1), nullptr, 16));
    }
    if (soort == "laat") {
      bytes = "\xFF\xD8" + Stukken("app:60000 app:60000 app:60000 app:60000");
      bytes += Stukken("app:" + std::to_string(262144 - std::stoul(waarde) - bytes.size())) + Frame(800, 600);
      bytes += std::string(300000, '\0');
    }
  }
  return bytes;
}

TEST(BepaalAfmetingen, FollowsEveryRuleOnCraftedFiles) {
  for (const auto& rij : test::Tabel("images/afmetingen")) {
    const std::string bytes = Stukken(rij[1]);
    EXPECT_EQ(AfmetingenUitBytes(std::string_view(bytes).substr(0, kAfmetingenLeesGrens)), rij[2]) << rij[0];
  }
  for (const auto& rij : test::Tabel("images/afmetingen_tekst")) {
    EXPECT_EQ(BreedteVanAfmetingen(rij[0]), std::stoi(rij[1])) << rij[0];
    EXPECT_EQ(HoogteVanAfmetingen(rij[0]), std::stoi(rij[2])) << rij[0];
  }
}

// The bytes this process has read from files so far.
long GelezenBytes() {
  std::ifstream io("/proc/self/io");
  std::string sleutel;
  long waarde = 0;
  while (io >> sleutel >> waarde && sleutel != "rchar:") {
  }
  return waarde;
}

TEST(BepaalAfmetingen, ReadsOnlyTheStartOfTheFile) {
  test::TempDir dir;
  test::WriteBytes(dir / "groot.jpg", Stukken("soi jfif frame:640x480") + std::string(8 << 20, '\0'));
  const long voor = GelezenBytes();
  EXPECT_EQ(BepaalAfmetingen(dir / "groot.jpg"), "640x480");
  EXPECT_LT(GelezenBytes() - voor, 1 << 20);
  EXPECT_EQ(BepaalAfmetingen(dir / "weg.jpg"), "Error");
  EXPECT_EQ(BepaalAfmetingen(dir.path()), "Error");
}

}  // namespace
}  // namespace kiekbord
