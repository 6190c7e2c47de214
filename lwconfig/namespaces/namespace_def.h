#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include <lwconfig/core/base/instance_count.h>
#include <lwconfig/core/base/keyed_collection.h>
#include <lwconfig/core/base/object_reference.h>
#include <lwconfig/core/base/variant.h>
#include <lwconfig/core/xml/xml_element.h>
#include <lwconfig/namespaces/element_def.h>

namespace lwconfig {

class NamespaceDefs;

/// One kind of code element that can be documented, with the kinds nested below it, to any depth.
class NamespaceDef : public Counted<NamespaceDef> {
 public:
  static constexpr const char* kClassName = "NamespaceDef";

  NamespaceDef() = default;
  NamespaceDef(const NamespaceDef&) = delete;
  NamespaceDef& operator=(const NamespaceDef&) = delete;
  ~NamespaceDef();

  std::string Name;                  // name of the kind, such as "LW:Module"; the key among its siblings
  std::string Handler;               // kept for the plug-in that offers the elements
  std::string Caption;               // the display name of an element of this kind
  std::string CommenterCaption;      // the display name in the comment editors
  std::string CaptionPlural;         // the display name of several elements of this kind
  bool ProvideIncludeFlag = false;   // whether users may include or leave out such elements
  bool DefaultIncludeFlag = false;   // the value that `ResetIncludeFlag` sets
  bool Tree_AlwaysPopulate = false;  // in the item tree: fill the node at once
  bool Tree_AlwaysExpand = false;    // in the item tree: open the node at once
  std::string Tree_Icon;             // in the item tree: name of the icon
  bool Tree_ShowInSelect = false;    // in the item tree: shown while users select
  bool Tree_AllowExclude = true;     // in the item tree: users may leave an item out
  std::string Tree_CaptionTemplate;  // in the item tree: caption of an item
  bool Tree_Select_AlwaysPopulate = false;  // in the item tree: fill the node at once while users select
  bool Tree_ShowFolder = false;             // in the item tree: items are below a folder
  bool Tree_ShowFolderInSelect = false;     // in the item tree: items are below a folder while users select
  std::string FileNameFormat;               // file name of the pages of such elements
  std::string Flags;                        // free text
  std::string ID;                           // free text
  std::int32_t Counter = 0;                 // for the generator's use while it runs
  bool IncludeFlag = false;                 // for the generator's use while it runs

  /// Withdrawn: error 13 with the source "Tag no longer supported".
  AnyObject Tag() const;
  void SetTag(const AnyObject& tag);

  /// The profile that the definition belongs to, or null.
  std::shared_ptr<lwconfig::NamespaceDefs> NamespaceDefs() const { return mNamespaceDefs.Object(); }
  /// The profile is not kept alive.
  void SetNamespaceDefs(const std::shared_ptr<lwconfig::NamespaceDefs>& profile) {
    mNamespaceDefs.SetObject(profile);
  }
  /// The nested definitions, filed under their names; created empty when there are none. Never null.
  std::shared_ptr<lwconfig::NamespaceDefs> ChildNamespaceDefs() const;
  void SetChildNamespaceDefs(std::shared_ptr<lwconfig::NamespaceDefs> children) {
    mChildren = std::move(children);
  }
  /// The nested definitions, or null while none have been requested.
  const lwconfig::NamespaceDefs* ExistingChildren() const { return mChildren.get(); }

  /// Reads a definition element and every element nested in it. "Name", "Handler" and "Caption" are required:
  /// error 5 stops the load where one is missing, and the definitions complete before it are kept. Of nested
  /// siblings with one name the first is kept.
  void Load(const XMLElement& e);
  /// Sets `IncludeFlag` to `DefaultIncludeFlag`, here and in every nested definition.
  void ResetIncludeFlag();
  /// Sets `Counter` to 0, here and in every nested definition.
  void ResetCounters();

 private:
  void LoadAttributes(const XMLElement& e);

  ObjectReference<lwconfig::NamespaceDefs> mNamespaceDefs;
  mutable std::shared_ptr<lwconfig::NamespaceDefs> mChildren;
};

/// A namespace profile, or the nested definitions of one: definitions filed under their names.
class NamespaceDefs : public KeyedCollection<NamespaceDef>,
                      public Counted<NamespaceDefs>,
                      public std::enable_shared_from_this<NamespaceDefs> {
 public:
  static constexpr const char* kClassName = "NamespaceDefs";

  std::string Name;              // the key in `NamespaceProfiles`
  std::string Caption;           // the display name of the profile
  std::string CommenterCaption;  // the display name in the comment editors
  bool IsFile = false;           // whether its sources are files
  std::string Supports;          // item types, joined by ","
  /// The elements that the profile offers.
  Owned<lwconfig::ElementDefs> ElementDefs = std::make_shared<lwconfig::ElementDefs>();

  /// As of every collection, but failures are ignored: where the key is present nothing is added.
  void Add(Pointer Item, std::string_view Key = {}, const ItemKey& Before = {},
           const ItemKey& After = {}) override;

  /// Reads a profile from its root element. A failing definition, or two top-level ones of one name (error
  /// 457), stop the load; everything read before is kept.
  void Load(const XMLElement& e);
  /// Resets the include flag of every definition, at any depth.
  void ResetIncludeFlags();
  /// The definitions at any depth with that caption, or name, without regard to letter case, each before
  /// those nested in it. They are appended to `col` without keys, and `col` is returned; a new collection
  /// where it is null.
  std::shared_ptr<NamespaceDefs> GetNamespaceDefsByCaption(
      std::string_view Caption, std::shared_ptr<NamespaceDefs> col = nullptr) const;
  std::shared_ptr<NamespaceDefs> GetNamespaceDefsByName(std::string_view Name,
                                                        std::shared_ptr<NamespaceDefs> col = nullptr) const;
  /// The definitions at any depth, filed under their names in `col`, or a new collection where it is null; of
  /// several with one name the first, each before those nested in it.
  std::shared_ptr<NamespaceDefs> AllNamespaceDefs(std::shared_ptr<NamespaceDefs> col = nullptr) const;
};

}  // namespace lwconfig
