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
  NodeDefs& nodes = *Toc->NodeDefs;
  for (const char* attributes :
       {"Key='N1'", "Key='N2' ParentKey='n1'", "Key='N3' ParentKey='N9'", "Key='N4' ParentKey='N5'",
        "Key='N5' ParentKey='N4'", "Key='N6' ParentKey='N6'"}) {
    const auto node = Loaded(attributes);
    nodes.Add(node, node->Key);
  }
  EXPECT_ERROR(kObjectNotSet, nodes.Item("N2")->CementReferences(nullptr));
  nodes.Item("N1")->CementReferences(nullptr);
  for (const auto& node : nodes) node->CementReferences(Toc->NodeDefs);
  EXPECT_THAT(Each(nodes, &NodeDef::ParentKey), ElementsAre("", "N1", "", "N5", "N4", "N6"));
  const auto child = nodes.Item("N2");
  EXPECT_EQ(child->ParentNodeDef(), nodes.Item("N1"));
  child->SetParentNodeDef(nullptr);
  EXPECT_EQ(child->ParentKey(), "");
  child->SetParentNodeDef(nodes.Item("N3"));
  EXPECT_THAT(Saved(*child), HasSubstr(" ParentKey=\"N3\" "));
  nodes.Remove("N3");
  EXPECT_EQ(child->ParentNodeDef(), nullptr);
}

TEST_F(Nodes, NeedATemplateForTheirLayout) {
  const auto node = Loaded("Key='N1' PageLayout='A.html'");
  EXPECT_EQ(node->PageLayout(), Template->PageLayouts()->Item("a.html"));
  EXPECT_THAT(Saved(*node), HasSubstr(" PageLayout=\"A.html\" "));
  Template->PageLayouts()->Remove("a.html");
  EXPECT_EQ(node->PageLayout(), nullptr);
  EXPECT_EQ(node->PageLayoutFileName(), "A.html");
  Template->SetPageLayouts(nullptr);
  EXPECT_ERROR(kObjectNotSet, node->PageLayout());
  node->Load(Parse("<NodeDef Key='N1' PageLayout='b.html' PlugInName='p'/>"), Toc);
  EXPECT_EQ(node->PageLayoutFileName() + node->PlugInName, "A.htmlp");
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
