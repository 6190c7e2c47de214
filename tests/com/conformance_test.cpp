#include <algorithm>

#include <tests/com/fixture.h>
#include <tests/conformance/interpreter.h>

namespace lwconfig::testing {
namespace {

/// Late-bound calls through the automation server.
class AutomationFace final : public Face {
 public:
  AutomationFace(const Server& server, const ErrorComponent& errors) : mServer(server), mErrors(errors) {}

  AnyObject New(const std::string& className) override {
    Object object;
    const auto info = std::find_if(SlotClasses().begin(), SlotClasses().end(),
                                   [&](const SlotClass& known) { return known.Name == className; });
    const HRESULT code = mServer.Create(*info->Id, object);
    if (FAILED(code)) throw FaceFailure{NumberOf(code)};
    return Held(object.Get());
  }
  std::string ClassOf(const AnyObject& object) override { return testing::ClassOf(Pointer(object)); }
  bool AreSame(const AnyObject& a, const AnyObject& b) override {
    return testing::AreSame(Pointer(a), Pointer(b));
  }

  Result Get(const AnyObject& object, const std::string& member, std::vector<Variant> arguments) override {
    const DISPID id = member.empty() ? DISPID_VALUE : IdsOf(object, {member})[0];
    std::vector<Value> values;
    for (const Variant& argument : arguments) values.push_back(ValueOf(argument));
    const Outcome outcome = Checked(Invoke(Pointer(object), id, DISPATCH_PROPERTYGET, values));
    const Signature signature(Pointer(object), id, DISPATCH_PROPERTYGET);
    const bool isOfDefault = signature.Names.size() < arguments.size();
    return Described(outcome.Result, isOfDefault ? Type{} : signature.Returned);
  }

  void Set(const AnyObject& object, const std::string& member, Variant value) override {
    const bool isObject = std::holds_alternative<AnyObject>(value);
    Checked(Invoke(Pointer(object), IdsOf(object, {member})[0],
                   isObject ? DISPATCH_PROPERTYPUTREF | DISPATCH_PROPERTYPUT : DISPATCH_PROPERTYPUT,
                   {ValueOf(value)}));
  }

  std::vector<Result> Call(const AnyObject& object, const std::string& member, Arguments arguments) override {
    const Signature signature(Pointer(object), IdsOf(object, {member})[0], DISPATCH_METHOD);
    std::size_t ordered = 0;
    for (const auto& argument : arguments) ordered += argument.first.empty() ? 1 : 0;
    // By-reference arguments come back, also those that were left out.
    for (std::size_t at = ordered; at < signature.Names.size(); ++at) {
      const auto isGiven = [&](const auto& argument) { return argument.first == signature.Names[at]; };
      if (signature.IsReference[at] && std::none_of(arguments.begin(), arguments.end(), isGiven))
        arguments.emplace_back(signature.Names[at], Missing{});
    }
    std::vector<std::string> names{member};
    std::vector<Value> values;
    for (const auto& [name, value] : arguments) {
      if (!name.empty()) names.push_back(name);
      values.push_back(ValueOf(value));
    }
    auto ids = IdsOf(object, names);
    const DISPID id = ids[0];
    ids.erase(ids.begin());
    std::vector<Value> references;
    for (std::size_t at = 0; at < values.size(); ++at) {
      const std::size_t place = at < ordered ? at : static_cast<std::size_t>(ids[at - ordered]);
      const bool isReference = place < signature.IsReference.size() && signature.IsReference[place];
      references.push_back(isReference ? Value::Reference(values[at]) : values[at]);
    }
    const Outcome outcome = Checked(Invoke(Pointer(object), id, DISPATCH_METHOD, references, ids));
    std::vector<Result> results{Described(outcome.Result, signature.Returned)};
    for (std::size_t at = 0; at < values.size(); ++at) {
      if (references[at].vt == (VT_VARIANT | VT_BYREF)) results.push_back(Described(values[at], {}));
    }
    return results;
  }

  std::vector<Variant> Items(const AnyObject& collection) override {
    std::vector<Variant> items;
    for (const Value& item : ItemsOf(Pointer(collection))) items.push_back(VariantOf(item));
    return items;
  }

  Closer Connect(const AnyObject& object, const std::string& event, std::function<void()> handler) override {
    const auto connection =
        std::make_shared<Connected>(Pointer(object), [handler](DISPID, const DISPPARAMS&) { handler(); });
    ComPtr<ITypeInfo> events;
    if (FAILED(mServer.Types()->GetTypeInfoOfGuid(connection->Source(), &events)) ||
        NameOf(*events.Get(), 1) != event)
      throw FaceFailure{459};
    return [connection] { EXPECT_EQ(connection->Close(), S_OK); };
  }

  std::optional<std::int32_t> Constant(const std::string& name) override {
    std::wstring wide = Wide(name);
    BOOL isName = FALSE;
    if (FAILED(mServer.Types()->IsName(wide.data(), 0, &isName)) || !isName) return std::nullopt;
    ComPtr<ITypeComp> scope;
    mServer.Types()->GetTypeComp(&scope);
    ComPtr<ITypeInfo> info;
    DESCKIND kind = DESCKIND_NONE;
    BINDPTR bound{};
    if (FAILED(scope->Bind(wide.data(), 0, 0, &info, &kind, &bound)) || kind != DESCKIND_VARDESC)
      return std::nullopt;
    const std::int32_t value = bound.lpvardesc->lpvarValue->lVal;
    info->ReleaseVarDesc(bound.lpvardesc);
    return value;
  }

