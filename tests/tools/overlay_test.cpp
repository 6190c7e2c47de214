#include <functional>

#include <tests/configuration.h>
#include <tools/lwconfig/overlay/difference.h>
#include <tools/lwconfig/overlay/overlay.h>

#include <lwconfig/core/files/disk_file.h>
#include <lwconfig/core/files/registry_access.h>

namespace lwconfig::testing {
namespace {

using ::testing::ElementsAre;

TEST(UnifiedDifference, ShowsChangesWithTheirSurroundings) {
  const std::tuple<const char*, const char*, const char*> kRows[] = {
      {"a\n", "a\n", ""},
      {"", "a\nb\n", "@@ -0,0 +1,2 @@\n+a\n+b\n"},
      {"a\n", "", "@@ -1 +0,0 @@\n-a\n"},
      {"a", "b\n", "@@ -1 +1 @@\n-a\n\\ No newline at end of file\n+b\n"},
      {"1\n2\n3\n4\n5\n6\n7\n8\n9\n", "1\n2\n3\n4\nx\n6\n7\n8\n9\n",
       "@@ -2,7 +2,7 @@\n 2\n 3\n 4\n-5\n+x\n 6\n 7\n 8\n"},
      {"a\n1\n2\n3\n4\n5\n6\n7\nb\n", "1\n2\n3\n4\n5\n6\n7\nb\nc\n",
       "@@ -1,4 +1,3 @@\n-a\n 1\n 2\n 3\n@@ -7,3 +6,4 @@\n 6\n 7\n b\n+c\n"},
  };
  for (const auto& [before, after, difference] : kRows)
    EXPECT_EQ(tool::UnifiedDifference(before, after), difference);
}

class OverlayTest : public ConfigurationTest {
 protected:
  OverlayTest() {
    Write("a.txt", "old a");
    Write("b.txt", "old b");
    Write("gone.txt", "old");
  }
  DiskFile File(const char* name) { return DiskFile(ConfigFolder() + "\\" + name); }
  void Store(DiskFile file, const char* text) {
    file.Open(DiskFile::kCreateOrTruncate, DiskFile::kWrite);
    file.Write(text);
    file.Close();
  }
  /// Changes two files, makes one, removes one and sets a value.
  void ChangeAll() {
    Store(File("A.TXT"), "new a");
    Store(File("b.txt"), "new b");
    DiskFile made = File("made\\c.txt");
    made.CreateFolder();
    Store(made, "new c");
    File("gone.txt").Delete();
    RegistryAccess().SetValue(kCurrentUser, "Software\\X", "v", std::string("new"),
                              RegistryAccess::kTextType);
  }
};

TEST_F(OverlayTest, ReadsSeeWhatWasWrittenAndTheDiskDoesNot) {
  tool::Overlay overlay;
  EXPECT_TRUE(overlay.IsEmpty());
  ChangeAll();
  EXPECT_EQ(File("a.txt").ReadAll(), "new a");
  EXPECT_EQ(File("made\\C.txt").ReadAll(), "new c");
  EXPECT_FALSE(File("gone.txt").Exists());
  EXPECT_EQ(RegistryAccess().GetText(kCurrentUser, "software\\x", "V"), "new");
  std::vector<std::string> names;
  for (const auto& entry : ListFolder(ConfigFolder())) names.push_back(entry.Name);
  EXPECT_THAT(names, ElementsAre("a.txt", "b.txt", "made", "Namespaces", "Templates"));
  EXPECT_EQ(ListFolder(ConfigFolder() + "\\made").size(), 1u);
  EXPECT_EQ(Read("a.txt"), "old a");
  EXPECT_EQ(Read("gone.txt"), "old");
  EXPECT_FALSE(Exists("made"));
  Store(File("b.txt"), "old b");
  EXPECT_EQ(overlay.Names().size(), 4u);

  overlay.WriteOut();
  EXPECT_EQ(Read("a.txt"), "new a");
  EXPECT_EQ(Read("made/c.txt"), "new c");
  EXPECT_FALSE(Exists("gone.txt"));
}

TEST_F(OverlayTest, AFailurePutsBackWhatWasWritten) {
  using Operation = FileOperation;
  const auto failRegistry = [this] {
    Registry.Fault = [] { throw std::system_error(EACCES, std::generic_category()); };
  };
  const auto failFile = [this](Operation operation, const char* path) {
    return [this, operation, path] { Files.Fail(operation, path, ENOSPC); };
  };
  const std::function<void()> kFaults[] = {failFile(Operation::MakeFolders, "made\\"),
                                           failFile(Operation::Replace, "b.txt"),
                                           failFile(Operation::Write, "b.txt"),
                                           failFile(Operation::Commit, "b.txt"),
                                           failFile(Operation::Commit, "c.txt"),
                                           failFile(Operation::Read, "b.txt"),
                                           failRegistry};
  for (const auto& fail : kFaults) {
    tool::Overlay overlay;
    ChangeAll();
    fail();
    EXPECT_THROW(overlay.WriteOut(), Error);
    Files.Heal();
    Registry.Fault = nullptr;
    EXPECT_EQ(Read("a.txt"), "old a");
    EXPECT_EQ(Read("b.txt"), "old b");
    EXPECT_EQ(Read("gone.txt"), "old");
    EXPECT_FALSE(Exists("made/c.txt"));
  }
  tool::Overlay overlay;
  ChangeAll();
  Write("b.txt", "somebody else's");
  EXPECT_THROW(overlay.WriteOut(), Error);
  EXPECT_EQ(Read("a.txt"), "old a");
  EXPECT_EQ(Read("b.txt"), "somebody else's");
}

}  // namespace
}  // namespace lwconfig::testing
