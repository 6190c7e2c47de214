#include "sample_files.h"

#include <fstream>

#include <pugixml.hpp>
#include <stdlib.h>

#include <lwconfig/platform/files.h>

namespace lwconfig::bench {
namespace {

std::filesystem::path MakeFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "lwconfig-bench-XXXXXX").string();
  return ::mkdtemp(pattern.data());
}

}  // namespace

TemporaryFolder::TemporaryFolder() : mPath(MakeFolder()) {}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(mPath, ignored);
}

std::string TemporaryFolder::Product(std::string_view name) const {
  return platform::Host<platform::Files>().ProductPath((name.empty() ? mPath : mPath / name).string());
}

void WriteFile(const std::filesystem::path& path, const std::string& text) {
  std::ofstream(path, std::ios::binary) << text;
}

std::string ReadBytes(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::string bytes(std::filesystem::file_size(path), '\0');
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return bytes;
}

bool ReadAndParse(const std::filesystem::path& path) {
  std::string bytes = ReadBytes(path);
  pugi::xml_document document;
  return document.load_buffer_inplace(bytes.data(), bytes.size());
}

std::string Repeated(std::string begin, int count, const std::function<std::string(const std::string&)>& item,
                     std::string_view end) {
  for (int i = 0; i < count; ++i) begin += item(std::to_string(i));
  return begin.append(end);
}

}  // namespace lwconfig::bench
