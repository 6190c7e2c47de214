#include <algorithm>
#include <array>
#include <utility>

#include <lwconfig/automation/contracts.h>
#include <lwconfig/automation/conversion.h>
#include <lwconfig/editing/kept_values.h>
#include <lwconfig/paths/collection_items.h>
#include <lwconfig/paths/value_text.h>
#include <lwconfig/transaction/transaction.h>

namespace lwconfig {
namespace {

using automation::ClassInfo;
using automation::kPropertyLet;
using automation::kPropertySet;

/// The text of one step as it is written in its path, with the dot in front of a name.
std::string StepText(const MemberPath& path, std::size_t at) {
  const PathStep& step = path.Steps[at];
  const std::size_t end = at + 1 < path.Steps.size() ? path.Steps[at + 1].Offset : path.Text.size();
  std::string text = path.Text.substr(step.Offset, end - step.Offset);
  if (text.ends_with('.')) text.pop_back();
  return (at > 0 && !step.IsItem() ? "." : "") + text;
}

/// Whether the collection has the text as an item.
bool Has(const AnyObject& collection, const std::string& text) {
  const auto items = ItemsOf(collection);
  return std::ranges::find(items, Variant(text), &CollectionItem::Value) != items.end();
}

}  // namespace

/// The text of a value by which it can be compared with that of another load. An object is known by its key.
std::string KeptValues::KeyText(const Variant& value) {
  const auto* object = std::get_if<AnyObject>(&value);
  if (object == nullptr)
    return std::holds_alternative<Null>(value) || std::holds_alternative<Missing>(value)
               ? ""
               : automation::ToText(value);
  if (!*object || object->Class == nullptr) return "null";
  const std::string key = mModel.KeyOf(*object);
  return object->Class->Name() + (key.empty() ? "" : " " + key);
}

/// The values of the object's other properties, objects aside. Those that cannot be read are left out.
std::vector<Variant> KeptValues::OtherValues(const AnyObject& object, const ClassInfo::Member& member) {
  std::vector<Variant> values;
  for (const ClassInfo::Member& other : object.Class->Members()) {
    const bool isValue = other.Get != nullptr && other.Get->ParameterCount == 0 &&
                         other.Get->Result.Kind != automation::ValueKind::Object &&
                         other.Get->Result.Kind != automation::ValueKind::Enumerator;
    if (!isValue || &other == &member) continue;
    if (auto held = mModel.TryGet(object, other.Name)) values.push_back(*std::move(held));
  }
  return values;
}

/// Sets the property; whether that changes other properties of the object.
bool KeptValues::SetsOthers(const AnyObject& object, const ClassInfo::Member& member, Variant wanted) {
  const auto others = OtherValues(object, member);
  const bool isObject = std::holds_alternative<AnyObject>(wanted);
  std::array<Variant, 1> argument{std::move(wanted)};
  mModel.Invoke(object, member.Name, isObject ? kPropertySet : kPropertyLet, argument);
  return OtherValues(object, member) != others;
}

/// Nothing for a property that cannot be read.
std::optional<std::string> KeptValues::Read(const Value& value) {
  const auto held = mModel.TryGet(value.Way.back(), value.Member.c_str());
  return held ? std::optional(KeyText(*held)) : std::nullopt;
}

bool KeptValues::Set(const MemberPath& path, const Way& way, const ClassInfo::Member& member, Variant wanted,
                     EditPlace place) {
  const bool isObject = std::holds_alternative<AnyObject>(wanted);
  Value value{path, way, member.Name, std::move(place), isObject, mKeeper.IsKeptAtOnce(way)};
  const bool isChecked = member.Get != nullptr && !mModel.IsNamed(way);
  if (isChecked) {
    value.Before = mModel.TryGet(way.back(), member.Name).value_or(Variant());
    value.Wanted = wanted;
    value.BeforeText = KeyText(value.Before);
    value.WantedText = KeyText(wanted);
    value.Shown = isObject ? value.WantedText : ValueText(wanted, member.Get->Result);
  }
  value.ChangesOthers = SetsOthers(way.back(), member, std::move(wanted));
  const bool isAnother = value.BeforeText != value.WantedText;
  if (const auto now = Read(value); isChecked && isAnother && now) {
    value.SetText = *now;
    mValues.push_back(value);
  }
  return !isChecked || isAnother || value.ChangesOthers;
}

/// Whether setting the property changes others of a new object: those of the one in question may have had
/// their values already.
bool KeptValues::SetsOthersOfNew(const ClassInfo& info, const Value& value) {
  try {
    return info.IsCreatable() && SetsOthers(info.Create(), *info.Find(value.Member), value.Wanted);
  } catch (const Error&) {
    return false;
  }
}

void KeptValues::NoteText(const MemberPath& path, const Way& way, const std::string& text, EditPlace place) {
  if (mModel.IsNamed(way) || path.Steps.back().IsItem()) return;
  Value value{path, {way.begin(), way.end() - 1}, path.Steps.back().Name, std::move(place)};
  value.AddedText = text;
  value.SetText = KeyText(way.back());
  mValues.push_back(std::move(value));
}

/// The path of the property with items by their keys as they are now: a load may change positions. Nothing
/// where the property does not have the value any more, or its object is not there.
std::optional<std::string> KeptValues::Locate(const Value& value) {
  if (Read(value) != value.SetText) return std::nullopt;
  const auto held = mModel.TryGet(value.Way.back(), value.Member.c_str());
  if (value.AddedText && !Has(std::get<AnyObject>(*held), *value.AddedText)) return std::nullopt;
  std::string text;
  for (std::size_t at = 0; at < value.Path.Steps.size(); ++at) {
    const PathStep& step = value.Path.Steps[at];
    const AnyObject& parent = value.Way[at];
    const bool isItem = parent.Class->IsCollection() && (step.IsItem() || !step.Arguments.empty());
    if (!isItem) {
      text += StepText(value.Path, at);
      continue;
    }
    const AnyObject& child = value.Way[at + 1];
    const auto items = ItemsOf(parent);
    const auto item = std::ranges::find(items, Variant(child), &CollectionItem::Value);
    if (item == items.end()) return std::nullopt;
    const std::string key = mModel.KeyOf(child);
    text += "[" + (key.empty() ? std::to_string(item->Position) : WrittenKey(key)) + "]";
  }
  return text;
}

/// Whether another value would be loaded as something else than `now`: saves the one that was there before,
/// in a trial of its own.
bool KeptValues::HasEffect(const Value& value, const std::string& location, const std::string& now) {
  if (value.IsObject || now == value.BeforeText) return now != value.BeforeText;
  std::string other;
  {
    const Transaction trial;
    const MemberPath path = ParsePath(location);
    const Way way = mModel.FollowToObject(path, path.Steps.size() - 1, {mModel.Root()});
    mKeeper.Note(way);
    std::array<Variant, 1> argument{value.Before};
    mModel.Invoke(way.back(), value.Member.c_str(), kPropertyLet, argument);
    mKeeper.Save();
    other = KeyText(mModel.Follow(path).Value);
  }
  mModel.Invoke(mModel.Root(), "ResetLWConfig", automation::kMethod);
  return other != now;
}

void KeptValues::CheckText(const Value& value, const std::string& location, const AnyObject& collection) {
  if (Has(collection, *value.AddedText)) return;
  std::string texts;
  for (const CollectionItem& item : ItemsOf(collection)) {
    texts += (texts.empty() ? "'" : ", '") + automation::ToText(item.Value) + "'";
  }
  throw PathError(PathErrorKind::Usage, location + " cannot have the item '" + *value.AddedText +
                                            "': saved and loaded again it has " +
                                            (texts.empty() ? "none" : texts))
      .At(value.Place.Word, value.Place.Offset)
      .OfEdit(value.Place.Edit);
}

void KeptValues::Check(const Value& value, const std::string& location) {
  const MemberPath path = ParsePath(location);
  std::optional<PathTarget> found;
  try {
    found = mModel.Follow(path);
  } catch (const PathError&) {
    throw PathError(PathErrorKind::Usage, location + " cannot be set to '" + value.Shown +
                                              "': saved and loaded again it is not there")
        .At(value.Place.Word, value.Place.Offset)
        .OfEdit(value.Place.Edit);
  }
  if (value.AddedText) return CheckText(value, location, std::get<AnyObject>(found->Value));
  const std::string now = KeyText(found->Value);
  if (now == value.WantedText || value.ChangesOthers) return;
  const ClassInfo& info = *found->Way.back().Class;
  if (SetsOthersOfNew(info, value)) return;
  const std::string reads = "'" + ValueText(found->Value, found->Type) + "'";
  if (value.IsStoredAtOnce || HasEffect(value, location, now)) {
    mModel.Listener().Note("'" + value.Shown + "' is stored, but " + location + " reads as " + reads);
    return;
  }
  const std::string owner = info.Name();
  throw PathError(PathErrorKind::Usage, owner + "." + value.Member + " cannot be set to '" + value.Shown +
                                            "': saved and loaded again it is " + reads + ". " +
                                            std::string(automation::Contract(owner, value.Member)))
      .At(value.Place.Word, value.Place.Offset)
      .OfEdit(value.Place.Edit);
}

void KeptValues::Save() {
  std::vector<std::pair<Value, std::string>> located;
  for (Value& value : std::exchange(mValues, {})) {
    if (auto location = Locate(value)) located.emplace_back(std::move(value), *std::move(location));
  }
  mKeeper.Save();
  for (const auto& [value, location] : located) Check(value, location);
}

}  // namespace lwconfig
