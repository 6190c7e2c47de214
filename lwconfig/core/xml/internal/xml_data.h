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

/// What stands behind an `XMLDocument` and every element and attribute taken from it: a tree that was parsed,
/// or a draft until somebody reads it.
struct XMLDocumentData {
  /// Parses `Text` in place into the tree. False when it is not well-formed; the part before the fault is
  /// then there.
  bool Parse();
  bool CheckDocumentElement();
  /// Records what is wrong with the text; always false.
  bool Fail(std::size_t offset, std::string_view problem);
  /// Makes a tree of the draft.
  void Settle();
  /// Where in the text the parser found a name; nothing for a name that was given later.
  std::optional<std::size_t> OffsetOf(const char* name) const;
  /// The place of a name that the parser found, or of the document where it is not one.
  FilePosition Position(const char* name) const;
  FilePosition PositionOf(std::size_t offset) const;
  /// Reports to the observer, if any, that the name or text at `at`, where the parser found it, is read.
  void NoteLook(const char* at) const {
    if (!Observer) return;
    if (const auto offset = OffsetOf(at)) Observer->LookedAt(*offset);
  }
  /// What was written between the tags of the element whose name the parser found at `name`, without the
  /// marks of CDATA sections; nothing for an element that was added later. For a document that keeps its
  /// text.
  std::optional<std::string> Inside(const char* name) const;

  std::string Text;             // taken apart by the parser: names and values are pointers into it
  std::string SourcePath;       // the file that the text was read from, else empty
  std::string Original;         // the text as it was, where it is kept or observed, or there is no such file
  std::shared_ptr<XMLObserver> Observer;
  bool KeepsText = false;       // white space and markup inside elements are text
  pugi::xml_document Tree;      // declared after the text it points into
  std::string ParseFailure;
  FilePosition ParseFailurePosition;
  std::size_t ParsedLength = 0;  // of the text, up to where it goes wrong
  /// The last place that was counted, from which counting goes on.
  struct Place {
    std::size_t Offset = 0;
    std::int32_t Line = 1;
    std::int32_t Column = 1;
  };
  mutable Place LastPlace{};
  XMLDraft Draft;
  bool IsDraft = true;
};

/// Everything in the tree as text, with a declaration in front.
std::string TreeText(pugi::xml_node document);

}  // namespace lwconfig
