#pragma once

#include <algorithm>
#include <concepts>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <ocidl.h>
#include <oleauto.h>
#include <olectl.h>
#include <tests/temporary_folder.h>
#include <windows.h>
#include <wrl/client.h>

namespace lwconfig::testing {

/// What a client of the automation server needs. Nothing here knows the library: objects are made and used
/// through the system's interfaces alone.

using Microsoft::WRL::ComPtr;
using Object = ComPtr<IDispatch>;

std::wstring Wide(std::string_view utf8);
std::string Utf8(std::wstring_view text);

/// A VARIANT that owns its content.
class Value : public VARIANT {
 public:
  Value() noexcept : VARIANT() {}
  template <class T>
  Value(VARTYPE type, T VARIANT::*member, std::type_identity_t<T> content) noexcept : VARIANT() {
    vt = type;
    this->*member = content;
  }
  Value(std::same_as<bool> auto value) noexcept
      : Value(VT_BOOL, &VARIANT::boolVal, value ? VARIANT_TRUE : VARIANT_FALSE) {}
  Value(int value) noexcept : Value(VT_I4, &VARIANT::lVal, value) {}
  Value(const wchar_t* text) : Value(VT_BSTR, &VARIANT::bstrVal, ::SysAllocString(text)) {}
  Value(const Object& object) noexcept : Value(VT_DISPATCH, &VARIANT::pdispVal, Object(object).Detach()) {}
  Value(const Value& other) : Value() { ::VariantCopy(this, const_cast<Value*>(&other)); }
  Value(Value&& other) noexcept : VARIANT(other) { static_cast<VARIANT&>(other).vt = VT_EMPTY; }
  Value& operator=(Value other) noexcept {
    std::swap(static_cast<VARIANT&>(*this), static_cast<VARIANT&>(other));
    return *this;
  }
  ~Value() { ::VariantClear(this); }

  /// Zero, or null, as a value of that type.
  static Value Zero(VARTYPE type) { return {type, &VARIANT::llVal, 0}; }
  /// An argument that was left out.
  static Value Missing() { return {VT_ERROR, &VARIANT::scode, DISP_E_PARAMNOTFOUND}; }
  /// A reference to `to`, which has to live longer.
  static Value Reference(Value& to) { return {VT_VARIANT | VT_BYREF, &VARIANT::pvarVal, &to}; }

  /// The text in it.
  std::wstring_view Text() const { return {bstrVal, ::SysStringLen(bstrVal)}; }
  /// The object in it, or null.
  Object ToObject() const { return vt == VT_DISPATCH ? Object(pdispVal) : Object(); }
  /// Kind and value, objects by their class: `text "a"`, `integer 1`, `object (PageLayout)`, `null`.
  std::string Describe() const;
};

/// How a call ended.
struct Outcome {
  HRESULT Code = S_OK;
  Value Result{};
  std::int32_t Number = 0;  // of the error, as Basic programmers know it; 0 where there is none
  std::wstring Description{};
  std::wstring Source{};

  bool Succeeded() const { return SUCCEEDED(Code); }
  Object ToObject() const { return Result.ToObject(); }
  std::string Describe() const;
};

/// The number of Basic's errors for the code.
std::int32_t NumberOf(HRESULT code);
/// How a call through the vtable ended: what there is to be known of a failure is the thread's error object.
Outcome Ended(HRESULT code);

/// Late-bound calls. `named` are the last of the arguments.
Outcome Invoke(IDispatch* object, DISPID id, WORD kinds, std::vector<Value> arguments = {},
               std::vector<DISPID> named = {});
Outcome Invoke(IDispatch* object, const wchar_t* member, WORD kinds, std::vector<Value> arguments = {});
Outcome Get(const Object& object, const wchar_t* member, std::vector<Value> arguments = {});
Outcome Put(const Object& object, const wchar_t* member, Value value);
Outcome Call(const Object& object, const wchar_t* member, std::vector<Value> arguments = {});
/// What `NewEnum` gives, null where the object has no items.
ComPtr<IEnumVARIANT> Enumerate(const Object& collection);
std::vector<Value> ItemsOf(const Object& collection);
/// The name that type information has, or that it gives a member.
std::string NameOf(ITypeInfo& info, MEMBERID member = MEMBERID_NIL);
/// The class of an object as its type information has it, without the underscore.
std::string ClassOf(IDispatch* object);

/// The DLL under test, loaded for as long as this lives.
class Server {
 public:
  explicit Server(const wchar_t* path = Path()) : mModule(::LoadLibraryW(path), ::FreeLibrary) {}

  static const wchar_t* Path();
  bool IsLoaded() const { return mModule != nullptr; }
  HRESULT GetClassObject(REFCLSID id, REFIID interfaceId, void** object) const {
    return CallExported<REFCLSID, REFIID, void**>("DllGetClassObject", id, interfaceId, object);
  }
  HRESULT CanUnloadNow() const { return CallExported("DllCanUnloadNow"); }
  /// A new object of the class.
  HRESULT Create(REFCLSID id, Object& object) const;

  template <class... P>
  HRESULT CallExported(const char* name, P... arguments) const {
    const auto function = reinterpret_cast<void*>(::GetProcAddress(mModule.get(), name));
    return reinterpret_cast<HRESULT(STDAPICALLTYPE*)(P...)>(function)(arguments...);
  }

 private:
  std::unique_ptr<std::remove_pointer_t<HMODULE>, BOOL(WINAPI*)(HMODULE)> mModule;
};

/// An object of the client. It passes the calls of any member to the handler.
class ForeignObject final : public IDispatch {
 public:
  using Handler = std::function<void(DISPID, const DISPPARAMS&)>;
  explicit ForeignObject(Handler handler = {}) : mHandler(std::move(handler)) { ++gLive; }
  static int Live() { return gLive; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return ++mReferences; }
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  /// Every name is that of the member 0.
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT count, LCID, DISPID* ids) override {
    std::fill_n(ids, count, 0);
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                                   UINT*) override;

 private:
  ~ForeignObject() { --gLive; }
  Handler mHandler;
  ULONG mReferences = 0;
  inline static int gLive = 0;
};

/// A sink's connection to the one source of events that an object has. It stays open until it is closed.
class Connected {
 public:
  Connected(IDispatch* object, ForeignObject::Handler handler);
  HRESULT Close() { return mPoint->Unadvise(std::exchange(mCookie, 0)); }
  const ComPtr<IConnectionPoint>& Point() const { return mPoint; }
  const IID& Source() const { return mSource; }

 private:
  IID mSource{};
  ComPtr<IConnectionPoint> mPoint;
  DWORD mCookie = 0;
};

/// While it lives, "CorvaError.Error" is a component of this process, and keeps its reports.
class ErrorComponent final : private IClassFactory {
 public:
  ErrorComponent();
  ~ErrorComponent();
  ErrorComponent(const ErrorComponent&) = delete;
  ErrorComponent& operator=(const ErrorComponent&) = delete;

  /// The text of an element of the last report; empty where there is none.
  std::wstring Last(const std::wstring& element) const;

  std::vector<std::wstring> Reports;

 private:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID id, void** object) override;
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

  DWORD mRegistration = 0;
};

/// A copy of the starter configuration in a folder of its own, which is the current one, registered for this
/// wine prefix while it lives.
class StarterConfiguration {
 public:
  StarterConfiguration();
  ~StarterConfiguration();

 private:
  TemporaryFolder mFolder;
};

}  // namespace lwconfig::testing
