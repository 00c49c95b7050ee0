#include "base/file_system.h"

#include <dirent.h>
#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstring>
#include <limits>

#include "base/text.h"

namespace kiekbord {
namespace {

// Closes a descriptor on every path out of a function.
class Descriptor {
 public:
  explicit Descriptor(int fd) : fd_(fd) {}
  ~Descriptor() { if (fd_ >= 0) ::close(fd_); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  int get() const { return fd_; }
  bool valid() const { return fd_ >= 0; }
  // Hands the descriptor to a new owner.
  int Release() {
    const int fd = fd_;
    fd_ = -1;
    return fd;
  }
  // Closes now and reports the result (a deferred write error shows here).
  int Close() {
    const int result = ::close(fd_);
    fd_ = -1;
    return result;
  }

 private:
  int fd_;
};

Status WriteAll(int fd, std::string_view data) {
  while (!data.empty()) {
    const ssize_t written = ::write(fd, data.data(), data.size());
    if (written < 0) {
      if (errno == EINTR) continue;
      return Status::FromErrno(errno);
    }
    data.remove_prefix(static_cast<std::size_t>(written));
  }
  return Status::Ok();
}

// A descriptor of the file at `path` open for reading, or -1 with `status`
// set; a directory is refused as a path/file access error.
int OpenForReading(const std::string& path, Status& status) {
  Descriptor fd(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  struct stat st {};
  if (!fd.valid() || ::fstat(fd.get(), &st) != 0) {
    status = Status::FromErrno(errno);
    return -1;
  }
  if (S_ISDIR(st.st_mode)) {
    status = Status::Error(fout::kPathFileAccess);
    return -1;
  }
  return fd.Release();
}

std::string TemporaryNameFor(const std::string& path) {
  static std::atomic<unsigned> counter{0};
  return path + ".kbtmp" + std::to_string(::getpid()) + "-" + std::to_string(counter++);
}

class LocalAppendFile : public AppendFile {
 public:
  explicit LocalAppendFile(int fd) : fd_(fd) {}
  Status Append(std::string_view data) override {
    if (!fd_.valid()) return Status::Error(fout::kBadFileName);
    return WriteAll(fd_.get(), data);
  }
  Status Close() override {
    if (!fd_.valid()) return Status::Ok();
    return fd_.Close() == 0 ? Status::Ok() : Status::FromErrno(errno);
  }

 private:
  Descriptor fd_;
};

// Holds an open descriptor of the directory with flock() on it; closing the
// descriptor (or the process ending) releases the lock.
class LocalDirectoryLock : public DirectoryLock {
 public:
  explicit LocalDirectoryLock(int fd) : fd_(fd) {}

 private:
  Descriptor fd_;
};

class DiskFileSystem : public FileSystem {
 public:
  Status ReadFilePart(const std::string& path, std::int64_t offset, std::int64_t max_bytes,
                      std::string& contents) override {
    contents.clear();
    Status opened;
    Descriptor fd(OpenForReading(path, opened));
    if (!fd.valid()) return opened;
    contents.resize(static_cast<std::size_t>(std::max<std::int64_t>(max_bytes, 0)));
    std::size_t got_total = 0;
    while (got_total < contents.size()) {
      const ssize_t got = ::pread(fd.get(), contents.data() + got_total, contents.size() - got_total,
                                  static_cast<off_t>(offset + static_cast<std::int64_t>(got_total)));
      if (got < 0) {
        if (errno == EINTR) continue;
        contents.clear();
        return Status::FromErrno(errno);
      }
      if (got == 0) break;
      got_total += static_cast<std::size_t>(got);
    }
    contents.resize(got_total);
    return Status::Ok();
  }

  Status LockDirectory(const std::string& path, std::unique_ptr<DirectoryLock>& lock) override {
    Descriptor fd(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!fd.valid()) {
      const int number = ErrorNumberFromErrno(errno);
      // Only a lock held elsewhere may read as "Permission denied".
      return Status::Error(number == fout::kPermissionDenied ? fout::kPathFileAccess : number);
    }
    while (::flock(fd.get(), LOCK_EX | LOCK_NB) != 0) {
      if (errno == EINTR) continue;
      return Status::Error(errno == EWOULDBLOCK ? fout::kPermissionDenied : fout::kPathFileAccess);
    }
    lock = std::make_unique<LocalDirectoryLock>(fd.get());
    static_cast<void>(fd.Release());
    return Status::Ok();
  }

  Status ReadFile(const std::string& path, std::string& contents, std::int64_t max_bytes) override {
    contents.clear();
    Status opened;
    Descriptor fd(OpenForReading(path, opened));
    if (!fd.valid()) return opened;
    char buffer[65536];
    while (max_bytes < 0 || static_cast<std::int64_t>(contents.size()) < max_bytes) {
      std::size_t want = sizeof buffer;
      if (max_bytes >= 0) {
        want = std::min<std::size_t>(want, static_cast<std::size_t>(max_bytes) - contents.size());
      }
      const ssize_t got = ::read(fd.get(), buffer, want);
      if (got < 0) {
        if (errno == EINTR) continue;
        return Status::FromErrno(errno);
      }
      if (got == 0) break;
      contents.append(buffer, static_cast<std::size_t>(got));
    }
    return Status::Ok();
  }

  Status WriteFile(const std::string& path, std::string_view contents) override {
    const std::string temporary = TemporaryNameFor(path);
    Descriptor fd(::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666));
    if (!fd.valid()) return Status::FromErrno(errno);
    Status status = WriteAll(fd.get(), contents);
    if (status.ok() && fd.Close() != 0) status = Status::FromErrno(errno);
    if (status.ok()) {
      struct stat st {};
      if (::stat(path.c_str(), &st) == 0) ::chmod(temporary.c_str(), st.st_mode & 07777);
      if (::rename(temporary.c_str(), path.c_str()) != 0) status = Status::FromErrno(errno);
    }
    if (!status.ok()) ::unlink(temporary.c_str());
    return status;
  }

  Status NewAppendFile(const std::string& path, std::unique_ptr<AppendFile>& file) override {
    const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (fd < 0) return Status::FromErrno(errno);
    file = std::make_unique<LocalAppendFile>(fd);
    return Status::Ok();
  }

  bool FileExists(const std::string& path) override {
    struct stat st {};
    return ::stat(path.c_str(), &st) == 0 && S_ISREG(st.st_mode);
  }

  bool DirectoryExists(const std::string& path) override {
    struct stat st {};
    return !path.empty() && ::stat(path.c_str(), &st) == 0 && S_ISDIR(st.st_mode);
  }

  Status GetFileInfo(const std::string& path, FileInfo& info) override {
    struct stat st {};
    if (::stat(path.c_str(), &st) != 0) return Status::FromErrno(errno);
    info.size = st.st_size;
    info.modified_ns = static_cast<std::int64_t>(st.st_mtim.tv_sec) * 1000000000 + st.st_mtim.tv_nsec;
    info.device = st.st_dev;
    info.inode = st.st_ino;
    return Status::Ok();
  }

  Status SetModificationTime(const std::string& path, std::int64_t modified_ns) override {
    struct timespec times[2];
    times[0].tv_sec = 0;
    times[0].tv_nsec = UTIME_OMIT;
    times[1].tv_sec = modified_ns / 1000000000;
    times[1].tv_nsec = modified_ns % 1000000000;
    if (::utimensat(AT_FDCWD, path.c_str(), times, 0) != 0) return Status::FromErrno(errno);
    return Status::Ok();
  }

  Status ListFiles(const std::string& directory, const std::string& pattern,
                   std::vector<std::string>& names) override {
    names.clear();
    const std::string dir = directory.empty() ? "." : directory;
    DIR* handle = ::opendir(dir.c_str());
    if (handle == nullptr) return Status::FromErrno(errno == ENOENT ? ENOTDIR : errno);
    const std::unique_ptr<DIR, int (*)(DIR*)> closer(handle, ::closedir);
    while (const dirent* entry = ::readdir(handle)) {
      const std::string name = entry->d_name;
      if (name.empty() || name[0] == '.') continue;
      if (!MatchesPattern(name, pattern)) continue;
      if (!FileExists(WithTrailingSlash(dir) + name)) continue;
      names.push_back(name);
    }
    std::sort(names.begin(), names.end());
    return Status::Ok();
  }

  Status DeleteFile(const std::string& path) override {
    return ::unlink(path.c_str()) == 0 ? Status::Ok() : Status::FromErrno(errno);
  }

  Status RenameFile(const std::string& from, const std::string& to) override {
    return ::rename(from.c_str(), to.c_str()) == 0 ? Status::Ok() : Status::FromErrno(errno);
  }

  Status CreateDirectory(const std::string& path) override {
    return ::mkdir(path.c_str(), 0777) == 0 ? Status::Ok() : Status::FromErrno(errno);
  }
};

FileSystem* installed_file_system = nullptr;

std::u32string CodePoints(std::string_view text) {
  std::u32string out;
  for (std::size_t i = 0; i < text.size();) {
    const auto c = static_cast<unsigned char>(text[i]);
    std::size_t len = c < 0x80 ? 1 : (c & 0xE0) == 0xC0 ? 2 : (c & 0xF0) == 0xE0 ? 3 : 4;
    if (i + len > text.size()) len = 1;
    char32_t cp = len == 1 ? c : c & (0x3F >> (len - 1));
    for (std::size_t k = 1; k < len; ++k) cp = (cp << 6) | (text[i + k] & 0x3F);
    out += cp;
    i += len;
  }
  return out;
}

bool Glob(const std::u32string& name, const std::u32string& pattern) {
  // Iterative matcher with back-tracking to the last "*".
  std::size_t n = 0, p = 0, star = std::u32string::npos, resume = 0;
  while (n < name.size()) {
    if (p < pattern.size() && (pattern[p] == U'?' || pattern[p] == name[n])) {
      ++n;
      ++p;
    } else if (p < pattern.size() && pattern[p] == U'*') {
      star = p++;
      resume = n;
    } else if (star != std::u32string::npos) {
      p = star + 1;
      n = ++resume;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == U'*') ++p;
  return p == pattern.size();
}

}  // namespace

Status FileSystem::ReadFilePart(const std::string& path, std::int64_t offset, std::int64_t max_bytes,
                                std::string& contents) {
  const Status status = ReadFile(path, contents, offset + max_bytes);
  if (!status.ok()) {
    contents.clear();
    return status;
  }
  contents.erase(0, std::min(contents.size(), static_cast<std::size_t>(offset)));
  return Status::Ok();
}

Status FileSystem::LockDirectory(const std::string&, std::unique_ptr<DirectoryLock>& lock) {
  lock = std::make_unique<DirectoryLock>();
  return Status::Ok();
}

bool IsLeftoverTemporaryName(std::string_view name) {
  constexpr std::string_view kMark = ".kbtmp";
  const auto mark = name.rfind(kMark);
  if (mark == std::string_view::npos || mark == 0) return false;
  const std::string_view rest = name.substr(mark + kMark.size());
  const auto dash = rest.find('-');
  const auto digits = [](std::string_view part) {
    return !part.empty() && part.size() <= 18 &&
           std::all_of(part.begin(), part.end(), [](char c) { return c >= '0' && c <= '9'; });
  };
  if (dash == std::string_view::npos || !digits(rest.substr(0, dash)) || !digits(rest.substr(dash + 1))) return false;
  const long long pid = std::stoll(std::string(rest.substr(0, dash)));
  if (pid > std::numeric_limits<pid_t>::max()) return true;  // no process can have it
  if (pid <= 0 || pid == ::getpid()) return false;
  // A running process may be writing it right now; only a dead one's is left over.
  return ::kill(static_cast<pid_t>(pid), 0) != 0 && errno == ESRCH;
}

bool IsPlainName(std::string_view name) {
  return !name.empty() && name != "." && name != ".." && name.find('/') == std::string_view::npos;
}

FileSystem& LocalFileSystem() {
  static DiskFileSystem local;
  return local;
}

FileSystem& Fs() {
  return installed_file_system != nullptr ? *installed_file_system : LocalFileSystem();
}

ScopedFileSystem::ScopedFileSystem(FileSystem& fs) : previous_(installed_file_system) {
  installed_file_system = &fs;
}

ScopedFileSystem::~ScopedFileSystem() { installed_file_system = previous_; }

bool MatchesPattern(std::string_view name, std::string_view pattern) {
  return Glob(CodePoints(Upper(name)), CodePoints(Upper(pattern)));
}

Status CopyFileKeepingTime(const std::string& from, const std::string& to) {
  FileInfo info;
  Status status = Fs().GetFileInfo(from, info);
  std::string contents;
  if (status.ok()) status = Fs().ReadFile(from, contents);
  if (status.ok()) status = Fs().WriteFile(to, contents);
  if (status.ok()) status = Fs().SetModificationTime(to, info.modified_ns);
  return status;
}

std::string DirectoryOf(const std::string& path) {
  const auto slash = path.rfind('/');
  return slash == std::string::npos ? "" : path.substr(0, slash + 1);
}

std::string FileNameOf(const std::string& path) {
  const auto slash = path.rfind('/');
  return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string WithTrailingSlash(std::string directory) {
  if (directory.empty() || directory.back() != '/') directory += '/';
  return directory;
}

}  // namespace kiekbord
