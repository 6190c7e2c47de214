#include <filesystem>
#include <iterator>

#include <sys/stat.h>
#include <tests/platform/posix/private_host.h>

#include <lwconfig/core/base/text.h>
#include <lwconfig/platform/posix/file_registry.h>

namespace lwconfig::testing {
namespace {

using namespace platform;

constexpr auto kUser = Hive::CurrentUser;
constexpr auto kMachine = Hive::LocalMachine;
using Kinds = RegistryChange::Kinds;

/// Changes of a key: "a=1" sets a value, "-a" deletes it, "+" makes the key and "-" deletes it; "Sub.a=1" is
/// about a key below.
std::vector<RegistryChange> ChangesOf(Hive hive, const std::string& key, std::string_view text) {
  std::vector<RegistryChange> changes;
  for (std::string_view word : Split(text, " ")) {
    auto& change = changes.emplace_back(RegistryChange{Kinds::Value, hive, key, {}, {}});
    if (word.starts_with("Sub.")) {
      change.Key += "\\Sub";
      word.remove_prefix(4);
    }
    if (word.size() == 1) {
      change.Kind = word == "+" ? Kinds::Key : Kinds::DeletedKey;
    } else if (word[0] == '-') {
      change.Kind = Kinds::DeletedValue;
      change.Name = word.substr(1);
    } else {
      change.Name = word.substr(0, 1);
      change.Value = {1, std::string(word.substr(2))};
    }
  }
  return changes;
}

/// A file with values of the machine's key "Soft", such as "a=1 b=2"; without the key for "-".
std::string SoftFile(std::string_view values) {
  std::string text = values == "-" ? "REGEDIT4\n" : "REGEDIT4\n[HKLM\\Soft]\n";
  for (const auto& [kind, hive, key, name, value] : ChangesOf(kMachine, "Soft", values))
    if (kind == Kinds::Value) text += "\"" + name + "\"=\"" + std::get<std::string>(value.Data) + "\"\n";
  return text;
}

class RegistryTest : public PrivateHost {
 protected:
  std::string UserText() const { return Folder.Read("registry/user.reg"); }
  std::optional<RegistryValue> Read(std::string_view key, std::string_view name) {
    return Host.Read(kUser, key, name);
  }
  void Write(std::string_view key, std::string_view name, std::string text) {
    Host.Write(kUser, key, name, Text(std::move(text)));
  }
  static RegistryValue Text(std::string text) { return {1, std::move(text)}; }

