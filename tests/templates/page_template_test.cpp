#include <tests/configuration.h>

#include <lwconfig/root.h>

namespace lwconfig::testing {
namespace {

class Templates : public ConfigurationTest {
 protected:
  Templates() {
    AddProfile("LW.Core", {"LW:Module", "LW:Method"});
    Write("Templates/T/vssver.scc", "");
  }
  void AddProfile(const std::string& name, const std::vector<std::string>& definitions) {
    std::string text = "<p Name='" + name + "'>";
    for (const auto& definition : definitions)
      text += "<lwnamespace Name='" + definition + "' Handler='' Caption=''/>";
    Write("Namespaces/" + name + ".xml", text + "</p>");
  }
  void AddPlugIn(const std::string& file, const std::string& name) {
    Write("PlugIns/" + file,
          "<p><PlugIn Name='" + name +
              "' Description='' ExtendsWizard='' WizardProgID='' ExtendsContent='' ContentProgID='' "
              "ExtendsTableOfContents='' TableOfContentsProgID=''/></p>");
  }
  std::shared_ptr<PageTemplate> New() const {
    auto created = std::make_shared<PageTemplate>();
    created->RootFolder = Path("Templates\\T\\");
    return created;
  }
  std::shared_ptr<PageTemplate> Loaded(const std::string& attributes,
                                       const std::string& children = {}) const {
    auto created = New();
    created->Load(
        Parse("<PageTemplate Name='N' Description='D' " + attributes + ">" + children + "</PageTemplate>"));
    return created;
  }
  static std::string Layout(const std::string& fileName, const std::string& more = {}) {
    return "<PageLayout Name='' FileName='" + fileName + "' TitleTemplate='' " + more + "/>";
  }
};

TEST_F(Templates, HaveDefaultsForAllButNameAndDescription) {
  const auto loaded = Loaded("");
  EXPECT_THAT(Texts(*loaded->SupportedItemTypes), ElementsAre("binary", "source"));
  EXPECT_TRUE(loaded->SupportsItemType("Binary"));
  EXPECT_FALSE(loaded->SupportsItemType("bin"));
  EXPECT_THAT(Texts(*loaded->NamespaceProfileNames()), ElementsAre("LW.Core"));
  EXPECT_THAT(Texts(*loaded->EnabledPlugins), ElementsAre("LW.Core"));
  EXPECT_THAT(Each(*loaded->NamespaceDefs, &NamespaceDef::Name), ElementsAre("LW:Module", "LW:Method"));
  EXPECT_EQ(loaded->NamespaceDefs->Item(1), Root().NamespaceProfiles()->Item("lw.core")->Item(1));
}

TEST_F(Templates, ReadEachAttributeInItsOwnWay) {
  ExpectSavedAttributes(
      R"(ObjFillColor='255.5' -> ObjFillColor='256' | objtextcolor='12abc' -> ObjTextColor='12'
ObjBorderColor='abc' -> ObjBorderColor='0' | ColBorderColor='-1' -> ColBordercolor='-1'
BorderWidth='3000000000' -> BorderWidth='0' | UseDropShadow='true' -> UseDropShadow='False'
UseDropShadow='True' -> UseDropShadow='True' | DIAGRAMBOLD='1' -> DiagramBold='False'
Version='9.9' -> Version='4.11' | NoStandardSupport='True' -> NoStandardSupport='True'
StyleSheet='' -> StyleSheet='stylesheets\stylesheet.css' | x='' -> StyleSheet='stylesheets\stylesheet.css'
TemplateCategory='c' -> TemplateCategory='c' | x='' -> DiagramBold='True'
x='' -> TemplateCategory='VB source code, COM Components and Type Libraries')",
      [&](const std::string& attributes) { return Loaded(attributes); });
  EXPECT_THAT(Texts(*Loaded("SupportedItemTypes='a, b,,c'")->SupportedItemTypes),
              ElementsAre("a", " b", "", "c"));
  EXPECT_ERROR(kDuplicateKey, Loaded("SupportedItemTypes='a,A'"));
}

TEST_F(Templates, LoadTheLayoutsThatTheirFolderHas) {
  for (const char* name : {"config.xml", "config.xml.bak", "Configure.html", "sample.html", "VSSVER.SCC",
                           "Index.html", "template.hhc", "sub/page.html", "hidden.html", "samples.html"})
    Write("Templates/T/" + std::string(name), "");
  Files.Hide("hidden.html");
  const auto loaded = New();
  int changes = 0;
  const auto connection = loaded->PageLayoutsChange.Connect([&] { ++changes; });
  loaded->Load(Parse("<PageTemplate Name='' Description=''>" + Layout("missing.html") +
                     Layout("index.HTML", "PageType='3'") + Layout("Index.html", "PageType='4'") +
                     Layout("sample.html") + Layout("sub\\page.html") + Layout("sub") + Layout("") +
                     Layout("config.xml") +
                     "<pagelayout Name='' FileName='template.hhc' TitleTemplate=''/></PageTemplate>"));
  EXPECT_THAT(Each(*loaded->PageLayouts(), &PageLayout::FileName),
              ElementsAre("index.HTML", "sub\\page.html", "samples.html", "template.hhc"));
  EXPECT_EQ(changes, 4);
  EXPECT_THAT(Each(*loaded->PageLayouts(), &PageLayout::PageType), ElementsAre(3, -1, 0, 0));
  EXPECT_THAT(Each(*loaded->PageLayouts(), &PageLayout::DependantCount), ElementsAre(-1, -1, -1, -1));
  EXPECT_EQ(loaded->PageLayouts()->Item("TEMPLATE.HHC")->TitleTemplate, "%%projectgroupname%%.hhc");
  Remove("Templates/T/Index.html");
  const auto again = New();
  again->Load(Parse(Saved(*loaded)));
  EXPECT_THAT(Each(*again->PageLayouts(), &PageLayout::FileName),
              ElementsAre("sub\\page.html", "samples.html", "template.hhc"));

  Files.Fail(FileOperation::List, "", EACCES);
  std::make_shared<PageTemplate>()->Load(Parse("<PageTemplate Name='' Description=''/>"));
}

TEST_F(Templates, CollectNodesOutsideAnyDefinition) {
  Write("Templates/T/a.html", "");
  const auto loaded =
      Loaded("", Layout("a.html") +
                     "<NodeDef Key='N2' ParentKey='N1' PageLayout='a.html'/>"
                     "<TOCDefinition Name='Own' Description=''><NodeDef Key='N2' ParentKey='N9'/>"
                     "</TOCDefinition><NodeDef Key='N1'/>");
  EXPECT_THAT(Each(*loaded->TOCDefinitions, &TOCDefinition::Name), ElementsAre("Own", "Default"));
  const auto loose = loaded->TOCDefinitions->Item("default");
  EXPECT_EQ(loose->PageTemplate(), loaded);
  EXPECT_EQ(loose->NodeDefs->Item("N2")->ParentNodeDef(), loose->NodeDefs->Item("N1"));
  EXPECT_EQ(loose->NodeDefs->Item("N2")->PageLayout(), loaded->PageLayouts()->Item(1));
  EXPECT_EQ(loaded->TOCDefinitions->Item("Own")->NodeDefs->Item(1)->ParentKey(), "");
  EXPECT_ERROR(kDuplicateKey,
               Loaded("", "<TOCDefinition Name='default' Description=''/><NodeDef Key='N1'/>"));
}

TEST_F(Templates, UseNamespaceProfilesByName) {
  AddProfile("Other", {"LW:method", "LW:Event"});
  const auto loaded = Loaded("",
                             "<NamespaceDef Name='unknown'/><NamespaceDef Name='OTHER'/><NamespaceDef "
                             "Name='LW.Core'/><EnabledPlugins><Plugin>p</Plugin><x>q</x></EnabledPlugins>");
  EXPECT_THAT(Texts(*loaded->NamespaceProfileNames()), ElementsAre("unknown", "OTHER", "LW.Core"));
  EXPECT_THAT(Each(*loaded->NamespaceDefs, &NamespaceDef::Name),
              ElementsAre("LW:method", "LW:Event", "LW:Module"));
  EXPECT_THAT(Texts(*loaded->EnabledPlugins), ElementsAre("p", "q"));
  // A template that enables the core plug-in but names no profile cannot be completed.
  const auto partial = New();
  const auto e = Parse(
      "<PageTemplate Name='N' Description='' SupportedItemTypes='x'>"
      "<EnabledPlugins><Plugin>lw.core</Plugin></EnabledPlugins></PageTemplate>");
  EXPECT_ERROR(kDuplicateKey, partial->Load(e));
  EXPECT_THAT(Texts(*partial->NamespaceProfileNames()), ElementsAre("LW.Core"));
  EXPECT_EQ(partial->SupportedItemTypes->Count(), 0);
  Remove("Namespaces/LW.Core.xml");
  ResetSharedSlots();
  EXPECT_EQ(Loaded("")->NamespaceDefs->Count(), 0);
}

TEST_F(Templates, LoadWhatTheySave) {
  Write("Templates/T/a.html", "");
  const auto loaded = Loaded(
      "ObjFillColor='1' ColBorderColor='-2' CenterCaptions='True' UseDiagramShapes='True' "
      "Supports='&quot;s&#10;'"
      " Languages='Deutsch &amp; 日本語' DefTOCVBProject='a' DefTOCVBProjectGroup='b' DefTOCMixture='c' "
      "DefTOCComponent='d' DefTOCComponentGroup='e' TemplateCategory='f' StyleSheet='g' "
      "SupportedItemTypes='source,Ü'",
      Layout("a.html") +
          "<VariableDef Name='V' Description='&#9;x'/><TOCDefinition Name='T' Description='t'><NodeDef "
          "Key='N1'/><NodeDef Key='N2' ParentKey='N1' PageLayout='a.html'/></TOCDefinition><NamespaceDef "
          "Name='LW.Core'/><EnabledPlugins><Plugin>p &lt; q</Plugin><Plugin> </Plugin></EnabledPlugins>");
  const std::string saved = Saved(*loaded);
  const auto again = New();
  again->Load(Parse(saved));
  EXPECT_EQ(Saved(*again), saved);
  for (const char* part :
       {"SupportedItemTypes=\"source,Ü\"", "<Plugin>p &lt; q</Plugin>", "Languages=\"Deutsch &amp; 日本語\"",
        "<NamespaceDef Name=\"LW.Core\" />", " ParentKey=\"N1\" "})
    EXPECT_THAT(saved, HasSubstr(part));

  const auto copy = again->Clone();
  EXPECT_EQ(Saved(*copy), saved);
  EXPECT_EQ(copy->NamespaceDefs, again->NamespaceDefs);
  EXPECT_EQ(copy->NamespaceProfileNames(), again->NamespaceProfileNames());
  const auto node = copy->TOCDefinitions->Item("T")->NodeDefs->Item("N2");
  EXPECT_EQ(node->TOCDefinition()->PageTemplate(), copy);
  EXPECT_EQ(node->PageLayout(), copy->PageLayouts()->Item("a.html"));
  copy->PageLayouts()->Item(1)->Name = "changed";
  copy->VariableDefs->Item("v")->Caption = "changed";
  node->NodeCaptionTemplate = "changed";
  copy->EnabledPlugins->Add("more");
  copy->SupportedItemTypes->Remove("ü");
  EXPECT_EQ(Saved(*again), saved);
}

TEST_F(Templates, ListTheirEnabledPlugInsOnce) {
  for (const char* name : {"B", "other", "A"}) AddPlugIn(name + std::string(".xml"), name);
  const auto loaded = Loaded("", "<EnabledPlugins><P>b</P><P>a</P><P>none</P></EnabledPlugins>");
  const auto plugIns = loaded->PlugIns();
  EXPECT_THAT(Each(*plugIns, &PlugIn::Name), ElementsAre("A", "B"));
  EXPECT_EQ(plugIns->Item("a"), SharedSlot<PlugIns>::Get()->Item(1));
  loaded->EnabledPlugins->Add("other", "other");
  EXPECT_EQ(loaded->PlugIns(), plugIns);
  EXPECT_EQ(plugIns->Count(), 2);

  AddPlugIn("z.xml", "a");
  ResetSharedSlots();
  const auto fresh = loaded->Clone();
  EXPECT_ERROR(kDuplicateKey, fresh->PlugIns());
  EXPECT_THAT(Each(*fresh->PlugIns(), &PlugIn::Name), ElementsAre("A", "B", "other"));
}

TEST_F(Templates, TellChangesOfTheirPresentLayouts) {
  auto created = New();
  int changes = 0;
  const auto connection = created->PageLayoutsChange.Connect([&] { ++changes; });
  const auto before = created->PageLayouts();
  created->SetPageLayouts(std::make_shared<PageLayouts>());
  before->Add(std::make_shared<PageLayout>());
  EXPECT_EQ(changes, 0);
  const auto present = created->PageLayouts();
  for (int i = 0; i < 2; ++i, created.reset()) present->Add(std::make_shared<PageLayout>());
  EXPECT_EQ(changes, 1);
}

TEST_F(Templates, WithoutTheirPartsFailInsteadOfCrashing) {
  const auto created = New();
  created->SetPageLayouts(nullptr);
  created->VariableDefs = nullptr;
  const auto e = Parse(
      "<PageTemplate Name='' Description=''><TOCDefinition Name='' Description=''><NodeDef Key='N1' "
      "PageLayout='a'/></TOCDefinition></PageTemplate>");
  EXPECT_ERROR(kObjectNotSet, Saved(*created));
  EXPECT_ERROR(kObjectNotSet, created->Clone());
  EXPECT_ERROR(kObjectNotSet, created->Load(e));
}

}  // namespace
}  // namespace lwconfig::testing
