#pragma once

#include <deque>
#include <iterator>
#include <map>
#include <optional>
#include <string>

#include <lwconfig/automation/published.h>
#include <lwconfig/checking/known_names.h>
#include <lwconfig/checking/model_path.h>
#include <lwconfig/core/loading/attribute_reader.h>
#include <lwconfig/core/loading/inspection.h>
#include <lwconfig/core/xml/xml_element.h>

namespace lwconfig {

/// The state shared by the rules, besides the file under examination.
struct CheckContext {
  KnownNames Names{};
  std::map<std::string, std::string> FilesOfNames{};  // first place of each name, by its folded letter case
};

/// The parts of a configuration, in the order of checking: referenced parts first.
enum class Part {
  Namespaces,
  PlugIns,
  Comments,
  ModelComments,
  CommentFiles,
  Languages,
  ExternalDocs,
  Templates,
  Texts
};

/// Rules examine one loaded configuration file and report problems to `inspection`. Loaders report
/// the rest themselves.
struct RuleInput {
  lwconfig::Inspection& Inspection;
  CheckContext& Context;
  lwconfig::Part Part;
  const std::string& File;
  const XMLElement& Root;
};

/// A root element with another name than its format has.
void CheckRootElement(const RuleInput& input);
/// Required names that are empty.
void CheckEmptyNames(const RuleInput& input);
/// References to objects that do not exist, and lists of names with blanks.
void CheckReferences(const RuleInput& input);
/// Numbers without a meaning.
void CheckNumbers(const RuleInput& input);
/// Names that occur twice where loaders accept it.
void CheckRepeatedNames(const RuleInput& input);
/// References of a template to its folder, its contents and the parents of its nodes.
void CheckTemplate(const RuleInput& input);
/// Patterns that never match.
void CheckPatterns(const RuleInput& input);
/// Placeholders of links and of the paths of comment files that nothing fills.
void CheckPlaceholders(const RuleInput& input);

/// Calls `visit(element, tag)` for the element and every one below it, in document order, to any depth.
template <class Visit>
void ForEachElement(const XMLElement& root, Visit visit) {
  struct Level {
    explicit Level(XMLElements elements) : Elements(std::move(elements)), Next(Elements.begin()) {}
    XMLElements Elements;
    XMLElements::Iterator Next;
  };
  visit(root, root.Name());
  std::deque<Level> open;  // levels refer to themselves, so they must not move
  open.emplace_back(root.Children());
  while (!open.empty()) {
    Level& level = open.back();
    if (level.Next == std::default_sentinel) {
      open.pop_back();
      continue;
    }
    const XMLElement element = *level.Next;
    ++level.Next;
    visit(element, element.Name());
    open.emplace_back(element.Children());
  }
}

/// Calls `visit(element, property, text)` for the properties of objects that `isWanted(property)` and that
/// the file has, with the text of the attribute.
template <class IsWanted, class Visit>
void ForEachProperty(const RuleInput& input, IsWanted isWanted, Visit visit) {
  ForEachElement(input.Root, [&](const XMLElement& e, const std::string& tag) {
    // Tagged comments are elements of any name.
    const automation::ClassInfo* info =
        input.Part == Part::Comments ? &automation::ClassOf<TaggedCommentDef>() : ClassOfElement(tag);
    if (info == nullptr) return;
    std::optional<AttributeReader> in;
    for (const auto& property : info->Members()) {
      if (!isWanted(property)) continue;
      if (!in) in.emplace(e);
      if (const char* text = in->Find(property.Attribute())) visit(e, property, text);
    }
  });
}

}  // namespace lwconfig
