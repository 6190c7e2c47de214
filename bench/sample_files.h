#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace lwconfig::bench {

/// A new folder that is removed with this object.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& Path() const { return mPath; }
  /// The path of `name` in it, in the product's notation.
  std::string Product(std::string_view name) const;

 private:
  std::filesystem::path mPath;
};

void WriteFile(const std::filesystem::path& path, const std::string& text);
std::string ReadBytes(const std::filesystem::path& path);
/// What loading is measured against: the bytes of the file, parsed in place by the XML library. False where
/// they do not parse.
bool ReadAndParse(const std::filesystem::path& path);

/// `begin`, then `item(0)` to `item(count - 1)`, then `end`.
std::string Repeated(std::string begin, int count, const std::function<std::string(const std::string&)>& item,
                     std::string_view end);

}  // namespace lwconfig::bench
