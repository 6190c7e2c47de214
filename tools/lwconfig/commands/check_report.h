#pragma once

#include <string>
#include <utility>

#include <tools/lwconfig/reporter.h>
#include <tools/lwconfig/view/json_value.h>
#include <tools/lwconfig/view/node.h>
#include <tools/lwconfig/view/tree_text.h>

#include <lwconfig/checking/check_configuration.h>

namespace lwconfig::tool {

/// The result of a check as text and as JSON.
class CheckReport {
 public:
  explicit CheckReport(CheckResult result) : mResult(std::move(result)) {}

  /// A line for each problem, and one that sums up.
  std::string Text(const TextStyle& style) const;
  lwconfig::tool::Json ToJson() const;
  /// `InputOutput` where something could not be read, `Invalid` where something is an error.
  ExitStatus Status() const;

 private:
  std::string Summary() const;

  CheckResult mResult;
};

}  // namespace lwconfig::tool
