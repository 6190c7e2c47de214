#include <algorithm>
#include <utility>

#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/core/base/text.h>
#include <lwconfig/core/base/unicode.h>
#include <lwconfig/core/files/disk_file.h>
#include <lwconfig/core/files/file_error.h>
#include <lwconfig/core/files/text_encoding.h>
#include <lwconfig/platform/path_parts.h>

namespace lwconfig {
namespace {

using platform::EntryKind;

platform::Files& HostFiles() {
  return platform::Host<platform::Files>();
}

/// Runs a host operation on `path` and converts its failures to `Error`.
template <class Operation>
auto OnHost(std::string_view path, Operation operation) {
  try {
    return operation();
  } catch (const std::system_error& failure) {
    throw FileError(failure, path);
  }
}

/// Whether the file or folder does not exist, as opposed to being inaccessible.
bool NamesNothing(const std::system_error& failure) {
  return failure.code() == std::errc::no_such_file_or_directory ||
         failure.code() == std::errc::not_a_directory;
}

constexpr std::string_view kSeparators = "\\/";

bool IsSeparator(char c) {
  return kSeparators.find(c) != std::string_view::npos;
}

bool IsNetworkPath(std::string_view path) {
  return path.size() > 2 && IsSeparator(path[0]) && IsSeparator(path[1]) && !IsSeparator(path[2]);
}

/// The length of the root, which ".." cannot leave: a drive, or a server and its share.
std::size_t RootLength(std::string_view path) {
  if (!IsNetworkPath(path)) {
    const char drive = path.size() > 1 && path[1] == ':' ? AsciiLower(path[0]) : ' ';
    return drive >= 'a' && drive <= 'z' ? 2 : 0;
  }
  const std::size_t share = path.find_first_not_of(kSeparators, path.find_first_of(kSeparators, 2));
  return std::min(path.find_first_of(kSeparators, share), path.size());
}

}  // namespace

std::string NormalisePath(std::string_view path) {
  using platform::Above;
  const bool isNetworkPath = IsNetworkPath(path);
  const std::string_view root = path.substr(0, RootLength(path));
  const std::string_view parts = path.substr(root.size());
  const bool isAbsolute = isNetworkPath || (!parts.empty() && IsSeparator(parts.front()));
  std::string normal(isNetworkPath ? "\\" : root);
  if (isNetworkPath) platform::AppendParts(normal, 1, root, kSeparators, '\\');
  const std::size_t least = normal.size();
  platform::AppendParts(normal, least, parts, kSeparators, '\\',
                        isAbsolute ? Above::IsLeftOut : Above::IsKept);
  if (parts.empty()) return normal;
  const bool hasParts = normal.size() > least;
  if (!isAbsolute) normal.replace(least, hasParts ? 1 : 0, hasParts ? "" : ".");
  if (IsSeparator(parts.back()) || (isAbsolute && !hasParts)) normal += '\\';
  return normal;
}

std::string NativePath(std::string_view path) {
  try {
    return HostFiles().NativePath(path);
  } catch (const std::system_error&) {
    return std::string(path);
  }
}

DiskFile::DiskFile(std::string_view folder, std::string_view baseName, std::string_view extension) {
  SetFolder(folder);
  SetBaseName(baseName);
  SetExtension(extension);
}

void DiskFile::SetFolder(std::string_view folder) {
  mFolder = NormalisePath(folder);
  if (!mFolder.empty() && mFolder.back() != '\\') mFolder.push_back('\\');
  PathChanged();
}

void DiskFile::SetBaseName(std::string_view baseName) {
  mBaseName = baseName;
  PathChanged();
}

void DiskFile::SetExtension(std::string_view extension) {
  mExtension = extension.starts_with('.') ? extension.substr(1) : extension;
  PathChanged();
}

std::string DiskFile::FileName() const {
  return mExtension.empty() ? mBaseName : mBaseName + "." + mExtension;
}

void DiskFile::SetFullPath(std::string_view path) {
  const std::string normal = NormalisePath(path);
  const auto nameStart = normal.rfind('\\') + 1;  // 0 where there is no folder part
  mFolder = normal.substr(0, nameStart);
  SetFileName(std::string_view(normal).substr(nameStart));
}

void DiskFile::SetFileName(std::string_view name) {
  const auto dot = name.rfind('.');
  const bool hasExtension = dot != std::string_view::npos && dot + 1 < name.size();
  mBaseName = name.substr(0, hasExtension ? dot : name.size());
  mExtension = hasExtension ? name.substr(dot + 1) : std::string_view();
  PathChanged();
}

EntryKind DiskFile::Kind() const {
  if (mListedKind) return *mListedKind;
  const std::string path = FullPath();
  if (path.empty()) return EntryKind::Missing;
  return OnHost(path, [&] { return HostFiles().Kind(path); });
}

void DiskFile::Open(std::int32_t mode, std::int32_t access, std::int32_t /*share*/,
                    std::int32_t /*recordLength*/) {
  mOpen = OpenState::Closed;
  mReplacement.reset();
  mOpenFailure.reset();
  mContent.clear();
  if (mode == kOpenExisting && access == kRead) {
    try {
      mContent = HostFiles().Read(FullPath());
      mOpen = OpenState::Reading;
    } catch (const std::system_error&) {
      // `IsOpen` reports the failure.
    }
  } else if (mode == kCreateOrTruncate && access == kWrite) {
    try {
      mReplacement = HostFiles().Replace(FullPath());
      mOpen = OpenState::Writing;
    } catch (const std::system_error& failure) {
      mOpenFailure = FileError(failure, FullPath());
    }
  } else {
    throw Error(kInvalidCall,
                "A file opens with mode 3 and access 1 for reading or mode 4 and access 2 for writing, not " +
                    std::to_string(mode) + " and " + std::to_string(access));
  }
}

std::string DiskFile::ReadAll(std::string* doubt) const {
  const auto decode = [doubt](std::string bytes) {
    if (doubt != nullptr) *doubt = EncodingDoubt(bytes);
    return DecodeText(std::move(bytes));
  };
  if (mOpen == OpenState::Reading) return decode(mContent);
  const std::string path = FullPath();
  try {
    return decode(HostFiles().Read(path));
  } catch (const std::system_error& failure) {
    if (NamesNothing(failure)) return {};
    throw FileError(failure, path);
  }
}

void DiskFile::Write(std::string_view text) {
  if (mOpenFailure) throw *mOpenFailure;
  if (mOpen != OpenState::Writing)
    throw Error(kBadFileName, "The file \"" + FullPath() + "\" is not open for writing");
  if (!IsValidUtf8(text))
    throw Error(kInvalidCall, "The text to write to \"" + FullPath() + "\" is not valid UTF-8");
  OnHost(FullPath(), [&] { mReplacement->Write(text); });
}

void DiskFile::Close() {
  mOpen = OpenState::Closed;
  mContent.clear();
  mOpenFailure.reset();
  if (const auto replacement = std::exchange(mReplacement, nullptr)) {
    OnHost(FullPath(), [&] { replacement->Commit(); });
    PathChanged();
  }
}

void DiskFile::Delete() {
  OnHost(FullPath(), [&] { HostFiles().Remove(FullPath()); });
  PathChanged();
}

void DiskFile::CreateFolder() {
  if (mFolder.empty()) return;
  OnHost(mFolder, [&] { HostFiles().MakeFolders(mFolder); });
}

void DiskFile::CopyTo(std::string_view target) const {
  const std::string bytes = OnHost(FullPath(), [&] { return HostFiles().Read(FullPath()); });
  OnHost(target, [&] {
    const auto copy = HostFiles().Supersede(target, FullPath());
    copy->Write(bytes);
    copy->Commit();
  });
}

std::vector<DiskFile> DiskFile::Files(std::string_view pattern, std::int32_t /*mode*/) const {
  std::vector<DiskFile> files;
  for (const auto& entry : ListFolder(mFolder)) {
    if (!MatchesFilePattern(entry.Name, pattern)) continue;
    DiskFile& file = files.emplace_back();
    file.mFolder = mFolder;
    file.SetFileName(entry.Name);
    file.mListedKind = entry.Kind;
  }
  return files;
}

std::vector<platform::FolderEntry> ListFolder(std::string_view folder) {
  if (folder.empty()) return {};
  try {
    return HostFiles().List(folder);
  } catch (const std::system_error& failure) {
    if (NamesNothing(failure)) return {};
    throw FileError(failure, folder);
  }
}

}  // namespace lwconfig
