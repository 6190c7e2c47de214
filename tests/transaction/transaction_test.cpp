#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <tests/configuration.h>

#include <lwconfig/core/files/disk_file.h>
#include <lwconfig/core/files/registry_access.h>
#include <lwconfig/transaction/difference.h>
#include <lwconfig/transaction/transaction.h>

namespace lwconfig::testing {
namespace {

using ::testing::ElementsAre;

class TransactionTest : public ConfigurationTest {
 protected:
  TransactionTest() {
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

TEST_F(TransactionTest, ReadsSeeWhatWasWrittenAndTheDiskDoesNot) {
  Transaction transaction;
  EXPECT_TRUE(transaction.IsEmpty());
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
  EXPECT_EQ(transaction.FileChanges().size(), 3u);
  EXPECT_EQ(transaction.ValueChanges().size(), 1u);

  transaction.Commit();
  EXPECT_EQ(Read("a.txt"), "new a");
  EXPECT_EQ(Read("made/c.txt"), "new c");
  EXPECT_FALSE(Exists("gone.txt"));
}

TEST_F(TransactionTest, AFailurePutsBackWhatWasWritten) {
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
    Transaction transaction;
    ChangeAll();
    fail();
    EXPECT_THROW(transaction.Commit(), Error);
    Files.Heal();
    Registry.Fault = nullptr;
    EXPECT_EQ(Read("a.txt"), "old a");
    EXPECT_EQ(Read("b.txt"), "old b");
    EXPECT_EQ(Read("gone.txt"), "old");
    EXPECT_FALSE(Exists("made/c.txt"));
  }
  Transaction transaction;
  ChangeAll();
  Write("b.txt", "somebody else's");
  EXPECT_THROW(transaction.Commit(), Error);
  EXPECT_EQ(Read("a.txt"), "old a");
  EXPECT_EQ(Read("b.txt"), "somebody else's");
}

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
      {"a\n1\n2\n3\n4\n5\n6\nb\n", "x\n1\n2\n3\n4\n5\n6\ny\n",
       "@@ -1,8 +1,8 @@\n-a\n+x\n 1\n 2\n 3\n 4\n 5\n 6\n-b\n+y\n"},
  };
  for (const auto& [before, after, difference] : kRows)
    EXPECT_EQ(UnifiedDifference(before, after), difference);
}

TEST_F(TransactionTest, RefusesAStateThatItDidNotRead) {
  const std::function<void()> kForeign[] = {
      [this] { Write("a.txt", "foreign"); },
      [this] { std::filesystem::remove(Folder.Path() / "Config/a.txt"); },
  };
  for (const auto& change : kForeign) {
    Write("a.txt", "old a");
    Transaction transaction;
    EXPECT_EQ(File("a.txt").ReadAll(), "old a");
    change();
    Store(File("a.txt"), "new a");
    Store(File("b.txt"), "new b");
    EXPECT_EQ(ErrorOf([&] { transaction.Commit(); }).Number(), kPermissionDenied);
    EXPECT_EQ(Read("b.txt"), "old b");
    EXPECT_TRUE(transaction.IsOpen());
  }
  RegistryAccess access;
  const auto set = [&](const char* text) {
    access.SetValue(kCurrentUser, "K", "v", std::string(text), RegistryAccess::kTextType);
  };
  {
    Write("Small.txt", "small");
    Write("SMALL.txt", "capitals");
    Transaction transaction;
    Store(File("Small.txt"), "new small");
    Store(File("SMALL.txt"), "new capitals");
    access.CreateKey(kCurrentUser, "Created");
    EXPECT_THAT(transaction.Difference(), ::testing::HasSubstr("+[HKEY_CURRENT_USER\\Created]"));
    transaction.Commit();
    EXPECT_EQ(Read("Small.txt"), platform::kNamesAreExact ? "new small" : "new capitals");
    EXPECT_EQ(Read("SMALL.txt"), "new capitals");
  }
  Transaction outer;
  Transaction inner;
  set("new");
  EXPECT_EQ(ErrorOf([&] { outer.Commit(); }).Number(), kInvalidCall) << "an inner one is open";
  inner.RollBack();
  EXPECT_EQ(access.GetText(kCurrentUser, "K", "v"), "");
  EXPECT_EQ(ErrorOf([&] { inner.Commit(); }).Number(), kInvalidCall) << "it is closed";
  set("outer");
  Registry.Apply({{RegistryChange::Kinds::Value, Hive::CurrentUser, "K", "v", {1, "foreign"}}});
  EXPECT_EQ(ErrorOf([&] { outer.Commit(); }).Number(), kPermissionDenied);
}

}  // namespace
}  // namespace lwconfig::testing
