#include <algorithm>
#include <fstream>
#include <set>

#include <tests/com/fixture.h>
#include <tests/com/object_pool.h>

namespace lwconfig::testing {
namespace {

/// Makes the same calls early bound on objects of one set and late bound on those of another, and compares
/// how they end.
class EarlyBoundTest : public ServerTest {
 protected:
  void SetUp() override {
    ServerTest::SetUp();
    mConfiguration = std::make_unique<StarterConfiguration>();
    mErrors = std::make_unique<ErrorComponent>();
    ::SetCurrentDirectoryW(mConfiguration->Folder().c_str());
  }
  void TearDown() override {
    ::SetCurrentDirectoryW(L"C:\\");
    mErrors.reset();
    mConfiguration.reset();
    ServerTest::TearDown();
  }

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
    Value reference;
    reference.vt = static_cast<VARTYPE>(parameter.Type | VT_BYREF);
    reference.byref = parameter.Type == VT_VARIANT ? static_cast<void*>(&value) : &value.pdispVal;
    return reference;
  }

  std::string Described(const Outcome& outcome) const {
    if (outcome.Number != 65535) return outcome.Describe();
    return outcome.Describe() + " " +
           Utf8(mErrors->Last(L"Module") + L"." + mErrors->Last(L"Procedure") + L" " +
                mErrors->Last(L"Number"));
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
    mErrors->Forget();
    Outcome ended = Ended(slot.Call(object.Get(), values.data(), 0));
    const std::string failure = ended.Succeeded() ? "" : Described(ended);
    mErrors->Forget();
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
    for (std::size_t at = 0; at < arguments.size(); ++at)
      EXPECT_EQ(values[at].Describe(), lateValues[at].Describe())
          << slot.Class << "." << slot.Method << " " << at;
    return ended.Succeeded();
  }

  std::unique_ptr<StarterConfiguration> mConfiguration;
  std::unique_ptr<ErrorComponent> mErrors;
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

TEST_F(EarlyBoundTest, WhatIsWrittenInOneWayIsReadInTheOther) {
  const Objects objects(TheServer());
  int written = 0;
  for (const Slot& put : Slots()) {
    const bool isPut = put.Kind == DISPATCH_PROPERTYPUT || put.Kind == DISPATCH_PROPERTYPUTREF;
    const auto get = std::find_if(Slots().begin(), Slots().end(), [&](const Slot& slot) {
      return slot.Interface == put.Interface && slot.Kind == DISPATCH_PROPERTYGET &&
             std::wstring_view(slot.Member) == put.Member && slot.Parameters.size() == 1;
    });
    if (!isPut || get == Slots().end()) continue;
    const auto name = std::string(put.Class) + "." + put.Method;
    // A node without a template has no layout, the tag was withdrawn, and the mode has few values.
    static const std::set<std::string> others{"NodeDef.putref_PageLayout", "NamespaceDef.putref_Tag",
                                              "VBOptions.put_VBCommentMode"};
    if (others.contains(name)) continue;
    const Object object = objects.Called.With(*put.Interface);
    for (const bool isEarly : {true, false}) {
      ++mCalls;
      Value value = Sample(put.Parameters[0], objects.Arguments, isEarly ? 0 : 2);
      Outcome read;
      if (isEarly) {
        EXPECT_EQ(put.Call(object.Get(), &value, 0), S_OK) << name;
        read = Get(object, put.Member);
      } else {
        EXPECT_EQ(Invoke(object.Get(), put.Member, put.Kind, {value}).Code, S_OK) << name;
        read.Code = get->Call(object.Get(), &read.Result, 0);
        if (read.Result.vt == VT_EMPTY && get->Parameters[0].Type != VT_VARIANT)
          read.Result.vt = get->Parameters[0].Type;
      }
      if (read.Result.vt == VT_BOOL) read.Result.vt = VT_I2;
      EXPECT_EQ(read.Describe(), value.Describe()) << name;
      EXPECT_TRUE(AreSame(read.ToObject().Get(), value.ToObject().Get())) << name;
      ++written;
    }
  }
  EXPECT_GT(written, 400);
}

}  // namespace
}  // namespace lwconfig::testing
