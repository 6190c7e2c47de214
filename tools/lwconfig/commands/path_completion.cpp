#include <tools/lwconfig/commands/path_completion.h>
#include <tools/lwconfig/view/listing.h>

#include <lwconfig/automation/conversion.h>
#include <lwconfig/automation/published.h>
#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/paths/collection_items.h>
#include <lwconfig/paths/possible_names.h>
#include <lwconfig/paths/value_text.h>

namespace lwconfig::tool {
namespace {

using automation::ClassInfo;
using automation::NameOf;

bool Begins(std::string_view text, std::string_view beginning) {
  return text.size() >= beginning.size() && EqualIgnoringCase(text.substr(0, beginning.size()), beginning);
}

const automation::MemberInfo* WritingSlot(const ClassInfo::Member& member) {
  return member.Let != nullptr ? member.Let : member.Set;
}

/// Whether the member itself, not what is below it, is wanted.
bool IsWanted(const ClassInfo::Member& member, PathUse use, bool isCollection) {
  switch (use) {
    case PathUse::Read:
      return member.Get != nullptr;
    case PathUse::Write:
      return WritingSlot(member) != nullptr;
    case PathUse::Add:
      return isCollection;
    case PathUse::Call:
      return member.Method != nullptr;
    case PathUse::Remove:
      break;
  }
  return false;
}

void OfferMembers(const AnyObject& object, const std::string& base, std::string_view partial, PathUse use,
                  std::vector<Candidate>& candidates) {
  const std::string before = base.empty() ? "" : base + ".";
  for (const auto& member : object.Class->Members()) {
    if (member.Id == automation::kNewEnumId || !Begins(member.Name, partial)) continue;
    const ClassInfo* held = member.HeldClass();
    const bool isCollection = held != nullptr && held->IsCollection();
    const std::string text = before + member.Name;
    const char* about = held != nullptr ? held->Name() : automation::TypeName(MainSlot(member).Result);
    if (IsWanted(member, use, isCollection)) candidates.push_back({text, about});
    if (held != nullptr) candidates.push_back({text + (isCollection ? "[" : "."), about});
  }
}

void OfferItems(const AnyObject& collection, const UnfinishedPath& path, std::vector<Candidate>& candidates) {
  if (!collection.Class->IsCollection()) return;
  for (const CollectionItem& item : ItemsOf(collection)) {
    const bool hasKey = !item.Key.empty();
    const std::string key = hasKey ? WrittenKey(item.Key, path.Quote) : std::to_string(item.Position);
    if (!Begins(hasKey ? item.Key : key, path.Partial)) continue;
    const auto* object = std::get_if<AnyObject>(&item.Value);
    const char* about = object != nullptr && object->Class != nullptr ? object->Class->Name() : "Text";
    const std::string text = path.Base + "[" + key + "]";
    candidates.push_back({text, about});
    // Two candidates keep a shell from closing a quotation mark behind the bracket.
    if (object != nullptr) candidates.push_back({text + ".", about});
  }
}

std::vector<Candidate> ValuesOf(const automation::TypeInfo& type, const std::string& before) {
  std::vector<Candidate> candidates;
  for (const std::string& value : PossibleValues(type))
    candidates.push_back({before + value, automation::TypeName(type)});
  return candidates;
}

/// The names that continue the text; in a list the last name is completed.
std::vector<Candidate> NamesAfter(std::string_view text, const Way& way, NameOf names) {
  const std::size_t comma = IsNameList(names) ? text.rfind(',') : std::string_view::npos;
  const std::string before(text.substr(0, comma == std::string_view::npos ? 0 : comma + 1));
  std::vector<Candidate> candidates;
  for (const std::string& name : PossibleNames(way, names)) candidates.push_back({before + name});
  return candidates;
}

}  // namespace

std::vector<Candidate> CompletePath(ObjectModel& model, std::string_view text, PathUse use) {
  std::vector<Candidate> candidates;
  const UnfinishedPath path = SplitUnfinished(text);
  const AnyObject object = model.FollowToObject(ParsePath(path.Base)).back();
  if (path.IsItem) {
    OfferItems(object, path, candidates);
  } else {
    OfferMembers(object, path.Base, path.Partial, use, candidates);
  }
  return candidates;
}

std::vector<Candidate> CompleteValue(ObjectModel& model, const std::string& path, std::string_view text) {
  const MemberPath steps = ParsePath(path);
  if (steps.Steps.empty() || steps.Steps.back().IsItem()) return {};
  const Way way = model.FollowToObject(steps, steps.Steps.size() - 1, {model.Root()});
  const ClassInfo::Member& member = ObjectModel::Find(way.back(), steps, steps.Steps.back());
  const auto* slot = WritingSlot(member);
  if (slot == nullptr) return {};
  const automation::TypeInfo& type = slot->ParameterList[0].Type;
  // Any colour will do; the present one shows the form.
  if (type.IsColour)
    return {{ValueText(model.Invoke(way.back(), member.Name, automation::kPropertyGet), type), "colour"}};
  const NameOf names = member.Facts.Names;
  return names == NameOf::Nothing ? ValuesOf(type, "") : NamesAfter(text, way, names);
}

std::vector<Candidate> CompleteMember(ObjectModel& model, const std::string& path, std::string_view text) {
  const AnyObject collection = model.FollowToObject(ParsePath(path)).back();
  const ClassInfo* itemClass = collection.Class->ItemClass();
  if (itemClass == nullptr) return {};
  const auto equals = text.find('=');
  std::vector<Candidate> candidates;
  for (const auto& member : itemClass->Members()) {
    const auto* slot = WritingSlot(member);
    if (slot == nullptr || !Begins(member.Name, text.substr(0, equals))) continue;
    const std::string before = std::string(member.Name) + "=";
    if (equals == std::string_view::npos) {
      candidates.push_back({before, automation::TypeName(slot->ParameterList[0].Type)});
    } else if (before.size() == equals + 1) {
      return ValuesOf(slot->ParameterList[0].Type, before);
    }
  }
  return candidates;
}

}  // namespace lwconfig::tool
