#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <lwconfig/core/base/keyed_collection.h>
#include <lwconfig/core/loading/shared_slots.h>
#include <lwconfig/externaldocs/external_doc.h>

namespace lwconfig {

/// The sources of external documentation, filed under their name patterns, and the links to their pages. The
/// first source in order whose pattern covers a name is used. The namespace of a full name is the part before
/// its last ".", its short name the part after it.
class ExternalDocs : public KeyedCollection<ExternalDoc>, public Counted<ExternalDocs> {
 public:
  static constexpr const char* kClassName = "ExternalDocs";

  /// For the caller's use; cleared by a successful `Load` or `Save`.
  bool Dirty = false;

  /// Adds the sources of `ExternalDocs.xml` in the configuration folder, if there is such a file, in any
  /// letter case. A source without a name pattern (error 5) or with one that is present (error 457) stops the
  /// load, and the sources before it are kept.
  void Load();
  /// Writes all sources to `ExternalDocs.xml` in the configuration folder, in the letter case of the existing
  /// file. When that fails, the old file is kept whole.
  void Save();

  /// The link to the page of a class or other object; empty where no source covers its namespace, to
  /// which "." is appended when it has none. Answers are cached until `ResetLinkCache` by object,
  /// caption and additional key without regard to letter case; `IsHelp2` and changes of the sources do
  /// not affect cached answers.
  std::string Link(std::string_view ObjectFullName, std::string_view Caption, bool IsHelp2,
                   std::string_view AdditionalKey = {});
  /// Whether a source covers the namespace of the class. A positive answer is cached until `ResetLinkCache`;
  /// one from a pattern that is a single blank is cached as false.
  bool IsLinkAvailable(std::string_view ClassFullName);
  /// The link to the page of a class member, up to its first "("; empty where no source covers the namespace
  /// of the class.
  std::string MemberLink(std::string_view ClassFullName, std::string_view MemberName,
                         std::string_view Caption, bool IsHelp2) const;
  /// The address of the page of an object, without markup; empty where no source covers its whole name.
  std::string URL(std::string_view ObjectFullName) const;
  /// Clears the cached answers of `Link` and `IsLinkAvailable`.
  void ResetLinkCache();

  /// The names of the placeholders in links to objects, and of those in links to members.
  static std::vector<std::string> ObjectPlaceholders();
  static std::vector<std::string> MemberPlaceholders();

  /// A copy with its own sources, without keys and cached answers.
  std::shared_ptr<ExternalDocs> Clone() const;

 private:
  const ExternalDoc* FindSource(std::string_view name) const;

  KeyedList<std::string> mLinkedNamespaces;  // by namespace, the pattern that covers it
  KeyedList<std::string> mClassLinks;        // by object, caption and additional key
};

template <>
inline constexpr Slot kSlotOf<ExternalDocs> = Slot::ExternalDocs;

}  // namespace lwconfig
