#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <memory>
#include <system_error>

#include <fcntl.h>
#include <glob.h>
#include <iconv.h>

#include <lwconfig/platform/host.h>

#include "descriptor.h"

namespace lwconfig::platform {
namespace {

/// The number at the beginning of the text, 0 where there is none.
int LeadingNumber(std::string_view text) {
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return std::max(number, 0);
}

/// The content of a system file; empty where it cannot be read.
std::string ReadIfPossible(const std::string& path) {
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (!file.IsOpen()) return {};
  try {
    return ReadAll(file, path);
  } catch (const std::system_error&) {
    return {};
  }
}

class NativeEnvironment final : public Environment {
 public:
  int DisplayWidth() override {
    if (const char* width = std::getenv("LWCONFIG_DISPLAY_WIDTH")) return LeadingNumber(width);
    // Take the first mode, such as "1920x1080": it is the preferred one. Only a connector with a
    // display lists modes.
    glob_t connectors{};
    int width = 0;
    if (::glob("/sys/class/drm/*/modes", 0, nullptr, &connectors) == 0) {
      for (std::size_t i = 0; i < connectors.gl_pathc && width == 0; ++i) {
        width = LeadingNumber(ReadIfPossible(connectors.gl_pathv[i]));
      }
    }
    ::globfree(&connectors);
    return width;
  }

  std::vector<std::string> ProcessArguments() override {
    const std::string line = ReadIfPossible("/proc/self/cmdline");
    std::vector<std::string> arguments;
    for (std::size_t begin = 0; begin < line.size();) {
      const std::size_t end = std::min(line.find('\0', begin), line.size());
      arguments.push_back(line.substr(begin, end - begin));
      begin = end + 1;
    }
    if (!arguments.empty()) arguments.erase(arguments.begin());
    return arguments;
  }
};

bool IsEncodingName(std::string_view name) {
  // Reject any other character: a slash would instruct the converter to be less strict.
  constexpr std::string_view kAllowed = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_.:+";
  return !name.empty() && name.find_first_not_of(kAllowed) == std::string_view::npos;
}

}  // namespace

Environment& Environment::Native() {
  static NativeEnvironment environment;
  return environment;
}

std::optional<std::string> DecodeAs(std::string_view bytes, const std::string& encoding) {
  if (!IsEncodingName(encoding)) return std::nullopt;
  const iconv_t opened = ::iconv_open("UTF-8", encoding.c_str());
  if (opened == reinterpret_cast<iconv_t>(-1)) return std::nullopt;
  const std::unique_ptr<void, int (*)(iconv_t)> converter(opened, ::iconv_close);

  std::string text(bytes.size() + bytes.size() / 2 + 16, '\0');
  std::size_t used = 0;
  char* input = const_cast<char*>(bytes.data());
  std::size_t inputLeft = bytes.size();
  for (bool atEnd = false;;) {
    char* output = text.data() + used;
    std::size_t outputLeft = text.size() - used;
    // Finish: without input, the converter completes its last character.
    const std::size_t result = atEnd ? ::iconv(opened, nullptr, nullptr, &output, &outputLeft)
                                     : ::iconv(opened, &input, &inputLeft, &output, &outputLeft);
    used = text.size() - outputLeft;
    if (result == static_cast<std::size_t>(-1)) {
      if (errno != E2BIG) return std::nullopt;
      text.resize(2 * text.size());
    } else if (atEnd) {
      break;
    } else {
      atEnd = true;
    }
  }
  text.resize(used);
  return text;
}

}  // namespace lwconfig::platform
