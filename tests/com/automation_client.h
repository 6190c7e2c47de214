#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <ocidl.h>
#include <oleauto.h>
#include <olectl.h>
#include <windows.h>
#include <wrl/client.h>

namespace lwconfig::testing {

/// What a client of the automation server needs. Nothing here knows the library: objects are made and used
/// through the system's interfaces alone.

using Microsoft::WRL::ComPtr;
using Object = ComPtr<IDispatch>;

std::wstring Wide(std::string_view utf8);
std::string Utf8(std::wstring_view text);

/// A VARIANT that owns what it holds.
class Value : public VARIANT {
 public:
  Value() noexcept { ::VariantInit(this); }
  Value(bool value) noexcept : Value() {
    vt = VT_BOOL;
    boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
  }
  Value(int value) noexcept : Value() {
    vt = VT_I4;
    lVal = value;
  }
  Value(const wchar_t* text) : Value() {
    vt = VT_BSTR;
    bstrVal = ::SysAllocString(text);
  }
  Value(IDispatch* object) noexcept : Value() {
    vt = VT_DISPATCH;
    pdispVal = object;
    if (object != nullptr) object->AddRef();
  }
  Value(const Object& object) noexcept : Value(object.Get()) {}
  Value(const Value& other) : Value() { ::VariantCopy(this, const_cast<Value*>(&other)); }
  Value(Value&& other) noexcept : VARIANT(other) { static_cast<VARIANT&>(other).vt = VT_EMPTY; }
  Value& operator=(Value other) noexcept {
    std::swap(static_cast<VARIANT&>(*this), static_cast<VARIANT&>(other));
    return *this;
  }
  ~Value() { ::VariantClear(this); }

  /// An argument that was left out.
  static Value Missing();
  /// A reference to the other one, which has to live longer.
  static Value Reference(Value& to);

  /// The object in it, or null.
  Object ToObject() const;
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
/// Follows properties from one object to the next.
Object Walk(Object object, std::initializer_list<const wchar_t*> members);
/// The items that `NewEnum` gives.
std::vector<Value> ItemsOf(const Object& collection);
/// Whether both are the same object, or none.
bool AreSame(IUnknown* a, IUnknown* b);
/// The class of an object as its type information has it, without the underscore.
std::string ClassOf(IDispatch* object);

/// The DLL under test, loaded for as long as this lives.
class Server {
 public:
  Server();
  ~Server();
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  static const wchar_t* Path();
  bool IsLoaded() const { return mModule != nullptr; }
  HRESULT GetClassObject(REFCLSID id, REFIID interfaceId, void** object) const;
  HRESULT CanUnloadNow() const;
  /// A new object of the published class; the code of the failure where there is none.
  HRESULT Create(std::string_view className, Object& object) const;
  Object Create(std::string_view className) const;

  const ComPtr<ITypeLib>& Types() const { return mTypes; }
  /// The class with that name, or null.
  ComPtr<ITypeInfo> ClassInfo(std::string_view className) const;

 private:
  HMODULE mModule;
  ComPtr<ITypeLib> mTypes;
};

/// An object of somebody else. Calls of any member go to the function; it lives as long as references to it.
class ForeignObject final : public IDispatch {
 public:
  using Handler = std::function<void(DISPID, const DISPPARAMS&)>;
  /// Answers for the events with that identity too.
  explicit ForeignObject(Handler handler = {}, const IID& events = IID_IDispatch)
      : mHandler(std::move(handler)), mEvents(events) {
    ++gLive;
  }
  static int Live() { return gLive; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override;
  ULONG STDMETHODCALLTYPE AddRef() override { return ++mReferences; }
  ULONG STDMETHODCALLTYPE Release() override;
  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override;
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID id, LPOLESTR* names, UINT count, LCID locale,
                                          DISPID* ids) override;
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID interfaceId, LCID locale, WORD kinds,
                                   DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* failure,
                                   UINT* argument) override;

 private:
  ~ForeignObject() { --gLive; }
  Handler mHandler;
  IID mEvents;
  ULONG mReferences = 0;
  inline static int gLive = 0;
};
Object NewForeign(ForeignObject::Handler handler = {}, const IID& events = IID_IDispatch);

/// While it lives, "CorvaError.Error" is a component of this process, which keeps the reports it gets.
class ErrorComponent {
 public:
  ErrorComponent();
  ~ErrorComponent();
  ErrorComponent(const ErrorComponent&) = delete;
  ErrorComponent& operator=(const ErrorComponent&) = delete;

  const std::vector<std::wstring>& Reports() const { return mReports; }
  /// The text of an element of the last report; empty where there is none.
  std::wstring Last(const wchar_t* element) const;
  void Forget() { mReports.clear(); }

 private:
  std::vector<std::wstring> mReports;
  DWORD mRegistration = 0;
};

/// A copy of the starter configuration in a folder of its own, registered for this wine prefix while it
/// lives.
class StarterConfiguration {
 public:
  StarterConfiguration();
  ~StarterConfiguration();
  StarterConfiguration(const StarterConfiguration&) = delete;
  StarterConfiguration& operator=(const StarterConfiguration&) = delete;
  const std::wstring& Folder() const { return mFolder; }

 private:
  std::wstring mFolder;
};

}  // namespace lwconfig::testing
