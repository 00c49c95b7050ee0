// A small real gallery for the robustness tests: the program's own data
// folder (template sets, icon, "GDIplus.txt") in a scratch folder, an
// output folder with two camera photos and a made one, and a script that
// names them, run through the whole generation.
#pragma once

#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "app/program_settings.h"
#include "base/failure_report.h"
#include "base/file_system.h"
#include "generator/generation_run.h"
#include "tests/images/image_test_support.h"
#include "tests/support/golden.h"
#include "tests/support/test_photos.h"
#include "tests/support/test_support.h"

namespace kiekbord::test {

// Runs `werk` in a child process; its exit code, or -1 when it did not exit.
inline int InKind(const std::function<int()>& werk) {
  const pid_t kind = fork();
  if (kind == 0) _exit(werk());
  int toestand = 0;
  return kind > 0 && waitpid(kind, &toestand, 0) == kind && WIFEXITED(toestand) ? WEXITSTATUS(toestand) : -1;
}

// kiekbord-maak on `script`, started without a shell in folder `map` with its
// error output into `fout`; its exit code.
inline int KiekbordMaak(const std::string& map, const std::string& script, const std::string& fout) {
  return InKind([&] {
    if (chdir(map.c_str()) != 0 || !freopen("/dev/null", "w", stdout) || !freopen(fout.c_str(), "w", stderr)) return 99;
    const std::string programma = std::string(KIEKBORD_BIN_DIR) + "/kiekbord-maak";
    execl(programma.c_str(), "kiekbord-maak", script.c_str(), static_cast<char*>(nullptr));
    return 98;
  });
}

// What a script of Robuustheid::SchrijfScript holds.
struct ScriptOpties {
  std::vector<std::string> namen{"duin.jpg", "strand.jpg", "zee.jpg"};  // the fixture's photos
  std::vector<std::string> bijschriften{};  // "Foto" for every photo without one
  std::string sjabloon = "Klassiek";
  std::string uit{};  // the fixture's output folder when empty
  std::string algemeen = "Thumbnails=1\r\n";
  std::string instellingen{};
};

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

  void SchrijfScript(ScriptOpties o = {}) {
    o.bijschriften.resize(o.namen.size(), "Foto");
    std::string script = "[Algemeen]\r\nUitvoerDir=" + (o.uit.empty() ? Uit() : o.uit) + "\r\n" + o.algemeen +
                         "AantalFotos=" + std::to_string(o.namen.size()) + "\r\n";
    for (std::size_t i = 0; i < o.namen.size(); ++i) {
      script += "[Foto00" + std::to_string(i + 1) + "]\r\nFoto=" + o.namen[i] + "\r\nBijschrift=" + o.bijschriften[i] + "\r\n";
    }
    WriteBytes(Script(), script + "[Instellingen]\r\nSjabloon=" + o.sjabloon + "\r\n" + o.instellingen);
  }

  SiteResultaat Genereer() {
    log_.clear();
    meldingen_.clear();
    const ProgramSettings settings = LeesProgrammaInstellingen(Programma(), dir_.path());
    GenerationLog run_log([this](const std::string& regel) { log_.push_back(regel); });
    SiteOmgeving omgeving(settings, run_log, *this);
    omgeving.steps = StandaardStappen([] { return std::chrono::year{2026} / 11 / 21; });
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
