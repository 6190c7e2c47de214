#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include <lwconfig/core/base/instance_count.h>
#include <lwconfig/core/base/variant.h>
#include <lwconfig/core/xml/xml_element.h>

namespace lwconfig {

/// The position of a model comment's text in an existing comment.
enum mcInsertionPointEnum : std::int32_t {
  ctPrefix = 2,  // before the existing text
  ctSuffix = 3,  // after the existing text
};

/// Kinds of member that a model comment applies to.
enum mcMemberTypeEnum : std::int32_t {
  mtMethod = 1,       // `LW:Method`
  mtProperty = 2,     // `LW:Property`
  mtEvent = 3,        // `LW:Event`
  mtEnumeration = 4,  // `LW:Enumeration`
  mtUDT = 5,          // structures, `LW:Structure`
  mtInterface = 6,    // `LW:ImplementedInterface`
  mtModule = 7,       // `LW:Module`
};

/// A description reused for every member of a kind and name, in any project.
class ModelComment : public Counted<ModelComment> {
 public:
  static constexpr const char* kClassName = "ModelComment";

  std::string MemberType_Namespace;                // code element names, such as "LW:Method"
  std::string MemberName;                          // name of the members; may hold the wildcards ? and *
  std::string TaggedCommentPrefix;                 // the `TagIdentifier` of the comment that the text fills
  std::string TaggedCommentText;                   // the text of the comment
  Variant Tag;                                     // free for the caller; neither saved nor copied
  bool OnlyIfBlank = false;                        // whether only members without such a comment get it
  mcInsertionPointEnum InsertionPoint = ctPrefix;  // position of the text in an existing comment

  /// The member kind set last, as of `mcMemberTypeEnum`; any number is kept.
  std::int32_t MemberType() const { return mMemberType; }
  /// Also sets `MemberType_Namespace`, where the kind is of the enumeration.
  void SetMemberType(std::int32_t type);

  /// Reads an `MC` element, also the older form with a "MemberType". A missing kind of member, "MemberName",
  /// "TaggedCommentPrefix" or "TaggedCommentText" is error 5, which stops the load.
  void Load(const XMLElement& e);
  /// Names the element `MC` and writes the comment to it. `MemberType` and `Tag` are not saved.
  void Save(XMLElement& e) const;
  /// A copy of all properties but `Tag`.
  std::shared_ptr<ModelComment> Clone() const;

 private:
  std::int32_t mMemberType = 0;
};

}  // namespace lwconfig
