#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <tools/lwconfig/reporter.h>
#include <tools/lwconfig/view/json_value.h>
#include <tools/lwconfig/view/node.h>

#include <lwconfig/automation/class_info.h>
#include <lwconfig/root.h>

namespace lwconfig::tool {

/// One option of the user, with the set that it belongs to.
struct UserOption {
  std::string_view Set;
  AnyOption* Option;

  /// "VBOptions.WrapCharacters"
  std::string Name() const;
  /// The text that is stored; empty where the default applies.
  std::string Stored() const;
  /// The values of an enumeration with their names, as published.
  std::span<const automation::EnumMember> Enumerators() const;
};

/// Every option of every set, in order. They live as long as `root`'s shared objects.
std::vector<UserOption> UserOptions(Root& root);

std::string_view TypeName(OptionType type);

/// An option as it is now. A value that cannot be read is reported and has neither text nor value.
struct OptionState {
  OptionState(const UserOption& option, Reporter& reporter);

  Json ToJson() const;
  /// The value alone, an enumeration's by name where it has one; empty where it cannot be read.
  std::string Plain() const;
  /// For people: a value with the name it has in an enumeration, texts in quotation marks.
  std::string Shown() const { return Shown(Value); }
  std::string ShownDefault() const { return Shown(Default); }

  UserOption Of;
  std::optional<std::string> Value;
  std::optional<std::string> Default;
  std::string Stored;

 private:
  std::string Shown(const std::optional<std::string>& text) const;
  /// The name of the number in the option's enumeration, or null.
  const char* NameOf(const std::string& number) const;
};

/// The option sets as they are shown.
Group DescribeOptions(Root& root, Reporter& reporter);

}  // namespace lwconfig::tool
