#include <tests/configuration.h>

#include <lwconfig/pages/page_layout.h>

namespace lwconfig::testing {
namespace {

TEST(PageLayouts, AreHelpProjectsByTheirFileNames) {
  for (const char* fileName : {"Project.HHP", "x.hxt", ".hhp", "a.b.hxK"}) {
    PageLayout layout;
    layout.FileName = fileName;
    EXPECT_TRUE(layout.IsHTMLHelpProjectFile()) << fileName;
    layout.FileName += "x";
    EXPECT_FALSE(layout.IsHTMLHelpProjectFile()) << fileName;
  }
}

TEST(PageLayouts, KeepWhatWasReadBeforeAMissingAttribute) {
  PageLayout layout;
  const auto e = Parse("<PageLayout Name='n' FileName='f' PageType='3'/>");
  EXPECT_ERROR(kInvalidCall, layout.Load(e));
  layout.NodeTag = "node";
  const auto copy = layout.Clone();
  layout.FileName = "changed";
  EXPECT_EQ(std::tuple(copy->FileName, copy->PageType, copy->Namespace, copy->NodeTag),
            std::tuple("f", pgMethod, "", "node"));
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

}  // namespace
}  // namespace lwconfig::testing
