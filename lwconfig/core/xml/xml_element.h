#pragma once

#include <cstdint>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <lwconfig/core/base/error.h>
#include <lwconfig/core/base/keyed_list.h>

namespace pugi {
struct xml_node_struct;
struct xml_attribute_struct;
}  // namespace pugi

namespace lwconfig {

class XMLAttributes;
class XMLElements;
struct XMLDocumentData;
struct XMLDraftElement;

/// An attribute of an element. The handle stays valid as long as it is held; copies refer to
/// the same attribute.
class XMLAttribute {
 public:
  /// The name as written in the file.
  std::string Name() const;
  /// The value, entities resolved.
  std::string Value() const;

 private:
  friend class XMLAttributes;
  friend class XMLElement;
  XMLAttribute(std::shared_ptr<XMLDocumentData> document, pugi::xml_attribute_struct* attribute)
      : mDocument(std::move(document)), mAttribute(attribute) {}
  XMLAttribute(std::shared_ptr<XMLDocumentData> document, XMLDraftElement& element, std::size_t place)
      : mDocument(std::move(document)), mDraft(&element), mPlace(place) {}
  /// The attribute in the document's tree; converts a draft to a tree.
  pugi::xml_attribute_struct* Attribute() const;

  std::shared_ptr<XMLDocumentData> mDocument;
  pugi::xml_attribute_struct* mAttribute = nullptr;
  XMLDraftElement* mDraft = nullptr;  // the element, where the attribute was added in a draft
  std::size_t mPlace = 0;             // its index there, from 0
};

/// An element of a document. The handle stays valid as long as it is held; copies refer to the same element.
class XMLElement {
 public:
  /// The tag name as written in the file.
  std::string Name() const;
  /// Whether the tag name is `name` exactly.
  bool IsNamed(std::string_view name) const;
  /// Whether the tag name is `name` without regard to letter case.
  bool IsNamedIgnoringCase(std::string_view name) const;
  /// Reports to the document's observer, if any, that a reader takes children of this name.
  void NoteAbsentChild(std::string_view name) const;
  /// Error 5 for an invalid XML name.
  void SetName(std::string_view name);
  /// The character data directly inside the element, joined; the text as written where the document
  /// was loaded so.
  std::string Text() const;
  /// The attributes, in the order of the file.
  XMLAttributes Attributes() const;
  /// The child elements, in the order of the file.
  XMLElements Children() const;
  /// The parent element; nothing for the document element.
  std::optional<XMLElement> Parent() const;

  /// Appends an attribute. The value reads back exactly as set: control characters other than tab and line
  /// breaks are written as references too, which XML 1.0 forbids and this library reads. Error 5 for an
  /// invalid XML name, and for a value with a NUL character, which no file can hold.
  XMLAttribute AddAttribute(std::string_view name, std::string_view value);
  /// As `AddAttribute`, without creating a handle: a save adds very many attributes.
  void PutAttribute(std::string_view name, std::string_view value);
  /// Appends a child element with this tag name and text; the text reads back exactly as set. Error
  /// 5 as above.
  XMLElement AddElement(std::string_view name, std::string_view text);

  /// The place of the element in its file or text.
  FilePosition Position() const;
  /// The place of the attribute of that name, letter case ignored; the place of the element without one. A
  /// name that is a part of the document's own text selects that very attribute, also the second of a name.
  FilePosition Position(std::string_view attribute) const;
  /// The file of the element; empty where there is none.
  const std::string& SourcePath() const;
  /// The description of the fault in the element's text; empty where it was well-formed.
  const std::string& ParseFailure() const;

  friend bool operator==(const XMLElement& a, const XMLElement& b) { return a.Node() == b.Node(); }

 private:
  friend class AttributeReader;
  friend class Inspection;
  friend class XMLAttributes;
  friend class XMLDocument;
  friend class XMLElements;
  XMLElement(std::shared_ptr<XMLDocumentData> document, pugi::xml_node_struct* node)
      : mDocument(std::move(document)), mNode(node) {}
  XMLElement(std::shared_ptr<XMLDocumentData> document, XMLDraftElement& draft)
      : mDocument(std::move(document)), mDraft(&draft) {}
  /// The node in the document's tree; converts a draft to a tree.
  pugi::xml_node_struct* Node() const;
  bool IsDraft() const;

  std::shared_ptr<XMLDocumentData> mDocument;
  pugi::xml_node_struct* mNode = nullptr;
  XMLDraftElement* mDraft = nullptr;  // where the element was created in a draft
};

/// The attributes of one element, looked up by name without regard to letter case.
class XMLAttributes {
 public:
  /// The attribute of that name. Error 5 where the element has no such attribute, with the element's place.
  XMLAttribute Item(const ItemKey& Key) const;
  /// The attribute, or nothing.
  std::optional<XMLAttribute> Find(const ItemKey& Key) const;
  std::int32_t Count() const;

 private:
  friend class XMLElement;
  explicit XMLAttributes(XMLElement element) : mElement(std::move(element)) {}
  XMLElement mElement;
};

/// The child elements of one element, in document order.
class XMLElements {
 public:
  class Iterator {
   public:
    using difference_type = std::ptrdiff_t;
    using value_type = XMLElement;
    XMLElement operator*() const { return XMLElement(*mDocument, mNode); }
    Iterator& operator++();
    bool operator==(std::default_sentinel_t) const { return mNode == nullptr; }

   private:
    friend class XMLElements;
    Iterator(const std::shared_ptr<XMLDocumentData>* document, pugi::xml_node_struct* node)
        : mDocument(document), mNode(node) {}
    const std::shared_ptr<XMLDocumentData>* mDocument;
    pugi::xml_node_struct* mNode;
  };

  /// The number of child elements.
  std::int32_t Count() const;
  /// The child at a position from 1. Error 9 where there is none.
  XMLElement Item(std::int32_t position) const;
  /// The child elements, from the first to the last.
  Iterator begin() const;
  std::default_sentinel_t end() const { return {}; }

 private:
  friend class XMLElement;
  explicit XMLElements(XMLElement element) : mElement(std::move(element)) {}
  XMLElement mElement;
};

}  // namespace lwconfig
