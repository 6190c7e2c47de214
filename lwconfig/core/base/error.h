#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <string_view>

namespace lwconfig {

/// Error numbers of the Basic run-time system.
enum ErrorNumber : std::int32_t {
  kInvalidCall = 5,
  kOverflow = 6,
  kSubscriptOutOfRange = 9,
  kTypeMismatch = 13,
  kBadFileName = 52,
  kFileNotFound = 53,
  kPermissionDenied = 70,
  kPathFileAccess = 75,
  kPathNotFound = 76,
  kObjectNotSet = 91,
  kDuplicateKey = 457,
  kReportedFailure = 65535,
};

/// A place in the library's own code.
struct CodePlace {
  const char* Function = "";
  const char* File = "";
  std::int32_t Line = 0;

  static constexpr CodePlace Current(const char* function = __builtin_FUNCTION(),
                                     const char* file = __builtin_FILE(),
                                     std::int32_t line = __builtin_LINE()) {
    return {function, file, line};
  }
};

/// A place in a file. An empty `File` means no place is known; line and column count from 1, columns in
/// characters, and are 0 when only the file is known.
struct FilePosition {
  std::string File;
  std::int32_t Line = 0;
  std::int32_t Column = 0;
};

/// A failure of the library. Every operation that fails throws one and keeps the state changed so far.
class Error : public std::exception {
 public:
  Error(std::int32_t number, std::string description, CodePlace where = CodePlace::Current());

  std::int32_t Number() const { return mNumber; }
  const std::string& Description() const { return mDescription; }
  /// The source of the failure; "LWConfigObjects" unless set.
  const std::string& Source() const { return mSource; }
  /// The place in the file that the failing operation was reading, if any.
  const FilePosition& Position() const { return mPosition; }
  /// The place in the library that threw the error.
  const CodePlace& Where() const { return mWhere; }
  /// "file:line:column: description", as far as a place is known.
  const char* what() const noexcept override { return mText.c_str(); }

  void SetSource(std::string source) { mSource = std::move(source); }
  /// Records the place; the first one recorded stays.
  void SetPosition(FilePosition position);

 private:
  std::int32_t mNumber;
  std::string mDescription;
  std::string mSource = "LWConfigObjects";
  FilePosition mPosition;
  CodePlace mWhere;
  std::string mText;
};

}  // namespace lwconfig
