#include <array>
#include <cstdlib>
#include <random>

#include <tests/com/fixture.h>

namespace lwconfig::testing {
namespace {

/// Makes calls that no sane client makes. Nothing outside the test's own folder and registry is named by the
/// texts, positions and numbers.
class RandomClient {
 public:
  RandomClient(const Server& server, unsigned seed) : mCalled(server), mArguments(server), mRandom(seed) {
    for (const SlotClass& info : SlotClasses()) mObjects.push_back({mCalled.Of(info.Name), true});
  }

  HRESULT Call() {
    const std::size_t at = Below(mObjects.size());
    const Target target = mObjects[at];
    switch (Below(8)) {
      case 0:
        return CallLate(target);
      case 1:
        return CallLateByName(target);
      case 2:
        return AskForInterfaces(target);
      default:
        return CallSlot(target);
    }
  }

 private:
  /// Objects that calls gave are not given objects, so that nothing ends up inside itself.
  struct Target {
    Object Pointer;
    bool TakesObjects;
  };

  std::size_t Below(std::size_t limit) { return mRandom() % limit; }
  bool OneIn(std::size_t count) { return Below(count) == 0; }
  int Number() {
    static constexpr std::array<int, 8> kNumbers{0, 1, 2, 3, -1, 7, INT_MAX, INT_MIN};
    return kNumbers.at(Below(kNumbers.size()));
  }
  std::wstring Text() {
    static const std::wstring texts[]{
        L"", L"a", L"1", L"True", {L"a\0b", 3}, L"\xD800", L"%%a%%", L"LW:Method", L"<a b='1'><c/></a>"};
    return OneIn(50) ? std::wstring(70'000, L'x') : texts[Below(std::size(texts))];
  }
  Object AnObject() {
    const std::size_t at = Below(SlotClasses().size() + 2);
    if (at >= SlotClasses().size()) return at % 2 == 0 ? Object() : NewForeign();
    return mArguments.Of(SlotClasses()[at].Name);
  }

  Value TextValue() {
    Value value = Value::Zero(VT_BSTR);
    const std::wstring text = Text();
    value.bstrVal = OneIn(5) ? nullptr : ::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    return value;
  }

  /// Of any type that a variant can have, with and without something in it.
  Value Anything(bool takesObjects) {
    Value value;
    switch (Below(8)) {
      case 0:
        return TextValue();
      case 1:
        return OneIn(2) ? Value(Number()) : Value::Missing();
      case 2:
        return takesObjects ? Value(AnObject()) : value;
      case 3:
        value.vt = static_cast<VARTYPE>(VT_ARRAY | (OneIn(2) ? VT_VARIANT : VT_I4));
        value.parray = OneIn(3) ? nullptr : ::SafeArrayCreateVector(value.vt & VT_TYPEMASK, 0, 2);
        return value;
      case 4: {  // a reference, also to nothing or to itself
        Value& place = mPlaces.at(Below(mPlaces.size()));
        place = OneIn(8) ? Value::Reference(place) : Value(Number());
        if (OneIn(3)) return Value::Reference(place);
        value.vt = static_cast<VARTYPE>(VT_BYREF | kScalars.at(Below(kScalars.size())));
        value.byref = OneIn(4) ? nullptr : &place.llVal;
        return value;
      }
      case 5:  // somebody else's object that is no automation object
        if (takesObjects) value.vt = VT_UNKNOWN;
        if (takesObjects && !OneIn(3))
          ::CreateStreamOnHGlobal(nullptr, TRUE, reinterpret_cast<IStream**>(&value.punkVal));
        return value;
      case 6:
        value.vt = VT_R8;
        value.dblVal = OneIn(2) ? 1e300 : 0.5;
        return value;
      default:
        value.decVal.Lo64 = mRandom();
        value.vt = OneIn(9) ? static_cast<VARTYPE>(0x0F00 + Below(16)) : kScalars.at(Below(kScalars.size()));
        return value;
    }
  }

  Value Suitable(const SlotParameter& parameter, bool takesObjects) {
    Value value;
    switch (parameter.Type) {
      case VT_BSTR:
        return TextValue();
      case VT_I2:
      case VT_I4:
        value = Number();
        value.vt = parameter.Type;
        return value;
      case VT_VARIANT:
        return Anything(takesObjects);
      default: {
        const Object right = mArguments.With(*parameter.Interface);
        return takesObjects ? Value(OneIn(2) ? right : AnObject()) : Value(Object());
      }
    }
  }

  HRESULT CallSlot(const Target& target) {
    std::vector<const Slot*> slots;
    const std::string name = ClassOf(target.Pointer.Get());
    for (const Slot& slot : Slots()) {
      if (slot.Class == name) slots.push_back(&slot);
    }
    if (slots.empty()) return S_FALSE;
    const Slot& slot = *slots[Below(slots.size())];
    std::vector<Value> values;
    for (const SlotParameter& parameter : slot.Parameters)
      values.push_back(Suitable(parameter, target.TakesObjects));
    if (slot.HasResult) {
      const VARTYPE type = slot.Parameters.back().Type;
      values.back() = Value::Zero(type == VT_VARIANT ? VARTYPE{VT_EMPTY} : type);
    }
    Object typed;
    target.Pointer->QueryInterface(*slot.Interface, &typed);
    const HRESULT code =
        slot.Call(typed.Get(), values.data(), OneIn(3) ? static_cast<unsigned>(Below(64)) : 0);
    for (const Value& value : values) Keep(value);
    return code;
  }

  HRESULT CallLate(const Target& target) {
    std::vector<Value> values(Below(8));
    for (Value& value : values) value = Anything(target.TakesObjects);
    std::vector<VARIANT> passed(values.begin(), values.end());
    std::vector<DISPID> names(Below(values.size() + 2));
    for (DISPID& name : names) name = OneIn(2) ? DISPID_PROPERTYPUT : static_cast<DISPID>(Below(9)) - 2;
    DISPPARAMS parameters{OneIn(20) ? nullptr : passed.data(), OneIn(20) ? nullptr : names.data(),
                          static_cast<UINT>(passed.size()), static_cast<UINT>(names.size())};
    Value result;
    EXCEPINFO failure{};
    UINT argument = 0;
    const IID& reserved = OneIn(20) ? IID_IDispatch : IID_NULL;
    const HRESULT code = target.Pointer->Invoke(
        static_cast<DISPID>(Below(60)) - 8, reserved, LOCALE_USER_DEFAULT,
        static_cast<WORD>(OneIn(10) ? mRandom() : Below(16)), OneIn(20) ? nullptr : &parameters,
        OneIn(3) ? nullptr : &result, OneIn(3) ? nullptr : &failure, OneIn(2) ? nullptr : &argument);
    ::SysFreeString(failure.bstrDescription);
    ::SysFreeString(failure.bstrSource);
    ::SysFreeString(failure.bstrHelpFile);
    Keep(result);
    return code;
  }

  /// A member that there is, with the right number of arguments or not.
  HRESULT CallLateByName(const Target& target) {
    const Slot& slot = Slots()[Below(Slots().size())];
    std::wstring name = OneIn(10) ? Text() : slot.Member;
    wchar_t* names[]{OneIn(20) ? nullptr : name.data(), OneIn(2) ? name.data() : nullptr};
    std::array<DISPID, 2> ids{};
    target.Pointer->GetIDsOfNames(OneIn(20) ? IID_IUnknown : IID_NULL, OneIn(20) ? nullptr : names,
                                  static_cast<UINT>(Below(3)), LOCALE_USER_DEFAULT,
                                  OneIn(20) ? nullptr : ids.data());
    std::vector<Value> values(OneIn(3) ? Below(7) : slot.Parameters.size() - (slot.HasResult ? 1 : 0));
    for (Value& value : values) value = Anything(target.TakesObjects);
    const Outcome outcome = Invoke(target.Pointer.Get(), name.c_str(), slot.Kind, values);
    Keep(outcome.Result);
    return outcome.Code;
  }

  HRESULT AskForInterfaces(const Target& target) {
    IUnknown* const object = target.Pointer.Get();
    EXPECT_EQ(object->QueryInterface(IID_IDispatch, nullptr), E_POINTER);
    ComPtr<IUnknown> none;
    EXPECT_EQ(object->QueryInterface(IID_IStream, &none), E_NOINTERFACE);
    ComPtr<ITypeInfo> info;
    EXPECT_TRUE(FAILED(target.Pointer->GetTypeInfo(7, 0, &info)));
    EXPECT_TRUE(FAILED(target.Pointer->GetTypeInfo(0, 0, nullptr)));
    EXPECT_TRUE(FAILED(target.Pointer->GetTypeInfoCount(nullptr)));
    ComPtr<IProvideClassInfo2> described;
    ComPtr<IConnectionPointContainer> container;
    GUID id{};
    if (SUCCEEDED(object->QueryInterface(IID_PPV_ARGS(&described)))) {
      EXPECT_TRUE(FAILED(described->GetClassInfo(nullptr)));
      EXPECT_TRUE(FAILED(described->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, nullptr)));
      EXPECT_TRUE(FAILED(described->GetGUID(99, &id)));
    }
    if (SUCCEEDED(object->QueryInterface(IID_PPV_ARGS(&container)))) {
      EXPECT_TRUE(FAILED(container->FindConnectionPoint(IID_IStream, nullptr)));
      EXPECT_TRUE(FAILED(container->EnumConnectionPoints(nullptr)));
    }
    return E_NOINTERFACE;
  }

