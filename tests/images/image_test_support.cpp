#include "tests/images/image_test_support.h"

#include <gtest/gtest.h>
#include <turbojpeg.h>

#include <cstdlib>
#include <memory>

namespace kiekbord::test {
namespace {

struct TjDestroyer {
  void operator()(void* handle) const { tjDestroy(handle); }
};
using TjHandle = std::unique_ptr<void, TjDestroyer>;

struct TjFreer {
  void operator()(unsigned char* buffer) const { tjFree(buffer); }
};

}  // namespace

std::string MaakJpeg(int breedte, int hoogte, const PixelFunctie& kleur, JpegOpties opties) {
  std::vector<unsigned char> rgb(static_cast<std::size_t>(breedte) * hoogte * 3);
  for (int y = 0; y < hoogte; ++y) {
    for (int x = 0; x < breedte; ++x) {
      const Rgb c = kleur(x, y);
      unsigned char* p = &rgb[(static_cast<std::size_t>(y) * breedte + x) * 3];
      p[0] = static_cast<unsigned char>(c.r);
      p[1] = static_cast<unsigned char>(c.g);
      p[2] = static_cast<unsigned char>(c.b);
    }
  }
  const TjHandle handle(tjInitCompress());
  unsigned char* output = nullptr;
  unsigned long size = 0;
  const int flags = opties.progressief ? TJFLAG_PROGRESSIVE : 0;
  int formaat = TJPF_RGB;
  int subsampling = TJSAMP_444;
  if (opties.soort == JpegOpties::Soort::kGrijs) {
    subsampling = TJSAMP_GRAY;
  } else if (opties.soort == JpegOpties::Soort::kCmyk) {
    // CMYK as Adobe writes it: inverted, so white is all 255.
    std::vector<unsigned char> cmyk;
    for (std::size_t i = 0; i < rgb.size(); i += 3) cmyk.insert(cmyk.end(), {rgb[i], rgb[i + 1], rgb[i + 2], 255});
    rgb = std::move(cmyk);
    formaat = TJPF_CMYK;
  }
  const int result = tjCompress2(handle.get(), rgb.data(), breedte, 0, hoogte, formaat, &output, &size,
                                 subsampling, opties.kwaliteit, flags);
  const std::unique_ptr<unsigned char, TjFreer> owned(output);
  EXPECT_EQ(result, 0) << tjGetErrorStr2(handle.get());
  return result == 0 ? std::string(reinterpret_cast<const char*>(owned.get()), size) : std::string();
}

std::string EffenJpeg(int breedte, int hoogte, Rgb kleur, JpegOpties opties) {
  return MaakJpeg(breedte, hoogte, [kleur](int, int) { return kleur; }, opties);
}

Rgb Beeld::At(int x, int y) const {
  const std::uint8_t* p = &rgb[(static_cast<std::size_t>(y) * breedte + x) * 3];
  return {p[0], p[1], p[2]};
}

Beeld LeesJpeg(std::string_view jpeg) {
  const TjHandle handle(tjInitDecompress());
  const auto* bytes = reinterpret_cast<const unsigned char*>(jpeg.data());
  int breedte = 0, hoogte = 0, subsampling = 0, kleurruimte = 0;
  if (tjDecompressHeader3(handle.get(), bytes, jpeg.size(), &breedte, &hoogte, &subsampling, &kleurruimte) != 0) {
    ADD_FAILURE() << "geen leesbare JPEG: " << tjGetErrorStr2(handle.get());
    return {};
  }
  Beeld beeld{breedte, hoogte, std::vector<std::uint8_t>(static_cast<std::size_t>(breedte) * hoogte * 3)};
  if (tjDecompress2(handle.get(), bytes, jpeg.size(), beeld.rgb.data(), breedte, 0, hoogte, TJPF_RGB, 0) != 0) {
    ADD_FAILURE() << "JPEG niet te decoderen: " << tjGetErrorStr2(handle.get());
    return {};
  }
  return beeld;
}

std::string KaleKop(int breedte, int hoogte) {
  std::string jpeg = EffenJpeg(8, 8);
  const auto sof = jpeg.find("\xFF\xC0");
  jpeg[sof + 5] = static_cast<char>(hoogte >> 8);
  jpeg[sof + 6] = static_cast<char>(hoogte & 0xFF);
  jpeg[sof + 7] = static_cast<char>(breedte >> 8);
  jpeg[sof + 8] = static_cast<char>(breedte & 0xFF);
  const auto sos = jpeg.find("\xFF\xDA");
  const std::size_t lengte = static_cast<unsigned char>(jpeg[sos + 2]) * 256u + static_cast<unsigned char>(jpeg[sos + 3]);
  return jpeg.substr(0, sos + 2 + lengte);
}

int EersteKwantisatieWaarde(std::string_view jpeg) {
  std::size_t pos = 2;
  while (pos + 5 < jpeg.size()) {
    const auto marker = static_cast<unsigned char>(jpeg[pos + 1]);
    const std::size_t length = static_cast<unsigned char>(jpeg[pos + 2]) * 256u + static_cast<unsigned char>(jpeg[pos + 3]);
    if (marker == 0xDB) return static_cast<unsigned char>(jpeg[pos + 5]);
    if (marker == 0xDA) return -1;
    pos += 2 + length;
  }
  return -1;
}

bool Lijkt(Rgb a, Rgb b, int marge) {
  return std::abs(a.r - b.r) <= marge && std::abs(a.g - b.g) <= marge && std::abs(a.b - b.b) <= marge;
}

LogOpname::LogOpname(const std::string& pad)
    : log_([this](const std::string& regel) { regels_.push_back(regel); }) {
  log_.SchrijfLog("open:" + pad);
}

LogOpname::~LogOpname() { log_.SchrijfLog("close"); }

}  // namespace kiekbord::test
