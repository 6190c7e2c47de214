#include <tools/lwconfig/model/describe.h>

#include <lwconfig/core/files/disk_file.h>

namespace lwconfig::tool {
namespace {

std::string Where(const std::string& filter) {
  return filter.empty() ? "" : " where " + filter;
}

}  // namespace

std::string ShownPath(const std::string& path) {
  const bool hasDrive = path.size() > 1 && path[1] == ':';
  return path.empty() || hasDrive ? path : NativePath(path);
}

std::string Condition(const std::string& kind, const std::string& filter, std::int32_t count) {
  if (kind.empty()) return {};
  return "if " + (count > 0 ? std::to_string(count) + "+ " : "") + kind + Where(filter);
}

std::string Repetition(const std::string& kind, const std::string& filter) {
  return kind.empty() ? "" : "per " + kind + Where(filter);
}

}  // namespace lwconfig::tool
