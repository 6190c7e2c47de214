#pragma once

#include <any>
#include <memory>
#include <string>
#include <string_view>

#include <lwconfig/core/instance_count.h>
#include <lwconfig/namespaces/namespace_def.h>

namespace lwconfig {

/// Any automation object of the generator or of a provider. This library only passes it on.
using OpaqueObject = std::shared_ptr<void>;

/// What a provider of documentable items implements: it knows one kind of source, described by a namespace
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
  virtual OpaqueObject GetItems(std::shared_ptr<lwconfig::NamespaceDef>& NamespaceDef,
                                OpaqueObject& ParentItem, std::string_view Filter = {});
  /// The provider's data for the generator.
  virtual OpaqueObject DocumentDataProvider() const;
  /// Hands over the generator's project.
  virtual void Initialise(OpaqueObject& LWProject);
  /// The root item that the moniker names.
  virtual OpaqueObject GetRootItem(std::shared_ptr<lwconfig::NamespaceDef>& NamespaceDef,
                                   std::string_view Moniker);
  virtual OpaqueObject GetObjectFromQualifiedName(std::string_view QualifiedName);
  /// The definition of the profile that describes `obj`.
  virtual OpaqueObject GetNamespaceDefFromObject(std::shared_ptr<lwconfig::NamespaceDefs>& NamespaceDefs,
                                                 OpaqueObject& obj);
  virtual void AddRootItem(OpaqueObject& RootItem);
  /// Writes content of the type to an output file.
  virtual void StreamContent(OpaqueObject& OutputFile, std::string_view ContentType);
  virtual std::string Name() const;
  /// Tells that the file was created for the item, and whether it is core content.
  virtual void ContentCreated(OpaqueObject& Item, std::shared_ptr<lwconfig::NamespaceDef>& NamespaceDef,
                              std::string_view FileName, bool CoreContent);
  virtual void BeforeProcessRootItem(OpaqueObject& RootItem);
  virtual void AfterProcessRootItem(OpaqueObject& RootItem);
  virtual void BeforeProcessItem(OpaqueObject& Item, OpaqueObject& RootItem);
  virtual void AfterProcessItem(OpaqueObject& Item, OpaqueObject& RootItem);
  virtual OpaqueObject GetModuleItems();
  /// Lets the user pick a source and returns its moniker.
  virtual std::string BrowseForMoniker(std::string_view Flags);
  /// Whether the moniker names a usable source; if not, the reason is put into `Message`.
  virtual bool VerifyMoniker(std::string_view Moniker, std::string& Message);
  virtual std::string GetMonikerFromRootItem(OpaqueObject& RootItem);
  /// The moniker relative to the file.
  virtual std::any MakeMonikerRelative(std::string_view Moniker, std::string_view RelativeToFileName);
  /// The inverse of `MakeMonikerRelative`.
  virtual std::any MakeMonikerAbsolute(std::string_view Moniker, std::string_view RelativeToFileName);
};

}  // namespace lwconfig
