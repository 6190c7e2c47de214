#include <tests/language_element.h>
#include <tests/tools/tool_test.h>

namespace lwconfig::testing {
namespace {

using ::testing::HasSubstr;

/// The small configuration with everything that stands beside profiles and templates.
class ShowMoreTest : public ToolTest {
 protected:
  ShowMoreTest() {
    Folder.Write("config/taggedcomments_standard.xml",
                 R"(<TaggedCommentDefs DefaultDesignerProgID="Usual.Editor">
  <TaggedComment Group="Details" Hidden="False" Identifier="##UNIT" ElementType="5" Description="The unit" Format=""
    General="False" WrapType="1" Namespace="LW:Property" XMLCommentTypes="unit,units" TabName="Value"/>
</TaggedCommentDefs>)");
    Folder.Write("config/taggedcomments_custom.xml",
                 R"(<TaggedCommentDefs DefaultDesignerProgID="Usual.Editor">
  <TaggedComment Group="House" Hidden="True" Identifier="##OLD" ElementType="0" Description="" Format=""
    General="False" WrapType="1" Standard="False" LegacyFor="##UNIT"/>
</TaggedCommentDefs>)");
    Folder.Write("config/modelcomments/Plant.xml",
                 R"(<ModelCommentProfile Namespace="LW.Core" Name="Plant" Description="Of the plant">
  <MC MemberType_Namespace="LW:Event" MemberName="Key*" TaggedCommentPrefix="##OLD" TaggedCommentText="A key."
    OnlyIfBlank="False" InsertionPoint="3"/>
</ModelCommentProfile>)");
    Folder.Write("config/CommentFileLocations.xml",
                 R"(<c><CommentFile AssemblyFileName="a.dll" CommentFilePath="%NETPATH%a.xml"/></c>)");
    Folder.Write("config/ExternalDocs.xml",
                 R"(<e><ExternalDoc Namespace="System*" URLFormat="https://x/%%Object%%">
  <DefaultMemberLink Help2Link="M:%%MemberName%%"/></ExternalDoc></e>)");
    Folder.Write("config/languages.xml", "<l>" +
                                             LanguageElement("C",
                                                             "<datatype type='System.Int32' Value='int'/>"
                                                             "<datatype type='System.Char' Value='char'/>",
                                                             "IncludeByDefault='True'") +
                                             "</l>");
  }
};

TEST_F(ShowMoreTest, DrawsComments) {
  EXPECT_EQ(Show("comments").Out, R"(comments (2)
├─ standard  1 tag
│  └─ ##UNIT  Details · for LW:Property · XML unit,units
└─ custom  1 tag
   └─ ##OLD  House · hidden → ##UNIT
)");
  EXPECT_THAT(Show("comments/standard/##unit").Out, HasSubstr("designer     Usual.Editor (default)\n"));
  EXPECT_EQ(Show("modelcomments").Out, R"(modelcomments (1)
└─ Plant
   │  description  Of the plant
   │  namespaces   LW.Core
   └─ Key*  LW:Event · at the end → ##OLD · A key.
)");
  EXPECT_EQ(Show("commentfiles/a.dll").Out, R"(a.dll
   comment file  C:\Windows\Microsoft.NET\Framework\\a.xml
   set as        %NETPATH%a.xml
)");
  Folder.Write("drives/c/Windows/Microsoft.NET/.keep", "");
  std::filesystem::create_symlink("Framework", Below("drives/c/Windows/Microsoft.NET/Framework"));
  const auto unresolved = Show("commentfiles/a.dll");
  EXPECT_EQ(unresolved.Out, "a.dll\n   comment file  %NETPATH%a.xml\n");
  EXPECT_EQ(unresolved.Status, 4) << unresolved.Err;
}

TEST_F(ShowMoreTest, DrawsLanguagesAndExternalDocumentation) {
  EXPECT_EQ(Show("languages").Out, "languages (1)\n└─ C  Caption  · included by default\n");
  const auto language = Show("languages/c").Out;
  EXPECT_THAT(language, HasSubstr("by reference            \"ByRef \"\n"));
  EXPECT_THAT(language, HasSubstr("data types              System.Int32 = int · System.Char = char\n"));
  EXPECT_EQ(Show("externaldocs/System*").Out, R"(System*
   class address        https://x/%%Object%%
   member link, help 2  M:%%MemberName%%
)");
}

TEST_F(ShowMoreTest, DrawsOptions) {
  ASSERT_EQ(Run("options set VBOptions.ToolbarStyle 0").Status, 0);
  EXPECT_EQ(Show("options/vboptions/ToolbarStyle").Out, R"(ToolbarStyle
   type     enumeration
   value    0 ToolbarStyleOfficeXP · stored
   default  2 ToolbarStyleOffice2003NoThemes
   section  VB
)");
  const auto all = Show("options").Out;
  EXPECT_TRUE(all.starts_with("options (5)\n")) << all;
  EXPECT_THAT(all, HasSubstr("= 0 ToolbarStyleOfficeXP · stored · default 2 Toolbar"));
}

TEST_F(ShowMoreTest, PrintsTheSameAsJson) {
  const auto json = Json("show");
  EXPECT_EQ(json["TaggedCommentDefs"][0]["TaggedCommentDefs"][0]["XMLCommentTypes"], "unit,units");
  EXPECT_EQ(json["TaggedCommentDefs"][1]["Standard"], false);
  EXPECT_EQ(json["ModelCommentProfiles"][0]["ModelComments"][0]["InsertionPoint"], 3);
  EXPECT_EQ(json["CommentFileLocations"][0]["InternalCommentFilePath"], "%NETPATH%a.xml");
  EXPECT_EQ(json["Languages"][0]["ReverseDataTypes"]["char"], "System.Char");
  EXPECT_EQ(json["Languages"][0]["ByRefWord"], "ByRef ");
  EXPECT_EQ(json["ExternalDocs"][0]["DefaultMemberLink"]["Help2LinkFormat"], "M:%%MemberName%%");
  EXPECT_EQ(json["Options"].size(), 5u);
  EXPECT_EQ(json["Options"][1]["Options"][0]["Value"], 2);
}

}  // namespace
}  // namespace lwconfig::testing
