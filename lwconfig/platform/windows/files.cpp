#include <algorithm>
#include <cerrno>
#include <memory>
#include <system_error>

#include <lwconfig/platform/files.h>
#include <lwconfig/platform/temporary_name.h>

#include "replacement.h"
#include "system.h"

namespace lwconfig::platform {
namespace {

/// Whether nothing exists at the path of the failed call.
bool NamesNothing(DWORD error) {
  return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND || error == ERROR_INVALID_NAME ||
         error == ERROR_BAD_NETPATH || error == ERROR_BAD_NET_NAME || error == ERROR_INVALID_DRIVE ||
         error == ERROR_BAD_PATHNAME || error == ERROR_NOT_READY || error == ERROR_DIRECTORY;
}

/// Files through the system's own paths, which are the product's.
class NativeFiles final : public Files {
 public:
  EntryKind Kind(std::string_view path) override {
    if (path.empty()) return EntryKind::Missing;
    std::wstring systemPath;
    try {
      systemPath = SystemPath(path);
    } catch (const std::system_error&) {
      return EntryKind::Missing;  // no file can have that path
    }
    const DWORD attributes = ::GetFileAttributesW(systemPath.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES)
      return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? EntryKind::Folder : EntryKind::File;
    if (!NamesNothing(::GetLastError())) ThrowWindowsError(path);
    return EntryKind::Missing;
  }

  std::string Read(std::string_view path) override {
    const Handle file(::CreateFileW(SystemPath(path).c_str(), GENERIC_READ, kShareAll, nullptr, OPEN_EXISTING,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.IsOpen()) ThrowWindowsError(path);
    if (::GetFileType(file.Get()) != FILE_TYPE_DISK)
      throw std::system_error(ENODEV, std::generic_category(), std::string(path));
    constexpr std::size_t kStep = 1 << 20;
    LARGE_INTEGER size{};
    ::GetFileSizeEx(file.Get(), &size);
    std::string content;
    content.reserve(static_cast<std::size_t>(size.QuadPart));
    for (;;) {
      const std::size_t used = content.size();
      content.resize(std::max(content.capacity(), used + kStep));
      DWORD read = 0;
      const auto room = static_cast<DWORD>(std::min<std::size_t>(content.size() - used, MAXDWORD));
      const bool isRead = ::ReadFile(file.Get(), content.data() + used, room, &read, nullptr) != 0;
      content.resize(used + read);
      if (!isRead) ThrowWindowsError(path);
      if (read == 0) return content;
    }
  }

  std::vector<FolderEntry> List(std::string_view folder) override {
    std::wstring pattern = SystemPath(folder);
    if (!pattern.ends_with(L'\\')) pattern += L'\\';
    WIN32_FIND_DATAW found{};
    const HANDLE search = ::FindFirstFileW((pattern + L'*').c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) {
      if (::GetLastError() == ERROR_FILE_NOT_FOUND && Kind(folder) == EntryKind::Folder) return {};
      ThrowWindowsError(folder);
    }
    const std::unique_ptr<void, BOOL(WINAPI*)(HANDLE)> closer(search, ::FindClose);
    std::vector<FolderEntry> entries;
    do {
      std::string name = Narrow(found.cFileName);
      if (name == "." || name == ".." || IsTemporaryName(name)) continue;
      const bool isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
      const bool isHidden = (found.dwFileAttributes & FILE_ATTRIBUTE_HIDDEN) != 0;
      entries.push_back({std::move(name), isFolder ? EntryKind::Folder : EntryKind::File, isHidden});
    } while (::FindNextFileW(search, &found) != 0);
    if (::GetLastError() != ERROR_NO_MORE_FILES) ThrowWindowsError(folder);
    return entries;
  }

  std::unique_ptr<FileReplacement> Replace(std::string_view path) override {
    return BeginReplacement(path, ReplaceMode::Rewrite);
  }
  std::unique_ptr<FileReplacement> Supersede(std::string_view path, std::string_view /*model*/) override {
    return BeginReplacement(path, ReplaceMode::Supersede);
  }

  void Remove(std::string_view path) override {
    if (::DeleteFileW(SystemPath(path).c_str()) == 0) ThrowWindowsError(path);
  }

  void MakeFolders(std::string_view folder) override {
    std::wstring path = SystemPath(folder);
    while (path.ends_with(L'\\')) path.pop_back();
    // Walk up to the nearest folder that exists or can be created, then down again. A NUL replaces the
    // separator after the current folder.
    std::size_t end = path.size();
    while (!MakeFolder(path.c_str(), folder)) {
      const std::size_t parent = path.find_last_of(L'\\', end);
      if (parent == std::wstring::npos || parent < 3) ThrowWindowsError(folder, ERROR_PATH_NOT_FOUND);
      path[end = parent] = L'\0';
    }
    while (end < path.size()) {
      path[end] = L'\\';
      end = std::min(path.find(L'\0', end), path.size());
      if (!MakeFolder(path.c_str(), folder)) ThrowWindowsError(folder, ERROR_PATH_NOT_FOUND);
    }
  }

  std::string NativePath(std::string_view path) override {
    std::string native(path);
    std::ranges::replace(native, '/', '\\');
    return native;
  }
  std::string ProductPath(std::string_view hostPath) override { return FullPath(hostPath); }

 private:
  /// False where the parent folder is missing.
  static bool MakeFolder(const wchar_t* path, std::string_view subject) {
    if (::CreateDirectoryW(path, nullptr) != 0) return true;
    const DWORD error = ::GetLastError();
    if (error == ERROR_PATH_NOT_FOUND) return false;
    if (error != ERROR_ALREADY_EXISTS) ThrowWindowsError(subject, error);
    const DWORD attributes = ::GetFileAttributesW(path);
    if (attributes == INVALID_FILE_ATTRIBUTES) ThrowWindowsError(subject);
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) == 0)
      throw std::system_error(EEXIST, std::generic_category(), std::string(subject));
    return true;
  }
};

}  // namespace

Files& Files::Native() {
  static NativeFiles files;
  return files;
}

}  // namespace lwconfig::platform
