#include <array>
#include <string>
#include <variant>

#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/commands/common_options.h>
#include <tools/lwconfig/configuration.h>
#include <tools/lwconfig/model/sections.h>
#include <tools/lwconfig/terminal.h>
#include <tools/lwconfig/view/json.h>
#include <tools/lwconfig/view/listing.h>
#include <tools/lwconfig/view/tree_path.h>

namespace lwconfig::tool {
namespace {

constexpr const char* kFooter =
    R"(WHAT names a part of the configuration, one level after the other, letter case ignored:
  paths                                where configuration, templates and installation are
  namespaces                           namespace profiles, with definitions and elements
  namespaces/LW.Core                   one profile
  namespaces/LW.Core/elements          its elements
  namespaces/LW.Core/LW:Module         one definition, however deep it is nested
  plugins                              what extends the generator
  templates                            every template
  templates/NAME                       one template, by its name or the name of its folder
  templates/NAME/layouts               its page layouts; also contents, variables
  templates/NAME/layouts/method.html   one of them, with all its properties
  comments                             tagged comments; also comments/standard, comments/custom
  comments/##MODULE_DESCRIPTION        one of them
  modelcomments                        model comment profiles, with their comments
  commentfiles                         where the XML comment files of assemblies are
  languages                            programming languages
  languages/NAME                       one language, with its words and tables
  externaldocs                         sources of external documentation
  externaldocs/System.Web*             one of them, with the formats of its links
  options                              the user's options, set by set
  options/VBOptions/WrapCharacters     one option

A list shows each object in one line, an object named by itself all its properties. Nested objects are shown
to a depth of 200 and found at any depth. As JSON an object is what 'lwconfig get --json' prints, but
with the objects below it to that depth. An object that belongs elsewhere is the name of its class. A
collection with properties of its own has its items as "Items", after these. A list is an array, and so are
several objects of one name; parts of the comments, sets of options and options are under their names.
While no configuration is registered, the starter configuration is shown.

Examples:
  lwconfig show templates/VBTechDoc/contents
  lwconfig show namespaces/LW.Core --config ./share
  lwconfig show plugins --json | jq '.[].Name'
  lwconfig show templates --color always | less -R

'lwconfig --help' lists environment variables and exit statuses.
)";

void Draw(const std::vector<Target>& targets, const TextStyle& style, const Sink& sink) {
  TreeText text(style, sink);
  for (const Target& target : targets) {
    std::visit([&](const auto& object) { text.Add(object); }, target);
  }
  text.End();
}

/// The whole configuration is drawn section by section.
std::vector<Target> SectionsOf(const std::vector<Target>& configuration) {
  std::vector<Target> sections;
  for (const Group& section : std::get<Node>(configuration.front()).Groups) sections.emplace_back(section);
  return sections;
}

std::vector<std::string> SectionNames() {
  std::vector<std::string> names;
  for (const Section& section : tool::Sections()) names.emplace_back(section.Name);
  return names;
}

void Show(const Arguments& arguments, Reporter& reporter) {
  const std::string what = arguments.Text("WHAT");
  const Section* only = SectionOf(what);
  if (only == nullptr && !what.empty())
    return reporter.FailUnknown(ExitStatus::NotFound, what.substr(0, what.find('/')), SectionNames());

  Configuration configuration(arguments.Text("--config"), reporter);
  if (only == nullptr || only->IsInFiles) configuration.RequireFolder();
  const Found found = FollowPath(DescribeConfiguration(configuration.Root(), only, reporter), what);
  if (found.Targets.empty()) {
    return reporter.FailUnknown(ExitStatus::NotFound, found.Unknown, found.Existing, found.OtherNames);
  }
  const Sink output = OutputSink(reporter);
  if (arguments.Has("--json")) {
    ObjectModel model(reporter);
    return WriteJson(
        found.Targets, [&](const Variant& value) { return NestedJson(model, value, kShownLevels); }, output);
  }
  Draw(only != nullptr ? found.Targets : SectionsOf(found.Targets), StyleOf(arguments), output);
}

constexpr std::array kParameters{
    Parameter{.Name = "WHAT", .About = "the part to show; everything when left out"}};

}  // namespace

constexpr Command kShowCommand{
    .Name = "show",
    .About = "Shows the configuration, or a part of it, as a tree.",
    .Help = kFooter,
    .Parameters = kParameters,
    .Common = kShowingOptions,
    .Run = Show,
};

}  // namespace lwconfig::tool
