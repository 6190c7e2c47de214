#include <algorithm>
#include <array>

#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/core/xml/internal/xml_data.h>
#include <lwconfig/core/xml/xml_element.h>

namespace lwconfig {
namespace {

using pugi::xml_attribute;
using pugi::xml_node;

xml_node ElementFrom(xml_node node) {
  while (node && node.type() != pugi::node_element) node = node.next_sibling();
  return node;
}

/// The bytes allowed in a name: letters, digits, a few signs, and any byte beyond ASCII.
constexpr auto kNameBytes = [] {
  std::array<bool, 256> bytes{};
  for (std::size_t byte = 0; byte < bytes.size(); ++byte) {
    const char c = AsciiLower(static_cast<char>(byte));
    bytes[byte] = byte >= 0x80 || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' || c == ':' ||
                  c == '-' || c == '.';
  }
  return bytes;
}();

void CheckName(std::string_view name, const char* of) {
  bool isName = !name.empty() && !(name[0] >= '0' && name[0] <= '9') && name[0] != '-' && name[0] != '.';
  for (const char c : name) isName = isName && kNameBytes[static_cast<unsigned char>(c)];
  if (!isName) throw Error(kInvalidCall, "\"" + std::string(name) + "\" cannot be the name of an XML " + of);
}

void CheckStorable(std::string_view text) {
  if (text.find('\0') != std::string_view::npos) {
    throw Error(kInvalidCall, "A text with a NUL character cannot be stored in an XML document");
  }
}

}  // namespace

pugi::xml_attribute_struct* XMLAttribute::Attribute() const {
  if (mAttribute != nullptr) return mAttribute;
  mDocument->Settle();
  const auto attributes = xml_node(mDraft->Node).attributes();
  return std::next(attributes.begin(), static_cast<std::ptrdiff_t>(mPlace))->internal_object();
}

std::string XMLAttribute::Name() const {
  return xml_attribute(Attribute()).name();
}
std::string XMLAttribute::Value() const {
  return xml_attribute(Attribute()).value();
}

bool XMLElement::IsDraft() const {
  return mNode == nullptr && mDocument->IsDraft;
}

pugi::xml_node_struct* XMLElement::Node() const {
  if (mNode != nullptr) return mNode;
  mDocument->Settle();
  return mDraft->Node;
}

std::string XMLElement::Name() const {
  return xml_node(Node()).name();
}
bool XMLElement::IsNamed(std::string_view name) const {
  return name == xml_node(Node()).name();
}
bool XMLElement::IsNamedIgnoringCase(std::string_view name) const {
  return EqualIgnoringCase(name, xml_node(Node()).name());
}

void XMLElement::NoteAbsentChild(std::string_view name) const {
  if (mDocument->Observer)
    mDocument->Observer->Absent(XMLObserver::NameKind::Element, xml_node(Node()).name(), name);
}

void XMLElement::SetName(std::string_view name) {
  CheckName(name, "element");
  if (IsDraft()) {
    mDraft->Name = name;
    return;
  }
  xml_node(Node()).set_name(std::string(name).c_str());
}

std::string XMLElement::Text() const {
  std::string text;
  bool hasMarkup = false;
  mDocument->NoteLook(xml_node(Node()).name());
  for (const xml_node part : xml_node(Node()).children()) {
    if (part.type() == pugi::node_pcdata || part.type() == pugi::node_cdata) {
      mDocument->NoteLook(part.value());
      text += part.value();
    } else {
      hasMarkup = true;
    }
  }
  if (hasMarkup && mDocument->KeepsText) {
    if (auto inside = mDocument->Inside(xml_node(Node()).name())) return *std::move(inside);
  }
  return text;
}

XMLAttributes XMLElement::Attributes() const {
  return XMLAttributes(*this);
}
XMLElements XMLElement::Children() const {
  mDocument->NoteLook(xml_node(Node()).name());
  return XMLElements(*this);
}

XMLAttribute XMLElement::AddAttribute(std::string_view name, std::string_view value) {
  PutAttribute(name, value);
  if (IsDraft()) return XMLAttribute(mDocument, *mDraft, mDraft->AttributeCount - 1);
  return XMLAttribute(mDocument, xml_node(Node()).last_attribute().internal_object());
}

void XMLElement::PutAttribute(std::string_view name, std::string_view value) {
  CheckName(name, "attribute");
  CheckStorable(value);
  if (IsDraft()) return mDocument->Draft.AddAttribute(*mDraft, name, value);
  xml_node(Node()).append_attribute(std::string(name).c_str()).set_value(value.data(), value.size());
}

std::optional<XMLElement> XMLElement::Parent() const {
  const xml_node parent = xml_node(Node()).parent();
  if (parent.type() != pugi::node_element) return std::nullopt;
  return XMLElement(mDocument, parent.internal_object());
}

XMLElement XMLElement::AddElement(std::string_view name, std::string_view text) {
  CheckName(name, "element");
  CheckStorable(text);
  if (IsDraft()) return XMLElement(mDocument, mDocument->Draft.AddElement(*mDraft, name, text));
  xml_node child = xml_node(Node()).append_child(std::string(name).c_str());
  if (!text.empty()) child.append_child(pugi::node_pcdata).set_value(text.data(), text.size());
  return XMLElement(mDocument, child.internal_object());
}

FilePosition XMLElement::Position() const {
  return mDocument->Position(xml_node(Node()).name());
}
FilePosition XMLElement::Position(std::string_view attribute) const {
  if (mDocument->OffsetOf(attribute.data())) return mDocument->Position(attribute.data());
  for (const xml_attribute candidate : xml_node(Node()).attributes()) {
    if (EqualIgnoringCase(candidate.name(), attribute)) return mDocument->Position(candidate.name());
  }
  return Position();
}
const std::string& XMLElement::SourcePath() const {
  return mDocument->SourcePath;
}
const std::string& XMLElement::ParseFailure() const {
  return mDocument->ParseFailure;
}

std::optional<XMLAttribute> XMLAttributes::Find(const ItemKey& Key) const {
  std::int32_t position = 0;
  for (const xml_attribute attribute : xml_node(mElement.Node()).attributes()) {
    ++position;
    if (Key.IsText() ? EqualIgnoringCase(Key.Text(), attribute.name())
                     : Key.IsPosition() && Key.Position() == position) {
      return XMLAttribute(mElement.mDocument, attribute.internal_object());
    }
  }
  return std::nullopt;
}

XMLAttribute XMLAttributes::Item(const ItemKey& Key) const {
  if (auto attribute = Find(Key)) return *std::move(attribute);
  Error error(kInvalidCall,
              "The element <" + mElement.Name() + "> has no attribute with " + Key.Description());
  error.SetPosition(mElement.Position());
  throw error;
}

std::int32_t XMLAttributes::Count() const {
  const auto attributes = xml_node(mElement.Node()).attributes();
  return static_cast<std::int32_t>(std::distance(attributes.begin(), attributes.end()));
}

XMLElements::Iterator& XMLElements::Iterator::operator++() {
  mNode = ElementFrom(xml_node(mNode).next_sibling()).internal_object();
  return *this;
}

XMLElements::Iterator XMLElements::begin() const {
  return Iterator(&mElement.mDocument,
                  ElementFrom(xml_node(mElement.Node()).first_child()).internal_object());
}

std::int32_t XMLElements::Count() const {
  std::int32_t count = 0;
  for (auto child = begin(); child != end(); ++child) ++count;
  return count;
}

XMLElement XMLElements::Item(std::int32_t position) const {
  std::int32_t at = 0;
  for (auto child = begin(); child != end(); ++child) {
    if (++at == position) return *child;
  }
  throw Error(kSubscriptOutOfRange, "The element <" + mElement.Name() +
                                        "> has no child element at position " + std::to_string(position) +
                                        "; it has " + std::to_string(at));
}

}  // namespace lwconfig
