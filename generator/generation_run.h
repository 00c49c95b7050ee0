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
  // With `onverwacht`: what failed, a file or a setting and its script
  // ("het kopiëren van A naar B", "PositieBijschriften in script S"); empty
  // when unknown.
  std::string onderwerp;
  // Set when the run did not start because another run holds the output
  // directory: the message for the user. Nothing was written then, not even
  // the log.
  std::string geweigerd;
  // Set when the user stopped the run between two steps or pages; the log
  // says so and ends "Abnormaal einde.".
  bool afgebroken = false;
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
  // Called once the run holds the output directory's lock, before anything
  // is written: work on the photos there that must not overlap another run
  // (the headless command's --rechtop). Not called when the run is turned
  // away or the directory cannot be locked.
  std::function<void()> na_vergrendelen;
  // Asked between steps, thumbnails and photo pages (from the run's
  // thread): true stops the run there. Files are written whole or not at all.
  std::function<bool()> afbreken;
};

// The log path of a script: its file name lower-cased with every ".kbs"
// replaced by ".log"; the directory keeps its case.
std::string LogPad(const std::string& script_path);

// Runs the generation for the script at `script_path`, writing the log at
// LogPad(script_path). The run writes and deletes only in the output
// directory the script names, and only after checking it: an empty or
// relative "UitvoerDir", a missing directory, a template set name that is
// not a plain name, are logged and end the run "Abnormaal einde." before
// anything is written. The directory stays locked for the run (one run per
// output directory; see `geweigerd`), and temporary files of runs that died
// there are removed first. A photo name that is not a plain name is logged
// and left out.
SiteResultaat MaakSite(const std::string& script_path, const SiteOmgeving& omgeving);

}  // namespace kiekbord
