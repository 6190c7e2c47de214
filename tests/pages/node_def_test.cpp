#include <tests/configuration.h>

#include <lwconfig/core/base/text.h>
#include <lwconfig/templates/page_template.h>

namespace lwconfig::testing {
namespace {

class Nodes : public ::testing::Test {
 protected:
  Nodes() {
    Toc->SetPageTemplate(Template);
    for (const char* name : {"a.html", "b.html"}) AddLayout(*Template, name);
  }
  static void AddLayout(PageTemplate& to, const std::string& fileName) {
    auto layout = std::make_shared<PageLayout>();
    layout->FileName = fileName;
    to.PageLayouts()->Add(layout, fileName);
  }
  std::shared_ptr<NodeDef> Loaded(const std::string& attributes) {
    auto node = std::make_shared<NodeDef>();
    node->Load(Parse("<NodeDef " + attributes + "/>"), Toc);
    return node;
  }
  std::shared_ptr<PageTemplate> Template = std::make_shared<PageTemplate>();
  std::shared_ptr<TOCDefinition> Toc = std::make_shared<TOCDefinition>();
};

std::int64_t NumberOf(const NodeDef& node) {
  return std::stoll(node.Key.substr(1));
}

TEST_F(Nodes, TakeKeysAboveEveryLoadedOne) {
  const auto first = NumberOf(NodeDef());
  EXPECT_EQ(NumberOf(NodeDef()), first + 1);
  Loaded("Key='N" + std::to_string(first + 41) + "'");
  EXPECT_EQ(NumberOf(NodeDef()), first + 42);
  Loaded("Key='N0'");
  EXPECT_EQ(NumberOf(NodeDef()), first + 44);
  Loaded("Key='ß" + std::to_string(first + 50) + ".4'");
  EXPECT_EQ(NumberOf(NodeDef()), first + 51);
  for (const auto& [key, error] : {std::pair("", kTypeMismatch),
                                   {"N", kTypeMismatch},
                                   {"Node1", kTypeMismatch},
                                   {"N99999999999", kOverflow}}) {
    NodeDef node;
    const auto e = Parse("<NodeDef Key='" + std::string(key) + "' DependantOn='3'/>");
    EXPECT_ERROR(error, node.Load(e, Toc)) << key;
    EXPECT_EQ(std::tuple(node.Key, node.DependantOn, node.TOCDefinition()), std::tuple(key, 0, Toc));
  }
  EXPECT_ERROR(kInvalidCall, Loaded("DependantOn='3'"));
}

TEST_F(Nodes, DeriveNamespaces) {
  ExpectDerived(
      "|LW:Module|LW:Module|LW:Method|LW:Property|LW:Event|LW:Enumeration|LW:Structure|LW:Library|"
      "LW:DeclareStatement|LW:Project|LW:Module|LW:ImplementedInterface|||LW:Example|",
      [&](const std::string& type) { return Loaded("Key='N1' PageType='" + type + "'")->PageTypeNamespace; });
  ExpectDerived(
      "|LW:Method|LW:Property|LW:Event|LW:Enumeration|LW:Structure|LW:Library|LW:ImplementedInterface|"
      "LW:Project|",
      [&](const std::string& on) {
        return Loaded("Key='N1' DependantOn='" + on + "'")->DependantOnNamespace;
      });
  const auto given =
      Loaded("Key='N1' PageType='3' PageTypeNamespace='a' DependantOn='3' dependantonNAMESPACE='b'");
  EXPECT_EQ(given->PageTypeNamespace + given->DependantOnNamespace, "ab");
  for (const char* none : {"-1", "x"}) {
    const auto node = Loaded("Key='N1' PageType='" + std::string(none) + "' DependantOn='" + none + "'");
    EXPECT_EQ(node->PageTypeNamespace + node->DependantOnNamespace, "");
    EXPECT_EQ(std::tuple(node->PageType, node->DependantOn), std::tuple(-1, -1));
  }
}

TEST_F(Nodes, ReadEachAttributeInItsOwnWay) {
  ExpectSavedAttributes(
      R"(LinkToPage='false' -> LinkToPage='False' | LinkToPage='0' -> LinkToPage='False'
LinkToPage='no' -> LinkToPage='True' | x='' -> LinkToPage='True'
MarkAsNew='TRUE' -> MarkAsNew='True' | MarkAsNew='-1' -> MarkAsNew='True'
UseCustomIcon='true' -> UseCustomIcon='False' | UseCustomIcon='True' -> UseCustomIcon='True'
IsDefaultTopic='1' -> IsDefaultTopic='False' | IsDefaultTopic='True' -> IsDefaultTopic='True'
DependantStillProcessChildren='2' -> DependantStillProcessChildren='True' | NodeType='3' -> NodeType='0'
NodeType='9' -> NodeType='9' | NodeType='x' -> NodeType='0' | NodeIconIndex='7x' -> NodeIconIndex='1'
DependantCount='7x' -> DependantCount='7' | DependantCount='x' -> DependantCount='0'
DependantCount='3000000000' -> DependantCount='1' | ParentKey='N7' -> ParentKey=''
NodeCaptionText='old' -> NodeCaptionTemplate='old'
NodeCaptionTemplate='' NodeCaptionText='old' -> NodeCaptionTemplate='old'
NodeCaptionTemplate='new' NodeCaptionText='old' -> NodeCaptionTemplate='new'
PageLayout='A.HTML' -> PageLayout='A.HTML' | PageLayout='missing.html' -> PageLayout='')",
      [&](const std::string& attributes) { return Loaded("Key='N1' " + attributes); });
}

TEST_F(Nodes, LoadWhatTheySave) {
  const std::string saved =
      "<NodeDef Key=\"N5\" DependantCount=\"2\" DependantOn=\"1\" DependantOnnamespace=\"LW:X\" "
      "DependantOnnamespace_Filter=\"f\" DependantStillProcessChildren=\"True\" FileNameTemplate=\"t\" "
      "LinkToPage=\"False\" MarkAsNew=\"True\" NodeCaptionTemplate=\"&lt;b&gt;&#10;ü\" NodeIconIndex=\"7\" "
      "NodeType=\"1\" PageLayout=\"b.html\" PageTypeNamespace=\"LW:Y\" PageTypeNamespaceFilter=\"g\" "
      "ParentKey=\"N4\" UseCustomIcon=\"True\" IsDefaultTopic=\"True\" PlugInName=\"p\" PlugInData=\"q\"/>";
  Toc->NodeDefs->Add(std::make_shared<NodeDef>(), "N4");
  Toc->NodeDefs->Item("N4")->Key = "N4";
  const auto node = std::make_shared<NodeDef>();
  node->Load(Parse(saved), Toc);
  node->CementReferences(Toc->NodeDefs);
  EXPECT_EQ(Saved(*node), Normal(saved));
  EXPECT_EQ(Saved(*node->Clone()), Normal(saved));
  EXPECT_EQ(node->PageLayout(), Template->PageLayouts()->Item(2));
}

TEST_F(Nodes, ShowIconsByStateAndChildren) {
  NodeDef node;
  const auto icons = [&] {
    return std::vector<int>{node.ActualIconIndex(true), node.ActualIconIndex(false),
                            node.ActualExpandedIconIndex(true), node.ActualExpandedIconIndex(false)};
  };
  EXPECT_THAT(icons(), ElementsAre(1, 11, 2, 11));
  node.MarkAsNew = true;
  EXPECT_THAT(icons(), ElementsAre(3, 12, 4, 12));
}

TEST_F(Nodes, AreLinkedToTheirParents) {
  const auto all = std::make_shared<NodeDefs>();
  const NodeDefs& nodes = *all;
  for (const char* attributes :
       {"Key='N1'", "Key='N2' ParentKey='n1'", "Key='N3' ParentKey='N9'", "Key='N4' ParentKey='N5'",
        "Key='N5' ParentKey='N4'", "Key='N6' ParentKey='N6'"}) {
    const auto node = Loaded(attributes);
    all->Add(node, node->Key);
  }
  EXPECT_ERROR(kObjectNotSet, nodes.Item("N2")->CementReferences(nullptr));
  nodes.Item("N1")->CementReferences(nullptr);
  for (const auto& node : nodes) node->CementReferences(all);
  EXPECT_THAT(Each(nodes, &NodeDef::ParentKey), ElementsAre("", "N1", "", "N5", "N4", "N6"));
  EXPECT_EQ(nodes.Item("N2")->ParentNodeDef(), nodes.Item("N1"));
  EXPECT_EQ(nodes.Item("N6")->ParentNodeDef(), nodes.Item("N6"));
  nodes.Item("N2")->SetParentNodeDef(nullptr);
  EXPECT_EQ(nodes.Item("N2")->ParentKey(), "");
  nodes.Item("N3")->SetParentNodeDef(nodes.Item("N1"));
  EXPECT_THAT(Saved(*nodes.Item("N3")), HasSubstr(" ParentKey=\"N1\" "));
  const auto orphan = nodes.Item("N3");
  all->Remove("N1");
  EXPECT_EQ(orphan->ParentNodeDef(), nullptr);
}

TEST_F(Nodes, NeedATemplateForTheirLayout) {
  const auto node = Loaded("Key='N1' PageLayout='a.html'");
  EXPECT_EQ(node->PageLayout(), Template->PageLayouts()->Item("a.html"));
  Template->PageLayouts()->Remove("a.html");
  EXPECT_EQ(node->PageLayout(), nullptr);
  EXPECT_EQ(node->PageLayoutFileName(), "a.html");
  Template->SetPageLayouts(nullptr);
  EXPECT_ERROR(kObjectNotSet, node->PageLayout());
  node->Load(Parse("<NodeDef Key='N1' PageLayout='b.html' PlugInName='p'/>"), Toc);
  EXPECT_EQ(node->PageLayoutFileName() + node->PlugInName, "a.htmlp");
  Template = nullptr;
  EXPECT_ERROR(kObjectNotSet, node->PageLayout());
  EXPECT_ERROR(kObjectNotSet, node->Clone());
  EXPECT_EQ(Loaded("Key='N2' PageLayout='a.html'")->PageLayoutFileName(), "");
  EXPECT_ERROR(kObjectNotSet, NodeDef().PageLayout());
}

TEST_F(Nodes, AreClonedWithTheirDefinition) {
  const std::string text =
      "<TOCDefinition Name='T' Description='D'><NodeDef Key='N2' ParentKey='N1' PageLayout='a.html'/>"
      "<nodedef Key='N8'/><NodeDef Key='N1' PageLayout='b.html' NodeCaptionTemplate='c'/></TOCDefinition>";
  Toc->Load(Parse(text), Template);
  EXPECT_THAT(Each(*Toc->NodeDefs, &NodeDef::Key), ElementsAre("N2", "N1"));
  for (const auto& node : *Toc->NodeDefs) node->CementReferences(Toc->NodeDefs);

  const auto other = std::make_shared<PageTemplate>();
  AddLayout(*other, "B.HTML");
  const auto copy = Toc->Clone(other);
  EXPECT_EQ(copy->PageTemplate(), other);
  const auto child = copy->NodeDefs->Item("N2");
  const auto parent = copy->NodeDefs->Item("N1");
  EXPECT_EQ(std::tuple(child->TOCDefinition(), child->ParentNodeDef(), child->PageLayoutFileName()),
            std::tuple(copy, parent, ""));
  EXPECT_EQ(parent->PageLayout(), other->PageLayouts()->Item(1));
  parent->NodeCaptionTemplate = "changed";
  EXPECT_EQ(Toc->NodeDefs->Item("N1")->NodeCaptionTemplate, "c");
  EXPECT_EQ(Toc->NodeDefs->Item("N2")->ParentNodeDef(), Toc->NodeDefs->Item("N1"));
}

TEST_F(Nodes, ThatFailEndTheLoadOfTheirDefinition) {
  const auto e = Parse(
      "<TOCDefinition Name='T' Description=''><NodeDef Key='N1'/>\n ü <NodeDef Key='n1'/>"
      "<NodeDef Key='N3'/></TOCDefinition>");
  EXPECT_THAT(ErrorOf([&] { Toc->Load(e, Template); }), IsError(kDuplicateKey, "2:5: "));
  EXPECT_THAT(Each(*Toc->NodeDefs, &NodeDef::Key), ElementsAre("N1"));
  TOCDefinition empty;
  EXPECT_ERROR(kInvalidCall, empty.Load(Parse("<TOCDefinition Name='T'/>"), Template));
  EXPECT_ERROR(kObjectNotSet, empty.Load(Parse("<TOCDefinition Name='T' Description=''/>"), Template));
  EXPECT_EQ(Saved(empty, "TOCDefinition"), Normal("<TOCDefinition Name='T' Description=''/>"));
}

}  // namespace
}  // namespace lwconfig::testing
