#include <memory>
#include <string>

#include <CLI/CLI.hpp>
#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/configuration.h>
#include <tools/lwconfig/members/listing.h>
#include <tools/lwconfig/members/report.h>
#include <tools/lwconfig/terminal.h>
#include <tools/lwconfig/view/json.h>

namespace lwconfig::tool {
namespace {

struct PathArguments {
  std::string Folder;
  std::string Path;
  bool IsJson = false;
};

constexpr const char* kPathHelp = R"(A path begins with a member of the root and leads from member to member:

  Name          a member; letter case does not matter
  Name(A, B)    a property that takes arguments
  [KEY]         the item of a collection under a key
  ["KEY"]       the same in quotation marks, which may also be single ones; needed where the key has brackets
                or quotation marks, begins or ends with a blank, or is a whole number; a quotation mark of the
                same kind inside is written twice
  [1]  [-1]     the first item, the last one

A template is found by its name and by that of its folder.

Shells take brackets and quotation marks for themselves: put the whole path in single quotation marks.
)";

constexpr const char* kGetExamples = R"(
A value is printed as it is, an enumeration's by name, a collection with a line for each item.

Examples:
  lwconfig get VBOptions.WrapCharacters
  lwconfig get 'PageTemplates[VBTechDoc].PageLayouts[1].TitleTemplate'
  lwconfig get 'Languages[1].SubWord'
  lwconfig get 'PageTemplates[-1].PageLayouts' --json
)";

constexpr const char* kListExamples = R"(
Without a path the members of the root are listed.

Examples:
  lwconfig ls
  lwconfig ls PageTemplates
  lwconfig ls 'PageTemplates[VBTechDoc].TOCDefinitions[1]'
)";

void Get(const PathArguments& arguments, Reporter& reporter) {
  Configuration configuration(arguments.Folder, reporter);
  Model model(reporter);
  const Place place = model.Follow(ParsePath(arguments.Path));
  WriteOutput(
      arguments.IsJson ? JsonText(GotJson(model, place)) : GotText(model, place, OutputStyle("auto", 0)),
      reporter);
}

void List(const PathArguments& arguments, Reporter& reporter) {
  Configuration configuration(arguments.Folder, reporter);
  Model model(reporter);
  const AnyObject object = model.FollowToObject(ParsePath(arguments.Path)).back();
  WriteOutput(arguments.IsJson ? JsonText(ListedJson(model, object))
                               : ListedText(model, object, OutputStyle("auto", 0)),
              reporter);
}

CLI::App& AddPathCommand(CLI::App& app, Reporter& reporter, const char* name, const char* about,
                         const char* examples, bool isRequired,
                         void (*run)(const PathArguments&, Reporter&)) {
  const auto arguments = std::make_shared<PathArguments>();
  CLI::App& command = *app.add_subcommand(name, about);
  command.group("Commands");
  command.footer(std::string(kPathHelp) + examples);
  command.add_option("PATH", arguments->Path, "the member or item")->required(isRequired)->type_name("");
  AddConfigurationOption(command, arguments->Folder);
  AddJsonOption(command, arguments->IsJson);
  command.callback(
      [arguments, run, &reporter] { WithFaults(reporter, {}, [&] { run(*arguments, reporter); }); });
  return command;
}

}  // namespace

void AddGetCommand(CLI::App& app, Reporter& reporter) {
  AddPathCommand(app, reporter, "get", "Prints the value of any member of the object model.", kGetExamples,
                 true, Get);
}

void AddListCommand(CLI::App& app, Reporter& reporter) {
  AddPathCommand(app, reporter, "ls", "Lists the members of an object, and the items of a collection.",
                 kListExamples, false, List);
}

}  // namespace lwconfig::tool
