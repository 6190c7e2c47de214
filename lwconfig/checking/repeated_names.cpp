#include <string>

#include <lwconfig/checking/rules.h>
#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/core/files/disk_file.h>
#include <lwconfig/core/loading/attribute_reader.h>

namespace lwconfig {
namespace {

/// Reports an attribute whose value appeared before in this part of the configuration.
void CheckAcrossFiles(const RuleInput& input, const XMLElement& e, const char* attribute, const char* prefix,
                      std::string_view consequence) {
  const char* name = AttributeReader(e).Find(attribute);
  if (name == nullptr || *name == '\0') return;
  const auto [known, isNew] = input.Context.FilesOfNames.emplace(prefix + FoldCase(name), input.File);
  if (isNew) return;
  const std::string where = known->second == input.File ? "in this file" : "in " + NativePath(known->second);
  input.Inspection.Report(
      Problem::DuplicateName, e, attribute,
      "the name \"" + std::string(name) + "\" appears earlier " + where + "; " + std::string(consequence));
}

/// Nested definitions: of two with one name the loader keeps the first.
void CheckSiblings(const RuleInput& input, const XMLElement& parent) {
  NameSet names;
  for (const XMLElement child : parent.Children()) {
    const char* name = AttributeReader(child).Find("Name");
    if (name == nullptr || *name == '\0' || names.Add(name)) continue;
    input.Inspection.Report(
        Problem::DuplicateName, child, "Name",
        "an earlier sibling has the name \"" + std::string(name) + "\"; this one is left out");
  }
}

}  // namespace

void CheckRepeatedNames(const RuleInput& input) {
  switch (input.Part) {
    case Part::Namespaces:
      ForEachElement(input.Root, [&](const XMLElement& e, const std::string& tag) {
        if (EqualIgnoringCase(tag, "lwnamespace")) CheckSiblings(input, e);
      });
      break;
    case Part::PlugIns:
      for (const XMLElement child : input.Root.Children())
        CheckAcrossFiles(input, child, "Name", "plug-in ", "a template that enables it gets the first");
      break;
    case Part::Comments:
      for (const XMLElement child : input.Root.Children())
        CheckAcrossFiles(input, child, "Identifier", "comment ", "this one takes the place of the other");
      break;
    default:
      break;
  }
}

}  // namespace lwconfig
