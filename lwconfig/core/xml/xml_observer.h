#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace lwconfig {

/// Watches how a document is read. A document that has an observer keeps its text as it was.
class XMLObserver {
 public:
  enum class NameKind { Attribute, Element };

  virtual ~XMLObserver() = default;
  /// Something was read: the name of an element or of an attribute, or text, that begins at this offset of
  /// the document's text.
  virtual void LookedAt(std::size_t offset) = 0;
  /// A reader asked for a name that the element `parent` does not have.
  virtual void Absent(NameKind kind, std::string_view parent, std::string_view name) = 0;
  /// The text may be in another encoding than it was taken for. Called before the document is parsed, on the
  /// thread that does.
  virtual void Doubtful(std::string doubt) = 0;
};

}  // namespace lwconfig
