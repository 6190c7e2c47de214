#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include <lwconfig/automation/conversion.h>
#include <lwconfig/automation/errors.h>
#include <lwconfig/core/base/conversions.h>
#include <lwconfig/core/base/error.h>

namespace lwconfig::automation {
namespace {

std::string NumberText(double number) {
  std::array<char, 32> digits{};
  std::to_chars(digits.data(), digits.data() + digits.size() - 1, number);
  return digits.data();
}

[[noreturn]] void FailConversion(const Variant& value, const char* wanted) {
  if (std::holds_alternative<Null>(value)) throw Error(kInvalidUseOfNull, "Null is not allowed here");
  throw Error(kTypeMismatch, std::string(wanted) + " was expected, " + DescribeValue(value) + " was found");
}

template <class Integer>
Integer Rounded(double number) {
  const double rounded = std::nearbyint(number);
  if (!(rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max()))
    throw Error(kOverflow, NumberText(number) + " is outside the range of the type");
  return static_cast<Integer>(rounded);
}

template <class Integer>
Integer ToInteger(const Variant& value) {
  if (const auto* integer = std::get_if<std::int32_t>(&value)) return Rounded<Integer>(*integer);
  if (const auto* small = std::get_if<std::int16_t>(&value)) return static_cast<Integer>(*small);
  if (const auto* number = std::get_if<double>(&value)) return Rounded<Integer>(*number);
  if (const auto* flag = std::get_if<bool>(&value)) return *flag ? Integer{-1} : Integer{0};
  if (const auto* text = std::get_if<std::string>(&value))
    return Rounded<Integer>(Converted(StrictInteger(*text), *text));
  if (std::holds_alternative<std::monostate>(value)) return 0;
  FailConversion(value, "A number");
}

}  // namespace

bool ToBoolean(const Variant& value) {
  if (const auto* flag = std::get_if<bool>(&value)) return *flag;
  if (const auto* text = std::get_if<std::string>(&value)) return Converted(TextToBoolean(*text), *text);
  if (const auto* number = std::get_if<double>(&value)) return *number != 0;
  if (std::holds_alternative<AnyObject>(value) || std::holds_alternative<Missing>(value))
    FailConversion(value, "A boolean");
  return ToInteger<std::int32_t>(value) != 0;
}

std::int16_t ToInteger16(const Variant& value) {
  return ToInteger<std::int16_t>(value);
}

std::int32_t ToInteger32(const Variant& value) {
  return ToInteger<std::int32_t>(value);
}

std::string ToText(const Variant& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  if (const auto* integer = std::get_if<std::int32_t>(&value)) return lwconfig::ToText(*integer);
  if (const auto* small = std::get_if<std::int16_t>(&value)) return lwconfig::ToText(std::int32_t{*small});
  if (const auto* number = std::get_if<double>(&value)) return NumberText(*number);
  if (const auto* flag = std::get_if<bool>(&value)) return std::string(lwconfig::ToText(*flag));
  if (std::holds_alternative<std::monostate>(value)) return {};
  FailConversion(value, "A text");
}

AnyObject ToObject(const Variant& value) {
  if (const auto* object = std::get_if<AnyObject>(&value)) return *object;
  if (std::holds_alternative<std::monostate>(value) || std::holds_alternative<Null>(value) ||
      std::holds_alternative<Missing>(value))
    return {};
  FailConversion(value, "An object");
}

AnyObject ToObject(const Variant& value, const ClassInfo& expected) {
  AnyObject object = ToObject(value);
  if (object && object.Class != &expected)
    FailConversion(value, (std::string("An object of the class ") + expected.Name()).c_str());
  return object;
}

ItemKey ToItemKey(const Variant& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  if (const auto* integer = std::get_if<std::int32_t>(&value)) return *integer;
  if (const auto* small = std::get_if<std::int16_t>(&value)) return *small;
  if (const auto* number = std::get_if<double>(&value)) {
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    if (std::abs(*number) < kMost) return Rounded<std::int32_t>(*number);
    return *number < 0 ? -kMost : kMost;
  }
  if (const auto* flag = std::get_if<bool>(&value))
    return ItemKey::OfOtherType(*flag ? "the key True" : "the key False");
  if (ToObject(value)) return ItemKey::OfOtherType("an object as its key");
  return {};
}

Variant EmptyValue(const TypeInfo& type) {
  switch (type.Kind) {
    case ValueKind::Boolean:
      return false;
    case ValueKind::Integer16:
      return std::int16_t{0};
    case ValueKind::Integer32:
    case ValueKind::Enumeration:
      return std::int32_t{0};
    case ValueKind::Text:
      return std::string();
    case ValueKind::Object:
    case ValueKind::AnyObject:
    case ValueKind::Enumerator:
      return AnyObject{};
    case ValueKind::None:
    case ValueKind::Variant:
      break;
  }
  return {};
}

std::string DescribeValue(const Variant& value) {
  constexpr std::size_t kShownText = 60;
  struct Describer {
    std::string operator()(std::monostate) const { return "an empty value"; }
    std::string operator()(Null) const { return "Null"; }
    std::string operator()(Missing) const { return "no argument"; }
    std::string operator()(bool flag) const { return std::string(lwconfig::ToText(flag)); }
    std::string operator()(std::int16_t number) const { return lwconfig::ToText(std::int32_t{number}); }
    std::string operator()(std::int32_t number) const { return lwconfig::ToText(number); }
    std::string operator()(double number) const { return NumberText(number); }
    std::string operator()(const std::string& text) const {
      if (text.size() <= kShownText) return "the text \"" + text + "\"";
      return "the text \"" + text.substr(0, kShownText) + "...\"";
    }
    std::string operator()(const AnyObject& object) const {
      if (!object) return "no object";
      if (object.Class == nullptr) return "an object of another library";
      return std::string("an object of the class ") + object.Class->Name();
    }
  };
  return std::visit(Describer{}, value);
}

const char* TypeName(const TypeInfo& type) {
  switch (type.Kind) {
    case ValueKind::None:
      return "";
    case ValueKind::Boolean:
      return "Boolean";
    case ValueKind::Integer16:
      return "Integer16";
    case ValueKind::Integer32:
      return "Integer32";
    case ValueKind::Enumeration:
      return type.Enumeration().Name;
    case ValueKind::Text:
      return "Text";
    case ValueKind::Object:
      return type.Class().Name();
    case ValueKind::AnyObject:
      return "Object";
    case ValueKind::Variant:
      return "Variant";
    case ValueKind::Enumerator:
      return "Enumerator";
  }
  return "";
}

}  // namespace lwconfig::automation
