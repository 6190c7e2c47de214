#include <cerrno>
#include <functional>
#include <string>
#include <system_error>
#include <vector>

#include <gtest/gtest.h>
#include <tests/temporary_folder.h>

#include <lwconfig/platform/files.h>
#include <lwconfig/platform/folders.h>
#include <lwconfig/platform/host.h>
#include <lwconfig/platform/message_box.h>
#include <lwconfig/platform/registry.h>
#include <lwconfig/platform/windows/system.h>

namespace lwconfig::platform {
namespace {

std::wstring gShown;
UINT gStyle = 0;

int WINAPI Keep(HWND, LPCWSTR text, LPCWSTR title, UINT style) {
  gShown = std::wstring(title) + L": " + text;
  gStyle = style;
  return IDOK;
}

/// Takes the place of the system's function in this program: the linker finds it first.
#ifdef _WIN64
extern "C" decltype(&::MessageBoxW) const kImportedMessageBox asm("__imp_MessageBoxW");
#else
extern "C" decltype(&::MessageBoxW) const kImportedMessageBox asm("__imp__MessageBoxW@16");
#endif
decltype(&::MessageBoxW) const kImportedMessageBox = &Keep;

int CodeOf(const std::function<void()>& body) {
  try {
    body();
  } catch (const std::system_error& failure) {
    return failure.code().value();
  }
  return 0;
}

class NativeFilesTest : public ::testing::Test {
 protected:
  static void Put(const std::string& path, std::string_view content) {
    const auto file = Files::Native().Replace(path);
    file->Write(content);
    file->Commit();
  }
  Files& mFiles = Files::Native();
  testing::TemporaryFolder mTemporary;
  const std::string mFolder = mTemporary.Path().string() + "\\\u00dcn\u00efcode \u65e5\u672c";
};

TEST_F(NativeFilesTest, AFileThatOthersHoldStaysAsItIs) {
  mFiles.MakeFolders(mFolder);
  const std::string path = mFolder + "\\held.txt";
  Put(path, "one");
  {
    const Handle reader(::CreateFileW(Wide(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                      nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(reader.IsOpen());
    EXPECT_EQ(CodeOf([&] { Put(path, "two"); }), EBUSY);
  }
  EXPECT_EQ(mFiles.Read(path), "one");
  EXPECT_EQ(mFiles.List(mFolder).size(), 1U);
  Put(path, "two");
  EXPECT_EQ(mFiles.Read(path), "two");
}

TEST_F(NativeFilesTest, PutsContentInPlaceInOneStep) {
  mFiles.MakeFolders(mFolder + "/a/b");
  const std::string path = mFolder + "\\a\\b\\X.txt";
  Put(path, "one");
  Put(mFolder + "/a/b/x.TXT", "two");
  EXPECT_EQ(mFiles.Read(path), "two");
  {
    const auto abandoned = mFiles.Replace(path);
    EXPECT_EQ(CodeOf([&] { mFiles.Replace(path); }), EBUSY);
    abandoned->Write("three");
  }
  EXPECT_EQ(mFiles.Read(path), "two");
  const auto entries = mFiles.List(mFolder + "\\a\\b");
  ASSERT_EQ(entries.size(), 1U);
  EXPECT_EQ(entries[0].Name, "X.txt");

  ::SetFileAttributesA((mTemporary.Path() / "ro.txt").string().c_str(), FILE_ATTRIBUTE_NORMAL);
  const std::string readOnly = mTemporary.Path().string() + "\\ro.txt";
  Put(readOnly, "old");
  ::SetFileAttributesA(readOnly.c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(CodeOf([&] { mFiles.Replace(readOnly); }), EACCES);
  const auto superseding = mFiles.Supersede(readOnly, path);
  superseding->Write("new");
  superseding->Commit();
  EXPECT_EQ(mFiles.Read(readOnly), "new");
  mFiles.Remove(readOnly);
  EXPECT_EQ(mFiles.Kind(readOnly), EntryKind::Missing);
}

TEST_F(NativeFilesTest, ListsAlsoHiddenEntriesButNoUnfinishedFiles) {
  mFiles.MakeFolders(mFolder + "\\.NET");
  for (const char* name : {"\\shown", "\\hidden", "\\.shown.lwtmp"}) Put(mFolder + name, "x");
  ::SetFileAttributesW(Wide(mFolder + "\\hidden").c_str(), FILE_ATTRIBUTE_HIDDEN);
  std::string names;
  for (const FolderEntry& entry : mFiles.List(mFolder)) names += entry.Name + (entry.IsHidden ? "? " : " ");
  EXPECT_EQ(names, ".NET hidden? shown ");
}

TEST_F(NativeFilesTest, TakesNoNameForAnotherOne) {
  mFiles.MakeFolders(mFolder);
  Put(mFolder + "\\FAQ1.xml", "years of work");
  for (const char* name : {"FAQ?.xml", "*", "FAQ<", "FAQ1.xml\"", "FAQ*.xml", "FAQ1.xml:other"}) {
    const std::string path = mFolder + "\\" + name;
    EXPECT_EQ(CodeOf([&] { Put(path, "lost"); }), EINVAL) << name;
    EXPECT_EQ(CodeOf([&] { mFiles.Supersede(path, mFolder + "\\FAQ1.xml"); }), EINVAL) << name;
    EXPECT_EQ(CodeOf([&] { mFiles.Read(path); }), ENOENT) << name;
    EXPECT_EQ(CodeOf([&] { mFiles.Remove(path); }), ENOENT) << name;
  }
  EXPECT_EQ(mFiles.Read(mFolder + "\\FAQ1.xml"), "years of work");
  EXPECT_EQ(mFiles.List(mFolder).size(), 1U);
}

TEST_F(NativeFilesTest, TellsWhatIsNotThere) {
  mFiles.MakeFolders(mFolder);
  EXPECT_EQ(CodeOf([&] { mFiles.Read(mFolder + "\\absent"); }), ENOENT);
  EXPECT_EQ(CodeOf([&] { mFiles.List(mFolder + "\\absent"); }), ENOENT);
  EXPECT_EQ(CodeOf([&] { mFiles.Remove(mFolder + "\\absent"); }), ENOENT);
  EXPECT_EQ(CodeOf([&] { mFiles.Replace(mFolder + "\\absent\\x"); }), ENOENT);
  EXPECT_EQ(CodeOf([&] { mFiles.Replace(mFolder); }), EISDIR);
  EXPECT_NE(CodeOf([&] { mFiles.Read(mFolder); }), 0);
  EXPECT_EQ(mFiles.Kind(mFolder + "\\a<b>"), EntryKind::Missing);
  EXPECT_EQ(mFiles.Kind(""), EntryKind::Missing);
  // More than any path can have.
  const std::string endless = mFolder + "\\" + std::string(70'000, 'x');
  EXPECT_EQ(CodeOf([&] { mFiles.List(endless); }), ENAMETOOLONG);
  EXPECT_EQ(CodeOf([&] { mFiles.Replace(endless); }), ENAMETOOLONG);
  EXPECT_EQ(mFiles.Kind(endless), EntryKind::Missing);
}

TEST_F(NativeFilesTest, TakesPathsOfAnyLength) {
  std::string deep = mFolder;
  for (int level = 0; level < 40; ++level) deep += "\\a folder of level " + std::to_string(level);
  mFiles.MakeFolders(deep);
  Put(deep + "\\x", "deep");
  EXPECT_EQ(mFiles.Read(deep + "/x"), "deep");
  mFiles.Remove(deep + "\\x");
  const std::string longest = deep + "\\" + std::string(255, 'n');
  Put(longest, "old");
  // Not by a replacement: with a path this long, every other call of wine's `ReplaceFileW` ends in a crash.
  const auto superseding = mFiles.Supersede(longest, longest);
  superseding->Write("new");
  superseding->Commit();
  EXPECT_EQ(mFiles.Read(longest), "new");
  EXPECT_EQ(mFiles.List(deep).size(), 1U);
}

DWORD WINAPI CodeOnThread(void* work) {
  return static_cast<DWORD>(CodeOf(*static_cast<std::function<void()>*>(work)));
}

TEST_F(NativeFilesTest, RefusesFoldersBelowAFileAtAnyDepth) {
  mFiles.MakeFolders(mFolder);
  Put(mFolder + "\\file", "x");
  EXPECT_EQ(CodeOf([&] { mFiles.MakeFolders(mFolder + "\\file"); }), EEXIST);
  std::string deep = mFolder + "\\file";
  while (deep.size() < 32'000) deep += "\\a";
  // On the small stack of some host's thread.
  std::function<void()> work = [&] { mFiles.MakeFolders(deep); };
  const HANDLE thread =
      ::CreateThread(nullptr, 256 << 10, &CodeOnThread, &work, STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
  ::WaitForSingleObject(thread, INFINITE);
  DWORD code = 0;
  ::GetExitCodeThread(thread, &code);
  ::CloseHandle(thread);
  EXPECT_EQ(code, DWORD{EEXIST});
}

TEST_F(NativeFilesTest, WritesPathsAsPeopleDo) {
  for (const auto& [path, written] : {std::pair("C:/a\\b", "C:\\a\\b"),
                                      {"\\\\?\\C:\\a", "C:\\a"},
                                      {"\\\\?\\unc\\srv\\share\\a", "\\\\srv\\share\\a"},
                                      {"//srv/share/a", "\\\\srv\\share\\a"}})
    EXPECT_EQ(mFiles.ProductPath(path), written);
  EXPECT_EQ(CodeOf([&] { mFiles.ProductPath(std::string("C:\\a\0b", 6)); }), ENOENT);
}

class NativeRegistryTest : public ::testing::Test {
 protected:
  using Kinds = RegistryChange::Kinds;
  static constexpr const char* kKey = "Software\\Corvantis\\Lexiwend4 Test";
  NativeRegistryTest() { Clear(); }
  ~NativeRegistryTest() override { Clear(); }
  void Clear() {
    for (const Hive hive : {Hive::CurrentUser, Hive::LocalMachine})
      mRegistry.Apply({{Kinds::DeletedKey, hive, kKey, {}, {}}});
  }
  Registry& mRegistry = Registry::Native();
};

TEST_F(NativeRegistryTest, KeepsValuesOfEveryType) {
  const std::vector<RegistryValue> values{
      {1, std::string("v\u00e4rt \u65e5")},      {1, std::string()},  {2, std::string("%PATH%")},
      {3, std::vector<std::uint8_t>{0, 1, 255}}, {4, 4'000'000'000U}, {11, std::vector<std::uint8_t>(8, 7)}};
  for (const Hive hive : {Hive::CurrentUser, Hive::LocalMachine}) {
    for (const RegistryValue& value : values) {
      mRegistry.Write(hive, std::string(kKey) + "\\Sub", "N\u00e4me", value);
      EXPECT_EQ(mRegistry.Read(hive, std::string(kKey) + "\\sub", "n\u00c4ME"), value);
    }
    EXPECT_EQ(mRegistry.Read(hive, kKey, "absent"), std::nullopt);
    EXPECT_EQ(mRegistry.Read(hive, std::string(kKey) + "\\absent", "x"), std::nullopt);
    const auto listed = mRegistry.List(hive, kKey);
    ASSERT_TRUE(listed);
    EXPECT_EQ(listed->Keys, std::vector<std::string>{"Sub"});
    mRegistry.Apply({{Kinds::DeletedValue, hive, std::string(kKey) + "\\Sub", "N\u00e4me", {}},
                     {Kinds::DeletedValue, hive, std::string(kKey) + "\\Sub", "absent", {}},
                     {Kinds::DeletedKey, hive, std::string(kKey) + "\\absent", {}, {}}});
    EXPECT_TRUE(mRegistry.List(hive, std::string(kKey) + "\\Sub")->Values.empty());
  }
}

TEST(NativeHost, PassesTheCommandLineAsItIs) {
  const std::string line = Narrow(::GetCommandLineW());
  const auto start = line.find("first \"two  words\"");
  ASSERT_NE(start, std::string::npos) << "run it with the arguments first \"two  words\"";
  EXPECT_EQ(Environment::Native().ProcessArguments(), std::vector{line.substr(start)});
}

TEST(NativeHost, ShowsMessagesInABoxWithTheirIcon) {
  ShowMessage({"Title", "A problem:\r\nGr\u00f6\u00dfe", MessageIcon::Critical});
  EXPECT_EQ(gShown, L"Title: A problem:\r\nGr\u00f6\u00dfe");
  EXPECT_EQ(gStyle & MB_ICONMASK, UINT{MB_ICONHAND});
}

TEST(NativeHost, KnowsItsSurroundings) {
  const std::string windows = Folders::Native().WindowsFolder();
  EXPECT_EQ(Files::Native().Kind(windows), EntryKind::Folder);
  EXPECT_FALSE(windows.ends_with('\\'));
  EXPECT_EQ(Files::Native().Kind(Folders::Native().ShellFolder(5)), EntryKind::Folder);
  EXPECT_EQ(Folders::Native().ShellFolder(9999), "");
  EXPECT_EQ(DecodeAs("\xe4", "Windows-1252"), "\u00e4");
  EXPECT_EQ(DecodeAs("+AOQ-", "cp65000"), "\u00e4");
  for (const char* none : {"klingon", "cp0", "cp1", "cp42"})
    EXPECT_EQ(DecodeAs("x", none), std::nullopt) << none;
}

}  // namespace
}  // namespace lwconfig::platform
