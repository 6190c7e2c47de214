#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include <pugixml.hpp>

namespace lwconfig {

/// One element of a draft.
struct XMLDraftElement {
  struct Span {
    std::size_t Start = 0;
    std::size_t Length = 0;
  };
  std::string Name;
  Span Attributes;                   // in the draft's text: usually all of them stand in one place
  std::vector<Span> MoreAttributes;  // those added after something else was
  std::size_t AttributeCount = 0;
  Span Text;
  std::vector<XMLDraftElement*> Children;
  pugi::xml_node_struct* Node = nullptr;  // once the draft has become a tree
};

/// A document being written. Attributes and texts are kept as the very text that they will be in the file, so
/// that writing a document takes one pass and few allocations; elements stay where they are in memory.
class XMLDraft {
 public:
  XMLDraft() { mElements.emplace_back(); }

  XMLDraftElement& Root() { return mElements.front(); }
  void AddAttribute(XMLDraftElement& element, std::string_view name, std::string_view value);
  XMLDraftElement& AddElement(XMLDraftElement& parent, std::string_view name, std::string_view text);
  /// The document as text.
  std::string Serialise() const;
  /// Lets each element know its node in the tree that was parsed from the draft's text.
  void LinkTo(pugi::xml_node root);

 private:
  void AppendElement(std::string& out, const XMLDraftElement& element) const;
  std::string_view TextOf(const XMLDraftElement::Span& span) const {
    return std::string_view(mText).substr(span.Start, span.Length);
  }

  std::string mText;
  std::deque<XMLDraftElement> mElements;
};

}  // namespace lwconfig
