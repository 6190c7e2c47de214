#include <algorithm>
#include <array>

#include <tools/lwconfig/model/describe.h>
#include <tools/lwconfig/model/loaded.h>
#include <tools/lwconfig/model/options.h>
#include <tools/lwconfig/model/sections.h>

#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/core/files/disk_file.h>

namespace lwconfig::tool {
namespace {

/// A registered folder in the product's notation, and where that is on this system.
void AddPath(Node& node, const char* label, const std::string& path) {
  if (path.empty()) {
    node.Properties.push_back({label, {"not registered", Tone::Quiet}});
    return;
  }
  node.Properties.push_back({label, {ShownPath(path)}});
  if (ShownPath(path) == path && NativePath(path) != path)
    node.Properties.push_back({label, {NativePath(path), Tone::Quiet}});
}

Group DescribePaths(Root& root, Reporter& reporter) {
  Node paths{"paths", "paths"};
  paths.Value = automation::ToAnyObject(std::make_shared<Root>());
  AddPath(paths, "configuration", root.ConfigPath());
  AddPath(paths, "templates", root.TemplatePath());
  AddPath(paths, "installation", root.AppPath());
  try {
    AddPath(paths, ".NET", root.DotNetPath());
  } catch (const Error& failure) {
    reporter.Fail(failure);
  }
  return {"paths", "Paths", std::vector{std::move(paths)}, true};
}

Group DescribeTemplates(Root& root, Reporter& reporter) {
  return Describe(*LoadedTemplates(root, reporter));
}

/// A collection that depends on no other.
template <auto Obtain>
Group DescribeCollection(Root& root, Reporter& reporter) {
  return Describe(*Loaded(reporter, [&] { return (root.*Obtain)(); }));
}

Group DescribeCommentFiles(Root& root, Reporter& reporter) {
  const auto locations = Loaded(reporter, [&] { return root.CommentFileLocations(); });
  try {
    for (const auto& location : *locations) location->CommentFilePath();
  } catch (const Error& failure) {
    reporter.Fail(failure);
  }
  return Describe(*locations);
}

constexpr std::array kSections{
    Section{"paths", "Paths", "where configuration, templates and installation are", DescribePaths, false},
    Section{"namespaces", "NamespaceProfiles", "kinds of code element, and the elements of pages",
            DescribeCollection<&Root::NamespaceProfiles>},
    Section{"plugins", "PlugIns", "what extends the generator", DescribeCollection<&Root::PlugIns>},
    Section{"templates", "PageTemplates", "settings, layouts, contents trees and variables",
            DescribeTemplates},
    Section{"comments", "TaggedCommentDefs", "tagged comments in source code",
            DescribeCollection<&Root::TaggedCommentDefs>},
    Section{"modelcomments", "ModelCommentProfiles", "descriptions to re-use",
            DescribeCollection<&Root::ModelCommentProfiles>},
    Section{"commentfiles", "CommentFileLocations", "XML comment files of assemblies", DescribeCommentFiles},
    Section{"languages", "Languages", "how declarations are written", DescribeCollection<&Root::Languages>},
    Section{"externaldocs", "ExternalDocs", "sources of external documentation",
            DescribeCollection<&Root::ExternalDocs>},
    Section{"options", "Options", "the user's options", DescribeOptions, false},
};

}  // namespace

std::span<const Section> Sections() {
  return kSections;
}

const Section* SectionOf(std::string_view path) {
  path.remove_prefix(std::min(path.find_first_not_of('/'), path.size()));
  const std::string_view name = path.substr(0, path.find('/'));
  for (const Section& section : kSections) {
    if (EqualIgnoringCase(name, section.Name) || EqualIgnoringCase(name, section.Published)) return &section;
  }
  return nullptr;
}

Node DescribeConfiguration(Root& root, const Section* only, Reporter& reporter) {
  Node configuration{"configuration", "configuration"};
  for (const Section& section : kSections) {
    if (only == nullptr || only == &section) configuration.Groups.push_back(section.Describe(root, reporter));
  }
  return configuration;
}

}  // namespace lwconfig::tool
