#include <fstream>
#include <set>

#include <tests/com/fixture.h>

namespace lwconfig::testing {
namespace {

/// Makes the same calls early bound on objects of one set and late bound on those of another, and compares
/// how they end.
class EarlyBoundTest : public ServerTest {
 protected:
  /// A value that no other call has, as far as there are so many.
  Value Sample(const SlotParameter& parameter, const ObjectPool& objects, int round) const {
    const auto text = L"sample" + std::to_wstring(mCalls);
    switch (parameter.Type) {
      case VT_BSTR:
        return text.c_str();
      case VT_I2: {
        Value value(round % 2 == 0);
        value.vt = VT_I2;
        return value;
      }
      case VT_I4:
        return mCalls;
      case VT_VARIANT:
        return round == 1 ? Value::Missing() : round == 2 ? Value(1) : Value(text.c_str());
      default: {
        const Object object = objects.With(*parameter.Interface);
        return object ? object : objects.Of("PageLayout");
      }
    }
  }

  /// The variant through which a late-bound call passes it.
  static Value Late(const SlotParameter& parameter, Value& value) {
    if (!parameter.IsPointer) return value;
    Value reference = Value::Zero(static_cast<VARTYPE>(parameter.Type | VT_BYREF));
    reference.byref = parameter.Type == VT_VARIANT ? static_cast<void*>(&value) : &value.pdispVal;
    return reference;
  }

  std::string Described(const Outcome& outcome) const {
    if (outcome.Number != 65535) return outcome.Describe();
    return outcome.Describe() + " " +
           Utf8(mErrors.Last(L"Module") + L"." + mErrors.Last(L"Procedure") + L" " + mErrors.Last(L"Number"));
  }

  /// Arguments are others than the objects that are called: nothing ends up inside itself.
  struct Objects {
    explicit Objects(const Server& server) : Called(server), Arguments(server) {
      // These are numbered.
      for (const char* numbered : {"NodeDef", "PlugIn"}) Put(Called.Of(numbered), L"Key", L"key");
    }
    ObjectPool Called;
    ObjectPool Arguments;
  };

  /// Calls the slot both ways. Returns whether it succeeded.
  bool Compare(const Slot& slot, const Objects& early, const Objects& late, int round) {
    ++mCalls;
    const std::size_t count = slot.Parameters.size();
    std::vector<Value> values(count);
    std::vector<Value> lateValues(count);
    std::vector<Value> arguments;
    for (std::size_t at = 0; at + (slot.HasResult ? 1 : 0) < count; ++at) {
      values[at] = Sample(slot.Parameters[at], early.Arguments, round);
      lateValues[at] = Sample(slot.Parameters[at], late.Arguments, round);
      arguments.push_back(Late(slot.Parameters[at], lateValues[at]));
    }
    const Object object = early.Called.With(*slot.Interface);
    ::SetErrorInfo(0, nullptr);
    mErrors.Forget();
    Outcome ended = Ended(slot.Call(object.Get(), values.data(), 0));
    const std::string failure = ended.Succeeded() ? "" : Described(ended);
    mErrors.Forget();
    Outcome other = Invoke(late.Called.Of(slot.Class).Get(), slot.Member, slot.Kind, arguments);
    if (slot.HasResult) {
      const VARTYPE type = slot.Parameters.back().Type;
      if (type != VT_VARIANT)
        values.back().vt = type == VT_I2 && other.Result.vt == VT_BOOL ? VARTYPE{VT_BOOL} : type;
      if (ended.Succeeded()) ended.Result = std::move(values.back());
      // Late-bound clients get an empty value for a text that is null.
      if (ended.Result.vt == VT_BSTR && ended.Result.bstrVal == nullptr) ended.Result = Value();
    }
    EXPECT_EQ(failure.empty() ? ended.Describe() : failure, Described(other))
        << slot.Class << "." << slot.Method << " in round " << round;
    // Roots share what was given to any of them.
    const auto isArgument = [&](const Object& result) {
      const std::string name = result ? ClassOf(result.Get()) : "PageLayout";
      return AreSame(result.Get(), early.Arguments.Of(name).Get()) ||
             AreSame(result.Get(), late.Arguments.Of(name).Get());
    };
    EXPECT_EQ(isArgument(ended.ToObject()), isArgument(other.ToObject())) << slot.Class << "." << slot.Method;
    for (std::size_t at = 0; at < arguments.size(); ++at)
      EXPECT_EQ(values[at].Describe(), lateValues[at].Describe())
          << slot.Class << "." << slot.Method << " " << at;
    return ended.Succeeded();
  }

