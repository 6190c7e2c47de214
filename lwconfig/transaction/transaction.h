#pragma once

#include <memory>
#include <string>
#include <vector>

#include <lwconfig/transaction/overlay_files.h>
#include <lwconfig/transaction/overlay_registry.h>

namespace lwconfig {

/// All or nothing: while a transaction is open, everything that this process saves, files and registry
/// values, is kept in memory, where reads see it. A commit writes all of it or nothing. Transactions nest; an
/// inner one commits into the outer one.
///
///     Transaction transaction;
///     root.PageTemplates()->SaveTemplate(pageTemplate);
///     std::cout << transaction.Difference();
///     transaction.Commit();
class Transaction {
 public:
  Transaction();
  /// Rolls back an open transaction.
  ~Transaction();
  Transaction(const Transaction&) = delete;
  Transaction& operator=(const Transaction&) = delete;

  bool IsEmpty() const {
    return FileChanges().empty() && ValueChanges().empty() && mRegistry.CreatedKeys().empty();
  }
  /// The files that differ from what they were, in the order in which they were first written.
  std::vector<FileChange> FileChanges() const { return mFiles.Changes(); }
  /// The registry values that differ, in the same order.
  std::vector<ValueChange> ValueChanges() const { return mRegistry.Changes(); }
  /// The changes as a unified diff, paths as the host has them, registry values in their editor's notation.
  std::string Difference() const;

  /// Writes the changes and closes the transaction: every file durably, in order, then the registry values.
  /// The new content of all files is on the disk before the first one is replaced. When a step fails, what
  /// was replaced before is put back, and the failure is thrown with its file; where that fails too its text
  /// says so. Error 70 for a file or value that was changed elsewhere since the transaction first read it;
  /// objects that were loaded before the transaction began are not compared.
  /// Folders that were made are kept. A transaction whose commit fails stays open.
  void Commit();
  /// Drops the changes and closes the transaction. The shared objects are dropped as well, so that they are
  /// loaded anew on their next use.
  void RollBack();
  bool IsOpen() const { return mScope != nullptr; }

 private:
  struct Scope;
  std::unique_ptr<platform::FileReplacement> Begin(const FileChange& change);
  void Write();
  /// Error 5 where the transaction is closed, or an inner one is open.
  void CheckInnermost() const;

  platform::Files& mBaseFiles;
  platform::Registry& mBaseRegistry;
  OverlayFiles mFiles;
  OverlayRegistry mRegistry;
  std::unique_ptr<Scope> mScope;
};

}  // namespace lwconfig
