#include <tests/configuration.h>

#include <lwconfig/comments/model_comment_profiles.h>
#include <lwconfig/namespaces/namespace_profiles.h>

namespace lwconfig {
namespace {

using testing::Each;
using ::testing::ElementsAre;
using testing::ErrorOf;
using testing::FileOperation;
using testing::Normal;
using testing::Parse;
using testing::Saved;

std::string Comment(const std::string& member, const std::string& more = {}) {
  return "<MC MemberType_Namespace='LW:Method' MemberName='" + member +
         "' TaggedCommentPrefix='##D' TaggedCommentText='t' " + more + "/>";
}
std::string Profile(const std::string& name, const std::string& inside = {}) {
  return "<ModelCommentProfile Version='4.0' Namespace='LW.Core' Name='" + name + "' Description='d'>" +
         inside + "</ModelCommentProfile>";
}

TEST(ModelComment, DerivesTheNamespaceFromTheKindOfMember) {
  const std::string derived[] = {
      "", "Method", "Property", "Event", "Enumeration", "Structure", "ImplementedInterface", "Module", ""};
  for (std::size_t type = 0; type < std::size(derived); ++type) {
    ModelComment comment;
    comment.MemberType_Namespace = "old";
    comment.SetMemberType(static_cast<std::int32_t>(type));
    EXPECT_EQ(comment.MemberType(), static_cast<std::int32_t>(type));
    EXPECT_EQ(comment.MemberType_Namespace, derived[type].empty() ? "old" : "LW:" + derived[type]);
  }
  ModelComment older;
  older.Load(Parse("<MC MemberType='1.2x' MemberName='m' TaggedCommentPrefix='p' TaggedCommentText='t'/>"));
  EXPECT_EQ(older.MemberType_Namespace, "LW:Method");
  older.MemberType_Namespace = "LW:Own";
  older.Tag = 7;
  const auto copy = older.Clone();
  EXPECT_EQ(copy->MemberType(), mtMethod);
  EXPECT_EQ(copy->Tag, Variant());
  EXPECT_EQ(Saved(*copy), Normal("<MC MemberType_Namespace='LW:Own' MemberName='m' TaggedCommentPrefix='p' "
                                 "TaggedCommentText='t' OnlyIfBlank='False' InsertionPoint='2'/>"));
  for (const auto& [text, point] :
       {std::pair("3", 3), {"3.5", 4}, {"x", 2}, {"3x", 2}, {"", 2}, {"9e9", 2}}) {
    ModelComment comment;
    comment.Load(Parse(Comment("m", "OnlyIfBlank='True' InsertionPoint='" + std::string(text) + "'")));
    EXPECT_EQ(comment.InsertionPoint, point) << text;
    EXPECT_TRUE(comment.OnlyIfBlank);
  }
}

class ModelCommentFiles : public testing::ConfigurationTest {
 protected:
  std::string Path(const std::string& name) const { return ConfigFolder() + "\\" + name; }
  static std::vector<std::string> Names(const ModelCommentProfiles& profiles) {
    return Each(profiles, &ModelComments::Name);
  }
  ModelCommentProfiles Profiles;
};

TEST_F(ModelCommentFiles, HoldASetAndTellWhetherItChanged) {
  ModelComments set;
  int changes = 0;
  const auto connection = set.DirtyStateChanged.Connect([&] { ++changes; });
  const std::string others = " OnlyIfBlank='False' InsertionPoint='2'";
  Write("modelcomments.xml", Profile("N", Comment("a") + "<mc/><Other/>" + Comment("b")));
  set.SetDirty(true);
  set.SetDirty(true);
  set.LoadGlobal();
  EXPECT_EQ(changes, 1) << "setting the same is no change, and loading is silent";
  EXPECT_FALSE(set.Dirty());
  EXPECT_TRUE(set.IsPopulated);
  EXPECT_EQ(set.Item(99), nullptr);
  set.SetDirty(true);
  Files.Fail(FileOperation::Commit, "other.xml", ENOSPC);
  EXPECT_EQ(ErrorOf([&] { set.SaveToFile(Path("other.xml")); }).Number(), kPathFileAccess);
  EXPECT_TRUE(set.Dirty());
  Files.Heal();
  set.SaveToFile(Path("other.xml"));
  EXPECT_EQ(changes, 3);
  EXPECT_EQ(set.FileName, Path("modelcomments.xml"));
  EXPECT_EQ(Read("other.xml"), Normal(Profile("N", Comment("a", others) + Comment("b", others))));

  const auto copy = set.Clone();
  EXPECT_EQ(Saved(*copy), Saved(set));
  EXPECT_NE(copy->Item(1), set.Item(1));
  EXPECT_EQ(copy->FileName, "");
  EXPECT_FALSE(copy->IsPopulated);
  copy->Name = "global";
  copy->SaveToGlobal();
  set.LoadGlobal();
  EXPECT_EQ(set.Name, "global");

  set.NamespaceProfile = "lw.core";
  EXPECT_EQ(ErrorOf([&] { set.NamespaceDefs(); }).Number(), kObjectNotSet);
  Write("Namespaces/a.xml", "<p Name='LW.Core'/>");
  const auto profiles = SharedSlot<NamespaceProfiles>::Obtain();
  EXPECT_EQ(set.NamespaceDefs(), profiles->Item(1));
  set.NamespaceProfile = "none";
  EXPECT_EQ(set.NamespaceDefs(), nullptr);
}

TEST_F(ModelCommentFiles, AreEmptyAfterAFailure) {
  ModelComments set;
  set.Add(std::make_shared<ModelComment>());
  set.SetDirty(true);
  EXPECT_EQ(ErrorOf([&] { set.LoadFromFile(Path("none.xml")); }).Number(), kInvalidCall);
  EXPECT_EQ(set.FileName, Path("none.xml"));
  EXPECT_EQ(std::tuple(set.Count(), set.Dirty(), set.IsPopulated), std::tuple(0, true, false));
}

TEST_F(ModelCommentFiles, AreKeptPerProfile) {
  Profiles.Load();
  EXPECT_EQ(Profiles.Count(), 0);
  Write("modelcomments/b.xml", Profile("Collections", Comment("Count")));
  Profiles.Load();
  EXPECT_FALSE(Profiles.Dirty);
  ASSERT_NE(Profiles.Item("COLLECTIONS"), nullptr);
  EXPECT_EQ(Profiles.Item(1)->FileName, "");
  Profiles.Remove("Collections");
  EXPECT_TRUE(Profiles.Dirty);
  Profiles.Save();
  EXPECT_EQ(ErrorOf([&] { Profiles.Remove(1); }).Number(), kSubscriptOutOfRange);
  EXPECT_FALSE(Profiles.Dirty);
  Profiles.Load();
  EXPECT_THAT(Names(Profiles), ElementsAre("Collections")) << "a removed profile keeps its file";

  Write("modelcomments/a.xml", Profile("A"));
  Write("modelcomments/c.xml", "\n " + Profile("a"));
  ModelCommentProfiles failing;
  const auto failure = ErrorOf([&] { failing.Load(); });
  EXPECT_EQ(failure.Number(), kDuplicateKey);
  EXPECT_THAT(failure.what(), ::testing::StartsWith(Path("modelcomments\\c.xml:2:3: ")));
  EXPECT_THAT(Names(failing), ElementsAre("A", "Collections"));
}

TEST_F(ModelCommentFiles, StayInTheirFolder) {
  EXPECT_FALSE(Profiles.Clone()->Dirty);
  for (const char* name : {".NET First", "Bad", "Last"}) {
    auto profile = std::make_shared<ModelComments>();
    profile->Name = name;
    Profiles.Add(profile, name);
  }
  for (const char* name : {"", "..\\Bad", "a/b", "C:Bad", "..", "a\tb", "\x7F"}) {
    Profiles.Item(2)->Name = name;
    EXPECT_EQ(ErrorOf([&] { Profiles.Save(); }).Number(), kBadFileName) << name;
    EXPECT_TRUE(Profiles.Dirty && Exists("modelcomments/.NET First.xml")) << name;
    EXPECT_FALSE(Exists("modelcomments/Last.xml") || Exists("Bad.xml")) << name;
  }
  Profiles.Item(2)->Name = "Fine...";
  Files.Fail(FileOperation::Write, "Last.xml", ENOSPC);
  Write("modelcomments/Last.xml", "old");
  EXPECT_EQ(ErrorOf([&] { Profiles.Save(); }).Number(), kPathFileAccess);
  EXPECT_EQ(Read("modelcomments/Last.xml"), "old");
  Files.Heal();
  Profiles.Save();
  const auto copies = Profiles.Clone();
  EXPECT_TRUE(copies->Dirty);
  EXPECT_NE(copies->Item("Fine..."), Profiles.Item(2));
  ModelCommentProfiles again;
  again.Load();
  EXPECT_THAT(Names(again), ElementsAre(".NET First", "Fine...", "Last"));
}

}  // namespace
}  // namespace lwconfig
