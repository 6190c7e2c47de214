#pragma once

namespace lwconfig::tool {

/// Runs the command line; the result is the exit status of the process.
int RunApplication(int argc, const char* const* argv);

}  // namespace lwconfig::tool
