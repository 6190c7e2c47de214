#include <tests/configuration.h>

#include <lwconfig/comments/model_comment_profiles.h>
#include <lwconfig/namespaces/namespace_profiles.h>

namespace lwconfig::testing {
namespace {

std::string Comment(const std::string& member, const std::string& more = {}) {
  return "<MC MemberType_Namespace='LW:Method' MemberName='" + member +
         "' TaggedCommentPrefix='##D' TaggedCommentText='t' " + more + "/>";
}
std::string Profile(const std::string& name, const std::string& inside = {}) {
  return "<ModelCommentProfile Version='4.0' Namespace='LW.Core' Name='" + name + "' Description='d'>" +
         inside + "</ModelCommentProfile>";
}

TEST(ModelComment, DerivesTheNamespaceFromTheKindOfMember) {
  ModelComment comment;
  ExpectDerived(
      "-|LW:Method|LW:Property|LW:Event|LW:Enumeration|LW:Structure|LW:ImplementedInterface|LW:Module|-",
      [&](const std::string& type) {
        comment.MemberType_Namespace = "-";
        comment.SetMemberType(std::stoi(type));
        EXPECT_EQ(comment.MemberType(), std::stoi(type));
        return comment.MemberType_Namespace;
      });
  comment.Load(Parse("<MC MemberType='1.2x' MemberName='m' TaggedCommentPrefix='p' TaggedCommentText='t'/>"));
  EXPECT_EQ(comment.MemberType_Namespace, "LW:Method");
  comment.MemberType_Namespace = "LW:Own";
  comment.Tag = 7;
  const auto copy = comment.Clone();
  EXPECT_EQ(std::tuple(copy->MemberType(), copy->Tag), std::tuple(mtMethod, Variant()));
  EXPECT_EQ(Saved(*copy), Normal("<MC MemberType_Namespace='LW:Own' MemberName='m' TaggedCommentPrefix='p' "
                                 "TaggedCommentText='t' OnlyIfBlank='False' InsertionPoint='2'/>"));
  for (const auto& [text, point] : {std::pair("3.5", 4), {"3x", 2}, {"", 2}, {"9e9", 2}}) {
    ModelComment read;
    read.Load(Parse(Comment("m", "OnlyIfBlank='True' InsertionPoint='" + std::string(text) + "'")));
    EXPECT_EQ(std::tuple(read.InsertionPoint, read.OnlyIfBlank), std::tuple(point, true)) << text;
  }
}

class ModelCommentFiles : public ConfigurationTest {
 protected:
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
  for (int i = 0; i < 2; ++i) set.SetDirty(true);
  set.LoadGlobal();
  EXPECT_EQ(changes, 1) << "setting the same is no change, and loading is silent";
  EXPECT_FALSE(set.Dirty());
  EXPECT_TRUE(set.IsPopulated);
  EXPECT_EQ(set.Item(99), nullptr);
  set.SetDirty(true);
  Files.Fail(FileOperation::Commit, "other.xml", ENOSPC);
  EXPECT_ERROR(kPathFileAccess, set.SaveToFile(Path("other.xml")));
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
  copy->SetDirty(true);
  EXPECT_ERROR(kInvalidCall, copy->LoadFromFile(Path("none.xml")));
  EXPECT_EQ(std::tuple(copy->FileName, copy->Count(), copy->Dirty(), copy->IsPopulated),
            std::tuple(Path("none.xml"), 0, true, false));

  set.NamespaceProfile = "lw.core";
  EXPECT_ERROR(kObjectNotSet, set.NamespaceDefs());
  Write("Namespaces/a.xml", "<p Name='LW.Core'/>");
  const auto profiles = SharedSlot<NamespaceProfiles>::Obtain();
  EXPECT_EQ(set.NamespaceDefs(), profiles->Item(1));
  set.NamespaceProfile = "none";
  EXPECT_EQ(set.NamespaceDefs(), nullptr);
}

TEST_F(ModelCommentFiles, AreKeptPerProfile) {
  Write("modelcomments/b.xml", Profile("Collections", Comment("Count")));
  Profiles.Load();
  EXPECT_FALSE(Profiles.Dirty);
  ASSERT_NE(Profiles.Item("COLLECTIONS"), nullptr);
  EXPECT_EQ(Profiles.Item(1)->FileName, "");
  Profiles.Remove("Collections");
  EXPECT_TRUE(Profiles.Dirty);
  Profiles.Save();
  EXPECT_ERROR(kSubscriptOutOfRange, Profiles.Remove(1));
  EXPECT_FALSE(Profiles.Dirty);
  Profiles.Load();
  EXPECT_THAT(Names(Profiles), ElementsAre("Collections")) << "a removed profile keeps its file";

  Write("modelcomments/a.xml", Profile("A"));
  Write("modelcomments/c.xml", "\n " + Profile("a"));
  ModelCommentProfiles failing;
  EXPECT_THAT(ErrorOf([&] { failing.Load(); }), IsError(kDuplicateKey, Path("modelcomments\\c.xml:2:3: ")));
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
    EXPECT_ERROR(kBadFileName, Profiles.Save()) << name;
    EXPECT_TRUE(Profiles.Dirty && Exists("modelcomments/.NET First.xml")) << name;
    EXPECT_FALSE(Exists("modelcomments/Last.xml") || Exists("Bad.xml")) << name;
  }
  Profiles.Item(2)->Name = "Fine...";
  Profiles.Save();
  const auto copies = Profiles.Clone();
  EXPECT_TRUE(copies->Dirty);
  EXPECT_NE(copies->Item("Fine..."), Profiles.Item(2));
  ModelCommentProfiles again;
  again.Load();
  EXPECT_THAT(Names(again), ElementsAre(".NET First", "Fine...", "Last"));
}

}  // namespace
}  // namespace lwconfig::testing
