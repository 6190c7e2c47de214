#include <filesystem>

#include <gtest/gtest.h>
#include <tests/platform/native_host.h>

namespace lwconfig::testing {
namespace {

using namespace platform;

class FilesTest : public NativeHost {};

TEST_F(FilesTest, TranslatesTheProductsNotation) {
  const std::string drives = Below("drives");
  using Row = std::tuple<std::string, std::string, std::string>;
  for (const auto& [product, native, back] :
       {Row{"C:\\Config\\x.xml", drives + "/c/Config/x.xml", "C:\\Config\\x.xml"},
        Row{"d:/Config//x.xml\\", drives + "/d/Config/x.xml", "D:\\Config\\x.xml"},
        Row{"C:", drives + "/c", "C:\\"}, Row{"C:\\..\\..\\x", drives + "/c/x", "C:\\x"},
        Row{"C:\\a\\.\\b\\..\\..\\c", drives + "/c/c", "C:\\c"},
        Row{"\\no-such\\share", "/no-such/share", "\\no-such\\share"},
        Row{"/no-such/share/", "/no-such/share", "\\no-such\\share"},
        Row{"\\..\\no-such", "/no-such", "\\no-such"}, Row{"\\", "/", "\\"},
        Row{"\\1:\\no-such", "/1:/no-such", "\\1:\\no-such"}, Row{"C:x", drives + "/c/x", "C:\\x"}}) {
    EXPECT_EQ(Files.NativePath(product), native);
    EXPECT_EQ(Files.ProductPath(native), back);
  }
  for (const auto& [product, host] : {std::pair("a\\.\\x", "a/x"), {"1:/x", "1:/x"}, {"..\\x", "../x"}})
    EXPECT_EQ(Files.NativePath(product), std::filesystem::absolute(host).lexically_normal());
  EXPECT_EQ(Files.ProductPath("some/../file"), Files.ProductPath("./file"));
  EXPECT_EQ(Files.ProductPath(drives + "/config/x"), Files.ProductPath(drives) + "\\config\\x");
  EXPECT_EQ(Files.ProductPath("/tmp/name:"), "\\tmp\\name:");

  Set("LWCONFIG_DRIVES", nullptr);
  EXPECT_EQ(Files.NativePath("C:\\x"), Below("home/.local/share/lwconfig/drives/c/x"));
  Set("XDG_DATA_HOME", Below("data"));
  EXPECT_EQ(Files.NativePath("C:\\x"), Below("data/lwconfig/drives/c/x"));
  Set("XDG_DATA_HOME", nullptr);
  Set("HOME", nullptr);
  EXPECT_EQ(Files.Kind("C:\\"), EntryKind::Missing);
  EXPECT_EQ(FailureOf([&] { Files.Read("C:\\x"); }), ENOENT);
}

TEST_F(FilesTest, FindsNamesInAnyLetterCase) {
  Folder.Write("drives/c/Config/Templates/Gr\xc3\xbcn.xml", "green");
  Folder.Write("drives/c/Config/config.xml", "small");
  Folder.Write("drives/c/Config/CONFIG.XML", "capital");
  using Row = std::pair<const char*, const char*>;
  for (const auto& [path, content] :
       {Row{"C:\\Config\\config.xml", "small"}, Row{"c:\\CONFIG\\config.xml", "small"},
        Row{"C:\\config\\CONFIG.XML", "capital"}, Row{"C:\\config\\Config.Xml", "capital"},
        Row{"C:\\config\\templates\\GR\xc3\x9cN.XML", "green"}}) {
    EXPECT_EQ(Files.Read(path), content) << path;
    EXPECT_EQ(Files.Kind(path), EntryKind::File) << path;
  }
  EXPECT_EQ(Files.Kind("C:\\CONFIG\\templates"), EntryKind::Folder);
  EXPECT_EQ(Files.Kind("C:\\CONFIG\\templates\\config.xml"), EntryKind::Missing);
  EXPECT_EQ(Files.NativePath("C:\\CONFIG\\TEMPLATES\\New\\File"),
            Below("drives/c/Config/Templates/New/File"));

  Files.MakeFolders("C:\\config\\templates\\New\\Inner");
  EXPECT_EQ(Files.Kind("C:\\Config\\Templates\\new\\inner"), EntryKind::Folder);
  Files.MakeFolders("C:\\Config\\Templates\\new");
  Files.Remove("C:\\CONFIG\\TEMPLATES\\gr\xc3\xbcn.XML");
  EXPECT_EQ(Files.List("C:\\config\\templates").size(), 1U);
}

TEST_F(FilesTest, ListsInNameOrder) {
  for (const std::string name : {"b.xml", "A.xml", "a.XML", "a.xml", "_z", ".NET.xml", ".lwtmp",
                                 ".b.xml.lwtmp", "\xc3\xa4", "Z", "not\\ours"})
    Folder.Write("drives/c/list/" + name, "");
  std::filesystem::create_directory(Below("drives/c/list/folder"));
  std::filesystem::create_directory(Below("drives/c/list/.NET"));
  std::filesystem::create_symlink("folder", Below("drives/c/list/Link"));
  std::filesystem::create_symlink("nowhere", Below("drives/c/list/dangling"));
  EXPECT_EQ(Names("C:\\LIST"),
            ".lwtmp? .NET\\ .NET.xml? A.xml a.XML a.xml b.xml folder\\ Link\\ Z _z \xc3\xa4 ");
  EXPECT_EQ(FailureOf([&] { Files.List("C:\\list\\Z"); }), ENOTDIR);
}

TEST_F(FilesTest, ReadsWholeFiles) {
  for (const std::string& bytes : {std::string(300'000, 'x'), std::string(), std::string("\0\xff\r\n", 4)}) {
    Folder.Write("drives/c/file", bytes);
    EXPECT_EQ(Files.Read("C:\\file"), bytes);
  }
  EXPECT_GT(Files.Read("/proc/self/smaps").size(), 8192U);  // says that its size is 0
  EXPECT_EQ(FailureOf([&] { Files.Read("C:\\"); }), EISDIR);
}

}  // namespace
}  // namespace lwconfig::testing
