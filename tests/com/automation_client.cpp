#include <array>
#include <filesystem>

#include <tests/com/automation_client.h>

namespace lwconfig::testing {
namespace {

constexpr IID kNoId{};
constexpr CLSID kErrorClass{0x5d1c2a34, 0x8a0e, 0x4f51, {0x9b, 0x6e, 0x21, 0x0c, 0x7d, 0x33, 0xf4, 0x01}};

HRESULT TypeOf(IDispatch* object, ComPtr<ITypeInfo>& info) {
  return object->GetTypeInfo(0, LOCALE_USER_DEFAULT, &info);
}

/// Makes objects for the error component's class.
class Factory final : public IClassFactory {
 public:
  explicit Factory(Object object) : mObject(std::move(object)) {}
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool isKnown = id == __uuidof(IUnknown) || id == __uuidof(IClassFactory);
    *object = isKnown ? this : nullptr;
    if (isKnown) AddRef();
    return isKnown ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++mReferences; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --mReferences;
    if (left == 0) delete this;
    return left;
  }
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID id, void** object) override {
    return mObject->QueryInterface(id, object);
  }
  HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }

 private:
  ~Factory() = default;
  Object mObject;
  ULONG mReferences = 0;
};

void SetText(const wchar_t* key, const wchar_t* name, const std::wstring& text, REGSAM view) {
  HKEY opened = nullptr;
  if (::RegCreateKeyExW(HKEY_LOCAL_MACHINE, key, 0, nullptr, 0, KEY_WRITE | view, nullptr, &opened,
                        nullptr) != ERROR_SUCCESS)
    return;
  ::RegSetValueExW(opened, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                   static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
  ::RegCloseKey(opened);
}

/// The product's values are those of 32-bit programs.
void SetProductText(const wchar_t* name, const std::wstring& text) {
  SetText(L"Software\\Corvantis\\Lexiwend4", name, text, KEY_WOW64_32KEY);
}

}  // namespace

std::wstring Wide(std::string_view utf8) {
  const int size = static_cast<int>(utf8.size());
  std::wstring text(
      static_cast<std::size_t>(::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0)), L'\0');
  ::MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, text.data(), static_cast<int>(text.size()));
  return text;
}

std::string Utf8(std::wstring_view text) {
  const int size = static_cast<int>(text.size());
  std::string utf8(static_cast<std::size_t>(
                       ::WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr)),
                   '\0');
  ::WideCharToMultiByte(CP_UTF8, 0, text.data(), size, utf8.data(), static_cast<int>(utf8.size()), nullptr,
                        nullptr);
  return utf8;
}

Value Value::Missing() {
  Value value;
  value.vt = VT_ERROR;
  value.scode = DISP_E_PARAMNOTFOUND;
  return value;
}

Value Value::Reference(Value& to) {
  Value value;
  value.vt = VT_VARIANT | VT_BYREF;
  value.pvarVal = &to;
  return value;
}

Object Value::ToObject() const {
  return vt == VT_DISPATCH ? Object(pdispVal) : Object();
}

std::string Value::Describe() const {
  switch (vt) {
    case VT_EMPTY:
    case VT_NULL:
      return "null";
    case VT_BOOL:
      return boolVal != VARIANT_FALSE ? "boolean True" : "boolean False";
    case VT_I2:
      return "integer " + std::to_string(iVal);
    case VT_I4:
      return "integer " + std::to_string(lVal);
    case VT_R8:
      return "number " + std::to_string(dblVal);
    case VT_BSTR:
      return "text \"" + Utf8({bstrVal, ::SysStringLen(bstrVal)}) + "\"";
    case VT_DISPATCH:
      return pdispVal == nullptr ? "null" : "object (" + ClassOf(pdispVal) + ")";
    case VT_UNKNOWN:
      return punkVal == nullptr ? "null" : "object";
    default:
      return "type " + std::to_string(vt);
  }
}

std::string Outcome::Describe() const {
  return Succeeded()
             ? Result.Describe()
             : "error " + std::to_string(Number) + ": " + Utf8(Description) + " (" + Utf8(Source) + ")";
}

