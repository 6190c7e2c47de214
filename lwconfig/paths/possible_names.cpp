#include <algorithm>

#include <lwconfig/automation/published.h>
#include <lwconfig/namespaces/definition_walk.h>
#include <lwconfig/paths/possible_names.h>

namespace lwconfig {
namespace {

using automation::NameOf;

template <class Items, class T>
std::vector<std::string> NamesIn(const Items& items, std::string T::*name) {
  std::vector<std::string> names;
  for (const auto& item : items) names.push_back((*item).*name);
  return names;
}

std::vector<std::string> CodeElements(const NamespaceProfiles& profiles) {
  std::vector<std::string> names;
  for (const auto& profile : profiles) {
    WalkDefinitions(profile.get(), [&](const auto& definition) { names.push_back(definition->Name); });
  }
  return names;
}

std::vector<std::string> Contents(const Way& way) {
  const auto found = std::ranges::find(way, &automation::ClassOf<PageTemplate>(), &AnyObject::Class);
  if (found == way.end()) return {};
  return NamesIn(*static_cast<const PageTemplate*>(found->Pointer.get())->TOCDefinitions,
                 &TOCDefinition::Name);
}

}  // namespace

std::vector<std::string> PossibleNames(const Way& way, NameOf names) {
  Root root;
  switch (names) {
    case NameOf::Profile:
      return NamesIn(*root.NamespaceProfiles(), &NamespaceDefs::Name);
    case NameOf::CodeElements:
      return CodeElements(*root.NamespaceProfiles());
    case NameOf::PlugIn:
      return NamesIn(*root.PlugIns(), &PlugIn::Name);
    case NameOf::Comment:
      return NamesIn(*root.TaggedCommentDefs(), &TaggedCommentDef::TagIdentifier);
    case NameOf::Contents:
      return Contents(way);
    case NameOf::Template:
      return NamesIn(*root.PageTemplates(), &PageTemplate::Name);
    case NameOf::Nothing:
    case NameOf::Words:
      break;
  }
  return {};
}

bool IsNameList(NameOf names) {
  return names == NameOf::CodeElements || names == NameOf::Words;
}

}  // namespace lwconfig
