#include <csignal>
#include <filesystem>
#include <random>

#include <sys/resource.h>
#include <sys/stat.h>
#include <tests/platform/posix/private_host.h>

#include <lwconfig/platform/files.h>

namespace lwconfig::platform {
namespace {

using namespace std::string_literals;
using lwconfig::testing::ExitStatus;
using lwconfig::testing::FailureAsNobody;
using lwconfig::testing::FailureOf;
using lwconfig::testing::StartProcess;

constexpr const char* kTarget = "C:\\save\\Target.xml";

class ReplacementTest : public lwconfig::testing::PrivateHost {
 protected:
  ReplacementTest() { Folder.Write("drives/c/save/Target.xml", "old"); }

  void Save(const std::string& path, std::string_view content) {
    const auto replacement = Host.Replace(path);
    replacement->Write(content);
    replacement->Commit();
  }
  std::string Content() const { return Folder.Read("drives/c/save/Target.xml"); }
  /// The number of entries of the target's folder, hidden ones included.
  auto Entries() const {
    return std::distance(std::filesystem::directory_iterator(Below("drives/c/save")), {});
  }
  struct stat StatusOf(const std::string& relative) const {
    struct stat status {};
    EXPECT_EQ(::stat(Below(relative).c_str(), &status), 0);
    return status;
  }
  auto ModeOf(const std::string& relative) const { return StatusOf(relative).st_mode & 07777U; }

