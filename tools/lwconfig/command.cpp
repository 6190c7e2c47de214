#include <algorithm>
#include <charconv>
#include <stdexcept>

#include <tools/lwconfig/command.h>

#include <lwconfig/core/base/unicode.h>

namespace lwconfig::tool {

bool Parameter::IsNamed(std::string_view name) const {
  for (std::string_view names = Name;;) {
    const std::size_t comma = names.find(',');
    if (names.substr(0, comma) == name) return true;
    if (comma == std::string_view::npos) return false;
    names.remove_prefix(comma + 1);
  }
}

std::string Parameter::FaultOf(const std::string& given) const {
  if (Form == Form::Path && given.empty()) return "the name of the file or folder is empty";
  if (Form == Form::Text && !IsValidUtf8(given)) return "the text is not valid UTF-8";
  return Check != nullptr ? Check(given) : std::string();
}

std::string Parameter::LongName() const {
  const std::string_view names = Name;
  return std::string(names.substr(names.rfind(',') + 1));  // the whole where there is no comma
}

const std::vector<std::string>& Arguments::Texts(std::string_view name) const {
  const auto found =
      std::ranges::find_if(mGiven, [&](const auto& given) { return given.first->IsNamed(name); });
  if (found == mGiven.end()) throw std::logic_error("the command has no parameter " + std::string(name));
  return found->second;
}

std::size_t Arguments::Number(std::string_view name) const {
  const std::string text = Text(name);
  std::size_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

const Command* Command::Action(std::string_view name) const {
  const auto found =
      std::ranges::find_if(Actions, [&](const Command* action) { return action->Name == name; });
  return found == Actions.end() ? nullptr : *found;
}

}  // namespace lwconfig::tool