  void Keep(const Value& value) {
    if (value.vt == VT_UNKNOWN && value.punkVal != nullptr) return Walk(*value.punkVal);
    constexpr std::size_t kMost = 300;
    const Object object = value.ToObject();
    if (!object || ClassOf(object.Get()).empty()) return;
    if (mObjects.size() < kMost) mObjects.push_back({object, false});
    const std::size_t first = SlotClasses().size();
    mObjects[first + Below(mObjects.size() - first)] = {object, false};
  }

  void Walk(IUnknown& enumerator) {
    ComPtr<IEnumVARIANT> items;
    ComPtr<IEnumVARIANT> others;
    if (FAILED(enumerator.QueryInterface(IID_PPV_ARGS(&items)))) return;
    std::array<Value, 3> found;
    ULONG count = 0;
    EXPECT_TRUE(FAILED(items->Next(3, nullptr, &count)));
    EXPECT_TRUE(FAILED(items->Clone(nullptr)));
    EXPECT_EQ(items->Clone(&others), S_OK);
    items->Next(3, found.data(), OneIn(2) ? nullptr : &count);
    items->Skip(static_cast<ULONG>(Number()));
    items->Reset();
    for (const Value& item : found) {
      if (item.vt == VT_DISPATCH) Keep(item);
    }
  }

