#include <set>
#include <string>

#include <lwconfig/checking/rules.h>
#include <lwconfig/core/base/conversions.h>

namespace lwconfig {
namespace {

/// The numbers that stand for something in the attribute of a property.
std::set<std::int32_t> MeaningsOf(const automation::ClassInfo::Member& member) {
  std::set<std::int32_t> numbers(member.Facts.MoreNumbers.begin(), member.Facts.MoreNumbers.end());
  for (const auto& enumerator : member.Get->Result.Enumeration().Members) numbers.insert(enumerator.Value);
  return numbers;
}

/// "0 to 14 without 7"
std::string Range(const std::set<std::int32_t>& numbers) {
  std::string range = ToText(*numbers.begin()) + " to " + ToText(*numbers.rbegin());
  for (std::int32_t number = *numbers.begin(); number < *numbers.rbegin(); ++number) {
    if (!numbers.contains(number)) range += " without " + ToText(number);
  }
  return range;
}

}  // namespace

void CheckNumbers(const RuleInput& input) {
  const auto isEnumeration = [](const auto& member) {
    return member.Get != nullptr && member.Get->Result.Kind == automation::ValueKind::Enumeration;
  };
  ForEachProperty(input, isEnumeration, [&](const XMLElement& e, const auto& member, const char* text) {
    const auto number = StrictInteger(text);
    if (!number) return;
    const auto meanings = MeaningsOf(member);
    if (meanings.contains(number.Value)) return;
    const std::string attribute = member.Attribute();
    input.Inspection.Report(
        Problem::UnknownNumber, e, attribute,
        ToText(number.Value) + " has no meaning as \"" + attribute + "\"; it is one of " + Range(meanings));
  });
}

}  // namespace lwconfig
