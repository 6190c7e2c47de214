#include "registry_file.h"

#include <array>
#include <optional>

#include "descriptor.h"
#include "registry_encoding.h"
#include "registry_syntax.h"

namespace lwconfig::platform {
namespace {

struct HiveName {
  std::string_view Name;
  Hive Number;
};

/// A hive's own name comes before its short form.
constexpr std::array kHiveNames{
    HiveName{"HKEY_LOCAL_MACHINE", Hive::LocalMachine},
    HiveName{"HKEY_CURRENT_USER", Hive::CurrentUser},
    HiveName{"HKLM", Hive::LocalMachine},
    HiveName{"HKCU", Hive::CurrentUser},
};

std::string_view Trimmed(std::string_view key) {
  while (key.starts_with('\\')) key.remove_prefix(1);
  while (key.ends_with('\\')) key.remove_suffix(1);
  return key;
}

/// The part of a whole key path below `hive`, or nothing when it belongs to another one.
std::optional<std::string_view> KeyBelow(Hive hive, std::string_view path) {
  const std::string_view root = path.substr(0, path.find('\\'));
  for (const HiveName& name : kHiveNames) {
    if (name.Number == hive && EqualIgnoringCase(name.Name, root)) return Trimmed(path.substr(root.size()));
  }
  return std::nullopt;
}

std::string KeyLine(Hive hive, std::string_view key) {
  std::string line = "[";
  for (const HiveName& name : kHiveNames) {
    if (name.Number != hive) continue;
    line += name.Name;
    break;
  }
  if (!key.empty()) line.append("\\").append(Utf8From8Bit(std::string(key)));
  return line + "]";
}

}  // namespace

RegistryFile::RegistryFile(std::string bytes, Hive hive, const std::string& path)
    : mText(bytes.empty() ? EmptyText() : Utf8FromRegistryFile(std::move(bytes))), mHive(hive) {
  RegistryReader reader(mText, path);
  mIsOld = reader.IsOld();
  const std::size_t lineEnd = mText.find('\n');
  mLineBreak = lineEnd != std::string::npos && mText[lineEnd - 1] == '\r' ? "\r\n" : "\n";
  using Kinds = RegistryStatement::Kinds;
  RegistryStatement statement;
  // The key that the values belong to; none below a key that is deleted or of another hive.
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
  return mKeys.contains(Trimmed(key));
}

const RegistryValue* RegistryFile::Find(std::string_view key, std::string_view name) const {
  const auto found = mValues.find(Id{Trimmed(key), name});
  return found == mValues.end() ? nullptr : &found->second.Value;
}

std::string RegistryFile::WithKey(std::string_view key) const {
  const std::string_view trimmed = Trimmed(key);
  if (mKeys.contains(trimmed)) return mText;
  if (trimmed.find_first_of("\r\n") != std::string_view::npos) ThrowErrno(std::string(key), EINVAL);
  std::string section = mText.ends_with('\n') ? "" : std::string(mLineBreak);
  section.append(mLineBreak).append(KeyLine(mHive, trimmed)).append(mLineBreak);
  return mText + section;
}

std::string RegistryFile::WithValue(std::string_view key, std::string_view name,
                                    const RegistryValue& value) const {
  const std::string_view trimmed = Trimmed(key);
  const std::string data = RegistryData(value, mIsOld, mLineBreak);
  if (const auto found = mValues.find(Id{trimmed, name}); found != mValues.end()) {
    const Entry& entry = found->second;
    return entry.Value == value ? mText : Inserted(entry.DataBegin, entry.DataEnd, data);
  }
  const std::string line = RegistryName(name) + "=" + data;
  if (const auto found = mKeys.find(trimmed); found != mKeys.end()) {
    return Inserted(found->second, found->second, std::string(mLineBreak) + line);
  }
  return WithKey(key).append(line).append(mLineBreak);
}

void RegistryFile::Forget(std::string_view key) {
  const std::string folded = FoldCase(key);
  const auto isBelow = [&](std::string_view candidate) {
    const std::string other = FoldCase(candidate);
    return folded.empty() || other == folded || other.starts_with(folded + '\\');
  };
  std::erase_if(mKeys, [&](const auto& entry) { return isBelow(entry.first); });
  std::erase_if(mValues, [&](const auto& entry) { return isBelow(entry.first.Key); });
}

std::string RegistryFile::Inserted(std::size_t begin, std::size_t end, std::string_view text) const {
  return std::string(mText, 0, begin).append(text).append(mText, end);
}

}  // namespace lwconfig::platform
