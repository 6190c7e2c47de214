#include <utility>

#include <lwconfig/core/loading/diagnostics.h>
#include <lwconfig/core/loading/load_listener.h>

namespace lwconfig {

DiagnosticHandler SetDiagnosticHandler(DiagnosticHandler handler) {
  return LoadListener::Default().SetHandler(std::move(handler));
}

void Report(Problem problem, const FilePosition& position, std::string_view message,
            const Suggester& suggest) {
  LoadListener::Current().Report(problem, position, message, suggest);
}

void Report(Problem problem, const XMLElement& e, std::string_view attribute, std::string_view message,
            const Suggester& suggest) {
  LoadListener::Current().Report(problem, e, attribute, message, suggest);
}

bool IsWanted(Problem problem) {
  return LoadListener::Current().Wants(problem);
}

bool ContinuesAfterFailure() {
  return LoadListener::Current().ContinuesAfterFailure();
}

bool PassOver(const Error& failure) {
  const bool continues = ContinuesAfterFailure();
  if (continues) LoadListener::Current().Report(failure);
  return continues;
}

}  // namespace lwconfig
