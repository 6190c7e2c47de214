#pragma once

#include <string_view>

namespace lwconfig::automation {

/// The documentation of everything published, taken from the comments in the headers when the
/// library is built.

/// The contract of a published class or enumeration, or of one of its members: paragraphs with a blank line
/// between them, names in backticks. Names are spelled as published. Empty where the name is enough.
std::string_view Contract(std::string_view owner, std::string_view member = {});
/// The first sentence of a contract, with its full stop.
std::string_view Summary(std::string_view contract);

/// The identity of a published item, as 32 hexadecimal digits with hyphens: of "LWConfigObjects", the
/// library, of "class.Root", "interface._Root", "events.__PageTemplate" or "enumeration.PageTypeEnum". It
/// follows from the name and never changes. Empty for an unknown name.
std::string_view Identity(std::string_view name);

}  // namespace lwconfig::automation
