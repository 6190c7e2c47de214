#include <fstream>
#include <regex>
#include <set>
#include <sstream>

#include <gmock/gmock.h>
#include <pugixml.hpp>
#include <tests/paths.h>

#include <lwconfig/automation/contracts.h>
#include <lwconfig/automation/idl.h>
#include <lwconfig/automation/manifest.h>
#include <lwconfig/automation/member_facts.h>
#include <lwconfig/automation/published.h>
#include <lwconfig/automation/python_stubs.h>
#include <lwconfig/automation/signature.h>

namespace lwconfig::automation {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

TEST(Contracts, ComeFromTheHeaders) {
  const std::tuple<const char*, const char*, const char*, const char*> kRows[] = {
      {"of a class", "VariableDefs", "", "The variables of a template, filed under their names."},
      {"beside a member", "PageTemplate", "RootFolder", "The template's folder, with trailing backslash."},
      {"above several members", "Root", "VBOptions",
       "The user's options. They hold no values: each read and write goes to the registry."},
      {"with the value at first", "PageLayout", "DependantCount",
       "How many of them the page depends on. At first `-1`."},
      {"of getter and setter", "NodeDef", "ParentKey",
       "The key of the parent node; empty for a root node. When set: does not change the parent until "
       "`CementReferences` runs."},
      {"of a setter alone", "DiskFile", "Folder",
       "The folder part of the path, with or without a backslash at its end."},
      {"of the base", "VariableDefs", "Count", "The number of items."},
      {"of base and class", "ModelCommentProfiles", "Remove",
       "As of every collection; then the profiles are dirty.\n\nEvery collection: removes the item at that "
       "position "
       "or under that key. Error 5 for an unknown key, 9 for a position out of range."},
      {"of an option", "VBOptions", "VBAShowFriend",
       "The application value `ShowFriend` of the section `VBA`. At first True."},
      {"of an option with a computed default", "IDEOptions", "DefaultPath",
       "Where nothing is stored, the documents folder of the user. The application value `DefaultPath`."},
      {"of an event", "PageLayouts", "ContentsChange", "Raised at the end of every `Add` that succeeded."},
      {"of a value", "NodeTypeEnum", "ntSmart", "repeats for every code element of one kind"},
      {"of nothing", "VariableDefs", "Colour", ""}};
  for (const auto& [what, owner, member, text] : kRows) EXPECT_EQ(Contract(owner, member), text) << what;
  EXPECT_EQ(Summary(Contract("Root", "VBOptions")), "The user's options.");
}

TEST(Contracts, TellAboutEverythingPublished) {
  for (const ClassInfo* info : PublishedClasses()) {
    EXPECT_NE(Contract(info->Name()), "") << info->Name();
    for (const auto& member : info->Members())
      EXPECT_NE(Contract(info->Name(), member.Name), "") << info->Name() << "." << member.Name;
    for (const EventInfo& event : info->Events())
      EXPECT_NE(Contract(info->Name(), event.Name), "") << info->Name() << "." << event.Name;
  }
  for (const EnumInfo* info : PublishedEnumerations()) {
    EXPECT_NE(Contract(info->Name), "") << info->Name;
    for (const EnumMember& member : info->Members)
      EXPECT_NE(Contract(info->Name, member.Name), "") << info->Name << "." << member.Name;
  }
}

TEST(MemberFacts, AgreeWithContractsAndTables) {
  const std::regex absence("or null|[Nn]ull where|Null before");
  for (const ClassInfo* info : PublishedClasses()) {
    const char* const key = KeyProperty(*info);
    EXPECT_TRUE(key == nullptr || info->Find(key) != nullptr) << info->Name() << "." << key;
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

TEST(InterfaceDescription, DeclaresEveryKindOfMember) {
  const std::string idl = InterfaceDescription();
  for (const char* declaration :
       {"HRESULT NewEnum([out, retval] IUnknown** Result);", "HRESULT Tag([in] VARIANT Value);",
        "HRESULT Add([in] _PageLayout* obj, [in, optional, defaultvalue(\"\")] BSTR Key, [in, optional] "
        "VARIANT "
        "Before, [in, optional] VARIANT After);",
        "HRESULT AllNamespaceDefs([in, out, optional] _NamespaceDefs** col, [out, retval] "
        "_NamespaceDefs** Result);",
        "HRESULT VerifyMoniker([in] BSTR Moniker, [in, out] BSTR* Message, [out, retval] VARIANT_BOOL* "
        "Result);",
        "HRESULT MemberType([in] ElementTypeEnum Value);", "void DirtyStateChanged();"})
    EXPECT_THAT(idl, HasSubstr(declaration));
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

TEST(PythonStubs, TellWhatPythonMakesOfMembers) {
  const std::string stubs = PythonStubs();
  for (const char* declaration :
       {"    def VerifyMoniker(self, Moniker: str, Message: str) -> tuple[bool, str]:\n",
        "    def GetItems(self, NamespaceDef: lwconfig.NamespaceDef | None, ParentItem: Any, Filter: str = "
        "...) "
        "-> Any:\n",
        "    def GetNamespaceDefsByName(self, Name: str, col: lwconfig.NamespaceDefs | None = ...) -> "
        "lwconfig.NamespaceDefs:\n",
        "    def LoadFromFile(self, FileName: PathLike[str] | str) -> None:\n", "    FullPath: _FilePath\n",
        "    Scraps: lwconfig.Collection | None\n",
        "    def __delitem__(self, key: int | str) -> None: ...\n",
        "    def __getitem__(self, key: str) -> lwconfig.XMLAttribute: ...\n",
        "    def Phrase(self, Name: str) -> str:\n", "    @property\n    def ConfigPath(self) -> str:\n",
        "    def __call__(self, Key: Any) -> lwconfig.PageLayout | None: ...\n",
        "    PageType: lwconfig.PageTypeEnum | int\n", "    MemberType: lwconfig.mcMemberTypeEnum | int\n",
        "\npgMethod = PageTypeEnum.pgMethod\n"})
    EXPECT_THAT(stubs, HasSubstr(declaration));
}

}  // namespace
}  // namespace lwconfig::automation
