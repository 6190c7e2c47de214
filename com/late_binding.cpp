#include "late_binding.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <vector>

#include <lwconfig/automation/dispatch.h>
#include <lwconfig/automation/errors.h>
#include <lwconfig/core/base/letter_case.h>

#include "failures.h"
#include "object.h"
#include "values.h"

namespace lwconfig::com {
namespace {

using automation::ClassInfo;
using automation::ParameterInfo;
using automation::ValueKind;

/// A get takes the parameters of a let or set without the new value.
std::span<const ParameterInfo> ParametersOf(const ClassInfo::Member& member) {
  std::span<const ParameterInfo> most;
  for (const auto* slot : {member.Method, member.Get, member.Let, member.Set}) {
    if (slot != nullptr && slot->Parameters().size() > most.size()) most = slot->Parameters();
  }
  return most;
}

/// Parameters are numbered from 0.
DISPID FindParameter(const ClassInfo::Member& member, std::string_view name) {
  const auto parameters = ParametersOf(member);
  const auto found = std::find_if(parameters.begin(), parameters.end(), [&](const ParameterInfo& parameter) {
    return EqualIgnoringCase(parameter.Name, name);
  });
  return found != parameters.end() ? static_cast<DISPID>(found - parameters.begin()) : DISPID_UNKNOWN;
}

bool IsComplete(const DISPPARAMS* parameters) {
  return parameters != nullptr && (parameters->cArgs == 0 || parameters->rgvarg != nullptr) &&
         parameters->cNamedArgs <= parameters->cArgs &&
         (parameters->cNamedArgs == 0 || parameters->rgdispidNamedArgs != nullptr);
}

/// Use the default value of a foreign object where no object is expected, as Basic does.
Variant ValueFor(const ParameterInfo& parameter, const VARIANT& source) {
  Variant value = FromVariant(source);
  const auto kind = parameter.Type.Kind;
  const bool takesObjects =
      kind == ValueKind::Object || kind == ValueKind::AnyObject || kind == ValueKind::Variant;
  const auto* object = std::get_if<AnyObject>(&value);
  if (takesObjects || object == nullptr || !*object || object->Class != nullptr) return value;
  OwnedVariant text;
  VARIANT copy = source;
  if (FAILED(::VariantChangeType(text.Get(), &copy, 0, VT_BSTR))) return value;
  return FromVariant(*text.Get());
}

/// The arguments of one late-bound call. Clients pass them from the last to the first, named ones
/// before the others.
class LateArguments {
 public:
  LateArguments(const DISPPARAMS& given, const ClassInfo::Member& member)
      : mMember(member), mParameters(ParametersOf(member)) {
    if (given.cArgs > mArguments.size())
      throw Error(automation::kWrongArgumentCount,
                  std::string(member.Name) + " does not take " + std::to_string(given.cArgs) + " arguments");
    for (UINT at = given.cArgs; at-- > given.cNamedArgs;) Add(given.rgvarg[at], mCount);
    const auto named = std::span(given.rgdispidNamedArgs, given.cNamedArgs);
    const auto newValue = std::find(named.begin(), named.end(), DISPID_PROPERTYPUT);
    if (newValue != named.end()) Add(given.rgvarg[newValue - named.begin()], mCount);
    mOrderedCount = mCount;
    for (std::size_t at = 0; at < named.size(); ++at) {
      if (named[at] != DISPID_PROPERTYPUT) AddNamed(named[at], given.rgvarg[at]);
    }
  }
  LateArguments(const LateArguments&) = delete;
  LateArguments& operator=(const LateArguments&) = delete;

  automation::Arguments All() {
    return {std::span(mArguments).first(mOrderedCount), std::span(mNamed).first(mCount - mOrderedCount)};
  }

  /// Stores the values that the call has replaced where the client passed a reference.
  void Return() const {
    for (const Reference& reference : mReferences) {
      const Variant& now = mArguments[reference.Argument];
      if (!IsUnchanged(reference.Before, now)) StoreReferred(*reference.Place, now);
    }
  }

 private:
  /// The client's variable behind a reference.
  struct Reference {
    const VARIANT* Place;
    std::size_t Argument;
    Variant Before;
  };

