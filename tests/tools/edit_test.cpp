#include <regex>

#include <tests/configuration.h>
#include <tests/tools/tool_test.h>

#include <lwconfig/core/files/disk_file.h>
#include <lwconfig/core/files/registry_access.h>

namespace lwconfig::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class EditTest : public ToolTest {
 protected:
  EditTest() {
    Folder.Write("config/ExternalDocs.xml", "<e><ExternalDoc Namespace=\"System*\" URLFormat=\"s\"/></e>");
    Folder.Write("config/modelcomments/One.xml",
                 "<ModelCommentProfile Namespace=\"LW.Core\" Name=\"One\" Description=\"d\"/>");
  }
  std::string Got(const std::string& path) { return RunIn("get \"" + path + '"').Out; }
  std::string Config() const { return Folder.Read("config/Templates/Small/config.xml"); }
  ToolResult Apply(std::string_view commands) {
    return RunIn("apply " + Folder.Write("commands.txt", commands).string());
  }
};

TEST_F(EditTest, ChangesAreSavedByTheirOwners) {
  const std::string before = Config();
  const std::tuple<const char*, const char*, const char*> kRows[] = {
      {"set PageTemplates[1].Description [x]", "PageTemplates[1].Description", "[x]\n"},
      {"set pagetemplates[small].BorderWidth -3", "PageTemplates[1].BorderWidth", "-3\n"},
      {"set PageTemplates[1].UseDropShadow yes", "PageTemplates[1].UseDropShadow", "True\n"},
      {"set PageTemplates[1].PageLayouts[1].PageType PGEVENT", "PageTemplates[1].PageLayouts[1].PageType",
       "pgEvent\n"},
      {"set PageTemplates[1].TOCDefinitions[1].NodeDefs[N2].PageLayout "
       "@PageTemplates[1].PageLayouts[template.hhc]",
       "PageTemplates[1].TOCDefinitions[1].NodeDefs[N2].PageLayout.FileName", "template.hhc\n"},
      {"add PageTemplates[1].VariableDefs Name=New Description= VariableDefType=vdtDate --before 1",
       "PageTemplates[1].VariableDefs", "New\nFooter\n"},
      {"remove PageTemplates[1].VariableDefs[-1]", "PageTemplates[1].VariableDefs", "New\n"},
      {"add PageTemplates[1].SupportedItemTypes [files]", "PageTemplates[1].SupportedItemTypes",
       "binary\nsource\n[files]\n"},
      {"add ExternalDocs NamespaceName=My* ClassLink.URLFormat=u --before System*",
       "ExternalDocs[1].URLFormat", "u\n"},
      {"add CommentFileLocations AssemblyFileName=a.dll CommentFilePath=a.xml",
       "CommentFileLocations[1].AssemblyFileName", "a.dll\n"},
      {"add TaggedCommentDefs TagIdentifier=@x: ElementType=etModule Description=d",
       "TaggedCommentDefs['@x:'].Description", "d\n"},
      {"add ModelCommentProfiles[One] MemberType=mtModule MemberName=Item TaggedCommentPrefix=p",
       "ModelCommentProfiles[One][1].MemberType_Namespace", "LW:Module\n"},
      {"set PageTemplates[1].objFillColor '#ff8000'", "PageTemplates[1].objFillColor", "#ff8000\n"},
      {"set PageTemplates[1].colTextColor 255", "PageTemplates[1].colTextColor", "#ff0000\n"},
      {"set PageTemplates[1].colFillColor '&H80000005&'", "PageTemplates[1].colFillColor", "&H80000005&\n"},
      {"set VBOptions.WrapCharacters 72", "VBOptions.WrapCharacters", "72\n"},
      {"set VBOptions.PreviewTemplate 'a\x01'", "VBOptions.PreviewTemplate", "a\x01\n"},
  };
  for (const auto& [command, path, got] : kRows) {
    const auto done = RunIn(command);
    EXPECT_EQ(done.Status, 0) << done.Err;
    EXPECT_THAT(done.Out, ::testing::ContainsRegex("^(wrote <test>/config/|set HKEY_CURRENT_USER)"));
    EXPECT_EQ(Got(path), got);
  }
  EXPECT_NE(Config(), before);
  EXPECT_EQ(Json("get PageTemplates[1].objFillColor"), 0x0080FF);
  // What was printed of a value finds it.
  EXPECT_EQ(RunIn("set VBOptions.WrapCharacters 73").Out,
            "set HKEY_CURRENT_USER/Software/Corvantis/Lexiwend4/VB WrapCharacters\n");
  EXPECT_EQ(Run("registry get HKEY_CURRENT_USER/Software/Corvantis/Lexiwend4/VB WrapCharacters").Out, "73\n");
  for (const char* path : {"ExternalDocs[1].NamespaceName My*", "PageTemplates[1].objFillColor '#ff8000'",
                           "ModelCommentProfiles[One][1].MemberType mtModule"}) {
    const auto same = RunIn("set " + std::string(path));
    EXPECT_EQ(same.Out, "");
    EXPECT_EQ(same.Err, "lwconfig: note: nothing changes in what is saved\n");
  }
}

