// The one fault-injecting file system of the tests. It forwards every call to
// the local disk, fails the calls it is told to fail, and lets a test watch
// every call (to count or record them). Safe to use from worker threads.
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "base/file_system.h"

namespace kiekbord::test {

class FoutenSchijf : public ForwardingFileSystem {
 public:
  // Kinds of call, to be or-ed together in Faal.
  enum Soort : unsigned {
    kLezen = 1,          // ReadFile
    kSchrijven = 2,      // WriteFile
    kLog = 4,            // NewAppendFile and every line appended to it
    kVerwijderen = 8,    // DeleteFile
    kHernoemen = 16,     // RenameFile (the source path is matched)
    kInfo = 32,          // FileExists (answers false), DirectoryExists, GetFileInfo
    kLijst = 64,         // ListFiles (the directory is matched, with "/")
    kMap = 128,          // CreateDirectory
    kTijd = 256,         // SetModificationTime
  };

  using Basis = ForwardingFileSystem;
  FoutenSchijf() : Basis(LocalFileSystem()) {}

  // Every call of a kind in `soorten` whose path matches `patroon` (the whole
  // path, "*" and "?", case-insensitive) fails with error `fout`, except the
  // first `na` such calls.
  FoutenSchijf& Faal(unsigned soorten, std::string patroon, int fout, int na = 0);

  // Called for every call, before it is forwarded or failed.
  std::function<void(Soort, const std::string&)> bij_aanroep;

  Status ReadFile(const std::string& p, std::string& c, std::int64_t max) override {
    return Of(kLezen, p, [&] { return Basis::ReadFile(p, c, max); });
  }
  Status WriteFile(const std::string& p, std::string_view c) override {
    return Of(kSchrijven, p, [&] { return Basis::WriteFile(p, c); });
  }
  Status NewAppendFile(const std::string& p, std::unique_ptr<AppendFile>& file) override;
  bool FileExists(const std::string& p) override { return Fout(kInfo, p) == 0 && Basis::FileExists(p); }
  bool DirectoryExists(const std::string& p) override { return Fout(kInfo, p) == 0 && Basis::DirectoryExists(p); }
  Status GetFileInfo(const std::string& p, FileInfo& info) override {
    return Of(kInfo, p, [&] { return Basis::GetFileInfo(p, info); });
  }
  Status SetModificationTime(const std::string& p, std::int64_t ns) override {
    return Of(kTijd, p, [&] { return Basis::SetModificationTime(p, ns); });
  }
  Status ListFiles(const std::string& d, const std::string& pat, std::vector<std::string>& n) override {
    return Of(kLijst, WithTrailingSlash(d), [&] { return Basis::ListFiles(d, pat, n); });
  }
  Status DeleteFile(const std::string& p) override { return Of(kVerwijderen, p, [&] { return Basis::DeleteFile(p); }); }
  Status RenameFile(const std::string& from, const std::string& to) override {
    return Of(kHernoemen, from, [&] { return Basis::RenameFile(from, to); });
  }
  Status CreateDirectory(const std::string& p) override {
    return Of(kMap, p, [&] { return Basis::CreateDirectory(p); });
  }

  // The error for this call, or 0 when it goes through.
  int Fout(Soort soort, const std::string& path);
  // The call's error, or what `door` returns when the call goes through.
  Status Of(Soort soort, const std::string& path, const std::function<Status()>& door) {
    const int fout = Fout(soort, path);
    return fout != 0 ? Status::Error(fout) : door();
  }

 private:
  struct Regel { unsigned soorten; std::string patroon; int fout; int na; };
  std::mutex mutex_;
  std::vector<Regel> regels_;
};

}  // namespace kiekbord::test
