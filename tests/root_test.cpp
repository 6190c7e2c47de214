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
  PageTemplates withoutRoot;
  withoutRoot.Load();
  EXPECT_EQ(SharedSlot<NamespaceProfiles>::Get(), nullptr);
  std::optional<Root> first{std::in_place};
  const auto templates = first->PageTemplates();
  const std::weak_ptr<PlugIns> plugIns = first->PlugIns();
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
  for (int i = 0; i < 2; ++i) fresh.ResetLWConfig();
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
  Remove("Namespaces");
  Root root;
  const auto profiles = root.NamespaceProfiles();
  EXPECT_EQ(root.PageTemplates()->Count(), 0);
  EXPECT_EQ(root.NamespaceProfiles(), profiles);
  EXPECT_EQ(Shown(), "48 Folder not found: Lexiwend namespaces folder '" + Path("Namespaces") +
                         "' could not be found.  No namespaces have been loaded.");
  root.ResetLWConfig();
  root.PageTemplates();
  EXPECT_NE(Shown(), "");
}

TEST_F(RootTest, SettingsAreSharedAndSurviveAReset) {
  Root first;
  for (const auto& [style, reload] :
       {std::pair(ToolbarStyleOffice2003NoThemes, true), {ToolbarStyleOfficeXP, false}}) {
    first.SetDefaultToolbarStyle(style);
    first.SetReloadFlag(reload);
    first.ResetLWConfig();
    EXPECT_EQ(std::tuple(Root().DefaultToolbarStyle(), Root().ReloadFlag()), std::tuple(style, reload));
  }
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
                       other.CommentFileLocations(), other.VSNETOptions(), other.Languages()),
            std::tuple(docs, definitions, profiles, locations, root.VSNETOptions(), root.Languages()));
  root.ResetLWConfig();
  EXPECT_TRUE(root.ExternalDocs() != docs && root.ExternalDocs() != loaded);
}

TEST_F(RootTest, SavesWithoutAConfigurationFolderOnlyWhereTheCallerChose) {
  Register("ConfigPath", "");
  Files.Fail(FileOperation::Replace, ".xml", EROFS);
  EXPECT_ERROR(kPathNotFound, CommentFileLocations().Save());
  EXPECT_ERROR(kPathNotFound, ExternalDocs().Save());
  EXPECT_ERROR(kPathNotFound, ModelCommentProfiles().Save());
  EXPECT_ERROR(kPathNotFound, ModelComments().SaveToGlobal());
  EXPECT_ERROR(kPathNotFound, TaggedCommentDefs().Save());
  EXPECT_ERROR(kPathNotFound, TaggedCommentDefs().SaveEx(false, true));
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
    for (const auto& count : InstanceCounts())
      if (count.Live != 0) counts[count.ClassName] = count.Live;
    return counts;
  };
  const auto before = live();
  {
    Root root;
    const auto copy = root.PageTemplates()->Item("B")->Clone();
    copy->PlugIns();
    root.NamespaceProfiles()->Item(1)->AllNamespaceDefs();
    for (const char* name : {"Root", "PageTemplate", "NodeDef", "PageLayout", "NamespaceDef", "ElementDef"})
      EXPECT_GT(live()[name], 0) << name;
  }
  EXPECT_EQ(live(), before);
}

}  // namespace
}  // namespace lwconfig::testing
