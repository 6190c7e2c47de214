#pragma once

#ifndef NOMINMAX
#define NOMINMAX  // use the standard library's min and max
#endif
#include <string>
#include <string_view>

// Keep this order: the others need the first. clang-format off
#include <oaidl.h>
#include <objbase.h>
#include <shellapi.h>
#include <shlobj.h>
#include <windows.h>
// clang-format on

namespace lwconfig::platform {

/// Converts UTF-8 to the encoding of Windows and back. Invalid bytes and unpaired surrogates become
/// the replacement character.
std::wstring Wide(std::string_view text);
std::string Narrow(std::wstring_view text);

/// Throws the `std::system_error` for a Windows error code, with the matching errno code where there is one.
[[noreturn]] void ThrowWindowsError(std::string_view subject, DWORD error = ::GetLastError());

/// Allow every other use of a file while it is open here.
inline constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// A handle of the system, closed on destruction.
class Handle {
 public:
  explicit Handle(HANDLE handle) : mHandle(handle) {}
  ~Handle() { Close(); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  bool IsOpen() const { return mHandle != INVALID_HANDLE_VALUE; }
  HANDLE Get() const { return mHandle; }
  void Close() {
    if (IsOpen()) ::CloseHandle(mHandle);
    mHandle = INVALID_HANDLE_VALUE;
  }

 private:
  HANDLE mHandle;
};

}  // namespace lwconfig::platform
