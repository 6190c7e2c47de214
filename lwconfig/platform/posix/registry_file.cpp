#include "registry_file.h"

#include <algorithm>
#include <optional>
#include <set>
#include <unordered_set>
#include <utility>

#include <lwconfig/core/registry_text/registry_reader.h>
#include <lwconfig/core/registry_text/registry_text.h>
#include <lwconfig/core/registry_text/registry_writer.h>

#include "descriptor.h"

namespace lwconfig::platform {
namespace {

using Kinds = RegistryChange::Kinds;

/// The part of a whole key path below `hive`; nothing when the key belongs to another hive.
std::optional<std::string_view> KeyBelow(Hive hive, std::string_view path) {
  const std::string_view root = path.substr(0, path.find('\\'));
  if (HiveNamed(root) != hive) return std::nullopt;
  return TrimmedKey(path.substr(root.size()));
}

/// Whether `key` is `ancestor` or is below it.
bool IsBelow(std::string_view key, std::string_view ancestor) {
  const std::string folded = FoldCase(ancestor);
  const std::string other = FoldCase(key);
  return folded.empty() || other == folded || other.starts_with(folded + '\\');
}

bool IsBelowAny(std::string_view key, const std::vector<std::string_view>& ancestors) {
  return std::ranges::any_of(ancestors, [key](std::string_view ancestor) { return IsBelow(key, ancestor); });
}

/// The remaining changes of one hive, in order. A later change overrides an earlier one to the same key or
/// value; a deleted key overrides all earlier changes to it.
std::vector<const RegistryChange*> LastWords(const std::vector<RegistryChange>& changes, Hive hive) {
  std::vector<const RegistryChange*> last;
  std::set<std::pair<std::string, std::optional<std::string>>> seen;
  std::vector<std::string_view> deleted;
  for (auto change = changes.rbegin(); change != changes.rend(); ++change) {
    const std::string_view key = TrimmedKey(change->Key);
    if (change->Root != hive || IsBelowAny(key, deleted)) continue;
    if (key.find_first_of("\r\n") != std::string_view::npos) ThrowErrno(change->Key, EINVAL);
    if (change->Kind == Kinds::DeletedKey) {
      deleted.push_back(key);
    } else {
      std::optional<std::string> name;
      if (change->Kind != Kinds::Key) name = FoldCase(change->Name);
      if (!seen.emplace(FoldCase(key), std::move(name)).second) continue;
    }
    last.push_back(&*change);
  }
  std::ranges::reverse(last);
  return last;
}

}  // namespace

RegistryFile::RegistryFile(std::string bytes, Hive hive, const std::string& path)
    : mText(bytes.empty() ? EmptyText() : RegistryFileText(std::move(bytes))), mHive(hive) {
  RegistryReader reader(mText, path);
  mIsOld = reader.IsOld();
  const std::size_t lineEnd = mText.find('\n');
  mLineBreak = lineEnd != std::string::npos && mText[lineEnd - 1] == '\r' ? "\r\n" : "\n";
  RegistryStatement statement;
  // The key of the values that follow; none below a key that is deleted or of another hive.
  std::optional<std::string_view> key;
  while (reader.Next(statement)) {
    switch (statement.Kind) {
      case Kinds::Key:
        key = KeyBelow(hive, statement.Key);
        break;
      case Kinds::DeletedKey:
        if (const auto deleted = KeyBelow(hive, statement.Key)) Forget(*deleted);
        key = std::nullopt;
        break;
      case Kinds::Value:
        if (key) {
          mValues.insert_or_assign(OwnedId{*key, std::move(statement.Name)},
                                   Entry{std::move(statement.Value), statement.DataBegin, statement.DataEnd});
        }
        break;
      case Kinds::DeletedValue:
        if (key) mValues.erase(OwnedId{*key, std::move(statement.Name)});
        break;
    }
    if (key) mKeys[*key] = statement.End;
  }
}

std::string RegistryFile::EmptyText() {
  return std::string(kRegistryHeader) + "\n";
}

bool RegistryFile::HasKey(std::string_view key) const {
  return mKeys.contains(TrimmedKey(key));
}

const RegistryValue* RegistryFile::Find(std::string_view key, std::string_view name) const {
  const auto found = mValues.find(Id{TrimmedKey(key), name});
  return found == mValues.end() ? nullptr : &found->second.Value;
}

std::optional<RegistryKey> RegistryFile::List(std::string_view key) const {
  if (mListing.empty()) mListing = Listing();
  const auto found = mListing.find(FoldCase(TrimmedKey(key)));
  return found == mListing.end() ? std::nullopt : std::optional(found->second);
}

std::unordered_map<std::string, RegistryKey> RegistryFile::Listing() const {
  // Keep the order of the text, so that the first spelling of a key counts.
  std::vector<std::string_view> keys;
  for (const auto& entry : mKeys) keys.push_back(entry.first);
  std::ranges::sort(keys, {}, [](std::string_view key) { return key.data(); });
  std::unordered_map<std::string, RegistryKey> listing;
  listing[""];
  std::unordered_set<std::string> met{""};
  for (std::string_view key : keys) {
    // A key exists as soon as a subkey does.
    while (met.insert(FoldCase(key)).second) {
      listing[FoldCase(key)];
      const std::size_t cut = key.rfind('\\');
      // Accept repeated separators: a key without a name would be its own parent.
      const std::string_view parent = TrimmedKey(key.substr(0, cut == std::string_view::npos ? 0 : cut));
      listing[FoldCase(parent)].Keys.emplace_back(key.substr(cut + 1));
      key = parent;
    }
  }
  for (const auto& [id, entry] : mValues) {
    listing[FoldCase(id.Key)].Values.emplace_back(id.Name, entry.Value);
  }
  for (auto& entry : listing) {
    std::ranges::sort(entry.second.Keys, {}, FoldCase);
    std::ranges::sort(entry.second.Values, {}, [](const auto& value) { return FoldCase(value.first); });
  }
  return listing;
}

std::string RegistryFile::With(const std::vector<RegistryChange>& changes) const {
  const auto last = LastWords(changes, mHive);
  std::vector<std::string_view> deletedKeys;
  std::unordered_set<Id, Hash, Equal> deletedValues;
  for (const RegistryChange* change : last) {
    if (change->Kind == Kinds::DeletedKey) deletedKeys.push_back(TrimmedKey(change->Key));
    if (change->Kind == Kinds::DeletedValue) deletedValues.insert({TrimmedKey(change->Key), change->Name});
  }
  std::vector<Edit> edits;
  if (!deletedKeys.empty() || !deletedValues.empty()) {
    edits = Deletions([&](std::string_view key, const std::string* name) {
      return (name != nullptr && deletedValues.contains(Id{key, *name})) || IsBelowAny(key, deletedKeys);
    });
  }
  std::string sections;
  std::optional<std::string_view> open;  // the key of the last section
  for (const RegistryChange* change : last) {
    const bool isValue = change->Kind == Kinds::Value;
    if (!isValue && change->Kind != Kinds::Key) continue;
    const std::string_view key = TrimmedKey(change->Key);
    const auto known = IsBelowAny(key, deletedKeys) ? mKeys.end() : mKeys.find(key);
    if (known == mKeys.end() && !(open && EqualIgnoringCase(*open, key))) {
      sections.append(mLineBreak).append(RegistryKeyLine(mHive, key)).append(mLineBreak);
      open = key;
    }
    if (!isValue) continue;
    const std::string data = RegistryValueText(change->Value, mIsOld, mLineBreak);
    const std::string line = RegistryNameText(change->Name) + "=" + data;
    const auto old = mValues.find(Id{key, change->Name});
    if (known == mKeys.end()) {
      sections.append(line).append(mLineBreak);
    } else if (old == mValues.end()) {
      edits.push_back({known->second, known->second, std::string(mLineBreak) + line});
    } else if (old->second.Value != change->Value) {
      edits.push_back({old->second.DataBegin, old->second.DataEnd, data});
    }
  }
  if (!sections.empty() && !mText.ends_with('\n')) sections.insert(0, mLineBreak);
  return Edited(std::move(edits)) + sections;
}

template <class IsDeleted>
std::vector<RegistryFile::Edit> RegistryFile::Deletions(IsDeleted isDeleted) const {
  std::vector<Edit> edits;
  RegistryReader reader(mText, {});
  RegistryStatement statement;
  std::optional<std::string_view> key;
  while (reader.Next(statement)) {
    const bool isValue = statement.Kind == Kinds::Value || statement.Kind == Kinds::DeletedValue;
    if (!isValue) key = KeyBelow(mHive, statement.Key);
    if (!key || !isDeleted(*key, isValue ? &statement.Name : nullptr)) continue;
    // Include the line break before, so that text added at the end of the statement is on its own line.
    std::size_t begin = mText.rfind('\n', statement.Begin);
    if (begin > 0 && mText[begin - 1] == '\r') --begin;
    edits.push_back({begin, statement.End, {}});
  }
  return edits;
}

std::string RegistryFile::Edited(std::vector<Edit> edits) const {
  std::ranges::stable_sort(edits, {}, &Edit::Begin);
  std::string text;
  std::size_t position = 0;
  for (const Edit& edit : edits) {
    text.append(mText, position, edit.Begin - position).append(edit.Text);
    position = edit.End;
  }
  return text.append(mText, position);
}

void RegistryFile::Forget(std::string_view key) {
  std::erase_if(mKeys, [key](const auto& entry) { return IsBelow(entry.first, key); });
  std::erase_if(mValues, [key](const auto& entry) { return IsBelow(entry.first.Key, key); });
}

}  // namespace lwconfig::platform
