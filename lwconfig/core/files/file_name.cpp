#include <algorithm>
#include <string>

#include <lwconfig/core/base/error.h>
#include <lwconfig/core/files/disk_file.h>
#include <lwconfig/core/files/file_name.h>

namespace lwconfig {
namespace {

bool LeadsElsewhere(char c) {
  return c == '\\' || c == '/' || c == ':' || static_cast<unsigned char>(c) < ' ' || c == '\x7F';
}

}  // namespace

void CheckStaysBelow(std::string_view path) {
  const std::string normal = NormalisePath(".\\" + std::string(path));
  if (normal == ".." || normal.starts_with("..\\"))
    throw Error(kBadFileName, "\"" + std::string(path) + "\" leads out of its folder");
}

void CheckBaseName(std::string_view name) {
  if (name == "." || name == ".." || std::any_of(name.begin(), name.end(), LeadsElsewhere))
    throw Error(kBadFileName, "\"" + std::string(name) + "\" cannot be the name of a file");
}

std::string FolderName(std::string path) {
  if (path.ends_with('\\')) path.pop_back();
  return path.substr(path.rfind('\\') + 1);
}

}  // namespace lwconfig
