#pragma once

#include <array>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include <lwconfig/core/loading/diagnostics.h>
#include <lwconfig/core/loading/problem.h>
#include <lwconfig/core/xml/xml_observer.h>

namespace lwconfig {

struct XMLDocumentData;

/// Listens to every load of the process, on the thread that loads. Reports at most a fixed number of problems
/// of one kind in one file, so that a file full of faults stays readable.
class LoadListener {
 public:
  static constexpr int kMostReported = 20;

  explicit LoadListener(DiagnosticHandler handler) : mHandler(std::move(handler)) {}
  virtual ~LoadListener() = default;
  LoadListener(const LoadListener&) = delete;
  LoadListener& operator=(const LoadListener&) = delete;

  /// The load listener of the process: the default one unless an inspection is under way.
  static LoadListener& Current();
  /// Sends the diagnostics that any load reports to the diagnostics handler.
  static LoadListener& Default();

  DiagnosticHandler SetHandler(DiagnosticHandler handler);

  virtual bool Wants(Problem problem) const;
  /// Calls `suggest` only for a problem that is reported.
  void Report(Problem problem, const FilePosition& position, std::string_view message,
              const Suggester& suggest = nullptr);
  void Report(Problem problem, const XMLElement& e, std::string_view attribute, std::string_view message,
              const Suggester& suggest = nullptr);
  void Report(const Error& failure);
  void Report(Diagnostic diagnostic, const Suggester& suggest);
  virtual bool ContinuesAfterFailure() const { return false; }

  /// Before a configuration file is read.
  virtual void BeginFile(const std::string& path) { mCounts.erase(path); }
  /// After it was loaded.
  virtual void EndFile(const XMLElement& /*root*/) {}
  /// Instead of `EndFile` for a file of phrases or scraps that is no document.
  virtual void EndText(const std::string& /*path*/, std::string_view /*text*/) {}
  /// The observer of the next document to be read, or null. Called on any thread.
  virtual std::shared_ptr<XMLObserver> Observe() { return nullptr; }
  /// The path of the object that the element describes; empty where it is unknown.
  virtual std::string ModelPathOf(const XMLElement& /*e*/) const { return {}; }

 protected:
  using Counts = std::array<int, kProblemKinds>;

  /// Sets the load listener of the process; null for the default one.
  static void SetCurrent(LoadListener* listener);
  /// Counts one more problem of the kind in the file; true where it is to be reported.
  bool Count(Problem problem, const std::string& file);
  void Hand(const Diagnostic& diagnostic) const { mHandler(diagnostic); }

  std::map<std::string, Counts> mCounts;  // by file, the number of problems of each kind

 private:
  DiagnosticHandler mHandler;
};

}  // namespace lwconfig
