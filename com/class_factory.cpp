#include "class_factory.h"

#include "class_binding.h"
#include "failures.h"
#include "object.h"
#include "unknown.h"

namespace lwconfig::com {
namespace {

class ClassFactory final : public Implements<IClassFactory> {
 public:
  explicit ClassFactory(const ClassBinding& binding) : mBinding(binding) {}

  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** result) override {
    if (result == nullptr) return E_POINTER;
    *result = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    return Guarded([&] { return TakeOver(Object::Publish(mBinding.Class.Create())).CopyTo(id, result); },
                   [](const Error& failure) { return StoreFailure(failure, IID_IClassFactory); });
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
    gLocks += lock != FALSE ? 1 : -1;
    return S_OK;
  }

 private:
  const ClassBinding& mBinding;
};

}  // namespace

HRESULT GetFactory(REFCLSID classId, REFIID id, void** result) noexcept {
  if (result == nullptr) return E_POINTER;
  *result = nullptr;
  return Guarded([&] {
    const ClassBinding* binding = FindBinding(classId);
    if (binding == nullptr || !binding->Class.IsCreatable()) return CLASS_E_CLASSNOTAVAILABLE;
    return TakeOver<IClassFactory>(new ClassFactory(*binding)).CopyTo(id, result);
  });
}

}  // namespace lwconfig::com
