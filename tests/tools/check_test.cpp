#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <sys/stat.h>
#include <tests/tools/tool_test.h>

#include <lwconfig/core/loading/problem.h>
#include <lwconfig/platform/files.h>

namespace lwconfig {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

/// The example of one code: files to write, and what is then printed.
struct Example {
  struct File {
    std::string Path;
    std::string How;
    std::string Content;
  };
  std::string Code;
  std::string Severity;
  std::vector<File> Files{};
  std::string Printed{};
};

/// Reads the documentation: a file is "`path`:" or "`path` (how):" and a block, what is printed a block
/// alone. The first example has no code; it is what the others stand in.
std::vector<Example> DocumentedExamples() {
  static const std::regex file("`([^`]+)`(?: \\(([^)]*)\\))?:");
  std::istringstream lines(platform::Files::Native().Read(std::string(testing::kGuidesFolder) + "/check.md"));
  std::vector<Example> examples(1);
  bool isNamed = false;
  for (std::string line; std::getline(lines, line);) {
    std::smatch parts;
    if (line.starts_with("### ")) {
      examples.push_back({line.substr(4), {}});
    } else if (examples.back().Severity.empty() &&
               (line.starts_with("Error.") || line.starts_with("Warning."))) {
      examples.back().Severity = line.starts_with("Error.") ? "error" : "warning";
    } else if (std::regex_match(line, parts, file)) {
      examples.back().Files.push_back({parts[1], parts[2], {}});
      isNamed = parts[2] != "missing" && parts[2] != "a pipe";
    } else if (line.starts_with("```")) {
      std::string block;
      while (std::getline(lines, line) && line != "```") block += line + "\n";
      (isNamed ? examples.back().Files.back().Content : examples.back().Printed) = block;
      isNamed = false;
    }
  }
  return examples;
}

class CheckCommand : public testing::ToolTest {
 protected:
  testing::ToolResult Check(const std::string& options = {}) {
    auto result = Run("check --config " + Below("checked") + " " + options);
    result.Out = std::regex_replace(result.Out, std::regex("<test>/checked/"), "");
    return result;
  }

