#include <tests/configuration.h>

#include <lwconfig/core/files/application_values.h>
#include <lwconfig/namespaces/language.h>
#include <lwconfig/options/ide_options.h>
#include <lwconfig/options/lw_commenter_options.h>
#include <lwconfig/options/spelling_options.h>
#include <lwconfig/options/vb_options.h>
#include <lwconfig/options/vsnet_options.h>
#include <lwconfig/platform/folders.h>
#include <lwconfig/platform/host.h>

namespace lwconfig {
namespace {

using testing::ErrorOf;
using ::testing::HasSubstr;

struct Surroundings final : platform::Environment, platform::Folders {
  int DisplayWidth() override { return Width; }
  std::vector<std::string> ProcessArguments() override { return {}; }
  std::string ShellFolder(std::int32_t csidl) override { return csidl == 5 ? Documents : "wrong"; }
  std::string WindowsFolder() override { return {}; }
  int Width = 1920;
  std::string Documents = "C:\\Docs";
};

class OptionsTest : public testing::ConfigurationTest {
 protected:
  Surroundings Host;
  VSNETOptions VSNET;
  VBOptions VB;
  LWCommenterOptions Commenter;
  IDEOptions IDE;
  SpellingOptions Spelling;

 private:
  platform::ScopedHost<platform::Environment> mEnvironmentScope{Host};
  platform::ScopedHost<platform::Folders> mFoldersScope{Host};
};

/// Every option with its default, behind its section where that is another than of the one before and with
/// its value's name where that is another. "?" follows booleans that know no text but "True".
std::string Listing(const OptionSet& set) {
  std::string listing;
  std::string section = "none";
  for (const AnyOption* option : set.Options()) {
    if (section != option->Section()) listing += "[" + (section = option->Section()) + "] ";
    listing += option->Name();
    if (option->Name() != std::string(option->ValueName())) listing += std::string("/") + option->ValueName();
    SetAppValue(option->ValueName(), "TRUE", option->Section());
    if (option->Type() == OptionType::Boolean && option->Text() == "False") listing += "?";
    SetAppValue(option->ValueName(), "", option->Section());
    EXPECT_EQ(option->Text(), option->DefaultText());
    listing += "=" + option->Text() + " ";
  }
  return listing;
}

TEST_F(OptionsTest, HaveTheirPlacesAndDefaults) {
  EXPECT_EQ(
      Listing(VSNET),
      "[VSNET] FullPageEditExcludedLanguages= ToolbarStyle=2 CodeViewCollapsed?=False CommentEditorView=1 "
      "CommentWindowStyle=0 AppendUnTagged?=False WrapCharacters=90 BlockTagPosition=1 IncludeSpace?=True "
      "PreviewTemplate=Microsoft .NET Framework SDK Style VBNETCommentMode=0 FollowCodePane=False "
      "Grouped=True ShowProtected=False ShowFriend=False ShowPrivate=False XMLCommentLineBreak=66 "
      "AutoExpand=True ");
  EXPECT_EQ(Listing(VB),
            "[VB] ToolbarStyle=2 CodeViewCollapsed?=False CommentEditorView=1 SaveAsRelatedDocument?=True "
            "MaxContinuedLines=24 WrapWhitespace=10 WrapCharacters=90 BlockTagPosition=1 IncludeSpace?=True "
            "PreviewTemplate=Platform SDK style [VBA] VBAPreviewTemplate=VB Technical Documentation "
            "[VB] VBCommentMode=1 ExternalWindow=False FollowCodePane=False Grouped=True "
            "[VBA] VBAShowFriend/ShowFriend=True VBAShowPrivate/ShowPrivate=True "
            "[VB] ShowFriend=False ShowPrivate=False XMLCommentLineBreak=66 ");
  EXPECT_EQ(Listing(Commenter),
            "[LWCommenter] Grouped=True ShowProtected=False ShowFriend=False ShowPrivate=False "
            "AutoExpand=True PreviewTemplate= ");
  EXPECT_EQ(Listing(IDE),
            "[] PreserveChosenContentType?=True NoProjectPropertiesHeaders?=True ToolbarStyle=1 "
            "DefaultPath=C:\\Docs\\ CommentEditorView=0 AutoSave?=False AutoSaveInterval=3 "
            "SaveLayoutOnExit?=True [IDE] InternalHelp=True ");
  EXPECT_EQ(
      Listing(Spelling),
      "[] DynamicSpell?=True CustomDictionary=\\Custom.dct PrimaryDictionary=\\Corvantis.dct "
      "[Spelling] IgnoreMixedCase?=True IgnoreNumbers?=True IgnoreUpperCase?=True AlwaysSuggest?=True ");
}

/// The option's value as text, or "error" and its number.
std::string Reading(const AnyOption& option) {
  try {
    return option.Text();
  } catch (const Error& failure) {
    return "error " + std::to_string(failure.Number());
  }
}

TEST_F(OptionsTest, ReadTextsOfTheirForm) {
  using Row = std::tuple<const AnyOption&, const char*, const char*>;
  for (const auto& [option, stored, reading] :
       {Row{VSNET.WrapCharacters, " -2 ", "-2"}, Row{VSNET.WrapCharacters, "2.5", "2"},
        Row{VSNET.WrapCharacters, "3.5", "4"}, Row{VSNET.WrapCharacters, "2x", "error 13"},
        Row{VSNET.WrapCharacters, "2147483648", "error 6"}, Row{VB.ToolbarStyle, "-1", "-1"},
        Row{VB.ToolbarStyle, "x", "error 13"}, Row{VB.VBCommentMode, "2", "1"},
        Row{VB.VBCommentMode, "x", "1"}, Row{VB.IncludeSpace, "True", "True"},
        Row{VB.IncludeSpace, "1", "False"}, Row{VB.IncludeSpace, "x", "False"},
        Row{VB.Grouped, "FALSE", "False"}, Row{VB.Grouped, "-0.5", "True"}, Row{VB.Grouped, "0", "False"},
        Row{VB.Grouped, "yes", "error 13"}, Row{VB.PreviewTemplate, " ü\t", " ü\t"}}) {
    SetAppValue(option.ValueName(), stored, option.Section());
    EXPECT_EQ(Reading(option), reading) << option.Name() << stored;
  }
  EXPECT_THAT(ErrorOf([&] { VB.ToolbarStyle.Get(); }).what(),
              HasSubstr("The option VB\\ToolbarStyle is stored as \"x\", which is not a number"));
  EXPECT_EQ(VB.ToolbarStyle.Type(), OptionType::Enumeration);
  EXPECT_EQ(VB.WrapCharacters.Type(), OptionType::Integer);
  EXPECT_EQ(VB.PreviewTemplate.Type(), OptionType::Text);
}

TEST_F(OptionsTest, BehaveLikeValues) {
  VSNET.WrapCharacters = 72;
  VSNET.CodeViewCollapsed = true;
  VSNET.ToolbarStyle = static_cast<LWToolBarStyleEnum>(7);
  Commenter.PreviewTemplate = "Größe";
  Spelling.DynamicSpell = false;
  VB.VBCommentMode = ModeCommentFile;
  VB.VBAShowFriend = true;
  VB.WrapCharacters = VSNETOptions().WrapCharacters;
  const int wrap = VBOptions().WrapCharacters;
  EXPECT_EQ(wrap, 72);
  EXPECT_EQ(VSNETOptions().ToolbarStyle, 7);
  EXPECT_EQ(GetAppValue("CodeViewCollapsed", "", "VSNET"), "True");
  EXPECT_EQ(GetAppValue("PreviewTemplate", "", "LWCommenter"), "Größe");
  EXPECT_EQ(GetAppValue("DynamicSpell", "", ""), "False");
  EXPECT_EQ(GetAppValue("VBCommentMode", "", "VB"), "2");
  EXPECT_FALSE(VB.ShowFriend);
  Registry.Fault = [] { throw std::system_error(EACCES, std::generic_category()); };
  EXPECT_EQ(ErrorOf([&] { VSNET.WrapCharacters = 72; }).Number(), kPermissionDenied);
  EXPECT_EQ(ErrorOf([&] { IDE.AutoSave.Get(); }).Number(), kPermissionDenied);
  EXPECT_EQ(VB.VBCommentMode, ModeVBCode);
}

TEST_F(OptionsTest, ComputeTheirDefaultsAtEachRead) {
  for (const char* folder : {"C:\\Common", "D:"}) {
    Registry.Write(Hive::LocalMachine, "Software\\Corvantis", "CommonPath", {1, folder});
    EXPECT_EQ(Spelling.CustomDictionary.Get(), std::string(folder) + "\\Custom.dct");
  }
  Host.Documents = "";
  EXPECT_EQ(IDE.DefaultPath.Get(), "");
  for (const auto& [width, view] :
       {std::pair{1025, CommentEditViewFull}, std::pair{1024, CommentEditViewCombo}}) {
    Host.Width = width;
    EXPECT_EQ(IDE.CommentEditorView, view) << width;
  }
  IDE.CommentEditorView = CommentEditViewFull;
  EXPECT_EQ(IDE.CommentEditorView, CommentEditViewFull);

  SharedSlot<Languages>::Set(std::make_shared<Languages>());
  auto& excluded = VSNET.FullPageEditExcludedLanguages;
  EXPECT_EQ(excluded.Get(), "");
  for (const char* name : {"C#", "J#", "A B"}) {
    const auto language = std::make_shared<Language>();
    language->Name = name;
    language->IncludeByDefault = language->Name == "C#";
    Languages::Shared()->Add(language, name);
  }
  for (const auto& [stored, value] :
       {std::pair{"", "J#,A B"}, std::pair{"Empty", "J#,A B"}, std::pair{"empty", "empty"}}) {
    excluded = stored;
    EXPECT_EQ(excluded.Get(), value);
    EXPECT_EQ(GetAppValue("FullPageEditExcludedLanguages", "", "VSNET"), stored);
  }
}

}  // namespace
}  // namespace lwconfig
