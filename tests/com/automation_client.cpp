#include <filesystem>
#include <regex>
#include <stdexcept>

#include <tests/com/automation_client.h>

namespace lwconfig::testing {
namespace {

constexpr const wchar_t* kErrorClass = L"{5D1C2A34-8A0E-4F51-9B6E-210C7D33F401}";

const std::wstring kErrorComponent = L"Software\\Classes\\CorvaError.Error";
constexpr const wchar_t* kProduct = L"Software\\WOW6432Node\\Corvantis\\Lexiwend4";

/// Under wine only: elsewhere the registry holds settings of the user.
void SetText(const std::wstring& key, const wchar_t* name, const std::wstring& text) {
  if (::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "wine_get_version") == nullptr)
    throw std::runtime_error("The clients' tests replace what is registered: they run under wine only");
  ::RegSetKeyValueW(HKEY_LOCAL_MACHINE, key.c_str(), name, REG_SZ, text.c_str(),
                    static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

}  // namespace

std::wstring Wide(std::string_view utf8) {
  return std::filesystem::path(std::u8string(utf8.begin(), utf8.end())).wstring();
}

std::string Utf8(std::wstring_view text) {
  const std::u8string utf8 = std::filesystem::path(text).u8string();
  return {utf8.begin(), utf8.end()};
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
      return bstrVal == nullptr ? "null" : "text \"" + Utf8(Text()) + "\"";
    case VT_DISPATCH:
      return pdispVal == nullptr ? "null" : "object (" + ClassOf(pdispVal) + ")";
    case VT_UNKNOWN:
      return punkVal == nullptr ? "null" : "object";
    default:
      return "type " + std::to_string(vt);
  }
}

std::string Outcome::Describe() const {
  if (Succeeded()) return Result.Describe();
  return "error " + std::to_string(Number) + ": " + Utf8(Description) + " (" + Utf8(Source) + ")";
}

std::int32_t NumberOf(HRESULT code) {
  if (HRESULT_FACILITY(code) == FACILITY_CONTROL) return HRESULT_CODE(code);
  if (code == DISP_E_UNKNOWNNAME || code == DISP_E_MEMBERNOTFOUND) return 438;
  return code == CLASS_E_CLASSNOTAVAILABLE ? 429 : code;
}

Outcome Ended(HRESULT code) {
  ComPtr<IErrorInfo> info;
  Value description = Value::Zero(VT_BSTR);
  Value source = Value::Zero(VT_BSTR);
  if (::GetErrorInfo(0, &info) == S_OK) {
    info->GetDescription(&description.bstrVal);
    info->GetSource(&source.bstrVal);
  }
  return {code, {}, NumberOf(code), std::wstring(description.Text()), std::wstring(source.Text())};
}

Outcome Invoke(IDispatch* object, DISPID id, WORD kinds, std::vector<Value> arguments,
               std::vector<DISPID> named) {
  std::vector<VARIANT> reversed(arguments.rbegin(), arguments.rend());
  const bool isPut = (kinds & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
  std::vector<DISPID> names(named.rbegin(), named.rend());
  if (isPut) names.insert(names.begin(), DISPID{DISPID_PROPERTYPUT});
  DISPPARAMS parameters{reversed.data(), names.data(), static_cast<UINT>(reversed.size()),
                        static_cast<UINT>(names.size())};
  EXCEPINFO failure{};
  Value result;
  ::SetErrorInfo(0, nullptr);
  const HRESULT code = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kinds, &parameters,
                                      isPut ? nullptr : &result, &failure, nullptr);
  Outcome outcome = Ended(code);
  outcome.Result = std::move(result);
  if (code == DISP_E_EXCEPTION) {
    outcome.Code = failure.scode;
    outcome.Number = NumberOf(failure.scode);
    outcome.Description.assign(failure.bstrDescription, ::SysStringLen(failure.bstrDescription));
    outcome.Source.assign(failure.bstrSource, ::SysStringLen(failure.bstrSource));
  }
  for (BSTR text : {failure.bstrDescription, failure.bstrSource, failure.bstrHelpFile}) ::SysFreeString(text);
  return outcome;
}

Outcome Invoke(IDispatch* object, const wchar_t* member, WORD kinds, std::vector<Value> arguments) {
  DISPID id = DISPID_UNKNOWN;
  std::wstring name(member);
  wchar_t* names[] = {name.data()};
  ::SetErrorInfo(0, nullptr);
  const HRESULT code = object->GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id);
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

ComPtr<IEnumVARIANT> Enumerate(const Object& collection) {
  const Outcome all = Invoke(collection.Get(), DISPID_NEWENUM, DISPATCH_PROPERTYGET);
  ComPtr<IEnumVARIANT> items;
  if (all.Result.vt == VT_UNKNOWN) all.Result.punkVal->QueryInterface(IID_PPV_ARGS(&items));
  return items;
}

std::vector<Value> ItemsOf(const Object& collection) {
  const auto items = Enumerate(collection);
  std::vector<Value> found;
  for (Value item; items && items->Next(1, &item, nullptr) == S_OK; item = Value()) found.push_back(item);
  return found;
}

std::string NameOf(ITypeInfo& info, MEMBERID member) {
  Value name = Value::Zero(VT_BSTR);
  info.GetDocumentation(member, &name.bstrVal, nullptr, nullptr, nullptr);
  return Utf8(name.Text());
}

std::string ClassOf(IDispatch* object) {
  ComPtr<ITypeInfo> info;
  if (FAILED(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, &info))) return "";
  const std::string name = NameOf(*info.Get());
  return name.starts_with('_') ? name.substr(1) : name;
}

