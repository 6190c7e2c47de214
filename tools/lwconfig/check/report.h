#pragma once

#include <string>
#include <vector>

#include <tools/lwconfig/reporter.h>
#include <tools/lwconfig/view/node.h>
#include <tools/lwconfig/view/tree_text.h>

#include <lwconfig/core/loading/diagnostics.h>
#include <lwconfig/core/loading/inspection.h>

namespace lwconfig::tool {

/// The problems that a check found.
class Report {
 public:
  void Add(const Diagnostic& problem) { mProblems.push_back(problem); }
  /// Takes over what the inspection knows besides, and puts the problems in the order in which the files were
  /// read, inside a file by line. Called once, at the end.
  void Close(const Inspection& inspection);

  /// A line for each problem, and one that sums up.
  std::string Text(const TextStyle& style) const;
  lwconfig::tool::Json ToJson() const;
  /// `InputOutput` where something could not be read, `Invalid` where something is an error.
  ExitStatus Status() const;

 private:
  std::string Summary() const;

  std::vector<Diagnostic> mProblems;
  std::vector<Inspection::Rest> mRests;
  std::size_t mFiles = 0;
};

}  // namespace lwconfig::tool
