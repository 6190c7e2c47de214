#include <tests/configuration.h>

#include <lwconfig/namespaces/namespace_profiles.h>

namespace lwconfig {
namespace {

using testing::Each;
using ::testing::ElementsAre;
using testing::ErrorOf;
using ::testing::IsEmpty;
using testing::Parse;

std::string Definition(const std::string& name, const std::string& nested = {}, const char* more = "") {
  return "<lwnamespace Name='" + name + "' Handler='' Caption='" + name + "s' " + more + ">" + nested +
         "</lwnamespace>";
}

std::shared_ptr<NamespaceDefs> Profile(const std::string& children) {
  auto profile = std::make_shared<NamespaceDefs>();
  profile->Load(Parse("<profile Name='P'>" + children + "</profile>"));
  return profile;
}

auto NamesOf(const NamespaceDefs& definitions) {
  return Each(definitions, &NamespaceDef::Name);
}

TEST(NamespaceDefs, LoadProfilesAndTheirDefinitions) {
  NamespaceDefs defaults;
  defaults.Load(Parse("<x/>"));
  EXPECT_EQ(defaults.Name + defaults.Caption + defaults.Supports, "");
  const auto profile = std::make_shared<NamespaceDefs>();
  profile->Load(
      Parse("<Any NAME='P' Caption='C' CommenterCaption='D' IsFile='True' Supports='a,b'>"
            "<LWNamespace Name='A' Handler='h' Caption='c' Caption_Plural='cs' DefaultIncludeFlag='True' "
            "Tree_AlwaysExpand='True' Tree_AllowExclude='true' Tree_ShowInSelect='1' Flags='f' ID='i'/>"
            "<lwNAMESPACE Name='B' Handler='' Caption=''><any Name='B1' Handler='' Caption=''/></lwNAMESPACE>"
            "<namespace Name='C' Handler='' Caption=''/></Any>"));
  EXPECT_EQ(profile->Name + profile->Caption + profile->CommenterCaption + profile->Supports, "PCDa,b");
  EXPECT_TRUE(profile->IsFile);
  EXPECT_THAT(NamesOf(*profile), ElementsAre("A", "B"));
  const auto a = profile->Item("a");
  EXPECT_EQ(a->Handler + a->Caption + a->CaptionPlural + a->Flags + a->ID, "hccsfi");
  EXPECT_TRUE(a->DefaultIncludeFlag && a->Tree_AlwaysExpand);
  EXPECT_FALSE(a->Tree_AllowExclude || a->Tree_ShowInSelect || a->IncludeFlag);
  EXPECT_EQ(a->ChildNamespaceDefs()->Count(), 0);
  const auto nested = profile->Item("B")->ChildNamespaceDefs()->Item("b1");
  EXPECT_TRUE(nested->Tree_AllowExclude);
  EXPECT_EQ(nested->NamespaceDefs(), profile);
  for (const auto& failure :
       {ErrorOf([&] { a->Tag(); }), ErrorOf([&] { a->SetTag({std::make_shared<int>(1)}); })}) {
    EXPECT_EQ(failure.Number(), kTypeMismatch);
    EXPECT_EQ(failure.Source(), "Tag no longer supported");
  }
}

TEST(NamespaceDefs, KeepWhatWasReadBeforeAFailure) {
  using Row = std::tuple<std::string, std::int32_t, std::int32_t>;
  const std::string a = Definition("A");
  for (const auto& [children, error, line] :
       {Row{a + "<x/>\n" + Definition("a"), kDuplicateKey, 2},
        Row{a + "\n\n<lwnamespace Name='B' Handler=''/>", kInvalidCall, 3},
        Row{a + Definition("B", "\n<x Name='B1' Caption=''/>"), kInvalidCall, 2}}) {
    const auto profile = std::make_shared<NamespaceDefs>();
    const auto e = Parse("<profile Name='P'>" + children + "</profile>");
    const auto failure = ErrorOf([&] { profile->Load(e); });
    EXPECT_EQ(failure.Number(), error);
    EXPECT_EQ(failure.Position().Line, line) << children;
    EXPECT_THAT(NamesOf(*profile), ElementsAre("A"));
  }
  // Of nested siblings the first stays; the nested ones complete before a failure do too.
  const auto profile = Profile(Definition("A", Definition("X") + Definition("x")));
  EXPECT_THAT(NamesOf(*profile->Item(1)->ChildNamespaceDefs()), ElementsAre("X"));
  NamespaceDef definition;
  const auto e = Parse(Definition("A", Definition("B", Definition("C")) + Definition("D", "<x/>")));
  EXPECT_EQ(ErrorOf([&] { definition.Load(e); }).Number(), kInvalidCall);
  EXPECT_THAT(NamesOf(*definition.ChildNamespaceDefs()), ElementsAre("B"));
  EXPECT_THAT(NamesOf(*definition.ChildNamespaceDefs()->Item(1)->ChildNamespaceDefs()), ElementsAre("C"));
}

TEST(NamespaceDefs, AreFoundAtAnyDepthInPreOrder) {
  const auto profile = Profile(Definition("M", Definition("a", Definition("m", "", "ID='2'")), "ID='1'") +
                               Definition("A", Definition("B") + Definition("M", "", "ID='3'")));
  const auto ids = [](const NamespaceDefs& found) { return Each(found, &NamespaceDef::ID); };
  EXPECT_THAT(ids(*profile->GetNamespaceDefsByName("m")), ElementsAre("1", "2", "3"));
  EXPECT_THAT(NamesOf(*profile->GetNamespaceDefsByCaption("AS")), ElementsAre("a", "A"));
  EXPECT_THAT(NamesOf(*profile->GetNamespaceDefsByName("none")), IsEmpty());
  const auto found = profile->GetNamespaceDefsByName("B");
  EXPECT_EQ(profile->GetNamespaceDefsByCaption("Bs", found), found);
  EXPECT_THAT(NamesOf(*found), ElementsAre("B", "B"));
  EXPECT_EQ(found->Item("B"), nullptr);

  const auto all = profile->AllNamespaceDefs();
  EXPECT_THAT(NamesOf(*all), ElementsAre("M", "a", "B"));
  EXPECT_EQ(all->Item("m"), profile->Item(1));
  EXPECT_EQ(profile->AllNamespaceDefs(all), all);
  EXPECT_EQ(all->Count(), 3);
  all->Add(profile->Item(1), "b");
  all->Add(nullptr, "new");
  all->Add(profile->Item(1), "new", 99);
  EXPECT_EQ(all->Count(), 3);
  EXPECT_EQ(ErrorOf([&] { all->Remove("new"); }).Number(), kInvalidCall);
}

TEST(NamespaceDefs, ResetTheirFlagsAtEveryDepth) {
  const auto profile =
      Profile(Definition("A", Definition("B", Definition("C", "", "DefaultIncludeFlag='True'"))) +
              Definition("D", "", "DefaultIncludeFlag='True'"));
  const auto all = profile->AllNamespaceDefs();
  for (const auto& definition : *all) {
    definition->IncludeFlag = !definition->DefaultIncludeFlag;
    definition->Counter = 7;
  }
  profile->Item("A")->ResetCounters();
  EXPECT_THAT(Each(*all, &NamespaceDef::Counter), ElementsAre(0, 0, 0, 7));
  profile->ResetIncludeFlags();
  EXPECT_THAT(Each(*all, &NamespaceDef::IncludeFlag), ElementsAre(false, false, true, true));
}

TEST(NamespaceDefs, NestToAnyDepth) {
  constexpr int kDepth = 100'000;
  std::string text;
  for (int i = 0; i < 2 * kDepth; ++i) {
    const std::string start = "<lwnamespace Handler='' Caption='' Name='D" + std::to_string(i) + "'>";
    text += i < kDepth ? start : "</lwnamespace>";
  }
  auto profile = Profile(text);
  profile->ResetIncludeFlags();
  profile->Item(1)->ResetCounters();
  EXPECT_EQ(profile->GetNamespaceDefsByName("d99999")->Count(), 1);
  auto all = profile->AllNamespaceDefs();
  EXPECT_EQ(all->Count(), kDepth);
  // Released from the outside, with one definition in the middle held, and with none held.
  const auto middle = all->Item(kDepth / 2);
  all.reset();
  profile.reset();
  EXPECT_EQ(middle->NamespaceDefs(), nullptr);
  EXPECT_EQ(middle->ChildNamespaceDefs()->Count(), 1);
  Profile(text);
}

TEST(NamespaceDefs, EndAlsoWhereAClientHasNestedThemInThemselves) {
  const auto profile = std::make_shared<NamespaceDefs>();
  const auto nameless = std::make_shared<NamespaceDef>();
  profile->Add(nameless);
  nameless->SetChildNamespaceDefs(profile);
  nameless->IncludeFlag = true;
  profile->ResetIncludeFlags();
  EXPECT_EQ(profile->AllNamespaceDefs()->Count(), 1);
  EXPECT_EQ(profile->GetNamespaceDefsByName("")->Count(), 1);
  profile->AllNamespaceDefs(profile);
  EXPECT_EQ(profile->Count(), 2);
  profile->Remove(1);
  profile->Remove(1);
}

TEST(ElementDefs, ShareTheCommonAttributesBeforeThem) {
  const auto profile = Profile(
      "<LWElements><lwelement Name='first'/>"
      "<commonAttributes><Attribute Name='id' Description='common' Mandatory='True'/><x/>"
      "<attribute Name='lang' Description=''/></commonAttributes>"
      "<LWElement Name='second' Description='d' ScrapsOnly='True'>"
      "<attribute Name='ID' Description='own' Mandatory='true'/></LWElement>"
      "<commonattributes><attribute Name='late' Description=''/></commonattributes>"
      "<other Name='x'/><lwelement Name='third'/></LWElements>");
  const auto& elements = *profile->ElementDefs;
  EXPECT_THAT(Each(elements, &ElementDef::Name), ElementsAre("first", "second", "third"));
  EXPECT_EQ(elements.Item("first"), nullptr);
  const auto names = [&](int position) {
    return Each(*elements.Item(position)->ElementAttributeDefs, &ElementAttributeDef::Name);
  };
  EXPECT_THAT(names(1), IsEmpty());
  EXPECT_THAT(names(2), ElementsAre("ID", "lang"));
  EXPECT_THAT(names(3), ElementsAre("id", "lang", "late"));
  const auto second = elements.Item(2);
  const auto own = second->ElementAttributeDefs->Item("id");
  EXPECT_EQ(own->Description, "own");
  EXPECT_FALSE(own->Mandatory);
  EXPECT_EQ(own->ElementDef(), second);
  EXPECT_EQ(second->NamespaceProfile(), profile);
  EXPECT_TRUE(second->ScrapsOnly);
  const auto shared = elements.Item(3)->ElementAttributeDefs->Item("lang");
  EXPECT_EQ(shared->ElementDef(), elements.Item(3));
  shared->Description = "changed";
  EXPECT_EQ(second->ElementAttributeDefs->Item("lang")->Description, "");
  ElementAttributeDef common;
  common.Name = "c";
  EXPECT_EQ(common.Clone(second)->ElementDef(), second);
  EXPECT_EQ(common.ElementDef(), nullptr);

  // What cannot be added is left out.
  const auto e = Parse("<lwelement Name='fourth'/>");
  second->Load(e, profile, nullptr);
  EXPECT_THAT(names(2), ElementsAre("ID", "lang"));
  const auto attributes = std::exchange(second->ElementAttributeDefs, nullptr);
  second->Load(e, profile, attributes);
  EXPECT_EQ(second->Name, "fourth");
}

TEST(ElementDefs, KeepWhatWasReadBeforeAFailure) {
  using Row = std::pair<const char*, std::int32_t>;
  for (const auto& [children, error] :
       {Row{"<lwelement/>", kInvalidCall},
        Row{"<lwelement Name='B'><attribute Name='x'/></lwelement>", kInvalidCall},
        Row{"<lwelement Name='B'><attribute Name='x' Description=''/><attribute Name='X' "
            "Description=''/></lwelement>",
            kDuplicateKey},
        Row{"<commonattributes><attribute Name='x' Description=''/><attribute Name='X' "
            "Description=''/></commonattributes>",
            kDuplicateKey}}) {
    ElementDefs elements;
    const auto e = Parse("<lwelements><lwelement Name='A'/>" + std::string(children) + "</lwelements>");
    EXPECT_EQ(ErrorOf([&] { elements.Load(e, nullptr); }).Number(), error) << children;
    EXPECT_THAT(Each(elements, &ElementDef::Name), ElementsAre("A"));
  }
}

TEST(NamespaceDefs, AndElementsThatNothingSharesCannotBeReferredTo) {
  NamespaceDefs profile;
  ElementDef element;
  const auto attribute = Parse("<lwelement Name='e'><attribute Name='a' Description=''/></lwelement>");
  for (const auto& failure : {ErrorOf([&] { profile.Load(Parse("<p>" + Definition("A") + "</p>")); }),
                              ErrorOf([&] { profile.Load(Parse("<p><lwelements/></p>")); }),
                              ErrorOf([&] { element.Load(attribute, nullptr, nullptr); })})
    EXPECT_EQ(failure.Number(), kObjectNotSet);
}

class NamespaceFolder : public testing::ConfigurationTest {
 protected:
  std::shared_ptr<NamespaceProfiles> Profiles = std::make_shared<NamespaceProfiles>();
};

TEST_F(NamespaceFolder, HoldsOneProfilePerFile) {
  Profiles->Load();
  EXPECT_EQ(Profiles->Count(), 0);
  Write("Namespaces/b.XML", "<p Name='Second'>" + Definition("A") + "</p>");
  Write("Namespaces/a.xml", "<p Name='First'/>");
  Write("Namespaces/c.xml", "<p Caption='cut'><lwnamespace Name='");
  Write("Namespaces/f.txt", "<p Name='Text'/>");
  Write("Namespaces/g.xml/h.xml", "<p Name='Below'/>");
  Profiles->Load();
  EXPECT_THAT(Messages, IsEmpty());
  EXPECT_THAT(Each(*Profiles, &NamespaceDefs::Name), ElementsAre("First", "Second", ""));
  EXPECT_EQ(Profiles->Item(1), Profiles->Item("first"));
  EXPECT_EQ(Profiles->Item("SECOND")->Count(), 1);
  EXPECT_EQ(Profiles->Item(3)->Caption, "cut");
}

TEST_F(NamespaceFolder, TellsWhatItCannotLoad) {
  Write("Namespaces/a.xml", "<p Name='A'/>");
  Write("Namespaces/b.xml", "<?xml version='1.0'?>\n<p Name='a'/>");
  Write("Namespaces/c.xml", "<p Name='C'/>");
  const auto failure = ErrorOf([&] { Profiles->Load(); });
  EXPECT_EQ(failure.Number(), kDuplicateKey);
  EXPECT_EQ(failure.Position().File, ConfigFolder() + "\\Namespaces\\b.xml");
  EXPECT_THAT(Each(*Profiles, &NamespaceDefs::Name), ElementsAre("A"));
  EXPECT_EQ(ErrorOf([&] { Profiles->Load(); }).Number(), kDuplicateKey);
  EXPECT_EQ(Profiles->Count(), 1);
}

}  // namespace
}  // namespace lwconfig
