#pragma once

#include <functional>
#include <string>

#include <lwconfig/core/error.h>

namespace lwconfig {

/// Something that a loader passes over as it should, but that a person would want to know, such as a file
/// that is not well-formed and of which only the first part was read.
struct Diagnostic {
  FilePosition Position;
  std::string Message;
};

using DiagnosticHandler = std::function<void(const Diagnostic&)>;

/// Sets the handler that is told of diagnostics, an empty one for none; returns the one set before.
DiagnosticHandler SetDiagnosticHandler(DiagnosticHandler handler);
void Diagnose(const Diagnostic& diagnostic);

}  // namespace lwconfig
