#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>
#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/model/registry_data.h>
#include <tools/lwconfig/terminal.h>
#include <tools/lwconfig/view/table.h>

#include <lwconfig/core/disk_file.h>
#include <lwconfig/core/registry_access.h>
#include <lwconfig/platform/files.h>
#include <lwconfig/platform/registry_text.h>

namespace lwconfig::tool {
namespace {

using platform::Hive;
using platform::RegistryChange;
using platform::RegistryPath;
using Kinds = RegistryChange::Kinds;

struct RegistryArguments {
  std::string Key;
  std::string Value;
  std::vector<std::string> Data;
  std::string Type;
  std::string File;
  bool IsUtf16 = false;
  bool IsJson = false;
  StyleOptions Style;
};

constexpr const char* kFooter =
    R"(KEY is written in full, letter case ignored: HKEY_CURRENT_USER\Software\..., HKCU\Software\... or, to need no
quotes, HKCU/Software/...; HKLM is the machine's. Without a KEY it is the product's keys, the user's and the
machine's. A key is listed, exported and deleted with all keys below it. VALUE is the name of a value; the
key's default value has the name "".

Types are sz (a text, unless the value has a type already), expand (a text with environment variables), dword
and qword (a number, decimal or 0x...), binary (pairs of hexadecimal digits) and multi (any number of texts).

An import is done as a whole or, where the file has a mistake, not at all; it also deletes what the file says
to delete: [-KEY] and "VALUE"=-. An export that goes to Windows should be --utf16.

Examples:
  lwconfig registry
  lwconfig registry get HKLM/Software/Corvantis/Lexiwend4 ConfigPath
  lwconfig registry set HKLM/Software/Corvantis/Lexiwend4 ConfigPath /srv/lexiwend/config
  lwconfig registry set HKCU/Software/Example Level 0x10 --type dword
  lwconfig registry delete HKCU/Software/Example Level
  lwconfig registry import settings.reg
  lwconfig registry export HKCU/Software/Corvantis backup.reg
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
  return std::string(platform::HiveName(hive)) + (key.empty() ? "" : "\\" + key);
}

/// The key of the command line; nothing, and reported, where it is none.
std::optional<RegistryPath> PathOf(const std::string& key, Reporter& reporter) {
  auto path = platform::ParseRegistryPath(key);
  if (!path) {
    reporter.Fail(ExitStatus::Usage, "'" + key +
                                         "' is no key: write it in full, such as "
                                         "HKEY_CURRENT_USER\\Software or HKLM/Software");
  }
  return path;
}

/// What the key holds; nothing, and reported, where there is no such key.
std::optional<platform::RegistryKey> KeyAt(const RegistryPath& path, Reporter& reporter) {
  const RegistryAccess registry;
  auto key = registry.List(Number(path.Root), path.Key);
  if (key) return key;
  // What there is below the last key of the path that exists.
  std::string parent = path.Key;
  for (std::optional<platform::RegistryKey> above; !above;) {
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

Json ToJson(const RegistryChange& value) {
  return {{"Key", FullName(value.Root, value.Key)},
          {"Name", value.Name},
          {"Type", RegistryTypeName(value.Value.Type)},
          {"Data", RegistryDataJson(value.Value)}};
}

void List(const RegistryArguments& arguments, Reporter& reporter) {
  const auto all = Collected(arguments.Key, reporter);
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
  if (arguments.IsJson) return WriteOutput(JsonText(json), reporter);
  if (!json.empty()) WriteOutput(table.Text(arguments.Style.Style()), reporter);
}

/// The value of the command line; nothing, and reported, where there is no such value.
std::optional<RegistryChange> Stored(const RegistryArguments& arguments, Reporter& reporter) {
  const auto path = PathOf(arguments.Key, reporter);
  if (!path) return std::nullopt;
  auto value = RegistryAccess().Stored(Number(path->Root), path->Key, arguments.Value);
  if (value) return RegistryChange{Kinds::Value, path->Root, path->Key, arguments.Value, std::move(*value)};
  const auto key = KeyAt(*path, reporter);
  if (!key) return std::nullopt;
  std::vector<std::string> names;
  for (const auto& [name, data] : key->Values) names.push_back(name);
  reporter.FailUnknown(ExitStatus::NotFound, arguments.Value.empty() ? "(default)" : arguments.Value, names);
  return std::nullopt;
}

void Get(const RegistryArguments& arguments, Reporter& reporter) {
  const auto value = Stored(arguments, reporter);
  if (!value) return;
  WriteOutput(arguments.IsJson ? JsonText(ToJson(*value)) : RegistryDataText(value->Value) + "\n", reporter);
}

void Set(const RegistryArguments& arguments, Reporter& reporter) {
  const RegistryAccess registry;
  const auto path = PathOf(arguments.Key, reporter);
  if (!path) return;
  constexpr std::uint32_t kText = 1;
  const auto old = registry.Stored(Number(path->Root), path->Key, arguments.Value);
  const auto type = !arguments.Type.empty() ? RegistryTypeOf(arguments.Type)
                    : old                   ? std::optional(old->Type)
                                            : std::optional(kText);
  if (!type) return reporter.FailUnknown(ExitStatus::Usage, arguments.Type, RegistryTypeNames());
  const auto value = RegistryValueOf(*type, arguments.Data);
  if (!value) {
    return reporter.Fail(
        ExitStatus::Usage,
        (arguments.Data.size() == 1 ? "'" + arguments.Data.front() + "' is" : "several texts are") +
            " no value of the type " + RegistryTypeName(*type) + " (--help tells what there is)");
  }
  registry.Apply({{Kinds::Value, path->Root, path->Key, arguments.Value, *value}});
}

void Delete(const RegistryArguments& arguments, bool isValue, Reporter& reporter) {
  const auto path = PathOf(arguments.Key, reporter);
  if (!path) return;
  if (isValue) {
    if (auto value = Stored(arguments, reporter)) {
      value->Kind = Kinds::DeletedValue;
      RegistryAccess().Apply({*value});
    }
    return;
  }
  if (path->Key.empty()) return reporter.Fail(ExitStatus::Usage, "a whole hive cannot be deleted");
  if (KeyAt(*path, reporter)) RegistryAccess().Apply({{Kinds::DeletedKey, path->Root, path->Key, {}, {}}});
}

std::string Counted(std::size_t count, const char* noun) {
  return std::to_string(count) + " " + noun + (count == 1 ? "" : "s");
}

void Import(const RegistryArguments& arguments, Reporter& reporter) {
  const RegistryAccess registry;
  const auto changes = registry.ReadFile(platform::Host<platform::Files>().ProductPath(arguments.File));
  registry.Apply(changes);
  std::size_t values = 0;
  std::size_t deletions = 0;
  for (const RegistryChange& change : changes) {
    values += change.Kind == Kinds::Value ? 1 : 0;
    deletions += change.Kind == Kinds::DeletedKey || change.Kind == Kinds::DeletedValue ? 1 : 0;
  }
  std::string done = "imported " + Counted(values, "value");
  if (deletions > 0) done += ", followed " + Counted(deletions, "deletion");
  WriteOutput(done + "\n", reporter);
}

void WriteFile(const std::string& hostPath, const std::string& bytes) {
  auto& files = platform::Host<platform::Files>();
  const std::string path = files.ProductPath(hostPath);
  try {
    const auto replacement = files.Replace(path);
    replacement->Write(bytes);
    replacement->Commit();
  } catch (const std::system_error& failure) {
    throw FileError(failure, path);
  }
}

void Export(RegistryArguments arguments, Reporter& reporter) {
  // One argument that names no key is the file.
  if (arguments.File.empty() && !platform::ParseRegistryPath(arguments.Key))
    arguments.Key.swap(arguments.File);
  const auto all = Collected(arguments.Key, reporter);
  if (!all) return;
  const std::string bytes = platform::WriteRegistryText(
      *all, arguments.IsUtf16 ? platform::RegistryEncoding::Utf16 : platform::RegistryEncoding::Utf8);
  if (arguments.File.empty()) return WriteOutput(bytes, reporter);
  WriteFile(arguments.File, bytes);
}

/// The `registry` command with its actions.
class RegistryCommand {
 public:
  RegistryCommand(CLI::App& app, Reporter& reporter)
      : mCommand(*app.add_subcommand("registry", "Lists, reads and changes the registry.")),
        mReporter(reporter) {
    mCommand.group("Commands");
    mCommand.footer(kFooter);
    mCommand.require_subcommand(0, 1);
    AddJsonOption(mCommand, mArguments->IsJson);
    AddStyleOptions(mCommand, mArguments->Style);
  }

  void AddActions() {
    AddKey(Action("list", "Every value of a key; done when no action is given.", List));
    CLI::App& get = Action("get", "Prints the data of one value.", Get);
    AddKey(get)->required();
    AddValue(get);
    CLI::App& set = Action("set", "Stores one value.", Set);
    AddKey(set)->required();
    AddValue(set)->required();
    set.add_option("DATA", mArguments->Data, "its new data")->required()->type_name("");
    set.add_option("--type", mArguments->Type, "sz, expand, dword, qword, binary or multi")
        ->option_text("TYPE");
    CLI::App& remove = *mCommand.add_subcommand("delete", "Deletes a value, or a key and everything in it.");
    Prepare(remove);
    AddKey(remove)->required();
    const CLI::Option* value = AddValue(remove);
    remove.callback([arguments = mArguments, value, &reporter = mReporter] {
      Delete(*arguments, value->count() > 0, reporter);
    });
    CLI::App& import = Action("import", "Makes the changes that a registry-editor file asks for.", Import);
    import.add_option("FILE", mArguments->File, "the file")->required()->type_name("");
    CLI::App& exported = Action("export", "Writes a registry-editor file that import reads back.", Export);
    AddKey(exported);
    exported.add_option("FILE", mArguments->File, "the file; standard output when left out")->type_name("");
    exported.add_flag("--utf16", mArguments->IsUtf16, "write UTF-16, as Windows does, instead of UTF-8");
    mCommand.callback([command = &mCommand, arguments = mArguments, &reporter = mReporter] {
      if (command->get_subcommands().empty()) List(*arguments, reporter);
    });
  }

 private:
  static void Prepare(CLI::App& action) {
    action.footer(kFooter);
    action.fallthrough();
  }
  template <class Run>
  CLI::App& Action(const char* name, const char* about, Run run) {
    CLI::App& action = *mCommand.add_subcommand(name, about);
    Prepare(action);
    action.callback([arguments = mArguments, run, &reporter = mReporter] { run(*arguments, reporter); });
    return action;
  }
  CLI::Option* AddKey(CLI::App& action) {
    return action.add_option("KEY", mArguments->Key, "the key")->type_name("");
  }
  CLI::Option* AddValue(CLI::App& action) {
    return action.add_option("VALUE", mArguments->Value, "the name of the value")->type_name("");
  }

  CLI::App& mCommand;
  Reporter& mReporter;
  std::shared_ptr<RegistryArguments> mArguments = std::make_shared<RegistryArguments>();
};

}  // namespace

void AddRegistryCommand(CLI::App& app, Reporter& reporter) {
  RegistryCommand(app, reporter).AddActions();
}

}  // namespace lwconfig::tool
