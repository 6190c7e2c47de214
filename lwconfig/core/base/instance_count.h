#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

namespace lwconfig {

/// Counts the live objects of one class, for diagnosis.
class InstanceCounter {
 public:
  explicit InstanceCounter(const char* className);
  void Change(std::int32_t by) { mLive.fetch_add(by, std::memory_order_relaxed); }
  std::int32_t Live() const { return mLive.load(std::memory_order_relaxed); }
  const char* ClassName() const { return mClassName; }

 private:
  const char* mClassName;
  std::atomic<std::int32_t> mLive{0};
};

struct InstanceCount {
  std::string ClassName;
  std::int32_t Live;
};

/// The live objects of every counted class that has been used so far, in class name order.
std::vector<InstanceCount> InstanceCounts();

/// Base of a class whose live objects are counted; the class has `static constexpr const char* kClassName`.
template <class T>
class Counted {
 protected:
  Counted() noexcept { Counter().Change(1); }
  Counted(const Counted&) noexcept { Counter().Change(1); }
  Counted& operator=(const Counted&) noexcept = default;
  ~Counted() { Counter().Change(-1); }

 private:
  static InstanceCounter& Counter() noexcept {
    static InstanceCounter counter(T::kClassName);
    return counter;
  }
};

}  // namespace lwconfig
