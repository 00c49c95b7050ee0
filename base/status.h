// Error values shared by the whole core.
//
// Operations that can fail return a Status. Its number and description follow
// the classic run-time error table the program's messages and log lines quote
// ("53 File not found"), so a failure can be shown to the user or written to a
// line table's count slot without translation.
#pragma once

#include <stdexcept>
#include <string>

namespace kiekbord {

namespace fout {
inline constexpr int kOverflow = 6;
inline constexpr int kOutOfMemory = 7;
inline constexpr int kSubscriptOutOfRange = 9;
inline constexpr int kBadFileName = 52;
inline constexpr int kFileNotFound = 53;
inline constexpr int kDeviceIo = 57;
inline constexpr int kFileExists = 58;
inline constexpr int kDiskFull = 61;
inline constexpr int kInputPastEnd = 62;
inline constexpr int kPermissionDenied = 70;
inline constexpr int kPathFileAccess = 75;
inline constexpr int kPathNotFound = 76;
inline constexpr int kProgramError = 26002;
}  // namespace fout

// The English description of an error number; "Application-defined or
// object-defined error" for numbers outside the table.
std::string ErrorDescription(int number);

// Maps a C errno value onto the error table.
int ErrorNumberFromErrno(int errno_value);

class [[nodiscard]] Status {
 public:
  Status() = default;
  static Status Ok() { return Status(); }
  static Status Error(int number) { return Status(number, ErrorDescription(number)); }
  static Status Error(int number, std::string description) {
    return Status(number, std::move(description));
  }
  static Status FromErrno(int errno_value) { return Error(ErrorNumberFromErrno(errno_value)); }

  bool ok() const { return number_ == 0; }
  int number() const { return number_; }
  const std::string& description() const { return description_; }

  // "%Error 53 File not found": the text a failed read or write leaves in a
  // line table's count slot.
  std::string CountSlotText() const;

 private:
  Status(int number, std::string description)
      : number_(number), description_(std::move(description)) {}
  int number_ = 0;
  std::string description_;
};

// The Status of the exception being handled; call only inside a catch
// block. A RunError gives its own status, lack of memory kOutOfMemory, any
// other exception kProgramError with its message.
Status StatusVanUitzondering();

// Raised where the program's classic behaviour is to abandon an operation at
// once (a table overflow, a text beyond the 16-bit limits, an unwritable log).
// Callers that own an error boundary catch it and turn it into a value.
// `onderwerp` says what failed, for the user's report: a file's path, or a
// setting and the file it is in; empty when the thrower cannot tell.
class RunError : public std::runtime_error {
 public:
  explicit RunError(int number, std::string onderwerp = {}) : RunError(Status::Error(number), std::move(onderwerp)) {}
  explicit RunError(const Status& status, std::string onderwerp = {})
      : std::runtime_error(std::to_string(status.number()) + " " + status.description()),
        status_(status),
        onderwerp_(std::move(onderwerp)) {}
  const Status& status() const { return status_; }
  int number() const { return status_.number(); }
  const std::string& description() const { return status_.description(); }
  const std::string& onderwerp() const { return onderwerp_; }

 private:
  Status status_;
  std::string onderwerp_;
};

// The subject of the RunError being handled, or "" for any other exception;
// call only inside a catch block.
std::string OnderwerpVanUitzondering();

}  // namespace kiekbord
