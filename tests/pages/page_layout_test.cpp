#include <tests/configuration.h>

#include <lwconfig/core/base/text.h>
#include <lwconfig/pages/page_layout.h>
#include <lwconfig/pages/variable_def.h>

namespace lwconfig::testing {
namespace {

std::shared_ptr<PageLayout> Loaded(const std::string& attributes) {
  auto layout = std::make_shared<PageLayout>();
  layout->Load(Parse("<PageLayout Name='N' " + attributes + "/>"));
  return layout;
}

TEST(PageLayouts, DeriveTheNamespaceFromThePageType) {
  ExpectDerived(
      "|LW:Module||LW:Method,LW:ImplementedMethod|LW:Property,LW:ImplementedProperty|LW:Event|LW:Enumeration|"
      "LW:Structure|LW:Library|LW:DeclareStatement|LW:Project|LW:Module|LW:ImplementedInterface|||LW:"
      "Example|",
      [](const std::string& type) {
        return Loaded("FileName='x.html' TitleTemplate='' PageType='" + type + "'")->Namespace;
      });
  ExpectSavedAttributes(
      R"(PageType='-1' -> Namespace='' | PageType='3x' -> Namespace='' | PageType='' -> Namespace=''
PageType='3' -> PageType='3' | PageType='3x' -> PageType='-1' | PageType='99999999999' -> PageType='-1'
PageType='x' PageTypes='3' -> Namespace='' | PageType='3' Namespace='LW:X' -> Namespace='LW:X'
PageType='5' Namespace='' -> Namespace='LW:Event')",
      [](const std::string& attributes) { return Loaded("FileName='' TitleTemplate='' " + attributes); });
  ExpectSavedAttributes(
      R"(FileName='Libraries' PageType='0' -> Namespace='LW:Project' | FileName='libraries' -> Namespace=''
FileName='LIBRARIES' PageType='99' -> Namespace='LW:Project' | FileName='x' PageType='0' -> Namespace=''
FileName='libraries' PageType='13' -> Namespace='' | FileName='libraries.html' PageType='0' -> Namespace='')",
      [](const std::string& attributes) { return Loaded("TitleTemplate='' " + attributes); });
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
.hhp||%%projectgroupname%%.hhp
x.hhz||)",
                               "\n")) {
    const auto row = Split(line, "|");
    const auto layout =
        Loaded("FileName='" + std::string(row[0]) + "' TitleTemplate='" + std::string(row[1]) + "'");
    EXPECT_EQ(layout->TitleTemplate, row[2]) << line;
  }
  for (const char* fileName : {"Project.HHP", "x.hxt", ".hhp", "a.b.hxK"}) {
    PageLayout layout;
    layout.FileName = fileName;
    EXPECT_TRUE(layout.IsHTMLHelpProjectFile()) << fileName;
    layout.FileName += "x";
    EXPECT_FALSE(layout.IsHTMLHelpProjectFile()) << fileName;
  }
}

TEST(PageLayouts, LoadWhatTheySave) {
  ExpectSavedAttributes(
      "DependantCount='12abc' -> DependantCount='12' | DependantCount='abc' -> DependantCount='0'\n"
      "DependantCount='1e10' -> DependantCount='-1' | x='' -> DependantCount='-1'",
      [](const std::string& attributes) { return Loaded("FileName='' TitleTemplate='' " + attributes); });
  const auto layout = Loaded(
      "titletemplate='%%a%%.html' FILENAME='a\".html' DependantOnNamespace='LW:Event' "
      "DependantOnNamespace_Filter='a&#10;&lt;b' DependantCount='2'");
  layout->NodeTag = "node";
  layout->ControlTag = "control";
  const auto copy = layout->Clone();
  layout->FileName = "changed";
  EXPECT_EQ(Saved(*copy),
            Normal("<PageLayout Name='N' FileName='a&quot;.html' PageType='-1' TitleTemplate='%%a%%.html' "
                   "Namespace='' DependantCount='2' DependantOnnamespace='LW:Event' "
                   "DependantOnnamespace_Filter='a&#10;&lt;b'/>"));
  EXPECT_EQ(copy->NodeTag + copy->ControlTag, "nodecontrol");
}

TEST(PageLayouts, KeepWhatWasReadBeforeAMissingAttribute) {
  PageLayout layout;
  const auto e = Parse("<PageLayout Name='n' FileName='f' PageType='3'/>");
  EXPECT_ERROR(kInvalidCall, layout.Load(e));
  EXPECT_EQ(std::tuple(layout.FileName, layout.PageType, layout.Namespace), std::tuple("f", pgMethod, ""));
}

TEST(PageLayouts, TellEveryAdditionThatSucceeded) {
  PageLayouts layouts;
  std::vector<std::int32_t> counts;
  const auto connection = layouts.ContentsChange.Connect([&] { counts.push_back(layouts.Count()); });
  layouts.Add(std::make_shared<PageLayout>(), "a.html");
  EXPECT_ERROR(kDuplicateKey, layouts.Add(std::make_shared<PageLayout>(), "A.html"));
  layouts.Add(std::make_shared<PageLayout>(), "b.html", 1);
  layouts.Remove(1);
  EXPECT_THAT(counts, ElementsAre(1, 2));
}

TEST(VariableDefs, LoadWhatTheySave) {
  ExpectSavedAttributes(
      R"(x='' -> Name='F' Type='0' Caption='F' Description='d' Defaultvalue='' | Type='Color' -> Type='0'
DefaultValue='a&#9;b' -> Defaultvalue='a&#9;b' | Caption='' -> Caption='F' | Caption='C' -> Caption='C'
Type='4' -> Type='4' | Type='99' -> Type='99')",
      [](const std::string& attributes) {
        VariableDef variable;
        variable.Load(Parse("<VariableDef Name='F' Description='d' " + attributes + "/>"), nullptr);
        return variable.Clone();
      });
  VariableDef variable;
  EXPECT_ERROR(kInvalidCall, variable.Load(Parse("<VariableDef Name='n'/>"), nullptr));
  EXPECT_EQ(variable.Name + variable.Caption, "n");
}

}  // namespace
}  // namespace lwconfig::testing
