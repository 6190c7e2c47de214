#include "class_binding.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <unordered_map>

#include <lwconfig/automation/contracts.h>
#include <lwconfig/automation/published.h>

#include "entries.h"

namespace lwconfig::com {
namespace {

/// The identity of a published item (see `automation::Identity`).
GUID IdentityOf(std::string_view published) {
  GUID identity{};
  ::IIDFromString(platform::Wide("{" + std::string(automation::Identity(published)) + "}").c_str(),
                  &identity);
  return identity;
}

ClassBinding Bind(const automation::ClassInfo& info) {
  const std::string name = info.Name();
  return {info, IdentityOf("class." + name), IdentityOf("interface._" + name),
          info.Events().empty() ? GUID_NULL : IdentityOf("events.__" + name), InterfaceEntries(info)};
}

using Bindings = std::unordered_map<const automation::ClassInfo*, ClassBinding>;

const Bindings& AllBindings() {
  // Never destroyed: clients may hold objects until the process exits.
  static const auto* bindings = [] {
    auto* made = new Bindings;
    for (const automation::ClassInfo* info : automation::PublishedClasses()) made->emplace(info, Bind(*info));
    return made;
  }();
  return *bindings;
}

}  // namespace

const ClassBinding& BindingOf(const automation::ClassInfo& info) {
  return AllBindings().at(&info);
}

const ClassBinding* FindBinding(REFCLSID classId) {
  const auto found = std::find_if(AllBindings().begin(), AllBindings().end(),
                                  [&](const auto& binding) { return binding.second.ClassId == classId; });
  return found != AllBindings().end() ? &found->second : nullptr;
}

}  // namespace lwconfig::com
