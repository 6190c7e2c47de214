#include <lwconfig/namespaces/namespace_provider.h>

namespace lwconfig {

INamespaceProvider::~INamespaceProvider() = default;

AnyObject INamespaceProvider::GetItems(std::shared_ptr<NamespaceDef>&, AnyObject&, std::string_view) {
  return {};
}

AnyObject INamespaceProvider::DocumentDataProvider() const {
  return {};
}

void INamespaceProvider::Initialise(AnyObject&) {}

AnyObject INamespaceProvider::GetRootItem(std::shared_ptr<NamespaceDef>&, std::string_view) {
  return {};
}

AnyObject INamespaceProvider::GetObjectFromQualifiedName(std::string_view) {
  return {};
}

AnyObject INamespaceProvider::GetNamespaceDefFromObject(std::shared_ptr<NamespaceDefs>&, AnyObject&) {
  return {};
}

void INamespaceProvider::AddRootItem(AnyObject&) {}

void INamespaceProvider::StreamContent(AnyObject&, std::string_view) {}

std::string INamespaceProvider::Name() const {
  return {};
}

void INamespaceProvider::ContentCreated(AnyObject&, std::shared_ptr<NamespaceDef>&, std::string_view, bool) {}

void INamespaceProvider::BeforeProcessRootItem(AnyObject&) {}

void INamespaceProvider::AfterProcessRootItem(AnyObject&) {}

void INamespaceProvider::BeforeProcessItem(AnyObject&, AnyObject&) {}

void INamespaceProvider::AfterProcessItem(AnyObject&, AnyObject&) {}

AnyObject INamespaceProvider::GetModuleItems() {
  return {};
}

std::string INamespaceProvider::BrowseForMoniker(std::string_view) {
  return {};
}

bool INamespaceProvider::VerifyMoniker(std::string_view, std::string&) {
  return false;
}

std::string INamespaceProvider::GetMonikerFromRootItem(AnyObject&) {
  return {};
}

Variant INamespaceProvider::MakeMonikerRelative(std::string_view, std::string_view) {
  return {};
}

Variant INamespaceProvider::MakeMonikerAbsolute(std::string_view, std::string_view) {
  return {};
}

}  // namespace lwconfig
