#include <array>
#include <filesystem>
#include <optional>
#include <string>

#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/commands/common_options.h>
#include <tools/lwconfig/configuration.h>
#include <tools/lwconfig/folder_copy.h>
#include <tools/lwconfig/terminal.h>
#include <tools/lwconfig/view/json.h>

#include <lwconfig/core/base/unicode.h>
#include <lwconfig/core/files/application_values.h>
#include <lwconfig/core/files/disk_file.h>
#include <lwconfig/core/files/registry_access.h>
#include <lwconfig/platform/files.h>

namespace lwconfig::tool {
namespace {

constexpr const char* kFooter = R"(DIR must not exist, or be empty. While another configuration is registered,
--replace is needed to register the new one in its place; the other one's files stay as they are.

The configuration is registered for the machine, in /etc/lwconfig/machine.reg. A user who may not write that
registers it for this user alone, in ~/.config/lwconfig/machine.reg, which is looked at first. Where it cannot
be registered, nothing is copied. A configuration that is not registered is used with --config DIR.

Examples:
  lwconfig init ~/lexiwend
  lwconfig init ./trial --no-register
)";

bool IsUsable(const std::filesystem::path& folder) {
  const auto status = std::filesystem::status(folder);
  if (!std::filesystem::exists(status)) return true;
  return std::filesystem::is_directory(status) && std::filesystem::is_empty(folder);
}

/// Registers the folder; returns the user's own file where it is registered in that, else "". Nothing, and
/// reported, where it cannot be registered.
std::optional<std::string> Register(const std::string& folder, Reporter& reporter) {
  const RegistryAccess registry;
  try {
    registry.SetValue(kLocalMachine, kProductKey, kConfigPathValue, folder, RegistryAccess::kTextType);
    return registry.OwnFile(kProductKey, kConfigPathValue);
  } catch (const Error& failure) {
    reporter.Fail(failure);
    reporter.Note("nothing was copied; --no-register copies the configuration and registers nothing");
    return std::nullopt;
  }
}

void Run(const Arguments& arguments, Reporter& reporter) {
  const bool isRegistered = !arguments.Has("--no-register");
  const std::string previous = isRegistered ? ConfigPath() : std::string();
  if (!previous.empty() && !arguments.Has("--replace")) {
    return reporter.Fail(ExitStatus::Usage, "the configuration in " + NativePath(previous) +
                                                " is registered; --replace registers another in its place, "
                                                "--no-register only copies");
  }
  const std::string starter = StarterFolder();
  if (starter.empty() || !std::filesystem::is_directory(starter))
    return reporter.Fail(ExitStatus::InputOutput, "there is no starter configuration to copy");
  const std::string folder = platform::Host<platform::Files>().ProductPath(arguments.Text("DIR"));
  const std::string hostFolder = NativePath(folder);
  if (!IsUsable(hostFolder))
    return reporter.Fail(ExitStatus::Usage, hostFolder + " is not an empty folder; nothing was copied");

  // Hidden files belong to whatever keeps the starter, not to the configuration.
  FolderCopy copy(starter, hostFolder,
                  [](const auto& relative) { return relative.filename().string().starts_with('.'); });
  const auto ownFile = isRegistered ? Register(folder, reporter) : std::string();
  if (!ownFile) return;
  copy.Keep();
  if (arguments.Has("--json")) {
    Json json{{"ConfigPath", folder}, {"PreviousConfigPath", previous}, {"FilesCopied", copy.FileCount()}};
    json["RegisteredFor"] = !isRegistered ? Json(nullptr) : ownFile->empty() ? "machine" : "user";
    return WriteOutput(JsonText(json), reporter);
  }
  std::string done =
      "copied the starter configuration, " + std::to_string(copy.FileCount()) + " files, to " + hostFolder;
  if (isRegistered) {
    done += "\nregistered " + folder + " as " + kConfigPathValue + " in HKEY_LOCAL_MACHINE\\" + kProductKey +
            (previous.empty() ? "" : " in place of " + previous);
    if (!ownFile->empty()) done += ", for this user alone, in " + *ownFile;
  }
  WriteOutput(done + "\n", reporter);
}

/// The registry holds texts: a name that is none would be registered as another.
std::string CheckNewFolder(const std::string& given) {
  return IsValidUtf8(given) ? "" : "the name is not valid UTF-8";
}

constexpr std::array kParameters{
    Parameter{.Name = "DIR",
              .About = "the folder for the new configuration",
              .Form = Form::Path,
              .IsRequired = true,
              .Check = CheckNewFolder},
    Parameter{.Name = "--replace", .About = "register it in place of another configuration"},
    Parameter{.Name = "--no-register", .About = "only copy", .Excludes = "--replace"},
    kJsonOption,
};

}  // namespace

constexpr Command kInitCommand{
    .Name = "init",
    .About = "Copies the starter configuration to a folder and registers it.",
    .Help = kFooter,
    .Parameters = kParameters,
    .Run = Run,
};

}  // namespace lwconfig::tool
