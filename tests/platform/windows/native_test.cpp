#include <functional>

#include <gtest/gtest.h>
#include <tests/platform/native_host.h>

#include <lwconfig/platform/folders.h>
#include <lwconfig/platform/host.h>
#include <lwconfig/platform/message_box.h>
#include <lwconfig/platform/windows/system.h>

namespace lwconfig::testing {
namespace {

using namespace platform;

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

class WindowsFiles : public NativeHost {};

TEST_F(WindowsFiles, ThatOthersHoldOrMayNotBeWrittenStayAsTheyAre) {
  const std::string path = At("held.txt");
  Put(path, "one");
  {
    const Handle reader(::CreateFileW(Wide(path).c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                      nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(reader.IsOpen());
    EXPECT_EQ(FailureOf([&] { Put(path, "two"); }), EBUSY);
  }
  EXPECT_EQ(Files.Read(path), "one");
  EXPECT_EQ(Names(At("")), "held.txt ");

  ::SetFileAttributesW(Wide(path).c_str(), FILE_ATTRIBUTE_READONLY);
  EXPECT_EQ(FailureOf([&] { Files.Replace(path); }), EACCES);
  const auto superseding = Files.Supersede(path, path);
  superseding->Write("new");
  superseding->Commit();
  EXPECT_EQ(Files.Read(path), "new");
  Files.Remove(path);
  EXPECT_EQ(Files.Kind(path), EntryKind::Missing);
}

TEST_F(WindowsFiles, AreListedAlsoWhereHiddenButNotWhereUnfinished) {
  Files.MakeFolders(At(".NET"));
  for (const char* name : {"shown", "hidden", ".shown.lwtmp"}) Put(At(name), "x");
  ::SetFileAttributesW(Wide(At("hidden")).c_str(), FILE_ATTRIBUTE_HIDDEN);
  EXPECT_EQ(Names(At("")), ".NET\\ hidden? shown ");
}

TEST_F(WindowsFiles, AreTakenForNoOtherOnes) {
  Put(At("FAQ1.xml"), "years of work");
  for (const char* name : {"FAQ?.xml", "*", "FAQ<", "FAQ1.xml\"", "FAQ*.xml", "FAQ1.xml:other"}) {
    const std::string path = At(name);
    EXPECT_EQ(FailureOf([&] { Put(path, "lost"); }), EINVAL) << name;
    EXPECT_EQ(FailureOf([&] { Files.Supersede(path, At("FAQ1.xml")); }), EINVAL) << name;
    EXPECT_EQ(FailureOf([&] { Files.Read(path); }), ENOENT) << name;
    EXPECT_EQ(FailureOf([&] { Files.Remove(path); }), ENOENT) << name;
  }
  EXPECT_EQ(Files.Read(At("FAQ1.xml")), "years of work");
  EXPECT_EQ(Names(At("")), "FAQ1.xml ");
  EXPECT_EQ(Files.Kind(At("a<b>")), EntryKind::Missing);
  // More than any path can have.
  const std::string endless = At(std::string(70'000, 'x'));
  EXPECT_EQ(FailureOf([&] { Files.List(endless); }), ENAMETOOLONG);
  EXPECT_EQ(FailureOf([&] { Files.Replace(endless); }), ENAMETOOLONG);
  EXPECT_EQ(Files.Kind(endless), EntryKind::Missing);
}

DWORD WINAPI CodeOnThread(void* work) {
  return static_cast<DWORD>(FailureOf(*static_cast<std::function<void()>*>(work)));
}

TEST_F(WindowsFiles, HoldNoFoldersAtAnyDepth) {
  Put(At("file"), "x");
  EXPECT_EQ(FailureOf([&] { Files.MakeFolders(At("file")); }), EEXIST);
  std::string deep = At("file");
  while (deep.size() < 31'900) deep += "\\a";
  // On the small stack of some host's thread.
  std::function<void()> work = [&] { Files.MakeFolders(deep); };
  const HANDLE thread =
      ::CreateThread(nullptr, 256 << 10, &CodeOnThread, &work, STACK_SIZE_PARAM_IS_A_RESERVATION, nullptr);
  ::WaitForSingleObject(thread, INFINITE);
  DWORD code = 0;
  ::GetExitCodeThread(thread, &code);
  ::CloseHandle(thread);
  EXPECT_EQ(code, DWORD{EEXIST});
}

TEST_F(WindowsFiles, HavePathsAsPeopleWriteThem) {
  for (const auto& [path, written] : {std::pair("C:/a\\b", "C:\\a\\b"),
                                      {"\\\\?\\C:\\a", "C:\\a"},
                                      {"\\\\?\\unc\\srv\\share\\a", "\\\\srv\\share\\a"},
                                      {"//srv/share/a", "\\\\srv\\share\\a"}})
    EXPECT_EQ(Files.ProductPath(path), written);
  EXPECT_EQ(FailureOf([&] { Files.ProductPath(std::string("C:\\a\0b", 6)); }), ENOENT);
}

TEST(WindowsHost, PassesTheCommandLineAsItIs) {
  const std::string line = Narrow(::GetCommandLineW());
  const auto start = line.find("first \"two  words\"");
  ASSERT_NE(start, std::string::npos) << "run it with the arguments first \"two  words\"";
  EXPECT_EQ(Environment::Native().ProcessArguments(), std::vector{line.substr(start)});
}

TEST(WindowsHost, ShowsMessagesInABoxWithTheirIcon) {
  ShowMessage({"Title", "A problem:\r\nGr\u00f6\u00dfe", MessageIcon::Critical});
  EXPECT_EQ(gShown, L"Title: A problem:\r\nGr\u00f6\u00dfe");
  EXPECT_EQ(gStyle & MB_ICONMASK, UINT{MB_ICONHAND});
}

TEST(WindowsHost, KnowsItsSurroundings) {
  const std::string windows = Folders::Native().WindowsFolder();
  for (const std::string& folder : {windows, Folders::Native().ShellFolder(5)})
    EXPECT_EQ(Files::Native().Kind(folder), EntryKind::Folder);
  EXPECT_FALSE(windows.ends_with('\\'));
  EXPECT_EQ(Folders::Native().ShellFolder(9999), "");
  EXPECT_EQ(DecodeAs("\xe4", "Windows-1252"), "\u00e4");
  EXPECT_EQ(DecodeAs("+AOQ-", "cp65000"), "\u00e4");
  for (const char* none : {"klingon", "cp0", "cp1", "cp42"})
    EXPECT_EQ(DecodeAs("x", none), std::nullopt) << none;
}

}  // namespace
}  // namespace lwconfig::testing
