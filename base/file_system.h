// The one seam for file access.
//
// Every file the core reads or writes goes through the installed FileSystem,
// so tests can put a full disk, a permission error or a vanished folder under
// any operation without touching the real machine. The default implementation
// works on the local disk.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/status.h"

namespace kiekbord {

struct FileInfo {
  std::int64_t size = 0;
  // Modification time in nanoseconds since the epoch.
  std::int64_t modified_ns = 0;
  // Which file (or directory) this is: two paths of the same one give the
  // same pair; 0 and 0 when unknown.
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
};

// A file written line by line (the generation log). Every Append reaches the
// disk before it returns, so a crash never loses a line already written.
class AppendFile {
 public:
  virtual ~AppendFile() = default;
  virtual Status Append(std::string_view data) = 0;
  virtual Status Close() = 0;
};

// An advisory lock on a directory, held until this object goes. The system
// drops it when the process that holds it dies, so a killed run never leaves
// a directory locked.
class DirectoryLock {
 public:
  virtual ~DirectoryLock() = default;
};

class FileSystem {
 public:
  virtual ~FileSystem() = default;

  // The whole file, or at most `max_bytes` of it when that is not negative.
  virtual Status ReadFile(const std::string& path, std::string& contents,
                          std::int64_t max_bytes = -1) = 0;
  // At most `max_bytes` of the file from byte `offset` on; shorter at the
  // end of the file. The default reads through ReadFile, so a double that
  // overrides only ReadFile sees (and can fail) every part read; the local
  // disk reads just the part asked for.
  virtual Status ReadFilePart(const std::string& path, std::int64_t offset, std::int64_t max_bytes,
                              std::string& contents);
  // Replaces the file in one step: the data goes to a temporary file beside
  // it that is renamed over the target, so a failure never leaves a
  // half-written file where a complete one was.
  virtual Status WriteFile(const std::string& path, std::string_view contents) = 0;
  // Creates the file anew, empty.
  virtual Status NewAppendFile(const std::string& path, std::unique_ptr<AppendFile>& file) = 0;

  virtual bool FileExists(const std::string& path) = 0;       // a plain file
  virtual bool DirectoryExists(const std::string& path) = 0;
  virtual Status GetFileInfo(const std::string& path, FileInfo& info) = 0;
  virtual Status SetModificationTime(const std::string& path, std::int64_t modified_ns) = 0;

  // Names of the plain files in `directory` matching `pattern` ("*" and "?"),
  // compared without regard to case; hidden files are skipped; sorted
  // byte-wise.
  virtual Status ListFiles(const std::string& directory, const std::string& pattern,
                           std::vector<std::string>& names) = 0;

  virtual Status DeleteFile(const std::string& path) = 0;
  virtual Status RenameFile(const std::string& from, const std::string& to) = 0;
  virtual Status CreateDirectory(const std::string& path) = 0;

  // Takes an exclusive advisory lock on the directory itself (no file is
  // added to it). Fails with 70 (Permission denied) when another process
  // holds the lock, with 53 or 76 when the directory is not there, and with
  // 75 when it cannot be opened otherwise. The default, for file systems no
  // other process can see, always succeeds.
  virtual Status LockDirectory(const std::string& path, std::unique_ptr<DirectoryLock>& lock);
};

// The local disk.
FileSystem& LocalFileSystem();

// The file system the core uses now.
FileSystem& Fs();

// Installs another file system for the lifetime of this object (tests).
class ScopedFileSystem {
 public:
  explicit ScopedFileSystem(FileSystem& fs);
  ~ScopedFileSystem();
  ScopedFileSystem(const ScopedFileSystem&) = delete;
  ScopedFileSystem& operator=(const ScopedFileSystem&) = delete;

 private:
  FileSystem* previous_;
};

// Forwards every call to another file system; fault-injecting test doubles
// derive from it and override only what they break.
class ForwardingFileSystem : public FileSystem {
 public:
  explicit ForwardingFileSystem(FileSystem& target) : target_(target) {}
  Status ReadFile(const std::string& path, std::string& contents, std::int64_t max_bytes) override {
    return target_.ReadFile(path, contents, max_bytes);
  }
  Status WriteFile(const std::string& path, std::string_view contents) override {
    return target_.WriteFile(path, contents);
  }
  Status NewAppendFile(const std::string& path, std::unique_ptr<AppendFile>& file) override {
    return target_.NewAppendFile(path, file);
  }
  bool FileExists(const std::string& path) override { return target_.FileExists(path); }
  bool DirectoryExists(const std::string& path) override { return target_.DirectoryExists(path); }
  Status GetFileInfo(const std::string& path, FileInfo& info) override {
    return target_.GetFileInfo(path, info);
  }
  Status SetModificationTime(const std::string& path, std::int64_t modified_ns) override {
    return target_.SetModificationTime(path, modified_ns);
  }
  Status ListFiles(const std::string& directory, const std::string& pattern,
                   std::vector<std::string>& names) override {
    return target_.ListFiles(directory, pattern, names);
  }
  Status DeleteFile(const std::string& path) override { return target_.DeleteFile(path); }
  Status RenameFile(const std::string& from, const std::string& to) override {
    return target_.RenameFile(from, to);
  }
  Status CreateDirectory(const std::string& path) override {
    return target_.CreateDirectory(path);
  }
  Status LockDirectory(const std::string& path, std::unique_ptr<DirectoryLock>& lock) override {
    return target_.LockDirectory(path, lock);
  }
  // ReadFilePart is left to the default, so that an overridden ReadFile sees
  // every read.

 private:
  FileSystem& target_;
};

// True when `name` matches `pattern` ("*" any run, "?" one character),
// without regard to case.
bool MatchesPattern(std::string_view name, std::string_view pattern);

// Copies a file through the installed file system; the copy gets the
// source's modification time.
Status CopyFileKeepingTime(const std::string& from, const std::string& to);

// True for the name of a temporary file of WriteFile ("NAME.kbtmp" + process
// id + "-" + number) whose process is no longer running: a run that died
// left it behind.
bool IsLeftoverTemporaryName(std::string_view name);

// True when `name` names a file or directory inside a directory: not empty,
// not "." or "..", and without "/" (so neither absolute nor reaching up).
bool IsPlainName(std::string_view name);

// Path helpers: the directory part with its trailing "/", and the file name.
std::string DirectoryOf(const std::string& path);
std::string FileNameOf(const std::string& path);
// The directory with a "/" appended when it does not already end in one.
std::string WithTrailingSlash(std::string directory);

}  // namespace kiekbord
