#pragma once

#include <string>

#include <lwconfig/core/base/text.h>

namespace lwconfig::testing {

/// The attributes that a language has to have, in the order in which they are read.
inline constexpr const char* kLanguageWords =
    "Name Caption Overloads Overrides Virtual NotVirtual Abstract Shadows Static Optional OutParam ByRef "
    "ByVal ReturnTypePrefix ArraySymbol VoidTypeName ParamArray Function Sub ReadOnlyProperty "
    "WriteOnlyProperty ReadWriteProperty MustInherit NotInheritable ReadOnlyField";

/// A language element whose words are their attributes' names and a blank.
inline std::string LanguageElement(const std::string& name, const std::string& inside = {},
                                   const std::string& more = {}) {
  std::string element = "<Language";
  for (const auto word : Split(kLanguageWords, " ")) {
    element.append(" ").append(word) += "='" + (word == "Name" ? name : std::string(word) + " ") + "'";
  }
  return element + " " + more + ">" + inside + "</Language>";
}

}  // namespace lwconfig::testing