  Files& Host = Files::Native();
};

TEST_F(ReplacementTest, PutsContentInPlaceOnlyOnCommit) {
  {
    const auto replacement = Host.Replace(kTarget);
    replacement->Write("never ");
    replacement->Write("seen");
    EXPECT_EQ(Host.List("C:\\save").size(), 1U);
  }
  EXPECT_EQ(Content(), "old");
  const auto replacement = Host.Replace("c:/SAVE/target.XML");
  replacement->Write("first ");
  replacement->Write("second");
  EXPECT_EQ(Content(), "old");
  replacement->Commit();
  EXPECT_EQ(Content(), "first second");
  EXPECT_EQ(Entries(), 1);
  for (const auto& [name, content] : {std::pair("empty.xml"s, ""), {std::string(255, 'n'), "long"}}) {
    Save("C:\\save\\" + name, content);
    EXPECT_EQ(Folder.Read("drives/c/save/" + name), content);
  }
  EXPECT_EQ(Entries(), 3);

  EXPECT_EQ(FailureOf([&] { Host.Replace("C:\\save"); }), EISDIR);
  EXPECT_EQ(FailureOf([&] { Host.Replace("C:\\none\\x.xml"); }), ENOENT);
  EXPECT_EQ(FailureOf([&] { Host.Replace("/dev/null"); }), EACCES);
}

TEST_F(ReplacementTest, KeepsPermissionsAndLinks) {
  const std::string target = Below("drives/c/save/Target.xml");
  ASSERT_EQ(::chmod(target.c_str(), 0640), 0);
  const bool isOther = ::chown(target.c_str(), 12345, 12346) == 0;
  std::filesystem::create_directory(Below("links"));
  std::filesystem::create_symlink("../drives/c/save/Target.xml", Below("links/inner"));
  std::filesystem::create_symlink(Below("links/inner"), Below("drives/c/outer"));
  Save("C:\\outer", "through two links");
  EXPECT_EQ(Content(), "through two links");
  EXPECT_TRUE(std::filesystem::is_symlink(Below("drives/c/outer")));
  EXPECT_TRUE(std::filesystem::is_symlink(Below("links/inner")));
  const auto status = StatusOf("drives/c/save/Target.xml");
  EXPECT_EQ(status.st_mode & 07777U, 0640U);
  EXPECT_TRUE(!isOther || (status.st_uid == 12345U && status.st_gid == 12346U));

  std::filesystem::create_symlink("save/New.xml", Below("drives/c/dangling"));
  const mode_t mask = ::umask(027);
  Save("C:\\dangling", "new");
  ::umask(mask);
  EXPECT_EQ(Folder.Read("drives/c/save/New.xml"), "new");
  EXPECT_EQ(ModeOf("drives/c/save/New.xml"), 0640U);

  std::filesystem::create_symlink("circle", Below("drives/c/circle"));
  EXPECT_EQ(FailureOf([&] { Host.Replace("C:\\circle"); }), ELOOP);
}

TEST_F(ReplacementTest, ANewFileTakesThePlaceOfALinkItself) {
  ASSERT_EQ(::chmod(Below("drives/c/save/Target.xml").c_str(), 0640), 0);
  Folder.Write("foreign", "foreign");
  const std::string name = Below("drives/c/save/copy");
  const auto write = [&] {
    const auto copy = Host.Supersede("C:\\save\\Copy", kTarget);
    copy->Write("copied");
    copy->Commit();
  };
  std::filesystem::create_symlink(Below("foreign"), name);
  write();
  EXPECT_EQ(Folder.Read("foreign"), "foreign");
  EXPECT_FALSE(std::filesystem::is_symlink(name));
  EXPECT_EQ(ModeOf("drives/c/save/copy"), 0640U);
  ASSERT_EQ(::chmod(name.c_str(), 0400), 0);
  write();
  EXPECT_EQ(Folder.Read("drives/c/save/copy"), "copied");
  EXPECT_EQ(ModeOf("drives/c/save/copy"), 0640U);
  EXPECT_EQ(FailureOf([&] { Host.Supersede("C:\\save", kTarget); }), EISDIR);
}

TEST_F(ReplacementTest, IsRefusedWhileAnotherIsUnderWay) {
  std::filesystem::create_symlink("save/Target.xml", Below("drives/c/link"));
  auto first = Host.Replace(kTarget);
  EXPECT_EQ(FailureOf([&] { Host.Replace("C:\\link"); }), EBUSY);
  EXPECT_EQ(ExitStatus(StartProcess([&] { return FailureOf([&] { Host.Replace(kTarget); }); })), EBUSY);
  Host.Replace("C:\\save\\Other.xml");
  first->Write("first");
  first->Commit();
  Save("C:\\link", "second");
  EXPECT_EQ(Content(), "second");
}

TEST_F(ReplacementTest, TakesOverWhatADeadProcessLeft) {
  const auto die = [&] {
    const auto replacement = Host.Replace(kTarget);
    replacement->Write("a content that is much longer than the next one");
    ::_exit(0);
    return 0;
  };
  ASSERT_EQ(ExitStatus(StartProcess(die)), 0);
  ASSERT_EQ(ExitStatus(StartProcess(die)), 0);
  EXPECT_EQ(Entries(), 2);
  Save(kTarget, "new");
  EXPECT_EQ(Content(), "new");
  EXPECT_EQ(Entries(), 1);

  // What stands under the name of the temporary and is somebody else's is not emptied.
  Folder.Write("precious", "precious");
  std::filesystem::create_hard_link(Below("precious"), Below("drives/c/save/.Target.xml.lwtmp"));
  EXPECT_EQ(FailureOf([&] { Host.Replace(kTarget); }), EEXIST);
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
    EXPECT_EQ(FailureAsNobody([&] { Host.Replace(kTarget); }), failure)
        << std::oct << folderMode << ' ' << fileMode;
  }
}

TEST_F(ReplacementTest, LeavesTheOldFileWhenTheDiskIsFull) {
  const auto saveOnFullDisk = [&] {
    ::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{4096, 4096};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    const auto replacement = Host.Replace(kTarget);
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
  const std::string contents[] = {std::string(60'000, 'a'), std::string(90'000, 'b')};
  Save(kTarget, contents[0]);
  const auto saveForEver = [&]() -> int {
    for (int i = 0;; ++i) {
      const std::string& content = contents[i % 2];
      const auto replacement = Host.Replace(kTarget);
      for (std::size_t at = 0; at < content.size(); at += 5000) replacement->Write(content.substr(at, 5000));
      replacement->Commit();
    }
  };
  std::mt19937 random(20);  // the same moments in every run, as far as the scheduler lets them be
  std::uniform_int_distribution<useconds_t> moment(0, 5000);
  for (int round = 0; round < 100; ++round) {
    const pid_t process = StartProcess(saveForEver);
    ::usleep(moment(random));
    ::kill(process, SIGKILL);
    ASSERT_EQ(ExitStatus(process), -1);
    const std::string content = Content();
    ASSERT_TRUE(content == contents[0] || content == contents[1])
        << "round " << round << ": " << content.size();
    ASSERT_LE(Entries(), 2);
  }
  Save(kTarget, "after all");
  EXPECT_EQ(Content(), "after all");
  EXPECT_EQ(Entries(), 1);
}

}  // namespace
}  // namespace lwconfig::platform
