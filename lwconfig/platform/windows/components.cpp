#include <map>

#include <lwconfig/platform/components.h>
#include <lwconfig/platform/letter_case.h>

#include "system.h"

namespace lwconfig::platform {
namespace {

std::map<std::string, ComponentFactory>& Factories() {
  static std::map<std::string, ComponentFactory> factories;
  return factories;
}

/// A component of the system. It takes a text through its method "Report", or its default member where it has
/// no such method.
class AutomationComponent final : public Component {
 public:
  /// Takes the reference over.
  explicit AutomationComponent(IDispatch* object) : mObject(object) {}
  ~AutomationComponent() override { mObject->Release(); }
  AutomationComponent(const AutomationComponent&) = delete;
  AutomationComponent& operator=(const AutomationComponent&) = delete;

  void Receive(std::string_view text) override {
    wchar_t name[] = L"Report";
    wchar_t* names[] = {name};
    DISPID id = DISPID_VALUE;
    if (FAILED(mObject->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id))) id = DISPID_VALUE;
    VARIANT argument;
    ::VariantInit(&argument);
    argument.vt = VT_BSTR;
    argument.bstrVal = ::SysAllocString(Wide(text).c_str());
    DISPPARAMS parameters{&argument, nullptr, 1, 0};
    mObject->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                    nullptr);
    ::VariantClear(&argument);
  }

 private:
  IDispatch* mObject;
};

std::unique_ptr<Component> CreateSystemComponent(std::string_view progId) {
  CLSID id;
  if (FAILED(::CLSIDFromProgID(Wide(progId).c_str(), &id))) return nullptr;
  void* object = nullptr;
  if (FAILED(::CoCreateInstance(id, nullptr, CLSCTX_ALL, IID_IDispatch, &object))) return nullptr;
  return std::make_unique<AutomationComponent>(static_cast<IDispatch*>(object));
}

}  // namespace

std::unique_ptr<Component> CreateComponent(std::string_view progId) {
  const auto found = Factories().find(FoldCase(progId));
  if (found == Factories().end()) return CreateSystemComponent(progId);
  try {
    // A copy, because the factory may register another one.
    const ComponentFactory factory = found->second;
    return factory();
  } catch (...) {
    return nullptr;
  }
}

ComponentFactory RegisterComponent(const std::string& progId, ComponentFactory factory) {
  const std::string name = FoldCase(progId);
  ComponentFactory previous;
  if (const auto found = Factories().find(name); found != Factories().end()) {
    previous = std::move(found->second);
    Factories().erase(found);
  }
  if (factory) Factories().emplace(name, std::move(factory));
  return previous;
}

}  // namespace lwconfig::platform
