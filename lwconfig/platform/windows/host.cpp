#include <array>
#include <charconv>
#include <utility>

#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/platform/host.h>

#include "system.h"

namespace lwconfig::platform {
namespace {

class NativeEnvironment final : public Environment {
 public:
  int DisplayWidth() override { return ::GetSystemMetrics(SM_CXSCREEN); }

  std::vector<std::string> ProcessArguments() override {
    // Remove only the program's name, which may be quoted: Windows passes the arguments as one text.
    const std::wstring_view line = ::GetCommandLineW();
    const wchar_t* const blanks = L" \t";
    const std::size_t end = line.starts_with(L'"') ? line.find(L'"', 1) : 0;
    const std::size_t gap = line.find_first_of(blanks, end);
    const std::size_t rest = line.find_first_not_of(blanks, gap);
    if (gap == std::wstring_view::npos || rest == std::wstring_view::npos) return {};
    return {Narrow(line.substr(rest))};
  }
};

/// Names of encodings, and how the rest of such a name maps to the number of a code page.
struct CodePages {
  std::string_view Prefix;
  UINT Base;
};
constexpr std::array kCodePages{CodePages{"windows-", 0}, CodePages{"cp", 0}, CodePages{"ibm", 0},
                                CodePages{"iso-8859-", 28590}};
constexpr std::array kNamedPages{
    std::pair{std::string_view("us-ascii"), UINT{20127}}, std::pair{std::string_view("ascii"), UINT{20127}},
    std::pair{std::string_view("latin1"), UINT{28591}},   std::pair{std::string_view("utf-8"), UINT{CP_UTF8}},
    std::pair{std::string_view("shift_jis"), UINT{932}},  std::pair{std::string_view("gb2312"), UINT{936}},
    std::pair{std::string_view("gbk"), UINT{936}},        std::pair{std::string_view("big5"), UINT{950}},
    std::pair{std::string_view("euc-kr"), UINT{949}},     std::pair{std::string_view("koi8-r"), UINT{20866}},
    std::pair{std::string_view("koi8-u"), UINT{21866}}};

constexpr UINT kFirstCodePage = 37;

/// 0 for an unknown encoding.
UINT CodePageOf(std::string_view encoding) {
  for (const auto& [name, page] : kNamedPages) {
    if (EqualIgnoringCase(name, encoding)) return page;
  }
  for (const auto& [prefix, base] : kCodePages) {
    if (encoding.size() <= prefix.size() || !EqualIgnoringCase(encoding.substr(0, prefix.size()), prefix))
      continue;
    UINT number = 0;
    const char* last = encoding.data() + encoding.size();
    const auto [end, error] = std::from_chars(encoding.data() + prefix.size(), last, number);
    if (error == std::errc() && end == last) return base + number;
  }
  return 0;
}

}  // namespace

Environment& Environment::Native() {
  static NativeEnvironment environment;
  return environment;
}

std::optional<std::string> DecodeAs(std::string_view bytes, const std::string& encoding) {
  const UINT page = CodePageOf(encoding);
  // Reject the first numbers, which mean the system's current page, and the page for symbols, which
  // is not text.
  if (page < kFirstCodePage || page == CP_SYMBOL || ::IsValidCodePage(page) == 0) return std::nullopt;
  if (bytes.empty()) return std::string();
  const int size = static_cast<int>(bytes.size());
  int length = ::MultiByteToWideChar(page, MB_ERR_INVALID_CHARS, bytes.data(), size, nullptr, 0);
  // Read leniently where strict mode is not available, such as in encodings with shifts.
  if (length == 0 && ::GetLastError() == ERROR_INVALID_FLAGS)
    length = ::MultiByteToWideChar(page, 0, bytes.data(), size, nullptr, 0);
  if (length == 0) return std::nullopt;
  std::wstring wide(static_cast<std::size_t>(length), L'\0');
  ::MultiByteToWideChar(page, 0, bytes.data(), size, wide.data(), length);
  return Narrow(wide);
}

}  // namespace lwconfig::platform
