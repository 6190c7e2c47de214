#pragma once

#include <cstdint>
#include <string_view>

namespace lwconfig {

/// Kinds of page: a standard page not tied to a kind of code element, or one produced per code element.
enum PageTypeEnum : std::int32_t {
  pgStandard = 0,
  pgobject = 1,
  pgcollection = 2,
  pgMethod = 3,
  pgProperty = 4,
  pgEvent = 5,
  pgEnumeration = 6,
  pgUDT = 7,
  pgLibrary = 8,
  pgDeclaration = 9,
  pgProject = 10,
  pgModule = 11,
  pgInterface = 12,
  pgProjectGroup = 13,
  pgSourceCode = 14,
  pgExample = 15,
};

/// No usable page type was found in the file.
inline constexpr auto kNoPageType = static_cast<PageTypeEnum>(-1);

/// The name of the code element for which pages of this kind are produced; empty where there is none.
std::string_view CodeElementOf(PageTypeEnum pageType);

}  // namespace lwconfig
