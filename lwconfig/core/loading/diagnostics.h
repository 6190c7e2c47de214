#pragma once

#include <functional>
#include <string>
#include <string_view>

#include <lwconfig/core/base/error.h>
#include <lwconfig/core/loading/problem.h>

namespace lwconfig {

class XMLElement;

/// Something that a loader passes over as it should, but that a person would want to know, such as a file
/// that is not well-formed and of which only the first part was read.
struct Diagnostic {
  FilePosition Position;
  std::string Message;
  lwconfig::Problem Problem = lwconfig::Problem::Other;
  std::string Suggestion{};  // the text that was most likely meant, if any
  std::string ModelPath{};   // the object concerned, such as "PageTemplates[House]", where it is known
  int Count = 1;             // the number of problems that it is about: more than one for a summary
};

using DiagnosticHandler = std::function<void(const Diagnostic&)>;
/// Finds the text that was most likely meant; may be slow.
using Suggester = std::function<std::string()>;

/// Sets the handler of the diagnostics that concern whoever loads, an empty one for none; returns the one set
/// before. An inspection receives all diagnostics instead.
DiagnosticHandler SetDiagnosticHandler(DiagnosticHandler handler);

/// Reports a problem to the listener of loads, once. It builds the diagnostic, with the suggestion, only for
/// a problem that it wants.
void Report(Problem problem, const FilePosition& position, std::string_view message,
            const Suggester& suggest = nullptr);
/// As above with the place of an attribute of the element; that of the element where it has none of that
/// name, or none is named.
void Report(Problem problem, const XMLElement& e, std::string_view attribute, std::string_view message,
            const Suggester& suggest = nullptr);
/// Whether the listener wants problems of the kind; for messages that cost much to build.
bool IsWanted(Problem problem);

/// Whether the listener lets a load continue after a failure, which is then reported.
bool ContinuesAfterFailure();
/// Reports the failure of one step of a load where the load continues with the next one; false where it does
/// not.
bool PassOver(const Error& failure);

/// Runs one step of a load. A failure that has no place in a file yet gets `place()`. The listener may pass
/// over it.
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
