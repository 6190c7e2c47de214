#pragma once

#include <array>
#include <string>

#include <tools/lwconfig/command.h>
#include <tools/lwconfig/view/tree_text.h>

namespace lwconfig::tool {

/// The fault of a value of the options below; empty for a valid one.
std::string CheckColour(const std::string& given);
std::string CheckColumns(const std::string& given);

inline constexpr Parameter kConfigurationOption{
    .Name = "-c,--config",
    .About = "configuration folder to use instead of the registered one",
    .Value = "DIR",
    .Form = Form::Path,
};
inline constexpr Parameter kJsonOption{
    .Name = "-j,--json",
    .About = "print JSON, with the published property names",
};
inline constexpr Parameter kColourOption{
    .Name = "--color",
    .About = "auto (on a terminal), always or never",
    .Value = "WHEN",
    .Check = CheckColour,
};
inline constexpr Parameter kWidthOption{
    .Name = "--width",
    .About = "columns to fit lines into; else those of the terminal",
    .Value = "N",
    .Check = CheckColumns,
};

/// What most commands take.
inline constexpr std::array kReadingOptions{kConfigurationOption, kJsonOption};
inline constexpr std::array kShowingOptions{kConfigurationOption, kJsonOption, kColourOption, kWidthOption};

/// The style of the output, from the options for colours and width.
TextStyle StyleOf(const Arguments& arguments);

}  // namespace lwconfig::tool
