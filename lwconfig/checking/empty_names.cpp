#include <string_view>

#include <lwconfig/checking/rules.h>
#include <lwconfig/core/loading/attribute_reader.h>

namespace lwconfig {
namespace {

void CheckValue(const RuleInput& input, const XMLElement& e, const char* attribute,
                std::string_view message) {
  const char* value = AttributeReader(e).Find(attribute);
  if (value == nullptr || std::string_view(value).find_first_not_of(" \t\r\n") != std::string_view::npos)
    return;
  input.Inspection.Report(Problem::EmptyName, e, attribute, message);
}

}  // namespace

void CheckEmptyNames(const RuleInput& input) {
  if (input.Part == Part::Templates) CheckValue(input, input.Root, "Name", "the template has no name");
  if (input.Part != Part::ExternalDocs) return;
  for (const XMLElement source : input.Root.Children()) {
    if (source.Name() == "ExternalDoc")
      CheckValue(input, source, "Namespace", "the source has no pattern; it matches no namespace");
  }
}

}  // namespace lwconfig
