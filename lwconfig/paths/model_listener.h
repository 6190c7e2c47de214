#pragma once

#include <string_view>

#include <lwconfig/core/base/error.h>

namespace lwconfig {

/// Receives the failures and notes of an `ObjectModel` and of the changes made through it.
class ModelListener {
 public:
  virtual ~ModelListener() = default;

  /// A collection of the root was not loaded as a whole.
  virtual void Fail(const Error& failure) = 0;
  /// A fact that changes nothing.
  virtual void Note(std::string_view text) = 0;
  /// Whether the configuration was read without a failure or warning. Changes are saved only then.
  virtual bool IsClean() const = 0;
};

}  // namespace lwconfig
