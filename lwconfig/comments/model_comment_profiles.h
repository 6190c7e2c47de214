#pragma once

#include <memory>
#include <string_view>

#include <lwconfig/comments/model_comments.h>
#include <lwconfig/core/loading/shared_slots.h>

namespace lwconfig {

/// Every model comment profile of the configuration, filed under its name, each in its own file.
class ModelCommentProfiles : public KeyedCollection<ModelComments>, public Counted<ModelCommentProfiles> {
 public:
  static constexpr const char* kClassName = "ModelCommentProfiles";

  /// Whether something was added or removed since the profiles were loaded or saved.
  bool Dirty = false;

  /// As of every collection; then the profiles are dirty.
  void Add(Pointer obj, std::string_view Key = {}, const ItemKey& Before = {},
           const ItemKey& After = {}) override;
  void Remove(const ItemKey& Key) override;

  /// Adds the profile of every "*.xml" file in the "modelcomments" folder of the configuration; none where
  /// the folder does not exist. A failing profile, or two of one name (error 457), stop the load; the
  /// profiles before it are kept, and `Dirty` does not change.
  void Load();
  /// Writes every profile to the file of its name in that folder, created when missing; other files there are
  /// kept. The first failure stops the save: the files before it have been written. Error 52 for a profile
  /// without a name, with a name that would lead out of the folder, or with one that begins with a dot, which
  /// would hide its file.
  void Save();
  /// A collection of copies, dirty unless it is empty.
  std::shared_ptr<ModelCommentProfiles> Clone() const;
};

template <>
inline constexpr Slot kSlotOf<ModelCommentProfiles> = Slot::ModelCommentProfiles;

}  // namespace lwconfig
