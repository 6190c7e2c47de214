#include <array>
#include <charconv>

#include <lwconfig/core/base/unicode.h>
#include <lwconfig/core/registry_text/registry_text.h>
#include <lwconfig/core/registry_text/registry_writer.h>

namespace lwconfig {
namespace {

using Bytes = std::vector<std::uint8_t>;

std::string Quoted(std::string_view text) {
  std::string quoted = "\"";
  // Write valid UTF-8 only: one invalid byte would change the encoding of the whole file.
  for (const char c : Utf8From8Bit(std::string(text))) {
    if (c == '"' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + '"';
}

std::string Hex(std::uint32_t number, std::size_t leastDigits) {
  std::array<char, 8> digits{};
  const char* end = std::to_chars(digits.data(), digits.data() + digits.size(), number, 16).ptr;
  const auto count = static_cast<std::size_t>(end - digits.data());
  return std::string(leastDigits > count ? leastDigits - count : 0, '0') + std::string(digits.data(), count);
}

Bytes TerminatedText(const std::string& text, bool old) {
  const std::string utf8 = Utf8From8Bit(text) + '\0';
  return old ? Bytes(utf8.begin(), utf8.end()) : Utf16FromUtf8(utf8);
}

Bytes NumberBytes(std::uint32_t number) {
  Bytes bytes;
  for (int shift = 0; shift < 32; shift += 8) bytes.push_back(static_cast<std::uint8_t>(number >> shift));
  return bytes;
}

std::string HexData(std::uint32_t type, const Bytes& bytes, std::string_view lineBreak) {
  constexpr std::size_t kBytesPerLine = 24;
  std::string data = type == 3 ? "hex:" : "hex(" + Hex(type, 1) + "):";
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (i > 0) data += ',';
    if (i > 0 && i % kBytesPerLine == 0) data.append("\\").append(lineBreak).append("  ");
    data += Hex(bytes[i], 2);
  }
  return data;
}

}  // namespace

std::string RegistryKeyLine(Hive hive, std::string_view key) {
  std::string line = "[" + std::string(HiveName(hive));
  if (!key.empty()) line.append("\\").append(Utf8From8Bit(std::string(key)));
  return line + "]";
}

std::string RegistryNameText(std::string_view name) {
  return name.empty() ? "@" : Quoted(name);
}

std::string RegistryValueText(const RegistryValue& value, bool old, std::string_view lineBreak) {
  if (const auto* text = std::get_if<std::string>(&value.Data)) {
    return value.Type == 1 ? Quoted(*text) : HexData(value.Type, TerminatedText(*text, old), lineBreak);
  }
  if (const auto* number = std::get_if<std::uint32_t>(&value.Data)) {
    return value.Type == 4 ? "dword:" + Hex(*number, 8)
                           : HexData(value.Type, NumberBytes(*number), lineBreak);
  }
  return HexData(value.Type, std::get<Bytes>(value.Data), lineBreak);
}

}  // namespace lwconfig
