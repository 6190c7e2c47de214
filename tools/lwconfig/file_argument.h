#pragma once

#include <string>
#include <string_view>

#include <tools/lwconfig/reporter.h>

namespace lwconfig::tool {

/// Files that the user names on the command line: paths of the host, which may also be pipes and terminals,
/// and "-" for standard input or output. Failures are `Error`.

/// The name of a file that is read, for messages.
std::string SourceName(const std::string& file);
/// The bytes of the file, to its end. Error 75 for a pipe or a device that gives more than 256 MB.
std::string ReadSource(const std::string& file);
/// Writes the bytes: a file in one step, so that a failure leaves the old one. That standard output cannot be
/// written is reported.
void WriteTarget(const std::string& file, std::string_view bytes, Reporter& reporter);

}  // namespace lwconfig::tool
