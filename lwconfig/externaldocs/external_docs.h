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
/// first source in order whose pattern covers a name is the one used. The namespace of a full name is what
/// stands before its last ".", its short name what follows.
class ExternalDocs : public KeyedCollection<ExternalDoc>, public Counted<ExternalDocs> {
 public:
  static constexpr const char* kClassName = "ExternalDocs";

  /// For the caller's use; a `Load` or `Save` that succeeds clears it.
  bool Dirty = false;

  /// Adds the sources of `ExternalDocs.xml` in the configuration folder, if there is such a file, in whatever
  /// letter case. A source without a name pattern (error 5) or with one that is present (error 457) ends the
  /// load, and the sources before it are kept.
  void Load();
  /// Writes all sources to `ExternalDocs.xml` in the configuration folder, in the letter case that the file
  /// has. When that fails, the old file stays whole.
  void Save();

  /// The link to the page of a class or other object; empty where no source covers its namespace, to which
  /// "." is appended when it has none. Answers are kept until `ResetLinkCache`, for every object, caption and
  /// additional key without regard to letter case; neither `IsHelp2` nor a change of the sources matters to
  /// them.
  std::string Link(std::string_view ObjectFullName, std::string_view Caption, bool IsHelp2,
                   std::string_view AdditionalKey = {});
  /// Whether a source covers the namespace of the class. Where one does, the answer is kept until
  /// `ResetLinkCache`; from a pattern that is a single blank it is kept as false.
  bool IsLinkAvailable(std::string_view ClassFullName);
  /// The link to the page of a class member, up to its first "("; empty where no source covers the namespace
  /// of the class.
  std::string MemberLink(std::string_view ClassFullName, std::string_view MemberName,
                         std::string_view Caption, bool IsHelp2) const;
  /// The address of the page of an object, without markup; empty where no source covers its whole name.
  std::string URL(std::string_view ObjectFullName) const;
  /// Forgets the answers kept by `Link` and `IsLinkAvailable`.
  void ResetLinkCache();

  /// The names of the placeholders that the links to objects, and those to members, fill.
  static std::vector<std::string> ObjectPlaceholders();
  static std::vector<std::string> MemberPlaceholders();

  /// A copy with sources of its own, without keys, and nothing kept from before.
  std::shared_ptr<ExternalDocs> Clone() const;

 private:
  const ExternalDoc* FindSource(std::string_view name) const;

  KeyedList<std::string> mLinkedNamespaces;  // by namespace, the pattern that covers it
  KeyedList<std::string> mClassLinks;        // by object, caption and additional key
};

template <>
inline constexpr Slot kSlotOf<ExternalDocs> = Slot::ExternalDocs;

}  // namespace lwconfig
