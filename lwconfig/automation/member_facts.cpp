#include <algorithm>
#include <array>
#include <utility>

#include <lwconfig/automation/member_facts.h>

namespace lwconfig::automation {

const char* KeyProperty(const ClassInfo& itemClass) {
  constexpr std::array<std::pair<std::string_view, const char*>, 14> kKeys{{
      {"PageTemplate", "Name"},
      {"PageLayout", "FileName"},
      {"TOCDefinition", "Name"},
      {"NodeDef", "Key"},
      {"VariableDef", "Name"},
      {"TaggedCommentDef", "TagIdentifier"},
      {"ModelComments", "Name"},
      {"ExternalDoc", "NamespaceName"},
      {"Language", "Name"},
      {"NamespaceDefs", "Name"},
      {"NamespaceDef", "Name"},
      {"ElementDef", "Name"},
      {"ElementAttributeDef", "Name"},
      {"PlugIn", "Key"},
  }};
  const auto* const found =
      std::ranges::find(kKeys, itemClass.Name(), [](const auto& row) { return row.first; });
  return found == kKeys.end() ? nullptr : found->second;
}

bool IsFileName(std::string_view name, const TypeInfo& type) {
  constexpr std::array<std::string_view, 6> kEndings{"FileName", "Folder",      "FilePath",
                                                     "FullPath", "DefaultPath", "Dictionary"};
  return type.Kind == ValueKind::Text &&
         std::ranges::any_of(kEndings, [&](std::string_view ending) { return name.ends_with(ending); });
}

}  // namespace lwconfig::automation
