#include <algorithm>
#include <array>

#include <lwconfig/automation/published.h>
#include <lwconfig/core/base/letter_case.h>

namespace lwconfig::automation {
namespace {

template <class Info>
const Info* FindByName(std::span<const Info* const> all, std::string_view name,
                       const char* (*nameOf)(const Info&)) {
  const auto found = std::find_if(all.begin(), all.end(),
                                  [&](const Info* info) { return EqualIgnoringCase(nameOf(*info), name); });
  return found == all.end() ? nullptr : *found;
}

}  // namespace

std::span<const ClassInfo* const> PublishedClasses() {
#define LWCONFIG_TABLE_OF(T) &ClassOf<T>(),
  static const std::array all{LWCONFIG_PUBLISHED_CLASSES(LWCONFIG_TABLE_OF)};
#undef LWCONFIG_TABLE_OF
  return all;
}

std::span<const EnumInfo* const> PublishedEnumerations() {
#define LWCONFIG_TABLE_OF(E) &EnumOf<E>(),
  static const std::array all{LWCONFIG_PUBLISHED_ENUMERATIONS(LWCONFIG_TABLE_OF)};
#undef LWCONFIG_TABLE_OF
  return all;
}

const ClassInfo* FindClass(std::string_view name) {
  return FindByName<ClassInfo>(PublishedClasses(), name, [](const ClassInfo& info) { return info.Name(); });
}

const EnumInfo* FindEnumeration(std::string_view name) {
  return FindByName<EnumInfo>(PublishedEnumerations(), name, [](const EnumInfo& info) { return info.Name; });
}

}  // namespace lwconfig::automation
