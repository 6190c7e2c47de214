#pragma once

#include <exception>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <lwconfig/core/base/error.h>
#include <lwconfig/platform/message_box.h>

namespace lwconfig {

/// The ProgID of the product's error-reporting component.
inline constexpr std::string_view kErrorComponent = "CorvaError.Error";

/// A published operation under way, as described in reports.
struct Operation {
  std::string Module;                                            // the class
  std::string Procedure;                                         // the member
  std::vector<std::pair<std::string, std::string>> Parameters;   // names and values as text
  std::vector<std::pair<std::string, std::string>> Variables{};  // the object's stored properties, likewise
};

/// The failure being handled, as the library's own error. Other exceptions keep their text.
Error CurrentFailure();

/// The error 65535 for a failure that was reported to the error component.
class ReportedError : public Error {
 public:
  explicit ReportedError(Error cause);
  /// The failure itself.
  const Error& Cause() const { return mCause; }

 private:
  Error mCause;
};

/// Reports a failure of a published operation. Sends the report to the error component and throws a
/// `ReportedError`; without that component shows the critical message box and returns. A failure of an
/// operation that begins during a report is reported too; a failure during that second report is rethrown.
void ReportFailure(const Error& failure, const Operation& operation);

/// The report for the component: module, procedure, line, error, parameters, the stored properties of the
/// object as the failure left them, and instance counts.
std::string FailureReport(const Error& failure, const Operation& operation);
/// The text of the message box.
std::string FailureMessage(const Error& failure, const Operation& operation);

/// Marks a published operation as under way on this thread. Only the outermost operation reports failures.
class OperationScope {
 public:
  OperationScope();
  ~OperationScope();
  OperationScope(const OperationScope&) = delete;
  OperationScope& operator=(const OperationScope&) = delete;
  bool IsOutermost() const;
};

/// Marks foreign code that an operation runs, such as an event handler or callers during a message
/// box. An operation that begins in this code is outermost again. The scopes of a thread are destroyed
/// in reverse order.
class OutsideScope {
 public:
  OutsideScope();
  ~OutsideScope();
  OutsideScope(const OutsideScope&) = delete;
  OutsideScope& operator=(const OutsideScope&) = delete;

 private:
  int mDepth;
};

/// Shows a modal message; operations that begin while it is open are outermost.
void ShowMessageBox(const platform::Message& message);

/// Runs `body` as a published operation, described by `describe()` as an `Operation`. A failure stops it and
/// keeps the state changed so far. Inside another published operation the failure is rethrown; at the
/// outermost one it is reported, once, and the result is the empty value of its type.
template <class Describe, class Body>
auto RunPublished(Describe describe, Body body) -> decltype(body()) {
  const OperationScope scope;
  try {
    return body();
  } catch (...) {
    if (!scope.IsOutermost()) throw;
    ReportFailure(CurrentFailure(), describe());
    return decltype(body())();
  }
}

}  // namespace lwconfig
