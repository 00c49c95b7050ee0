#include "generator/generation_log.h"

#include <memory>
#include <mutex>
#include <utility>

#include "gallery/file_system.h"
#include "gallery/status.h"
#include "gallery/text.h"

namespace kiekbord {
namespace {

struct Log {
  std::mutex mutex;
  std::unique_ptr<AppendFile> file;
  LogObserver observer;
};

Log& TheLog() {
  static Log log;
  return log;
}

void CloseLog(Log& log) {
  if (!log.file) return;
  const Status status = log.file->Close();
  log.file.reset();
  if (!status.ok()) throw RunError(status);
}

}  // namespace

void SchrijfLog(std::string_view text) {
  Log& log = TheLog();
  std::lock_guard lock(log.mutex);
  const std::string command = Lower(text.substr(0, 5));
  if (command == "open:") {
    CloseLog(log);
    const Status status = Fs().NewAppendFile(std::string(text.substr(5)), log.file);
    if (!status.ok()) throw RunError(status);
    return;
  }
  if (command == "close") {
    CloseLog(log);
    return;
  }
  const std::string line(text);
  if (log.observer) log.observer(line);
  if (!log.file) throw RunError(fout::kBadFileName);
  const Status status = log.file->Append(line + "\r\n");
  if (!status.ok()) throw RunError(status);
}

ScopedLogObserver::ScopedLogObserver(LogObserver observer) {
  Log& log = TheLog();
  std::lock_guard lock(log.mutex);
  previous_ = std::exchange(log.observer, std::move(observer));
}

ScopedLogObserver::~ScopedLogObserver() {
  Log& log = TheLog();
  std::lock_guard lock(log.mutex);
  log.observer = std::move(previous_);
}

}  // namespace kiekbord
