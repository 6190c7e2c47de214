#pragma once

#include <lwconfig/core/loading/shared_slots.h>
#include <lwconfig/namespaces/namespace_def.h>

namespace lwconfig {

/// Every namespace profile of the configuration, filed under its name.
class NamespaceProfiles : public KeyedCollection<NamespaceDefs>, public Counted<NamespaceProfiles> {
 public:
  static constexpr const char* kClassName = "NamespaceProfiles";

  /// Adds the profile of every "*.xml" file in the "Namespaces" folder of the configuration. A missing folder
  /// shows a message box and adds nothing. Two profiles of one name are error 457, which stops the load; the
  /// profiles before it are kept. A profile without a name has no key.
  void Load();
};

template <>
inline constexpr Slot kSlotOf<NamespaceProfiles> = Slot::NamespaceProfiles;

}  // namespace lwconfig
