#pragma once

#include <vector>

#include <lwconfig/paths/object_model.h>

namespace lwconfig {

/// Remembers what has to be saved after changes, and saves it through the members that the model has for it.
class Keeper {
 public:
  explicit Keeper(ObjectModel& model) : mModel(model) {}

  /// Whether changes of the last object of `way` are stored by themselves, in the registry instead of a file.
  bool IsKeptAtOnce(const Way& way) const;
  /// Throws a `PathError` where nothing would keep a change of the last object of `way`.
  void RequireKept(const Way& way) const;
  /// As above; the object is to be changed.
  void Note(const Way& way);
  /// Throws a `PathError` for a text that could not be read back from the place where `way` is kept.
  void RefuseUnwritable(const Way& way, const std::string& text) const;
  /// An item of the collection at the end of `way` is to be removed. Throws a `PathError` also where a
  /// removed item would stay on disk.
  void NoteRemoval(const Way& way);
  /// Saves what was noted, each file once, in the order of the notes, and loads it again, for which a later
  /// look at the model has to begin at the root. Throws a `PathError` where what was saved does not load.
  void Save();

 private:
  ObjectModel& mModel;
  std::vector<AnyObject> mChanged;
};

}  // namespace lwconfig
