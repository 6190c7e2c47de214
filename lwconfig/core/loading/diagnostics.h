#pragma once

#include <functional>
#include <string>
#include <string_view>

#include <lwconfig/core/base/error.h>
#include <lwconfig/core/loading/problem.h>

namespace lwconfig {

class XMLElement;

/// One finding about a configuration, such as a file that is not well-formed and was read in part.
struct Diagnostic {
  FilePosition Position;
  std::string Message;
  lwconfig::Problem Problem = lwconfig::Problem::Other;
  std::string Suggestion{};  // the text most likely meant, if any
  std::string ModelPath{};   // the object concerned, such as "PageTemplates[House]", where it is known
  int Count = 1;             // the number of problems covered: more than one for a summary
};

using DiagnosticHandler = std::function<void(const Diagnostic&)>;
/// Finds the text most likely meant; may be slow.
using Suggester = std::function<std::string()>;

/// Sets the handler of the diagnostics that any load reports; an empty one for none. Returns the previous
/// handler. During an inspection all diagnostics are sent to the inspection instead.
DiagnosticHandler SetDiagnosticHandler(DiagnosticHandler handler);

/// Reports a problem to the load listener, once. The listener builds the diagnostic, with its suggestion,
/// only for a problem that it wants.
void Report(Problem problem, const FilePosition& position, std::string_view message,
            const Suggester& suggest = nullptr);
/// As above with the place of an attribute of the element; the place of the element where the attribute is
/// absent or unnamed.
void Report(Problem problem, const XMLElement& e, std::string_view attribute, std::string_view message,
            const Suggester& suggest = nullptr);
/// Whether the listener wants problems of that kind; guards messages that are expensive to build.
bool IsWanted(Problem problem);

/// Whether the listener lets a load continue after a failure, which is then reported.
bool ContinuesAfterFailure();
/// Reports the failure of one step of a load if the load continues with the next step; false where
/// it does not.
bool PassOver(const Error& failure);

/// Runs one step of a load. A failure without a place in a file gets `place()`. The listener may
/// pass over it.
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
