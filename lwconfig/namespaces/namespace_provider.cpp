#include <lwconfig/namespaces/namespace_provider.h>

namespace lwconfig {

INamespaceProvider::~INamespaceProvider() = default;

OpaqueObject INamespaceProvider::GetItems(std::shared_ptr<NamespaceDef>&, OpaqueObject&, std::string_view) {
  return nullptr;
}

OpaqueObject INamespaceProvider::DocumentDataProvider() const {
  return nullptr;
}

void INamespaceProvider::Initialise(OpaqueObject&) {}

OpaqueObject INamespaceProvider::GetRootItem(std::shared_ptr<NamespaceDef>&, std::string_view) {
  return nullptr;
}

OpaqueObject INamespaceProvider::GetObjectFromQualifiedName(std::string_view) {
  return nullptr;
}

OpaqueObject INamespaceProvider::GetNamespaceDefFromObject(std::shared_ptr<NamespaceDefs>&, OpaqueObject&) {
  return nullptr;
}

void INamespaceProvider::AddRootItem(OpaqueObject&) {}

void INamespaceProvider::StreamContent(OpaqueObject&, std::string_view) {}

std::string INamespaceProvider::Name() const {
  return {};
}

void INamespaceProvider::ContentCreated(OpaqueObject&, std::shared_ptr<NamespaceDef>&, std::string_view,
                                        bool) {}

void INamespaceProvider::BeforeProcessRootItem(OpaqueObject&) {}

void INamespaceProvider::AfterProcessRootItem(OpaqueObject&) {}

void INamespaceProvider::BeforeProcessItem(OpaqueObject&, OpaqueObject&) {}

void INamespaceProvider::AfterProcessItem(OpaqueObject&, OpaqueObject&) {}

OpaqueObject INamespaceProvider::GetModuleItems() {
  return nullptr;
}

std::string INamespaceProvider::BrowseForMoniker(std::string_view) {
  return {};
}

bool INamespaceProvider::VerifyMoniker(std::string_view, std::string&) {
  return false;
}

std::string INamespaceProvider::GetMonikerFromRootItem(OpaqueObject&) {
  return {};
}

std::any INamespaceProvider::MakeMonikerRelative(std::string_view, std::string_view) {
  return {};
}

std::any INamespaceProvider::MakeMonikerAbsolute(std::string_view, std::string_view) {
  return {};
}

}  // namespace lwconfig
