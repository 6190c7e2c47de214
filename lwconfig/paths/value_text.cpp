#include <algorithm>
#include <array>

#include <lwconfig/automation/conversion.h>
#include <lwconfig/core/base/colour.h>
#include <lwconfig/core/base/conversions.h>
#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/paths/value_text.h>

namespace lwconfig {

using automation::TypeInfo;
using automation::ValueKind;

namespace {

/// Red, green and blue, or one of the system's colours.
bool IsColour(std::int32_t number) {
  constexpr std::uint32_t kMostRgb = 0xFFFFFF;
  constexpr std::uint32_t kSystem = 0x80000000;
  constexpr std::uint32_t kMostSystem = 0x800000FF;
  const auto bits = static_cast<std::uint32_t>(number);
  return bits <= kMostRgb || (bits >= kSystem && bits <= kMostSystem);
}

std::int32_t WholeNumber(const std::string& text, const TypeInfo& type) {
  constexpr std::int32_t kMost16 = 32767;
  const auto number = StrictInteger(text);
  const bool isWhole = text.find_first_not_of("+-0123456789") == std::string::npos;
  if (!number || !isWhole) throw NoValue(text, type, number ? kTypeMismatch : number.ErrorNumber);
  if (type.Kind == ValueKind::Integer16 && (number.Value > kMost16 || number.Value < -kMost16 - 1))
    throw NoValue(text, type, kOverflow);
  return number.Value;
}

std::int32_t Colour(const std::string& text, const TypeInfo& type) {
  const auto colour = ColourValue(text);
  if (!colour) throw NoValue(text, type, colour.ErrorNumber);
  return colour.Value;
}

bool Flag(const std::string& text, const TypeInfo& type) {
  for (const char* yes : {"True", "yes", "1", "-1"}) {
    if (EqualIgnoringCase(text, yes)) return true;
  }
  for (const char* no : {"False", "no", "0"}) {
    if (EqualIgnoringCase(text, no)) return false;
  }
  throw NoValue(text, type);
}

std::int32_t Enumerator(const std::string& text, const TypeInfo& type) {
  for (const auto& member : type.Enumeration().Members) {
    if (EqualIgnoringCase(text, member.Name)) return member.Value;
  }
  return WholeNumber(text, type);
}

bool NamesObject(const std::string& text) {
  return text.starts_with('@') || EqualIgnoringCase(text, "null");
}

AnyObject Object(const std::string& text, const TypeInfo& type, const ObjectAt& objectAt) {
  if (!NamesObject(text)) throw NoValue(text, type);
  if (!text.starts_with('@')) return {};
  AnyObject object = objectAt(ParsePath(std::string_view(text).substr(1)));
  if (type.Kind == ValueKind::Object && object.Class != &type.Class()) {
    throw PathError(PathErrorKind::Usage, text.substr(1) + " is a " + object.Class->Name() + ", a " +
                                              type.Class().Name() + " was expected")
        .Numbered(kTypeMismatch);
  }
  return object;
}

Variant AnyValue(const std::string& text, const TypeInfo& type, const ObjectAt& objectAt) {
  if (NamesObject(text)) return Object(text, type, objectAt);
  return std::visit([](const auto& value) { return Variant(value); }, ParseValue(text));
}

}  // namespace

std::string ValueText(const Variant& value, const TypeInfo& type) {
  if (const auto* object = std::get_if<AnyObject>(&value)) {
    if (!*object) return "null";
    return std::string("(") + (object->Class != nullptr ? object->Class->Name() : "object") + ")";
  }
  if (std::holds_alternative<Null>(value)) return "null";
  if (type.Kind == ValueKind::Enumeration && std::holds_alternative<std::int32_t>(value)) {
    for (const auto& member : type.Enumeration().Members) {
      if (member.Value == std::get<std::int32_t>(value)) return member.Name;
    }
  }
  if (type.IsColour && std::holds_alternative<std::int32_t>(value))
    return ColourText(std::get<std::int32_t>(value));
  return std::holds_alternative<Missing>(value) ? std::string() : automation::ToText(value);
}

Variant TypedValue(const std::string& text, const TypeInfo& type, const ObjectAt& objectAt) {
  try {
    switch (type.Kind) {
      case ValueKind::Boolean:
        return Flag(text, type);
      case ValueKind::Integer16:
      case ValueKind::Integer32:
        return type.IsColour ? Colour(text, type) : WholeNumber(text, type);
      case ValueKind::Enumeration:
        return Enumerator(text, type);
      case ValueKind::Object:
      case ValueKind::AnyObject:
        return Object(text, type, objectAt);
      case ValueKind::Variant:
        return AnyValue(text, type, objectAt);
      case ValueKind::None:
      case ValueKind::Text:
      case ValueKind::Enumerator:
        break;
    }
    return text;
  } catch (PathError& fault) {
    fault.At(text, 0);
    throw;
  }
}

Variant TypedArgument(const PathValue& argument, const TypeInfo& type, std::string_view text) {
  const auto* position = std::get_if<std::int32_t>(&argument.Value);
  if (type.Kind == ValueKind::Variant) {
    return position != nullptr ? Variant(*position) : Variant(std::get<std::string>(argument.Value));
  }
  const std::string written =
      position != nullptr ? std::to_string(*position) : std::get<std::string>(argument.Value);
  try {
    return TypedValue(written, type, [&](const MemberPath&) -> AnyObject {
      throw PathError(PathErrorKind::Usage, "an object cannot stand inside a path");
    });
  } catch (const PathError& fault) {
    PathError placed(fault.Kind(), fault.what());
    throw placed.Numbered(fault.Number()).At(text, argument.Offset);
  }
}

bool HasMeaning(const Variant& value, const TypeInfo& type) {
  const auto* number = std::get_if<std::int32_t>(&value);
  if (number == nullptr) return true;
  if (type.IsColour) return IsColour(*number);
  return type.Kind != ValueKind::Enumeration ||
         std::ranges::find(type.Enumeration().Members, *number, &automation::EnumMember::Value) !=
             type.Enumeration().Members.end();
}

PathError NoValue(const std::string& text, const TypeInfo& type, std::int32_t number) {
  const auto possible = PossibleValues(type);
  if (!possible.empty() && type.Kind == ValueKind::Enumeration)
    return PathError::Unknown(PathErrorKind::Usage, "value", text,
                              std::string(" of ") + type.Enumeration().Name, possible)
        .Numbered(number);
  const bool isFlag = type.Kind == ValueKind::Boolean;
  const bool isNumber = type.Kind == ValueKind::Integer16 || type.Kind == ValueKind::Integer32;
  return PathError(PathErrorKind::Usage,
                   "'" + text + "' is not " +
                       (isFlag          ? "True or False"
                        : type.IsColour ? "a colour: #rrggbb, or the number that --json prints"
                        : isNumber      ? "a whole number that fits"
                                        : "@ and the path of an object, or null"))
      .Numbered(number);
}

std::vector<std::string> PossibleValues(const TypeInfo& type) {
  std::vector<std::string> values;
  if (type.Kind == ValueKind::Boolean) values = {"True", "False"};
  if (type.Kind == ValueKind::Enumeration) {
    for (const auto& member : type.Enumeration().Members) values.emplace_back(member.Name);
  }
  return values;
}

}  // namespace lwconfig
