#include <tests/configuration.h>

#include <lwconfig/core/xml/xml_document.h>

namespace lwconfig::testing {
namespace {

std::string TextIn(const std::string& text, bool keeps, bool isWellFormed = true) {
  XMLDocument document;
  EXPECT_EQ(document.LoadXMLWithOption("<r><t n=\">'\">" + text, keeps), isWellFormed) << text;
  return document.RootElement().Children().Item(1).Text();
}

TEST(XMLText, IsKeptAsWritten) {
  using Row = std::tuple<const char*, const char*, const char*>;
  for (const auto& [inside, kept, usual] :
       {Row{"", "", ""}, Row{"  ", "  ", ""}, Row{" a \r\n\tb ", " a \r\n\tb ", " a \n\tb "},
        Row{"&lt;b&gt; &#252;&nbsp;", "<b> ü&nbsp;", "<b> ü&nbsp;"},
        Row{"\n<![CDATA[<b/>&amp;]]>\n", "\n<b/>&amp;\n", "<b/>&amp;"},
        Row{"a <b k='1' l=\"y'>/\">x &lt;</b>\r\n<br/> c", "a <b k='1' l=\"y'>/\">x &lt;</b>\r\n<br/> c",
            "a  c"},
        Row{"<t>1</t><t><t/>2<t t='/'>3</t></t >4", "<t>1</t><t><t/>2<t t='/'>3</t></t >4", "4"},
        Row{"a<!-- </t> --> b", "a<!-- </t> --> b", "a b"},
        Row{"<i/><![CDATA[</t>]]><?p </t>?>", "<i/></t><?p </t>?>", "</t>"},
        Row{"&lt;<b t='&lt;'>&amp;</b><![CDATA[&amp;]]>", "&lt;<b t='&lt;'>&amp;</b>&amp;", "<&amp;"},
        Row{"<![CDATA[<b>]]>&gt;<!-- <![CDATA[&lt;]]> -->", "<b>&gt;<!-- <![CDATA[&lt;]]> -->", "<b>>"}}) {
    EXPECT_EQ(TextIn(std::string(inside) + "</t><t>z</t></r>", true), kept);
    // A reference that is not defined is text only where markup is.
    const bool isDefined = std::string(inside).find("&nbsp;") == std::string::npos;
    EXPECT_EQ(TextIn(std::string(inside) + "</t><t>z</t></r>", false, isDefined), usual);
  }
  for (const bool keeps : {false, true}) EXPECT_EQ(TextIn("x y", keeps, false), "x y") << "cut in the text";
  std::string deep;
  constexpr int kDepth = 200'000;
  for (int i = 0; i < 2 * kDepth; ++i) deep += i < kDepth ? "<b>" : "</b>";
  EXPECT_EQ(TextIn(deep + "</t></r>", true), deep);
  for (const char* rest : {"<b>y</t><t>z</t></r>", "<b>y", "<b>y<", "<b>y</", "<b>y<!-- z", "<b>y<c d='"})
    EXPECT_EQ(TextIn(std::string("x ") + rest, true, false), "x <b>y") << "the document goes wrong: " << rest;
}

}  // namespace
}  // namespace lwconfig::testing
