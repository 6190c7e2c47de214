#include <tests/configuration.h>

#include <lwconfig/comments/tagged_comment_defs.h>

namespace lwconfig::testing {
namespace {

std::string Element(const std::string& identifier, const std::string& more = {}) {
  return "<TaggedComment Hidden='True' Identifier='" + identifier +
         "' ElementType='1' Description='d' Format='f' General='True' Wraptype='2' " + more + "/>\n";
}

TEST(TaggedCommentDef, FillsWhatTheFileLeavesOut) {
  TaggedCommentDef definition;
  definition.Tip = "t";
  definition.Load(Parse(Element("##A")));
  EXPECT_EQ(Saved(definition, "TaggedComment"),
            Normal("<TaggedComment Group='General Description' Hidden='True' Identifier='##A' Flags='-' "
                   "Elementtype='1' Description='d' Format='f' General='True' WrapType='2' DesignerProgID='' "
                   "LegacyFor='' DesignFlags='' TabName='' Tip='t' Namespace='' Standard='True' "
                   "XMLCommentTypes='' Icon='other'/>"));
  const std::string full =
      "<TaggedComment Group='' Hidden='False' Identifier='##B' Flags='fl' Elementtype='99' Description='d' "
      "Format='f' General='False' WrapType='-7' DesignerProgID='p' LegacyFor='l' DesignFlags='df' "
      "TabName='tn' "
      "Tip='ti' Namespace='n' Standard='False' XMLCommentTypes='x,y' Icon='i'/>";
  definition.Load(Parse(full));
  EXPECT_EQ(Saved(*definition.Clone(), "TaggedComment"), Normal(full));
  definition.Load(Parse(Element("##C", "Icon='' Flags='' Standard='true'")));
  EXPECT_EQ(definition.Icon + definition.Flags, "other-");
  EXPECT_FALSE(definition.Standard);
}

TEST(TaggedCommentDef, DerivesTheCodeElementsOfOlderFiles) {
  ExpectDerived(
      "||LW:Project|LW:Module|LW:Method,LW:Property|LW:Property|LW:Parameter||LW:Event|LW:Enumeration|"
      "LW:EnumerationMember|LW:Structure|LW:StructureMember|LW:Declaration|LW:ImplementedInterface|",
      [](const std::string& type) {
        std::string element = Element("##A");
        element.replace(element.find("ElementType='1'"), 15, "ELEMENTTYPE=' " + type + "x'");
        TaggedCommentDef definition;
        definition.Load(Parse(element));
        return definition.Namespace;
      });
  TaggedCommentDef named;
  named.Load(Parse(Element("##A", "ElementType='2' Namespace='LW:X'")));
  EXPECT_EQ(named.Namespace, "LW:X");
}

class TaggedCommentFiles : public ConfigurationTest {
 protected:
  static auto Identifiers(const TaggedCommentDefs& definitions) {
    return Each(definitions, &TaggedCommentDef::TagIdentifier);
  }
  TaggedCommentDefs Definitions;
};

TEST_F(TaggedCommentFiles, PutStandardDefinitionsAfterCustomOnes) {
  Write("taggedcomments.xml", "<any DefaultDesignerProgID='P'><a/></any>");
  Write("taggedcomments_custom.xml", "<any DefaultDesignerProgID='C'>" +
                                         Element("##A", "XMLCommentTypes='a, b'") + Element("##CD") +
                                         Element("##B", "XMLCommentTypes='Summary,Remarks'") + "</any>");
  Write("taggedcomments_standard.xml", "<any>" + Element("##cd", "XMLCommentTypes='remarks'") +
                                           Element("##S") + Element("") + Element("") +
                                           Element("##s", "Tip='later'") + "</any>");
  Definitions.Add(std::make_shared<TaggedCommentDef>(), "##Gone");
  Definitions.Load();
  EXPECT_EQ(Definitions.Item("##S")->Tip, "later");
  EXPECT_EQ(Definitions.Item("##none"), nullptr);
  EXPECT_EQ(Definitions.FileName, Path("taggedcomments_standard.xml"));
  const auto copies = Definitions.Clone();
  EXPECT_THAT(Identifiers(*copies), ElementsAre("##A", "##B", "##cd", "", "", "##s"));
  EXPECT_NE(copies->Item("##A"), Definitions.Item("##A"));
  EXPECT_EQ(copies->FileName + copies->DefaultDesignerProgID, Definitions.FileName + "C");
  EXPECT_TRUE(copies->IsPopulated);
  using Row = std::pair<const char*, const char*>;
  for (const auto& [tag, found] : {Row{"SUMMARY", "##B"}, Row{"remarks", "##B"}, Row{" b", "##A"},
                                   Row{"", ""}, Row{"summ", "none"}, Row{"marks", "none"}}) {
    const auto definition = copies->ItemFromXMLTagName(tag);
    EXPECT_EQ(definition ? definition->TagIdentifier : "none", found) << tag;
  }
}

TEST_F(TaggedCommentFiles, MoveFromTheOlderLayoutToTheNewOne) {
  Write("taggedcomments.xml", "<any DefaultDesignerProgID='P'>" + Element("##S") +
                                  Element("##C", "Standard='False'") + "<!-- damaged");
  Definitions.Load();
  Definitions.SaveEx(false, true);
  EXPECT_FALSE(Exists("taggedcomments_standard.xml"));
  EXPECT_TRUE(Exists("taggedcomments_custom.xml"));
  Write("taggedcomments_custom.xml", "old");
  Files.Fail(FileOperation::Commit, "taggedcomments_standard.xml", ENOSPC);
  EXPECT_ERROR(kPathFileAccess, Definitions.Save());
  EXPECT_EQ(Read("taggedcomments_custom.xml"), "old");
  Files.Heal();
  Files.Fail(FileOperation::Remove, "taggedcomments.xml", EACCES);
  Definitions.Save();
  EXPECT_TRUE(Exists("taggedcomments.xml"));
  Files.Heal();
  Definitions.Save();
  EXPECT_FALSE(Exists("taggedcomments.xml") || Exists("taggedcomments.xml.bak"));
  Definitions.Load();
  EXPECT_THAT(Identifiers(Definitions), ElementsAre("##C", "##S"));
  Definitions.SaveToEx(Path("none.xml"), false, false);
  EXPECT_EQ(Read("none.xml"), Normal("<TaggedCommentDefs DefaultDesignerProgID='P'/>"));
  Definitions.SaveTo(Path("all.xml"));
  Definitions.LoadFrom(Path("all.xml"));
  EXPECT_THAT(Identifiers(Definitions), ElementsAre("##C", "##S"));
}

TEST_F(TaggedCommentFiles, CountAsReadWhereThereIsNone) {
  Definitions.LoadFrom(Path("missing.xml"));
  EXPECT_TRUE(Definitions.IsPopulated);
  EXPECT_EQ(Definitions.FileName, Path("missing.xml"));
  Definitions.IsPopulated = false;
  Write("f.xml", "<any><t/></any>");
  EXPECT_ERROR(kInvalidCall, Definitions.LoadFrom(Path("f.xml")));
  EXPECT_FALSE(Definitions.IsPopulated);
}

}  // namespace
}  // namespace lwconfig::testing
