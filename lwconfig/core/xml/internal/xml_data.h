#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <pugixml.hpp>

#include <lwconfig/core/base/error.h>
#include <lwconfig/core/xml/internal/xml_draft.h>
#include <lwconfig/core/xml/xml_observer.h>

namespace lwconfig {

/// The data shared by an `XMLDocument` and every element and attribute taken from it: a parsed tree, or a
/// draft until it is first read.
struct XMLDocumentData {
  /// Parses `Text` in place into the tree. False when it is not well-formed; the tree then holds the part
  /// before the fault.
  bool Parse();
  bool CheckDocumentElement();
  /// Records the fault of the text; always false.
  bool Fail(std::size_t offset, std::string_view problem);
  /// Converts the draft to a tree.
  void Settle();
  /// The offset of a name that the parser found; nothing for a name that was set later.
  std::optional<std::size_t> OffsetOf(const char* name) const;
  /// The place of a name that the parser found; the place of the document for any other.
  FilePosition Position(const char* name) const;
  FilePosition PositionOf(std::size_t offset) const;
  /// Reports to the observer, if any, that the parsed name or text at `at` is read.
  void NoteLook(const char* at) const {
    if (!Observer) return;
    if (const auto offset = OffsetOf(at)) Observer->LookedAt(*offset);
  }
  /// The source text between the tags of the element whose name the parser found at `name`, without the marks
  /// of CDATA sections; nothing for an element that was added later. Needs a document that keeps its text.
  std::optional<std::string> Inside(const char* name) const;

  std::string Text;        // taken apart by the parser: names and values are pointers into it
  std::string SourcePath;  // the file of the text, else empty
  std::string Original;    // the original text, where it is kept or observed, or has no file
  std::shared_ptr<XMLObserver> Observer;
  bool KeepsText = false;   // white space and markup inside elements are text
  pugi::xml_document Tree;  // declared after the text it points into
  std::string ParseFailure;
  FilePosition ParseFailurePosition;
  std::size_t ParsedLength = 0;  // in the text, where it is not well-formed
  /// The last place that was counted; the next count continues from it.
  struct Place {
    std::size_t Offset = 0;
    std::int32_t Line = 1;
    std::int32_t Column = 1;
  };
  mutable Place LastPlace{};
  XMLDraft Draft;
  bool IsDraft = true;
};

/// The whole tree as text, with a declaration in front.
std::string TreeText(pugi::xml_node document);

}  // namespace lwconfig
