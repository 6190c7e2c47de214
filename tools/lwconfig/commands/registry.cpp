#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/commands/common_options.h>
#include <tools/lwconfig/file_argument.h>
#include <tools/lwconfig/terminal.h>
#include <tools/lwconfig/view/json.h>
#include <tools/lwconfig/view/table.h>

#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/core/files/registry_access.h>
#include <lwconfig/core/registry_text/registry_text.h>
#include <lwconfig/core/registry_text/typed_text.h>

namespace lwconfig::tool {
namespace {

using Kinds = RegistryChange::Kinds;

constexpr const char* kFooter =
    R"(KEY is written in full, letter case ignored: HKEY_CURRENT_USER\Software\..., HKCU\Software\... or, to need no
quotes, HKCU/Software/...; HKLM is the machine's. Without a KEY it is the product's keys, the user's and the
machine's. A key is listed, exported and deleted with all keys below it. VALUE is the name of a value; the
key's default value has the name "".

Types are sz (a text, unless the value has a type already), expand (a text with environment variables), dword
and qword (a number, decimal or 0x...), binary (pairs of hexadecimal digits) and multi (any number of texts,
none of them empty).

The machine's values are in /etc/lwconfig/machine.reg and in the user's own ~/.config/lwconfig/machine.reg,
which outweighs the other. A user who may not write the system's file writes the own one, and a note says so;
deleting what the system's file holds fails then.

An import is done as a whole or, where the file has a mistake, not at all; it also deletes what the file says
to delete: [-KEY] and "VALUE"=-. FILE is - for standard input or output; an export without a KEY takes a FILE
that is -, begins with / or a dot, or ends in .reg. An export that goes to Windows should be --utf16.

Examples:
  lwconfig registry
  lwconfig registry get HKLM/Software/Corvantis/Lexiwend4 ConfigPath
  lwconfig registry set HKLM/Software/Corvantis/Lexiwend4 ConfigPath /srv/lexiwend/config
  lwconfig registry set HKCU/Software/Example Level 0x10 --type dword
  lwconfig registry delete HKCU/Software/Example Level
  lwconfig registry import settings.reg
  lwconfig registry export HKCU/Software/Corvantis backup.reg
  lwconfig registry export - | ssh host lwconfig registry import -
)";

const std::vector<RegistryPath>& ProductKeys() {
  static const std::vector<RegistryPath> keys{{Hive::LocalMachine, "Software\\Corvantis"},
                                              {Hive::LocalMachine, "Software\\WOW6432Node\\Corvantis"},
                                              {Hive::CurrentUser, "Software\\Corvantis"}};
  return keys;
}

std::uint32_t Number(Hive hive) {
  return static_cast<std::uint32_t>(hive);
}

std::string FullName(Hive hive, const std::string& key) {
  return std::string(HiveName(hive)) + (key.empty() ? "" : "\\" + key);
}

/// The key of the command line; nothing, and reported, where it is none.
std::optional<RegistryPath> PathOf(const std::string& key, Reporter& reporter) {
  auto path = ParseRegistryPath(key);
  if (!path) {
    reporter.FailAt(ExitStatus::NotFound, {},
                    "'" + key + "' is no key: it begins with no root, as HKCU/Software does",
                    {std::string(HiveName(Hive::CurrentUser)), std::string(HiveName(Hive::LocalMachine))});
  }
  return path;
}

/// What the key holds; nothing, and reported, where there is no such key.
std::optional<RegistryKey> KeyAt(const RegistryPath& path, Reporter& reporter) {
  const RegistryAccess registry;
  auto key = registry.List(Number(path.Root), path.Key);
  if (key) return key;
  // What there is below the last key of the path that exists.
  std::string parent = path.Key;
  for (std::optional<RegistryKey> above; !above;) {
    const std::size_t cut = parent.rfind('\\');
    parent.erase(cut == std::string::npos ? 0 : cut);
    above = registry.List(Number(path.Root), parent);
    if (!above) continue;
    std::vector<std::string> existing;
    for (const std::string& name : above->Keys)
      existing.push_back(FullName(path.Root, parent.empty() ? name : parent + "\\" + name));
    reporter.FailUnknown(ExitStatus::NotFound, FullName(path.Root, path.Key), existing);
  }
  return std::nullopt;
}

/// The key with everything below it, as the changes that would make it.
void Collect(const RegistryPath& top, std::vector<RegistryChange>& all) {
  std::vector<std::string> open{top.Key};
  while (!open.empty()) {
    const std::string key = std::move(open.back());
    open.pop_back();
    const auto held = RegistryAccess().List(Number(top.Root), key);
    if (!held) continue;
    all.push_back({Kinds::Key, top.Root, key, {}, {}});
    for (const auto& [name, value] : held->Values) all.push_back({Kinds::Value, top.Root, key, name, value});
    for (auto name = held->Keys.rbegin(); name != held->Keys.rend(); ++name)
      open.push_back(key.empty() ? *name : key + "\\" + *name);
  }
}

/// What the command line asks for: a key, or the product's; nothing, and reported, where there is no such
/// key.
std::optional<std::vector<RegistryChange>> Collected(const std::string& key, Reporter& reporter) {
  std::vector<RegistryChange> all;
  if (key.empty()) {
    for (const RegistryPath& path : ProductKeys()) Collect(path, all);
    return all;
  }
  const auto path = PathOf(key, reporter);
  if (!path || !KeyAt(*path, reporter)) return std::nullopt;
  Collect(*path, all);
  return all;
}

/// A number, a list of texts, or a text.
Json DataJson(const RegistryValue& value) {
  if (const auto number = RegistryNumber(value)) return *number;
  if (IsTextList(value.Type)) return UnpackTexts(std::get<std::vector<std::uint8_t>>(value.Data));
  return RegistryDataText(value);
}

Json ToJson(const RegistryChange& value) {
  return {{"Key", FullName(value.Root, value.Key)},
          {"Name", value.Name},
          {"Type", RegistryTypeName(value.Value.Type)},
          {"Data", DataJson(value.Value)}};
}

/// An empty key stands for the product's keys.
void List(const std::string& key, const Arguments& arguments, Reporter& reporter) {
  const auto all = Collected(key, reporter);
  if (!all) return;
  if (all->empty()) reporter.Note("the registry holds nothing of the product yet");
  Table table({"KEY", "VALUE", "TYPE", "DATA"});
  Json json = Json::array();
  for (const RegistryChange& change : *all) {
    if (change.Kind != Kinds::Value) continue;
    json.push_back(ToJson(change));
    table.Add({{FullName(change.Root, change.Key), Tone::Quiet},
               {change.Name.empty() ? "(default)" : change.Name},
               {RegistryTypeName(change.Value.Type), Tone::Quiet},
               {RegistryDataText(change.Value)}});
  }
  if (arguments.Has("--json")) return WriteOutput(JsonText(json), reporter);
  if (!json.empty()) WriteOutput(table.Text(StyleOf(arguments)), reporter);
}

/// The value of the command line; nothing, and reported, where there is no such value.
std::optional<RegistryChange> Stored(const Arguments& arguments, Reporter& reporter) {
  const auto path = PathOf(arguments.Text("KEY"), reporter);
  if (!path) return std::nullopt;
  const std::string name = arguments.Text("VALUE");
  auto value = RegistryAccess().Stored(Number(path->Root), path->Key, name);
  if (value) return RegistryChange{Kinds::Value, path->Root, path->Key, name, std::move(*value)};
  const auto key = KeyAt(*path, reporter);
  if (!key) return std::nullopt;
  std::vector<std::string> names;
  for (const auto& [existing, data] : key->Values) names.push_back(existing);
  reporter.FailUnknown(ExitStatus::NotFound, name.empty() ? "(default)" : name, names);
  return std::nullopt;
}

void Get(const Arguments& arguments, Reporter& reporter) {
  const auto value = Stored(arguments, reporter);
  if (!value) return;
  WriteOutput(arguments.Has("--json") ? JsonText(ToJson(*value)) : RegistryDataText(value->Value) + "\n",
              reporter);
}

std::string Counted(std::size_t count, const char* noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

/// Tells of values of the machine that are not in the system's file.
void NoteOwnFile(const std::vector<RegistryChange>& changes, Reporter& reporter) {
  std::size_t count = 0;
  std::string file;
  for (const RegistryChange& change : changes) {
    if (change.Kind != Kinds::Value || change.Root != Hive::LocalMachine) continue;
    const std::string own = RegistryAccess().OwnFile(change.Key, change.Name);
    if (own.empty()) continue;
    ++count;
    file = own;
  }
  if (count == 0) return;
  reporter.Note(Counted(count, "value") + " of " + std::string(HiveName(Hive::LocalMachine)) +
                " stored for this user alone, in " + file);
}

void Set(const Arguments& arguments, Reporter& reporter) {
  const RegistryAccess registry;
  const auto path = PathOf(arguments.Text("KEY"), reporter);
  if (!path) return;
  constexpr std::uint32_t kText = 1;
  const std::string name = arguments.Text("VALUE");
  const std::string typeName = arguments.Text("--type");
  const auto old = registry.Stored(Number(path->Root), path->Key, name);
  const auto type = !typeName.empty() ? RegistryTypeOf(typeName)
                    : old             ? std::optional(old->Type)
                                      : std::optional(kText);
  if (!type) return reporter.FailUnknown(ExitStatus::Usage, typeName, RegistryTypeNames());
  const auto& data = arguments.Texts("DATA");
  if (data.empty() && (typeName.empty() || !IsTextList(*type)))
    return reporter.Fail(ExitStatus::Usage, "DATA is required, unless the type is given as multi");
  const auto value = RegistryValueOf(*type, data);
  if (!value) {
    return reporter.Fail(
        ExitStatus::Usage,
        (data.size() == 1 ? "'" + data.front() + "' is" : "this list of texts is") +
            " no value of the type " + RegistryTypeName(*type) +
            (IsTextList(*type) ? ": it cannot hold an empty text" : " (--help tells what there is)"));
  }
  const std::vector<RegistryChange> change{{Kinds::Value, path->Root, path->Key, name, *value}};
  registry.Apply(change);
  NoteOwnFile(change, reporter);
}

void Delete(const Arguments& arguments, Reporter& reporter) {
  const auto path = PathOf(arguments.Text("KEY"), reporter);
  if (!path) return;
  if (arguments.Has("VALUE")) {
    if (auto value = Stored(arguments, reporter)) {
      value->Kind = Kinds::DeletedValue;
      RegistryAccess().Apply({*value});
    }
    return;
  }
  if (path->Key.empty()) return reporter.Fail(ExitStatus::Usage, "a whole hive cannot be deleted");
  if (KeyAt(*path, reporter)) RegistryAccess().Apply({{Kinds::DeletedKey, path->Root, path->Key, {}, {}}});
}

void Import(const Arguments& arguments, Reporter& reporter) {
  const std::string file = arguments.Text("FILE");
  std::vector<RegistryChange> changes;
  try {
    changes = ReadRegistryText(ReadSource(file), SourceName(file));
  } catch (const RegistryFormatError& mistake) {
    return reporter.FailAt(
        ExitStatus::Invalid, {mistake.File, mistake.Line, mistake.Column},
        std::string("This is no registry file that can be used; nothing was changed: ") + mistake.what());
  }
  RegistryAccess().Apply(changes);
  std::size_t values = 0;
  std::size_t deletions = 0;
  for (const RegistryChange& change : changes) {
    values += change.Kind == Kinds::Value ? 1 : 0;
    deletions += change.Kind == Kinds::DeletedKey || change.Kind == Kinds::DeletedValue ? 1 : 0;
  }
  std::string done = "imported " + Counted(values, "value");
  if (deletions > 0) done += ", followed " + Counted(deletions, "deletion");
  WriteOutput(done + "\n", reporter);
  NoteOwnFile(changes, reporter);
}

/// Whether a single argument of an export is the file: anything else is a key, though there be none.
bool IsFile(std::string_view argument) {
  constexpr std::string_view kExtension = ".reg";
  return argument == "-" || argument.starts_with('/') || argument.starts_with('.') ||
         EqualIgnoringCase(argument.substr(argument.size() - std::min(argument.size(), kExtension.size())),
                           kExtension);
}

void Export(const Arguments& arguments, Reporter& reporter) {
  std::string key = arguments.Text("KEY");
  std::string file = arguments.Text("FILE");
  if (file.empty() && IsFile(key) && !ParseRegistryPath(key)) key.swap(file);
  const auto all = Collected(key, reporter);
  if (!all) return;
  const auto encoding = arguments.Has("--utf16") ? RegistryEncoding::Utf16 : RegistryEncoding::Utf8;
  WriteTarget(file.empty() ? "-" : file, WriteRegistryText(*all, encoding), reporter);
}

constexpr Parameter kKey{.Name = "KEY", .About = "the key"};
constexpr Parameter kRequiredKey{.Name = "KEY", .About = "the key", .IsRequired = true};
constexpr Parameter kValue{.Name = "VALUE", .About = "the name of the value"};

constexpr std::array kListParameters{kKey};
constexpr std::array kValueParameters{kRequiredKey, kValue};
constexpr std::array kSetParameters{
    kRequiredKey,
    Parameter{.Name = "VALUE", .About = "the name of the value", .IsRequired = true},
    Parameter{.Name = "DATA", .About = "its new data; none for an empty multi", .Most = kAnyNumber},
    Parameter{.Name = "--type", .About = "sz, expand, dword, qword, binary or multi", .Value = "TYPE"},
};
constexpr std::array kImportParameters{Parameter{
    .Name = "FILE", .About = "the file; - for standard input", .Form = Form::Path, .IsRequired = true}};
constexpr std::array kExportParameters{
    kKey,
    Parameter{
        .Name = "FILE", .About = "the file; - for standard output, also when left out", .Form = Form::Path},
    Parameter{.Name = "--utf16", .About = "write UTF-16, as Windows does, instead of UTF-8"},
};
constexpr std::array kOptions{kJsonOption, kColourOption, kWidthOption};

constexpr Command kList{
    .Name = "list",
    .About = "Every value of a key; done when no action is given.",
    .Parameters = kListParameters,
    .Run = [](const Arguments& arguments,
              Reporter& reporter) { List(arguments.Text("KEY"), arguments, reporter); },
};
constexpr Command kGet{
    .Name = "get",
    .About = "Prints the data of one value.",
    .Parameters = kValueParameters,
    .Run = Get,
};
constexpr Command kSet{
    .Name = "set",
    .About = "Stores one value.",
    .Parameters = kSetParameters,
    .Run = Set,
};
constexpr Command kDelete{
    .Name = "delete",
    .About = "Deletes a value, or a key and everything in it.",
    .Parameters = kValueParameters,
    .Run = Delete,
};
constexpr Command kImport{
    .Name = "import",
    .About = "Makes the changes that a registry-editor file asks for.",
    .Parameters = kImportParameters,
    .Run = Import,
};
constexpr Command kExport{
    .Name = "export",
    .About = "Writes a registry-editor file that import reads back.",
    .Parameters = kExportParameters,
    .Run = Export,
};
constexpr std::array kActions{&kList, &kGet, &kSet, &kDelete, &kImport, &kExport};

}  // namespace

constexpr Command kRegistryCommand{
    .Name = "registry",
    .About = "Lists, reads and changes the registry.",
    .Help = kFooter,
    .Common = kOptions,
    .Actions = kActions,
    .Run = [](const Arguments& arguments, Reporter& reporter) { List("", arguments, reporter); },
};

}  // namespace lwconfig::tool
