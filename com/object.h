#pragma once

#include <lwconfig/core/base/variant.h>
#include <lwconfig/platform/windows/system.h>

#include "class_binding.h"
#include "unknown.h"

namespace lwconfig::com {

/// Recognises the server's own objects among those that clients pass.
struct IOwnObject : IUnknown {
  virtual const AnyObject& Model() const = 0;
  /// The same address for all objects of one copy of the server: a process may have loaded another copy,
  /// whose objects are foreign.
  virtual const void* Home() const = 0;

 protected:
  ~IOwnObject() = default;
};

}  // namespace lwconfig::com

__CRT_UUID_DECL(lwconfig::com::IOwnObject, 0x2E9B70C3, 0x51D8, 0x4F0A, 0xA6, 0x3D, 0x18, 0xC4, 0x7F, 0x05,
                0xB2, 0x9E)

namespace lwconfig::com {

class Object;

/// The dual interface of an object: a client's pointer refers to this. `Entries` is the vtable:
///
///     0     QueryInterface, AddRef, Release                             IUnknown
///     3     GetTypeInfoCount, GetTypeInfo, GetIDsOfNames, Invoke        IDispatch
///     7     one entry for each slot of the class, in the order of its table
///
/// All objects of a class share it. Each entry takes the `DualInterface*` first and finds the object in
/// `Owner`; an entry of a slot then takes the arguments, in words, and the place for the result.
struct DualInterface {
  const void* const* Entries;
  Object* Owner;
};

/// An object of the library as clients hold it. There is at most one for each object of the library at any
/// time, so that equal references are equal to clients too. It keeps the library's object alive.
class Object final
    : public Implements<IOwnObject, IProvideClassInfo2, ISupportErrorInfo, IConnectionPointContainer> {
 public:
  /// The object of the library as its clients hold it: the caller releases the result.
  static IDispatch* Publish(const AnyObject& model);

  const AnyObject& Model() const override { return mModel; }
  const void* Home() const override { return &gUses; }
  const ClassBinding& Binding() const { return *mBinding; }

  HRESULT STDMETHODCALLTYPE GetClassInfo(ITypeInfo** result) override;
  HRESULT STDMETHODCALLTYPE GetGUID(DWORD kind, GUID* result) override;
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID id) override;
  HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints** result) override;
  HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID id, IConnectionPoint** result) override;

 private:
  explicit Object(const AnyObject& model);
  ~Object() override;
  void* Find(REFIID id) override;

  AnyObject mModel;
  const ClassBinding* mBinding;
  DualInterface mDual;
};

}  // namespace lwconfig::com
