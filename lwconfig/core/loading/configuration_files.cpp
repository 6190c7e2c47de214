#include <string>

#include <lwconfig/core/loading/configuration_files.h>

namespace lwconfig {

void ReportParseFailure(const XMLDocument& document) {
  if (document.ParseFailure().empty()) return;
  Report(Problem::NotWellFormed, document.ParseFailurePosition(),
         document.ParseFailure() + "; only the part before it is read");
}

void ReportLeftOut(const std::vector<DiskFile>& files, std::size_t read) {
  const std::size_t left = files.size() - read;
  if (left == 0) return;
  Report(Problem::Other, {files[read - 1].FullPath(), 0, 0},
         "this file stops the load; files after it that are not read: " + std::to_string(left));
}

}  // namespace lwconfig