std::int32_t NumberOf(HRESULT code) {
  static constexpr std::array<std::pair<HRESULT, std::int32_t>, 9> kNumbers{
      {{DISP_E_UNKNOWNNAME, 438},
       {DISP_E_MEMBERNOTFOUND, 438},
       {DISP_E_TYPEMISMATCH, 13},
       {DISP_E_OVERFLOW, 6},
       {DISP_E_BADPARAMCOUNT, 450},
       {DISP_E_PARAMNOTOPTIONAL, 449},
       {DISP_E_PARAMNOTFOUND, 448},
       {DISP_E_NONAMEDARGS, 446},
       {CLASS_E_CLASSNOTAVAILABLE, 429}}};
  if (SUCCEEDED(code)) return 0;
  if (HRESULT_FACILITY(code) == FACILITY_CONTROL) return HRESULT_CODE(code);
  for (const auto& [known, number] : kNumbers) {
    if (known == code) return number;
  }
  return code;
}

Outcome Ended(HRESULT code) {
  Outcome outcome{code};
  ComPtr<IErrorInfo> info;
  const bool isTold = ::GetErrorInfo(0, &info) == S_OK;
  if (SUCCEEDED(code)) return outcome;
  outcome.Number = NumberOf(code);
  if (isTold) {
    Value text;
    text.vt = VT_BSTR;
    info->GetDescription(&text.bstrVal);
    outcome.Description.assign(text.bstrVal, ::SysStringLen(text.bstrVal));
    ::SysFreeString(std::exchange(text.bstrVal, nullptr));
    info->GetSource(&text.bstrVal);
    outcome.Source.assign(text.bstrVal, ::SysStringLen(text.bstrVal));
  }
  return outcome;
}