  const StarterConfiguration mConfiguration;
  ErrorComponent mErrors;
  int mCalls = 1000;
};

TEST_F(EarlyBoundTest, EverySlotDoesWhatTheMemberOfItsNameDoes) {
  std::set<std::string> succeeded;
  {
    const Objects early(TheServer());
    const Objects late(TheServer());
    for (int round = 0; round < 4; ++round) {
      for (const Slot& slot : Slots()) {
        if (Compare(slot, early, late, round)) succeeded.insert(std::string(slot.Class) + "." + slot.Method);
      }
    }
  }
  std::size_t described = 0;
  std::ifstream description(LWCONFIG_IDL);
  for (std::string line; std::getline(description, line);)
    described += line.find("HRESULT ") != std::string::npos ? 1U : 0U;
  EXPECT_EQ(Slots().size(), described);
  // The others fail, in the same way, whatever they are given here.
  EXPECT_GT(succeeded.size(), described * 95 / 100);
}

TEST_F(EarlyBoundTest, EverySlotSurvivesNullsAndVariantsOfEveryType) {
  const Objects objects(TheServer());
  for (const Slot& slot : Slots()) {
    const std::string name = std::string(slot.Class) + "." + slot.Method;
    const Object object = objects.Called.With(*slot.Interface);
    const std::size_t count = slot.Parameters.size();
    const std::size_t given = count - (slot.HasResult ? 1 : 0);
    const auto call = [&](unsigned nulls, std::size_t place = 0, Value odd = {}) {
      std::vector<Value> values(count);
      if (place < given) values[place] = std::move(odd);  // the system would not copy a wrong one
      const HRESULT code = slot.Call(object.Get(), values.data(), nulls);
      for (std::size_t at = 0; at < count; ++at) {
        const SlotParameter& parameter = slot.Parameters[at];
        const bool isReturned = parameter.IsPointer && parameter.Type != VT_VARIANT;
        if (isReturned) values[at].vt = parameter.Type;  // to free what it holds
      }
      return code;
    };
    call(0);
    for (std::size_t at = 0; at < given; ++at) {
      call(1U << at);
      if (slot.Parameters[at].Type != VT_VARIANT || slot.Parameters[at].IsPointer) continue;
      for (VARTYPE type = VT_EMPTY; type <= VT_UINT; ++type) {
        if (type == 15 || type == VT_VARIANT) continue;  // no type, and only a reference
        call(0, at, Value::Zero(type));
        EXPECT_TRUE(FAILED(call(0, at, Value::Zero(static_cast<VARTYPE>(type | VT_BYREF)))))
            << name << " " << type;
        EXPECT_TRUE(FAILED(call(0, at, Value::Zero(static_cast<VARTYPE>(type | VT_ARRAY)))))
            << name << " " << type;
      }
    }
    if (slot.HasResult) {
      EXPECT_EQ(call(1U << given), E_POINTER) << name;
    }
  }
}

TEST_F(EarlyBoundTest, TheTypeLibraryDescribesEverySlotAtItsPlace) {
  constexpr std::size_t kInherited = 7;  // of IUnknown and IDispatch
  auto slot = Slots().begin();
  for (const SlotClass& info : SlotClasses()) {
    ComPtr<ITypeInfo> late;
    ASSERT_EQ(TheServer().Types()->GetTypeInfoOfGuid(*info.Interface, &late), S_OK) << info.Name;
    HREFTYPE reference = 0;
    ComPtr<ITypeInfo> early;
    ASSERT_EQ(late->GetRefTypeOfImplType(static_cast<UINT>(-1), &reference), S_OK) << info.Name;
    ASSERT_EQ(late->GetRefTypeInfo(reference, &early), S_OK) << info.Name;
    std::size_t place = 0;
    for (; slot != Slots().end() && slot->Interface == info.Interface; ++slot, ++place) {
      const std::string name = std::string(slot->Class) + "." + slot->Method;
      FUNCDESC* function = nullptr;
      ASSERT_EQ(early->GetFuncDesc(static_cast<UINT>(place), &function), S_OK) << name;
      EXPECT_EQ(NameOf(*early.Get(), function->memid), Utf8(slot->Member)) << name;
      EXPECT_EQ(WORD{static_cast<WORD>(function->invkind)}, slot->Kind) << name;
      EXPECT_EQ(static_cast<std::size_t>(function->oVft), (kInherited + place) * sizeof(void*)) << name;
      EXPECT_EQ(static_cast<std::size_t>(function->cParams), slot->Parameters.size()) << name;
      early->ReleaseFuncDesc(function);
    }
    // Late-bound clients see those of IUnknown and IDispatch too.
    for (std::size_t at = 0; at < kInherited + place; ++at) {
      FUNCDESC* function = nullptr;
      ASSERT_EQ(late->GetFuncDesc(static_cast<UINT>(at), &function), S_OK) << info.Name << " " << at;
      late->ReleaseFuncDesc(function);
    }
  }
  EXPECT_EQ(slot, Slots().end());
}

}  // namespace
}  // namespace lwconfig::testing
