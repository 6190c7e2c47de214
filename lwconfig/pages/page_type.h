#pragma once

#include <cstdint>
#include <string_view>

namespace lwconfig {

/// Kinds of page: a standard page not tied to a kind of code element, or one produced per code element.
enum PageTypeEnum : std::int32_t {
  pgStandard = 0,       // not tied to a kind of code element
  pgobject = 1,         // an object: a class or module
  pgcollection = 2,     // a collection object
  pgMethod = 3,         // a method
  pgProperty = 4,       // a property
  pgEvent = 5,          // an event
  pgEnumeration = 6,    // an enumeration
  pgUDT = 7,            // a structure
  pgLibrary = 8,        // a library
  pgDeclaration = 9,    // a declare statement
  pgProject = 10,       // a project
  pgModule = 11,        // a module
  pgInterface = 12,     // an implemented interface
  pgProjectGroup = 13,  // a project group
  pgSourceCode = 14,    // source code
  pgExample = 15,       // an example
};

/// The file had no usable page type.
inline constexpr auto kNoPageType = static_cast<PageTypeEnum>(-1);

/// The name of the code element for which pages of this kind are produced; empty where there is none.
std::string_view CodeElementOf(PageTypeEnum pageType);

}  // namespace lwconfig
