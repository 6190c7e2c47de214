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

/// A published operation under way: what a report says about it.
struct Operation {
  std::string Module;                                            // the class
  std::string Procedure;                                         // the member
  std::vector<std::pair<std::string, std::string>> Parameters;   // names and values as text
  std::vector<std::pair<std::string, std::string>> Variables{};  // the object's stored properties, likewise
};

/// The failure that is being handled, as the library's own error: other exceptions keep their text.
Error CurrentFailure();

/// The error 65535 that callers get for a failure which the error-reporting component was told of.
class ReportedError : public Error {
 public:
  explicit ReportedError(Error cause);
  /// The failure itself.
  const Error& Cause() const { return mCause; }

 private:
  Error mCause;
};

/// Hands a failure of a published operation to the process-wide reporter. With the error-reporting component
/// it gets the report and a `ReportedError` is thrown; without it the critical message box is shown and the
/// call returns. A failure of an operation that begins during a report is reported too; one during that
/// second report is thrown on as it is.
void ReportFailure(const Error& failure, const Operation& operation);

/// The report that the component gets: module, procedure, line, error, parameters, the stored properties of
/// the object as the failure leaves them, and instance counts.
std::string FailureReport(const Error& failure, const Operation& operation);
/// The text of the message box.
std::string FailureMessage(const Error& failure, const Operation& operation);

/// Marks a published operation as under way on this thread; the outermost one reports failures.
class OperationScope {
 public:
  OperationScope();
  ~OperationScope();
  OperationScope(const OperationScope&) = delete;
  OperationScope& operator=(const OperationScope&) = delete;
  bool IsOutermost() const;
};

/// Marks code of others that an operation calls, such as a handler of an event, or that goes on during a
/// message box that it shows: an operation that this code begins is outermost again. The scopes of a thread
/// end in the reverse order of their beginnings.
class OutsideScope {
 public:
  OutsideScope();
  ~OutsideScope();
  OutsideScope(const OutsideScope&) = delete;
  OutsideScope& operator=(const OutsideScope&) = delete;

 private:
  int mDepth;
};

/// Shows a modal message; operations that begin while it stands are outermost.
void ShowMessageBox(const platform::Message& message);

/// Runs `body` as a published operation, which `describe()` tells of as an `Operation`. Its failure ends it
/// with the state changed so far: inside another published operation the failure is thrown on; at the
/// outermost one it goes to the reporter, once, and the result is the empty value of its type.
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
