#include <optional>
#include <string>

#include <gmock/gmock.h>
#include <tests/configuration.h>

#include <lwconfig/configuration_scope.h>
#include <lwconfig/core/files/application_values.h>
#include <lwconfig/root.h>

namespace lwconfig::testing {
namespace {

class ConfigurationScopeTest : public ConfigurationTest {
 protected:
  std::string FirstComment() {
    Root root;
    const auto definitions = root.TaggedCommentDefs();
    return definitions->Count() == 0 ? "none" : definitions->Item(1)->Description;
  }
};

TEST_F(ConfigurationScopeTest, OpensAFolderByItself) {
  Folder.Write("Other/taggedcomments_standard.xml",
               "<TaggedCommentDefs><TaggedComment Hidden='True' Identifier='#X' Elementtype='1' "
               "Description='other' Format='' General='True' WrapType='1'/></TaggedCommentDefs>");
  const std::string registered = ConfigPath();
  const Root keepsSharedObjects;
  EXPECT_EQ(FirstComment(), "none");
  {
    std::optional<ConfigurationScope> scope((Folder.Path() / "Other").string());
    EXPECT_EQ(ConfigPath(), Product(Folder.Path() / "Other"));
    EXPECT_EQ(FirstComment(), "other");
    const ConfigurationScope inner((Folder.Path() / "Config").string());
    EXPECT_EQ(FirstComment(), "none");
  }
  EXPECT_EQ(ConfigPath(), registered);
  EXPECT_EQ(FirstComment(), "none");

  EXPECT_EQ(ErrorOf([] { const ConfigurationScope scope(""); }).Number(), kPathNotFound);
  const Error missing = ErrorOf([&] { const ConfigurationScope scope((Folder.Path() / "No").string()); });
  EXPECT_EQ(missing.Number(), kPathNotFound);
  EXPECT_THAT(missing.Position().File, ::testing::EndsWith("No"));
}

}  // namespace
}  // namespace lwconfig::testing
