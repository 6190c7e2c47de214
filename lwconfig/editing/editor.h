#pragma once

#include <span>
#include <string>
#include <utility>
#include <vector>

#include <lwconfig/editing/keeper.h>
#include <lwconfig/editing/kept_values.h>
#include <lwconfig/paths/object_model.h>

namespace lwconfig {

enum class EditKind { Set, Add, Remove, Call };

/// One change as a person asks for it. Values are as written.
struct Edit {
  EditKind Kind = EditKind::Set;
  std::string Path;
  std::vector<std::string> Values{};  // the value; `Member=VALUE`; the arguments
  std::string Key{};
  std::string Before{};
  std::string After{};
  bool IsSaved = false;  // a call: save what the object belongs to
};

/// What a call gave: its result first, under no name, then its by-reference arguments.
struct CallResult {
  std::string Name;
  Variant Value;
  automation::TypeInfo Type;
};

/// Makes changes in the model, and saves them when told so.
class Editor {
 public:
  explicit Editor(ObjectModel& model) : mModel(model), mKeeper(model), mValues(model, mKeeper) {}

  /// Throws a `PathError` or an `Error`.
  std::vector<CallResult> Run(const Edit& edit);
  /// Throws a `PathError` where what was changed cannot be loaded again, or a value that was set is not kept;
  /// a value that is kept in another form is a note.
  void Save() { mValues.Save(); }

 private:
  void Set(const MemberPath& path, const std::string& value);
  /// Sets a member of a new item, as it is written: `Member=VALUE`.
  void SetOfItem(const Way& item, const std::string& collection, const std::string& assignment);
  void SetMember(const MemberPath& path, const Way& way, const MemberPath& whole, const std::string& value,
                 EditPlace place);
  bool IsAccepted(const Way& way, const automation::ClassInfo::Member& member, const Variant& wanted);
  void RefuseKey(const Way& way, const automation::ClassInfo::Member& member, const std::string& value);
  void Add(const Edit& edit);
  void AddText(const MemberPath& path, const Way& way, const Edit& edit);
  Variant Neighbour(const AnyObject& collection, const std::string& text);
  void Insert(const Way& way, Variant item, const std::string& key, const Edit& edit);
  void Remove(const MemberPath& path);
  /// Puts an argument that is written `NAME:=VALUE` in its place.
  void PlaceNamed(const std::string& text, std::span<const automation::ParameterInfo> parameters,
                  std::vector<Variant>& arguments);
  std::vector<CallResult> Call(const Edit& edit);
  Variant Typed(const std::string& text, const automation::TypeInfo& type);

  ObjectModel& mModel;
  Keeper mKeeper;
  KeptValues mValues;
  std::size_t mEdits = 0;
};

}  // namespace lwconfig
