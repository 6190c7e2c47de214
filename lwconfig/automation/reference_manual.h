#pragma once

#include <string>

namespace lwconfig::automation {

/// The reference manual in Markdown: every class with its members and events, and every enumeration.
std::string ReferenceManual();

}  // namespace lwconfig::automation
