#include <memory>
#include <new>
#include <utility>

#include <lwconfig/platform/internal/host_defaults.h>

#include "system.h"

namespace lwconfig::platform {
namespace {

/// A component of the system. Receives a text through its method "Report", or through its default member
/// where it has no such method.
class AutomationComponent final : public Component {
 public:
  struct Releaser {
    void operator()(IDispatch* object) const { object->Release(); }
  };
  using Reference = std::unique_ptr<IDispatch, Releaser>;

  explicit AutomationComponent(Reference object) : mObject(std::move(object)) {}

  void Receive(std::string_view text) override {
    wchar_t name[] = L"Report";
    wchar_t* names[] = {name};
    DISPID id = DISPID_VALUE;
    if (FAILED(mObject->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id))) id = DISPID_VALUE;
    VARIANT argument;
    ::VariantInit(&argument);
    argument.vt = VT_BSTR;
    argument.bstrVal = ::SysAllocString(Wide(text).c_str());
    if (argument.bstrVal == nullptr) throw std::bad_alloc();
    DISPPARAMS parameters{&argument, nullptr, 1, 0};
    mObject->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr,
                    nullptr);
    ::VariantClear(&argument);
  }

 private:
  Reference mObject;
};

}  // namespace

std::unique_ptr<Component> CreateHostComponent(std::string_view progId) {
  CLSID id;
  if (FAILED(::CLSIDFromProgID(Wide(progId).c_str(), &id))) return nullptr;
  void* object = nullptr;
  if (FAILED(::CoCreateInstance(id, nullptr, CLSCTX_ALL, IID_IDispatch, &object))) return nullptr;
  return std::make_unique<AutomationComponent>(
      AutomationComponent::Reference(static_cast<IDispatch*>(object)));
}

}  // namespace lwconfig::platform
