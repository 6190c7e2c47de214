#include <algorithm>
#include <memory>
#include <utility>

#include <lwconfig/automation/conversion.h>
#include <lwconfig/automation/dispatch.h>
#include <lwconfig/automation/errors.h>
#include <lwconfig/automation/published.h>
#include <lwconfig/core/loading/error_reporter.h>
#include <lwconfig/paths/collection_items.h>
#include <lwconfig/paths/object_model.h>
#include <lwconfig/paths/value_text.h>

namespace lwconfig {
namespace {

using automation::ClassInfo;
using automation::kPropertyGet;

/// Nobody needs its reports: the failure itself reaches the user.
class ErrorComponent final : public platform::Component {
 public:
  void Receive(std::string_view /*text*/) override {}
};

std::string Before(const MemberPath& path, std::size_t offset) {
  return offset == 0 ? "" : " in " + path.Text.substr(0, offset);
}

/// The text of the first steps, without the dot behind them.
std::string FirstSteps(const MemberPath& path, std::size_t count) {
  if (count == path.Steps.size()) return path.Text;
  const PathStep& next = path.Steps[count];
  return path.Text.substr(0, next.Offset - (next.IsItem() ? 0 : 1));
}

}  // namespace

const AnyObject* ObjectIn(const Variant& value) {
  const auto* object = std::get_if<AnyObject>(&value);
  return object != nullptr && *object && object->Class != nullptr ? object : nullptr;
}

ObjectModel::ObjectModel(ModelListener& listener)
    : mListener(listener),
      mPreviousComponent(platform::RegisterComponent(std::string(kErrorComponent),
                                                     [] { return std::make_unique<ErrorComponent>(); })),
      mRoot(automation::ToAnyObject(std::make_shared<lwconfig::Root>())) {}

ObjectModel::~ObjectModel() {
  platform::RegisterComponent(std::string(kErrorComponent), std::move(mPreviousComponent));
}

Variant ObjectModel::Invoke(const AnyObject& object, const char* member, unsigned kinds,
                            std::span<Variant> arguments) {
  try {
    return automation::Invoke(object, member, kinds, {arguments, {}});
  } catch (const ReportedError& reported) {
    const Error& cause = reported.Cause();
    Error told(cause.Number(),
               cause.Description() + " (error " + std::to_string(cause.Number()) + " of " + cause.Source() +
                   " in " + object.Class->Name() + "." + member + ")",
               cause.Where());
    told.SetPosition(cause.Position());
    throw told;
  }
}

std::optional<Variant> ObjectModel::TryGet(const AnyObject& object, const char* member) {
  try {
    return Invoke(object, member, kPropertyGet);
  } catch (const Error&) {
    return std::nullopt;
  }
}

std::string ObjectModel::KeyOf(const AnyObject& object) {
  const ClassInfo::Member* key = object.Class->Key();
  return key != nullptr ? automation::ToText(Invoke(object, key->Name, kPropertyGet)) : "";
}

Variant ObjectModel::Get(const AnyObject& object, const ClassInfo::Member& member,
                         std::span<Variant> arguments) {
  if (object != mRoot) return Invoke(object, member.Name, kPropertyGet, arguments);
  // These take their code elements from the namespace profiles. A failure in those must not end their load.
  if (std::string_view(member.Name) == "PageTemplates" ||
      std::string_view(member.Name) == "ModelCommentProfiles")
    Get(object, *object.Class->Find("NamespaceProfiles"), {});
  try {
    return Invoke(object, member.Name, kPropertyGet, arguments);
  } catch (const Error& failure) {
    mListener.Fail(failure);
  }
  return Invoke(object, member.Name, kPropertyGet, arguments);  // what could be loaded
}

const ClassInfo::Member& ObjectModel::Find(const AnyObject& object, const MemberPath& path,
                                           const PathStep& step) {
  if (const auto* found = object.Class->Find(step.Name)) return *found;
  std::vector<std::string> names;
  for (const auto& member : object.Class->Members()) {
    if (member.Id != automation::kNewEnumId) names.emplace_back(member.Name);
  }
  throw PathError::Unknown(PathErrorKind::NotFound, "member", step.Name,
                           std::string(" of ") + object.Class->Name(), std::move(names))
      .Numbered(automation::kNoSuchMember)
      .At(path.Text, step.Offset);
}

bool ObjectModel::IsNamed(const Way& way) const {
  return way.size() > 1 &&
         std::ranges::any_of(mNamed, [&](const auto& named) { return named.second == way[1]; });
}

/// Arguments after the name are those of the object's default member.
void ObjectModel::TakeNamed(const MemberPath& path, const PathStep& step, const AnyObject& object,
                            PathTarget& place) {
  place.Value = object;
  if (step.Arguments.empty()) return;
  place.Way.push_back(object);
  const ClassInfo::Member* member = object.Class->Find(automation::kDefaultMemberId);
  if (member == nullptr)
    throw PathError(PathErrorKind::Usage, step.Name + " has no default member")
        .Numbered(automation::kNoSuchMember)
        .At(path.Text, step.Offset);
  TakeMember(path, step, *member, place);
}

void ObjectModel::TakeItem(const MemberPath& path, const PathStep& step, PathTarget& place) {
  const AnyObject& collection = place.Way.back();
  if (!collection.Class->IsCollection()) {
    throw PathError(PathErrorKind::NotFound, path.Text.substr(0, step.Offset) + " is a " +
                                                 collection.Class->Name() + ", which has no items")
        .At(path.Text, step.Offset);
  }
  const auto& key = step.Arguments.front();
  place.Value = FindItem(*this, collection, key.Value);
  place.Type = {};
  if (!std::holds_alternative<std::monostate>(place.Value)) return;
  std::vector<std::string> keys;
  const auto items = ItemsOf(collection);
  for (const CollectionItem& item : items) {
    if (!item.Key.empty()) keys.push_back(item.Key);
  }
  const auto* position = std::get_if<std::int32_t>(&key.Value);
  if (position == nullptr) {
    throw PathError::Unknown(PathErrorKind::NotFound, "item", std::get<std::string>(key.Value),
                             Before(path, step.Offset), std::move(keys))
        .At(path.Text, key.Offset);
  }
  throw PathError(PathErrorKind::NotFound, "there is no item " + std::to_string(*position) +
                                               Before(path, step.Offset) + ", which has " +
                                               std::to_string(items.size()))
      .At(path.Text, key.Offset);
}

void ObjectModel::Take(const MemberPath& path, const PathStep& step, PathTarget& place) {
  if (step.IsItem()) return TakeItem(path, step, place);
  const auto named = mNamed.find(step.Name);
  if (named != mNamed.end() && place.Way == Way{mRoot}) return TakeNamed(path, step, named->second, place);
  TakeMember(path, step, Find(place.Way.back(), path, step), place);
}

void ObjectModel::TakeMember(const MemberPath& path, const PathStep& step, const ClassInfo::Member& member,
                             PathTarget& place) {
  const AnyObject object = place.Way.back();
  if (member.Get == nullptr) {
    const bool isMethod = member.Method != nullptr;
    throw PathError(isMethod ? PathErrorKind::IsMethod : PathErrorKind::Usage,
                    std::string(member.Name) + (isMethod ? " is a method" : " can only be set"))
        .Numbered(automation::kNoSuchMember)
        .At(path.Text, step.Offset);
  }
  const auto parameters = member.Get->Parameters();
  std::vector<Variant> arguments;
  for (const PathValue& argument : step.Arguments) {
    const bool isDeclared = arguments.size() < parameters.size();
    const auto type =
        isDeclared ? parameters[arguments.size()].Type : automation::TypeInfo{automation::ValueKind::Variant};
    arguments.push_back(TypedArgument(argument, type, path.Text));
  }
  try {
    place.Value = Get(object, member, arguments);
    place.Type = arguments.size() > parameters.size() ? automation::TypeInfo{} : member.Get->Result;
  } catch (const Error& failure) {
    if (failure.Number() < automation::kNamedArgumentNotFound ||
        failure.Number() > automation::kWrongArgumentCount)
      throw;
    throw PathError(PathErrorKind::Usage, failure.Description())
        .Numbered(failure.Number())
        .At(path.Text, step.Offset);
  }
}

PathTarget ObjectModel::Follow(const MemberPath& path, std::size_t steps, Way from) {
  PathTarget place{std::move(from), {}, {}};
  place.Value = place.Way.back();
  for (std::size_t at = 0; at < steps; ++at) {
    const PathStep& step = path.Steps[at];
    if (at > 0) {
      const AnyObject* object = ObjectIn(place.Value);
      if (object == nullptr) {
        const bool isObject = std::holds_alternative<AnyObject>(place.Value);
        throw PathError(
            PathErrorKind::NotFound,
            FirstSteps(path, at) + (isObject ? " is null" : " is not an object") + " and has no members")
            .At(path.Text, step.Offset);
      }
      place.Way.push_back(*object);
    }
    Take(path, step, place);
  }
  return place;
}

Way ObjectModel::FollowToObject(const MemberPath& path, std::size_t steps, Way from) {
  PathTarget place = Follow(path, steps, std::move(from));
  const AnyObject* object = ObjectIn(place.Value);
  if (object == nullptr) {
    const bool isNull = std::holds_alternative<AnyObject>(place.Value);
    throw PathError(PathErrorKind::NotFound,
                    FirstSteps(path, steps) + (isNull ? " is null" : " is not an object"))
        .At(path.Text, steps == 0 ? 0 : path.Steps[steps - 1].Offset);
  }
  if (steps > 0) place.Way.push_back(*object);
  return std::move(place.Way);
}

}  // namespace lwconfig