  void Write(const Example& example) {
    for (const auto& [path, how, content] : example.Files) {
      const std::string full = Below("checked/" + path);
      if (how == "missing") {
        std::filesystem::remove_all(full);
      } else if (how == "a pipe") {
        ASSERT_EQ(::mkfifo(full.c_str(), 0600), 0);
      } else {
        const bool isWindows = path.ends_with(".txt") && how.empty();
        Folder.Write("checked/" + path,
                     isWindows ? std::regex_replace(content, std::regex("\n"), "\r\n") : content);
      }
    }
  }
  void WriteTemplate(const std::string& name, const std::string& content) {
    Folder.Write("checked/Templates/" + name + "/config.xml", content);
  }
  void Reset() {
    std::filesystem::remove_all(Below("checked"));
    Write(DocumentedExamples().front());
  }
};

TEST_F(CheckCommand, EveryExampleOfTheDocumentationIsTrue) {
  Set("LWCONFIG_REGISTRY", Below("checked/registry"));
  const auto examples = DocumentedExamples();
  std::map<std::string, std::string> documented;
  std::set<std::string> withoutExample;
  for (const Example& example : examples) {
    SCOPED_TRACE(example.Code);
    Reset();
    if (example.Code.empty()) {
      EXPECT_EQ(Check().Out, "5 files: no problems\n");
      continue;
    }
    documented[example.Code] = example.Severity;
    if (example.Files.empty()) {
      withoutExample.insert(example.Code);
      continue;
    }
    Write(example);
    const auto result = Check();
    const auto summary = result.Out.rfind('\n', result.Out.size() - 2) + 1;
    EXPECT_EQ(result.Out.substr(0, summary), example.Printed);
    EXPECT_THAT(example.Printed, HasSubstr(example.Severity + ": "));
    EXPECT_THAT(example.Printed, HasSubstr("[" + example.Code + "]\n"));
    EXPECT_EQ(result.Err, "");
    const bool isOfFiles = example.Code == "unreadable-file" || example.Code == "missing-folder";
    EXPECT_EQ(result.Status, isOfFiles ? 4 : example.Severity == "error" ? 3 : 0);
  }
  std::map<std::string, std::string> known;
  for (const ProblemKind& kind : ProblemKinds())
    known[kind.Code] = kind.Severity == Severity::Error ? "error" : "warning";
  EXPECT_EQ(documented, known);
  EXPECT_EQ(withoutExample, (std::set<std::string>{"not-loaded", "other"}));
}

TEST_F(CheckCommand, TheStarterConfigurationIsClean) {
  const auto result = Run("check");
  EXPECT_EQ(result.Status, 0);
  EXPECT_THAT(result.Out, ::testing::EndsWith(" files: no problems\n"));
}

TEST_F(CheckCommand, GoesOnAfterEachFailureAndReportsInReadingOrder) {
  Reset();
  Folder.Write("checked/Namespaces/A.xml",
               "<N Name='A'><lwnamespace Name='x' Caption='y'/>"
               "<lwnamespace Name='z'/></N>");
  Folder.Write("checked/Namespaces/B.xml", "<N Name='a'/>");
  Folder.Write("checked/PlugIns/broken.xml", "<PlugIns><PlugIn Name='ä' Ö='1'/><PlugIn");
  WriteTemplate("A",
                "<PageTemplate>\n\n <TOCDefinition Name='T' Description=''><NodeDef Key='N1'/>\n"
                "<NodeDef Key='n1'/><NodeDef Kex='N2'/></TOCDefinition>\n</PageTemplate>");
  const auto result = Check();
  std::vector<std::string> places;
  std::istringstream lines(result.Out);
  for (std::string line; std::getline(lines, line);) {
    static const std::regex place("(.*): (?:error|warning): .*\\[(.*)\\]");
    places.push_back(std::regex_replace(line, place, "$1 $2"));
  }
  EXPECT_THAT(
      places,
      ElementsAre("Namespaces/A.xml:1:14 missing-attribute", "Namespaces/A.xml:1:49 missing-attribute",
                  "Namespaces/A.xml:1:49 missing-attribute", "Namespaces/B.xml:1:2 duplicate-key",
                  "PlugIns/broken.xml:1:11 missing-attribute", "PlugIns/broken.xml:1:11 missing-attribute",
                  "PlugIns/broken.xml:1:11 missing-attribute", "PlugIns/broken.xml:1:11 missing-attribute",
                  "PlugIns/broken.xml:1:11 missing-attribute", "PlugIns/broken.xml:1:11 missing-attribute",
                  "PlugIns/broken.xml:1:11 missing-attribute", "PlugIns/broken.xml:1:27 unread-attribute",
                  "PlugIns/broken.xml:1:40 not-well-formed", "Templates/A/config.xml:1:2 missing-attribute",
                  "Templates/A/config.xml:1:2 missing-attribute", "Templates/A/config.xml:4:2 duplicate-key",
                  "Templates/A/config.xml:4:21 missing-attribute",
                  "Templates/A/config.xml:4:29 unread-attribute", "16 errors, 2 warnings in 4 of 9 files"));
  EXPECT_EQ(result.Status, 3);
}

TEST_F(CheckCommand, TellsOfManyProblemsOfOneKindBriefly) {
  Reset();
  std::string nodes;
  for (int node = 0; node < 1000; ++node) nodes += "<NodeDef Key='N" + std::to_string(node) + "' x='1'/>\n";
  WriteTemplate("House", "<PageTemplate Name='House' Description=''>" + nodes + "</PageTemplate>");
  const auto result = Check();
  EXPECT_EQ(std::count(result.Out.begin(), result.Out.end(), '\n'), 22);
  EXPECT_THAT(result.Out,
              ::testing::EndsWith(
                  "Templates/House/config.xml: warning: and 980 more of this kind [unread-attribute]\n"
                  "1000 warnings in 1 of 5 files\n"));
  const auto json = nlohmann::json::parse(Check("--json").Out);
  ASSERT_EQ(json.size(), 21u);
  EXPECT_THAT(json[1]["File"].get<std::string>(), ::testing::EndsWith("Templates/House/config.xml"));
  EXPECT_EQ(json[1]["Line"], 2);
  EXPECT_EQ(json[1]["Column"], 19);
  EXPECT_EQ(json[1]["Severity"], "warning");
  EXPECT_EQ(json[1]["Code"], "unread-attribute");
}

TEST_F(CheckCommand, OtherCommandsTellNoMoreThanTheLoaders) {
  Reset();
  WriteTemplate("House", "<PageTemplate Name='House' Description='' UseDropShadow='true' x=''/>");
  const auto shown = Run("show --config " + Below("checked"));
  EXPECT_EQ(shown.Err, "");
  EXPECT_EQ(shown.Status, 0);
}

TEST_F(CheckCommand, TellsOfTextsThatAreSurelyWrongAlone) {
  const std::string sources = "ExternalDocs.xml";
  const std::string page = "Templates/House/page.html";
  const std::string german = "Templates/House/Phrases/German.txt";
  const auto source = [](const std::string& format) {
    return "<ExternalDocuments><ExternalDoc Namespace='A' URLFormat='" + format + "'/></ExternalDocuments>";
  };
  const std::tuple<std::string, std::string, int> rows[] = {
      {sources, source("%%object%%/%%Namespace_NoDots%%"), 0},
      {sources, source("%%Foo%%/%%Object%%"), 1},
      {sources, source("100%% of %%Object%%"), 1},  // the second delimiter begins the name
      {sources, source("%%Object%%/%%Object"), 1},
      {sources, source("%%Object"), 1},
      {page, "%%ItemName%%%%overloadindex%% 100%% of 100%%", 0},
      {page, "%%itemtype%% %%fullname%% %%item%% %%My Name%%", 0},  // the generator may know them
      {page, "%%itemnmae%% %%projectnames%%", 2},
      {page, "%%%%PHRASE.title%% %%phrase.No%% %%scrap.No%%", 2},
      {page, "<!--LW:Phrase name=\"%%itemname%%\"--><!--LW:Phrase--><!--LW:Scrap name=\"", 0},
      {page, "<!--lw:scrap kind=\"x\" name=\"No\"--><!--LW:Phrase name=\"Title\"-->", 1},
      {page, "<!--LW:Value blanktext=\"%%phrase.No%%\"-->", 1},
      {german, "<?xml version='1.0'?><x><x name='Title'>%%phrase.Index%% %%phrase.No%%</x></x>", 2},
      {german, "<?xml version='1.0'?><x><x name='Ti", 1},  // no complaint about the lost phrases
      {sources, source("\x02") + "<!-- &#1; --><!-- \x03 -->", 2},
      {sources, source("&#xFFFE;&#55296;&#1114112;\xEF\xBF\xBF&#10;&#x20;\xEF\xBF\xBC&amp;"), 4},
      {german, "<?xml version='1.0'?><x><x name='Title'><![CDATA[&#1;]]>&#1;</x><x name='index'/></x>", 1},
      {"Templates/.git/HEAD", "", 0},
      {"languages.xml/x", "", 1},
      {"taggedcomments_custom.xml",
       "<TaggedCommentDefs DefaultDesignerProgID=''><TaggedComment Hidden='False' "
       "Identifier='x' ElementType='3' Description='' Format='' General='False' "
       "WrapType='0'/></TaggedCommentDefs>",
       0},
  };
  for (const auto& [file, content, problems] : rows) {
    SCOPED_TRACE(content);
    Reset();
    Folder.Write("checked/Templates/House/Phrases/English.txt", "Title~Contents\r\nIndex~Index\r\n");
    Folder.Write("checked/" + file, content);
    const std::string out = Check().Out;
    EXPECT_EQ(std::count(out.begin(), out.end(), '\n') - 1, problems) << out;
  }
}

}  // namespace
}  // namespace lwconfig
