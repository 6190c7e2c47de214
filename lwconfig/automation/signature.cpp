#include <algorithm>
#include <array>

#include <lwconfig/automation/conversion.h>
#include <lwconfig/automation/signature.h>

namespace lwconfig::automation {
namespace {

/// The slot that describes the member best.
const MemberInfo& MainSlot(const ClassInfo::Member& member) {
  for (const MemberInfo* slot : {member.Method, member.Get, member.Let}) {
    if (slot != nullptr) return *slot;
  }
  return *member.Set;
}

bool IsChange(const MemberInfo& slot) {
  return slot.Kind == kPropertyLet || slot.Kind == kPropertySet;
}

std::string AsType(const TypeInfo& type) {
  return type.Kind == ValueKind::None ? std::string() : std::string(" As ") + TypeName(type);
}

}  // namespace

TypeInfo TypeOf(const ClassInfo::Member& member) {
  const MemberInfo& slot = MainSlot(member);
  return IsChange(slot) ? slot.Parameters().back().Type : slot.Result;
}

std::span<const ParameterInfo> ParametersOf(const ClassInfo::Member& member) {
  const MemberInfo& slot = MainSlot(member);
  return slot.Parameters().first(slot.ParameterCount - (IsChange(slot) ? 1U : 0U));
}

std::string SignatureText(const ClassInfo::Member& member) {
  std::string text = member.Name;
  const auto parameters = ParametersOf(member);
  if (member.Method != nullptr || !parameters.empty()) {
    std::string list;
    for (const ParameterInfo& parameter : parameters) {
      if (!list.empty()) list += ", ";
      const std::string declared =
          (parameter.IsByReference ? "ByRef " : "") + std::string(parameter.Name) + AsType(parameter.Type);
      list += parameter.IsOptional ? "[" + declared + "]" : declared;
    }
    text += "(" + list + ")";
  }
  return text + AsType(TypeOf(member));
}

bool IsFileName(std::string_view name, const TypeInfo& type) {
  constexpr std::array<std::string_view, 6> kEndings{"FileName", "Folder",      "FilePath",
                                                     "FullPath", "DefaultPath", "Dictionary"};
  return type.Kind == ValueKind::Text &&
         std::ranges::any_of(kEndings, [&](std::string_view ending) { return name.ends_with(ending); });
}

std::string AccessText(const ClassInfo::Member& member) {
  if (member.Method != nullptr) return "method";
  std::string text;
  const auto add = [&](const MemberInfo* slot, const char* name) {
    if (slot != nullptr) text += (text.empty() ? "" : ", ") + std::string(name);
  };
  add(member.Get, "get");
  add(member.Let, "let");
  add(member.Set, "set");
  return text;
}

}  // namespace lwconfig::automation
