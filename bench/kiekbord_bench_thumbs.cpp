// kiekbord-bench-thumbs: times Kiekbord's thumbnail run on a folder of
// photos and prints the time and the process's peak memory.
//
//   kiekbord-bench-thumbs [--eerste-en-tweede] [--bibliotheek gdi|ijl]
//                         [--gelijktijdig N] MAP
//
// Every "*.jpg" in MAP is a photo of the gallery, in name order, as the
// photo import leaves them. Without options it makes one run on the folder as
// it is: compare_thumbnailers.sh calls it twice on a fresh copy (first run,
// then second run with nothing changed). --eerste-en-tweede first removes
// "kb_tn.txt" and the "_tn.jpg" files from MAP and then makes both runs in
// one process. The run's log goes to MAP/kiekbord-bench.log.

#include <stdlib.h>
#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "app/program_directory.h"
#include "base/file_system.h"
#include "base/text.h"
#include "base/generation_log.h"
#include "images/library_choice.h"
#include "images/thumbnails.h"

namespace {

using namespace kiekbord;

struct Opties {
  bool eerste_en_tweede = false;
  bool pixel_bibliotheek = false;
  int gelijktijdig = 0;
  std::string map;
};

void Gebruik() {
  std::cerr << "Gebruik: kiekbord-bench-thumbs [--eerste-en-tweede] [--bibliotheek gdi|ijl]\n"
               "                             [--gelijktijdig N] MAP\n";
}

bool LeesOpties(int argc, char** argv, Opties& opties) {
  for (int i = 1; i < argc; ++i) {
    const std::string_view arg = argv[i];
    const bool has_value = i + 1 < argc;
    if (arg == "--eerste-en-tweede") {
      opties.eerste_en_tweede = true;
    } else if (arg == "--bibliotheek" && has_value) {
      const std::string_view naam = argv[++i];
      if (naam != "gdi" && naam != "ijl") return false;
      opties.pixel_bibliotheek = naam == "ijl";
    } else if (arg == "--gelijktijdig" && has_value) {
      opties.gelijktijdig = std::atoi(argv[++i]);
      if (opties.gelijktijdig < 0) return false;
    } else if (StartsWith(arg, "--") || !opties.map.empty()) {
      return false;
    } else {
      opties.map = WithTrailingSlash(std::string(arg));
    }
  }
  return !opties.map.empty();
}

// The photos as the photo import leaves them: lower-case ".jpg" names,
// no thumbnails.
std::vector<std::string> Fotos(const std::string& map) {
  std::vector<std::string> namen;
  if (!Fs().ListFiles(map, "*.jpg", namen).ok()) return {};
  std::erase_if(namen, [](const std::string& naam) {
    return !EndsWith(naam, ".jpg") || Lower(naam).find("_tn.") != std::string::npos;
  });
  return namen;
}

bool MaakSchoon(const std::string& map) {
  std::vector<std::string> namen;
  if (!Fs().ListFiles(map, "*_tn.jpg", namen).ok()) return false;
  namen.push_back("kb_tn.txt");
  for (const std::string& naam : namen) {
    if (Fs().FileExists(map + naam) && !Fs().DeleteFile(map + naam).ok()) return false;
  }
  return true;
}

double PiekRssMb() {
  rusage usage{};
  ::getrusage(RUSAGE_SELF, &usage);
  return static_cast<double>(usage.ru_maxrss) / 1024.0;
}

// User and system time of the whole process so far, in seconds: on a busy
// machine a steadier figure than the wall clock.
double ProcessorSeconden() {
  rusage usage{};
  ::getrusage(RUSAGE_SELF, &usage);
  const auto seconds = [](const timeval& t) { return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_usec) / 1e6; };
  return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

// One thumbnail run; prints its figures. False when the run failed.
bool EenRun(const char* naam, const Opties& opties, const std::string& program_dir,
            const std::vector<std::string>& fotos) {
  std::string laatste_regel;
  std::string teller_regel;
  GenerationLog log([&](const std::string& regel) {
    laatste_regel = regel;
    if (regel.find(" Thumbnails (opnieuw) aangemaakt.") != std::string::npos) teller_regel = regel;
  });
  StderrMelder melder;
  log.SchrijfLog("open:" + opties.map + "kiekbord-bench.log");
  const double processor_begin = ProcessorSeconden();
  const auto begin = std::chrono::steady_clock::now();
  const ThumbnailOpties thumbnail_opties{program_dir, opties.gelijktijdig, nullptr, nullptr};
  const bool fout = MaakThumbnails(opties.map, static_cast<int>(fotos.size()), fotos, thumbnail_opties, log, melder);
  const std::chrono::duration<double> duur = std::chrono::steady_clock::now() - begin;
  const double processor = ProcessorSeconden() - processor_begin;
  log.SchrijfLog("close");
  if (fout) {
    std::cerr << "kiekbord-bench-thumbs: de thumbnail-run is mislukt: " << laatste_regel << "\n";
    return false;
  }
  const int aangemaakt = std::atoi(teller_regel.c_str());
  std::printf("%s (%s): %zu foto's, %d thumbnails (opnieuw) aangemaakt, %.3f s (%.2f ms per foto), "
              "processortijd %.3f s, piek-RSS %.1f MB\n",
              naam, opties.pixel_bibliotheek ? "ijl" : "gdi", fotos.size(), aangemaakt, duur.count(),
              1000.0 * duur.count() / static_cast<double>(fotos.size()), processor, PiekRssMb());
  std::fflush(stdout);
  return true;
}

// A program directory without "GDIplus.txt" chooses the pixel-buffer
// library; removed again when the object goes.
class ZonderMarker {
 public:
  ZonderMarker() {
    std::string pattern = (std::filesystem::temp_directory_path() / "kiekbord-bench-XXXXXX").string();
    if (::mkdtemp(pattern.data()) != nullptr) pad_ = pattern + "/";
  }
  ~ZonderMarker() {
    std::error_code ignored;
    if (!pad_.empty()) std::filesystem::remove(pad_, ignored);
  }
  const std::string& pad() const { return pad_; }

