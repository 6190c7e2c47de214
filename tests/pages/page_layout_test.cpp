#include <tests/configuration.h>

#include <lwconfig/core/base/text.h>
#include <lwconfig/pages/page_layout.h>
#include <lwconfig/pages/variable_def.h>

namespace lwconfig {
namespace {

using ::testing::ElementsAre;
using testing::ErrorOf;
using testing::Normal;
using testing::Parse;
using testing::Saved;

std::shared_ptr<PageLayout> Loaded(const std::string& attributes) {
  auto layout = std::make_shared<PageLayout>();
  layout->Load(Parse("<PageLayout " + attributes + "/>"));
  return layout;
}

TEST(PageLayouts, DeriveTheNamespaceFromThePageType) {
  const auto derived = [](const std::string& pageType, const std::string& fileName = "x.html") {
    const auto layout = Loaded("Name='' TitleTemplate='' FileName='" + fileName + "' PageType=" + pageType);
    return std::to_string(layout->PageType) + " " + layout->Namespace;
  };
  const auto namespaces = Split(
      "|LW:Module||LW:Method,LW:ImplementedMethod|LW:Property,LW:ImplementedProperty|LW:Event|LW:Enumeration|"
      "LW:Structure|LW:Library|LW:DeclareStatement|LW:Project|LW:Module|LW:ImplementedInterface|||LW:"
      "Example|",
      "|");
  for (std::size_t i = 0; i < namespaces.size(); ++i)
    EXPECT_EQ(derived("'" + std::to_string(i) + "'"), std::to_string(i) + " " + std::string(namespaces[i]));
  for (const char* none : {"'-1'", "'3x'", "''", "'99999999999'", "'x' PageTypes='3'"})
    EXPECT_EQ(derived(none), "-1 ");
  EXPECT_EQ(derived("'3' Namespace=''"), "3 LW:Method,LW:ImplementedMethod");
  EXPECT_EQ(derived("'3' Namespace='LW:Module'"), "3 LW:Module");
  EXPECT_EQ(derived("'0'", "Libraries"), "0 LW:Project");
  EXPECT_EQ(derived("'99'", "LIBRARIES"), "99 LW:Project");
  for (const char* type : {"13", "-1"})
    EXPECT_EQ(derived("'" + std::string(type) + "'", "libraries"), std::string(type) + " ");
  EXPECT_EQ(derived("'0'", "libraries.html"), "0 ");
}

TEST(PageLayouts, ReplaceTheTitlesOfOlderFiles) {
  // File name, title in the file, and what it is replaced by; a title replaced by nothing stays so.
  for (const auto line : Split(R"(References.HTML|References|%%projectname%%_references.html
gettingstarted.html|x|%%projectname%%_gettingstarted.html
introduction.html| |%%projectname%%_introduction.html
sourcecode.html|x|%%itemqualifiedname%%_CODE.html
projectgroup.html|x|%%projectgroupname%%_PG.html
libraries.html|x|%%projectname%%_libraries.html
other.html|My Title|
references.html|a.b|a.b
references.html||
Template.HHK||%%projectgroupname%%.HHK
template.hxf||%%projectgroupname%%.hxf
template.hhc|Contents|
a.b.hhk||
a.hhk.b||%%projectgroupname%%.hhk
hhp||
.hhp||%%projectgroupname%%.hhp
x.hhz||)",
                               "\n")) {
    const auto row = Split(line, "|");
    const auto layout =
        Loaded("Name='' FileName='" + std::string(row[0]) + "' TitleTemplate='" + std::string(row[1]) + "'");
    EXPECT_EQ(layout->TitleTemplate, row[2]) << line;
  }
  for (const char* fileName : {"Project.HHP", "x.hxt", ".hhp", "a.b.hxK"}) {
    PageLayout layout;
    layout.FileName = fileName;
    EXPECT_TRUE(layout.IsHTMLHelpProjectFile()) << fileName;
    layout.FileName += "x";
    EXPECT_FALSE(layout.IsHTMLHelpProjectFile()) << fileName;
  }
  EXPECT_FALSE(Loaded("Name='' FileName='hhp' TitleTemplate=''")->IsHTMLHelpProjectFile());
}

TEST(PageLayouts, LoadWhatTheySave) {
  testing::ExpectSavedAttributes(
      "DependantCount='12abc' -> DependantCount='12' | DependantCount='abc' -> DependantCount='0'\n"
      "DependantCount='1e10' -> DependantCount='-1' | x='' -> DependantCount='-1'",
      [](const std::string& attributes) {
        return Loaded("Name='' FileName='' TitleTemplate='' " + attributes);
      });
  const auto layout = Loaded(
      "titletemplate='%%a%%.html' FILENAME='a\".html' name='N' DependantOnNamespace='LW:Event' "
      "DependantOnNamespace_Filter='a&#10;&lt;b' DependantCount='2'");
  const std::string saved =
      "<PageLayout Name=\"N\" FileName=\"a&quot;.html\" PageType=\"-1\" TitleTemplate=\"%%a%%.html\" "
      "Namespace=\"\" DependantCount=\"2\" DependantOnnamespace=\"LW:Event\" "
      "DependantOnnamespace_Filter=\"a&#10;&lt;b\"/>";
  EXPECT_EQ(Saved(*layout), Normal(saved));
  PageLayout again;
  again.Load(Parse(saved));
  EXPECT_EQ(Saved(again), Normal(saved));

  layout->NodeTag = "node";
  layout->ControlTag = "control";
  const auto copy = layout->Clone();
  layout->FileName = "changed";
  EXPECT_EQ(Saved(*copy), Normal(saved));
  EXPECT_EQ(copy->NodeTag + copy->ControlTag, "nodecontrol");
}

TEST(PageLayouts, KeepWhatWasReadBeforeAMissingAttribute) {
  PageLayout layout;
  const auto e = Parse("<PageLayout Name='n' FileName='f' PageType='3'/>");
  EXPECT_EQ(ErrorOf([&] { layout.Load(e); }).Number(), kInvalidCall);
  EXPECT_EQ(std::tuple(layout.FileName, layout.PageType, layout.Namespace), std::tuple("f", pgMethod, ""));
}

TEST(PageLayouts, TellEveryAdditionThatSucceeded) {
  PageLayouts layouts;
  int changes = 0;
  const auto connection = layouts.ContentsChange.Connect([&] {
    ++changes;
    EXPECT_EQ(layouts.Count(), changes);
  });
  layouts.Add(std::make_shared<PageLayout>(), "a.html");
  EXPECT_EQ(ErrorOf([&] { layouts.Add(std::make_shared<PageLayout>(), "A.html"); }).Number(), kDuplicateKey);
  layouts.Add(std::make_shared<PageLayout>(), "b.html", 1);
  EXPECT_EQ(changes, 2);
  layouts.Remove(1);
  EXPECT_EQ(changes, 2);
}

TEST(VariableDefs, LoadWhatTheySave) {
  using Row = std::pair<const char*, const char*>;
  for (const auto& [attributes, savedText] :
       {Row{"Name='Footer' Description='d'",
            "Name=\"Footer\" Type=\"0\" Caption=\"Footer\" Description=\"d\" "
            "Defaultvalue=\"\""},
        Row{"Name='F' Description='' Caption='' Type='4' DefaultValue='a&#9;b'",
            "Name=\"F\" Type=\"4\" Caption=\"F\" Description=\"\" Defaultvalue=\"a&#09;b\""},
        Row{"Name='F' Description='' Caption='C' Type='Color'",
            "Name=\"F\" Type=\"0\" Caption=\"C\" Description=\"\" Defaultvalue=\"\""},
        Row{"Name='F' Description='' Caption='C' Type='99'",
            "Name=\"F\" Type=\"99\" Caption=\"C\" Description=\"\" Defaultvalue=\"\""}}) {
    VariableDef variable;
    variable.Load(Parse("<VariableDef " + std::string(attributes) + "/>"), nullptr);
    const std::string saved = Saved(*variable.Clone());
    EXPECT_EQ(saved, Normal("<VariableDef " + std::string(savedText) + "/>"));
    VariableDef again;
    again.Load(Parse(saved), nullptr);
    EXPECT_EQ(Saved(again), saved);
  }
  VariableDef variable;
  EXPECT_EQ(ErrorOf([&] { variable.Load(Parse("<VariableDef Name='n'/>"), nullptr); }).Number(),
            kInvalidCall);
  EXPECT_EQ(variable.Name, "n");
  EXPECT_EQ(variable.Caption, "");
}

}  // namespace
}  // namespace lwconfig
