#pragma once

#ifndef NOMINMAX
#define NOMINMAX  // the standard library's own min and max
#endif
#include <string>
#include <string_view>

// The others need the first.
// clang-format off
#include <windows.h>
#include <oaidl.h>
#include <objbase.h>
#include <shellapi.h>
#include <shlobj.h>
// clang-format on

namespace lwconfig::platform {

/// UTF-8 as Windows takes it, and back. Bytes that are not valid, and surrogates without a partner, become
/// the replacement character.
std::wstring Wide(std::string_view text);
std::string Narrow(std::wstring_view text);

/// Throws the `std::system_error` for a Windows error code: with its errno code where it has one.
[[noreturn]] void ThrowWindowsError(std::string_view subject, DWORD error = ::GetLastError());

/// Others may use a file in every way while it is open here.
inline constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// A handle of the system, closed at the end of its life.
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
