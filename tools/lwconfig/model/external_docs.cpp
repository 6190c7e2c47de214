#include <tools/lwconfig/model/describe.h>

namespace lwconfig::tool {
namespace {

/// The formats of a link: an object for JSON, and a line each for people.
void AddLink(Node& node, const char* name, const ExternalLink& link, const std::string& of) {
  node.Properties.push_back(Unlabelled(name, {{"URLFormat", link.URLFormat},
                                              {"HTMLHelp1LinkFormat", link.HTMLHelp1LinkFormat},
                                              {"Help2LinkFormat", link.Help2LinkFormat}}));
  node.Properties.push_back({{}, {}, of + " address", {link.URLFormat}});
  node.Properties.push_back({{}, {}, of + " link, help 1", {link.HTMLHelp1LinkFormat}});
  node.Properties.push_back({{}, {}, of + " link, help 2", {link.Help2LinkFormat}});
}

Node Describe(const ExternalDoc& source) {
  Node node{"source", source.NamespaceName};
  const ExternalLink& link = *source.ClassLink;
  node.Summary = {{link.URLFormat.empty() ? link.HTMLHelp1LinkFormat : link.URLFormat, Tone::Link}};
  node.Properties = {Unlabelled("NamespaceName", source.NamespaceName)};
  AddLink(node, "ClassLink", link, "class");
  AddLink(node, "DefaultMemberLink", *source.DefaultMemberLink, "member");
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
