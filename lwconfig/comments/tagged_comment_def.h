#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include <lwconfig/core/instance_count.h>
#include <lwconfig/core/xml_element.h>

namespace lwconfig {

/// Kinds of code element that a comment can belong to. There is no 7.
enum ElementTypeEnum : std::int32_t {
  etUnspecified = 0,
  etProjectGroup = 1,
  etProject = 2,
  etModule = 3,
  etBlock = 4,
  etVariable = 5,
  etParameter = 6,
  etEvent = 8,
  etEnumeration = 9,
  etEnumerationMember = 10,
  etUDT = 11,
  etUDTMember = 12,
  etDeclaration = 13,
  etInterface = 14,
};

/// How several comments of one type on one element are joined.
enum WrapTypeEnum : std::int32_t { WrapNone = 1, WrapBreak = 2, WrapParagraph = 3 };

/// One type of tagged comment: how it is recognised in source code, what it belongs to and how it is edited.
class TaggedCommentDef : public Counted<TaggedCommentDef> {
 public:
  static constexpr const char* kClassName = "TaggedCommentDef";

  std::string TagIdentifier;  // such as "##MODULE_DESCRIPTION"; the key in `TaggedCommentDefs`
  ElementTypeEnum ElementType = etUnspecified;
  std::string Description;
  std::string Format;
  bool IsGeneral = false;
  WrapTypeEnum WrapType{};
  std::string DesignerProgID;  // empty: the default of the set
  std::string DesignFlags;
  bool Hidden = false;
  std::string LegacyFor;  // the `TagIdentifier` of the type that replaces this one
  std::string TabName;
  std::string Tip;
  std::string Flags;
  bool Standard = true;   // or made by the user: decides the file it is saved to
  std::string Namespace;  // code element names, separated by commas
  std::string Icon = "other";
  std::string GroupName;
  std::string XMLCommentTypes;  // tag names of XML documentation comments, separated by commas

  /// Reads a `TaggedComment` element. "Hidden", "Identifier", "ElementType", "Description", "Format",
  /// "General" and "WrapType" are required: error 5 ends the load where one is missing. Values outside the
  /// enumerations are kept.
  void Load(const XMLElement& e);
  /// The caller has named `e`.
  void Save(XMLElement& e) const;
  std::shared_ptr<TaggedCommentDef> Clone() const;
};

}  // namespace lwconfig
