#include "tests/support/fault_fs.h"

namespace kiekbord::test {
namespace {

// A log file whose lines go through the double's rules.
class FoutLog : public AppendFile {
 public:
  FoutLog(std::unique_ptr<AppendFile> echt, std::string pad, FoutenSchijf& fs)
      : echt_(std::move(echt)), pad_(std::move(pad)), fs_(fs) {}
  Status Append(std::string_view data) override {
    return fs_.Of(FoutenSchijf::kLog, pad_, [&] { return echt_->Append(data); });
  }
  Status Close() override { return echt_->Close(); }

 private:
  std::unique_ptr<AppendFile> echt_;
  const std::string pad_;
  FoutenSchijf& fs_;
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

Status FoutenSchijf::ReadFile(const std::string& p, std::string& c, std::int64_t max) {
  return Of(kLezen, p, [&] { return ForwardingFileSystem::ReadFile(p, c, max); });
}
Status FoutenSchijf::WriteFile(const std::string& p, std::string_view c) {
  return Of(kSchrijven, p, [&] { return ForwardingFileSystem::WriteFile(p, c); });
}
Status FoutenSchijf::NewAppendFile(const std::string& p, std::unique_ptr<AppendFile>& file) {
  return Of(kLog, p, [&] {
    const Status status = ForwardingFileSystem::NewAppendFile(p, file);
    if (status.ok()) file = std::make_unique<FoutLog>(std::move(file), p, *this);
    return status;
  });
}
bool FoutenSchijf::FileExists(const std::string& p) {
  return Fout(kInfo, p) == 0 && ForwardingFileSystem::FileExists(p);
}
bool FoutenSchijf::DirectoryExists(const std::string& p) {
  return Fout(kInfo, p) == 0 && ForwardingFileSystem::DirectoryExists(p);
}
Status FoutenSchijf::GetFileInfo(const std::string& p, FileInfo& info) {
  return Of(kInfo, p, [&] { return ForwardingFileSystem::GetFileInfo(p, info); });
}
Status FoutenSchijf::SetModificationTime(const std::string& p, std::int64_t ns) {
  return Of(kTijd, p, [&] { return ForwardingFileSystem::SetModificationTime(p, ns); });
}
Status FoutenSchijf::ListFiles(const std::string& d, const std::string& pat, std::vector<std::string>& n) {
  return Of(kLijst, WithTrailingSlash(d), [&] { return ForwardingFileSystem::ListFiles(d, pat, n); });
}
Status FoutenSchijf::DeleteFile(const std::string& p) {
  return Of(kVerwijderen, p, [&] { return ForwardingFileSystem::DeleteFile(p); });
}
Status FoutenSchijf::RenameFile(const std::string& from, const std::string& to) {
  return Of(kHernoemen, from, [&] { return ForwardingFileSystem::RenameFile(from, to); });
}
Status FoutenSchijf::CreateDirectory(const std::string& p) {
  return Of(kMap, p, [&] { return ForwardingFileSystem::CreateDirectory(p); });
}

}  // namespace kiekbord::test
