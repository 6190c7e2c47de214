#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include <gtest/gtest.h>
#include <pugixml.hpp>
#include <tests/paths.h>

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
       "The user's options. They hold no values: each read and write goes to the registry."},
      {"of getter and setter", "NodeDef", "ParentKey",
       "The key of the parent node; empty for a root node. When set: does not change the parent until "
       "`CementReferences` runs."},
      {"of base and class", "ModelCommentProfiles", "Remove",
       "As of every collection; then the profiles are dirty.\n\nEvery collection: removes the item at that "
       "position "
       "or under that key. Error 5 for an unknown key, 9 for a position out of range."},
      {"of an option", "VBOptions", "VBAShowFriend",
       "The application value `ShowFriend` of the section `VBA`. At first True."},
      {"of nothing", "VariableDefs", "Colour", ""}};
  for (const auto& [what, owner, member, text] : kRows) EXPECT_EQ(Contract(owner, member), text) << what;
  EXPECT_EQ(Summary(Contract("Root", "VBOptions")), "The user's options.");
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

TEST(Identities, AreOneForEachName) {
  std::set<std::string_view> seen{Identity("LWConfigObjects")};
  const auto add = [&](const std::string& name) {
    EXPECT_EQ(Identity(name).size(), 36U) << name;
    EXPECT_TRUE(seen.insert(Identity(name)).second) << name;
  };
  for (const ClassInfo* info : PublishedClasses()) {
    const std::string name = info->Name();
    add("class." + name);
    add("interface._" + name);
    add("events.__" + name);
  }
  for (const EnumInfo* info : PublishedEnumerations()) add(std::string("enumeration.") + info->Name);
  EXPECT_EQ(Identity("class.Nothing"), "");
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
  std::string wanted;
  for (int number = 1; std::getline(frozen, wanted); ++number) {
    std::string found;
    std::getline(current, found);
    ASSERT_EQ(found, wanted) << "in line " << number
                             << ". Identities, numbers, order and types of what is published stay for ever; "
                                "additions go to the end and are recorded there.";
  }
  std::string rest;
  EXPECT_FALSE(std::getline(current, rest)) << "not recorded: " << rest;
}

TEST(Manifest, ListsWhatCanBeCreatedAndWhatHasToTravel) {
  const auto id = [](const std::string& name) { return "{" + std::string(Identity(name)) + "}"; };
  for (const std::string& text : {Manifest64(), Manifest32()}) {
    pugi::xml_document document;
    const auto parsed = document.load_string(text.c_str());
    ASSERT_TRUE(parsed) << parsed.description();
    const auto assembly = document.child("assembly");
    const auto proxy = [&](const std::string& name) {
      const char* const tag = "comInterfaceExternalProxyStub";
      return std::string(
          assembly.find_child_by_attribute(tag, "name", name.c_str()).attribute("iid").value());
    };
    const auto file = assembly.child("file");
    EXPECT_EQ(file.child("typelib").attribute("tlbid").value(), id("LWConfigObjects"));
    for (const ClassInfo* info : PublishedClasses()) {
      const std::string name = info->Name();
      const std::string progId = "LWConfigObjects." + name;
      const auto row = file.find_child_by_attribute("comClass", "progid", progId.c_str());
      EXPECT_EQ(row.attribute("clsid").value(), info->IsCreatable() ? id("class." + name) : "") << name;
      EXPECT_EQ(row.child_value("progid"), info->IsCreatable() ? progId + ".1" : "") << name;
      EXPECT_EQ(proxy("_" + name), id("interface._" + name));
      EXPECT_EQ(proxy("__" + name), info->Events().empty() ? "" : id("events.__" + name));
    }
  }
}

}  // namespace
}  // namespace lwconfig::automation
