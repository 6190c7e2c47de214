#pragma once

#ifdef _WIN32
#include <tests/platform/failure_of.h>
#include <tests/temporary_folder.h>
#else
#include <tests/platform/posix/private_host.h>
#endif

#include <lwconfig/platform/files.h>

namespace lwconfig::testing {

#ifdef _WIN32
/// A test with a folder of its own.
class PrivateHost : public ::testing::Test {
 protected:
  TemporaryFolder Folder;
};
#endif

/// A test on the host's own files.
class NativeHost : public PrivateHost {
 protected:
  std::string At(const std::string& relative) const {
    return Files.ProductPath(Folder.Path().string()) + "\\" + relative;
  }
  void Put(const std::string& path, std::string_view content) const {
    const auto file = Files.Replace(path);
    file->Write(content);
    file->Commit();
  }
  /// The names of the entries, with "\" behind those of folders and "?" behind hidden ones.
  std::string Names(const std::string& folder) const {
    std::string names;
    for (const auto& entry : Files.List(folder))
      names += entry.Name + (entry.Kind == platform::EntryKind::Folder ? "\\ " : entry.IsHidden ? "? " : " ");
    return names;
  }

  platform::Files& Files = platform::Files::Native();
};

}  // namespace lwconfig::testing
