#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include <lwconfig/configuration_scope.h>
#include <lwconfig/core/base/error.h>
#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/core/files/application_values.h>
#include <lwconfig/core/loading/shared_slots.h>
#include <lwconfig/platform/files.h>

namespace lwconfig {
namespace {

/// The host's registry with another configuration folder in it.
class FolderRegistry final : public platform::Registry {
 public:
  FolderRegistry(platform::Registry& host, std::string folder) : mHost(host), mFolder(std::move(folder)) {}

  std::optional<RegistryValue> Read(Hive hive, std::string_view key, std::string_view name) override {
    const bool isFolder = hive == Hive::LocalMachine && EqualIgnoringCase(name, kConfigPathValue) &&
                          EqualIgnoringCase(key, kProductKey);
    return isFolder ? RegistryValue{1, mFolder} : mHost.Read(hive, key, name);
  }
  std::optional<RegistryKey> List(Hive hive, std::string_view key) override { return mHost.List(hive, key); }
  void Apply(const std::vector<RegistryChange>& changes) override { mHost.Apply(changes); }

 private:
  platform::Registry& mHost;
  const std::string mFolder;
};

std::unique_ptr<platform::Registry> RegistryOf(const std::string& hostFolder) {
  auto& files = platform::Host<platform::Files>();
  std::string folder = files.ProductPath(hostFolder);
  if (hostFolder.empty() || files.Kind(folder) != platform::EntryKind::Folder) {
    Error error(kPathNotFound, "there is no such folder");
    error.SetPosition({folder, 0, 0});
    throw error;
  }
  return std::make_unique<FolderRegistry>(platform::Host<platform::Registry>(), std::move(folder));
}

}  // namespace

ConfigurationScope::ConfigurationScope(const std::string& folder)
    : mRegistry(RegistryOf(folder)), mScope(*mRegistry) {
  ResetSharedSlots();
}

ConfigurationScope::~ConfigurationScope() {
  ResetSharedSlots();
}

}  // namespace lwconfig
