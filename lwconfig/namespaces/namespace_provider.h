#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <lwconfig/core/base/instance_count.h>
#include <lwconfig/core/base/variant.h>
#include <lwconfig/namespaces/namespace_def.h>

namespace lwconfig {

/// The interface of a provider of documentable items: it handles one kind of source, described by a namespace
/// profile, finds its items and takes part in generation. A source is named by a moniker, a text that only
/// the provider understands. Arguments that are references to objects or to a changeable string may be
/// replaced.
///
/// This class itself does nothing and returns nothing: null, empty or false.
class INamespaceProvider : public Counted<INamespaceProvider> {
 public:
  static constexpr const char* kClassName = "INamespaceProvider";

  INamespaceProvider() = default;
  INamespaceProvider(const INamespaceProvider&) = delete;
  INamespaceProvider& operator=(const INamespaceProvider&) = delete;
  virtual ~INamespaceProvider();

  /// The items of the kind `NamespaceDef` below `ParentItem`, narrowed by `Filter` where it is not empty.
  virtual AnyObject GetItems(std::shared_ptr<lwconfig::NamespaceDef>& NamespaceDef, AnyObject& ParentItem,
                             std::string_view Filter = {});
  /// The provider's data for the generator.
  virtual AnyObject DocumentDataProvider() const;
  /// Passes the generator's project to the provider.
  virtual void Initialise(AnyObject& LWProject);
  /// The root item named by the moniker.
  virtual AnyObject GetRootItem(std::shared_ptr<lwconfig::NamespaceDef>& NamespaceDef,
                                std::string_view Moniker);
  /// The item with that fully qualified name.
  virtual AnyObject GetObjectFromQualifiedName(std::string_view QualifiedName);
  /// The definition of the profile that describes `obj`.
  virtual AnyObject GetNamespaceDefFromObject(std::shared_ptr<lwconfig::NamespaceDefs>& NamespaceDefs,
                                              AnyObject& obj);
  /// Adds a root item to the provider's own.
  virtual void AddRootItem(AnyObject& RootItem);
  /// Writes content of the type to an output file.
  virtual void StreamContent(AnyObject& OutputFile, std::string_view ContentType);
  /// The provider's name.
  virtual std::string Name() const;
  /// Reports that the file was created for the item, and whether it is core content.
  virtual void ContentCreated(AnyObject& Item, std::shared_ptr<lwconfig::NamespaceDef>& NamespaceDef,
                              std::string_view FileName, bool CoreContent);
  /// Reports that a root item is about to be processed.
  virtual void BeforeProcessRootItem(AnyObject& RootItem);
  /// Reports that a root item has been processed.
  virtual void AfterProcessRootItem(AnyObject& RootItem);
  /// Reports that an item is about to be processed.
  virtual void BeforeProcessItem(AnyObject& Item, AnyObject& RootItem);
  /// Reports that an item has been processed.
  virtual void AfterProcessItem(AnyObject& Item, AnyObject& RootItem);
  /// The provider's module items.
  virtual AnyObject GetModuleItems();
  /// Lets the user pick a source and returns its moniker.
  virtual std::string BrowseForMoniker(std::string_view Flags);
  /// Whether the moniker names a usable source; if not, `Message` is set to the reason.
  virtual bool VerifyMoniker(std::string_view Moniker, std::string& Message);
  /// The moniker of a root item.
  virtual std::string GetMonikerFromRootItem(AnyObject& RootItem);
  /// The moniker relative to the file.
  virtual Variant MakeMonikerRelative(std::string_view Moniker, std::string_view RelativeToFileName);
  /// The inverse of `MakeMonikerRelative`.
  virtual Variant MakeMonikerAbsolute(std::string_view Moniker, std::string_view RelativeToFileName);
};

}  // namespace lwconfig
