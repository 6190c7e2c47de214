#pragma once

#include <string>
#include <utility>

#include <lwconfig/platform/folders.h>

namespace lwconfig::testing {

/// Well-known folders of which only the operating system's exists.
class FixedFolders final : public platform::Folders {
 public:
  explicit FixedFolders(std::string windows) : mWindows(std::move(windows)) {}
  std::string ShellFolder(std::int32_t) override { return {}; }
  std::string WindowsFolder() override { return mWindows; }

 private:
  const std::string mWindows;
};

}  // namespace lwconfig::testing
