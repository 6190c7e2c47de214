#include <tests/com/fixture.h>

#include "LWConfigObjects.h"

namespace lwconfig::testing {
namespace {

/// Objects to call and others as arguments: no object becomes part of itself.
struct Objects {
  explicit Objects(const Server& server) : Called(server), Arguments(server) {}
  ObjectPool Called;
  ObjectPool Arguments;
};

class EarlyBoundTest : public ServerTest {
 protected:
  /// A value that no other call has, where the type has enough of them.
  Value Sample(const Parameter& parameter, const Objects& objects, int round) const {
    const auto text = L"sample" + std::to_wstring(mCalls);
    switch (parameter.Type) {
      case VT_BSTR:
        return text.c_str();
      case VT_BOOL:
        return round % 2 == 0;
      case VT_VARIANT:
        return round == 1 ? Value::Missing() : round == 2 ? Value(1) : Value(text.c_str());
      case VT_DISPATCH:
        if (parameter.IsReference() && round == 1) return Object();
        return objects.Arguments.at(parameter.Declared.empty() ? "PageLayout" : parameter.Declared);
      default:
        return 1000 + mCalls;
    }
  }

  /// Calls the slot early bound on one set of objects and late bound on another. Returns whether it
  /// succeeded.
  bool Compare(const Slot& slot, const Objects& early, const Objects& late, int round) {
    ++mCalls;
    std::vector<Value> values;
    std::vector<Value> lateValues;
    for (const Parameter& parameter : slot.Inputs) {
      values.push_back(Sample(parameter, early, round));
      lateValues.push_back(Sample(parameter, late, round));
    }
    values.resize(slot.ValueCount());
    std::vector<Value> arguments;
    for (std::size_t at = 0; at < lateValues.size(); ++at) {
      const Parameter& parameter = slot.Inputs[at];
      arguments.push_back(parameter.IsReference() ? parameter.ReferenceTo(lateValues[at]) : lateValues[at]);
    }

    Outcome ended = Ended(slot.Call(early.Called.at(slot.Class).Get(), values));
    if (ended.Succeeded() && !slot.Result.empty()) ended.Result = std::move(values.back());
    IDispatch* const object = late.Called.at(slot.Class).Get();
    const Outcome other = round == 0 ? Invoke(object, slot.Id, slot.Kind, arguments)
                                     : Invoke(object, Wide(slot.Member).c_str(), slot.Kind, arguments);
    EXPECT_EQ(ended.Describe(), other.Describe()) << slot.Name() << " in round " << round;
    // Roots share what was given to any of them.
    const auto isArgument = [&](const Object& result) {
      const std::string name = result ? ClassOf(result.Get()) : "PageLayout";
      return result.Get() == early.Arguments.at(name).Get() || result.Get() == late.Arguments.at(name).Get();
    };
    EXPECT_EQ(isArgument(ended.ToObject()), isArgument(other.ToObject())) << slot.Name();
    for (std::size_t at = 0; at < arguments.size(); ++at)
      EXPECT_EQ(values[at].Describe(), lateValues[at].Describe()) << slot.Name() << " " << at;
    return ended.Succeeded();
  }

  const StarterConfiguration mConfiguration;
  const ErrorComponent mErrors;
  int mCalls = 0;
};

TEST_F(EarlyBoundTest, EverySlotDoesWhatTheMemberOfItsNameDoes) {
  const Objects early(*mServer);
  const Objects late(*mServer);
  int succeeded = 0;
  for (int round = 0; round < 4; ++round) {
    for (const auto& [name, info] : Published()) {
      for (const Slot& slot : info.Slots) succeeded += Compare(slot, early, late, round) ? 1 : 0;
    }
  }
  // The others fail, in the same way, whatever they are given here.
  EXPECT_GT(succeeded, mCalls * 9 / 10);
}

TEST_F(EarlyBoundTest, EverySlotSurvivesNullsAndVariantsOfEveryType) {
  const Objects objects(*mServer);
  for (const auto& [name, info] : Published()) {
    for (const Slot& slot : info.Slots) {
      const auto call = [&](unsigned nulls, std::size_t place = 0, Value odd = {}) {
        std::vector<Value> values(slot.ValueCount());
        if (place < slot.Inputs.size()) values[place] = std::move(odd);  // the system copies no wrong one
        return slot.Call(objects.Called.at(name).Get(), values, nulls);
      };
      call(0);
      for (std::size_t at = 0; at < slot.Inputs.size(); ++at) {
        call(1U << at);
        if (slot.Inputs[at].Type != VT_VARIANT || slot.Inputs[at].IsReference()) continue;
        for (VARTYPE type = VT_EMPTY; type <= VT_UINT; ++type) {
          if (type == 15 || type == VT_VARIANT) continue;  // no type, and only a reference
          call(0, at, Value::Zero(type));
          for (const int kind : {VT_BYREF, VT_ARRAY}) {
            const auto odd = static_cast<VARTYPE>(type | kind);
            EXPECT_TRUE(FAILED(call(0, at, Value::Zero(odd)))) << slot.Name() << " " << odd;
          }
        }
      }
      if (!slot.Result.empty()) {
        EXPECT_EQ(call(1U << slot.Inputs.size()), E_POINTER) << slot.Name();
      }
    }
  }
}

/// Other programs know the numbers alone, and find the functions by the order of the interface.
TEST_F(EarlyBoundTest, CompiledClientsCallThroughTheHeader) {
  ComPtr<_PageLayout> layout;
  ComPtr<_PageLayouts> layouts;
  ComPtr<_PageLayout> found;
  ASSERT_EQ(Create("PageLayout").As(&layout), S_OK);
  ASSERT_EQ(Create("PageLayouts").As(&layouts), S_OK);
  EXPECT_EQ(layout->put_Name(Value(L"a").bstrVal), S_OK);
  EXPECT_EQ(layouts->Add(layout.Get(), Value(L"key").bstrVal, Value::Missing(), Value::Missing()), S_OK);
  EXPECT_EQ(layouts->get_Item(Value(1), &found), S_OK);
  Value name = Value::Zero(VT_BSTR);
  EXPECT_EQ(found->get_Name(&name.bstrVal), S_OK);
  EXPECT_EQ(name.Text(), L"a");
}

}  // namespace
}  // namespace lwconfig::testing
