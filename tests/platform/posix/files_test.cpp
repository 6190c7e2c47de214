#include <filesystem>
#include <fstream>

#include <gmock/gmock.h>
#include <tests/platform/posix/private_host.h>

#include <lwconfig/platform/files.h>

namespace lwconfig::platform {
namespace {

using lwconfig::testing::FailureOf;
using ::testing::ElementsAre;

class FilesTest : public lwconfig::testing::PrivateHost {
 protected:
  Files& Host = Files::Native();
};

TEST_F(FilesTest, TranslatesTheProductsNotation) {
  const std::string drives = Below("drives");
  using Row = std::tuple<std::string, std::string, std::string>;
  for (const auto& [product, native, back] : {
           Row{"C:\\Config\\x.xml", drives + "/c/Config/x.xml", "C:\\Config\\x.xml"},
           Row{"d:/Config//x.xml\\", drives + "/d/Config/x.xml", "D:\\Config\\x.xml"},
           Row{"C:", drives + "/c", "C:\\"},
           Row{"C:\\..\\..\\x", drives + "/c/x", "C:\\x"},
           Row{"C:\\a\\.\\b\\..\\..\\c", drives + "/c/c", "C:\\c"},
           Row{"\\no-such\\share", "/no-such/share", "\\no-such\\share"},
           Row{"/no-such/share/", "/no-such/share", "\\no-such\\share"},
           Row{"\\..\\no-such", "/no-such", "\\no-such"},
           Row{"\\", "/", "\\"},
           Row{"\\1:\\no-such", "/1:/no-such", "\\1:\\no-such"},
           Row{"C:x", drives + "/c/x", "C:\\x"},
       }) {
    EXPECT_EQ(Host.NativePath(product), native);
    EXPECT_EQ(Host.ProductPath(native), back);
  }
  for (const auto& [product, host] : {std::pair("a\\.\\x", "a/x"), {"1:/x", "1:/x"}, {"..\\x", "../x"}})
    EXPECT_EQ(Host.NativePath(product), std::filesystem::absolute(host).lexically_normal());
  EXPECT_EQ(FailureOf([&] { Host.Read(""); }), ENOENT);
  EXPECT_EQ(Host.Kind(""), EntryKind::Missing);
  EXPECT_EQ(Host.ProductPath("some/../file"), Host.ProductPath("./file"));
  EXPECT_EQ(Host.ProductPath(drives + "/config/x"), Host.ProductPath(drives) + "\\config\\x");
  EXPECT_EQ(Host.ProductPath("/tmp/name:"), "\\tmp\\name:");

  Set("LWCONFIG_DRIVES", nullptr);
  EXPECT_EQ(Host.NativePath("C:\\x"), Below("home/.local/share/lwconfig/drives/c/x"));
  Set("XDG_DATA_HOME", Below("data"));
  EXPECT_EQ(Host.NativePath("C:\\x"), Below("data/lwconfig/drives/c/x"));
  Set("XDG_DATA_HOME", nullptr);
  Set("HOME", nullptr);
  EXPECT_EQ(Host.Kind("C:\\"), EntryKind::Missing);
  EXPECT_EQ(FailureOf([&] { Host.Read("C:\\x"); }), ENOENT);
}

TEST_F(FilesTest, FindsNamesInAnyLetterCase) {
  Folder.Write("drives/c/Config/Templates/Gr\xc3\xbcn.xml", "green");
  Folder.Write("drives/c/Config/config.xml", "small");
  Folder.Write("drives/c/Config/CONFIG.XML", "capital");
  using Row = std::pair<const char*, const char*>;
  for (const auto& [path, content] : {
           Row{"C:\\Config\\config.xml", "small"},
           Row{"c:\\CONFIG\\config.xml", "small"},
           Row{"C:\\config\\CONFIG.XML", "capital"},
           Row{"C:\\config\\Config.Xml", "capital"},
           Row{"C:\\config\\templates\\GR\xc3\x9cN.XML", "green"},
       }) {
    EXPECT_EQ(Host.Read(path), content) << path;
    EXPECT_EQ(Host.Kind(path), EntryKind::File) << path;
  }
  EXPECT_EQ(Host.Kind("C:\\CONFIG\\templates"), EntryKind::Folder);
  EXPECT_EQ(Host.Kind("C:\\CONFIG\\templates\\config.xml"), EntryKind::Missing);
  EXPECT_EQ(Host.Kind(std::string("C:\\Config\0", 10)), EntryKind::Missing);
  EXPECT_EQ(Host.NativePath("C:\\CONFIG\\TEMPLATES\\New\\File"), Below("drives/c/Config/Templates/New/File"));

  Host.MakeFolders("C:\\config\\templates\\New\\Inner");
  EXPECT_EQ(Host.Kind("C:\\Config\\Templates\\new\\inner"), EntryKind::Folder);
  Host.MakeFolders("C:\\Config\\Templates\\new");
  EXPECT_NE(FailureOf([&] { Host.MakeFolders("C:\\Config\\config.xml\\Below"); }), 0);
  Host.Remove("C:\\CONFIG\\TEMPLATES\\gr\xc3\xbcn.XML");
  EXPECT_EQ(Host.List("C:\\config\\templates").size(), 1U);
  EXPECT_EQ(FailureOf([&] { Host.Remove("C:\\Config\\none.xml"); }), ENOENT);
}

TEST_F(FilesTest, ListsInNameOrder) {
  for (const char* name : {"b.xml", "A.xml", "a.XML", "a.xml", "_z", ".NET.xml", ".lwtmp", ".b.xml.lwtmp",
                           "\xc3\xa4", "Z", "not\\ours"}) {
    Folder.Write(std::string("drives/c/list/") + name, "");
  }
  std::filesystem::create_directory(Below("drives/c/list/folder"));
  std::filesystem::create_directory(Below("drives/c/list/.NET"));
  std::filesystem::create_symlink("folder", Below("drives/c/list/Link"));
  std::filesystem::create_symlink("nowhere", Below("drives/c/list/dangling"));
  std::vector<std::string> names;
  for (const FolderEntry& entry : Host.List("C:\\LIST")) {
    names.push_back(entry.Name + (entry.Kind == EntryKind::Folder ? "\\" : entry.IsHidden ? "?" : ""));
  }
  EXPECT_THAT(names, ElementsAre(".lwtmp?", ".NET\\", ".NET.xml?", "A.xml", "a.XML", "a.xml", "b.xml",
                                 "folder\\", "Link\\", "Z", "_z", "\xc3\xa4"));
  EXPECT_EQ(FailureOf([&] { Host.List("C:\\none"); }), ENOENT);
  EXPECT_EQ(FailureOf([&] { Host.List("C:\\list\\Z"); }), ENOTDIR);
}

TEST_F(FilesTest, ReadsWholeFiles) {
  for (const std::string& bytes : {std::string(300'000, 'x'), std::string(), std::string("\0\xff\r\n", 4)}) {
    Folder.Write("drives/c/file", bytes);
    EXPECT_EQ(Host.Read("C:\\file"), bytes);
  }
  EXPECT_GT(Host.Read("/proc/self/smaps").size(), 8192U);  // says that its size is 0
  EXPECT_EQ(FailureOf([&] { Host.Read("C:\\"); }), EISDIR);
  EXPECT_EQ(FailureOf([&] { Host.Read("C:\\none"); }), ENOENT);
}

}  // namespace
}  // namespace lwconfig::platform
