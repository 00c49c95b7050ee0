#include "images/library_choice.h"

#include <sys/utsname.h>

#include <array>
#include <utility>

#include "base/file_system.h"
#include "base/generation_log.h"

namespace kiekbord {
namespace {

// Version key to name. "2.4.90" carries platform 2 on purpose; a platform 1
// system reporting 4.90 is therefore unknown.
constexpr std::array<std::pair<std::string_view, std::string_view>, 10> kOsNamen{{
    {"1.4.0", "95"},
    {"1.4.10", "98"},
    {"2.3.51", "NT3.51"},
    {"2.4.0", "NT4.0"},
    {"2.4.90", "ME"},
    {"2.5.0", "2000"},
    {"2.5.1", "XP"},
    {"2.5.2", "Server 2003"},
    {"2.6.0", "Vista"},
    {"2.6.1", "Windows7"},
}};

// Platform identifier 3, which no table row uses, then the kernel's major
// and minor version ("6.1.0-18-amd64" gives "3.6.1").
std::string LinuxVersieSleutel() {
  utsname info{};
  std::string release = ::uname(&info) == 0 ? info.release : "";
  int numbers[2] = {0, 0};
  std::size_t pos = 0;
  for (int& number : numbers) {
    while (pos < release.size() && release[pos] >= '0' && release[pos] <= '9') {
      number = number * 10 + (release[pos] - '0');
      if (number > 99999) number = 99999;
      ++pos;
    }
    if (pos < release.size() && release[pos] == '.') ++pos;
  }
  return "3." + std::to_string(numbers[0]) + "." + std::to_string(numbers[1]);
}

}  // namespace

std::string OsNaamVoorSleutel(std::string_view sleutel) {
  for (const auto& [key, name] : kOsNamen) {
    if (key == sleutel) return std::string(name);
  }
  return "Unknown (" + std::string(sleutel) + ")";
}

std::string BepaalOsNaam() { return OsNaamVoorSleutel(LinuxVersieSleutel()); }

bool GdiplusMarkerAanwezig(const std::string& program_dir) {
  return Fs().FileExists(WithTrailingSlash(program_dir) + "GDIplus.txt");
}

ImageLibrary KiesThumbnailBibliotheek(const std::string& os_naam, const std::string& program_dir,
                                      GenerationLog& log) {
  std::string naam = os_naam;
  log.SchrijfLog("(Windows " + naam + " gedetecteerd.)");
  if (GdiplusMarkerAanwezig(program_dir)) {
    log.SchrijfLog("(Bestand GDIplus.txt gedetecteerd.)");
    naam = "XP";
  }
  if (naam == "Windows7" || naam == "Vista") naam = "XP";
  if (naam == "XP") {
    log.SchrijfLog("Imagelibrary GDIplus wordt gebruikt.");
    return ImageLibrary::kGdiPlus;
  }
  log.SchrijfLog("Imagelibrary IJL11 wordt gebruikt.");
  return ImageLibrary::kIjl11;
}

ImageLibrary KiesThumbnailBibliotheek(const std::string& program_dir, GenerationLog& log) {
  return KiesThumbnailBibliotheek(BepaalOsNaam(), program_dir, log);
}

std::string HoofdvensterOsNaam(const std::string& os_naam, const std::string& program_dir) {
  std::string naam = os_naam;
  if (GdiplusMarkerAanwezig(program_dir)) naam = "XP";
  // Only "Windows7" is mapped here, unlike the thumbnail run.
  if (naam == "Windows7") naam = "Vista";
  return naam;
}

ImageLibrary RotatieBibliotheek(std::string_view opgeslagen_naam) {
  return opgeslagen_naam == "XP" || opgeslagen_naam == "Vista" ? ImageLibrary::kGdiPlus
                                                                : ImageLibrary::kIjl11;
}

}  // namespace kiekbord