Outcome Invoke(IDispatch* object, DISPID id, WORD kinds, std::vector<Value> arguments,
               std::vector<DISPID> named) {
  std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
  DISPID put = DISPID_PROPERTYPUT;
  const bool isPut = (kinds & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  std::vector<DISPID> names(named.rbegin(), named.rend());
  if (isPut) names.insert(names.begin(), put);
  DISPPARAMS parameters{reversed.data(), names.data(), static_cast<UINT>(reversed.size()),
                        static_cast<UINT>(names.size())};
  EXCEPINFO failure{};
  UINT argument = 0;
  Value result;
  ::SetErrorInfo(0, nullptr);
  const HRESULT code = object->Invoke(id, kNoId, LOCALE_USER_DEFAULT, kinds, &parameters,
                                      isPut ? nullptr : &result, &failure, &argument);
  Outcome outcome = Ended(code);
  outcome.Result = std::move(result);
  if (code == DISP_E_EXCEPTION) {
    if (failure.pfnDeferredFillIn != nullptr) failure.pfnDeferredFillIn(&failure);
    outcome.Code = failure.scode;
    outcome.Number = NumberOf(failure.scode);
    outcome.Description.assign(failure.bstrDescription, ::SysStringLen(failure.bstrDescription));
    outcome.Source.assign(failure.bstrSource, ::SysStringLen(failure.bstrSource));
  }
  ::SysFreeString(failure.bstrDescription);
  ::SysFreeString(failure.bstrSource);
  ::SysFreeString(failure.bstrHelpFile);
  return outcome;
}

Outcome Invoke(IDispatch* object, const wchar_t* member, WORD kinds, std::vector<Value> arguments) {
  DISPID id = DISPID_UNKNOWN;
  std::wstring name(member);
  wchar_t* names[] = {name.data()};
  ::SetErrorInfo(0, nullptr);
  const HRESULT code = object->GetIDsOfNames(kNoId, names, 1, LOCALE_USER_DEFAULT, &id);
  return FAILED(code) ? Ended(code) : Invoke(object, id, kinds, std::move(arguments));
}

Outcome Get(const Object& object, const wchar_t* member, std::vector<Value> arguments) {
  return Invoke(object.Get(), member, DISPATCH_PROPERTYGET, std::move(arguments));
}
Outcome Put(const Object& object, const wchar_t* member, Value value) {
  return Invoke(object.Get(), member, DISPATCH_PROPERTYPUT, {std::move(value)});
}
Outcome Call(const Object& object, const wchar_t* member, std::vector<Value> arguments) {
  return Invoke(object.Get(), member, DISPATCH_METHOD, std::move(arguments));
}

Object Walk(Object object, std::initializer_list<const wchar_t*> members) {
  for (const wchar_t* member : members) {
    if (object) object = Get(object, member).ToObject();
  }
  return object;
}

std::vector<Value> ItemsOf(const Object& collection) {
  const Outcome all = Invoke(collection.Get(), DISPID_NEWENUM, DISPATCH_PROPERTYGET);
  ComPtr<IEnumVARIANT> items;
  std::vector<Value> found;
  if (all.Result.vt != VT_UNKNOWN || FAILED(all.Result.punkVal->QueryInterface(IID_PPV_ARGS(&items))))
    return found;
  for (Value item; items->Next(1, &item, nullptr) == S_OK; item = Value()) found.push_back(item);
  return found;
}

bool AreSame(IUnknown* a, IUnknown* b) {
  ComPtr<IUnknown> first;
  ComPtr<IUnknown> second;
  if (a != nullptr) a->QueryInterface(IID_PPV_ARGS(&first));
  if (b != nullptr) b->QueryInterface(IID_PPV_ARGS(&second));
  return first.Get() == second.Get();
}

std::string ClassOf(IDispatch* object) {
  ComPtr<ITypeInfo> info;
  Value name;
  if (FAILED(TypeOf(object, info)) || !info) return "";
  name.vt = VT_BSTR;
  info->GetDocumentation(MEMBERID_NIL, &name.bstrVal, nullptr, nullptr, nullptr);
  const std::string text = Utf8({name.bstrVal, ::SysStringLen(name.bstrVal)});
  return text.starts_with('_') ? text.substr(1) : text;
}

Server::Server() : mModule(::LoadLibraryW(Path())) {
  ::LoadTypeLibEx(Path(), REGKIND_NONE, &mTypes);
}

Server::~Server() {
  mTypes.Reset();
  if (mModule != nullptr) ::FreeLibrary(mModule);
}

const wchar_t* Server::Path() {
  static const std::wstring path = std::filesystem::path(LWCONFIG_SERVER).make_preferred().wstring();
  return path.c_str();
}

HRESULT Server::GetClassObject(REFCLSID id, REFIID interfaceId, void** object) const {
  using Function = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
  const auto get =
      reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(mModule, "DllGetClassObject")));
  return get == nullptr ? E_FAIL : get(id, interfaceId, object);
}

HRESULT Server::CanUnloadNow() const {
  using Function = HRESULT(STDAPICALLTYPE*)();
  const auto ask =
      reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(mModule, "DllCanUnloadNow")));
  return ask == nullptr ? E_FAIL : ask();
}

ComPtr<ITypeInfo> Server::ClassInfo(std::string_view className) const {
  std::wstring name = Wide(className);
  std::array<ITypeInfo*, 8> found{};
  std::array<MEMBERID, 8> members{};
  USHORT count = static_cast<USHORT>(found.size());
  ComPtr<ITypeInfo> result;
  if (!mTypes || FAILED(mTypes->FindName(name.data(), 0, found.data(), members.data(), &count)))
    return result;
  for (USHORT at = 0; at < count; ++at) {
    TYPEATTR* attributes = nullptr;
    if (SUCCEEDED(found[at]->GetTypeAttr(&attributes))) {
      if (attributes->typekind == TKIND_COCLASS) result = found[at];
      found[at]->ReleaseTypeAttr(attributes);
    }
    found[at]->Release();
  }
  return result;
}

HRESULT Server::Create(std::string_view className, Object& object) const {
  const auto info = ClassInfo(className);
  TYPEATTR* attributes = nullptr;
  if (!info || FAILED(info->GetTypeAttr(&attributes))) return TYPE_E_ELEMENTNOTFOUND;
  const CLSID id = attributes->guid;
  info->ReleaseTypeAttr(attributes);
  ComPtr<IClassFactory> factory;
  const HRESULT code = GetClassObject(id, IID_PPV_ARGS(&factory));
  return FAILED(code) ? code : factory->CreateInstance(nullptr, IID_PPV_ARGS(&object));
}

