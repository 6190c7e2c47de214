#pragma once

#include <functional>
#include <string>

#include <lwconfig/core/base/error.h>
#include <lwconfig/core/loading/problem.h>

namespace lwconfig {

/// Something that a loader passes over as it should, but that a person would want to know, such as a file
/// that is not well-formed and of which only the first part was read.
struct Diagnostic {
  FilePosition Position;
  std::string Message;
  lwconfig::Problem Problem = lwconfig::Problem::Other;
  std::string Suggestion{};  // the text that was most likely meant, if any
};

using DiagnosticHandler = std::function<void(const Diagnostic&)>;

/// Sets the handler that is told of diagnostics, an empty one for none; returns the one set before.
DiagnosticHandler SetDiagnosticHandler(DiagnosticHandler handler);
void Diagnose(const Diagnostic& diagnostic);

/// While an inspection is under way, tells it of the failure; the load then goes on with what comes next.
/// Else does nothing and is false: the failure ends the load.
bool PassOver(const Error& failure);

/// Runs one step of a load. A failure that has no place in a file yet gets `place()`; while an inspection is
/// under way, it ends with the step.
template <class Step, class Place>
void RunStep(Step step, Place place) {
  try {
    step();
  } catch (Error& failure) {
    failure.SetPosition(place());
    if (!PassOver(failure)) throw;
  }
}

}  // namespace lwconfig
