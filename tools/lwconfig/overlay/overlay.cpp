#include <algorithm>
#include <functional>
#include <memory>
#include <system_error>
#include <utility>

#include <tools/lwconfig/overlay/difference.h>
#include <tools/lwconfig/overlay/overlay.h>

#include <lwconfig/core/base/error.h>
#include <lwconfig/core/base/text.h>
#include <lwconfig/core/files/file_error.h>
#include <lwconfig/core/files/text_encoding.h>
#include <lwconfig/core/registry_text/registry_text.h>

namespace lwconfig::tool {
namespace {

using platform::FileReplacement;

/// What was done, and how it is taken back: from the last step to the first.
class Undoable {
 public:
  void Did(std::string what, std::function<void()> undo) {
    mDone.emplace_back(std::move(what), std::move(undo));
  }
  /// The names of what could not be taken back.
  std::string TakeBack() {
    std::string failed;
    for (auto step = mDone.rbegin(); step != mDone.rend(); ++step) {
      try {
        step->second();
      } catch (const std::exception&) {
        failed += (failed.empty() ? "" : ", ") + step->first;
      }
    }
    return failed;
  }

 private:
  std::vector<std::pair<std::string, std::function<void()>>> mDone;
};

std::optional<std::string> Content(platform::Files& files, std::string_view path) {
  if (files.Kind(path) != platform::EntryKind::File) return std::nullopt;
  return files.Read(path);
}

void Put(platform::Files& files, const std::string& path, const std::optional<std::string>& content) {
  if (!content) return files.Remove(path);
  const auto replacement = files.Replace(path);
  replacement->Write(*content);
  replacement->Commit();
}

/// The step after which the value is `wanted`, or gone.
RegistryChange StepTo(const ValueChange& change, const std::optional<RegistryValue>& wanted) {
  using Kinds = RegistryChange::Kinds;
  return {wanted ? Kinds::Value : Kinds::DeletedValue, change.Hive, change.Key, change.Name,
          wanted.value_or(RegistryValue{})};
}

/// The value as a registry file has it, with the mark in front of each line.
std::string MarkedLines(char mark, const ValueChange& change, const RegistryValue& value) {
  const std::string statement = RegistryValueLine(change.Name, value);
  std::string lines;
  for (const auto line : Split(statement, "\n")) ((lines += mark) += line) += '\n';
  return lines;
}

/// Key and name as arguments of a shell, in a form that needs no quotation marks where there is one.
std::string ArgumentsFor(const ValueChange& change) {
  const auto quoted = [](const std::string& text) {
    constexpr std::string_view kPlain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_-./";
    if (!text.empty() && text.find_first_not_of(kPlain) == std::string::npos) return text;
    std::string inQuotes = "'";
    for (const char c : text) inQuotes += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return inQuotes + "'";
  };
  std::string key = std::string(HiveName(change.Hive)) + "\\" + change.Key;
  if (key.find('/') == std::string::npos) std::ranges::replace(key, '\\', '/');
  return quoted(key) + " " + quoted(change.Name);
}

}  // namespace

Overlay::Overlay()
    : mBaseFiles(platform::Host<platform::Files>()),
      mBaseRegistry(platform::Host<platform::Registry>()),
      mFiles(mBaseFiles),
      mRegistry(mBaseRegistry),
      mFilesScope(mFiles),
      mRegistryScope(mRegistry) {}

std::vector<std::string> Overlay::Names() const {
  std::vector<std::string> names;
  for (const FileChange& change : mFiles.Changes())
    names.push_back((change.New ? "wrote " : "removed ") + mBaseFiles.NativePath(change.Path));
  for (const ValueChange& change : mRegistry.Changes())
    names.push_back((change.New ? "set " : "deleted ") + ArgumentsFor(change));
  return names;
}

std::string Overlay::Difference() const {
  const auto files = mFiles.Changes();
  std::string text;
  for (const FileChange& change : files) {
    const std::string path = mBaseFiles.NativePath(change.Path);
    const auto copied = std::ranges::find_if(files, [&](const FileChange& other) {
      return &other != &change && change.New && other.Old == change.New;
    });
    if (copied != files.end()) {
      text += "copy " + mBaseFiles.NativePath(copied->Path) + " as it is to " + path + "\n";
      continue;
    }
    text += "--- " + (change.Old ? path : "/dev/null") + "\n+++ " + (change.New ? path : "/dev/null") + "\n" +
            UnifiedDifference(DecodeText(change.Old.value_or("")), DecodeText(change.New.value_or("")));
  }
  for (const ValueChange& change : mRegistry.Changes()) {
    const std::string key = "[" + std::string(HiveName(change.Hive)) + "\\" + change.Key + "]\n";
    text += "--- registry\n+++ registry\n " + key;
    if (change.Old) text += MarkedLines('-', change, *change.Old);
    if (change.New) text += MarkedLines('+', change, *change.New);
  }
  return text;
}

std::unique_ptr<FileReplacement> Overlay::Begin(const FileChange& change) {
  return change.Model.empty() ? mBaseFiles.Replace(change.Path)
                              : mBaseFiles.Supersede(change.Path, change.Model);
}

void Overlay::WriteOut() {
  const auto changes = mFiles.Changes();
  const auto folders = mFiles.Folders();
  std::vector<std::unique_ptr<FileReplacement>> replacements;
  Undoable undoable;
  std::string_view path;
  try {
    for (const std::string& folder : folders) mBaseFiles.MakeFolders(path = folder);
    for (const FileChange& change : changes) {
      path = change.Path;
      auto& replacement = replacements.emplace_back(change.New ? Begin(change) : nullptr);
      if (Content(mBaseFiles, path) != change.Old)
        throw Error(kPathFileAccess, "The file has been changed by somebody else in the meantime");
      if (!replacement) continue;
      replacement->Write(*change.New);
    }
    for (std::size_t at = 0; at < changes.size(); ++at) {
      const FileChange& change = changes[at];
      path = change.Path;
      change.New ? replacements[at]->Commit() : mBaseFiles.Remove(path);
      undoable.Did(mBaseFiles.NativePath(path), [&] { Put(mBaseFiles, change.Path, change.Old); });
    }
    path = {};
    for (const ValueChange& change : mRegistry.Changes()) {
      mBaseRegistry.Apply({StepTo(change, change.New)});
      undoable.Did(change.Key + "\\" + change.Name,
                   [this, change] { mBaseRegistry.Apply({StepTo(change, change.Old)}); });
    }
  } catch (const std::exception& problem) {
    const auto* system = dynamic_cast<const std::system_error*>(&problem);
    const auto* known = dynamic_cast<const Error*>(&problem);
    const Error failure = known != nullptr    ? *known
                          : system != nullptr ? FileError(*system, path)
                                              : Error(kPathFileAccess, problem.what());
    replacements.clear();
    const std::string lost = undoable.TakeBack();
    Error told(failure.Number(), failure.Description() + (lost.empty() ? "; everything is as it was"
                                                                       : "; not put back: " + lost));
    told.SetPosition(failure.Position().File.empty() ? FilePosition{std::string(path), 0, 0}
                                                     : failure.Position());
    throw told;
  }
}

}  // namespace lwconfig::tool
