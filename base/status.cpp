#include "base/status.h"

#include <cerrno>
#include <exception>
#include <new>

namespace kiekbord {

std::string ErrorDescription(int number) {
  switch (number) {
    case 0: return "";
    case fout::kOverflow: return "Overflow";
    case fout::kOutOfMemory: return "Out of memory";
    case fout::kSubscriptOutOfRange: return "Subscript out of range";
    case fout::kBadFileName: return "Bad file name or number";
    case fout::kFileNotFound: return "File not found";
    case fout::kDeviceIo: return "Device I/O error";
    case fout::kFileExists: return "File already exists";
    case fout::kDiskFull: return "Disk full";
    case fout::kInputPastEnd: return "Input past end of file";
    case fout::kPermissionDenied: return "Permission denied";
    case fout::kPathFileAccess: return "Path/File access error";
    case fout::kPathNotFound: return "Path not found";
    default: return "Application-defined or object-defined error";
  }
}

int ErrorNumberFromErrno(int errno_value) {
  switch (errno_value) {
    case ENOENT: return fout::kFileNotFound;
    case ENOTDIR: return fout::kPathNotFound;
    case EACCES:
    case EPERM:
    case EROFS: return fout::kPermissionDenied;
    case ENOSPC:
    case EDQUOT:
    case EFBIG: return fout::kDiskFull;  // a file-size limit fills up like a disk
    case EEXIST: return fout::kFileExists;
    case ENAMETOOLONG:
    case EINVAL: return fout::kBadFileName;
    case EIO: return fout::kDeviceIo;
    default: return fout::kPathFileAccess;
  }
}

std::string Status::CountSlotText() const {
  return "%Error " + std::to_string(number_) + " " + description_;
}

Status StatusVanUitzondering() {
  try {
    throw;
  } catch (const RunError& error) {
    return error.status();
  } catch (const std::bad_alloc&) {
    return Status::Error(fout::kOutOfMemory);
  } catch (const std::exception& error) {
    return Status::Error(fout::kProgramError, error.what());
  } catch (...) {
    return Status::Error(fout::kProgramError);
  }
}

std::string OnderwerpVanUitzondering() {
  try {
    throw;
  } catch (const RunError& error) {
    return error.onderwerp();
  } catch (...) {
    return "";
  }
}

}  // namespace kiekbord
