#pragma once

#include <tools/lwconfig/view/node.h>

#include <lwconfig/automation/published.h>
#include <lwconfig/comments/comment_file_locations.h>
#include <lwconfig/comments/model_comment_profiles.h>
#include <lwconfig/comments/tagged_comment_defs.h>
#include <lwconfig/core/files/file_name.h>
#include <lwconfig/externaldocs/external_docs.h>
#include <lwconfig/namespaces/language.h>
#include <lwconfig/namespaces/namespace_profiles.h>
#include <lwconfig/namespaces/plug_in.h>
#include <lwconfig/templates/page_templates.h>

namespace lwconfig::tool {

/// The objects of the configuration as nodes to be shown, in the order of their collections.

Group Describe(const NamespaceProfiles& profiles);
Group Describe(const ElementDefs& elements);
Group Describe(const PlugIns& plugIns);
Group Describe(const PageTemplates& templates);
Group Describe(const PageLayouts& layouts);
Group Describe(const TOCDefinitions& definitions);
Group Describe(const VariableDefs& variables);
Group Describe(const TaggedCommentDefs& definitions);
Group Describe(const ModelCommentProfiles& profiles);
Group Describe(const CommentFileLocations& locations);
Group Describe(const Languages& languages);
Group Describe(const ExternalDocs& sources);

/// The items of a collection, which outlives them, as `describe(item)` has them.
template <class Items, class Describe>
NodeList EachOf(const Items& items, Describe describe) {
  return {static_cast<std::size_t>(items.Count()), [&items, describe](std::size_t place) {
            const auto item = items.Item(place + 1);
            Node node = describe(*item);
            node.Value = automation::ToAnyObject(item);
            return node;
          }};
}

/// The path as a person uses it: the product's own where it has a drive letter, else the host's.
std::string ShownPath(const std::string& path);

/// "if 2+ LW:Library where x": the condition that so many (where that is more than 0) items of a kind exist;
/// empty without a kind.
std::string Condition(const std::string& kind, const std::string& filter, std::int32_t count);
/// "per LW:Module where x": what something is repeated for; empty without a kind.
std::string Repetition(const std::string& kind, const std::string& filter);

}  // namespace lwconfig::tool
