#include <tests/configuration.h>

#include <lwconfig/comments/comment_file_locations.h>
#include <lwconfig/core/files/application_values.h>

namespace lwconfig::testing {
namespace {

class CommentFiles : public ConfigurationTest {
 protected:
  CommentFileLocations Locations;
};

TEST_F(CommentFiles, MayStandInTheFrameworkFolder) {
  const std::string net = DotNetPath();
  for (const auto& [stored, resolved] :
       {std::pair<std::string, std::string>("%NetPath%a%netpath%", net + "a" + net),
        {"C:\\100%\\a.xml", "C:\\100%\\a.xml"},
        {"%Net%NetPath%Path%", "%Net" + net + "Path%"},
        {"%NetPath", "%NetPath"},
        {"%%NetPath%%", "%" + net + "%"}}) {
    CommentFileLocation location;
    location.SetCommentFilePath(stored);
    EXPECT_EQ(location.CommentFilePath(), resolved);
    EXPECT_EQ(location.Clone()->InternalCommentFilePath(), stored);
  }
}

TEST_F(CommentFiles, AreListedInOneFile) {
  const std::string list =
      "<CommentFileLocations Version='4.0'>\n"
      "<CommentFile AssemblyFileName='a.dll' CommentFilePath='%NetPath%a.xml'/>\n"
      "<CommentFile AssemblyFileName='a.dll' CommentFilePath='b.xml'/></CommentFileLocations>";
  Write("CommentFileLocations.xml", list);
  Locations.Dirty = true;
  Locations.Load();
  EXPECT_FALSE(Locations.Dirty);
  Locations.Dirty = true;
  Files.Fail(FileOperation::Commit, "CommentFileLocations.xml", ENOSPC);
  EXPECT_ERROR(kPathFileAccess, Locations.Save());
  EXPECT_EQ(Read("CommentFileLocations.xml"), list);
  EXPECT_TRUE(Locations.Dirty);
  Files.Heal();
  const auto copies = Locations.Clone();
  EXPECT_FALSE(copies->Dirty);
  EXPECT_NE(copies->Item(1), Locations.Item(1));
  copies->Save();
  EXPECT_EQ(Read("CommentFileLocations.xml"), Normal(list));
  Locations.Save();
  EXPECT_FALSE(Locations.Dirty);
  Register("ConfigPath", Path("none"));
  Locations.Load();
  EXPECT_EQ(Locations.Count(), 0);
}

}  // namespace
}  // namespace lwconfig::testing
