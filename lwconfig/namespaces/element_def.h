#pragma once

#include <memory>
#include <string>

#include <lwconfig/core/base/instance_count.h>
#include <lwconfig/core/base/keyed_collection.h>
#include <lwconfig/core/base/object_reference.h>
#include <lwconfig/core/xml/xml_element.h>

namespace lwconfig {

class ElementDef;
class NamespaceDefs;

/// One attribute that an element takes.
class ElementAttributeDef : public Counted<ElementAttributeDef> {
 public:
  static constexpr const char* kClassName = "ElementAttributeDef";

  std::string Name;          // the key in `ElementAttributeDefs`
  std::string Description;   // description of the attribute
  std::string HelpTopic;     // page that describes the attribute
  std::string EditType;      // how its value is edited
  std::string ListSource;    // source of a list of values
  std::string ListValues;    // the values to choose from
  std::string DefaultValue;  // value where none is given
  bool Mandatory = false;    // whether it must be given

  /// The element that the attribute belongs to, or null for a common attribute of all elements.
  std::shared_ptr<lwconfig::ElementDef> ElementDef() const { return mElementDef.Object(); }
  /// The element is not kept alive.
  void SetElementDef(const std::shared_ptr<lwconfig::ElementDef>& element) { mElementDef.SetObject(element); }

  /// Reads an `attribute` element. "Name" and "Description" are required: error 5 stops the load.
  void Load(const XMLElement& e);
  /// A copy that belongs to the given element.
  std::shared_ptr<ElementAttributeDef> Clone(const std::shared_ptr<lwconfig::ElementDef>& ElementDef) const;

 private:
  ObjectReference<lwconfig::ElementDef> mElementDef;
};

/// The attributes of an element, filed under their names.
class ElementAttributeDefs : public KeyedCollection<ElementAttributeDef>,
                             public Counted<ElementAttributeDefs> {
 public:
  static constexpr const char* kClassName = "ElementAttributeDefs";
};

/// One element that a namespace profile offers.
class ElementDef : public Counted<ElementDef>, public std::enable_shared_from_this<ElementDef> {
 public:
  static constexpr const char* kClassName = "ElementDef";

  std::string Name;            // the name of the element
  std::string Description;     // description of the element
  std::string Category;        // the category under which it is offered
  std::string DesignerProgID;  // component that edits it
  std::string Namespaces;      // code element names
  bool ScrapsOnly = false;     // whether it is allowed in scraps only
  /// The attributes that it takes, filed under their names.
  Owned<lwconfig::ElementAttributeDefs> ElementAttributeDefs =
      std::make_shared<lwconfig::ElementAttributeDefs>();

  /// The profile that the element belongs to, or null.
  std::shared_ptr<NamespaceDefs> NamespaceProfile() const { return mNamespaceProfile.Object(); }
  /// The profile is not kept alive.
  void SetNamespaceProfile(const std::shared_ptr<NamespaceDefs>& profile) {
    mNamespaceProfile.SetObject(profile);
  }

  /// Reads an `lwelement` element of the profile `Parent`, then adds copies of those common attributes that
  /// the element does not define itself; null adds none. "Name" is required (error 5); a repeated attribute
  /// is error 457. Either stops the load, and the attributes before it are kept.
  void Load(const XMLElement& e, const std::shared_ptr<NamespaceDefs>& Parent,
            const std::shared_ptr<lwconfig::ElementAttributeDefs>& CommonAttributes);

 private:
  ObjectReference<NamespaceDefs> mNamespaceProfile;
};

/// The elements of a namespace profile, in file order, without keys.
class ElementDefs : public KeyedCollection<ElementDef>, public Counted<ElementDefs> {
 public:
  static constexpr const char* kClassName = "ElementDefs";

  /// Reads an `lwelements` element of the profile. Common attributes apply to the elements that follow them.
  /// A failure stops the load, and the elements before it are kept.
  void Load(const XMLElement& e, const std::shared_ptr<NamespaceDefs>& NamespaceProfile);
};

}  // namespace lwconfig
