#include <tests/configuration.h>

#include <lwconfig/core/loading/attribute_reader.h>
#include <lwconfig/core/loading/configuration_files.h>

namespace lwconfig::testing {
namespace {

using namespace std::string_literals;

class XML : public ConfigurationTest {};

std::vector<std::string> ChildNames(const XMLElement& e) {
  std::vector<std::string> names;
  for (const XMLElement child : e.Children()) names.push_back(child.Name());
  return names;
}

TEST_F(XML, GivesBackExactlyWhatWasSet) {
  const std::vector<std::string> values{
      "",      " ",   "  two  blanks  ", "a\tb",      "a\nb",     "a\r\nb",   "\r",   "\"'<>&",
      "&amp;", "]]>", "%%Name%%",        "Göttingen", "日本語 📘", "\xC2\xA0", "\x7F", "\x01 \x1F"};
  XMLDocument document;
  XMLElement root = document.RootElement();
  root.SetName("Root");
  const XMLAttribute early = root.AddAttribute("Early", values[3]);
  for (const auto& value : values) root.AddElement("T", value).AddAttribute("A", value);
  root.AddElement("Mixed", "before").AddElement("Inner", "x");
  const auto expectEverything = [&](const XMLElement& read, const char* state) {
    EXPECT_EQ(read.Children().Item(read.Children().Count()).Text(), "before") << state;
    for (std::size_t i = 0; i < values.size(); ++i) {
      const XMLElement child = read.Children().Item(static_cast<std::int32_t>(i + 1));
      EXPECT_EQ(child.Text(), values[i]) << state;
      EXPECT_EQ(child.Attributes().Item("a").Value(), values[i]) << state;
    }
  };
  XMLDocument loaded;
  ASSERT_TRUE(loaded.LoadXML(document.XML()));
  expectEverything(loaded.RootElement(), "loaded");
  expectEverything(root, "as built");
  EXPECT_EQ(root.AddAttribute("Late", "read already").Name(), "Late");
  EXPECT_EQ(early.Value(), values[3]);
  ASSERT_TRUE(loaded.LoadXML(document.XML()));
  expectEverything(loaded.RootElement(), "written once it was read");
  ASSERT_TRUE(loaded.LoadXML(loaded.XML()));
  expectEverything(loaded.RootElement(), "loaded and written again");
  EXPECT_ERROR(kInvalidCall, root.AddAttribute("B", "a\0b"s));
  for (const char* name : {"", "1a", "a b", "a=\"\"", "-"})
    EXPECT_ERROR(kInvalidCall, root.AddAttribute(name, "")) << name;
}

TEST_F(XML, IsReadAndWrittenInAnyOrder) {
  XMLDocument document;
  XMLElement root = document.RootElement();
  root.AddAttribute("A", "1");
  EXPECT_ERROR(kInvalidCall, document.XML());
  root.SetName("Root");
  XMLElement first = root.AddElement("First", "text");
  EXPECT_EQ(root.Children().Item(1), first);
  first.AddElement("Inner", "").AddAttribute("B", "2");
  first.AddAttribute("C", "3");
  root.AddElement("Second", "");
  root.AddAttribute("D", "4");
  first.SetName("Renamed");
  EXPECT_EQ(root.Position().Line, 0) << "it stands in no text";
  EXPECT_EQ(document.XML(), Normal("<Root A='1' D='4'><Renamed C='3'>text<Inner B='2'/></Renamed>"
                                   "<Second/></Root>"));

  // Elements of one document stay in their places, whether anything was read in between or not.
  for (const bool reading : {false, true}) {
    XMLDocument written;
    std::vector<XMLElement> elements{written.RootElement()};
    for (std::size_t i = 1; i < 50; ++i) {
      elements.push_back(elements[i / 3].AddElement("E" + std::to_string(i), ""));
      elements[i / 2].AddAttribute("A" + std::to_string(i), "x");
      if (reading && i == 25) {
        EXPECT_EQ(elements[20].Attributes().Count(), 0);
      }
    }
    for (std::size_t i = 1; i < 50; ++i) {
      EXPECT_EQ(elements[i].Name(), "E" + std::to_string(i));
      EXPECT_TRUE(elements[i / 2].Attributes().Find("a" + std::to_string(i)));
    }
    EXPECT_THAT(ChildNames(elements[5]), ElementsAre("E15", "E16", "E17"));
  }
}

TEST_F(XML, KeepsWhatStandsBeforeAFault) {
  // The text, and the names of the root and its children as far as they are kept.
  using Row = std::pair<std::string, std::vector<std::string>>;
  for (const auto& [text, names] :
       {Row{"", {""}}, Row{"  \n", {""}}, Row{"no markup", {""}}, Row{"<?xml version='1.0'?>", {""}},
        Row{"<!DOCTYPE a [<!ELEMENT", {""}}, Row{"<a><b/><c/>", {"a", "b", "c"}},
        Row{"<a><b/></c></a>", {"a", "b"}}, Row{"<a x='1'", {""}}, Row{"<a><b/><c x='1' y='2", {"a", "b"}},
        Row{"<a><b/><c \0></c></a>"s, {"a", "b"}}, Row{"<a><b/><c>text", {"a", "b", "c"}},
        Row{"<a><b/><c x=1/><d/></a>", {"a", "b"}}}) {
    XMLDocument document;
    EXPECT_FALSE(document.LoadXML(text)) << text;
    auto found = ChildNames(document.RootElement());
    found.insert(found.begin(), document.RootElement().Name());
    EXPECT_EQ(found, names) << text;
    EXPECT_FALSE(document.RootElement().ParseFailure().empty()) << text;
  }
  const auto whole = Parse("<!-- first --><?pi?><!DOCTYPE a><a><b/><!-- c --><d/></a><!-- last -->");
  EXPECT_EQ(whole.ParseFailure().empty(), true);
  EXPECT_THAT(ChildNames(whole), ElementsAre("b", "d"));
  // Every way to cut a document leaves one that can be read, and written where there is an element.
  const std::string text = "<?xml version=\"1.0\"?><a b=\"&lt;ü\"><!-- c --><d><![CDATA[e]]></d>&#228;</a>";
  for (std::size_t length = 0; length <= text.size(); ++length) {
    XMLDocument document;
    document.LoadXML(text.substr(0, length));
    if (!document.RootElement().Name().empty()) {
      EXPECT_TRUE(XMLDocument().LoadXML(document.XML())) << length;
    }
  }
}

TEST_F(XML, ExpandsAndFetchesNothing) {
  Write("secret.txt", "secret");
  const auto bomb =
      Parse("<!DOCTYPE a [<!ENTITY x 'xxxxxxxxxx'><!ENTITY y '&x;&x;&x;&x;&x;&x;'><!ENTITY file SYSTEM '" +
            (Folder.Path() / "Config/secret.txt").string() + "'>]><a n='&y;&file;'>&y;&file;<b/></a>");
  const std::string read = bomb.Text() + bomb.Attributes().Item("n").Value();
  EXPECT_THAT(read, ::testing::Not(HasSubstr("secret")));
  EXPECT_THAT(read, ::testing::Not(HasSubstr("xx")));
  EXPECT_THAT(ChildNames(bomb), ElementsAre("b"));
}

TEST_F(XML, NestsToAnyDepth) {
  const auto nested = [](int depth) {
    std::string text;
    for (int i = 0; i < 2 * depth; ++i) text += i < depth ? "<a>" : "</a>";
    return text;
  };
  constexpr int kDepth = 100'000;
  XMLElement innermost = Parse(nested(kDepth));
  int depth = 1;
  for (; innermost.Children().Count() > 0; ++depth) innermost = innermost.Children().Item(1);
  EXPECT_EQ(depth, kDepth);
  EXPECT_EQ(Normal(Normal(nested(2'000))), Normal(nested(2'000)));
}

TEST_F(XML, ElementsOutliveTheirDocument) {
  auto document = std::make_unique<XMLDocument>();
  document->LoadXML("<a b='c'><d>e</d></a>");
  const XMLElement root = document->RootElement();
  const XMLAttribute attribute = root.Attributes().Item("B");
  document->LoadXML("<other/>");
  document.reset();
  EXPECT_EQ(attribute.Value() + root.Children().Item(1).Text(), "ce");
}

TEST_F(XML, LooksUpAttributesWithoutRegardToLetterCase) {
  const XMLElement e = Parse("<e Name='n' DependantOnnamespace_Filter='f' Last='l'/>");
  EXPECT_EQ(e.Attributes().Item("dependantonnamespace_filter").Value(), "f");
  for (const ItemKey& none : {ItemKey("Nam"), ItemKey("Names"), ItemKey(0), ItemKey(4)})
    EXPECT_EQ(e.Attributes().Find(none), std::nullopt);
  // Whatever the order of the look-ups, each finds its attribute.
  AttributeReader in(e);
  for (const char* name : {"LAST", "name", "dependantonnamespace_filter", "name", "name", "last", "Name"})
    EXPECT_NE(in.Find(name), nullptr) << name;
  for (const char* name : {"Nam", "Names"}) EXPECT_EQ(in.Find(name), nullptr);
  std::string text = "<e";
  for (int i = 0; i < 40; ++i) text += " A" + std::to_string(i) + "='" + std::to_string(i) + "'";
  const XMLElement many = Parse(text + "/>");
  AttributeReader inMany(many);
  for (const char* number : {"39", "0", "31", "32", "33"})
    EXPECT_STREQ(inMany.Find(("a" + std::string(number)).c_str()), number);
  EXPECT_EQ(inMany.Find("a40"), nullptr);
}

TEST_F(XML, FailuresTellTheirPlaceInCharacters) {
  const auto read = [&](const std::string& text, std::string& name) {
    Write("place.xml", text);
    ReadConfigurationFiles({DiskFile(Path("place.xml"))}, [&](const DiskFile&, const XMLElement& root) {
      for (const XMLElement child : root.Children())
        if (child.IsNamed("item")) AttributeReader(child).Require("Name", name);
    });
  };
  std::string name;
  using Row = std::tuple<const char*, std::int32_t, std::int32_t>;
  for (const auto& row : {Row{"<?xml version='1.0'?>\r\n\r\n<a>  <item/></a>", 3, 7},
                          Row{"<ä><ö x='grün &amp; rot'>\tüß</ö><item y='1'/></ä>", 1, 34},
                          Row{"<a>\n<!-- ä\n ö --><item\n\n/></a>", 3, 8}}) {
    for (const std::string mark : {"", "\xEF\xBB\xBF"}) {
      const auto failure = ErrorOf([&] { read(mark + std::get<0>(row), name); });
      const auto& [file, line, column] = failure.Position();
      EXPECT_EQ(std::tuple(failure.Number(), file), std::tuple(kInvalidCall, Path("place.xml")));
      EXPECT_EQ(Row(std::get<0>(row), line, column), row);
    }
  }
  EXPECT_THAT(Diagnostics, IsEmpty());
  read("<ä>\n ü</b>", name);
  read("<a>\n<item Name='1' Other='' Name='2'/><item Name='3' NAME='4'/></a>", name);
  EXPECT_EQ(name, "3") << "the first of an attribute that is given twice counts";
  ASSERT_EQ(Diagnostics.size(), 3U);
  EXPECT_EQ(Diagnostics[1].Message, "the attribute \"Name\" is repeated in <item>; only the first counts");
  EXPECT_EQ(std::pair(Diagnostics[1].Position.Column, Diagnostics[2].Position.Column), std::pair(25, 50));
  for (const auto& diagnostic : Diagnostics)
    EXPECT_EQ(std::tuple(diagnostic.Position.File, diagnostic.Position.Line),
              std::tuple(Path("place.xml"), 2));
}

}  // namespace
}  // namespace lwconfig::testing
