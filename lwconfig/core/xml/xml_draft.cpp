#include <lwconfig/core/xml/internal/xml_draft.h>
#include <lwconfig/core/xml/internal/xml_escape.h>

namespace lwconfig {

void XMLDraft::AddAttribute(XMLDraftElement& element, std::string_view name, std::string_view value) {
  ++element.AttributeCount;
  const std::size_t start = mText.size();
  AppendAttribute(mText, name, value);
  XMLDraftElement::Span& last =
      element.MoreAttributes.empty() ? element.Attributes : element.MoreAttributes.back();
  const std::size_t length = mText.size() - start;
  if (last.Length == 0) {
    last = {start, length};
  } else if (last.Start + last.Length == start) {
    last.Length += length;
  } else {
    element.MoreAttributes.push_back({start, length});
  }
}

XMLDraftElement& XMLDraft::AddElement(XMLDraftElement& parent, std::string_view name, std::string_view text) {
  XMLDraftElement& element = mElements.emplace_back();
  element.Name = name;
  element.Text.Start = mText.size();
  AppendText(mText, text);
  element.Text.Length = mText.size() - element.Text.Start;
  parent.Children.push_back(&element);
  return element;
}

void XMLDraft::AppendElement(std::string& out, const XMLDraftElement& element) const {
  ((out += '<') += element.Name) += TextOf(element.Attributes);
  for (const auto& span : element.MoreAttributes) out += TextOf(span);
  if (element.Text.Length == 0 && element.Children.empty()) {
    out += " />";
  } else {
    (out += '>') += TextOf(element.Text);
  }
}

std::string XMLDraft::Serialise() const {
  struct Open {
    const XMLDraftElement* Element;
    std::size_t Next;
    bool Indented;  // inside an element with its own text, or below it, no blank may be added
  };
  std::string out;
  constexpr std::size_t kTagCost = 40;  // estimate for names, brackets and indentation
  out.reserve(kXMLDeclaration.size() + mText.size() + mElements.size() * kTagCost);
  out += kXMLDeclaration;
  std::vector<Open> open;
  const auto startLine = [&](bool indented) {
    if (indented) AppendLineStart(out, open.size());
  };
  const auto enter = [&](const XMLDraftElement& element, bool indented) {
    AppendElement(out, element);
    if (!element.Children.empty()) {
      open.push_back({&element, 0, indented && element.Text.Length == 0});
    } else if (element.Text.Length != 0) {
      ((out += "</") += element.Name) += '>';
    }
  };
  enter(mElements.front(), true);
  while (!open.empty()) {
    Open& current = open.back();
    if (current.Next < current.Element->Children.size()) {
      startLine(current.Indented);
      enter(*current.Element->Children[current.Next++], current.Indented);
      continue;
    }
    const Open complete = current;
    open.pop_back();
    startLine(complete.Indented);
    ((out += "</") += complete.Element->Name) += '>';
  }
  out += '\n';
  return out;
}

void XMLDraft::LinkTo(pugi::xml_node root) {
  mElements.front().Node = root.internal_object();
  // Create nodes in the order of the elements: every parent precedes its children.
  for (auto& parent : mElements) {
    pugi::xml_node node = pugi::xml_node(parent.Node).first_child();
    for (XMLDraftElement* child : parent.Children) {
      while (node && node.type() != pugi::node_element) node = node.next_sibling();
      child->Node = node.internal_object();
      node = node.next_sibling();
    }
  }
}

}  // namespace lwconfig
