#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <lwconfig/core/base/instance_count.h>
#include <lwconfig/core/base/keyed_collection.h>
#include <lwconfig/core/base/object_reference.h>
#include <lwconfig/core/xml/xml_element.h>
#include <lwconfig/pages/page_type.h>

namespace lwconfig {

class NodeDefs;
class PageLayout;
class TOCDefinition;

/// Kinds of node.
enum NodeTypeEnum : std::int32_t {
  ntStandard = 0,  // a single node of the contents
  ntSmart = 1,     // repeats for every code element of one kind
  ntPlugIn = 2,    // is produced by a plug-in
};

/// Kinds of item on whose existence a node depends; 0 is none.
enum DependantOnEnum : std::int32_t {
  depMethods = 1,       // `LW:Method`
  depProperties = 2,    // `LW:Property`
  depEvents = 3,        // `LW:Event`
  depEnumerations = 4,  // `LW:Enumeration`
  depUDTs = 5,          // structures, `LW:Structure`
  depLibraries = 6,     // `LW:Library`
  depInterfaces = 7,    // `LW:ImplementedInterface`
  depProjects = 8,      // `LW:Project`
};

/// One node of a contents tree. Nodes form the tree through parent keys; parent and owner are not kept alive.
class NodeDef : public Counted<NodeDef> {
 public:
  static constexpr const char* kClassName = "NodeDef";

  /// Takes the next node number of the process as its key.
  NodeDef();

  std::string Key;                     // "N" and a number; the key in `NodeDefs`
  NodeTypeEnum NodeType = ntStandard;  // the kind of the node
  bool UseCustomIcon = false;          // whether the icon is `NodeIconIndex` rather than a book or a page
  bool MarkAsNew = false;              // whether the contents show the node as new
  std::string NodeCaptionTemplate;     // caption; may hold phrases and variables in %%
  std::string PlugInName;              // of an `ntPlugIn` node: the plug-in that generates it
  std::string PlugInData;              // of an `ntPlugIn` node: data for the plug-in, kept as it is
  /// Kind of item that must exist for the node to be generated; 0 for none, -1 where the file had
  /// no usable value.
  DependantOnEnum DependantOn{};
  /// Code element name of these items; follows from `DependantOn` where the file has none.
  std::string DependantOnNamespace;
  std::string DependantOnNamespace_Filter;  // filter for these items, kept as it is
  std::int32_t DependantCount = 1;          // the least number of such items
  /// Whether the nodes below are generated even when this one is not.
  bool DependantStillProcessChildren = false;
  std::string FileNameTemplate;  // file name of the node's page; may hold variables in %%
  /// Of an `ntSmart` node: kind of code element for which it repeats; not saved; -1 where the file had
  /// no usable value.
  PageTypeEnum PageType = pgStandard;
  /// Of an `ntSmart` node: code element names for which it repeats; follows from `PageType` where the
  /// file has none.
  std::string PageTypeNamespace;
  std::string PageTypeNamespaceFilter;  // filter for these elements, kept as it is
  bool LinkToPage = true;               // whether the node links to its page
  bool IsDefaultTopic = false;          // whether its page is the default topic of the help file

  /// The key of the parent node; empty for a root node.
  const std::string& ParentKey() const { return mParentKey; }
  /// Does not change the parent until `CementReferences` runs.
  void SetParentKey(std::string key) { mParentKey = std::move(key); }
  /// The icon of the help file that a node with `UseCustomIcon` shows.
  std::int32_t NodeIconIndex() const { return mNodeIconIndex; }
  void SetNodeIconIndex(std::int32_t index) { mNodeIconIndex = index; }
  /// The linked parent, or null.
  std::shared_ptr<NodeDef> ParentNodeDef() const { return mParentNodeDef.Object(); }
  /// Links the parent, or null for none, and sets `ParentKey` to its key.
  void SetParentNodeDef(const std::shared_ptr<NodeDef>& parent);
  /// The definition that the node belongs to, or null.
  std::shared_ptr<lwconfig::TOCDefinition> TOCDefinition() const { return mTOCDefinition.Object(); }
  void SetTOCDefinition(const std::shared_ptr<lwconfig::TOCDefinition>& definition) {
    mTOCDefinition.SetObject(definition);
  }

  /// The layout of the node's page in the template of its definition; null where the template has no such
  /// layout. Error 91 for a node without a definition, or whose definition has no template.
  std::shared_ptr<lwconfig::PageLayout> PageLayout() const;
  /// Refers to the layout by its file name; null for none.
  void SetPageLayout(const std::shared_ptr<lwconfig::PageLayout>& layout);
  /// The file name by which the node refers to its layout, whether or not the template has it.
  const std::string& PageLayoutFileName() const { return mPageLayout; }

  /// The icon index of the node in the help file, collapsed and expanded.
  std::int32_t ActualIconIndex(bool HasChildren) const;
  std::int32_t ActualExpandedIconIndex(bool HasChildren) const;

  /// Links the node to the one in `NodeDefs` that its parent key names. Where there is none it becomes a root
  /// node; a node without a parent key is not changed. Error 91 for a parent key and no `NodeDefs`.
  void CementReferences(const std::shared_ptr<lwconfig::NodeDefs>& NodeDefs);

  /// Reads a `NodeDef` element as a member of the definition. "Key" is required and has a number from its
  /// second character on; otherwise error 5, 13 or 6 stops the load. Node numbers taken later are greater
  /// than the key's.
  void Load(const XMLElement& e, const std::shared_ptr<lwconfig::TOCDefinition>& TOCDefinition);
  /// Names the element `NodeDef` and writes the node to it. Only a linked parent is saved.
  void Save(XMLElement& e) const;
  /// A copy with the same key, parent and definition. Fails as `PageLayout` does.
  std::shared_ptr<NodeDef> Clone() const;

 private:
  std::string mParentKey;
  ObjectReference<NodeDef> mParentNodeDef;
  std::int32_t mNodeIconIndex = 1;
  std::string mPageLayout;
  ObjectReference<lwconfig::TOCDefinition> mTOCDefinition;
};

/// The nodes of a contents definition, flat, filed under their keys.
class NodeDefs : public KeyedCollection<NodeDef>, public Counted<NodeDefs> {
 public:
  static constexpr const char* kClassName = "NodeDefs";

  /// A deep copy whose nodes belong to the given definition and have each other as parents.
  std::shared_ptr<NodeDefs> Clone(
      const std::shared_ptr<lwconfig::TOCDefinition>& TOCDefinition = nullptr) const;

  /// The loops among the parents of nodes, in the order in which the nodes reach them. Each loop begins with
  /// its first node and lists the parent of each. Nodes in and below a loop belong to no tree.
  std::vector<std::vector<std::shared_ptr<NodeDef>>> ParentLoops() const;
};

}  // namespace lwconfig
