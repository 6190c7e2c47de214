#include <algorithm>
#include <array>
#include <memory>

#include <lwconfig/automation/conversion.h>
#include <lwconfig/automation/errors.h>
#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/editing/editor.h>
#include <lwconfig/paths/collection_items.h>
#include <lwconfig/paths/value_text.h>

namespace lwconfig {
namespace {

using automation::ClassInfo;
using automation::kMethod;
using automation::MemberInfo;

/// A path that has to end in a member.
const PathStep& LastMember(const MemberPath& path, const char* wanted) {
  if (path.Steps.empty() || path.Steps.back().IsItem()) {
    throw PathError(PathErrorKind::Usage, std::string("the path of a ") + wanted + " was expected")
        .At(path.Text, path.Steps.empty() ? 0 : path.Steps.back().Offset);
  }
  return path.Steps.back();
}

/// `NAME:=VALUE`
bool NamesArgument(std::string_view text) {
  const auto end = text.find(":=");
  return end != std::string_view::npos && end > 0 &&
         text.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz_0123456789") == end;
}

}  // namespace

Variant Editor::Typed(const std::string& text, const automation::TypeInfo& type) {
  return TypedValue(text, type,
                    [this](const MemberPath& path) { return mModel.FollowToObject(path).back(); });
}

std::vector<CallResult> Editor::Run(const Edit& edit) {
  ++mEdits;
  switch (edit.Kind) {
    case EditKind::Set:
      Set(ParsePath(edit.Path), edit.Values.at(0));
      break;
    case EditKind::Add:
      Add(edit);
      break;
    case EditKind::Remove:
      Remove(ParsePath(edit.Path));
      break;
    case EditKind::Call:
      return Call(edit);
  }
  return {};
}

void Editor::Set(const MemberPath& path, const std::string& value) {
  const PathStep& last = LastMember(path, "property");
  const Way way = mModel.FollowToObject(path, path.Steps.size() - 1, {mModel.Root()});
  SetMember(path, way, path, value, {mEdits, path.Text, last.Offset});
}

void Editor::SetMember(const MemberPath& path, const Way& way, const MemberPath& whole,
                       const std::string& value, EditPlace place) {
  const PathStep& last = path.Steps.back();
  const ClassInfo::Member& member = ObjectModel::Find(way.back(), path, last);
  const MemberInfo* slot = member.Let != nullptr ? member.Let : member.Set;
  if (slot == nullptr || !last.Arguments.empty()) {
    throw PathError(PathErrorKind::Usage,
                    std::string(way.back().Class->Name()) + "." + member.Name +
                        (member.Method != nullptr ? " is a method" : " can only be read"))
        .Numbered(member.Method != nullptr ? automation::kNoSuchMember : automation::kReadOnlyProperty)
        .At(path.Text, last.Offset);
  }
  mKeeper.RequireKept(way);
  RefuseKey(way, member, value);
  mKeeper.RefuseUnwritable(way, value);
  const automation::TypeInfo& type = slot->ParameterList[0].Type;
  Variant typed = Typed(value, type);
  if (!HasMeaning(typed, type) && !IsAccepted(way, member, typed)) throw NoValue(value, type).At(value, 0);
  if (mValues.Set(whole, way, member, std::move(typed), std::move(place))) mKeeper.Note(way);
}

/// Whether a value without a meaning can be set all the same: that which is there, and that which a new
/// object begins with, such as 0 for none. The model keeps any in objects that nobody saves.
bool Editor::IsAccepted(const Way& way, const ClassInfo::Member& member, const Variant& wanted) {
  const AnyObject& object = way.back();
  if (mModel.IsNamed(way) || mModel.TryGet(object, member.Name) == wanted) return true;
  const bool canBeNew = object.Class->IsCreatable() && !mKeeper.IsKeptAtOnce(way);
  return canBeNew && mModel.TryGet(object.Class->Create(), member.Name) == wanted;
}

/// An item is found by its key, and two items of one key would not load again.
void Editor::RefuseKey(const Way& way, const ClassInfo::Member& member, const std::string& value) {
  if (way.size() < 2) return;
  const AnyObject& collection = way[way.size() - 2];
  if (&member != way.back().Class->Key() || !collection.Class->IsCollection()) return;
  if (value.empty()) {
    if (mModel.TryGet(way.back(), member.Name) == Variant(value)) return;
    throw PathError(PathErrorKind::Usage, std::string(way.back().Class->Name()) + "." + member.Name +
                                              " is the key of the item and cannot be empty");
  }
  const Variant other = FindItem(mModel, collection, value);
  if (!std::holds_alternative<std::monostate>(other) && other != Variant(way.back()))
    throw PathError(PathErrorKind::Usage, "there is an item '" + value + "' already").At(value, 0);
}

void Editor::Add(const Edit& edit) {
  const MemberPath path = ParsePath(edit.Path);
  const Way way = mModel.FollowToObject(path);
  const ClassInfo& collection = *way.back().Class;
  if (!collection.IsCollection() || collection.Find("Add") == nullptr) {
    throw PathError(PathErrorKind::Usage, std::string("nothing can be added to a ") + collection.Name())
        .At(edit.Path, path.Steps.empty() ? 0 : path.Steps.back().Offset);
  }
  const ClassInfo* itemClass = collection.ItemClass();
  if (itemClass == nullptr) return AddText(path, way, edit);
  const AnyObject item = itemClass->Create();
  Way itemWay = way;
  itemWay.push_back(item);
  mKeeper.Note(itemWay);
  for (const std::string& value : edit.Values) SetOfItem(itemWay, edit.Path, value);
  std::string key = edit.Key;
  if (key.empty()) key = mModel.KeyOf(item);
  Insert(way, item, key, edit);
}

void Editor::SetOfItem(const Way& item, const std::string& collection, const std::string& assignment) {
  const auto equals = assignment.find('=');
  if (equals == std::string::npos)
    throw PathError(PathErrorKind::Usage, "MEMBER=VALUE was expected, not '" + assignment + "'")
        .At(assignment, 0);
  const std::string member = assignment.substr(0, equals);
  try {
    const MemberPath path = ParsePath(member);
    const PathStep& last = LastMember(path, "property");
    const Way way = mModel.FollowToObject(path, path.Steps.size() - 1, item);
    SetMember(path, way, ParsePath(collection + "[1]." + member), assignment.substr(equals + 1),
              {mEdits, assignment, last.Offset});
  } catch (const PathError& fault) {
    // Members stand at the start of the word, values at its end.
    if (fault.Word() != member) throw;
    PathError placed = fault;
    throw placed.Move(assignment);
  }
}

void Editor::AddText(const MemberPath& path, const Way& way, const Edit& edit) {
  if (edit.Values.size() != 1)
    throw PathError(PathErrorKind::Usage,
                    "one text was expected, because " + edit.Path + " is a collection of texts");
  mKeeper.Note(way);
  const std::string& text = edit.Values.front();
  mKeeper.RefuseUnwritable(way, text);
  Insert(way, text, edit.Key.empty() ? text : edit.Key, edit);
  mValues.NoteText(path, way, text, {mEdits, text, 0});
}

Variant Editor::Neighbour(const AnyObject& collection, const std::string& text) {
  if (text.empty()) return Missing{};
  const KeyOrPosition key = ParseValue(text);
  if (std::holds_alternative<std::monostate>(FindItem(mModel, collection, key)))
    throw PathError(PathErrorKind::NotFound, "there is no item '" + text + "' to add beside").At(text, 0);
  return KeyArgument(mModel, collection, key);
}

void Editor::Insert(const Way& way, Variant item, const std::string& key, const Edit& edit) {
  if (!key.empty() && !std::holds_alternative<std::monostate>(FindItem(mModel, way.back(), key)))
    throw PathError(PathErrorKind::Usage, "there is an item '" + key + "' in " + edit.Path + " already");
  std::array<Variant, 4> arguments{std::move(item), key, Neighbour(way.back(), edit.Before),
                                   Neighbour(way.back(), edit.After)};
  mModel.Invoke(way.back(), "Add", kMethod, arguments);
}

void Editor::Remove(const MemberPath& path) {
  if (path.Steps.empty() || !path.Steps.back().IsItem()) {
    throw PathError(PathErrorKind::Usage, "the path of an item was expected, such as COLLECTION[KEY]")
        .At(path.Text, path.Steps.empty() ? 0 : path.Steps.back().Offset);
  }
  const std::size_t before = path.Steps.size() - 1;
  const Way way = mModel.FollowToObject(path, before, {mModel.Root()});
  mKeeper.NoteRemoval(way);
  static_cast<void>(mModel.Follow(path));
  const auto& key = path.Steps.back().Arguments.front().Value;
  std::array<Variant, 1> argument{KeyArgument(mModel, way.back(), key)};
  mModel.Invoke(way.back(), "Remove", kMethod, argument);
}

void Editor::PlaceNamed(const std::string& text, std::span<const automation::ParameterInfo> parameters,
                        std::vector<Variant>& arguments) {
  const auto end = text.find(":=");
  const std::string name = text.substr(0, end);
  const auto found = std::ranges::find_if(
      parameters, [&](const auto& parameter) { return EqualIgnoringCase(parameter.Name, name); });
  const bool isKnown = found != parameters.end();
  Variant* argument = isKnown ? &arguments[static_cast<std::size_t>(found - parameters.begin())] : nullptr;
  if (!isKnown || !std::holds_alternative<Missing>(*argument)) {
    throw PathError(PathErrorKind::Usage, isKnown ? "the argument '" + name + "' is given twice"
                                                  : "there is no parameter '" + name + "'")
        .Numbered(automation::kNamedArgumentNotFound)
        .At(text, 0);
  }
  *argument = Typed(text.substr(end + 2), found->Type);
}

std::vector<CallResult> Editor::Call(const Edit& edit) {
  const MemberPath path = ParsePath(edit.Path);
  const PathStep& last = LastMember(path, "method");
  const Way way = mModel.FollowToObject(path, path.Steps.size() - 1, {mModel.Root()});
  const ClassInfo::Member& member = ObjectModel::Find(way.back(), path, last);
  if (member.Method == nullptr || !last.Arguments.empty()) {
    const bool isMethod = member.Method != nullptr;
    throw PathError(
        isMethod ? PathErrorKind::Usage : PathErrorKind::IsProperty,
        isMethod ? "the arguments of a method follow its path" : std::string(member.Name) + " is a property")
        .Numbered(automation::kNoSuchMember)
        .At(edit.Path, last.Offset);
  }
  const auto parameters = member.Method->Parameters();
  std::vector<Variant> arguments;
  std::vector<std::string> named;
  for (const std::string& value : edit.Values) {
    mKeeper.RefuseUnwritable(way, value);
    if (NamesArgument(value)) {
      named.push_back(value);
      continue;
    }
    const bool isDeclared = arguments.size() < parameters.size();
    arguments.push_back(isDeclared ? Typed(value, parameters[arguments.size()].Type) : Variant(value));
  }
  // Arguments that are left out can still be given back.
  for (std::size_t at = arguments.size(); at < parameters.size(); ++at) arguments.emplace_back(Missing{});
  for (const std::string& value : named) PlaceNamed(value, parameters, arguments);
  if (edit.IsSaved) mKeeper.Note(way);
  Variant result;
  try {
    result = mModel.Invoke(way.back(), member.Name, kMethod, arguments);
  } catch (const Error& failure) {
    if (failure.Number() != automation::kArgumentNotOptional &&
        failure.Number() != automation::kWrongArgumentCount)
      throw;
    throw PathError(PathErrorKind::Usage, failure.Description())
        .Numbered(failure.Number())
        .At(edit.Path, last.Offset);
  }
  std::vector<CallResult> results;
  if (member.Method->Result.Kind != automation::ValueKind::None)
    results.push_back({{}, std::move(result), member.Method->Result});
  for (std::size_t at = 0; at < arguments.size(); ++at) {
    if (parameters[at].IsByReference)
      results.push_back({std::string(parameters[at].Name), arguments[at], parameters[at].Type});
  }
  return results;
}

}  // namespace lwconfig
