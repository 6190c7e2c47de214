#include <bit>

#include <lwconfig/core/base/conversions.h>
#include <lwconfig/core/base/error.h>
#include <lwconfig/core/files/file_error.h>
#include <lwconfig/core/files/registry_access.h>
#include <lwconfig/platform/files.h>
#include <lwconfig/platform/service.h>

namespace lwconfig {
namespace {

template <class Operation>
auto OnHost(Operation operation) {
  try {
    return operation(platform::Host<platform::Registry>());
  } catch (const RegistryFormatError& damage) {
    Error error(kPathFileAccess,
                std::string("The registry file is damaged and was left as it is: ") + damage.what());
    error.SetPosition(
        {platform::Host<platform::Files>().ProductPath(damage.File), damage.Line, damage.Column});
    throw error;
  } catch (const std::system_error& failure) {
    throw FileError(failure, {});
  }
}

Hive CheckedHive(std::uint32_t hive) {
  if (hive != kCurrentUser && hive != kLocalMachine)
    throw Error(kInvalidCall, "There is no registry hive " + std::to_string(hive));
  return static_cast<Hive>(hive);
}

std::string Hexadecimal(const std::vector<std::uint8_t>& bytes) {
  constexpr char kDigits[] = "0123456789abcdef";
  std::string text;
  for (const auto byte : bytes) {
    text.push_back(kDigits[byte >> 4]);
    text.push_back(kDigits[byte & 0xF]);
  }
  return text;
}

}  // namespace

RegistryData RegistryAccess::GetValue(std::uint32_t hive, std::string_view keyPath,
                                      std::string_view valueName) const {
  auto value = Stored(hive, keyPath, valueName);
  if (!value) return {};
  if (auto* text = std::get_if<std::string>(&value->Data)) return std::move(*text);
  if (const auto* number = std::get_if<std::uint32_t>(&value->Data))
    return std::bit_cast<std::int32_t>(*number);
  return Hexadecimal(std::get<std::vector<std::uint8_t>>(value->Data));
}

std::string RegistryAccess::GetText(std::uint32_t hive, std::string_view keyPath,
                                    std::string_view valueName) const {
  auto value = GetValue(hive, keyPath, valueName);
  if (auto* text = std::get_if<std::string>(&value)) return std::move(*text);
  const auto* number = std::get_if<std::int32_t>(&value);
  return number != nullptr ? ToText(*number) : std::string();
}

void RegistryAccess::CreateKey(std::uint32_t hive, std::string_view keyPath) const {
  OnHost([&, checked = CheckedHive(hive)](auto& registry) { registry.CreateKey(checked, keyPath); });
}

void RegistryAccess::SetValue(std::uint32_t hive, std::string_view keyPath, std::string_view valueName,
                              const RegistryData& value, std::int32_t valueType) const {
  RegistryValue stored;
  stored.Type = static_cast<std::uint32_t>(valueType);
  const auto* number = std::get_if<std::int32_t>(&value);
  const auto* text = std::get_if<std::string>(&value);
  if (valueType == kNumberType) {
    const auto converted = text != nullptr     ? Converted(StrictInteger(*text), *text)
                           : number != nullptr ? *number
                                               : 0;
    stored.Data = std::bit_cast<std::uint32_t>(converted);
  } else if (valueType == kTextType || valueType == kTextType + 1) {
    stored.Data = text != nullptr ? *text : number != nullptr ? ToText(*number) : std::string();
  } else {
    throw Error(kInvalidCall, "Values of registry type " + std::to_string(valueType) + " cannot be written");
  }
  OnHost([&, checked = CheckedHive(hive)](auto& registry) {
    registry.Write(checked, keyPath, valueName, stored);
  });
}

std::optional<RegistryValue> RegistryAccess::Stored(std::uint32_t hive, std::string_view keyPath,
                                                    std::string_view valueName) const {
  return OnHost([&, checked = CheckedHive(hive)](auto& registry) {
    return registry.Read(checked, keyPath, valueName);
  });
}

std::optional<RegistryKey> RegistryAccess::List(std::uint32_t hive, std::string_view keyPath) const {
  return OnHost([&, checked = CheckedHive(hive)](auto& registry) { return registry.List(checked, keyPath); });
}

void RegistryAccess::Apply(const std::vector<RegistryChange>& changes) const {
  OnHost([&](auto& registry) { registry.Apply(changes); });
}

std::string RegistryAccess::OwnFile(std::string_view keyPath, std::string_view valueName) const {
  return OnHost([&](auto& registry) { return registry.OwnFile(keyPath, valueName); });
}

}  // namespace lwconfig
