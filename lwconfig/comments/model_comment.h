#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include <lwconfig/core/instance_count.h>
#include <lwconfig/core/variant.h>
#include <lwconfig/core/xml_element.h>

namespace lwconfig {

/// Where the text of a model comment is added to an existing comment.
enum mcInsertionPointEnum : std::int32_t { ctPrefix = 2, ctSuffix = 3 };

/// Kinds of member that a model comment applies to.
enum mcMemberTypeEnum : std::int32_t {
  mtMethod = 1,
  mtProperty = 2,
  mtEvent = 3,
  mtEnumeration = 4,
  mtUDT = 5,
  mtInterface = 6,
  mtModule = 7,
};

/// A description to re-use for every member of a kind and name, in any project.
class ModelComment : public Counted<ModelComment> {
 public:
  static constexpr const char* kClassName = "ModelComment";

  std::string MemberType_Namespace;  // code element names, such as "LW:Method"
  std::string MemberName;            // may hold the wildcards ? and *
  std::string TaggedCommentPrefix;   // the `TagIdentifier` of the comment that the text fills
  std::string TaggedCommentText;
  Variant Tag;  // free for the caller; neither saved nor copied
  bool OnlyIfBlank = false;
  mcInsertionPointEnum InsertionPoint = ctPrefix;

  /// The member kind set last, as of `mcMemberTypeEnum`; any number is kept.
  std::int32_t MemberType() const { return mMemberType; }
  /// Also sets `MemberType_Namespace`, where the kind is of the enumeration.
  void SetMemberType(std::int32_t type);

  /// Reads an `MC` element, the older form with a "MemberType" too. A missing kind of member, "MemberName",
  /// "TaggedCommentPrefix" or "TaggedCommentText" is error 5, which ends the load.
  void Load(const XMLElement& e);
  void Save(XMLElement& e) const;
  std::shared_ptr<ModelComment> Clone() const;

 private:
  std::int32_t mMemberType = 0;
};

}  // namespace lwconfig
