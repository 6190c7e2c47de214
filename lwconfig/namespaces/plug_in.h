#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <lwconfig/core/base/instance_count.h>
#include <lwconfig/core/base/keyed_collection.h>
#include <lwconfig/core/loading/shared_slots.h>
#include <lwconfig/core/xml/xml_element.h>

namespace lwconfig {

/// The part of a plug-in that copies do not share.
class PlugInKey {
 public:
  /// "P" and the next plug-in number of the process: identifies the object, not the plug-in. Neither read nor
  /// written. A copy has its own key.
  std::string Key;

 protected:
  PlugInKey();
  PlugInKey(const PlugInKey& /*source*/) : PlugInKey() {}
  PlugInKey& operator=(const PlugInKey& /*source*/) { return *this; }
  ~PlugInKey() = default;
};

/// A plug-in of the generator: for wizard, content and tables of contents, whether it takes part
/// and which component serves it.
class PlugIn : public PlugInKey, public Counted<PlugIn> {
 public:
  static constexpr const char* kClassName = "PlugIn";

  std::string Name;                     // the name by which templates enable it
  std::string Description;              // description of the plug-in
  bool ExtendsWizard = false;           // whether it takes part in the wizard
  std::string WizardProgID;             // component that serves the wizard
  bool ExtendsContent = false;          // whether it takes part in the content of pages
  std::string ContentProgID;            // component that serves the content
  bool ExtendsTableOfContents = false;  // whether it takes part in tables of contents
  std::string TableOfContentsProgID;    // component that serves tables of contents

  /// Reads a `PlugIn` element. All eight attributes are required: error 5 stops the load where
  /// one is missing.
  void Load(const XMLElement& e);
  /// Writes all stored properties to the element, which the caller has named.
  void Save(XMLElement& e) const;
  /// A copy with its own key.
  std::shared_ptr<PlugIn> Clone() const;
};

/// Plug-ins, filed under their keys; the same name may occur several times.
class PlugIns : public KeyedCollection<PlugIn>, public Counted<PlugIns> {
 public:
  static constexpr const char* kClassName = "PlugIns";

  /// Replaces the list by the plug-ins of every file in the "PlugIns" folder of the configuration.
  void Load();
  /// Replaces the list by the plug-ins of every "*.xml" file in the folder; none where the folder does not
  /// exist. A failing element stops the load, and the plug-ins before it are kept.
  void LoadFrom(std::string_view Folder);
  /// A list of copies, each filed under its own key.
  std::shared_ptr<PlugIns> Clone() const;
};

template <>
inline constexpr Slot kSlotOf<PlugIns> = Slot::PlugIns;

}  // namespace lwconfig
