#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace lwconfig {

/// Watches the reading of a document. A document with an observer keeps its original text.
class XMLObserver {
 public:
  enum class NameKind { Attribute, Element };

  virtual ~XMLObserver() = default;
  /// A reader took the name of an element or of an attribute, or a text. It begins at this offset of
  /// the document's text.
  virtual void LookedAt(std::size_t offset) = 0;
  /// A reader asked for a name that the element `parent` does not have.
  virtual void Absent(NameKind kind, std::string_view parent, std::string_view name) = 0;
  /// The text may be in another encoding than assumed. Called before the document is parsed, on
  /// the parsing thread.
  virtual void Doubtful(std::string doubt) = 0;
};

}  // namespace lwconfig
