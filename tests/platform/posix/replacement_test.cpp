#include <csignal>
#include <filesystem>

#include <sys/resource.h>
#include <sys/stat.h>
#include <tests/platform/native_host.h>

namespace lwconfig::testing {
namespace {

constexpr const char* kTarget = "C:\\save\\Target.xml";

class ReplacementTest : public NativeHost {
 protected:
  ReplacementTest() { Folder.Write("drives/c/save/Target.xml", "old"); }

  std::string Content() const { return Folder.Read("drives/c/save/Target.xml"); }
  /// The number of entries of the target's folder, hidden ones included.
  auto Entries() const {
    return std::distance(std::filesystem::directory_iterator(Below("drives/c/save")), {});
  }
  /// Mode, owner and group of a file.
  std::tuple<mode_t, uid_t, gid_t> StatusOf(const std::string& relative) const {
    struct stat status {};
    EXPECT_EQ(::stat(Below(relative).c_str(), &status), 0);
    return {status.st_mode & 07777U, status.st_uid, status.st_gid};
  }
};

TEST_F(ReplacementTest, KeepsPermissionsAndLinks) {
  const std::string target = Below("drives/c/save/Target.xml");
  ::chmod(target.c_str(), 0640);
  static_cast<void>(::chown(target.c_str(), 12345, 12346));  // which only the superuser can
  const auto before = StatusOf("drives/c/save/Target.xml");
  std::filesystem::create_directory(Below("links"));
  std::filesystem::create_symlink("../drives/c/save/Target.xml", Below("links/inner"));
  std::filesystem::create_symlink(Below("links/inner"), Below("drives/c/outer"));
  Put("C:\\outer", "through two links");
  EXPECT_EQ(Content(), "through two links");
  EXPECT_TRUE(std::filesystem::is_symlink(Below("drives/c/outer")));
  EXPECT_TRUE(std::filesystem::is_symlink(Below("links/inner")));
  EXPECT_EQ(StatusOf("drives/c/save/Target.xml"), before);

  std::filesystem::create_symlink("save/New.xml", Below("drives/c/dangling"));
  const mode_t mask = ::umask(027);
  Put("C:\\dangling", "new");
  ::umask(mask);
  EXPECT_EQ(Folder.Read("drives/c/save/New.xml"), "new");
  EXPECT_EQ(std::get<0>(StatusOf("drives/c/save/New.xml")), 0640U);
  std::filesystem::create_symlink("circle", Below("drives/c/circle"));
  EXPECT_EQ(FailureOf([&] { Files.Replace("C:\\circle"); }), ELOOP);
  EXPECT_EQ(FailureOf([&] { Files.Replace("/dev/null"); }), EACCES);
}

TEST_F(ReplacementTest, ANewFileTakesThePlaceOfALinkItself) {
  ::chmod(Below("drives/c/save/Target.xml").c_str(), 0640);
  Folder.Write("foreign", "foreign");
  const std::string name = Below("drives/c/save/copy");
  const auto write = [&] {
    const auto copy = Files.Supersede("C:\\save\\Copy", kTarget);
    copy->Write("copied");
    copy->Commit();
  };
  std::filesystem::create_symlink(Below("foreign"), name);
  for (int i = 0; i < 2; ++i) {
    write();
    EXPECT_EQ(Folder.Read("foreign"), "foreign");
    EXPECT_FALSE(std::filesystem::is_symlink(name));
    EXPECT_EQ(Folder.Read("drives/c/save/copy"), "copied");
    EXPECT_EQ(StatusOf("drives/c/save/copy"), StatusOf("drives/c/save/Target.xml"));
    ::chmod(name.c_str(), 0400);
  }
  EXPECT_EQ(FailureOf([&] { Files.Supersede("C:\\save", kTarget); }), EISDIR);
}

TEST_F(ReplacementTest, IsRefusedWhileAnotherIsUnderWay) {
  std::filesystem::create_symlink("save/Target.xml", Below("drives/c/link"));
  auto first = Files.Replace(kTarget);
  EXPECT_EQ(FailureOf([&] { Files.Replace("C:\\link"); }), EBUSY);
  EXPECT_EQ(ExitStatus(StartProcess([&] { return FailureOf([&] { Files.Replace(kTarget); }); })), EBUSY);
  Files.Replace("C:\\save\\Other.xml");
  first->Write("first");
  first->Commit();
  Put("C:\\link", "second");
  EXPECT_EQ(Content(), "second");
}

TEST_F(ReplacementTest, TakesOverWhatADeadProcessLeft) {
  const auto die = [&] {
    const auto replacement = Files.Replace(kTarget);
    replacement->Write("a content that is much longer than the next one");
    ::_exit(0);
    return 0;
  };
  for (int i = 0; i < 2; ++i) ASSERT_EQ(ExitStatus(StartProcess(die)), 0);
  EXPECT_EQ(Entries(), 2);
  Put(kTarget, "new");
  EXPECT_EQ(Content(), "new");
  EXPECT_EQ(Entries(), 1);

  // What stands under the name of the temporary and is somebody else's is not emptied.
  Folder.Write("precious", "precious");
  std::filesystem::create_hard_link(Below("precious"), Below("drives/c/save/.Target.xml.lwtmp"));
  EXPECT_EQ(FailureOf([&] { Files.Replace(kTarget); }), EEXIST);
  EXPECT_EQ(Folder.Read("precious"), "precious");
}

TEST_F(ReplacementTest, IsRefusedWhereThereIsNoPermission) {
  std::filesystem::permissions(Folder.Path(), std::filesystem::perms(0755));
  const std::string folder = Below("drives/c/save");
  using Row = std::tuple<mode_t, mode_t, int>;
  // A temporary that may be written is no way around a folder that may not.
  Folder.Write("drives/c/save/.Target.xml.lwtmp", "");
  ::chmod((folder + "/.Target.xml.lwtmp").c_str(), 0666);
  for (const auto& [folderMode, fileMode, failure] :
       {Row{0777, 0444, EACCES}, Row{0555, 0666, EACCES}, Row{0777, 0666, 0}}) {
    ::chmod(folder.c_str(), folderMode);
    ::chmod((folder + "/Target.xml").c_str(), fileMode);
    EXPECT_EQ(FailureAsNobody([&] { Files.Replace(kTarget); }), failure) << folderMode << ' ' << fileMode;
  }
}

TEST_F(ReplacementTest, LeavesTheOldFileWhenTheDiskIsFull) {
  const auto saveOnFullDisk = [&] {
    ::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{4096, 4096};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    const auto replacement = Files.Replace(kTarget);
    const int written = FailureOf([&] { replacement->Write(std::string(10'000, 'x')); });
    const int goneOn = FailureOf([&] { replacement->Write("x"); });
    const int committed = FailureOf([&] { replacement->Commit(); });
    return written == EFBIG && goneOn != 0 && committed != 0 ? 0 : 1;
  };
  EXPECT_EQ(ExitStatus(StartProcess([&] { return saveOnFullDisk(); })), 0);
  EXPECT_EQ(Content(), "old");
  EXPECT_EQ(Entries(), 1);
}

TEST_F(ReplacementTest, SurvivesKillsAtAnyMoment) {
  const std::string contents[] = {std::string(600'000, 'a'), std::string(900'000, 'b')};
  Put(kTarget, contents[0]);
  const auto saveForEver = [&]() -> int {
    for (int i = 0;; ++i) Put(kTarget, contents[i % 2]);
  };
  for (useconds_t round = 0; round < 100; ++round) {
    const pid_t process = StartProcess(saveForEver);
    ::usleep(50 * round);
    ::kill(process, SIGKILL);
    ASSERT_EQ(ExitStatus(process), -1);
    const std::string content = Content();
    ASSERT_TRUE(content == contents[0] || content == contents[1])
        << "round " << round << ": " << content.size();
    ASSERT_LE(Entries(), 2);
  }
  Put(kTarget, "after all");
  EXPECT_EQ(Content(), "after all");
  EXPECT_EQ(Entries(), 1);
}

}  // namespace
}  // namespace lwconfig::testing
