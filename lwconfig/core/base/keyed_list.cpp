#include <lwconfig/core/base/keyed_list.h>

namespace lwconfig {

std::string ItemKey::Description() const {
  if (IsPosition()) return "position " + std::to_string(mPosition);
  if (IsText()) return "key \"" + std::string(mKey) + "\"";
  return IsGiven() ? std::string(mKey) : "no key";
}

void KeyIndex::Insert(std::uint32_t hash, std::uint32_t place) {
  if ((mUsed + 1) * 4 > mBuckets.size() * 3) Grow();
  std::size_t at = hash & mMask;
  while (mBuckets[at].Place != kNone) at = (at + 1) & mMask;
  mBuckets[at] = {hash, place};
  ++mUsed;
}

void KeyIndex::Erase(std::uint32_t hash, std::uint32_t place) {
  std::size_t at = hash & mMask;
  while (mBuckets[at].Place != place || mBuckets[at].Hash != hash) at = (at + 1) & mMask;
  // Close the gap: move back every later entry of the run that may fill it, so that no probe stops early.
  std::size_t gap = at;
  for (at = (at + 1) & mMask; mBuckets[at].Place != kNone; at = (at + 1) & mMask) {
    const std::size_t home = mBuckets[at].Hash & mMask;
    if (((at - home) & mMask) >= ((at - gap) & mMask)) {
      mBuckets[gap] = mBuckets[at];
      gap = at;
    }
  }
  mBuckets[gap] = {};
  --mUsed;
}

void KeyIndex::Shift(std::uint32_t from, std::int32_t by) {
  for (auto& bucket : mBuckets) {
    if (bucket.Place != kNone && bucket.Place >= from) bucket.Place += static_cast<std::uint32_t>(by);
  }
}

void KeyIndex::Grow() {
  constexpr std::size_t kInitialBuckets = 8;
  const std::vector<Bucket> old = std::move(mBuckets);
  mBuckets.assign(old.empty() ? kInitialBuckets : old.size() * 2, Bucket{});
  mMask = mBuckets.size() - 1;
  mUsed = 0;
  for (const auto& bucket : old) {
    if (bucket.Place != kNone) Insert(bucket.Hash, bucket.Place);
  }
}

}  // namespace lwconfig
