#include <filesystem>

#include <gmock/gmock.h>
#include <sys/stat.h>
#include <tests/tools/tool_test.h>

namespace lwconfig::testing {
namespace {

using ::testing::HasSubstr;

class RegistryCommandTest : public ToolTest {
 protected:
  ToolResult Registry(const std::string& line) { return Run("registry " + line); }
  std::string User() const { return Folder.Read("registry/user.reg"); }
};

TEST_F(RegistryCommandTest, StoresAndShowsEveryType) {
  const std::tuple<const char*, const char*, const char*, const char*> kRows[] = {
      {"'C:\\x'", "sz", "\"v\"=\"C:\\\\x\"", "C:\\x\n"},
      {"%T% --type REG_EXPAND", "expand", "\"v\"=hex(2):25,00,54,00,25,00,00,00", "%T%\n"},
      {"x", "expand", "\"v\"=hex(2):78,00,00,00", "x\n"},  // the type that it has
      {"0x1F --type dword", "dword", "\"v\"=dword:0000001f", "31\n"},
      {"18446744073709551615 --type qword", "qword", "\"v\"=hex(b):ff,ff,ff,ff,ff,ff,ff,ff",
       "18446744073709551615\n"},
      {"00fF --type binary", "binary", "\"v\"=hex:00,ff", "00ff\n"},
      {"[a,b] --type multi", "multi", "\"v\"=hex(7):5b,00,61,00,2c,00,62,00,5d,00,00,00,00,00", "[a,b]\n"},
      {"--type multi", "multi", "\"v\"=hex(7):00,00", "\n"},
      {"a ü --type multi", "multi", "\"v\"=hex(7):61,00,00,00,fc,00,00,00,00,00", "a\nü\n"},
  };
  for (const auto& [data, type, stored, read] : kRows) {
    const auto done = Registry("set hkcu/software/Test v " + std::string(data));
    EXPECT_EQ(done.Status, 0) << type << done.Err;
    EXPECT_THAT(User(), HasSubstr(stored));
    EXPECT_EQ(Registry("get 'HKEY_CURRENT_USER\\Software\\test' V").Out, read);
    const auto json = nlohmann::json::parse(Registry("list HKCU --json").Out);
    EXPECT_EQ(json.at(0).at("Type"), type);
  }
  EXPECT_EQ(Registry("list HKCU --width 40").Out,
            "KEY                 VALUE  TYPE   DATA\n"
            "HKEY_CURRENT_USER\\  v      multi  a\\nü\n"
            "software\\Test\n");
}

TEST_F(RegistryCommandTest, SaysWhatIsWrong) {
  ASSERT_EQ(Registry("set HKCU/Soft/Test Value 1").Status, 0);
  Folder.Write("bad.reg", "REGEDIT4\n[HKCU\\Soft\\Test]\n\"Value\"=\"2\"\n\"x\"=dword:\n");
  Folder.Write("other.reg", "REGEDIT4\n[HKCU\\Soft\\Test]\n\"Value\"=\"2\"\n[HKEY_CLASSES_ROOT\\x]\n");
  const std::string before = User();
  const Refusal kRows[] = {
      {"get HKCU/Soft/Test Valu", 1, "there is no 'Valu'; did you mean 'Value'?"},
      {"get HKCU/Soft/Test", 1, "there is no '(default)'"},
      {"list HKCU/Soft/Tst/Deeper", 1, "What there is:\n  HKEY_CURRENT_USER\\Soft\\Test"},
      {"delete HKCU/Soft/None", 1, "there is no 'HKEY_CURRENT_USER\\Soft\\None'"},
      {"delete HKCU/Soft/Test None", 1, "there is no 'None'"},
      {"delete HKCU", 2, "a whole hive cannot be deleted"},
      {"list Software", 1, "'Software' is no key"},
      {"set HKCU/x v 1x --type dword", 2, "'1x' is no value of the type dword"},
      {"set HKCU/x v 4294967296 --type dword", 2, "no value of the type dword"},
      {"set HKCU/x v abc --type binary", 2, "no value of the type binary"},
      {"set HKCU/x v a b", 2, "this list of texts is no value of the type sz"},
      {"set HKCU/x v", 2, "DATA is required"},
      {"set HKCU/x v a '' --type multi", 2, "it cannot hold an empty text"},
      {"set HKCU/x v \xff", 2, "DATA: the text is not valid UTF-8"},
      {"import ''", 2, "FILE: the name of the file or folder is empty"},
      {"set HKCU/x v 1 --type dwrd", 2, "did you mean 'dword'?"},
      {"import " + Below("bad.reg"), 3, "bad.reg:4:11: error: This is no registry file that can be used"},
      {"import " + Below("other.reg"), 3, "other.reg:4:1: error: This is no registry file that can be used"},
      {"import " + Below("none.reg"), 4, "none.reg: error: "},
      {"export HKCU/Soft " + Below("none/x.reg"), 4, "x.reg: error: "},
      {"export HKXX", 1, "'HKXX' is no key"},
      {"export HKXX/Soft " + Below("x.reg"), 1, "'HKXX/Soft' is no key"},
      {"export HKCU/Sft " + Below("x.reg"), 1, "there is no 'HKEY_CURRENT_USER\\Sft'"},
  };
  for (const auto& row : kRows) {
    const auto result = Registry(row.Line);
    EXPECT_EQ(result.Status, row.Status) << row.Message;
    EXPECT_THAT(result.Err, HasSubstr(row.Message));
    EXPECT_EQ(User(), before) << row.Message;
  }
  EXPECT_FALSE(std::filesystem::exists("HKXX") || std::filesystem::exists(Below("x.reg")));
  Folder.Write("registry/user.reg", "REGEDIT4\n[HKCU\\Soft]\nx\n");
  for (const char* line : {"registry list", "registry set HKCU/x v 1", "options set IDEOptions.AutoSave 1"}) {
    const auto result = Run(line);
    EXPECT_EQ(result.Status, 4);
    EXPECT_THAT(result.Err,
                HasSubstr("<test>/registry/user.reg:3:1: error: The registry file is damaged and was left"));
    EXPECT_EQ(User(), "REGEDIT4\n[HKCU\\Soft]\nx\n");
  }
}

TEST_F(RegistryCommandTest, ImportsAndExportsTheSameRegistry) {
  Folder.Write(
      "registry/user.reg",
      "REGEDIT4\n; "
      "mine\n[HKCU\\Soft\\Old]\n\"x\"=\"1\"\n[HKCU\\Soft\\Kept]\n\"a\"=\"1\"\n\"A\"=\"2\"\n\"b\"=\"3\"\n");
  Folder.Write(
      "in.reg",
      "Windows Registry Editor Version 5.00\r\n[-HKCU\\Soft\\Old]\r\n[HKEY_CURRENT_USER\\Soft\\Kept]\r\n"
      "\"a\"=-\r\n\"b\"=dword:4\r\n\"c\"=\"ü\"\r\n[HKLM\\Soft\\Empty]\r\n[HKLM\\Soft]\r\n@=hex(9):"
      "01\r\n");
  const auto imported = Registry("import " + Below("in.reg"));
  EXPECT_EQ(imported.Status, 0) << imported.Err;
  EXPECT_EQ(imported.Out, "imported 3 values, followed 2 deletions\n");
  EXPECT_EQ(User(), "REGEDIT4\n; mine\n[HKCU\\Soft\\Kept]\n\"b\"=dword:00000004\n\"c\"=\"ü\"\n");

  const std::string kUser =
      "Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER]\n\n[HKEY_CURRENT_USER\\Soft]\n\n"
      "[HKEY_CURRENT_USER\\Soft\\Kept]\n\"b\"=dword:00000004\n\"c\"=\"ü\"\n";
  EXPECT_EQ(Registry("export HKCU").Out, kUser);
  for (const bool isUtf16 : {false, true}) {
    ASSERT_EQ(Registry("export HKLM/Soft " + Below("out.reg") + (isUtf16 ? " --utf16" : "")).Status, 0);
    EXPECT_EQ(Folder.Read("out.reg").starts_with("\xff\xfeW"), isUtf16);
    const std::string before = Registry("export HKLM").Out;
    ASSERT_EQ(Registry("delete HKLM/Soft").Status, 0);
    EXPECT_EQ(Registry("export HKLM").Out, "Windows Registry Editor Version 5.00\n\n[HKEY_LOCAL_MACHINE]\n");
    ASSERT_EQ(Registry("import " + Below("out.reg")).Status, 0);
    EXPECT_EQ(Registry("export HKLM").Out, before);
  }
}

TEST_F(RegistryCommandTest, ReadsAndWritesPipes) {
  const auto pipeWith = [](std::string_view text) {
    int ends[2];
    EXPECT_EQ(::pipe(ends), 0);
    EXPECT_EQ(::write(ends[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
    ::close(ends[1]);
    return ends[0];
  };
  for (const char* name : {"-", "/dev/stdin", "/dev/fd/0", "pipe"}) {
    const std::string value = "[HKEY_CURRENT_USER\\Soft]\n\"" + std::string(name) + "\"=\"1\"\n";
    Input = pipeWith("REGEDIT4\n" + value);
    const std::string file = *name == 'p' ? "/dev/fd/" + std::to_string(Input) : name;
    EXPECT_EQ(Registry("import " + file).Out, "imported 1 value\n") << name;
    ::close(Input);
    EXPECT_EQ(Registry("export HKCU/Soft").Out, "Windows Registry Editor Version 5.00\n\n" + value);
    EXPECT_EQ(Registry("delete HKCU/Soft").Status, 0);
  }
  Input = pipeWith("x");
  EXPECT_THAT(Registry("import -").Err,
              ::testing::StartsWith("standard input:1:1: error: This is no registry"));
  ::close(Input);
  // A named pipe is opened once: whoever is at its other end sees one reader come and go.
  ASSERT_EQ(::mkfifo(Below("named").c_str(), 0600), 0);
  const std::string exported = "Windows Registry Editor Version 5.00\n\n[HKEY_CURRENT_USER]\n";
  const pid_t writer = StartProcess([&] { return Registry("export HKCU " + Below("named")).Status; });
  EXPECT_EQ(Folder.Read("named"), exported);
  EXPECT_EQ(ExitStatus(writer), 0);
  EXPECT_EQ(Registry("export HKCU -").Out, exported);
}

}  // namespace
}  // namespace lwconfig::testing
