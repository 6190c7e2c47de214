#pragma once

#include <memory>
#include <string>

#include <lwconfig/core/base/instance_count.h>
#include <lwconfig/core/base/keyed_collection.h>
#include <lwconfig/core/base/object_reference.h>
#include <lwconfig/core/loading/shared_slots.h>
#include <lwconfig/core/xml/xml_element.h>

namespace lwconfig {

/// The notation of declarations in one programming language.
class Language : public Counted<Language> {
 public:
  static constexpr const char* kClassName = "Language";

  std::string Name;                      // the key in `Languages`
  std::string Caption;                   // the display name
  bool IncludeFlag = false;              // for the generator's use while it runs; never loaded
  std::string OverloadsWord;             // keyword of an overloading member
  std::string OverridesWord;             // keyword of an overriding member
  std::string VirtualWord;               // keyword of a member that may be overridden
  std::string NotVirtualWord;            // keyword of a member that may not be overridden
  std::string AbstractWord;              // keyword of a member without an implementation
  std::string ShadowsWord;               // keyword of a member that hides an inherited one
  std::string StaticWord;                // keyword of a member of the type rather than the instance
  std::string OptionalWord;              // keyword of an optional parameter
  std::string OutParamWord;              // keyword of an output parameter
  std::string ByRefWord;                 // keyword of a parameter passed by reference
  std::string ByValWord;                 // keyword of a parameter passed by value
  std::string ReturnTypePrefix;          // text before a return type
  std::string ArraySymbol;               // symbol after an array type
  std::string VoidTypeName;              // name of the empty return type
  std::string ParamArrayWord;            // keyword of a parameter list of variable length
  std::string FunctionWord;              // keyword of a procedure with a result
  std::string SubWord;                   // keyword of a procedure without a result
  std::string ParameterDelimiter = ",";  // text between parameters
  bool IncludeByDefault = false;         // whether the language is used unless the user decides otherwise
  std::string MustInheritWord;           // keyword of a type that must be derived from
  std::string NotInheritableWord;        // keyword of a type that may not be derived from
  std::string ReadOnlyPropertyWord;      // keyword of a property to read only
  std::string WriteOnlyPropertyWord;     // keyword of a property to write only
  std::string ReadWritePropertyWord;     // keyword of a property to read and write
  std::string ReadOnlyFieldKeyword;      // keyword of a field to read only
  /// The language's text for each neutral type name, filed under it.
  Owned<Collection> DataTypes = std::make_shared<Collection>();
  /// The neutral name of each type, filed under the language's text.
  Owned<Collection> ReverseDataTypes = std::make_shared<Collection>();
  /// The language's word for each access level, filed under its neutral name.
  Owned<Collection> AccessTypes = std::make_shared<Collection>();
  std::string MultiDimensionalArraySymbol;  // symbol after an array type of more than one dimension

  /// Reads a `Language` element. All words but `ParameterDelimiter` and `MultiDimensionalArraySymbol` are
  /// required: error 5 stops the load. So does a data type that cannot be added to either table: error
  /// 457 where its name or text, which may be empty once, is repeated. An access type that cannot be
  /// added is passed over.
  void Load(const XMLElement& e);
};

/// The languages, filed under their names.
class Languages : public KeyedCollection<Language>, public Counted<Languages> {
 public:
  static constexpr const char* kClassName = "Languages";

  /// The shared languages, created on the first request and loaded from the file `languages.xml` of the
  /// configuration; empty where there is no such file. An error during the load is rethrown, and the part
  /// that was loaded stays shared.
  static std::shared_ptr<Languages> Shared();

  /// The language under that key or at that position; the first language where there is no such item. Error 5
  /// for a key, 9 for a position, while there are no languages.
  Pointer Item(const ItemKey& Key) const override;

  /// Replaces the languages by the `Language` children of the element. A failing language, or two of one name
  /// (error 457), stop the load; the languages before it are kept.
  void Load(const XMLElement& e);
};

template <>
inline constexpr Slot kSlotOf<Languages> = Slot::Languages;

}  // namespace lwconfig
