#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <lwconfig/core/base/instance_count.h>
#include <lwconfig/core/base/keyed_collection.h>
#include <lwconfig/core/loading/shared_slots.h>
#include <lwconfig/core/xml/xml_element.h>

namespace lwconfig {

/// Where the XML comment file of one .NET assembly is.
class CommentFileLocation : public Counted<CommentFileLocation> {
 public:
  static constexpr const char* kClassName = "CommentFileLocation";

  std::string AssemblyFileName;  // the assembly that the comment file belongs to

  /// The path of the comment file, each "%NetPath%" in it, in any letter case, replaced by the .NET Framework
  /// folder of this machine, which ends with a backslash.
  std::string CommentFilePath() const;
  void SetCommentFilePath(std::string_view path) { mCommentFilePath = path; }
  /// The path as it was set.
  const std::string& InternalCommentFilePath() const { return mCommentFilePath; }

  /// Reads a `CommentFile` element. Both attributes are required: error 5 ends the load.
  void Load(const XMLElement& e);
  /// Writes all that is stored into the element, which the caller has named.
  void Save(XMLElement& e) const;
  /// A copy, the path as it was set.
  std::shared_ptr<CommentFileLocation> Clone() const;

 private:
  std::string mCommentFilePath;
};

/// The comment files that the user has made known, in order, without keys; an assembly may occur repeatedly.
class CommentFileLocations : public KeyedCollection<CommentFileLocation>,
                             public Counted<CommentFileLocations> {
 public:
  static constexpr const char* kClassName = "CommentFileLocations";

  bool Dirty = false;  // kept by the callers; a load and a save clear it

  /// Replaces the list by that of the file `CommentFileLocations.xml` of the configuration; empty where there
  /// is no such file. A failing location ends the load; those before it stay, and `Dirty` is not cleared.
  void Load();
  /// Writes the list to that file; then it is not dirty.
  void Save();
  /// A list of copies, not dirty.
  std::shared_ptr<CommentFileLocations> Clone() const;
};

template <>
inline constexpr Slot kSlotOf<CommentFileLocations> = Slot::CommentFileLocations;

}  // namespace lwconfig
