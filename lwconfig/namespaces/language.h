#pragma once

#include <memory>
#include <string>

#include <lwconfig/core/instance_count.h>
#include <lwconfig/core/keyed_collection.h>
#include <lwconfig/core/object_reference.h>
#include <lwconfig/core/shared_slots.h>
#include <lwconfig/core/xml_element.h>

namespace lwconfig {

/// How declarations are written in one programming language.
class Language : public Counted<Language> {
 public:
  static constexpr const char* kClassName = "Language";

  std::string Name;  // the key in `Languages`
  std::string Caption;
  bool IncludeFlag = false;  // for the generator's use while it runs; never loaded
  std::string OverloadsWord;
  std::string OverridesWord;
  std::string VirtualWord;
  std::string NotVirtualWord;
  std::string AbstractWord;
  std::string ShadowsWord;
  std::string StaticWord;
  std::string OptionalWord;
  std::string OutParamWord;
  std::string ByRefWord;
  std::string ByValWord;
  std::string ReturnTypePrefix;
  std::string ArraySymbol;
  std::string VoidTypeName;
  std::string ParamArrayWord;
  std::string FunctionWord;
  std::string SubWord;
  std::string ParameterDelimiter = ",";
  bool IncludeByDefault = false;
  std::string MustInheritWord;
  std::string NotInheritableWord;
  std::string ReadOnlyPropertyWord;
  std::string WriteOnlyPropertyWord;
  std::string ReadWritePropertyWord;
  std::string ReadOnlyFieldKeyword;
  // Translations: of type names into the language and back, and of access levels into its words.
  Owned<Collection> DataTypes = std::make_shared<Collection>();
  Owned<Collection> ReverseDataTypes = std::make_shared<Collection>();
  Owned<Collection> AccessTypes = std::make_shared<Collection>();
  std::string MultiDimensionalArraySymbol;

  /// Reads a `Language` element. All words but `ParameterDelimiter` and `MultiDimensionalArraySymbol` are
  /// required: error 5 ends the load. So does a data type that cannot be added to either table, with 457
  /// where its name or text is repeated; an access type that cannot be added is passed over.
  void Load(const XMLElement& e);
};

/// The languages, filed under their names.
class Languages : public KeyedCollection<Language>, public Counted<Languages> {
 public:
  static constexpr const char* kClassName = "Languages";

  /// The shared languages, on the first request created and loaded from the file `languages.xml` of the
  /// configuration; empty where there is no such file. When loading fails, the error is thrown on and what
  /// was loaded stays shared.
  static std::shared_ptr<Languages> Shared();

  /// The language under that key or at that position; the first one where there is none such. Error 5 for a
  /// key, 9 for a position, while there is no language at all.
  Pointer Item(const ItemKey& Key) const override;

  /// Replaces the languages by the `Language` children of the element. A failing language, or two of one name
  /// (error 457), end the load; the languages before it stay.
  void Load(const XMLElement& e);
};

template <>
inline constexpr Slot kSlotOf<Languages> = Slot::Languages;

}  // namespace lwconfig
