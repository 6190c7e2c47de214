#include "descriptor.h"

#include <system_error>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace lwconfig::platform {

void ThrowErrno(const std::string& path, int code) {
  throw std::system_error(code, std::generic_category(), path);
}

void Descriptor::Close() {
  if (mNumber >= 0) ::close(std::exchange(mNumber, -1));
}

Descriptor OpenPlain(const std::string& path) {
  Descriptor file(Uninterrupted([&] { return ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC); }));
  struct stat status {};
  if (!file.IsOpen() || (::fstat(file.Number(), &status) == 0 && S_ISREG(status.st_mode))) return file;
  errno = S_ISDIR(status.st_mode) ? EISDIR : ENODEV;
  return Descriptor(-1);
}

std::string ReadAll(const Descriptor& file, const std::string& path) {
  struct stat status {};
  if (::fstat(file.Number(), &status) != 0) ThrowErrno(path);
  if (S_ISDIR(status.st_mode)) ThrowErrno(path, EISDIR);
  // Read one byte more than the size, to tell the end of the file from a file that has grown. The files of
  // /proc and /sys have a size of 0 and content all the same.
  constexpr std::size_t kLeast = 4096;
  const auto size = static_cast<std::size_t>(status.st_size);
  std::string content(size > 0 ? size + 1 : kLeast, '\0');
  std::size_t used = 0;
  for (;;) {
    const auto count =
        Uninterrupted([&] { return ::read(file.Number(), content.data() + used, content.size() - used); });
    if (count < 0) ThrowErrno(path);
    if (count == 0) break;
    used += static_cast<std::size_t>(count);
    if (used == content.size()) content.resize(2 * used);
  }
  content.resize(used);
  return content;
}

void WriteAll(const Descriptor& file, std::string_view bytes, const std::string& path) {
  while (!bytes.empty()) {
    const auto count = Uninterrupted([&] { return ::write(file.Number(), bytes.data(), bytes.size()); });
    if (count < 0) ThrowErrno(path);
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
}

}  // namespace lwconfig::platform
