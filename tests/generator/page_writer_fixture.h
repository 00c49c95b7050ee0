// A scratch program directory, output directory and open log for testing
// one page writer outside a whole run.
#pragma once

#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "app/program_settings.h"
#include "base/file_system.h"
#include "base/generation_log.h"
#include "generator/head_and_credit.h"
#include "generator/site_run.h"
#include "tests/support/golden.h"
#include "tests/support/test_support.h"

namespace kiekbord::test {

inline constexpr std::string_view kProefIcoon = "GIF89a proef-icoon\n";
inline constexpr std::chrono::year_month_day kProefDatum{
    std::chrono::year{2026}, std::chrono::month{11}, std::chrono::day{21}};

class PaginaSchrijverTest : public ::testing::Test {
 protected:
  PaginaSchrijverTest() {
    settings_.program_dir = dir_ / "programma/";
    settings_.caption = "Kiekbord 4.1 Pro";
    settings_.credit_url = "https://kiekbord.example/info";
    WriteBytes(settings_.program_dir + "kbicon.gif", kProefIcoon);
    gegevens_.uitvoer_dir = dir_ / "uit/";
    std::filesystem::create_directories(gegevens_.uitvoer_dir);
    gegevens_.ext = ".html";
    gegevens_.thumbnails = "0";
    gegevens_.positie_fotos = "0";
    gegevens_.lettertype_titels = "0";
    gegevens_.lettertype_bijschriften = "0";
    gegevens_.lettergrootte_bijschriften = "2";
    gegevens_.letterstijl_bijschriften = "0";
    gegevens_.kleur_tekst_op_achtergrond = "102030";
    gegevens_.kleur_achtergrond = "FFFFFF";
    gegevens_.kleur_tekst_in_kader = "405060";
    gegevens_.kleur_kader = "CCCCCC";
    run_log_.SchrijfLog("open:" + dir_ / "proef.log");
  }
  ~PaginaSchrijverTest() override { run_log_.SchrijfLog("close"); }

  KopEnCredit Kop() const { return KopEnCreditVoor(settings_, kProefDatum); }

  // Runs `writer` on a fresh run state; returns the failed flag.
  template <typename Writer>
  std::int16_t Voer(Writer writer) {
    SiteRun run{settings_, gegevens_, run_log_, melder_, NavigatieTeksten{}, kGelukt, {}};
    writer(run);
    return run.failed;
  }

  std::string Uit(const std::string& name) const { return gegevens_.uitvoer_dir + name; }

  TempDir dir_;
  ProgramSettings settings_;
  SiteGegevens gegevens_;
  std::vector<std::string> log_;
  GenerationLog run_log_{[this](const std::string& line) { log_.push_back(line); }};
  StderrMelder melder_;
};

// The local disk, except that one file cannot be read and nothing can be
// written under one path (a file, or a directory ending in "/"). Running as
// root ignores permission bits, so refusals are simulated here.
class GeweigerdeToegang : public ForwardingFileSystem {
 public:
  GeweigerdeToegang() : ForwardingFileSystem(LocalFileSystem()) {}
  Status ReadFile(const std::string& path, std::string& contents, std::int64_t max_bytes) override {
    if (!lezen_geweigerd.empty() && path == lezen_geweigerd) {
      return Status::Error(fout::kPermissionDenied);
    }
    return ForwardingFileSystem::ReadFile(path, contents, max_bytes);
  }
  Status WriteFile(const std::string& path, std::string_view contents) override {
    if (!schrijven_geweigerd.empty() && path.starts_with(schrijven_geweigerd)) {
      return Status::Error(fout::kPermissionDenied);
    }
    return ForwardingFileSystem::WriteFile(path, contents);
  }

  std::string lezen_geweigerd;
  std::string schrijven_geweigerd;
};

}  // namespace kiekbord::test
