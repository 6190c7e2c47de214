#include <charconv>

#include <tools/lwconfig/commands/common_options.h>
#include <tools/lwconfig/terminal.h>

namespace lwconfig::tool {

std::string CheckColour(const std::string& given) {
  const bool isKnown = given == "auto" || given == "always" || given == "never";
  return isKnown ? "" : given + " not in {auto,always,never}";
}

std::string CheckColumns(const std::string& given) {
  constexpr unsigned kLeast = 20;
  constexpr unsigned kMost = 10000;
  unsigned columns = 0;
  const char* const end = given.data() + given.size();
  const auto [rest, failure] = std::from_chars(given.data(), end, columns);
  if (rest == end && failure == std::errc() && columns >= kLeast && columns <= kMost) return "";
  return "Value " + given + " not in range 20 to 10000";
}

TextStyle StyleOf(const Arguments& arguments) {
  return OutputStyle(arguments.Text("--color"), arguments.Number("--width"));
}

}  // namespace lwconfig::tool
