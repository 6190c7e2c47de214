#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <lwconfig/core/base/instance_count.h>
#include <lwconfig/core/base/keyed_collection.h>
#include <lwconfig/core/loading/shared_slots.h>
#include <lwconfig/core/xml/xml_element.h>

namespace lwconfig {

/// The location of the XML comment file of one .NET assembly.
class CommentFileLocation : public Counted<CommentFileLocation> {
 public:
  static constexpr const char* kClassName = "CommentFileLocation";

  std::string AssemblyFileName;  // the assembly that the comment file belongs to

  /// The path of the comment file, each "%NetPath%" in it, in any letter case, replaced by the .NET Framework
  /// folder of this machine, which ends with a backslash.
  std::string CommentFilePath() const;
  void SetCommentFilePath(std::string_view path) { mCommentFilePath = path; }
  /// The path as set.
  const std::string& InternalCommentFilePath() const { return mCommentFilePath; }

  /// Reads a `CommentFile` element. Both attributes are required: error 5 stops the load.
  void Load(const XMLElement& e);
  /// Writes all stored properties to the element, which the caller has named.
  void Save(XMLElement& e) const;
  /// A copy, with the path as set.
  std::shared_ptr<CommentFileLocation> Clone() const;

 private:
  std::string mCommentFilePath;
};

/// The registered comment files, in order, without keys; an assembly may occur repeatedly.
class CommentFileLocations : public KeyedCollection<CommentFileLocation>,
                             public Counted<CommentFileLocations> {
 public:
  static constexpr const char* kClassName = "CommentFileLocations";

  bool Dirty = false;  // set by the callers; a load and a save clear it

  /// Replaces the list by that of the file `CommentFileLocations.xml` of the configuration; empty where
  /// there is no such file. A failing location stops the load; the locations before it are kept, and `Dirty`
  /// is not cleared.
  void Load();
  /// Writes the list to that file and clears `Dirty`.
  void Save();
  /// A list of copies, not dirty.
  std::shared_ptr<CommentFileLocations> Clone() const;
};

template <>
inline constexpr Slot kSlotOf<CommentFileLocations> = Slot::CommentFileLocations;

}  // namespace lwconfig
