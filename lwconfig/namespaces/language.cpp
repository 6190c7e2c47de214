#include <lwconfig/core/files/application_values.h>
#include <lwconfig/core/loading/attribute_reader.h>
#include <lwconfig/core/loading/configuration_files.h>
#include <lwconfig/namespaces/language.h>

namespace lwconfig {
namespace {

/// One line of a translation table.
struct Translation {
  explicit Translation(const XMLElement& e) {
    AttributeReader in(e);
    in.Require("type", Type);
    in.Require("Value", Value);
  }
  std::string Type;
  std::string Value;
};

/// Adds a text to a table. Empty keys count as keys too. Error 457 for a key that is present.
void AddText(Collection& table, const std::string& text, const std::string& key) {
  for (std::int32_t position = 1; key.empty() && position <= table.Count(); ++position) {
    if (table.KeyAt(position).empty()) throw Error(kDuplicateKey, "The table has a text with an empty key");
  }
  table.Add(text, key);
}

}  // namespace

// languages.xml. The root element has any name. Of the element names, only that of Language is exact.
//
//   <Languages>
//     <Language Name="Visual Basic" Caption= Overloads= ... IncludeByDefault="True">
//       <DataType type="System.Int32" Value="Integer"/>
//       <AccessType type="Public" Value="Public"/>
//     </Language>
//   </Languages>
void Language::Load(const XMLElement& e) {
  AttributeReader in(e);
  in.Require("Name", Name);
  in.Require("Caption", Caption);
  in.Require("Overloads", OverloadsWord);
  in.Require("Overrides", OverridesWord);
  in.Require("Virtual", VirtualWord);
  in.Require("NotVirtual", NotVirtualWord);
  in.Require("Abstract", AbstractWord);
  in.Require("Shadows", ShadowsWord);
  in.Require("Static", StaticWord);
  in.Require("Optional", OptionalWord);
  in.Require("OutParam", OutParamWord);
  in.Require("ByRef", ByRefWord);
  in.Require("ByVal", ByValWord);
  in.Require("ReturnTypePrefix", ReturnTypePrefix);
  in.Require("ArraySymbol", ArraySymbol);
  in.Require("VoidTypeName", VoidTypeName);
  in.Require("ParamArray", ParamArrayWord);
  in.Require("Function", FunctionWord);
  in.Require("Sub", SubWord);
  in.Require("ReadOnlyProperty", ReadOnlyPropertyWord);
  in.Require("WriteOnlyProperty", WriteOnlyPropertyWord);
  in.Require("ReadWriteProperty", ReadWritePropertyWord);
  in.Require("MustInherit", MustInheritWord);
  in.Require("NotInheritable", NotInheritableWord);
  in.Require("ReadOnlyField", ReadOnlyFieldKeyword);
  in.Try("ParameterDelimiter", ParameterDelimiter);
  in.Try("IncludeByDefault", IncludeByDefault, ExactTrue);
  in.Try("MultiDimensionalArraySymbol", MultiDimensionalArraySymbol);
  const auto readType = [&](const XMLElement& child) {
    const Translation type(child);
    AddText(*DataTypes, type.Value, type.Type);
    AddText(*ReverseDataTypes, type.Type, type.Value);
  };
  const auto readAccessWord = [&](const XMLElement& child) {
    AttributeReader access(child);
    const char* type = access.Find("type");
    const char* value = access.Find("Value");
    if (type == nullptr || value == nullptr) {
      return Report(Problem::MissingAttribute, child, {},
                    "the word is left out: it needs the attributes \"type\" and \"Value\"");
    }
    try {
      AddText(*AccessTypes, value, type);
    } catch (const Error&) {
      // Keep the first word of an access level.
      Report(Problem::DuplicateName, child, "type", "the word is left out: its access level has one already");
    }
  };
  ReadChildren(e, {{AnyCase("datatype"), readType}, {AnyCase("accesstype"), readAccessWord}});
}

std::shared_ptr<Languages> Languages::Shared() {
  if (auto shared = SharedSlot<Languages>::Get()) return shared;
  auto languages = std::make_shared<Languages>();
  SharedSlot<Languages>::Set(languages);
  const DiskFile file(ConfigPath(), "languages", "xml");
  if (file.Exists()) {
    ReadConfigurationFiles({file}, [&](const DiskFile&, const XMLElement& root) { languages->Load(root); });
  }
  return languages;
}

std::shared_ptr<Language> Languages::Item(const ItemKey& Key) const {
  if (auto found = KeyedCollection::Item(Key)) return found;
  if (Count() != 0) return *begin();
  throw Error(Key.IsPosition() ? kSubscriptOutOfRange : kInvalidCall,
              "There is no language with " + Key.Description() + ", nor any other");
}

void Languages::Load(const XMLElement& e) {
  mCol.Clear();
  ReadChildren(e, "Language", [&](const XMLElement& child) {
    auto language = std::make_shared<Language>();
    language->Load(child);
    Add(language, language->Name);
  });
}

}  // namespace lwconfig
