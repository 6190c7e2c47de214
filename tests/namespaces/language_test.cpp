#include <tests/configuration.h>
#include <tests/language_element.h>

#include <lwconfig/namespaces/language.h>

namespace lwconfig::testing {
namespace {

/// Every word of a language, in the order in which they are read.
std::string WordsOf(const Language& l) {
  return l.Name + l.Caption + l.OverloadsWord + l.OverridesWord + l.VirtualWord + l.NotVirtualWord +
         l.AbstractWord + l.ShadowsWord + l.StaticWord + l.OptionalWord + l.OutParamWord + l.ByRefWord +
         l.ByValWord + l.ReturnTypePrefix + l.ArraySymbol + l.VoidTypeName + l.ParamArrayWord +
         l.FunctionWord + l.SubWord + l.ReadOnlyPropertyWord + l.WriteOnlyPropertyWord +
         l.ReadWritePropertyWord + l.MustInheritWord + l.NotInheritableWord + l.ReadOnlyFieldKeyword;
}

TEST(Language, ReadsEveryWord) {
  Language language;
  language.Load(Parse(LanguageElement("Name ")));
  EXPECT_EQ(WordsOf(language), std::string(kLanguageWords) + " ");
  EXPECT_EQ(std::tuple(language.ParameterDelimiter, language.IncludeByDefault), std::tuple(",", false));
  language.Load(Parse(LanguageElement("N", "",
                                      "parameterdelimiter=';' IncludeByDefault='True' IncludeFlag='True' "
                                      "MultiDimensionalArraySymbol='(,)'")));
  EXPECT_EQ(language.ParameterDelimiter + language.MultiDimensionalArraySymbol, ";(,)");
  EXPECT_EQ(std::tuple(language.IncludeByDefault, language.IncludeFlag), std::tuple(true, false));
}

TEST(Language, TranslatesTypesAndAccessLevels) {
  Language language;
  language.Load(Parse(
      LanguageElement("L",
                      "<DataType type='Int32' Value='Long'/><AccessType type='Public' value='pub'/><other/>"
                      "<accesstype type='public' Value='again'/><accesstype type='x'/>"
                      "<accesstype type='Private' Value='priv'/><datatype type='None' Value=''/>"
                      "<accesstype type='' Value='no'/><accesstype type='' Value='again'/>")));
  EXPECT_THAT(language.DataTypes->Item("INT32"), ::testing::Pointee(std::string("Long")));
  EXPECT_THAT(language.ReverseDataTypes->Item("long"), ::testing::Pointee(std::string("Int32")));
  EXPECT_THAT(Texts(*language.AccessTypes), ElementsAre("pub", "priv", "no"));
  EXPECT_THAT(Texts(*language.ReverseDataTypes), ElementsAre("Int32", "None"));
  language.AccessTypes = nullptr;
  language.Load(
      Parse(LanguageElement("L", "<accesstype type='x' Value='y'/><datatype type='late' Value='l'/>")));
  EXPECT_TRUE(language.DataTypes->Contains("late"));

  for (const auto& [third, number, types] : {std::tuple("<datatype type='B' Value='X'/>", kDuplicateKey, 3),
                                             {"<datatype type='B' Value=''/>", kDuplicateKey, 3},
                                             {"<datatype type='a' Value='y'/>", kDuplicateKey, 2},
                                             {"<datatype type='B'/>", kInvalidCall, 2},
                                             {"<datatype Value='y'/>", kInvalidCall, 2}}) {
    Language failing;
    const std::string inside = std::string("<datatype type='A' Value='x'/><datatype type='N' Value=''/>\n") +
                               third + "<datatype type='C' Value='z'/>";
    const auto failure = ErrorOf([&] { failing.Load(Parse(LanguageElement("L", inside))); });
    EXPECT_EQ(std::tuple(failure.Number(), failure.Position().Line), std::tuple(number, 2)) << third;
    EXPECT_EQ(failing.DataTypes->Count(), types) << third;
    EXPECT_THAT(Texts(*failing.ReverseDataTypes), ElementsAre("A", "N")) << third;
  }
}

class LanguageFile : public ConfigurationTest {};

TEST_F(LanguageFile, IsSharedOnceLoaded) {
  const auto none = Languages::Shared();
  EXPECT_ERROR(kInvalidCall, none->Item("VB"));
  EXPECT_ERROR(kSubscriptOutOfRange, none->Item(1));
  Write("languages.xml", "<x>\n" + LanguageElement("VB") + "<LANGUAGE/>" + LanguageElement("C#") + "</x>");
  EXPECT_EQ(Languages::Shared(), none);
  EXPECT_EQ(none->Count(), 0);
  ResetSharedSlots();
  const auto languages = Languages::Shared();
  EXPECT_THAT(Each(*languages, &Language::Name), ElementsAre("VB", "C#"));
  EXPECT_EQ(languages->Item("c#")->Name, "C#");
  for (const ItemKey& unknown : {ItemKey("J#"), ItemKey(0), ItemKey(3), ItemKey("")})
    EXPECT_EQ(languages->Item(unknown)->Name, "VB") << unknown.Description();
  languages->Load(Parse("<x>" + LanguageElement("Other") + "</x>"));
  EXPECT_THAT(Each(*languages, &Language::Name), ElementsAre("Other"));
}

}  // namespace
}  // namespace lwconfig::testing
