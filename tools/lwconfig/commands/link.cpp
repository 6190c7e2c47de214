#include <memory>
#include <string>

#include <CLI/CLI.hpp>
#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/configuration.h>
#include <tools/lwconfig/model/loaded.h>
#include <tools/lwconfig/terminal.h>
#include <tools/lwconfig/view/json.h>

namespace lwconfig::tool {
namespace {

struct LinkArguments {
  std::string Folder;
  std::string Object;
  std::string Member;
  std::string Caption;
  bool IsHelp2 = false;
  bool IsUrl = false;
  bool IsJson = false;
};

constexpr const char* kFooter = R"(OBJECT is a full name with its namespace, in its own letter case. The exit
status is 1 where no source of external documentation covers it.

Examples:
  lwconfig link System.Windows.Forms.Button
  lwconfig link System.Windows.Forms.Button --member Focus --caption "the focus" --help2
  lwconfig link System.Windows.Forms.Button --url
)";

std::string CaptionOf(const LinkArguments& arguments) {
  if (!arguments.Caption.empty()) return arguments.Caption;
  return arguments.Member.empty() ? arguments.Object : arguments.Member;
}

std::string LinkOf(ExternalDocs& sources, const LinkArguments& arguments) {
  if (arguments.IsUrl) return sources.URL(arguments.Object);
  const std::string caption = CaptionOf(arguments);
  if (arguments.Member.empty()) return sources.Link(arguments.Object, caption, arguments.IsHelp2);
  return sources.MemberLink(arguments.Object, arguments.Member, caption, arguments.IsHelp2);
}

void Run(const LinkArguments& arguments, Reporter& reporter) {
  Configuration configuration(arguments.Folder, reporter);
  configuration.RequireFolder();
  const auto sources = Loaded(reporter, [&] { return configuration.Root().ExternalDocs(); });
  const std::string link = LinkOf(*sources, arguments);
  if (link.empty()) {
    return reporter.Fail(ExitStatus::NotFound,
                         std::string("no source of external documentation has ") +
                             (arguments.IsUrl ? "an address" : "a link") + " for '" + arguments.Object +
                             "' ('lwconfig show externaldocs' lists the names that they cover)");
  }
  if (!arguments.IsJson) return WriteOutput(link + "\n", reporter);
  Json json{{"ObjectFullName", arguments.Object}};
  if (!arguments.Member.empty()) json["MemberName"] = arguments.Member;
  json[arguments.IsUrl ? "URL" : arguments.Member.empty() ? "Link" : "MemberLink"] = link;
  WriteOutput(JsonText(json), reporter);
}

}  // namespace

void AddLinkCommand(CLI::App& app, Reporter& reporter) {
  const auto arguments = std::make_shared<LinkArguments>();
  CLI::App& link = *app.add_subcommand("link", "Prints a link into external documentation.");
  link.group("Commands");
  link.footer(kFooter);
  link.add_option("OBJECT", arguments->Object, "the class or other object")->required()->type_name("");
  AddConfigurationOption(link, arguments->Folder);
  AddJsonOption(link, arguments->IsJson);
  CLI::Option* url = link.add_flag("-u,--url", arguments->IsUrl, "the address alone, without markup");
  link.add_option("-m,--member", arguments->Member, "link to this member of the object")
      ->option_text("NAME")
      ->excludes(url);
  link.add_option("--caption", arguments->Caption, "text of the link; else the member or object")
      ->option_text("TEXT")
      ->excludes(url);
  link.add_flag("--help2", arguments->IsHelp2, "the format for help 2 rather than that for help 1")
      ->excludes(url);
  link.callback([arguments, &reporter] { Run(*arguments, reporter); });
}

}  // namespace lwconfig::tool
