#include <memory>
#include <string>
#include <variant>

#include <CLI/CLI.hpp>
#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/configuration.h>
#include <tools/lwconfig/model/sections.h>
#include <tools/lwconfig/terminal.h>
#include <tools/lwconfig/view/json.h>
#include <tools/lwconfig/view/tree_path.h>

namespace lwconfig::tool {
namespace {

struct ShowOptions {
  std::string What;
  std::string Folder;
  bool IsJson = false;
  StyleOptions Style;
};

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
to a depth of 200 and found at any depth. As JSON a list is an array, and an object named by itself an object;
where several have the name it is an array of them.
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

void Show(const ShowOptions& options, Reporter& reporter) {
  const Section* only = SectionOf(options.What);
  if (only == nullptr && !options.What.empty())
    return reporter.FailUnknown(ExitStatus::NotFound, options.What.substr(0, options.What.find('/')),
                                SectionNames());

  Configuration configuration(options.Folder, reporter);
  if (only == nullptr || only->IsInFiles) configuration.RequireFolder();
  const Found found = FollowPath(DescribeConfiguration(configuration.Root(), only, reporter), options.What);
  if (found.Targets.empty()) {
    return reporter.FailUnknown(ExitStatus::NotFound, found.Unknown, found.Existing, found.OtherNames);
  }
  const Sink output = OutputSink(reporter);
  if (options.IsJson) return WriteJson(found.Targets, output);
  Draw(only != nullptr ? found.Targets : SectionsOf(found.Targets), options.Style.Style(), output);
}

}  // namespace

void AddConfigurationOption(CLI::App& command, std::string& folder) {
  command.add_option("-c,--config", folder, "configuration folder to use instead of the registered one")
      ->type_name("DIR")
      ->check([](const std::string& given) { return given.empty() ? "DIR is empty" : std::string(); });
}

void AddJsonOption(CLI::App& command, bool& isJson) {
  command.add_flag("-j,--json", isJson, "print JSON, with the published property names");
}

void AddShowCommand(CLI::App& app, Reporter& reporter) {
  const auto options = std::make_shared<ShowOptions>();
  CLI::App& show = *app.add_subcommand("show", "Shows the configuration, or a part of it, as a tree.");
  show.group("Commands");
  show.footer(kFooter);
  show.add_option("WHAT", options->What, "the part to show; everything when left out")->type_name("");
  AddConfigurationOption(show, options->Folder);
  AddJsonOption(show, options->IsJson);
  AddStyleOptions(show, options->Style);
  show.callback([options, &reporter] { Show(*options, reporter); });
}

}  // namespace lwconfig::tool
