#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>

#include <lwconfig/core/base/conversions.h>
#include <lwconfig/core/base/letter_case.h>

namespace lwconfig {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

std::string_view SkipBlanks(std::string_view text) {
  const auto first = text.find_first_not_of(kBlanks);
  return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

std::size_t DigitRun(std::string_view text, std::size_t from) {
  std::size_t end = from;
  while (end < text.size() && IsDigit(text[end])) ++end;
  return end;
}

/// The power of ten of the first digit other than 0.
double Magnitude(std::string_view number) {
  const auto mark = std::min(number.find_first_of("eE"), number.size());
  const auto digits = number.substr(0, mark);
  const auto point = static_cast<double>(std::min(digits.find('.'), digits.size()));
  const auto first = static_cast<double>(digits.find_first_of("123456789"));
  double exponent = 0;
  for (const char c : number.substr(mark)) {
    if (IsDigit(c)) exponent = exponent * 10 + (c - '0');
  }
  const bool isNegative = mark + 1 < number.size() && number[mark + 1] == '-';
  return point - first + (isNegative ? -exponent : exponent);
}

struct ParsedNumber {
  double Value;
  std::size_t Length;
};

/// Reads the number at the start of `text`, which has no leading blanks.
std::optional<ParsedNumber> ReadNumber(std::string_view text) {
  std::size_t end = !text.empty() && (text[0] == '-' || text[0] == '+') ? 1 : 0;
  const std::size_t whole = end;
  end = DigitRun(text, whole);
  std::size_t digits = end - whole;
  if (end < text.size() && text[end] == '.') {
    const std::size_t fractionEnd = DigitRun(text, end + 1);
    digits += fractionEnd - (end + 1);
    end = fractionEnd;
  }
  if (digits == 0) return std::nullopt;
  if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
    std::size_t exponent = end + 1;
    if (exponent < text.size() && (text[exponent] == '-' || text[exponent] == '+')) ++exponent;
    const std::size_t exponentEnd = DigitRun(text, exponent);
    if (exponentEnd > exponent) end = exponentEnd;
  }
  const std::size_t start = text[0] == '+' ? 1 : 0;
  double value = 0;
  const auto result = std::from_chars(text.data() + start, text.data() + end, value);
  if (result.ec == std::errc::result_out_of_range) {
    value = Magnitude(text.substr(0, end)) > 0 ? std::numeric_limits<double>::infinity() : 0;
  }
  return ParsedNumber{value, end};
}

Conversion<std::int32_t> Rounded(double value) {
  const double rounded = std::nearbyint(value);  // the default rounding mode: halves to even
  if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
        rounded <= std::numeric_limits<std::int32_t>::max())) {
    return {0, kOverflow, "is outside the range of a 32-bit integer"};
  }
  return {static_cast<std::int32_t>(rounded), 0, rounded == value ? nullptr : "is no whole number"};
}

/// Reads a short number, the common case, without floating point.
std::optional<std::int32_t> PlainDigits(std::string_view text) {
  constexpr std::size_t kSafeDigits = 9;
  const bool negative = !text.empty() && text[0] == '-';
  const std::string_view digits = text.substr(negative ? 1 : 0);
  if (digits.empty() || digits.size() > kSafeDigits) return std::nullopt;
  std::int32_t value = 0;
  for (const char c : digits) {
    if (!IsDigit(c)) return std::nullopt;
    value = value * 10 + (c - '0');
  }
  return negative ? -value : value;
}

std::optional<double> WholeNumber(std::string_view text) {
  const auto trimmed = SkipBlanks(text);
  const auto number = ReadNumber(trimmed);
  if (!number || !SkipBlanks(trimmed.substr(number->Length)).empty()) return std::nullopt;
  return number->Value;
}

}  // namespace

double LeadingNumber(std::string_view text) {
  const auto number = ReadNumber(SkipBlanks(text));
  return number ? number->Value : 0;
}

Conversion<std::int32_t> LeadingInteger(std::string_view text) {
  if (const auto plain = PlainDigits(text)) return {*plain};
  auto result = Rounded(LeadingNumber(text));
  if (result && !WholeNumber(text)) result.Problem = "is not a number; only digits at its start count";
  return result;
}

Conversion<std::int32_t> StrictInteger(std::string_view text) {
  if (const auto plain = PlainDigits(text)) return {*plain};
  const auto number = WholeNumber(text);
  return number ? Rounded(*number) : Conversion<std::int32_t>{0, kTypeMismatch, "is not a number"};
}

Conversion<bool> ExactTrue(std::string_view text) {
  if (text == "True") return {true};
  const bool saysFalse = text.empty() || EqualIgnoringCase(text, "False") || text == "0";
  return {false, 0, saysFalse ? nullptr : "is not \"True\", letter case included"};
}

Conversion<bool> TextToBoolean(std::string_view text) {
  if (EqualIgnoringCase(text, "True")) return {true};
  if (EqualIgnoringCase(text, "False")) return {false};
  const auto number = WholeNumber(text);
  return number ? Conversion<bool>{*number != 0}
                : Conversion<bool>{false, kTypeMismatch, "is neither True nor False nor a number"};
}

std::string ToText(std::int32_t value) {
  return std::to_string(value);
}

}  // namespace lwconfig
