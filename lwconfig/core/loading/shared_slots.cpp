#include <array>
#include <utility>

#include <lwconfig/core/loading/shared_slots.h>

namespace lwconfig {
namespace {

std::int32_t gLiveRoots = 0;

auto& Slots() {
  static std::array<std::shared_ptr<void>, static_cast<std::size_t>(Slot::Count)> slots;
  return slots;
}

}  // namespace

std::shared_ptr<void>& SlotContent(Slot slot) {
  return Slots()[static_cast<std::size_t>(slot)];
}

void ResetSharedSlots() {
  // Empty each slot before its object is destroyed, so that destructors find it empty.
  for (auto& slot : Slots()) std::exchange(slot, nullptr).reset();
}

LiveRoot::LiveRoot() {
  Slots();  // construct them first, so that they outlive a static Root
  ++gLiveRoots;
}

LiveRoot::~LiveRoot() {
  if (--gLiveRoots == 0) ResetSharedSlots();
}

std::int32_t LiveRoot::Count() {
  return gLiveRoots;
}

}  // namespace lwconfig
