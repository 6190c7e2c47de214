#pragma once

#include <cerrno>
#include <string>
#include <string_view>
#include <utility>

namespace lwconfig::platform {

/// Throws `std::system_error` with this errno code; its text begins with `path`.
[[noreturn]] void ThrowErrno(const std::string& path, int code = errno);

/// Repeats a system call that a signal interrupted.
template <class Call>
auto Uninterrupted(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

/// Owns a file descriptor, or none.
class Descriptor {
 public:
  Descriptor() = default;
  explicit Descriptor(int number) : mNumber(number) {}
  Descriptor(Descriptor&& other) noexcept : mNumber(std::exchange(other.mNumber, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(mNumber, other.mNumber);
    return *this;
  }
  ~Descriptor() { Close(); }

  int Number() const { return mNumber; }
  bool IsOpen() const { return mNumber >= 0; }
  void Close();
  /// Releases the descriptor to the caller.
  int Release() { return std::exchange(mNumber, -1); }

 private:
  int mNumber = -1;
};

/// The content from the current position to the end. `path` names the file in errors; a folder is EISDIR.
std::string ReadAll(const Descriptor& file, const std::string& path);

/// Opens a plain file for reading: a pipe would wait, a device never end. Where that fails the descriptor is
/// not open and `errno` has the reason, ENODEV for what is no plain file.
Descriptor OpenPlain(const std::string& path);

/// Writes all of `bytes`. `path` is for the failure's text.
void WriteAll(const Descriptor& file, std::string_view bytes, const std::string& path);

}  // namespace lwconfig::platform
