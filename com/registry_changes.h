#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <lwconfig/core/base/error.h>
#include <lwconfig/platform/windows/system.h>

#include "registration.h"

namespace lwconfig::com {

/// Writes texts below the classes of the machine or the user, all of them or none: unless kept, the changes
/// are undone on destruction. Keys are relative paths.
class RegistryChanges {
 public:
  explicit RegistryChanges(RegistrationScope scope);
  ~RegistryChanges();
  RegistryChanges(const RegistryChanges&) = delete;
  RegistryChanges& operator=(const RegistryChanges&) = delete;

  /// Creates the key and its missing parents. A failure is an `Error` that names the key.
  void Write(const std::wstring& key, const std::wstring& name, const std::wstring& text);
  void Keep() { mUndo.clear(); }

 private:
  RegistrationScope mScope;
  std::vector<std::function<void()>> mUndo;  // each must not fail
};

/// Removes keys below the same place.
class RegistryRemoval {
 public:
  explicit RegistryRemoval(RegistrationScope scope);

  bool Exists(const std::wstring& key) const;
  /// With everything in it.
  void Remove(const std::wstring& key);
  /// Only if it is empty.
  void RemoveEmpty(const std::wstring& key);
  /// Throws the first failure, if any.
  void End() const;

 private:
  void Note(LSTATUS status, const std::wstring& key);

  RegistrationScope mScope;
  std::optional<Error> mFailure;
};

}  // namespace lwconfig::com
