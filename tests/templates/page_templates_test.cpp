#include <tests/configuration.h>

#include <lwconfig/root.h>

namespace lwconfig {
namespace {

using namespace std::string_literals;
using testing::Each;
using ::testing::ElementsAre;
using testing::ErrorOf;
using testing::FileOperation;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

class Catalogue : public testing::ConfigurationTest {
 protected:
  void AddTemplate(const std::string& folder, const std::string& name) const {
    WriteConfig(folder, "<PageTemplate Name='" + name + "' Description=''/>");
  }
  void WriteConfig(const std::string& folder, const std::string& text) const {
    Write("Templates/" + folder + "/config.xml", text);
  }
  std::string PathOf(const std::string& relative) const {
    return ConfigFolder() + "\\Templates\\" + relative;
  }
  std::shared_ptr<PageTemplate> TemplateIn(const std::string& folder) const {
    auto created = std::make_shared<PageTemplate>();
    created->RootFolder = PathOf(folder) + "\\";
    return created;
  }
  auto Names() const { return Each(*Catalog, &PageTemplate::Name); }

  Root mKeepsSharedObjects;
  std::shared_ptr<PageTemplates> Catalog = std::make_shared<PageTemplates>();
};

TEST_F(Catalogue, HoldsOneTemplatePerFolderWithAConfiguration) {
  AddTemplate("b", "Blue");
  AddTemplate("A", "\xC4nderung");  // in Windows-1252
  for (const char* name : {"SDK_Style", "sdkdotNET", ".NET Reference"}) AddTemplate(name, name);
  Write("Templates/Empty/page.html", "");
  Write("Templates/Folder/config.xml/x", "");
  Write("Templates/file.txt", "");
  AddTemplate("hidden", "hidden");
  Files.Hide("hidden");
  Write("Templates/C/CONFIG.XML", "<PageTemplate Name='blue' Description='second'/>");
  for (int load = 0; load < 2; ++load) {
    Catalog->TemplateFolder = "elsewhere";
    Catalog->Load();
    EXPECT_THAT(Names(), ElementsAre(".NET Reference", "Änderung", "Blue", "blue", "sdkdotNET", "SDK_Style"));
  }
  ASSERT_EQ(Diagnostics.size(), 2U);
  EXPECT_EQ(Diagnostics[1].Position.File, PathOf("C\\config.xml"));
  EXPECT_EQ(Diagnostics[1].Position.Column, 15);
  EXPECT_THAT(Diagnostics[1].Message, HasSubstr("in the folder \"b\" has the name \"blue\" too"));
  EXPECT_EQ(Catalog->TemplateFolder, ConfigFolder() + "\\Templates");
  EXPECT_EQ(Catalog->Item(2)->RootFolder, PathOf("A\\"));
  for (const auto& [name, position] : {std::pair("äNDERUNG", 2), {"BLUE", 3}, {"red", 7}})
    EXPECT_EQ(Catalog->Item(name), Catalog->Item(position)) << name;
  EXPECT_EQ(ErrorOf([&] { Catalog->Remove("Blue"); }).Number(), kInvalidCall);
  Catalog->Add(TemplateIn("x"), "blue");
  EXPECT_EQ(Catalog->Item("BLUE"), Catalog->Item(7));
}

TEST_F(Catalogue, TellsAMissingFolderAndADuplicateKey) {
  Catalog->Add(TemplateIn("A"), "Key");
  Catalog->Add(TemplateIn("B"), "KEY");
  EXPECT_EQ(Catalog->Count(), 1);
  ASSERT_EQ(Messages.size(), 1U);
  EXPECT_EQ(Messages[0].Title, "Duplicate Template");
  EXPECT_EQ(Messages[0].Icon, platform::MessageIcon::Exclamation);
  EXPECT_THAT(
      Messages[0].Text,
      StartsWith(
          "A duplicate template was found in folder '" + PathOf("B\\") +
          "'. This problem is usually caused by duplicating a Template folder using Windows Explorer instead "
          "of using the Template Manager to create a new Template. Remove the duplicate folder to avoid "
          "seeing this message in future. "));
  EXPECT_EQ(ErrorOf([&] { Catalog->Add(TemplateIn("C"), "New", 7); }).Number(), kSubscriptOutOfRange);
  EXPECT_EQ(ErrorOf([&] { Catalog->Add(nullptr, "Key"); }).Number(), kObjectNotSet);
  EXPECT_EQ(Messages.size(), 1U);

  std::filesystem::remove_all(Folder.Path() / "Config/Templates");
  Catalog->Load();
  EXPECT_EQ(Catalog->Count(), 0);
  ASSERT_EQ(Messages.size(), 2U);
  EXPECT_EQ(Messages[1].Title, "Folder not found");
  EXPECT_EQ(Messages[1].Icon, platform::MessageIcon::Exclamation);
  EXPECT_EQ(Messages[1].Text, "Lexiwend templates folder '" + ConfigFolder() +
                                  "\\Templates' could not be found.  No templates have been loaded.");
}

TEST_F(Catalogue, EndsItsLoadAtAFailingTemplate) {
  using Row = std::tuple<std::string, std::int32_t, std::string>;
  AddTemplate("A", "First");
  AddTemplate("C", "Last");
  const std::string start = "<?xml version='1.0'?>\r\n<PageTemplate Name='Grün' Description=''>\r\n";
  for (const auto& [text, error, place] :
       {Row{"\n\n <PageTemplate Description=''/>", kInvalidCall, ":3:3: "},
        Row{start + " <!-- ö --> <PageLayout Name='' FileName=''/></PageTemplate>", kInvalidCall, ":3:14: "},
        Row{start + "<VariableDef Name='' Description=''/><TOCDefinition Name='t' "
                    "Description=''>\r\n<NodeDef/>",
            kInvalidCall, ":4:2: "},
        Row{start + "<NamespaceDef/></PageTemplate>", kInvalidCall, ":3:2: "},
        Row{start + "<EnabledPlugins><Plugin>p</Plugin>\n <Plugin>P</Plugin></EnabledPlugins></PageTemplate>",
            kDuplicateKey, ":4:3: "}}) {
    WriteConfig("B", text);
    const auto failure = ErrorOf([&] { Catalog->Load(); });
    EXPECT_EQ(failure.Number(), error) << text;
    EXPECT_THAT(failure.what(), StartsWith(PathOf("B\\config.xml") + place)) << text;
    EXPECT_THAT(Names(), ElementsAre("First"));
  }
  WriteConfig("B", start + "<VariableDef Name='v' Description='d'/><!-- cut");
  Catalog->Load();
  EXPECT_THAT(Names(), ElementsAre("First", "Grün", "Last"));
}

TEST_F(Catalogue, EndsItsLoadAtAnUnreadableFile) {
  for (const char* folder : {"A", "B", "C", "D", "E", "F", "G", "H"}) AddTemplate(folder, folder);
  // The folder of a template may be closed altogether.
  Files.Fail(FileOperation::Kind, "C\\config.xml", EACCES);
  Files.Fail(FileOperation::Read, "C\\config.xml", EACCES);
  Files.Fail(FileOperation::Read, "E\\config.xml", EIO);
  const auto failure = ErrorOf([&] { Catalog->Load(); });
  EXPECT_EQ(failure.Number(), kPermissionDenied);
  EXPECT_EQ(failure.Position().File, PathOf("C\\config.xml"));
  EXPECT_THAT(Names(), ElementsAre("A", "B"));
  Files.Heal();
  for (const auto& [folder, count] : {std::pair("B\\", 1), {"Templates\\", 0}}) {
    Files.Fail(FileOperation::List, folder, EACCES);
    EXPECT_EQ(ErrorOf([&] { Catalog->Load(); }).Number(), kPermissionDenied);
    EXPECT_EQ(Catalog->Count(), count);
  }
}

TEST_F(Catalogue, KeepsOneBackup) {
  const auto saved = TemplateIn("New\\Folder");
  for (const char* name : {"first", "second", "third"}) {
    saved->Name = name;
    Catalog->SaveTemplate(saved);
    EXPECT_EQ(Exists("Templates/New/Folder/config.xml.bak"), saved->Name != "first");
  }
  EXPECT_THAT(Read("Templates/New/Folder/config.xml"), HasSubstr("Name=\"third\""));
  EXPECT_THAT(Read("Templates/New/Folder/config.xml.bak"), HasSubstr("Name=\"second\""));
  EXPECT_EQ(ErrorOf([&] { Catalog->SaveTemplate(nullptr); }).Number(), kObjectNotSet);

  const auto backup = Folder.Path() / "Config/Templates/New/Folder/config.xml.bak";
  std::filesystem::remove(backup);
  Write("foreign", "foreign");
  std::error_code unsupported;
  std::filesystem::create_symlink(Folder.Path() / "Config/foreign", backup, unsupported);
  if (unsupported) Write("Templates/New/Folder/config.xml.bak", "older");
  Catalog->SaveTemplate(saved);
  EXPECT_EQ(Read("foreign"), "foreign");
  EXPECT_THAT(Read("Templates/New/Folder/config.xml.bak"), HasSubstr("Name=\"third\""));

  AddTemplate("A", "A");
  Catalog->Load();
  Catalog->Item(1)->Name = "changed";
  Catalog->Save();
  EXPECT_THAT(Read("Templates/A/config.xml"), HasSubstr("Name=\"changed\""));
}

TEST_F(Catalogue, SurvivesFailingSaves) {
  using Row = std::tuple<FileOperation, const char*, int, std::int32_t, const char*>;
  for (const auto& [operation, path, code, error, backup] :
       {Row{FileOperation::Read, "config.xml", EACCES, kPermissionDenied, "older"},
        Row{FileOperation::Replace, "config.xml.bak", EACCES, kPermissionDenied, "older"},
        Row{FileOperation::Write, "config.xml.bak", ENOSPC, kPathFileAccess, "older"},
        Row{FileOperation::Commit, "config.xml.bak", EIO, kPathFileAccess, "older"},
        Row{FileOperation::Replace, "config.xml", EROFS, kPermissionDenied, "old"},
        Row{FileOperation::Write, "config.xml", ENOSPC, kPathFileAccess, "old"},
        Row{FileOperation::Commit, "config.xml", ENOSPC, kPathFileAccess, "old"},
        Row{FileOperation::MakeFolders, "A\\", EACCES, kPermissionDenied, "older"}}) {
    WriteConfig("A", "old");
    Write("Templates/A/config.xml.bak", "older");
    Files.Fail(operation, path, code);
    const auto failure = ErrorOf([&] { Catalog->SaveTemplate(TemplateIn("A")); });
    EXPECT_EQ(failure.Number(), error) << failure.what();
    EXPECT_EQ(Read("Templates/A/config.xml"), "old");
    EXPECT_EQ(Read("Templates/A/config.xml.bak"), backup) << path;
    Files.Heal();
  }
  const auto unwritable = TemplateIn("A");
  for (const std::string& name : {"a\0b"s, "\xFF"s}) {
    unwritable->Name = name;
    EXPECT_EQ(ErrorOf([&] { Catalog->SaveTemplate(unwritable); }).Number(), kInvalidCall);
    EXPECT_EQ(Read("Templates/A/config.xml"), "old");
  }
}

}  // namespace
}  // namespace lwconfig
