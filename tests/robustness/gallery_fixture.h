// A small real gallery for the robustness tests: the program's own data
// folder (template sets, icon, "GDIplus.txt") in a scratch folder, an
// output folder with two camera photos and a made one, and a script that
// names them, run through the whole generation.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "app/program_settings.h"
#include "base/failure_report.h"
#include "base/file_system.h"
#include "generator/generation_run.h"
#include "tests/support/golden.h"
#include "tests/support/test_photos.h"
#include "tests/support/test_support.h"

namespace kiekbord::test {

// File name -> bytes of every plain file in a folder.
using Inhoud = std::map<std::string, std::string>;

inline Inhoud InhoudVan(const std::string& map) {
  Inhoud inhoud;
  for (const std::string& naam : BestandenIn(map)) inhoud[naam] = ReadBytes(map + naam);
  return inhoud;
}

// Its name is what `ctest -R Robuustheid` picks the robustness tests by.
class Robuustheid : public ::testing::Test, public FoutMelder {
 protected:
  Robuustheid() {
    KopieerMap(TestDataDir() + "../../data", Programma());
    std::filesystem::create_directories(Uit());
    fotos_ = {{"strand.jpg", CameraJpeg(800, 600, 1)}, {"duin.jpg", CameraJpeg(600, 800, 2)},
              {"zee.jpg", ProefJpeg(160, 120, 3)}};
    for (const auto& [naam, bytes] : fotos_) WriteBytes(Uit() + naam, bytes);
  }

  std::string Programma() const { return dir_ / "programma/"; }
  std::string Uit() const { return dir_ / "uit/"; }
  std::string Script() const { return dir_ / "galerie.kbs"; }

  // The script for `namen` (or the fixture's photos) with template set
  // `sjabloon` and output folder `uit` (or Uit()).
  void SchrijfScript(std::vector<std::string> namen = {}, const std::string& sjabloon = "Klassiek",
                     const std::string& uit = "") {
    if (namen.empty()) {
      for (const auto& [naam, bytes] : fotos_) namen.push_back(naam);
    }
    std::string script = "[Algemeen]\r\nUitvoerDir=" + (uit.empty() ? Uit() : uit) +
                         "\r\nThumbnails=1\r\nAantalFotos=" + std::to_string(namen.size()) + "\r\n";
    for (std::size_t i = 0; i < namen.size(); ++i) {
      script += "[Foto00" + std::to_string(i + 1) + "]\r\nFoto=" + namen[i] + "\r\nBijschrift=Foto\r\n";
    }
    WriteBytes(Script(), script + "[Instellingen]\r\nSjabloon=" + sjabloon + "\r\n");
  }

  SiteResultaat Genereer() {
    log_.clear();
    meldingen_.clear();
    const ProgramSettings settings = LeesProgrammaInstellingen(Programma(), dir_.path());
    GenerationLog run_log([this](const std::string& regel) { log_.push_back(regel); });
    SiteOmgeving omgeving(settings, run_log, *this);
    omgeving.steps = StandaardStappen([] {
      return std::chrono::year_month_day{std::chrono::year{2026}, std::chrono::month{11}, std::chrono::day{21}};
    });
    return MaakSite(Script(), omgeving);
  }

  void Meld(const std::string& tekst) override { meldingen_.push_back(tekst); }

  // The last `n` lines of the log.
  std::vector<std::string> Staart(std::size_t n) const {
    return {log_.end() - static_cast<long>(std::min(n, log_.size())), log_.end()};
  }

  TempDir dir_;
  std::map<std::string, std::string> fotos_;
  std::vector<std::string> log_, meldingen_;
};

}  // namespace kiekbord::test