TEST_F(EditTest, WhatCannotBeDoneIsToldAndWritesNothing) {
  Set("LWCONFIG_STARTER", Below("config"));
  // In an older file the version changes with any save, and still not to what was asked for.
  Folder.Write("config/Templates/Small/config.xml",
               std::regex_replace(Config(), std::regex("4\\.11"), "4.0"));
  const std::string before = Config();
  ExpectRefusals({
      {"set PageTemplates[1].PageLayouts[1].PageType pgMetho", 2, "did you mean 'pgMethod'?"},
      {"set PageTemplates[1].BorderWidth 2.5", 2, "'2.5' is not a whole number"},
      {"set PageTemplates[1].BorderWidth 9999999999", 2, "whole number that fits"},
      {"set PageTemplates[1].DiagramBold maybe", 2, "'maybe' is not True or False"},
      {"set PageTemplates[1].objFillColor '#ff80'", 2, "'#ff80' is not a colour"},
      {"set PageTemplates[1].Description 'a\x01' -n", 2, "the text has U+0001"},
      {"add ExternalDocs NamespaceName=\xEF\xBF\xBE", 2, "the text has U+FFFE"},
      {"add PageTemplates[1].SupportedItemTypes \xff", 2, "the text is not valid UTF-8"},
      {"call ExternalDocs.URL \x02", 2, "the text has U+0002"},
      {"set VBOptions.ToolbarStyle 3", 2, "there is no value '3' of LWToolBarStyleEnum"},
      {"set PageTemplates[1].PageLayouts x", 2, "@ and the path of an object"},
      {"set PageTemplates[1].PageLayouts @PageTemplates", 2, "a PageLayouts was expected"},
      {"set PageTemplates[1].PageLayouts @PageTemplates[2]", 1, "column 15 of 'PageTemplates[2]'"},
      {"set PageTemplates[1].PlugIns null", 2, "can only be read"},
      {"set PageTemplates[1] x", 2, "the path of a property was expected"},
      {"set PageTemplates[1].NamespaceDefs[1].Caption x", 2, "the model only reads it"},
      {"set NamespaceProfiles[1].Caption x", 2, "the model only reads it"},
      {"set ReloadFlag True", 2, "not kept in any file"},
      {"set PageTemplates[1].PageLayouts[1].FileName none.html", 2, "saved and loaded again it is not there"},
      {"set PageTemplates[1].Version 9", 2,
       "column 18 of 'PageTemplates[1].Version': PageTemplate.Version cannot be set to '9': saved and loaded "
       "again it is '4.11'. Version of the file as read; a save writes the current one."},
      {"set PageTemplates[1].PageLayouts[1].NodeTag x", 2, "neither loaded nor saved"},
      {"set PageTemplates[1].TOCDefinitions[1].NodeDefs[N2].ParentKey N3", 2, "is 'N1'"},
      {"add PageTemplates[1].TOCDefinitions[1].NodeDefs PageType=pgMethod", 2, "NodeDef.PageType cannot be"},
      {"set PageTemplates[1].PageLayouts[1].PageType 99", 2, "there is no value '99' of PageTypeEnum"},
      {"set PageTemplates[1].objFillColor 16777216", 2, "is not a colour"},
      {"set PageTemplates[1].PageLayouts[1].FileName ''", 2, "is the key of the item and cannot be empty"},
      {"add PageTemplates[1].SupportedItemTypes a,b", 2, "loaded again it has 'binary', 'source', 'a', 'b'"},
      {"add ExternalDocs NamespaceName=system*", 2, "already"},
      {"set PageTemplates[1].TOCDefinitions[1].NodeDefs[N1].Key n2", 2, "there is an item 'n2' already"},
      {"set ModelCommentProfiles[1].Name ../x", 3, "error 52 of LWConfigObjects"},
      {"call PageTemplates[1].EnabledPlugins.Add LW.Core --save", 3, "could not be read any more"},
      {"add ExternalDocs NamespaceNam=x", 1, "did you mean 'NamespaceName'?"},
      {"add ExternalDocs x", 2, "MEMBER=VALUE was expected"},
      {"add ExternalDocs NamespaceName=x --after 7", 1, "no item '7' to add beside"},
      {"add PageTemplates[1] Name=x", 2, "nothing can be added to a PageTemplate"},
      {"remove ExternalDocs[7]", 1, "there is no item 7"},
      {"remove ExternalDocs", 2, "the path of an item"},
      {"remove ModelCommentProfiles[1]", 2, "remove the file"},
      {"call ExternalDocs.URL", 2, "(ObjectFullName) is missing"},
      {"call ExternalDocs.Dirty", 2, "'lwconfig get' reads it"},
      {"call PageTemplates.Remove 7", 3, "error 9 of LWConfigObjects in PageTemplates.Remove"},
  });
  // Never the starter, and never what was read in part.
  EXPECT_EQ(Run("set PageTemplates[1].Name x").Status, 2);
  EXPECT_EQ(Run("set VBOptions.Grouped True").Status, 0);
  Folder.Write("config/ExternalDocs.xml", "<e><ExternalDoc Namespace=\"A\"/><ExternalDoc/></e>");
  ExpectRefusals({{"set ExternalDocs[1].URLFormat x", 3, "could lose what was not read"}});
  EXPECT_EQ(Config(), before);
  EXPECT_FALSE(std::filesystem::exists(Below("config/Templates/Small/config.xml.bak")));
}

