#pragma once

#include <atomic>
#include <mutex>

#include <wrl/client.h>

#include <lwconfig/platform/windows/system.h>

namespace lwconfig::com {

template <class T>
using ComPtr = Microsoft::WRL::ComPtr<T>;

/// Takes over the caller's reference. (`ComPtr::Attach` of some compilers adds another one.)
template <class T>
ComPtr<T> TakeOver(T* pointer) {
  ComPtr<T> owner;
  *owner.GetAddressOf() = pointer;
  return owner;
}

/// The number of objects of the server that clients hold, and of locks: they keep the server loaded.
inline std::atomic<long> gUses{0};
inline std::atomic<long> gLocks{0};

/// Held by the thread that is in the library, which is single-threaded: clients may have several apartments.
inline std::recursive_mutex gLibrary;

/// Whether the server is being unloaded. Objects that clients failed to release are then left alone: foreign
/// objects may have been destroyed already, and the library's own objects will be.
inline std::atomic<bool> gIsUnloading{false};

/// Base of an object of the server that clients hold through the interfaces `First` and `Rest`. It is created
/// with one reference, which belongs to its creator.
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
    for (ULONG held = mReferences; held > 1;) {
      if (mReferences.compare_exchange_weak(held, held - 1)) return held - 1;
    }
    if (gIsUnloading) return --mReferences;
    const std::scoped_lock lock(gLibrary);  // another thread may be about to find the object
    const ULONG left = --mReferences;
    if (left == 0) delete this;
    return left;
  }

 protected:
  virtual ~Implements() { --gUses; }

  /// The object as that interface, without adding a reference; null where it has none.
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
