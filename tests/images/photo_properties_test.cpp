#include "images/photo_properties.h"

#include <gtest/gtest.h>
#include <turbojpeg.h>

#include <atomic>
#include <filesystem>
#include <regex>
#include <string>

#include "base/file_system.h"
#include "tests/support/test_support.h"

namespace kiekbord {
namespace {

// Building blocks of crafted JPEG files.
std::string Bytes(std::initializer_list<int> values) {
  std::string out;
  for (const int v : values) out += static_cast<char>(v);
  return out;
}

std::string Soi() { return Bytes({0xFF, 0xD8}); }

std::string Segment(int marker, const std::string& payload) {
  const std::size_t length = payload.size() + 2;
  return Bytes({0xFF, marker, static_cast<int>(length >> 8), static_cast<int>(length & 0xFF)}) + payload;
}

// A segment of exactly `total` bytes, marker included.
std::string Opvulling(int marker, std::size_t total) { return Segment(marker, std::string(total - 4, 'k')); }

std::string Frame(int marker, int width, int height) {
  return Segment(marker, Bytes({8, height >> 8, height & 0xFF, width >> 8, width & 0xFF, 1, 1, 0x11, 0}));
}

// What follows the frame header in a real file; keeps it before the scan
// limit.
std::string Staart() { return std::string(32, '\0') + Bytes({0xFF, 0xD9}); }

std::string Jfif() { return Opvulling(0xE0, 18); }

TEST(BepaalAfmetingen, FollowsEveryRuleOnCraftedFiles) {
  const std::string einde = Staart();
  const struct {
    const char* naam;
    std::string bytes;
    const char* verwacht;
  } gevallen[] = {
      {"plain JFIF", Soi() + Jfif() + Frame(0xC0, 640, 480) + einde, "640x480"},
      {"frame marker at offset 247", Soi() + Opvulling(0xE0, 245) + Frame(0xC0, 640, 480) + einde, "640x480"},
      {"frame marker at offset 248", Soi() + Opvulling(0xE0, 246) + Frame(0xC0, 640, 480) + einde, "640x480!"},
      {"large camera segment first", Soi() + Opvulling(0xE1, 40000) + Frame(0xC0, 3000, 2000) + einde, "3000x2000!"},
      {"DHT skipped, later frame used", Soi() + Frame(0xC4, 10, 20) + Frame(0xC0, 30, 40) + einde, "30x40"},
      {"height 0 passed over", Soi() + Frame(0xC0, 640, 0) + Frame(0xC2, 320, 240) + einde, "320x240"},
      {"height 0 and nothing later", Soi() + Frame(0xC0, 640, 0) + einde, "Error"},
      {"width 1 passed over", Soi() + Frame(0xC0, 1, 480) + Frame(0xC0, 2, 2) + einde, "2x2"},
      {"height 256 is not small", Soi() + Frame(0xC0, 1 << 8, 1 << 8) + einde, "256x256"},
      {"largest size", Soi() + Frame(0xC0, 32767, 32767) + einde, "32767x32767"},
      {"width overflows", Soi() + Frame(0xC0, 32768, 480) + einde, "Error"},
      {"height overflows", Soi() + Frame(0xC0, 640, 65535) + einde, "Error"},
      {"bytes between segments skipped", Soi() + Jfif() + Bytes({0x00, 0x12, 0x34}) + Frame(0xC0, 7, 9) + einde, "7x9"},
      {"standalone marker read as if a length followed",
       Soi() + Bytes({0xFF, 0xD0, 0x00, 0x0D}) + Frame(0xC0, 1000, 1000) + Frame(0xC0, 5, 6) + einde, "5x6"},
      {"preview inside APP1 not read",
       Soi() + Segment(0xE1, Soi() + Frame(0xC0, 160, 120) + Bytes({0xFF, 0xD9})) + Frame(0xC0, 4000, 3000) + einde,
       "4000x3000"},
      {"no start-of-image", Bytes({0xFF, 0xD9}) + Frame(0xC0, 10, 20) + einde, "Error"},
      {"text file", "Dit is geen foto maar een tekstbestand met de extensie .jpg.\r\n", "Error"},
      {"PNG signature", Bytes({0x89, 'P', 'N', 'G', 0x0D, 0x0A, 0x1A, 0x0A}) + std::string(64, '\0'), "Error"},
      {"empty file", "", "Error"},
      {"one byte", Bytes({0xFF}), "Error"},
      {"eleven bytes", Soi() + Bytes({0xFF, 0xC0, 0x00, 0x11, 0x08, 0x00, 0x10, 0x00, 0x10}), "Error"},
      {"frame header at the very end", Soi() + Jfif() + Frame(0xC0, 640, 480), "640x480"},
      {"frame header past the scan limit", Soi() + Jfif() + Frame(0xC0, 640, 480).substr(0, 8), "Error"},
      {"segment length beyond the file", Soi() + Bytes({0xFF, 0xE1, 0xFF, 0xFF}) + einde, "Error"},
  };
  for (const auto& geval : gevallen) EXPECT_EQ(AfmetingenUitBytes(geval.bytes), geval.verwacht) << geval.naam;
  // Every frame header is measured alike (baseline, progressive, lossless,
  // arithmetic); DHT, JPG and DAC are no frame headers.
  for (int marker = 0xC0; marker <= 0xCF; ++marker) {
    const bool frame = marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
    EXPECT_EQ(AfmetingenUitBytes(Soi() + Frame(marker, 10, 20) + einde), frame ? "10x20" : "Error") << marker;
  }
}

TEST(BepaalAfmetingen, ScansOnlyTheFirst256KiB) {
  const std::string voor = Soi() + Opvulling(0xE1, 60000) + Opvulling(0xE1, 60000) + Opvulling(0xE1, 60000) +
                           Opvulling(0xE1, 60000);
  // Frame header well inside the first 256 KiB of a larger file.
  std::string binnen = voor + Frame(0xC0, 800, 600) + std::string(300000, '\0');
  EXPECT_EQ(AfmetingenUitBytes(binnen.substr(0, kAfmetingenLeesGrens)), "800x600!");
  // Frame header starting 5 bytes before the cap: past the scan limit.
  const std::string laat = voor + Opvulling(0xE1, 262144 - 5 - voor.size()) + Frame(0xC0, 800, 600) +
                           std::string(100, '\0');
  EXPECT_EQ(AfmetingenUitBytes(laat.substr(0, kAfmetingenLeesGrens)), "Error");
  // Just early enough: its fields end before the scan limit.
  const std::string net = voor + Opvulling(0xE1, 262144 - 12 - voor.size()) + Frame(0xC0, 800, 600) +
                          std::string(100, '\0');
  EXPECT_EQ(AfmetingenUitBytes(net.substr(0, kAfmetingenLeesGrens)), "800x600!");
}

class MaxBytesRecorder : public ForwardingFileSystem {
 public:
  MaxBytesRecorder() : ForwardingFileSystem(LocalFileSystem()) {}
  Status ReadFile(const std::string& path, std::string& contents, std::int64_t max_bytes) override {
    last_max_bytes = max_bytes;
    return ForwardingFileSystem::ReadFile(path, contents, max_bytes);
  }
  std::atomic<std::int64_t> last_max_bytes{0};
};

TEST(BepaalAfmetingen, ReadsAtMost256KiBPlusOneByteThroughTheFileSeam) {
  test::TempDir dir;
  test::WriteBytes(dir / "groot.jpg", Soi() + Jfif() + Frame(0xC0, 640, 480) + std::string(1 << 20, '\0'));
  MaxBytesRecorder recorder;
  ScopedFileSystem scoped(recorder);
  EXPECT_EQ(BepaalAfmetingen(dir / "groot.jpg"), "640x480");
  EXPECT_EQ(recorder.last_max_bytes, 262145);
  // A missing or unreadable file gives "Error".
  EXPECT_EQ(BepaalAfmetingen(dir / "weg.jpg"), "Error");
  EXPECT_EQ(BepaalAfmetingen(dir.path()), "Error");
}


TEST(BreedteEnHoogte, TakeTheNumbersBackOut) {
  const struct {
    const char* tekst;
    int breedte;
    int hoogte;
  } gevallen[] = {{"640x480", 640, 480}, {"640x480!", 640, 480}, {"640X480", 640, 480}, {"123x", 123, 0},
                  {"x45", 0, 45},        {"Error", 0, 0},        {"", 0, 0},           {"32767x1!", 32767, 1}};
  for (const auto& geval : gevallen) {
    EXPECT_EQ(BreedteVanAfmetingen(geval.tekst), geval.breedte) << geval.tekst;
    EXPECT_EQ(HoogteVanAfmetingen(geval.tekst), geval.hoogte) << geval.tekst;
  }
}

}  // namespace
}  // namespace kiekbord
