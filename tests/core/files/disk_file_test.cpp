#include <array>

#include <tests/configuration.h>

#include <lwconfig/core/files/disk_file.h>

namespace lwconfig::testing {
namespace {

class DiskFiles : public ConfigurationTest {
 protected:
  DiskFile At(const std::string& name) const { return DiskFile(Path(name)); }
  static void OpenToWrite(DiskFile& file) { file.Open(4, 2, 3, 32767); }
};

TEST(Paths, AreSplitAndJoined) {
  using Row = std::array<std::string_view, 5>;
  for (const auto& [path, folder, baseName, extension, joined] :
       {Row{"", "", "", "", ""},
        Row{"C:\\Config\\config.xml", "C:\\Config\\", "config", "xml", "C:\\Config\\config.xml"},
        Row{"C:/Config//Sub\\\\a.b.hhk", "C:\\Config\\Sub\\", "a.b", "hhk", "C:\\Config\\Sub\\a.b.hhk"},
        Row{"C:\\My.Config\\file", "C:\\My.Config\\", "file", "", "C:\\My.Config\\file"},
        Row{"C:\\Config\\", "C:\\Config\\", "", "", "C:\\Config\\"},
        Row{"\\\\server\\share\\x.xml", "\\\\server\\share\\", "x", "xml", "\\\\server\\share\\x.xml"},
        Row{"C:\\a\\.\\b\\..\\..\\..\\c.d", "C:\\", "c", "d", "C:\\c.d"},
        Row{"C:\\a\\..", "C:\\", "", "", "C:\\"}, Row{"C:..\\x", "C:..\\", "x", "", "C:..\\x"},
        Row{"//server//share/../x", "\\\\server\\share\\", "x", "", "\\\\server\\share\\x"},
        Row{"a\\..\\..\\b\\..\\..\\x", "..\\..\\", "x", "", "..\\..\\x"}, Row{"./x", "", "x", "", "x"},
        Row{".\\", ".\\", "", "", ".\\"}, Row{"\\..", "\\", "", "", "\\"},
        Row{"\\\\\\three\\x", "\\three\\", "x", "", "\\three\\x"},
        Row{"name.xml", "", "name", "xml", "name.xml"}, Row{"\\.hidden", "\\", "", "hidden", "\\.hidden"},
        Row{"\\ends.", "\\", "ends.", "", "\\ends."},
        Row{"\\v2.0.50727", "\\", "v2.0", "50727", "\\v2.0.50727"}}) {
    const DiskFile file(path);
    EXPECT_EQ(std::tuple(file.FolderPath(), file.BaseName(), file.Extension(), file.FullPath()),
              std::tuple(folder, baseName, extension, joined))
        << path;
  }
  DiskFile file("C:\\Config", "config", "xml");
  file.SetExtension(".xml.bak");
  EXPECT_EQ(file.FileName(), "config.xml.bak");
  file.SetExtension("");
  EXPECT_EQ(file.FullPath(), "C:\\Config\\config");
}

TEST_F(DiskFiles, ReadTextWithAndWithoutOpening) {
  Write("Umlaut.txt", "gr\xFCn");
  DiskFile file = At("umlaut.TXT");
  EXPECT_TRUE(file.Exists() && !file.IsFolder());
  EXPECT_EQ(file.ReadAll(), "grün");
  file.Open(3, 1, 1, 32767);
  EXPECT_TRUE(file.IsOpen());
  EXPECT_EQ(file.ReadAll(), "grün");
  EXPECT_ERROR(kBadFileName, file.Write("x"));
  file.Close();
  EXPECT_FALSE(file.IsOpen());
  EXPECT_ERROR(kInvalidCall, file.Open(1, 1));

  EXPECT_EQ(At("missing.txt").ReadAll() + DiskFile().ReadAll(), "");
  EXPECT_TRUE(At("").IsFolder() && !At("").Exists());
  for (const char* name : {"missing.txt", ""}) {
    DiskFile none = At(name);
    none.Open(3, 1);
    EXPECT_FALSE(none.IsOpen());
  }

  Files.Fail(FileOperation::Read, "umlaut.TXT", EACCES);
  EXPECT_THAT(ErrorOf([&] { file.ReadAll(); }), IsError(kPermissionDenied, file.FullPath() + ": "));
}

TEST_F(DiskFiles, WriteInOneStep) {
  Write("target.xml", "a longer old content");
  DiskFile file = At("target.xml");
  OpenToWrite(file);
  file.Write("new ");
  file.Write("grün");
  EXPECT_EQ(Read("target.xml"), "a longer old content");
  file.Close();
  EXPECT_EQ(Read("target.xml"), "new grün");
  EXPECT_ERROR(kBadFileName, file.Write("after closing"));
  OpenToWrite(file);
  EXPECT_ERROR(kInvalidCall, file.Write("gr\xFCn"));
  DiskFile other = At("target.xml");
  OpenToWrite(other);
  EXPECT_FALSE(other.IsOpen()) << "another one writes it";
  EXPECT_ERROR(kPermissionDenied, other.Write("x"));
}

TEST_F(DiskFiles, TellAMissingFolderFromAMissingFile) {
  DiskFile lost = At("none\\target.xml");
  OpenToWrite(lost);
  EXPECT_ERROR(kPathNotFound, lost.Write("x"));
  EXPECT_ERROR(kPathNotFound, lost.Delete());
  DiskFile file = At("target.xml");
  EXPECT_ERROR(kFileNotFound, file.Delete());
  Write("target.xml", "");
  EXPECT_ERROR(kPathNotFound, file.CopyTo(lost.FullPath()));
  Files.Fail(FileOperation::Remove, "target.xml", EPERM);
  EXPECT_ERROR(kPermissionDenied, file.Delete());
  EXPECT_TRUE(file.Exists());
}

TEST_F(DiskFiles, ListTheEntriesOfAFolder) {
  for (const char* name : {"List/b.xml", "List/A.XML", "List/c.xml.bak", "List/.hidden.xml", "List/d.xml/in"})
    Write(name, "");
  DiskFile folder;
  folder.SetFolder(Path("list"));
  const auto names = [&](const char* pattern) {
    std::vector<std::string> found;
    for (const DiskFile& file : folder.Files(pattern, 1))
      found.push_back(file.FileName() + (file.IsFolder() ? "\\" : ""));
    return found;
  };
  EXPECT_THAT(names("*.xml"), ElementsAre(".hidden.xml", "A.XML", "b.xml", "d.xml\\"));
  EXPECT_THAT(names("*.*"), ElementsAre(".hidden.xml", "A.XML", "b.xml", "c.xml.bak", "d.xml\\"));
  auto listed = folder.Files("A.xml").at(0);
  EXPECT_TRUE(listed.Exists());
  listed.SetBaseName("none");
  EXPECT_FALSE(listed.Exists());
  Files.Fail(FileOperation::List, "list\\", EACCES);
  EXPECT_ERROR(kPermissionDenied, names("*.*"));
  folder.SetFolder(Path("none"));
  EXPECT_THAT(names("*.*"), IsEmpty());
}

}  // namespace
}  // namespace lwconfig::testing
