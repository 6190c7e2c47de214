#include <tests/configuration.h>

#include <lwconfig/root.h>

namespace lwconfig::testing {
namespace {

class Catalogue : public ConfigurationTest {
 protected:
  void AddTemplate(const std::string& folder, const std::string& name) const {
    WriteConfig(folder, "<PageTemplate Name='" + name + "' Description=''/>");
  }
  void WriteConfig(const std::string& folder, const std::string& text) const {
    Write("Templates/" + folder + "/config.xml", text);
  }
  std::shared_ptr<PageTemplate> TemplateIn(const std::string& folder) const {
    auto created = std::make_shared<PageTemplate>();
    created->RootFolder = Path("Templates\\" + folder + "\\");
    return created;
  }
  auto Names() const { return Each(Catalog, &PageTemplate::Name); }

  Root mKeepsSharedObjects;
  PageTemplates Catalog;
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
    Catalog.TemplateFolder = "elsewhere";
    Catalog.Load();
    EXPECT_THAT(Names(), ElementsAre(".NET Reference", "Änderung", "Blue", "blue", "sdkdotNET", "SDK_Style"));
  }
  ASSERT_EQ(Diagnostics.size(), 2U);
  EXPECT_EQ(std::tuple(Diagnostics[1].Position.File, Diagnostics[1].Position.Column),
            std::tuple(Path("Templates\\C\\config.xml"), 15));
  EXPECT_THAT(Diagnostics[1].Message, HasSubstr("in the folder \"b\" has the name \"blue\" too"));
  EXPECT_EQ(Catalog.TemplateFolder, Path("Templates"));
  EXPECT_EQ(Catalog.Item(2)->RootFolder, Path("Templates\\A\\"));
  EXPECT_ERROR(kInvalidCall, Catalog.Remove("Blue"));
  Catalog.Add(TemplateIn("x"), "blue");
  using Row = std::pair<const char*, int>;
  for (const auto& [name, position] :
       {Row{"äNDERUNG", 2}, Row{"sdkDOTnet", 5}, Row{"BLUE", 7}, Row{"red", 8}})
    EXPECT_EQ(Catalog.Item(name), Catalog.Item(position)) << name;
}

TEST_F(Catalogue, TellsAMissingFolderAndADuplicateKey) {
  Catalog.Add(TemplateIn("A"), "Key");
  Catalog.Add(TemplateIn("B"), "KEY");
  EXPECT_EQ(Catalog.Count(), 1);
  EXPECT_THAT(
      Shown(),
      StartsWith("48 Duplicate Template: A duplicate template was found in folder '" +
                 Path("Templates\\B\\") +
                 "'. This problem is usually caused by duplicating a Template folder using Windows "
                 "Explorer instead of using the Template Manager to create a new Template. Remove the "
                 "duplicate folder to avoid seeing this message in future. "));
  EXPECT_ERROR(kSubscriptOutOfRange, Catalog.Add(TemplateIn("C"), "New", 7));
  EXPECT_ERROR(kObjectNotSet, Catalog.Add(nullptr, "Key"));
  EXPECT_EQ(Shown(), "");

  Remove("Templates");
  Catalog.Load();
  EXPECT_EQ(Catalog.Count(), 0);
  EXPECT_EQ(Shown(), "48 Folder not found: Lexiwend templates folder '" + Path("Templates") +
                         "' could not be found.  No templates have been loaded.");
}

TEST_F(Catalogue, EndsItsLoadAtAFailingTemplate) {
  AddTemplate("A", "First");
  AddTemplate("C", "Last");
  const std::string start = "<?xml version='1.0'?>\r\n<PageTemplate Name='Grün' Description=''>\r\n";
  for (const auto& [text, place] :
       {std::pair(" <!-- ö --> <PageLayout Name='' FileName=''/></PageTemplate>", ":3:14: "),
        {"<TOCDefinition Name='t' Description=''>\r\n<NodeDef/>", ":4:2: "},
        {"<NamespaceDef/></PageTemplate>", ":3:2: "}}) {
    WriteConfig("B", start + text);
    EXPECT_THAT(ErrorOf([&] { Catalog.Load(); }),
                IsError(kInvalidCall, Path("Templates\\B\\config.xml") + place));
    EXPECT_THAT(Names(), ElementsAre("First"));
  }
  WriteConfig("B", start + "<EnabledPlugins><P>p</P>\n <P>P</P></EnabledPlugins></PageTemplate>");
  EXPECT_ERROR(kDuplicateKey, Catalog.Load());
}

TEST_F(Catalogue, EndsItsLoadAtAnUnreadableFile) {
  for (const char* folder : {"A", "B", "C", "D", "E", "F"}) AddTemplate(folder, folder);
  // The folder of a template may be closed altogether.
  Files.Fail(FileOperation::Kind, "C\\config.xml", EACCES);
  Files.Fail(FileOperation::Read, "C\\config.xml", EACCES);
  Files.Fail(FileOperation::Read, "E\\config.xml", EIO);
  EXPECT_THAT(ErrorOf([&] { Catalog.Load(); }),
              IsError(kPermissionDenied, Path("Templates\\C\\config.xml: ")));
  EXPECT_THAT(Names(), ElementsAre("A", "B"));
  Files.Heal();
  for (const auto& [folder, count] : {std::pair("B\\", 1), {"Templates\\", 0}}) {
    Files.Fail(FileOperation::List, folder, EACCES);
    EXPECT_ERROR(kPermissionDenied, Catalog.Load());
    EXPECT_EQ(Catalog.Count(), count);
  }
}

TEST_F(Catalogue, KeepsOneBackup) {
  const auto saved = TemplateIn("New\\Folder");
  for (const char* name : {"first", "second", "third"}) {
    saved->Name = name;
    Catalog.SaveTemplate(saved);
    EXPECT_EQ(Exists("Templates/New/Folder/config.xml.bak"), saved->Name != "first");
  }
  EXPECT_THAT(Read("Templates/New/Folder/config.xml"), HasSubstr("Name=\"third\""));
  EXPECT_THAT(Read("Templates/New/Folder/config.xml.bak"), HasSubstr("Name=\"second\""));
  EXPECT_ERROR(kObjectNotSet, Catalog.SaveTemplate(nullptr));

  const std::string backup = "Templates/New/Folder/config.xml.bak";
  Remove(backup);
  Write("foreign", "foreign");
  std::error_code unsupported;
  std::filesystem::create_symlink(Folder.Path() / "Config/foreign", Folder.Path() / "Config" / backup,
                                  unsupported);
  Catalog.SaveTemplate(saved);
  EXPECT_EQ(Read("foreign"), "foreign");
  EXPECT_THAT(Read(backup), HasSubstr("Name=\"third\""));
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
    EXPECT_ERROR(error, Catalog.SaveTemplate(TemplateIn("A"))) << path;
    EXPECT_EQ(Read("Templates/A/config.xml") + Read("Templates/A/config.xml.bak"),
              std::string("old") + backup);
    Files.Heal();
  }
  const auto unwritable = TemplateIn("A");
  unwritable->Name = "\xFF";
  EXPECT_ERROR(kInvalidCall, Catalog.SaveTemplate(unwritable));
  EXPECT_EQ(Read("Templates/A/config.xml"), "old");
}

}  // namespace
}  // namespace lwconfig::testing
