#include <optional>

#include <tools/lwconfig/view/listing.h>
#include <tools/lwconfig/view/table.h>

#include <lwconfig/automation/conversion.h>
#include <lwconfig/core/base/error.h>
#include <lwconfig/paths/collection_items.h>
#include <lwconfig/paths/value_text.h>

namespace lwconfig::tool {
namespace {

using automation::ClassInfo;
using automation::MemberInfo;
using automation::ValueKind;

bool IsCollection(const AnyObject* object) {
  return object != nullptr && object->Class->IsCollection();
}

/// Whether a listing has the value of the member: of a property without arguments, but not of the objects of
/// the root, which would have to be loaded.
bool HasValue(ObjectModel& model, const AnyObject& object, const ClassInfo::Member& member) {
  if (member.Get == nullptr || member.Get->ParameterCount > 0) return false;
  const ValueKind kind = member.Get->Result.Kind;
  if (kind == ValueKind::Enumerator) return false;
  return object.Class != model.Root().Class || (kind != ValueKind::Object && kind != ValueKind::Variant);
}

/// That value; nothing for a property that fails.
std::optional<Variant> Peek(ObjectModel& model, const AnyObject& object, const ClassInfo::Member& member) {
  if (!HasValue(model, object, member)) return std::nullopt;
  try {
    return model.Invoke(object, member.Name, automation::kPropertyGet);
  } catch (const Error&) {
    return std::nullopt;
  }
}

std::string PeekText(ObjectModel& model, const Variant& value, const automation::TypeInfo& type) {
  const AnyObject* object = ObjectIn(value);
  if (!IsCollection(object)) return object != nullptr ? "" : ValueText(value, type);
  return std::to_string(CountOf(model, *object)) + " items";
}

const char* ResultType(const ClassInfo::Member& member) {
  return automation::TypeName(member.Method != nullptr || member.Get != nullptr
                                  ? MainSlot(member).Result
                                  : MainSlot(member).ParameterList[0].Type);
}

template <class Use>
void ForEachMember(const ClassInfo& info, Use use) {
  for (const auto& member : info.Members()) {
    if (member.Id != automation::kNewEnumId) use(member);
  }
}

std::string MemberTable(ObjectModel& model, const AnyObject& object, const TextStyle& style) {
  Table table({"NAME", "KIND", "TYPE", "VALUE"});
  ForEachMember(*object.Class, [&](const ClassInfo::Member& member) {
    const auto value = Peek(model, object, member);
    const char* const without = HasValue(model, object, member) ? "not readable" : "";
    const std::string text = value ? PeekText(model, *value, member.Get->Result) : without;
    table.Add({{SignatureOf(member), Tone::Title},
               {KindOf(member), Tone::Quiet},
               {ResultType(member), Tone::Quiet},
               {text}});
  });
  return table.Text(style);
}

std::string ItemTable(const AnyObject& collection, const TextStyle& style) {
  Table table({"POSITION", "KEY", "ITEM"});
  for (const CollectionItem& item : ItemsOf(collection)) {
    const AnyObject* object = ObjectIn(item.Value);
    table.Add({{std::to_string(item.Position)},
               {item.Key, Tone::Title},
               {object != nullptr ? object->Class->Name() : ValueText(item.Value, {}), Tone::Quiet}});
  }
  return table.Text(style);
}

Json ItemsJson(ObjectModel& model, const AnyObject& collection, int levels);

/// The properties with their values; of objects below them that are on no level to show the class and, of
/// collections, the count.
Json Properties(ObjectModel& model, const AnyObject& object, int levels) {
  Json json = Json::object();
  ForEachMember(*object.Class, [&](const ClassInfo::Member& member) {
    const auto value = Peek(model, object, member);
    if (!value) return;
    json[member.Name] = ValueJson(*value);
    const AnyObject* held = ObjectIn(*value);
    if (held == nullptr) return;
    // An object that may be absent is shown where it belongs.
    const bool isShown = levels > 0 && !member.Get->Result.MayBeNull;
    const bool isCollection = IsCollection(held);
    if (isShown)
      json[member.Name] =
          isCollection ? ItemsJson(model, *held, levels) : Properties(model, *held, levels - 1);
    else if (isCollection)
      json[member.Name]["Count"] = CountOf(model, *held);
  });
  return json;
}

/// A collection of texts is an object of these where all have keys, and not themselves for keys.
Json ItemsJson(ObjectModel& model, const AnyObject& collection, int levels) {
  Json list = Json::array();
  Json table = Json::object();
  bool isTable = collection.Class->ItemClass() == nullptr;
  bool hasOtherKeys = false;
  for (const CollectionItem& item : ItemsOf(collection)) {
    list.push_back(NestedJson(model, item.Value, levels - 1));
    isTable = isTable && !item.Key.empty();
    if (isTable) table[item.Key] = list.back();
    hasOtherKeys = hasOtherKeys || item.Value != Variant(item.Key);
  }
  return isTable && hasOtherKeys ? table : list;
}

}  // namespace

const MemberInfo& MainSlot(const ClassInfo::Member& member) {
  for (const MemberInfo* slot : {member.Method, member.Get, member.Let}) {
    if (slot != nullptr) return *slot;
  }
  return *member.Set;
}

const char* KindOf(const ClassInfo::Member& member) {
  if (member.Method != nullptr) return "method";
  if (member.Get == nullptr) return "write-only";
  return member.Let != nullptr || member.Set != nullptr ? "property" : "read-only";
}

std::string SignatureOf(const ClassInfo::Member& member) {
  if (member.Method == nullptr && (member.Get == nullptr || member.Get->ParameterCount == 0))
    return member.Name;
  std::string text;
  for (const auto& parameter : MainSlot(member).Parameters()) {
    const std::string name(parameter.Name);
    text += (text.empty() ? "" : ", ") + (parameter.IsOptional ? "[" + name + "]" : name);
  }
  return std::string(member.Name) + "(" + text + ")";
}

std::string GotText(ObjectModel& model, const PathTarget& place, const TextStyle& style) {
  const AnyObject* object = ObjectIn(place.Value);
  if (object == nullptr) return ValueText(place.Value, place.Type) + "\n";
  if (!IsCollection(object)) return MemberTable(model, *object, style);
  std::string text;
  for (const CollectionItem& item : ItemsOf(*object)) {
    const bool isText = std::holds_alternative<std::string>(item.Value);
    text += (isText             ? std::get<std::string>(item.Value)
             : item.Key.empty() ? std::to_string(item.Position)
                                : item.Key) +
            "\n";
  }
  return text;
}

std::string ListedText(ObjectModel& model, const AnyObject& object, const TextStyle& style) {
  std::string text = MemberTable(model, object, style);
  if (IsCollection(&object)) text += "\n" + ItemTable(object, style);
  return text;
}

Json ValueJson(const Variant& value) {
  struct ToJson {
    Json operator()(bool flag) const { return flag; }
    Json operator()(std::int16_t number) const { return number; }
    Json operator()(std::int32_t number) const { return number; }
    Json operator()(double number) const { return number; }
    Json operator()(const std::string& text) const { return text; }
    Json operator()(const AnyObject& object) const {
      if (!object) return nullptr;
      return {{"Class", object.Class != nullptr ? object.Class->Name() : ""}};
    }
    Json operator()(std::monostate) const { return nullptr; }
    Json operator()(Null) const { return nullptr; }
    Json operator()(Missing) const { return nullptr; }
  };
  return std::visit(ToJson{}, value);
}

Json GotJson(ObjectModel& model, const Variant& value) {
  const AnyObject* object = ObjectIn(value);
  return IsCollection(object) ? ItemsJson(model, *object, 0) : NestedJson(model, value, 0);
}

Json NestedJson(ObjectModel& model, const Variant& value, int levels) {
  const AnyObject* object = ObjectIn(value);
  if (object == nullptr) return ValueJson(value);
  Json json = Properties(model, *object, levels);
  if (levels > 0 && IsCollection(object)) json["Items"] = ItemsJson(model, *object, levels);
  return json;
}

Json ListedJson(ObjectModel& model, const AnyObject& object) {
  Json json{{"Class", object.Class->Name()}, {"Members", Json::array()}};
  ForEachMember(*object.Class, [&](const ClassInfo::Member& member) {
    Json described{{"Name", member.Name}, {"Kind", KindOf(member)}, {"Type", ResultType(member)}};
    if (const auto value = Peek(model, object, member)) described["Value"] = ValueJson(*value);
    json["Members"].push_back(std::move(described));
  });
  if (!IsCollection(&object)) return json;
  json["Items"] = Json::array();
  for (const CollectionItem& item : ItemsOf(object))
    json["Items"].push_back(
        {{"Position", item.Position}, {"Key", item.Key}, {"Item", ValueJson(item.Value)}});
  return json;
}

}  // namespace lwconfig::tool
