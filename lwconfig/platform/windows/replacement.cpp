#include "replacement.h"

#include <algorithm>
#include <cerrno>
#include <system_error>

#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/platform/temporary_name.h>

#include "system.h"

namespace lwconfig::platform {
namespace {

constexpr std::wstring_view kLongPrefix = L"\\\\?\\";
/// In characters. The system's lengths are 16-bit byte counts; leave room for the prefix and a
/// name beside it.
constexpr std::size_t kLongestPath = 32'000;

/// Reject NUL: the system would cut the path there.
void CheckPath(std::string_view path) {
  if (path.find('\0') != std::string_view::npos)
    throw std::system_error(ENOENT, std::generic_category(), std::string(path));
}

[[noreturn]] void ThrowBadName(std::string_view path) {
  throw std::system_error(EINVAL, std::generic_category(), std::string(path));
}

std::wstring FullSystemPath(std::string_view path) {
  std::wstring wide = Wide(path);
  std::ranges::replace(wide, L'/', L'\\');
  if (wide.starts_with(kLongPrefix)) return wide;
  const DWORD needed = ::GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr);
  std::wstring full(needed, L'\0');
  full.resize(::GetFullPathNameW(wide.c_str(), needed, full.data(), nullptr));
  return full;
}

/// The target of the link at the path; the path itself where there is no link or no entry.
std::wstring LinkTarget(const std::wstring& path) {
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return path;
  const Handle file(::CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                  nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  if (!file.IsOpen()) return path;
  const DWORD needed = ::GetFinalPathNameByHandleW(file.Get(), nullptr, 0, FILE_NAME_NORMALIZED);
  std::wstring target(needed, L'\0');
  target.resize(::GetFinalPathNameByHandleW(file.Get(), target.data(), needed, FILE_NAME_NORMALIZED));
  return target.empty() ? path : target;
}

/// The path with its last name in the letter case on disk. The entry must exist: for other names the search
/// accepts wildcards and finds another file.
std::wstring InLetterCaseOnDisk(std::wstring path) {
  WIN32_FIND_DATAW found{};
  const HANDLE search = ::FindFirstFileW(path.c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return path;
  ::FindClose(search);
  return path.replace(path.find_last_of(L'\\') + 1, std::wstring::npos, found.cFileName);
}

/// The new content is collected in a hidden file beside the target. Nobody else can open it while it is
/// written, so it serves as the lock. A file left by a process that died is overwritten.
class Replacement final : public FileReplacement {
 public:
  Replacement(std::wstring target, ReplaceMode mode, std::string subject)
      : mTarget(std::move(target)),
        mMode(mode),
        mSubject(std::move(subject)),
        mTemporary(TemporaryFor(mTarget)),
        mFile(::CreateFileW(mTemporary.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_ALWAYS,
                            FILE_ATTRIBUTE_HIDDEN, nullptr)) {
    if (mFile.IsOpen()) return;
    const DWORD error = ::GetLastError();
    // Throw another error than for reading: an impossible name is not merely missing, it cannot be created.
    if (error == ERROR_INVALID_NAME) ThrowBadName(mSubject);
    ThrowWindowsError(mSubject, error);
  }
  ~Replacement() override {
    if (!mFile.IsOpen()) return;
    mFile.Close();
    ::DeleteFileW(mTemporary.c_str());
  }
  Replacement(const Replacement&) = delete;
  Replacement& operator=(const Replacement&) = delete;

  void Write(std::string_view bytes) override {
    while (!bytes.empty()) {
      DWORD written = 0;
      const auto part = static_cast<DWORD>(std::min<std::size_t>(bytes.size(), 1U << 30));
      if (::WriteFile(mFile.Get(), bytes.data(), part, &written, nullptr) == 0) ThrowWindowsError(mSubject);
      bytes.remove_prefix(written);
    }
  }

  void Commit() override {
    if (::FlushFileBuffers(mFile.Get()) == 0) ThrowWindowsError(mSubject);
    mFile.Close();
    const DWORD attributes = ::GetFileAttributesW(mTarget.c_str());
    try {
      PutInPlace(attributes);
    } catch (...) {
      // Keep the new content where the old file is lost.
      if (!Exists(attributes) || Exists(::GetFileAttributesW(mTarget.c_str())))
        ::DeleteFileW(mTemporary.c_str());
      throw;
    }
  }

 private:
  static std::wstring TemporaryFor(const std::wstring& target) {
    const std::size_t start = target.find_last_of(L'\\') + 1;
    return target.substr(0, start) + Wide(TemporaryName(Narrow(target.substr(start))));
  }

  static bool Exists(DWORD attributes) { return attributes != INVALID_FILE_ATTRIBUTES; }

  /// `attributes` are those of the target.
  void PutInPlace(DWORD attributes) const {
    const bool rewrites = Exists(attributes) && mMode == ReplaceMode::Rewrite;
    if (rewrites && Replace()) {
      ::SetFileAttributesW(mTarget.c_str(), attributes);
      return;
    }
    if (Exists(attributes) && !rewrites && (attributes & FILE_ATTRIBUTE_READONLY) != 0)
      ::SetFileAttributesW(mTarget.c_str(), FILE_ATTRIBUTE_NORMAL);
    ::SetFileAttributesW(mTemporary.c_str(), rewrites ? attributes : FILE_ATTRIBUTE_NORMAL);
    if (::MoveFileExW(mTemporary.c_str(), mTarget.c_str(),
                      MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) == 0)
      ThrowWindowsError(mSubject);
  }

  /// Keeps the permissions, attributes and times of the old file. False where the file remains to be moved:
  /// the file system cannot replace, or has removed the old file and stopped there.
  bool Replace() const {
    // Fail here for a file that others hold, before the system has begun and leaves files behind.
    if (!Handle(::CreateFileW(mTarget.c_str(), DELETE, kShareAll, nullptr, OPEN_EXISTING,
                              FILE_FLAG_BACKUP_SEMANTICS, nullptr))
             .IsOpen())
      ThrowWindowsError(mSubject);
    constexpr DWORD kFlags = REPLACEFILE_IGNORE_MERGE_ERRORS | REPLACEFILE_IGNORE_ACL_ERRORS;
    if (::ReplaceFileW(mTarget.c_str(), mTemporary.c_str(), nullptr, kFlags, nullptr, nullptr) != 0)
      return true;
    const DWORD error = ::GetLastError();
    const bool cannot = error == ERROR_NOT_SUPPORTED || error == ERROR_INVALID_FUNCTION;
    if (!cannot && Exists(::GetFileAttributesW(mTarget.c_str()))) ThrowWindowsError(mSubject, error);
    return false;
  }

  const std::wstring mTarget;
  const ReplaceMode mMode;
  const std::string mSubject;
  const std::wstring mTemporary;
  Handle mFile;
};

}  // namespace

std::string FullPath(std::string_view path) {
  CheckPath(path);
  const std::wstring full = FullSystemPath(path);
  if (!full.starts_with(kLongPrefix)) return Narrow(full);
  const std::string rest = Narrow(full.substr(kLongPrefix.size()));
  if (EqualIgnoringCase(rest.substr(0, 4), "UNC\\")) return "\\" + rest.substr(3);
  return rest.substr(1, 1) == ":" ? rest : Narrow(full);
}

std::wstring SystemPath(std::string_view path) {
  CheckPath(path);
  if (path.empty()) throw std::system_error(ENOENT, std::generic_category(), std::string());
  const std::wstring full = FullSystemPath(path);
  if (full.starts_with(L"\\\\.\\")) ThrowBadName(path);  // a device, such as that of the name "aux"
  if (full.size() > kLongestPath)
    throw std::system_error(ENAMETOOLONG, std::generic_category(), std::string(path));
  if (full.starts_with(kLongPrefix)) return full;
  if (full.starts_with(L"\\\\")) return std::wstring(kLongPrefix) + L"UNC" + full.substr(1);
  return std::wstring(kLongPrefix) + full;
}

std::unique_ptr<FileReplacement> BeginReplacement(std::string_view path, ReplaceMode mode) {
  std::wstring target = SystemPath(path);
  // Reject an alternate stream of a file: it could not be put in place.
  if (target.find(L':', target.find_last_of(L'\\') + 1) != std::wstring::npos) ThrowBadName(path);
  if (mode == ReplaceMode::Rewrite) target = LinkTarget(target);
  const DWORD attributes = ::GetFileAttributesW(target.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES) {
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
      throw std::system_error(EISDIR, std::generic_category(), std::string(path));
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0 && mode == ReplaceMode::Rewrite)
      throw std::system_error(EACCES, std::generic_category(), std::string(path));
    target = InLetterCaseOnDisk(std::move(target));
  }
  return std::make_unique<Replacement>(std::move(target), mode, std::string(path));
}

}  // namespace lwconfig::platform
