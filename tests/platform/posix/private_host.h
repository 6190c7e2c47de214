#pragma once

#include <exception>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <tests/platform/failure_of.h>
#include <tests/temporary_folder.h>
#include <unistd.h>

namespace lwconfig::testing {

/// A test whose registry, drives and home are in a folder of its own.
class PrivateHost : public ::testing::Test {
 protected:
  PrivateHost() {
    Set("LWCONFIG_REGISTRY", Below("registry"));
    Set("LWCONFIG_DRIVES", Below("drives"));
    Set("HOME", Below("home"));
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "LWCONFIG_DISPLAY_WIDTH"})
      Set(name, nullptr);
  }
  ~PrivateHost() override {
    for (auto old = mOld.rbegin(); old != mOld.rend(); ++old) {
      Assign(old->first, old->second ? old->second->c_str() : nullptr);
    }
  }

  /// Sets an environment variable, or removes it for null, until the end of the test.
  void Set(const char* name, const char* value) {
    const char* old = ::getenv(name);
    mOld.emplace_back(name, old != nullptr ? std::optional<std::string>(old) : std::nullopt);
    Assign(name, value);
  }
  void Set(const char* name, const std::string& value) { Set(name, value.c_str()); }

  std::string Below(const std::string& relative) const { return (Folder.Path() / relative).string(); }

  TemporaryFolder Folder;

 private:
  static void Assign(const char* name, const char* value) {
    value != nullptr ? ::setenv(name, value, 1) : ::unsetenv(name);
  }

  std::vector<std::pair<const char*, std::optional<std::string>>> mOld;
};

/// Starts another process that does `work` and ends with its result as exit status, or 255 on an exception.
template <class Work>
pid_t StartProcess(Work work) {
  const pid_t process = ::fork();
  if (process != 0) return process;
  try {
    ::_exit(work());
  } catch (const std::exception&) {
    ::_exit(255);
  }
}

inline int ExitStatus(pid_t process) {
  int status = 0;
  ::waitpid(process, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// The errno code that `work` fails with in another process, which is one of a user without any rights where
/// this one has all.
template <class Work>
int FailureAsNobody(Work work) {
  return ExitStatus(StartProcess([&] {
    constexpr uid_t kNobody = 65534;
    if (::geteuid() == 0 && ::setresuid(kNobody, kNobody, kNobody) != 0) return 254;
    return FailureOf(work);
  }));
}

}  // namespace lwconfig::testing
