#include <array>
#include <string>

#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/commands/common_options.h>
#include <tools/lwconfig/terminal.h>
#include <tools/lwconfig/view/description.h>
#include <tools/lwconfig/view/json.h>

#include <lwconfig/automation/idl.h>
#include <lwconfig/automation/manifest.h>
#include <lwconfig/automation/python_stubs.h>
#include <lwconfig/automation/reference_manual.h>
#include <lwconfig/core/base/letter_case.h>

namespace lwconfig::tool {
namespace {

using automation::ClassInfo;
using automation::EnumInfo;

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
void Write(const T& described, const Arguments& arguments, Reporter& reporter) {
  WriteOutput(
      arguments.Has("--json") ? JsonText(ToJson(described)) : DescriptionText(described, StyleOf(arguments)),
      reporter);
}

void Run(const Arguments& arguments, Reporter& reporter) {
  for (const Whole& whole : kWholes) {
    if (arguments.Has(whole.Option)) return WriteOutput(whole.Text(), reporter);
  }
  const std::string what = arguments.Text("WHAT");
  if (what.empty()) return Write(All(), arguments, reporter);
  const auto point = what.find('.');
  const std::string name = what.substr(0, point);
  const ClassInfo* info = automation::FindClass(name);
  const EnumInfo* enumeration = automation::FindEnumeration(name);
  if (info == nullptr && enumeration == nullptr)
    return reporter.FailUnknown(ExitStatus::NotFound, name, TypeNames());
  const Description owner = info != nullptr ? Describe(*info) : Describe(*enumeration);
  if (point == std::string::npos) return Write(owner, arguments, reporter);

  const std::string memberName = what.substr(point + 1);
  const MemberDescription* member = FindMember(owner, memberName);
  if (member == nullptr) return reporter.FailUnknown(ExitStatus::NotFound, memberName, MemberNames(owner));
  Write(*member, arguments, reporter);
}

constexpr auto kParameters = [] {
  constexpr std::size_t kFirst = 2;
  std::array<Parameter, kFirst + kWholes.size()> all{{
      {.Name = "WHAT", .About = "CLASS or CLASS.MEMBER; a list of all when left out"},
      kJsonOption,
  }};
  for (std::size_t at = 0; at < kWholes.size(); ++at) {
    all[kFirst + at] = {.Name = kWholes[at].Option,
                        .About = kWholes[at].About,
                        .Excludes = "WHAT --json --idl --manifest-64 --manifest-32 --markdown --stubs"};
  }
  return all;
}();
constexpr std::array kStyleOptions{kColourOption, kWidthOption};

}  // namespace

constexpr Command kDescribeCommand{
    .Name = "describe",
    .About = "Tells what programs can do with the classes of the library.",
    .Help = kFooter,
    .Parameters = kParameters,
    .Common = kStyleOptions,
    .Run = Run,
};

}  // namespace lwconfig::tool
