#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace lwconfig::platform {

/// `bytes` themselves where they are valid UTF-8, else their text in Windows-1252.
std::string Utf8From8Bit(std::string bytes);

/// The text of a registry file: UTF-16 by its byte-order mark, else as `Utf8From8Bit`. The mark of UTF-8
/// stays.
std::string Utf8FromRegistryFile(std::string bytes);

/// UTF-16 in little-endian order and back. What has no counterpart becomes U+FFFD.
std::string Utf8FromUtf16(std::string_view bytes);
std::vector<std::uint8_t> Utf16FromUtf8(std::string_view text);

}  // namespace lwconfig::platform
