#include <optional>
#include <string>

#include <tools/lwconfig/check/rules.h>

#include <lwconfig/core/attribute_reader.h>
#include <lwconfig/core/conversions.h>

namespace lwconfig::tool {
namespace {

/// The numbers that stand for something in an attribute.
struct Meanings {
  tool::Part Part;
  const char* Element;  // null for every one
  const char* Attribute;
  std::int32_t First;
  std::int32_t Last;
  std::int32_t Hole;  // one between them that stands for nothing; outside them where there is none
};

constexpr std::int32_t kNoHole = -100;

constexpr Meanings kMeanings[] = {
    {Part::Comments, nullptr, "ElementType", 0, 14, 7},
    {Part::Comments, nullptr, "WrapType", 1, 3, kNoHole},
    {Part::ModelComments, "MC", "MemberType", 1, 7, kNoHole},
    {Part::ModelComments, "MC", "InsertionPoint", 2, 3, kNoHole},
    {Part::Templates, "PageLayout", "PageType", -1, 15, kNoHole},
    {Part::Templates, "VariableDef", "Type", 0, 4, kNoHole},
    {Part::Templates, "NodeDef", "DependantOn", -1, 8, kNoHole},
    {Part::Templates, "NodeDef", "NodeType", 0, 3, kNoHole},
    {Part::Templates, "NodeDef", "PageType", -1, 15, kNoHole},
};

std::string Range(const Meanings& meanings) {
  std::string range = std::to_string(meanings.First) + " to " + std::to_string(meanings.Last);
  if (meanings.Hole != kNoHole) range += " without " + std::to_string(meanings.Hole);
  return range;
}

}  // namespace

void CheckNumbers(const RuleInput& input) {
  ForEachElement(input.Root, [&](const XMLElement& e, const std::string& tag) {
    std::optional<AttributeReader> in;
    for (const Meanings& meanings : kMeanings) {
      if (meanings.Part != input.Part || (meanings.Element != nullptr && tag != meanings.Element)) continue;
      if (!in) in.emplace(e);
      const char* text = in->Find(meanings.Attribute);
      if (text == nullptr) continue;
      const auto number = StrictInteger(text);
      if (!number || (number.Value >= meanings.First && number.Value <= meanings.Last &&
                      number.Value != meanings.Hole)) {
        continue;
      }
      input.Inspection.Tell(Problem::UnknownNumber, e, meanings.Attribute,
                            ToText(number.Value) + " has no meaning as \"" + meanings.Attribute +
                                "\"; it is one of " + Range(meanings));
    }
  });
}

}  // namespace lwconfig::tool
