#include <array>
#include <filesystem>
#include <string>

#include <tools/lwconfig/commands/commands.h>
#include <tools/lwconfig/commands/common_options.h>
#include <tools/lwconfig/configuration.h>
#include <tools/lwconfig/folder_copy.h>
#include <tools/lwconfig/terminal.h>
#include <tools/lwconfig/view/json.h>

#include <lwconfig/core/application_values.h>
#include <lwconfig/core/disk_file.h>
#include <lwconfig/core/registry_access.h>
#include <lwconfig/platform/files.h>

namespace lwconfig::tool {
namespace {

constexpr const char* kFooter = R"(DIR must not exist, or be empty. While another configuration is registered,
--replace is needed to register the new one in its place; the other one's files stay as they are.

Example:
  lwconfig init ~/lexiwend
)";

bool IsUsable(const std::filesystem::path& folder) {
  const auto status = std::filesystem::status(folder);
  if (!std::filesystem::exists(status)) return true;
  return std::filesystem::is_directory(status) && std::filesystem::is_empty(folder);
}

void Run(const Arguments& arguments, Reporter& reporter) {
  const std::string previous = ConfigPath();
  if (!previous.empty() && !arguments.Has("--replace")) {
    return reporter.Fail(ExitStatus::Usage, "the configuration in " + NativePath(previous) +
                                                " is registered; --replace registers another in its place");
  }
  const std::string starter = StarterFolder();
  if (starter.empty() || !std::filesystem::is_directory(starter))
    return reporter.Fail(ExitStatus::InputOutput, "there is no starter configuration to copy");
  const std::string folder = platform::Host<platform::Files>().ProductPath(arguments.Text("DIR"));
  const std::string hostFolder = NativePath(folder);
  if (!IsUsable(hostFolder))
    return reporter.Fail(ExitStatus::InputOutput, hostFolder + " is not an empty folder; nothing was copied");

  // Hidden files belong to whatever keeps the starter, not to the configuration.
  FolderCopy copy(starter, hostFolder,
                  [](const auto& relative) { return relative.filename().string().starts_with('.'); });
  RegistryAccess().SetValue(kLocalMachine, kProductKey, kFolderValue, folder, RegistryAccess::kTextType);
  copy.Keep();
  if (arguments.Has("--json")) {
    return WriteOutput(
        JsonText(
            {{"ConfigPath", folder}, {"PreviousConfigPath", previous}, {"FilesCopied", copy.FileCount()}}),
        reporter);
  }
  WriteOutput("copied the starter configuration, " + std::to_string(copy.FileCount()) + " files, to " +
                  hostFolder + "\nregistered " + folder + " as " + kFolderValue + " in HKEY_LOCAL_MACHINE\\" +
                  kProductKey + (previous.empty() ? "" : " in place of " + previous) + "\n",
              reporter);
}

constexpr std::array kParameters{
    Parameter{.Name = "DIR", .About = "the folder for the new configuration", .IsRequired = true},
    Parameter{.Name = "--replace", .About = "register it in place of another configuration"},
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
