#include <gmock/gmock.h>
#include <tests/platform/posix/private_host.h>

#include <lwconfig/platform/registry.h>

namespace lwconfig::testing {
namespace {

using namespace platform;
using Bytes = std::vector<std::uint8_t>;

const std::string kHeader = "Windows Registry Editor Version 5.00\n";
const std::string kBegin = kHeader + "\n[HKEY_CURRENT_USER\\Soft]\n";

class RegistryFormat : public PrivateHost {
 protected:
  void SetText(std::string_view text) { Folder.Write("registry/user.reg", text); }
  std::optional<RegistryValue> Read(std::string_view name, std::string_view key = "Soft") {
    return Registry::Native().Read(Hive::CurrentUser, key, name);
  }
};

RegistryValue Text(std::string text) {
  return {1, std::move(text)};
}

TEST_F(RegistryFormat, UnderstandsEveryFormOfAValue) {
  using Row = std::pair<std::string, std::optional<RegistryValue>>;
  for (const auto& [lines, value] : {
           Row{"\"v\"=\"text\"\n", Text("text")},
           Row{"  \"V\" = \"text\"  ; with a comment", Text("text")},
           Row{"\"v\"=\"C:\\\\a \\\"b\\\" ; c\"\r\n", Text("C:\\a \"b\" ; c")},
           Row{"\"v\"=\"one\r\n[two]\n\"\n", Text("one\r\n[two]\n")},
           Row{"\"v\"=\"\"\n", Text("")},
           Row{"\"v\"=dword:0000001F\n", RegistryValue{4, 31U}},
           Row{"\"v\"=DWORD:ffffffff\n", RegistryValue{4, 0xffffffffU}},
           Row{"\"v\"=hex:\n", RegistryValue{3, Bytes{}}},
           Row{"\"v\"=hex:01,\\\r\n  fF,\\ \n\t2\n", RegistryValue{3, Bytes{1, 255, 2}}},
           Row{"\"v\"=hex(2):25,00,e4,00,3d,d8,00,de,00,00\n", RegistryValue{2, "%ä😀"}},
           Row{"\"v\"=hex(1):3d,d8,41,00,42\n", Text("\uFFFDA")},  // broken UTF-16
           Row{"\"v\"=hex(4):01,02,00,00\n", RegistryValue{4, 0x201U}},
           Row{"\"v\"=hex(7):61,00,00,00\n", RegistryValue{7, Bytes{0x61, 0, 0, 0}}},
           Row{"\"v\"=hex(ffff0010):\n", RegistryValue{0xffff0010U, Bytes{}}},
           Row{"\"v\"=\"1\"\n\"V\"=\"2\"\n", Text("2")},
           Row{"\"v\"=\"1\"\n\"v\"=-\n", std::nullopt},
           Row{"\"v\"=\"1\"\n[-hkcu\\SOFT]\n\"v\"=\"2\"\n", std::nullopt},
           Row{"\"v\"=\"1\"\n[-HKCU]\n[HKCU\\soft]\n\"w\"=\"2\"\n", std::nullopt},
           Row{"\"v\"=\"1\"\n[-HKCU\\Sof]\n[-HKLM\\Soft]\n", Text("1")},
           Row{"[HKLM\\Soft]\n\"v\"=\"1\"\n[HKEY_USERS\\Soft]\n\"v\"=\"2\"\n", std::nullopt},
           Row{"[HKCU\\Soft\\]\n;\"v\"=\"2\"\n\"v\"=\"3\"\n", Text("3")},
       }) {
    SetText(kBegin + lines);
    EXPECT_EQ(Read("v"), value) << lines;
  }
  SetText(kBegin + "@=\"default\"\n[HKCU\\Soft\\[a]] \n\"Ü\\\\\"=\"odd\"");
  EXPECT_EQ(Read(""), Text("default"));
  EXPECT_EQ(Read("ü\\", "\\SOFT\\[A]\\"), Text("odd"));
}

TEST_F(RegistryFormat, AcceptsEveryEncoding) {
  const std::string text = kBegin + "\"v\"=\"Grüße\"\n";
  std::string little = "\xff\xfe";
  std::string big = "\xfe\xff";
  std::string windows;
  for (std::size_t i = 0; i < text.size(); ++i) {
    char c = text[i];
    if (c == '\xc3') c = static_cast<char>(text[++i] | 0x40);
    little += {c, '\0'};
    big += {'\0', c};
    windows += c;
  }
  for (const std::string& bytes : {text, "\xef\xbb\xbf" + text, little, big, windows}) {
    SetText(bytes);
    EXPECT_EQ(Read("V"), Text("Grüße"));
    Registry::Native().Write(Hive::CurrentUser, "Soft", "v", Text("€"));
    EXPECT_EQ(Read("V"), Text("€"));
  }
  SetText("REGEDIT4\r\n[HKEY_CURRENT_USER\\Soft]\r\n\"v\"=hex(2):fc,80,00\r\n");
  EXPECT_EQ(Read("v"), (RegistryValue{2, "ü€"}));
  Registry::Native().Write(Hive::CurrentUser, "Soft", "v", {2, "%ü"});
  EXPECT_EQ(Folder.Read("registry/user.reg"),
            "REGEDIT4\r\n[HKEY_CURRENT_USER\\Soft]\r\n\"v\"=hex(2):25,c3,bc,00\r\n");
  EXPECT_EQ(Read("v"), (RegistryValue{2, "%ü"}));
}

TEST_F(RegistryFormat, TellsWhereAFileIsDamaged) {
  using Row = std::tuple<std::string, const char*, const char*>;
  for (const auto& [text, place, message] : {
           Row{" ", "1:1", "found ' '"},
           Row{"Windows Registry Editor Version 4.00\n", "1:1", "\"REGEDIT4\", found 'W'"},
           Row{"\xef\xbb\xbf\n" + kHeader, "1:1", "found the end of the line"},
           Row{kHeader + "\"v\"=\"1\"\n", "2:1", "expected a key in square brackets"},
           Row{kBegin + "v=1\n", "4:1", "expected a key, a value or a comment, found 'v'"},
           Row{kBegin + std::string(3, '\0'), "4:1", "found a control character"},
           Row{kBegin + "[HKCU\\Soft \r\n", "4:12", "expected ']', found the end of the line"},
           Row{kBegin + "[]\n", "4:2", "expected the name of a key"},
           Row{kBegin + "[HKCU\\a] b\n", "4:10", "expected the end of the line, found 'b'"},
           Row{kBegin + "\"äö\" \"1\"\n", "4:6", "expected '=', found '\"'"},
           Row{kBegin + "\"v\"=\n", "4:5", "expected a text in quotes"},
           Row{kBegin + "\"v\"=€\n", "4:5", "found '€'"},
           Row{kBegin + "\"v\"=\"C:\\x\"\n", "4:9", "after a backslash, found 'x'"},
           Row{kBegin + "\"v\"=\"a\nb\"x\n", "5:3", "expected the end of the line, found 'x'"},
           Row{kBegin + "\n\"v\"=\"open\n\n", "5:5", "expected a closing quote"},
           Row{kBegin + "\"v\"=dword:\r\n", "4:11",
               "expected a hexadecimal digit, found the end of the line"},
           Row{kBegin + "\"v\"=dword:123456789\n", "4:19", "found '9'"},
           Row{kBegin + "\"v\"=hex(2:00\n", "4:10", "expected ')'"},
           Row{kBegin + "\"v\"=hex:01,0g\n", "4:13", "found 'g'"},
           Row{kBegin + "\"v\"=hex:01,\\\n", "5:1",
               "expected a hexadecimal digit, found the end of the file"},
           Row{kBegin + "\"v\"=hex:01,\\x\n", "4:13", "expected the end of the line after a backslash"},
       }) {
    SetText(text);
    const auto failureOf = [](auto action) -> std::string {
      try {
        action();
        return "nothing failed";
      } catch (const RegistryFormatError& error) {
        return error.File + ":" + std::to_string(error.Line) + ":" + std::to_string(error.Column) + " " +
               error.what();
      }
    };
    const auto isFailure = ::testing::AllOf(::testing::StartsWith(Below("registry/user.reg:") + place + " "),
                                            ::testing::HasSubstr(message));
    EXPECT_THAT(failureOf([&] { Read("v"); }), isFailure) << text;
    EXPECT_THAT(failureOf([&] { Registry::Native().Write(Hive::CurrentUser, "Soft", "v", Text("1")); }),
                isFailure);
    EXPECT_EQ(Folder.Read("registry/user.reg"), text);
  }
}

}  // namespace
}  // namespace lwconfig::testing
