#pragma once

#include <string>
#include <string_view>

namespace lwconfig {

/// A file's bytes as UTF-8 text without byte-order mark: decoded by byte-order mark, else by the encoding
/// that an XML declaration names, else as UTF-8 where valid, else as Windows-1252.
std::string DecodeText(std::string bytes);

/// Why `DecodeText` may have taken the bytes for another encoding than they were written in; empty where
/// there is no reason to think so.
std::string EncodingDoubt(std::string_view bytes);

}  // namespace lwconfig
