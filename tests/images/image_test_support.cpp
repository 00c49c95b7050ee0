#include "tests/images/image_test_support.h"

#include <gtest/gtest.h>
#include <turbojpeg.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

#include <jpeglib.h>
#include <libexif/exif-data.h>

#include "base/text.h"
#include "base/text_helpers.h"
#include "tests/support/test_photos.h"
#include "tests/support/test_support.h"

namespace kiekbord::test {

std::string MaakJpeg(int breedte, int hoogte, const std::function<Rgb(int, int)>& kleur, JpegOpties opties) {
  using enum JpegOpties::Soort;
  jpeg_compress_struct c{};
  jpeg_error_mgr fouten{};
  c.err = jpeg_std_error(&fouten);
  jpeg_create_compress(&c);
  unsigned char* uit = nullptr;
  unsigned long lengte = 0;
  jpeg_mem_dest(&c, &uit, &lengte);
  c.image_width = static_cast<JDIMENSION>(breedte);
  c.image_height = static_cast<JDIMENSION>(hoogte);
  c.input_components = opties.soort == kGrijs ? 1 : opties.soort == kCmyk ? 4 : 3;
  c.in_color_space = opties.soort == kGrijs ? JCS_GRAYSCALE : opties.soort == kCmyk ? JCS_CMYK : JCS_RGB;
  jpeg_set_defaults(&c);
  jpeg_set_quality(&c, opties.kwaliteit, TRUE);
  if (opties.progressief) jpeg_simple_progression(&c);
  c.restart_interval = static_cast<unsigned>(opties.herstel);
  for (int i = 0; i < c.num_components; ++i) c.comp_info[i].h_samp_factor = c.comp_info[i].v_samp_factor = 1;
  jpeg_start_compress(&c, TRUE);
  std::vector<JSAMPLE> regel(static_cast<std::size_t>(breedte) * 4);
  for (int y = 0; y < hoogte; ++y) {
    for (int x = 0; x < breedte; ++x) {
      const Rgb k = kleur(x, y);
      // CMYK as Adobe writes it: inverted, so white is all 255.
      const int waarden[] = {k.r, k.g, k.b, 255};
      for (int i = 0; i < c.input_components; ++i) regel[x * c.input_components + i] = static_cast<JSAMPLE>(waarden[i]);
    }
    JSAMPROW rij = regel.data();
    jpeg_write_scanlines(&c, &rij, 1);
  }
  jpeg_finish_compress(&c);
  jpeg_destroy_compress(&c);
  const std::string jpeg(reinterpret_cast<const char*>(uit), lengte);
  std::free(uit);
  return jpeg;
}

std::string EffenJpeg(int breedte, int hoogte, Rgb kleur, JpegOpties opties) {
  return MaakJpeg(breedte, hoogte, [kleur](int, int) { return kleur; }, opties);
}

namespace {

std::string Kort(int waarde) { return {static_cast<char>(waarde >> 8), static_cast<char>(waarde & 0xFF)}; }

// A baseline JPEG whose frame header claims breedte x hoogte pixels and whose
// scan holds no data at all: a header from a damaged or hostile file.
std::string KaleKop(int breedte, int hoogte) {
  std::string jpeg = EffenJpeg(8, 8);
  jpeg.replace(jpeg.find("\xFF\xC0") + 5, 4, Kort(hoogte) + Kort(breedte));
  const auto sos = jpeg.find("\xFF\xDA");
  return jpeg.substr(0, sos + 2 + static_cast<unsigned char>(jpeg[sos + 2]) * 256u + static_cast<unsigned char>(jpeg[sos + 3]));
}

}  // namespace

std::pair<int, int> Maat(const std::string& tekst) {
  const auto x = tekst.find('x');
  return {std::stoi(tekst.substr(0, x)), std::stoi(tekst.substr(x + 1))};
}

std::string Segment(int marker, const std::string& inhoud) {
  return std::string{'\xFF', static_cast<char>(marker)} + Kort(static_cast<int>(inhoud.size()) + 2) + inhoud;
}

std::string MaakFoto(const std::string& beschrijving) {
  if (beschrijving == "leeg") return "";
  if (beschrijving == "kaal") return "\xFF\xD8\xFF\xD9";
  if (beschrijving == "png") return std::string("\x89PNG\r\n\x1a\n", 8) + std::string(100, '\0');
  if (beschrijving == "ruit") {
    return MaakJpeg(301, 200, [](int x, int y) { return x % 2 == 0 && y % 2 == 0 ? Rgb{255, 0, 0} : Rgb{0, 0, 255}; },
                    {.kwaliteit = 100});
  }
  const auto [breedte, hoogte] = Maat(beschrijving);
  const auto met = [&](const char* optie) { return beschrijving.find(optie) != std::string::npos; };
  if (met(",kop")) return KaleKop(breedte, hoogte);
  if (met(",camera")) return CameraJpeg(breedte, hoogte);
  using enum JpegOpties::Soort;
  const JpegOpties opties{.progressief = met(",progressief"), .soort = met(",grijs") ? kGrijs : met(",cmyk") ? kCmyk : kKleur,
                          .herstel = met(",herstel") ? 1 : 0};
  std::string foto = met(",half") ? MaakJpeg(breedte, hoogte, [](int x, int y) { return Rgb{x % 256, y % 256, 90}; })
                                  : EffenJpeg(breedte, hoogte, {200, 120, 40}, opties);
  // APP1 "Exif", a big-endian TIFF header and one entry: orientation 6, turn a quarter right.
  if (met(",exif6")) {
    foto.insert(2, Segment(0xE1, std::string("Exif\0\0MM\0*\0\0\0\x08\0\x01\x01\x12\0\x03\0\0\0\x01\0\x06\0\0\0\0\0\0", 32)));
  }
  for (int i = 0; met(",app") && i < 5; ++i) foto.insert(2, Segment(0xE2, std::string(59998, 'x')));
  if (met(",rommel")) foto += std::string(5000, 'x');
  if (met(",half")) foto.resize(foto.size() / 2);
  return met(",kort") ? foto.substr(0, 3000) : foto;
}

std::vector<std::vector<std::string>> Tabel(const std::string& naam) {
  std::vector<std::vector<std::string>> rijen = Tabelrijen(TestDataDir() + naam + ".txt");
  for (auto& rij : rijen) std::ranges::transform(rij, rij.begin(), [](const std::string& v) { return TrimSpaces(v); });
  return rijen;
}

Inhoud InhoudVan(const std::string& map) {
  Inhoud inhoud;
  for (const std::string& naam : BestandenIn(map)) inhoud[naam] = ReadBytes(map + naam);
  return inhoud;
}

Rgb Beeld::At(int x, int y) const {
  const std::uint8_t* p = &rgb[(static_cast<std::size_t>(y) * breedte + x) * 3];
  return {p[0], p[1], p[2]};
}

Beeld LeesJpeg(std::string_view jpeg) {
  const std::unique_ptr<void, int (*)(tjhandle)> tj(tjInitDecompress(), tjDestroy);
  const auto* bytes = reinterpret_cast<const unsigned char*>(jpeg.data());
  Beeld beeld;
  int subsampling = 0, kleurruimte = 0;
  if (tjDecompressHeader3(tj.get(), bytes, jpeg.size(), &beeld.breedte, &beeld.hoogte, &subsampling, &kleurruimte) == 0) {
    beeld.rgb.resize(static_cast<std::size_t>(beeld.breedte) * beeld.hoogte * 3);
    if (tjDecompress2(tj.get(), bytes, jpeg.size(), beeld.rgb.data(), beeld.breedte, 0, beeld.hoogte, TJPF_RGB, 0) == 0) {
      return beeld;
    }
  }
  ADD_FAILURE() << "geen leesbare JPEG: " << tjGetErrorStr2(tj.get());
  return {};
}

int EersteKwantisatieWaarde(std::string_view jpeg) {
  const auto dqt = jpeg.find("\xFF\xDB");
  return dqt == std::string_view::npos || dqt + 5 >= jpeg.size() ? -1 : static_cast<unsigned char>(jpeg[dqt + 5]);
}

bool Lijkt(Rgb a, Rgb b, int marge) {
  return std::abs(a.r - b.r) <= marge && std::abs(a.g - b.g) <= marge && std::abs(a.b - b.b) <= marge;
}

namespace {

void ZetVeld(ExifData* data, ExifIfd ifd, ExifTag tag, ExifFormat formaat, std::string_view waarde) {
  ExifEntry* veld = exif_entry_new();
  veld->tag = tag;
  veld->format = formaat;
  veld->size = static_cast<unsigned>(waarde.size());
  veld->components = waarde.size() / exif_format_get_size(formaat);
  veld->data = static_cast<unsigned char*>(std::malloc(waarde.size()));
  std::copy(waarde.begin(), waarde.end(), veld->data);
  exif_content_add_entry(data->ifd[ifd], veld);
  exif_entry_unref(veld);
}

}  // namespace

std::string MetExif(std::string_view jpeg, int orientatie, bool gps, int breedte, int hoogte) {
  ExifData* data = exif_data_new();
  exif_data_set_byte_order(data, EXIF_BYTE_ORDER_MOTOROLA);
  ZetVeld(data, EXIF_IFD_0, EXIF_TAG_ORIENTATION, EXIF_FORMAT_SHORT, Kort(orientatie));
  ZetVeld(data, EXIF_IFD_0, EXIF_TAG_MAKE, EXIF_FORMAT_ASCII, std::string_view("Proefcamera", 12));
  ZetVeld(data, EXIF_IFD_EXIF, EXIF_TAG_DATE_TIME_ORIGINAL, EXIF_FORMAT_ASCII,
          std::string_view("2026:11:21 10:00:00", 20));
  ZetVeld(data, EXIF_IFD_EXIF, EXIF_TAG_PIXEL_X_DIMENSION, EXIF_FORMAT_SHORT, Kort(breedte));
  ZetVeld(data, EXIF_IFD_EXIF, EXIF_TAG_PIXEL_Y_DIMENSION, EXIF_FORMAT_SHORT, Kort(hoogte));
  if (gps) ZetVeld(data, EXIF_IFD_GPS, static_cast<ExifTag>(EXIF_TAG_GPS_VERSION_ID), EXIF_FORMAT_BYTE, std::string_view("\2\2\0\0", 4));
  const std::string duim = EffenJpeg(8, 8);
  data->data = static_cast<unsigned char*>(std::malloc(duim.size()));
  data->size = static_cast<unsigned>(duim.size());
  std::copy(duim.begin(), duim.end(), data->data);
  unsigned char* blok = nullptr;
  unsigned int grootte = 0;
  exif_data_save_data(data, &blok, &grootte);
  exif_data_unref(data);
  const std::string app1 = std::string("\xFF\xE1") + Kort(static_cast<int>(grootte) + 2) +
                           std::string(reinterpret_cast<char*>(blok), grootte);
  std::free(blok);
  return std::string(jpeg.substr(0, 2)) + app1 + std::string(jpeg.substr(2));
}

std::string ExifVeld(std::string_view jpeg, int ifd, int tag) {
  ExifData* data = exif_data_new_from_data(reinterpret_cast<const unsigned char*>(jpeg.data()),
                                           static_cast<unsigned>(jpeg.size()));
  char waarde[256] = "";
  ExifEntry* veld = data != nullptr ? exif_content_get_entry(data->ifd[ifd], static_cast<ExifTag>(tag)) : nullptr;
  if (veld != nullptr) exif_entry_get_value(veld, waarde, sizeof waarde);
  if (data != nullptr) exif_data_unref(data);
  return waarde;
}

LogOpname::LogOpname(const std::string& pad)
    : log_([this](const std::string& regel) { regels_.push_back(regel); }) {
  log_.SchrijfLog("open:" + pad);
}

LogOpname::~LogOpname() { log_.SchrijfLog("close"); }

}  // namespace kiekbord::test
