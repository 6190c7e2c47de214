#include <tests/configuration.h>

#include <lwconfig/core/files/application_values.h>
#include <lwconfig/namespaces/language.h>
#include <lwconfig/options/ide_options.h>
#include <lwconfig/options/lw_commenter_options.h>
#include <lwconfig/options/spelling_options.h>
#include <lwconfig/options/vb_options.h>
#include <lwconfig/options/vsnet_options.h>

namespace lwconfig::testing {
namespace {

class OptionsTest : public ConfigurationTest {
 protected:
  VSNETOptions VSNET;
  VBOptions VB;
  LWCommenterOptions Commenter;
  IDEOptions IDE;
  SpellingOptions Spelling;
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

TEST_F(OptionsTest, ReadTextsOfTheirForm) {
  using Row = std::tuple<const AnyOption&, const char*, const char*>;
  for (const auto& [option, stored, reading] :
       {Row{VSNET.WrapCharacters, "2.5", "2"}, Row{VB.ToolbarStyle, "-1", "-1"},
        Row{VB.VBCommentMode, "2", "1"}, Row{VB.VBCommentMode, "x", "1"},
        Row{VB.IncludeSpace, "True", "True"}, Row{VB.IncludeSpace, "1", "False"},
        Row{VB.Grouped, "FALSE", "False"}, Row{VB.Grouped, "-0.5", "True"},
        Row{VB.PreviewTemplate, " ü\t", " ü\t"}}) {
    SetAppValue(option.ValueName(), stored, option.Section());
    EXPECT_EQ(option.Text(), reading) << option.Name() << stored;
  }
  for (const char* name : {"ToolbarStyle", "WrapCharacters", "Grouped"}) SetAppValue(name, "x", "VB");
  EXPECT_ERROR(kTypeMismatch, VB.WrapCharacters.Get());
  EXPECT_ERROR(kTypeMismatch, VB.Grouped.Get());
  EXPECT_THAT(ErrorOf([&] { VB.ToolbarStyle.Get(); }).what(),
              HasSubstr("The option VB\\ToolbarStyle is stored as \"x\", which is not a number"));
}

TEST_F(OptionsTest, BehaveLikeValues) {
  VSNET.WrapCharacters = 72;
  VSNET.CodeViewCollapsed = true;
  VSNET.ToolbarStyle = static_cast<LWToolBarStyleEnum>(7);
  VB.VBCommentMode = ModeCommentFile;
  VB.WrapCharacters = VSNETOptions().WrapCharacters;
  const int wrap = VBOptions().WrapCharacters;
  EXPECT_EQ(wrap, 72);
  EXPECT_EQ(VSNETOptions().ToolbarStyle, 7);
  EXPECT_EQ(GetAppValue("CodeViewCollapsed", "", "VSNET"), "True");
  EXPECT_EQ(GetAppValue("VBCommentMode", "", "VB"), "2");
  Registry.Fault = [] { throw std::system_error(EACCES, std::generic_category()); };
  EXPECT_ERROR(kPermissionDenied, VSNET.WrapCharacters = 72);
  EXPECT_ERROR(kPermissionDenied, IDE.AutoSave.Get());
  EXPECT_EQ(VB.VBCommentMode, ModeVBCode);
}

TEST_F(OptionsTest, ComputeTheirDefaultsAtEachRead) {
  for (const char* folder : {"C:\\Common", "D:"}) {
    Registry.Write(Hive::LocalMachine, "Software\\Corvantis", "CommonPath", {1, folder});
    EXPECT_EQ(Spelling.CustomDictionary.Get(), std::string(folder) + "\\Custom.dct");
  }
  Surroundings.Documents = "";
  EXPECT_EQ(IDE.DefaultPath.Get(), "");
  for (const auto& [width, view] :
       {std::pair{1025, CommentEditViewFull}, std::pair{1024, CommentEditViewCombo}}) {
    Surroundings.Width = width;
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
  }
}

}  // namespace
}  // namespace lwconfig::testing
