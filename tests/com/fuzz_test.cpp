#include <array>
#include <cstdlib>
#include <random>

#include <tests/com/fixture.h>

namespace lwconfig::testing {
namespace {

/// Makes calls that no sane client makes. No text, position or number in them leads out of the test's own
/// folder and registry.
class RandomClient {
 public:
  RandomClient(const Server& server, unsigned seed) : mCalled(server), mArguments(server), mRandom(seed) {
    for (const auto& [name, object] : mCalled) mTargets.push_back({object, true});
  }

  /// Uses a member of the object's class or, rarely, of another one.
  HRESULT Call() {
    const auto [object, takesObjects] = AnyOf(mTargets);
    const auto& slots = Published().at(OneIn(9) ? AnyOf(Published()).first : ClassOf(object.Get())).Slots;
    if (slots.empty()) return S_FALSE;
    const Slot& slot = AnyOf(slots);
    std::wstring name = OneIn(10) ? Text() : Wide(slot.Member);
    wchar_t* names[]{name.data(), OneIn(2) ? name.data() : nullptr};
    std::array<DISPID, 2> ids{};
    object->GetIDsOfNames(IID_NULL, names, static_cast<UINT>(Below(3)), LOCALE_USER_DEFAULT, ids.data());

    std::vector<Value> values(OneIn(3) ? Below(8) : slot.Inputs.size());
    for (std::size_t at = 0; at < values.size(); ++at) {
      const auto right = mArguments.find(at < slot.Inputs.size() ? slot.Inputs[at].Declared : "");
      const bool isRight = takesObjects && right != mArguments.end() && OneIn(2);
      values[at] = isRight ? right->second : Anything(takesObjects);
    }
    std::vector<VARIANT> passed(values.rbegin(), values.rend());
    const bool isPut = (slot.Kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    std::vector<DISPID> named(OneIn(3) ? Below(values.size() + 2) : isPut ? 1 : 0, DISPID_PROPERTYPUT);
    for (DISPID& place : named) place = OneIn(3) ? static_cast<DISPID>(Below(9)) - 2 : place;
    DISPPARAMS parameters{OneIn(20) ? nullptr : passed.data(), OneIn(20) ? nullptr : named.data(),
                          static_cast<UINT>(passed.size()), static_cast<UINT>(named.size())};
    Value result;
    EXCEPINFO failure{};
    const HRESULT code =
        object->Invoke(OneIn(9) ? static_cast<DISPID>(Below(60)) - 8 : slot.Id, IID_NULL, LOCALE_USER_DEFAULT,
                       static_cast<WORD>(OneIn(10) ? mRandom() : slot.Kind), &parameters,
                       OneIn(3) ? nullptr : &result, OneIn(3) ? nullptr : &failure, nullptr);
    for (BSTR text : {failure.bstrDescription, failure.bstrSource, failure.bstrHelpFile})
      ::SysFreeString(text);
    Keep(result);
    return code;
  }

 private:
  /// Objects that calls gave take no objects, so that no object becomes part of itself.
  struct Target {
    Object Pointer;
    bool TakesObjects;
  };

  std::size_t Below(std::size_t limit) { return mRandom() % limit; }
  bool OneIn(std::size_t count) { return Below(count) == 0; }
  int Number() { return std::array{0, 1, 2, 3, -1, 7, INT_MAX, INT_MIN}.at(Below(8)); }
  std::wstring Text() {
    static const std::wstring texts[]{
        L"", L"a", L"1", L"True", {L"a\0b", 3}, L"\xD800", L"%%a%%", L"LW:Method", L"<a b='1'><c/></a>"};
    return OneIn(50) ? std::wstring(70'000, L'x') : texts[Below(std::size(texts))];
  }
  Value TextValue() {
    const std::wstring text = Text();
    BSTR const made = OneIn(5) ? nullptr : ::SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    return {VT_BSTR, &VARIANT::bstrVal, made};
  }
  template <class T>
  auto AnyOf(const T& all) -> decltype(*all.begin()) {
    return *std::next(all.begin(), static_cast<std::ptrdiff_t>(Below(all.size())));
  }
  Object AnObject() {
    return !OneIn(25) ? AnyOf(mArguments).second : OneIn(2) ? Object() : Object(new ForeignObject);
  }

  /// Of any type that a variant can have, with and without something in it.
  Value Anything(bool takesObjects) {
    static constexpr std::array<VARTYPE, 19> kScalars{
        VT_EMPTY, VT_NULL, VT_I2,  VT_I4, VT_R4,  VT_R8,  VT_CY,   VT_DATE,  VT_BOOL,   VT_I1,
        VT_UI1,   VT_UI2,  VT_UI4, VT_I8, VT_UI8, VT_INT, VT_UINT, VT_ERROR, VT_DECIMAL};
    const VARTYPE scalar = AnyOf(kScalars);
    switch (Below(7)) {
      case 0:
        return TextValue();
      case 1:
        return OneIn(2) ? Value(Number()) : Value::Missing();
      case 2:
        return takesObjects ? Value(AnObject()) : Value();
      case 3: {  // an object without automation
        IStream* stream = nullptr;
        if (takesObjects && !OneIn(3)) ::CreateStreamOnHGlobal(nullptr, TRUE, &stream);
        return takesObjects ? Value(VT_UNKNOWN, &VARIANT::punkVal, stream) : Value();
      }
      case 4: {
        const VARTYPE type = OneIn(2) ? VT_VARIANT : VT_I4;
        return {static_cast<VARTYPE>(VT_ARRAY | type), &VARIANT::parray,
                OneIn(3) ? nullptr : ::SafeArrayCreateVector(type, 0, 2)};
      }
      case 5: {  // a reference, also to nothing or to itself
        Value& place = mPlaces.at(Below(mPlaces.size()));
        place = OneIn(8) ? Value::Reference(place) : Value(Number());
        if (OneIn(3)) return Value::Reference(place);
        return {static_cast<VARTYPE>(VT_BYREF | scalar), &VARIANT::byref, OneIn(4) ? nullptr : &place.llVal};
      }
      default:
        return {OneIn(9) ? static_cast<VARTYPE>(0x0F00 + Below(16)) : scalar, &VARIANT::llVal, mRandom()};
    }
  }

  /// Keeps objects and items of collections, so that later calls meet them.
  void Keep(const Value& value) {
    constexpr std::size_t kMost = 300;
    ComPtr<IEnumVARIANT> items;
    if (value.vt == VT_UNKNOWN && value.punkVal != nullptr &&
        SUCCEEDED(value.punkVal->QueryInterface(IID_PPV_ARGS(&items)))) {
      std::array<Value, 3> found;
      items->Next(3, found.data(), nullptr);
      for (const Value& item : found) Keep(item);
    }
    const Object object = value.ToObject();
    if (!object || ClassOf(object.Get()).empty()) return;
    if (mTargets.size() < kMost) mTargets.push_back({object, false});
    const std::size_t first = mCalled.size();
    mTargets[first + Below(mTargets.size() - first)] = {object, false};
  }

  ObjectPool mCalled;
  ObjectPool mArguments;
  std::mt19937 mRandom;
  std::vector<Target> mTargets;
  std::array<Value, 8> mPlaces;
};

using ServerFuzzTest = ServerTest;

std::uint32_t Setting(const char* name, std::uint32_t otherwise) {
  const char* const text = std::getenv(name);
  return text != nullptr ? static_cast<std::uint32_t>(std::strtoul(text, nullptr, 10)) : otherwise;
}

TEST_F(ServerFuzzTest, EveryLateBoundCallEndsWithAResultOrAnErrorAndNothingStays) {
  const StarterConfiguration configuration;
  ErrorComponent errors;
  RandomClient client(*mServer, Setting("FUZZ_SEED", 20011));
  const auto calls = Setting("FUZZ_CALLS", 20'000);
  std::uint32_t succeeded = 0;
  for (std::uint32_t call = 0; call < calls; ++call) {
    succeeded += SUCCEEDED(client.Call()) ? 1 : 0;
    errors.Reports.clear();
  }
  EXPECT_GT(succeeded, calls / 10);
  EXPECT_LT(succeeded, calls - calls / 10);
}

}  // namespace
}  // namespace lwconfig::testing
