#pragma once

#include <system_error>

namespace lwconfig::testing {

/// The errno code that `work` fails with, 0 when it does not fail.
template <class Work>
int FailureOf(Work work) {
  try {
    work();
    return 0;
  } catch (const std::system_error& failure) {
    return failure.code().value();
  }
}

}  // namespace lwconfig::testing
