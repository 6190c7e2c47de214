#include <lwconfig/automation/contracts.h>
#include <lwconfig/automation/published.h>
#include <lwconfig/automation/reference_manual.h>
#include <lwconfig/automation/signature.h>
#include <lwconfig/core/base/letter_case.h>

namespace lwconfig::automation {
namespace {

using Text = std::string;

constexpr const char* kBeginning = R"(# Reference

Every published class and enumeration of LWConfigObjects, for programs in any language. Written by
`lwconfig describe --markdown` from the member tables and the comments in the headers; not to be edited.

A member is shown as `Name(Parameter As Type) As Type`. Parameters in brackets may be left out; a `ByRef` parameter may
be replaced by the call. A property is read by its *get* and changed by its *let*, or by its *set* where it refers to an
object. `Item` is the default member of a collection: a text names an item by its key, letter case ignored, a number by
its position from 1.

| Type        | Values                                                    |
|-------------|-----------------------------------------------------------|
| `Boolean`   | True or False                                             |
| `Integer16` | a whole number of 16 bits                                 |
| `Integer32` | a whole number of 32 bits                                 |
| `Text`      | Unicode text                                              |
| `Object`    | an object of any class, or null                           |
| `Variant`   | any of these, or nothing                                  |
| a class     | an object of that class, or null                          |
| an enumeration | a whole number of 32 bits, not only those of its members |

A failure has a number, a description, a source and, where it arose in a file, the place in it. The contracts tell the
numbers.

)";

/// Escape markup in plain text outside of backticks.
Text Escaped(std::string_view text) {
  Text escaped;
  bool isCode = false;
  for (const char c : text) {
    if (c == '`') isCode = !isCode;
    if (!isCode && std::string_view("*_<>[]\\|#").find(c) != std::string_view::npos) escaped += '\\';
    escaped += c;
  }
  return escaped;
}

/// The text with every line but the first indented by `blanks`.
Text Indented(std::string_view text, std::size_t blanks) {
  Text indented;
  for (const char c : text) {
    if (c != '\n' && !indented.empty() && indented.back() == '\n') indented += Text(blanks, ' ');
    indented += c;
  }
  return indented;
}

Text Link(const Text& name) {
  return "[" + name + "](#" + FoldCase(name) + ")";
}

Text IndexRow(const Text& name) {
  return "| " + Link(name) + " | " + Escaped(Summary(Contract(name))) + " |\n";
}

Text EntryText(const Text& code, const Text& kind, std::string_view contract) {
  Text text = "- `" + code + "` · " + kind + "\n";
  if (!contract.empty()) text += "\n  " + Indented(Escaped(contract), 2) + "\n";
  return text + "\n";
}

Text ClassText(const ClassInfo& info) {
  const Text name = info.Name();
  Text text = "### " + name + "\n\n" + Escaped(Contract(name)) + "\n\n";
  if (!info.IsCreatable()) text += "Objects of this class come from other objects only.\n\n";
  for (const auto& member : info.Members()) {
    if (member.Id == kNewEnumId) continue;
    text += EntryText(SignatureText(member),
                      AccessText(member) + (member.Id == kDefaultMemberId ? ", default" : ""),
                      Contract(name, member.Name));
  }
  for (const EventInfo& event : info.Events())
    text += EntryText(Text(event.Name) + "()", "event", Contract(name, event.Name));
  return text;
}

Text EnumerationText(const EnumInfo& info) {
  const Text name = info.Name;
  Text text =
      "### " + name + "\n\n" + Escaped(Contract(name)) + "\n\n| Name | Value | Meaning |\n|---|---|---|\n";
  for (const EnumMember& member : info.Members) {
    text += Text("| `") + member.Name + "` | " + std::to_string(member.Value) + " | " +
            Escaped(Contract(name, member.Name)) + " |\n";
  }
  return text + "\n";
}

}  // namespace

std::string ReferenceManual() {
  Text text = Text(kBeginning) + "| Class | |\n|---|---|\n";
  for (const ClassInfo* info : PublishedClasses()) text += IndexRow(info->Name());
  text += "\n| Enumeration | |\n|---|---|\n";
  for (const EnumInfo* info : PublishedEnumerations()) text += IndexRow(info->Name);
  text += "\n## Classes\n\n";
  for (const ClassInfo* info : PublishedClasses()) text += ClassText(*info);
  text += "## Enumerations\n\n";
  for (const EnumInfo* info : PublishedEnumerations()) text += EnumerationText(*info);
  text.pop_back();
  return text;
}

}  // namespace lwconfig::automation
