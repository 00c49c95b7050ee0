// The generation run: one saved gallery script and a template set in, a web
// site and a log out.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "app/program_settings.h"
#include "gallery/status.h"
#include "generator/generation_log.h"
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

struct SiteOmgeving {
  explicit SiteOmgeving(const ProgramSettings& program_settings) : settings(program_settings) {}
  const ProgramSettings& settings;
  SiteSteps steps = StandaardStappen();
  LogObserver observer;
  std::function<void(int done, int total)> voortgang;
};

// The log path of a script: its file name lower-cased with every ".kbs"
// replaced by ".log"; the directory keeps its case.
std::string LogPad(const std::string& script_path);

// Runs the generation for the script at `script_path`, writing the log at
// LogPad(script_path).
SiteResultaat MaakSite(const std::string& script_path, const SiteOmgeving& omgeving);

}  // namespace kiekbord