 private:
  std::string pad_;
};

}  // namespace

int main(int argc, char** argv) {
  Opties opties;
  if (!LeesOpties(argc, argv, opties)) {
    Gebruik();
    return 2;
  }
  const std::vector<std::string> fotos = Fotos(opties.map);
  if (fotos.empty()) {
    std::cerr << "kiekbord-bench-thumbs: geen foto's (*.jpg) in " << opties.map << "\n";
    return 2;
  }
  const ZonderMarker zonder_marker;
  const std::string program_dir = opties.pixel_bibliotheek ? zonder_marker.pad() : FindProgramDirectory();
  if (!opties.pixel_bibliotheek && !GdiplusMarkerAanwezig(program_dir)) {
    std::cerr << "kiekbord-bench-thumbs: GDIplus.txt ontbreekt in " << program_dir << "\n";
    return 2;
  }
  if (opties.pixel_bibliotheek && program_dir.empty()) {
    std::cerr << "kiekbord-bench-thumbs: geen tijdelijke map te maken\n";
    return 2;
  }
  try {
    if (!opties.eerste_en_tweede) return EenRun("run", opties, program_dir, fotos) ? 0 : 1;
    if (!MaakSchoon(opties.map)) {
      std::cerr << "kiekbord-bench-thumbs: kan oude thumbnails in " << opties.map << " niet verwijderen\n";
      return 1;
    }
    if (!EenRun("eerste run", opties, program_dir, fotos)) return 1;
    return EenRun("tweede run", opties, program_dir, fotos) ? 0 : 1;
  } catch (const RunError& error) {
    std::cerr << "kiekbord-bench-thumbs: fout " << error.number() << " (" << error.description() << ")\n";
    return 1;
  }
}
