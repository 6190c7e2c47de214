#pragma once

#include <string>
#include <string_view>

namespace lwconfig {

/// The declaration in front of every document that is written.
inline constexpr std::string_view kXMLDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

/// Appends an attribute as it is written, with a blank in front. The value comes back exactly when it is
/// read.
void AppendAttribute(std::string& out, std::string_view name, std::string_view value);
/// Appends character data so that it comes back exactly when it is read, a text of blanks only included.
void AppendText(std::string& out, std::string_view text);
/// Begins a line indented by so many levels, up to a limit: the deepest trees would be all indentation.
void AppendLineStart(std::string& out, std::size_t depth);

}  // namespace lwconfig
