// Helpers for the image tests: real JPEG files made with libjpeg and read
// with TurboJPEG directly (not through the code under test), an open
// generation log whose lines are kept, and a failure reporter that keeps the
// messages instead of showing them.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/failure_report.h"
#include "base/generation_log.h"

namespace kiekbord::test {

struct Rgb {
  int r = 0;
  int g = 0;
  int b = 0;
};

// Made without chroma subsampling (4:4:4).
struct JpegOpties {
  int kwaliteit = 95;
  bool progressief = false;
  enum class Soort { kKleur, kGrijs, kCmyk } soort = Soort::kKleur;
  int herstel = 0;  // a restart marker after every this many blocks
};

// A width x height JPEG whose pixel (x, y), counted from the top-left, is
// kleur(x, y).
std::string MaakJpeg(int breedte, int hoogte, const std::function<Rgb(int, int)>& kleur, JpegOpties opties = {});
std::string EffenJpeg(int breedte, int hoogte, Rgb kleur = {200, 120, 40}, JpegOpties opties = {});

// A segment: the marker, its length and `inhoud`.
std::string Segment(int marker, const std::string& inhoud);

// A photo described in a few words, as the tables under tests/data/images
// name them: "WxH" (one colour), followed by ",progressief", ",grijs",
// ",cmyk", ",herstel" (restart markers), ",exif6" (turned by camera data),
// ",app" (300000 bytes of APP2 segments in front of the frame header),
// ",kort" (only the first 3000 bytes), ",camera" (camera data in front),
// ",rommel" (junk after the end), ",half" (the first half of a gradient) or
// ",kop" (only the header: the frame header claims the size, the scan holds
// no data); or "ruit" (301 x 200, red on even
// rows and columns, blue elsewhere), "png" (a PNG signature), "kaal" (only
// start and end markers) or "leeg".
std::string MaakFoto(const std::string& beschrijving);

// The rows of tests/data/<naam>.txt (see Tabelrijen), without the blanks
// around their fields.
std::vector<std::vector<std::string>> Tabel(const std::string& naam);

// File name -> bytes of every file in a folder.
using Inhoud = std::map<std::string, std::string>;
Inhoud InhoudVan(const std::string& map);

// "W" and "H" of "WxH".
std::pair<int, int> Maat(const std::string& tekst);

struct Beeld {
  int breedte = 0;
  int hoogte = 0;
  std::vector<std::uint8_t> rgb;
  Rgb At(int x, int y) const;
};

// Decodes a JPEG top-down into RGB; fails the test (and returns an empty
// image) when it cannot.
Beeld LeesJpeg(std::string_view jpeg);

// The first value of the first quantisation table: 1 at quality 100, 3 at
// 90, 6 at 80, 13 at 60. -1 when the file has none.
int EersteKwantisatieWaarde(std::string_view jpeg);

// `jpeg` with camera data in front, built with libexif: orientation
// `orientatie`, make "Proefcamera", date taken, the pixel size `breedte` x
// `hoogte`, an embedded thumbnail and, when `gps`, a GPS block.
std::string MetExif(std::string_view jpeg, int orientatie, bool gps, int breedte, int hoogte);

// A field of the camera data as libexif shows it; empty when it is missing.
std::string ExifVeld(std::string_view jpeg, int ifd, int tag);

// True when the two colours differ by at most `marge` in every channel.
bool Lijkt(Rgb a, Rgb b, int marge);

// Opens the generation log at `pad` for its lifetime and keeps every line.
class LogOpname {
 public:
  explicit LogOpname(const std::string& pad);
  ~LogOpname();
  LogOpname(const LogOpname&) = delete;
  LogOpname& operator=(const LogOpname&) = delete;
  const std::vector<std::string>& regels() const { return regels_; }
  void Wis() { regels_.clear(); }
  GenerationLog& log() const { return log_; }

 private:
  std::vector<std::string> regels_;
  mutable GenerationLog log_;
};

// Keeps the failure messages of image operations.
class MeldingOpname : public FoutMelder {
 public:
  void Meld(const std::string& tekst) override { meldingen.push_back(tekst); }
  std::vector<std::string> meldingen;
};

}  // namespace kiekbord::test
