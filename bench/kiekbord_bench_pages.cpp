// kiekbord-bench-paginas: times the page writing of a gallery against its
// thumbnail run, on a folder of photos.
//
//   kiekbord-bench-paginas [--sjabloon NAAM] [--per-pagina N] MAP
//
// Every "*.jpg" in MAP is a photo of the gallery, in name order. The program
// first makes the thumbnails as a first run does (old "_tn.jpg" files and
// "kb_tn.txt" are removed), then writes the overview page and the photo
// pages with the template set NAAM (default "Klassiek") at N photos per
// page (default 4), reading every photo's and thumbnail's size from its
// JPEG header, and prints the three times. The pages are removed again; the
// thumbnails stay. The log goes to MAP/kiekbord-bench.log.

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "app/program_directory.h"
#include "app/program_settings.h"
#include "base/dutch_date.h"
#include "base/file_system.h"
#include "base/text.h"
#include "base/generation_log.h"
#include "generator/head_and_credit.h"
#include "generator/overview_page.h"
#include "generator/photo_pages.h"
#include "images/thumbnails.h"

namespace {

using namespace kiekbord;

struct Opties {
  std::string sjabloon = "Klassiek";
  std::string per_pagina = "4";
  std::string map;
};

bool LeesOpties(int argc, char** argv, Opties& opties) {
  for (int i = 1; i < argc; ++i) {
    const std::string_view arg = argv[i];
    const bool has_value = i + 1 < argc;
    if (arg == "--sjabloon" && has_value) {
      opties.sjabloon = argv[++i];
    } else if (arg == "--per-pagina" && has_value) {
      opties.per_pagina = argv[++i];
    } else if (StartsWith(arg, "--") || !opties.map.empty()) {
      return false;
    } else {
      opties.map = WithTrailingSlash(std::string(arg));
    }
  }
  return !opties.map.empty();
}

std::vector<std::string> Namen(const std::string& map, const std::string& patroon) {
  std::vector<std::string> namen;
  if (!Fs().ListFiles(map, patroon, namen).ok()) return {};
  return namen;
}

std::vector<std::string> Fotos(const std::string& map) {
  std::vector<std::string> namen = Namen(map, "*.jpg");
  std::erase_if(namen, [](const std::string& naam) {
    return !EndsWith(naam, ".jpg") || EndsWith(naam, "_tn.jpg");
  });
  return namen;
}

bool Verwijder(const std::string& map, const std::vector<std::string>& namen) {
  for (const std::string& naam : namen) {
    if (Fs().FileExists(map + naam) && !Fs().DeleteFile(map + naam).ok()) return false;
  }
  return true;
}

double Seconden(const std::function<void()>& werk) {
  const auto begin = std::chrono::steady_clock::now();
  werk();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

SiteGegevens Galerij(const Opties& opties, const ProgramSettings& settings,
                     const std::vector<std::string>& fotos) {
  SiteGegevens g;
  g.uitvoer_dir = opties.map;
  g.titel = "Bench";
  g.thumbnails = "1";
  g.fotos_per_pagina = opties.per_pagina;
  g.presentatie = "0";
  g.positie_fotos = "1";
  g.ext = settings.sjabloon_type;
  g.sjabloon_dir = settings.sjabloon_dir + opties.sjabloon + "/";
  g.overzicht_sjabloon = g.sjabloon_dir + "kbovz" + g.ext;
  g.foto_sjabloon = g.sjabloon_dir + (opties.per_pagina == "1" ? "kbfoto1" : "kbfoto1m") + g.ext;
  g.foto_namen = fotos;
  for (std::size_t i = 1; i <= fotos.size(); ++i)
    g.bijschriften.push_back("Foto " + std::to_string(i));
  return g;
}

int Bench(const Opties& opties) {
  const std::vector<std::string> fotos = Fotos(opties.map);
  if (fotos.empty()) {
    std::cerr << "kiekbord-bench-paginas: geen foto's (*.jpg) in " << opties.map << "\n";
    return 2;
  }
  std::vector<std::string> oud = Namen(opties.map, "*_tn.jpg");
  oud.push_back("kb_tn.txt");
  if (!Verwijder(opties.map, oud)) {
    std::cerr << "kiekbord-bench-paginas: kan oude thumbnails in " << opties.map
              << " niet verwijderen\n";
    return 1;
  }
  const ProgramSettings settings =
      LeesProgrammaInstellingen(FindProgramDirectory(), HomeDirectory());
  const SiteGegevens gegevens = Galerij(opties, settings, fotos);
  GenerationLog log;
  StderrMelder melder;
  SiteRun run{settings, gegevens, log, melder, NavigatieTeksten{}, kGelukt, {}, {}};
  const KopEnCredit kop = KopEnCreditVoor(settings, VandaagLokaal());

  log.SchrijfLog("open:" + opties.map + "kiekbord-bench.log");
  const ThumbnailOpties thumbnail_opties{settings.program_dir, 0, nullptr, nullptr};
  bool thumbnail_fout = false;
  const double thumbnails = Seconden([&] {
    thumbnail_fout =
        MaakThumbnails(opties.map, gegevens.AantalFotos(), gegevens.foto_namen, thumbnail_opties, log, melder);
  });
  const double overzicht = Seconden([&] { MaakOverzichtPagina(run, kop); });
  const double fotopaginas = Seconden([&] { MaakFotoPaginas(run, kop); });
  log.SchrijfLog("close");
  const bool pagina_fout = run.failed != kGelukt;
  if (!Verwijder(opties.map, Namen(opties.map, "kb*" + gegevens.ext)) || thumbnail_fout ||
      pagina_fout) {
    std::cerr << "kiekbord-bench-paginas: de run is mislukt, zie " << opties.map
              << "kiekbord-bench.log\n";
    return 1;
  }
  const double paginas = overzicht + fotopaginas;
  std::printf(
      "%zu foto's, sjabloon %s, %s per pagina: thumbnails %.3f s; overzichtspagina %.1f ms, "
      "fotopagina's %.1f ms, samen %.1f ms (%.2f%% van de thumbnailtijd)\n",
      fotos.size(), opties.sjabloon.c_str(), opties.per_pagina.c_str(), thumbnails,
      1000 * overzicht, 1000 * fotopaginas, 1000 * paginas, 100 * paginas / thumbnails);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  Opties opties;
  if (!LeesOpties(argc, argv, opties)) {
    std::cerr << "Gebruik: kiekbord-bench-paginas [--sjabloon NAAM] [--per-pagina N] MAP\n";
    return 2;
  }
  try {
    return Bench(opties);
  } catch (const RunError& error) {
    std::cerr << "kiekbord-bench-paginas: fout " << error.number() << " (" << error.description()
              << ")\n";
    return 1;
  }
}
