#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include <pugixml.hpp>

namespace lwconfig {

/// An element of a draft.
struct XMLDraftElement {
  struct Span {
    std::size_t Start = 0;
    std::size_t Length = 0;
  };
  std::string Name;
  Span Attributes;                   // in the draft's text: usually contiguous
  std::vector<Span> MoreAttributes;  // those added after another addition
  std::size_t AttributeCount = 0;
  Span Text;
  std::vector<XMLDraftElement*> Children;
  pugi::xml_node_struct* Node = nullptr;  // once the draft has become a tree
};

/// A document being written. Attributes and texts are kept in their final form, so that writing takes one
/// pass and few allocations. Elements keep their address.
class XMLDraft {
 public:
  XMLDraft() { mElements.emplace_back(); }

  XMLDraftElement& Root() { return mElements.front(); }
  void AddAttribute(XMLDraftElement& element, std::string_view name, std::string_view value);
  XMLDraftElement& AddElement(XMLDraftElement& parent, std::string_view name, std::string_view text);
  /// The document as text.
  std::string Serialise() const;
  /// Sets for each element its node in the tree parsed from the draft's text.
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
