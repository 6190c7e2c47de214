#include <system_error>

#include <lwconfig/platform/files.h>
#include <lwconfig/platform/folders.h>

#include "system.h"

namespace lwconfig::platform {
namespace {

class NativeFolders final : public Folders {
 public:
  std::string ShellFolder(std::int32_t csidl) override {
    constexpr int kUnverified = 0x4000;  // includes the path of a folder that does not exist
    wchar_t path[MAX_PATH] = L"";
    // Pass no token: use the folders of the current user, not of the default profile.
    if (::SHGetFolderPathW(::GetDesktopWindow(), csidl | kUnverified, nullptr, SHGFP_TYPE_CURRENT, path) !=
        S_OK)
      return {};
    std::string folder = Narrow(path);
    try {
      Files::Native().MakeFolders(folder);
    } catch (const std::system_error&) {
      return {};
    }
    return folder;
  }

  std::string WindowsFolder() override {
    wchar_t path[MAX_PATH] = L"";
    return Narrow({path, ::GetWindowsDirectoryW(path, MAX_PATH)});
  }
};

}  // namespace

Folders& Folders::Native() {
  static NativeFolders folders;
  return folders;
}

}  // namespace lwconfig::platform
