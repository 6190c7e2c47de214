#include <tests/tools/tool_test.h>

#include <lwconfig/core/base/text.h>
#include <lwconfig/platform/files.h>

namespace lwconfig::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

class ShowTest : public ToolTest {};

TEST_F(ShowTest, DrawsTheWholeConfiguration) {
  const auto shown = Show("");
  EXPECT_EQ(shown.Status, 0);
  EXPECT_EQ(shown.Err, "");
  EXPECT_THAT(shown.Out, StartsWith(R"(paths
   configuration  <test>/config
   templates      <test>/config/Templates
   installation   not registered
   .NET           C:\Windows\Microsoft.NET\Framework\\ · <test>/drives/c/Windows/Microsoft.NET/Framework

namespaces (1)
└─ LW.Core
   │  caption   Core & more
   │  supports  source
   ├─ definitions (1)
   │  └─ LW:Project    Project · include on
   │     └─ LW:Module  Module
   └─ elements (1)
      └─ LW:Value  Text · A value
            attributes  of, case

plugins (1)
└─ LW.Core
      description    The core
      wizard         yes → Core.Wizard
      contents tree  yes

templates (1)
└─ Small/er one
   │  description       Tiny
   │  folder            <test>/config/Templates/Small
   │  category          VB source code, COM Components and Type Libraries
   │  version           4.11
   │  item types        binary, source
   │  namespaces        LW.Core
   │  plug-ins          LW.Core
   │  style sheet       stylesheets\stylesheet.css
   │  objects           fill #ff00ff · text #000000 · border #000000
   │  collections       fill #000000 · text #000000 · border #000000
   │  diagrams          border width 2 · bold captions
   │  default contents  project: Main
   ├─ layouts (2)
   │  ├─ method.html   method · per LW:Method,LW:ImplementedMethod → %%name%%.html · if 2+ LW:Method where Public
   │  └─ template.hhc  help project → %%projectgroupname%%.hhc
   ├─ contents (1)
   │  └─ Main  Everything
   │     └─ Methods      book, new
   │        ├─ %%name%%  page · per LW:Method → method.html
   │        └─ Diagram   icon 7 · by plug-in LW.Diagrams (x) · if 1+ LW:Project
   └─ variables (1)
      └─ Footer  colour · = #fff

comments (2)
├─ standard  0 tags
└─ custom    0 tags

modelcomments (0)

commentfiles (0)

languages (0)

externaldocs (0)  the first pattern that covers a name is used

options (5)
├─ VSNETOptions
│  ├─ FullPageEditExcludedLanguages  = "" · default
)"));
}

TEST_F(ShowTest, PrintsTheSameAsJson) {
  const auto json = Json("show");
  EXPECT_EQ(json["NamespaceProfiles"][0]["NamespaceDefs"][0]["ChildNamespaceDefs"][0]["FileNameFormat"],
            "%%name%%.html");
  EXPECT_EQ(json["NamespaceProfiles"][0]["ElementDefs"][0]["ElementAttributeDefs"][0]["Mandatory"], true);
  EXPECT_EQ(json["PlugIns"][0]["ExtendsContent"], false);
  EXPECT_EQ(json["PlugIns"][0]["Key"].get<std::string>().front(), 'P');
  const auto& pageTemplate = json["PageTemplates"][0];
  EXPECT_EQ(pageTemplate["Name"], "Small/er one");
  EXPECT_EQ(pageTemplate["objFillColor"], 16711935);
  EXPECT_EQ(pageTemplate["EnabledPlugins"], nlohmann::json::array({"LW.Core"}));
  EXPECT_EQ(pageTemplate["NamespaceDefs"], nlohmann::json::array({"LW:Project"}));
  EXPECT_EQ(pageTemplate["PageLayouts"][0]["DependantCount"], 2);
  const auto& nodes = pageTemplate["TOCDefinitions"][0]["NodeDefs"];
  EXPECT_EQ(nodes.size(), 1u);
  EXPECT_EQ(nodes[0]["ChildNodeDefs"][1]["NodeIconIndex"], 7);
  EXPECT_EQ(nodes[0]["ChildNodeDefs"][1]["DependantOnNamespace"], "LW:Project");
  EXPECT_EQ(pageTemplate["VariableDefs"][0]["VariableDefType"], 4);
}

TEST_F(ShowTest, ShowsAnObjectByItselfInFull) {
  EXPECT_EQ(Show("templates/small/contents/main/n3").Out, R"(Diagram
   key        N3
   produced   by plug-in LW.Diagrams (x)
   icon       icon 7
   condition  if 1+ LW:Project
)");
  EXPECT_EQ(Show("namespaces/LW.Core/LW:Value").Out, R"(LW:Value
│  description  A value
│  category     Text
└─ attributes (2)
   ├─ of    mandatory · List · = a · of a,b · Which
   └─ case  Letter case
)");
}

TEST_F(ShowTest, FindsPartsByTheirNames) {
  const std::pair<const char*, std::string> kRows[] = {
      {"PATHS", "paths"},
      {"/namespaces/", "namespaces (1)"},
      {"namespaceprofiles/lw.core", "LW.Core"},
      {"namespaces/LW.Core/ELEMENTS", "elements (1)"},
      {"namespaces/LW.Core/lw:module", "LW:Module"},
      {"namespaces/LW.Core/definitions/LW:Module", "LW:Module"},
      {"'templates/small/ER one'", "Small/er one"},
      {"'templates/small/er one/Layouts'", "layouts (2)"},
      {"templates/SMALL/PageLayouts/Method.HTML", "method.html"},
      {"templates/small/footer", "Footer"},
      {"templates/small/contents/main/%%NAME%%", "%%name%%"},
  };
  for (const auto& [what, firstLine] : kRows) {
    const auto shown = Show(what);
    EXPECT_EQ(shown.Status, 0) << what << ": " << shown.Err;
    EXPECT_THAT(shown.Out, StartsWith(firstLine + "\n")) << what;
  }
  // Several objects of one name are shown all.
  Folder.Write("config/PlugIns/second.xml", Folder.Read("config/PlugIns/core.xml"));
  EXPECT_EQ(Json("show plugins/lw.core").size(), 2u);
}

TEST_F(ShowTest, SaysWhatThereIsInsteadOfAnUnknownName) {
  ExpectRefusals({
      {"show templats/x", 1,
       "error: there is no 'templats'; did you mean 'templates'?\nWhat there is:\n  templates\n  paths\n"
       "  namespaces\n  plugins\n  comments\n  modelcomments\n  commentfiles\n  languages\n"
       "  externaldocs\n  options\n"},
      {"show templates/smal", 1, "there is no 'smal'; did you mean 'Small/er one'?\nWhat there is:\n  Small"},
      {"show templates/small/nothing", 1, "'nothing'\nWhat there is:\n  layouts\n  contents\n  variables\n"},
  });
  EXPECT_EQ(Show("plugins/lw.core/x").Err, "lwconfig: error: there is no 'x'\n");
}

TEST_F(ShowTest, OpensTheRegisteredConfigurationElseTheStarter) {
  Set("LWCONFIG_STARTER", Below("config"));
  const auto starter = Run("show plugins");
  EXPECT_EQ(starter.Status, 0);
  EXPECT_THAT(starter.Err, HasSubstr("starter configuration in <test>/config"));
  EXPECT_THAT(starter.Out, StartsWith("plugins (1)"));

  Folder.Write(
      "registry/machine.reg",
      "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\Software\\Corvantis\\Lexiwend4]\n\"ConfigPath\"=\"C:\\\\Lexi\"\n"
      "\"InstallPath4\"=\"C:\\\\App\"\n");
  const auto registered = Run("show paths --json");
  EXPECT_EQ(registered.Err, "");
  EXPECT_EQ(nlohmann::json::parse(registered.Out)["ConfigPath"], "C:\\Lexi");
  // A folder replaces the configuration path only.
  const auto folder = Json("show paths");
  EXPECT_EQ(folder["AppPath"], "C:\\App");
  EXPECT_THAT(folder["ConfigPath"].get<std::string>(), ::testing::EndsWith("\\config"));

  for (const char* name : {"HOME", "LWCONFIG_DRIVES"}) Set(name, nullptr);
  EXPECT_THAT(Run("show paths").Out, HasSubstr("C:\\Lexi"));
}

TEST_F(ShowTest, TellsOfMissingFolders) {
  const auto missing = Run("show --config " + Below("nowhere"));
  EXPECT_EQ(missing.Status, 4);
  EXPECT_EQ(missing.Err, "<test>/nowhere: error: there is no such folder\n");

  std::filesystem::create_directories(Below("empty"));
  const auto empty = Run("show templates --config " + Below("empty"));
  EXPECT_EQ(empty.Status, 3);
  EXPECT_THAT(empty.Err, HasSubstr("lwconfig: warning: Folder not found: Lexiwend namespaces folder"));
  EXPECT_THAT(empty.Err, HasSubstr("lwconfig: warning: Folder not found: Lexiwend templates folder"));
  EXPECT_THAT(empty.Err, HasSubstr("lwconfig: note: on this system the folder is <test>/empty/Templates\n"));
  EXPECT_EQ(empty.Out, "templates (0)\n");
}

TEST_F(ShowTest, ARegisteredFolderThatIsGoneIsAnErrorOfEverythingInIt) {
  Folder.Write(
      "registry/machine.reg",
      "REGEDIT4\n\n[HKEY_LOCAL_MACHINE\\Software\\Corvantis\\Lexiwend4]\n\"ConfigPath\"=\"C:\\\\Lexi\"\n");
  for (const char* line : {"show", "show languages", "template list", "link x", "phrase t --compare"}) {
    const auto shown = Run(line);
    EXPECT_EQ(shown.Status, 4) << line;
    EXPECT_EQ(shown.Err, "<test>/drives/c/Lexi: error: the registered configuration folder does not exist\n");
    EXPECT_EQ(shown.Out, "");
  }
  EXPECT_EQ(Run("show options").Status, 0);
  for (const char* command : {"show", "options", "template"})
    EXPECT_EQ(Run(std::string(command) + " --config ''").Status, 2) << command;
}

TEST_F(ShowTest, ShowsWhatCouldBeLoaded) {
  Folder.Write("config/Templates/Third/config.xml", "<PageTemplate Name=\"Third\">\n  <PageLayout");
  Folder.Write("config/Templates/Zebra/config.xml", "<PageTemplate Name=\"Z\" Description=\"\"/>");
  const auto shown = Show("templates");
  EXPECT_EQ(shown.Status, 3);
  EXPECT_THAT(shown.Out, StartsWith("templates (1)\n└─ Small/er one\n"));
  EXPECT_THAT(shown.Err, HasSubstr("<test>/config/Templates/Third/config.xml:2:"));
  EXPECT_THAT(shown.Err, HasSubstr(": error: not well-formed XML"));
  EXPECT_THAT(shown.Err, HasSubstr("<test>/config/Templates/Third/config.xml:1:"));
  EXPECT_THAT(shown.Err, HasSubstr(": error: "));
  EXPECT_THAT(shown.Err, HasSubstr("this file ends the load; files after it that are not read: 1\n"));
  // What the fault does not touch is shown without a word.
  EXPECT_EQ(Show("plugins").Status, 0);

  std::filesystem::remove_all(Below("config/Templates/Third"));
  Folder.Write("config/Namespaces/second.xml", "<p Name=\"lw.core\"/>");
  const auto second = Show("templates");
  EXPECT_EQ(second.Status, 3);
  EXPECT_THAT(second.Err, HasSubstr("<test>/config/Namespaces/second.xml:1:"));
  EXPECT_THAT(second.Out, StartsWith("templates (2)\n"));
}

TEST_F(ShowTest, ADamagedRegistryIsAFileError) {
  Folder.Write("registry/machine.reg", "no registry\n");
  const auto shown = Run("show paths");
  EXPECT_EQ(shown.Status, 4);
  EXPECT_THAT(shown.Err, StartsWith("<test>/registry/machine.reg:1:1: error: "));
}

TEST_F(ShowTest, NodesInAParentLoopAreShownApart) {
  Folder.Write("config/Templates/Loop/config.xml", R"(<PageTemplate Name="Loop" Description="">
  <TOCDefinition Name="T" Description="">
    <NodeDef Key="N1" NodeCaptionTemplate="one" ParentKey="N2"/>
    <NodeDef Key="N2" NodeCaptionTemplate="two" ParentKey="N1"/>
    <NodeDef Key="N3" NodeCaptionTemplate="below" ParentKey="N2"/>
    <NodeDef Key="N4" NodeCaptionTemplate="fine"/>
  </TOCDefinition></PageTemplate>)");
  const auto shown = Show("templates/loop/contents/t");
  EXPECT_EQ(shown.Status, 0);
  EXPECT_EQ(
      shown.Err,
      "<test>/config/Templates/Loop/config.xml:3:49: warning: the parents go round in a loop: N1, N2\n");
  EXPECT_EQ(shown.Out, R"(T
├─ fine  page
└─ loops (3)  their parents lead back to themselves
   ├─ one    book · N1 below N2
   ├─ two    book · N2 below N1
   └─ below  page · N3 below N2
)");
}

TEST_F(ShowTest, DeepTreesAreCutAndFoundAtAnyDepth) {
  constexpr int kLevels = 20000;
  std::string definitions = "<p Name=\"Deep\">";
  std::string nodes =
      "<PageTemplate Name=\"Deep\" Description=\"\"><TOCDefinition Name=\"T\" Description=\"\">";
  for (int level = 1; level <= kLevels; ++level) {
    definitions += "<lwnamespace Name=\"D" + std::to_string(level) + "\" Handler=\"\" Caption=\"\">";
    nodes +=
        "<NodeDef Key=\"N" + std::to_string(level) + "\" ParentKey=\"N" + std::to_string(level - 1) + "\"/>";
  }
  for (int level = 1; level <= kLevels; ++level) definitions += "</lwnamespace>";
  Folder.Write("config/Namespaces/deep.xml", definitions + "</p>");
  Folder.Write("config/Templates/Deep/config.xml", nodes + "</TOCDefinition></PageTemplate>");
  EXPECT_THAT(Show("namespaces/deep --width 80").Out, HasSubstr("└─ deeper levels not shown (19800)\n"));
  const auto contents = Show("templates/deep/contents --json");
  EXPECT_EQ(contents.Status, 0);
  EXPECT_THAT(contents.Out, HasSubstr("\"DeeperLevelsNotShown\": 19801\n"));
  // The last but one of either tree.
  EXPECT_EQ(Json("show namespaces/deep/d19999")["ChildNamespaceDefs"].size(), 1u);
  EXPECT_EQ(Json("show templates/deep/contents/t/n19999")["ChildNodeDefs"].size(), 1u);
}

TEST_F(ShowTest, HelpAndMisuse) {
  const auto help = Run("");
  EXPECT_EQ(help.Status, 0);
  EXPECT_EQ(help.Out, Run("--help").Out);
  for (const char* part : {"Usage: lwconfig", "LWCONFIG_REGISTRY", "Exit status:"})
    EXPECT_THAT(help.Out, HasSubstr(part));
  EXPECT_THAT(Run("show --help").Out, HasSubstr("templates/NAME/layouts"));
  EXPECT_THAT(Run("--version").Out, ::testing::MatchesRegex("lwconfig [0-9.]+\n"));
  // Options may come before the command.
  EXPECT_EQ(Run("-jc " + Below("config") + " show paths").Out, RunIn("show paths --json").Out);
  EXPECT_EQ(Run("--config=" + Below("config") + " options list --json").Out, RunIn("options --json").Out);
  EXPECT_EQ(Run("help registry set").Out, Run("registry set --help").Out);
  EXPECT_EQ(Run("help").Out, help.Out);
  EXPECT_THAT(Run("help registry sets").Err, HasSubstr("did you mean 'set'?"));
  ExpectRefusals(
      {{"shwo", 2, "there is no 'shwo'; did you mean 'show'?\nWhat there is:\n  show\n"},
       {"edit", 2, "there is no 'edit'\nWhat there is:\n  show\n"},
       {"describ", 2,
        "What there is:\n  describe\n  show\n  check\n  get\n  ls\n  set\n  add\n  remove\n  call\n"
        "  apply\n  and 9 more\n"},
       {"--json set PageTemplates[1].Name x", 2, "not expected: --json"},
       {"--width 5 show", 2, "not in range 20 to 10000"},
       {"show --width=3", 2, ""},
       {"show --color=red", 2, ""},
       {"show --nope", 2, ""},
       {"show paths plugins", 2, ""}});
}

}  // namespace
}  // namespace lwconfig::testing