TEST_F(EditTest, ValuesThatAreKeptInAnotherFormAreTold) {
  const std::pair<const char*, const char*> kRows[] = {
      {"set PageTemplates[1].StyleSheet x.css", ""},
      {"set PageTemplates[1].StyleSheet ''", "reads as 'stylesheets\\stylesheet.css'"},
      {"set VBOptions.VBCommentMode 0",
       "'ModeDocComments' is stored, but VBOptions.VBCommentMode reads as 'ModeVBCode'"},
  };
  for (const auto& [command, note] : kRows) {
    const auto done = RunIn(command);
    EXPECT_EQ(done.Status, 0) << done.Err;
    EXPECT_THAT(done.Err, HasSubstr(note)) << command;
    EXPECT_NE(done.Out, "") << command;
  }
}

TEST_F(EditTest, CallsMethods) {
  EXPECT_EQ(RunIn("call ExternalDocs.URL System.Text").Out, "s\n");
  EXPECT_EQ(RunIn("call GetDefaultTemplate LW.Core --json").Status, 0);
  const auto filled = RunIn("call NamespaceProfiles[1].GetNamespaceDefsByName LW:Module");
  EXPECT_EQ(filled.Out, "1\ncol = 1\n") << filled.Err;
  const auto unsaved = RunIn("call PageTemplates[1].VariableDefs.Remove 1");
  EXPECT_EQ(unsaved.Status, 0) << unsaved.Err;
  EXPECT_EQ(Got("PageTemplates[1].VariableDefs.Count"), "1\n");
  const auto saved = RunIn("call PageTemplates[1].VariableDefs.Remove Footer --save");
  EXPECT_THAT(saved.Err, HasSubstr("note: wrote <test>/config/Templates/Small/config.xml"));
  EXPECT_EQ(Got("PageTemplates[1].VariableDefs.Count"), "0\n");
}

