#include <algorithm>
#include <cstddef>
#include <vector>

#include <lwconfig/checking/model_path.h>
#include <lwconfig/core/base/letter_case.h>

namespace lwconfig {
namespace {

/// How the elements of one name lead to an object.
struct Step {
  const char* Parent;  // the element that they are in; null for any
  const char* Element;
  const char* Collection;  // the step of the path
  const char* Key;         // the attribute with the item's key; null where it has a position only
};

constexpr Step kSteps[] = {
    {nullptr, "PageTemplate", "PageTemplates", "Name"},
    {"PageTemplate", "PageLayout", "PageLayouts", "FileName"},
    {"PageTemplate", "TOCDefinition", "TOCDefinitions", "Name"},
    {"PageTemplate", "NodeDef", "TOCDefinitions[Default].NodeDefs", "Key"},
    {"TOCDefinition", "NodeDef", "NodeDefs", "Key"},
    {"PageTemplate", "VariableDef", "VariableDefs", "Name"},
    {nullptr, "lwnamespaces", "NamespaceProfiles", "Name"},
    {nullptr, "lwelement", "ElementDefs", "Name"},
    {"lwelement", "attribute", "ElementAttributeDefs", "Name"},
    {"lwnamespaces", "lwnamespace", "", "Name"},
    {"lwnamespace", "lwnamespace", "ChildNamespaceDefs", "Name"},
    {nullptr, "PlugIn", "PlugIns", "Name"},
    {nullptr, "Language", "Languages", "Name"},
    {nullptr, "ModelCommentProfile", "ModelCommentProfiles", "Name"},
    {nullptr, "MC", "", nullptr},
    {nullptr, "TaggedComment", "TaggedCommentDefs", "Identifier"},
    {nullptr, "CommentFile", "CommentFileLocations", nullptr},
    {nullptr, "ExternalDoc", "ExternalDocs", "Namespace"},
};

const Step* StepOf(const XMLElement& e) {
  const auto parent = e.Parent();
  const auto* const found = std::ranges::find_if(kSteps, [&](const Step& step) {
    return e.IsNamedIgnoringCase(step.Element) &&
           (step.Parent == nullptr || (parent && parent->IsNamedIgnoringCase(step.Parent)));
  });
  return found == std::end(kSteps) ? nullptr : found;
}

/// From 1, among the elements of its name.
std::size_t PositionOf(const XMLElement& e) {
  std::size_t position = 1;
  if (const auto parent = e.Parent()) {
    for (const XMLElement sibling : parent->Children()) {
      if (sibling == e) break;
      if (sibling.Name() == e.Name()) ++position;
    }
  }
  return position;
}

std::string Written(const Step& step, const XMLElement& e) {
  const auto key = step.Key != nullptr ? e.Attributes().Find(step.Key) : std::nullopt;
  const bool hasKey = key && !key->Value().empty();
  return std::string(step.Collection) + "[" +
         (hasKey ? WrittenKey(key->Value()) : std::to_string(PositionOf(e))) + "]";
}

}  // namespace

std::string ModelPathOf(const XMLElement& e) {
  std::string path;
  for (std::optional<XMLElement> at = e; at; at = at->Parent()) {
    const Step* step = StepOf(*at);
    if (step == nullptr) continue;
    const bool isItem = !path.empty() && !path.starts_with('[');
    path = Written(*step, *at) + (isItem ? "." : "") + path;
  }
  return path;
}

std::string WrittenKey(std::string_view key, char quote) {
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  const bool isNumber = std::ranges::all_of(key.substr(key.starts_with('-') ? 1 : 0), isDigit);
  const bool isSafe = !isNumber && !key.starts_with(' ') && !key.ends_with(' ') &&
                      key.find_first_of("\"'[]") == std::string_view::npos;
  if (quote == '\0') {
    if (isSafe) return std::string(key);
    quote = '"';
  }
  std::string written(1, quote);
  for (const char c : key) written.append(c == quote ? 2 : 1, c);
  return written + quote;
}

}  // namespace lwconfig