const wchar_t* Server::Path() {
  static const std::wstring path = std::filesystem::path(LWCONFIG_SERVER).make_preferred().wstring();
  return path.c_str();
}

HRESULT Server::Create(REFCLSID id, Object& object) const {
  ComPtr<IClassFactory> factory;
  const HRESULT code = GetClassObject(id, IID_PPV_ARGS(&factory));
  return FAILED(code) ? code : factory->CreateInstance(nullptr, IID_PPV_ARGS(&object));
}

HRESULT ForeignObject::QueryInterface(REFIID id, void** object) {
  const bool isKnown = id == __uuidof(IUnknown) || id == __uuidof(IDispatch);
  *object = isKnown ? this : nullptr;
  if (isKnown) AddRef();
  return isKnown ? S_OK : E_NOINTERFACE;
}

ULONG ForeignObject::Release() {
  const ULONG left = --mReferences;
  if (left == 0) delete this;
  return left;
}

HRESULT ForeignObject::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* arguments, VARIANT*, EXCEPINFO*,
                              UINT*) {
  // The handler may let go of this object.
  const ComPtr<IUnknown> keep(this);
  if (mHandler) mHandler(id, *arguments);
  return S_OK;
}

Connected::Connected(IDispatch* object, ForeignObject::Handler handler) {
  ComPtr<IProvideClassInfo2> described;
  ComPtr<IConnectionPointContainer> container;
  if (SUCCEEDED(object->QueryInterface(IID_PPV_ARGS(&described))) &&
      SUCCEEDED(object->QueryInterface(IID_PPV_ARGS(&container))) &&
      SUCCEEDED(described->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &mSource)) &&
      SUCCEEDED(container->FindConnectionPoint(mSource, &mPoint)))
    mPoint->Advise(Object(new ForeignObject(std::move(handler))).Get(), &mCookie);
}

ErrorComponent::ErrorComponent() {
  SetText(kErrorComponent + L"\\CLSID", nullptr, kErrorClass);
  CLSID id{};
  ::CLSIDFromString(kErrorClass, &id);
  ::CoRegisterClassObject(id, this, CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &mRegistration);
}

ErrorComponent::~ErrorComponent() {
  ::CoRevokeClassObject(mRegistration);
  ::RegDeleteTreeW(HKEY_LOCAL_MACHINE, kErrorComponent.c_str());
}

HRESULT ErrorComponent::QueryInterface(REFIID id, void** object) {
  const bool isKnown = id == __uuidof(IUnknown) || id == __uuidof(IClassFactory);
  *object = isKnown ? this : nullptr;
  return isKnown ? S_OK : E_NOINTERFACE;
}

HRESULT ErrorComponent::CreateInstance(IUnknown* /*outer*/, REFIID id, void** object) {
  const Object component = new ForeignObject([this](DISPID, const DISPPARAMS& arguments) {
    for (UINT at = 0; at < arguments.cArgs; ++at) {
      if (arguments.rgvarg[at].vt == VT_BSTR) Reports.emplace_back(arguments.rgvarg[at].bstrVal);
    }
  });
  return component->QueryInterface(id, object);
}

std::wstring ErrorComponent::Last(const std::wstring& element) const {
  std::wsmatch found;
  const std::wregex wanted(L"<" + element + L">([^<]*)<");
  return !Reports.empty() && std::regex_search(Reports.back(), found, wanted) ? found[1].str() : L"";
}

StarterConfiguration::StarterConfiguration() {
  const std::wstring folder = mFolder.Path().wstring();
  std::filesystem::copy(LWCONFIG_STARTER, folder, std::filesystem::copy_options::recursive);
  for (const wchar_t* name : {L"ConfigPath", L"InstallPath4"}) SetText(kProduct, name, folder + L"\\");
  ::SetCurrentDirectoryW(folder.c_str());
}

StarterConfiguration::~StarterConfiguration() {
  ::SetCurrentDirectoryW(L"C:\\");
  ::RegDeleteTreeW(HKEY_LOCAL_MACHINE, kProduct);
  ::RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\Corvantis");
}

}  // namespace lwconfig::testing
