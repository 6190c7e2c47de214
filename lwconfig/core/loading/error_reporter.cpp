#include <algorithm>
#include <utility>

#include <lwconfig/core/base/conversions.h>
#include <lwconfig/core/base/instance_count.h>
#include <lwconfig/core/loading/error_reporter.h>
#include <lwconfig/core/xml/xml_document.h>
#include <lwconfig/platform/components.h>

namespace lwconfig {
namespace {

/// Read by every late-bound call. The initial-exec model avoids a call of the dynamic loader.
[[gnu::tls_model("initial-exec")]] thread_local int gDepth = 0;

/// One report, and one for a failure during it.
constexpr int kMostReports = 2;
/// Reports under way on this thread.
thread_local int gReports = 0;

/// Marks a report as under way. It runs foreign code: the component, and the callers that a message
/// box lets continue.
class ReportScope {
 public:
  ReportScope() { ++gReports; }
  ~ReportScope() { --gReports; }
  ReportScope(const ReportScope&) = delete;
  ReportScope& operator=(const ReportScope&) = delete;

 private:
  OutsideScope mOutside;
};

/// The text in a form that a report can hold.
std::string Reportable(std::string text) {
  std::replace(text.begin(), text.end(), '\0', ' ');
  return text;
}

std::string LineOf(const Error& failure) {
  return std::to_string(failure.Where().Line);
}

}  // namespace

OperationScope::OperationScope() {
  ++gDepth;
}
OperationScope::~OperationScope() {
  --gDepth;
}
bool OperationScope::IsOutermost() const {
  return gDepth == 1;
}

OutsideScope::OutsideScope() : mDepth(std::exchange(gDepth, 0)) {}
OutsideScope::~OutsideScope() {
  gDepth = mDepth;
}

void ShowMessageBox(const platform::Message& message) {
  const OutsideScope outside;
  platform::ShowMessage(message);
}

Error CurrentFailure() {
  try {
    throw;
  } catch (const Error& failure) {
    return failure;
  } catch (const std::exception& failure) {
    return Error(kInvalidCall, failure.what());
  } catch (...) {
    return Error(kInvalidCall, "An unknown failure");
  }
}

std::string FailureReport(const Error& failure, const Operation& operation) {
  XMLDocument document;
  XMLElement report = document.RootElement();
  report.SetName("Error");
  report.AddElement("Module", operation.Module);
  report.AddElement("Procedure", operation.Procedure);
  report.AddElement("Line", LineOf(failure));
  report.AddElement("Number", ToText(failure.Number()));
  report.AddElement("Description", Reportable(failure.what()));
  report.AddElement("Source", failure.Source());
  const auto addValues = [&report](const char* all, const char* one, const auto& values) {
    XMLElement list = report.AddElement(all, "");
    for (const auto& [name, value] : values)
      list.AddElement(one, Reportable(value)).AddAttribute("Name", name);
  };
  addValues("Parameters", "Parameter", operation.Parameters);
  addValues("Variables", "Variable", operation.Variables);
  XMLElement instances = report.AddElement("Instances", "");
  for (const auto& count : InstanceCounts()) {
    XMLElement instance = instances.AddElement("Class", ToText(count.Live));
    instance.AddAttribute("Name", count.ClassName);
  }
  return document.XML();
}

std::string FailureMessage(const Error& failure, const Operation& operation) {
  return "LWConfigObjects has encountered a problem. We are sorry for the inconvenience.\n\nModule: " +
         operation.Module + "\nProcedure: " + operation.Procedure + "\nLine Number: " + LineOf(failure) +
         "\n\n" + failure.what() + "\nError number: " + ToText(failure.Number());
}

ReportedError::ReportedError(Error cause)
    : Error(kReportedFailure, cause.Description(), cause.Where()), mCause(std::move(cause)) {
  SetSource(mCause.Source());
  SetPosition(mCause.Position());
}

void ReportFailure(const Error& failure, const Operation& operation) {
  // Stop here: a component that fails inside the library at each report would receive reports without end.
  if (gReports == kMostReports) throw Error(failure);
  const ReportScope reporting;
  if (const auto component = platform::CreateComponent(kErrorComponent)) {
    try {
      component->Receive(FailureReport(failure, operation));
    } catch (...) {
      // Ignore a failing component: it must not hide the failure that was reported to it.
    }
    throw ReportedError(failure);
  }
  ShowMessageBox({"LWConfigObjects", FailureMessage(failure, operation), platform::MessageIcon::Critical});
}

}  // namespace lwconfig
