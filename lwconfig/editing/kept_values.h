#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include <lwconfig/editing/keeper.h>
#include <lwconfig/paths/object_model.h>

namespace lwconfig {

/// Where in a command a value was set, for messages.
struct EditPlace {
  std::size_t Edit = 0;  // of the edits of one editor, from 1
  std::string Word{};
  std::size_t Offset = 0;
};

/// The values that were set since the last save. Finds out whether a save kept them.
class KeptValues {
 public:
  KeptValues(ObjectModel& model, Keeper& keeper) : mModel(model), mKeeper(keeper) {}

  /// Sets the property; whether that changes anything. `path` leads to it, through the objects of `way`.
  bool Set(const MemberPath& path, const Way& way, const automation::ClassInfo::Member& member,
           Variant wanted, EditPlace place);
  /// Notes a text that was added to the collection, the last object of `way`, to which `path` leads.
  void NoteText(const MemberPath& path, const Way& way, const std::string& text, EditPlace place);
  /// Saves and loads what was changed. Throws a `PathError` for a value that has no effect on what is loaded,
  /// or a text that is not loaded as one item, and reports a value that is loaded in another form.
  void Save();

 private:
  struct Value {
    MemberPath Path;
    lwconfig::Way Way;  // one object for each step, the root first
    std::string Member{};
    EditPlace Place{};
    bool IsObject = false;
    bool IsStoredAtOnce = false;
    bool ChangesOthers = false;  // setting it changed other properties of the object
    Variant Before{};
    Variant Wanted{};
    std::optional<std::string> AddedText{};  // to the collection that the property is
    std::string BeforeText{};                // these are made while the objects are in the model
    std::string WantedText{};
    std::string SetText{};
    std::string Shown{};  // the wanted value for messages
  };

  std::optional<std::string> Read(const Value& value);
  std::string KeyText(const Variant& value);
  std::vector<Variant> OtherValues(const AnyObject& object, const automation::ClassInfo::Member& member);
  bool SetsOthers(const AnyObject& object, const automation::ClassInfo::Member& member, Variant wanted);
  std::optional<std::string> Locate(const Value& value);
  void Check(const Value& value, const std::string& location);
  bool SetsOthersOfNew(const automation::ClassInfo& info, const Value& value);
  void CheckText(const Value& value, const std::string& location, const AnyObject& collection);
  bool HasEffect(const Value& value, const std::string& location, const std::string& now);

  ObjectModel& mModel;
  Keeper& mKeeper;
  std::vector<Value> mValues;
};

}  // namespace lwconfig
