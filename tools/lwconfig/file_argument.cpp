#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>
#include <vector>

#include <tools/lwconfig/file_argument.h>
#include <tools/lwconfig/terminal.h>

#include <lwconfig/core/base/error.h>
#include <lwconfig/core/files/file_error.h>
#include <lwconfig/platform/files.h>

namespace lwconfig::tool {
namespace {

bool IsStandardInput(const std::string& file) {
  return file == "-" || file == "/dev/stdin";
}

/// Whether the file is a pipe or a device: it is read or written as it is, and opened no more than once.
bool IsStream(const std::string& file) {
  std::error_code none;
  const auto status = std::filesystem::status(file, none);
  return std::filesystem::exists(status) && !std::filesystem::is_regular_file(status) &&
         !std::filesystem::is_directory(status);
}

using Stream = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

[[noreturn]] void ThrowErrno() {
  throw std::system_error(errno, std::generic_category());
}

Stream Open(const std::string& file, const char* mode) {
  Stream stream(std::fopen(file.c_str(), mode), std::fclose);
  if (!stream) ThrowErrno();
  return stream;
}

std::string ReadAll(std::FILE* stream) {
  constexpr std::size_t kMost = std::size_t{256} << 20;
  constexpr std::size_t kPart = std::size_t{64} << 10;
  std::string bytes;
  std::vector<char> part(kPart);
  while (const std::size_t count = std::fread(part.data(), 1, part.size(), stream)) {
    bytes.append(part.data(), count);
    // A device may never end.
    if (bytes.size() > kMost) throw std::system_error(EFBIG, std::generic_category());
  }
  if (std::ferror(stream) != 0) ThrowErrno();
  return bytes;
}

void Write(std::FILE* stream, std::string_view bytes) {
  const bool isWritten = std::fwrite(bytes.data(), 1, bytes.size(), stream) == bytes.size();
  if (!isWritten || std::fflush(stream) != 0) ThrowErrno();
}

/// Runs the operation; a failure of the host becomes an error of the file at `path`.
template <class Operation>
auto On(const std::string& path, Operation operation) {
  try {
    return operation();
  } catch (const std::system_error& failure) {
    throw FileError(failure, path);
  }
}

}  // namespace

std::string SourceName(const std::string& file) {
  return IsStandardInput(file) ? "standard input" : file;
}

std::string ReadSource(const std::string& file) {
  auto& files = platform::Host<platform::Files>();
  if (IsStandardInput(file)) return On(SourceName(file), [] { return ReadAll(stdin); });
  const std::string path = files.ProductPath(file);
  return On(path, [&] { return IsStream(file) ? ReadAll(Open(file, "rb").get()) : files.Read(path); });
}

void WriteTarget(const std::string& file, std::string_view bytes, Reporter& reporter) {
  if (file == "-" || file == "/dev/stdout") return WriteOutput(bytes, reporter);
  auto& files = platform::Host<platform::Files>();
  const std::string path = files.ProductPath(file);
  On(path, [&] {
    if (IsStream(file)) {
      Write(Open(file, "wb").get(), bytes);
    } else {
      const auto replacement = files.Replace(path);
      replacement->Write(bytes);
      replacement->Commit();
    }
  });
}

}  // namespace lwconfig::tool
