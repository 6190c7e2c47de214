#include <tests/configuration.h>

#include <lwconfig/namespaces/namespace_profiles.h>

namespace lwconfig::testing {
namespace {

std::string Definition(const std::string& name, const std::string& nested = {}, const char* more = "") {
  return "<lwnamespace Name='" + name + "' Handler='' Caption='" + name + "s' " + more + ">" + nested +
         "</lwnamespace>";
}

std::shared_ptr<NamespaceDefs> Profile(const std::string& children, const char* attributes = "") {
  auto profile = std::make_shared<NamespaceDefs>();
  profile->Load(Parse("<profile " + std::string(attributes) + ">" + children + "</profile>"));
  return profile;
}

/// The names of the definitions, nested ones in brackets.
std::string TreeOf(const NamespaceDefs& definitions) {
  std::string tree;
  for (const auto& definition : definitions) {
    const std::string nested = TreeOf(*definition->ChildNamespaceDefs());
    tree += definition->Name + (nested.empty() ? " " : "(" + nested + ") ");
  }
  return tree;
}

/// The names of the elements, those of their attributes in brackets.
std::string TreeOf(const ElementDefs& elements) {
  std::string tree;
  for (const auto& element : elements) {
    tree += element->Name + "( ";
    for (const auto& attribute : *element->ElementAttributeDefs) tree += attribute->Name + " ";
    tree += ") ";
  }
  return tree;
}

TEST(NamespaceDefs, LoadProfilesAndTheirDefinitions) {
  const auto none = Profile("");
  EXPECT_EQ(none->Name + none->Caption + none->Supports, "");
  const auto profile = Profile(
      "<LWNamespace Name='A' Handler='h' Caption='c' Caption_Plural='cs' DefaultIncludeFlag='True' "
      "Tree_AlwaysExpand='True' Tree_AllowExclude='true' Tree_ShowInSelect='1' Flags='f' ID='i'/>"
      "<lwNAMESPACE Name='B' Handler='' Caption=''><any Name='B1' Handler='' Caption=''/></lwNAMESPACE>"
      "<namespace Name='C' Handler='' Caption=''/>",
      "NAME='P' Caption='C' CommenterCaption='D' IsFile='True' Supports='a,b'");
  EXPECT_EQ(profile->Name + profile->Caption + profile->CommenterCaption + profile->Supports, "PCDa,b");
  EXPECT_TRUE(profile->IsFile);
  EXPECT_EQ(TreeOf(*profile), "A B(B1 ) ");
  const auto a = profile->Item("a");
  EXPECT_EQ(a->Handler + a->Caption + a->CaptionPlural + a->Flags + a->ID, "hccsfi");
  EXPECT_TRUE(a->DefaultIncludeFlag && a->Tree_AlwaysExpand);
  EXPECT_FALSE(a->Tree_AllowExclude || a->Tree_ShowInSelect || a->IncludeFlag);
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
  const auto profile = std::make_shared<NamespaceDefs>();
  const auto nested =
      Parse("<p>" + Definition("A") + Definition("B", "\n<x Name='B1' Caption=''/>") + "</p>");
  const auto failure = ErrorOf([&] { profile->Load(nested); });
  EXPECT_EQ(std::tuple(failure.Number(), failure.Position().Line), std::tuple(kInvalidCall, 2));
  EXPECT_EQ(TreeOf(*profile), "A ");
  // Of nested siblings the first stays; the nested ones complete before a failure do too.
  EXPECT_EQ(TreeOf(*Profile(Definition("A", Definition("X") + Definition("x")))), "A(X ) ");
  NamespaceDef definition;
  const auto e = Parse(Definition("A", Definition("B", Definition("C")) + Definition("D", "<x/>")));
  EXPECT_ERROR(kInvalidCall, definition.Load(e));
  EXPECT_EQ(TreeOf(*definition.ChildNamespaceDefs()), "B(C ) ");
}

TEST(NamespaceDefs, AreFoundAtAnyDepthInPreOrder) {
  const auto profile = Profile(Definition("M", Definition("a", Definition("m", "", "ID='2'")), "ID='1'") +
                               Definition("A", Definition("B") + Definition("M", "", "ID='3'")));
  EXPECT_THAT(Each(*profile->GetNamespaceDefsByName("m"), &NamespaceDef::ID), ElementsAre("1", "2", "3"));
  EXPECT_THAT(Each(*profile->GetNamespaceDefsByCaption("AS"), &NamespaceDef::Name), ElementsAre("a", "A"));
  const auto found = profile->GetNamespaceDefsByName("B");
  EXPECT_EQ(profile->GetNamespaceDefsByCaption("Bs", found), found);
  EXPECT_EQ(TreeOf(*found), "B B ");
  EXPECT_EQ(found->Item("B"), nullptr);

  const auto all = profile->AllNamespaceDefs();
  EXPECT_THAT(Each(*all, &NamespaceDef::Name), ElementsAre("M", "a", "B"));
  EXPECT_EQ(all->Item("m"), profile->Item(1));
  EXPECT_EQ(profile->AllNamespaceDefs(all), all);
  all->Add(profile->Item(1), "b");
  all->Add(nullptr, "new");
  all->Add(profile->Item(1), "new", 99);
  EXPECT_EQ(all->Count(), 3);
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
  for (int i = 0; i < kDepth; ++i)
    text += "<lwnamespace Handler='' Caption='' Name='D" + std::to_string(i) + "'>";
  for (int i = 0; i < kDepth; ++i) text += "</lwnamespace>";
  auto profile = Profile(text);
  profile->ResetIncludeFlags();
  profile->Item(1)->ResetCounters();
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
  profile->ResetIncludeFlags();
  EXPECT_EQ(profile->GetNamespaceDefsByName("")->Count(), 1);
  profile->AllNamespaceDefs(profile);
  EXPECT_EQ(profile->Count(), 2);
  nameless->SetChildNamespaceDefs(nullptr);
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
  auto& elements = *profile->ElementDefs;
  EXPECT_EQ(TreeOf(elements), "first( ) second( ID lang ) third( id lang late ) ");
  EXPECT_EQ(elements.Item("first"), nullptr);
  const auto second = elements.Item(2);
  const auto own = second->ElementAttributeDefs->Item("id");
  EXPECT_EQ(std::tuple(own->Description, own->Mandatory, own->ElementDef()),
            std::tuple("own", false, second));
  EXPECT_EQ(std::tuple(second->NamespaceProfile(), second->ScrapsOnly), std::tuple(profile, true));
  const auto shared = elements.Item(3)->ElementAttributeDefs->Item("lang");
  EXPECT_EQ(shared->ElementDef(), elements.Item(3));
  shared->Description = "changed";
  EXPECT_EQ(second->ElementAttributeDefs->Item("lang")->Description, "");

  // What cannot be added is left out, and what is read before a failure is kept.
  const auto e = Parse("<lwelement Name='fourth'/>");
  second->Load(e, profile, nullptr);
  const auto attributes = std::exchange(second->ElementAttributeDefs, nullptr);
  second->Load(e, profile, attributes);
  EXPECT_EQ(second->Name, "fourth");
  elements.Remove(2);
  const std::string twice = "<attribute Name='x' Description=''/><attribute Name='X' Description=''/>";
  for (const auto& children : {"<lwelement Name='B'>" + twice + "</lwelement>",
                               "<commonattributes>" + twice + "</commonattributes>"}) {
    const auto failing = Parse("<lwelements>" + children + "</lwelements>");
    EXPECT_ERROR(kDuplicateKey, elements.Load(failing, profile)) << children;
    EXPECT_EQ(elements.Count(), 2);
  }
}

TEST(NamespaceDefs, AndElementsThatNothingSharesCannotBeReferredTo) {
  NamespaceDefs profile;
  ElementDef element;
  const auto attribute = Parse("<lwelement Name='e'><attribute Name='a' Description=''/></lwelement>");
  EXPECT_ERROR(kObjectNotSet, profile.Load(Parse("<p>" + Definition("A") + "</p>")));
  EXPECT_ERROR(kObjectNotSet, profile.Load(Parse("<p><lwelements/></p>")));
  EXPECT_ERROR(kObjectNotSet, element.Load(attribute, nullptr, nullptr));
}

class NamespaceFolder : public ConfigurationTest {};

TEST_F(NamespaceFolder, HoldsOneProfilePerFile) {
  NamespaceProfiles profiles;
  Write("Namespaces/b.XML", "<p Name='Second'>" + Definition("A") + "</p>");
  Write("Namespaces/a.xml", "<p Name='First'/>");
  Write("Namespaces/c.xml", "<p Caption='cut'><lwnamespace Name='");
  Write("Namespaces/f.txt", "<p Name='Text'/>");
  Write("Namespaces/g.xml/h.xml", "<p Name='Below'/>");
  profiles.Load();
  EXPECT_THAT(Each(profiles, &NamespaceDefs::Name), ElementsAre("First", "Second", ""));
  EXPECT_EQ(profiles.Item("SECOND")->Count(), 1);
  EXPECT_EQ(profiles.Item(3)->Caption, "cut");

  Write("Namespaces/aa.xml", "<?xml version='1.0'?>\n<p Name='first'/>");
  NamespaceProfiles failing;
  EXPECT_THAT(ErrorOf([&] { failing.Load(); }), IsError(kDuplicateKey, Path("Namespaces\\aa.xml:2:2: ")));
  EXPECT_THAT(Each(failing, &NamespaceDefs::Name), ElementsAre("First"));
  EXPECT_ERROR(kDuplicateKey, profiles.Load()) << "what was loaded stays";
}

}  // namespace
}  // namespace lwconfig::testing
