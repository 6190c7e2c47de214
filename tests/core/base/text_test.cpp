#include <gmock/gmock.h>

#include <lwconfig/core/base/text.h>
#include <lwconfig/core/files/text_encoding.h>
#include <lwconfig/core/xml/string_tools.h>

namespace lwconfig {
namespace {

using namespace std::string_literals;
using ::testing::ElementsAre;
using ::testing::StartsWith;

TEST(TextFiles, AreDecodedByWhatTheySayAboutThemselves) {
  using Row = std::pair<std::string, std::string>;
  for (const auto& [bytes, text] :
       {Row{"", ""}, Row{"plain", "plain"}, Row{"\xEF\xBB\xBF", ""}, Row{"\xEF\xBB\xBFgr\xC3\xBCn", "grün"},
        Row{"gr\xC3\xBCn \xF0\x9F\x93\x98", "grün 📘"}, Row{"\xFF\xFE", ""},
        Row{"\xFF\xFEg\0r\0\xFC\0n\0"s, "grün"}, Row{"\xFE\xFF\0g\0r\0\xFC\0n"s, "grün"},
        Row{"\xFF\xFE\x3D\xD8\xD8\xDC"s, "📘"}, Row{"\xFF\xFE\0\0g\0\0\0\xFC\0\0\0"s, "gü"},
        Row{"<\0?\0x\0m\0l\0?\0>\0\xFC\0"s, "<?xml?>ü"}, Row{"\0<\0?\0x\0m\0l\0?\0>\0\xFC"s, "<?xml?>ü"},
        Row{"<?xml encoding=\"windows-1252\"?>\x80\xFC", "<?xml encoding=\"windows-1252\"?>€ü"},
        Row{"<?xml encoding='ISO-8859-1'?>\x93\xFC", "<?xml encoding='ISO-8859-1'?>“ü"},
        Row{"<?xml encoding='latin1'?>\xC3\xBC", "<?xml encoding='latin1'?>Ã¼"},
        Row{"<?xml encoding='windows-1251'?>\xFF", "<?xml encoding='windows-1251'?>я"},
        Row{"<?xml encoding='no-such'?>\xC3\xBC", "<?xml encoding='no-such'?>ü"},
        Row{"<?xml encoding='utf-8'?>\xFC", "<?xml encoding='utf-8'?>ü"},
        Row{"<?xml encoding='utf-8", "<?xml encoding='utf-8"},
        // Neither overlong forms nor halves of pairs nor values beyond the last are UTF-8.
        Row{"\xC0\xAF", "À¯"}, Row{"\xED\xA0\x80", "í\xC2\xA0€"}, Row{"\xF4\x90\x80\x80", "ô\xC2\x90€€"},
        Row{std::string(100, 'x') + "\xC3", std::string(100, 'x') + "Ã"},
        Row{std::string(63, 'x') + "\xC3\xBC" + std::string(70, 'y') + "\xFC",
            std::string(63, 'x') + "Ã¼" + std::string(70, 'y') + "ü"},
        // A declaration that can be read byte by byte is not in a two-byte encoding, whatever it names.
        Row{"<?xml encoding='utf-16'?><a b='\xC3\xBC'/>", "<?xml encoding='utf-16'?><a b='ü'/>"},
        // The mark is no text, also where the rest is not what it promises.
        Row{"\xEF\xBB\xBFgr\xFCn", "grün"}}) {
    EXPECT_EQ(DecodeText(bytes), text) << ::testing::PrintToString(bytes);
  }
  // A file cut in the middle of a character is still what its mark says.
  EXPECT_THAT(DecodeText("\xFF\xFE<\0a\0/\0>\0x"s), StartsWith("<a/>"));
  EXPECT_THAT(DecodeText("\xFF\xFE<\0a\0/\0>\0\x3D\xD8"s), StartsWith("<a/>"));
  for (const char* cut : {"\xC3", "\xE2\x82", "\xF0\x9F\x98"}) {
    EXPECT_EQ(DecodeText("a\u00DC" + std::string(cut)), "a\u00DC");
    EXPECT_EQ(DecodeText("\xEF\xBB\xBF"
                         "a" +
                         std::string(cut)),
              "a");
    EXPECT_EQ(DecodeText("<?xml encoding='UTF-8'?>" + std::string(cut)), "<?xml encoding='UTF-8'?>");
  }
  EXPECT_EQ(DecodeText("a\xC3"), "a\u00C3") << "nothing but this byte says that it is UTF-8";
}

TEST(Text, MatchesFilePatterns) {
  using Row = std::tuple<const char*, const char*, bool>;
  for (const auto& [name, pattern, matches] :
       {Row{"a.xml", "*.xml", true}, Row{"A.XML", "*.xml", true}, Row{"a.xmlx", "*.xml", false},
        Row{"axml", "*.xml", false}, Row{".xml", "*.xml", true}, Row{"a.xml.xml", "*.xml", true},
        Row{"noextension", "*.*", true}, Row{"", "*", true}, Row{"", "?", false}, Row{"grün", "GR?N", true},
        Row{"aXbXc", "a*b*c", true}, Row{"aXbX", "a*b*c", false}, Row{"ab", "a*b*", true}}) {
    EXPECT_EQ(MatchesFilePattern(name, pattern), matches) << name << ' ' << pattern;
  }
}

TEST(StringTools, TakesTextsApartAndJoinsThem) {
  for (const auto& [delimiter, number, piece] :
       {std::tuple(".", 2, "b"), {".", 3, ""}, {".", 4, "c"}, {".", 5, ""}, {".", 0, ""}, {"", 1, "a.b..c"}})
    EXPECT_EQ(StringTools::Piece("a.b..c", delimiter, number), piece);
  const auto pieces = StringTools::SplitToCollection("binary,,source,binary", ",");
  EXPECT_THAT(std::vector(pieces->begin(), pieces->end()), ElementsAre("binary", "", "source", "binary"));
  EXPECT_EQ(StringTools::JoinCollection(*pieces, ", "), "binary, , source, binary");
  EXPECT_EQ(StringTools::JoinCollection(Collection(), ","), "");
}

TEST(StringTools, ExpandsPlaceholders) {
  Collection values;
  values.Add("Lexi", "Name");
  values.Add("%%Name%%", "Nested");
  values.Add("", "Empty");
  using Row = std::pair<const char*, const char*>;
  for (const auto& [format, expanded] :
       {Row{"", ""}, Row{"%%Name%%", "Lexi"}, Row{"a %%NAME%% b %%name%%", "a Lexi b Lexi"},
        Row{"%%Name%%%%Name%%", "LexiLexi"}, Row{"%%Nested%%Empty%%Empty%%", "%%Name%%Empty"},
        Row{"%%None%% %%Name%%", "%%None%% Lexi"}, Row{"%%None%%%%Name%%", "%%None%%Lexi"},
        Row{"100%% of %%Name%%", "100%% of Lexi"}, Row{"%%Name%% is 100%%", "Lexi is 100%%"},
        Row{"%%%%", "%%%%"}, Row{"%Name%", "%Name%"}, Row{"%%", "%%"}}) {
    EXPECT_EQ(StringTools::ExpandPlaceholders(format, values, "%%"), expanded) << format;
  }
  EXPECT_EQ(StringTools::ExpandPlaceholders("%%Name%%", values, ""), "%%Name%%");
}

}  // namespace
}  // namespace lwconfig
