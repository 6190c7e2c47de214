#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/platform/registry.h>

namespace lwconfig::platform {

/// A registry file: its text, and the content of one hive in it. A later statement overrides an earlier one;
/// keys of other hives are kept and ignored. Key paths are relative to the hive.
class RegistryFile {
 public:
  /// Takes the content of a file; an empty one has no keys. `path` names the file in
  /// errors. Throws `RegistryFormatError`.
  RegistryFile(std::string bytes, Hive hive, const std::string& path);
  RegistryFile(const RegistryFile&) = delete;
  RegistryFile& operator=(const RegistryFile&) = delete;

  /// The text of a file without any key.
  static std::string EmptyText();

  const std::string& Text() const { return mText; }
  bool HasKey(std::string_view key) const;
  /// The value, null where it is absent; owned by this object.
  const RegistryValue* Find(std::string_view key, std::string_view name) const;

  /// As `Registry::List`. The first call indexes the whole file, later calls look up the key alone.
  std::optional<RegistryKey> List(std::string_view key) const;

  /// The text after those of the changes that concern this hive; everything else stays byte for byte.
  std::string With(const std::vector<RegistryChange>& changes) const;

 private:
  struct Id {
    std::string_view Key;
    std::string_view Name;
  };
  struct OwnedId {
    std::string_view Key;  // part of mText
    std::string Name;
    operator Id() const { return {Key, Name}; }
  };
  struct Entry {
    RegistryValue Value;
    std::size_t DataBegin;
    std::size_t DataEnd;
  };
  struct Hash {
    using is_transparent = void;
    std::size_t operator()(std::string_view key) const { return HashIgnoringCase(key); }
    std::size_t operator()(const Id& id) const {
      return 31 * HashIgnoringCase(id.Key) + HashIgnoringCase(id.Name);
    }
  };
  struct Equal {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const { return EqualIgnoringCase(a, b); }
    bool operator()(const Id& a, const Id& b) const {
      return EqualIgnoringCase(a.Name, b.Name) && EqualIgnoringCase(a.Key, b.Key);
    }
  };

  /// A part of the text and its replacement.
  struct Edit {
    std::size_t Begin;
    std::size_t End;
    std::string Text;
  };

  void Forget(std::string_view key);
  /// The content of each key, by its path in folded letter case.
  std::unordered_map<std::string, RegistryKey> Listing() const;
  /// The edits that remove each statement for which `isDeleted(key, name)`, with null for the name of a key.
  template <class IsDeleted>
  std::vector<Edit> Deletions(IsDeleted isDeleted) const;
  /// The text after the edits, which do not overlap.
  std::string Edited(std::vector<Edit> edits) const;

  std::string mText;
  Hive mHive;
  bool mIsOld = false;
  std::string_view mLineBreak;
  std::unordered_map<OwnedId, Entry, Hash, Equal> mValues;
  /// Each key with the end of its last statement, where new values are inserted.
  std::unordered_map<std::string_view, std::size_t, Hash, Equal> mKeys;
  mutable std::unordered_map<std::string, RegistryKey> mListing;  // empty until first requested
};

}  // namespace lwconfig::platform