  static constexpr std::array<VARTYPE, 20> kScalars{
      VT_EMPTY, VT_NULL, VT_I2,  VT_I4, VT_R4,  VT_R8,  VT_CY,   VT_DATE,  VT_BOOL,    VT_I1,
      VT_UI1,   VT_UI2,  VT_UI4, VT_I8, VT_UI8, VT_INT, VT_UINT, VT_ERROR, VT_DECIMAL, VT_EMPTY};

  ObjectPool mCalled;
  ObjectPool mArguments;
  std::mt19937 mRandom;
  std::vector<Target> mObjects;
  std::array<Value, 8> mPlaces;
};

class ServerFuzzTest : public ServerTest {};

std::uint32_t Setting(const char* name, std::uint32_t otherwise) {
  const char* const text = std::getenv(name);
  return text != nullptr ? static_cast<std::uint32_t>(std::strtoul(text, nullptr, 10)) : otherwise;
}

TEST_F(ServerFuzzTest, EveryCallEndsWithAResultOrAnErrorAndNothingStays) {
  const StarterConfiguration configuration;
  ErrorComponent errors;
  {
    RandomClient client(TheServer(), Setting("FUZZ_SEED", 20011));
    const auto calls = Setting("FUZZ_CALLS", 20'000);
    std::uint32_t succeeded = 0;
    for (std::uint32_t call = 0; call < calls; ++call) {
      succeeded += SUCCEEDED(client.Call()) ? 1 : 0;
      errors.Forget();
    }
    EXPECT_GT(succeeded, calls / 10);
    EXPECT_LT(succeeded, calls - calls / 10);
  }
}

}  // namespace
}  // namespace lwconfig::testing
