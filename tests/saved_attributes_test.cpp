#include <fstream>

#include <tests/configuration.h>
#include <tests/locations.h>

#include <lwconfig/automation/dispatch.h>
#include <lwconfig/automation/published.h>

namespace lwconfig::testing {
namespace {

using automation::Invoke;

class SavedAttributes : public ConfigurationTest {
 protected:
  /// An empty element, as automation callers hold it, of a document of its own.
  static Variant Element(XMLDocument& document, const std::string& text) {
    document.LoadXML(text);
    return automation::ToAnyObject(std::make_shared<XMLElement>(document.RootElement()));
  }
};

TEST_F(SavedAttributes, AreWhatTheTableSays) {
  Write("Namespaces/core.xml", "<p Name='LW.Core'/>");
  const auto contents = std::make_shared<TOCDefinition>();
  const auto pageTemplate = std::make_shared<PageTemplate>();
  contents->SetPageTemplate(pageTemplate);
  std::ifstream table(kSavedAttributes);
  std::string name;
  std::string needed;
  for (std::string line; std::getline(table, line);) {
    if (line.empty() || line.find('#') < 3) continue;
    if (line[0] != ' ') {
      name = line.substr(0, line.find(' '));
      needed = line.substr(name.size());
      continue;
    }
    for (const auto row : Split(std::string_view(line).substr(2), " | ")) {
      const auto sides = Split(row, " -> ");
      ASSERT_EQ(sides.size(), 2U) << row;
      XMLDocument given;
      XMLDocument saved;
      const AnyObject object = automation::FindClass(name)->Create();
      std::string attributes = " " + std::string(sides[0]);
      for (const auto attribute : Split(needed, " ")) {
        const auto start = " " + std::string(attribute.substr(0, attribute.find('=') + 1));
        if (FoldCase(attributes).find(FoldCase(start)) == std::string::npos)
          attributes.append(" ").append(attribute);
      }
      Variant read[] = {Element(given, "<e" + attributes + "/>"),
                        name == "NodeDef" ? automation::ToAnyObject(contents) : AnyObject{}};
      const auto* load = object.Class->Find("Load")->Method;
      Invoke(object, *load, {std::span(read).first(load->ParameterCount)});
      Variant written = Element(saved, "<e/>");
      Invoke(std::get<AnyObject>(Invoke(object, "Clone", automation::kMethod)), "Save", automation::kMethod,
             {std::span(&written, 1)});
      std::string expected = " " + std::string(sides[1]) + " ";
      std::ranges::replace(expected, '\'', '"');
      EXPECT_THAT(Normal(saved.XML()), HasSubstr(expected)) << row;
    }
  }
  EXPECT_EQ(name, "PageTemplate") << "the table was read to its end";
  EXPECT_EQ(Shown(), "");
}

}  // namespace
}  // namespace lwconfig::testing
