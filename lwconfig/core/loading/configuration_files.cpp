#include <string>

#include <lwconfig/core/loading/configuration_files.h>
#include <lwconfig/core/loading/diagnostics.h>

namespace lwconfig {

void TellLeftOut(const std::vector<DiskFile>& files, std::size_t read) {
  const std::size_t left = files.size() - read;
  if (left == 0) return;
  Diagnostic told;
  told.Position.File = files[read - 1].FullPath();
  told.Message = "this file ends the load; files after it that are not read: " + std::to_string(left);
  Diagnose(told);
}

}  // namespace lwconfig
