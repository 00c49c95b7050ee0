#include "base/generation_log.h"

#include <utility>

#include "base/file_system.h"
#include "base/status.h"
#include "base/text.h"

namespace kiekbord {

GenerationLog::GenerationLog(LogObserver observer) : observer_(std::move(observer)) {}

GenerationLog::~GenerationLog() {
  // Only a run cut off by an unexpected failure leaves its log open; that
  // failure has been reported already, so a failing close adds nothing.
  if (file_) static_cast<void>(file_->Close());
}

void GenerationLog::Close() {
  if (!file_) return;
  const Status status = file_->Close();
  file_.reset();
  if (!status.ok()) throw RunError(status, "logbestand " + path_);
}

void GenerationLog::SchrijfLog(std::string_view text) {
  std::lock_guard lock(mutex_);
  const std::string command = Lower(text.substr(0, 5));
  if (command == "open:") {
    Close();
    path_ = std::string(text.substr(5));
    const Status status = Fs().NewAppendFile(path_, file_);
    if (!status.ok()) throw RunError(status, "logbestand " + path_);
    return;
  }
  if (command == "close") {
    Close();
    return;
  }
  const std::string line(text);
  if (observer_) observer_(line);
  if (!file_) throw RunError(fout::kBadFileName);
  const Status status = file_->Append(line + "\r\n");
  if (!status.ok()) throw RunError(status, "logbestand " + path_);
}

bool LogStapFout(GenerationLog& log, const std::function<Status()>& stap) {
  Status status;
  try {
    status = stap();
  } catch (const RunError& error) {
    status = error.status();
  }
  if (status.ok()) return false;
  log.SchrijfLog("Error: " + status.description());
  return true;
}

}  // namespace kiekbord