Object Server::Create(std::string_view className) const {
  Object object;
  Create(className, object);
  return object;
}

HRESULT ForeignObject::QueryInterface(REFIID id, void** object) {
  const bool isKnown = id == __uuidof(IUnknown) || id == __uuidof(IDispatch) || id == mEvents;
  *object = isKnown ? this : nullptr;
  if (isKnown) AddRef();
  return isKnown ? S_OK : E_NOINTERFACE;
}

ULONG ForeignObject::Release() {
  const ULONG left = --mReferences;
  if (left == 0) delete this;
  return left;
}

HRESULT ForeignObject::GetTypeInfoCount(UINT* count) {
  *count = 0;
  return S_OK;
}

HRESULT ForeignObject::GetTypeInfo(UINT /*index*/, LCID /*locale*/, ITypeInfo** info) {
  *info = nullptr;
  return DISP_E_BADINDEX;
}

HRESULT ForeignObject::GetIDsOfNames(REFIID /*id*/, LPOLESTR* /*names*/, UINT count, LCID /*locale*/,
                                     DISPID* ids) {
  for (UINT at = 0; at < count; ++at) ids[at] = static_cast<DISPID>(at);
  return S_OK;
}

HRESULT ForeignObject::Invoke(DISPID id, REFIID /*interfaceId*/, LCID /*locale*/, WORD /*kinds*/,
                              DISPPARAMS* arguments, VARIANT* result, EXCEPINFO* /*failure*/,
                              UINT* /*argument*/) {
  if (result != nullptr) ::VariantInit(result);
  // The handler may let go of this object.
  const ComPtr<IUnknown> keep(this);
  const Handler handler = mHandler;
  if (handler) handler(id, *arguments);
  return S_OK;
}

Object NewForeign(ForeignObject::Handler handler, const IID& events) {
  return new ForeignObject(std::move(handler), events);
}

ErrorComponent::ErrorComponent() {
  wchar_t* id = nullptr;
  ::StringFromCLSID(kErrorClass, &id);
  // The key may stay: without a process that offers the class, the component cannot be created.
  SetText(L"Software\\Classes\\CorvaError.Error\\CLSID", nullptr, id, 0);
  ::CoTaskMemFree(id);
  const ComPtr<IClassFactory> factory(new Factory(NewForeign([this](DISPID, const DISPPARAMS& arguments) {
    for (UINT at = 0; at < arguments.cArgs; ++at) {
      if (arguments.rgvarg[at].vt == VT_BSTR) mReports.emplace_back(arguments.rgvarg[at].bstrVal);
    }
  })));
  ::CoRegisterClassObject(kErrorClass, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE,
                          &mRegistration);
}

ErrorComponent::~ErrorComponent() {
  ::CoRevokeClassObject(mRegistration);
}

std::wstring ErrorComponent::Last(const wchar_t* element) const {
  if (mReports.empty()) return L"";
  const std::wstring name(element);
  const std::wstring& report = mReports.back();
  const auto start = report.find(L"<" + name + L">");
  const auto end = report.find(L"</" + name + L">");
  return start == std::wstring::npos || end == std::wstring::npos
             ? L""
             : report.substr(start + name.size() + 2, end - start - name.size() - 2);
}

StarterConfiguration::StarterConfiguration()
    : mFolder((std::filesystem::temp_directory_path() /
               ("lwconfig-com-" + std::to_string(::GetCurrentProcessId()) + "-" +
                std::to_string(::GetTickCount64())))
                  .wstring()) {
  std::filesystem::copy(LWCONFIG_STARTER, mFolder, std::filesystem::copy_options::recursive);
  SetProductText(L"ConfigPath", mFolder + L"\\");
  SetProductText(L"InstallPath4", mFolder + L"\\");
}

StarterConfiguration::~StarterConfiguration() {
  SetProductText(L"ConfigPath", L"");
  SetProductText(L"InstallPath4", L"");
  ::RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Corvantis");
  std::error_code ignored;
  std::filesystem::remove_all(mFolder, ignored);
}

}  // namespace lwconfig::testing
