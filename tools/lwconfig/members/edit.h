#pragma once

#include <span>
#include <string>
#include <utility>
#include <vector>

#include <tools/lwconfig/members/keeper.h>
#include <tools/lwconfig/members/model.h>
#include <tools/lwconfig/view/node.h>

namespace lwconfig::tool {

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
struct Result {
  std::string Name;
  Variant Value;
  automation::TypeInfo Type;
};

/// Makes changes in the model, and saves them when told so.
class Editor {
 public:
  explicit Editor(Model& model) : mModel(model), mKeeper(model) {}

  /// Throws a `Fault` or an `Error`.
  std::vector<Result> Run(const Edit& edit);
  void Save() { mKeeper.Save(); }

 private:
  void Set(const MemberPath& path, const std::string& value, Way from);
  void RefuseKeyInUse(const Way& way, const automation::ClassInfo::Member& member, const std::string& value);
  void Add(const Edit& edit);
  void AddText(const Way& way, const Edit& edit);
  Variant Neighbour(const AnyObject& collection, const std::string& text);
  void Insert(const Way& way, Variant item, const std::string& key, const Edit& edit);
  void Remove(const MemberPath& path);
  /// Puts an argument that is written `NAME:=VALUE` in its place.
  void PlaceNamed(const std::string& text, std::span<const automation::ParameterInfo> parameters,
                  std::vector<Variant>& arguments);
  std::vector<Result> Call(const Edit& edit);
  Variant Typed(const std::string& text, const automation::TypeInfo& type);

  Model& mModel;
  Keeper mKeeper;
};

}  // namespace lwconfig::tool
