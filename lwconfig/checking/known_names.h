#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <lwconfig/core/base/keyed_collection.h>
#include <lwconfig/root.h>

namespace lwconfig {

/// Names of one sort, found without regard to letter case.
class NameSet {
 public:
  /// False for a name that is present.
  bool Add(const std::string& name) {
    if (name.empty() || Has(name)) return false;
    mIndex.Add(name, name);
    mNames.push_back(name);
    return true;
  }
  bool Has(std::string_view name) const { return mIndex.Item(name) != nullptr; }
  bool Empty() const { return mNames.empty(); }
  const std::vector<std::string>& Names() const { return mNames; }

 private:
  Collection mIndex;
  std::vector<std::string> mNames;
};

/// The names that a configuration can refer to, as far as it is loaded.
struct KnownNames {
  NameSet Profiles;
  NameSet CodeElements;
  NameSet PlugIns;
  NameSet Comments;
};

}  // namespace lwconfig
