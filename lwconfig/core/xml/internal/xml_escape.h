#pragma once

#include <string>
#include <string_view>

namespace lwconfig {

/// The declaration in front of every document that is written.
inline constexpr std::string_view kXMLDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

/// Appends an attribute in written form, with a leading blank. The value reads back exactly.
void AppendAttribute(std::string& out, std::string_view name, std::string_view value);
/// Appends character data so that it reads back exactly, including a text of blanks only.
void AppendText(std::string& out, std::string_view text);
/// Begins a line indented by `depth` levels, up to a limit that keeps very deep trees from
/// becoming all indentation.
void AppendLineStart(std::string& out, std::size_t depth);

}  // namespace lwconfig
