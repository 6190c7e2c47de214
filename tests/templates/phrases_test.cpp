#include <tests/configuration.h>

#include <lwconfig/templates/page_template.h>

namespace lwconfig::testing {
namespace {

using ::testing::EndsWith;

class Phrases : public ConfigurationTest {
 protected:
  Phrases() { Template->RootFolder = Path("Templates\\T\\"); }
  void WritePhrases(const std::string& language, std::string_view text) const {
    Write("Templates/T/Phrases/" + language + ".txt", text);
  }
  std::shared_ptr<PageTemplate> Template = std::make_shared<PageTemplate>();
};

TEST_F(Phrases, ComeFromLinesOrFromADocument) {
  using Strings = std::vector<std::string>;
  using Row = std::tuple<const char*, Strings, Strings>;
  for (const auto& [file, names, texts] :
       {Row{"", {}, {}}, Row{"Title~Contents\r\ntitle~Other\r\n", {"Title"}, {"Contents"}},
        Row{"\r\nA~x~y\r\n\r\nB\r\nC~\r\nD~~y\r\n", {"A", "B", "C", "D"}, {"x", "", "", ""}},
        Row{"A~1\n2\r3\r\nB~\xFC", {"A", "B"}, {"1\n2\r3", "ü"}}, Row{"<?XML?>~x", {"<?XML?>"}, {"x"}},
        Row{"<?xml?><r><p name='A'> x &amp; y </p><q NAME='B'/><p name='a'>z</p></r>",
            {"A", "B"},
            {" x & y ", ""}},
        Row{"<?xml encoding='latin1'?><r><p name='\xC4'>a <b>\xFC</b>&nbsp;</p></r>",
            {"Ä"},
            {"a <b>ü</b>&nbsp;"}},
        Row{"<?xml?><r><p name='A'>x</p><p name='B'>y</r>", {"A", "B"}, {"x", "y"}},
        Row{"<?xml~x", {}, {}}}) {
    WritePhrases("L", file);
    Template->SetPhrases(nullptr);
    Template->LoadPhrasesAndScraps("L");
    EXPECT_EQ(Texts(*Template->Phrases()), texts) << file;
    EXPECT_EQ(Texts(*Template->PhraseNames()), names) << file;
    for (std::size_t i = 0; i < names.size(); ++i) EXPECT_EQ(Template->Phrase(FoldCase(names[i])), texts[i]);
  }
  EXPECT_EQ(Diagnostics.size(), 4U)
      << "two malformed documents, each loaded once and asked for its names once";
  EXPECT_THAT(Diagnostics[0].Position.File, EndsWith("\\Templates\\T\\Phrases\\L.txt"));
}

TEST_F(Phrases, AreReadOncePerLanguage) {
  EXPECT_EQ(Template->Phrases(), nullptr);
  EXPECT_EQ(Template->Phrase("Foo"), "!MISSING PHRASE 'Foo'!");
  EXPECT_EQ(Template->Scrap("Foo"), "!MISSING Scrap 'Foo'!");
  WritePhrases("", "None~x");
  EXPECT_THAT(Texts(*Template->PhraseNames()), ElementsAre("None"));
  WritePhrases("English", "A~a");
  Write("Templates/T/HTMLScraps/English.txt", "S~<hr>");
  Template->LoadPhrasesAndScraps("English");
  EXPECT_EQ(Template->Scrap("s"), "<hr>");

  WritePhrases("English", "A~b\r\nB~b");
  const auto phrases = Template->Phrases();
  Template->LoadPhrasesAndScraps("English");
  EXPECT_EQ(Template->Phrases(), phrases);
  EXPECT_EQ(Template->Phrase("A"), "a");
  EXPECT_THAT(Texts(*Template->PhraseNames()), ElementsAre("A", "B"));
  EXPECT_THAT(Texts(*Template->ScrapNames()), ElementsAre("S"));
  Template->LoadPhrasesAndScraps("english");
  EXPECT_EQ(Template->Phrase("A"), "b");
  Template->SetPhrases(phrases);
  Template->LoadPhrasesAndScraps("english");
  EXPECT_EQ(Template->Phrase("A"), "a") << "replaced phrases count as loaded";
  Template->LoadPhrasesAndScraps("Klingon");
  EXPECT_THAT(Texts(*Template->Scraps()), IsEmpty());
  EXPECT_EQ(Template->LoadedScrapLanguage(), "Klingon");
  EXPECT_EQ(Template->Clone()->Phrases(), nullptr);
}

TEST_F(Phrases, OfAFailedLoadAreNotTakenForALanguage) {
  WritePhrases("English", "A~a");
  WritePhrases("German", "<?xml version='1.0'?>\n<r><p name='B'>b</p>\n  <p>c</p><p name='D'>d</p></r>");
  Template->LoadPhrasesAndScraps("English");
  EXPECT_ERROR(kInvalidCall, Template->LoadPhrasesAndScraps("German"));
  EXPECT_THAT(Texts(*Template->Phrases()), ElementsAre("b"));
  EXPECT_EQ(Template->LoadedPhraseLanguage(), "English");
  Template->LoadPhrasesAndScraps("English");
  EXPECT_THAT(Texts(*Template->Phrases()), ElementsAre("a"));

  Write("secret.txt", "S~secret");
  for (const char* language : {"..\\..\\..\\secret", "../../../secret", "sub\\..\\../x"}) {
    EXPECT_ERROR(kBadFileName, Template->LoadPhrasesAndScraps(language)) << language;
    EXPECT_EQ(Template->Phrase("A"), "a") << language;
  }
  for (const char* language : {"Who...", "sub/English"}) {
    WritePhrases(language, "A~?");
    Template->LoadPhrasesAndScraps(language);
    EXPECT_EQ(Template->Phrase("A"), "?") << language;
  }
  for (const auto& language : std::vector<std::string>{"C:secret", "none\\x", "a\nb", "..", {"a\0b", 3}}) {
    Template->LoadPhrasesAndScraps(language);
    EXPECT_THAT(Texts(*Template->Phrases()), IsEmpty()) << language;
  }
}

}  // namespace
}  // namespace lwconfig::testing
