#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <lwconfig/core/loading/diagnostics.h>
#include <lwconfig/core/loading/problem.h>
#include <lwconfig/core/xml/xml_document.h>

namespace lwconfig {

/// Looks closely at what is loaded while it lives. Loading does not stop at a failure then but tells of it
/// and goes on, and what loaders accept in silence is told as well: values that do not mean what they say,
/// and what stands in a file and nothing reads. The loaders themselves know what they read, so there is no
/// second description of the files. Diagnostics come to the inspection as well. One at a time, on one thread.
class Inspection {
 public:
  /// Of one kind of problem so many are told in one file: a file of nothing but faults stays bearable.
  static constexpr int kMostTold = 20;
  /// How many more problems of one kind a file has than were told.
  struct Rest {
    std::string File;
    lwconfig::Problem Problem;
    int Count;
  };
  using FileInspector = std::function<void(const std::string& file, const XMLElement& root)>;
  using TextInspector = std::function<void(const std::string& file, std::string_view text)>;

  /// Calls `tell` for each problem, `inspect` for each configuration file after it was loaded, and
  /// `inspectText` for each file of phrases or scraps. Both may report more.
  Inspection(DiagnosticHandler tell, FileInspector inspect, TextInspector inspectText = nullptr);
  ~Inspection();
  Inspection(const Inspection&) = delete;
  Inspection& operator=(const Inspection&) = delete;

  /// The one under way, or null.
  static Inspection* Current() { return gCurrent; }

  void Tell(const Diagnostic& diagnostic);
  /// Calls `suggest`, which may be slow, only for a problem that is reported.
  void Tell(Problem problem, const FilePosition& position, std::string_view message,
            const std::function<std::string()>& suggest = nullptr);
  /// As above with the place of an attribute of the element; that of the element where it has none of that
  /// name, or none is named.
  void Tell(Problem problem, const XMLElement& e, std::string_view attribute, std::string_view message,
            const std::function<std::string()>& suggest = nullptr);
  void Tell(const Error& failure);

  /// Called by what reads files: before a file is read, and after it was loaded where it is a document.
  void BeginFile(const std::string& path);
  void EndFile(const XMLDocument& document, const XMLElement& root);
  /// Instead of `EndFile` for a file of phrases or scraps that is no document.
  void EndText(const std::string& path, std::string_view text);
  /// Called by what reads elements: a name that was asked for and is not there. `kind` tells the names of
  /// attributes from those of elements.
  enum class NameKind { Attribute, Element };
  void NoteAbsent(NameKind kind, std::string_view parent, std::string_view name);

  const std::vector<std::string>& Files() const { return mFiles; }
  /// Whether no error was told of in the file.
  bool IsSound(const std::string& file) const;
  /// In the order of `Files`.
  std::vector<Rest> Rests() const;

 private:
  static Inspection* gCurrent;
  class Walk;

  /// Counts one more problem of the kind in the file; whether it is to be told.
  bool IsWanted(Problem problem, const std::string& file);
  /// The absent name that `name` was most likely meant to be.
  std::string NearestAbsent(NameKind kind, std::string_view parent, std::string_view name) const;

  void TellForbiddenCharacters(const XMLDocumentData& document);

  DiagnosticHandler mTell;
  FileInspector mInspect;
  TextInspector mInspectText;
  DiagnosticHandler mPreviousHandler;
  std::vector<std::string> mFiles;
  std::map<std::string, std::array<int, kProblemKinds>> mCounts;  // by file, how many problems of each kind
  std::map<std::string, std::vector<std::string>, std::less<>> mAbsent[2];
};

}  // namespace lwconfig
