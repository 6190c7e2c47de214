#include <algorithm>
#include <mutex>
#include <string_view>

#include <lwconfig/core/base/instance_count.h>

namespace lwconfig {
namespace {

struct Registry {
  std::mutex Mutex;
  std::vector<const InstanceCounter*> Counters;
};

Registry& Counters() {
  static Registry registry;
  return registry;
}

}  // namespace

InstanceCounter::InstanceCounter(const char* className) : mClassName(className) {
  const std::lock_guard lock(Counters().Mutex);
  Counters().Counters.push_back(this);
}

std::vector<InstanceCount> InstanceCounts() {
  std::vector<InstanceCount> counts;
  {
    const std::lock_guard lock(Counters().Mutex);
    for (const auto* counter : Counters().Counters) counts.push_back({counter->ClassName(), counter->Live()});
  }
  std::sort(counts.begin(), counts.end(),
            [](const auto& a, const auto& b) { return a.ClassName < b.ClassName; });
  return counts;
}

}  // namespace lwconfig
