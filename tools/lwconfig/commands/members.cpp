#include <array>
#include <string>

#include <tools/lwconfig/command_source.h>
#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/commands/common_options.h>
#include <tools/lwconfig/configuration.h>
#include <tools/lwconfig/terminal.h>
#include <tools/lwconfig/view/json.h>
#include <tools/lwconfig/view/listing.h>

namespace lwconfig::tool {
namespace {

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
A value is printed as it is, an enumeration's by name, a colour as #rrggbb (with --json the number 0xBBGGRR, red in
the low byte), a collection with a line for each item. As JSON an object below the value is the name of its class;
texts with other keys than themselves are an object.

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

void Get(const Arguments& arguments, Reporter& reporter) {
  Configuration configuration(arguments.Text("--config"), reporter);
  ObjectModel model(reporter);
  const PathTarget place = model.Follow(ParsePath(arguments.Text("PATH")));
  WriteOutput(arguments.Has("--json") ? JsonText(GotJson(model, place.Value))
                                      : GotText(model, place, OutputStyle("auto", 0)),
              reporter);
}

void List(const Arguments& arguments, Reporter& reporter) {
  Configuration configuration(arguments.Text("--config"), reporter);
  ObjectModel model(reporter);
  const AnyObject object = model.FollowToObject(ParsePath(arguments.Text("PATH"))).back();
  WriteOutput(arguments.Has("--json") ? JsonText(ListedJson(model, object))
                                      : ListedText(model, object, OutputStyle("auto", 0)),
              reporter);
}

constexpr std::array kGetParameters{
    Parameter{.Name = "PATH", .About = "the member or item", .IsRequired = true}};
constexpr std::array kListParameters{Parameter{.Name = "PATH", .About = "the member or item"}};

}  // namespace

constexpr Command kGetCommand{
    .Name = "get",
    .About = "Prints the value of any member of the object model.",
    .Help = kPathHelp,
    .MoreHelp = kGetExamples,
    .Parameters = kGetParameters,
    .Common = kReadingOptions,
    .Run = Get,
};

constexpr Command kListCommand{
    .Name = "ls",
    .About = "Lists the members of an object, and the items of a collection.",
    .Help = kPathHelp,
    .MoreHelp = kListExamples,
    .Parameters = kListParameters,
    .Common = kReadingOptions,
    .Run = List,
};

}  // namespace lwconfig::tool
