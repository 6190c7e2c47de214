#include <tests/configuration.h>

#include <lwconfig/namespaces/plug_in.h>

namespace lwconfig::testing {
namespace {

std::string Element(const std::string& name, const std::string& tag = "PlugIn") {
  return "<" + tag + " Name='" + name +
         "' Description='d' ExtendsWizard='true' WizardProgID='w' ExtendsContent='True' ContentProgID='c' "
         "ExtendsTableOfContents='False' TableOfContentsProgID='t'/>";
}

class PlugInFolder : public ConfigurationTest {};

TEST_F(PlugInFolder, HoldsSeveralPlugInsPerFile) {
  PlugIns plugIns;
  Write("PlugIns/a.xml",
        "<any>" + Element("A") + Element("x", "Plug-In") + Element("B", "PLUGIN") + "</any>");
  Write("PlugIns/b.xml", "<any>" + Element("a") + "</any>");
  plugIns.Load();
  EXPECT_THAT(Each(plugIns, &PlugIn::Name), ElementsAre("A", "B", "a"));
  const auto first = plugIns.Item(1);
  const std::string key = first->Key;
  EXPECT_EQ(plugIns.Item("p" + key.substr(1)), first);
  EXPECT_GT(std::stoll(plugIns.Item(3)->Key.substr(1)), std::stoll(key.substr(1)));
  EXPECT_EQ(Saved(*first, "PlugIn"),
            Normal("<PlugIn Name='A' Description='d' ExtendsWizard='False' WizardProgID='w' "
                   "ExtendsContent='True' ContentProgID='c' ExtendsTableOfContents='False' "
                   "TableOfContentsProgID='t'/>"));
  const auto copies = plugIns.Clone();
  EXPECT_THAT(Each(*copies, &PlugIn::Name), ElementsAre("A", "B", "a"));
  for (const auto& copy : *copies) EXPECT_EQ(plugIns.Item(copy->Key), nullptr);
  EXPECT_EQ(copies->Item(copies->Item(2)->Key), copies->Item(2));
  PlugIn second(*plugIns.Item(2));
  const std::string keptKey = second.Key;
  second = *first;
  EXPECT_EQ(std::tuple(second.Name, second.Key), std::tuple("A", keptKey));
  EXPECT_EQ(plugIns.Item(keptKey), nullptr);
  plugIns.Load();
  EXPECT_EQ(plugIns.Count(), 3);
  EXPECT_EQ(plugIns.Item(key), nullptr);
  plugIns.LoadFrom(Path("none"));
  EXPECT_EQ(plugIns.Count(), 0);
}

}  // namespace
}  // namespace lwconfig::testing
