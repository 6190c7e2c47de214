#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <lwconfig/comments/tagged_comment_def.h>
#include <lwconfig/core/base/keyed_collection.h>
#include <lwconfig/core/loading/shared_slots.h>

namespace lwconfig {

/// Every type of tagged comment, filed under its prefix.
class TaggedCommentDefs : public KeyedCollection<TaggedCommentDef>, public Counted<TaggedCommentDefs> {
 public:
  static constexpr const char* kClassName = "TaggedCommentDefs";

  std::string DefaultDesignerProgID;  // editor of comments whose definition names none
  std::string FileName;               // the file loaded last
  bool IsPopulated = false;           // whether a `LoadFrom` has finished

  /// Replaces the set by the custom and then the standard definitions of the configuration; by those of the
  /// older single file where there is no standard file.
  void Load();
  /// Saves the standard and then the custom definitions to their files, then deletes the older single file; a
  /// failure to delete it is ignored. The first failing save stops it; later files are not touched.
  void Save() const;
  /// As `Save` for the chosen files only; the older file is kept.
  void SaveEx(bool IncludeStandard, bool IncludeCustom) const;
  /// Adds the definitions of a file at the end, each replacing one with the same prefix. A file that does not
  /// exist adds nothing. A failing definition stops the load; the definitions before it are kept, and
  /// `IsPopulated` does not change.
  void LoadFrom(std::string_view FileName);
  /// Writes all definitions to one file, in the order of the set.
  void SaveTo(std::string_view FileName) const;
  /// Writes the standard definitions, the custom ones or both to one file, in the order of the set.
  void SaveToEx(std::string_view FileName, bool IncludeStandard, bool IncludeCustom) const;
  /// A set of copies, filed under their prefixes.
  std::shared_ptr<TaggedCommentDefs> Clone() const;
  /// The first definition that lists the XML documentation tag, letter case ignored; null where none does.
  /// Blanks beside a comma are part of the names.
  std::shared_ptr<TaggedCommentDef> ItemFromXMLTagName(std::string_view XMLTagName) const;
};

template <>
inline constexpr Slot kSlotOf<TaggedCommentDefs> = Slot::TaggedCommentDefs;

}  // namespace lwconfig
