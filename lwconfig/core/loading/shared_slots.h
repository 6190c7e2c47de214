#pragma once

#include <cstdint>
#include <memory>

namespace lwconfig {

/// The process-wide shared objects, one slot each, in the order in which a reset empties them.
enum class Slot {
  PageTemplates,
  TaggedCommentDefs,
  ModelCommentProfiles,
  PlugIns,
  NamespaceProfiles,
  CommentFileLocations,
  Languages,
  ExternalDocs,
  VSNETOptions,
  VBOptions,
  LWCommenterOptions,
  IDEOptions,
  SpellingOptions,
  Count
};

/// The slot for objects of class `T`; each shared class specialises it beside its declaration.
template <class T>
extern const Slot kSlotOf;

/// The object in a slot, as stored.
std::shared_ptr<void>& SlotContent(Slot slot);

/// The slot of class `T`.
template <class T>
class SharedSlot {
 public:
  /// The shared object, or null while the slot is empty.
  static std::shared_ptr<T> Get() { return std::static_pointer_cast<T>(SlotContent(kSlotOf<T>)); }
  static void Set(std::shared_ptr<T> object) { SlotContent(kSlotOf<T>) = std::move(object); }
  /// The shared object, created and, where the class has a `Load`, loaded on first request. It is stored
  /// before it loads: when loading fails, the error is rethrown and the slot keeps the part that was loaded.
  static std::shared_ptr<T> Obtain() {
    if (auto object = Get()) return object;
    auto object = std::make_shared<T>();
    Set(object);
    if constexpr (requires { object->Load(); }) object->Load();
    return object;
  }
};

/// Empties every slot. Holders of an object keep it.
void ResetSharedSlots();

/// Counts as one live `Root`. The last one to be destroyed empties the shared slots.
class LiveRoot {
 public:
  LiveRoot();
  ~LiveRoot();
  LiveRoot(const LiveRoot&) = delete;
  LiveRoot& operator=(const LiveRoot&) = delete;

  static std::int32_t Count();
};

}  // namespace lwconfig
