#pragma once

#include <string>

namespace lwconfig::automation {

/// The type stubs of the Python module `lwconfig`, for editors and type checkers: what is published, with its
/// contracts, and what the module itself adds.
std::string PythonStubs();

}  // namespace lwconfig::automation
