#include <gtest/gtest.h>
#include <tests/platform/native_host.h>

#include <lwconfig/platform/registry.h>

namespace lwconfig::testing {
namespace {

using namespace platform;
using Bytes = std::vector<std::uint8_t>;

class NativeTest : public NativeHost {};

TEST_F(NativeTest, PutsContentInPlaceInOneStep) {
  const std::string folder = At("Ünïcode 日本");
  Files.MakeFolders(folder + "/b");
  const std::string path = folder + "\\b\\X.txt";
  for (const auto& [spelling, content] :
       {std::pair(path, "a longer content"), {folder + "/b/x.TXT", "two"}, {path, ""}}) {
    Put(spelling, content);
    EXPECT_EQ(Files.Read(path), content);
  }
  {
    const auto abandoned = Files.Replace(path);
    EXPECT_EQ(FailureOf([&] { Files.Replace(path); }), EBUSY);
    for (const char* part : {"never ", "seen"}) abandoned->Write(part);
    EXPECT_EQ(Names(folder + "\\b"), "X.txt ");
  }
  EXPECT_EQ(Files.Read(path), "");
  Files.Remove(path);
  EXPECT_EQ(Names(folder + "\\b"), "");
}

TEST_F(NativeTest, TellsWhatIsNotThere) {
  Put(At("file"), "x");
  EXPECT_EQ(FailureOf([&] { Files.Read(At("absent")); }), ENOENT);
  EXPECT_EQ(FailureOf([&] { Files.Read(""); }), ENOENT);
  EXPECT_NE(FailureOf([&] { Files.Read(At("")); }), 0);
  EXPECT_EQ(FailureOf([&] { Files.List(At("absent")); }), ENOENT);
  EXPECT_EQ(FailureOf([&] { Files.Remove(At("absent")); }), ENOENT);
  EXPECT_EQ(FailureOf([&] { Files.Replace(At("absent\\x")); }), ENOENT);
  EXPECT_EQ(FailureOf([&] { Files.Replace(At("")); }), EISDIR);
  EXPECT_NE(FailureOf([&] { Files.MakeFolders(At("file\\below")); }), 0);
  for (const std::string& missing : {std::string(), At("absent"), At("file\\x"), At(std::string("a\0b", 3))})
    EXPECT_EQ(Files.Kind(missing), EntryKind::Missing) << missing;
}

TEST_F(NativeTest, TakesLongPaths) {
  std::string deep = At("deep");
  for (int level = 0; level < 40; ++level) deep += "\\a folder of level " + std::to_string(level);
  Files.MakeFolders(deep);
  const std::string longest = deep + "\\" + std::string(255, 'n');
  Put(longest, "old");
  // Not by a replacement: with a path this long, every other call of wine's `ReplaceFileW` crashes.
  const auto superseding = Files.Supersede(longest, longest);
  superseding->Write("new");
  superseding->Commit();
  EXPECT_EQ(Files.Read(longest), "new");
  EXPECT_EQ(Files.List(deep).size(), 1U);
}

TEST_F(NativeTest, KeepsValuesOfEveryType) {
  using Kinds = RegistryChange::Kinds;
  Registry& registry = Registry::Native();
  const std::string key = "Software\\Corvantis\\Lexiwend4 Test";
  const RegistryValue values[] = {{1, std::string()},
                                  {1, std::string("a \"quoted\"\\path\\\r\nand [another] line ä 日\n")},
                                  {2, std::string("%TEMP%\\ä")},
                                  {3, Bytes{}},
                                  {3, Bytes(100, 0xab)},
                                  {4, 0xfffffffeU},
                                  {7, Bytes{'a', 0, 0, 0, 0, 0}},
                                  {11, Bytes{1, 2, 3, 4, 5, 6, 7, 8}}};
  for (const Hive hive : {Hive::CurrentUser, Hive::LocalMachine}) {
    registry.Apply({{Kinds::DeletedKey, hive, key, {}, {}}});
    for (const RegistryValue& value : values) {
      for (const std::string name : {"", "Näme", "\"odd\\\n]="}) {
        registry.Write(hive, key + "\\Sub", name, value);
        EXPECT_EQ(registry.Read(hive, key + "\\sub", name == "Näme" ? "nÄME" : name), value);
      }
    }
    EXPECT_EQ(registry.Read(hive, key + "\\Sub", "absent"), std::nullopt);
    EXPECT_EQ(registry.Read(hive, key + "\\absent", "x"), std::nullopt);
    EXPECT_EQ(registry.List(hive, key).value().Keys, std::vector<std::string>{"Sub"});
    registry.Apply({{Kinds::DeletedValue, hive, key + "\\Sub", "Näme", {}},
                    {Kinds::DeletedValue, hive, key + "\\Sub", "absent", {}},
                    {Kinds::DeletedKey, hive, key + "\\absent", {}, {}}});
    EXPECT_EQ(registry.List(hive, key + "\\Sub").value().Values.size(), 2U);
    registry.Apply({{Kinds::DeletedKey, hive, key, {}, {}}});
    EXPECT_EQ(registry.List(hive, key), std::nullopt);
  }
}

}  // namespace
}  // namespace lwconfig::testing
