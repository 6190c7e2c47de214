#include <algorithm>

#include <lwconfig/core/base/error.h>
#include <lwconfig/core/files/application_values.h>
#include <lwconfig/core/files/disk_file.h>
#include <lwconfig/core/files/registry_access.h>
#include <lwconfig/platform/folders.h>
#include <lwconfig/platform/service.h>

namespace lwconfig {
namespace {

constexpr std::string_view kMakerKey = "Software\\Corvantis";

std::string ProductKey(std::string_view extraPath) {
  std::string key(kProductKey);
  if (!extraPath.empty()) (key += '\\') += extraPath;
  return key;
}

std::string NewestFrameworkFolder() {
  const std::string base =
      platform::Host<platform::Folders>().WindowsFolder() + "\\Microsoft.NET\\Framework\\";
  DiskFile framework;
  framework.SetFolder(base);
  std::string newest;
  for (const auto& entry : framework.Files("*.*")) {
    if (entry.IsFolder()) newest = std::max(newest, entry.FileName());
  }
  return base + newest + "\\";
}

}  // namespace

std::string ConfigPath() {
  std::string path = RegistryAccess().GetText(kLocalMachine, kProductKey, kConfigPathValue);
  if (path.ends_with('\\')) path.pop_back();
  return path;
}

void RequireConfigPath() {
  if (ConfigPath().empty()) throw Error(kPathNotFound, "No configuration folder is registered to save in");
}

std::string CommonPath() {
  std::string path = RegistryAccess().GetText(kLocalMachine, kMakerKey, "CommonPath");
  if (!path.ends_with('\\')) path.push_back('\\');
  return path;
}

std::string AppPath() {
  return RegistryAccess().GetText(kLocalMachine, kProductKey, "InstallPath4");
}

std::string DotNetPath() {
  static const std::string path = NewestFrameworkFolder();
  return path;
}

std::string GetAppValue(std::string_view ValueName, std::string_view DefaultValue,
                        std::string_view ExtraPath) {
  std::string value = RegistryAccess().GetText(kCurrentUser, ProductKey(ExtraPath), ValueName);
  return value.empty() ? std::string(DefaultValue) : value;
}

void SetAppValue(std::string_view ValueName, std::string_view value, std::string_view ExtraPath) {
  // Creates the key as well.
  RegistryAccess().SetValue(kCurrentUser, ProductKey(ExtraPath), ValueName, std::string(value),
                            RegistryAccess::kTextType);
}

void DeleteAppValue(std::string_view ValueName, std::string_view ExtraPath) {
  using Kinds = RegistryChange::Kinds;
  RegistryAccess().Apply(
      {{Kinds::DeletedValue, Hive::CurrentUser, ProductKey(ExtraPath), std::string(ValueName), {}}});
}

std::string GetShellFolder(std::int32_t csidl) {
  std::string path = TrimNull(platform::Host<platform::Folders>().ShellFolder(csidl));
  if (!path.empty() && path.back() != '\\') path.push_back('\\');
  return path;
}

std::string TrimNull(std::string_view startstr) {
  return std::string(startstr.substr(0, startstr.find('\0')));
}

}  // namespace lwconfig
