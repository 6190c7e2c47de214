#include <array>

#include <lwconfig/automation/implemented_provider.h>
#include <lwconfig/automation/published.h>
#include <lwconfig/automation/value.h>
#include <lwconfig/core/loading/error_reporter.h>
#include <lwconfig/namespaces/namespace_provider.h>

namespace lwconfig::automation {
namespace {

/// Forwards every member to the implementation, or to the contract's own member where the
/// implementation has none.
class ImplementedProvider final : public INamespaceProvider {
 public:
  explicit ImplementedProvider(Implementation implementation) : mImplementation(std::move(implementation)) {}

  AnyObject GetItems(std::shared_ptr<lwconfig::NamespaceDef>& definition, AnyObject& parent,
                     std::string_view filter) override {
    return Forward<AnyObject>("GetItems", definition, parent, filter);
  }
  AnyObject DocumentDataProvider() const override { return Forward<AnyObject>("DocumentDataProvider"); }
  void Initialise(AnyObject& project) override { Forward<void>("Initialise", project); }
  AnyObject GetRootItem(std::shared_ptr<lwconfig::NamespaceDef>& definition,
                        std::string_view moniker) override {
    return Forward<AnyObject>("GetRootItem", definition, moniker);
  }
  AnyObject GetObjectFromQualifiedName(std::string_view name) override {
    return Forward<AnyObject>("GetObjectFromQualifiedName", name);
  }
  AnyObject GetNamespaceDefFromObject(std::shared_ptr<lwconfig::NamespaceDefs>& profile,
                                      AnyObject& object) override {
    return Forward<AnyObject>("GetNamespaceDefFromObject", profile, object);
  }
  void AddRootItem(AnyObject& item) override { Forward<void>("AddRootItem", item); }
  void StreamContent(AnyObject& file, std::string_view type) override {
    Forward<void>("StreamContent", file, type);
  }
  std::string Name() const override { return Forward<std::string>("Name"); }
  void ContentCreated(AnyObject& item, std::shared_ptr<lwconfig::NamespaceDef>& definition,
                      std::string_view fileName, bool coreContent) override {
    Forward<void>("ContentCreated", item, definition, fileName, coreContent);
  }
  void BeforeProcessRootItem(AnyObject& root) override { Forward<void>("BeforeProcessRootItem", root); }
  void AfterProcessRootItem(AnyObject& root) override { Forward<void>("AfterProcessRootItem", root); }
  void BeforeProcessItem(AnyObject& item, AnyObject& root) override {
    Forward<void>("BeforeProcessItem", item, root);
  }
  void AfterProcessItem(AnyObject& item, AnyObject& root) override {
    Forward<void>("AfterProcessItem", item, root);
  }
  AnyObject GetModuleItems() override { return Forward<AnyObject>("GetModuleItems"); }
  std::string BrowseForMoniker(std::string_view flags) override {
    return Forward<std::string>("BrowseForMoniker", flags);
  }
  bool VerifyMoniker(std::string_view moniker, std::string& message) override {
    return Forward<bool>("VerifyMoniker", moniker, message);
  }
  std::string GetMonikerFromRootItem(AnyObject& item) override {
    return Forward<std::string>("GetMonikerFromRootItem", item);
  }
  Variant MakeMonikerRelative(std::string_view moniker, std::string_view fileName) override {
    return Forward<Variant>("MakeMonikerRelative", moniker, fileName);
  }
  Variant MakeMonikerAbsolute(std::string_view moniker, std::string_view fileName) override {
    return Forward<Variant>("MakeMonikerAbsolute", moniker, fileName);
  }

 private:
  template <class V>
  static Variant ToVariant(const V& value) {
    return Crossing<V>::ToVariant(V(value));
  }
  static Variant ToVariant(std::string_view value) { return std::string(value); }

  template <class V>
  static void TakeBack(const Variant& from, V& to) {
    to = Crossing<V>::FromVariant(from);
  }
  static void TakeBack(const Variant&, std::string_view&) {}
  static void TakeBack(const Variant&, bool&) {}

  /// A member that the implementation lacks returns an empty result, as the contract's own does.
  template <class Result, class... A>
  Result Forward(std::string_view member, A&... arguments) const {
    std::array<Variant, sizeof...(A)> values{ToVariant(arguments)...};
    Variant result;
    const OutsideScope outside;
    if (mImplementation(member, values, result)) {
      [[maybe_unused]] std::size_t at = 0;
      (TakeBack(values[at++], arguments), ...);
    }
    if constexpr (!std::is_void_v<Result>) return Crossing<Result>::FromVariant(result);
  }

  Implementation mImplementation;
};

}  // namespace

std::shared_ptr<void> ImplementProvider(Implementation implementation) {
  return std::shared_ptr<INamespaceProvider>(
      std::make_shared<ImplementedProvider>(std::move(implementation)));
}

}  // namespace lwconfig::automation
