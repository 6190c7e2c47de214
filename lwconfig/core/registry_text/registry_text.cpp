#include <algorithm>
#include <array>

#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/core/base/unicode.h>
#include <lwconfig/core/registry_text/registry_reader.h>
#include <lwconfig/core/registry_text/registry_text.h>
#include <lwconfig/core/registry_text/registry_writer.h>

namespace lwconfig {
namespace {

using Kinds = RegistryChange::Kinds;

struct NamedHive {
  std::string_view Name;
  Hive Number;
};

/// List the full name of a hive before its short form.
constexpr std::array kHives{
    NamedHive{"HKEY_LOCAL_MACHINE", Hive::LocalMachine},
    NamedHive{"HKEY_CURRENT_USER", Hive::CurrentUser},
    NamedHive{"HKLM", Hive::LocalMachine},
    NamedHive{"HKCU", Hive::CurrentUser},
};

}  // namespace

std::string_view TrimmedKey(std::string_view key) {
  while (key.starts_with('\\')) key.remove_prefix(1);
  while (key.ends_with('\\')) key.remove_suffix(1);
  return key;
}

std::optional<RegistryPath> ParseRegistryPath(std::string_view path) {
  const char separator = path.find('\\') == std::string_view::npos ? '/' : '\\';
  const std::string_view root = path.substr(0, path.find(separator));
  const auto hive = HiveNamed(root);
  if (!hive) return std::nullopt;
  std::string key;
  for (const char c : path.substr(root.size())) {
    if (c != separator || !key.ends_with('\\')) key += c == separator ? '\\' : c;
  }
  return RegistryPath{*hive, std::string(TrimmedKey(key))};
}

std::optional<Hive> HiveNamed(std::string_view name) {
  const auto* found = std::ranges::find_if(
      kHives, [name](const NamedHive& hive) { return EqualIgnoringCase(hive.Name, name); });
  return found == kHives.end() ? std::nullopt : std::optional(found->Number);
}

std::string_view HiveName(Hive hive) {
  return std::ranges::find(kHives, hive, &NamedHive::Number)->Name;
}

std::vector<RegistryChange> ReadRegistryText(std::string bytes, const std::string& file) {
  const std::string text = RegistryFileText(std::move(bytes));
  RegistryReader reader(text, file);
  std::vector<RegistryChange> changes;
  RegistryStatement statement;
  RegistryPath key;
  bool isDeleted = false;
  while (reader.Next(statement)) {
    if (statement.Kind == Kinds::Key || statement.Kind == Kinds::DeletedKey) {
      const auto path = ParseRegistryPath(statement.Key);
      if (!path) {
        const auto root = statement.Key.substr(0, statement.Key.find('\\'));
        reader.FailAt(statement.Begin, "expected a key of HKEY_LOCAL_MACHINE or HKEY_CURRENT_USER, found '" +
                                           std::string(root) + "'");
      }
      key = *path;
      isDeleted = statement.Kind == Kinds::DeletedKey;
      statement.Name.clear();
    } else if (isDeleted) {
      continue;  // values below a deleted key belong to no key
    }
    changes.push_back({statement.Kind, key.Root, key.Key, statement.Name, std::move(statement.Value)});
  }
  return changes;
}

std::string WriteRegistryText(const std::vector<RegistryChange>& changes, RegistryEncoding encoding) {
  const bool isUtf16 = encoding == RegistryEncoding::Utf16;
  const std::string_view lineBreak = isUtf16 ? "\r\n" : "\n";
  std::string text = std::string(kRegistryHeader).append(lineBreak);
  const RegistryChange* key = nullptr;
  for (const RegistryChange& change : changes) {
    const bool isKey = change.Kind == Kinds::Key || change.Kind == Kinds::DeletedKey;
    if (isKey || key == nullptr || key->Root != change.Root || !EqualIgnoringCase(key->Key, change.Key)) {
      std::string line = RegistryKeyLine(change.Root, change.Key);
      if (change.Kind == Kinds::DeletedKey) line.insert(1, "-");
      text.append(lineBreak).append(line).append(lineBreak);
      key = change.Kind == Kinds::DeletedKey ? nullptr : &change;
    }
    if (isKey) continue;
    text.append(RegistryNameText(change.Name)).append("=");
    text.append(change.Kind == Kinds::Value ? RegistryValueText(change.Value, false, lineBreak) : "-");
    text.append(lineBreak);
  }
  if (!isUtf16) return text;
  const auto units = Utf16FromUtf8(text);
  return "\xff\xfe" + std::string(units.begin(), units.end());
}

std::string RegistryValueLine(std::string_view name, const RegistryValue& value) {
  return RegistryNameText(name) + "=" + RegistryValueText(value, false, "\n");
}

std::vector<std::uint8_t> PackTexts(const std::vector<std::string>& texts) {
  std::string packed;
  for (const std::string& text : texts) {
    if (!text.empty()) packed += text + '\0';
  }
  return Utf16FromUtf8(packed + '\0');
}

std::vector<std::string> UnpackTexts(const std::vector<std::uint8_t>& bytes) {
  const std::string packed =
      Utf8FromUnits({reinterpret_cast<const char*>(bytes.data()), bytes.size()}, 2, true);
  std::vector<std::string> texts;
  for (std::size_t begin = 0; begin < packed.size();) {
    const std::size_t end = std::min(packed.find('\0', begin), packed.size());
    if (end == begin) break;
    texts.push_back(packed.substr(begin, end - begin));
    begin = end + 1;
  }
  return texts;
}

}  // namespace lwconfig
