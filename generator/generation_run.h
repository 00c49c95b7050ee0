// The generation run: one saved gallery script and a template set in, a web
// site and a log out.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "app/program_settings.h"
#include "base/status.h"
#include "base/failure_report.h"
#include "base/generation_log.h"
#include "generator/site_run.h"

namespace kiekbord {

struct SiteResultaat {
  // kGelukt after "Normaal einde.", kMislukt otherwise.
  std::int16_t failed = kGelukt;
  // Set when the run was cut off by an unexpected failure (a table overflow,
  // a page that cannot be deleted, an unwritable log, a failing copier): the
  // log then has no end line.
  std::optional<Status> onverwacht;
};

// What a run is handed: the program settings, the log it writes (whose
// observer shows progress) and the reporter of image failures.
struct SiteOmgeving {
  SiteOmgeving(const ProgramSettings& program_settings, GenerationLog& run_log, FoutMelder& fout_melder)
      : settings(program_settings), log(run_log), melder(fout_melder) {}
  const ProgramSettings& settings;
  GenerationLog& log;
  FoutMelder& melder;
  SiteSteps steps = StandaardStappen();
  std::function<void(int done, int total)> voortgang;
};

// The log path of a script: its file name lower-cased with every ".kbs"
// replaced by ".log"; the directory keeps its case.
std::string LogPad(const std::string& script_path);

// Runs the generation for the script at `script_path`, writing the log at
// LogPad(script_path).
SiteResultaat MaakSite(const std::string& script_path, const SiteOmgeving& omgeving);

}  // namespace kiekbord
