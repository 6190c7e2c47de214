#pragma once

#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <string_view>

namespace lwconfig::testing {

/// A folder of its own for one test, removed with everything in it.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::random_device random;
    do {
      mPath = std::filesystem::temp_directory_path() / ("lwconfig-test-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(mPath));
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(mPath, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& Path() const { return mPath; }
  /// Writes a file below the folder, creating the folders on its way; returns its path.
  std::filesystem::path Write(std::string_view relative, std::string_view content) const {
    const auto path = mPath / relative;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << content;
    return path;
  }
  std::string Read(std::string_view relative) const {
    std::ostringstream content;
    content << std::ifstream(mPath / relative, std::ios::binary).rdbuf();
    return content.str();
  }

 private:
  std::filesystem::path mPath;
};

}  // namespace lwconfig::testing
