#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include <lwconfig/core/base/instance_count.h>
#include <lwconfig/core/xml/xml_element.h>

namespace lwconfig {

/// Kinds of code element that a comment can belong to. There is no 7.
enum ElementTypeEnum : std::int32_t {
  etUnspecified = 0,         // no kind in particular
  etProjectGroup = 1,        // a project group
  etProject = 2,             // a project
  etModule = 3,              // a module
  etBlock = 4,               // a method or property
  etVariable = 5,            // a variable
  etParameter = 6,           // a parameter
  etEvent = 8,               // an event
  etEnumeration = 9,         // an enumeration
  etEnumerationMember = 10,  // a member of an enumeration
  etUDT = 11,                // a structure
  etUDTMember = 12,          // a member of a structure
  etDeclaration = 13,        // a declaration
  etInterface = 14,          // an implemented interface
};

/// How several comments of one type on one element are joined.
enum WrapTypeEnum : std::int32_t {
  WrapNone = 1,       // one after the other
  WrapBreak = 2,      // each on a new line
  WrapParagraph = 3,  // each in a paragraph
};

/// One type of tagged comment: its prefix in source code, the elements it belongs to and its editor.
class TaggedCommentDef : public Counted<TaggedCommentDef> {
 public:
  static constexpr const char* kClassName = "TaggedCommentDef";

  std::string TagIdentifier;  // prefix of the comments, such as "##MODULE_DESCRIPTION"; the key in
                              // `TaggedCommentDefs`
  ElementTypeEnum ElementType = etUnspecified;  // kind of code element that the comment belongs to
  std::string Description;                      // description of the comment
  std::string Format;                           // kept for other tools
  bool IsGeneral = false;       // whether comments of this type become part of the general description
  WrapTypeEnum WrapType{};      // how several comments of this type on an element are joined; 0: unspecified
  std::string DesignerProgID;   // component that edits the comments; empty for the default of the set
  std::string DesignFlags;      // editing features that the comment editors provide or deny
  bool Hidden = false;          // whether the wizard leaves the type out of its list
  std::string LegacyFor;        // the `TagIdentifier` of the type that replaces this one
  std::string TabName;          // tab of the comment editors that shows the comment
  std::string Tip;              // help shown above the space to edit the comment
  std::string Flags;            // free text; a load makes an empty one "-"
  bool Standard = true;         // whether it is predefined, not made by the user; selects the file for saving
  std::string Namespace;        // code element names, separated by commas
  std::string Icon = "other";   // name of the icon
  std::string GroupName;        // group under which the type is listed
  std::string XMLCommentTypes;  // tag names of XML documentation comments, separated by commas

  /// Reads a `TaggedComment` element. "Hidden", "Identifier", "ElementType", "Description", "Format",
  /// "General" and "WrapType" are required: error 5 stops the load where one is missing. Values outside the
  /// enumerations are kept.
  void Load(const XMLElement& e);
  /// Writes all stored properties to the element, which the caller has named.
  void Save(XMLElement& e) const;
  /// A copy of all properties.
  std::shared_ptr<TaggedCommentDef> Clone() const;
};

}  // namespace lwconfig
