#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <sys/stat.h>
#include <tests/locations.h>
#include <tests/tools/tool_test.h>

#include <lwconfig/core/loading/problem.h>
#include <lwconfig/platform/files.h>

namespace lwconfig {
namespace {

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
  static constexpr const char* kCheck = "check --config checked";

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
      EXPECT_EQ(Run(kCheck).Out, "5 files: no problems\n");
      continue;
    }
    documented[example.Code] = example.Severity;
    if (example.Files.empty()) {
      withoutExample.insert(example.Code);
      continue;
    }
    Write(example);
    auto result = Run(kCheck);
    result.Out = std::regex_replace(result.Out, std::regex("<test>/checked/"), "");
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

}  // namespace
}  // namespace lwconfig
