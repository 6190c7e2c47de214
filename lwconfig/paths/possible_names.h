#pragma once

#include <string>
#include <vector>

#include <lwconfig/automation/class_info.h>
#include <lwconfig/paths/object_model.h>

namespace lwconfig {

/// The names in the configuration that a text can refer to; of contents definitions those of the template
/// among the objects of `way`. Empty where the text is no such name. Failures of loading are `Error`.
std::vector<std::string> PossibleNames(const Way& way, automation::NameOf names);

/// Whether the text is a list of such names with commas between them.
bool IsNameList(automation::NameOf names);

}  // namespace lwconfig
