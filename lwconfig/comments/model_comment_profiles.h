#pragma once

#include <memory>
#include <string_view>

#include <lwconfig/comments/model_comments.h>
#include <lwconfig/core/loading/shared_slots.h>

namespace lwconfig {

/// Every model comment profile of the configuration, filed under its name. Each has a file of its own.
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
  /// there is no such folder. A failing profile, or two of one name (error 457), end the load; the profiles
  /// before it stay, and `Dirty` is left as it was.
  void Load();
  /// Writes every profile to the file of its name in that folder, created when missing; other files there
  /// stay. The first failure ends the save: the files before it stay written. Error 52 for a profile without
  /// a name, or with one that would lead out of the folder or begins with a dot, which would hide its file.
  void Save();
  /// A collection of copies, dirty unless it is empty.
  std::shared_ptr<ModelCommentProfiles> Clone() const;
};

template <>
inline constexpr Slot kSlotOf<ModelCommentProfiles> = Slot::ModelCommentProfiles;

}  // namespace lwconfig
