#include <vector>

#include <lwconfig/core/loading/attribute_reader.h>
#include <lwconfig/core/xml/string_tools.h>
#include <lwconfig/namespaces/definition_walk.h>
#include <lwconfig/namespaces/namespace_def.h>

namespace lwconfig {
namespace {

std::shared_ptr<NamespaceDefs> OrNew(std::shared_ptr<NamespaceDefs> col) {
  return col ? std::move(col) : std::make_shared<NamespaceDefs>();
}

/// The definitions at any depth whose `member` equals the text without regard to letter case.
std::shared_ptr<NamespaceDefs> CollectByMember(const NamespaceDefs& profile,
                                               std::string NamespaceDef::*member, std::string_view text,
                                               std::shared_ptr<NamespaceDefs> col) {
  // Collect first: the matches may be added to the very collection that is searched.
  std::vector<std::shared_ptr<NamespaceDef>> matches;
  WalkDefinitions(&profile, [&](const auto& definition) {
    if (EqualIgnoringCase((*definition).*member, text)) matches.push_back(definition);
  });
  col = OrNew(std::move(col));
  for (const auto& match : matches) col->Add(match);
  return col;
}

}  // namespace

void NamespaceDefs::Add(Pointer Item, std::string_view Key, const ItemKey& Before, const ItemKey& After) {
  try {
    KeyedCollection::Add(std::move(Item), Key, Before, After);
  } catch (const Error&) {
    // Keep the first of two definitions with one name.
  }
}

// A file of the folder "Namespaces". The root element has any name; the letter case of names is ignored.
//
//   <LWNamespaces Name="LW.Core" Caption= CommenterCaption= IsFile= Supports=>
//     <LWNamespace Name="LW:Module" Handler= Caption= ...>
//       <LWNamespace Name="LW:Method" Handler= Caption= .../>       to any depth, under any element name
//     </LWNamespace>
//     <LWElements>
//       <CommonAttributes> <Attribute Name= Description= .../> </CommonAttributes>
//       <LWElement Name= ...> <Attribute Name= Description= .../> </LWElement>
//     </LWElements>
//   </LWNamespaces>
void NamespaceDefs::Load(const XMLElement& e) {
  AttributeReader in(e);
  in.Try("Name", Name);
  in.Try("Caption", Caption);
  in.Try("CommenterCaption", CommenterCaption);
  in.Try("IsFile", IsFile, ExactTrue);
  in.Try("Supports", Supports);
  const auto readNamespace = [&](const XMLElement& child) {
    auto definition = std::make_shared<NamespaceDef>();
    definition->SetNamespaceDefs(SelfOf(*this));
    definition->Load(child);
    KeyedCollection::Add(definition, definition->Name);
  };
  const auto readElements = [&](const XMLElement& child) { ElementDefs->Load(child, SelfOf(*this)); };
  ReadChildren(e, {{AnyCase("lwnamespace"), readNamespace}, {AnyCase("lwelements"), readElements}});
}

void NamespaceDefs::ResetIncludeFlags() {
  for (const auto& definition : *this) definition->ResetIncludeFlag();
}

std::shared_ptr<NamespaceDefs> NamespaceDefs::GetNamespaceDefsByCaption(
    std::string_view caption, std::shared_ptr<NamespaceDefs> col) const {
  return CollectByMember(*this, &NamespaceDef::Caption, caption, std::move(col));
}

std::shared_ptr<NamespaceDefs> NamespaceDefs::GetNamespaceDefsByName(
    std::string_view name, std::shared_ptr<NamespaceDefs> col) const {
  return CollectByMember(*this, &NamespaceDef::Name, name, std::move(col));
}

std::shared_ptr<NamespaceDefs> NamespaceDefs::AllNamespaceDefs(std::shared_ptr<NamespaceDefs> col) const {
  col = OrNew(std::move(col));
  std::vector<Pointer> all;  // the collection may be this one
  WalkDefinitions(this, [&](const auto& definition) { all.push_back(definition); });
  for (const auto& definition : all) {
    if (!StringTools::ObjectKeyExists(*col, definition->Name)) col->Add(definition, definition->Name);
  }
  return col;
}

}  // namespace lwconfig
