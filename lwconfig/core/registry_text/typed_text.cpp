#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <system_error>

#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/core/base/text.h>
#include <lwconfig/core/registry_text/registry_text.h>
#include <lwconfig/core/registry_text/typed_text.h>

namespace lwconfig {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::uint32_t kText = 1;
constexpr std::uint32_t kExpanded = 2;
constexpr std::uint32_t kBinary = 3;
constexpr std::uint32_t kNumber = 4;
constexpr std::uint32_t kTexts = 7;
constexpr std::uint32_t kLongNumber = 11;

struct TypeName {
  const char* Name;
  std::uint32_t Type;
};

constexpr std::array kTypes{
    TypeName{"sz", kText},     TypeName{"expand", kExpanded},  TypeName{"dword", kNumber},
    TypeName{"multi", kTexts}, TypeName{"qword", kLongNumber}, TypeName{"binary", kBinary},
};

std::optional<std::uint64_t> NumberOf(std::string_view text, std::uint64_t most) {
  const bool isHexadecimal = text.starts_with("0x") || text.starts_with("0X");
  if (isHexadecimal) text.remove_prefix(2);
  std::uint64_t number = 0;
  const auto [end, error] =
      std::from_chars(text.data(), text.data() + text.size(), number, isHexadecimal ? 16 : 10);
  const bool isWhole = error == std::errc() && end == text.data() + text.size();
  return isWhole && number <= most ? std::optional(number) : std::nullopt;
}

std::optional<Bytes> BytesOf(std::string_view text) {
  Bytes bytes;
  if (text.size() % 2 != 0) return std::nullopt;
  for (; !text.empty(); text.remove_prefix(2)) {
    std::uint8_t byte = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + 2, byte, 16);
    if (error != std::errc() || end != text.data() + 2) return std::nullopt;
    bytes.push_back(byte);
  }
  return bytes;
}

Bytes LittleEndian(std::uint64_t number) {
  Bytes bytes;
  for (int shift = 0; shift < 64; shift += 8) bytes.push_back(static_cast<std::uint8_t>(number >> shift));
  return bytes;
}

std::uint64_t FromLittleEndian(const Bytes& bytes) {
  std::uint64_t number = 0;
  for (std::size_t i = bytes.size(); i-- > 0;) number = number << 8 | bytes[i];
  return number;
}

std::string Digits(const Bytes& bytes) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text;
  for (const auto byte : bytes) (text += kDigits[byte >> 4]) += kDigits[byte & 0xF];
  return text;
}

}  // namespace

std::string RegistryTypeName(std::uint32_t type) {
  for (const TypeName& named : kTypes) {
    if (named.Type == type) return named.Name;
  }
  return std::to_string(type);
}

std::optional<std::uint32_t> RegistryTypeOf(std::string_view name) {
  constexpr std::string_view kPrefix = "reg_";
  if (EqualIgnoringCase(name.substr(0, kPrefix.size()), kPrefix)) name.remove_prefix(kPrefix.size());
  for (const TypeName& named : kTypes) {
    if (EqualIgnoringCase(name, named.Name)) return named.Type;
  }
  return std::nullopt;
}

std::vector<std::string> RegistryTypeNames() {
  std::vector<std::string> names;
  names.reserve(kTypes.size());
  for (const TypeName& named : kTypes) names.emplace_back(named.Name);
  return names;
}

bool IsTextList(std::uint32_t type) {
  return type == kTexts;
}

std::optional<RegistryValue> RegistryValueOf(std::uint32_t type, const std::vector<std::string>& texts) {
  if (IsTextList(type)) {
    // An empty text ends the list.
    const bool isWhole = std::ranges::find(texts, std::string()) == texts.end();
    return isWhole ? std::optional(RegistryValue{type, PackTexts(texts)}) : std::nullopt;
  }
  if (texts.size() != 1) return std::nullopt;
  const std::string& text = texts.front();
  if (type == kText || type == kExpanded) return RegistryValue{type, text};
  if (type == kNumber || type == kLongNumber) {
    const bool isLong = type == kLongNumber;
    const auto number = NumberOf(
        text, isLong ? std::numeric_limits<std::uint64_t>::max() : std::numeric_limits<std::uint32_t>::max());
    if (!number) return std::nullopt;
    if (isLong) return RegistryValue{type, LittleEndian(*number)};
    return RegistryValue{type, static_cast<std::uint32_t>(*number)};
  }
  auto bytes = BytesOf(text);
  return bytes ? std::optional(RegistryValue{type, std::move(*bytes)}) : std::nullopt;
}

std::string RegistryDataText(const RegistryValue& value) {
  if (const auto* text = std::get_if<std::string>(&value.Data)) return *text;
  if (const auto number = RegistryNumber(value)) return std::to_string(*number);
  const auto& bytes = std::get<Bytes>(value.Data);
  if (value.Type != kTexts) return Digits(bytes);
  std::string lines;
  for (const std::string& text : UnpackTexts(bytes)) lines += (lines.empty() ? "" : "\n") + text;
  return lines;
}

std::optional<std::uint64_t> RegistryNumber(const RegistryValue& value) {
  if (const auto* number = std::get_if<std::uint32_t>(&value.Data)) return *number;
  const auto* bytes = std::get_if<Bytes>(&value.Data);
  const bool isLong = value.Type == kLongNumber && bytes != nullptr && bytes->size() == sizeof(std::uint64_t);
  return isLong ? std::optional(FromLittleEndian(*bytes)) : std::nullopt;
}

}  // namespace lwconfig
