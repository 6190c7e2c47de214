#include <algorithm>
#include <string>
#include <vector>

#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/core/files/damaged_files.h>

namespace lwconfig {
namespace {

std::vector<std::string>& DamagedFiles() {
  static std::vector<std::string> paths;
  return paths;
}

auto Find(const DiskFile& file) {
  return std::ranges::find_if(DamagedFiles(), [path = file.FullPath()](const std::string& damaged) {
    return EqualIgnoringCase(damaged, path);
  });
}

}  // namespace

void NoteDamage(const DiskFile& file, bool isDamaged) {
  const auto known = Find(file);
  if (isDamaged && known == DamagedFiles().end()) {
    DamagedFiles().push_back(file.FullPath());
  } else if (!isDamaged && known != DamagedFiles().end()) {
    DamagedFiles().erase(known);
  }
}

void KeepDamagedFile(const DiskFile& file) {
  const auto damaged = Find(file);
  if (damaged == DamagedFiles().end()) return;
  if (file.Exists()) {
    std::string copy = file.FullPath() + ".damaged";
    for (int number = 2; DiskFile(copy).Exists(); ++number) {
      copy = file.FullPath() + ".damaged-" + std::to_string(number);
    }
    file.CopyTo(copy);
  }
  DamagedFiles().erase(damaged);
}

}  // namespace lwconfig
