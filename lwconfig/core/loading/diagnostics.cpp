#include <utility>

#include <lwconfig/core/loading/diagnostics.h>

namespace lwconfig {
namespace {

DiagnosticHandler& Handler() {
  static DiagnosticHandler handler;
  return handler;
}

}  // namespace

DiagnosticHandler SetDiagnosticHandler(DiagnosticHandler handler) {
  return std::exchange(Handler(), std::move(handler));
}

void Diagnose(const Diagnostic& diagnostic) {
  if (Handler()) Handler()(diagnostic);
}

}  // namespace lwconfig