TEST_F(EditTest, ADryRunPrintsWhatWouldBeWritten) {
  EXPECT_EQ(RunIn("set ExternalDocs[1].URLFormat first").Status, 0);
  const std::string before = Folder.Read("config/ExternalDocs.xml");
  const auto dry = RunIn("set ExternalDocs[1].URLFormat second --dry-run");
  EXPECT_EQ(dry.Status, 0) << dry.Err;
  EXPECT_THAT(dry.Out,
              ::testing::MatchesRegex("--- <test>/config/ExternalDocs.xml\n\\+\\+\\+ <test>/config/"
                                      "ExternalDocs.xml\n@@ -1,[0-9] \\+1,[0-9] @@\n(.|\n)*-[^\n]*first"
                                      "(.|\n)*\\+[^\n]*second(.|\n)*"));
  EXPECT_EQ(Folder.Read("config/ExternalDocs.xml"), before);
  ASSERT_EQ(Run("registry set HKCU/Software/Corvantis/Lexiwend4/VB WrapCharacters 80 --type dword").Status,
            0);
  EXPECT_EQ(RunIn("set VBOptions.WrapCharacters 72 -n").Out,
            "--- registry\n+++ registry\n [HKEY_CURRENT_USER\\Software\\Corvantis\\Lexiwend4\\VB]\n"
            "-\"WrapCharacters\"=dword:00000050\n+\"WrapCharacters\"=\"72\"\n");
  EXPECT_EQ(Got("VBOptions.WrapCharacters"), "80\n");
  EXPECT_THAT(RunIn("set PageTemplates[1].Name x -n").Out,
              HasSubstr("copy <test>/config/Templates/Small/config.xml as it is to "
                        "<test>/config/Templates/Small/config.xml.bak\n"));
}

TEST_F(EditTest, AFileOfCommandsIsDoneWhollyOrNotAtAll) {
  const auto done = Apply(
      "# change three files\nset PageTemplates[1].Description 'Two\nlines'\n\n"
      "add ExternalDocs NamespaceName=B* --before 1 # there\n"
      "set ExternalDocs[B*].URLFormat \"b\"\nset VBOptions.Grouped True\n"
      "call ExternalDocs.URL B.x");
  EXPECT_EQ(done.Status, 0) << done.Err;
  EXPECT_THAT(done.Out,
              HasSubstr("b\nwrote <test>/config/Templates/Small/config.xml.bak\nwrote "
                        "<test>/config/Templates/Small/config.xml\nwrote <test>/config/ExternalDocs.xml\n"
                        "set HKEY_CURRENT_USER"));
  EXPECT_EQ(Got("PageTemplates[1].Description"), "Two\nlines\n");
  EXPECT_EQ(Got("ExternalDocs[1].URLFormat"), "b\n");

  const std::string before = Config();
  const Refusal kRows[] = {
      {"set PageTemplates[1].Name x\n  set PageTemplates[1].'Nam' y\n", 1,
       "<test>/commands.txt:2:25: error: there is no member 'Nam'"},
      {"set PageTemplates[1].Name x\nset VBOptions.Grouped maybe", 2, "commands.txt:2:23: error: 'maybe'"},
      {"set VBOptions.Grouped False\nadd ExternalDocs NamespaceName=X URLForma=y", 1,
       "commands.txt:2:34: error:"},
      {"set VBOptions.Grouped False\nadd ExternalDocs \"NamespaceName=B*\"", 2, "commands.txt:2:33: error:"},
      {"set VBOptions.Grouped False\nremov ExternalDocs[1]", 2,
       "2:1: error: there is no command 'remov'; did"},
      {"set VBOptions.Grouped False\nset VBOptions.Grouped", 2, "2:1: error: VALUE is required"},
      {"set VBOptions.Grouped False\nset 'x", 2, "2:5: error: the quotation mark is not closed"},
      {"set VBOptions.Grouped False\n set PageTemplates[1].Version 9\nset PageTemplates[1].Name y", 2,
       "2:23: error: PageTemplate.Version"},
      {"set VBOptions.Grouped False\ncall PageTemplates.Remove 7", 3, "2:1: error: the command here failed"},
  };
  for (const auto& row : kRows) {
    const auto failed = Apply(row.Line);
    EXPECT_EQ(failed.Status, row.Status) << failed.Err;
    EXPECT_THAT(failed.Err, HasSubstr(row.Message));
    EXPECT_THAT(failed.Err, HasSubstr("nothing was written"));
  }
  EXPECT_EQ(Config(), before);
  EXPECT_EQ(Got("VBOptions.Grouped"), "True\n");
  EXPECT_EQ(RunIn("apply " + Below("missing")).Status, 4);
}

}  // namespace
}  // namespace lwconfig::testing
