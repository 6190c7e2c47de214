#include "system.h"

#include <array>
#include <cerrno>
#include <system_error>
#include <utility>

namespace lwconfig::platform {
namespace {

constexpr std::array kErrorCodes{
    std::pair{DWORD{ERROR_FILE_NOT_FOUND}, ENOENT},
    std::pair{DWORD{ERROR_PATH_NOT_FOUND}, ENOENT},
    std::pair{DWORD{ERROR_BAD_PATHNAME}, ENOENT},
    std::pair{DWORD{ERROR_BAD_NETPATH}, ENOENT},
    std::pair{DWORD{ERROR_BAD_NET_NAME}, ENOENT},
    std::pair{DWORD{ERROR_INVALID_NAME}, ENOENT},
    std::pair{DWORD{ERROR_INVALID_DRIVE}, ENOENT},
    std::pair{DWORD{ERROR_ACCESS_DENIED}, EACCES},
    std::pair{DWORD{ERROR_SHARING_VIOLATION}, EBUSY},
    std::pair{DWORD{ERROR_LOCK_VIOLATION}, EBUSY},
    std::pair{DWORD{ERROR_WRITE_PROTECT}, EROFS},
    std::pair{DWORD{ERROR_DISK_FULL}, ENOSPC},
    std::pair{DWORD{ERROR_HANDLE_DISK_FULL}, ENOSPC},
    std::pair{DWORD{ERROR_FILE_EXISTS}, EEXIST},
    std::pair{DWORD{ERROR_ALREADY_EXISTS}, EEXIST},
    std::pair{DWORD{ERROR_DIRECTORY}, ENOTDIR},
    std::pair{DWORD{ERROR_DIR_NOT_EMPTY}, ENOTEMPTY},
    std::pair{DWORD{ERROR_NOT_ENOUGH_MEMORY}, ENOMEM},
    std::pair{DWORD{ERROR_FILENAME_EXCED_RANGE}, ENAMETOOLONG},
    std::pair{DWORD{ERROR_NOT_SUPPORTED}, ENOTSUP},
    std::pair{DWORD{ERROR_PRIVILEGE_NOT_HELD}, EPERM},
};

}  // namespace

std::wstring Wide(std::string_view text) {
  const int size = static_cast<int>(text.size());
  std::wstring wide(
      static_cast<std::size_t>(::MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0)), L'\0');
  ::MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

std::string Narrow(std::wstring_view text) {
  const int size = static_cast<int>(text.size());
  const int length = ::WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
  std::string narrow(static_cast<std::size_t>(length), '\0');
  ::WideCharToMultiByte(CP_UTF8, 0, text.data(), size, narrow.data(), length, nullptr, nullptr);
  return narrow;
}

void ThrowWindowsError(std::string_view subject, DWORD error) {
  for (const auto& [known, code] : kErrorCodes) {
    if (known == error) throw std::system_error(code, std::generic_category(), std::string(subject));
  }
  throw std::system_error(static_cast<int>(error), std::system_category(), std::string(subject));
}

}  // namespace lwconfig::platform
