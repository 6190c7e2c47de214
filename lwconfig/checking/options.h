#pragma once

#include <lwconfig/core/loading/inspection.h>
#include <lwconfig/root.h>

namespace lwconfig {

/// Reports options that the user has set to the name of a template that the catalogue lacks. Defaults name
/// templates of a whole installation and are not checked.
void CheckOptions(Inspection& inspection, Root& root);

}  // namespace lwconfig
