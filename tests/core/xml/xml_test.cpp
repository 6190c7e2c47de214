#include <tests/configuration.h>

#include <lwconfig/core/loading/attribute_reader.h>
#include <lwconfig/core/loading/configuration_files.h>

namespace lwconfig {
namespace {

using namespace std::string_literals;
using ::testing::ElementsAre;
using testing::ErrorOf;
using ::testing::HasSubstr;
using ::testing::Not;
using testing::Parse;

class XML : public testing::ConfigurationTest {};

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
  std::vector<XMLAttribute> added;
  for (std::size_t i = 0; i < values.size(); ++i) {
    added.push_back(root.AddAttribute("A" + std::to_string(i), values[i]));
    root.AddElement("Text", values[i]);
  }
  root.AddElement("Mixed", "before").AddElement("Inner", "x");
  const auto expectEverything = [&](const XMLElement& read, const char* state) {
    EXPECT_EQ(read.Name(), "Root") << state;
    for (std::size_t i = 0; i < values.size(); ++i) {
      const auto position = static_cast<std::int32_t>(i + 1);
      EXPECT_EQ(read.Attributes().Item("a" + std::to_string(i)).Value(), values[i]) << state;
      EXPECT_EQ(read.Attributes().Item(position).Name(), "A" + std::to_string(i)) << state;
      EXPECT_EQ(read.Children().Item(position).Text(), values[i])
          << state << ' ' << ::testing::PrintToString(values[i]);
    }
    EXPECT_EQ(read.Children().Item(read.Children().Count()).Text(), "before") << state;
  };
  XMLDocument loaded;
  ASSERT_TRUE(loaded.LoadXML(document.XML()));
  expectEverything(loaded.RootElement(), "loaded");
  expectEverything(root, "as built");
  added.push_back(root.AddAttribute("Late", "read already"));
  EXPECT_EQ(added[3].Value(), values[3]);
  EXPECT_EQ(added.back().Name(), "Late");
  ASSERT_TRUE(loaded.LoadXML(document.XML()));
  expectEverything(loaded.RootElement(), "written once it was read");
  const std::string again = loaded.XML();
  ASSERT_TRUE(loaded.LoadXML(again));
  expectEverything(loaded.RootElement(), "loaded and written again");
  EXPECT_EQ(ErrorOf([&] { root.AddAttribute("B", std::string_view("a\0b", 3)); }).Number(), kInvalidCall);
  for (const char* name : {"", "1a", "a b", "a=\"\"", "-"})
    EXPECT_EQ(ErrorOf([&] { root.AddAttribute(name, ""); }).Number(), kInvalidCall) << name;
}

TEST_F(XML, IsReadAndWrittenInAnyOrder) {
  XMLDocument document;
  XMLElement root = document.RootElement();
  root.AddAttribute("A", "1");
  EXPECT_EQ(ErrorOf([&] { document.XML(); }).Number(), kInvalidCall);
  EXPECT_EQ(root.Name(), "");
  root.SetName("Root");
  XMLElement first = root.AddElement("First", "text");
  EXPECT_EQ(document.RootElement(), root);
  EXPECT_EQ(root.Children().Item(1), first);
  first.AddElement("Inner", "").AddAttribute("B", "2");
  first.AddAttribute("C", "3");
  root.AddElement("Second", "");
  root.AddAttribute("D", "4");
  first.SetName("Renamed");
  EXPECT_EQ(root.Position().Line, 0) << "it stands in no text";
  EXPECT_EQ(document.XML(), testing::Normal("<Root A='1' D='4'><Renamed C='3'>text<Inner B='2'/></Renamed>"
                                            "<Second/></Root>"));

  // Elements of one document stay in their places, whether anything was read in between or not.
  for (const bool reading : {false, true}) {
    XMLDocument written;
    XMLElement top = written.RootElement();
    top.SetName("Top");
    std::vector<XMLElement> elements{top};
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
  using Row = std::tuple<std::string, bool, const char*, std::vector<std::string>>;
  for (const auto& [text, parses, root, children] :
       std::vector<Row>{{"", false, "", {}},
                        {"  \n", false, "", {}},
                        {"no markup", false, "", {}},
                        {"<?xml version='1.0'?>", false, "", {}},
                        {"<", false, "", {}},
                        {"<!DOCTYPE a [<!ELEMENT", false, "", {}},
                        {"<a><b/><c/>", false, "a", {"b", "c"}},
                        {"<a><b/></c></a>", false, "a", {"b"}},
                        {"<a x='1'", false, "", {}},
                        {"<a><b/><c x='1' y='2", false, "a", {"b"}},
                        {"<a><b/><c \0></c></a>"s, false, "a", {"b"}},
                        {"<a><b/><c>text", false, "a", {"b", "c"}},
                        {"<a><b/><c x=1/><d/></a>", false, "a", {"b"}},
                        {"<!-- first --><?pi?><!DOCTYPE a><a><b/><!-- c --><d/></a><!-- last -->",
                         true,
                         "a",
                         {"b", "d"}}}) {
    XMLDocument document;
    EXPECT_EQ(document.LoadXML(text), parses) << text;
    EXPECT_EQ(document.RootElement().Name(), root) << text;
    EXPECT_EQ(ChildNames(document.RootElement()), children) << text;
    EXPECT_EQ(document.RootElement().ParseFailure().empty(), parses) << text;
  }
  // Every way to cut a document leaves one that can be read, and written where there is an element.
  const std::string whole = "<?xml version=\"1.0\"?><a b=\"&lt;ü\"><!-- c --><d><![CDATA[e]]></d>&#228;</a>";
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    XMLDocument document;
    document.LoadXML(whole.substr(0, length));
    if (!document.RootElement().Name().empty()) {
      EXPECT_TRUE(XMLDocument().LoadXML(document.XML())) << length;
    }
  }
}

TEST_F(XML, ExpandsAndFetchesNothing) {
  Write("secret.txt", "secret");
  const std::string system = (Folder.Path() / "Config/secret.txt").string();
  const auto bomb =
      Parse("<!DOCTYPE a [<!ENTITY x 'xxxxxxxxxx'><!ENTITY y '&x;&x;&x;&x;&x;&x;'><!ENTITY file SYSTEM '" +
            system + "'>]><a n='&y;&file;'>&y;&file;<b/></a>");
  for (const std::string& text : {bomb.Text(), bomb.Attributes().Item("n").Value()}) {
    EXPECT_THAT(text, Not(HasSubstr("secret")));
    EXPECT_THAT(text, Not(HasSubstr("xx")));
  }
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
  EXPECT_EQ(testing::Normal(testing::Normal(nested(2'000))), testing::Normal(nested(2'000)));
}

TEST_F(XML, ElementsOutliveTheirDocument) {
  auto document = std::make_unique<XMLDocument>();
  document->LoadXML("<a b='c'><d>e</d></a>");
  const XMLElement root = document->RootElement();
  const XMLAttribute attribute = root.Attributes().Item("B");
  document->LoadXML("<other/>");
  EXPECT_EQ(document->RootElement().Name(), "other");
  document.reset();
  EXPECT_EQ(attribute.Value(), "c");
  EXPECT_EQ(root.Children().Item(1).Text(), "e");
}

TEST_F(XML, LooksUpAttributesWithoutRegardToLetterCase) {
  const XMLElement e = Parse("<e Name='n' DependantOnnamespace_Filter='f' Last='l'/>");
  EXPECT_EQ(e.Attributes().Item("dependantonnamespace_filter").Value(), "f");
  EXPECT_EQ(e.Attributes().Find("Nam"), std::nullopt);
  EXPECT_EQ(e.Attributes().Find("Names"), std::nullopt);
  EXPECT_EQ(e.Attributes().Find(0), std::nullopt);
  EXPECT_EQ(e.Attributes().Find(4), std::nullopt);
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
  using Row = std::tuple<const char*, std::int32_t, std::int32_t>;
  const DiskFile file(ConfigFolder() + "\\place.xml");
  const auto itemIn = [](const XMLElement& root) {
    for (XMLElement child : root.Children())
      if (child.IsNamed("item")) return child;
    return root;
  };
  for (const auto& [text, line, column] :
       {Row{"<item/>", 1, 2}, Row{"<?xml version='1.0'?>\r\n\r\n  <item/>", 3, 4},
        Row{"<ä><ö x='grün &amp; rot'>\tüß</ö><item y='1'/></ä>", 1, 34},
        Row{"<a>\n<!-- ä\n ö --><item\n\n/></a>", 3, 8}}) {
    const std::pair place(line, column);
    for (const char* mark : {"", "\xEF\xBB\xBF"}) {
      Write("place.xml", std::string(mark) + text);
      const auto failure = ErrorOf([&] {
        ReadConfigurationFiles(
            {file}, [&](const DiskFile&, const XMLElement& root) { itemIn(root).Attributes().Item("Name"); });
      });
      EXPECT_EQ(failure.Number(), kInvalidCall);
      EXPECT_EQ(failure.Position().File, file.FullPath());
      EXPECT_EQ(std::pair(failure.Position().Line, failure.Position().Column), place) << text;
    }
  }
  EXPECT_THAT(Diagnostics, ::testing::IsEmpty());

  Write("place.xml", "<ä>\n ü</b>");
  ReadConfigurationFiles({file},
                         [](const DiskFile&, const XMLElement& root) { EXPECT_EQ(root.Name(), "ä"); });
  ASSERT_EQ(Diagnostics.size(), 1U);
  EXPECT_EQ(Diagnostics[0].Position.File, file.FullPath());
  EXPECT_EQ(Diagnostics[0].Position.Line, 2);
}

TEST_F(XML, AnAttributeThatIsGivenTwiceIsTold) {
  Write("twice.xml", "<a>\n<b Name='1' Other='' Name='2'/><b Name='3' NAME='4' More=''/></a>");
  std::vector<std::string> names;
  ReadConfigurationFiles({DiskFile(ConfigFolder() + "\\twice.xml")},
                         [&](const DiskFile&, const XMLElement& root) {
                           for (const XMLElement child : root.Children())
                             AttributeReader(child).Require("Name", names.emplace_back());
                         });
  EXPECT_THAT(names, ElementsAre("1", "3"));
  ASSERT_EQ(Diagnostics.size(), 2U);
  EXPECT_EQ(Diagnostics[0].Message, "the attribute \"Name\" is repeated in <b>; only the first counts");
  EXPECT_EQ(Diagnostics[0].Position.Line, 2);
  EXPECT_EQ(Diagnostics[0].Position.Column, 22);
  EXPECT_EQ(Diagnostics[1].Position.Column, 44);
}

}  // namespace
}  // namespace lwconfig
