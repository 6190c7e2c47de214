#pragma once

#include <string>

namespace lwconfig::automation {

/// The type stubs of the Python module `lwconfig`, for editors and type checkers: everything published, with
/// its contracts, and the additions of the module itself.
std::string PythonStubs();

}  // namespace lwconfig::automation
