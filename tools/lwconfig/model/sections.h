#pragma once

#include <span>
#include <string_view>

#include <tools/lwconfig/reporter.h>
#include <tools/lwconfig/view/node.h>

#include <lwconfig/root.h>

namespace lwconfig::tool {

/// A part of the configuration that is loaded and shown on its own.
struct Section {
  std::string_view Name;
  std::string_view Published;
  std::string_view About;
  /// Failures are reported; what could be loaded is described.
  Group (*Describe)(Root& root, Reporter& reporter);
  bool IsInFiles = true;  // below the configuration folder
};

/// In the order in which they are shown.
std::span<const Section> Sections();

/// The section that a path begins with, by either name without regard to letter case; null where there is
/// none.
const Section* SectionOf(std::string_view path);

/// The root of what is shown: only the one section, or all where it is null.
Node DescribeConfiguration(Root& root, const Section* only, Reporter& reporter);

}  // namespace lwconfig::tool
