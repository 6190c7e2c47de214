#include <array>
#include <memory>
#include <string>

#include <CLI/CLI.hpp>
#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/terminal.h>
#include <tools/lwconfig/view/description.h>
#include <tools/lwconfig/view/json.h>

#include <lwconfig/automation/idl.h>
#include <lwconfig/automation/manifest.h>
#include <lwconfig/automation/python_stubs.h>
#include <lwconfig/automation/reference_manual.h>
#include <lwconfig/platform/letter_case.h>

namespace lwconfig::tool {
namespace {

using automation::ClassInfo;
using automation::EnumInfo;

struct DescribeArguments {
  std::string What;
  bool IsJson = false;
  std::string Colour = "auto";
  std::size_t Columns = 0;
};

constexpr const char* kFooter =
    R"(WHAT is a class or enumeration, or a member of one after a point, letter case ignored.

A member is shown as Name(Parameter As Type) As Type. Parameters in brackets may be left out, and the call may
replace those that are ByRef. Beside it stands whether it is a method, or how the property can be used.

Examples:
  lwconfig describe
  lwconfig describe PageTemplates
  lwconfig describe PageTemplate.LoadPhrasesAndScraps
  lwconfig describe NodeDef --json | jq -r '.Members[].Signature'
  lwconfig describe --idl > LWConfigObjects.idl
)";

/// A description of everything, in the format that the option asks for.
struct Whole {
  const char* Option;
  const char* About;
  std::string (*Text)();
};
constexpr std::array kWholes{
    Whole{"--idl", "print the interface description of the type library", automation::InterfaceDescription},
    Whole{"--manifest-64", "print the manifest that replaces registration, of the 64-bit server",
          automation::Manifest64},
    Whole{"--manifest-32", "the same of the 32-bit server", automation::Manifest32},
    Whole{"--markdown", "print the reference manual", automation::ReferenceManual},
    Whole{"--stubs", "print the type stubs of the Python module", automation::PythonStubs}};

std::vector<std::string> TypeNames() {
  std::vector<std::string> names;
  for (const ClassInfo* info : automation::PublishedClasses()) names.emplace_back(info->Name());
  for (const EnumInfo* info : automation::PublishedEnumerations()) names.emplace_back(info->Name);
  return names;
}

std::vector<Description> All() {
  std::vector<Description> all;
  for (const ClassInfo* info : automation::PublishedClasses()) all.push_back(Describe(*info));
  for (const EnumInfo* info : automation::PublishedEnumerations()) all.push_back(Describe(*info));
  return all;
}

const MemberDescription* FindMember(const Description& owner, const std::string& name) {
  for (const MemberDescription& member : owner.Members) {
    if (EqualIgnoringCase(member.Name, name)) return &member;
  }
  return nullptr;
}

std::vector<std::string> MemberNames(const Description& owner) {
  std::vector<std::string> names;
  for (const MemberDescription& member : owner.Members) names.push_back(member.Name);
  return names;
}

template <class T>
void Write(const T& described, const DescribeArguments& arguments, Reporter& reporter) {
  WriteOutput(arguments.IsJson ? JsonText(ToJson(described))
                               : DescriptionText(described, OutputStyle(arguments.Colour, arguments.Columns)),
              reporter);
}

void Run(const DescribeArguments& arguments, Reporter& reporter) {
  if (arguments.What.empty()) return Write(All(), arguments, reporter);
  const auto point = arguments.What.find('.');
  const std::string name = arguments.What.substr(0, point);
  const ClassInfo* info = automation::FindClass(name);
  const EnumInfo* enumeration = automation::FindEnumeration(name);
  if (info == nullptr && enumeration == nullptr)
    return reporter.FailUnknown(ExitStatus::NotFound, name, TypeNames());
  const Description owner = info != nullptr ? Describe(*info) : Describe(*enumeration);
  if (point == std::string::npos) return Write(owner, arguments, reporter);

  const std::string memberName = arguments.What.substr(point + 1);
  const MemberDescription* member = FindMember(owner, memberName);
  if (member == nullptr) return reporter.FailUnknown(ExitStatus::NotFound, memberName, MemberNames(owner));
  Write(*member, arguments, reporter);
}

}  // namespace

void AddDescribeCommand(CLI::App& app, Reporter& reporter) {
  const auto arguments = std::make_shared<DescribeArguments>();
  CLI::App& describe =
      *app.add_subcommand("describe", "Tells what programs can do with the classes of the library.");
  describe.group("Commands");
  describe.footer(kFooter);
  CLI::Option* what =
      describe.add_option("WHAT", arguments->What, "CLASS or CLASS.MEMBER; a list of all when left out")
          ->type_name("");
  AddJsonOption(describe, arguments->IsJson);
  CLI::Option* json = describe.get_option("--json");
  std::vector<CLI::Option*> wholes;
  for (const Whole& whole : kWholes) {
    CLI::Option* option = describe.add_flag(whole.Option, whole.About)->excludes(what)->excludes(json);
    for (CLI::Option* other : wholes) option->excludes(other);
    wholes.push_back(option);
  }
  describe.add_option("--color", arguments->Colour, "auto (on a terminal), always or never")
      ->option_text("WHEN")
      ->check(CLI::IsMember({"auto", "always", "never"}));
  describe.add_option("--width", arguments->Columns, "columns to fit lines into; else those of the terminal")
      ->option_text("N")
      ->check(CLI::Range(20, 10000));
  describe.callback([arguments, wholes, &reporter] {
    for (std::size_t at = 0; at < wholes.size(); ++at) {
      if (wholes[at]->count() > 0) return WriteOutput(kWholes[at].Text(), reporter);
    }
    Run(*arguments, reporter);
  });
}

}  // namespace lwconfig::tool
