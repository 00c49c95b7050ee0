// The generation log: one plain line per message, ended by CR LF.
//
// There is one log per program. SchrijfLog("open:" + path) creates it anew,
// SchrijfLog("close") closes it, and any other text becomes one line. Each
// line also goes to the observer installed for the run, in order, so a
// window or a terminal can show progress.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace kiekbord {

using LogObserver = std::function<void(const std::string& line)>;

// Writes one log line, or opens or closes the log as described above.
// Throws RunError when the log cannot be created or written, or when a line
// is written while no log is open (52, "Bad file name or number").
void SchrijfLog(std::string_view text);

// Installs an observer for every line written while this object lives.
class ScopedLogObserver {
 public:
  explicit ScopedLogObserver(LogObserver observer);
  ~ScopedLogObserver();
  ScopedLogObserver(const ScopedLogObserver&) = delete;
  ScopedLogObserver& operator=(const ScopedLogObserver&) = delete;

 private:
  LogObserver previous_;
};

}  // namespace kiekbord
