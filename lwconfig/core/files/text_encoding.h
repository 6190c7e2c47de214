#pragma once

#include <string>
#include <string_view>

namespace lwconfig {

/// The bytes of a file as UTF-8 text without byte-order mark. Decoded by byte-order mark, else by the
/// encoding named in an XML declaration, else as UTF-8 where valid, else as Windows-1252.
std::string DecodeText(std::string bytes);

/// Explains why `DecodeText` may have used the wrong encoding; empty where there is no reason to doubt it.
std::string EncodingDoubt(std::string_view bytes);

}  // namespace lwconfig
