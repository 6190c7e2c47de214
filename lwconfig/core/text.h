#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <lwconfig/platform/letter_case.h>

namespace lwconfig {

/// The pieces of `text` between separators, in order: at least one, empty ones included. An empty separator
/// leaves the text whole.
std::vector<std::string_view> Split(std::string_view text, std::string_view separator);

/// Whether `text` contains `part` without regard to letter case; an empty part is contained in every text.
bool ContainsIgnoringCase(std::string_view text, std::string_view part);

/// Whether the whole of `name` matches a file name pattern: "*" for any run of characters, "?" for one,
/// letter case ignored. "*.*" matches every name.
bool MatchesFilePattern(std::string_view name, std::string_view pattern);

/// Whether the bytes are valid UTF-8.
bool IsValidUtf8(std::string_view bytes);

/// The number of characters (code points) of a UTF-8 text.
std::size_t CountCharacters(std::string_view text);

/// A file's bytes as UTF-8 text without byte-order mark: decoded by byte-order mark, else by the encoding
/// that an XML declaration names, else as UTF-8 where valid, else as Windows-1252.
std::string DecodeText(std::string bytes);

/// Why `DecodeText` may have taken the bytes for another encoding than they were written in; empty where
/// there is no reason to think so.
std::string EncodingDoubt(std::string_view bytes);

}  // namespace lwconfig
