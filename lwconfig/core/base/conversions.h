#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include <lwconfig/core/base/error.h>

namespace lwconfig {

/// The value of a text, or the conversion error: its number and a description of the fault ("is not a
/// number"). Beside a value, `Problem` explains why the text may mean something else; it is null where there
/// is no doubt.
template <class T>
struct Conversion {
  T Value{};
  std::int32_t ErrorNumber = 0;
  const char* Problem = nullptr;
  explicit operator bool() const { return ErrorNumber == 0; }
};

/// The number at the start of the text: blanks, a sign, digits with a decimal point, an exponent. 0 where
/// there is none, infinite where it is too large for a double.
double LeadingNumber(std::string_view text);

/// As above, rounded to the nearest integer, halves to the even neighbour. Error 6 outside 32 bits.
Conversion<std::int32_t> LeadingInteger(std::string_view text);

/// The whole text as a number of the same form, surrounding blanks allowed, rounded in the same way.
/// Error 13 for any other text, 6 outside 32 bits.
Conversion<std::int32_t> StrictInteger(std::string_view text);

/// True exactly for "True", letter case included. Never an error.
Conversion<bool> ExactTrue(std::string_view text);

/// "True" and "False" in any letter case, or a number, of which only 0 is false. Error 13 for any other text.
Conversion<bool> TextToBoolean(std::string_view text);

/// The text forms of values in files: "True" or "False", and decimal digits.
inline std::string_view ToText(bool value) {
  return value ? "True" : "False";
}
std::string ToText(std::int32_t value);

/// The value of the conversion of `text`; throws the error of a failed one.
template <class T>
T Converted(const Conversion<T>& conversion, std::string_view text) {
  if (!conversion) throw Error(conversion.ErrorNumber, "\"" + std::string(text) + "\" " + conversion.Problem);
  return conversion.Value;
}

}  // namespace lwconfig
