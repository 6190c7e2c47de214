#include <algorithm>
#include <array>
#include <optional>

#include <lwconfig/automation/conversion.h>
#include <lwconfig/automation/dispatch.h>
#include <lwconfig/automation/errors.h>
#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/core/loading/error_reporter.h>

namespace lwconfig::automation {
namespace {

std::string FullName(const ClassInfo& info, std::string_view member) {
  return std::string(info.Name()) + "." + std::string(member);
}

const ClassInfo& CheckedClass(const AnyObject& object) {
  if (!object) throw Error(kObjectNotSet, "No object was given to call");
  if (object.Class == nullptr)
    throw Error(kNoSuchMember, "The object belongs to another library and has no members here");
  return *object.Class;
}

bool HoldsObject(std::span<const Variant> arguments) {
  return !arguments.empty() && std::holds_alternative<AnyObject>(arguments.back());
}

/// The slot that serves the call. Where there are both, an object selects a set, any other value a let.
const MemberInfo& ChooseSlot(const ClassInfo& info, const ClassInfo::Member& member, unsigned kinds,
                             const Arguments& arguments) {
  if ((kinds & kMethod) != 0 && member.Method != nullptr) return *member.Method;
  if ((kinds & kPropertyGet) != 0 && member.Get != nullptr) return *member.Get;
  if ((kinds & (kPropertyLet | kPropertySet)) != 0) {
    const bool prefersSet = (kinds & kPropertySet) != 0 || HoldsObject(arguments.Ordered);
    const MemberInfo* first = prefersSet ? member.Set : member.Let;
    const MemberInfo* second = prefersSet ? member.Let : member.Set;
    if (first != nullptr) return *first;
    if (second != nullptr) return *second;
    if (member.Get != nullptr) throw Error(kReadOnlyProperty, FullName(info, member.Name) + " is read-only");
  }
  throw Error(kNoSuchMember, FullName(info, member.Name) + (member.Method != nullptr
                                                                ? " is a method, not a property"
                                                                : " is a property that cannot be used so"));
}

using ArgumentArray = std::array<Variant, kMostParameters>;

void PlaceNamed(const ClassInfo& info, const MemberInfo& slot, const Arguments& arguments,
                ArgumentArray& values) {
  const auto parameters = slot.Parameters();
  for (const NamedArgument& named : arguments.Named) {
    const auto found = std::find_if(
        parameters.begin(), parameters.end(),
        [&](const ParameterInfo& parameter) { return EqualIgnoringCase(parameter.Name, named.Name); });
    if (found == parameters.end()) {
      throw Error(kNamedArgumentNotFound,
                  FullName(info, slot.Name) + " has no parameter \"" + std::string(named.Name) + "\"");
    }
    Variant& value = values[static_cast<std::size_t>(found - parameters.begin())];
    if (!std::holds_alternative<Missing>(value)) {
      throw Error(kNamedArgumentNotFound, FullName(info, slot.Name) + ": the argument \"" +
                                              std::string(named.Name) + "\" is given twice");
    }
    value = *named.Value;
  }
}

void RequireAll(const ClassInfo& info, const MemberInfo& slot, const Variant* values) {
  for (std::size_t at = 0; at < slot.ParameterCount; ++at) {
    const ParameterInfo& parameter = slot.ParameterList[at];
    if (parameter.IsOptional || !std::holds_alternative<Missing>(values[at])) continue;
    throw Error(kArgumentNotOptional, FullName(info, slot.Name) + ": the argument " + std::to_string(at + 1) +
                                          " (" + std::string(parameter.Name) + ") is missing");
  }
}

/// The values in the order of the parameters.
ArgumentArray Place(const ClassInfo& info, const MemberInfo& slot, const Arguments& arguments) {
  const auto parameters = slot.Parameters();
  if (arguments.Ordered.size() > parameters.size()) {
    throw Error(kWrongArgumentCount, FullName(info, slot.Name) + " takes at most " +
                                         std::to_string(parameters.size()) + " arguments, " +
                                         std::to_string(arguments.Ordered.size()) + " were given");
  }
  ArgumentArray values;
  for (std::size_t at = 0; at < parameters.size(); ++at) {
    values[at] = at < arguments.Ordered.size() ? arguments.Ordered[at] : Variant(Missing{});
  }
  PlaceNamed(info, slot, arguments, values);
  return values;
}

void ReturnByReference(const MemberInfo& slot, const Arguments& arguments, ArgumentArray& values) {
  const auto parameters = slot.Parameters();
  for (std::size_t at = 0; at < parameters.size(); ++at) {
    if (!parameters[at].IsByReference) continue;
    if (at < arguments.Ordered.size()) {
      arguments.Ordered[at] = std::move(values[at]);
      continue;
    }
    for (const NamedArgument& named : arguments.Named) {
      if (EqualIgnoringCase(parameters[at].Name, named.Name)) *named.Value = std::move(values[at]);
    }
  }
}

/// The description of the call in a report: the arguments, and the object as its failure left it.
Operation Describe(const AnyObject& object, const MemberInfo& slot, const Variant* values) {
  Operation operation{object.Class->Name(), slot.Name, {}, {}};
  for (std::size_t at = 0; at < slot.ParameterCount; ++at) {
    operation.Parameters.emplace_back(slot.ParameterList[at].Name, DescribeValue(values[at]));
  }
  for (const auto& member : object.Class->Members()) {
    if (member.Get == nullptr || !member.Get->IsStored) continue;
    operation.Variables.emplace_back(member.Name, DescribeValue(member.Get->Call(object.Pointer, nullptr)));
  }
  return operation;
}

/// Calls with a value for each parameter, which by-reference parameters may replace. A call with an argument
/// that does not convert has not begun and is not reported as a failure.
Variant CallPlaced(const AnyObject& object, const MemberInfo& slot, Variant* values) {
  const ClassInfo& info = *object.Class;
  RequireAll(info, slot, values);
  std::optional<ArgumentError> misuse;
  std::optional<Variant> result;
  RunPublished([&] { return Describe(object, slot, values); },
               [&] {
                 try {
                   result = slot.Call(object.Pointer, values);
                 } catch (const ArgumentError& problem) {
                   misuse = problem;
                 }
               });
  if (misuse) throw NamedArgumentError(info, slot, *misuse);
  return result ? *std::move(result) : EmptyValue(slot.Result);
}

Variant Call(const AnyObject& object, const MemberInfo& slot, const Arguments& arguments) {
  const bool isPlaced = arguments.Named.empty() && arguments.Ordered.size() == slot.ParameterCount;
  if (isPlaced) return CallPlaced(object, slot, arguments.Ordered.data());
  ArgumentArray values = Place(*object.Class, slot, arguments);
  Variant result = CallPlaced(object, slot, values.data());
  ReturnByReference(slot, arguments, values);
  return result;
}

Variant InvokeMember(const AnyObject& object, const ClassInfo& info, const ClassInfo::Member& member,
                     unsigned kinds, const Arguments& arguments) {
  const MemberInfo& slot = ChooseSlot(info, member, kinds, arguments);
  const bool indexesResult = slot.Kind == kPropertyGet && slot.ParameterCount == 0 &&
                             slot.Result.Kind != ValueKind::Enumerator &&
                             (!arguments.Ordered.empty() || !arguments.Named.empty());
  if (!indexesResult) return Call(object, slot, arguments);
  const Variant result = Call(object, slot, {});
  const auto* held = std::get_if<AnyObject>(&result);
  if (held == nullptr) {
    throw Error(kWrongArgumentCount, FullName(info, slot.Name) + " takes no arguments, " +
                                         std::to_string(arguments.Ordered.size() + arguments.Named.size()) +
                                         " were given");
  }
  return Invoke(*held, kDefaultMemberId, kinds, arguments);
}

}  // namespace

Variant Invoke(const AnyObject& object, std::string_view member, unsigned kinds, const Arguments& arguments) {
  const ClassInfo& info = CheckedClass(object);
  const ClassInfo::Member* found = info.Find(member);
  if (found == nullptr) {
    throw Error(kNoSuchMember,
                std::string("The class ") + info.Name() + " has no member \"" + std::string(member) + "\"");
  }
  return InvokeMember(object, info, *found, kinds, arguments);
}

Variant Invoke(const AnyObject& object, std::int32_t id, unsigned kinds, const Arguments& arguments) {
  const ClassInfo& info = CheckedClass(object);
  const ClassInfo::Member* found = info.Find(id);
  if (found == nullptr) {
    throw Error(kNoSuchMember, std::string("The class ") + info.Name() +
                                   (id == kDefaultMemberId ? " has no default member"
                                                           : " has no member number " + std::to_string(id)));
  }
  return InvokeMember(object, info, *found, kinds, arguments);
}

Variant Invoke(const AnyObject& object, const MemberInfo& slot, const Arguments& arguments) {
  CheckedClass(object);
  return Call(object, slot, arguments);
}

Error NamedArgumentError(const ClassInfo& info, const MemberInfo& slot, const ArgumentError& problem) {
  const std::size_t position = problem.Position();
  return {problem.Number(),
          FullName(info, slot.Name) + ", argument " + std::to_string(position) + " (" +
              std::string(slot.ParameterList[position - 1].Name) + "): " + problem.Description(),
          problem.Where()};
}

Connection Connect(const AnyObject& object, std::string_view event, std::function<void()> handler) {
  const ClassInfo& info = CheckedClass(object);
  const EventInfo* found = info.FindEvent(event);
  if (found == nullptr) {
    throw Error(kNoSuchEvent,
                std::string("The class ") + info.Name() + " has no event \"" + std::string(event) + "\"");
  }
  return found->Connect(object.Pointer, [call = std::move(handler)] {
    const OutsideScope outside;
    call();
  });
}

std::shared_ptr<Enumerator> Enumerate(const AnyObject& object) {
  return EnumeratorIn(Invoke(object, kNewEnumId, kPropertyGet));
}

}  // namespace lwconfig::automation
