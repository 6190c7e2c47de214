#include <optional>
#include <set>
#include <string>
#include <vector>

#include <lwconfig/automation/published.h>
#include <lwconfig/checking/rules.h>
#include <lwconfig/core/base/conversions.h>
#include <lwconfig/core/loading/attribute_reader.h>

namespace lwconfig {
namespace {

/// The numbers that stand for something in an attribute.
struct Meanings {
  lwconfig::Part Part;
  const char* Element;  // null for every one
  const char* Attribute;
  std::set<std::int32_t> Numbers;
};

/// Those of an enumeration, and others beside it.
template <class E>
std::set<std::int32_t> NumbersOf(std::set<std::int32_t> others = {}) {
  for (const auto& member : automation::EnumOf<E>().Members) others.insert(member.Value);
  return others;
}

constexpr std::int32_t kNone = 0;
constexpr std::int32_t kNoUsableValue = -1;  // what a loader without one keeps, and saves
constexpr std::int32_t kOlderStandardNode = 3;

const std::vector<Meanings>& AllMeanings() {
  static const std::vector<Meanings> meanings{
      {Part::Comments, nullptr, "ElementType", NumbersOf<ElementTypeEnum>()},
      {Part::Comments, nullptr, "WrapType", NumbersOf<WrapTypeEnum>({kNone})},
      {Part::ModelComments, "MC", "MemberType", NumbersOf<mcMemberTypeEnum>()},
      {Part::ModelComments, "MC", "InsertionPoint", NumbersOf<mcInsertionPointEnum>()},
      {Part::Templates, "PageLayout", "PageType", NumbersOf<PageTypeEnum>({kNoUsableValue})},
      {Part::Templates, "VariableDef", "Type", NumbersOf<VariableDefTypeEnum>()},
      {Part::Templates, "NodeDef", "DependantOn", NumbersOf<DependantOnEnum>({kNoUsableValue, kNone})},
      {Part::Templates, "NodeDef", "NodeType", NumbersOf<NodeTypeEnum>({kOlderStandardNode})},
      {Part::Templates, "NodeDef", "PageType", NumbersOf<PageTypeEnum>({kNoUsableValue})},
  };
  return meanings;
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
  ForEachElement(input.Root, [&](const XMLElement& e, const std::string& tag) {
    std::optional<AttributeReader> in;
    for (const Meanings& meanings : AllMeanings()) {
      if (meanings.Part != input.Part || (meanings.Element != nullptr && tag != meanings.Element)) continue;
      if (!in) in.emplace(e);
      const char* text = in->Find(meanings.Attribute);
      if (text == nullptr) continue;
      const auto number = StrictInteger(text);
      if (!number || meanings.Numbers.contains(number.Value)) continue;
      input.Inspection.Report(Problem::UnknownNumber, e, meanings.Attribute,
                              ToText(number.Value) + " has no meaning as \"" + meanings.Attribute +
                                  "\"; it is one of " + Range(meanings.Numbers));
    }
  });
}

}  // namespace lwconfig
