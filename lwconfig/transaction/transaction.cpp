#include <algorithm>
#include <functional>
#include <memory>
#include <system_error>
#include <utility>

#include <lwconfig/core/base/error.h>
#include <lwconfig/core/base/text.h>
#include <lwconfig/core/files/file_error.h>
#include <lwconfig/core/files/text_encoding.h>
#include <lwconfig/core/loading/shared_slots.h>
#include <lwconfig/core/registry_text/registry_text.h>
#include <lwconfig/platform/service.h>
#include <lwconfig/transaction/difference.h>
#include <lwconfig/transaction/transaction.h>

namespace lwconfig {
namespace {

using platform::FileReplacement;

Transaction* gInnermost = nullptr;

/// The completed steps with their reversals, which run from last to first.
class Undoable {
 public:
  void Did(std::string what, std::function<void()> undo) {
    mDone.emplace_back(std::move(what), std::move(undo));
  }
  /// The names of the steps that could not be reversed.
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

/// The step that sets the value to `wanted`, or deletes it.
RegistryChange StepTo(const ValueChange& change, const std::optional<RegistryValue>& wanted) {
  using Kinds = RegistryChange::Kinds;
  return {wanted ? Kinds::Value : Kinds::DeletedValue, change.Root, change.Key, change.Name,
          wanted.value_or(RegistryValue{})};
}

std::string NameOf(const ValueChange& change) {
  return std::string(HiveName(change.Root)) + "\\" + change.Key + "\\" + change.Name;
}

/// The value in the notation of a registry file, with the mark in front of each line.
std::string MarkedLines(char mark, const ValueChange& change, const RegistryValue& value) {
  const std::string statement = RegistryValueLine(change.Name, value);
  std::string lines;
  for (const auto line : Split(statement, "\n")) ((lines += mark) += line) += '\n';
  return lines;
}

}  // namespace

struct Transaction::Scope {
  explicit Scope(Transaction& transaction)
      : Files(transaction.mFiles), Registry(transaction.mRegistry), Outer(gInnermost) {
    gInnermost = &transaction;
  }
  ~Scope() { gInnermost = Outer; }

  platform::ScopedHost<platform::Files> Files;
  platform::ScopedHost<platform::Registry> Registry;
  Transaction* Outer;
};

Transaction::Transaction()
    : mBaseFiles(platform::Host<platform::Files>()),
      mBaseRegistry(platform::Host<platform::Registry>()),
      mFiles(mBaseFiles),
      mRegistry(mBaseRegistry),
      mScope(std::make_unique<Scope>(*this)) {}

Transaction::~Transaction() {
  const bool isDropped = IsOpen() && !IsEmpty();
  mScope.reset();
  if (isDropped) ResetSharedSlots();
}

void Transaction::CheckInnermost() const {
  if (!IsOpen()) throw Error(kInvalidCall, "The transaction is closed");
  if (gInnermost != this) throw Error(kInvalidCall, "A transaction inside this one is open");
}

void Transaction::Commit() {
  CheckInnermost();
  Write();
  mScope.reset();
}

void Transaction::RollBack() {
  CheckInnermost();
  mScope.reset();
  ResetSharedSlots();
}

std::string Transaction::Difference() const {
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
  for (const auto& [root, key] : mRegistry.CreatedKeys())
    text += "--- registry\n+++ registry\n+[" + std::string(HiveName(root)) + "\\" + key + "]\n";
  for (const ValueChange& change : mRegistry.Changes()) {
    const std::string key = "[" + std::string(HiveName(change.Root)) + "\\" + change.Key + "]\n";
    text += "--- registry\n+++ registry\n " + key;
    if (change.Old) text += MarkedLines('-', change, *change.Old);
    if (change.New) text += MarkedLines('+', change, *change.New);
  }
  return text;
}

std::unique_ptr<FileReplacement> Transaction::Begin(const FileChange& change) {
  return change.Model.empty() ? mBaseFiles.Replace(change.Path)
                              : mBaseFiles.Supersede(change.Path, change.Model);
}

void Transaction::Write() {
  const auto changes = mFiles.Changes();
  const auto folders = mFiles.Folders();
  const auto values = mRegistry.Changes();
  std::vector<std::unique_ptr<FileReplacement>> replacements;
  Undoable undoable;
  std::string_view path;
  try {
    for (const std::string& folder : folders) mBaseFiles.MakeFolders(path = folder);
    for (const FileChange& change : changes) {
      path = change.Path;
      auto& replacement = replacements.emplace_back(change.New ? Begin(change) : nullptr);
      if (change.IsStale || Content(mBaseFiles, path) != change.Old)
        throw Error(kPermissionDenied, "The file has changed since it was read");
      if (!replacement) continue;
      replacement->Write(*change.New);
    }
    for (const ValueChange& change : values) {
      if (mBaseRegistry.Read(change.Root, change.Key, change.Name) == change.Old) continue;
      throw Error(kPermissionDenied,
                  "The registry value " + NameOf(change) + " has changed since it was read");
    }
    for (std::size_t at = 0; at < changes.size(); ++at) {
      const FileChange& change = changes[at];
      path = change.Path;
      change.New ? replacements[at]->Commit() : mBaseFiles.Remove(path);
      undoable.Did(mBaseFiles.NativePath(path), [&] { Put(mBaseFiles, change.Path, change.Old); });
    }
    path = {};
    for (const Hive hive : {Hive::LocalMachine, Hive::CurrentUser}) {
      std::vector<RegistryChange> steps;
      std::vector<RegistryChange> back;
      for (const auto& [root, key] : mRegistry.CreatedKeys())
        if (root == hive) steps.push_back({RegistryChange::Kinds::Key, root, key, {}, {}});
      for (const ValueChange& change : values) {
        if (change.Root != hive) continue;
        steps.push_back(StepTo(change, change.New));
        back.push_back(StepTo(change, change.Old));
      }
      if (steps.empty()) continue;
      mBaseRegistry.Apply(steps);
      undoable.Did(std::string(HiveName(hive)), [this, back] { mBaseRegistry.Apply(back); });
    }
  } catch (const std::exception& problem) {
    const auto* system = dynamic_cast<const std::system_error*>(&problem);
    const auto* known = dynamic_cast<const Error*>(&problem);
    const Error failure = known != nullptr    ? *known
                          : system != nullptr ? FileError(*system, path)
                                              : Error(kPathFileAccess, problem.what());
    replacements.clear();
    const std::string lost = undoable.TakeBack();
    Error thrown(failure.Number(), failure.Description() + (lost.empty() ? "; everything is as it was"
                                                                         : "; not put back: " + lost));
    thrown.SetPosition(failure.Position().File.empty() ? FilePosition{std::string(path), 0, 0}
                                                       : failure.Position());
    throw thrown;
  }
}

}  // namespace lwconfig
