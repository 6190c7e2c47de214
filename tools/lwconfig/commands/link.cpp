#include <array>
#include <string>

#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/commands/common_options.h>
#include <tools/lwconfig/configuration.h>
#include <tools/lwconfig/model/loaded.h>
#include <tools/lwconfig/terminal.h>
#include <tools/lwconfig/view/json.h>

namespace lwconfig::tool {
namespace {

constexpr const char* kFooter = R"(OBJECT is a full name with its namespace, in its own letter case. The exit
status is 1 where no source of external documentation covers it.

Examples:
  lwconfig link System.Windows.Forms.Button
  lwconfig link System.Windows.Forms.Button --member Focus --caption "the focus" --help2
  lwconfig link System.Windows.Forms.Button --url
)";

std::string CaptionOf(const Arguments& arguments) {
  for (const char* name : {"--caption", "--member"}) {
    if (std::string text = arguments.Text(name); !text.empty()) return text;
  }
  return arguments.Text("OBJECT");
}

std::string LinkOf(ExternalDocs& sources, const Arguments& arguments) {
  const std::string object = arguments.Text("OBJECT");
  const std::string member = arguments.Text("--member");
  if (arguments.Has("--url")) return sources.URL(object);
  const std::string caption = CaptionOf(arguments);
  const bool isHelp2 = arguments.Has("--help2");
  if (member.empty()) return sources.Link(object, caption, isHelp2);
  return sources.MemberLink(object, member, caption, isHelp2);
}

void Run(const Arguments& arguments, Reporter& reporter) {
  Configuration configuration(arguments.Text("--config"), reporter);
  configuration.RequireFolder();
  const auto sources = Loaded(reporter, [&] { return configuration.Root().ExternalDocs(); });
  const std::string link = LinkOf(*sources, arguments);
  const std::string object = arguments.Text("OBJECT");
  const bool isUrl = arguments.Has("--url");
  if (link.empty()) {
    return reporter.Fail(ExitStatus::NotFound,
                         std::string("no source of external documentation has ") +
                             (isUrl ? "an address" : "a link") + " for '" + object +
                             "' ('lwconfig show externaldocs' lists the names that they cover)");
  }
  if (!arguments.Has("--json")) return WriteOutput(link + "\n", reporter);
  const std::string member = arguments.Text("--member");
  Json json{{"ObjectFullName", object}};
  if (!member.empty()) json["MemberName"] = member;
  json[isUrl ? "URL" : member.empty() ? "Link" : "MemberLink"] = link;
  WriteOutput(JsonText(json), reporter);
}

constexpr std::array kParameters{
    Parameter{.Name = "OBJECT", .About = "the class or other object", .IsRequired = true},
    kConfigurationOption,
    kJsonOption,
    Parameter{.Name = "-u,--url",
              .About = "the address alone, without markup",
              .Excludes = "--member --caption --help2"},
    Parameter{.Name = "-m,--member", .About = "link to this member of the object", .Value = "NAME"},
    Parameter{.Name = "--caption", .About = "text of the link; else the member or object", .Value = "TEXT"},
    Parameter{.Name = "--help2", .About = "the format for help 2 rather than that for help 1"},
};

}  // namespace

constexpr Command kLinkCommand{
    .Name = "link",
    .About = "Prints a link into external documentation.",
    .Help = kFooter,
    .Parameters = kParameters,
    .Run = Run,
};

}  // namespace lwconfig::tool
