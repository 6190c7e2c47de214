#include <tools/lwconfig/model/describe.h>

namespace lwconfig::tool {
namespace {

/// The formats of a link, a line each.
void AddLink(Node& node, const ExternalLink& link, const std::string& of) {
  node.Properties.push_back({of + " address", {link.URLFormat}});
  node.Properties.push_back({of + " link, help 1", {link.HTMLHelp1LinkFormat}});
  node.Properties.push_back({of + " link, help 2", {link.Help2LinkFormat}});
}

Node Describe(const ExternalDoc& source) {
  Node node{"source", source.NamespaceName};
  const ExternalLink& link = *source.ClassLink;
  node.Summary = {{link.URLFormat.empty() ? link.HTMLHelp1LinkFormat : link.URLFormat, Tone::Link}};
  AddLink(node, link, "class");
  AddLink(node, *source.DefaultMemberLink, "member");
  return node;
}

}  // namespace

Group Describe(const ExternalDocs& sources) {
  Group group{"externaldocs", "ExternalDocs"};
  group.Note = "the first pattern that covers a name is used";
  group.Nodes = EachOf(sources, [](const ExternalDoc& source) { return Describe(source); });
  return group;
}

}  // namespace lwconfig::tool