  /// `place` is that of the parameter; further arguments belong to the object that the member holds.
  void Add(const VARIANT& source, std::size_t place) {
    if (place >= mParameters.size()) {
      mArguments[mCount++] = FromVariant(source);
      return;
    }
    const ParameterInfo& parameter = mParameters[place];
    mArguments[mCount] = ValueFor(parameter, source);
    if (parameter.IsByReference && (source.vt & VT_BYREF) != 0)
      mReferences.push_back({&source, mCount, mArguments[mCount]});
    ++mCount;
  }
  void AddNamed(DISPID id, const VARIANT& source) {
    if (id < 0 || static_cast<std::size_t>(id) >= mParameters.size())
      throw Error(automation::kNamedArgumentNotFound,
                  std::string(mMember.Name) + " has no parameter number " + std::to_string(id));
    const auto place = static_cast<std::size_t>(id);
    mNamed[mCount - mOrderedCount] = {mParameters[place].Name, &mArguments[mCount]};
    Add(source, place);
  }

  static constexpr std::size_t kMost = automation::kMostParameters;
  const ClassInfo::Member& mMember;
  std::span<const ParameterInfo> mParameters;
  std::array<Variant, kMost> mArguments{};
  std::vector<Reference> mReferences;
  std::size_t mCount = 0;
  std::size_t mOrderedCount = 0;
  std::array<automation::NamedArgument, kMost> mNamed{};
};

/// Stores the text of a failure whose result is one that clients expect.
HRESULT StoreMissing(const std::string& text, HRESULT result) {
  StoreFailure(Error(automation::kNoSuchMember, text), IID_IDispatch);
  return result;
}

}  // namespace

HRESULT FindNames(Object& object, REFIID reserved, LPOLESTR* names, UINT count, DISPID* ids) noexcept {
  if (reserved != IID_NULL) return ForgetFailure(DISP_E_UNKNOWNINTERFACE);
  if (count == 0) return S_OK;
  if (names == nullptr || ids == nullptr || std::find(names, names + count, nullptr) != names + count)
    return ForgetFailure(E_POINTER);
  return Guarded([&] {
    std::fill_n(ids, count, DISPID_UNKNOWN);
    const ClassInfo& info = object.Binding().Class;
    const std::string name = platform::Narrow(names[0]);
    const ClassInfo::Member* member = info.Find(name);
    if (member == nullptr) {
      return StoreMissing(std::string("The class ") + info.Name() + " has no member \"" + name + "\"",
                          DISP_E_UNKNOWNNAME);
    }
    ids[0] = member->Id;
    HRESULT result = S_OK;
    for (UINT at = 1; at < count; ++at) {
      const std::string parameter = platform::Narrow(names[at]);
      ids[at] = FindParameter(*member, parameter);
      if (ids[at] == DISPID_UNKNOWN) {
        result = StoreMissing(
            std::string(info.Name()) + "." + member->Name + " has no parameter \"" + parameter + "\"",
            DISP_E_UNKNOWNNAME);
      }
    }
    return result;
  });
}

HRESULT InvokeLate(Object& object, DISPID id, REFIID reserved, WORD flags, DISPPARAMS* parameters,
                   VARIANT* result, EXCEPINFO* failure) noexcept {
  if (result != nullptr) ::VariantInit(result);
  if (reserved != IID_NULL) return ForgetFailure(DISP_E_UNKNOWNINTERFACE);
  if (!IsComplete(parameters)) return ForgetFailure(E_INVALIDARG);
  return Guarded(
      [&] {
        const ClassInfo& info = object.Binding().Class;
        const ClassInfo::Member* member = info.Find(id);
        if (member == nullptr) {
          return StoreMissing(
              std::string("The class ") + info.Name() + " has no member number " + std::to_string(id),
              DISP_E_MEMBERNOTFOUND);
        }
        // Hold the object: the call may release the client's last reference.
        const AnyObject model = object.Model();
        LateArguments arguments(*parameters, *member);
        // Accept a call: some script engines request the items of a collection as if by a method.
        const bool isForEach = id == DISPID_NEWENUM && (flags & DISPATCH_METHOD) != 0;
        const Variant value =
            automation::Invoke(model, id, isForEach ? DISPATCH_PROPERTYGET : flags, arguments.All());
        arguments.Return();
        if (result != nullptr) *result = ToVariant(value);
        return S_OK;
      },
      [&](const Error& problem) {
        // Hosts that try several ways to use a member look for this result.
        return problem.Number() == automation::kNoSuchMember
                   ? StoreMissing(problem.what(), DISP_E_MEMBERNOTFOUND)
                   : StoreFailure(problem, IID_IDispatch, failure);
      });
}

}  // namespace lwconfig::com
