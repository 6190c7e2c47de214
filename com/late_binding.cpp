#include "late_binding.h"

#include <algorithm>
#include <array>
#include <span>
#include <string>

#include <lwconfig/automation/dispatch.h>
#include <lwconfig/automation/errors.h>
#include <lwconfig/platform/letter_case.h>

#include "failures.h"
#include "object.h"
#include "values.h"

namespace lwconfig::com {
namespace {

using automation::ClassInfo;
using automation::ParameterInfo;

/// Every accessor of a property begins with the same parameters; one with the most has them all.
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

/// The arguments of one late-bound call. Clients pass them from the last to the first, the named ones before.
class LateArguments {
 public:
  LateArguments(const DISPPARAMS& parameters, const ClassInfo::Member& member) {
    if (parameters.cArgs > mArguments.size()) {
      throw Error(automation::kWrongArgumentCount, std::string(member.Name) + " does not take " +
                                                       std::to_string(parameters.cArgs) + " arguments");
    }
    for (UINT at = parameters.cArgs; at-- > parameters.cNamedArgs;) Add(parameters.rgvarg[at]);
    const auto* newValue =
        std::find(parameters.rgdispidNamedArgs, parameters.rgdispidNamedArgs + parameters.cNamedArgs,
                  DISPID_PROPERTYPUT);
    if (newValue != parameters.rgdispidNamedArgs + parameters.cNamedArgs)
      Add(parameters.rgvarg[newValue - parameters.rgdispidNamedArgs]);
    mOrderedCount = mCount;
    const auto names = ParametersOf(member);
    for (UINT at = 0; at < parameters.cNamedArgs; ++at) {
      const DISPID id = parameters.rgdispidNamedArgs[at];
      if (id == DISPID_PROPERTYPUT) continue;
      if (id < 0 || static_cast<std::size_t>(id) >= names.size())
        throw Error(automation::kNamedArgumentNotFound,
                    std::string(member.Name) + " has no parameter number " + std::to_string(id));
      mNamed[mCount - mOrderedCount] = {names[static_cast<std::size_t>(id)].Name, &mArguments[mCount]};
      Add(parameters.rgvarg[at]);
    }
  }
  LateArguments(const LateArguments&) = delete;
  LateArguments& operator=(const LateArguments&) = delete;

  automation::Arguments All() {
    return {std::span(mArguments).first(mOrderedCount), std::span(mNamed).first(mCount - mOrderedCount)};
  }

  /// Stores what the call has replaced where the client passed a reference.
  void Return() const {
    for (std::size_t at = 0; at < mCount; ++at) {
      if (IsReference(at) && !(mArguments[at] == mBefore[at])) StoreReferred(*mSources[at], mArguments[at]);
    }
  }

 private:
  bool IsReference(std::size_t at) const { return (mSources[at]->vt & VT_BYREF) != 0; }
  void Add(const VARIANT& source) {
    mSources[mCount] = &source;
    mArguments[mCount] = FromVariant(source);
    if (IsReference(mCount)) mBefore[mCount] = mArguments[mCount];
    ++mCount;
  }

  static constexpr std::size_t kMost = automation::kMostParameters;
  std::array<const VARIANT*, kMost> mSources{};
  std::array<Variant, kMost> mArguments{};
  std::array<Variant, kMost> mBefore{};
  std::size_t mCount = 0;
  std::size_t mOrderedCount = 0;
  std::array<automation::NamedArgument, kMost> mNamed{};
};

/// Leaves the text of a failure whose result is one that clients expect.
HRESULT TellMissing(const std::string& text, HRESULT result) {
  Tell(Error(automation::kNoSuchMember, text), IID_IDispatch);
  return result;
}

}  // namespace

HRESULT FindNames(Object& object, REFIID reserved, LPOLESTR* names, UINT count, DISPID* ids) noexcept {
  if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (count == 0) return S_OK;
  if (names == nullptr || ids == nullptr || std::find(names, names + count, nullptr) != names + count)
    return E_POINTER;
  return Guarded([&] {
    std::fill_n(ids, count, DISPID_UNKNOWN);
    const ClassInfo& info = object.Binding().Class;
    const std::string name = platform::Narrow(names[0]);
    const ClassInfo::Member* member = info.Find(name);
    if (member == nullptr) {
      return TellMissing(std::string("The class ") + info.Name() + " has no member \"" + name + "\"",
                         DISP_E_UNKNOWNNAME);
    }
    ids[0] = member->Id;
    for (UINT at = 1; at < count; ++at) {
      const std::string parameter = platform::Narrow(names[at]);
      ids[at] = FindParameter(*member, parameter);
      if (ids[at] == DISPID_UNKNOWN) {
        return TellMissing(
            std::string(info.Name()) + "." + member->Name + " has no parameter \"" + parameter + "\"",
            DISP_E_UNKNOWNNAME);
      }
    }
    return S_OK;
  });
}

HRESULT InvokeLate(Object& object, DISPID id, REFIID reserved, WORD flags, DISPPARAMS* parameters,
                   VARIANT* result, EXCEPINFO* failure) noexcept {
  if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
  if (!IsComplete(parameters)) return E_INVALIDARG;
  if (result != nullptr) ::VariantInit(result);
  return Guarded(
      [&] {
        const ClassInfo& info = object.Binding().Class;
        const ClassInfo::Member* member = info.Find(id);
        if (member == nullptr) {
          return TellMissing(
              std::string("The class ") + info.Name() + " has no member number " + std::to_string(id),
              DISP_E_MEMBERNOTFOUND);
        }
        // The call may let go of the last reference that the client has.
        const AnyObject model = object.Model();
        LateArguments arguments(*parameters, *member);
        // Some script engines ask for the items of a collection as if it were a method that gives them.
        const bool isForEach = id == DISPID_NEWENUM && (flags & DISPATCH_METHOD) != 0;
        const Variant value =
            automation::Invoke(model, id, isForEach ? DISPATCH_PROPERTYGET : flags, arguments.All());
        arguments.Return();
        if (result != nullptr) *result = ToVariant(value);
        return S_OK;
      },
      [&](const Error& problem) { return Tell(problem, IID_IDispatch, failure); });
}

}  // namespace lwconfig::com
