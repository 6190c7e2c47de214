#include <fstream>
#include <regex>
#include <sstream>

#include <gtest/gtest.h>
#include <pugixml.hpp>
#include <tests/locations.h>

#include <lwconfig/automation/contracts.h>
#include <lwconfig/automation/idl.h>
#include <lwconfig/automation/manifest.h>
#include <lwconfig/automation/published.h>
#include <lwconfig/automation/signature.h>

namespace lwconfig::automation {
namespace {

TEST(Contracts, ComeFromTheHeaders) {
  const std::tuple<const char*, const char*, const char*, const char*> kRows[] = {
      {"above several members", "Root", "VBOptions",
       "The user's options. They cache no values: each read and write accesses the registry."},
      {"of getter and setter", "NodeDef", "ParentKey",
       "The key of the parent node; empty for a root node. When set: does not change the parent until "
       "`CementReferences` runs."},
      {"of base and class", "ModelCommentProfiles", "Remove",
       "As of every collection; then the profiles are dirty.\n\nEvery collection: removes the item at that "
       "position or under that key. Error 5 for an unknown key, 9 for a position out of range."},
      {"of an option", "VBOptions", "VBAShowFriend",
       "The application value `ShowFriend` of the section `VBA`. At first True."},
      {"of nothing", "VariableDefs", "Colour", ""}};
  for (const auto& [what, owner, member, text] : kRows) EXPECT_EQ(Contract(owner, member), text) << what;
  EXPECT_EQ(Summary(Contract("Root", "VBOptions")), "The user's options.");
  EXPECT_EQ(Identity("class.Nothing"), "");
}

TEST(Contracts, TellAboutEverythingPublished) {
  const auto expectContract = [](std::string_view owner, std::string_view member = {}) {
    EXPECT_NE(Contract(owner, member), "") << owner << "." << member;
  };
  for (const ClassInfo* info : PublishedClasses()) {
    expectContract(info->Name());
    for (const auto& member : info->Members()) expectContract(info->Name(), member.Name);
    for (const EventInfo& event : info->Events()) expectContract(info->Name(), event.Name);
  }
  for (const EnumInfo* info : PublishedEnumerations()) {
    expectContract(info->Name);
    for (const EnumMember& member : info->Members) expectContract(info->Name, member.Name);
  }
}

TEST(MemberFacts, AgreeWithContracts) {
  const std::regex absence("or null|[Nn]ull where|Null before");
  for (const ClassInfo* info : PublishedClasses()) {
    for (const auto& member : info->Members()) {
      if (TypeOf(member).Kind != ValueKind::Object || std::string_view(info->Name()) == "Languages") continue;
      const std::string contract(Contract(info->Name(), member.Name));
      const bool mayBeNull =
          std::regex_search(contract, absence) && contract.find("Never null") == std::string::npos;
      EXPECT_EQ(TypeOf(member).MayBeNull, mayBeNull)
          << info->Name() << "." << member.Name << ": " << contract;
    }
  }
}

/// What programs are compiled against: the interface description without the texts for people.
std::string BinaryInterface() {
  const std::string plain =
      std::regex_replace(InterfaceDescription(), std::regex(R"(,? ?helpstring\("([^"\\]|\\.)*"\))"), "");
  return plain.substr(plain.find("["));
}

TEST(InterfaceDescription, KeepsWhatProgramsAreCompiledAgainst) {
  std::istringstream current(BinaryInterface());
  std::ifstream frozen(testing::kPublishedInterface);
  ASSERT_TRUE(frozen.is_open());
  std::string found;
  std::string wanted;
  for (int number = 1; std::getline(frozen, wanted); ++number) {
    std::getline(current, found);
    ASSERT_EQ(found, wanted) << "in line " << number
                             << ". Identities, numbers, order and types of what is published stay for ever; "
                                "additions go to the end and are recorded there.";
  }
  EXPECT_FALSE(std::getline(current, found)) << "not recorded: " << found;
}

TEST(Manifest, ListsWhatCanBeCreatedAndWhatHasToTravel) {
  for (const std::string& text : {Manifest64(), Manifest32()}) {
    pugi::xml_document document;
    ASSERT_TRUE(document.load_string(text.c_str()));
    const auto assembly = document.child("assembly");
    const auto file = assembly.child("file");
    const auto expect = [](pugi::xml_node row, const char* attribute, bool isListed,
                           const std::string& name) {
      const std::string id = "{" + std::string(Identity(name)) + "}";
      EXPECT_EQ(row.attribute(attribute).value(), isListed ? id : "") << name;
    };
    const auto proxy = [&](const std::string& name) {
      return assembly.find_child_by_attribute("comInterfaceExternalProxyStub", "name", name.c_str());
    };
    expect(file.child("typelib"), "tlbid", true, "LWConfigObjects");
    for (const ClassInfo* info : PublishedClasses()) {
      const std::string name = info->Name();
      const std::string progId = "LWConfigObjects." + name;
      const auto row = file.find_child_by_attribute("comClass", "progid", progId.c_str());
      expect(row, "clsid", info->IsCreatable(), "class." + name);
      EXPECT_EQ(row.child_value("progid"), info->IsCreatable() ? progId + ".1" : "") << name;
      expect(proxy("_" + name), "iid", true, "interface._" + name);
      expect(proxy("__" + name), "iid", !info->Events().empty(), "events.__" + name);
    }
  }
}

}  // namespace
}  // namespace lwconfig::automation
