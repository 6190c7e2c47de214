#pragma once

#include <atomic>
#include <concepts>

#include <wrl/client.h>

#include <lwconfig/platform/windows/system.h>

namespace lwconfig::com {

template <class T>
using ComPtr = Microsoft::WRL::ComPtr<T>;

/// Takes the caller's reference over. (`ComPtr::Attach` of some compilers adds another one.)
template <class T>
ComPtr<T> TakeOver(T* pointer) {
  ComPtr<T> owner;
  *owner.GetAddressOf() = pointer;
  return owner;
}

/// How many objects and locks keep the server loaded.
inline std::atomic<long> gUses{0};

/// Base of an object of the server that clients hold through the interfaces `First` and `Rest`. It begins
/// with one reference, which belongs to who created it.
template <class First, class... Rest>
class Implements : public First, public Rest... {
 public:
  Implements() { ++gUses; }
  Implements(const Implements&) = delete;
  Implements& operator=(const Implements&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** result) override {
    if (result == nullptr) return E_POINTER;
    *result = Find(id);
    if (*result == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++mReferences; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --mReferences;
    if (left == 0) delete this;
    return left;
  }

 protected:
  virtual ~Implements() { --gUses; }

  /// The object as that interface, without a reference of its own; null where it has none.
  virtual void* Find(REFIID id) {
    void* found = id == IID_IUnknown ? static_cast<First*>(this) : nullptr;
    const auto offer = [&]<class Interface>(Interface* self) {
      if (id == __uuidof(Interface)) found = self;
    };
    offer(static_cast<First*>(this));
    (offer(static_cast<Rest*>(this)), ...);
    return found;
  }

 private:
  std::atomic<ULONG> mReferences{1};
};

}  // namespace lwconfig::com
