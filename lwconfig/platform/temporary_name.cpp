#include <lwconfig/core/base/letter_case.h>
#include <lwconfig/platform/temporary_name.h>

namespace lwconfig::platform {
namespace {

constexpr std::string_view kPrefix = ".";
constexpr std::string_view kSuffix = ".lwtmp";

}  // namespace

std::string TemporaryName(std::string_view name) {
  constexpr std::size_t kLongestName = 255;
  std::string hash;
  if (std::size_t room = kLongestName - kPrefix.size() - kSuffix.size(); name.size() > room) {
    hash = "~" + std::to_string(HashIgnoringCase(name));
    room -= hash.size();
    const auto isInsideCharacter = [&] { return (static_cast<unsigned char>(name[room]) & 0xC0) == 0x80; };
    while (room > 0 && isInsideCharacter()) --room;
    name = name.substr(0, room);
  }
  return std::string(kPrefix).append(name).append(hash).append(kSuffix);
}

bool IsTemporaryName(std::string_view name) {
  return name.size() > kPrefix.size() + kSuffix.size() && name.starts_with(kPrefix) &&
         name.ends_with(kSuffix);
}

}  // namespace lwconfig::platform
