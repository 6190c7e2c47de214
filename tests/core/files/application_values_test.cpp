#include <tests/configuration.h>
#include <tests/fixed_folders.h>

#include <lwconfig/core/files/application_values.h>
#include <lwconfig/core/files/registry_access.h>
#include <lwconfig/root.h>

namespace lwconfig {
namespace {

using testing::ErrorOf;

class ApplicationValues : public testing::ConfigurationTest {};

TEST_F(ApplicationValues, FoldersComeFromTheRegistryAsStoredNow) {
  using Row = std::tuple<const char*, const char*, const char*>;
  for (const auto& [stored, config, common] :
       {Row{"C:\\Config\\", "C:\\Config", "C:\\Config\\"}, Row{"C:\\Config", "C:\\Config", "C:\\Config\\"},
        Row{"C:\\Config\\\\", "C:\\Config\\", "C:\\Config\\\\"}, Row{"", "", "\\"}, Row{"\\", "", "\\"}}) {
    Register("ConfigPath", stored);
    Register("InstallPath4", stored);
    Registry.Write(Hive::LocalMachine, "software\\corvantis", "commonpath", {1, stored});
    EXPECT_EQ(ConfigPath(), config);
    EXPECT_EQ(AppPath(), stored);
    EXPECT_EQ(CommonPath(), common);
    EXPECT_EQ(Root().TemplatePath(),
              std::string(stored).size() > 1 ? "C:\\Config\\Templates" : "\\Templates");
  }
}

TEST_F(ApplicationValues, AreReadWithDefaultsAndWrittenAsText) {
  EXPECT_EQ(GetAppValue("WrapAt", "5", ""), "5");
  SetAppValue("WrapAt", "", "");
  EXPECT_EQ(GetAppValue("WrapAt", "5", ""), "5");
  SetAppValue("WrapAt", "72", "VSNET");
  EXPECT_EQ(GetAppValue("WrapAt", "5", ""), "5");
  EXPECT_EQ(GetAppValue("WRAPAT", "5", "vsnet"), "72");
  const std::string subKey = std::string(kProductKey) + "\\VSNET";
  EXPECT_EQ(Registry.Read(Hive::CurrentUser, subKey, "WrapAt"), (RegistryValue{1, "72"}));
  Registry.Write(Hive::CurrentUser, kProductKey, "WrapAt", {4, 4294967295U});
  EXPECT_EQ(GetAppValue("WrapAt", "5", ""), "-1");
  Registry.Write(Hive::CurrentUser, kProductKey, "WrapAt", {3, std::vector<std::uint8_t>{0x0A, 0xF0}});
  EXPECT_EQ(GetAppValue("WrapAt", "5", ""), "0af0");
}

TEST_F(ApplicationValues, RegistryAccessTakesTextsAndNumbers) {
  const RegistryAccess registry;
  const auto roundTrip = [&](const RegistryData& value, std::int32_t type) {
    registry.SetValue(kCurrentUser, "Software\\Test", "Value", value, type);
    return registry.GetValue(kCurrentUser, "software\\test", "VALUE");
  };
  using Row = std::tuple<RegistryData, std::int32_t, RegistryData>;
  for (const auto& [value, type, read] :
       {Row{"grün", 1, "grün"}, Row{-7, 1, "-7"}, Row{-7, 4, -7}, Row{"12", 4, 12}})
    EXPECT_EQ(roundTrip(value, type), read);
  EXPECT_EQ(registry.GetValue(kLocalMachine, "Software\\Test", "Value"), RegistryData());
  EXPECT_EQ(ErrorOf([&] { roundTrip("twelve", 4); }).Number(), kTypeMismatch);
  EXPECT_EQ(ErrorOf([&] { roundTrip("x", 3); }).Number(), kInvalidCall);
  EXPECT_EQ(ErrorOf([&] { registry.GetValue(0x80000003U, "Software", "x"); }).Number(), kInvalidCall);
}

TEST_F(ApplicationValues, AFailingRegistryIsAnError) {
  Registry.Fault = [] { throw RegistryFormatError("/etc/user.reg", 3, 7, "no such form"); };
  for (const auto& work :
       std::vector<std::function<void()>>{[] { ConfigPath(); }, [] { SetAppValue("a", "b", ""); }}) {
    const auto failure = ErrorOf(work);
    EXPECT_EQ(failure.Number(), kPathFileAccess);
    EXPECT_THAT(failure.what(), ::testing::HasSubstr("\\etc\\user.reg:3:7: "));
  }
  Registry.Fault = [] { throw std::system_error(EACCES, std::generic_category(), "user.reg"); };
  EXPECT_EQ(ErrorOf([] { SetAppValue("a", "b", ""); }).Number(), kPermissionDenied);
}

// In a process of its own, begun anew, because the folder is found once for the life of a process.
TEST_F(ApplicationValues, TheNewestFrameworkFolderIsTheGreatestName) {
  ::testing::FLAGS_gtest_death_test_style = "threadsafe";
  using Row = std::pair<const char*, std::string>;
  for (const auto& row : {Row{"", ""}, Row{"v1.0.3705/x v1.1.4322/x v2.0.50727/x z-a-file", "v2.0.50727"},
                          Row{"V4.0/x v2.0.50727/x", "v2.0.50727"}, Row{"v2.0.50727/x x86/x", "x86"}}) {
    const auto chooses = [&] {
      const testing::TemporaryFolder windows;
      testing::FixedFolders folders(Product(windows.Path()));
      const platform::ScopedHost<platform::Folders> scope(folders);
      const std::string base = folders.WindowsFolder() + "\\Microsoft.NET\\Framework\\";
      for (const auto entry : Split(row.first, " "))
        if (!entry.empty()) windows.Write("Microsoft.NET/Framework/" + std::string(entry), "");
      if (DotNetPath() != base + row.second + "\\") return 1;
      windows.Write("Microsoft.NET/Framework/zzz/x", "");
      return DotNetPath() == base + row.second + "\\" ? 0 : 2;
    };
    EXPECT_EXIT(::_exit(chooses()), ::testing::ExitedWithCode(0), "") << row.second;
  }
}

}  // namespace
}  // namespace lwconfig
