#include <optional>

#include <tests/configuration.h>

#include <lwconfig/core/base/instance_count.h>
#include <lwconfig/root.h>

namespace lwconfig::testing {
namespace {

class RootTest : public ConfigurationTest {
 protected:
  RootTest() { Write("Namespaces/core.xml", "<p Name='LW.Core'/>"); }
  void AddTemplate(const std::string& name, const std::string& attributes,
                   const std::string& profiles) const {
    std::string text = "<PageTemplate Name='" + name + "' Description='' " + attributes + ">";
    for (const auto profile : Split(profiles, ","))
      text += "<NamespaceDef Name='" + std::string(profile) + "'/>";
    Write("Templates/" + name + "/config.xml", text + "</PageTemplate>");
  }
};

TEST_F(RootTest, EveryRootHandsOutTheSameObjectsUntilTheLastIsGone) {
  AddTemplate("A", "", "LW.Core");
  const auto withoutRoot = std::make_shared<PageTemplates>();
  withoutRoot->Load();
  EXPECT_EQ(withoutRoot->Count(), 1);
  EXPECT_EQ(SharedSlot<NamespaceProfiles>::Get(), nullptr);
  std::optional<Root> first{std::in_place};
  const auto templates = first->PageTemplates();
  const std::weak_ptr<PlugIns> plugIns = first->PlugIns();
  EXPECT_EQ(LiveRoot::Count(), 1);
  {
    Root second;
    EXPECT_EQ(LiveRoot::Count(), 2);
    EXPECT_EQ(second.PageTemplates(), templates);
    EXPECT_EQ(second.NamespaceProfiles(), SharedSlot<NamespaceProfiles>::Get());
    first.reset();
    EXPECT_EQ(second.PageTemplates(), templates);
    AddTemplate("B", "", "LW.Core");
  }
  EXPECT_EQ(SharedSlot<PageTemplates>::Get(), nullptr);
  EXPECT_TRUE(plugIns.expired());
  EXPECT_EQ(templates->Count(), 1);

  Root fresh;
  EXPECT_EQ(fresh.PageTemplates()->Count(), 2);
  const auto profiles = fresh.NamespaceProfiles();
  fresh.ResetLWConfig();
  fresh.ResetLWConfig();
  EXPECT_EQ(fresh.PageTemplates()->Count(), 2);
  EXPECT_NE(fresh.NamespaceProfiles(), profiles);
  EXPECT_THAT(Messages, IsEmpty());
}

TEST_F(RootTest, KeepsWhatAFailingLoadLeft) {
  AddTemplate("A", "", "LW.Core");
  Write("Templates/B/config.xml", "<PageTemplate/>");
  AddTemplate("C", "", "LW.Core");
  Root root;
  EXPECT_ERROR(kInvalidCall, root.PageTemplates());
  EXPECT_THAT(Each(*root.PageTemplates(), &PageTemplate::Name), ElementsAre("A"));
  Write("Namespaces/d.xml", "<p Name='lw.core'/>");
  root.ResetLWConfig();
  EXPECT_ERROR(kDuplicateKey, root.PageTemplates());
  EXPECT_EQ(root.PageTemplates()->Count(), 0);
  EXPECT_EQ(root.NamespaceProfiles()->Count(), 1);
  Write("PlugIns/a.xml", "<p><PlugIn/></p>");
  EXPECT_ERROR(kInvalidCall, root.PlugIns());
  EXPECT_EQ(root.PlugIns()->Count(), 0);
}

TEST_F(RootTest, ShowsAMissingFolderOnce) {
  std::filesystem::remove_all(Folder.Path() / "Config/Namespaces");
  Root root;
  const auto profiles = root.NamespaceProfiles();
  EXPECT_EQ(root.PageTemplates()->Count(), 0);
  EXPECT_EQ(root.NamespaceProfiles(), profiles);
  ASSERT_EQ(Messages.size(), 1U);
  EXPECT_EQ(Messages[0].Title, "Folder not found");
  EXPECT_EQ(Messages[0].Icon, platform::MessageIcon::Exclamation);
  EXPECT_EQ(Messages[0].Text, "Lexiwend namespaces folder '" + ConfigFolder() +
                                  "\\Namespaces' could not be found.  No namespaces have been loaded.");
  root.ResetLWConfig();
  root.PageTemplates();
  EXPECT_EQ(Messages.size(), 2U);
}

TEST_F(RootTest, SettingsAreSharedAndSurviveAReset) {
  Root first;
  Root second;
  EXPECT_EQ(second.DefaultToolbarStyle(), ToolbarStyleOfficeXP);
  EXPECT_FALSE(second.ReloadFlag());
  first.SetDefaultToolbarStyle(ToolbarStyleOffice2003NoThemes);
  first.SetReloadFlag(true);
  first.ResetLWConfig();
  EXPECT_EQ(second.DefaultToolbarStyle(), ToolbarStyleOffice2003NoThemes);
  EXPECT_TRUE(second.ReloadFlag());
  first.SetDefaultToolbarStyle(ToolbarStyleOfficeXP);
  first.SetReloadFlag(false);
}

TEST_F(RootTest, ChoosesTheFirstTemplateThatFits) {
  AddTemplate("A", "SupportedItemTypes='binary'", "LW.Core,Other");
  AddTemplate("B", "SupportedItemTypes='source,binary'", "other,LW.Core,Other");
  AddTemplate("C", "SupportedItemTypes='quelle'", "Größe");
  using Row = std::tuple<const char*, const char*, const char*>;
  Root root;
  for (const auto& [profile, supports, name] :
       {Row{"LW.Core", "", "A"}, Row{"lw.CORE", "", "A"}, Row{"Other", "SOURCE", "B"},
        Row{"LW.Core", "ource,bin", "B"}, Row{"LW.Core", "bin", "A"}, Row{"LW.Core", "quelle", ""},
        Row{"GRÖßE", "", "C"}, Row{"LW", "", ""}, Row{"", "", ""}}) {
    const auto found = root.GetDefaultTemplate(profile, supports);
    EXPECT_EQ(found ? found->Name : "", name) << profile << ' ' << supports;
  }
}

TEST_F(RootTest, ReplacedObjectsAreSharedUntilTheReset) {
  Root root;
  Root other;
  const auto loaded = root.ExternalDocs();
  const auto docs = std::make_shared<ExternalDocs>();
  const auto definitions = std::make_shared<TaggedCommentDefs>();
  const auto profiles = std::make_shared<ModelCommentProfiles>();
  const auto locations = std::make_shared<CommentFileLocations>();
  root.ReplaceExternalDocs(docs);
  root.ReplaceTaggedCommentDefs(definitions);
  root.ReplaceModelCommentProfiles(profiles);
  root.ReplaceCommentFileLocations(locations);
  EXPECT_ERROR(kObjectNotSet, root.ReplaceExternalDocs(nullptr));
  EXPECT_EQ(std::tuple(other.ExternalDocs(), other.TaggedCommentDefs(), other.ModelCommentProfiles(),
                       other.CommentFileLocations()),
            std::tuple(docs, definitions, profiles, locations));
  EXPECT_EQ(root.VSNETOptions(), other.VSNETOptions());
  EXPECT_EQ(root.Languages(), other.Languages());
  root.ResetLWConfig();
  EXPECT_NE(root.ExternalDocs(), docs);
  EXPECT_NE(root.ExternalDocs(), loaded);
}

TEST_F(RootTest, SavesWithoutAConfigurationFolderOnlyWhereTheCallerChose) {
  Register("ConfigPath", "");
  Files.Fail(FileOperation::Replace, ".xml", EROFS);
  for (const auto& save : std::vector<std::function<void()>>{
           [] { CommentFileLocations().Save(); }, [] { ExternalDocs().Save(); },
           [] { ModelCommentProfiles().Save(); }, [] { ModelComments().SaveToGlobal(); },
           [] { TaggedCommentDefs().Save(); }, [] { TaggedCommentDefs().SaveEx(false, true); }})
    EXPECT_EQ(ErrorOf(save).Number(), kPathNotFound);
  EXPECT_ERROR(kPermissionDenied, TaggedCommentDefs().SaveTo("/x.xml"));
}

TEST_F(RootTest, LeavesNoObjectBehind) {
  Write("Namespaces/core.xml",
        "<p Name='LW.Core'><lwnamespace Name='a' Handler='' Caption=''><x Name='b' Handler='' Caption=''/>"
        "</lwnamespace><lwelements><commonattributes><attribute Name='a' Description=''/></commonattributes>"
        "<lwelement Name='e'/></lwelements></p>");
  AddTemplate("A", "", "LW.Core");
  Write("Templates/B/config.xml",
        "<PageTemplate Name='B' Description=''><VariableDef Name='' Description=''/><NodeDef Key='N1' "
        "ParentKey='N2'/><NodeDef Key='N2' ParentKey='N1'/></PageTemplate>");
  Write("Templates/B/index.html", "");
  const auto live = [] {
    std::map<std::string, std::int32_t> counts;
    for (const auto& count : InstanceCounts()) {
      if (count.Live != 0) counts[count.ClassName] = count.Live;
    }
    return counts;
  };
  const auto before = live();
  {
    Root root;
    const auto copy = root.PageTemplates()->Item("B")->Clone();
    copy->PlugIns();
    root.NamespaceProfiles()->Item(1)->AllNamespaceDefs();
    const auto during = live();
    for (const char* name : {"Root", "PageTemplate", "NodeDef", "PageLayout", "NamespaceDef", "ElementDef"})
      EXPECT_GT(during.contains(name) ? during.at(name) : 0, 0) << name;
  }
  EXPECT_EQ(live(), before);
}

}  // namespace
}  // namespace lwconfig::testing
