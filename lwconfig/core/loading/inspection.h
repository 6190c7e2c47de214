#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <lwconfig/core/loading/load_listener.h>

namespace lwconfig {

/// Inspects every load during its lifetime. Loading then reports a failure and continues. Accepted faults are
/// reported as well: values that do not mean what they say, and parts of a file that no loader reads. The
/// loaders themselves report what they read, so there is no second description of the formats. At most one at
/// a time, on one thread.
class Inspection final : public LoadListener {
 public:
  using PathFinder = std::function<std::string(const XMLElement& e)>;
  using FileInspector = std::function<void(const std::string& file, const XMLElement& root)>;
  using TextInspector = std::function<void(const std::string& file, std::string_view text)>;

  /// Calls `report` for each problem, `inspect` for each configuration file after it was loaded, and
  /// `inspectText` for each file of phrases or scraps. Both may report further problems. `findPath` finds the
  /// model path of an element.
  Inspection(DiagnosticHandler report, FileInspector inspect, TextInspector inspectText = nullptr,
             PathFinder findPath = nullptr);
  ~Inspection() override;

  const std::vector<std::string>& Files() const { return mFiles; }
  /// Whether no error was reported in the file.
  bool IsSound(const std::string& file) const;
  /// A summary of the unreported problems of each kind in each file, in the order of `Files`.
  std::vector<Diagnostic> Rests() const;

  bool Wants(Problem /*problem*/) const override { return true; }
  bool ContinuesAfterFailure() const override { return true; }
  void BeginFile(const std::string& path) override;
  void EndFile(const XMLElement& root) override;
  void EndText(const std::string& path, std::string_view text) override;
  std::shared_ptr<XMLObserver> Observe() override;
  std::string ModelPathOf(const XMLElement& e) const override;

 private:
  using NameKind = XMLObserver::NameKind;
  class Watch;
  class Walk;

  /// The absent name most likely meant by `name`.
  std::string NearestAbsent(NameKind kind, std::string_view parent, std::string_view name) const;
  void ReportForbiddenCharacters(const XMLDocumentData& document);

  FileInspector mInspect;
  TextInspector mInspectText;
  PathFinder mFindPath;
  std::vector<std::string> mFiles;
  std::map<std::string, std::vector<std::string>, std::less<>> mAbsent[2];
};

}  // namespace lwconfig
