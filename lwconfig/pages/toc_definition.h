#pragma once

#include <memory>
#include <string>

#include <lwconfig/core/base/instance_count.h>
#include <lwconfig/core/base/keyed_collection.h>
#include <lwconfig/core/base/object_reference.h>
#include <lwconfig/core/xml/xml_element.h>
#include <lwconfig/pages/node_def.h>

namespace lwconfig {

class PageTemplate;

/// One table of contents of a template: the tree of its nodes.
class TOCDefinition : public Counted<TOCDefinition>, public std::enable_shared_from_this<TOCDefinition> {
 public:
  static constexpr const char* kClassName = "TOCDefinition";

  std::string Name;         // the key in `TOCDefinitions`
  std::string Description;  // description of the contents
  /// Its nodes, filed under their keys.
  Owned<lwconfig::NodeDefs> NodeDefs = std::make_shared<lwconfig::NodeDefs>();

  /// The template that owns this definition, or null.
  std::shared_ptr<lwconfig::PageTemplate> PageTemplate() const { return mPageTemplate.Object(); }
  /// The template is not kept alive.
  void SetPageTemplate(const std::shared_ptr<lwconfig::PageTemplate>& owner) {
    mPageTemplate.SetObject(owner);
  }

  /// Reads a `TOCDefinition` element of the template. "Name" and "Description" are required. A missing one
  /// (error 5), a failing node or a repeated key (457) stops the load, and the nodes before it are kept.
  void Load(const XMLElement& e, const std::shared_ptr<lwconfig::PageTemplate>& PageTemplate);
  /// Writes all stored properties to the element, which the caller has named.
  void Save(XMLElement& e) const;
  /// A deep copy owned by the given template.
  std::shared_ptr<TOCDefinition> Clone(const std::shared_ptr<lwconfig::PageTemplate>& PageTemplate) const;

 private:
  ObjectReference<lwconfig::PageTemplate> mPageTemplate;
};

/// The contents definitions of a template, filed under their names.
class TOCDefinitions : public KeyedCollection<TOCDefinition>, public Counted<TOCDefinitions> {
 public:
  static constexpr const char* kClassName = "TOCDefinitions";
};

}  // namespace lwconfig
