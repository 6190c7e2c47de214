#include <filesystem>

#include <gmock/gmock.h>
#include <tests/platform/posix/private_host.h>

#include <lwconfig/platform/components.h>
#include <lwconfig/platform/files.h>
#include <lwconfig/platform/folders.h>
#include <lwconfig/platform/host.h>
#include <lwconfig/platform/message_box.h>

namespace lwconfig::testing {
namespace {

using namespace platform;

class HostServices : public PrivateHost {
 protected:
  std::string ShellFolder(std::int32_t id) { return Folders::Native().ShellFolder(id); }
  std::string Product(const std::string& relative) const {
    return Files::Native().ProductPath(Below(relative));
  }
};

TEST_F(HostServices, ShellFoldersAreTheDesktopsOwn) {
  for (const auto& [id, folder] : {std::pair(5, Product("home/Documents")),
                                   {0x4005, Product("home/Documents")},
                                   {0x1a, Product("home/.config")},
                                   {0x28, Product("home")},
                                   {0x24, Folders::Native().WindowsFolder()},
                                   {0x77, ""}})
    EXPECT_EQ(ShellFolder(id), folder) << id;
  EXPECT_TRUE(std::filesystem::is_directory(Below("home/Documents")));
  EXPECT_EQ(Folders::Native().WindowsFolder(), "C:\\Windows");

  Folder.Write("home/.config/user-dirs.dirs",
               "# XDG_DOCUMENTS_DIR=\"$HOME/No\"\nXDG_DOCUMENTS_DIR=\"$HOME/Meine \\\"Dokumente\\\"\"\n"
               "XDG_MUSIC_DIR=\"" +
                   Below("music") + "\"\n XDG_PICTURES_DIR=\"relative\"\n");
  EXPECT_EQ(ShellFolder(5), Product("home/Meine \"Dokumente\""));
  EXPECT_EQ(ShellFolder(0x0d), Product("music"));
  EXPECT_EQ(ShellFolder(0x27), Product("home/Pictures"));

  Folder.Write("home/Videos", "a file in the way");
  EXPECT_EQ(ShellFolder(0x0e), "");
  Set("HOME", nullptr);
  EXPECT_EQ(ShellFolder(5), "");
}

TEST_F(HostServices, MessagesGoToTheHandlerOrStandardError) {
  const Message message{"Title", "one\r\ntwo\nthree", MessageIcon::Critical};
  ::testing::internal::CaptureStderr();
  ShowMessage(message);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "Title: one two three\n");

  std::vector<std::string> shown;
  EXPECT_FALSE(SetMessageBoxHandler([&](const Message& m) {
    shown.push_back(m.Text);
    SetMessageBoxHandler({});  // a handler may take itself back while it runs
  }));
  ShowMessage(message);
  EXPECT_THAT(shown, ::testing::ElementsAre(message.Text));
}

TEST_F(HostServices, ComponentsAreFoundInAnyLetterCase) {
  struct Ignorer : Component {
    void Receive(std::string_view) override {}
  };
  EXPECT_EQ(CreateComponent("Test.Component"), nullptr);
  EXPECT_FALSE(RegisterComponent("Test.Component", [] { return std::make_unique<Ignorer>(); }));
  EXPECT_NE(CreateComponent("TEST.component"), nullptr);
  EXPECT_TRUE(RegisterComponent("test.COMPONENT", []() -> std::unique_ptr<Component> { throw 1; }));
  EXPECT_EQ(CreateComponent("Test.Component"), nullptr);
  EXPECT_TRUE(RegisterComponent("Test.Component", {}));
  EXPECT_FALSE(RegisterComponent("Test.Component", {}));
}

TEST_F(HostServices, TheEnvironmentIsTheProcesss) {
  for (const auto& [text, width] : {std::pair("1280", 1280), {"wide", 0}}) {
    Set("LWCONFIG_DISPLAY_WIDTH", text);
    EXPECT_EQ(Environment::Native().DisplayWidth(), width);
  }
  Set("LWCONFIG_DISPLAY_WIDTH", nullptr);
  EXPECT_GE(Environment::Native().DisplayWidth(), 0);
  // The test program was started with a name, and whatever follows are its arguments.
  const auto arguments = Environment::Native().ProcessArguments();
  EXPECT_EQ(arguments.size() + 1, ::testing::internal::GetArgvs().size());
}

TEST_F(HostServices, DecodesStrictly) {
  EXPECT_EQ(DecodeAs("gr\xfcn \x80", "windows-1252"), "grün €");
  EXPECT_EQ(DecodeAs(std::string("a\0\xac\x20", 4), "UTF-16LE"), "a€");
  EXPECT_EQ(DecodeAs(std::string(5000, '\xe9'), "iso-8859-1").value_or("").size(), 10'000U);
  EXPECT_EQ(DecodeAs("", "UTF-8"), "");
  for (const char* bytes : {"\xff", "cut \xe2\x82", "\xc0\x80"})
    EXPECT_EQ(DecodeAs(bytes, "UTF-8"), std::nullopt);
  for (const char* encoding : {"", "no-such-encoding", "UTF-8//IGNORE", "ASCII//TRANSLIT"}) {
    EXPECT_EQ(DecodeAs("a\xff", encoding), std::nullopt) << encoding;
  }
}

}  // namespace
}  // namespace lwconfig::testing
