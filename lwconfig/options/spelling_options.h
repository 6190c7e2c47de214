#pragma once

#include <lwconfig/core/base/instance_count.h>
#include <lwconfig/core/files/application_values.h>
#include <lwconfig/core/loading/shared_slots.h>
#include <lwconfig/options/option.h>

namespace lwconfig {

/// The user's options of the spelling checker.
class SpellingOptions : public OptionSet, public Counted<SpellingOptions> {
 public:
  static constexpr const char* kClassName = "SpellingOptions";

  Option<bool, ExactTrue> DynamicSpell{*this, "", "DynamicSpell", true};
  /// Where nothing is stored, the file of that purpose in the common folder of the maker's products.
  Option<std::string> CustomDictionary{*this, "", "CustomDictionary",
                                       [] { return CommonPath() + "Custom.dct"; }};
  Option<std::string> PrimaryDictionary{*this, "", "PrimaryDictionary",
                                        [] { return CommonPath() + "Corvantis.dct"; }};

  Option<bool, ExactTrue> IgnoreMixedCase{*this, "Spelling", "IgnoreMixedCase", true};
  Option<bool, ExactTrue> IgnoreNumbers{*this, "Spelling", "IgnoreNumbers", true};
  Option<bool, ExactTrue> IgnoreUpperCase{*this, "Spelling", "IgnoreUpperCase", true};
  Option<bool, ExactTrue> AlwaysSuggest{*this, "Spelling", "AlwaysSuggest", true};
};

template <>
inline constexpr Slot kSlotOf<SpellingOptions> = Slot::SpellingOptions;

}  // namespace lwconfig