 private:
  /// The enumeration that a value is of, if any.
  using Type = ComPtr<ITypeInfo>;

  /// What the type information tells of a member.
  struct Signature {
    Signature(IDispatch* object, DISPID id, int kind) {
      ComPtr<ITypeInfo> info;
      if (FAILED(object->GetTypeInfo(0, LOCALE_USER_DEFAULT, &info))) return;
      TYPEATTR* attributes = nullptr;
      info->GetTypeAttr(&attributes);
      for (UINT at = 0; at < attributes->cFuncs; ++at) {
        FUNCDESC* function = nullptr;
        info->GetFuncDesc(at, &function);
        if (function->memid == id && int{function->invkind} == kind) Read(*info.Get(), *function);
        info->ReleaseFuncDesc(function);
      }
      info->ReleaseTypeAttr(attributes);
    }

    std::vector<std::string> Names;
    std::vector<bool> IsReference;
    Type Returned;

   private:
    void Read(ITypeInfo& info, const FUNCDESC& function) {
      std::vector<BSTR> names(static_cast<std::size_t>(function.cParams) + 1);
      UINT count = 0;
      info.GetNames(function.memid, names.data(), static_cast<UINT>(names.size()), &count);
      for (UINT at = 0; at < count; ++at) {
        if (at > 0) Names.push_back(Utf8(names[at]));
        ::SysFreeString(names[at]);
      }
      for (SHORT at = 0; at < function.cParams; ++at)
        IsReference.push_back((function.lprgelemdescParam[at].paramdesc.wParamFlags & PARAMFLAG_FOUT) != 0);
      if (function.elemdescFunc.tdesc.vt == VT_USERDEFINED)
        info.GetRefTypeInfo(function.elemdescFunc.tdesc.hreftype, &Returned);
    }
  };

  static IDispatch* Pointer(const AnyObject& object) { return static_cast<IDispatch*>(object.Pointer.get()); }
  static AnyObject Held(IDispatch* object) {
    if (object == nullptr) return {};
    object->AddRef();
    return {std::shared_ptr<void>(object, [object](void*) { object->Release(); }), nullptr};
  }

  static Value ValueOf(const Variant& value) {
    if (const auto* text = std::get_if<std::string>(&value)) return Wide(*text).c_str();
    if (const auto* boolean = std::get_if<bool>(&value)) return *boolean;
    if (const auto* number = std::get_if<std::int32_t>(&value)) return static_cast<int>(*number);
    if (const auto* object = std::get_if<AnyObject>(&value)) return Pointer(*object);
    if (std::holds_alternative<Missing>(value)) return Value::Missing();
    Value real = Value::Zero(VT_R8);
    real.dblVal = std::get<double>(value);
    return real;
  }
  static Variant VariantOf(const Value& value) {
    switch (value.vt) {
      case VT_BSTR:
        return Utf8(value.Text());
      case VT_BOOL:
        return value.boolVal != VARIANT_FALSE;
      case VT_I2:
        return static_cast<std::int32_t>(value.iVal);
      case VT_I4:
        return static_cast<std::int32_t>(value.lVal);
      case VT_DISPATCH:
        return Held(value.pdispVal);
      default:
        return {};
    }
  }

  static Result Described(const Value& value, const Type& type) {
    TYPEATTR* attributes = nullptr;
    Result result{VariantOf(value)};
    if (!type || value.vt != VT_I4 || FAILED(type->GetTypeAttr(&attributes))) return result;
    for (UINT at = 0; attributes->typekind == TKIND_ENUM && at < attributes->cVars; ++at) {
      VARDESC* member = nullptr;
      type->GetVarDesc(at, &member);
      if (member->lpvarValue->lVal == value.lVal)
        result.Constant = NameOf(*type.Get()) + " " + NameOf(*type.Get(), member->memid);
      type->ReleaseVarDesc(member);
    }
    type->ReleaseTypeAttr(attributes);
    return result;
  }
  static std::vector<DISPID> IdsOf(const AnyObject& object, const std::vector<std::string>& names) {
    std::vector<std::wstring> wide;
    for (const auto& name : names) wide.push_back(Wide(name));
    std::vector<wchar_t*> pointers;
    for (auto& name : wide) pointers.push_back(name.data());
    std::vector<DISPID> ids(names.size(), DISPID_UNKNOWN);
    const HRESULT code = Pointer(object)->GetIDsOfNames(
        IID{}, pointers.data(), static_cast<UINT>(names.size()), LOCALE_USER_DEFAULT, ids.data());
    EXPECT_EQ(code == S_OK, std::find(ids.begin(), ids.end(), DISPID_UNKNOWN) == ids.end());
    if (FAILED(code)) throw FaceFailure{ids[0] == DISPID_UNKNOWN ? 438 : 448};
    return ids;
  }

  Outcome Checked(Outcome outcome) const {
    if (outcome.Succeeded()) return outcome;
    // What the component was told is the failure itself.
    if (outcome.Number == 65535) throw FaceFailure{std::stoi(mErrors.Last(L"Number"))};
    throw FaceFailure{outcome.Number};
  }

  const Server& mServer;
  const ErrorComponent& mErrors;
};

class ServerConformanceTest : public ServerTest {};

TEST_F(ServerConformanceTest, AutomationGivesTheTranscript) {
  const ErrorComponent errors;
  AutomationFace face(TheServer(), errors);
  EXPECT_EQ(Interpreter(face).Run(LWCONFIG_CONFORMANCE), Interpreter::Transcript(LWCONFIG_CONFORMANCE));
}

}  // namespace
}  // namespace lwconfig::testing
