#include <tests/configuration.h>

#include <lwconfig/core/files/application_values.h>
#include <lwconfig/core/files/registry_access.h>
#include <lwconfig/root.h>

namespace lwconfig::testing {
namespace {

class ApplicationValues : public ConfigurationTest {};

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
  }
  for (const auto& [stored, path] : {std::pair("C:\\C\\\\", "C:\\C\\Templates"), {"", "\\Templates"}}) {
    Register("ConfigPath", stored);
    EXPECT_EQ(Root().TemplatePath(), path);
  }
}

TEST_F(ApplicationValues, AreReadWithDefaultsAndWrittenAsText) {
  SetAppValue("WrapAt", "", "");
  SetAppValue("WrapAt", "72", "VSNET");
  EXPECT_EQ(GetAppValue("WrapAt", "5", ""), "5");
  EXPECT_EQ(GetAppValue("WRAPAT", "5", "vsnet"), "72");
  EXPECT_EQ(Registry.Read(Hive::CurrentUser, std::string(kProductKey) + "\\VSNET", "WrapAt"),
            (RegistryValue{1, "72"}));
  using Row = std::pair<RegistryValue, const char*>;
  for (const auto& [stored, text] :
       {Row{{4, 4294967295U}, "-1"}, Row{{3, std::vector<std::uint8_t>{0x0A, 0xF0}}, "0af0"}}) {
    Registry.Write(Hive::CurrentUser, kProductKey, "WrapAt", stored);
    EXPECT_EQ(GetAppValue("WrapAt", "5", ""), text);
  }
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
  EXPECT_ERROR(kTypeMismatch, roundTrip("twelve", 4));
  EXPECT_ERROR(kInvalidCall, roundTrip("x", 3));
  EXPECT_ERROR(kInvalidCall, registry.GetValue(0x80000003U, "Software", "x"));
}

TEST_F(ApplicationValues, AFailingRegistryIsAnError) {
  Registry.Fault = [] { throw RegistryFormatError("/etc/user.reg", 3, 7, "no such form"); };
  EXPECT_THAT(ErrorOf([] { ConfigPath(); }), IsError(kPathFileAccess, "\\etc\\user.reg:3:7: "));
  EXPECT_ERROR(kPathFileAccess, SetAppValue("a", "b", ""));
}

// In a process of its own, begun anew, because the folder is found once for the life of a process.
TEST_F(ApplicationValues, TheNewestFrameworkFolderIsTheGreatestName) {
  ::testing::FLAGS_gtest_death_test_style = "threadsafe";
  using Row = std::pair<const char*, std::string>;
  for (const auto& row : {Row{"", ""}, Row{"v1.0.3705/x v1.1.4322/x v2.0.50727/x z-a-file", "v2.0.50727"},
                          Row{"V4.0/x v2.0.50727/x", "v2.0.50727"}, Row{"v2.0.50727/x x86/x", "x86"}}) {
    const auto chooses = [&] {
      Surroundings.Windows = Product(Folder.Path());
      const std::string base = Surroundings.Windows + "\\Microsoft.NET\\Framework\\";
      for (const auto entry : Split(row.first, " "))
        if (!entry.empty()) Folder.Write("Microsoft.NET/Framework/" + std::string(entry), "");
      if (DotNetPath() != base + row.second + "\\") return 1;
      Folder.Write("Microsoft.NET/Framework/zzz/x", "");
      return DotNetPath() == base + row.second + "\\" ? 0 : 2;
    };
    EXPECT_EXIT(::_exit(chooses()), ::testing::ExitedWithCode(0), "") << row.second;
  }
}

}  // namespace
}  // namespace lwconfig::testing
