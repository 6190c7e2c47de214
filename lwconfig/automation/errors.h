#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include <lwconfig/core/base/error.h>

namespace lwconfig::automation {

/// Numbers of the errors that late-bound calls add to the library's own.
enum AutomationError : std::int32_t {
  kInvalidUseOfNull = 94,
  kReadOnlyProperty = 383,
  kCannotCreateObject = 429,
  kNoSuchMember = 438,
  kNamedArgumentNotFound = 448,
  kArgumentNotOptional = 449,
  kWrongArgumentCount = 450,
  kNoSuchEvent = 459,
};

/// A value that does not suit its argument. The call has not begun.
class ArgumentError : public Error {
 public:
  /// `position` counts from 1.
  ArgumentError(std::size_t position, const Error& problem)
      : Error(problem.Number(), problem.Description(), problem.Where()), mPosition(position) {}
  std::size_t Position() const { return mPosition; }

 private:
  std::size_t mPosition;
};

}  // namespace lwconfig::automation