  Registry& Host = Registry::Native();
};

TEST_F(RegistryTest, TakesBytesThatAreNoUtf8AsWindows1252) {
  Write("Software", "Text", "€");
  Write("Software", "Other", "\x80");
  for (const char* name : {"Text", "Other"}) EXPECT_EQ(Read("Software", name), Text("€"));
  EXPECT_EQ(FailureOf([&] { Write("two\nlines", "v", "x"); }), EINVAL);
}

TEST_F(RegistryTest, KeepsEverythingElseByteForByte) {
  const std::string before =
      "Windows Registry Editor Version 5.00\r\n; mine\r\n\r\n[HKCU\\Soft] ; first\r\n  \"B\" = "
      "hex(b):00,\\\r\n 01\r\n";
  const std::string rest =
      "\r\n; of the next\r\n[HKEY_CURRENT_USER\\Soft\\Sub]\r\n\"a\"=\"other\"\r\n"
      "[HKEY_CLASSES_ROOT\\x]\r\n@=\"\"\r\n[-HKCU\\Gone]";
  Folder.Write("registry/user.reg", before + "\"A\"=\"old\" ; note\r\n" + rest);
  Write("soft", "a", "new");
  EXPECT_EQ(UserText(), before + "\"A\"=\"new\" ; note\r\n" + rest);
  Write("soft", "C", "added");
  EXPECT_EQ(UserText(), before + "\"A\"=\"new\" ; note\r\n\"C\"=\"added\"\r\n" + rest);
  const std::string whole = UserText();
  Write("Soft", "A", "new");
  Host.CreateKey(kUser, "SOFT\\sub\\");
  EXPECT_EQ(UserText(), whole);
  Host.CreateKey(kUser, "Gone\\Again");
  Write("Gone", "v", "1");
  EXPECT_EQ(UserText(), whole +
                            "\r\n\r\n[HKEY_CURRENT_USER\\Gone\\Again]\r\n"
                            "\r\n[HKEY_CURRENT_USER\\Gone]\r\n\"v\"=\"1\"\r\n");
}

TEST_F(RegistryTest, MakesSeveralChangesInOneStep) {
  const std::string begin = "REGEDIT4\r\n[HKCU\\K]\r\n";
  const std::string other = "[HKCU\\Ka]\r\n\"v\"=\"4\"";
  for (const auto& [changes, after] :
       {std::pair("-V w=5", begin + "\"w\"=\"5\"\r\n" + other),
        {"v=5 -v -n", begin + other},
        {"-v v=5", begin + "\"v\"=\"1\"\r\n\"V\"=\"5\" ; note\r\n" + other},
        {"-", "REGEDIT4\r\n" + other},
        {"Sub.v=5 - v=6 w=7",
         "REGEDIT4\r\n" + other + "\r\n\r\n[HKEY_CURRENT_USER\\k]\r\n\"v\"=\"6\"\r\n\"w\"=\"7\"\r\n"}}) {
    Folder.Write("registry/user.reg", begin + "\"v\"=\"1\"\r\n\"V\"=\"2\" ; note\r\n" + other);
    Host.Apply(ChangesOf(kUser, "k", changes));
    EXPECT_EQ(UserText(), after);
  }
  EXPECT_EQ(Host.List(kUser, "none"), std::nullopt);
  Write("K\\B\\C", "", "");
  Write("k\\a", "", "");
  Write("K\\\\D", "", "");  // with a separator that is repeated
  EXPECT_EQ(Host.List(kUser, "K")->Keys, (std::vector<std::string>{"a", "B", "D"}));
  EXPECT_EQ(Host.List(kUser, "K")->Values[1].first, "w");
  EXPECT_EQ(Host.List(kUser, "")->Keys, (std::vector<std::string>{"k", "Ka"}));
  EXPECT_EQ(Host.List(kUser, "K\\B")->Values.size(), 0U);
}

TEST_F(RegistryTest, SeesEveryChangeAtTheNextRead) {
  const auto textWith = [](int i) { return "REGEDIT4\n[HKCU\\Soft]\n\"v\"=\"" + std::to_string(i) + "\"\n"; };
  for (int i = 1000; i < 1200; ++i) {  // edits in place: the same file, the same size, often the same time
    Folder.Write("registry/user.reg", textWith(i));
    ASSERT_EQ(Read("Soft", "v"), Text(std::to_string(i)));
    if (i % 50 == 0) ::usleep(50'000);
  }
  for (int i = 2000; i < 2020; ++i) {
    ASSERT_EQ(ExitStatus(StartProcess([&] { return Write("Soft", "v", std::to_string(i)), 0; })), 0);
    ASSERT_EQ(Read("Soft", "v"), Text(std::to_string(i)));
    if (i % 10 == 0) ::usleep(50'000);
  }
  std::filesystem::remove(Below("registry/user.reg"));
  EXPECT_EQ(Read("Soft", "v"), std::nullopt);
  std::filesystem::create_directory(Below("registry/user.reg"));
  EXPECT_EQ(FailureOf([&] { Read("Soft", "v"); }), EISDIR);
  Set("LWCONFIG_REGISTRY", Below("elsewhere"));
  EXPECT_EQ(Read("Soft", "v"), std::nullopt);
}

TEST_F(RegistryTest, LooksWhereA64BitSystemKeepsAMachinesKeys) {
  const auto read = [&](const char* name) { return Host.Read(kMachine, "software\\Maker\\Product", name); };
  Folder.Write("registry/machine.reg", "");
  EXPECT_EQ(read("a"), std::nullopt);
  Host.Write(kMachine, "SOFTWARE\\Wow6432Node\\Maker\\Product", "a", Text("below"));
  EXPECT_EQ(read("a"), Text("below"));
  Host.Write(kMachine, "Software\\Maker\\Product", "A", Text("own"));
  EXPECT_EQ(read("a"), Text("own"));
  Write("Software\\WOW6432Node\\Maker", "a", "user");
  EXPECT_EQ(Read("Software\\Maker", "a"), std::nullopt);
}

TEST_F(RegistryTest, LosesNoneOfManyWriters) {
  constexpr int kProcesses = 4;
  constexpr int kValues = 15;
  Folder.Write("elsewhere/settings.reg", "REGEDIT4\n; mine\n");
  std::filesystem::create_directory(Below("registry"));
  std::filesystem::create_symlink("../elsewhere/settings.reg", Below("registry/user.reg"));
  std::vector<pid_t> processes;
  for (int p = 0; p < kProcesses; ++p) {
    processes.push_back(StartProcess([&] {
      for (int i = 0; i < kValues; ++i) Write("K" + std::to_string(p % 2), std::to_string(p * 100 + i), "x");
      return 0;
    }));
  }
  for (const pid_t process : processes) EXPECT_EQ(ExitStatus(process), 0);
  for (const char* key : {"K0", "K1"})
    EXPECT_EQ(Host.List(kUser, key)->Values.size(), kProcesses * kValues / 2U);
  EXPECT_TRUE(UserText().starts_with("REGEDIT4\n; mine\n"));
  EXPECT_TRUE(std::filesystem::is_symlink(Below("registry/user.reg")));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(Below("elsewhere")), {}), 1);
}

TEST_F(RegistryTest, IsInTheUsersConfiguration) {
  Set("LWCONFIG_REGISTRY", nullptr);
  Write("Soft", "v", "1");
  EXPECT_EQ(Folder.Read("home/.config/lwconfig/user.reg"),
            "Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER\\Soft]\n\"v\"=\"1\"\n");
  Set("XDG_CONFIG_HOME", Below("config"));
  EXPECT_EQ(Read("Soft", "v"), std::nullopt);
  Set("XDG_CONFIG_HOME", nullptr);
  Set("HOME", nullptr);
  EXPECT_EQ(Read("Soft", "v"), std::nullopt);
  EXPECT_EQ(FailureOf([&] { Write("Soft", "v", "1"); }), ENOENT);
}

TEST_F(RegistryTest, AddsTheUsersOwnValuesToTheMachines) {
  Set("LWCONFIG_REGISTRY", nullptr);
  std::filesystem::permissions(Folder.Path(), std::filesystem::perms(0755));
  const std::string system = SoftFile("a=1 b=1");
  const std::string own = SoftFile("B=own o=own");
  using Row = std::tuple<bool, const char*, int, const char*, const char*>;
  for (const auto& [mayWriteSystem, changes, failure, systemAfter, ownAfter] :
       {Row{true, "a=2 b=2 c=2", 0, "a=2 b=1 c=2", "B=2 o=own"}, Row{true, "-b", 0, "a=1", "o=own"},
        Row{true, "-", 0, "-", "-"}, Row{false, "a=2 b=2", 0, "a=1 b=1", "B=2 o=own a=2"},
        Row{false, "+ b=2", 0, "a=1 b=1", "B=2 o=own"}, Row{false, "-o A=1", 0, "a=1 b=1", "B=own"},
        Row{false, "-b", EACCES, "a=1 b=1", "B=own o=own"}, Row{false, "-", EACCES, "a=1 b=1", "B=own o=own"},
        Row{false, "o=2 -a", EACCES, "a=1 b=1", "B=own o=own"}}) {
    const std::string systemFile = Folder.Write("etc/machine.reg", system);
    const std::string ownFile = Folder.Write("home/.config/lwconfig/machine.reg", own);
    for (const std::string& file : {systemFile, ownFile}) {
      const bool mayWrite = mayWriteSystem || file == ownFile;
      ::chmod(std::filesystem::path(file).parent_path().c_str(), mayWrite ? 0777 : 0555);
      ::chmod(file.c_str(), mayWrite ? 0666 : 0444);
    }
    const auto asked = ChangesOf(kMachine, "Soft", changes);
    EXPECT_EQ(FailureAsNobody([&] { FileRegistry(Below("etc")).Apply(asked); }), failure) << changes;
    EXPECT_EQ(Folder.Read("etc/machine.reg"), SoftFile(systemAfter)) << changes;
    EXPECT_EQ(Folder.Read("home/.config/lwconfig/machine.reg"), SoftFile(ownAfter)) << changes;
    ::chmod(Below("etc").c_str(), 0777);
    std::filesystem::remove(systemFile);
  }
  Folder.Write("etc/machine.reg", system + "[HKLM\\Soft\\Wow6432Node]\n[HKLM\\Software\\X]\n\"v\"=\"1\"\n");
  Folder.Write("home/.config/lwconfig/machine.reg",
               own + "[HKLM\\soft\\A]\n[HKLM\\Software\\WOW6432Node\\x]\n\"v\"=\"own\"\n");
  FileRegistry both(Below("etc"));
  EXPECT_EQ(both.Read(kMachine, "soft", "b"), Text("own"));
  EXPECT_EQ(both.Read(kMachine, "soft", "A"), Text("1"));
  EXPECT_EQ(both.Read(kMachine, "Software\\X", "v"), Text("own"));
  const auto listed = both.List(kMachine, "Soft").value();
  EXPECT_EQ(listed.Keys, (std::vector<std::string>{"A", "Wow6432Node"}));
  EXPECT_EQ(listed.Values,
            (decltype(listed.Values){{"a", Text("1")}, {"B", Text("own")}, {"o", Text("own")}}));
  EXPECT_EQ(both.OwnFile("Soft", "b"), Below("home/.config/lwconfig/machine.reg"));
  EXPECT_EQ(both.OwnFile("Soft", "a"), "");
  Set("LWCONFIG_REGISTRY", Below("etc"));
  EXPECT_EQ(both.Read(kMachine, "Soft", "o"), std::nullopt);
}

}  // namespace
}  // namespace lwconfig::testing
