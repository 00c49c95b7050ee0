// The generation log: one plain line per message, ended by CR LF.
//
// A run is handed its own log object. SchrijfLog("open:" + path) creates the
// file anew, SchrijfLog("close") closes it, and any other text becomes one
// line. Each line also goes to the log's observer, in order, so a window or a
// terminal can show progress.
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

namespace kiekbord {

class AppendFile;
class Status;

using LogObserver = std::function<void(const std::string& line)>;

class GenerationLog {
 public:
  explicit GenerationLog(LogObserver observer = {});
  ~GenerationLog();
  GenerationLog(const GenerationLog&) = delete;
  GenerationLog& operator=(const GenerationLog&) = delete;

  // Writes one log line, or opens or closes the log as described above.
  // Throws RunError, naming the log file, when the log cannot be created or
  // written, or when a line is written while no log is open (52, "Bad file
  // name or number").
  void SchrijfLog(std::string_view text);

 private:
  void Close();

  std::mutex mutex_;
  std::unique_ptr<AppendFile> file_;
  std::string path_;  // of the log opened last, for failure reports
  LogObserver observer_;
};

// Runs `stap`; a failure it returns, or throws as RunError, is logged as
// "Error: " + its description. Returns true when the step failed.
bool LogStapFout(GenerationLog& log, const std::function<Status()>& stap);

}  // namespace kiekbord
