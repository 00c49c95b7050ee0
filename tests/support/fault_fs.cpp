#include "tests/support/fault_fs.h"

namespace kiekbord::test {
namespace {

// A log file whose lines go through the double's rules.
struct FoutLog : AppendFile {
  FoutLog(std::unique_ptr<AppendFile> echt, std::string pad, FoutenSchijf& fs)
      : echt(std::move(echt)), pad(std::move(pad)), fs(fs) {}
  Status Append(std::string_view data) override {
    return fs.Of(FoutenSchijf::kLog, pad, [&] { return echt->Append(data); });
  }
  Status Close() override { return echt->Close(); }

  std::unique_ptr<AppendFile> echt;
  const std::string pad;
  FoutenSchijf& fs;
};

}  // namespace

FoutenSchijf& FoutenSchijf::Faal(unsigned soorten, std::string patroon, int fout, int na) {
  std::lock_guard lock(mutex_);
  regels_.push_back({soorten, std::move(patroon), fout, na});
  return *this;
}

int FoutenSchijf::Fout(Soort soort, const std::string& path) {
  if (bij_aanroep) bij_aanroep(soort, path);
  std::lock_guard lock(mutex_);
  for (Regel& regel : regels_) {
    if ((regel.soorten & soort) == 0 || !MatchesPattern(path, regel.patroon)) continue;
    if (regel.na == 0) return regel.fout;
    --regel.na;
  }
  return 0;
}

Status FoutenSchijf::NewAppendFile(const std::string& p, std::unique_ptr<AppendFile>& file) {
  return Of(kLog, p, [&] {
    const Status status = ForwardingFileSystem::NewAppendFile(p, file);
    if (status.ok()) file = std::make_unique<FoutLog>(std::move(file), p, *this);
    return status;
  });
}

}  // namespace kiekbord::test
