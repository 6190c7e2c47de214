#include <utility>

#include <lwconfig/core/loading/progress.h>

namespace lwconfig {
namespace {

ProgressHandler& Handler() {
  static ProgressHandler handler;
  return handler;
}

}  // namespace

ProgressHandler SetProgressHandler(ProgressHandler handler) {
  return std::exchange(Handler(), std::move(handler));
}

void ReportProgress(const Progress& progress) {
  if (Handler()) Handler()(progress);
}

}  // namespace lwconfig
